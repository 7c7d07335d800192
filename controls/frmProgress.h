// The small window of long operations: what is being done, how far it is, and a way out. It is not waited
// for; whoever does the work loads it, sets its value while it yields, and unloads it at the end.
#pragma once

#include <QDialog>
#include <QLabel>

#include "controls/ProgressBar.h"
#include "shell/base/mForms.h"

namespace halvorine {

class frmProgress : public QDialog, public ProgressCalls {
  Q_OBJECT
 public:
  frmProgress();
  ~frmProgress() override;

  /// Shows the window over the main window with a task, the bar at 0 of `maximum`.
  void Begin(const std::string& task, double maximum) override;
  void SetTask(const std::string& task) override;
  void SetValue(double value) override;
  void Unload() override;
  void Show() override;

  /// Escape asks for the end of the work, as Cancel does; the window stays until the work has ended.
  void reject() override;

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  void ReadCaptions();
  QLabel* lblTask_;
  ProgressBar* bar_;
  bool unloaded_ = false;
};

}  // namespace halvorine
