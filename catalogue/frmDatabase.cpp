#include "catalogue/frmDatabase.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPointer>
#include <QResizeEvent>
#include <QVBoxLayout>

#include "controls/qtIcons.h"
#include "controls/qtLook.h"
#include "shell/base/mHelp.h"
#include "shell/base/mLongOperation.h"
#include "shell/base/mText.h"

namespace halvorine {

namespace {

constexpr const char* section = "frmDatabase";
constexpr int helpTopic = 80;
constexpr int activeWidth = 290;  // logical pixels, at the first size of the window

/// A frame whose caption, the path of a file, does not widen it: the style shows the middle of it as dots.
class PathFrame : public QGroupBox {
 public:
  QSize minimumSizeHint() const override {
    return layout() == nullptr ? QSize() : layout()->totalMinimumSize();
  }
};

QLabel* Caption(const QString& text) {
  auto* const label = new QLabel(text);
  label->setForegroundRole(MutedRole);
  return label;
}

QLabel* Value(const char* name, int index = -1) {
  auto* const label = Named(new QLabel(QStringLiteral("0")), name, index);
  label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  label->setTextInteractionFlags(Qt::TextSelectableByMouse);
  return label;
}

RowList* List(const char* name, int index, const QString& hint, const QString& accessibleName) {
  auto* const list = Named(new RowList(), name, index);
  list->SetHint(hint);
  list->setAccessibleName(accessibleName);
  return list;
}

}  // namespace

frmDatabase::frmDatabase() : ChildForm(QString::fromLatin1(section)) {
  setWindowTitle(Text(section, "dbsatelliti"));
  setWindowIcon(Icon("catalogue"));
  pages_ = Named(new QTabWidget(), "SSTab1");
  pages_->addTab(MakePage(Primary), Text(section, "dbprincipale"));
  pages_->addTab(MakePage(Secondary), Text(section, "dbsecondario"));
  auto* const upper = new QHBoxLayout();
  upper->setSpacing(12);
  upper->addWidget(pages_, 1);
  upper->addWidget(MakeActive());
  GraphButton* const help = MakeButton("cmdHelp", -1, "Buttons", "help", nullptr);
  GraphButton* const ok = MakeButton("cmdOK", -1, "Buttons", "ok", nullptr);
  connect(help, &QPushButton::clicked, this, [] { OpenHelpFile(helpTopic); });
  // outside a dialog a button that takes Enter by focus would lose its mark as the default with the focus
  ok->setAutoDefault(false);
  ok->setDefault(true);
  connect(ok, &QPushButton::clicked, this, &frmDatabase::HideForm);
  auto* const last = new QHBoxLayout();
  last->addWidget(help);
  last->addStretch();
  last->addWidget(ok);
  auto* const rows = new QVBoxLayout(this);
  rows->setContentsMargins(12, 12, 12, 12);
  rows->setSpacing(12);
  rows->addLayout(upper, 1);
  rows->addLayout(last);
  for (const int index : {Primary, Secondary}) {
    Connect(index);
    if (SortKeyOf(index) != SortKey::Name) ChangeSortKey(index, SortKey::Name);
    ShowRows(index);
    ShowStatistics(index);
  }
  connect(active_, &RowList::RowDoubleClicked, this, &frmDatabase::lstActive_DblClick, Qt::QueuedConnection);
  ghost_ = Named(new QLabel(this), "lblGhost");
  ghost_->setAttribute(Qt::WA_TransparentForMouseEvents);
  ghost_->setTextFormat(Qt::PlainText);
  ghost_->setFrameShape(QFrame::Box);
  ghost_->setAutoFillBackground(true);
  ghost_->hide();
  frmDatabase::WarnOfOldElements(PrincipalIsOld());
  FillActiveRows();
  ShowActive();
  OrderTabs();
  SetFirstSize(760, 560);
  Publish(this);
}

GraphButton* frmDatabase::MakeButton(const char* name, int index, const char* textSection, const char* key,
                                     const char* icon) {
  GraphButton* const made = icon != nullptr ? new GraphButton(icon, this) : new GraphButton(this);
  GraphButton* const button = Named(made, name, index);
  button->SetCaption(Text(textSection, key));
  button->setAutoDefault(true);
  return button;
}

QWidget* frmDatabase::MakePage(int index) {
  auto* const page = new QWidget();
  auto* const rows = new QVBoxLayout(page);
  rows->setContentsMargins(12, 12, 12, 12);
  rows->setSpacing(8);
  QComboBox* const sort = TabOf(index).sort = Named(new QComboBox(), "cmbOrdina", index);
  for (const char* const key : SortKeyTexts) sort->addItem(Text(section, key));
  auto* const order = new QHBoxLayout();
  auto* const caption = Caption(Text(section, "ordinamento"));
  caption->setBuddy(sort);
  order->addWidget(caption);
  order->addWidget(sort, 1);
  rows->addLayout(order);
  rows->addWidget(MakeList(index), 1);
  rows->addWidget(MakeStatistics(index));
  return page;
}

QWidget* frmDatabase::MakeList(int index) {
  Tab& tab = TabOf(index);
  auto* const part = new QWidget();
  auto* const columns = new QHBoxLayout(part);
  columns->setContentsMargins(0, 0, 0, 0);
  columns->setSpacing(8);
  tab.list = List("lstDatabase", index, Text(section, "elencovuoto"),
                  Text(section, index == Primary ? "dbprincipale" : "dbsecondario"));
  tab.model = new DatabaseModel(tab.list);
  tab.list->setModel(tab.model);
  tab.list->SetDraggable();
  if (CanLoadForm("frmSatellite")) tab.list->SetTip(Text(section, "doppioclickparametri"));
  columns->addWidget(tab.list, 1);
  auto* const commands = new QVBoxLayout();
  commands->setSpacing(6);
  GraphButton* const open = MakeButton("cmdDatabase", index, section, "apri", "open");
  connect(open, &QPushButton::clicked, this, [index] { Apertura_database(index); });
  commands->addWidget(open);
  GraphButton* const download = MakeButton("cmdDownload", index, "Buttons", "download", "net");
  download->setEnabled(CanLoadForm("frmDownload"));
  connect(download, &QPushButton::clicked, this, [] {
    if (MainFormCalls* const main = MainForm()) main->RunCommand("mnuStrumentiDownload");
  });
  tab.visible = MakeButton("cmdVisibili", index, "Buttons", "intransito", "find");
  for (GraphButton* const button :
       {download, MakeButton("cmdSommario", index, section, "sommario", "table"), tab.visible})
    commands->addWidget(button);
  commands->addStretch();
  tab.add = MakeButton("cmdAdd", index, section, "aggiungi", "b_add");
  tab.remove = MakeButton("cmdRemove", index, section, "rimuovi", "b_remove");
  for (GraphButton* const button : {tab.add, tab.remove}) {
    button->setEnabled(false);
    commands->addWidget(button);
  }
  columns->addLayout(commands);
  return part;
}

QWidget* frmDatabase::MakeStatistics(int index) {
  Tab& tab = TabOf(index);
  tab.frame = Named(new PathFrame(), index == Primary ? "fraDBPrincipale" : "fraDBSecondario");
  auto* const grid = new QGridLayout(tab.frame);
  grid->setContentsMargins(12, 8, 12, 8);
  grid->setHorizontalSpacing(8);
  grid->setVerticalSpacing(4);
  grid->setColumnStretch(1, 1);
  grid->setColumnMinimumWidth(2, 8);
  grid->setColumnStretch(4, 1);
  struct Row {
    const char *name, *key;
    QLabel** label;
    int row, column;
  };
  const Row rows[] = {{"lblCaricati", "satelliticaricati", &tab.loaded, 1, 0},
                      {"lblNumeroSelezionati", "selezionati", &tab.selected, 2, 0},
                      {"lblNumeroMagnitudini", "magnitudinidisp", &tab.magnitudes, 3, 0},
                      {"lblRecenti", "parametrirecenti", &tab.newest, 1, 3},
                      {"lblVecchi", "parametrivecchi", &tab.oldest, 2, 3},
                      {"lblMedia", "mediaparametri", &tab.mean, 3, 3}};
  for (const Row& row : rows) {
    grid->addWidget(Caption(Text(section, row.key)), row.row, row.column);
    *row.label = Value(row.name, index);
    grid->addWidget(*row.label, row.row, row.column + 1);
  }
  if (index == Primary) {
    oldElements_ = Named(new QLabel(), "lblElementiVecchi");
    oldElements_->setTextFormat(Qt::PlainText);
    oldElements_->setWordWrap(true);
    oldElements_->setVisible(false);
    grid->addWidget(oldElements_, 4, 0, 1, 5);
  }
  return tab.frame;
}

QWidget* frmDatabase::MakeActive() {
  auto* const frame = Named(new QGroupBox(Text(section, "satellitiattivi")), "fraAttivi");
  frame->setMinimumWidth(activeWidth);
  auto* const rows = new QVBoxLayout(frame);
  rows->setContentsMargins(12, 8, 12, 12);
  rows->setSpacing(8);
  active_ = List("lstActive", -1, Text(section, "attivivuoto"), Text(section, "satellitiattivi"));
  activeModel_ = new ActiveModel(active_);
  active_->setModel(activeModel_);
  rows->addWidget(active_, 1);
  auto* const count = new QHBoxLayout();
  count->addWidget(Caption(Text(section, "numeroattivi")));
  count->addStretch();
  activeCount_ = Value("lblNumeroSatellitiAttivi");
  count->addWidget(activeCount_);
  rows->addLayout(count);
  rows->addLayout(MakeActiveCommands());
  if (CanLoadForm("frmSatellite")) active_->SetTip(Text(section, "doppioclickparametri"));
  connect(active_->selectionModel(), &QItemSelectionModel::selectionChanged, this,
          [this](const QItemSelection& selected) {
            if (!selected.isEmpty())
              for (const Tab& tab : tabs_) tab.remove->setEnabled(true);
          });
  return frame;
}

QLayout* frmDatabase::MakeActiveCommands() {
  auto* const grid = new QGridLayout();
  grid->setSpacing(6);
  GraphButton* const up = MakeButton("cmdUp", -1, section, "spostasu", "b_up");
  GraphButton* const down = MakeButton("cmdDown", -1, section, "spostagiu", "b_down");
  GraphButton* const principal = MakeButton("cmdPrincipale", -1, section, "principale", "b_main");
  GraphButton* const order = MakeButton("cmdOrder", -1, section, "ordine", "b_order");
  GraphButton* const all = MakeButton("cmdRemoveAll", -1, section, "elimina", "b_clear");
  connect(up, &QPushButton::clicked, this, [this] { Move(ActiveMove::Up); });
  connect(down, &QPushButton::clicked, this, [this] { Move(ActiveMove::Down); });
  connect(principal, &QPushButton::clicked, this, [this] { Move(ActiveMove::ToPrincipal); });
  connect(order, &QPushButton::clicked, this, [] { RotateActive(); });
  connect(all, &QPushButton::clicked, this, [] { RemoveAllActive(); });
  grid->addWidget(up, 0, 0);
  grid->addWidget(down, 0, 1);
  grid->addWidget(principal, 1, 0);
  grid->addWidget(order, 1, 1);
  grid->addWidget(all, 2, 0, 1, 2);
  grid->setColumnStretch(0, 1);
  grid->setColumnStretch(1, 1);
  return grid;
}

void frmDatabase::Connect(int index) {
  Tab& tab = TabOf(index);
  connect(tab.sort, &QComboBox::currentIndexChanged, this, [this, index] { cmbOrdina_Click(index); });
  connect(tab.list->selectionModel(), &QItemSelectionModel::selectionChanged, this,
          [this, index] { SelectionChanged(index); });
  connect(tab.add, &QPushButton::clicked, this, [this, index] { cmdAdd_Click(index); });
  connect(tab.remove, &QPushButton::clicked, this, [this] {
    // not in the command itself, which the tick uses for what has decayed
    if (!LongOperation::Refused()) cmdRemove_Click();
  });
  connect(Control<GraphButton>(this, "cmdSommario", index), &QPushButton::clicked, this,
          [this, index] { cmdSommario_Click(index); });
  connect(tab.visible, &QPushButton::clicked, this, [this, index] { cmdVisibili_Click(index); });
  connect(tab.list, &RowList::DragMoved, this, [this, index](QPoint at) { DragMoved(index, at); });
  connect(tab.list, &RowList::DragEnded, this, [this, index] { DragEnded(index); });
  // queued, so that what they open does not stand on the list's own handlers
  connect(tab.list, &RowList::DragDropped, this, &frmDatabase::Drop, Qt::QueuedConnection);
  connect(
      tab.list, &RowList::RowDoubleClicked, this, [this, index] { lstDatabase_DblClick(index); },
      Qt::QueuedConnection);
}

void frmDatabase::OrderTabs() {
  QWidget* before = pages_;
  const auto next = [&](const char* name, int index = -1) {
    auto* const widget = Control<QWidget>(this, name, index);
    setTabOrder(before, widget);
    before = widget;
  };
  for (const int index : {Primary, Secondary})
    for (const char* const name : {"cmbOrdina", "lstDatabase", "cmdDatabase", "cmdDownload", "cmdSommario",
                                   "cmdVisibili", "cmdAdd", "cmdRemove"})
      next(name, index);
  for (const char* const name :
       {"lstActive", "cmdUp", "cmdDown", "cmdPrincipale", "cmdOrder", "cmdRemoveAll", "cmdHelp", "cmdOK"})
    next(name);
  TabOf(Primary).list->setFocus();
}

void frmDatabase::ShowRows(int index) {
  Tab& tab = TabOf(index);
  tab.model->SetRows(ListedRows(index));
  tab.selected->setText(QStringLiteral("0"));
  tab.list->CancelDrag();
  tab.visible->setEnabled(tab.list->RowCount() > 0);
  const bool canSummarise = tab.list->RowCount() > 0 && CanLoadForm("frmDetails");
  Control<GraphButton>(this, "cmdSommario", index)->setEnabled(canSummarise);
}

void frmDatabase::ShowStatistics(int index) {
  const Tab& tab = TabOf(index);
  const StatsTexts texts = StatsTextsOf(index);
  tab.loaded->setText(ToQ(texts.Caricati));
  tab.oldest->setText(ToQ(texts.Vecchi));
  tab.newest->setText(ToQ(texts.Recenti));
  tab.mean->setText(ToQ(texts.Media));
  tab.magnitudes->setText(ToQ(texts.NumeroMagnitudini));
  const QString path = ToQ(DatabaseStats[static_cast<std::size_t>(index)].path);
  tab.frame->setTitle(QString(path).replace(QLatin1Char('&'), QLatin1String("&&")));
  tab.frame->setToolTip(path);
  tab.frame->setAccessibleName(path);
}

void frmDatabase::ShowActive() {
  activeModel_->SetRows(ActiveRows);
  activeCount_->setText(QString::number(ActiveCount));
  if (ActiveCount == 0)
    for (const Tab& tab : tabs_) tab.remove->setEnabled(false);
}

void frmDatabase::ReadBegins(int index) {
  if (isEnabled()) focusBeforeRead_ = focusWidget();
  setEnabled(false);
  ShowRows(index);
}

void frmDatabase::ReadEnded(int index) {
  ShowRows(index);
  ShowStatistics(index);
  SyncActiveRows();
  ShowActive();
  if (isEnabled()) return;
  setEnabled(true);
  if (focusBeforeRead_ != nullptr) focusBeforeRead_->setFocus();
  focusBeforeRead_ = nullptr;
}

void frmDatabase::ActiveListChanged() {
  SyncActiveRows();
  ShowActive();
}

void frmDatabase::WarnOfOldElements(bool old) {
  if (old)
    oldElements_->setText(ToQ(Trimmed(ElementSets[1].Name)) + QStringLiteral(": ") +
                          Text("MDIForm1", "elementivecchi"));
  if (oldElements_->isHidden() == old) oldElements_->setVisible(old);
}

void frmDatabase::SelectActive(int position) { active_->SelectOnly(position); }

void frmDatabase::SelectionChanged(int index) {
  const Tab& tab = TabOf(index);
  const int count = tab.list->SelectedCount();
  tab.selected->setText(QString::number(count));
  if (count > 0) tab.add->setEnabled(true);
}

void frmDatabase::cmbOrdina_Click(int index) {
  ChangeSortKey(index, static_cast<SortKey>(TabOf(index).sort->currentIndex()));
  ShowRows(index);
}

void frmDatabase::cmdAdd_Click(int index) {
  const Tab& tab = TabOf(index);
  std::vector<int> numbers;
  for (const int row : tab.list->SelectedRows()) numbers.push_back(tab.model->Number(row));
  AddSelected(index, numbers);
}

void frmDatabase::cmdRemove_Click() { halvorine::RemoveSelected(active_->SelectedRows()); }

void frmDatabase::cmdSommario_Click(int index) {
  if (TabOf(index).list->RowCount() == 0 || LongOperation::Refused()) return;
  auto* const details = Load<DetailsCalls>("frmDetails");
  if (details == nullptr) return;
  details->Show();
  details->Sommario(index);
}

void frmDatabase::cmdVisibili_Click(int index) { TabOf(index).list->SelectRows(RowsAboveHorizon(index)); }

void frmDatabase::lstDatabase_DblClick(int index) {
  const Tab& tab = TabOf(index);
  const QModelIndex row = tab.list->currentIndex();
  ShowEntry(index, row.isValid() ? tab.model->Number(row.row()) : DatabaseTag);
}

void frmDatabase::lstActive_DblClick() {
  const QModelIndex row = active_->currentIndex();
  if (row.isValid()) ShowSatellite(row.row() + 1);
}

bool frmDatabase::IsOverActive(QPoint at) const {
  return isVisible() && isEnabled() && active_->rect().contains(active_->mapFromGlobal(at));
}

void frmDatabase::DragMoved(int index, QPoint at) {
  RowList* const list = TabOf(index).list;
  if (ghost_->isHidden()) {
    const QModelIndex row = list->currentIndex();
    ghost_->setText(row.data().toString());
    ghost_->resize(list->visualRect(row).size());
    ghost_->raise();
    ghost_->show();
  }
  ghost_->move(mapFromGlobal(at) - ghost_->rect().center());
  list->viewport()->setCursor(IsOverActive(at) ? Qt::DragCopyCursor : Qt::ForbiddenCursor);
}

void frmDatabase::DragEnded(int index) {
  ghost_->hide();
  TabOf(index).list->viewport()->unsetCursor();
}

void frmDatabase::Drop(QPoint at) {
  if (!IsOverActive(at)) return;
  const QPointer<frmDatabase> alive(this);  // a message can outlive the window
  cmdAdd_Click(pages_->currentIndex());
  if (alive) active_->MakeCurrent(active_->RowCount() - 1);
}

void frmDatabase::Move(ActiveMove move) {
  const int position = MoveSelected(active_->SelectedRows(), move);
  if (position >= 0) active_->SelectOnly(position);
}

void frmDatabase::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape || event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
    HideForm();
  else
    ChildForm::keyPressEvent(event);
}

}  // namespace halvorine
