#include "astro/mAstroRiseSet.h"

#include <array>
#include <cmath>
#include <cstdint>
#include <optional>

#include "astro/mMate.h"
#include "shell/base/mLang.h"

namespace halvorine {

namespace {

constexpr double DR = 0.017453292500000002;
constexpr double K1 = 0.2625161680430363;  // radians per hour that the sky turns

struct Place {
  double rightAscension = 0, declination = 0;  // radians
  double distance = 0;                         // radii of the Earth, the Moon's only
};

/// The beginning of the civil day.
struct DayStart {
  double T = 0;   // days from J2000, shifted by the zone
  double tt = 0;  // centuries from 1900, without the zone
  double T0 = 0;  // local sidereal angle, radians
};

/// Days from J2000 to 0h of a calendar day; years before 1583 are Julian.
double DayCount(double y, double m, double day) {
  const double g = y >= 1583 ? 1 : 0;
  const double d1 = Int(day);
  double f = day - d1 - 0.5;
  double j = -Int(7 * (Int((m + 9) / 12) + y) / 4);
  double j3 = 0;
  if (g == 1) {
    const double s = Sgn(m - 9);
    const double a = std::fabs(m - 9);
    j3 = Int(y + s * Int(a / 7));
    j3 = -Int((Int(j3 / 100) + 1) * 3 / 4);
  }
  j = j + Int(275 * m / 9) + d1 + g * j3;
  j = j + 1721027 + 2 * g + 367 * y;
  if (f < 0) {
    f += 1;
    j -= 1;
  }
  return j + f - 2451545;
}

DayStart StartOfDay(double longitude, double hours, Date date) {
  const DateParts parts = PartsOf(date);
  const double lonFraction = longitude / 360;
  const double zoneFraction = hours / 24;
  DayStart start;
  start.T = DayCount(parts.year, parts.month, parts.day);
  start.tt = start.T / 36525 + 1;
  double s = 24110.5 + 8640184.813 * (start.T / 36525) + 86636.6 * zoneFraction + 86400 * lonFraction;
  s = s / 86400;
  s = s - Int(s);
  start.T0 = s * 360 * DR;
  start.T = start.T + zoneFraction;
  return start;
}

/// A fraction of a turn, whole turns dropped, in radians.
double Turn(double x) { return (x - Int(x)) * TwoPi; }

/// The place of a mean longitude L and the three sums of the series.
Place PlaceOf(double L, double v, double u, double w) {
  Place place;
  place.rightAscension = L + ArcSin(Div(w, Sqrt(u - v * v)));
  place.declination = ArcSin(Div(v, Sqrt(u)));
  return place;
}

Place SunPlace(double t, double tt) {
  const double L = Turn(0.779072 + 0.00273790931 * t);
  const double G = Turn(0.993126 + 0.0027377785 * t);
  const double v =
      0.39785 * std::sin(L) - 0.01 * std::sin(L - G) + 0.00333 * std::sin(L + G) - 0.00021 * tt * std::sin(L);
  const double u = 1 - 0.03349 * std::cos(G) - 0.00014 * std::cos(2 * L) + 0.00008 * std::cos(L);
  const double w = -0.0001 - 0.04129 * std::sin(2 * L) + 0.03211 * std::sin(G) +
                   0.00104 * std::sin(2 * L - G) - 0.00035 * std::sin(2 * L + G) - 0.00008 * tt * std::sin(G);
  return PlaceOf(L, v, u, w);
}

Place MoonPlace(double t) {
  const double L = Turn(0.606434 + 0.03660110129 * t);
  const double M = Turn(0.374897 + 0.03629164709 * t);
  const double F = Turn(0.259091 + 0.0367481952 * t);
  const double D = Turn(0.827362 + 0.03386319198 * t);
  const double N = Turn(0.347343 - 0.00014709391 * t);
  const double G = Turn(0.993126 + 0.0027377785 * t);
  const double v = 0.39558 * std::sin(F + N) + 0.082 * std::sin(F) + 0.03257 * std::sin(M - F - N) +
                   0.01092 * std::sin(M + F + N) + 0.00666 * std::sin(M - F) -
                   0.00644 * std::sin(M + F - 2 * D + N) - 0.00331 * std::sin(F - 2 * D + N) -
                   0.00304 * std::sin(F - 2 * D) - 0.0024 * std::sin(M - F - 2 * D - N) +
                   0.00226 * std::sin(M + F) - 0.00108 * std::sin(M + F - 2 * D) - 0.00079 * std::sin(F - N) +
                   0.00078 * std::sin(F + 2 * D + N);
  const double u = 1 - 0.10828 * std::cos(M) - 0.0188 * std::cos(M - 2 * D) - 0.01479 * std::cos(2 * D) +
                   0.00181 * std::cos(2 * M - 2 * D) - 0.00147 * std::cos(2 * M) -
                   0.00105 * std::cos(2 * D - G) - 0.00075 * std::cos(M - 2 * D + G);
  const double w = 0.10478 * std::sin(M) - 0.04105 * std::sin(2 * F + 2 * N) - 0.0213 * std::sin(M - 2 * D) -
                   0.01779 * std::sin(2 * F + N) + 0.01774 * std::sin(N) + 0.00987 * std::sin(2 * D) -
                   0.00338 * std::sin(M - 2 * F - 2 * N) - 0.00309 * std::sin(G) - 0.0019 * std::sin(2 * F) -
                   0.00144 * std::sin(M + N) - 0.00144 * std::sin(M - 2 * F - N) -
                   0.00113 * std::sin(M + 2 * F + 2 * N) - 0.00094 * std::sin(M - 2 * D + G) -
                   0.00092 * std::sin(2 * M - 2 * D);
  Place place = PlaceOf(L, v, u, w);
  place.distance = 60.40974 * Sqrt(u);
  return place;
}

/// Keeps an angle behind another one rising.
void KeepRising(double& angle, double former) {
  if (angle < former) angle += TwoPi;
}

/// Walks over the hours of a day and notes the events that it finds.
class DayWalk {
 public:
  DayWalk(double latitude, double sidereal, double zenith, const Place& first, DayEvents& events)
      : S_(std::sin(latitude * DR)),
        C_(std::cos(latitude * DR)),
        T0_(sidereal),
        Z_(zenith),
        A0_(first.rightAscension),
        D0_(first.declination),
        events_(events) {}

  /// Looks for an event in hour c, at whose end the body stands at A2, D2.
  void Hour(int c, double A2, double D2) {
    Test(c, A2, D2);
    A0_ = A2;
    D0_ = D2;
    V0_ = V2_;
  }

  double RightAscension() const { return A0_; }

  /// Tells why events are missing.
  void WriteNote() const {
    if (!riseSeen_ && !setSeen_)
      events_.NoteKey = V2_ < 0 ? "sottoorizzonte" : V2_ > 0 ? "sopraorizzonte" : "";
    else if (!riseSeen_)
      events_.NoteKey = "nonsorge";
    else if (!setSeen_)
      events_.NoteKey = "nontramonta";
  }

 private:
  enum class Event : std::uint8_t { None, Rise, Set };

  /// Sine of the altitude above the horizon that counts.
  double Above(double declination, double hourAngle) const {
    return S_ * std::sin(declination) + C_ * std::cos(declination) * std::cos(hourAngle) - Z_;
  }

  void Test(int c, double A2, double D2) {
    const double L0 = T0_ + c * K1;
    const double L2 = L0 + K1;
    const double H0 = L0 - A0_;
    const double H2 = L2 - A2;
    const double H1 = (H2 + H0) / 2;
    const double D1 = (D2 + D0_) / 2;
    if (c == 0) V0_ = Above(D0_, H0);
    V2_ = Above(D2, H2);
    if (Sgn(V0_) == Sgn(V2_)) return;

    const double V1 = Above(D1, H1);
    const double a = 2 * V2_ - 4 * V1 + 2 * V0_;
    const double b = 4 * V1 - 3 * V0_ - V2_;
    const double square = b * b - 4 * a * V0_;
    if (square < 0) return;
    const double q = Sqrt(square);
    if (V0_ < 0 && V2_ > 0) {
      event_ = Event::Rise;
      riseSeen_ = true;
    } else if (V0_ > 0 && V2_ < 0) {
      event_ = Event::Set;
      setSeen_ = true;
    }
    double e = Div(-b + q, 2 * a);
    if (e > 1 || e < 0) e = Div(-b - q, 2 * a);
    if (event_ != Event::None) (event_ == Event::Rise ? events_.RiseHour : events_.SetHour) = c + e;
    WriteAzimuth(D1, H0 + e * (H2 - H0));
  }

  void WriteAzimuth(double D1, double H7) const {
    const double n = -std::cos(D1) * std::sin(H7);
    const double w = C_ * std::sin(D1) - S_ * std::cos(D1) * std::cos(H7);
    double az = std::atan(Div(n, w)) / DR;
    if (w < 0) az += 180;
    if (az < 0) az += 360;
    if (az > 360) az -= 360;
    if (event_ == Event::None) return;
    (event_ == Event::Rise ? events_.RiseAzimuth : events_.SetAzimuth) = az;
  }

  const double S_, C_, T0_, Z_;
  double A0_, D0_;             // place at the beginning of the hour
  double V0_ = 0, V2_ = 0;     // height above the horizon at both ends of the hour
  Event event_ = Event::None;  // the last one seen in the day
  bool riseSeen_ = false, setSeen_ = false;
  DayEvents& events_;
};

/// Value at p of a day between three values half a day apart.
double Between(double p, double F0, double F1, double F2) {
  const double a = F1 - F0;
  const double b = F2 - F1 - a;
  return F0 + p * (2 * a + b * (2 * p - 1));
}

/// Hours and minutes; `hour` counts from 0h.
std::string TimeText(std::optional<double> hour) {
  if (!hour) return {};
  const double t = *hour + 1.0 / 120;  // half a minute, for the rounding
  const double hh = Int(t);
  const double mm = Int((t - hh) * 60);
  return Format(hh, "00") + ":" + Format(mm, "00");
}

std::string AzimuthText(std::optional<double> azimuth) {
  return azimuth ? Format(*azimuth, "000.0") : std::string();
}

using EventsRoutine = void (&)(double, double, double, Date, DayEvents&);

/// The events of a routine as text, also where it fails.
void WriteTexts(EventsRoutine routine, double latitude, double longitude, double hours, Date date,
                std::string& riseTime, std::string& setTime, std::string& riseAzimuth,
                std::string& setAzimuth, std::string& note) {
  DayEvents events;
  const auto write = [&] {
    riseTime = TimeText(events.RiseHour);
    setTime = TimeText(events.SetHour);
    riseAzimuth = AzimuthText(events.RiseAzimuth);
    setAzimuth = AzimuthText(events.SetAzimuth);
    note = events.NoteKey.empty() ? std::string() : LookupText("frmRiseSet", events.NoteKey);
  };
  try {
    routine(latitude, longitude, hours, date, events);
  } catch (const ArithmeticFailure&) {
    write();
    throw;
  }
  write();
}

}  // namespace

void SunEvents(double latitude, double longitude, double hours, Date date, DayEvents& events) {
  events = {};
  const DayStart start = StartOfDay(longitude, hours, date);
  const Place first = SunPlace(start.T, start.tt);
  Place second = SunPlace(start.T + 1, start.tt);
  KeepRising(second.rightAscension, first.rightAscension);

  DayWalk walk(latitude, start.T0, std::cos(90.833 * DR), first, events);
  for (int c = 0; c < 24; ++c) {
    const double p = (c + 1) / 24.0;
    walk.Hour(c, first.rightAscension + p * (second.rightAscension - first.rightAscension),
              first.declination + p * (second.declination - first.declination));
  }
  walk.WriteNote();
}

void MoonEvents(double latitude, double longitude, double hours, Date date, DayEvents& events) {
  events = {};
  const DayStart start = StartOfDay(longitude, hours, date);
  std::array<Place, 3> places{MoonPlace(start.T), MoonPlace(start.T + 0.5), MoonPlace(start.T + 1)};
  KeepRising(places[1].rightAscension, places[0].rightAscension);
  KeepRising(places[2].rightAscension, places[1].rightAscension);

  const double zenith = std::cos(DR * (90.567 - Div(41.685, places[1].distance)));
  DayWalk walk(latitude, start.T0, zenith, places[0], events);
  for (int c = 0; c < 24; ++c) {
    const double p = (c + 1) / 24.0;
    double A2 = Between(p, places[0].rightAscension, places[1].rightAscension, places[2].rightAscension);
    KeepRising(A2, walk.RightAscension());
    walk.Hour(c, A2, Between(p, places[0].declination, places[1].declination, places[2].declination));
  }
  walk.WriteNote();
}

void SunRiseSet(double latitude, double longitude, double hours, Date date, std::string& riseTime,
                std::string& setTime, std::string& riseAzimuth, std::string& setAzimuth, std::string& note) {
  WriteTexts(SunEvents, latitude, longitude, hours, date, riseTime, setTime, riseAzimuth, setAzimuth, note);
}

void MoonRiseSet(double latitude, double longitude, double hours, Date date, std::string& riseTime,
                 std::string& setTime, std::string& riseAzimuth, std::string& setAzimuth, std::string& note) {
  WriteTexts(MoonEvents, latitude, longitude, hours, date, riseTime, setTime, riseAzimuth, setAzimuth, note);
}

}  // namespace halvorine
