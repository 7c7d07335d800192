// The lists of the catalogue window: models over the rows of the engine, and a list view with a hint while it
// is empty. A model takes all its rows at once, so that thirty thousand of them cost one layout.
#pragma once

#include <QAbstractListModel>
#include <QListView>
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
class RowList : public QListView {
  Q_OBJECT
 public:
  explicit RowList(QWidget* parent = nullptr);
  /// Shown while there are no rows.
  void SetHint(const QString& hint) { hint_ = hint; }
  int RowCount() const;
  /// Selected rows in list order.
  std::vector<int> SelectedRows() const;
  int SelectedCount() const;
  /// Selects only one row and makes it the current one; none for a row that does not exist.
  void SelectOnly(int row);

 protected:
  void paintEvent(QPaintEvent* event) override;
  bool viewportEvent(QEvent* event) override;

 private:
  QString hint_;
};

}  // namespace halvorine
