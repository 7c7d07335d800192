#include "maps/mMap.h"

#include <cmath>

#include "astro/mMate.h"
#include "tests/fakes/RecordingSurface.h"
#include "tests/fakes/ReferenceTable.h"
#include "tests/fakes/TrappingArithmetic.h"

namespace halvorine {
namespace {

class MapTest : public TrappingArithmetic {};

TEST_F(MapTest, FileChoiceAgreesWithReferenceAndKeepsTheGapAt315) {
  for (const ReferenceRow& row : ReferenceRows("map.txt", '|', "choose")) {
    const std::optional<MapFileChoice> choice = ChooseMapFile(row.Number(1), row.Number(2));
    SCOPED_TRACE(row.Text(1) + " " + row.Text(2));
    ASSERT_EQ(choice.has_value(), row.Text(3) != "none");
    if (!choice) continue;
    EXPECT_EQ(choice->File, "\\" + row.Text(3));
    EXPECT_EQ(choice->CentreLongitude, row.Number(4));
    EXPECT_EQ(choice->CentreLatitude, row.Number(5));
  }
}

TEST_F(MapTest, GlobeAgreesWithReferenceAndHiddenPointsLeaveTheResult) {
  for (const ReferenceRow& row : ReferenceRows("map.txt", '|', "globe")) {
    double x = 777, y = 888;
    std::int16_t visible = 5;
    Proietta_orto(row.Number(1), row.Number(2), row.Number(3), row.Number(4), x, y, visible);
    EXPECT_EQ(visible, row.Count(7));
    EXPECT_NEAR(x, visible != 0 ? row.Number(5) : 777, 1e-9);
    EXPECT_NEAR(y, visible != 0 ? row.Number(6) : 888, 1e-9);
  }
}

TEST_F(MapTest, InverseAgreesWithReferenceAndEndsAtItsOwnRadius) {
  for (const ReferenceRow& row : ReferenceRows("map.txt", '|', "inverse")) {
    const std::optional<GeoPoint> place =
        InvertGlobe(row.Number(1), row.Number(2), row.Number(3), row.Number(4));
    ASSERT_EQ(place.has_value(), row.Text(5) != "none");
    if (!place) continue;
    EXPECT_NEAR(place->Longitude, row.Number(5), 1e-8);
    EXPECT_NEAR(place->Latitude, row.Number(6), 1e-8);
  }
  EXPECT_FALSE(InvertGlobe(0, 0, globeRadius, 0));  // the limb of the drawing lies outside
}

TEST_F(MapTest, CentreReadsAsItself) {
  for (const GeoPoint& centre : {GeoPoint{0, 0}, GeoPoint{90, 45}, GeoPoint{180, -45}, GeoPoint{0, 90}}) {
    const std::optional<GeoPoint> place = InvertGlobe(centre.Longitude, centre.Latitude, 0, 0);
    ASSERT_TRUE(place);
    EXPECT_EQ(place->Longitude, centre.Longitude);
    EXPECT_EQ(place->Latitude, centre.Latitude);
  }
  EXPECT_EQ(InvertGlobe(270, 0, 0, 0)->Longitude, -90);
}

TEST_F(MapTest, NightTableAgreesWithReference) {
  for (const ReferenceRow& row : ReferenceRows("map.txt", '|', "night")) {
    const double subsolar = SubsolarLongitude(row.Number(1), row.Number(2));
    EXPECT_NEAR(subsolar, row.Number(4), 1e-9);
    const NightTable table = BuildNightTable(subsolar, row.Number(3));
    EXPECT_EQ(table.front().Longitude, -180);
    EXPECT_EQ(table.back().Longitude, 180);
    const std::vector<std::string> latitudes = Split(row.Text(6), ',');
    for (std::size_t i = 0; i < latitudes.size(); ++i)
      EXPECT_NEAR(table[9 * i].Latitude, ParseStrict(latitudes[i]), 0.0101) << table[9 * i].Longitude;
  }
}

TEST_F(MapTest, TerminatorIsAQuarterTurnFromTheSunAndEndsNowhereOnTheEquinox) {
  const double declination = 17.3, subsolar = 42.5;
  for (const GeoPoint& point : BuildNightTable(subsolar, declination)) {
    const double cosine = std::sin(point.Latitude * DegToRad) * std::sin(declination * DegToRad) +
                          std::cos(point.Latitude * DegToRad) * std::cos(declination * DegToRad) *
                              std::cos((point.Longitude - subsolar) * DegToRad);
    EXPECT_NEAR(cosine, 0, 2e-4);
  }
  EXPECT_EQ(BuildNightTable(subsolar, 0)[100].Latitude, BuildNightTable(subsolar, 0.5)[100].Latitude);
}

TEST_F(MapTest, CircleAgreesWithReferenceAndIsClosed) {
  for (const ReferenceRow& row : ReferenceRows("map.txt", '|', "circle")) {
    const CirclePoints points = VisibilityCircle(row.Number(1), row.Number(2), row.Number(3));
    for (std::size_t i = 4; i < row.cells.size(); ++i) {
      const std::vector<std::string> place = Split(row.Text(i), ',');
      EXPECT_NEAR(points[6 * (i - 4)].Longitude, ParseStrict(place[0]), 1e-8);
      EXPECT_NEAR(points[6 * (i - 4)].Latitude, ParseStrict(place[1]), 1e-8);
    }
    EXPECT_NEAR(points.front().Longitude, points.back().Longitude, 1e-5);
  }
  EXPECT_THROW(VisibilityCircle(6300, 0, 0), ArithmeticFailure);
  EXPECT_THROW(VisibilityCircle(0, 0, 0), ArithmeticFailure);
}

TEST_F(MapTest, GlobeIsRoundInAnyWindow) {
  for (const DeviceSize& box : {DeviceSize{9000, 3000}, DeviceSize{3000, 9000}, DeviceSize{3000, 3000}}) {
    RecordingSurface surface(box.Width, box.Height);
    SetMapScale(surface, kindOrtho);
    EXPECT_NEAR(surface.ScaleWidth() / box.Width, -surface.ScaleHeight() / box.Height, 1e-8);
    EXPECT_NEAR(std::min(surface.ScaleWidth(), -surface.ScaleHeight()), 360, 1e-4);
  }
  RecordingSurface nothing(0, 0);
  EXPECT_THROW(SetMapScale(nothing, kindOrtho), ArithmeticFailure);
}

TEST_F(MapTest, ReadoutTruncatesDegreesAndMinutes) {
  EXPECT_EQ(CoordinateReadout({-5.999, 45.5}, "Lon.", "Lat."), "Lon. -05° 59m  Lat. +45° 30m ");
  EXPECT_EQ(CoordinateReadout({122.25, -0.25}, "Lon.", "Lat."), "Lon. +122° 15m  Lat. -00° 15m ");
}

}  // namespace
}  // namespace halvorine
