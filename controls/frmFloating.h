// frmFloating: the live values of the principal satellite in a small window of its own above the main window,
// as opaque as its user wants it.
#pragma once

#include <QLabel>
#include <QLayout>
#include <QScrollBar>
#include <QWidget>

#include "controls/qtDataBox.h"
#include "shell/base/mForms.h"

namespace halvorine {

class frmFloating : public QWidget, public FloatingCalls {
  Q_OBJECT
 public:
  frmFloating();
  ~frmFloating() override;

  void Unload() override;
  void Show() override { SetShown(true); }
  void SetShown(bool shown) override;
  void ShowTexts(const LiveTexts& texts) override { fraSatellitePrincipale_->SetTexts(texts); }

 protected:
  void closeEvent(QCloseEvent* event) override;
  /// F1 is the panel's own and not the main window's.
  bool event(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  QLayout* MakeOpacity();
  static void OpenSatellite();
  void hscrTrasparenza_Change(int opacity);
  /// At the first showing: the upper right corner of the main window's work area.
  void Place();
  /// The values of the last tick, so that the panel of a stopped clock is not blank.
  void ShowLastTick();

  DataBox* fraSatellitePrincipale_;
  QScrollBar* hscrTrasparenza_ = nullptr;
  QLabel* lblOpacity_ = nullptr;
  bool placed_ = false, unloaded_ = false;
};

}  // namespace halvorine
