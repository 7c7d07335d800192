// The window of tables: List1 shows rows of fixed-width text, ListView1 in its place the summary of an
// element file or a database. The table stays until the next use of the window.
#pragma once

#include <QAbstractListModel>
#include <QAbstractTableModel>
#include <QTreeView>
#include <functional>
#include <string>

#include "catalogue/mElementFile.h"
#include "catalogue/qtDatabaseList.h"
#include "shell/base/qtForms.h"

namespace halvorine {

/// The summary as the list shows it.
class SummaryModel : public QAbstractTableModel {
  Q_OBJECT
 public:
  using QAbstractTableModel::QAbstractTableModel;
  void SetTable(SummaryTable table);
  void SortBy(int column);
  const SummaryTable& Table() const { return table_; }
  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

 private:
  SummaryTable table_;
};

/// Rows of text of one width, that of the widest and at least the agreed one.
class TextRows : public QAbstractListModel {
  Q_OBJECT
 public:
  explicit TextRows(QObject* parent);
  void Clear();
  void Append(const QString& row);
  /// Rows that are made when they are looked at.
  void SetSource(int count, std::function<std::string(int)> source);
  QStringList Rows() const;
  int rowCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;

 private:
  QString RowAt(int row) const;
  void WidenFor(const QString& row);
  QStringList rows_;
  std::function<std::string(int)> source_;
  int sourceCount_ = 0;
  int width_;
};

class frmDetails : public ChildForm, public DetailsCalls, public SaveCalls, public PrintCalls {
  Q_OBJECT
 public:
  frmDetails();

  void Unload() override { UnloadForm(); }
  void Show() override { ShowForm(); }
  void LeggiDiretto(const std::string& path) override;
  void Leggi(const std::string& path) override;
  void Sommario(int index) override;
  void BeginRows(const std::string& title) override;
  void AddRow(const std::string& row) override;
  void ShowRows(const std::string& title, int count, std::function<std::string(int)> row) override;
  /// Writes what is shown, a line for each row, to a file that is asked for.
  void Salva() override;
  void Stampa() override;

 private:
  void ShowSummary(SummaryTable table, const QString& title);
  void Summarise(const SatelliteDatabase& database, const QString& title);
  void SizeColumns();
  QStringList ShownRows() const;

  QTreeView* ListView1_;
  RowList* List1_;
  SummaryModel* summary_;
  TextRows* rows_;
};

}  // namespace halvorine
