// What the two windows of the network share: a modal dialog with an editable list of addresses, the check of
// the connection with its key in the store, a status of some lines, and the last row of buttons.
#pragma once

#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QLabel>
#include <QLayout>
#include <string>

#include "controls/GraphButton.h"
#include "net/qtTransfer.h"
#include "shell/base/mForms.h"

namespace halvorine {

class NetDialog : public QDialog, public FormCalls {
 public:
  ~NetDialog() override;
  void Unload() override;
  void Show() override;
  /// Escape is a click on cmdCancel.
  void reject() override { cmdCancel_Click(); }

 protected:
  /// `settings` is the section of the store that keeps the check; `lines` the room for the status.
  NetDialog(const char* name, const char* settings, const char* socketName, int lines);

  QComboBox* MakeList(const char* name, const QString& caption);
  QLayout* MakeLastRow(const QString& ok, int helpTopic);
  /// Entries of the list that are not empty, the first one chosen.
  static void FillList(QComboBox* list, const std::string* first, std::size_t count);

  /// False, with a status, where the connection is to be checked and the computer says that there is none.
  bool MayConnect();
  /// Lines of a status. One with a word wider than the window is cut in the middle.
  void SetStatus(const std::string& text);
  void SetCancelCaption(const char* key);
  virtual void cmdOK_Click() = 0;
  virtual void cmdCancel_Click() = 0;
  /// Ends what still runs, before the user's close of the window takes effect.
  virtual void Leave() = 0;
  void closeEvent(QCloseEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

  TcpTransfer* socket_;
  QCheckBox* chkConnessione_;
  QLabel* lblStatus_;
  GraphButton *cmdOK_ = nullptr, *cmdCancel_ = nullptr;

 private:
  void KeepCheck(bool on);
  void ShowStatus();
  std::string section_, settings_, status_;
  bool unloaded_ = false;
};

}  // namespace halvorine
