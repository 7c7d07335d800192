// frmTime: real time or simulation. The tick reads its switch, so that it lives, hidden, as long as the
// program.
#pragma once

#include <QCheckBox>

#include "shell/base/qtForms.h"

namespace halvorine {

class frmTime : public ChildForm, public TimeCalls {
 public:
  frmTime();
  void Unload() override { UnloadForm(); }
  void Show() override { ShowForm(); }
  bool UsesComputerClock() const override { return chkUsaOraPc_->isChecked(); }
  void SetUsesComputerClock(bool on) override { chkUsaOraPc_->setChecked(on); }
  void Aggiorna_dati() override {}

 protected:
  bool CloseUnloads() const override { return false; }

 private:
  QCheckBox* chkUsaOraPc_;
};

}  // namespace halvorine
