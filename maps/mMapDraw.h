// Drawing of the world map: the picture, night side, grid, Sun, observer and ground track on the persistent
// layer, satellites and the circle of visibility on the transient one. The routines draw the shared records
// on any surface and know no window; each of them drops a failing frame silently.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "maps/DrawSurface.h"
#include "maps/mMap.h"
#include "shell/base/mRecords.h"

namespace halvorine {

/// Lists of the main window's icons, and the icons that the map takes from them.
enum class IconList : std::uint8_t { Main, Second };
enum MapIconNumber : int {
  IconSatellite = 11,
  IconTelescope = 13,
  IconStation = 14,
  IconPrincipal = 15,
  IconRocket = 28,
  IconSun = 6  // of the second list
};

/// Where the pictures come from; loading them is the window system's work.
class MapPictures {
 public:
  virtual ~MapPictures() = default;
  /// A map picture by its agreed name ("\Map0.dat"); an empty one where the file holds no picture. The
  /// reference stays good.
  virtual const DrawPicture& MapFile(std::string_view name) = 0;
  virtual const DrawPicture& Icon(IconList list, int number) = 0;
};

/// What is drawn besides the satellites.
struct MapSwitches {
  bool Grid = true, City = true, Track = true, Sun = true, Night = true;
};

/// State of one map view.
struct MapView {
  std::string Kind{kindRecta};
  std::string File;                               // the picture now loaded
  const DrawPicture* Picture = nullptr;           // of that file
  float CentreLongitude = 0, CentreLatitude = 0;  // of the globe, degrees
  Slots<double, MaxActive> PlaceX, PlaceY;        // of the satellites on the globe, map units
  MapSwitches Switches;
  MapPictures* Pictures = nullptr;

  MapView();
  bool IsGlobe() const { return Kind == kindOrtho; }
};

/// Number in the main window's icon list of a place in the active list.
int SatelliteIcon(int slot);

/// Loads the picture that the kind and the principal satellite ask for, paints it and sets the scale.
void Carica_mappa(DrawSurface& surface, MapView& view);

/// Rebuilds the whole persistent layer; the transient one is empty afterwards.
void Genera_mappa(DrawSurface& surface, MapView& view);

void Disegna_ombra(DrawSurface& surface, const MapView& view);
void Disegna_griglia(DrawSurface& surface, const MapView& view);
void Disegna_sole(DrawSurface& surface, const MapView& view);
void Disegna_osservatore(DrawSurface& surface, const MapView& view);
/// Two colours of track around the principal satellite; moves its state and puts it back to the present.
void Disegna_orbita(DrawSurface& surface, const MapView& view);
void Disegna_visibilita(DrawSurface& surface, const MapView& view);
/// Icon and name of a place in the active list. Place 1 wipes the marks of the tick before and rebuilds a
/// globe whose picture no longer fits.
void Disegna_satellite(DrawSurface& surface, MapView& view, int slot);

/// The place in the active list near a point of the map, the last one where several are near; 0 for none.
int SatelliteAt(const MapView& view, double x, double y);

/// Where a place in the active list stands on the map, map units; nothing for one that is not seen.
struct MapSpot {
  double X = 0, Y = 0;
};
std::optional<MapSpot> SpotOf(const MapView& view, int slot);

/// What a satellite's tooltip says.
std::string SatelliteTooltip(int slot);

}  // namespace halvorine
