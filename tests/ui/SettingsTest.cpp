// The options dialog, driven by clicks and keys: every option, its key in the store, its effect.
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QStatusBar>
#include <QTabBar>
#include <QTabWidget>
#include <QToolBar>
#include <filesystem>
#include <limits>
#include <set>

#include "controls/RangeTool.h"
#include "shell/base/mGlobal.h"
#include "shell/base/mLang.h"
#include "shell/base/mLongOperation.h"
#include "shell/base/mStore.h"
#include "shell/mSettings.h"
#include "shell/mTick.h"
#include "shell/qtSettingsParts.h"
#include "tests/fakes/FakeForms.h"
#include "tests/fakes/RunningProgram.h"

namespace halvorine {
namespace {

/// A control, where it stands, its key in the store, and what the key holds after one action on it: a click
/// on a check or a colour (0x123456 is chosen), an entry of a list, or so many steps of a thumb by the arrow
/// keys.
struct OptionCase {
  int tab;
  std::string control, section, key, after;
  int entry = 0;
};

std::vector<OptionCase> OptionCases() {
  std::vector<OptionCase> cases = {
      {0, "chkConfermaUscita", "Generali", "Conferma uscita", "-1"},
      {0, "chkVerificaOpzioni", "Generali", "Verifica opzioni", "-1"},
      {0, "chkBarraPulsanti", "Generali", "Barra pulsanti", "0"},
      {0, "chkBarraStato", "Generali", "Barra stato", "0"},
      {0, "chkPosizioniFinestre", "Generali", "Posizioni finestre", "-1"},
      {0, "chkVerificaOraLegale", "Generali", "Verifica ora legale", "0"},
      {0, "cmbData", "Generali", "Formato ora", "9", 9},
      {1, "cmbPropagatore", "Satelliti", "Propagatore", "3", 3},
      {1, "cmbMagnitudine", "Satelliti", "Magnitudine", "1", 1},
      {1, "chkRifrazione", "Satelliti", "Rifrazione", "-1"},
      {1, "cmbVisibilita", "Satelliti", "Soglia", "-18", 18},
      {2, "chkWorldMapGriglia", "Mappamondo", "Griglia", "0"},
      {2, "chkWorldMapNomeCitta", "Mappamondo", "Citta", "0"},
      {2, "chkWorldMapCerchioVisibilita", "Mappamondo", "Cerchio", "0"},
      {2, "chkWorldMapTracciatoOrbita", "Mappamondo", "Orbita", "0"},
      {2, "chkWorldMapDatiSatellite", "Mappamondo", "Mouse dati", "0"},
      {2, "chkWorldMapCoordinateMouse", "Mappamondo", "Localizzatore", "-1"},
      {2, "chkWorldMapRiquadroDati", "Mappamondo", "Riquadro dati", "0"},
      {2, "chkWorldMapSole", "Mappamondo", "Sole", "0"},
      {2, "chkWorldMapOmbra", "Mappamondo", "Ombra", "0"},
      {4, "cmbLocalSkyProiezione", "Cielo locale", "Proiezione stereo", "0", 0},
      {4, "cmbLocalSkyOrientamento", "Cielo locale", "Orientamento", "3", 3},
      {4, "cmbLocalSkyCoordinate", "Cielo locale", "Coordinate altazimutali", "0", 0},
      {4, "cmbLocalSkyTipoGriglia", "Cielo locale", "Griglia tipo", "0", 0},
      {4, "chkLocalSkyGriglia10", "Cielo locale", "Griglia 10", "0"},
      {4, "chkLocalSkyOrizzonte", "Cielo locale", "Effetto orizzonte", "0"},
      {4, "chkLocalSkyPaesaggio", "Cielo locale", "Paesaggio", "0"},
      {4, "chkLocalSkyRiquadroDati", "Cielo locale", "Riquadro dati", "0"},
      {7, "cmbSkySatProiezione", "Cielo anteprima", "Proiezione stereo", "-1", 1},
      {7, "cmbSkySatOrientamento", "Cielo anteprima", "Orientamento", "2", 2},
      {7, "cmbSkySatTipoGriglia", "Cielo anteprima", "Griglia tipo", "0", 0},
      {7, "chkSkySatGriglia10", "Cielo anteprima", "Griglia 10", "0"},
      {7, "chkSkySatOrizzonte", "Cielo anteprima", "Effetto orizzonte", "0"},
      {7, "chkSkySatPaesaggio", "Cielo anteprima", "Paesaggio", "0"},
      {8, "chkTransito", "Filtri", "In transito", "0"},
      {13, "txtEseguiProgramma", "Esegui", "Programma", "/usr/bin/env"},
      {13, "txtEseguiParametri", "Esegui", "Parametri", "-v \"a b\""},
  };
  const struct {
    int tab;
    const char *chart, *section, *stars;
    int entry;
  } charts[] = {{3, "LocalSky", "Cielo locale", "9010", 0},
                {5, "GeneralSky", "Cielo generale", "23", 11},
                {6, "SkySat", "Cielo anteprima", "293", 7}};
  const char* const sky[][3] = {{"Griglia", "Griglia", "-1"},
                                {"CostellazioniLinee", "Costellazioni linee", "-1"},
                                {"Pianeti", "Pianeti", "0"},
                                {"SoleLuna", "Sole luna", "0"},
                                {"CostellazioniNomi", "Costellazioni nomi", "-1"},
                                {"PianetiNomi", "Pianeti nomi", "0"},
                                {"SoleLunaNomi", "Sole luna nomi", "-1"}};
  for (const auto& [tab, chart, section, stars, entry] : charts) {
    const std::string check = std::string("chk") + chart;
    for (const auto& row : sky) cases.push_back({tab, check + row[0], section, row[1], row[2]});
    cases.push_back({tab, std::string("cmb") + chart + "Magnitudine", section, "Stelle", stars, entry});
  }
  const char* const pages[] = {" tutti", " principale", " secondari"};
  for (int i = 0; i < 3; ++i) {
    const std::string index = "(" + std::to_string(i) + ")", page = pages[i];
    cases.push_back({8, "chkAM" + index, "Filtri", "AM" + page, "0"});
    cases.push_back({8, "chkPM" + index, "Filtri", "PM" + page, "0"});
    cases.push_back({8, "chkSoloVisibili" + index, "Filtri", "Solo visibili" + page, "-1"});
    cases.push_back({8, "rtAltsat" + index + "/picBottom", "Filtri", "Altezza min" + page, "13", 3});
    cases.push_back({8, "rtAzisat" + index + "/picBottom", "Filtri", "Azimuth min" + page, "2", 2});
    cases.push_back({8, "rtAzisat" + index + "/picTop", "Filtri", "Azimuth max" + page, "356", -4});
  }
  const char* const areas[][2] = {{"GrigliaMappamondo", "Griglia mappamondo"},
                                  {"GrigliaGenerale", "Griglia generale"},
                                  {"NomeCitta", "Nome citta"},
                                  {"Satellite", "Satellite"},
                                  {"Orbita1", "Orbita1"},
                                  {"Orbita2", "Orbita2"},
                                  {"CostellazioniLinee", "Costellazioni linee"},
                                  {"CostellazioniNomi", "Costellazioni nomi"},
                                  {"GrigliaLocale1", "Griglia locale1"},
                                  {"GrigliaLocale2", "Griglia locale2"},
                                  {"GrigliaLocale3", "Griglia locale3"},
                                  {"GrigliaLocale4", "Griglia locale4"}};
  for (std::size_t i = 0; i < std::size(areas); ++i)
    cases.push_back({i < 8 ? 10 : 11, std::string("lblAreaColore") + areas[i][0], "Colori", areas[i][1],
                     std::to_string(0x123456)});
  return cases;
}

std::string StoredText(const OptionField& field) {
  if (const auto* const* text = std::get_if<std::string*>(&field)) return **text;
  if (const auto* const* real = std::get_if<double*>(&field)) return NumberText(**real);
  if (const auto* const* colour = std::get_if<std::int32_t*>(&field)) return std::to_string(**colour);
  return std::to_string(*std::get<std::int16_t*>(field));
}

class SettingsTest : public RunningProgram {
 protected:
  QWidget* Open(const char* command = "mnuOpzioniGenerali") {
    Item(command)->trigger();
    QCoreApplication::processEvents();
    return form_ = Form("frmSettings");
  }
  QTabWidget* Tabs() { return Control<QTabWidget>(form_, "SSTab1"); }
  void Click(const char* name) {
    auto* const control = Control<QWidget>(form_, name);
    QTest::mouseClick(control, Qt::LeftButton, {}, QPoint(8, control->height() / 2));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }
  /// Goes to a tab by a click on it, and to the page of filters of an indexed control.
  void GoTo(const OptionCase& option) {
    QTest::mouseClick(Tabs()->tabBar(), Qt::LeftButton, {}, Tabs()->tabBar()->tabRect(option.tab).center());
    const std::size_t bracket = option.control.find('(');
    if (bracket == std::string::npos) return;
    QTabBar* const pages = Control<QTabWidget>(form_, "tabFiltri")->tabBar();
    QTest::mouseClick(pages, Qt::LeftButton, {}, pages->tabRect(option.control[bracket + 1] - '0').center());
  }
  void Act(const OptionCase& option) {
    const std::size_t slash = option.control.find('/');
    auto* control = Control<QWidget>(form_, option.control.substr(0, slash).c_str());
    if (slash != std::string::npos) control = Control<QWidget>(control, option.control.c_str() + slash + 1);
    ASSERT_TRUE(control->isVisible()) << option.control;
    control->setFocus();
    if (auto* const list = qobject_cast<QComboBox*>(control)) {
      QTest::keyClick(list, Qt::Key_Home);
      for (int i = 0; i < option.entry; ++i) QTest::keyClick(list, Qt::Key_Down);
    } else if (slash != std::string::npos) {
      for (int i = 0; i < std::abs(option.entry); ++i)
        QTest::keyClick(control, option.entry > 0 ? Qt::Key_Right : Qt::Key_Left);
    } else if (qobject_cast<QLineEdit*>(control) != nullptr) {
      QTest::keyClicks(control, ToQ(option.after));
    } else {
      platform_.chosenColours = {0x123456};
      QTest::mouseClick(control, Qt::LeftButton, {}, QPoint(8, control->height() / 2));
    }
  }
  /// "section, key = text" of every setting that differs from a record.
  static std::vector<std::string> Differences(ProgramOptions from, ProgramOptions to) {
    std::vector<std::string> texts;
    for (const OptionRow& row : OptionTable())
      if (StoredText(row.field(from)) != StoredText(row.field(to)))
        texts.push_back(row.section + ", " + row.key + " = " + StoredText(row.field(to)));
    return texts;
  }
  RowsView* RowsOf(const char* name) { return Control<RowsView>(form_, name); }
  void ClickRow(RowsView* list, int row) {
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                      list->visualRect(list->Model().index(row)).center());
  }

  QWidget* form_ = nullptr;
};

TEST_F(SettingsTest, EveryOptionIsSetByItsControlAndByNothingElse) {
  Start();
  const ProgramOptions before = Options;
  for (const OptionCase& option : OptionCases()) {
    Open();
    GoTo(option);
    Act(option);
    EXPECT_EQ(Options, before) << option.control << " acts only by OK";
    Click("cmdOK");
    EXPECT_FALSE(IsFormLoaded("frmSettings"));
    const std::string told = option.section + ", " + option.key + " = " + option.after;
    EXPECT_EQ(Differences(before, Options), std::vector<std::string>{told}) << option.control;
    Options = before;
  }
}

TEST_F(SettingsTest, AllOptionsTogetherAreCancelledAppliedSavedAndRestored) {
  Start();
  const ProgramOptions before = Options;
  // two without a control, and those of other windows
  std::set<std::string> untouched = {"Unita"};
  for (const OptionRow& row : OptionTable())
    if (row.section == "Radio" || row.section == "ServerNTP" || row.section == "Download")
      untouched.insert(row.key);
  for (const char* const end : {"cmdCancel", "cmdOK"}) {
    Open();
    for (const OptionCase& option : OptionCases()) {
      GoTo(option);
      if (option.control.find("Griglia10") == std::string::npos) Act(option);
    }
    Click("cmdSave");
    EXPECT_EQ(GetRegistryString(settingsApplication, "Generali", "Formato ora", ""), "0")
        << "what is saved are the options, not the controls";
    EXPECT_EQ(Options, before);
    Click(end);
  }
  EXPECT_EQ(Differences(before, Options).size(), OptionTable().size() - untouched.size() - 2);
  const ProgramOptions changed = Options;
  Open();
  Click("cmdOK");
  EXPECT_EQ(Options, changed) << "what is shown is what is applied";
  Item("mnuFileSalvaImpostazioni")->trigger();
  Options = {};
  LoadSettings();
  EXPECT_EQ(Options, changed);
  platform_.answers = {MessageAnswer::Yes};
  Item("mnuFileRipristinaImpostazioni")->trigger();
  EXPECT_EQ(Options, before);
  bool told = false;
  OptionsChanged(told);
  EXPECT_TRUE(told);
}

TEST_F(SettingsTest, ElevenCommandsOpenTheirTabs) {
  Start();
  const std::pair<const char*, int> commands[] = {
      {"mnuOpzioniGenerali", 0},      {"mnuOpzioniSatelliti", 1}, {"mnuOpzioniMappamondo", 2},
      {"mnuOpzioniCieloLocale", 3},   {"mnuOpzioniAnteprime", 6}, {"mnuOpzioniFiltri", 8},
      {"mnuOpzioniCieloGenerale", 5}, {"mnuOpzioniServerNTP", 9}, {"mnuOpzioniColori", 10},
      {"mnuOpzioniDownload", 12},     {"mnuOpzioniEsegui", 13}};
  for (const auto& [command, tab] : commands) {
    Open(command);
    EXPECT_TRUE(form_->isVisible());
    EXPECT_EQ(Tabs()->currentIndex(), tab) << command;
  }
  EXPECT_EQ(Tabs()->count(), 14);
  EXPECT_EQ(platform_.waitDepth, 0);
}

TEST_F(SettingsTest, OpenWindowsTakeTheOptionsOver) {
  Start(3);
  CallLog log;
  const FakeLocalSky local(log);
  Item("mnuTerraMappaRettangolare")->trigger();
  for (const OptionCase& option : OptionCases()) {
    const bool acts = option.tab <= 4 && option.control != "chkConfermaUscita";
    if (!acts || option.control.find("Griglia10") != std::string::npos) continue;
    if (form_ == nullptr) Open();
    GoTo(option);
    Act(option);
  }
  Click("cmdOK");
  for (const char* const off :
       {"mnuWorldmapGriglia", "mnuWorldmapSole", "mnuWorldmapOmbra", "mnuWorldmapTracciatoOrbita",
        "mnuVisualizzaBarraPulsanti", "mnuVisualizzaBarraStato"})
    EXPECT_FALSE(Item(off)->isChecked()) << off;
  for (const char* const on : {"mnuWorldmapCoordinateMouse", "mnuWorldmapTerminatore"})
    EXPECT_TRUE(Item(on)->isChecked()) << on;
  EXPECT_EQ(Form("fraSatellitePrincipale")->width(), 0) << "the map's data box";
  EXPECT_EQ(log, CallLog{"frmLocalSky.Genera_mappa"});
  EXPECT_FALSE(Control<QToolBar>(window_.get(), "Toolbar1")->isVisible());
  EXPECT_FALSE(window_->statusBar()->isVisible());
  tmrCentrale_Timer();
  EXPECT_EQ(Panel(1), QStringLiteral("165.50000000@2022 Greenwich"));
}

/// With everything on that a chart can show, each of its options alone changes the picture, and back.
TEST_F(SettingsTest, EveryOptionOfAMapOrChartIsSeenAtOnce) {
  Start(3);
  for (SkyOptions* const chart : {&Options.Local, &Options.General})
    chart->Grid = chart->ConstellationLines = chart->ConstellationNames = chart->SunMoonNames = -1;
  const ProgramOptions before = Options;
  const struct {
    const char *command, *form;
    std::set<int> tabs;
    std::set<std::string> others, unseen;
  } windows[] = {
      {"mnuTerraMappaRettangolare",
       "frmWorldMap",
       {2},
       {"GrigliaMappamondo", "NomeCitta", "Satellite", "Orbita1", "Orbita2"},
       {"chkWorldMapDatiSatellite", "chkWorldMapCoordinateMouse"}},
      {"mnuCieloMappaLocale",
       "frmLocalSky",
       {3, 4},
       {"CostellazioniLinee", "CostellazioniNomi", "GrigliaLocale1"},
       {"cmbLocalSkyCoordinate"}},
      {"mnuCieloMappaGenerale", "frmGeneralSky", {5}, {"CostellazioniLinee", "GrigliaGenerale"}, {}},
  };
  for (const auto& [command, name, tabs, colours, unseen] : windows) {
    if (!CanLoadForm(name)) continue;
    Item(command)->trigger();
    QWidget* const window = Form(name);
    const auto picture = [window] {
      tmrCentrale_Timer();  // on a slow machine the timer's own tick may come between
      QCoreApplication::processEvents();
      return window->grab().toImage();
    };
    QTest::qWait(150);  // the rebuild that follows the first showing
    const QImage base = picture();
    for (const OptionCase& option : OptionCases()) {
      const bool colour =
          (option.tab == 10 || option.tab == 11) && colours.contains(option.control.substr(13));
      if ((!tabs.contains(option.tab) && !colour) || unseen.contains(option.control)) continue;
      Open();
      GoTo(option);
      Act(option);
      Click("cmdOK");
      EXPECT_NE(picture(), base) << name << " " << option.control;
      Options = before;
      ApplyOptions(true);
      EXPECT_TRUE(QTest::qWaitFor([&] { return picture() == base; }, 2000)) << name << " " << option.control;
    }
    LoadedForm(name)->Unload();
  }
}

TEST_F(SettingsTest, TheTerminatorMirrorsTheMenuAndTakesTheNightSideWithIt) {
  Start(2);
  Item("mnuTerraMappaRettangolare")->trigger();
  Open("mnuOpzioniMappamondo");
  EXPECT_TRUE(Control<QCheckBox>(form_, "chkWorldMapTerminatore")->isChecked());
  Click("chkWorldMapTerminatore");
  EXPECT_FALSE(Control<QCheckBox>(form_, "chkWorldMapOmbra")->isChecked());
  Click("chkWorldMapOmbra");
  Click("cmdOK");
  EXPECT_FALSE(Item("mnuWorldmapTerminatore")->isChecked());
  EXPECT_TRUE(Item("mnuWorldmapOmbra")->isChecked());
  Open("mnuOpzioniMappamondo");
  EXPECT_FALSE(Control<QCheckBox>(form_, "chkWorldMapTerminatore")->isChecked());
  Item("mnuWorldmapTerminatore")->trigger();
  EXPECT_TRUE(Item("mnuWorldmapOmbra")->isChecked());
  Item("mnuWorldmapTerminatore")->trigger();
  EXPECT_FALSE(Item("mnuWorldmapOmbra")->isChecked()) << "the menu takes it along too";
}

TEST_F(SettingsTest, NonsenseLeavesListsUnsetAndOutlivesAnOkThatChoosesNothing) {
  Start();
  Options.Local.StarCount = 1640;
  Options.SunThreshold = -19;
  Options.ClockFormat = 10;
  Options.Propagator = -1;
  Options.PhaseLaw = 7;
  Options.Preview.Orientation = 32767;
  Options.Colours.Satellite = std::numeric_limits<std::int32_t>::min();
  Options.TimeServers[3] = std::string(5000, 'x');
  const ProgramOptions before = Options;
  Open();
  for (const char* const name : {"cmbLocalSkyMagnitudine", "cmbVisibilita", "cmbData", "cmbPropagatore",
                                 "cmbMagnitudine", "cmbSkySatOrientamento"})
    EXPECT_EQ(Control<QComboBox>(form_, name)->currentIndex(), -1) << name;
  Click("cmdOK");
  EXPECT_EQ(Differences(before, Options), std::vector<std::string>{});
  Options.FilterAll = {5, 0, 0, -500, 700, -3};
  Open();
  const auto* const azimuth = Control<RangeTool>(form_, "rtAzisat", 0);
  EXPECT_EQ(std::pair(azimuth->LowerValue(), azimuth->UpperValue()), std::pair(360.0, 360.0));
  EXPECT_EQ(Control<RangeTool>(form_, "rtAltsat", 0)->LowerValue(), 0);
  EXPECT_EQ(Control<QLabel>(form_, "lblAltmin", 0)->text(), QStringLiteral("0°"));
}

TEST_F(SettingsTest, RowsAreEditedMovedRemovedAndRestored) {
  Start();
  const auto servers = Options.TimeServers;
  Open("mnuOpzioniServerNTP");
  RowsView* list = RowsOf("lvwServerNTP");
  for (const char* const button : {"cmdServerSu", "cmdServerGiu", "cmdDownloadGiu", "cmdDownloadSu"}) {
    if (std::string_view(button) == "cmdDownloadGiu") Open("mnuOpzioniDownload");
    Click(button);
    const char* const key =
        std::string_view(button) == "cmdDownloadSu" ? "selezionarefile" : "selezionareserver";
    ASSERT_FALSE(platform_.messages.empty());
    EXPECT_EQ(platform_.messages.back().text, LookupText("frmSettings", key)) << button;
  }
  Open("mnuOpzioniServerNTP");
  ClickRow(list, 0);
  Click("cmdServerSu");
  Click("cmdServerGiu");
  EXPECT_EQ(list->Chosen(), 1);
  EXPECT_EQ(list->Rows(10)[0], servers[1]);
  const auto edit = [&](const char* typed, Qt::Key end) {
    auto* const editor = list->viewport()->findChild<QLineEdit*>();
    ASSERT_NE(editor, nullptr);
    EXPECT_EQ(editor->text(), ToQ(servers[0])) << "the number is no part of it";
    editor->selectAll();
    QTest::keyClicks(editor, typed);
    QTest::keyClick(editor, end);
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    ASSERT_TRUE(IsFormLoaded("frmSettings")) << "the key ends the editing, not the dialog";
  };
  ClickRow(list, 1);
  QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, list->visualRect(list->currentIndex()).center());
  edit("dropped.example.org", Qt::Key_Escape);
  EXPECT_EQ(list->Rows(10)[1], servers[0]);
  QTest::keyClick(list, Qt::Key_F2);
  edit("time.example.org", Qt::Key_Return);
  EXPECT_EQ(list->Rows(10)[1], "time.example.org");
  ClickRow(list, 9);
  Click("cmdServerGiu");
  EXPECT_EQ(list->Rows(10)[9], servers[9]);
  ClickRow(list, 4);
  Click("cmdServerElimina");
  Click("cmdServerElimina");
  Click("cmdOK");
  EXPECT_EQ(Options.TimeServers[0], servers[1]);
  EXPECT_EQ(Options.TimeServers[4], servers[6]);
  EXPECT_EQ(Options.TimeServers[8], "");
  Open("mnuOpzioniServerNTP");
  list = RowsOf("lvwServerNTP");
  EXPECT_EQ(list->Model().rowCount(), 10) << "an empty row can be filled again";
  Click("cmdServerRipristina");
  Click("cmdServerElimina");
  list->SetRows(std::vector<std::string>(10000, "time.example.org"));
  list->setCurrentIndex(list->Model().index(9999));
  Click("cmdServerSu");
  Click("cmdServerElimina");
  EXPECT_EQ(list->Rows(20000)[9998], "time.example.org");
  EXPECT_EQ(list->Rows(20000)[9999], "");
  Click("cmdServerRipristina");
  Open("mnuOpzioniDownload");
  for (int i = 0; i < 40; ++i) {
    ClickRow(RowsOf("lvwDownload"), 0);
    Click("cmdDownloadElimina");
  }
  EXPECT_EQ(RowsOf("lvwDownload")->Model().rowCount(), 0);
  Click("cmdDownloadRipristina");
  Click("cmdOK");
  EXPECT_EQ(Options.TimeServers, servers);
  EXPECT_EQ(Options.RemoteFiles[29], "celestrak.org/NORAD/elements/military.txtl");
}

TEST_F(SettingsTest, ColoursAreChosenFromTheirPresentOneAndRestored) {
  Start();
  const ColourOptions before = Options.Colours;
  Open("mnuOpzioniColori");
  Click("lblAreaColoreSatellite");
  EXPECT_EQ(platform_.colourQuestions.back(), std::pair(std::string("Satellite"), std::int32_t{65535}));
  EXPECT_EQ(Control<ColourArea>(form_, "lblAreaColoreSatellite")->Told().text, QStringLiteral("#ffff00"));
  for (const SettingRow& row : SettingTable())
    if (row.kind == SettingKind::Swatch) Control<ColourArea>(form_, row.control.c_str())->SetColour(1);
  Click("cmdRipristinaColori1");
  EXPECT_EQ(Control<ColourArea>(form_, "lblAreaColoreSatellite")->Colour(), 65535);
  EXPECT_EQ(Control<ColourArea>(form_, "lblAreaColoreGrigliaLocale1")->Colour(), 1);
  Tabs()->setCurrentIndex(11);
  Click("cmdRipristinaColori2");
  Click("cmdOK");
  EXPECT_EQ(Options.Colours, before);
}

TEST_F(SettingsTest, TheProgramIsChosenAndStarted) {
  Start();
  ProgramFolder::WriteTo(folder_.UserPath("my program"), "#!");
  ProgramFolder::WriteTo(folder_.UserPath("empty"), "");
  Open("mnuOpzioniEsegui");
  platform_.chosenFiles = {folder_.UserPath("my program"), folder_.UserPath("empty"), ""};
  for (int i = 0; i < 3; ++i) Click("cmdEseguiProgramma");
  EXPECT_EQ(platform_.fileQuestions.back().initial, folder_.UserPath("my program"));
  Control<QLineEdit>(form_, "txtEseguiParametri")->setText(QStringLiteral("-x"));
  Click("cmdOK");
  Item("mnuStrumentiProgramma")->trigger();
  EXPECT_EQ(platform_.processes.back(), '"' + folder_.UserPath("my program") + "\" -x");
  Open("mnuOpzioniEsegui");
  Click("cmdEseguiElimina");
  Click("cmdOK");
  EXPECT_EQ(Options.ExternalProgram + Options.ExternalParameters, "");
  platform_.processes.clear();
  Item("mnuStrumentiProgramma")->trigger();
  EXPECT_TRUE(platform_.processes.empty());
}

TEST_F(SettingsTest, AStoreThatCannotBeWrittenIsToldAndTheDialogStays) {
  Start();
  Open();
  platform_.refuseWriting = true;
  Click("cmdSave");
  EXPECT_EQ(platform_.messages.size(), 1U);
  EXPECT_TRUE(IsFormLoaded("frmSettings"));
  platform_.refuseWriting = false;
  std::filesystem::remove(folder_.SettingsFile());
  Click("cmdSave");
  ForgetSettings();
  EXPECT_EQ(GetRegistryString(settingsApplication, "Satelliti", "Soglia", ""), "-10")
      << "a lost file is whole";
}

TEST_F(SettingsTest, LongWorkKeepsTheOptionsThatItBeganWith) {
  Start();
  const ProgramOptions before = Options;
  Open();
  Click("chkConfermaUscita");
  {
    const LongOperation work;
    Click("cmdOK");
    Item("mnuFileRipristinaImpostazioni")->trigger();
  }
  EXPECT_EQ(platform_.messages.size(), 2U);
  EXPECT_EQ(Options, before);
  Click("cmdOK");
  EXPECT_EQ(Options.ConfirmExit, -1) << "nothing of what was chosen is lost";
}

TEST_F(SettingsTest, KeysTurnTabsChooseColoursAndEndTheDialog) {
  Start();
  Open();
  QTest::keyClick(Tabs()->tabBar(), Qt::Key_Down);
  EXPECT_EQ(Tabs()->currentIndex(), 1);
  platform_.chosenColours = {7};
  auto* const area = Control<ColourArea>(form_, "lblAreaColoreOrbita1");
  QTest::keyClick(area, Qt::Key_Space);
  EXPECT_EQ(area->Colour(), 7);
  QTest::keyClick(area, Qt::Key_Escape);
  EXPECT_FALSE(form_->isVisible());
  EXPECT_EQ(Options.Colours.TrackBehind, 255);
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  Open();
  QTest::keyClick(Control<QCheckBox>(form_, "chkConfermaUscita"), Qt::Key_Space);
  QTest::keyClick(Control<QCheckBox>(form_, "chkConfermaUscita"), Qt::Key_Return);
  EXPECT_EQ(Options.ConfirmExit, -1);
}

}  // namespace
}  // namespace halvorine
