// The live panel's rows and pages, and the values of one element set.
#include "prediction/mTrack.h"

#include "astro/mAstro.h"
#include "prediction/mElementTexts.h"
#include "shell/base/mLang.h"
#include "tests/orbit/OrbitFixture.h"

namespace halvorine {
namespace {

class TrackTest : public OrbitTest {
 protected:
  TrackTest() { Estrai_Dati_Satellite(3, issName, issLine1, issLine2); }
};

// the range rate is a hundredth of the speed of light, so that the shift can be read off
TEST_F(TrackTest, ChannelsShiftBothWaysByTheRangeRate) {
  ElementSets[3].Downlink = {"100", "", "437.55", "145,8 MHz"};
  ElementSets[3].Uplink = {"200", "145.2"};
  const struct {
    double rate;
    int channel;
    const char *downlink, *received, *uplink, *sent;
  } rows[] = {{2997.92, 1, "100.0000", "099.0000", "200.0000", "202.0000"},
              {-2997.92, 1, "100.0000", "101.0000", "200.0000", "198.0000"},
              {0, 2, "0", "0", "145.2000", "145.2000"},
              {0, 3, "437.5500", "437.5500", "0", "0"},
              {5, 4, "0", "0", "0", "0"},
              {5, 11, "0", "0", "0", "0"},
              {5, -1, "0", "0", "0", "0"}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.channel);
    SatelliteStates[3].RangeRate = row.rate;
    const TrackRow texts = TrackRowOf(3, row.channel);
    EXPECT_EQ(texts.Downlink, row.downlink);
    EXPECT_EQ(texts.Live.Receive, row.received);
    EXPECT_EQ(texts.Uplink, row.uplink);
    EXPECT_EQ(texts.Live.Transmit, row.sent);
  }
}

TEST_F(TrackTest, RowsOfEmptySlotsAreBlankAndHoursHaveNoForcedDigit) {
  SatelliteStates[4].Elevation = -1;
  const TrackRow blank = TrackRowOf(4, 1);
  EXPECT_FALSE(blank.Filled);
  EXPECT_TRUE(blank.BelowHorizon);
  EXPECT_EQ(blank.Name + blank.Live.Altitude + blank.Downlink + blank.Live.Receive, "");
  Observe(45, 0, 0);
  ClockFields.LocalSiderealHours = 6.505;
  SatelliteStates[3].Azimuth = 180;
  const TrackRow row = TrackRowOf(3, 1);
  EXPECT_FALSE(row.BelowHorizon);
  EXPECT_EQ(row.Live.Ascension.substr(0, 5), "6h30m");
  EXPECT_THROW(TrackRowOf(0, 1), SubscriptFailure);
}

TEST_F(TrackTest, ElementsAreShownByTheirPictures) {
  ClockFields.JulianDayNow = ElementSets[3].EpochJulianDay + 12.345;
  ElementSets[3].MeanMotionDDotMantissa = -0.5;
  ElementSets[3].MeanMotionDDotExponent = -2;
  const ElementTexts texts = ElementTextsOf(3);
  const std::pair<std::string, const char*> rows[] = {{texts.EpochTime, "20.89808844@2018"},
                                                      {texts.Date, "20 Jan 2018 - 21:33:15"},

                                                      {texts.Eccentricity, "0.0003646"},

                                                      {texts.MeanMotion, "15.54190080"},
                                                      {texts.Dev1, "0.00002078"},
                                                      {texts.Dev2, "-0.00500000"},
                                                      {texts.BStar, "0.00003855"},
                                                      {texts.OrbitNumberEpoch, "9561"},

                                                      {texts.International, "98067A"},

                                                      {texts.LaunchNumber, "67A"},
                                                      {texts.Age, "12.3"},
                                                      {texts.Set, "999"},
                                                      {texts.MagStd, "???"},
                                                      {texts.FirstLine, issLine1},
                                                      {texts.Apogee, "407.0"},
                                                      {texts.Perigee, "402.0"},
                                                      {texts.OrbitalPeriod, "92.7"},
                                                      {texts.SemiMaj, "6782.6"},
                                                      {texts.SemiMin, "6782.6"}};
  for (const auto& [shown, expected] : rows) EXPECT_EQ(shown, expected);
}

TEST_F(TrackTest, EmptyAndImpossibleSetsStillHaveTexts) {
  const ElementTexts empty = ElementTextsOf(9);
  EXPECT_EQ(empty.Name + empty.Date + empty.ZeroLine + empty.International + empty.MagStd, "");
  ElementSets[3].MeanMotion = 0;
  ElementSets[3].EpochDay = 1e9;
  ElementSets[3].CatalogNumber = "A0001";
  const ElementTexts strange = ElementTextsOf(3);
  EXPECT_EQ(strange.SemiMaj + strange.OrbitalPeriod, "00");
  EXPECT_EQ(strange.NoradNumber, "A0001");
  ElementSets[3].MeanMotion = 1.0027;
  ElementSets[3].Eccentricity = 1.5;
  EXPECT_EQ(ElementTextsOf(3).SemiMaj, "42165.2");
  EXPECT_EQ(ElementTextsOf(3).SemiMin, "0");
}

}  // namespace
}  // namespace halvorine
