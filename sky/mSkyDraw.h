// Drawing of the sky charts on any surface: what the disc of the observer's sky shows, and the marks of
// stars, Sun, Moon and planets that all charts share. The routines draw a view that is handed in and know no
// window.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "maps/DrawSurface.h"
#include "shell/base/mRecords.h"
#include "sky/mSky.h"
#include "sky/mSkyTransit.h"

namespace halvorine {

/// The sixteen colours that chart colours are named from.
constexpr std::array<Colour, 16> Palette16 = {
    Rgb(0, 0, 0),       Rgb(0, 0, 128),   Rgb(0, 128, 0),   Rgb(0, 128, 128),
    Rgb(128, 0, 0),     Rgb(128, 0, 128), Rgb(128, 128, 0), Rgb(192, 192, 192),
    Rgb(128, 128, 128), Rgb(0, 0, 255),   Rgb(0, 255, 0),   Rgb(0, 255, 255),
    Rgb(255, 0, 0),     Rgb(255, 0, 255), Rgb(255, 255, 0), Rgb(255, 255, 255)};

/// The icons that sky charts take from the main window's list.
enum SkyIconNumber : int {
  SkyIconTelescope = 13,
  SkyIconStation = 14,
  SkyIconVisible = 31,
  SkyIconNotVisible = 32,
  SkyIconEclipsed = 33
};

/// Where the pictures of the charts come from; loading them is the window system's work. References stay
/// good.
class SkyPictures {
 public:
  virtual ~SkyPictures() = default;
  virtual const DrawPicture& Icon(int number) = 0;
  virtual const DrawPicture& SunIcon() = 0;
  /// "\landscape.dat", its key colour transparent; an empty picture where the file holds none.
  virtual const DrawPicture& Landscape() = 0;
};

/// What is drawn besides the stars.
struct SkySwitches {
  bool Grid = false, Grid10 = true, HorizontalGrid = true;
  bool ConstellationLines = false, ConstellationNames = false;
  bool Planets = true, PlanetNames = true, SunMoon = true, SunMoonNames = false;
  bool Horizon = true, Landscape = true;
};

/// State of one chart of the observer's sky.
struct SkyView {
  SkyProjection Projection;
  SkySwitches Switches;
  int StarCount = 1639;
  ChartBox Box;                         // user coordinates of the surface
  bool Zoomed = false;                  // Box was chosen by the user and stays
  bool Square = false;                  // the whole view is 200 units wide and high, whatever the surface
  Colour GridColour = Palette16[8];     // chosen by DrawSkyBackground
  Colour CompassColour = Palette16[7];  // of the names of the sides
  SkyPictures* Pictures = nullptr;
  SkyPlaces Places;
  SkyTrack Track;
};

/// What a section of the settings asks for.
SkySwitches SwitchesOf(const SkyOptions& options);
SkyProjection ProjectionOf(const SkyOptions& options);

/// The button-face colour of the system, or light grey where that is too dark to be read on black.
Colour CompassColourOf(Colour buttonFace);

// Parts of a chart. Each draws on the layer that is chosen and lets failures pass; DrawSky catches them.

/// Fills the view's box, unless that is zoomed, and sets the surface's scale. ArithmeticFailure for a surface
/// without extent.
void SetSkyScale(DrawSurface& surface, SkyView& view);
/// Height by width of a figure that has to keep to the disc's own scales; 1 while the view is not zoomed.
double DiscAspect(const DrawSurface& surface);
/// Black around a disc in the colours of the Sun's altitude; chooses the colour of the grid.
void DrawSkyBackground(DrawSurface& surface, SkyView& view);
/// One of the twelve texts around the disc, four of which are the names of the sides; chart units of the top
/// left corner of its text.
struct CompassMark {
  double X = 0, Y = 0;
  const char* Text = "";
  bool Side = false;
};
std::array<CompassMark, 12> CompassMarks(const SkyProjection& projection);
void DrawCompass(DrawSurface& surface, const SkyView& view);
void DrawSkyGrid(DrawSurface& surface, const SkyView& view);
void DrawConstellationLines(DrawSurface& surface, const SkyView& view);
void DrawConstellationNames(DrawSurface& surface, const SkyView& view);
void DrawStars(DrawSurface& surface, const SkyView& view);
void DrawSkyBodies(DrawSurface& surface, const SkyView& view);
/// The landscape over the disc, where the picture is one.
void Disegna_terreno(DrawSurface& surface, const SkyView& view);

/// All parts from the background to the bodies, as the view's switches want them. A part that fails stays
/// incomplete and the next one is drawn.
void DrawSky(DrawSurface& surface, SkyView& view);

/// The part of a segment that is above the horizon.
void LineAboveHorizon(DrawSurface& surface, const StarRow& from, const StarRow& to, Colour colour);

// Marks that all charts share; coordinates and sizes are the surface's user units.

/// A star by its number in the catalogue, which tells how bright it is; `radius` counts for those drawn as
/// circles.
void DrawStar(DrawSurface& surface, int number, double x, double y, double radius);

/// Colour of a planet's dot, row 1 to 7 of SkyObjectTable.
Colour PlanetColour(int row);

/// A body as it stands on a chart; the radius counts in units of the x axis.
struct BodyMark {
  int Row = 0;  // of SkyObjectTable
  double X = 0, Y = 0, Radius = 0;
  bool Named = false;
};

/// Draws bodies in the order given and their names at their right, or on a free side where the name of a
/// brighter one is in the way. The Sun is the icon, or a circle where that is empty.
void DrawBodies(DrawSurface& surface, const std::vector<BodyMark>& marks, const DrawPicture& sunIcon);

/// A picture in its natural size, centred on a point.
void PaintCentred(DrawSurface& surface, const DrawPicture& icon, double x, double y);

/// Half the extent of a picture in user units by the rule for icons of satellites: `factor` times its size in
/// hundredths of a millimetre, as twips.
struct HalfExtent {
  double X = 0, Y = 0;
};
HalfExtent HalfExtentOf(const DrawSurface& surface, const DrawPicture& icon, double factor = 0.29);

/// Icon of a satellite by its catalogue number and its condition.
int SkyIconOf(const std::string& catalogueNumber, std::int32_t condition);

// The chart of the sky as it stands now.

/// Rebuilds the whole chart for the program's clock on the persistent layer.
void Genera_mappa(DrawSurface& surface, SkyView& view);

/// Icon and name of a place in the active list, on the transient layer. Place 1 wipes the marks of the tick
/// before.
void Disegna_satellite_in_cielo(DrawSurface& surface, const SkyView& view, int slot);

/// The stored track with its time marks.
void Disegna_passaggio(DrawSurface& surface, const SkyView& view);

}  // namespace halvorine
