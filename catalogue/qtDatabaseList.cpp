#include "catalogue/qtDatabaseList.h"

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

void RowList::paintEvent(QPaintEvent* event) {
  QListView::paintEvent(event);
  if (RowCount() > 0 || hint_.isEmpty()) return;
  QPainter painter(viewport());
  painter.setPen(palette().color(MutedRole));
  painter.drawText(viewport()->rect().adjusted(3, 4, -3, -4), Qt::AlignLeft | Qt::AlignTop | Qt::TextWordWrap,
                   hint_);
}

bool RowList::viewportEvent(QEvent* event) {
  if (event->type() != QEvent::ToolTip) return QListView::viewportEvent(event);
  const QPoint at = static_cast<QHelpEvent*>(event)->pos();
  const QModelIndex index = indexAt(at);
  const bool cut = index.isValid() && sizeHintForIndex(index).width() > visualRect(index).width();
  if (cut)
    QToolTip::showText(viewport()->mapToGlobal(at), index.data().toString(), viewport());
  else
    QToolTip::hideText();
  return true;
}

}  // namespace halvorine
