// The fourteen pages of the options dialog: which control stands where.
#include <QComboBox>
#include <QHBoxLayout>
#include <QVBoxLayout>

#include "controls/qtLook.h"
#include "shell/base/mLang.h"
#include "shell/frmSettings.h"

namespace halvorine {

namespace {

constexpr const char* section = "frmSettings";
constexpr int margin = 12, rowGap = 8, columnGap = 12;  // logical pixels
constexpr double headingPoints = 11;
constexpr double mostAltitude = 90, mostAzimuth = 360;  // degrees
constexpr int shortList = 6;                            // letters of the list of limiting magnitudes

QLabel* Caption(const QString& text) {
  auto* const label = new QLabel(text);
  label->setForegroundRole(MutedRole);
  return label;
}

/// A sentence that explains the control above it.
QLabel* Info(const char* key) {
  QLabel* const label = Named(Caption(Text(section, key)), key);
  label->setWordWrap(true);
  return label;
}

/// The frame of a page, which has neither title nor edge.
QGroupBox* PageFrame(const char* name) {
  auto* const frame = Named(new QGroupBox(), name);
  frame->setFlat(true);
  return frame;
}

QGroupBox* Group(const char* titleKey) { return new QGroupBox(Text(section, titleKey)); }

QVBoxLayout* Rows(QWidget* frame, bool edged) {
  auto* const rows = new QVBoxLayout(frame);
  const int side = edged ? margin : 0;
  rows->setContentsMargins(side, edged ? rowGap : 0, side, side);
  rows->setSpacing(rowGap);
  return rows;
}

/// Rows of a caption and a field; the fields are equally wide.
QGridLayout* Fields() {
  auto* const grid = new QGridLayout();
  grid->setHorizontalSpacing(columnGap);
  grid->setVerticalSpacing(rowGap);
  grid->setColumnStretch(2, 1);
  return grid;
}

}  // namespace

QCheckBox* frmSettings::MakeCheck(const std::string& control) {
  const SettingRow& row = SettingOf(control);
  const bool shared = row.caption == std::string("am") || row.caption == std::string("pm");
  return Named(new QCheckBox(Text(shared ? "Def" : section, row.caption)), control.c_str());
}

void frmSettings::AddList(QGridLayout* grid, const std::string& control) {
  const SettingRow& row = SettingOf(control);
  QLabel* const caption = Caption(Text(section, row.caption));
  auto* const list = Named(new QComboBox(), control.c_str());
  for (const std::string& entry : SettingEntries(row.kind)) list->addItem(ToQ(entry));
  list->setAccessibleName(caption->text());
  list->setMaxVisibleItems(list->count());
  caption->setBuddy(list);
  const int at = grid->rowCount();
  grid->addWidget(caption, at, 0);
  grid->addWidget(list, at, 1);
}

void frmSettings::AddColour(QGridLayout* grid, int row, int column, const std::string& control) {
  QLabel* const caption = Caption(Text(section, SettingOf(control).caption));
  grid->addWidget(caption, row, column);
  grid->addWidget(Named(new ColourArea(caption->text()), control.c_str()), row, column + 1);
}

GraphButton* frmSettings::MakeButton(const char* name, const char* textSection, const char* key) {
  auto* const button = Named(new GraphButton(), name);
  button->SetCaption(Text(textSection, key));
  button->setAutoDefault(true);
  return button;
}

void frmSettings::AddPage(const char* key, QWidget* content) {
  auto* const page = new QWidget();
  auto* const rows = new QVBoxLayout(page);
  rows->setContentsMargins(margin + 4, margin, margin + 4, margin);
  rows->setSpacing(margin);
  auto* const heading = new QLabel(Text(section, key));
  heading->setFont(LookFont(headingPoints, true));
  rows->addWidget(heading);
  rows->addWidget(content, 1);
  SSTab1_->addTab(page, heading->text());
}

void frmSettings::MakePages() {
  AddPage("tabgenerali", MakeGenerali());
  AddPage("tabsatelliti", MakeSatelliti());
  AddPage("tabmappamondo", MakeMappamondo());
  AddPage("tabcielolocale1", MakeObjects("fraLocale", "LocalSky"));
  AddPage("tabcielolocale2", MakeHorizon("fraLocale2", "LocalSky"));
  AddPage("tabcielogenerale", MakeObjects("fraGenerale", "GeneralSky"));
  AddPage("tabanteprime1", MakeObjects("fraAnteprima", "SkySat"));
  AddPage("tabanteprime2", MakeHorizon("fraAnteprima2", "SkySat"));
  AddPage("tabfiltri", MakeFiltri());
  AddPage("tabserverntp", MakeServer());
  AddPage("tabcolori1", MakeColori1());
  AddPage("tabcolori2", MakeColori2());
  AddPage("tabdownload", MakeDownload());
  AddPage("tabesegui", MakeEsegui());
}

QWidget* frmSettings::MakeGenerali() {
  QGroupBox* const frame = PageFrame("fraGenerali");
  QVBoxLayout* const rows = Rows(frame, false);
  for (const char* const check : {"chkConfermaUscita", "chkVerificaOpzioni", "chkBarraPulsanti",
                                  "chkBarraStato", "chkPosizioniFinestre", "chkVerificaOraLegale"})
    rows->addWidget(MakeCheck(check));
  QGridLayout* const fields = Fields();
  AddList(fields, "cmbData");
  rows->addLayout(fields);
  rows->addStretch();
  return frame;
}

QWidget* frmSettings::MakeSatelliti() {
  QGroupBox* const frame = PageFrame("fraSatelliti");
  QVBoxLayout* const rows = Rows(frame, false);
  QGridLayout* const fields = Fields();
  const auto explain = [fields](const char* key) {
    const int at = fields->rowCount();
    fields->addWidget(Info(key), at, 0, 1, 3);
    fields->setRowMinimumHeight(at + 1, rowGap / 2);
  };
  AddList(fields, "cmbPropagatore");
  explain("infopropagatore");
  AddList(fields, "cmbMagnitudine");
  explain("infomagnitudine");
  fields->addWidget(MakeCheck("chkRifrazione"), fields->rowCount(), 0, 1, 3);
  explain("inforifrazione");
  AddList(fields, "cmbVisibilita");
  explain("infovisibilita");
  rows->addLayout(fields);
  rows->addStretch();
  return frame;
}

QWidget* frmSettings::MakeMappamondo() {
  QGroupBox* const frame = PageFrame("fraMappamondo");
  QVBoxLayout* const rows = Rows(frame, false);
  for (const char* const check :
       {"chkWorldMapGriglia", "chkWorldMapNomeCitta", "chkWorldMapCerchioVisibilita",
        "chkWorldMapTracciatoOrbita", "chkWorldMapDatiSatellite", "chkWorldMapCoordinateMouse",
        "chkWorldMapRiquadroDati", "chkWorldMapSole"})
    rows->addWidget(MakeCheck(check));
  chkWorldMapTerminatore_ = Named(new QCheckBox(Text(section, "terminatore")), "chkWorldMapTerminatore");
  QCheckBox* const night = MakeCheck("chkWorldMapOmbra");
  rows->addWidget(chkWorldMapTerminatore_);
  rows->addWidget(night);
  // as in the map's menu: without the line there is no night side
  connect(chkWorldMapTerminatore_, &QCheckBox::clicked, night, [night](bool on) {
    if (!on) night->setChecked(false);
  });
  rows->addStretch();
  return frame;
}

QWidget* frmSettings::MakeObjects(const char* name, const std::string& chart) {
  QGroupBox* const frame = PageFrame(name);
  QVBoxLayout* const rows = Rows(frame, false);
  rows->setSpacing(margin);
  auto* const columns = new QHBoxLayout();
  columns->setSpacing(columnGap);
  QGroupBox* const objects = Group("oggetti");
  QGroupBox* const labels = Group("etichette");
  QVBoxLayout* const left = Rows(objects, true);
  QVBoxLayout* const right = Rows(labels, true);
  for (const char* const check : {"Griglia", "CostellazioniLinee", "Pianeti", "SoleLuna"})
    left->addWidget(MakeCheck("chk" + chart + check));
  for (const char* const check : {"CostellazioniNomi", "PianetiNomi", "SoleLunaNomi"})
    right->addWidget(MakeCheck("chk" + chart + check));
  right->setAlignment(Qt::AlignTop);
  columns->addWidget(objects, 1);
  columns->addWidget(labels, 1);
  rows->addLayout(columns);
  QGridLayout* const fields = Fields();
  AddList(fields, "cmb" + chart + "Magnitudine");
  if (auto* const list = frame->findChild<QComboBox*>()) list->setMinimumContentsLength(shortList);
  rows->addLayout(fields);
  rows->addStretch();
  return frame;
}

QWidget* frmSettings::MakeHorizon(const char* name, const std::string& chart) {
  QGroupBox* const frame = PageFrame(name);
  QVBoxLayout* const rows = Rows(frame, false);
  const bool local = chart == "LocalSky";
  QGridLayout* const fields = Fields();
  AddList(fields, "cmb" + chart + "Proiezione");
  AddList(fields, "cmb" + chart + "Orientamento");
  if (local) AddList(fields, "cmbLocalSkyCoordinate");
  AddList(fields, "cmb" + chart + "TipoGriglia");
  rows->addLayout(fields);
  rows->addSpacing(rowGap / 2);
  QCheckBox* const circle = MakeCheck("chk" + chart + "Griglia10");
  rows->addWidget(circle);
  rows->addWidget(MakeCheck("chk" + chart + "Orizzonte"));
  rows->addWidget(MakeCheck("chk" + chart + "Paesaggio"));
  if (local) rows->addWidget(MakeCheck("chkLocalSkyRiquadroDati"));
  rows->addStretch();
  // the circle belongs to the altazimuth grid
  auto* const type = frame->findChild<QComboBox*>(ToQ("cmb" + chart + "TipoGriglia"));
  const auto follow = [circle](int entry) { circle->setEnabled(entry == 1); };
  follow(type->currentIndex());
  connect(type, &QComboBox::currentIndexChanged, circle, follow);
  return frame;
}

QWidget* frmSettings::MakeFiltri() {
  QGroupBox* const frame = PageFrame("fraFiltri");
  QVBoxLayout* const rows = Rows(frame, false);
  rows->setSpacing(margin);
  rows->addWidget(MakeCheck("chkTransito"));
  auto* const tabFiltri = Named(new QTabWidget(), "tabFiltri");
  tabFiltri->addTab(MakeFilterPage("fraTutti", 0), Text(section, "tabfiltri1"));
  tabFiltri->addTab(MakeFilterPage("fraPrincipale", 1), Text(section, "tabfiltri2"));
  tabFiltri->addTab(MakeFilterPage("fraSecondari", 2), Text(section, "tabfiltri3"));
  rows->addWidget(tabFiltri);
  rows->addStretch();
  return frame;
}

QWidget* frmSettings::MakeFilterPage(const char* name, int page) {
  QGroupBox* const frame = PageFrame(name);
  QVBoxLayout* const rows = Rows(frame, true);
  rows->setContentsMargins(margin, margin, margin, margin);
  rows->setSpacing(margin);
  auto* const checks = new QHBoxLayout();
  checks->setSpacing(2 * columnGap);
  for (const char* const check : {"chkAM", "chkPM", "chkSoloVisibili"})
    checks->addWidget(MakeCheck(FromQ(ControlName(check, page))));
  checks->addStretch();
  rows->addLayout(checks);
  auto* const grid = new QGridLayout();
  grid->setHorizontalSpacing(columnGap);
  grid->setVerticalSpacing(4);
  MakeRanges(grid, page);
  rows->addLayout(grid);
  return frame;
}

void frmSettings::MakeRanges(QGridLayout* grid, int page) {
  FilterRanges& ranges = ranges_[static_cast<std::size_t>(page)];
  const auto value = [page](const char* name) {
    auto* const label = Named(new QLabel(), name, page);
    label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    label->setMinimumWidth(label->fontMetrics().horizontalAdvance(QStringLiteral("360°")) + 2);
    return label;
  };
  ranges.lblAltmin = value("lblAltmin");
  ranges.lblAzmin = value("lblAzmin");
  ranges.lblAzmax = value("lblAzmax");
  ranges.rtAltsat = Named(new RangeTool(), "rtAltsat", page);
  ranges.rtAltsat->SetRange(0, mostAltitude);
  ranges.rtAltsat->SetValues(0, mostAltitude);
  ranges.rtAltsat->SetUpperVisible(false);
  ranges.rtAltsat->SetNames(Text(section, "altezza"), QString());
  ranges.rtAzisat = Named(new RangeTool(), "rtAzisat", page);
  ranges.rtAzisat->SetRange(0, mostAzimuth);
  ranges.rtAzisat->SetNames(Text(section, "azimuthmin"), Text(section, "azimuthmax"));
  for (RangeTool* const tool : {ranges.rtAltsat, ranges.rtAzisat})
    connect(tool, &RangeTool::Change, this, [this, &ranges] { ShowRanges(ranges); });
  grid->addWidget(Caption(Text(section, "altezza")), 0, 0);
  grid->addWidget(ranges.lblAltmin, 0, 1);
  grid->addWidget(ranges.rtAltsat, 0, 2);
  grid->addWidget(Caption(Text(section, "azimuth")), 1, 0);
  grid->addWidget(ranges.lblAzmin, 1, 1);
  grid->addWidget(ranges.rtAzisat, 1, 2);
  grid->addWidget(ranges.lblAzmax, 1, 3);
  grid->setColumnStretch(2, 1);
}

QWidget* frmSettings::MakeRows(const char* name, RowsView* list, const std::string& commands) {
  QGroupBox* const frame = PageFrame(name);
  auto* const columns = new QHBoxLayout(frame);
  columns->setContentsMargins(0, 0, 0, 0);
  columns->setSpacing(columnGap);
  columns->addWidget(list, 1);
  auto* const column = new QVBoxLayout();
  column->setSpacing(6);
  const auto button = [this, column, &commands](const char* command, const char* key) {
    GraphButton* const made = MakeButton((commands + command).c_str(), section, key);
    made->setToolTip(Text(section, key).remove(QLatin1Char('&')));
    column->addWidget(made);
    return made;
  };
  button("Ripristina", "serverripristina");
  connect(button("Elimina", "serverelimina"), &QPushButton::clicked, list, &RowsView::RemoveChosen);
  button("Su", "serversu");
  button("Giu", "servergiu");
  column->addStretch();
  columns->addLayout(column);
  return frame;
}

QWidget* frmSettings::MakeServer() {
  lvwServerNTP_ = Named(new RowsView(), "lvwServerNTP");
  lvwServerNTP_->setToolTip(Text(section, "doppioclickserver"));
  lvwServerNTP_->setAccessibleName(Text(section, "tabserverntp"));
  QWidget* const frame = MakeRows("fraServer", lvwServerNTP_, "cmdServer");
  connect(Control<GraphButton>(frame, "cmdServerRipristina"), &QPushButton::clicked, this,
          [this] { lvwServerNTP_->SetRows(DefaultServers()); });
  connect(Control<GraphButton>(frame, "cmdServerSu"), &QPushButton::clicked, this,
          [this] { MoveRow(lvwServerNTP_, -1, "selezionareserver"); });
  connect(Control<GraphButton>(frame, "cmdServerGiu"), &QPushButton::clicked, this,
          [this] { MoveRow(lvwServerNTP_, 1, "selezionareserver"); });
  return frame;
}

QWidget* frmSettings::MakeDownload() {
  lvwDownload_ = Named(new RowsView(), "lvwDownload");
  lvwDownload_->setToolTip(Text(section, "doppioclickremoto"));
  lvwDownload_->setAccessibleName(Text(section, "tabdownload"));
  QWidget* const frame = MakeRows("fraDownload", lvwDownload_, "cmdDownload");
  connect(Control<GraphButton>(frame, "cmdDownloadRipristina"), &QPushButton::clicked, this,
          [this] { lvwDownload_->SetRows(DefaultRemoteFiles()); });
  // the two commands ask for a row in different words
  connect(Control<GraphButton>(frame, "cmdDownloadSu"), &QPushButton::clicked, this,
          [this] { MoveRow(lvwDownload_, -1, "selezionarefile"); });
  connect(Control<GraphButton>(frame, "cmdDownloadGiu"), &QPushButton::clicked, this,
          [this] { MoveRow(lvwDownload_, 1, "selezionareserver"); });
  return frame;
}

QWidget* frmSettings::MakeColori1() {
  QGroupBox* const frame = PageFrame("fraColori1");
  QVBoxLayout* const rows = Rows(frame, false);
  rows->setSpacing(margin);
  QGridLayout* const grid = Fields();
  int at = 0;
  for (const char* const area :
       {"lblAreaColoreGrigliaMappamondo", "lblAreaColoreGrigliaGenerale", "lblAreaColoreNomeCitta",
        "lblAreaColoreSatellite", "lblAreaColoreOrbita1", "lblAreaColoreOrbita2",
        "lblAreaColoreCostellazioniLinee", "lblAreaColoreCostellazioniNomi"})
    AddColour(grid, at++, 0, area);
  rows->addLayout(grid);
  GraphButton* const restore = MakeButton("cmdRipristinaColori1", section, "ripristinacolori");
  rows->addWidget(restore, 0, Qt::AlignLeft);
  rows->addStretch();
  connect(restore, &QPushButton::clicked, this, [this] { RestoreColours("fraColori1"); });
  return frame;
}

QWidget* frmSettings::MakeColori2() {
  QGroupBox* const frame = PageFrame("fraColori2");
  QVBoxLayout* const rows = Rows(frame, false);
  rows->setSpacing(margin);
  auto* const group = Named(Group("grigliacielolocale"), "fraColoriGrigliaCieloLocale");
  QGridLayout* const grid = Fields();
  Rows(group, true)->addLayout(grid);
  int at = 0;
  for (const char* const area : {"lblAreaColoreGrigliaLocale1", "lblAreaColoreGrigliaLocale2",
                                 "lblAreaColoreGrigliaLocale3", "lblAreaColoreGrigliaLocale4"})
    AddColour(grid, at++, 0, area);
  rows->addWidget(group);
  GraphButton* const restore = MakeButton("cmdRipristinaColori2", section, "ripristinacolori");
  rows->addWidget(restore, 0, Qt::AlignLeft);
  rows->addStretch();
  connect(restore, &QPushButton::clicked, this, [this] { RestoreColours("fraColori2"); });
  return frame;
}

QWidget* frmSettings::MakeEsegui() {
  QGroupBox* const frame = PageFrame("fraEsegui");
  QVBoxLayout* const rows = Rows(frame, false);
  const auto field = [rows](const char* name, const char* key) {
    QLabel* const caption = Caption(Text(section, key));
    auto* const line = Named(new QLineEdit(), name);
    line->setAccessibleName(caption->text());
    caption->setBuddy(line);
    rows->addWidget(caption);
    rows->addWidget(line);
    return line;
  };
  txtEseguiProgramma_ = field("txtEseguiProgramma", "eseguipercorso");
  rows->addSpacing(rowGap / 2);
  txtEseguiParametri_ = field("txtEseguiParametri", "eseguiparametri");
  rows->addSpacing(rowGap / 2);
  GraphButton* const browse = MakeButton("cmdEseguiProgramma", section, "sfoglia");
  GraphButton* const clear = MakeButton("cmdEseguiElimina", section, "svuota");
  auto* const commands = new QHBoxLayout();
  commands->setSpacing(rowGap);
  commands->addWidget(browse);
  commands->addWidget(clear);
  commands->addStretch();
  rows->addLayout(commands);
  rows->addStretch();
  connect(browse, &QPushButton::clicked, this, &frmSettings::cmdEseguiProgramma_Click);
  for (QLineEdit* const line : {txtEseguiProgramma_, txtEseguiParametri_})
    connect(clear, &QPushButton::clicked, line, &QLineEdit::clear);
  return frame;
}

QLayout* frmSettings::MakeLastRow() {
  GraphButton* const save = MakeButton("cmdSave", "Buttons", "save");
  GraphButton* const ok = MakeButton("cmdOK", "Buttons", "ok");
  GraphButton* const cancel = MakeButton("cmdCancel", "Buttons", "cancel");
  ok->setDefault(true);
  connect(save, &QPushButton::clicked, this, [] {
    if (MainFormCalls* const main = MainForm()) main->RunCommand("mnuFileSalvaImpostazioni");
  });
  connect(ok, &QPushButton::clicked, this, &frmSettings::cmdOK_Click);
  connect(cancel, &QPushButton::clicked, this, &QWidget::close);
  auto* const row = new QHBoxLayout();
  row->setSpacing(rowGap);
  row->addWidget(save);
  row->addStretch();
  row->addWidget(ok);
  row->addWidget(cancel);
  return row;
}

}  // namespace halvorine
