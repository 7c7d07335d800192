// The drawn chart as primitives: colours, classes, layers, clipping, grids, the Moon's phases, names.
#include <algorithm>

#include "astro/mMoonDraw.h"
#include "tests/sky/SkyFixture.h"

namespace halvorine {
namespace {

using Kind = Primitive::Kind;
constexpr Colour figureColour = 10789888, nameColour = 255;

class SkyDrawTest : public SkyTest {
 protected:
  SkyDrawTest() {
    ProjectObjects(view.Places, view.Projection, view.StarCount);
    SetSkyScale(surface, view);
  }
  std::vector<Primitive> Ellipses(Colour colour) const {
    std::vector<Primitive> found;
    for (const Primitive& item : surface.Of(Kind::Ellipse))
      if (item.colour == colour) found.push_back(item);
    return found;
  }
  std::size_t Points(Colour colour) const {
    const std::vector<Primitive> points = surface.Of(Kind::Point);
    return static_cast<std::size_t>(
        std::count_if(points.begin(), points.end(), [=](const Primitive& p) { return p.colour == colour; }));
  }
  int IndexOf(Kind kind, Colour colour) const {
    for (std::size_t i = 0; i < surface.drawn.size(); ++i)
      if (surface.drawn[i].kind == kind && surface.drawn[i].colour == colour) return static_cast<int>(i);
    return -1;
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
    EXPECT_FALSE(rings.back().filled);
    EXPECT_EQ(rings.back().colour, Rgb(140, 140, 140));
    EXPECT_EQ(view.GridColour, c.grid);
    EXPECT_EQ(surface.BackColor, Black);
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
  EXPECT_EQ(circles[0].x2, circles[0].y2);
  EXPECT_NEAR(circles[0].x1,
              static_cast<double>(std::find_if(view.Places.Stars.begin(), view.Places.Stars.end(),
                                               [](const StarRow& s) { return s.Altitude > 0; })
                                      ->X),
              1e-3);
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
  for (const bool ten : {true, false})
    for (const bool stereographic : {true, false}) {
      view.Switches.Grid10 = ten;
      view.Projection.Stereographic = stereographic;
      surface.drawn.clear();
      DrawSkyGrid(surface, view);
      std::vector<double> radii;
      for (const Primitive& circle : surface.Of(Kind::Ellipse)) radii.push_back(circle.y2 / 13500 * 200);
      const std::vector<double> expected =
          stereographic ? std::vector<double>{75.519, 51.962, 24.115} : std::vector<double>{80, 60, 30};
      ASSERT_EQ(radii.size(), ten ? 3U : 2U);
      for (std::size_t i = 0; i < radii.size(); ++i)
        EXPECT_NEAR(radii[i], expected[i + (ten ? 0 : 1)], 0.001);
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
  EXPECT_EQ(CompassColourOf(Rgb(248, 249, 251)), Rgb(248, 249, 251));
  EXPECT_EQ(CompassColourOf(Rgb(128, 0, 0)), Rgb(192, 192, 192));
}

TEST_F(SkyDrawTest, MoonIsLitOnTheSideAndToThePartOfItsPhase) {
  struct Case {
    double phase;
    bool litRight;
    Colour ellipse;  // -1 for none
    double width;    // of the ellipse, in radii
  };
  for (const Case& c :
       {Case{0, true, Black, 1}, Case{60, true, Black, 0.5}, Case{90, true, -1, 0},
        Case{120, true, White, 0.5}, Case{180, false, White, 1}, Case{240, false, White, 0.5},
        Case{270, false, -1, 0}, Case{300, false, Black, 0.5}, Case{660, false, Black, 0.5}}) {
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
  EXPECT_EQ(Ellipses(Rgb(255, 255, 0)).size(), 1U);  // the Sun without its icon
  EXPECT_EQ(Ellipses(PlanetColour(Venus)).size(), 1U);
}

TEST_F(SkyDrawTest, LayersComeInTheirOrder) {
  view.Switches = {true, true, true, true, true, true, true, true, true, true, true};
  Estrai_Dati_Satellite(1, issName, issLine1, issLine2);
  view.Track.Points.resize(2);
  view.Track.Points[1] = {5, 5, 0, {}, 90, 45, 2};
  GoTo(DateOf(2022, 6, 16) + 4.5 / 24);
  Genera_mappa(surface, view);
  const std::array<int, 8> order = {IndexOf(Kind::Clear, Black),
                                    IndexOf(Kind::Ellipse, Rgb(140, 140, 140)),
                                    IndexOf(Kind::Text, view.CompassColour),
                                    IndexOf(Kind::Line, view.GridColour),
                                    IndexOf(Kind::Line, figureColour),
                                    IndexOf(Kind::Text, nameColour),
                                    IndexOf(Kind::Ellipse, White),
                                    IndexOf(Kind::Pie, White)};
  EXPECT_TRUE(std::is_sorted(order.begin(), order.end()) && order.front() >= 0);
  const int track = IndexOf(Kind::Line, Rgb(255, 0, 0)), picture = IndexOf(Kind::Picture, 0);
  EXPECT_TRUE(track > order.back() && picture > track &&
              picture == static_cast<int>(surface.drawn.size()) - 1);
  EXPECT_NEAR(surface.drawn.back().x1, -90, 1e-6);
  EXPECT_NEAR(surface.drawn.back().y2, -90, 1e-6);
  const std::size_t transient = static_cast<std::size_t>(std::count_if(
      surface.drawn.begin(), surface.drawn.end(),
      [](const Primitive& p) { return p.layer == DrawLayer::Transient && p.kind != Kind::Clear; }));
  EXPECT_EQ(transient, 0U);
  const std::vector<Primitive> names = surface.Of(Kind::Text);
  const auto named = [&](const std::string& text) {
    return std::any_of(names.begin(), names.end(), [&](const Primitive& p) { return p.text == text; });
  };
  EXPECT_TRUE(named("Jupiter") && named("Cyg") && !named("Cygnus"));
  view.Zoomed = true;
  surface.drawn.clear();
  DrawConstellationNames(surface, view);
  EXPECT_EQ(surface.Of(Kind::Text)[0].text.size() > 3, true);
}

TEST_F(SkyDrawTest, SatellitesShowTheirConditionAndTheFirstWipes) {
  struct Case {
    const char* number;
    std::int32_t condition;
    int icon;
  };
  const std::array<Case, 5> cases = {{{"11111", Visible, 31},
                                      {"25544", Eclipsed, 14},
                                      {"22222", NotVisible, 32},
                                      {"33333", Eclipsed, 33},
                                      {"20580", Visible, 13}}};
  for (int slot = 1; slot <= 6; ++slot) {
    const Case& c = cases.at(static_cast<std::size_t>((slot - 1) % 5));
    ElementSets[slot].CatalogNumber = c.number;
    ElementSets[slot].Name = "Sat " + std::to_string(slot);
    SatelliteStates[slot].Condition = c.condition;
    SatelliteStates[slot].Azimuth = 60 * slot;
    SatelliteStates[slot].Elevation = slot == 6 ? 0 : 40;
    Disegna_satellite_in_cielo(surface, view, slot);
  }
  EXPECT_EQ(surface.Of(Kind::Clear).size(), 1U);
  const std::vector<Primitive> icons = surface.Of(Kind::Picture), names = surface.Of(Kind::Text);
  ASSERT_EQ(icons.size(), 5U);
  ASSERT_EQ(names.size(), 5U);
  for (std::size_t i = 0; i < icons.size(); ++i) {
    EXPECT_EQ(icons[i].picture, &pictures.icons[cases.at(i).icon]);
    EXPECT_EQ(icons[i].layer, DrawLayer::Transient);
    double x = 0, y = 0;
    Mappatura(view.Projection, 60 * static_cast<double>(i + 1), 40, x, y);
    EXPECT_NEAR((icons[i].x1 + icons[i].x2) / 2, x, 1e-6);
    EXPECT_NEAR((icons[i].y1 + icons[i].y2) / 2, y, 1e-6);
    EXPECT_EQ(names[i].colour, cases.at(i).condition == Eclipsed ? Rgb(255, 0, 0) : White);
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
  pictures.landscape = FakePicture(0, 0, true);
  Disegna_terreno(surface, view);
  EXPECT_TRUE(surface.drawn.empty());
}

}  // namespace
}  // namespace halvorine
