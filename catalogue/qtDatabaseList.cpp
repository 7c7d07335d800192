#include "catalogue/qtDatabaseList.h"

#include <QApplication>
#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>
#include <algorithm>
#include <utility>

#include "controls/qtIcons.h"
#include "controls/qtLook.h"
#include "shell/base/qtForms.h"

namespace halvorine {

namespace {

constexpr int pictureSize = 16;  // logical pixels

}  // namespace

DatabaseModel::DatabaseModel(QObject* parent)
    : QAbstractListModel(parent), rows_(std::make_shared<const CatalogueRows>()) {}

void DatabaseModel::SetRows(std::shared_ptr<const CatalogueRows> rows) {
  beginResetModel();
  rows_ = std::move(rows);
  endResetModel();
}

int DatabaseModel::rowCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : rows_->Count(); }

QVariant DatabaseModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid() || index.row() >= rows_->Count()) return {};
  if (role == Qt::DisplayRole) return ToQ(rows_->Text(index.row()));
  if (role == Qt::UserRole) return rows_->Number(index.row());
  return {};
}

ActiveModel::ActiveModel(QObject* parent)
    : QAbstractListModel(parent), star_(Icon("b_main")), noStar_(pictureSize, pictureSize) {
  noStar_.fill(Qt::transparent);
}

void ActiveModel::SetRows(const std::vector<std::string>& rows) {
  beginResetModel();
  rows_.clear();
  for (const std::string& row : rows) rows_.push_back(ToQ(row));
  endResetModel();
}

int ActiveModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

QVariant ActiveModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid() || index.row() >= rows_.size()) return {};
  if (role == Qt::DisplayRole) return rows_[index.row()];
  // the other rows keep the place of the star, so that all names begin below each other
  if (role == Qt::DecorationRole) return index.row() == 0 ? QVariant(star_) : QVariant(QIcon(noStar_));
  return {};
}

RowList::RowList(QWidget* parent) : QListView(parent) {
  setSelectionMode(ExtendedSelection);
  setEditTriggers(NoEditTriggers);
  setUniformItemSizes(true);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setTextElideMode(Qt::ElideRight);
  setIconSize({pictureSize, pictureSize});
}

int RowList::RowCount() const { return model() == nullptr ? 0 : model()->rowCount(); }

std::vector<int> RowList::SelectedRows() const {
  std::vector<int> rows;
  // by ranges: thirty thousand single indexes would cost far more
  for (const QItemSelectionRange& range : selectionModel()->selection())
    for (int row = range.top(); row <= range.bottom(); ++row) rows.push_back(row);
  std::sort(rows.begin(), rows.end());
  return rows;
}

int RowList::SelectedCount() const {
  int count = 0;
  for (const QItemSelectionRange& range : selectionModel()->selection()) count += range.height();
  return count;
}

void RowList::SelectOnly(int row) {
  selectionModel()->clear();
  if (row >= 0 && row < RowCount())
    selectionModel()->setCurrentIndex(model()->index(row, 0), QItemSelectionModel::ClearAndSelect);
}

void RowList::SelectRows(const std::vector<int>& rows) {
  QItemSelection selection;
  for (std::size_t first = 0, last = 0; first < rows.size(); first = last + 1) {
    last = first;
    while (last + 1 < rows.size() && rows[last + 1] == rows[last] + 1) ++last;
    selection.append(QItemSelectionRange(model()->index(rows[first], 0), model()->index(rows[last], 0)));
  }
  // emptied first: the view compares every old range with every new one
  selectionModel()->clearSelection();
  selectionModel()->select(selection, QItemSelectionModel::Select);
}

void RowList::MakeCurrent(int row) {
  if (row < 0 || row >= RowCount()) return;
  const QModelIndex index = model()->index(row, 0);
  selectionModel()->setCurrentIndex(index, QItemSelectionModel::NoUpdate);
  scrollTo(index);
}

void RowList::paintEvent(QPaintEvent* event) {
  QListView::paintEvent(event);
  if (RowCount() > 0 || hint_.isEmpty()) return;
  QPainter painter(viewport());
  painter.setFont(LookFont());  // the rows may have another one
  painter.setPen(palette().color(MutedRole));
  painter.drawText(viewport()->rect().adjusted(3, 4, -3, -4), Qt::AlignLeft | Qt::AlignTop | Qt::TextWordWrap,
                   hint_);
}

bool RowList::viewportEvent(QEvent* event) {
  if (event->type() != QEvent::ToolTip) return QListView::viewportEvent(event);
  const QPoint at = static_cast<QHelpEvent*>(event)->pos();
  const QModelIndex index = indexAt(at);
  const bool cut = index.isValid() && sizeHintForIndex(index).width() > visualRect(index).width();
  QStringList lines;
  if (cut) lines << index.data().toString();
  if (index.isValid() && !tip_.isEmpty()) lines << tip_;
  if (lines.isEmpty())
    QToolTip::hideText();
  else
    QToolTip::showText(viewport()->mapToGlobal(at), lines.join(QLatin1Char('\n')), viewport());
  return true;
}

void RowList::mousePressEvent(QMouseEvent* event) {
  CancelDrag();  // by another button
  if (drag_ == Drag::Cancelled && event->button() != Qt::LeftButton) return;
  QListView::mousePressEvent(event);
  const bool onRow = indexAt(event->position().toPoint()).isValid();
  drag_ = draggable_ && event->button() == Qt::LeftButton && onRow ? Drag::Pressed : Drag::None;
  pressedAt_ = event->position().toPoint();
}

void RowList::mouseMoveEvent(QMouseEvent* event) {
  if (drag_ == Drag::None) {
    QListView::mouseMoveEvent(event);
    return;
  }
  const int way = (event->position().toPoint() - pressedAt_).manhattanLength();
  if (drag_ == Drag::Pressed && way >= QApplication::startDragDistance()) drag_ = Drag::Moving;
  if (drag_ == Drag::Moving) Q_EMIT DragMoved(event->globalPosition().toPoint());
}

void RowList::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton && drag_ != Drag::None) return;
  const Drag ended = std::exchange(drag_, Drag::None);
  // the view would take a release outside the list for a click beside the rows
  if (ended == Drag::None || ended == Drag::Pressed) QListView::mouseReleaseEvent(event);
  if (ended != Drag::Moving) return;
  Q_EMIT DragEnded();
  Q_EMIT DragDropped(event->globalPosition().toPoint());
}

void RowList::mouseDoubleClickEvent(QMouseEvent* event) {
  QListView::mouseDoubleClickEvent(event);
  if (event->button() == Qt::LeftButton) Q_EMIT RowDoubleClicked();
}

void RowList::CancelDrag() {
  if (drag_ == Drag::Pressed) drag_ = Drag::Cancelled;
  if (drag_ != Drag::Moving) return;
  drag_ = Drag::Cancelled;
  Q_EMIT DragEnded();
}

void RowList::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape && drag_ == Drag::Moving)
    CancelDrag();
  else if (event->modifiers().testFlag(Qt::AltModifier) &&
           (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter))
    Q_EMIT RowDoubleClicked();
  else
    QListView::keyPressEvent(event);
}

void RowList::hideEvent(QHideEvent* event) {
  CancelDrag();
  QListView::hideEvent(event);
}

void RowList::changeEvent(QEvent* event) {
  if (event->type() == QEvent::EnabledChange) CancelDrag();
  QListView::changeEvent(event);
}

}  // namespace halvorine
