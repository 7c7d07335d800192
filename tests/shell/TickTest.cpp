// The central tick: clock, order of what is refreshed, rebuild, decay, failing satellites, clock texts.
#include "shell/mTick.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "astro/mAstro.h"
#include "astro/mConv.h"
#include "catalogue/mCatalogue.h"
#include "orbit/mSat.h"
#include "shell/base/mReg.h"
#include "tests/fakes/FakeForms.h"
#include "tests/fakes/FakeMainForm.h"
#include "tests/fakes/FakePlatform.h"
#include "tests/fakes/ProgramFolder.h"

namespace halvorine {
namespace {

using testing::ElementsAre;

const char* const iss[] = {"ISS (ZARYA)",
                           "1 25544U 98067A   18020.89808844  .00002078  00000-0  38550-4 0  9992",
                           "2 25544  51.6424  32.9776 0003646  28.7227  39.5332 15.54190080 95614"};

class TickTest : public testing::Test {
 protected:
  TickTest() {
    platform_.settingsFile = folder_.SettingsFile();
    LanguageFile = "English.ini";
    LoadSettings();
    LanguageFile = "English.ini";
    MagnitudeTable.assign(100000, "");
    platform_.clockUtc = DateOf(2018, 1, 21) + 0.5;
    TickEnabled = SatelliteTickEnabled = true;
    UpdateSiderealTime(ComputerDate());
  }
  void Add(const char* number = "25544", const char* motion = "15.54190080") {
    std::string line1 = iss[1], line2 = iss[2];
    line1.replace(2, 5, number);
    line2.replace(52, 11, motion);
    ++ActiveCount;
    Estrai_Dati_Satellite(ActiveCount, iss[0], line1, line2);
  }
  ProgramFolder folder_;
  FakePlatform platform_;
  CallLog log_;
  FakeMainForm main_;
  FakeTime time_{log_};
};

TEST_F(TickTest, RealTimeIsTheComputersInstantInTheSitesZone) {
  Site.TimeZone = 5.75F;
  Site.DaylightSaving = 1;
  tmrCentrale_Timer();
  EXPECT_DOUBLE_EQ(CurrentDate, DateOf(2018, 1, 21) + (12 + 6.75) / 24);
  EXPECT_DOUBLE_EQ(ClockFields.UtcDate, platform_.clockUtc);
}

TEST_F(TickTest, SimulatedTimeAddsWholeSecondsWithoutDrift) {
  time_.computerClock = false;
  CurrentDate = DateOf(2019, 12, 31) + 86399.0 / 86400;
  for (int i = 0; i < 86400; ++i) CurrentDate = AddSeconds(CurrentDate, 1);
  EXPECT_DOUBLE_EQ(CurrentDate, DateOf(2020, 1, 1) + 86399.0 / 86400);
  tmrCentrale_Timer();
  EXPECT_DOUBLE_EQ(CurrentDate, DateOf(2020, 1, 2));
}

TEST_F(TickTest, SatellitesAreComputedBeforeTheSunAndShownInOrder) {
  Add();
  Add("00005");
  FakeWorldMap map(log_);
  FakePlanets planets(log_);
  main_.SetChecked("mnuWorldmapCerchioVisibilita", true);
  tmrCentrale_Timer();
  EXPECT_THAT(log_, ElementsAre("frmWorldMap.Disegna_satellite 1", "frmWorldMap.Disegna_satellite 2",
                                "frmWorldMap.Disegna_visibilita", "frmWorldMap.ShowTexts",
                                "frmTime.Aggiorna_dati", "frmPlanets.Aggiorna_dati"));
  EXPECT_FALSE(map.texts.Latitude.empty());
  log_.clear();
  main_.SetChecked("mnuWorldmapCerchioVisibilita", false);
  SatelliteTickEnabled = false;
  tmrCentrale_Timer();
  EXPECT_THAT(log_, ElementsAre("frmTime.Aggiorna_dati", "frmPlanets.Aggiorna_dati"));
}

TEST_F(TickTest, TheMapIsRebuiltOnEverySixtyFirstTick) {
  FakeWorldMap map(log_);
  std::vector<int> rebuilds;
  for (int tick = 1; tick <= 130; ++tick) {
    log_.clear();
    tmrCentrale_Timer();
    if (std::find(log_.begin(), log_.end(), "frmWorldMap.Genera_mappa") != log_.end())
      rebuilds.push_back(tick);
  }
  EXPECT_THAT(rebuilds, ElementsAre(61, 122));
}

TEST_F(TickTest, ASatelliteThatCannotBeComputedKeepsItsStateAndTheTickGoesOn) {
  Add();
  Add("00005", " 0.00000000");
  Add("00011");
  SatelliteStates[2].Height = 1234;
  tmrCentrale_Timer();
  EXPECT_TRUE(platform_.messages.empty()) << "no decay is told of a satellite without a state";
  EXPECT_EQ(SatelliteStates[2].Height, 1234);
  EXPECT_GT(SatelliteStates[3].Height, 300);
  EXPECT_THAT(log_, ElementsAre("frmTime.Aggiorna_dati"));
}

TEST_F(TickTest, ADecayEndsTheTickAndRemovesThatSatelliteOnly) {
  Add();
  Add("00005", "16.60000000");
  Add("00011");
  FakeWorldMap map(log_);
  FakeDatabase database(log_);
  bool tickedDuringMessage = false;
  platform_.onMessage = [&] {
    EXPECT_FALSE(SatelliteTickEnabled);
    tmrCentrale_Timer();
    tickedDuringMessage = true;
  };
  tmrCentrale_Timer();
  EXPECT_TRUE(tickedDuringMessage);
  ASSERT_EQ(platform_.messages.size(), 1U);
  EXPECT_EQ(platform_.messages[0].caption, "Iss (Zarya)");
  EXPECT_EQ(std::count(platform_.messages[0].text.begin(), platform_.messages[0].text.end(), '\n'), 2);
  EXPECT_THAT(log_, ElementsAre("frmTime.Aggiorna_dati", "frmDatabase.Show", "frmDatabase.SelectActive 1",
                                "frmDatabase.RemoveSelected"))
      << "the principal is not blanked, and nothing is drawn after the decay";
  EXPECT_TRUE(SatelliteTickEnabled);
  EXPECT_EQ(SatelliteStates[2].Height, 0);
}

TEST_F(TickTest, ADecayedPrincipalIsFoundAgainWhereTheListMovedMeanwhile) {
  Add("00005", "16.60000000");
  Add();
  FakeWorldMap map(log_);
  FakeDatabase database(log_);
  platform_.onMessage = [] { SwapActive(1, 2); };
  tmrCentrale_Timer();
  EXPECT_THAT(log_,
              ElementsAre("frmDatabase.ActiveListChanged", "frmWorldMap.Azzera_dati", "frmDatabase.Show",
                          "frmDatabase.SelectActive 1", "frmDatabase.RemoveSelected"));
  log_.clear();
  platform_.onMessage = [] { RemoveActive(2); };
  tmrCentrale_Timer();
  EXPECT_THAT(log_, ElementsAre("frmDatabase.ActiveListChanged")) << "nothing is removed that is not there";
}

TEST(ClockTexts, TenFormats) {
  ResetSharedRecords();
  Site.TimeZone = 1;
  Site.DaylightSaving = 1;
  UpdateSiderealTime(DateOf(2022, 6, 15) + 1.0 / 24);  // 23:00 of the day before in Greenwich
  const char* const expected[] = {"15 June 2022  01:00:00 *",     "14 June 2022  23:00:00 (Greenwich)",
                                  "Wed 15 June 2022  01:00:00 *", "Tue 14 June 2022  23:00:00 (Greenwich)",
                                  "Jun 15 2022  01:00:00 *",      "Jun 14 2022  23:00:00 Greenwich",
                                  "166 giorno 01:00:00 *",        "165 giorno 01:00:00 Greenwich",
                                  "166.04166667@2022 *",          "165.95833333@2022 Greenwich"};
  for (std::int16_t format = 0; format < 10; ++format)
    EXPECT_EQ(ClockText(format, ClockFields, Site, DateNames{}), expected[format]);
  Site.DaylightSaving = 0;
  EXPECT_EQ(ClockText(6, ClockFields, Site, DateNames{}), "166 giorno 01:00:00 ");
  ResetSharedRecords();
}

}  // namespace
}  // namespace halvorine
