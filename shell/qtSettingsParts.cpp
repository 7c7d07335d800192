#include "shell/qtSettingsParts.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPointer>
#include <QStyleOption>
#include <algorithm>

#include "controls/qtLookStyle.h"
#include "shell/base/mPlatform.h"
#include "shell/base/qtForms.h"

namespace halvorine {

ColourArea::ColourArea(const QString& name) {
  AnnounceTellers();
  setAccessibleName(name);
  setFocusPolicy(Qt::StrongFocus);
  setCursor(Qt::PointingHandCursor);
  setFixedSize(ColourArea::sizeHint());
}

void ColourArea::SetColour(std::int32_t colour) {
  colour_ = colour;
  setToolTip(Told().text);
  TellValueChanged(this);
  update();
}

ToldValue ColourArea::Told() const { return {ColourOf(colour_).name()}; }

void ColourArea::Choose() {
  const QPointer<ColourArea> self(this);
  const std::optional<std::int32_t> chosen = ThePlatform().ChooseColour(FromQ(accessibleName()), colour_);
  if (self && chosen) SetColour(*chosen);
}

void ColourArea::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  QStyleOption option;
  option.initFrom(this);
  const LookColours colours = ColoursOf(palette());
  const bool focused = Has(option, QStyle::State_HasFocus) && Has(option, QStyle::State_KeyboardFocusChange);
  DrawBox(&painter, rect(), ColourOf(colour_), focused ? colours.FocusEdge : colours.FieldEdge,
          focused ? 2.4 : 1);
}

void ColourArea::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton && rect().contains(event->pos())) Choose();
}

void ColourArea::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Space)
    Choose();
  else
    QLabel::keyPressEvent(event);
}

void RowsModel::SetRows(const QStringList& rows) {
  beginResetModel();
  rows_ = rows;
  endResetModel();
}

void RowsModel::Swap(int row) {
  rows_.swapItemsAt(row, row + 1);
  Q_EMIT dataChanged(index(row), index(row + 1));
}

void RowsModel::Remove(int row) {
  beginRemoveRows({}, row, row);
  rows_.removeAt(row);
  endRemoveRows();
  if (row < rows_.size()) Q_EMIT dataChanged(index(row), index(rowCount() - 1));
}

int RowsModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

QVariant RowsModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid() || index.row() >= rowCount()) return {};
  const QString text = rows_.at(index.row());
  if (role == Qt::EditRole) return text;
  // blanks as wide as a digit keep the texts below each other
  if (role == Qt::DisplayRole)
    return QString::number(index.row() + 1).rightJustified(2, QChar(0x2007)) + QStringLiteral("   ") + text;
  return {};
}

bool RowsModel::setData(const QModelIndex& index, const QVariant& value, int role) {
  if (role != Qt::EditRole || !index.isValid()) return false;
  rows_[index.row()] = value.toString().trimmed();
  Q_EMIT dataChanged(index, index);
  return true;
}

Qt::ItemFlags RowsModel::flags(const QModelIndex& index) const {
  return QAbstractListModel::flags(index) | Qt::ItemIsEditable;
}

RowsView::RowsView() : model_(new RowsModel(this)) {
  setModel(model_);
  setRootIsDecorated(false);
  setHeaderHidden(true);
  setUniformRowHeights(true);
  setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed);
}

void RowsView::SetRows(const std::vector<std::string>& rows) {
  QStringList texts;
  for (const std::string& row : rows) texts << ToQ(row);
  model_->SetRows(texts);
}

std::vector<std::string> RowsView::Rows(std::size_t count) const {
  std::vector<std::string> rows;
  for (const QString& row : model_->Rows()) rows.push_back(FromQ(row));
  rows.resize(count);
  return rows;
}

int RowsView::Chosen() const {
  const QModelIndexList chosen = selectionModel()->selectedIndexes();
  return chosen.isEmpty() ? -1 : chosen.first().row();
}

void RowsView::Choose(int row) { setCurrentIndex(model_->index(row)); }

void RowsView::RemoveChosen() {
  const int row = Chosen();
  if (row < 0) return;
  model_->Remove(row);
  if (model_->rowCount() > 0) Choose(std::min(row, model_->rowCount() - 1));
}

void RowsView::MoveChosen(int way) {
  const int row = Chosen();
  const int other = row + way;
  if (row < 0 || other < 0 || other >= model_->rowCount()) return;
  model_->Swap(std::min(row, other));
  Choose(other);
}

}  // namespace halvorine
