// frmVisibleSatellites: the passes of all satellites of the database, of the principal one or of the others,
// each in a tab with its choices, its list, and the report of the pass that is chosen there.
#pragma once

#include <QCheckBox>
#include <QComboBox>
#include <QDateTimeEdit>
#include <QLabel>
#include <QLayout>
#include <QMenuBar>
#include <QStandardItemModel>
#include <QTabWidget>
#include <array>
#include <optional>

#include "catalogue/qtDatabaseList.h"
#include "controls/GraphButton.h"
#include "prediction/mPassRun.h"
#include "prediction/qtPassList.h"
#include "shell/base/qtForms.h"

namespace halvorine {

class frmVisibleSatellites : public ChildForm, public FormCalls, public SaveCalls, public PrintCalls {
  Q_OBJECT
 public:
  frmVisibleSatellites();
  void Unload() override { UnloadForm(); }
  void Show() override;
  /// Saves or prints the report of the chosen pass, as the window's own menu does.
  void Salva() override { mnuSalva_Click(); }
  void Stampa() override { mnuStampa_Click(); }

 protected:
  void BeforeUnload() override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  /// The controls of one tab; those of other tabs alone are null.
  struct Tab {
    QDateTimeEdit* start = nullptr;
    QComboBox *duration = nullptr, *limit = nullptr;
    QCheckBox *am = nullptr, *pm = nullptr, *visible = nullptr, *noFilter = nullptr, *transit = nullptr;
    QLabel *filter = nullptr, *legend = nullptr;
    PassTreeView* passes = nullptr;
    PassModel* model = nullptr;
    RowList* report = nullptr;
    QStandardItemModel* rows = nullptr;
    GraphButton *compute = nullptr, *details = nullptr, *map = nullptr, *activate = nullptr;
  };
  /// The pass whose report is shown, by the dates that its rows tell.
  struct ChosenPass {
    int number = 0;
    Date selected = 0, rise = 0, culmination = 0, set = 0;
  };

  QWidget* MakePage(int index);
  QLayout* MakeSpan(int index);
  QLayout* MakeChecks(int index);
  QLayout* MakeLists(int index);
  QLayout* MakeCommands(int index);
  QCheckBox* MakeCheck(const char* name, int index, const QString& caption, const char* tipKey);
  GraphButton* MakeButton(const char* name, int index, const char* section, const char* key,
                          const char* icon);
  QMenuBar* MakeMenu();
  void Connect(int index);
  /// Reading order, the column of commands after the lists.
  void OrderTabs();

  PassRequest RequestOf(int index) const;
  void ShowFilter(int index);
  void HideLists(int index);
  void ShowLists(int index);
  void ShowReport(int index, int row);
  /// What is chosen in lstPass, its satellite in PassSlot; nothing where no row is current.
  std::optional<ChosenPass> lstPass_Click(int index);
  std::string ReportRow(int index, int row) const;
  std::vector<std::string> ReportLines(int index) const;

  void cmdOK_Click(int index);
  void lvwPass_ColumnClick(int index, int column);
  void lvwPass_RightClick(int index);
  void cmdDettagli_Click(int index);
  void cmdMappa_Click(int index);
  void cmdAttiva_Click();
  void mnuSalva_Click();
  void mnuSalvaElenco_Click();
  void mnuStampa_Click();
  void mnuAnteprima_Click();

  Tab& TabOf(int index) { return tabs_.at(static_cast<std::size_t>(index)); }
  const Tab& TabOf(int index) const { return tabs_.at(static_cast<std::size_t>(index)); }

  std::array<Tab, PassTabCount> tabs_;
  QTabWidget* pages_;
  PassSort sort_;
  bool running_ = false;
};

}  // namespace halvorine
