#include "astro/mAstro.h"
#include "astro/mMate.h"
#include "tests/fakes/ReferenceTable.h"
#include "tests/fakes/TrappingArithmetic.h"

namespace halvorine {
namespace {

class Places : public TrappingArithmetic {};

TEST_F(Places, ConversionsAgreeWithReferenceValues) {
  for (const ReferenceRow& row : ReferenceRows("sky.txt", ' ', "equatorialToHorizontal")) {
    SCOPED_TRACE(testing::PrintToString(row.cells));
    ClockFields.LocalSiderealHours = row.Number(1);
    Site.Latitude = ToSingle(row.Number(2));
    double azimuth = 0, altitude = 0;
    EquatorialToHorizontal(row.Number(3), row.Number(4), azimuth, altitude);
    EXPECT_NEAR(azimuth, row.Number(5), 1e-8);
    EXPECT_NEAR(altitude, row.Number(6), 1e-8);
  }
  for (const ReferenceRow& row : ReferenceRows("sky.txt", ' ', "eclipticToEquatorial")) {
    SCOPED_TRACE(testing::PrintToString(row.cells));
    double rightAscension = 0, declination = 0;
    EclipticToEquatorial(row.Number(1), row.Number(2), row.Number(3), rightAscension, declination);
    EXPECT_NEAR(rightAscension, row.Number(4), 1e-9);
    EXPECT_NEAR(declination, row.Number(5), 1e-8);
  }
}

TEST_F(Places, ShownPartsAgreeWithReferenceValues) {
  for (const ReferenceRow& row : ReferenceRows("sky.txt", ' ', "horizontalToEquatorial")) {
    SCOPED_TRACE(testing::PrintToString(row.cells));
    ClockFields.LocalSiderealHours = row.Number(1);
    Site.Latitude = ToSingle(row.Number(2));
    EquatorialParts parts;
    HorizontalToEquatorial(row.Number(3), row.Number(4), parts);
    EXPECT_EQ(parts.raHours, row.Number(5));
    EXPECT_EQ(parts.raMinutes, row.Number(6));
    EXPECT_EQ(parts.raSeconds, row.Number(7));
    EXPECT_EQ(parts.decDegrees, row.Number(8));
    EXPECT_EQ(parts.decMinutes, row.Number(9));
    EXPECT_EQ(std::string(1, parts.decSign), row.Text(10));
  }
}

TEST_F(Places, ZenithKeepsTheFormerAltitude) {
  ClockFields.LocalSiderealHours = 6;
  Site.Latitude = 45;
  double azimuth = -1, altitude = 12.5;
  EquatorialToHorizontal(6, 45, azimuth, altitude);
  EXPECT_EQ(altitude, 12.5);
  EXPECT_GE(azimuth, 0);
}

TEST_F(Places, AtThePoleTheZenithHasNoDeclination) {
  ClockFields.LocalSiderealHours = 6.25;
  Site.Latitude = 90;
  EquatorialParts parts;
  HorizontalToEquatorial(1, std::acos(-1.0) / 2, parts);
  EXPECT_EQ(parts.decDegrees, 0);
}

TEST_F(Places, EclipticPoleKeepsTheFormerDeclination) {
  double rightAscension = -1, declination = -7;
  EclipticToEquatorial(std::acos(-1.0) / 2, 0, 0, rightAscension, declination);
  EXPECT_EQ(declination, -7);
  EXPECT_NE(rightAscension, -1);
}

TEST_F(Places, MeridianTakesHourAngleZeroWhereRoundingPassesOne) {
  // on the meridian 1 - c*c comes out at 0 or just below
  ClockFields.LocalSiderealHours = 3;
  for (const auto& [latitude, azimuth, first, step] :
       {std::array{45.0, Pi, 1.0, 0.7}, std::array{-89.0, 0.0, 0.03, 0.03},
        std::array{-88.0, 0.0, 0.03, 0.03}}) {
    Site.Latitude = ToSingle(latitude);
    for (int row = 0; row < 120; ++row) {
      const double altitude = first + step * row;
      EquatorialParts parts;
      HorizontalToEquatorial(azimuth, altitude * DegToRad, parts);
      const double ra = DmsToDecimal(parts.raHours, parts.raMinutes, parts.raSeconds);
      EXPECT_NEAR(std::remainder(ra - 3, 12), 0, 1.01 / 3600) << latitude << " " << altitude;
    }
  }
}

}  // namespace
}  // namespace halvorine
