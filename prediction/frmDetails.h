// The window of tables: List1 shows rows of fixed-width text, ListView1 in its place the summary of an
// element file or a database. The table stays until the next use of the window.
#pragma once

#include <QAbstractListModel>
#include <QAbstractTableModel>
#include <QTreeView>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "catalogue/mElementFile.h"
#include "catalogue/qtDatabaseList.h"
#include "prediction/mTable.h"
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
  /// Tells that there are more such rows now.
  void Grow(int count);
  std::string Row(int row) const;
  int rowCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;

 private:
  QString RowAt(int row) const;
  void WidenFor(const QString& row);
  void Measure(int first);
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
  void Show() override {
    ShowForm();
    setFocus();  // the list that is shown now
  }
  void LeggiDiretto(const std::string& path) override;
  void Leggi(const std::string& path) override;
  void Sommario(int index) override;
  void BeginRows(const std::string& title) override;
  void AddRow(const std::string& row) override;
  void ShowRows(const std::string& title, int count, std::function<std::string(int)> row) override;
  void Genera_elenco(int slot, Date start, Date end, double& step, int code) override;
  void Genera_relativo(Date start, Date end, double step, int code) override;
  void SetOnlyAboveHorizon(bool on) override { onlyAboveHorizon_ = on; }
  /// Writes what is shown to a file that is asked for: lines of text or, by its ending, CSV. Rows of List1
  /// end with a line that names the place and the zone in force when they were made.
  void Salva() override;
  void Stampa() override;

 private:
  void ShowSummary(SummaryTable table, const QString& title);
  void Summarise(const SatelliteDatabase& database, const QString& title);
  void SizeColumns();
  /// Shows a table that grows while it is made.
  void ShowTable(const std::string& title, const std::string& name, Date start,
                 const std::function<TableOutcome(TextTable&, const TableGrowth&)>& make);
  bool ShowsSummary() const { return !ListView1_->isHidden(); }
  int ShownCount() const;
  std::vector<std::string> ShownLines() const;
  std::string ShownAsCsv() const;

  QTreeView* ListView1_;
  RowList* List1_;
  SummaryModel* summary_;
  TextRows* rows_;
  std::shared_ptr<const TextTable> table_;  // what the rows are made from, where they are a table
  std::string placeAndZone_;
  bool onlyAboveHorizon_ = false;
};

}  // namespace halvorine
