// The drawn chart as primitives: colours, classes, clipping, grids, the Moon's phases, names.
#include <algorithm>

#include "astro/mMoonDraw.h"
#include "tests/sky/SkyFixture.h"

namespace halvorine {
namespace {

using Kind = Primitive::Kind;
constexpr Colour figureColour = 10789888;

class SkyDrawTest : public SkyTest {
 protected:
  SkyDrawTest() {
    ProjectObjects(view.Places, view.Projection, view.StarCount);
    SetSkyScale(surface, view);
  }
  std::size_t Points(Colour colour) const {
    const std::vector<Primitive> points = surface.Of(Kind::Point);
    return static_cast<std::size_t>(
        std::count_if(points.begin(), points.end(), [=](const Primitive& p) { return p.colour == colour; }));
  }
};

TEST_F(SkyDrawTest, SkyAndGridTakeTheirColoursFromTheSunsAltitude) {
  struct Case {
    double altitude;
    Colour edge, middle, grid;
  };
  for (const Case& c :
       {Case{-5.99, Rgb(0, 0, 196), Rgb(0, 0, 148), 9211020},
        Case{-6, Rgb(0, 0, 148), Rgb(0, 0, 100), 7895160}, Case{-12, Rgb(0, 0, 100), Rgb(0, 0, 71), 7895160},
        Case{-18, Rgb(0, 0, 71), Rgb(0, 0, 71), 6579300}}) {
    view.Places.Bodies[Sun].Altitude = static_cast<float>(c.altitude);
    surface.drawn.clear();
    DrawSkyBackground(surface, view);
    const std::vector<Primitive> rings = surface.Of(Kind::Ellipse);
    ASSERT_EQ(rings.size(), 257U);
    EXPECT_EQ(rings.front().fill, c.edge) << c.altitude;
    EXPECT_EQ(rings[255].fill, c.middle);
    EXPECT_EQ(view.GridColour, c.grid);
  }
  view.Switches.Horizon = false;
  surface.drawn.clear();
  DrawSkyBackground(surface, view);
  ASSERT_EQ(surface.Of(Kind::Ellipse).size(), 1U);
  EXPECT_EQ(surface.Of(Kind::Ellipse)[0].fill, Rgb(0, 0, 71));
}

TEST_F(SkyDrawTest, DiscMeetsAltitudeZeroAtAnyZoom) {
  for (const ChartBox& box :
       {ChartBox{-100, 100, 100, -100}, ChartBox{-10, 80, 60, -20}, ChartBox{0, 5, 90, 0}}) {
    view.Zoomed = true;
    view.Box = box;
    SetSkyScale(surface, view);
    surface.drawn.clear();
    DrawSkyBackground(surface, view);
    const Primitive disc = surface.Of(Kind::Ellipse).back();
    EXPECT_NEAR(surface.UserX(disc.from.X + disc.x2), 90, 1e-6);
    EXPECT_NEAR(surface.UserY(disc.from.Y - disc.y2), 90, 1e-6);
  }
}

TEST_F(SkyDrawTest, StarsAreDrawnByTheirNumberAndOnlyAboveTheHorizon) {
  view.StarCount = 9010;
  ProjectObjects(view.Places, view.Projection, view.StarCount);
  std::array<std::size_t, 3> above{};
  for (std::size_t i = 0; i < 9010; ++i)
    if (view.Places.Stars[i].Altitude > 0) ++above[i < 293 ? 0 : i < 1639 ? 1 : 2];
  DrawStars(surface, view);
  const std::vector<Primitive> circles = surface.Of(Kind::Ellipse);
  EXPECT_EQ(circles.size(), above[0]);
  EXPECT_EQ(Points(Rgb(220, 220, 220)), above[1]);
  EXPECT_EQ(Points(Rgb(140, 140, 140)), above[2]);
  EXPECT_TRUE(circles[0].fill == White && circles[0].colour == White);
  EXPECT_NEAR(circles[0].x2, 0.2 * 13500 / 200, 1e-3);  // twips, round on the device
  view.Zoomed = true;
  view.Box = {-90, 90, 90, -90};
  SetSkyScale(surface, view);
  surface.drawn.clear();
  DrawStars(surface, view);
  EXPECT_NEAR(surface.Of(Kind::Ellipse)[0].x2, 0.1 * 24000 / 180, 1e-3);
}

TEST_F(SkyDrawTest, FiguresAndGridsStayWithinTheHorizon) {
  view.Switches.Grid = true;
  DrawConstellationLines(surface, view);
  std::size_t whole = 0, cut = 0;
  for (const ConstellationLine& line : view.Places.Lines) {
    whole += line.From.Altitude > 0 && line.To.Altitude > 0 ? 1U : 0U;
    cut += line.From.Altitude * line.To.Altitude < 0 ? 1U : 0U;
  }
  const std::size_t drawn = surface.Lines(figureColour).size();
  EXPECT_TRUE(drawn >= whole + cut - 1 && drawn <= whole + cut) << drawn << " of " << whole << " + " << cut;
  view.Switches.HorizontalGrid = false;
  for (const bool stereographic : {true, false}) {
    view.Projection.Stereographic = stereographic;
    ProjectObjects(view.Places, view.Projection, 0);
    DrawSkyGrid(surface, view);
  }
  EXPECT_GT(surface.Lines(view.GridColour).size(), 4000U);
  for (const Primitive& line : surface.Of(Kind::Line)) {
    EXPECT_LE(std::hypot(line.x1, line.y1), 90.01);
    EXPECT_LE(std::hypot(line.x2, line.y2), 90.01);
  }
}

TEST_F(SkyDrawTest, HorizontalGridHasItsCirclesAndTwoDiameters) {
  const std::map<bool, std::array<double, 3>> expected = {{true, {75.519, 51.962, 24.115}},
                                                          {false, {80, 60, 30}}};
  for (const auto& [stereographic, radii] : expected) {
    view.Switches.Grid10 = true;
    view.Projection.Stereographic = stereographic;
    surface.drawn.clear();
    DrawSkyGrid(surface, view);
    const std::vector<Primitive> circles = surface.Of(Kind::Ellipse);
    ASSERT_EQ(circles.size(), 3U);
    for (std::size_t i = 0; i < 3; ++i) EXPECT_NEAR(circles[i].y2 / 13500 * 200, radii[i], 0.001);
    EXPECT_EQ(surface.Of(Kind::Line).size(), 2U);
  }
}

TEST_F(SkyDrawTest, SidesStandWhereTheSkyHasThem) {
  const std::map<std::string, double> azimuths = {{"N", 0},   {"E", 90},    {"S", 180},
                                                  {"W", 270}, {" 30°", 30}, {"240°", 240}};
  for (std::int16_t orientation = 0; orientation < 4; ++orientation) {
    view.Projection.Orientation = orientation;
    surface.drawn.clear();
    DrawCompass(surface, view);
    ASSERT_EQ(surface.drawn.size(), 12U);
    for (const Primitive& text : surface.drawn) {
      const auto found = azimuths.find(text.text);
      if (found == azimuths.end()) continue;
      double x = 0, y = 0;
      Mappatura(view.Projection, found->second, 0, x, y);
      EXPECT_LT(std::hypot(text.x1 - x * 1.06, text.y1 - y * 1.06), 13) << text.text << " " << orientation;
    }
  }
}

TEST_F(SkyDrawTest, MoonIsLitOnTheSideAndToThePartOfItsPhase) {
  struct Case {
    double phase;
    bool litRight;
    Colour ellipse;  // -1 for none
    double width;    // of the ellipse, in radii
  };
  for (const Case& c : {Case{60, true, Black, 0.5}, Case{90, true, -1, 0}, Case{120, true, White, 0.5},
                        Case{180, false, White, 1}, Case{240, false, White, 0.5},
                        Case{300, false, Black, 0.5}, Case{660, false, Black, 0.5}}) {
    surface.drawn.clear();
    DrawMoon(surface, 10, 20, 3, c.phase);
    const std::vector<Primitive> halves = surface.Of(Kind::Pie), rounds = surface.Of(Kind::Ellipse);
    ASSERT_EQ(halves.size(), 2U);
    for (const Primitive& half : halves) {
      const bool right = half.start > half.end;  // from three quarters on over the right to the top
      EXPECT_EQ(half.fill, right == c.litRight ? White : Black) << c.phase;
    }
    ASSERT_EQ(rounds.size(), c.ellipse < 0 ? 2U : 3U) << c.phase;
    EXPECT_EQ(rounds[0].fill, Rgb(180, 180, 180));
    const double radius = rounds[0].x2;
    if (c.ellipse < 0) continue;
    EXPECT_EQ(rounds[1].fill, c.ellipse) << c.phase;
    EXPECT_NEAR(rounds[1].x2 / radius, c.width, 1e-6);
    EXPECT_NEAR(rounds[1].y2 / radius, 1, 1e-6);
  }
}

TEST_F(SkyDrawTest, NamesOfBodiesKeepClearOfBrighterOnes) {
  const auto right = [](const Primitive& text) {
    return text.from.X + RecordingSurface::CharacterWidth * static_cast<double>(text.text.size());
  };
  DrawBodies(surface, {{Mercury, 1, 0.5, 1, true}, {Venus, 2, 0, 1, true}, {Sun, 3, 1, 1, true}},
             FakePicture(360, 360, true));
  const std::vector<Primitive> names = surface.Of(Kind::Text);
  ASSERT_EQ(names.size(), 3U);
  EXPECT_EQ(names[0].text, "Sun");
  EXPECT_NEAR(names[0].x1, 4, 1e-6);  // at its right
  for (std::size_t i = 0; i < names.size(); ++i)
    for (std::size_t k = 0; k < i; ++k)
      EXPECT_FALSE(names[i].from.X < right(names[k]) && names[k].from.X < right(names[i]) &&
                   std::abs(names[i].from.Y - names[k].from.Y) < RecordingSurface::LineHeight)
          << names[i].text << " on " << names[k].text;
}

TEST_F(SkyDrawTest, SatellitesShowTheirConditionAndTheFirstWipes) {
  const struct {
    const char* number;
    std::int32_t condition;
    int icon;
  } cases[] = {{"11111", Visible, 31},  {"25544", Eclipsed, 14}, {"22222", NotVisible, 32},
               {"33333", Eclipsed, 33}, {"20580", Visible, 13},  {"44444", Visible, 31}};
  for (int slot = 1; slot <= 6; ++slot) {
    ElementSets[slot].CatalogNumber = cases[slot - 1].number;
    SatelliteStates[slot].Condition = cases[slot - 1].condition;
    SatelliteStates[slot].Azimuth = 60 * slot;
    SatelliteStates[slot].Elevation = slot == 6 ? 0 : 40;
    Disegna_satellite_in_cielo(surface, view, slot);
  }
  EXPECT_EQ(surface.Of(Kind::Clear).size(), 1U);
  const std::vector<Primitive> icons = surface.Of(Kind::Picture), names = surface.Of(Kind::Text);
  ASSERT_EQ(icons.size(), 5U);
  ASSERT_EQ(names.size(), 5U);
  for (std::size_t i = 0; i < icons.size(); ++i) {
    EXPECT_EQ(icons[i].picture, &pictures.icons[cases[i].icon]);
    double x = 0, y = 0;
    Mappatura(view.Projection, 60 * static_cast<double>(i + 1), 40, x, y);
    EXPECT_NEAR((icons[i].x1 + icons[i].x2) / 2, x, 1e-6);
    EXPECT_NEAR((icons[i].y1 + icons[i].y2) / 2, y, 1e-6);
    EXPECT_EQ(names[i].colour, cases[i].condition == Eclipsed ? Rgb(255, 0, 0) : White);
  }
}

TEST_F(SkyDrawTest, OddSurfacesAndCountsAreNoTrouble) {
  view.Switches = {true, true, false, true, true, true, true, true, true, true, true};
  for (const auto& [width, height] : {std::pair{15.0, 13500.0}, {24000.0, 15.0}, {0.0, 0.0}, {15.0, 0.0}})
    for (const int count : {0, 1, 9010, 30000}) {
      RecordingSurface odd(width, height);
      view.StarCount = count;
      Genera_mappa(odd, view);
      Disegna_satellite_in_cielo(odd, view, 1);
      EXPECT_FALSE(odd.Open());
    }
}

}  // namespace
}  // namespace halvorine
