#include "prediction/frmDetails.h"

#include <QFontMetrics>
#include <QHeaderView>
#include <QPointer>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "controls/qtHeadings.h"
#include "controls/qtIcons.h"
#include "controls/qtLook.h"
#include "controls/qtPrint.h"
#include "prediction/mRelative.h"
#include "prediction/mReport.h"
#include "shell/base/mGlobal.h"
#include "shell/base/mLang.h"
#include "shell/base/mLongOperation.h"
#include "shell/base/mPlatform.h"
#include "shell/base/mText.h"

namespace halvorine {

namespace {

constexpr const char* section = "frmDetails";
// logical pixels
constexpr int listExtent = 680, leastWidth = 480, scrollBarRoom = 20;

bool IsRight(int column) { return SummaryColumns[static_cast<std::size_t>(column)].rightAligned; }

QString Heading(int column) { return Text(section, SummaryColumns[static_cast<std::size_t>(column)].key); }

/// The database of the window's own, beside the primary and the secondary one.
SatelliteDatabase& ViewedDatabase() {
  static SatelliteDatabase database;
  return database;
}

}  // namespace

void SummaryModel::SetTable(SummaryTable table) {
  beginResetModel();
  table_ = std::move(table);
  endResetModel();
}

void SummaryModel::SortBy(int column) {
  beginResetModel();
  table_.SortBy(column);
  endResetModel();
}

int SummaryModel::rowCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : table_.Count(); }

int SummaryModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : SummaryColumnCount;
}

QVariant SummaryModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid()) return {};
  if (role == Qt::DisplayRole) return ToQ(table_.Cell(index.row(), index.column()));
  if (role == Qt::TextAlignmentRole && IsRight(index.column()))
    return static_cast<int>(Qt::AlignRight | Qt::AlignVCenter);
  return {};
}

QVariant SummaryModel::headerData(int column, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || column < 0 || column >= SummaryColumnCount) return {};
  if (role == Qt::DisplayRole) return Heading(column);
  if (role == Qt::TextAlignmentRole)
    return static_cast<int>((IsRight(column) ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
  return {};
}

TextRows::TextRows(QObject* parent) : QAbstractListModel(parent), width_(listExtent) {}

void TextRows::Clear() {
  beginResetModel();
  rows_.clear();
  source_ = {};
  sourceCount_ = 0;
  width_ = listExtent;
  endResetModel();
}

void TextRows::WidenFor(const QString& row) {
  width_ = std::max(width_, QFontMetrics(ColumnFont()).horizontalAdvance(row) + 12);
}

void TextRows::SetSource(int count, std::function<std::string(int)> source) {
  Clear();
  beginResetModel();
  source_ = std::move(source);
  sourceCount_ = count;
  Measure(0);
  endResetModel();
}

void TextRows::Grow(int count) {
  if (count <= sourceCount_) return;
  const int first = sourceCount_;
  beginInsertRows({}, first, count - 1);
  sourceCount_ = count;
  Measure(first);
  endInsertRows();
}

void TextRows::Measure(int first) {
  // rows of one report differ in width by the names of their months at most
  constexpr int measured = 200;
  for (int row = first; row < std::min(sourceCount_, measured); ++row) WidenFor(RowAt(row));
}

std::string TextRows::Row(int row) const {
  return row < sourceCount_ ? source_(row) : FromQ(rows_[row - sourceCount_]);
}

QString TextRows::RowAt(int row) const { return ToQ(Row(row)); }

void TextRows::Append(const QString& row) {
  const int at = rowCount();
  beginInsertRows({}, at, at);
  rows_.push_back(row);
  WidenFor(row);
  endInsertRows();
}

int TextRows::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : sourceCount_ + static_cast<int>(rows_.size());
}

QVariant TextRows::data(const QModelIndex& index, int role) const {
  if (!index.isValid() || index.row() >= rowCount()) return {};
  if (role == Qt::DisplayRole) return RowAt(index.row());
  if (role == Qt::SizeHintRole) return QSize(width_, QFontMetrics(ColumnFont()).height() + 2);
  return {};
}

frmDetails::frmDetails() : ChildForm(QString::fromLatin1(section)) {
  setWindowTitle(Text(section, "dettagli"));
  setWindowIcon(Icon("table"));
  summary_ = new SummaryModel(this);
  ListView1_ = Named(new QTreeView(), "ListView1");
  ListView1_->setModel(summary_);
  ListView1_->setRootIsDecorated(false);
  ListView1_->setItemsExpandable(false);
  ListView1_->setUniformRowHeights(true);
  ListView1_->setAlternatingRowColors(true);
  ListView1_->setAllColumnsShowFocus(true);
  ListView1_->setSelectionMode(QAbstractItemView::ExtendedSelection);
  ListView1_->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
  ListView1_->setAccessibleName(windowTitle());
  QHeaderView* const header = ListView1_->header();
  header->setStretchLastSection(false);
  header->setSectionsClickable(true);
  header->setSectionsMovable(false);
  header->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
  connect(header, &QHeaderView::sectionClicked, this, [this, header](int column) {
    summary_->SortBy(column);
    header->setSortIndicatorShown(true);
    header->setSortIndicator(column,
                             summary_->Table().Descending() ? Qt::DescendingOrder : Qt::AscendingOrder);
  });
  OfferHeadings(*ListView1_);
  SizeColumns();
  ListView1_->hide();
  rows_ = new TextRows(this);
  List1_ = Named(new RowList(), "List1");
  List1_->setModel(rows_);
  List1_->setFont(ColumnFont());
  List1_->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
  List1_->setTextElideMode(Qt::ElideNone);
  List1_->SetHint(Text(section, "elencovuoto"));
  List1_->setAccessibleName(windowTitle());
  auto* const layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(ListView1_);
  layout->addWidget(List1_);
  setFocusProxy(List1_);
  // all columns of the summary, where the work area has room for them
  const int wide = ListView1_->header()->length() + scrollBarRoom;
  const int room = WorkArea() != nullptr ? WorkArea()->width() - 2 * scrollBarRoom : wide;
  SetFirstSize(std::clamp(wide, leastWidth, std::max(room, leastWidth)), 440);
  Publish(this);
}

void frmDetails::SizeColumns() {
  QHeaderView* const header = ListView1_->header();
  // the agreed widths, but for headings that are longer in the present language; room for the sort mark
  const QFontMetrics metrics(header->font());
  for (int column = 0; column < SummaryColumnCount; ++column)
    header->resizeSection(column, std::max(PixelsOf(SummaryColumns[static_cast<std::size_t>(column)].width),
                                           metrics.horizontalAdvance(Heading(column)) + 28));
}

void frmDetails::LeggiDiretto(const std::string& path) {
  if (LongOperation::Refused()) return;
  ShowSummary({}, Text(section, "dettagli"));
  // a yield may close the window
  const QPointer<frmDetails> self(this);
  SummaryTable table;
  SummaryOutcome outcome = SummaryOutcome::NotAnElementFile;
  {
    const WaitPointerHold pointer;
    outcome = SummariseFile(path, table);
  }
  if (self == nullptr) return;
  if (outcome == SummaryOutcome::Done) {
    ShowSummary(std::move(table), Text("Dialogs", "visualizzatle") + QLatin1String(" - ") + ToQ(path));
    return;
  }
  BeginRows(LookupText(section, "dettagli"));
  TellNoElementFile(path, outcome);
}

void frmDetails::Leggi(const std::string& path) {
  if (LongOperation::Refused()) return;
  try {
    ReadDatabaseFile(path, ViewedDatabase());
  } catch (const RuntimeFailure&) {
    BeginRows(LookupText(section, "dettagli"));
    TellNoElementFile(path);
    return;
  }
  Summarise(ViewedDatabase(), Text("Dialogs", "visualizzatle") + QLatin1String(" - ") + ToQ(path));
}

void frmDetails::Sommario(int index) {
  const SatelliteDatabase& database = DatabaseOf(index);
  if (LongOperation::Refused()) return;
  Summarise(database, Text(section, index == Primary ? "sommariodbprincipale" : "sommariodbsecondario"));
}

void frmDetails::Summarise(const SatelliteDatabase& database, const QString& title) {
  ShowSummary({}, title);
  const QPointer<frmDetails> self(this);
  SummaryTable table;
  {
    const WaitPointerHold pointer;
    SummariseDatabase(database, table);
  }
  if (self != nullptr) ShowSummary(std::move(table), title);
}

void frmDetails::ShowSummary(SummaryTable table, const QString& title) {
  summary_->SetTable(std::move(table));
  ListView1_->header()->setSortIndicatorShown(false);
  ListView1_->scrollToTop();
  List1_->hide();
  ListView1_->show();
  setFocusProxy(ListView1_);
  setWindowTitle(title);
}

void frmDetails::BeginRows(const std::string& title) {
  rows_->Clear();
  table_ = nullptr;
  placeAndZone_ = PlaceAndZoneLine(Site);
  summary_->SetTable({});
  ListView1_->hide();
  List1_->show();
  setFocusProxy(List1_);
  setWindowTitle(ToQ(title));
}

void frmDetails::AddRow(const std::string& row) { rows_->Append(ToQ(row)); }

void frmDetails::ShowRows(const std::string& title, int count, std::function<std::string(int)> row) {
  BeginRows(title);
  rows_->SetSource(count, std::move(row));
  List1_->scrollToTop();
}

void frmDetails::Genera_elenco(int slot, Date start, Date end, double& step, int code) {
  if (LongOperation::Refused()) return;
  TableRequest request{start, end, step, code, onlyAboveHorizon_};
  ShowTable(LookupText(section, "effemeridisatellite"), std::string(Trimmed(ElementSets[slot].Name)), start,
            [&](TextTable& table, const TableGrowth& grown) {
              const TableOutcome outcome = MakeTable(slot, request, table, grown);
              step = request.step;
              return outcome;
            });
}

void frmDetails::Genera_relativo(Date start, Date end, double step, int code) {
  if (LongOperation::Refused()) return;
  const auto name = [](int slot) { return std::string(Trimmed(ElementSets[slot].Name)); };
  ShowTable(LookupText(section, "motorelativosatelliti"), name(ScratchSlot) + ", " + name(RelativeSlot),
            start, [&](TextTable& table, const TableGrowth& grown) {
              return MakeRelativeTable({start, end, step, code}, table, grown);
            });
}

void frmDetails::ShowTable(const std::string& title, const std::string& name, Date start,
                           const std::function<TableOutcome(TextTable&, const TableGrowth&)>& make) {
  const auto table = std::make_shared<TextTable>();
  BeginRows(title);
  rows_->SetSource(0, [table](int line) { return table->Line(line); });
  table_ = table;
  const QPointer<frmDetails> self(this);
  // a yield may close the window, and then nobody wants the table
  const auto gone = [&self] { return self == nullptr || Loaded<DetailsCalls>(section) != self.data(); };
  YieldClock clock;
  const TableOutcome outcome = make(*table, [&] {
    if (gone())
      CancelRequested = true;
    else if (table->complete || clock.Due())
      rows_->Grow(table->LineCount());
  });
  if (!gone()) setWindowTitle(ToQ(TableTitle(name, start)));
  if (outcome == TableOutcome::NotComputable) TellNotComputable();
}

int frmDetails::ShownCount() const { return ShowsSummary() ? summary_->Table().Count() : rows_->rowCount(); }

std::vector<std::string> frmDetails::ShownLines() const {
  std::vector<std::string> lines;
  for (int row = 0; row < ShownCount(); ++row) {
    if (!ShowsSummary()) {
      lines.push_back(rows_->Row(row));
      continue;
    }
    std::string line;
    for (int column = 0; column < SummaryColumnCount; ++column)
      line += (column > 0 ? "  " : "") + summary_->Table().Cell(row, column);
    lines.push_back(line);
  }
  if (!ShowsSummary()) lines.push_back(placeAndZone_);
  return lines;
}

std::string frmDetails::ShownAsCsv() const {
  if (!ShowsSummary()) {
    if (table_ != nullptr) return CsvOf(*table_, placeAndZone_);
    std::vector<std::string> lines = ShownLines();
    lines.pop_back();
    return CsvOfLines(lines) + TextFile({CsvLine({placeAndZone_})});
  }
  std::vector<std::string> lines;
  for (int row = -1; row < ShownCount(); ++row) {
    std::vector<std::string> cells(SummaryColumnCount);
    for (int column = 0; column < SummaryColumnCount; ++column)
      cells[static_cast<std::size_t>(column)] =
          Trimmed(row < 0 ? FromQ(Heading(column)) : summary_->Table().Cell(row, column));
    lines.push_back(CsvLine(cells));
  }
  return TextFile(lines);
}

void frmDetails::Salva() {
  if (ShownCount() == 0) return;
  const QPointer<frmDetails> self(this);
  const std::optional<std::string> path = ThePlatform().ChooseFile(
      {LookupText("Dialogs", "salvaconnome"), LookupText("Dialogs", "filtrocsv"), {}, true});
  if (self == nullptr || !path || path->empty()) return;
  try {
    ThePlatform().WriteFile(*path, IsCsvPath(*path) ? ShownAsCsv() : TextFile(ShownLines()));
  } catch (const RuntimeFailure& failure) {
    TellNotSaved(failure);
  }
}

void frmDetails::Stampa() {
  if (ShownCount() == 0) return;
  QStringList rows;
  for (const std::string& line : ShownLines()) rows.push_back(ToQ(line));
  PreviewRows(this, rows, windowTitle());
}

}  // namespace halvorine
