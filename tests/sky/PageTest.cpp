// The printed charts on a page that lists what is drawn on it.
#include <gtest/gtest.h>

#include <cmath>

#include "astro/mConv.h"
#include "shell/base/mText.h"
#include "sky/mSkyPage.h"
#include "tests/fakes/FoundPass.h"
#include "tests/sky/SkyFixture.h"

namespace halvorine {
namespace {

using Kind = Primitive::Kind;

/// Paper whose printer gives `lastPage` pages at most.
class PaperSurface : public PageSurface {
 public:
  struct Text {
    int page;
    DeviceSpot at;
    double width, height;
    std::string text;
    bool bold;
  };
  struct Round {
    DeviceRound round;
    Colour ink;
    std::optional<Colour> fill;
  };
  std::vector<Text> texts;
  std::vector<Round> rounds;
  std::vector<std::pair<DeviceSpot, DeviceSpot>> lines;
  int page = 1, lastPage = 99;
  bool ended = false, tickWasOff = true;

  void NewPage() override {
    if (page == lastPage) throw PrinterFailure("no paper");
    ++page;
  }
  void EndDoc() override { ended = true; }
  bool PrintsColour() const override { return false; }
  void Clip(DeviceSpot, DeviceSize) override {}
  void Unclip() override {}
  const Text* Find(std::string_view text) const {
    for (const Text& item : texts)
      if (item.text == text) return &item;
    return nullptr;
  }

 protected:
  DeviceSize DeviceExtent() const override { return {PageWidth, PageHeight}; }
  void DeviceClear(DrawLayer, Colour) override { ADD_FAILURE() << "paper is not cleared"; }
  void DeviceLine(DeviceSpot from, DeviceSpot to, const DrawStroke& stroke) override {
    EXPECT_EQ(stroke.Ink, Black);
    lines.emplace_back(from, to);
  }
  void DeviceBox(DeviceSpot, DeviceSize, const DrawStroke& stroke, bool filled) override {
    EXPECT_EQ(stroke.Ink, filled ? White : Black);
  }
  void DeviceEllipse(const DeviceRound& round, const DrawStroke& stroke,
                     std::optional<Colour> fill) override {
    tickWasOff = tickWasOff && !TickEnabled;
    rounds.push_back({round, stroke.Ink, fill});
  }
  void DevicePie(const DeviceRound&, const DrawStroke&, std::optional<Colour>) override {}
  void DevicePoint(DeviceSpot, const DrawStroke&) override {}
  void DeviceText(DeviceSpot corner, std::string_view text, Colour colour) override {
    EXPECT_EQ(colour, Black);
    const DeviceSize size = DeviceTextExtent(text);
    texts.push_back({page, corner, size.Width, size.Height, std::string(text), Font.Bold});
  }
  DeviceSize DeviceTextExtent(std::string_view text) const override {
    // a font of one width: 0.6 of its size
    return {static_cast<double>(CharacterCount(text)) * Font.Points * 12, Font.Points * 22.6};
  }
  void DevicePicture(DeviceSpot, DeviceSize, const DrawPicture&) override {}
};

class PageTest : public SkyTest {
 protected:
  SkyPage Local(const SkyProjection& projection) {
    view.Projection = projection;
    Genera_mappa(surface, view);
    return LocalSkyPage(view);
  }
  PassView Pass() {
    Estrai_Dati_Satellite(1, "ISS (ZARYA)",
                          "1 25544U 98067A   22166.98291539  .00007389  00000+0  13721-3 0  9996",
                          "2 25544  51.6447 342.5501 0004194 242.9750 255.0959 15.50021518344998");
    ActiveCount = 1;
    PassView pass = EmptyPassView();
    pass.Sky.Pictures = &pictures;
    TakePass(pass, FirstPass(1, false).value());
    Genera_mappa(surface, pass);
    return pass;
  }
  PaperSurface paper;
};

TEST_F(PageTest, ChartPointsLandWhereTheTextbookPutsThemInAllOrientations) {
  view.StarCount = 20;
  // the azimuth that stands at the top of the paper, facing north, south, west, east
  constexpr std::array<double, 4> top = {180, 0, 90, 270};
  constexpr std::array<const char*, 4> topText = {"S", "N", "E", "W"};
  for (std::int16_t side = FacingNorth; side <= FacingEast; ++side)
    for (const bool stereographic : {false, true}) {
      const SkyPage page = Local({stereographic, side});
      paper = {};
      PrintSkyPage(paper, page);
      EXPECT_NEAR(paper.rounds.front().round.RadiusX, 4000, 1e-6);
      for (std::size_t i = 0; i < 20; ++i) {
        const std::array<double, 3> v = VectorOf(static_cast<double>(StarTable[i].RightAscension),
                                                 static_cast<double>(StarTable[i].Declination));
        if (v[2] < 0.02) continue;
        const double altitude = std::asin(v[2]), azimuth = std::atan2(v[0], v[1]);
        const double radius =
            stereographic ? 3960 * std::tan((M_PI / 2 - altitude) / 2) : 3960 * (1 - altitude / (M_PI / 2));
        // east is at the left of north: a map of the sky, not of the ground
        const double turn = azimuth - top.at(static_cast<std::size_t>(side)) * M_PI / 180;
        const double x = 5500 - radius * std::sin(turn), y = 5700 - radius * std::cos(turn);
        double nearest = 1e9;
        for (const PaperSurface::Round& round : paper.rounds)
          if (round.fill == Black && round.round.RadiusX < 30)
            nearest = std::min(nearest, std::hypot(round.round.Centre.X - x, round.round.Centre.Y - y));
        EXPECT_LT(nearest, 6) << "star " << i + 1 << " side " << side << " " << stereographic;
      }
      const PaperSurface::Text* const above = paper.Find(topText.at(static_cast<std::size_t>(side)));
      ASSERT_NE(above, nullptr);
      EXPECT_DOUBLE_EQ(above->at.X, 5500 - 2 * 44);
      EXPECT_DOUBLE_EQ(above->at.Y, 5700 - 98 * 44);
    }
}

TEST_F(PageTest, NothingOverlapsAndAllStaysOnThePaper) {
  view.Switches = {
      .Grid = true, .ConstellationLines = true, .ConstellationNames = true, .SunMoonNames = true};
  PassView pass = Pass();
  pass.Sky.Switches = view.Switches;
  for (const std::size_t i : {std::size_t{1}, pass.Sky.Track.Points.size() / 2}) {
    const TrackPoint& point = pass.Sky.Track.Points[i];
    AddTimeMark(pass.Sky.Track, static_cast<int>(i), static_cast<double>(point.X) * 0.5,
                static_cast<double>(point.Y) * 0.5);
  }
  GeneralSkyView sphere;
  sphere.Switches.SunMoonNames = sphere.Switches.ConstellationNames = sphere.Switches.Grid = true;
  for (const SkyPage& page : {Local({}), PassPage(pass), GeneralSkyPage(sphere)}) {
    paper = {};
    PrintSkyPage(paper, page);
    for (std::size_t i = 0; i < paper.texts.size(); ++i) {
      const PaperSurface::Text& a = paper.texts[i];
      EXPECT_TRUE(a.at.X >= 1000 && a.at.X + a.width <= PageWidth - 1000) << a.text;
      EXPECT_TRUE(a.at.Y >= 1000 && a.at.Y + a.height <= PageHeight - 250) << a.text;
      for (std::size_t k = 0; k < i; ++k) {
        const PaperSurface::Text& b = paper.texts[k];
        const bool apart = a.page != b.page || a.text.empty() || b.text.empty() ||
                           a.at.X + a.width <= b.at.X || b.at.X + b.width <= a.at.X ||
                           a.at.Y + a.height <= b.at.Y + 0.01 || b.at.Y + b.height <= a.at.Y + 0.01;
        EXPECT_TRUE(apart) << a.text << " over " << b.text;
      }
    }
    EXPECT_TRUE(paper.ended);
    EXPECT_TRUE(paper.tickWasOff);
    for (int number = 1; number <= paper.page; ++number) {
      const PaperSurface::Text* const foot =
          paper.Find(std::to_string(number) + " / " + std::to_string(paper.page));
      ASSERT_NE(foot, nullptr);
      EXPECT_EQ(foot->page, number);
    }
  }
}

TEST_F(PageTest, CellsSayWhatTheBodiesAre) {
  LanguageFile = "English.ini";
  SkyObject& mars = SkyObjectTable[Mars];
  mars = {};
  mars.RightAscension = 23.9999;
  mars.Declination = -0.5;
  mars.Azimuth = 359.94;
  mars.Altitude = -7.26;
  mars.Magnitude = -0.04;
  mars.AngularDiameter = 59.7;
  mars.Distance = 1.005;
  mars.Phase = 0.956;
  EXPECT_EQ(BodyCells(Mars), (std::vector<std::string>{"Mars    :", "359.9", "-7.3", "0h00m", "-0°30'", "0.0",
                                                       "1'00''", "1.01", "96%"}));
  EXPECT_EQ(BodyCells(Sun)[5], "-26.4");
  SkyObjectTable[Moon].PhaseAngle = M_PI / 2;
  EXPECT_EQ(BodyCells(Moon)[8], "50%");
  EXPECT_EQ(RowBelow("Größe  AU or km", {"1", "22"}, 0), "    1        22");
  EXPECT_EQ(RowBelow("Name    Az.  Alt.", {"Mars :", "359.9", "-7.3"}, 1), "Mars : 359.9 -7.3");
}

TEST_F(PageTest, MoonIsLitOnItsSide) {
  SkyPage page = Local({});
  page.Bodies = {{.Row = Moon, .X = 0, .Y = 0, .Radius = 3}};
  struct Case {
    double phase, narrow;  // half width of the ellipse by that of the disc; none where 0
    Colour fill;
  };
  for (const Case& row : {Case{45, 0.5, Black}, Case{90, 0, Black}, Case{180, 1, White},
                          Case{225, 0.5, White}, Case{315, 0.5, Black}}) {
    page.MoonPhase = row.phase;
    paper = {};
    PrintSkyPage(paper, page);
    bool found = false;
    for (const PaperSurface::Round& round : paper.rounds)
      if (round.fill == row.fill && round.ink == row.fill && std::abs(round.round.RadiusY - 132) < 0.01)
        found = std::abs(round.round.RadiusX - 132 * row.narrow) < 0.01;
    EXPECT_EQ(found, row.narrow > 0) << row.phase;
  }
}

TEST_F(PageTest, APrinterThatFailsLeavesFontAndTickAsTheyWere) {
  const SkyPage page = PassPage(Pass());
  for (const bool tick : {true, false}) {
    TickEnabled = SatelliteTickEnabled = tick;
    paper.lastPage = 1;
    const DrawFont before = paper.Font;
    EXPECT_THROW(PrintSkyPage(paper, page), PrinterFailure);
    EXPECT_EQ(paper.Font, before);
    EXPECT_TRUE(TickEnabled == tick && SatelliteTickEnabled == tick && !paper.ended);
  }
}

}  // namespace
}  // namespace halvorine
