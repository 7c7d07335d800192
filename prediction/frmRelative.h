// The dialog that asks for a table of two satellites: A on one page, B on the other, each of either database.
#pragma once

#include <QComboBox>
#include <QTabWidget>
#include <array>

#include "prediction/qtTableForm.h"

namespace halvorine {

class frmRelative : public TableForm, public FormCalls {
  Q_OBJECT
 public:
  frmRelative();
  void Unload() override { UnloadForm(); }
  void Show() override;

 protected:
  void cmdOK_Click() override;

 private:
  QWidget* MakePage(int index);
  EntryList& ListOf(int index) { return lists_.at(static_cast<std::size_t>(index)); }

  QTabWidget* pages_;
  std::array<EntryList, 2> lists_;
};

}  // namespace halvorine
