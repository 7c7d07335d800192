// frmSatellite: everything about one element set, an active one or one of a database. It is not live.
#pragma once

#include <QLabel>
#include <QLayout>

#include "prediction/mElementTexts.h"
#include "shell/base/qtForms.h"

namespace halvorine {

class frmSatellite : public ModalForm, public SatelliteCalls {
  Q_OBJECT
 public:
  frmSatellite();
  void Unload() override { UnloadForm(); }
  void Show() override { ShowSlot(1); }
  void ShowSlot(int slot) override;

 private:
  QLayout* MakeHeading();
  QWidget* MakeLines();
  void Move(TrackMove move);
  void Fill();

  QLabel* lblSatellite_;
  int slot_ = 0;
};

}  // namespace halvorine
