#include <array>

#include "astro/mAstro.h"
#include "astro/mMate.h"
#include "tests/fakes/SkyReference.h"
#include "tests/fakes/TrappingArithmetic.h"

namespace halvorine {
namespace {

class Planets : public TrappingArithmetic {
 protected:
  Planets() { ReadSkyObjects(ReferenceElements()); }
};

TEST_F(Planets, PlacesAgreeWithReferenceValues) {
  for (const ReferenceRow& row : ReferenceRows("sky.txt", ' ', "place")) {
    const int body = row.Count(7);
    if (body > Neptune) continue;
    SCOPED_TRACE(testing::PrintToString(row.cells));
    UpdateSiderealTime(ReferenceDate(row, 1));
    ComputePlanets();
    CheckReferencePlace(row, SkyObjectTable[body]);
    EXPECT_NEAR(SkyObjectTable[body].Magnitude, row.Number(12), 1e-8);
  }
}

// the bounds lie a little above what the elements give over 1990 to 2050
TEST_F(Planets, StayWithinTheOrbitsAccuracyOfAnIndependentEphemeris) {
  ReadSkyObjects(ReadWholeFile(std::string(TEST_SOURCE_DIR) + "/data/planets.dat"));
  // root mean square and largest distance from the real sky, degrees
  const std::array<std::array<double, 2>, 7> bounds{
      {{0.75, 2.3}, {0.03, 0.1}, {0.55, 2.3}, {0.17, 0.35}, {0.26, 0.43}, {0.15, 0.18}, {0.015, 0.025}}};
  std::array<Errors, 7> places, phases, sizes;
  for (const ReferenceRow& row : ReferenceRows("planets.csv", ',')) {
    if (row.Text(0) == "julian_day_ut") continue;
    UpdateSiderealTime(row.Number(0) - 2415018.5);
    ComputePlanets();
    const int body = row.Count(1);
    const SkyObject& planet = SkyObjectTable[body];
    const auto index = static_cast<std::size_t>(body - 1);
    places[index].Add(Separation(planet, row.Number(2), row.Number(3)));
    phases[index].Add(planet.Phase - row.Number(5));
    sizes[index].Add(planet.Distance / row.Number(4) - 1);
  }
  for (std::size_t i = 0; i < places.size(); ++i) {
    SCOPED_TRACE(SkyObjectTable[static_cast<int>(i) + 1].ObjectName);
    EXPECT_EQ(places[i].Count(), 60);
    EXPECT_LT(places[i].Rms(), bounds[i][0]);
    EXPECT_LT(places[i].Largest(), bounds[i][1]);
    EXPECT_LT(phases[i].Largest(), 0.04);
    EXPECT_LT(sizes[i].Largest(), 0.03);
  }
}

TEST_F(Planets, FailingRowEndsTheRoutineAndKeepsWhatFollows) {
  UpdateSiderealTime(DateOf(2020, 6, 1));
  ComputePlanets();
  const Slots<SkyObject, 10> before = SkyObjectTable;
  SkyObjectTable[Mars].PeriodYears = 0;
  UpdateSiderealTime(DateOf(2020, 7, 1));
  EXPECT_THROW(ComputePlanets(), ArithmeticFailure);
  EXPECT_NE(SkyObjectTable[Venus].Declination, before[Venus].Declination);
  for (int row = Mars; row <= Neptune; ++row)
    EXPECT_EQ(SkyObjectTable[row].Declination, before[row].Declination) << row;
}

}  // namespace
}  // namespace halvorine
