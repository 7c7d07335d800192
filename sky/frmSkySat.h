// The chart of one predicted pass, with its data beside it. Several can stand open at once: each shows what
// it was given and has options of its own. One that shows a pass is registered as "frmSkySat" with a number
// behind it, so that the plain name always stands for a new one.
#pragma once

#include <QPoint>
#include <optional>
#include <string_view>

#include "shell/base/qtForms.h"
#include "sky/mSkySat.h"
#include "sky/qtSkyPictures.h"

namespace halvorine {

class PassPanel;
class SurfaceWidget;

class frmSkySat : public ChildForm,
                  public SkySatCalls,
                  public PopupCalls,
                  public StarCountCalls,
                  public PrintCalls {
  Q_OBJECT
 public:
  frmSkySat();

  void Unload() override { UnloadForm(); }
  void Show() override { ShowForm(); }
  void ShowPass(const PassChart& pass) override;
  void MenuCommand(std::string_view item) override;
  void Stampa() override;
  int StarCount() const override { return view_.Sky.StarCount; }
  void SetStarCount(int count) override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void showEvent(QShowEvent* event) override;

 private:
  void ConnectMouse();
  void PlaceChart();
  void Genera_mappa();
  void ShowMenuChecks() const;
  void SetTitle();
  void OpenPopup(QPoint screen);

  void Picture1_MouseDown(Qt::MouseButton button, double x, double y, QPoint screen);
  void Picture1_MouseMove(double x, double y);
  void Picture1_MouseUp(Qt::MouseButton button, double x, double y);

  QtSkyPictures pictures_;
  PassView view_;
  PassPanel* panel_ = nullptr;
  SurfaceWidget* picture1_ = nullptr;
  std::optional<int> dragged_;  // point of the track from which a mark is drawn
};

}  // namespace halvorine
