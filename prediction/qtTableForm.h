// What the two dialogs of tables have in common: lists of the entries of a database, the span and the step,
// the choice of coordinates, and the row of buttons. A dialog stays loaded, hidden, with what was chosen in
// it.
#pragma once

#include <QComboBox>
#include <QDateTimeEdit>
#include <QLabel>
#include <QLayout>
#include <QRadioButton>
#include <array>
#include <string>

#include "catalogue/qtDatabaseList.h"
#include "prediction/mTable.h"
#include "shell/base/qtForms.h"

namespace halvorine {

/// A list of the entries of one database, in their order.
class EntryList {
 public:
  /// The list itself, a control lstDatabase with an index, over the catalogue number of what is chosen: many
  /// satellites share their names.
  QLayout* Make(int index, const QString& accessibleName);
  /// Lists a database. What was chosen stays where its entry is still the same.
  void Fill(int database);
  int Database() const { return database_; }
  /// Number of the chosen entry; 0 where none is chosen or its database has been read anew.
  int Chosen() const;
  void SetFocus() { list_->setFocus(); }

 private:
  void ShowNumber();

  QLabel* lblNorad_ = nullptr;
  RowList* list_ = nullptr;
  DatabaseModel* model_ = nullptr;
  int database_ = Primary;
};

class TableForm : public ChildForm {
  Q_OBJECT
 protected:
  explicit TableForm(const char* name);

  /// Lays the window out: the pages with the lists at the left, all that both dialogs ask for at the right,
  /// and a note, if there is one, below both.
  void Compose(QWidget* pages, int helpTopic, QWidget* note = nullptr);
  virtual void cmdOK_Click() = 0;
  /// Start, end, step and code as they are chosen.
  TableRequest Request() const;
  QString Text(const char* key) const;

  void keyPressEvent(QKeyEvent* event) override;
  bool CloseUnloads() const override { return false; }

 private:
  QWidget* MakeSpan();
  QWidget* MakeCoordinates();
  QLayout* MakeLastRow(int helpTopic);
  QComboBox* MakeNumbers(const char* name, int chosen);
  QComboBox* MakeUnits(const char* name, std::initializer_list<const char*> keys, int chosen);
  void OrderTabs();

  std::string section_;
  QDateTimeEdit* DTPicker1_ = nullptr;
  QComboBox *cmbDurata_ = nullptr, *cmbTipoDurata_ = nullptr, *cmbIntervallo_ = nullptr,
            *cmbTipoIntervallo_ = nullptr;
  std::array<QRadioButton*, 4> codes_{};  // in the order of their codes
};

}  // namespace halvorine
