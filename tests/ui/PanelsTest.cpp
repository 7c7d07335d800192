// The panels by clicks and keys: live satellites, elements of one of them, almanac, planets, one object of
// the sky, limiting magnitude.
#include <QComboBox>
#include <QDateTimeEdit>
#include <QDialog>
#include <QHeaderView>
#include <QListWidget>
#include <QPushButton>
#include <QTabWidget>
#include <QTest>
#include <QTreeView>

#include "catalogue/qtDatabaseList.h"
#include "controls/qtLook.h"
#include "shell/base/mGlobal.h"
#include "shell/mTick.h"
#include "sky/mStars.h"
#include "tests/fakes/FakeForms.h"
#include "tests/fakes/RunningProgram.h"

namespace halvorine {
namespace {

class Panels : public RunningProgram {
 protected:
  QLabel* Label(const char* form, const char* name, int index = -1) {
    return Control<QLabel>(Form(form), name, index);
  }
  std::string Told(const char* form, const char* name, int index = -1) {
    return FromQ(Label(form, name, index)->text());
  }
  /// The modal window that stands open now; null, with a failure, where it is another one or none.
  static QDialog* Modal(const char* name) {
    QCoreApplication::processEvents();
    auto* const dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    EXPECT_TRUE(dialog != nullptr && dialog->objectName() == QLatin1String(name)) << name;
    return dialog;
  }
  /// Whether a window that was closed has been unloaded.
  static bool Gone(const char* name) {
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    return !IsFormLoaded(name) && QApplication::activeModalWidget() == nullptr;
  }
};

TEST_F(Panels, LivePanelFollowsTheTicksAndColoursNamesByTheHorizon) {
  Start(12);
  Run("mnuEffemeridiSatelliti");
  ASSERT_TRUE(Form("frmTrack")->isVisible());
  EXPECT_EQ(Told("frmTrack", "lblSatellite"), "Satellites:  1 - 10");
  EXPECT_EQ(Told("frmTrack", "lblName", 0), "ISS (ZARYA)");
  const std::string before = Told("frmTrack", "lblLon", 0);
  bool above = false, below = false;
  for (int minute = 0; minute < 120; ++minute) {
    Tick(60);
    for (int row = 0; row < 10; ++row) {
      const bool up = SatelliteStates[row + 1].Elevation >= 0;
      (up ? above : below) = true;
      EXPECT_EQ(Label("frmTrack", "lblName", row)->palette().color(QPalette::WindowText),
                up ? QColor(0, 0, 255) : QColor(255, 0, 0));
    }
  }
  EXPECT_TRUE(above && below);
  EXPECT_NE(Told("frmTrack", "lblLon", 0), before);
  EXPECT_EQ(Told("frmTrack", "lblAz", 0), Format(SatelliteStates[1].Azimuth, "#00.00°"));
  EXPECT_EQ(Told("frmTrack", "lblRange", 9), Format(SatelliteStates[10].Range, "#####0.0"));
  ApplyNight(true);
  for (int row = 0; row < 10; ++row) {
    const QColor colour = Label("frmTrack", "lblName", row)->palette().color(QPalette::WindowText);
    EXPECT_EQ(colour, SatelliteStates[row + 1].Elevation >= 0 ? QColor(Qt::black) : QColor(255, 0, 0));
  }
  ApplyNight(false);
  QTest::keyClick(Form("frmTrack"), Qt::Key_Escape);
  EXPECT_FALSE(IsFormLoaded("frmTrack"));
  Tick();
}

TEST_F(Panels, LivePanelPagesAndKeepsItsNamesOnEveryTab) {
  Start(12);
  Run("mnuEffemeridiSatelliti");
  const auto expectPage = [this](int first, const char* button) {
    if (*button != '\0') Click(Form("frmTrack"), button);
    EXPECT_EQ(Told("frmTrack", "lblSatellite"),
              "Satellites:  " + std::to_string(first) + " - " + std::to_string(first + 9));
    EXPECT_EQ(Told("frmTrack", "lblName", 0), ElementLines[first].name);
  };
  expectPage(1, "cmdPrecedente");
  expectPage(2, "cmdSuccessivo");
  expectPage(3, "cmdUltimo");
  expectPage(4, "cmdSuccessivo");
  EXPECT_EQ(Told("frmTrack", "lblName", 9) + Told("frmTrack", "lblAlt", 9), "") << "there is no 13th";
  expectPage(3, "cmdPrecedente");
  expectPage(1, "cmdPrimo");
  auto* const tabs = Control<QTabWidget>(Form("frmTrack"), "SSTab1");
  ASSERT_EQ(tabs->count(), 4);
  for (int tab = 0; tab < 4; ++tab) {
    ClickTab(tabs, tab);
    EXPECT_EQ(tabs->currentIndex(), tab);
    EXPECT_TRUE(Label("frmTrack", "lblName", 9)->isVisible());
    EXPECT_TRUE(tabs->currentWidget()->isAncestorOf(Label("frmTrack", "lblName", 9)));
  }
  EXPECT_TRUE(Control<QWidget>(Form("frmTrack"), "fraRadio")->isVisible());
}

TEST_F(Panels, ChannelOfARowIsChosenAndShiftsBothWays) {
  Start(3);
  Options.RadioChannel[1] = 4;
  Run("mnuEffemeridiSatelliti");
  Control<QTabWidget>(Form("frmTrack"), "SSTab1")->setCurrentIndex(3);
  auto* const button = Control<QPushButton>(Form("frmTrack"), "cmdCanale", 1);
  EXPECT_EQ(button->text(), "Ch. 4");
  ElementSets[2].Downlink = {"100", "", "435.5"};
  ElementSets[2].Uplink = {"", "", "145.9"};
  Tick();
  EXPECT_EQ(Told("frmTrack", "lblDnlink", 1), "0");
  EXPECT_EQ(Told("frmTrack", "lblTrasm", 1), "0");
  const auto choose = [&](int row, const char* end) {
    QTest::mouseClick(button, Qt::LeftButton);
    QDialog* const dialog = Modal("frmChannel");
    ASSERT_NE(dialog, nullptr);
    Control<QListWidget>(dialog, "List1")->setCurrentRow(row);
    Tick();  // the clock goes on behind the dialog
    Click(dialog, end);
    EXPECT_TRUE(Gone("frmChannel"));
  };
  choose(0, "cmdCancel");
  EXPECT_EQ(button->text(), "Ch. 4");
  choose(2, "cmdOK");
  EXPECT_EQ(button->text(), "Ch.3");
  EXPECT_EQ(Options.RadioChannel[1], 3);
  EXPECT_EQ(Told("frmTrack", "lblDnlink", 1), "435.5000");
  EXPECT_EQ(Told("frmTrack", "lblUplink", 1), "145.9000");
  for (const double rate : {-6.5, 0.0, 6.5}) {
    SatelliteStates[2].RangeRate = rate;
    Loaded<RefreshCalls>("frmTrack")->Aggiorna_dati();
    EXPECT_NEAR(ParseNumber(Told("frmTrack", "lblRicez", 1)), 435.5 - 435.5 * rate / 299792, 6e-5);
    EXPECT_NEAR(ParseNumber(Told("frmTrack", "lblTrasm", 1)), 145.9 + 145.9 * rate / 299792, 6e-5);
  }
  EXPECT_FALSE(Control<QPushButton>(Form("frmTrack"), "cmdCanale", 3)->isVisible()) << "a blank row";
  QTest::mouseClick(button, Qt::LeftButton);
  LoadedForm("frmTrack")->Unload();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  Click(Modal("frmChannel"), "cmdOK");
  EXPECT_TRUE(Gone("frmChannel") && Gone("frmTrack"));
}

TEST_F(Panels, ElementsOpenFromTheMenuAndWalkThroughTheList) {
  Start(3);
  Run("mnuSatellitiElementiOrbitali");
  QDialog* form = Modal("frmSatellite");
  ASSERT_NE(form, nullptr);
  EXPECT_EQ(form->windowTitle(), "ISS (ZARYA) - Orbital elements");
  const std::pair<const char*, int> walk[] = {{"cmdPrecedente", 1}, {"cmdSuccessivo", 2}, {"cmdUltimo", 3},
                                              {"cmdSuccessivo", 3}, {"cmdPrecedente", 2}, {"cmdPrimo", 1}};
  for (const auto& [button, slot] : walk) {
    Click(form, button);
    EXPECT_EQ(FromQ(Control<QLabel>(form, "lblSecondLine")->text()), ElementLines[slot].line2) << button;
    EXPECT_TRUE(form->windowTitle().startsWith(ToQ(ElementLines[slot].name)));
  }
  const QString age = Control<QLabel>(form, "lblAge")->text();
  Tick(86400);
  EXPECT_EQ(Control<QLabel>(form, "lblAge")->text(), age) << "it is not live";
  QTest::keyClick(form, Qt::Key_Escape);
  EXPECT_TRUE(Gone("frmSatellite"));
  Run("mnuSatellitiDatabase");
  auto* const list = Control<RowList>(Form("frmDatabase"), "lstDatabase", 0);
  const QPoint row = list->visualRect(list->model()->index(2, 0)).center();
  QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, row);
  QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, row);
  form = Modal("frmSatellite");
  ASSERT_NE(form, nullptr);
  EXPECT_EQ(FromQ(Control<QLabel>(form, "lblFirstLine")->text()), ElementLines[ScratchSlot].line1);
  for (const char* const button : {"cmdPrimo", "cmdPrecedente", "cmdSuccessivo", "cmdUltimo"})
    EXPECT_FALSE(Control<QPushButton>(form, button)->isEnabled()) << button;
  Click(form, "cmdOK");
}

TEST_F(Panels, ElementsOfAnEmptyListAreBlankAndTheWindowGoesWithTheProgram) {
  Start();
  Run("mnuSatellitiElementiOrbitali");
  QDialog* const form = Modal("frmSatellite");
  ASSERT_NE(form, nullptr);
  EXPECT_EQ(form->windowTitle(), "Orbital elements");
  EXPECT_EQ(Control<QLabel>(form, "lblSemiMaj")->text(), "0");
  EXPECT_EQ(Control<QLabel>(form, "lblZeroLine")->text(), "");
  Click(form, "cmdUltimo");
  UnloadAllForms("MDIForm1");
  EXPECT_TRUE(Gone("frmSatellite"));
}

TEST_F(Panels, AlmanacStepsThroughDaysAndMonths) {
  Start();
  Site.Latitude = 41.9F;
  Site.Longitude = 12.5F;
  Site.TimeZone = 1;
  Run("mnuEffemeridiAlmanacco");
  auto* const picker = Control<QDateTimeEdit>(Form("frmRiseSet"), "DTPicker1");
  EXPECT_EQ(picker->date(), QDate(2022, 6, 14));
  const std::pair<const char*, QDate> steps[] = {{"cmdMeseDopo", QDate(2022, 7, 14)},
                                                 {"cmdMesePrima", QDate(2022, 6, 14)},
                                                 {"cmdGiornoDopo", QDate(2022, 6, 15)},
                                                 {"cmdGiornoPrima", QDate(2022, 6, 14)}};
  for (const auto& [button, date] : steps) {
    Click(Form("frmRiseSet"), button);
    EXPECT_EQ(picker->date(), date) << button;
  }
  picker->setDate(QDate(2023, 12, 31));
  Click(Form("frmRiseSet"), "cmdMeseDopo");
  EXPECT_EQ(picker->date(), QDate(2024, 1, 31)) << "into the next year";
  Click(Form("frmRiseSet"), "cmdMeseDopo");
  EXPECT_EQ(picker->date(), QDate(2024, 2, 29)) << "the last day of a shorter month";
  Click(Form("frmRiseSet"), "cmdGiornoDopo");
  EXPECT_EQ(Told("frmRiseSet", "lblMoonRise"), "Does not rise");
  EXPECT_EQ(Told("frmRiseSet", "lblMoonRiseAz"), "");
  EXPECT_FALSE(Label("frmRiseSet", "lblAzimuth", 2)->isVisible());
  EXPECT_TRUE(Label("frmRiseSet", "lblAzimuth", 3)->isVisible());
  EXPECT_EQ(Told("frmRiseSet", "lblMoonSet").at(2), ':');
  const std::string winter = Told("frmRiseSet", "lblSunRise");
  Site.DaylightSaving = 1;
  Run("mnuEffemeridiPianeti");
  Run("mnuEffemeridiAlmanacco");
  EXPECT_NEAR(ParseNumber(Told("frmRiseSet", "lblSunRise")), ParseNumber(winter) + 1, 0.1)
      << "the window looks again when the user comes back";
  Site.Latitude = 90;
  picker->setDate(QDate(2024, 6, 21));
  EXPECT_EQ(Told("frmRiseSet", "lblSunSet"), "Always above the horizon");
  EXPECT_EQ(FromQ(Control<QWidget>(Form("frmRiseSet"), "picLuna")->toolTip()), "Phase 100%");
  Click(Form("frmRiseSet"), "cmdHelp");
  EXPECT_EQ(platform_.helpTopics, std::vector<int>{160});
  Click(Form("frmRiseSet"), "cmdOK");
  EXPECT_FALSE(IsFormLoaded("frmRiseSet"));
}

TEST_F(Panels, PlanetTableIsRefreshedByTheTickAndSortedByClicks) {
  Start();
  Run("mnuEffemeridiPianeti");
  auto* const list = Control<QTreeView>(Form("frmPlanets"), "lvwPlanets");
  const auto cell = [list](int row, int column) {
    return list->model()->index(row, column).data().toString();
  };
  ASSERT_EQ(list->model()->rowCount(), 9);
  EXPECT_EQ(cell(0, 0), "Mercury");
  const QString altitude = cell(8, 1);
  Tick(1800);
  EXPECT_NE(cell(8, 1), altitude);
  ClickHeading(list, 6);
  EXPECT_EQ(cell(6, 0), "Neptune");
  EXPECT_EQ(list->header()->sortIndicatorSection(), 6);
  ClickHeading(list, 6);
  EXPECT_EQ(cell(0, 0), "Neptune");
  Tick(1);
  EXPECT_EQ(cell(0, 0), "Neptune");
  const QPoint first = list->visualRect(list->model()->index(0, 0)).center();
  QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, first);
  EXPECT_FALSE(list->selectionModel()->hasSelection());
}

TEST_F(Panels, ObjectShowsAStarOrABody) {
  Start();
  PickedStar = ReadStar(7);
  const auto value = [](QDialog* form, const char* name) { return Control<QLabel>(form, name); };
  Load<ObjectCalls>("frmObject")->ShowObject(0);
  QDialog* form = Modal("frmObject");
  EXPECT_EQ(value(form, "lblObject")->text(), "Rigel");
  EXPECT_EQ(value(form, "lblConstellation")->text(), "Orion");
  EXPECT_TRUE(value(form, "lblLetter")->isVisible());
  EXPECT_FALSE(value(form, "lblDistance")->isVisible());
  Click(form, "cmdOK");
  EXPECT_TRUE(Gone("frmObject"));
  Load<ObjectCalls>("frmObject")->ShowObject(Moon);
  form = Modal("frmObject");
  EXPECT_EQ(value(form, "lblObject")->text(), "Moon");
  EXPECT_TRUE(value(form, "lblPhase")->isVisible());
  EXPECT_FALSE(value(form, "lblMagnitude")->isVisible());
  EXPECT_FALSE(value(form, "lblLetter")->isVisible());
  QTest::keyClick(form, Qt::Key_Return);
  EXPECT_TRUE(Gone("frmObject"));
}

/// A chart that counts its stars.
class FakeChart : public FakeForm<GeneralSkyCalls>, public StarCountCalls {
 public:
  using FakeForm::FakeForm;
  void Genera_mappa() override {}
  int StarCount() const override { return stars; }
  void SetStarCount(int count) override { stars = count; }
  int stars = 1639;
};

TEST_F(Panels, LimitingMagnitudeIsReadFromItsChartAndGoesBackOnOk) {
  Start();
  CallLog log;
  FakeChart general("frmGeneralSky", log), pass("frmSkySat2", log);
  AskingPassChart = "frmSkySat2";
  const auto limits = [](QDialog* form) { return Control<QComboBox>(form, "cmbMagnitudine"); };
  const auto show = [&](const char* tag) {
    Load<MagnitudeCalls>("frmMagnitude")->ShowFor(tag);
    QDialog* const form = Modal("frmMagnitude");
    limits(form)->setFocus();
    return form;
  };
  QDialog* form = show("generale");
  ASSERT_EQ(limits(form)->count(), 12);
  EXPECT_EQ(limits(form)->currentText(), "mag. 5.0");
  QTest::keyClick(limits(form), Qt::Key_Up);
  EXPECT_EQ(Control<QLabel>(form, "lblNumeroStelle")->text(), "2906");
  Click(form, "cmdCancel");
  EXPECT_EQ(general.stars, 1639);
  pass.stars = 1000;
  form = show("anteprima");
  EXPECT_EQ(limits(form)->currentIndex(), -1) << "no entry has that count";
  QTest::keyClick(limits(form), Qt::Key_End);
  Click(form, "cmdOK");
  EXPECT_EQ(pass.stars, 23);
  EXPECT_EQ(general.stars, 1639);
  EXPECT_EQ(platform_.waitDepth, 0);
  Load<MagnitudeCalls>("frmMagnitude")->ShowFor("locale");
  EXPECT_TRUE(Gone("frmMagnitude")) << "there is no such chart";
}

}  // namespace
}  // namespace halvorine
