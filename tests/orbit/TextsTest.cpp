#include "astro/mAstro.h"
#include "orbit/mSatTexts.h"
#include "tests/orbit/OrbitFixture.h"

namespace halvorine {
namespace {

class LiveTextsTest : public OrbitTest {
 protected:
  LiveTextsTest() {
    ConditionVisible = "visible";
    state.Elevation = 7.036;
    state.Condition = Visible;
  }
  SatelliteState state;
  ElementSet set;
};

TEST_F(LiveTextsTest, NumbersFollowTheirPictures) {
  state.LatitudeAbs = 5.126;
  state.LatitudeHemisphere = 'S';
  state.LongitudeAbs = 0.5;
  state.LongitudeHemisphere = 'W';
  state.Range = 12345.66;
  state.RangeRate = -0.04;
  state.OrbitNumber = 9561.0499;
  state.Azimuth = 180;
  state.ApogeeHeight = -12.34;
  state.Period = 5559.99;
  Observe(83.0, 0, 0);  // seven degrees over the horizon in the south is the equator there
  ClockFields.LocalSiderealHours = 6.505;
  const LiveTexts texts = BuildLiveTexts(state, set, 1);
  EXPECT_EQ(texts.Latitude, "5.13°S");
  EXPECT_EQ(texts.Longitude, "0.50°W");
  EXPECT_EQ(texts.Range, "12345.7");
  EXPECT_EQ(texts.RangeRate, "0.0");
  EXPECT_EQ(texts.OrbitNumber, "9561.0");
  EXPECT_EQ(texts.Altitude, "07.04°");
  EXPECT_EQ(texts.Azimuth, "180.00°");
  EXPECT_EQ(texts.Apogee, "-12.3");
  EXPECT_EQ(texts.Period, "01:32:39");
  EXPECT_EQ(texts.State, "visible");
  EXPECT_EQ(texts.Ascension.substr(0, 6), "06h30m");
  EXPECT_EQ(texts.Declination, "+00°02'");
}

TEST_F(LiveTextsTest, MagnitudeIsAStarBelowTheHorizonAndInEclipse) {
  using Kind = MagnitudeValue::Kind;
  state.Magnitude = {Kind::Number, -0.04};
  EXPECT_EQ(MagnitudeText(state), "0.0");
  state.Magnitude.value = 3.25;
  EXPECT_EQ(MagnitudeText(state), "3.3");
  state.Elevation = 0;
  EXPECT_EQ(MagnitudeText(state), "3.3");
  state.Elevation = -0.001;
  EXPECT_EQ(MagnitudeText(state), "*");
  state.Elevation = 10;
  state.Magnitude = {Kind::Unknown, 0};
  EXPECT_EQ(MagnitudeText(state), "???");
  state.Condition = Eclipsed;
  EXPECT_EQ(MagnitudeText(state), "*");
}

}  // namespace
}  // namespace halvorine
