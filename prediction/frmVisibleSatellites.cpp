#include "prediction/frmVisibleSatellites.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMenu>
#include <QVBoxLayout>
#include <algorithm>

#include "controls/qtIcons.h"
#include "controls/qtLook.h"
#include "shell/base/mHelp.h"
#include "shell/base/qtDates.h"

namespace halvorine {

namespace {

constexpr const char* section = "frmVisibleSatellites";
constexpr int firstHelpTopic = 150;
constexpr int reportHeight = PixelsOf(3735);
// logical pixels
constexpr int leastRows = 4, rowHeight = 22, headHeight = 26, scrollBarRoom = 20, textInset = 8,
              frameRoom = 40;
constexpr int reportCharacters = 86;

constexpr std::array<const char*, PassTabCount> captions = {"tuttisatelliti", "satelliteprincipale",
                                                            "satellitisecondari"};

QLabel* Caption(const QString& text, QWidget* of) {
  auto* const label = new QLabel(text);
  label->setForegroundRole(MutedRole);
  label->setBuddy(of);
  return label;
}

void Fill(QComboBox* box, const std::vector<PassChoice>& choices) {
  for (const PassChoice& choice : choices) box->addItem(ToQ(choice.text), choice.value);
}

/// A widget whose place stays empty while it is hidden.
void KeepPlace(QWidget* widget) {
  QSizePolicy policy = widget->sizePolicy();
  policy.setRetainSizeWhenHidden(true);
  widget->setSizePolicy(policy);
}

}  // namespace

frmVisibleSatellites::frmVisibleSatellites() : ChildForm(QString::fromLatin1(section)) {
  setWindowTitle(Text(section, "previsionipassaggi"));
  setWindowIcon(Icon("find"));
  pages_ = Named(new QTabWidget(), "SSTab1");
  for (int index = 0; index < PassTabCount; ++index) {
    pages_->addTab(MakePage(index), Text(section, captions.at(static_cast<std::size_t>(index))));
    Connect(index);
    ShowFilter(index);
  }
  GraphButton* const close = MakeButton("cmdCancel", -1, "Buttons", "close", nullptr);
  connect(close, &QPushButton::clicked, this, &frmVisibleSatellites::HideForm);
  auto* const last = new QHBoxLayout();
  last->addStretch();
  last->addWidget(close);
  auto* const rows = new QVBoxLayout(this);
  rows->setContentsMargins(12, 12, 12, 12);
  rows->setSpacing(12);
  rows->setMenuBar(MakeMenu());
  rows->addWidget(pages_, 1);
  rows->addLayout(last);
  OrderTabs();
  // the list of passes takes what the work area has left
  const QSize fitting = sizeHint(), least = minimumSizeHint();
  const int room = WorkArea() != nullptr ? WorkArea()->height() - frameRoom : fitting.height();
  SetFirstSize(fitting.width(), std::clamp(room, least.height(), fitting.height()));
  Publish(this);
}

GraphButton* frmVisibleSatellites::MakeButton(const char* name, int index, const char* textSection,
                                              const char* key, const char* icon) {
  GraphButton* const made = icon != nullptr ? new GraphButton(icon, this) : new GraphButton(this);
  GraphButton* const button = Named(made, name, index);
  button->SetCaption(Text(textSection, key));
  button->setAutoDefault(true);
  return button;
}

QCheckBox* frmVisibleSatellites::MakeCheck(const char* name, int index, const QString& caption,
                                           const char* tipKey) {
  auto* const check = Named(new QCheckBox(caption), name, index);
  check->setToolTip(Text(section, tipKey));
  return check;
}

QMenuBar* frmVisibleSatellites::MakeMenu() {
  auto* const bar = new QMenuBar();
  auto* const menu = Named(new QMenu(Text(section, "mnuFile"), bar), "mnuFile");
  bar->addMenu(menu);
  const auto item = [&](const char* name, void (frmVisibleSatellites::*handler)()) {
    QAction* const action = menu->addAction(Text(section, name), this, handler);
    action->setObjectName(QString::fromLatin1(name));
    return action;
  };
  QAction* const save = item("mnuSalva", &frmVisibleSatellites::mnuSalva_Click);
  QAction* const saveAll = item("mnuSalvaElenco", &frmVisibleSatellites::mnuSalvaElenco_Click);
  menu->addSeparator();
  QAction* const print = item("mnuStampa", &frmVisibleSatellites::mnuStampa_Click);
  QAction* const preview = item("mnuAnteprima", &frmVisibleSatellites::mnuAnteprima_Click);
  connect(menu, &QMenu::aboutToShow, this, [=, this] {
    const Tab& tab = TabOf(pages_->currentIndex());
    for (QAction* const action : {save, print, preview}) action->setEnabled(tab.rows->rowCount() > 0);
    saveAll->setEnabled(tab.model->rowCount() > 0);
  });
  return bar;
}

QWidget* frmVisibleSatellites::MakePage(int index) {
  auto* const page = new QWidget();
  auto* const grid = new QGridLayout(page);
  grid->setContentsMargins(12, 12, 12, 12);
  grid->setHorizontalSpacing(12);
  grid->setVerticalSpacing(8);
  grid->setColumnStretch(0, 1);
  grid->setRowStretch(2, 1);
  Tab& tab = TabOf(index);
  tab.compute = MakeButton("cmdOK", index, section, "calcola", "find");
  // outside a dialog a button that takes Enter by focus would lose its mark as the default with the focus
  tab.compute->setAutoDefault(false);
  tab.compute->setDefault(true);
  grid->addLayout(MakeSpan(index), 0, 0);
  grid->addWidget(tab.compute, 0, 1);
  grid->addLayout(MakeChecks(index), 1, 0, 1, 2);
  grid->addLayout(MakeLists(index), 2, 0);
  grid->addLayout(MakeCommands(index), 2, 1);
  return page;
}

QLayout* frmVisibleSatellites::MakeSpan(int index) {
  Tab& tab = TabOf(index);
  tab.start = Named(new QDateTimeEdit(), "DTPicker1", index);
  DressPicker(*tab.start, CurrentDate);
  tab.start->setAccessibleName(Text(section, "datainizio"));
  tab.duration = Named(new QComboBox(), "cmbDurata", index);
  tab.duration->setAccessibleName(Text(section, "durata"));
  Fill(tab.duration, DurationChoices(index));
  auto* const row = new QHBoxLayout();
  row->setSpacing(8);
  row->addWidget(Caption(Text(section, "datainizio"), tab.start));
  row->addWidget(tab.start);
  row->addSpacing(8);
  row->addWidget(Caption(Text(section, "durata"), tab.duration));
  row->addWidget(tab.duration);
  if (index == SecondarySatellites) {
    tab.limit = Named(new QComboBox(), "cmbLimite");
    Fill(tab.limit, LimitChoices());
    row->addSpacing(8);
    row->addWidget(Named(Caption(Text(section, "limitacalcolo"), tab.limit), "lblLimitaCalcolo"));
    row->addWidget(tab.limit);
  }
  row->addStretch();
  return row;
}

QLayout* frmVisibleSatellites::MakeChecks(int index) {
  Tab& tab = TabOf(index);
  tab.am = MakeCheck("chkAM", index, Text("Def", "am"), "tooltipam");
  tab.pm = MakeCheck("chkPM", index, Text("Def", "pm"), "tooltippm");
  tab.visible = MakeCheck("chkSoloVisibili", index, Text(section, "solovisibili"), "tooltipsolovisibili");
  tab.noFilter = MakeCheck("chkNessunFiltro", index, Text(section, "nessunfiltro"), "tooltipnessunfiltro");
  const FilterOptions& stored = StoredFilter(index);
  tab.am->setChecked(stored.Morning != 0);
  tab.pm->setChecked(stored.Evening != 0);
  tab.visible->setChecked(stored.VisibleOnly != 0);
  auto* const row = new QHBoxLayout();
  row->setSpacing(16);
  for (QCheckBox* const check : {tab.am, tab.pm, tab.visible, tab.noFilter}) row->addWidget(check);
  if (index == AllSatellites) {
    tab.transit = MakeCheck("chkTransito", -1, Text(section, "transito"), "tooltiptransito");
    tab.transit->setChecked(Options.InTransit != 0);
    row->addWidget(tab.transit);
  }
  row->addStretch();
  tab.filter = Named(new QLabel(), "lblFiltro", index);
  tab.filter->setForegroundRole(MutedRole);
  row->addWidget(tab.filter);
  return row;
}

QLayout* frmVisibleSatellites::MakeLists(int index) {
  Tab& tab = TabOf(index);
  tab.rows = new QStandardItemModel(this);
  tab.report = Named(new RowList(), "lstPass", index);
  tab.report->setModel(tab.rows);
  tab.report->setFont(ColumnFont());
  tab.model = new PassModel(this);
  tab.passes = Named(new PassTreeView(tab.model), "lvwPass", index);
  tab.passes->SetHint(Text(section, "elencovuoto"));
  tab.passes->setAccessibleName(Text(section, captions.at(static_cast<std::size_t>(index))));
  // all columns, and below them the widest report row
  const int reportWidth =
      tab.report->fontMetrics().horizontalAdvance(QString(reportCharacters, QLatin1Char('0'))) +
      scrollBarRoom;
  tab.passes->setMinimumSize(std::max(tab.passes->header()->length() + scrollBarRoom, reportWidth),
                             headHeight + leastRows * rowHeight);
  tab.legend = Named(new QLabel(Text(section, "intestazioneobs")), "lblLegenda", index);
  tab.legend->setFont(ColumnFont());
  tab.legend->setForegroundRole(MutedRole);
  tab.legend->setContentsMargins(textInset, 0, 0, 0);
  tab.legend->setTextFormat(Qt::PlainText);
  tab.report->setTextElideMode(Qt::ElideNone);
  tab.report->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
  tab.report->setFixedHeight(reportHeight);
  tab.report->SetHint(Text(section, "rapportovuoto"));
  tab.report->SetTip(Text(section, "doppioclickdettagli"));
  tab.report->setAccessibleName(tab.legend->text());
  for (QWidget* const part : std::initializer_list<QWidget*>{tab.passes, tab.legend, tab.report})
    KeepPlace(part);
  auto* const rows = new QVBoxLayout();
  rows->setSpacing(8);
  rows->addWidget(tab.passes, 1);
  rows->addWidget(tab.legend);
  rows->addWidget(tab.report);
  return rows;
}

QLayout* frmVisibleSatellites::MakeCommands(int index) {
  Tab& tab = TabOf(index);
  auto* const commands = new QVBoxLayout();
  commands->setSpacing(6);
  tab.details = MakeButton("cmdDettagli", index, section, "dettagli", "table");
  tab.map = MakeButton("cmdMappa", index, section, "mappa", "starchart");
  commands->addWidget(tab.details);
  commands->addWidget(tab.map);
  if (index == AllSatellites) {
    tab.activate = MakeButton("cmdAttiva", -1, section, "attiva", "b_add");
    commands->addWidget(tab.activate);
    connect(tab.activate, &QPushButton::clicked, this, &frmVisibleSatellites::cmdAttiva_Click);
  }
  for (GraphButton* const button : {tab.details, tab.map, tab.activate})
    if (button != nullptr) button->setEnabled(false);
  commands->addStretch();
  GraphButton* const help = MakeButton("cmdHelp", index, "Buttons", "help", nullptr);
  connect(help, &QPushButton::clicked, this, [index] { OpenHelpFile(firstHelpTopic + index); });
  commands->addWidget(help);
  return commands;
}

void frmVisibleSatellites::Connect(int index) {
  const Tab& tab = TabOf(index);
  connect(tab.compute, &QPushButton::clicked, this, [this, index] { cmdOK_Click(index); });
  connect(tab.details, &QPushButton::clicked, this, [this, index] { cmdDettagli_Click(index); });
  connect(tab.map, &QPushButton::clicked, this, [this, index] { cmdMappa_Click(index); });
  connect(tab.noFilter, &QCheckBox::toggled, this, [this, index] { ShowFilter(index); });
  connect(tab.visible, &QCheckBox::toggled, this, [this, index] { ShowFilter(index); });
  connect(tab.passes->header(), &QHeaderView::sectionClicked, this,
          [this, index](int column) { lvwPass_ColumnClick(index, column); });
  connect(tab.passes->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
          [this, index](const QModelIndex& row) { ShowReport(index, row.row()); });
  connect(tab.passes, &QTreeView::clicked, this,
          [this, index](const QModelIndex& row) { ShowReport(index, row.row()); });
  connect(tab.passes, &PassTreeView::RightReleased, this, [this, index] { lvwPass_RightClick(index); });
  connect(tab.report->selectionModel(), &QItemSelectionModel::currentChanged, this,
          [this, index] { lstPass_Click(index); });
  // queued, so that the table it opens does not stand on the list's own handler
  connect(
      tab.report, &RowList::RowDoubleClicked, this, [this, index] { cmdDettagli_Click(index); },
      Qt::QueuedConnection);
}

void frmVisibleSatellites::OrderTabs() {
  QWidget* before = pages_;
  for (const Tab& tab : tabs_) {
    for (QWidget* const next : std::initializer_list<QWidget*>{
             tab.start, tab.duration, tab.limit, tab.compute, tab.am, tab.pm, tab.visible, tab.noFilter,
             tab.transit, tab.passes, tab.report, tab.details, tab.map, tab.activate}) {
      if (next == nullptr) continue;
      setTabOrder(before, next);
      before = next;
    }
    auto* const help = Control<QWidget>(this, "cmdHelp", static_cast<int>(&tab - tabs_.data()));
    setTabOrder(before, help);
    before = help;
  }
  setTabOrder(before, Control<QWidget>(this, "cmdCancel"));
}

void frmVisibleSatellites::Show() {
  // the stored filters may have been changed meanwhile
  for (int index = 0; index < PassTabCount; ++index) ShowFilter(index);
  ShowForm();
}

void frmVisibleSatellites::BeforeUnload() {
  if (running_) CancelRequested = true;
}

void frmVisibleSatellites::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape)
    HideForm();
  else if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
    cmdOK_Click(pages_->currentIndex());
  else
    ChildForm::keyPressEvent(event);
}

}  // namespace halvorine
