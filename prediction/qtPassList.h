// The table of passes: a model over the list of the engine, whose texts are made when they are painted, and a
// view with a hint while it is empty.
#pragma once

#include <QAbstractTableModel>
#include <QContextMenuEvent>
#include <QMouseEvent>
#include <QTreeView>

#include "prediction/mPassList.h"

namespace halvorine {

/// Nine columns, of which the window hides the last two; UserRole gives the tag of a row.
class PassModel : public QAbstractTableModel {
  Q_OBJECT
 public:
  using QAbstractTableModel::QAbstractTableModel;
  void SetList(PassList list);
  void SortBy(int heading, PassSort& last);
  const PassList& List() const { return list_; }
  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int column, Qt::Orientation orientation, int role) const override;

 private:
  PassList list_;
};

class PassTable : public QTreeView {
  Q_OBJECT
 public:
  explicit PassTable(PassModel* model);
  /// Shown while there are no rows.
  void SetHint(const QString& hint) { hint_ = hint; }
  /// Makes a row the chosen one, in sight.
  void Choose(int row);

 Q_SIGNALS:
  void RightReleased();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;

 private:
  QString hint_;
};

}  // namespace halvorine
