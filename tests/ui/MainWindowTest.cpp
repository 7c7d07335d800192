// The main window, driven by clicks and keys: start, commands, toolbar, status bar, languages, exit.
#include <QListWidget>
#include <QMdiSubWindow>
#include <QMenuBar>
#include <QPushButton>
#include <QStatusBar>
#include <QTimer>
#include <QToolBar>
#include <QToolButton>

#include "shell/base/mLang.h"
#include "shell/base/mLongOperation.h"
#include "shell/base/mReg.h"
#include "shell/frmLanguage.h"
#include "shell/mTick.h"
#include "tests/fakes/FakeForms.h"
#include "tests/fakes/RunningProgram.h"

namespace halvorine {
namespace {

class MainWindowTest : public RunningProgram {
 protected:
  QToolButton* Button(const char* key) {
    auto* const bar = Control<QToolBar>(window_.get(), "Toolbar1");
    return qobject_cast<QToolButton*>(bar->widgetForAction(Control<QAction>(bar, key)));
  }
};

TEST_F(MainWindowTest, StartsWithTheFirstTickDone) {
  Start(3);
  EXPECT_TRUE(window_->isVisible());
  EXPECT_EQ(window_->windowTitle(), ToQ(ApplicationCaption()));
  EXPECT_EQ(Panel(1), QStringLiteral("14 June 2022  13:00:00 "));
  EXPECT_EQ(Panel(2), ToQ(ElementSets[1].Name));
  EXPECT_EQ(Panel(3), QStringLiteral("Italy: Milano"));
  EXPECT_EQ(ActiveCount, 3);
  EXPECT_GT(SatelliteStates[3].Height, 100);
  EXPECT_TRUE(IsFormLoaded("FRMTIME"));
  EXPECT_FALSE(IsFormLoaded("frmDatabase"));
  EXPECT_TRUE(platform_.messages.empty());
}

TEST_F(MainWindowTest, BarsFollowTheirOptionsAndTheirCommands) {
  SaveRegistryString(settingsApplication, "Generali", "Barra pulsanti", "0");
  Start();
  EXPECT_FALSE(Control<QToolBar>(window_.get(), "Toolbar1")->isVisible());
  EXPECT_FALSE(Item("mnuVisualizzaBarraPulsanti")->isChecked());
  Item("mnuVisualizzaBarraPulsanti")->trigger();
  EXPECT_TRUE(Control<QToolBar>(window_.get(), "Toolbar1")->isVisible());
  Item("mnuVisualizzaBarraStato")->trigger();
  EXPECT_FALSE(window_->statusBar()->isVisible());
  EXPECT_EQ(Options.StatusBar, -1) << "a command changes the check only";
}

TEST_F(MainWindowTest, EveryCommandHasACaptionInEveryLanguageAndTheBarFits) {
  Start();
  for (const std::string& name : InstalledLanguages()) {
    ChooseLanguage(name);
    window_->Lingua();
    for (const QAction* const action : window_->findChildren<QAction*>()) {
      const QString item = action->objectName();
      const bool root =
          QStringList{"mnuWorldmap", "mnuLocalSky", "mnuGeneralSky", "mnuSkySat"}.contains(item);
      if (!item.startsWith(QLatin1String("mnu")) || root) continue;
      EXPECT_FALSE(action->text().isEmpty() || action->text() == item) << name << " " << FromQ(item);
    }
    for (const QAction* const button : Control<QToolBar>(window_.get(), "Toolbar1")->actions())
      EXPECT_TRUE(button->isSeparator() || !button->toolTip().isEmpty()) << name;
    EXPECT_LE(window_->menuBar()->sizeHint().width(), window_->width()) << name;
  }
}

TEST_F(MainWindowTest, MapSwitchesOnlyFlipWhileThereIsNoMap) {
  Start();
  QTest::mouseClick(Button("Griglia"), Qt::LeftButton);
  EXPECT_TRUE(Item("mnuWorldmapGriglia")->isChecked());
  EXPECT_TRUE(Button("Griglia")->isChecked());
  QTest::mouseClick(Button("Ombra"), Qt::LeftButton);
  QTest::mouseClick(Button("Terminatore"), Qt::LeftButton);
  EXPECT_TRUE(Item("mnuWorldmapOmbra")->isChecked());
  QTest::mouseClick(Button("Terminatore"), Qt::LeftButton);
  EXPECT_TRUE(Item("mnuWorldmapOmbra")->isChecked())
      << "only a map's terminator takes its night side with it";
  EXPECT_FALSE(IsFormLoaded("frmWorldMap"));
}

TEST_F(MainWindowTest, MapOfThePrincipalOpensAndCloseAllEndsIt) {
  Start(5);
  QTest::mouseClick(Button("Ortho"), Qt::LeftButton);
  ASSERT_TRUE(IsFormLoaded("frmWorldMap"));
  QTest::mouseClick(Button("Recta"), Qt::LeftButton);
  Item("mnuFinestreDisponiVerticale")->trigger();
  Item("mnuFinestreDiscesa")->trigger();
  Item("mnuFinestreChiudiTutto")->trigger();
  EXPECT_FALSE(IsFormLoaded("frmWorldMap"));
  EXPECT_FALSE(IsFormLoaded("frmTime"));
  tmrCentrale_Timer();
  EXPECT_TRUE(IsFormLoaded("frmTime")) << "the tick makes it again, in real time";
}

TEST_F(MainWindowTest, WithoutASatelliteTheMapCommandLeadsToTheCatalogue) {
  Start();
  QTest::mouseClick(Button("Recta"), Qt::LeftButton);
  EXPECT_FALSE(IsFormLoaded("frmWorldMap"));
  EXPECT_TRUE(Control<QWidget>(window_.get(), "frmDatabase")->isVisible());
}

TEST_F(MainWindowTest, AChangeOfLanguageUnloadsTheChildWindows) {
  Start(2);
  QTest::mouseClick(Button("Recta"), Qt::LeftButton);
  QTimer::singleShot(0, [] {
    auto* const dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    ASSERT_NE(dialog, nullptr);
    EXPECT_TRUE(Control<QPushButton>(dialog, "cmdOK")->isEnabled());
    auto* const list = Control<QListWidget>(dialog, "lstLingua");
    const QList<QListWidgetItem*> found = list->findItems(QStringLiteral("Italiano"), Qt::MatchExactly);
    ASSERT_EQ(found.size(), 1);
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualItemRect(found[0]).center());
    QTest::mouseClick(Control<QPushButton>(dialog, "cmdOK"), Qt::LeftButton);
  });
  Item("mnuOpzioniLingua")->trigger();
  EXPECT_FALSE(IsFormLoaded("frmWorldMap"));
  EXPECT_EQ(LanguageFile, "Italiano.ini");
  EXPECT_EQ(GetRegistryString(settingsApplication, "Generali", "Lingua", ""), "Italiano.ini");
  tmrCentrale_Timer();
  EXPECT_TRUE(Panel(1).startsWith(QStringLiteral("14 giugno 2022")));
}

TEST_F(MainWindowTest, TheFirstLanguageDialogOffersTheFirstLanguage) {
  LanguageFile.clear();
  const frmLanguage dialog;
  EXPECT_TRUE(Control<QPushButton>(&dialog, "cmdOK")->isEnabled());
  EXPECT_EQ(LanguageFile, "Deutsch.ini") << "the first entry lends its texts";
}

TEST_F(MainWindowTest, ExitAsksWhereTheOptionsSay) {
  SaveRegistryString(settingsApplication, "Generali", "Conferma uscita", "-1");
  SaveRegistryString(settingsApplication, "Generali", "Verifica opzioni", "-1");
  Start();
  platform_.answers = {MessageAnswer::No};
  Item("mnuFileEsci")->trigger();
  EXPECT_TRUE(window_->isVisible());
  EXPECT_EQ(platform_.messages.size(), 1U);
  Options.Map.Grid = 0;
  platform_.answers = {MessageAnswer::Yes, MessageAnswer::Yes};
  window_->close();
  EXPECT_FALSE(window_->isVisible());
  EXPECT_EQ(platform_.messages.size(), 3U);
  EXPECT_EQ(GetRegistryString(settingsApplication, "Mappamondo", "Griglia", ""), "0");
  EXPECT_FALSE(TickEnabled);
}

TEST_F(MainWindowTest, ExitAsksForAChangedActiveListAndStaysWhereItCannotBeSaved) {
  SaveRegistryString(settingsApplication, "Generali", "Verifica opzioni", "-1");
  Start(3);
  RotateActive();
  platform_.answers = {MessageAnswer::Yes};
  platform_.refuseWriting = true;
  window_->close();
  EXPECT_TRUE(window_->isVisible()) << "what was to be saved is still there";
  EXPECT_EQ(platform_.messages.size(), 2U);
  platform_.refuseWriting = false;
  platform_.answers = {MessageAnswer::Yes};
  const std::string second = ElementLines[1].line1;
  window_->close();
  EXPECT_FALSE(window_->isVisible());
  EXPECT_NE(ProgramFolder::Read(folder_.Path("Halvorine.ini")).find("\n" + second), std::string::npos);
}

TEST_F(MainWindowTest, AListFileThatCannotBeReadIsToldAndNeverReplacedInSilence) {
  std::filesystem::create_symlink("/proc/self/mem", folder_.Path("Halvorine.ini"));
  Start();
  EXPECT_TRUE(window_->isVisible());
  ASSERT_EQ(platform_.messages.size(), 1U);
  EXPECT_EQ(platform_.messages[0].kind, MessageKind::Warning);
  EXPECT_EQ(ActiveCount, 0);
  QTest::mouseClick(Button("Save"), Qt::LeftButton);
  ASSERT_EQ(platform_.messages.size(), 2U);
  EXPECT_EQ(platform_.messages[1].kind, MessageKind::Question);
  EXPECT_TRUE(std::filesystem::is_symlink(folder_.Path("Halvorine.ini")));
}

TEST_F(MainWindowTest, PanelTwoWarnsOfOldElementsAsTheClockGoes) {
  Start(1);
  auto* const panel = Control<QWidget>(window_.get(), "StatusBar1.Panel", 2);
  const QString plain = panel->toolTip();
  platform_.clockUtc += 60;
  tmrCentrale_Timer();
  EXPECT_EQ(panel->toolTip(), plain + QStringLiteral("\n") + Text("MDIForm1", "elementivecchi"));
  window_->Lingua();
  EXPECT_TRUE(panel->toolTip().contains(QLatin1Char('\n')));
  platform_.clockUtc -= 60;
  tmrCentrale_Timer();
  EXPECT_EQ(panel->toolTip(), plain);
}

TEST_F(MainWindowTest, AnotherPrincipalEndsTheTransitDisplayAndReleasesItsButton) {
  Start(2);
  CallLog log;
  FakeLocalSky sky(log);
  window_->SetChecked("mnuLocalSkyTransitoPrincipale", true);
  window_->SetChecked("mnuLocalSkyTempi", true);
  EXPECT_TRUE(Button("Transit")->isChecked());
  RotateActive();
  EXPECT_FALSE(Button("Transit")->isChecked());
  EXPECT_FALSE(window_->IsChecked("mnuLocalSkyTempi"));
  EXPECT_EQ(log, (CallLog{"frmLocalSky.ResetModeButton", "frmLocalSky.Genera_mappa"}));
}

TEST_F(MainWindowTest, AnExitDuringALongOperationCancelsItAndComesBack) {
  Start();
  CancelRequested = true;  // when nothing ran
  {
    const LongOperation operation;
    EXPECT_FALSE(CancelRequested);
    window_->close();
    EXPECT_TRUE(window_->isVisible());
    EXPECT_TRUE(CancelRequested);
  }
  EXPECT_FALSE(CancelRequested);
  QTest::qWait(20);
  EXPECT_FALSE(window_->isVisible());
}

TEST_F(MainWindowTest, SettingsThatCannotBeWrittenAreToldAndNothingIsLost) {
  Start(1);
  platform_.refuseWriting = true;
  QTest::mouseClick(Button("Save"), Qt::LeftButton);
  ASSERT_EQ(platform_.messages.size(), 1U);
  EXPECT_EQ(platform_.messages[0].kind, MessageKind::Warning);
  EXPECT_EQ(std::count(platform_.messages[0].text.begin(), platform_.messages[0].text.end(), '\n'), 1);
  EXPECT_NE(ProgramFolder::Read(folder_.Path("Halvorine.ini")).find("25544"), std::string::npos);
  platform_.refuseWriting = false;
  QTest::mouseClick(Button("Save"), Qt::LeftButton);
  EXPECT_EQ(platform_.messages.size(), 1U);
  EXPECT_TRUE(ProgramFolder::Read(folder_.Path("Halvorine.ini")).starts_with("Iss (Zarya)\n1 25544U"));
}

TEST_F(MainWindowTest, AListFileOfRubbishDoesNotStopTheStart) {
  for (const std::string& rubbish :
       {std::string("a\nb\nc\n"), std::string("\n\n\n"), std::string(100000, 'x'),
        std::string("\0\1\2\n\xFF\n", 6), std::string("NAME\n1 99999\n2 99999\nNAME\n1 ABCDE\n"),
        std::string("only a name")}) {
    window_.reset();
    folder_.Write("Halvorine.ini", rubbish);
    ForgetSettings();
    EXPECT_NO_THROW(Start());
    EXPECT_TRUE(window_->isVisible());
    UnloadAllForms("MDIForm1");
  }
}

TEST_F(MainWindowTest, RestoreSettingsAsksFirstAndStoresNothing) {
  Start();
  Options.Map.Grid = 0;
  Item("mnuFileRipristinaImpostazioni")->trigger();
  EXPECT_EQ(Options.Map.Grid, 0) << "no is the default answer";
  platform_.answers = {MessageAnswer::Yes};
  Item("mnuFileRipristinaImpostazioni")->trigger();
  EXPECT_EQ(Options.Map.Grid, -1);
  EXPECT_EQ(GetRegistryString(settingsApplication, "Mappamondo", "Griglia", "none"), "none");
}

}  // namespace
}  // namespace halvorine
