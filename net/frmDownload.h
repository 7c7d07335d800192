// frmDownload: fetches one element file from a web server to a file that the user chooses.
#pragma once

#include <QTimer>
#include <memory>

#include "controls/ProgressBar.h"
#include "net/mDownload.h"
#include "net/qtNetDialog.h"

namespace halvorine {

class frmDownload : public NetDialog {
 public:
  frmDownload();
  ~frmDownload() override;
  void Unload() override;

 protected:
  void cmdOK_Click() override;
  void cmdCancel_Click() override;
  void Leave() override;

 private:
  QWidget* MakeValues();
  void Connect();
  /// Asks where to save; false where the user cancels or what stands there cannot be kept.
  bool ChooseTarget(const std::string& entry);
  void Begin();
  /// Back to the state in which a transfer can begin; the file is closed, and what was there before comes
  /// back unless it was written.
  void End();
  void Interrupt();
  void ShowCounts();
  void cmdDownload_Click();
  void wscHTTP_Connect();
  void wscHTTP_DataArrival(const QByteArray& bytes);
  void wscHTTP_Close();
  /// Nothing more is awaited: the answer is taken where it is whole, otherwise the transfer is given up.
  void wscHTTP_Silence();
  void wscHTTP_Error(int number, const QString& description, bool certificate);
  void tmrTimeLeft_Timer();

  RemoteAddress address_;
  HttpTransfer transfer_;
  std::unique_ptr<TransferFile> file_;  // while a transfer runs
  bool finished_ = false;               // a file has been written
  QComboBox* cmbFileRemoto_;
  GraphButton* cmdDownload_;
  ProgressBar* ProgressBar1_;
  QTimer* tmrTimeLeft_;
  QLabel *lblSize_ = nullptr, *lblReceive_ = nullptr, *lblSpeed_ = nullptr, *lblElapsed_ = nullptr,
         *lblRemaining_ = nullptr;
};

}  // namespace halvorine
