#include "astro/mAstroRiseSet.h"

#include "astro/mMate.h"
#include "shell/base/mLang.h"
#include "tests/fakes/SkyReference.h"
#include "tests/fakes/TrappingArithmetic.h"

namespace halvorine {
namespace {

struct DayTexts {
  std::string riseTime, setTime, riseAzimuth, setAzimuth, note;
};

class RiseSet : public TrappingArithmetic {
 protected:
  RiseSet() {
    LanguageLines = {"",
                     "[frmRiseSet]",
                     "sottoorizzonte=sottoorizzonte",
                     "sopraorizzonte=sopraorizzonte",
                     "nonsorge=nonsorge",
                     "nontramonta=nontramonta"};
    LanguageLoaded = true;
  }
  ~RiseSet() override {
    LanguageLines.clear();
    LanguageLoaded = false;
  }

  static DayTexts Events(bool moon, double latitude, double longitude, double hours, Date date) {
    DayTexts day{"old", "old", "old", "old", "old"};
    (moon ? MoonRiseSet : SunRiseSet)(latitude, longitude, hours, date, day.riseTime, day.setTime,
                                      day.riseAzimuth, day.setAzimuth, day.note);
    return day;
  }
};

std::string Shown(const std::string& text) { return text.empty() ? "-" : text; }

void CheckRaw(std::optional<double> value, const ReferenceRow& row, std::size_t cell, double tolerance) {
  ASSERT_EQ(value.has_value(), row.Text(cell) != "-");
  if (!value) return;
  EXPECT_NEAR(*value, row.Number(cell), tolerance);
}

TEST_F(RiseSet, TextsAndRawValuesAgreeWithReferenceValues) {
  int rows = 0;
  for (const char* body : {"sun", "moon"}) {
    for (const ReferenceRow& row : ReferenceRows("riseset.txt", ' ', body)) {
      SCOPED_TRACE(testing::PrintToString(row.cells));
      const Date date =
          DateOf(row.Count(4), row.Count(5), row.Count(6)) + 0.7;  // the time of day is not read
      const DayTexts day = Events(row.Text(0) == "moon", row.Number(1), row.Number(2), row.Number(3), date);
      EXPECT_EQ(Shown(day.riseTime), row.Text(7));
      EXPECT_EQ(Shown(day.setTime), row.Text(8));
      EXPECT_EQ(Shown(day.riseAzimuth), row.Text(9));
      EXPECT_EQ(Shown(day.setAzimuth), row.Text(10));
      EXPECT_EQ(Shown(day.note), row.Text(11));
      DayEvents raw;
      (row.Text(0) == "moon" ? MoonEvents : SunEvents)(row.Number(1), row.Number(2), row.Number(3), date,
                                                       raw);
      CheckRaw(raw.RiseHour, row, 12, 1e-8);
      CheckRaw(raw.RiseAzimuth, row, 13, 1e-7);
      CheckRaw(raw.SetHour, row, 14, 1e-8);
      CheckRaw(raw.SetAzimuth, row, 15, 1e-7);
      ++rows;
    }
  }
  EXPECT_EQ(rows, 70);
}

/// Hours of a shown time.
double HoursOf(const std::string& time) {
  return ParseNumber(time.substr(0, 2)) + ParseNumber(time.substr(3)) / 60;
}

/// Checks one event against an independent one; its errors go to the two sums, minutes and degrees.
void CompareEvent(const std::string& time, const std::string& azimuth, const ReferenceRow& row,
                  std::size_t cell, Errors& minutes, Errors& degrees) {
  const bool expected = row.Text(cell) != "-";
  ASSERT_EQ(!time.empty(), expected);
  if (!expected) return;
  minutes.Add((HoursOf(time) - row.Number(cell)) * 60);
  degrees.Add(std::remainder(ParseNumber(azimuth) - row.Number(cell + 1), 360));
}

// whole minutes are shown, so half a minute of the bounds is the rounding; polar events are slow and so less
// sharp
TEST_F(RiseSet, AgreesWithAnIndependentEphemerisInBothHemispheres) {
  Errors minutes, degrees, polarMinutes, polarDegrees;
  int without = 0;
  for (const ReferenceRow& row : ReferenceRows("riseset.csv", ',')) {
    if (row.Text(0) == "latitude") continue;
    SCOPED_TRACE(testing::PrintToString(row.cells));
    const DayTexts day = Events(row.Text(6) == "Moon", row.Number(0), row.Number(1), -row.Number(2),
                                DateOf(row.Count(3), row.Count(4), row.Count(5)));
    const bool polar = std::fabs(row.Number(0)) > 66;
    Errors& time = polar ? polarMinutes : minutes;
    Errors& angle = polar ? polarDegrees : degrees;
    CompareEvent(day.riseTime, day.riseAzimuth, row, 7, time, angle);
    CompareEvent(day.setTime, day.setAzimuth, row, 9, time, angle);
    if (row.Text(7) == "-" || row.Text(9) == "-") {
      EXPECT_NE(day.note, "");
      ++without;
    }
  }
  EXPECT_GT(without, 50);
  EXPECT_LT(minutes.Rms(), 0.5);
  EXPECT_LT(minutes.Largest(), 2);
  EXPECT_LT(degrees.Rms(), 0.08);
  EXPECT_LT(degrees.Largest(), 0.4);
  EXPECT_LT(polarMinutes.Rms(), 1.2);
  EXPECT_LT(polarMinutes.Largest(), 5);
  EXPECT_LT(polarDegrees.Largest(), 1.4);
}

TEST_F(RiseSet, PolarDayAndPolarNightAreNoted) {
  EXPECT_EQ(Events(false, 80, 15, -1, DateOf(2024, 6, 21)).note, "sopraorizzonte");
  EXPECT_EQ(Events(false, 80, 15, -1, DateOf(2024, 12, 21)).note, "sottoorizzonte");
  EXPECT_EQ(Events(false, -80, 15, -1, DateOf(2024, 12, 21)).note, "sopraorizzonte");
  EXPECT_EQ(Events(false, -80, 15, -1, DateOf(2024, 6, 21)).riseTime, "");
}

// an independent ephemeris has the Moon rise in Rome on 2 March at 0:08, on 29 March at 23:07, on 31 March at
// 0:14
TEST_F(RiseSet, DayWithoutAMoonriseStillShowsItsSet) {
  std::vector<int> withoutRise, withoutSet;
  for (int day = 1; day <= 31; ++day) {
    const DayTexts events = Events(true, 41.9, 12.5, -1, DateOf(2024, 3, day));
    EXPECT_EQ(events.riseTime.empty(), events.note == "nonsorge") << day;
    EXPECT_EQ(events.riseAzimuth.empty(), events.riseTime.empty()) << day;
    EXPECT_EQ(events.setTime.empty(), events.note == "nontramonta") << day;
    if (events.riseTime.empty()) withoutRise.push_back(day);
    if (events.setTime.empty()) withoutSet.push_back(day);
  }
  EXPECT_EQ(withoutRise, (std::vector<int>{1, 30}));
  EXPECT_EQ(withoutSet.size(), 1U);
}

TEST_F(RiseSet, DaylightSavingShiftsTheClockByAnHour) {
  const DayTexts winter = Events(false, 45.5, 9.2, -1, DateOf(2024, 4, 10));
  const DayTexts summer = Events(false, 45.5, 9.2, -2, DateOf(2024, 4, 10));
  EXPECT_NEAR(HoursOf(summer.riseTime) - HoursOf(winter.riseTime), 1, 1.1 / 60);
  EXPECT_NEAR(HoursOf(summer.setTime) - HoursOf(winter.setTime), 1, 1.1 / 60);
}

// the right ascension passes the whole turn on these days; a jump would lose or move the events
TEST_F(RiseSet, EquinoxPassesWithoutAJump) {
  for (int day = 18; day <= 23; ++day) {
    const DayTexts events = Events(false, 0, 0, 0, DateOf(2024, 3, day));
    EXPECT_NEAR(HoursOf(events.riseTime), 6.06, 0.05) << day;
    EXPECT_NEAR(HoursOf(events.setTime), 18.18, 0.05) << day;
  }
}

// searched over places, not told by the almanac: the half minute for the rounding carries past the day's end
TEST_F(RiseSet, EventInTheLastHalfMinuteShowsHour24) {
  bool found = false;
  for (int step = 0; step < 18000 && !found; ++step)
    found = Events(false, 10, step * 0.02, 0, DateOf(2024, 5, 5)).setTime == "24:00";
  EXPECT_TRUE(found);
}

}  // namespace
}  // namespace halvorine
