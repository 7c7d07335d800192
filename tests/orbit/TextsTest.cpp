#include "astro/mAstro.h"
#include "orbit/mSatTexts.h"
#include "tests/orbit/OrbitFixture.h"

namespace halvorine {
namespace {

class LiveTextsTest : public OrbitTest {
 protected:
  LiveTextsTest() {
    ConditionEclipsed = "eclipse";
    ConditionVisible = "visible";
    ConditionNotVisible = "hidden";
    state.Elevation = 7.036;
    state.Condition = Visible;
    state.RangeRate = 299792.0 / 100;
    set.Downlink[0] = "100";
    set.Uplink[0] = "200";
  }
  SatelliteState state;
  ElementSet set;
};

TEST_F(LiveTextsTest, NumbersFollowTheirPictures) {
  state.LatitudeAbs = 5.126;
  state.LatitudeHemisphere = 'S';
  state.LongitudeAbs = 0.5;
  state.LongitudeHemisphere = 'W';
  state.Height = 408.25;
  state.Range = 12345.66;
  state.RangeRate = -0.04;
  state.OrbitNumber = 9561.0499;
  state.Azimuth = 7.5;
  state.ApogeeHeight = -12.34;
  state.Speed = 7.66;
  state.Period = 5559.99;
  const LiveTexts texts = BuildLiveTexts(state, set, 1);
  EXPECT_EQ(texts.Latitude, "5.13°S");
  EXPECT_EQ(texts.Longitude, "0.50°W");
  EXPECT_EQ(texts.Height, "408.3");
  EXPECT_EQ(texts.Range, "12345.7");
  EXPECT_EQ(texts.RangeRate, "0.0");
  EXPECT_EQ(texts.OrbitNumber, "9561.0");
  EXPECT_EQ(texts.Altitude, "07.04°");
  EXPECT_EQ(texts.Azimuth, "07.50°");
  EXPECT_EQ(texts.Apogee, "-12.3");
  EXPECT_EQ(texts.Perigee, "0.0");
  EXPECT_EQ(texts.Velocity, "7.7");
  EXPECT_EQ(texts.Period, "01:32:39");
  EXPECT_EQ(texts.State, "visible");
}

TEST_F(LiveTextsTest, EquatorialPlaceIsThatOfTheObserversSky) {
  Observe(45.0, 0, 0);
  ClockFields.LocalSiderealHours = 6.505;
  state.Azimuth = 180;
  state.Elevation = 45.001;
  LiveTexts texts = BuildLiveTexts(state, set, 1);
  EXPECT_EQ(texts.Ascension.substr(0, 6), "06h30m");  // on the meridian
  EXPECT_EQ(texts.Declination, "+00°00'");
  state.Elevation = 34.4;
  texts = BuildLiveTexts(state, set, 1);
  EXPECT_EQ(texts.Declination.substr(0, 5), "-10°");
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

TEST_F(LiveTextsTest, RecedingLowersTheReceivedAndRaisesTheSentFrequency) {
  const LiveTexts texts = BuildLiveTexts(state, set, 1);
  EXPECT_EQ(texts.Receive, "099.0000");
  EXPECT_EQ(texts.Transmit, "202.0000");
}

TEST_F(LiveTextsTest, FreeWrongOrUnknownChannelsShowZero) {
  set.Downlink[1] = "145,8 MHz";
  for (const int channel : {0, -1, 2, 3, 11, 32767}) {
    const LiveTexts texts = BuildLiveTexts(state, set, channel);
    EXPECT_EQ(texts.Receive, "0") << channel;
    EXPECT_EQ(texts.Transmit, "0") << channel;
  }
}

}  // namespace
}  // namespace halvorine
