// The dialog that asks for a table of one satellite. A press of the right button on its body leaves out, from
// then on, what is not above the horizon.
#pragma once

#include <QContextMenuEvent>
#include <QMouseEvent>
#include <QTabWidget>
#include <array>

#include "prediction/qtTableForm.h"

namespace halvorine {

class frmCalc : public TableForm, public FormCalls {
  Q_OBJECT
 public:
  frmCalc();
  void Unload() override { UnloadForm(); }
  void Show() override;

 protected:
  void cmdOK_Click() override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;

 private:
  QTabWidget* pages_;
  std::array<EntryList, 2> lists_;
  bool onlyAboveHorizon_ = false;
};

}  // namespace halvorine
