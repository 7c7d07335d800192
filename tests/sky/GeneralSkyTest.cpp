#include "sky/mGeneralSky.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>

#include "astro/mAstro.h"
#include "astro/mConv.h"
#include "shell/base/mFiles.h"
#include "shell/base/mReg.h"
#include "sky/mStars.h"
#include "tests/fakes/ProgramFolder.h"
#include "tests/fakes/RecordingSurface.h"

namespace halvorine {
namespace {

using Kind = Primitive::Kind;

constexpr double width = 24000, height = 13500;  // twips: 1600 x 900 pixels

class NoPictures : public SkyPictures {
 public:
  const DrawPicture& Icon(int /*number*/) override { return none_; }
  const DrawPicture& SunIcon() override { return none_; }
  const DrawPicture& Landscape() override { return none_; }

 private:
  class None : public DrawPicture {
   public:
    bool Empty() const override { return true; }
    double NaturalWidth() const override { return 0; }
    double NaturalHeight() const override { return 0; }
  } none_;
};

class GeneralSky : public testing::Test {
 protected:
  GeneralSky() {
    LanguageFile = "English.ini";
    Impostazioni_default();
    LoadSkyData();
    ReadSkyObjects(ReadProgramFile("\\planets.dat"));
    Site.TimeZone = 1;
    Site.DaylightSaving = 1;
    CurrentDate = DateOf(2022, 6, 15) + 22.5 / 24;  // 20:30 Universal Time
    view.Pictures = &pictures;
    view.Switches = {true, true, true, true, true, true, true};
  }
  void Draw() {
    surface.drawn.clear();
    Genera_mappa(surface, view);
  }
  /// The first primitive of a kind and a colour at a place, by its position in what was drawn; -1 for none.
  int Find(Kind kind, double hours, double degrees, double hourTolerance, double degreeTolerance) const {
    for (std::size_t i = 0; i < surface.drawn.size(); ++i)
      if (surface.drawn[i].kind == kind && std::abs(surface.drawn[i].x1 - hours) < hourTolerance &&
          std::abs(surface.drawn[i].y1 - degrees) < degreeTolerance)
        return static_cast<int>(i);
    return -1;
  }
  int Text(const std::string& text) const {
    for (std::size_t i = 0; i < surface.drawn.size(); ++i)
      if (surface.drawn[i].kind == Kind::Text && surface.drawn[i].text == text) return static_cast<int>(i);
    return -1;
  }
  std::size_t Count(Kind kind, Colour colour) const {
    std::size_t count = 0;
    for (const Primitive& item : surface.Of(kind)) count += item.colour == colour ? 1 : 0;
    return count;
  }

  ProgramFolder folder;
  NoPictures pictures;
  GeneralSkyView view;
  RecordingSurface surface{width, height};
};

/// Places of J2000 from the Hipparcos catalogue (ESA 1997).
TEST_F(GeneralSky, StarsStandWhereTheCatalogueHasThemWithEastAtTheLeft) {
  struct Star {
    const char* name;
    double hours, degrees;
  };
  Draw();
  for (const Star& star : {Star{"Sirius", 6.752477, -16.71612},
                           {"Vega", 18.615649, 38.78369},
                           {"Spica", 13.419883, -11.16132},
                           {"Polaris", 2.530301, 89.26411}}) {
    const int at = Find(Kind::Ellipse, star.hours, star.degrees, 0.01, 0.05);
    ASSERT_GE(at, 0) << star.name;
    const Primitive& mark = surface.drawn[static_cast<std::size_t>(at)];
    EXPECT_NEAR(mark.from.X, width * (1 - star.hours / 24), width * 0.0005) << star.name;
    EXPECT_NEAR(mark.from.Y, height * (0.5 - star.degrees / 180), height * 0.0005) << star.name;
    EXPECT_EQ(mark.colour, White);
    EXPECT_EQ(mark.layer, DrawLayer::Persistent);
    EXPECT_EQ(mark.x2, mark.y2) << "round on the device";
  }
}

TEST_F(GeneralSky, ClassesFollowTheRowAndSizesTheZoom) {
  struct Case {
    int count;
    std::size_t circles, bright, faint;
  };
  for (const Case& row : {Case{23, 23, 0, 0},
                          {293, 293, 0, 0},
                          {294, 293, 1, 0},
                          {1640, 293, 1346, 1},
                          {9010, 293, 1346, 7371},
                          {30000, 293, 1346, 7371},
                          {0, 0, 0, 0},
                          {-5, 0, 0, 0}}) {
    view.StarCount = row.count;
    view.Switches = {false, false, false, false, false, false, false};
    Draw();
    EXPECT_EQ(Count(Kind::Ellipse, White), row.circles) << row.count;
    EXPECT_EQ(Count(Kind::Point, Rgb(220, 220, 220)), row.bright) << row.count;
    EXPECT_EQ(Count(Kind::Point, Rgb(140, 140, 140)), row.faint) << row.count;
  }
  view.StarCount = 1;
  Draw();
  EXPECT_NEAR(surface.Of(Kind::Ellipse).front().x2, 0.02 / 24 * width, 1e-6);
  view.Box = {12, 45, 0, -45};
  Draw();
  EXPECT_NEAR(surface.Of(Kind::Ellipse).front().x2, 0.01 / 12 * width, 1e-6);
}

TEST_F(GeneralSky, PartsComeInTheirOrderAndFollowTheirSwitches) {
  Draw();
  const int grid = Find(Kind::Line, 4, 90, 1e-9, 1e-9), gridLabel = Text(" 4h"), degrees = Text(" -30°");
  ASSERT_GE(grid, 0);
  EXPECT_EQ(surface.drawn[static_cast<std::size_t>(grid)].colour, 6579300);
  EXPECT_EQ(surface.Lines(6579300).size(), 5U + 5U);
  EXPECT_EQ(surface.drawn[static_cast<std::size_t>(gridLabel)].y1, 90) << "at the top of the view";
  EXPECT_EQ(surface.drawn[static_cast<std::size_t>(degrees)].x1, 24) << "at the left of the view";
  EXPECT_EQ(surface.drawn[static_cast<std::size_t>(degrees)].colour, Rgb(140, 140, 140));
  const std::vector<Primitive> figures = surface.Lines(10789888);
  EXPECT_GT(figures.size(), 646U) << "some segments cross the hour 0 and are drawn as two pieces";
  const int name = Text("Ori"), star = Find(Kind::Ellipse, 6.7525, -16.716, 0.01, 0.05);
  const int sun =
      Find(Kind::Ellipse, SkyObjectTable[Sun].RightAscension, SkyObjectTable[Sun].Declination, 1e-6, 1e-6);
  const int mars =
      Find(Kind::Ellipse, SkyObjectTable[Mars].RightAscension, SkyObjectTable[Mars].Declination, 1e-6, 1e-6);
  EXPECT_LT(grid, name);
  EXPECT_LT(name, star);
  EXPECT_LT(star, sun);
  EXPECT_LT(sun, mars);
  EXPECT_LT(mars, Text("Mars"));
  EXPECT_EQ(surface.drawn[static_cast<std::size_t>(name)].colour, Rgb(255, 0, 0));
  EXPECT_NEAR(surface.drawn[static_cast<std::size_t>(sun)].x2, width / 160, 1e-6);
  EXPECT_NEAR(surface.drawn[static_cast<std::size_t>(mars)].x2, width / 500, 1e-6);
  EXPECT_GE(Text("Moon"), 0);

  view.Switches = {false, false, false, false, false, true, true};
  Draw();
  EXPECT_TRUE(surface.Of(Kind::Line).empty());
  EXPECT_TRUE(surface.Of(Kind::Text).empty()) << "no name without its body";
  EXPECT_TRUE(surface.Of(Kind::Pie).empty());
}

/// Places by PyEphem 4.1: of date for Sun and Moon, of 2000 for the planets, as their elements have it.
TEST_F(GeneralSky, BodiesOfAKnownEveningStandAtTheirAlmanacPlaces) {
  struct Place {
    SkyObjectRow row;
    double hours, degrees;
    Colour colour;
  };
  // the Moon's series carries one of its terms with the other sign, which makes up to 0.37 degrees
  constexpr std::array<double, 2> nearSun{0.006, 0.08}, nearBody{0.03, 0.4};
  Draw();
  for (const Place& place : {Place{Sun, 5.6166, 23.332, Rgb(255, 255, 0)},
                             {Moon, 19.0548, -26.764, Rgb(180, 180, 180)},
                             {Mercury, 4.0099, 16.928, Rgb(255, 0, 255)},
                             {Venus, 3.2832, 16.300, Rgb(0, 255, 0)},
                             {Mars, 1.0182, 4.558, Rgb(255, 0, 0)},
                             {Jupiter, 0.3722, 1.079, Rgb(128, 0, 0)},
                             {Saturn, 21.8353, -14.333, Rgb(255, 255, 0)},
                             {Uranus, 2.9601, 16.499, Rgb(0, 255, 255)},
                             {Neptune, 23.7306, -3.025, Rgb(0, 0, 255)}}) {
    const std::array<double, 2> reach = place.row == Sun ? nearSun : nearBody;
    const double radius = width / (place.row >= Sun ? 160 : 500);
    bool found = false;
    for (const Primitive& mark : surface.Of(Kind::Ellipse))
      found = found ||
              (std::abs(mark.x1 - place.hours) < reach[0] && std::abs(mark.y1 - place.degrees) < reach[1] &&
               std::abs(mark.x2 - radius) < 1e-6 && mark.fill == place.colour);
    EXPECT_TRUE(found) << "body " << place.row << ": " << SkyObjectTable[place.row].RightAscension << " h "
                       << SkyObjectTable[place.row].Declination << " deg";
  }
}

TEST_F(GeneralSky, SegmentsThatCrossTheHourZeroLeaveAtBothEdges) {
  const auto segment = [](float ra1, float dec1, float ra2, float dec2) {
    ConstellationLine line;
    line.From.RightAscension = ra1;
    line.From.Declination = dec1;
    line.To.RightAscension = ra2;
    line.To.Declination = dec2;
    ConstellationLines = {line};
  };
  struct Piece {
    double x1, y1, x2, y2;
  };
  const auto expect = [&](const std::vector<Piece>& pieces) {
    Draw();
    const std::vector<Primitive> drawn = surface.Lines(10789888);
    ASSERT_EQ(drawn.size(), pieces.size());
    for (std::size_t i = 0; i < pieces.size(); ++i) {
      EXPECT_NEAR(drawn[i].x1, pieces[i].x1, 1e-5);
      EXPECT_NEAR(drawn[i].y1, pieces[i].y1, 1e-5);
      EXPECT_NEAR(drawn[i].x2, pieces[i].x2, 1e-5);
      EXPECT_NEAR(drawn[i].y2, pieces[i].y2, 1e-5);
    }
  };
  segment(23.9F, 10, 0.1F, 20);
  expect({{23.9, 10, 24.1, 20}, {-0.1, 10, 0.1, 20}});
  segment(0.1F, 10, 23.9F, 20);
  expect({{0.1, 10, -0.1, 20}, {24.1, 10, 23.9, 20}});
  segment(2, 10, 18, 20);
  expect({{2, 10, 18, 20}});  // sixteen hours exactly
}

TEST_F(GeneralSky, NamesAreShortOnTheWholeSkyAndFullInAPartOfIt) {
  Draw();
  EXPECT_GE(Text("Ori"), 0);
  view.Box = {8, 30, 2, -30};
  Draw();
  EXPECT_LT(Text("Ori"), 0);
  EXPECT_GE(Text("Orion"), 0);
  EXPECT_EQ(surface.drawn[static_cast<std::size_t>(Text(" 4h"))].y1, 30) << "at the top of the view";
}

TEST_F(GeneralSky, ZoomBoxesKeepLeftGreaterThanRightWhicheverWayTheyAreDragged) {
  const GeneralSkyBox wanted{10, 40, 4, -20};
  EXPECT_EQ(ZoomBox(10, 40, 4, -20), wanted);
  EXPECT_EQ(ZoomBox(4, -20, 10, 40), wanted);
  EXPECT_EQ(ZoomBox(4, 40, 10, -20), wanted);
  EXPECT_EQ(ZoomBox(30, 200, -5, -91), GeneralSkyBox{});
  EXPECT_FALSE(ZoomBox(5, 5, 5, 40));
  EXPECT_FALSE(ZoomBox(5, 5, 9, 5));
  EXPECT_FALSE(ZoomBox(25, 5, 26, 40)) << "outside the sphere nothing is left of the box";
  const std::optional<GeneralSkyBox> tiny = ZoomBox(24, 90, 23.9999999, 89.9999999);
  ASSERT_TRUE(tiny);
  EXPECT_LT(tiny->ScaleWidth(), -0.019);
  EXPECT_EQ(tiny->Left, 24);
  EXPECT_EQ(tiny->Top, 90);
}

TEST_F(GeneralSky, WheelZoomKeepsThePointAndEndsAtTheWholeSky) {
  GeneralSkyBox box;
  const double x = 7, y = -30;
  for (int notch = 0; notch < 6; ++notch) {
    const double left = (static_cast<double>(box.Left) - x) / -box.ScaleWidth();
    const double top = (static_cast<double>(box.Top) - y) / -box.ScaleHeight();
    box = ZoomAbout(box, x, y, 1);
    EXPECT_NEAR((static_cast<double>(box.Left) - x) / -box.ScaleWidth(), left, 1e-5);
    EXPECT_NEAR((static_cast<double>(box.Top) - y) / -box.ScaleHeight(), top, 1e-5);
  }
  EXPECT_NEAR(box.ScaleWidth(), -24 * std::pow(0.8, 6), 1e-4);
  for (int notch = 0; notch < 8; ++notch) box = ZoomAbout(box, x, y, -1);
  EXPECT_EQ(box, GeneralSkyBox{});
  for (int notch = 0; notch < 100; ++notch) box = ZoomAbout(box, 24, 90, 1);
  EXPECT_GT(box.Left, box.Right);
  EXPECT_GT(box.Top, box.Bottom);
}

TEST_F(GeneralSky, ReadoutTruncatesHoursAndDegrees) {
  struct Case {
    double x, y;
    const char* text;
  };
  for (const Case& row : {Case{6.7525, -16.7161, "RA 06h 45m 09s  Dec. -16° 42' "},
                          {0, 0, "RA 00h 00m 00s  Dec. +00° 00' "},
                          {23.99999, 89.999, "RA 23h 59m 59s  Dec. +89° 59' "},
                          {12.5, -0.25, "RA 12h 30m 00s  Dec. -00° 15' "},
                          {-0.1, 0, ""},
                          {24.1, 0, ""},
                          {3, 90.5, ""},
                          {std::nan(""), 0, ""}})
    EXPECT_EQ(GeneralSkyReadout(row.x, row.y, "RA", "Dec."), row.text) << row.x;
}

TEST_F(GeneralSky, ClickFindsTheNearerOfStarAndBodyWithinReach) {
  const GeneralSkyBox whole;
  const std::optional<SkyPick> sirius = PickInGeneralSky(whole, 9010, 6.76, -16.8);
  ASSERT_TRUE(sirius);
  EXPECT_EQ(sirius->Star, 1);
  EXPECT_EQ(sirius->Body, 0);
  // the limit is 24/400 in squared hours; a degree counts as the chart is flattened
  StarTable.resize(1);
  for (int row = Mercury; row <= Earth; ++row) SkyObjectTable[row].Declination = 80;
  const double ra = static_cast<double>(StarTable[0].RightAscension);
  const double dec = static_cast<double>(StarTable[0].Declination);
  EXPECT_TRUE(PickInGeneralSky(whole, 1, ra + 0.244, dec));
  EXPECT_FALSE(PickInGeneralSky(whole, 1, ra + 0.246, dec));
  EXPECT_TRUE(PickInGeneralSky(whole, 1, ra, dec + 0.66));
  EXPECT_FALSE(PickInGeneralSky(whole, 1, ra, dec + 0.68));
  EXPECT_FALSE(PickInGeneralSky(whole, 0, ra, dec)) << "a star that is not drawn";
  SkyObjectTable[Venus].RightAscension = ra + 0.1;
  SkyObjectTable[Venus].Declination = dec;
  EXPECT_EQ(PickInGeneralSky(whole, 1, ra + 0.04, dec)->Star, 1);
  EXPECT_EQ(PickInGeneralSky(whole, 1, ra + 0.06, dec)->Body, Venus);
}

}  // namespace
}  // namespace halvorine
