// The choice of the radio channel for a row of the live panel: the ten channels of its satellite.
#pragma once

#include <QDialog>
#include <QListWidget>

namespace halvorine {

class frmChannel : public QDialog {
  Q_OBJECT
 public:
  /// `slot` is that of the active satellite; SubscriptFailure for one that does not exist. `panelRow` counts
  /// from 0, as the rows of the panel do; SubscriptFailure outside 0 to 9.
  frmChannel(int slot, int panelRow, QWidget* parent = nullptr);

  /// The channel of the panel's row, 1 to 10; after an accepted dialog the one that was chosen.
  int Channel() const;

 private:
  QLayout* MakeButtons();
  void cmdOK_Click();

  int panelRow_;
  QListWidget* List1_;
};

}  // namespace halvorine
