#include <algorithm>
#include <cmath>

#include "shell/base/mLang.h"
#include "tests/maps/MapFixture.h"

namespace halvorine {
namespace {

using Kind = Primitive::Kind;
constexpr Colour behind = 255, ahead = 65280, yellow = 65535, grid = 8553090;
constexpr Colour night = Rgb(65, 65, 65), terminator = Rgb(105, 105, 105);

/// The largest radius of the ends of lines on the globe.
double Reach(const std::vector<Primitive>& lines) {
  double reach = 0;
  for (const Primitive& line : lines)
    reach = std::max({reach, std::hypot(line.x1, line.y1), std::hypot(line.x2, line.y2)});
  return reach;
}

/// Centre of a picture in user units.
GeoPoint Middle(const Primitive& picture) {
  return {(picture.x1 + picture.x2) / 2, (picture.y1 + picture.y2) / 2};
}

TEST_F(MapDrawTest, IconsFollowNumberNameAndPlace) {
  struct Case {
    const char *number, *name;
    int slot, icon;
  };
  for (const Case& c : {Case{"20580", "Sl-16 R/b", 1, 13}, Case{"25544", "Iss (Zarya)", 2, 14},
                        Case{"12345", "Sl-16 R/b", 1, 28}, Case{"12345", "Drop tank", 3, 28},
                        Case{"12345", "Sl-16 R/B", 1, 15}, Case{"12345", "Noaa 15", 2, 11}}) {
    ElementSets[c.slot].CatalogNumber = c.number;
    ElementSets[c.slot].Name = c.name;
    EXPECT_EQ(SatelliteIcon(c.slot), c.icon) << c.name;
  }
}

TEST_F(MapDrawTest, OnlyTheFirstSatelliteWipesTheMarksOfTheTickBefore) {
  PutSatellite(1, 0, 0);
  PutSatellite(2, 10, 10);
  SetMapScale(surface, kindRecta);
  surface.AutoRedraw(false);
  Disegna_satellite(surface, view, 1);
  Disegna_satellite(surface, view, 2);
  const std::vector<Primitive> clears = surface.Of(Kind::Clear);
  ASSERT_EQ(clears.size(), 1U);
  EXPECT_EQ(clears[0].layer, DrawLayer::Transient);
  EXPECT_EQ(surface.drawn.front().kind, Kind::Clear);
}

TEST_F(MapDrawTest, SatelliteBehindTheGlobeIsNeitherDrawnNorFound) {
  PutSatellite(1, 0, 0);
  PutSatellite(2, 0, 170);
  PutSatellite(3, 10, 20);
  TakeGlobe(0, 0);
  view.File = "\\Map0.dat";
  for (int slot = 1; slot <= 3; ++slot) Disegna_satellite(surface, view, slot);
  EXPECT_EQ(surface.Of(Kind::Text).size(), 2U);
  EXPECT_EQ(view.PlaceX[2], hiddenPlace);
  EXPECT_NEAR(view.PlaceX[3], 142 * std::cos(10 * M_PI / 180) * std::sin(20 * M_PI / 180), 1e-5);
  EXPECT_EQ(SatelliteAt(view, view.PlaceX[3] + 8.9, view.PlaceY[3]), 3);
  EXPECT_EQ(SatelliteAt(view, view.PlaceX[3] + 9.1, view.PlaceY[3]), 0);
}

TEST_F(MapDrawTest, LastOfSeveralNearSatellitesIsFoundWithinTheFlatReach) {
  PutSatellite(1, 10, 10);
  PutSatellite(2, 11, 11);
  for (const auto& [x, slot] : {std::pair{10.0, 2}, {10 - 4.8, 1}, {10 - 4.9, 0}})
    EXPECT_EQ(SatelliteAt(view, x, 10), slot);
}

TEST_F(MapDrawTest, GlobeIsRebuiltOnceWhenThePrincipalCrossesThirtyDegrees) {
  PutSatellite(1, 30, 10);
  view.Kind = kindOrtho;
  view.Switches = {false, false, false, false, false};
  Genera_mappa(surface, view);
  EXPECT_EQ(view.File, "\\Map0.dat");
  Disegna_satellite(surface, view, 1);
  EXPECT_EQ(surface.Of(Kind::Picture).size(), 2U);  // the Earth and one icon
  PutSatellite(1, 30.01, 10);
  surface.drawn.clear();
  Disegna_satellite(surface, view, 1);
  EXPECT_EQ(view.File, "\\Map0N45.dat");
  ASSERT_EQ(surface.Of(Kind::Picture).size(), 2U);
  EXPECT_EQ(surface.Of(Kind::Picture)[0].layer, DrawLayer::Persistent);
  const GeoPoint icon = Middle(surface.Of(Kind::Picture)[1]);
  EXPECT_NEAR(icon.Latitude, 142 * std::sin(-15 * M_PI / 180), 3);  // seen from the new centre
}

TEST_F(MapDrawTest, ExactlyAt315TheFirstGlobeIsTheCentralOneAndLaterTheFormerStays) {
  PutSatellite(1, 0, -45);
  SatelliteStates[1].Longitude360 = 315;
  view.Kind = kindOrtho;
  Carica_mappa(surface, view);
  EXPECT_EQ(view.File, "\\Map0.dat");
  SatelliteStates[1].Longitude360 = 300;
  Carica_mappa(surface, view);
  SatelliteStates[1].Longitude360 = 315;
  Carica_mappa(surface, view);
  EXPECT_EQ(view.File, "\\Map270.dat");
}

TEST_F(MapDrawTest, RebuildDrawsInOrderAndEmptyListHasNoTrack) {
  ActiveCount = 0;
  Genera_mappa(surface, view);
  const auto firstOf = [&](auto matches) {
    return std::find_if(surface.drawn.begin(), surface.drawn.end(), matches) - surface.drawn.begin();
  };
  const auto picture = firstOf([](const Primitive& p) { return p.kind == Kind::Picture; });
  const auto shade = firstOf([](const Primitive& p) { return p.shaded; });
  const auto line = firstOf([](const Primitive& p) { return p.kind == Kind::Line && p.colour == grid; });
  const auto observer = firstOf([](const Primitive& p) { return p.kind == Kind::Ellipse; });
  EXPECT_LT(picture, shade);
  EXPECT_LT(shade, line);
  EXPECT_LT(line, observer);
  EXPECT_TRUE(surface.Lines(behind).empty());
  EXPECT_FALSE(surface.AutoRedraw());
  EXPECT_EQ(platform.waitDepth, 0);
}

TEST_F(MapDrawTest, TrackHasOnePeriodInEachColourAndMeetsTheSatelliteBetween) {
  FollowSample(40);
  TickEnabled = SatelliteTickEnabled = true;
  const SatelliteState before = SatelliteStates[1];
  SetMapScale(surface, kindRecta);
  Disegna_orbita(surface, view);
  std::vector<Primitive> red = surface.Lines(behind), green = surface.Lines(ahead);
  // each crossing of the date line adds a second half
  EXPECT_GE(red.size(), 270U);
  EXPECT_GE(green.size(), 270U);
  EXPECT_LE(red.size() + green.size(), 541U + 3U);
  EXPECT_NEAR(red.back().x2, before.LongitudeEast, 1e-3);
  EXPECT_NEAR(red.back().y2, before.LatitudeSigned, 1e-3);
  EXPECT_NEAR(green.front().x1, before.LongitudeEast, 1e-3);
  EXPECT_EQ(SatelliteStates[1].LongitudeEast, before.LongitudeEast);
  EXPECT_TRUE(TickEnabled);
  TickEnabled = false;
  Disegna_orbita(surface, view);
  EXPECT_FALSE(TickEnabled) << "a stopped clock stays stopped";
}

TEST_F(MapDrawTest, TrackLeavesOneEdgeAndEntersAtTheOther) {
  FollowSample(40);
  SetMapScale(surface, kindRecta);
  Disegna_orbita(surface, view);
  int leaving = 0, entering = 0;
  for (const Primitive& line : surface.Of(Kind::Line)) {
    EXPECT_LT(std::abs(line.x2 - line.x1), 10) << "no line crosses the map";
    leaving += line.x2 > 180 ? 1 : 0;
    entering += line.x1 < -180 ? 1 : 0;
  }
  EXPECT_GE(leaving, 1);
  EXPECT_EQ(leaving, entering);
}

TEST_F(MapDrawTest, CircleOverTheDateLineIsSplitAtBothEdges) {
  PutSatellite(1, 10, 175);
  SetMapScale(surface, kindRecta);
  Disegna_visibilita(surface, view);
  const std::vector<Primitive> lines = surface.Lines(yellow);
  EXPECT_EQ(lines.size(), 181U + 2U);
  int outside = 0;
  for (const Primitive& line : lines) {
    EXPECT_LT(std::abs(line.x2 - line.x1), 10);
    if (std::max(std::abs(line.x1), std::abs(line.x2)) > 180) ++outside;
  }
  EXPECT_EQ(outside, 4);
}

TEST_F(MapDrawTest, CircleBehindTheLimbIsClosedByOneChord) {
  PutSatellite(1, 0, 80);
  TakeGlobe(0, 0);
  Disegna_visibilita(surface, view);
  const std::vector<Primitive> lines = surface.Lines(yellow);
  ASSERT_GT(lines.size(), 20U);
  const auto longLines = std::count_if(lines.begin(), lines.end(), [](const Primitive& line) {
    return std::hypot(line.x2 - line.x1, line.y2 - line.y1) > 15;
  });
  EXPECT_EQ(longLines, 1);
  EXPECT_LE(Reach(lines), 142 + 1e-6);
}

TEST_F(MapDrawTest, NothingIsDrawnBeforeTheFirstVisiblePoint) {
  PutSatellite(1, 0, 100);  // its circle begins behind the limb
  TakeGlobe(0, 0);
  Disegna_visibilita(surface, view);
  for (const Primitive& line : surface.Lines(yellow)) EXPECT_GT(std::hypot(line.x1, line.y1), 100);
}

TEST_F(MapDrawTest, FlatNightReachesTheDarkPoleAndRefinesOnBigMaps) {
  struct Case {
    double width, declination, pole;
    std::size_t lines;
  };
  for (const Case& c : {Case{6000, 20, -90, 361}, Case{14001, -20, 90, 721}, Case{14000, 0, -90, 361}}) {
    RecordingSurface target(c.width, 6000);
    SetMapScale(target, kindRecta);
    SkyObjectTable[SkyObjectRow::Sun].Declination = c.declination;
    Disegna_ombra(target, view);
    const std::vector<Primitive> shade = target.Lines(night);
    ASSERT_EQ(shade.size(), c.lines);
    for (const Primitive& line : shade) {
      EXPECT_TRUE(line.shaded);
      EXPECT_NEAR(line.y2, c.pole, 1e-9);
      EXPECT_NEAR(line.x1, line.x2, 1e-9);
    }
    EXPECT_EQ(target.Lines(terminator).size(), 720U);
  }
}

TEST_F(MapDrawTest, NightOfTheGlobeLiesOnTheSideAwayFromTheSun) {
  TakeGlobe(0, 0);
  // six hours past noon in Greenwich: the Sun stands over 90 degrees west
  ClockFields.GreenwichSiderealHours = 6;
  SkyObjectTable[SkyObjectRow::Sun].Declination = 10;
  Disegna_ombra(surface, view);
  const std::vector<Primitive> shade = surface.Lines(night);
  ASSERT_GT(shade.size(), 1000U);
  for (const Primitive& line : shade) {
    EXPECT_GT(line.x1, -142 * std::sin(10.5 * M_PI / 180));  // the terminator leans by the declination
    EXPECT_LT(std::hypot(line.x2 - line.x1, line.y2 - line.y1), 5.1) << "the pen is lifted at the limb";
  }
  for (const Primitive& line : surface.Lines(terminator))
    EXPECT_LT(std::hypot(line.x2 - line.x1, line.y2 - line.y1), 10);
}

TEST_F(MapDrawTest, FlatGridIsLabelledAwayFromThePolarNight) {
  SetMapScale(surface, kindRecta);
  SkyObjectTable[SkyObjectRow::Sun].Declination = -3;
  Disegna_griglia(surface, view);
  EXPECT_EQ(surface.Lines(grid).size(), 11U + 5U);
  const std::vector<Primitive> labels = surface.Of(Kind::Text);
  ASSERT_EQ(labels.size(), 16U);
  EXPECT_EQ(labels[0].text, "150 °W");
  EXPECT_EQ(labels[5].text, "0 ");
  EXPECT_EQ(labels[15].text, "60 °N");
  EXPECT_NEAR(labels[0].x1, -150, 1e-9);
  EXPECT_NEAR(labels[0].y1, -85, 1e-9);
  SkyObjectTable[SkyObjectRow::Sun].Declination = 3;
  surface.drawn.clear();
  Disegna_griglia(surface, view);
  EXPECT_NEAR(surface.Of(Kind::Text)[0].y1, 89, 1e-9);
}

TEST_F(MapDrawTest, GlobeGridStaysOnTheVisibleHalfFromEveryCentre) {
  using Centre = std::pair<float, float>;
  for (const auto& [longitude, latitude] : {Centre{0, 0}, {180, -45}, {0, 90}, {270, 0}}) {
    surface.drawn.clear();
    TakeGlobe(longitude, latitude);
    Disegna_griglia(surface, view);
    const std::vector<Primitive> lines = surface.Lines(grid);
    EXPECT_LE(Reach(lines), 142 + 1e-4);
    // the limb alone has 36 chords as long as ten degrees; all other pieces are five degrees at most
    std::size_t limb = 0;
    for (const Primitive& line : lines) {
      const double length = std::hypot(line.x2 - line.x1, line.y2 - line.y1);
      EXPECT_LT(length, 142 * 2 * std::sin(5.01 * M_PI / 180));
      if (length > 24) ++limb;
    }
    EXPECT_EQ(limb, 36U) << latitude;
    EXPECT_GT(lines.size(), 36U + 180U);
  }
}

TEST_F(MapDrawTest, PolarViewShowsWholeParallelsOfItsOwnHalfOnly) {
  TakeGlobe(0, 90);
  Disegna_griglia(surface, view);
  int at30 = 0, at60 = 0;
  for (const Primitive& line : surface.Lines(grid)) {
    const double r1 = std::hypot(line.x1, line.y1), r2 = std::hypot(line.x2, line.y2);
    if (std::abs(r1 - r2) > 0.01) continue;
    if (std::abs(r1 - 142 * std::cos(30 * M_PI / 180)) < 0.01) ++at30;
    if (std::abs(r1 - 142 * std::cos(60 * M_PI / 180)) < 0.01) ++at60;
  }
  EXPECT_EQ(at30, 73);  // 360 degrees and the step that overlaps; the southern one would double it
  EXPECT_EQ(at60, 73);
}

TEST_F(MapDrawTest, SunStandsWhereItIsOverheadAndOnlyOnTheVisibleHalf) {
  ClockFields.GreenwichSiderealHours = 20;
  SkyObjectTable[SkyObjectRow::Sun].RightAscension = 18;
  SkyObjectTable[SkyObjectRow::Sun].Declination = -23;
  SetMapScale(surface, kindRecta);
  Disegna_sole(surface, view);
  ASSERT_EQ(surface.Of(Kind::Picture).size(), 1U);
  EXPECT_NEAR(Middle(surface.Of(Kind::Picture)[0]).Longitude, -30, 0.3);
  EXPECT_NEAR(Middle(surface.Of(Kind::Picture)[0]).Latitude, -23, 0.3);
  surface.drawn.clear();
  TakeGlobe(180, 0);
  Disegna_sole(surface, view);
  EXPECT_TRUE(surface.drawn.empty());
}

TEST_F(MapDrawTest, SatelliteWithoutMeaningfulStateFailsQuietly) {
  ActiveCount = 1;
  SatelliteStates[1].GeocentricRadius = 100;  // inside the Earth
  SetMapScale(surface, kindRecta);
  Disegna_visibilita(surface, view);
  EXPECT_TRUE(surface.drawn.empty());
  RecordingSurface nothing(0, 0);
  Genera_mappa(nothing, view);
  Disegna_satellite(nothing, view, 1);
  EXPECT_FALSE(nothing.Open());
}

}  // namespace
}  // namespace halvorine
