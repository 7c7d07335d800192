// Controls that only the options dialog has: an area that shows a colour, and rows of text that are edited in
// their place.
#pragma once

#include <QAbstractListModel>
#include <QLabel>
#include <QStringList>
#include <QTreeView>
#include <cstdint>
#include <string>
#include <vector>

#include "controls/qtAccessible.h"

namespace halvorine {

/// Shows a colour; a click, or space, opens the colour dialog.
class ColourArea : public QLabel, public ValueTeller {
  Q_OBJECT
 public:
  explicit ColourArea(const QString& name);

  std::int32_t Colour() const { return colour_; }
  void SetColour(std::int32_t colour);

  QAccessible::Role Role() const override { return QAccessible::ColorChooser; }
  /// The colour as "#rrggbb".
  ToldValue Told() const override;
  QSize sizeHint() const override { return {64, 22}; }
  QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void Choose();
  std::int32_t colour_ = 0;
};

/// Rows of text in an order; they are shown with their number and edited without it.
class RowsModel : public QAbstractListModel {
  Q_OBJECT
 public:
  using QAbstractListModel::QAbstractListModel;

  QStringList Rows() const { return rows_; }
  void SetRows(const QStringList& rows);
  /// Swaps a row with the one after it.
  void Swap(int row);
  void Remove(int row);

  int rowCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  bool setData(const QModelIndex& index, const QVariant& value, int role) override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;

 private:
  QStringList rows_;
};

/// The view of such rows: one is chosen at a time, a double click or F2 edits it.
class RowsView : public QTreeView {
  Q_OBJECT
 public:
  RowsView();
  RowsModel& Model() { return *model_; }
  void SetRows(const std::vector<std::string>& rows);
  /// The rows in their order, at most `count`, and empty texts up to that.
  std::vector<std::string> Rows(std::size_t count) const;
  /// The chosen row, -1 for none.
  int Chosen() const;
  void RemoveChosen();
  /// Swaps the chosen row, which stays chosen, with its neighbour above (-1) or below (1), where there is
  /// one.
  void MoveChosen(int way);

 private:
  void Choose(int row);
  RowsModel* model_;
};

}  // namespace halvorine
