// The almanac as it is shown: notes in the place of times, and the Moon's phase.
#include "astro/mAlmanac.h"

#include <cmath>

#include "astro/mAstro.h"
#include "astro/mMate.h"
#include "shell/base/mFiles.h"
#include "tests/fakes/TrappingArithmetic.h"

namespace halvorine {
namespace {

class AlmanacTest : public TrappingArithmetic {
 protected:
  AlmanacTest() {
    Speak({"", "[frmRiseSet]", "sottoorizzonte=below", "sopraorizzonte=above", "nonsorge=no rise",
           "nontramonta=no set"});
    ReadSkyObjects(ReadWholeFile(TEST_SOURCE_DIR "/data/planets.dat"));
  }
  static void Stand(double latitude, double longitude, double zone, int daylight = 0) {
    Site.Latitude = ToSingle(latitude);
    Site.Longitude = ToSingle(longitude);
    Site.TimeZone = ToSingle(zone);
    Site.DaylightSaving = static_cast<std::uint8_t>(daylight);
  }
};

TEST_F(AlmanacTest, PolesTellWhyNothingRises) {
  for (const double latitude : {90.0, -90.0}) {
    Stand(latitude, 0, 0);
    const bool north = latitude > 0;
    const Almanac june = AlmanacOf(DateOf(2024, 6, 21)), december = AlmanacOf(DateOf(2024, 12, 21));
    EXPECT_EQ(june.SunRise.Time, north ? "above" : "below");
    EXPECT_EQ(june.SunSet.Time, june.SunRise.Time);
    EXPECT_EQ(december.SunRise.Time, north ? "below" : "above");
    EXPECT_EQ(june.SunRise.Azimuth + december.SunSet.Azimuth, "");
  }
}

// 1 March 2024 has no moonrise in Rome
TEST_F(AlmanacTest, DayWithoutAMoonriseShowsTheNoteThereAloneAndDaylightSavingMovesTheRest) {
  Stand(41.9, 12.5, 1);
  const Date day = DateOf(2024, 3, 1);
  const Almanac winter = AlmanacOf(day);
  EXPECT_EQ(winter.MoonRise.Time, "no rise");
  EXPECT_EQ(winter.MoonRise.Azimuth, "");
  EXPECT_EQ(winter.MoonSet.Azimuth.substr(5), "°");
  Stand(41.9, 12.5, 1, 1);
  const Almanac summer = AlmanacOf(day);
  EXPECT_NEAR(ParseNumber(summer.SunRise.Time), ParseNumber(winter.SunRise.Time) + 1, 0.01);
  EXPECT_NE(summer.MoonRise.Time, winter.MoonRise.Time) << "the Moon rises at 0:08 of 2 March in winter time";
}

// phases of June 2022 by the almanacs, Universal Time
TEST_F(AlmanacTest, PhaseIsThatOfTheDateAndLeavesTheClockAlone) {
  const struct {
    int day, hour, minute;
    double phase;
  } rows[] = {{7, 14, 48, 90}, {14, 11, 52, 180}, {21, 3, 11, 270}, {29, 2, 52, 360}};
  Stand(45.5, 9.2, 1, 1);
  UpdateSiderealTime(DateOf(2000, 1, 1));
  ComputeSun();
  ComputeMoon();
  const double now = ClockFields.JulianDayNow, ascension = SkyObjectTable[Moon].RightAscension,
               sun = SunLongitudeRad;
  for (const auto& row : rows) {
    const Date date =
        AddSeconds(DateOf(2022, 6, row.day), row.hour * 3600 + row.minute * 60 + ZoneShift() * 3600);
    EXPECT_NEAR(std::remainder(MoonPhaseAt(date) - row.phase, 360), 0, 1) << row.day;
  }
  EXPECT_EQ(ClockFields.JulianDayNow, now);
  EXPECT_EQ(SkyObjectTable[Moon].RightAscension, ascension);
  EXPECT_EQ(SunLongitudeRad, sun);
}

}  // namespace
}  // namespace halvorine
