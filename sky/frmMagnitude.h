// frmMagnitude: the choice of the limiting magnitude of a sky chart.
#pragma once

#include <QComboBox>
#include <QLabel>
#include <string>

#include "shell/base/qtForms.h"

namespace halvorine {

class frmMagnitude : public ModalForm, public MagnitudeCalls {
  Q_OBJECT
 public:
  frmMagnitude();
  void Unload() override { UnloadForm(); }
  void Show() override { ShowForm(); }
  void ShowFor(std::string_view tag) override;

 private:
  /// The chart in question, or null where it has been closed.
  StarCountCalls* Chart() const;
  void cmbMagnitudine_Click();
  void cmdOK_Click();

  QComboBox* cmbMagnitudine_;
  QLabel* lblNumeroStelle_;
  std::string chart_;  // name of its window
};

}  // namespace halvorine
