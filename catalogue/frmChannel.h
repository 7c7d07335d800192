// The choice of the radio channel for a row of the live panel: the ten channels of its satellite.
#pragma once

#include <QListWidget>

#include "shell/base/qtForms.h"

namespace halvorine {

class frmChannel : public ModalForm, public ChannelCalls {
  Q_OBJECT
 public:
  frmChannel();
  void Unload() override { UnloadForm(); }
  void Show() override { Choose(1, 0); }
  void Choose(int slot, int panelRow) override;

  /// Lists the channels of a slot for a row of the panel, counted from 0; SubscriptFailure for a slot or a
  /// row that does not exist.
  void Fill(int slot, int panelRow);
  /// The channel of the panel's row; after an accepted dialog the one that was chosen.
  int Channel() const;

 private:
  QLayout* MakeButtons();
  void cmdOK_Click();

  int panelRow_ = 0;
  QListWidget* List1_;
};

}  // namespace halvorine
