#include "astro/frmPlanets.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QVBoxLayout>
#include <algorithm>
#include <array>

#include "controls/qtHeadings.h"
#include "controls/qtIcons.h"

namespace halvorine {

namespace {

constexpr const char* section = "frmPlanets";
// logical pixels: around the text of a cell, beside the one of a heading for the mark of its order
constexpr int cellRoom = 20, headingRoom = 28, listEdges = 4;

const PlanetTable::Column& ColumnAt(int column) {
  return PlanetTable::Columns().at(static_cast<std::size_t>(column));
}

QVariant Alignment(int column) {
  return static_cast<int>((ColumnAt(column).rightAligned ? Qt::AlignRight : Qt::AlignLeft) |
                          Qt::AlignVCenter);
}

}  // namespace

void PlanetModel::Refresh() {
  table_.Refresh();
  Changed();
}

void PlanetModel::SortBy(int column) {
  table_.SortBy(column);
  Changed();
}

void PlanetModel::Changed() {
  Q_EMIT dataChanged(index(0, 0), index(PlanetTable::RowCount - 1, PlanetTable::ColumnCount - 1));
}

int PlanetModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : PlanetTable::RowCount;
}

int PlanetModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : PlanetTable::ColumnCount;
}

QVariant PlanetModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid()) return {};
  if (role == Qt::DisplayRole) return ToQ(table_.Cell(index.row(), index.column()));
  if (role == Qt::TextAlignmentRole) return Alignment(index.column());
  return {};
}

QVariant PlanetModel::headerData(int column, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || column < 0 || column >= PlanetTable::ColumnCount) return {};
  const PlanetTable::Column& head = ColumnAt(column);
  if (role == Qt::DisplayRole) return Text(head.section, head.key);
  if (role == Qt::ToolTipRole) return Text("ToolTips", head.key);
  if (role == Qt::TextAlignmentRole) return Alignment(column);
  return {};
}

frmPlanets::frmPlanets() : ChildForm(QString::fromLatin1(section)) {
  setWindowTitle(Text(section, "effemeridipianeti"));
  setWindowIcon(Icon("planet"));
  lvwPlanets_ = Named(new QTreeView(), "lvwPlanets");
  model_ = new PlanetModel(lvwPlanets_);
  lvwPlanets_->setModel(model_);
  lvwPlanets_->setRootIsDecorated(false);
  lvwPlanets_->setItemsExpandable(false);
  lvwPlanets_->setUniformRowHeights(true);
  lvwPlanets_->setAlternatingRowColors(true);
  lvwPlanets_->setSelectionMode(QAbstractItemView::NoSelection);
  lvwPlanets_->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
  lvwPlanets_->setAccessibleName(windowTitle());
  QHeaderView* const header = lvwPlanets_->header();
  header->setStretchLastSection(false);
  header->setSectionsClickable(true);
  header->setSectionsMovable(false);
  connect(header, &QHeaderView::sectionClicked, this, [this, header](int column) {
    model_->SortBy(column);
    header->setSortIndicatorShown(true);
    header->setSortIndicator(column, model_->Descending() ? Qt::DescendingOrder : Qt::AscendingOrder);
  });
  OfferHeadings(*lvwPlanets_);
  auto* const layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(lvwPlanets_);
  model_->Refresh();
  const int width = SizeColumns();
  const int rows = PlanetTable::RowCount * lvwPlanets_->sizeHintForRow(0);
  SetFirstSize(width + listEdges, header->sizeHint().height() + rows + listEdges);
  Publish(this);
}

int frmPlanets::SizeColumns() {
  // what the columns can hold at most, so that they stand still while the values change
  constexpr std::array<const char*, PlanetTable::ColumnCount> widest = {
      "", "-00.0°", "000.0°", "00h00m", "+00°00'", "-00.0", "00.0", "0h00m00s", "000,000,000"};
  QHeaderView* const header = lvwPlanets_->header();
  int total = 0;
  for (int column = 0; column < PlanetTable::ColumnCount; ++column) {
    const auto at = static_cast<std::size_t>(column);
    int text = fontMetrics().horizontalAdvance(QString::fromUtf8(widest[at]));
    for (int row = 0; row < PlanetTable::RowCount; ++row)
      text = std::max(text, fontMetrics().horizontalAdvance(model_->index(row, column).data().toString()));
    const int heading = header->fontMetrics().horizontalAdvance(
        model_->headerData(column, Qt::Horizontal, Qt::DisplayRole).toString());
    header->resizeSection(column, std::max(text + cellRoom, heading + headingRoom));
    total += header->sectionSize(column);
  }
  return total;
}

void frmPlanets::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape)
    close();
  else
    ChildForm::keyPressEvent(event);
}

}  // namespace halvorine
