#include "astro/mAstroRiseSet.h"

#include "astro/mMate.h"
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
    Speak({"", "[frmRiseSet]", "sottoorizzonte=sottoorizzonte", "sopraorizzonte=sopraorizzonte",
           "nonsorge=nonsorge", "nontramonta=nontramonta"});
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

// searched over places, not told by the almanac: the half minute for the rounding carries past the day's end
TEST_F(RiseSet, EventInTheLastHalfMinuteShowsHour24) {
  bool found = false;
  for (int step = 0; step < 18000 && !found; ++step)
    found = Events(false, 10, step * 0.02, 0, DateOf(2024, 5, 5)).setTime == "24:00";
  EXPECT_TRUE(found);
}

}  // namespace
}  // namespace halvorine
