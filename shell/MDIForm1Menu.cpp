// The command table of the main window: every menu item with its place, and every toolbar button.
#include <QMenuBar>
#include <QToolButton>
#include <algorithm>
#include <array>
#include <optional>

#include "catalogue/mCatalogue.h"
#include "controls/qtIcons.h"
#include "shell/MDIForm1.h"
#include "shell/base/mPlatform.h"
#include "shell/base/mText.h"
#include "shell/base/qtForms.h"

namespace halvorine {

/// One entry of a menu. With a handler the item runs it; with a form it opens that window, at one of its tabs
/// where told, some only with the primary database at hand; with a window that the popup belongs to it is
/// passed on to that one. An item with none of them, or whose window cannot be made, is disabled. A name of
/// "-" is a separator, no parent a top or popup menu.
struct MenuTable {
  struct Row {
    const char* name;
    const char* parent = nullptr;
    MDIForm1::Handler handler = nullptr;
    const char* form = nullptr;
    const char* shortcut = nullptr;
    bool checkable = false;
    bool submenu = false;
    const char* popupOf = nullptr;
    int tab = -1;  // of that form
    bool needsDatabase = false;
  };
  static const std::vector<Row>& BarRows();
  static std::vector<Row> ViewRows();  // the menus from the files to the satellites
  static std::vector<Row> ToolRows();  // the menus behind them
  static const std::vector<Row>& PopupRows();
};

namespace {

using Row = MenuTable::Row;

Row Top(const char* name) { return {.name = name, .submenu = true}; }
Row Sub(const char* name, const char* parent) { return {.name = name, .parent = parent, .submenu = true}; }
Row Form(const char* name, const char* parent, const char* form, const char* shortcut = nullptr) {
  return {.name = name, .parent = parent, .form = form, .shortcut = shortcut};
}
Row OptionsTab(const char* name, int tab) {
  return {.name = name, .parent = "mnuOpzioni", .form = "frmSettings", .tab = tab};
}
Row FormOverDatabase(const char* name, const char* parent, const char* form) {
  return {.name = name, .parent = parent, .form = form, .needsDatabase = true};
}
Row Later(const char* name, const char* parent) { return {.name = name, .parent = parent}; }
Row LaterCheck(const char* name, const char* parent) {
  return {.name = name, .parent = parent, .checkable = true};
}
Row Line(const char* parent) { return {.name = "-", .parent = parent}; }

struct ToolbarRow {
  const char* key;  // null for a separator
  const char* command;
  const char* icon;
  const char* tipKey;
  bool checkable = false;
};

constexpr std::array<ToolbarRow, 29> toolbarRows = {{
    {"Open", "mnuFileApri", "open", "apri"},
    {"Save", "mnuFileSalvaImpostazioni", "save", "salva"},
    {nullptr, nullptr, nullptr, nullptr},
    {"Location", "mnuOpzioniLocalita", "place", "localita"},
    {"Time", "mnuOpzioniData", "time", "data"},
    {nullptr, nullptr, nullptr, nullptr},
    {"Recta", "mnuTerraMappaRettangolare", "recta", "mapparett"},
    {"Ortho", "mnuTerraMappaOrtografica", "ortho", "mappaorto"},
    {"Griglia", "mnuWorldmapGriglia", "grid", "griglia", true},
    {"Terminatore", "mnuWorldmapTerminatore", "terminator", "terminatore", true},
    {"Ombra", "mnuWorldmapOmbra", "shade", "ombra", true},
    {"SatOrbit", "mnuWorldmapTracciatoOrbita", "orbit", "tracciato", true},
    {nullptr, nullptr, nullptr, nullptr},
    {"LocalSky", "mnuCieloMappaLocale", "localsky", "cielolocale"},
    {"Transit", "mnuLocalSkyTransitoPrincipale", "transit_off", "transito", true},
    {"Planets", "mnuEffemeridiPianeti", "planet", "pianeti"},
    {"SkyMap", "mnuCieloMappaGenerale", "starchart", "cielogenerale"},
    {nullptr, nullptr, nullptr, nullptr},
    {"Satellite", "mnuSatellitiDatabase", "catalogue", "database"},
    {"Elements", "mnuSatellitiElementiOrbitali", "elements", "elementi"},
    {"Calcolo", "mnuSatellitiCalcoloEffemeridi", "table", "calcolo"},
    {"Relativo", "mnuSatellitiMotoRelativo", "relative", "relativo"},
    {"Track", "mnuEffemeridiSatelliti", "panel", "effemeridi"},
    {"Find", "mnuSatellitiPrevisioniPassaggi", "find", "previsioni"},
    {nullptr, nullptr, nullptr, nullptr},
    {"Stampa", "mnuFileStampa", "print", "stampa"},
    {"Rete", "mnuStrumentiDownload", "net", "rete"},
    {"Sincro", "mnuStrumentiSincronizzazione", "sync", "sincro"},
    {"Impostazioni", "mnuOpzioniGenerali", "gear", "impostazioni"},
}};

struct DropDownRow {
  const char* key;
  const char* command;
};

constexpr std::array<DropDownRow, 3> openRows = {
    {{"Open", "mnuFileApri"}, {"Summary", "mnuFileVisualizza"}, {"Modify", "mnuFileModifica"}}};

/// The items that a sky chart's popup has, after its prefix; a name that ends in ">" opens a submenu.
void AddSkyRows(std::vector<Row>& rows, const std::vector<const char*>& checks, const char* menu) {
  for (const char* const name : checks) {
    const std::string_view text(name);
    if (text == "-")
      rows.push_back(Line(menu));
    else
      rows.push_back(LaterCheck(name, menu));
  }
}

/// The window that several can stand open of; its popup belongs to the one that opened it last.
const char* const passChart = "frmSkySat";

/// Passes the items of a popup from a row on to its window.
void PassOn(std::vector<Row>& rows, std::size_t first, const char* form) {
  for (std::size_t i = first; i < rows.size(); ++i) {
    const std::string_view name(rows[i].name);
    if (!rows[i].submenu && name != "-") rows[i].popupOf = form;
  }
}

void AddLocalSky(std::vector<Row>& rows) {
  const char* const menu = "mnuLocalSky";
  const std::size_t first = rows.size();
  rows.push_back(Top(menu));
  AddSkyRows(
      rows,
      {"mnuLocalSkyGriglia", "mnuLocalSkyPaesaggio", "mnuLocalSkyRiquadroDati", "-", "mnuLocalSkyCoordEquat",
       "mnuLocalSkyCoordOrizz", "-", "mnuLocalSkyProiezStereo", "mnuLocalSkyProiezNormale"},
      menu);
  rows.push_back(Sub("mnuLocalSkyOrientamento", menu));
  AddSkyRows(rows,
             {"mnuLocalSkyOrientamentoNord", "mnuLocalSkyOrientamentoSud", "mnuLocalSkyOrientamentoOvest",
              "mnuLocalSkyOrientamentoEst"},
             "mnuLocalSkyOrientamento");
  rows.push_back(Sub("mnuLocalSkyOggetti", menu));
  AddSkyRows(rows,
             {"mnuLocalSkyOggettiCostellazioni", "mnuLocalSkyOggettiPianeti", "mnuLocalSkyOggettiSoleLuna"},
             "mnuLocalSkyOggetti");
  rows.push_back(Sub("mnuLocalSkyEtichette", menu));
  AddSkyRows(
      rows,
      {"mnuLocalSkyEtichetteCostellazioni", "mnuLocalSkyEtichettePianeti", "mnuLocalSkyEtichetteSoleLuna"},
      "mnuLocalSkyEtichette");
  rows.insert(rows.end(),
              {Later("mnuLocalSkyMagnitudine", menu), Line(menu), LaterCheck("mnuLocalSkyZoom", menu),
               Later("mnuLocalSkyRipristina", menu), Sub("mnuLocalSkySatellite", menu)});
  AddSkyRows(rows, {"mnuLocalSkyTransitoPrincipale", "mnuLocalSkyTempi", "mnuLocalSkySoloPrincipale"},
             "mnuLocalSkySatellite");
  rows.insert(rows.end(), {Line(menu), Later("mnuLocalSkyRidisegnaMappa", menu),
                           Later("mnuLocalSkyStampa", menu), Later("mnuLocalSkyChiudi", menu)});
  PassOn(rows, first, "frmLocalSky");
}

void AddGeneralSky(std::vector<Row>& rows) {
  const char* const menu = "mnuGeneralSky";
  const std::size_t first = rows.size();
  rows.push_back(Top(menu));
  AddSkyRows(rows, {"mnuGeneralSkyGriglia"}, menu);
  rows.push_back(Sub("mnuGeneralSkyOggetti", menu));
  AddSkyRows(
      rows,
      {"mnuGeneralSkyOggettiCostellazioni", "mnuGeneralSkyOggettiPianeti", "mnuGeneralSkyOggettiSoleLuna"},
      "mnuGeneralSkyOggetti");
  rows.push_back(Sub("mnuGeneralSkyEtichette", menu));
  AddSkyRows(rows,
             {"mnuGeneralSkyEtichetteCostellazioni", "mnuGeneralSkyEtichettePianeti",
              "mnuGeneralSkyEtichetteSoleLuna"},
             "mnuGeneralSkyEtichette");
  rows.insert(rows.end(),
              {Later("mnuGeneralSkyMagnitudine", menu), Line(menu), LaterCheck("mnuGeneralSkyZoom", menu),
               Later("mnuGeneralSkyRipristina", menu), Line(menu), Later("mnuGeneralSkyRidisegnaMappa", menu),
               Later("mnuGeneralSkyStampa", menu), Later("mnuGeneralSkyChiudi", menu)});
  PassOn(rows, first, "frmGeneralSky");
}

void AddPassChart(std::vector<Row>& rows) {
  const char* const menu = "mnuSkySat";
  const std::size_t first = rows.size();
  rows.push_back(Top(menu));
  AddSkyRows(
      rows,
      {"mnuSkySatGriglia", "mnuSkySatPaesaggio", "-", "mnuSkySatProiezStereo", "mnuSkySatProiezNormale"},
      menu);
  rows.push_back(Sub("mnuSkySatOrientamento", menu));
  AddSkyRows(rows,
             {"mnuSkySatOrientamentoNord", "mnuSkySatOrientamentoSud", "mnuSkySatOrientamentoOvest",
              "mnuSkySatOrientamentoEst"},
             "mnuSkySatOrientamento");
  rows.push_back(Sub("mnuSkySatOggetti", menu));
  AddSkyRows(rows, {"mnuSkySatOggettiCostellazioni", "mnuSkySatOggettiPianeti", "mnuSkySatOggettiSoleLuna"},
             "mnuSkySatOggetti");
  rows.push_back(Sub("mnuSkySatEtichette", menu));
  AddSkyRows(rows,
             {"mnuSkySatEtichetteCostellazioni", "mnuSkySatEtichettePianeti", "mnuSkySatEtichetteSoleLuna"},
             "mnuSkySatEtichette");
  rows.insert(rows.end(),
              {Later("mnuSkySatMagnitudine", menu), Line(menu), Later("mnuSkySatRidisegnaMappa", menu),
               Later("mnuSkySatStampa", menu), Later("mnuSkySatChiudi", menu)});
  PassOn(rows, first, passChart);
}

}  // namespace

const std::vector<MenuTable::Row>& MenuTable::BarRows() {
  static const std::vector<Row> rows = [] {
    std::vector<Row> all = ViewRows();
    const std::vector<Row> tools = ToolRows();
    all.insert(all.end(), tools.begin(), tools.end());
    return all;
  }();
  return rows;
}

std::vector<MenuTable::Row> MenuTable::ViewRows() {
  using M = MDIForm1;
  return {
      Top("mnuFile"),
      {.name = "mnuFileApri", .parent = "mnuFile", .handler = &M::OpenFile, .shortcut = "Ctrl+O"},
      {.name = "mnuFileVisualizza", .parent = "mnuFile", .handler = &M::ViewFile},
      {.name = "mnuFileNuovo", .parent = "mnuFile", .handler = &M::NewFile},
      {.name = "mnuFileModifica", .parent = "mnuFile", .handler = &M::EditFile},
      {.name = "mnuFileSalva", .parent = "mnuFile", .handler = &M::SaveActive},
      Line("mnuFile"),
      {.name = "mnuFileImpostaStampante", .parent = "mnuFile", .handler = &M::SetUpPrinter},
      {.name = "mnuFileStampa", .parent = "mnuFile", .handler = &M::PrintActive},
      Line("mnuFile"),
      {.name = "mnuFileRipristinaImpostazioni", .parent = "mnuFile", .handler = &M::RestoreSettings},
      {.name = "mnuFileSalvaImpostazioni", .parent = "mnuFile", .handler = &M::SaveSettings},
      Line("mnuFile"),
      {.name = "mnuFileEsci", .parent = "mnuFile", .handler = &M::EndProgram, .shortcut = "Ctrl+Q"},
      Top("mnuModifica"),
      {.name = "mnuModificaAnnulla", .parent = "mnuModifica", .handler = &M::EditUndo},
      Line("mnuModifica"),
      {.name = "mnuModificaTaglia", .parent = "mnuModifica", .handler = &M::EditCut},
      {.name = "mnuModificaCopia", .parent = "mnuModifica", .handler = &M::EditCopy},
      {.name = "mnuModificaIncolla", .parent = "mnuModifica", .handler = &M::EditPaste},
      {.name = "mnuModificaCancella", .parent = "mnuModifica", .handler = &M::EditDelete},
      Top("mnuVisualizza"),
      {.name = "mnuVisualizzaBarraPulsanti",
       .parent = "mnuVisualizza",
       .handler = &M::FlipToolbar,
       .checkable = true},
      {.name = "mnuVisualizzaBarraStato",
       .parent = "mnuVisualizza",
       .handler = &M::FlipStatusBar,
       .checkable = true},
      {.name = "mnuVisualizzaBarraDati",
       .parent = "mnuVisualizza",
       .handler = &M::FlipDataPanel,
       .checkable = true},
      {.name = "mnuVisualizzaColoriNotte",
       .parent = "mnuVisualizza",
       .handler = &M::FlipNightColours,
       .checkable = true},
      Top("mnuTerra"),
      {.name = "mnuTerraMappaRettangolare", .parent = "mnuTerra", .handler = &M::OpenRecta},
      {.name = "mnuTerraMappaOrtografica", .parent = "mnuTerra", .handler = &M::OpenOrtho},
      Top("mnuCielo"),
      Form("mnuCieloMappaLocale", "mnuCielo", "frmLocalSky"),
      Form("mnuCieloMappaGenerale", "mnuCielo", "frmGeneralSky"),
      Top("mnuSatelliti"),
      {.name = "mnuSatellitiDatabase", .parent = "mnuSatelliti", .handler = &M::OpenDatabase},
      Form("mnuSatellitiElementiOrbitali", "mnuSatelliti", "frmSatellite"),
      FormOverDatabase("mnuSatellitiMotoRelativo", "mnuSatelliti", "frmRelative"),
      FormOverDatabase("mnuSatellitiCalcoloEffemeridi", "mnuSatelliti", "frmCalc"),
      Form("mnuSatellitiPrevisioniPassaggi", "mnuSatelliti", "frmVisibleSatellites"),
  };
}

std::vector<MenuTable::Row> MenuTable::ToolRows() {
  using M = MDIForm1;
  return {
      Top("mnuEffemeridi"),
      Form("mnuEffemeridiPianeti", "mnuEffemeridi", "frmPlanets"),
      Form("mnuEffemeridiSatelliti", "mnuEffemeridi", "frmTrack"),
      Form("mnuEffemeridiAlmanacco", "mnuEffemeridi", "frmRiseSet"),
      Top("mnuStrumenti"),
      Form("mnuStrumentiCalendario", "mnuStrumenti", "frmCalendar"),
      {.name = "mnuStrumentiCalcolatrice", .parent = "mnuStrumenti", .handler = &M::StartCalculator},
      {.name = "mnuStrumentiProgramma", .parent = "mnuStrumenti", .handler = &M::StartExternalProgram},
      Line("mnuStrumenti"),
      Form("mnuStrumentiDownload", "mnuStrumenti", "frmDownload"),
      {.name = "mnuStrumentiFormattazione", .parent = "mnuStrumenti", .handler = &M::FormatFile},
      Form("mnuStrumentiSincronizzazione", "mnuStrumenti", "frmSyncro"),
      Top("mnuOpzioni"),
      Form("mnuOpzioniData", "mnuOpzioni", "frmTime"),
      Form("mnuOpzioniLocalita", "mnuOpzioni", "frmLocation"),
      Line("mnuOpzioni"),
      OptionsTab("mnuOpzioniGenerali", 0),
      OptionsTab("mnuOpzioniSatelliti", 1),
      OptionsTab("mnuOpzioniMappamondo", 2),
      OptionsTab("mnuOpzioniCieloLocale", 3),
      OptionsTab("mnuOpzioniCieloGenerale", 5),
      OptionsTab("mnuOpzioniAnteprime", 6),
      OptionsTab("mnuOpzioniFiltri", 8),
      OptionsTab("mnuOpzioniDownload", 12),
      OptionsTab("mnuOpzioniServerNTP", 9),
      OptionsTab("mnuOpzioniEsegui", 13),
      OptionsTab("mnuOpzioniColori", 10),
      Line("mnuOpzioni"),
      {.name = "mnuOpzioniLingua", .parent = "mnuOpzioni", .handler = &M::OpenLanguage},
      Top("mnuFinestre"),
      {.name = "mnuFinestreDiscesa", .parent = "mnuFinestre", .handler = &M::Cascade},
      {.name = "mnuFinestreDisponiOrizzontale", .parent = "mnuFinestre", .handler = &M::TileHorizontally},
      {.name = "mnuFinestreDisponiVerticale", .parent = "mnuFinestre", .handler = &M::TileVertically},
      {.name = "mnuFinestreChiudiTutto", .parent = "mnuFinestre", .handler = &M::CloseAll},
      {.name = "mnuFinestreDisponiTutto", .parent = "mnuFinestre", .handler = &M::ArrangeAll},
      Top("mnuAiuto"),
      {.name = "mnuAiutoSommario", .parent = "mnuAiuto", .handler = &M::HelpContents, .shortcut = "F1"},
      {.name = "mnuAiutoCerca", .parent = "mnuAiuto", .handler = &M::HelpSearch},
      Line("mnuAiuto"),
      {.name = "mnuAiutoInformazioni", .parent = "mnuAiuto", .handler = &M::OpenAbout},
  };
}

const std::vector<MenuTable::Row>& MenuTable::PopupRows() {
  using M = MDIForm1;
  static const std::vector<Row> rows = [] {
    const char* const menu = "mnuWorldmap";
    const auto check = [](const char* name, const char* parent, MDIForm1::Handler handler) {
      return Row{.name = name, .parent = parent, .handler = handler, .checkable = true};
    };
    const auto item = [menu](const char* name, MDIForm1::Handler handler) {
      return Row{.name = name, .parent = menu, .handler = handler};
    };
    std::vector<Row> all = {
        Top(menu),
        check("mnuWorldmapGriglia", menu, &M::MapGrid),
        check("mnuWorldmapRiquadroDati", menu, &M::MapRedraw),
        check("mnuWorldmapDatiSatellite", menu, &M::OnlyChecked),
        check("mnuWorldmapCoordinateMouse", menu, &M::MapCoordinates),
        check("mnuWorldmapNomeCitta", menu, &M::MapRedraw),
        check("mnuWorldmapSole", menu, &M::MapRedraw),
        check("mnuWorldmapTerminatore", menu, &M::MapTerminator),
        check("mnuWorldmapOmbra", menu, &M::MapRedraw),
        Sub("mnuWorldmapSatellite", menu),
        check("mnuWorldmapCerchioVisibilita", "mnuWorldmapSatellite", &M::OnlyChecked),
        check("mnuWorldmapTracciatoOrbita", "mnuWorldmapSatellite", &M::MapTrack),
        Line(menu),
        item("mnuWorldmapRimuovi", &M::MapRemove),
        item("mnuWorldmapRidisegnaMappa", &M::MapRedraw),
        item("mnuWorldmapChiudi", &M::MapClose),
    };
    AddLocalSky(all);
    AddGeneralSky(all);
    AddPassChart(all);
    return all;
  }();
  return rows;
}

namespace {

/// Windows that take a moment to open.
constexpr std::array<std::string_view, 4> heavyForms = {"frmLocalSky", "frmGeneralSky", "frmLocation",
                                                        "frmSettings"};

void OpenForm(std::string_view name, int tab) {
  std::optional<WaitPointerHold> wait;
  if (std::find(heavyForms.begin(), heavyForms.end(), name) != heavyForms.end()) {
    // the menu closes before the work starts
    ThePlatform().Yield();
    wait.emplace();
  }
  FormCalls* const form = LoadForm(name);
  if (auto* const settings = dynamic_cast<SettingsCalls*>(form); settings != nullptr && tab >= 0)
    settings->ShowTab(tab);
  else if (form != nullptr)
    form->Show();
}

}  // namespace

void MDIForm1::MakeMenus() {
  for (const bool popup : {false, true}) {
    for (const MenuTable::Row& row : popup ? MenuTable::PopupRows() : MenuTable::BarRows()) {
      const QString name = QString::fromLatin1(row.name);
      QMenu* const parent = row.parent == nullptr ? nullptr : menus_.value(QString::fromLatin1(row.parent));
      if (row.submenu) {
        QMenu* const menu = parent != nullptr ? parent->addMenu(name)
                            : popup           ? new QMenu(this)
                                              : menuBar()->addMenu(name);
        menu->setObjectName(name);
        menu->menuAction()->setObjectName(name);
        menus_.insert(name, menu);
        items_.insert(name, menu->menuAction());
        continue;
      }
      if (name == QLatin1String("-")) {
        parent->addSeparator();
        continue;
      }
      QAction* const action = parent->addAction(name);
      action->setObjectName(name);
      action->setCheckable(row.checkable);
      if (row.shortcut != nullptr) action->setShortcut(QKeySequence(QString::fromLatin1(row.shortcut)));
      action->setEnabled(row.handler != nullptr || (row.form != nullptr && CanLoadForm(row.form)) ||
                         (row.popupOf != nullptr && CanLoadForm(row.popupOf)));
      items_.insert(name, action);
      const MenuTable::Row* const target = &row;
      connect(action, &QAction::triggered, this, [this, target, action] {
        if (target->handler != nullptr)
          (this->*target->handler)();
        else if (target->form != nullptr && (!target->needsDatabase || DatabaseAtHand()))
          OpenForm(target->form, target->tab);
        else if (target->popupOf != nullptr)
          PopupCommand(target->popupOf, *action);
      });
      connect(action, &QAction::changed, this, [this, action] {
        if (QAction* const button = toolbarItems_.value(action->objectName())) {
          button->setEnabled(action->isEnabled());
          if (button->isCheckable()) button->setChecked(action->isChecked());
        }
      });
    }
  }
}

void MDIForm1::PopupCommand(const char* form, QAction& item) {
  const std::string name = form == std::string_view(passChart) ? AskingPassChart : form;
  if (!IsFormLoaded(name)) {
    if (item.isCheckable()) item.setChecked(!item.isChecked());
    return;
  }
  // the menu closes before the work starts, and the window may be closed meanwhile
  ThePlatform().Yield();
  if (auto* const window = halvorine::Loaded<PopupCalls>(name)) window->MenuCommand(FromQ(item.objectName()));
}

void MDIForm1::MakeToolbar() {
  toolbar_ = new QToolBar(this);
  toolbar_->setObjectName(QStringLiteral("Toolbar1"));
  toolbar_->setMovable(false);
  toolbar_->setIconSize(QSize(24, 24));
  toolbar_->setContextMenuPolicy(Qt::PreventContextMenu);
  for (const ToolbarRow& row : toolbarRows) {
    if (row.key == nullptr) {
      toolbar_->addSeparator();
      continue;
    }
    QAction* const command = Item(row.command);
    QAction* const button = toolbar_->addAction(Icon(row.icon), QString());
    button->setObjectName(QString::fromLatin1(row.key));
    button->setCheckable(row.checkable);
    button->setEnabled(command->isEnabled());
    toolbarItems_.insert(QString::fromLatin1(row.command), button);
    connect(button, &QAction::triggered, command, [button, command] {
      // the command itself flips its check; the button follows it
      if (button->isCheckable()) button->setChecked(command->isChecked());
      command->trigger();
    });
    if (std::string_view(row.key) == "Open") {
      auto* const menu = new QMenu(this);
      menu->setObjectName(QStringLiteral("Toolbar1Open"));
      for (const DropDownRow& entry : openRows) {
        QAction* const target = Item(entry.command);
        QAction* const action = menu->addAction(QString());
        action->setObjectName(QString::fromLatin1(entry.key));
        action->setEnabled(target->isEnabled());
        connect(action, &QAction::triggered, target, &QAction::trigger);
        connect(target, &QAction::changed, action,
                [action, target] { action->setEnabled(target->isEnabled()); });
      }
      button->setMenu(menu);
      if (auto* const tool = qobject_cast<QToolButton*>(toolbar_->widgetForAction(button)))
        tool->setPopupMode(QToolButton::MenuButtonPopup);
    }
    if (QWidget* const tool = toolbar_->widgetForAction(button)) tool->setFocusPolicy(Qt::NoFocus);
  }
  addToolBar(toolbar_);
}

void MDIForm1::CaptionToolbar() {
  for (const ToolbarRow& row : toolbarRows) {
    if (row.key == nullptr) continue;
    QAction* const button = toolbarItems_.value(QString::fromLatin1(row.command));
    button->setText(Text("MDIForm1", row.tipKey));
    button->setToolTip(Text("MDIForm1", row.tipKey));
    if (QMenu* const menu = button->menu())
      for (std::size_t i = 0; i < openRows.size(); ++i)
        menu->actions().at(static_cast<qsizetype>(i))->setText(Text("MDIForm1", openRows[i].command));
  }
}

}  // namespace halvorine
