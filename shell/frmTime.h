// frmTime: the four clocks, the Julian day and the day of the year, and the switch between real time and
// simulation. The tick reads that switch, so that the window lives, hidden, as long as the program.
#pragma once

#include <QCheckBox>
#include <QDateTimeEdit>
#include <QLabel>
#include <QLayout>

#include "controls/AnalogClock.h"
#include "controls/GraphButton.h"
#include "shell/base/qtForms.h"
#include "shell/mTime.h"

namespace halvorine {

class frmTime : public ChildForm, public TimeCalls {
 public:
  frmTime();
  void Unload() override { UnloadForm(); }
  void Show() override;
  bool UsesComputerClock() const override { return chkUsaOraPc_->isChecked(); }
  void SetUsesComputerClock(bool on) override { chkUsaOraPc_->setChecked(on); }
  void Aggiorna_dati() override;

 protected:
  bool CloseUnloads() const override { return false; }
  void BeforeUnload() override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  QWidget* MakeTimes();
  QWidget* MakeDates();
  QWidget* MakeSettings();
  QLayout* MakeLastRow();
  GraphButton* MakeButton(const char* name, const char* section, const char* key);
  void Connect();
  void ShowState(TimeState state);
  void ShowInstant(Date date);
  void chkUsaOraPc_Click(bool on);
  void DTPicker1_Change();
  void cmdPlay_Click();
  void cmdStop_Click();

  QCheckBox* chkUsaOraPc_;
  QDateTimeEdit* DTPicker1_;
  GraphButton *cmdPlay_, *cmdStop_;
  QLabel *lblStato_, *lblOraInizioSimulazione_;
  QLabel *lblLOCALTIME_, *lblLOCALDATE_, *lblLOCALYear_, *lblUTTIME_, *lblUTDATE_, *lblUTCYear_, *lblLST_,
      *lblGST_, *lblJD_;
  AnalogClock* AnalogClock1_;
};

}  // namespace halvorine
