#include "sky/mGeneralSky.h"

#include <algorithm>
#include <cfenv>
#include <cmath>
#include <utility>

#include "tests/sky/SkyFixture.h"

namespace halvorine {
namespace {

using Kind = Primitive::Kind;

constexpr double width = 24000, height = 13500;  // twips: 1600 x 900 pixels

class GeneralSky : public SkyTest {
 protected:
  GeneralSky() {
    std::feholdexcept(&before_);  // what is no number comes in here on purpose
    pictures.sun = FakePicture(0, 0, true);
    view.Pictures = &pictures;
    view.Switches = {true, true, true, true, true, true, true};
  }
  ~GeneralSky() override { std::fesetenv(&before_); }
  void Draw() {
    surface.drawn.clear();
    Genera_mappa(surface, view);
  }
  bool Shows(const std::string& text) const {
    const std::vector<Primitive> texts = surface.Of(Kind::Text);
    return std::any_of(texts.begin(), texts.end(), [&](const Primitive& item) { return item.text == text; });
  }
  std::size_t Count(Kind kind, Colour colour) const {
    std::size_t count = 0;
    for (const Primitive& item : surface.Of(kind)) count += item.colour == colour ? 1 : 0;
    return count;
  }

  GeneralSkyView view;

 private:
  std::fenv_t before_{};
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
    const std::vector<Primitive> marks = surface.Of(Kind::Ellipse);
    const auto found = std::find_if(marks.begin(), marks.end(), [&](const Primitive& mark) {
      return std::abs(mark.x1 - star.hours) < 0.01 && std::abs(mark.y1 - star.degrees) < 0.05;
    });
    ASSERT_NE(found, marks.end()) << star.name;
    const Primitive& mark = *found;
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
  for (const Case& row :
       {Case{23, 23, 0, 0}, {294, 293, 1, 0}, {1640, 293, 1346, 1}, {9010, 293, 1346, 7371}, {-5, 0, 0, 0}}) {
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

TEST_F(GeneralSky, SegmentsThatCrossTheHourZeroLeaveAtBothEdges) {
  using Pieces = std::vector<std::pair<double, double>>;
  const auto drawn = [this](float from, float to) {
    ConstellationLine line;
    line.From.RightAscension = from;
    line.To.RightAscension = to;
    ConstellationLines = {line};
    Draw();
    Pieces pieces;
    for (const Primitive& piece : surface.Lines(10789888))
      pieces.emplace_back(std::round(piece.x1 * 100) / 100, std::round(piece.x2 * 100) / 100);
    return pieces;
  };
  EXPECT_EQ(drawn(23.9F, 0.1F), (Pieces{{23.9, 24.1}, {-0.1, 0.1}}));
  EXPECT_EQ(drawn(0.1F, 23.9F), (Pieces{{0.1, -0.1}, {24.1, 23.9}}));
  EXPECT_EQ(drawn(2, 18), (Pieces{{2, 18}})) << "sixteen hours exactly";
}

TEST_F(GeneralSky, NamesAreShortOnTheWholeSkyAndFullInAPartOfIt) {
  Draw();
  EXPECT_TRUE(Shows("Ori"));
  view.Box = {8, 30, 2, -30};
  Draw();
  EXPECT_FALSE(Shows("Ori"));
  EXPECT_TRUE(Shows("Orion"));
}

TEST_F(GeneralSky, ZoomBoxesKeepLeftGreaterThanRightWhicheverWayTheyAreDragged) {
  const GeneralSkyBox wanted{10, 40, 4, -20};
  EXPECT_EQ(ZoomBox(10, 40, 4, -20), wanted);
  EXPECT_EQ(ZoomBox(4, -20, 10, 40), wanted);
  EXPECT_EQ(ZoomBox(30, 200, -5, -91), GeneralSkyBox{});
  EXPECT_FALSE(ZoomBox(5, 5, 5, 40));
  EXPECT_FALSE(ZoomBox(25, 5, 26, 40)) << "outside the sphere nothing is left of the box";
  const std::optional<GeneralSkyBox> tiny = ZoomBox(24, 90, 23.9999999, 89.9999999);
  ASSERT_TRUE(tiny);
  EXPECT_LT(tiny->ScaleWidth(), -0.019);
}

TEST_F(GeneralSky, ReadoutTruncatesHoursAndDegrees) {
  struct Case {
    double x, y;
    const char* text;
  };
  for (const Case& row : {Case{6.7525, -16.7161, "RA 06h 45m 09s  Dec. -16° 42' "},
                          {23.99999, 89.999, "RA 23h 59m 59s  Dec. +89° 59' "},
                          {12.5, -0.25, "RA 12h 30m 00s  Dec. -00° 15' "},
                          {-0.1, 0, ""},
                          {3, 90.5, ""},
                          {std::nan(""), 0, ""}})
    EXPECT_EQ(GeneralSkyReadout(row.x, row.y, "RA", "Dec."), row.text) << row.x;
}

TEST_F(GeneralSky, ClickFindsTheNearerOfStarAndBodyWithinReach) {
  const GeneralSkyBox whole;
  // the limit is 24/400 in squared hours; a degree counts as the chart is flattened
  StarTable.resize(1);
  for (int row = Mercury; row <= Earth; ++row) SkyObjectTable[row].Declination = 80;
  const double ra = static_cast<double>(StarTable[0].RightAscension);
  const double dec = static_cast<double>(StarTable[0].Declination);
  EXPECT_TRUE(PickInGeneralSky(whole, 1, ra + 0.244, dec));
  EXPECT_FALSE(PickInGeneralSky(whole, 1, ra + 0.246, dec));
  EXPECT_TRUE(PickInGeneralSky(whole, 1, ra, dec + 0.66));
  EXPECT_FALSE(PickInGeneralSky(whole, 0, ra, dec)) << "a star that is not drawn";
  SkyObjectTable[Venus].RightAscension = ra + 0.1;
  SkyObjectTable[Venus].Declination = dec;
  EXPECT_EQ(PickInGeneralSky(whole, 1, ra + 0.04, dec)->Star, 1);
  EXPECT_EQ(PickInGeneralSky(whole, 1, ra + 0.06, dec)->Body, Venus);
}

}  // namespace
}  // namespace halvorine
