// The catalogue window: a tab with list, sort key, commands and statistics for each of the two databases, and
// the list of the active satellites beside them. Closing it only hides it.
#pragma once

#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QTabWidget>
#include <array>

#include "catalogue/qtDatabaseList.h"
#include "controls/GraphButton.h"
#include "shell/base/qtForms.h"

namespace halvorine {

class frmDatabase : public ChildForm, public DatabaseCalls {
  Q_OBJECT
 public:
  frmDatabase();

  void Unload() override { UnloadForm(); }
  void Show() override { ShowForm(); }
  void ReadBegins(int index) override;
  void ReadEnded(int index) override;
  void SelectActive(int position) override;
  void RemoveSelected() override { cmdRemove_Click(); }
  void ActiveListChanged() override;
  void WarnOfOldElements(bool old) override;

 protected:
  bool CloseUnloads() const override { return false; }
  void keyPressEvent(QKeyEvent* event) override;

 private:
  /// The controls of one tab.
  struct Tab {
    RowList* list = nullptr;
    DatabaseModel* model = nullptr;
    QComboBox* sort = nullptr;
    GraphButton *add = nullptr, *remove = nullptr, *visible = nullptr;
    QLabel *loaded = nullptr, *oldest = nullptr, *newest = nullptr, *mean = nullptr, *magnitudes = nullptr,
           *selected = nullptr;
    QGroupBox* frame = nullptr;
  };

  QWidget* MakePage(int index);
  QWidget* MakeList(int index);
  QWidget* MakeStatistics(int index);
  QWidget* MakeActive();
  QLayout* MakeActiveCommands();
  GraphButton* MakeButton(const char* name, int index, const char* section, const char* key,
                          const char* icon);
  void Connect(int index);
  /// Reading order, each column of commands after its list.
  void OrderTabs();

  void ShowRows(int index);
  void ShowStatistics(int index);
  void ShowActive();
  void SelectionChanged(int index);

  void cmbOrdina_Click(int index);
  void cmdAdd_Click(int index);
  void cmdRemove_Click();
  void cmdSommario_Click(int index);
  void cmdVisibili_Click(int index);
  void lstDatabase_DblClick(int index);
  void lstActive_DblClick();
  /// The ghost of the dragged row follows the pointer.
  void DragMoved(int index, QPoint at);
  void DragEnded(int index);
  void Drop(QPoint at);
  bool IsOverActive(QPoint at) const;
  void Move(ActiveMove move);

  Tab& TabOf(int index) { return tabs_.at(static_cast<std::size_t>(index)); }

  std::array<Tab, 2> tabs_;
  QTabWidget* pages_;
  RowList* active_ = nullptr;
  ActiveModel* activeModel_ = nullptr;
  QLabel* activeCount_ = nullptr;
  QLabel *ghost_ = nullptr, *oldElements_ = nullptr;
  QWidget* focusBeforeRead_ = nullptr;
};

}  // namespace halvorine
