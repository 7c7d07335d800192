// The world map: a picture of the Earth, flat or as a globe, with what is drawn over it, and the live values
// of the principal satellite at its left.
#pragma once

#include <string>
#include <string_view>

#include "maps/mMapDraw.h"
#include "maps/qtMapPictures.h"
#include "shell/base/qtPlacedForm.h"

namespace halvorine {

class DataBox;
class SurfaceWidget;

class frmWorldMap : public PlacedForm, public WorldMapCalls {
  Q_OBJECT
 public:
  frmWorldMap();

  void Unload() override { UnloadForm(); }
  void Show() override { ShowForm(); }
  void ShowKind(std::string_view kind) override;
  void Genera_mappa() override;
  void Disegna_satellite(int slot) override;
  void Disegna_visibilita() override;
  void Disegna_griglia() override;
  void Disegna_orbita() override;
  void ShowTexts(const LiveTexts& texts) override;
  void Azzera_dati() override;
  void Applica_opzioni() override;
  void ResetTitle() override;
  int HoveredSatellite() const override { return popupHovered_; }

 protected:
  void showEvent(QShowEvent* event) override;

 private:
  void ConnectMouse();
  /// Gives the data box its width; the picture box takes the rest.
  void PlaceDataBox();
  void TakeSwitches();
  void DrawTransient();
  PixmapSurface& Surface();

  void Picture1_MouseMove(double x, double y);
  void Picture1_MouseDown(Qt::MouseButton button, QPoint screen);
  void Picture1_MouseUp(Qt::MouseButton button);
  void ShowCoordinates(double x, double y);
  void OfferRemoval(bool offered);

  QtMapPictures pictures_;
  MapView view_;
  SurfaceWidget* picture1_ = nullptr;
  DataBox* fraSatellitePrincipale_ = nullptr;
  int hovered_ = 0;       // place in the active list under the pointer, 0 for none
  int popupHovered_ = 0;  // the same when the popup was opened
};

}  // namespace halvorine
