#include "prediction/qtPassList.h"

#include <QHeaderView>
#include <QPainter>
#include <algorithm>
#include <utility>

#include "controls/qtHeadings.h"
#include "controls/qtLook.h"
#include "shell/base/qtForms.h"

namespace halvorine {

namespace {

int AlignmentOf(int column) {
  const bool right = PassColumnOf(column).rightAligned;
  return static_cast<int>((right ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
}

}  // namespace

void PassModel::SetList(PassList list) {
  beginResetModel();
  list_ = std::move(list);
  endResetModel();
}

void PassModel::SortBy(int heading, PassSort& last) {
  beginResetModel();
  list_.SortBy(heading, last);
  endResetModel();
}

int PassModel::rowCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : list_.Count(); }
int PassModel::columnCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : PassColumnCount; }

QVariant PassModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid() || index.row() >= list_.Count()) return {};
  const int column = index.column() + 1;
  if (role == Qt::DisplayRole) return ToQ(list_.Cell(index.row(), column));
  if (role == Qt::TextAlignmentRole) return AlignmentOf(column);
  if (role == Qt::ToolTipRole && column == SatelliteColumn) return ToQ(list_.Satellite(index.row()));
  if (role == Qt::UserRole) return ToQ(list_.Tag(index.row()));
  return {};
}

QVariant PassModel::headerData(int column, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || column < 0 || column >= PassColumnCount) return {};
  if (role == Qt::DisplayRole) return ToQ(PassHeading(column + 1));
  if (role == Qt::TextAlignmentRole) return AlignmentOf(column + 1);
  return {};
}

PassTable::PassTable(PassModel* model) {
  setModel(model);
  setRootIsDecorated(false);
  setItemsExpandable(false);
  setUniformRowHeights(true);
  setAlternatingRowColors(true);
  setAllColumnsShowFocus(true);
  setSelectionMode(SingleSelection);
  setTextElideMode(Qt::ElideRight);
  OfferHeadings(*this);
  QHeaderView* const heads = header();
  heads->setStretchLastSection(false);
  heads->setSectionsClickable(true);
  heads->setSectionsMovable(false);
  heads->setMinimumSectionSize(0);
  for (int column = 1; column <= PassColumnCount; ++column) {
    const int width = PixelsOf(PassColumnOf(column).width);
    heads->resizeSection(column - 1, width);
    heads->setSectionHidden(column - 1, width == 0);
  }
}

void PassTable::Choose(int row) {
  setCurrentIndex(model()->index(row, 0));
  scrollTo(currentIndex());
}

void PassTable::paintEvent(QPaintEvent* event) {
  QTreeView::paintEvent(event);
  if (model()->rowCount() > 0) return;
  QPainter painter(viewport());
  painter.setPen(palette().color(MutedRole));
  painter.drawText(viewport()->rect().adjusted(6, 4, -6, -4), Qt::AlignLeft | Qt::AlignTop | Qt::TextWordWrap,
                   hint_);
}

void PassTable::contextMenuEvent(QContextMenuEvent* event) {
  event->accept();
  if (event->reason() == QContextMenuEvent::Keyboard) Q_EMIT RightReleased();
}

void PassTable::mouseReleaseEvent(QMouseEvent* event) {
  QTreeView::mouseReleaseEvent(event);
  if (event->button() == Qt::RightButton) Q_EMIT RightReleased();
}

}  // namespace halvorine
