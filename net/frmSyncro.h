// frmSyncro: sets the computer's clock from a time server.
#pragma once

#include <string>

#include "net/qtNetDialog.h"
#include "shell/base/mPlatform.h"

namespace halvorine {

class frmSyncro : public NetDialog {
 public:
  frmSyncro();

 protected:
  void cmdOK_Click() override;
  void cmdCancel_Click() override { Leave(); }
  void Leave() override { Unload(); }

 private:
  void Winsock1_DataArrival(const QByteArray& bytes);
  void Winsock1_Close();
  void Winsock1_Error();
  /// Shows why nothing was set; the user may try again.
  void GiveUp(const std::string& status);
  void ClockAnswered(const ClockAnswer& answer, const std::string& offset);

  std::string ReplyBuffer_;
  float RoundTrip_ = 0;  // TimerSeconds at the connection, then half the seconds to the close
  QComboBox* cmbURL_;
};

}  // namespace halvorine
