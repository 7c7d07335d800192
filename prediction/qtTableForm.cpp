#include "prediction/qtTableForm.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QVBoxLayout>
#include <algorithm>

#include "controls/GraphButton.h"
#include "controls/qtLook.h"
#include "shell/base/mGlobal.h"
#include "shell/base/mHelp.h"
#include "shell/base/mText.h"
#include "shell/base/qtDates.h"

namespace halvorine {

namespace {

constexpr int mostAmount = 59;
// logical pixels
constexpr int formWidth = 540, formHeight = 400, listWidth = 230;

struct CodeChoice {
  const char *name, *key;
};
constexpr std::array<CodeChoice, 4> codeChoices = {
    {{"optOBS", "obs"}, {"optECI", "eci"}, {"optLLA", "lla"}, {"optRAD", "rad"}}};

QLabel* Caption(const QString& text, QWidget* of) {
  auto* const label = new QLabel(text);
  label->setForegroundRole(MutedRole);
  label->setBuddy(of);
  return label;
}

}  // namespace

QLayout* EntryList::Make(int index, const QString& accessibleName) {
  list_ = Named(new RowList(), "lstDatabase", index);
  list_->setSelectionMode(QAbstractItemView::SingleSelection);
  list_->SetHint(halvorine::Text("frmDatabase", "elencovuoto"));
  list_->setAccessibleName(accessibleName);
  list_->setMinimumWidth(listWidth);
  model_ = new DatabaseModel(list_);
  list_->setModel(model_);
  lblNorad_ = Named(new QLabel(), "lblNorad", index);
  lblNorad_->setForegroundRole(MutedRole);
  QObject::connect(list_->selectionModel(), &QItemSelectionModel::selectionChanged, list_,
                   [this] { ShowNumber(); });
  auto* const rows = new QVBoxLayout();
  rows->setSpacing(4);
  rows->addWidget(list_, 1);
  rows->addWidget(lblNorad_);
  return rows;
}

void EntryList::ShowNumber() {
  const int chosen = Chosen();
  lblNorad_->setText(chosen == 0 ? QString()
                                 : halvorine::Text("frmDetails", "norad") + QLatin1Char(' ') +
                                       ToQ(Columns(DatabaseOf(database_).Entry(chosen).line1, 3, 7)));
}

void EntryList::Fill(int database) {
  const int chosen = database == database_ ? Chosen() : 0;
  database_ = database;
  model_->SetRows(EntryNames(database));
  list_->SelectOnly(chosen - 1);
  list_->MakeCurrent(chosen - 1);
  ShowNumber();
}

int EntryList::Chosen() const {
  const std::vector<int> rows = list_->SelectedRows();
  if (rows.empty()) return 0;
  const int number = model_->Number(rows.front());
  const QString name = model_->index(rows.front(), 0).data().toString();
  return IsEntry(database_, number, FromQ(name)) ? number : 0;
}

TableForm::TableForm(const char* name) : ChildForm(QString::fromLatin1(name)), section_(name) {}

QString TableForm::Text(const char* key) const { return halvorine::Text(section_, key); }

void TableForm::Compose(QWidget* pages, int helpTopic, QWidget* note) {
  auto* const right = new QVBoxLayout();
  right->setSpacing(12);
  right->addWidget(MakeSpan());
  right->addWidget(MakeCoordinates());
  right->addStretch();
  auto* const upper = new QHBoxLayout();
  upper->setSpacing(12);
  upper->addWidget(pages, 1);
  upper->addLayout(right);
  auto* const rows = new QVBoxLayout(this);
  rows->setContentsMargins(12, 12, 12, 12);
  rows->setSpacing(12);
  rows->addLayout(upper, 1);
  if (note != nullptr) rows->addWidget(note);
  rows->addLayout(MakeLastRow(helpTopic));
  OrderTabs();
  const QSize fitting = sizeHint();
  SetFirstSize(std::max(formWidth, fitting.width()), std::max(formHeight, fitting.height()));
}

QComboBox* TableForm::MakeNumbers(const char* name, int chosen) {
  auto* const box = Named(new QComboBox(), name);
  for (int amount = 1; amount <= mostAmount; ++amount) box->addItem(QString::number(amount));
  box->setCurrentIndex(chosen - 1);
  return box;
}

QComboBox* TableForm::MakeUnits(const char* name, std::initializer_list<const char*> keys, int chosen) {
  auto* const box = Named(new QComboBox(), name);
  for (const char* const key : keys) box->addItem(halvorine::Text("Def", key));
  box->setCurrentIndex(chosen);
  return box;
}

QWidget* TableForm::MakeSpan() {
  auto* const frame = Named(new QGroupBox(), "fraDurata");
  DTPicker1_ = Named(new QDateTimeEdit(), "DTPicker1");
  DressPicker(*DTPicker1_, CurrentDate);
  DTPicker1_->setAccessibleName(Text("datainizio"));
  // two hours by the minute: one revolution and a bit of most satellites
  cmbDurata_ = MakeNumbers("cmbDurata", 2);
  cmbTipoDurata_ = MakeUnits("cmbTipoDurata", {"min", "ore", "giorni"}, SpanHours);
  cmbIntervallo_ = MakeNumbers("cmbIntervallo", 1);
  cmbTipoIntervallo_ = MakeUnits("cmbTipoIntervallo", {"sec", "min", "ore"}, StepMinutes);
  auto* const grid = new QGridLayout(frame);
  grid->setContentsMargins(12, 12, 12, 12);
  grid->setHorizontalSpacing(8);
  grid->setVerticalSpacing(8);
  grid->setColumnStretch(2, 1);
  grid->addWidget(Caption(Text("datainizio"), DTPicker1_), 0, 0);
  grid->addWidget(DTPicker1_, 0, 1, 1, 2);
  grid->addWidget(Caption(Text("durata"), cmbDurata_), 1, 0);
  grid->addWidget(cmbDurata_, 1, 1);
  grid->addWidget(cmbTipoDurata_, 1, 2);
  grid->addWidget(Caption(Text("intervallo"), cmbIntervallo_), 2, 0);
  grid->addWidget(cmbIntervallo_, 2, 1);
  grid->addWidget(cmbTipoIntervallo_, 2, 2);
  for (QComboBox* const box : {cmbDurata_, cmbTipoDurata_}) box->setAccessibleName(Text("durata"));
  for (QComboBox* const box : {cmbIntervallo_, cmbTipoIntervallo_})
    box->setAccessibleName(Text("intervallo"));
  return frame;
}

QWidget* TableForm::MakeCoordinates() {
  auto* const frame = Named(new QGroupBox(Text("tipocoordinate")), "fraCoordinate");
  auto* const rows = new QVBoxLayout(frame);
  rows->setContentsMargins(12, 8, 12, 12);
  rows->setSpacing(6);
  for (std::size_t i = 0; i < codeChoices.size(); ++i) {
    codes_[i] = Named(new QRadioButton(Text(codeChoices[i].key)), codeChoices[i].name);
    rows->addWidget(codes_[i]);
  }
  codes_.front()->setChecked(true);
  return frame;
}

QLayout* TableForm::MakeLastRow(int helpTopic) {
  const auto button = [this](const char* name, const char* key) {
    auto* const made = Named(new GraphButton(this), name);
    made->SetCaption(halvorine::Text("Buttons", key));
    made->setAutoDefault(true);
    return made;
  };
  GraphButton* const help = button("cmdHelp", "help");
  GraphButton* const ok = button("cmdOK", "ok");
  GraphButton* const cancel = button("cmdCancel", "cancel");
  // outside a dialog a button that takes Enter by focus would lose its mark as the default with the focus
  ok->setAutoDefault(false);
  ok->setDefault(true);
  connect(help, &QPushButton::clicked, this, [helpTopic] { OpenHelpFile(helpTopic); });
  // queued, for the window may be gone when the table has ended
  connect(
      ok, &QPushButton::clicked, this, [this] { cmdOK_Click(); }, Qt::QueuedConnection);
  connect(cancel, &QPushButton::clicked, this, &TableForm::HideForm);
  auto* const row = new QHBoxLayout();
  row->setSpacing(8);
  row->addWidget(help);
  row->addStretch();
  row->addWidget(ok);
  row->addWidget(cancel);
  return row;
}

void TableForm::OrderTabs() {
  // from the bar itself: begun with the whole pages the order would run in a ring inside them
  QWidget* before = Control<QTabWidget>(this, "SSTab1")->tabBar();
  for (const char* const name :
       {"cmbDatabase(0)", "lstDatabase(0)", "cmbDatabase(1)", "lstDatabase(1)", "DTPicker1", "cmbDurata",
        "cmbTipoDurata", "cmbIntervallo", "cmbTipoIntervallo", "optOBS", "optECI", "optLLA", "optRAD",
        "cmdHelp", "cmdOK", "cmdCancel"}) {
    auto* const widget = findChild<QWidget*>(QString::fromLatin1(name));
    if (widget == nullptr) continue;  // one of the dialogs has no choice of the database
    setTabOrder(before, widget);
    before = widget;
  }
}

TableRequest TableForm::Request() const {
  TableRequest request;
  request.start = DateOf(DTPicker1_->dateTime());
  request.end = SpanEnd(request.start, cmbDurata_->currentIndex() + 1, cmbTipoDurata_->currentIndex());
  request.step = StepOf(cmbIntervallo_->currentIndex() + 1, cmbTipoIntervallo_->currentIndex());
  for (std::size_t i = 0; i < codes_.size(); ++i)
    if (codes_[i]->isChecked()) request.code = static_cast<int>(i) + 1;
  return request;
}

void TableForm::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape)
    HideForm();
  else if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
    Control<QPushButton>(this, "cmdOK")->click();
  else
    ChildForm::keyPressEvent(event);
}

}  // namespace halvorine
