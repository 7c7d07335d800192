// The time window by clicks and keys: real time, simulation, labels and faces; the calendar.
#include <QCalendarWidget>
#include <QCheckBox>
#include <QDateTimeEdit>
#include <QGroupBox>
#include <QMdiSubWindow>
#include <QPushButton>
#include <QStatusBar>
#include <QTest>
#include <cmath>

#include "controls/AnalogClock.h"
#include "shell/base/mGlobal.h"
#include "shell/base/qtDates.h"
#include "shell/mTick.h"
#include "tests/fakes/RunningProgram.h"

namespace halvorine {
namespace {

class TimeWindow : public RunningProgram {
 protected:
  void Open() {
    QTest::mouseClick(Form("StatusBar1.Panel(1)"), Qt::LeftButton);
    QCoreApplication::processEvents();
    ASSERT_TRUE(Form("frmTime")->isVisible());
  }
  QPushButton* Button(const char* name) { return Control<QPushButton>(Form("frmTime"), name); }
  QCheckBox* Switch() { return Control<QCheckBox>(Form("frmTime"), "chkUsaOraPc"); }
  QDateTimeEdit* Picker() { return Control<QDateTimeEdit>(Form("frmTime"), "DTPicker1"); }
  QLabel* Label(const char* name) { return Control<QLabel>(Form("frmTime"), name); }
  std::string Told(const char* name) { return FromQ(Label(name)->text()); }
  void Click(const char* name) { RunningProgram::Click(Form("frmTime"), name); }
  void Simulate() { Click("chkUsaOraPc"); }
  /// Real time, simulation that stands, simulation that runs.
  void ExpectState(const char* text, bool play, bool stop, bool start) {
    EXPECT_EQ(Told("lblStato"), text);
    EXPECT_EQ(Button("cmdPlay")->isEnabled(), play) << text;
    EXPECT_EQ(Button("cmdStop")->isEnabled(), stop) << text;
    EXPECT_EQ(Picker()->isEnabled(), play) << text;
    EXPECT_EQ(Label("lblOraInizioSimulazione")->isVisible(), start) << text;
    EXPECT_EQ(Switch()->isChecked(), !start) << text;
    EXPECT_EQ(TickEnabled, !play) << text;
  }
};

TEST_F(TimeWindow, BeginsInRealTimeWithTheLabelsOfTheTick) {
  Start();
  EXPECT_FALSE(Form("frmTime")->isVisible());
  Open();
  ExpectState("Real time", false, false, false);
  const std::pair<const char*, const char*> expected[] = {
      {"lblLOCALTIME", "13:00:00"}, {"lblUTTIME", "12:00:00"}, {"lblLOCALDATE", "14 Jun 2022"},
      {"lblUTDATE", "14 Jun 2022"}, {"lblLOCALYear", "165"},   {"lblUTCYear", "165"},
      {"lblJD", "2459745.00000"},
  };
  for (const auto& [name, text] : expected) EXPECT_EQ(Told(name), text) << name;
  for (const char* const name : {"lblLST", "lblGST"}) {
    EXPECT_EQ(Told(name).find(':'), std::string::npos) << name;
    EXPECT_TRUE(QTime::fromString(Label(name)->toolTip(), QStringLiteral("HH:mm:ss")).isValid()) << name;
  }
  EXPECT_FALSE(Button("cmdPlay")->toolTip().isEmpty() || Button("cmdStop")->toolTip().isEmpty());
  EXPECT_TRUE(Button("cmdSincronizza")->isEnabled());
  const auto* const clock = Control<AnalogClock>(Form("frmTime"), "AnalogClock1");
  EXPECT_EQ(clock->Value(), CurrentDate);
  EXPECT_EQ(clock->SecondValue(), ClockFields.UtcDate);
  Tick();
  EXPECT_EQ(Told("lblUTTIME"), "12:00:01");
  EXPECT_EQ(clock->Told().text, QStringLiteral("Local time 13:00:01, Greenwich time (UTC) 12:00:01"));
}

TEST_F(TimeWindow, UncheckingTheSwitchFreezesTheClockAndTheSatellites) {
  Start(3);
  Open();
  Tick();
  Simulate();
  ExpectState("Simulation stopped", true, false, true);
  EXPECT_TRUE(Button("cmdPlay")->hasFocus());
  EXPECT_EQ(DateOf(Picker()->dateTime()), CurrentDate);
  const QString clock = Panel(1);
  const double longitude = SatelliteStates[1].LongitudeEast;
  Tick(60);
  EXPECT_EQ(Panel(1), clock);
  EXPECT_EQ(SatelliteStates[1].LongitudeEast, longitude);
  Simulate();
  ExpectState("Real time", false, false, false);
  EXPECT_EQ(DateOf(Picker()->dateTime()), ComputerDate());
  Tick();
  EXPECT_EQ(Panel(1), QStringLiteral("14 June 2022  13:01:02 "));
  EXPECT_NE(SatelliteStates[1].LongitudeEast, longitude);
}

TEST_F(TimeWindow, ASimulationIsTypedPlayedStoppedAndLeft) {
  Start(1);
  Open();
  Simulate();
  const double longitude = SatelliteStates[1].LongitudeEast;
  Picker()->setFocus();
  Picker()->setSelectedSection(QDateTimeEdit::YearSection);
  for (const char* const part : {"2023", "02", "28", "12", "00", "00"}) QTest::keyClicks(Picker(), part);
  EXPECT_EQ(Told("lblLOCALDATE") + " " + Told("lblLOCALTIME"), "28 Feb 2023 12:00:00");
  EXPECT_EQ(Told("lblUTTIME"), "11:00:00");
  EXPECT_EQ(Panel(1), QStringLiteral("14 June 2022  13:00:00 ")) << "only a tick moves the rest";
  EXPECT_EQ(SatelliteStates[1].LongitudeEast, longitude);
  Click("cmdPlay");
  ExpectState("Simulation running", false, true, true);
  EXPECT_EQ(Panel(1), QStringLiteral("14 June 2022  13:00:00 ")) << "the start itself shows nothing";
  Tick();
  EXPECT_EQ(Panel(1), QStringLiteral("28 February 2023  12:00:00 "));
  Tick(30);
  EXPECT_EQ(Panel(1), QStringLiteral("28 February 2023  12:00:01 ")) << "one second for each tick";
  EXPECT_NE(SatelliteStates[1].LongitudeEast, longitude);
  EXPECT_TRUE(Button("cmdStop")->hasFocus());
  QTest::keyClick(Button("cmdStop"), Qt::Key_Space);
  ExpectState("Simulation stopped", true, false, true);
  EXPECT_EQ(Picker()->time(), QTime(12, 0)) << "the start is kept for another run";
  Tick();
  EXPECT_EQ(Told("lblLOCALTIME"), "12:00:01");
  Simulate();
  Tick();
  EXPECT_TRUE(Panel(1).startsWith(QStringLiteral("14 June 2022")));
}

TEST_F(TimeWindow, HidingInAnyWayLeavesTheSimulationRunning) {
  Start();
  Open();
  Simulate();
  Click("cmdPlay");
  Date before = CurrentDate;
  const std::function<void()> ways[] = {
      [this] { Click("cmdOK"); },
      [this] { qobject_cast<QMdiSubWindow*>(Form("frmTime")->parentWidget())->close(); },
      [this] { QTest::keyClick(Switch(), Qt::Key_Escape); },
      [this] { QTest::keyClick(Switch(), Qt::Key_Return); },
  };
  for (const std::function<void()>& hide : ways) {
    hide();
    EXPECT_FALSE(Form("frmTime")->isVisible());
    EXPECT_TRUE(IsFormLoaded("frmTime"));
    Tick(100);
    EXPECT_EQ(CurrentDate, AddSeconds(before, 1));
    before = CurrentDate;
    Item("mnuOpzioniData")->trigger();
    ExpectState("Simulation running", false, true, true);
  }
}

TEST_F(TimeWindow, ItsEndBringsRealTimeBack) {
  Start();
  for (const char* const way : {"stopped", "running"}) {
    Open();
    Simulate();
    if (std::string_view(way) == "running") Click("cmdPlay");
    Item("mnuFinestreChiudiTutto")->trigger();
    EXPECT_FALSE(IsFormLoaded("frmTime")) << way;
    EXPECT_TRUE(TickEnabled) << way;
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    Tick();
    EXPECT_EQ(CurrentDate, ComputerDate()) << way;
  }
  Open();
  Simulate();
  window_->close();
  EXPECT_FALSE(TickEnabled) << "the program has ended";
}

TEST_F(TimeWindow, SwitchingInTheMiddleOfAHeldTickWaitsForItsEnd) {
  Start();
  Open();
  {
    const TickHold hold;
    Simulate();
    Click("cmdPlay");
    EXPECT_FALSE(TickEnabled);
    Tick();
    Click("cmdStop");
    Simulate();
  }
  ExpectState("Real time", false, false, false);
}

TEST_F(TimeWindow, TheCalendarSpeaksEveryLanguage) {
  Start();
  for (const std::string& name : InstalledLanguages()) {
    Item("mnuFinestreChiudiTutto")->trigger();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    ChooseLanguage(name);
    window_->Lingua();
    Item("mnuStrumentiCalendario")->trigger();
    const auto* const month = Control<QCalendarWidget>(Form("frmCalendar"), "MonthView1");
    EXPECT_EQ(month->selectedDate(), QDate(2022, 6, 14));
    EXPECT_EQ(month->locale().standaloneMonthName(6).toLower(), ToQ(LanguageDates.Months[5]).toLower());
  }
}

TEST_F(TimeWindow, TheCalendarLeavesTheClockAlone) {
  Start();
  Item("mnuStrumentiCalendario")->trigger();
  auto* const month = Control<QCalendarWidget>(Form("frmCalendar"), "MonthView1");
  EXPECT_EQ(Form("frmCalendar")->size(), Form("frmCalendar")->sizeHint());
  month->setFocus();
  QTest::keyClick(month->focusWidget() != nullptr ? month->focusWidget() : month, Qt::Key_Right);
  month->showNextMonth();
  Tick();
  EXPECT_EQ(CurrentDate, ComputerDate());
  QTest::keyClick(Form("frmCalendar"), Qt::Key_Escape);
  EXPECT_FALSE(IsFormLoaded("frmCalendar"));
}

TEST(ClockHands, PointWhereTheyShould) {
  struct Row {
    double seconds;               // of the day
    double hour, minute, second;  // angles from the top, clockwise, degrees
  };
  for (const Row& row :
       {Row{0, 0, 0, 0}, Row{12 * 3600, 0, 0, 0}, Row{3 * 3600, 90, 0, 0}, Row{18 * 3600 + 1800, 195, 180, 0},
        Row{23 * 3600 + 59 * 60 + 45, 359.875, 358.5, 270}, Row{12 * 3600 + 900, 7.5, 90, 0}}) {
    const auto hands = AnalogClock::HandsOf(AddSeconds(DateOf(2022, 6, 14), row.seconds), 100);
    const double angles[] = {row.hour, row.minute, row.second};
    const double lengths[] = {50, 75, 85}, widths[] = {3, 2, 1};
    for (std::size_t i = 0; i < 3; ++i) {
      const QPointF tip = hands[i].tip;
      const double angle = std::atan2(tip.x(), -tip.y()) * 180 / M_PI;
      EXPECT_NEAR(std::remainder(angle - angles[i], 360), 0, 1e-4) << row.seconds << " hand " << i;
      EXPECT_NEAR(std::hypot(tip.x(), tip.y()), lengths[i], 1e-9);
      EXPECT_EQ(hands[i].width, widths[i]);
      EXPECT_EQ(hands[i].colour, i < 2 ? QColor(Qt::black) : QColor(255, 0, 0));
    }
  }
}

}  // namespace
}  // namespace halvorine
