// A person's first quarter of an hour with the program, by clicks and keys, from the choice of a language to
// a second start; and every command by its name.
#include <gtest/gtest.h>

#include <QCheckBox>
#include <QComboBox>
#include <QDateTimeEdit>
#include <QLineEdit>
#include <QListView>
#include <QListWidget>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <QToolButton>

#include "astro/mConv.h"
#include "catalogue/mCatalogue.h"
#include "shell/MDIForm1.h"
#include "shell/base/mGlobal.h"
#include "shell/base/mLang.h"
#include "shell/base/mReg.h"
#include "shell/base/qtForms.h"
#include "shell/frmLanguage.h"
#include "shell/mStart.h"
#include "shell/mTick.h"
#include "shell/qtApplication.h"
#include "tests/fakes/FakePlatform.h"
#include "tests/fakes/ProgramFolder.h"

namespace halvorine {
namespace {

class FirstQuarterTest : public testing::Test {
 protected:
  FirstQuarterTest() {
    platform_.settingsFile = folder_.SettingsFile();
    platform_.onYield = [] { QCoreApplication::processEvents(); };
    platform_.clockUtc = DateOf(2022, 6, 16) + 0.85;
    RegisterWindows();
  }
  ~FirstQuarterTest() override { End(); }
  void Start() {
    StartStageOne({.chooseLanguage = [this] {
      frmLanguage dialog;
      QTimer::singleShot(0, &dialog, [&dialog] {
        auto* const list = Control<QListWidget>(&dialog, "lstLingua");
        QListWidgetItem* const item = list->findItems(QStringLiteral("Italiano"), Qt::MatchExactly).at(0);
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualItemRect(item).center());
        QTest::mouseClick(Control<QPushButton>(&dialog, "cmdOK"), Qt::LeftButton);
      });
      dialog.exec();
      ++languageDialogs_;
    }});
    window_ = std::make_unique<MDIForm1>();
    window_->Load();
  }
  void End() {
    UnloadAllForms("MDIForm1");
    window_.reset();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }
  void Tool(const char* key) {
    auto* const bar = Control<QToolBar>(window_.get(), "Toolbar1");
    QTest::mouseClick(bar->widgetForAction(Control<QAction>(bar, key)), Qt::LeftButton);
    QCoreApplication::processEvents();
  }
  template <class Widget>
  Widget* In(const char* form, const char* name, int index = -1) {
    return Control<Widget>(Control<QWidget>(window_.get(), form), name, index);
  }
  void Click(const char* form, const char* name, int index = -1) {
    QTest::mouseClick(In<QAbstractButton>(form, name, index), Qt::LeftButton);
    QCoreApplication::processEvents();
  }
  static void ClickRow(QAbstractItemView* list, int row, Qt::KeyboardModifiers keys = {}) {
    const QModelIndex index = list->model()->index(row, 0);
    list->scrollTo(index);
    QTest::mouseClick(list->viewport(), Qt::LeftButton, keys, list->visualRect(index).center());
  }
  QString Panel(int number) { return Control<QLabel>(window_.get(), "StatusBar1.Panels", number)->text(); }

  ProgramFolder folder_;
  FakePlatform platform_;
  std::unique_ptr<MDIForm1> window_;
  int languageDialogs_ = 0;
};

TEST_F(FirstQuarterTest, AllIsAsItWasAtTheSecondStart) {
  Start();
  EXPECT_EQ(languageDialogs_, 1);

  Tool("Location");
  auto* const places = In<QComboBox>("frmLocation", "cmbCity");
  const int rome = places->findText(QStringLiteral("Italy: Rome"), Qt::MatchStartsWith);
  ASSERT_GE(rome, 0);
  places->setCurrentIndex(rome);
  Q_EMIT places->activated(rome);
  In<QLineEdit>("frmLocation", "txtHeight")->setText(QStringLiteral("21"));
  Click("frmLocation", "cmdOK");
  EXPECT_TRUE(Panel(3).startsWith(QStringLiteral("Italy: Rom")));

  platform_.chosenFiles = {folder_.Path("elements/sample.txt")};
  Tool("Open");
  ASSERT_EQ(PrimaryDatabase.Count(), 175);
  In<QComboBox>("frmDatabase", "cmbOrdina", 0)->setCurrentIndex(4);
  auto* const rows = In<QAbstractItemView>("frmDatabase", "lstDatabase", 0);
  EXPECT_TRUE(rows->model()->index(0, 0).data().toString().startsWith(QStringLiteral("009")))
      << "the shortest periods come first";
  ClickRow(rows, 0);
  ClickRow(rows, 7, Qt::ShiftModifier);
  Click("frmDatabase", "cmdAdd", 0);
  ASSERT_EQ(ActiveCount, 8);
  auto* const active = In<QAbstractItemView>("frmDatabase", "lstActive");
  ClickRow(active, 2);
  const std::string chosen = ElementSets[3].Name;
  Click("frmDatabase", "cmdPrincipale");
  EXPECT_EQ(ElementSets[1].Name, chosen);
  EXPECT_EQ(Panel(2), ToQ(chosen));
  Click("frmDatabase", "cmdOK");

  Tool("Recta");
  ASSERT_TRUE(IsFormLoaded("frmWorldMap"));
  tmrCentrale_Timer();

  Tool("Time");
  Click("frmTime", "chkUsaOraPc");
  EXPECT_FALSE(TickEnabled);
  In<QDateTimeEdit>("frmTime", "DTPicker1")
      ->setDateTime(QDateTime(QDate(2022, 6, 20), QTime(12, 0), Qt::UTC));
  Click("frmTime", "cmdPlay");
  tmrCentrale_Timer();
  EXPECT_TRUE(Panel(1).startsWith(QStringLiteral("20 giugno 2022  12:00:00"))) << FromQ(Panel(1));
  tmrCentrale_Timer();
  EXPECT_TRUE(Panel(1).startsWith(QStringLiteral("20 giugno 2022  12:00:01")));
  Click("frmTime", "cmdStop");
  tmrCentrale_Timer();
  EXPECT_TRUE(Panel(1).startsWith(QStringLiteral("20 giugno 2022  12:00:01")));
  Click("frmTime", "chkUsaOraPc");
  tmrCentrale_Timer();
  EXPECT_TRUE(Panel(1).startsWith(QStringLiteral("16 giugno 2022")));

  Tool("Save");
  const ObserverSite site = Site;
  End();
  ForgetSettings();
  const std::string program = AppPath;
  ResetSharedRecords();
  AppPath = program;
  LanguageLoaded = false;
  ResetForms();
  RegisterWindows();
  Start();
  EXPECT_EQ(languageDialogs_, 1);
  EXPECT_EQ(ActiveCount, 8);
  EXPECT_EQ(Panel(2), ToQ(chosen));
  EXPECT_EQ(Site.Place, site.Place);
  EXPECT_NEAR(Site.Latitude, site.Latitude, 1e-4);
  EXPECT_EQ(Site.Height, 21);
  EXPECT_EQ(PrimaryDatabasePath, folder_.Path("elements/sample.txt"));
  for (const FakePlatform::Message& message : platform_.messages)
    EXPECT_EQ(message.kind, MessageKind::Information) << message.text;
}

/// Every item of the menus by its name: it opens what its row says, or it is disabled.
TEST_F(FirstQuarterTest, EveryCommandDoesWhatItSaysOrIsDisabled) {
  SaveRegistryString(settingsApplication, "Generali", "Lingua", "English.ini");
  SaveRegistryString(settingsApplication, "Database", "Primario", folder_.Path("elements/sample.txt"));
  const std::string sample = ProgramFolder::Read(folder_.Path("elements/sample.txt"));
  folder_.Write("Halvorine.ini", sample.substr(0, sample.find("HST")));
  Start();
  const std::map<std::string, std::string> opens = {
      {"mnuTerraMappaRettangolare", "frmWorldMap"},
      {"mnuTerraMappaOrtografica", "frmWorldMap"},
      {"mnuCieloMappaLocale", "frmLocalSky"},
      {"mnuSatellitiPrevisioniPassaggi", "frmVisibleSatellites"},
      {"mnuCieloMappaGenerale", "frmGeneralSky"},
      {"mnuSatellitiDatabase", "frmDatabase"},
      {"mnuSatellitiCalcoloEffemeridi", "frmCalc"},
      {"mnuSatellitiMotoRelativo", "frmRelative"},
      {"mnuStrumentiCalendario", "frmCalendar"},
      {"mnuOpzioniData", "frmTime"},
      {"mnuOpzioniLocalita", "frmLocation"},
      {"mnuStrumentiDownload", "frmDownload"},
      {"mnuStrumentiSincronizzazione", "frmSyncro"},
      {"mnuEffemeridiSatelliti", "frmTrack"},
      {"mnuEffemeridiPianeti", "frmPlanets"},
      {"mnuEffemeridiAlmanacco", "frmRiseSet"},
      {"mnuSatellitiElementiOrbitali", "frmSatellite"}};
  // these ask with a window of their own that waits, or end the program; other tests drive them
  const QStringList waiting{"mnuOpzioniLingua",        "mnuAiutoInformazioni", "mnuFileEsci",
                            "mnuFileImpostaStampante", "mnuFileStampa",        "mnuLocalSkyStampa",
                            "mnuGeneralSkyStampa",     "mnuSkySatStampa"};
  int enabled = 0;
  QStringList disabled;
  for (QAction* const action : window_->findChildren<QAction*>()) {
    const QString name = action->objectName();
    if (!name.startsWith(QLatin1String("mnu")) || action->menu() != nullptr || waiting.contains(name))
      continue;
    if (!action->isEnabled()) {
      disabled << name;
      continue;
    }
    ++enabled;
    const bool checked = action->isChecked();
    window_->RunCommand(FromQ(name));
    QCoreApplication::processEvents();
    // a chart's items do nothing while it is closed, as all windows are by then
    EXPECT_TRUE(!action->isCheckable() || name.contains(QLatin1String("Sky")) ||
                action->isChecked() != checked)
        << FromQ(name);
    const auto form = opens.find(FromQ(name));
    if (form == opens.end()) continue;
    ASSERT_TRUE(IsFormLoaded(form->second)) << form->first;
    EXPECT_TRUE(Control<QWidget>(window_.get(), form->second.c_str())->isVisible()) << form->first;
  }
  EXPECT_GE(enabled, 35);
  EXPECT_LE(disabled.size(), 14) << FromQ(disabled.join(QLatin1Char(' ')));
}

}  // namespace
}  // namespace halvorine
