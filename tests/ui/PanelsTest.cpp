// The panels by clicks and keys: live satellites, elements of one of them, almanac, planets, one object of
// the sky, limiting magnitude.
#include <QComboBox>
#include <QDateTimeEdit>
#include <QDialog>
#include <QHeaderView>
#include <QListWidget>
#include <QPointer>
#include <QPushButton>
#include <QTabWidget>
#include <QTest>
#include <QTimer>
#include <QTreeView>

#include "catalogue/qtDatabaseList.h"
#include "controls/qtLook.h"
#include "shell/base/mGlobal.h"
#include "shell/base/mLang.h"
#include "shell/mTick.h"
#include "sky/mStars.h"
#include "tests/fakes/FakeForms.h"
#include "tests/fakes/RunningProgram.h"
#include "tests/fakes/TextWidths.h"

namespace halvorine {
namespace {

class Panels : public RunningProgram {
 protected:
  void Run(const char* command) {
    ASSERT_TRUE(Item(command)->isEnabled()) << command;
    Item(command)->trigger();
    QCoreApplication::processEvents();
  }
  void Tick(double seconds = 1) {
    platform_.clockUtc = AddSeconds(platform_.clockUtc, seconds);
    tmrCentrale_Timer();
  }
  QLabel* Label(const char* form, const char* name, int index = -1) {
    return Control<QLabel>(Form(form), name, index);
  }
  std::string Told(const char* form, const char* name, int index = -1) {
    return FromQ(Label(form, name, index)->text());
  }
  static void Click(QWidget* form, const char* name, int index = -1) {
    QTest::mouseClick(Control<QPushButton>(form, name, index), Qt::LeftButton);
    QCoreApplication::processEvents();
  }
  void Click(const char* form, const char* name, int index = -1) { Click(Form(form), name, index); }
  /// Opens a modal window, looks at it or works in it, and closes what is left open.
  void InModal(const char* name, const std::function<void()>& open,
               const std::function<void(QDialog*)>& act) {
    bool met = false;
    QTimer look;
    QObject::connect(&look, &QTimer::timeout, [&] {
      auto* const dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
      if (dialog == nullptr) return;
      look.stop();
      EXPECT_EQ(dialog->objectName(), QLatin1String(name));
      met = true;
      const QPointer<QDialog> standing(dialog);
      act(dialog);
      if (standing != nullptr && standing->isVisible()) standing->close();
    });
    look.start(1);
    open();
    EXPECT_TRUE(met) << name;
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_FALSE(IsFormLoaded(name)) << "closed is unloaded";
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
    if (*button != '\0') Click("frmTrack", button);
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
    QTest::mouseClick(tabs->tabBar(), Qt::LeftButton, {}, tabs->tabBar()->tabRect(tab).center());
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
  const auto open = [&] { QTest::mouseClick(button, Qt::LeftButton); };
  InModal("frmChannel", open, [](QDialog* dialog) {
    Control<QListWidget>(dialog, "List1")->setCurrentRow(0);
    Click(dialog, "cmdCancel");
  });
  EXPECT_EQ(button->text(), "Ch. 4");
  InModal("frmChannel", open, [this](QDialog* dialog) {
    Control<QListWidget>(dialog, "List1")->setCurrentRow(2);
    Tick();  // the clock goes on behind the dialog
    Click(dialog, "cmdOK");
  });
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
  InModal("frmChannel", open, [](QDialog*) { LoadedForm("frmTrack")->Unload(); });
  EXPECT_FALSE(IsFormLoaded("frmTrack"));
}

TEST_F(Panels, ElementsOpenFromTheMenuAndWalkThroughTheList) {
  Start(3);
  InModal(
      "frmSatellite", [this] { Run("mnuSatellitiElementiOrbitali"); },
      [this](QDialog* form) {
        EXPECT_EQ(form->windowTitle(), "ISS (ZARYA) - Orbital elements");
        const auto lines = [form] { return FromQ(Control<QLabel>(form, "lblSecondLine")->text()); };
        const std::pair<const char*, int> walk[] = {{"cmdPrecedente", 1}, {"cmdSuccessivo", 2},
                                                    {"cmdUltimo", 3},     {"cmdSuccessivo", 3},
                                                    {"cmdPrecedente", 2}, {"cmdPrimo", 1}};
        for (const auto& [button, slot] : walk) {
          Click(form, button);
          EXPECT_EQ(lines(), ElementLines[slot].line2) << button;
          EXPECT_TRUE(form->windowTitle().startsWith(ToQ(ElementLines[slot].name)));
        }
        const QString age = Control<QLabel>(form, "lblAge")->text();
        Tick(86400);
        EXPECT_EQ(Control<QLabel>(form, "lblAge")->text(), age) << "it is not live";
        QTest::keyClick(form, Qt::Key_Escape);
      });
  Run("mnuSatellitiDatabase");
  auto* const list = Control<RowList>(Form("frmDatabase"), "lstDatabase", 0);
  const QPoint row = list->visualRect(list->model()->index(2, 0)).center();
  const auto doubleClick = [&] {
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, row);
    QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, row);
    QCoreApplication::processEvents();
  };
  InModal("frmSatellite", doubleClick, [](QDialog* form) {
    EXPECT_EQ(FromQ(Control<QLabel>(form, "lblFirstLine")->text()), ElementLines[ScratchSlot].line1);
    for (const char* const button : {"cmdPrimo", "cmdPrecedente", "cmdSuccessivo", "cmdUltimo"})
      EXPECT_FALSE(Control<QPushButton>(form, button)->isEnabled()) << button;
  });
}

TEST_F(Panels, ElementsOfAnEmptyListAreBlankAndTheWindowGoesWithTheProgram) {
  Start();
  const auto open = [] { LoadForm("frmSatellite")->Show(); };
  InModal("frmSatellite", open, [](QDialog* form) {
    EXPECT_EQ(form->windowTitle(), "Orbital elements");
    EXPECT_EQ(Control<QLabel>(form, "lblSemiMaj")->text(), "0");
    EXPECT_EQ(Control<QLabel>(form, "lblZeroLine")->text(), "");
    Click(form, "cmdUltimo");
    UnloadAllForms("MDIForm1");
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  });
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
    Click("frmRiseSet", button);
    EXPECT_EQ(picker->date(), date) << button;
  }
  picker->setDate(QDate(2023, 12, 31));
  Click("frmRiseSet", "cmdMeseDopo");
  EXPECT_EQ(picker->date(), QDate(2024, 1, 31)) << "into the next year";
  Click("frmRiseSet", "cmdMeseDopo");
  EXPECT_EQ(picker->date(), QDate(2024, 2, 29)) << "the last day of a shorter month";
  Click("frmRiseSet", "cmdGiornoDopo");
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
  Click("frmRiseSet", "cmdHelp");
  EXPECT_EQ(platform_.helpTopics, std::vector<int>{160});
  Click("frmRiseSet", "cmdOK");
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
  QHeaderView* const header = list->header();
  const auto head = [&](int column) {
    QTest::mouseClick(header->viewport(), Qt::LeftButton, {},
                      QPoint(header->sectionViewportPosition(column) + 8, header->height() / 2));
  };
  head(6);
  EXPECT_EQ(cell(6, 0), "Neptune");
  EXPECT_EQ(header->sortIndicatorSection(), 6);
  head(6);
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
  const auto show = [](int index) { return [index] { Load<ObjectCalls>("frmObject")->ShowObject(index); }; };
  const auto value = [](QDialog* form, const char* name) { return Control<QLabel>(form, name); };
  InModal("frmObject", show(0), [&](QDialog* form) {
    EXPECT_EQ(value(form, "lblObject")->text(), "Rigel");
    EXPECT_EQ(value(form, "lblConstellation")->text(), "Orion");
    EXPECT_TRUE(value(form, "lblLetter")->isVisible());
    EXPECT_FALSE(value(form, "lblDistance")->isVisible());
    Click(form, "cmdOK");
  });
  InModal("frmObject", show(Moon), [&](QDialog* form) {
    EXPECT_EQ(value(form, "lblObject")->text(), "Moon");
    EXPECT_TRUE(value(form, "lblPhase")->isVisible());
    EXPECT_FALSE(value(form, "lblMagnitude")->isVisible());
    EXPECT_FALSE(value(form, "lblLetter")->isVisible());
    QTest::keyClick(form, Qt::Key_Return);
  });
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
  const auto show = [](const char* tag) {
    return [tag] { Load<MagnitudeCalls>("frmMagnitude")->ShowFor(tag); };
  };
  const auto limits = [](QDialog* form) { return Control<QComboBox>(form, "cmbMagnitudine"); };
  InModal("frmMagnitude", show("generale"), [&](QDialog* form) {
    ASSERT_EQ(limits(form)->count(), 12);
    EXPECT_EQ(limits(form)->currentText(), "mag. 5.0");
    limits(form)->setFocus();
    QTest::keyClick(limits(form), Qt::Key_Up);
    EXPECT_EQ(Control<QLabel>(form, "lblNumeroStelle")->text(), "2906");
    Click(form, "cmdCancel");
  });
  EXPECT_EQ(general.stars, 1639);
  pass.stars = 1000;
  InModal("frmMagnitude", show("anteprima"), [&](QDialog* form) {
    EXPECT_EQ(limits(form)->currentIndex(), -1) << "no entry has that count";
    limits(form)->setFocus();
    QTest::keyClick(limits(form), Qt::Key_End);
    Click(form, "cmdOK");
  });
  EXPECT_EQ(pass.stars, 23);
  EXPECT_EQ(general.stars, 1639);
  EXPECT_EQ(platform_.waitDepth, 0);
  show("locale")();
  EXPECT_FALSE(IsFormLoaded("frmMagnitude")) << "there is no such chart";
}

TEST_F(Panels, ModalWindowsCutNoTextInAnyLanguage) {
  Start(2);
  CallLog log;
  FakeChart general("frmGeneralSky", log);
  const std::pair<const char*, std::function<void()>> windows[] = {
      {"frmSatellite", [] { Load<SatelliteCalls>("frmSatellite")->ShowSlot(1); }},
      {"frmObject", [] { Load<ObjectCalls>("frmObject")->ShowObject(0); }},
      {"frmObject", [] { Load<ObjectCalls>("frmObject")->ShowObject(Saturn); }},
      {"frmChannel", [] { Load<ChannelCalls>("frmChannel")->Choose(1, 0); }},
      {"frmMagnitude", [] { Load<MagnitudeCalls>("frmMagnitude")->ShowFor("generale"); }}};
  PickedStar = ReadStar(7);
  for (const std::string& language : InstalledLanguages()) {
    ChooseLanguage(language);
    for (const auto& [name, open] : windows)
      InModal(name, open, [&](QDialog* form) { ExpectNothingCut(*form, language); });
  }
}

}  // namespace
}  // namespace halvorine
