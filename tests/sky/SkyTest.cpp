// Geometry of the charts: projections, boxes, cuts at the horizon, picking, transit.
#include <set>

#include "astro/mMate.h"
#include "tests/sky/SkyFixture.h"

namespace halvorine {
namespace {

constexpr std::array<std::int16_t, 4> orientationOfTurns = {FacingSouth, FacingEast, FacingNorth, FacingWest};

SkyProjection ProjectionOfRow(const ReferenceRow& row) {
  return {row.Count(2) != 0, orientationOfTurns.at(static_cast<std::size_t>(row.Count(1)))};
}

TEST_F(SkyTest, ProjectionsAgreeWithTheReference) {
  for (const ReferenceRow& row : ReferenceRows("sky_disc.txt", '|', "disc")) {
    double x = 0, y = 0;
    Mappatura(ProjectionOfRow(row), row.Number(3), row.Number(4), x, y);
    EXPECT_NEAR(x, row.Number(5), 1e-9);
    EXPECT_NEAR(y, row.Number(6), 1e-9);
  }
  for (const ReferenceRow& row : ReferenceRows("sky_disc.txt", '|', "inverse")) {
    double azimuth = 0, altitude = 0;
    Mappatura_inversa(ProjectionOfRow(row), row.Number(3), row.Number(4), azimuth, altitude);
    EXPECT_NEAR(azimuth, row.Number(5), 1e-8);
    // the reference divides by a sine that a truncated constant shifts, the more the nearer the meridian
    const double meridian = row.Count(2) != 0 ? std::abs(row.Number(4) / row.Number(3)) : 0;
    EXPECT_NEAR(altitude, row.Number(6), 1e-8 + 1.5e-6 * (meridian + (row.Count(2) != 0 ? 1 : 0)));
  }
}

TEST_F(SkyTest, InverseLeadsBackAlsoAlongTheMeridian) {
  for (const bool stereographic : {true, false})
    for (std::int16_t orientation = 0; orientation < 4; ++orientation)
      for (double azimuth = 0; azimuth < 360; azimuth += 22.5)
        for (const double altitude : {-20.0, 0.0, 33.0, 89.0}) {
          const SkyProjection projection{stereographic, orientation};
          double x = 0, y = 0, backAzimuth = 0, backAltitude = 0;
          Mappatura(projection, azimuth, altitude, x, y);
          Mappatura_inversa(projection, x, y, backAzimuth, backAltitude);
          EXPECT_NEAR(backAltitude, altitude, 1e-6);
          EXPECT_NEAR(std::remainder(backAzimuth - azimuth, 360), 0, 1e-5);
        }
}

TEST_F(SkyTest, EveningAndMorningAreThoseOfTheAlmanac) {
  const std::map<std::string, int> bodies = {{"Mercury", 1}, {"Venus", 2},  {"Mars", 3},
                                             {"Jupiter", 4}, {"Saturn", 5}, {"Uranus", 6},
                                             {"Neptune", 7}, {"Sun", 8},    {"Moon", 9}};
  const std::map<std::string, std::string> stars = {{"Alcaid", "Alkaid"}};
  std::map<std::string, int> numbers;  // of the stars with a name
  for (int number = 1; number <= 60; ++number) numbers[ReadStar(number).Name] = number;
  for (const ReferenceRow& row : ReferenceRows("sky_evening.csv", ',', {})) {
    if (row.Text(0) == "utc") continue;
    GoTo(row.Text(0) == "2022/6/15 20:30:00" ? DateOf(2022, 6, 15) + 22.5 / 24
                                             : DateOf(2022, 6, 16) + 4.5 / 24);
    ProjectObjects(view.Places, view.Projection, 100);
    const auto body = bodies.find(row.Text(1));
    const auto alias = stars.find(row.Text(1));
    const int number = numbers[alias == stars.end() ? row.Text(1) : alias->second];
    ASSERT_TRUE(body != bodies.end() || number > 0) << row.Text(1);
    const StarRow& place =
        body != bodies.end() ? view.Places.Bodies[body->second] : view.Places.Stars.at(number - 1);
    // places of 2000 and bodies without parallax, as the program has them
    const double tolerance = row.Text(1) == "Moon" ? 1.3 : 0.5;
    EXPECT_NEAR(static_cast<double>(place.Altitude), row.Number(3), tolerance) << row.Text(1);
    const double across = std::remainder(static_cast<double>(place.Azimuth) - row.Number(2), 360) *
                          std::cos(row.Number(3) * std::acos(-1.0) / 180);
    EXPECT_NEAR(across, 0, tolerance) << row.Text(1);
  }
}

TEST_F(SkyTest, BoxesFollowSurfaceMouseAndWheel) {
  EXPECT_EQ(FullDiscBox(2), (ChartBox{-200, 100, 200, -100}));
  EXPECT_EQ(FullDiscBox(0.5), (ChartBox{-100, 200, 100, -200}));
  for (const double none : {0.0, -1.0}) EXPECT_THROW(FullDiscBox(none), ArithmeticFailure);
  const ChartBox box{-30, 40, 20, -10};
  EXPECT_EQ(ZoomDiscBox(-30, 40, 20, -10), box);
  EXPECT_EQ(ZoomDiscBox(20, -10, -30, 40), box);
  EXPECT_EQ(ZoomDiscBox(-300, 140, 250, -110), (ChartBox{-200, 100, 200, -100}));
  EXPECT_FALSE(ZoomDiscBox(5, 5, 5, 9));
  EXPECT_FALSE(ZoomDiscBox(210, 5, 300, 9));  // outside what can be looked at
  const std::optional<ChartBox> point = ZoomDiscBox(70, 5, 70.0000001, 5.0000001);
  ASSERT_TRUE(point);
  EXPECT_GT(point->Width(), 0.09);
  const ChartBox full = FullDiscBox(16.0 / 9);
  std::optional<ChartBox> wheel = ZoomDiscAbout(full, full, 40, -25, 1);
  ASSERT_TRUE(wheel);
  EXPECT_NEAR((40 - static_cast<double>(wheel->Left)) / wheel->Width(),
              (40 - static_cast<double>(full.Left)) / full.Width(), 1e-6);
  for (int i = 0; i < 80; ++i) wheel = ZoomDiscAbout(*wheel, full, 40, -25, 1);
  EXPECT_GT(wheel->Width(), 0.09);
  EXPECT_FALSE(ZoomDiscAbout(full, full, 0, 0, -1));
}

TEST_F(SkyTest, SegmentsEndAtTheHorizonOrAreDropped) {
  struct Case {
    ChartSpot above, below;
    std::optional<ChartSpot> cut;
  };
  const Case cases[] = {{{60, 0}, {120, 30}, ChartSpot{88.8375F, 14.4187F}},
                        {{0, 60}, {0, 120}, std::nullopt},    // vertical
                        {{60, 0}, {120, 0}, std::nullopt},    // level
                        {{85, 60}, {120, 70}, std::nullopt},  // missing
                        {{40, 20}, {40, 70}, ChartSpot{40, 70}}};
  for (const Case& c : cases) {
    const std::optional<ChartSpot> cut = CutAtHorizon(c.above, c.below);
    ASSERT_EQ(cut.has_value(), c.cut.has_value()) << c.below.X << " " << c.below.Y;
    if (!cut) continue;
    EXPECT_NEAR(cut->X, c.cut->X, 0.02F);
    EXPECT_NEAR(cut->Y, c.cut->Y, 0.02F);
  }
}

TEST_F(SkyTest, ClickFindsTheNearestAboveTheHorizonWithinItsReach) {
  SkyPlaces& places = view.Places;
  const ChartBox box{-200, 100, 200, -100};
  places.Stars = {{0, 0, 0, 30, 10, 10}, {0, 0, 0, -1, 12, 10}, {0, 0, 0, 30, 20, 10}};
  places.Bodies[Venus] = {0, 0, 0, 10, 24, 10};
  struct Case {
    double x, y;
    int star, body;
  };
  for (const Case& c :
       {Case{10.5, 10, 1, 0}, {21.9, 10, 3, 0}, {22.1, 10, 0, 2}, {10, 12.59, 0, 0}, {10, 12.57, 1, 0}}) {
    const std::optional<SkyPick> pick = PickInSky(places, box, c.x, c.y);
    EXPECT_EQ(pick ? pick->Star : 0, c.star) << c.x;
    EXPECT_EQ(pick ? pick->Body : 0, c.body) << c.x;
  }
  places.Stars = {{0, 0, 0, 5, 101, 0}};
  EXPECT_FALSE(PickInSky(places, box, 101, 0));  // outside the half that the first view allows
  EXPECT_TRUE(PickInSky(places, {-110, 100, 110, -100}, 101, 0));
}

TEST_F(SkyTest, ReadoutNamesThePlaceOnlyAboveTheHorizon) {
  // tan of half the zenith distance: 1/2
  EXPECT_EQ(SkyReadout({}, false, 0, 45), "Az. 000° 00' Alt. 36° 52'");
  EXPECT_EQ(SkyReadout({}, false, 90.5, 0), "");
}

class TransitTest : public SkyTest {
 protected:
  /// A step at which the station stands over the horizon for an observer below its path.
  TransitTest() {
    Observe(45.4642, 9.19, 122);
    Estrai_Dati_Satellite(1, issName, issLine1, issLine2);
    ActiveCount = 1;
    Date local = DateOf(2018, 1, 20);
    do {
      local = AddSeconds(local, 30);
      UpdateSiderealTime(local);
      ComputeSatelliteState(1, ClockFields.JulianDayNow);
    } while (SatelliteStates[1].Elevation < 30);
    GoTo(local);
  }
};

TEST_F(TransitTest, TrackRunsFromNowToTheSetInStepsOfThePeriod) {
  const double elevation = SatelliteStates[1].Elevation;
  ComputeTransit(view.Track, view.Projection);
  const std::vector<TrackPoint>& points = view.Track.Points;
  ASSERT_GT(points.size(), 5U);
  EXPECT_NEAR(points[0].Time, CurrentDate, 1e-9);
  EXPECT_NEAR(points[0].Altitude, elevation, 1e-6);
  EXPECT_NEAR((points[1].Time - points[0].Time) * 86400, SatelliteStates[1].Period / 180, 0.01);
  for (std::size_t i = 0; i + 1 < points.size(); ++i) EXPECT_GE(points[i].Altitude, 0);
  EXPECT_LT(points.back().Altitude, 0);
  EXPECT_NEAR(std::hypot(points.back().X, points.back().Y), 90, 0.01);  // cut at the horizon
  EXPECT_NEAR(SatelliteStates[1].Elevation, elevation, 1e-9) << "the present is put back";
  EXPECT_TRUE(platform.waitDepth == 0 && !TickEnabled);

  AddTimeMark(view.Track, 2, 40, 50);
  const TimeMark mark = view.Track.Marks[0];
  view.Projection = {false, FacingNorth};
  ProjectTrack(view.Track, view.Projection);
  double x = 0, y = 0;
  Mappatura(view.Projection, points[2].Azimuth, points[2].Altitude, x, y);
  EXPECT_NEAR(static_cast<double>(points[2].X), x, 1e-4);
  EXPECT_NEAR(std::hypot(points.back().X, points.back().Y), 90, 0.01);
  EXPECT_NEAR(view.Track.Marks[0].X2 - view.Track.Marks[0].X1, mark.X2 - mark.X1, 1e-4);
  EXPECT_NEAR(view.Track.Marks[0].X1, x, 1e-4);
}

}  // namespace
}  // namespace halvorine
