// The local sky: the observer's sky at the program's clock with the satellites on it, the principal
// satellite's transit with its time marks, and the live values of that satellite at the left.
#pragma once

#include <QTimer>
#include <optional>
#include <string_view>

#include "shell/base/qtPlacedForm.h"
#include "sky/mSkyDraw.h"
#include "sky/qtSkyPictures.h"

namespace halvorine {

class DataBox;
class SurfaceWidget;
class PixmapSurface;

class frmLocalSky : public PlacedForm,
                    public LocalSkyCalls,
                    public StarCountCalls,
                    public PopupCalls,
                    public PrintCalls {
  Q_OBJECT
 public:
  frmLocalSky();

  void Unload() override { UnloadForm(); }
  void Show() override;
  void Genera_mappa() override;
  void Disegna_satellite_in_cielo(int slot) override;
  void ResetModeButton() override;
  void ShowTexts(const LiveTexts& texts) override;
  void Azzera_dati() override;
  void Applica_opzioni() override;
  int StarCount() const override { return view_.StarCount; }
  void SetStarCount(int count) override;
  void MenuCommand(std::string_view item) override;
  void Stampa() override;

 protected:
  void BeforeUnload() override;
  void showEvent(QShowEvent* event) override;

 private:
  /// A left press that waits for its release, and the point of the track that it took hold of.
  struct Press {
    double x = 0, y = 0;  // chart units
    std::optional<int> trackPoint;
  };

  void ConnectMouse();
  void ConnectKeys();
  void PlaceDataBox();
  void TakeSwitches();
  void DrawTransient();
  void MakeTitle();
  void SwitchTransit();
  /// Forgets track and marks; the menus and the toolbar button show it.
  void EndTransit();
  void ZoomSwitched();
  PixmapSurface& Surface();

  void Picture1_MouseDown(Qt::MouseButton button, double x, double y, QPoint screen);
  void Picture1_MouseMove(double x, double y);
  void Picture1_MouseUp(Qt::MouseButton button, double x, double y);
  void Picture1_Wheel(double x, double y, double notches);
  void Picture1_DoubleClick();
  void ZoomAbout(double x, double y, double notches);
  void ShowWhole();
  void Pan(double right, double down);
  /// The whole disc as the box can hold it; nothing while that has no extent.
  std::optional<ChartBox> FullBox() const;
  void ShowPicked(double x, double y);
  /// Whether the mouse has moved far enough from the press to be meant.
  bool IsDrag(const Press& press, double x, double y) const;
  void PlaceTimeMark(int point, double x, double y);
  void ZoomTo(const Press& press, double x, double y);

  QtSkyPictures pictures_;
  SkyView view_;
  SurfaceWidget* picture1_ = nullptr;
  DataBox* fraSatellitePrincipale_ = nullptr;
  QTimer* tmrLocalSky_ = nullptr;
  QString title_;  // without the coordinates under the mouse
  std::optional<Press> press_;
};

}  // namespace halvorine
