// The clock's texts and the three states of the clock, without a window.
#include "shell/mTime.h"

#include <gtest/gtest.h>

#include "astro/mAstro.h"
#include "astro/mConv.h"
#include "orbit/mSat.h"
#include "shell/mTick.h"
#include "tests/fakes/FakeForms.h"
#include "tests/fakes/FakePlatform.h"
#include "tests/fakes/ProgramFolder.h"

namespace halvorine {
namespace {

TEST(ClockLabels, GroupsOfSiderealTimeAreRoundedOneByOne) {
  struct Row {
    double hours;
    const char *groups, *plain;
  };
  for (const Row& row : {Row{0, "00.00.00", "00:00:00"}, Row{5.25, "05.15.00", "05:15:00"},
                         Row{18.8173, "19.-11.02", "18:49:02"}, Row{6 + 10.995 / 60, "06.11.00", "06:11:00"},
                         Row{23.99999, "24.00.00", "00:00:00"}, Row{12.5, "12.30.00", "12:30:00"},
                         Row{13.5, "14.-30.00", "13:30:00"}}) {
    EXPECT_EQ(SiderealText(row.hours), row.groups) << row.hours;
    EXPECT_EQ(PlainSiderealText(row.hours), row.plain) << row.hours;
  }
}

class TimeTest : public testing::Test {
 protected:
  TimeTest() { platform_.clockUtc = DateOf(2022, 6, 14) + 0.5; }
  static TimeTexts TextsAt(Date local) {
    CurrentDate = local;
    UpdateSiderealTime(local);
    return TimeTextsOf(ClockFields, CurrentDate, DateNames{});
  }
  ProgramFolder folder_{false};
  FakePlatform platform_;
  CallLog log_;
  FakeTime time_{log_};
};

TEST_F(TimeTest, LabelsAtTheStandardEpoch) {
  const TimeTexts texts = TextsAt(DateOf(2000, 1, 1) + 0.5);
  EXPECT_EQ(texts.Jd, "2451545.00000");
  EXPECT_EQ(texts.GstPlain, "18:41:51");  // 18 h 41 m 50.548 s, the constant of the conventional formula
  EXPECT_EQ(texts.LstPlain, texts.GstPlain);
  EXPECT_EQ(texts.Gst, "19.-18.-09");
  Site.Longitude = -90;
  EXPECT_EQ(TextsAt(CurrentDate).LstPlain, "12:41:51");
}

TEST_F(TimeTest, TheZoneDividesLocalFromUniversalLabels) {
  const struct {
    float zone;
    std::uint8_t daylight;
    Date local;
    const char *localShown, *utShown;  // time, date, day of the year
  } rows[] = {
      {1, 1, DateOf(2022, 6, 15) + 7199 / 86400.0, "01:59:59 15 Jun 2022 166", "23:59:59 14 Jun 2022 165"},
      {-3.5F, 0, DateOf(2021, 12, 31) + 20.5 / 24, "20:30:00 31 Dec 2021 365", "00:00:00 01 Jan 2022 1"},
      {-3.5F, 1, DateOf(2020, 12, 31) + 20.5 / 24, "20:30:00 31 Dec 2020 366", "23:00:00 31 Dec 2020 366"},
      {5.75F, 0, DateOf(2024, 3, 1) + 20699 / 86400.0, "05:44:59 01 Mar 2024 61", "23:59:59 29 Feb 2024 60"},
      {12.75F, 1, DateOf(2022, 1, 1) + 13.75 / 24, "13:45:00 01 Jan 2022 1", "00:00:00 01 Jan 2022 1"},
  };
  for (const auto& row : rows) {
    Site.TimeZone = row.zone;
    Site.DaylightSaving = row.daylight;
    const TimeTexts texts = TextsAt(row.local);
    EXPECT_EQ(texts.LocalTime + " " + texts.LocalDate + " " + texts.LocalYear, row.localShown) << row.zone;
    EXPECT_EQ(texts.UtTime + " " + texts.UtDate + " " + texts.UtcYear, row.utShown) << row.zone;
  }
}

TEST_F(TimeTest, ASimulationBeginsOnItsInstantAndStandsWhenStopped) {
  TickEnabled = true;
  tmrCentrale_Timer();
  time_.computerClock = false;
  EXPECT_EQ(EnterSimulation(), CurrentDate);
  EXPECT_FALSE(TickEnabled);
  for (const Date chosen : {DateOf(2022, 6, 14) + 0.5, DateOf(1601, 1, 1), DateOf(9999, 1, 1)}) {
    ChooseInstant(chosen);
    EXPECT_EQ(ClockFields.LocalDate, chosen);
    log_.clear();
    StartSimulation(chosen);
    EXPECT_TRUE(log_.empty()) << "the direct call does nothing yet";
    tmrCentrale_Timer();
    EXPECT_EQ(CurrentDate, chosen);
    tmrCentrale_Timer();
    EXPECT_EQ(CurrentDate, AddSeconds(chosen, 1));
    StopSimulation();
    tmrCentrale_Timer();
    EXPECT_EQ(CurrentDate, AddSeconds(chosen, 1));
  }
  time_.computerClock = true;
  EXPECT_EQ(EnterRealTime(), ComputerDate());
  tmrCentrale_Timer();
  EXPECT_EQ(CurrentDate, ComputerDate());
}

TEST_F(TimeTest, WhatIsChosenDuringAHoldStandsAfterIt) {
  for (const bool before : {false, true})
    for (const bool chosen : {false, true}) {
      TickEnabled = before;
      {
        const TickHold outer;
        {
          const TickHold inner;
          if (chosen)
            EnterRealTime();
          else
            StopSimulation();
          EXPECT_FALSE(TickEnabled) << "no tick runs inside the work";
        }
        EXPECT_FALSE(TickEnabled);
      }
      EXPECT_EQ(TickEnabled, chosen);
    }
}

}  // namespace
}  // namespace halvorine
