#include "astro/mAstro.h"
#include "astro/mMate.h"
#include "tests/fakes/ReferenceTable.h"
#include "tests/fakes/SkyReference.h"
#include "tests/fakes/TrappingArithmetic.h"

namespace halvorine {
namespace {

class SunMoon : public TrappingArithmetic {
 protected:
  SunMoon() { ReadSkyObjects(ReferenceElements()); }
};

TEST_F(SunMoon, PlacesAgreeWithReferenceValues) {
  for (const ReferenceRow& row : ReferenceRows("sky.txt", ' ', "place")) {
    const int body = row.Count(7);
    if (body < Sun) continue;
    SCOPED_TRACE(testing::PrintToString(row.cells));
    UpdateSiderealTime(ReferenceDate(row, 1));
    ComputeSun();
    ComputeMoon();
    CheckReferencePlace(row, SkyObjectTable[body]);
    if (body == Moon) {
      EXPECT_NEAR(SkyObjectTable[Moon].PhaseAngle, row.Number(12), 1e-10);
    }
  }
}

TEST_F(SunMoon, SharedValuesOfTheSunAgreeWithReferenceValues) {
  for (const ReferenceRow& row : ReferenceRows("sky.txt", ' ', "sun")) {
    UpdateSiderealTime(ReferenceDate(row, 1));
    ComputeSun();
    EXPECT_NEAR(SunLongitudeRad, row.Number(7), 1e-10);
    EXPECT_NEAR(SunMeanAnomalyRad, row.Number(8), 1e-10);
    EXPECT_EQ(SunRightAscension, SkyObjectTable[Sun].RightAscension);
    EXPECT_EQ(SunDeclination, SkyObjectTable[Sun].Declination);
  }
}

TEST_F(SunMoon, LooksFromSitesAgreeWithReferenceValues) {
  for (const ReferenceRow& row : ReferenceRows("sky.txt", ' ', "look")) {
    SCOPED_TRACE(testing::PrintToString(row.cells));
    Site.Latitude = ToSingle(row.Number(7));
    Site.Longitude = ToSingle(row.Number(8));
    UpdateSiderealTime(ReferenceDate(row, 1));
    ComputeSun();
    ComputeMoon();
    EXPECT_NEAR(SkyObjectTable[Sun].Azimuth, row.Number(9), 1e-8);
    EXPECT_NEAR(SkyObjectTable[Sun].Altitude, row.Number(10), 1e-8);
    EXPECT_NEAR(SkyObjectTable[Moon].Azimuth, row.Number(11), 1e-8);
    EXPECT_NEAR(SkyObjectTable[Moon].Altitude, row.Number(12), 1e-8);
  }
}

// the bounds are the series' own accuracy against an independent ephemeris over 1990 to 2050
TEST_F(SunMoon, StayWithinTheSeriesAccuracyOfAnIndependentEphemeris) {
  ReadSkyObjects(ReadWholeFile(std::string(TEST_SOURCE_DIR) + "/data/planets.dat"));
  Errors sun, moon, phase;
  for (const ReferenceRow& row : ReferenceRows("sun_moon.csv", ',')) {
    if (row.Text(0) == "julian_day_ut") continue;
    UpdateSiderealTime(row.Number(0) - 2415018.5);
    ComputeSun();
    ComputeMoon();
    sun.Add(Separation(SkyObjectTable[Sun], row.Number(1), row.Number(2)));
    moon.Add(Separation(SkyObjectTable[Moon], row.Number(4), row.Number(5)));
    phase.Add(std::remainder(SkyObjectTable[Moon].PhaseAngle * RadToDeg - row.Number(7), 360));
    EXPECT_NEAR(SkyObjectTable[Sun].Distance / row.Number(3), 1, 2e-4);
    EXPECT_NEAR(SkyObjectTable[Moon].Distance / row.Number(6), 1, 0.03);
  }
  EXPECT_EQ(sun.Count(), 60);
  EXPECT_LT(sun.Rms(), 0.010);
  EXPECT_LT(sun.Largest(), 0.020);
  EXPECT_LT(moon.Rms(), 0.32);
  EXPECT_LT(moon.Largest(), 0.56);
  EXPECT_LT(phase.Largest(), 0.60);
}

TEST_F(SunMoon, NegativeAnomalyGetsOneTurnAndNoMore) {
  // the Earth passes its perihelion in the first days of January
  const std::pair<int, double> rows[] = {{1900, 358.5}, {1898, -361.5}};
  for (const auto& [year, expected] : rows) {
    UpdateSiderealTime(DateOf(year, 1, 1));
    ComputeSun();
    EXPECT_NEAR(SunMeanAnomalyRad * RadToDeg, expected, 1.5) << year;
    EXPECT_NEAR(SkyObjectTable[Sun].Distance, 147.1e6, 0.1e6) << year;
  }
}

TEST_F(SunMoon, MoonWithoutANewSunUsesTheSunOfTheFormerInstant) {
  UpdateSiderealTime(DateOf(2024, 4, 8));
  ComputeSun();
  UpdateSiderealTime(DateOf(2024, 4, 18));
  ComputeMoon();
  const double withFormerSun = SkyObjectTable[Moon].PhaseAngle;
  ComputeSun();
  ComputeMoon();
  // the Sun moves by some ten degrees in ten days
  EXPECT_NEAR((withFormerSun - SkyObjectTable[Moon].PhaseAngle) * RadToDeg, 9.8, 1);
}

}  // namespace
}  // namespace halvorine
