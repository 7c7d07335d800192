// The about box, which is also the splash window of the start: a dark sky with the globe, the program's name
// and version.
#pragma once

#include <QDialog>

#include "shell/base/mForms.h"

namespace halvorine {

class frmAbout : public QDialog, public FormCalls {
  Q_OBJECT
 public:
  explicit frmAbout(QWidget* parent = nullptr);
  ~frmAbout() override;

  /// Shows the window without a frame and without waiting, with what is being done at its bottom.
  void ShowSplash(const QString& task);
  /// Changes what the splash window tells and paints it at once.
  void SetTask(const QString& task);
  /// Shows the about box and waits for its end.
  void ShowAbout();

  void Unload() override;
  void Show() override { ShowAbout(); }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void DrawSky(QPainter& painter) const;
  void DrawGlobe(QPainter& painter) const;
  void DrawTexts(QPainter& painter) const;
  /// A colour of the picture, turned red at night.
  QColor Shade(const QColor& day) const;

  bool splash_ = false, unloaded_ = false;
  QString task_;
};

}  // namespace halvorine
