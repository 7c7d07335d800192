// The general sky chart's window: the whole sphere in right ascension and declination, zoomed by the mouse.
#pragma once

#include <QPoint>
#include <QPointF>
#include <QString>
#include <QTimer>
#include <optional>
#include <string>
#include <string_view>

#include "shell/base/qtPlacedForm.h"
#include "sky/mGeneralSky.h"
#include "sky/qtSkyPictures.h"

namespace halvorine {

class PixmapSurface;
class SurfaceWidget;

class frmGeneralSky : public PlacedForm,
                      public GeneralSkyCalls,
                      public PopupCalls,
                      public StarCountCalls,
                      public PrintCalls {
  Q_OBJECT
 public:
  frmGeneralSky();

  void Unload() override { UnloadForm(); }
  void Show() override;
  void Genera_mappa() override;
  void Applica_opzioni() override;
  void MenuCommand(std::string_view item) override;
  void Stampa() override;
  int StarCount() const override { return view_.StarCount; }
  void SetStarCount(int count) override;

 protected:
  void showEvent(QShowEvent* event) override;

 private:
  void ConnectMouse();
  void ConnectKeys();
  void TakeSwitches();
  void TakeBox(const GeneralSkyBox& box);
  void Ripristina() { TakeBox({}); }
  void ForgetPress();
  void OpenObject(double x, double y);

  void Picture1_MouseDown(Qt::MouseButton button, double x, double y, QPoint screen);
  void Picture1_MouseMove(double x, double y);
  void Picture1_MouseUp(Qt::MouseButton button, double x, double y);
  void Picture1_DblClick();
  void Picture1_Wheel(double x, double y, double notches);

  QtSkyPictures pictures_;
  GeneralSkyView view_;
  SurfaceWidget* picture1_ = nullptr;
  QTimer* tmrGeneralSky_ = nullptr;
  // parts of the title, as the language was when the window was loaded
  const QString baseTitle_, zoneWord_;
  const std::string rightAscensionLabel_, declinationLabel_;
  QString chartTitle_;            // without a read-out
  std::optional<QPointF> press_;  // chart units, while the left button is down
};

}  // namespace halvorine
