#include "astro/mAstro.h"
#include "astro/mMate.h"

namespace halvorine {

double ZoneShift() { return static_cast<double>(Site.TimeZone + static_cast<float>(Site.DaylightSaving)); }

double JulianDay(double year, double month, double day) {
  const bool early = month <= 2;
  const double y = early ? year - 1 : year;
  const double m = early ? month + 12 : month;
  double b = 0;
  if (year + month / 100 + day / 10000 >= 1582.1015) {
    const double a = Int(y / 100);
    b = Int(a / 4) + (2 - a);
  }
  const double c = y >= 0 ? Int(365.25 * y) : Fix(365.25 * y - 0.75);
  const double d = Int((m + 1) * 30.6001);
  return c + b + d + day + 1720994.5;
}

Date JulianDayToLocalDate(double jd) {
  const double i = Int(jd + 0.5);
  const double f = jd + 0.5 - i;
  double k = i;
  if (i >= 2299161) {
    const double a = Int((i - 1867216.25) / 36524.25);
    k = i + 1 + a - Int(a / 4);
  }
  const double c = k + 1524;
  const double d = Int((c - 122.1) / 365.25);
  const double e = Int(d * 365.25);
  const double g = Int((c - e) / 30.6001);
  const double fractionalDay = Int((c - e + f - Int(g * 30.6001)) * 100000) / 100000;
  const double month = g < 13.5 ? g - 1 : g - 13;
  const double year = month <= 2.5 ? d - 4715 : d - 4716;
  const double day = Int(fractionalDay);
  const double t = fractionalDay - day;
  const double hours = Int(t * 24);
  const double minutes = Int((t * 24 - hours) * 60);
  const double seconds = RoundedByPicture(((t * 24 - hours) * 60 - minutes) * 60);
  Date date = DateOf(ToInt16(year), ToInt16(month), ToInt16(day));
  date = AddSeconds(date, hours * 3600);
  date = AddSeconds(date, minutes * 60);
  date = AddSeconds(date, seconds);
  return AddSeconds(date, ZoneShift() * 3600);
}

namespace {

struct CivilParts {
  double year, month, day, hours;
  std::int16_t dayOfYear;
};

CivilParts Civil(Date date) {
  const DateParts parts = PartsOf(date);
  const double hours = parts.hour + (parts.minute + parts.second / 60.0) / 60;
  const Date zeroJanuary = DateOf(ToInt16(parts.year), 1, 0);
  const Date today = DateOf(ToInt16(parts.year), ToInt16(parts.month), ToInt16(parts.day));
  return {static_cast<double>(parts.year), static_cast<double>(parts.month), static_cast<double>(parts.day),
          hours, ToInt16(today - zeroJanuary)};
}

}  // namespace

void UpdateSiderealTime(Date localDate) {
  ClockFieldsRecord& clock = ClockFields;
  clock.LocalDate = localDate;
  clock.UtcDate = AddSeconds(localDate, -ZoneShift() * 3600);
  const CivilParts utc = Civil(clock.UtcDate);
  const CivilParts local = Civil(clock.LocalDate);
  clock.UtcYear = utc.year;
  clock.UtcMonth = utc.month;
  clock.UtcDay = utc.day;
  clock.UtcHours = utc.hours;
  clock.UtcDayOfYear = utc.dayOfYear;
  clock.LocalYear = local.year;
  clock.LocalMonth = local.month;
  clock.LocalDay = local.day;
  clock.LocalHours = local.hours;
  clock.LocalDayOfYear = local.dayOfYear;

  clock.JulianDayNow = JulianDay(clock.UtcYear, clock.UtcMonth, clock.UtcDay + clock.UtcHours / 24);
  const double w = Int(clock.JulianDayNow);
  clock.JulianDayMidnight = clock.JulianDayNow - w >= 0.5 ? w + 0.5 : w - 0.5;
  const double T = (clock.JulianDayMidnight - 2451545) / 36525;
  double g = T * T * 2.5862e-5 + (T * 2400.051336 + 6.697374558);
  g = ModFloor(g, 24);
  g = clock.UtcHours * 1.002737909 + g;
  clock.GreenwichSiderealHours = ModFloor(g, 24);
  clock.LocalSiderealHours =
      ModFloor(clock.GreenwichSiderealHours + static_cast<double>(Site.Longitude) / 15, 24);
}

}  // namespace halvorine
