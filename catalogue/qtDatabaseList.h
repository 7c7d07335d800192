// The lists of the catalogue window: models over the rows of the engine, and a list view with a hint while it
// is empty. A model takes all its rows at once, so that thirty thousand of them cost one layout.
#pragma once

#include <QAbstractListModel>
#include <QKeyEvent>
#include <QListView>
#include <QMouseEvent>
#include <QPixmap>
#include <memory>
#include <string>
#include <vector>

#include "catalogue/mCatalogue.h"

namespace halvorine {

/// Rows of a database; UserRole gives the number of the entry.
class DatabaseModel : public QAbstractListModel {
  Q_OBJECT
 public:
  explicit DatabaseModel(QObject* parent);
  void SetRows(std::shared_ptr<const CatalogueRows> rows);
  int rowCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  /// Number of the entry of a row.
  int Number(int row) const { return rows_->Number(row); }

 private:
  std::shared_ptr<const CatalogueRows> rows_;
};

/// Rows of the active satellites; the principal one bears a star.
class ActiveModel : public QAbstractListModel {
  Q_OBJECT
 public:
  explicit ActiveModel(QObject* parent);
  void SetRows(const std::vector<std::string>& rows);
  int rowCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;

 private:
  QStringList rows_;
  QIcon star_;
  QPixmap noStar_;
};

/// A list of one column with extended selection. Rows that are cut short show their whole text as tooltip.
/// Rows can be dragged out of it with the left button: the list tells where the pointer is, its window does
/// the rest.
class RowList : public QListView {
  Q_OBJECT
 public:
  explicit RowList(QWidget* parent = nullptr);
  /// Shown while there are no rows.
  void SetHint(const QString& hint) { hint_ = hint; }
  /// What a double click on a row does; tooltip of all rows.
  void SetTip(const QString& tip) { tip_ = tip; }
  /// Lets rows be dragged; moves with the button down then no longer extend the selection.
  void SetDraggable() { draggable_ = true; }
  int RowCount() const;
  /// Selected rows in list order.
  std::vector<int> SelectedRows() const;
  int SelectedCount() const;
  /// Selects only one row and makes it the current one; none for a row that does not exist.
  void SelectOnly(int row);
  /// Selects these rows, in ascending order, and no others. One step however many they are.
  void SelectRows(const std::vector<int>& rows);
  /// Makes a row the current one, in sight, without selecting it.
  void MakeCurrent(int row);
  /// Ends a drag without a drop.
  void CancelDrag();

 Q_SIGNALS:
  void RowDoubleClicked();
  /// The pointer during a drag, place of the screen; the first one begins it.
  void DragMoved(QPoint at);
  /// Every drag ends with this, before its drop if there is one.
  void DragEnded();
  void DragDropped(QPoint at);

 protected:
  void paintEvent(QPaintEvent* event) override;
  bool viewportEvent(QEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void hideEvent(QHideEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  /// A press on a row may become a drag; a cancelled one waits for the release.
  enum class Drag : std::uint8_t { None, Pressed, Moving, Cancelled };

  QString hint_, tip_;
  QPoint pressedAt_;
  Drag drag_ = Drag::None;
  bool draggable_ = false;
};

}  // namespace halvorine
