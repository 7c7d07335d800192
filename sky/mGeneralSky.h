// The general sky chart: the whole celestial sphere, right ascension against declination. Chart units are
// hours and degrees themselves, so that nothing is projected; right ascension runs from right to left, east
// being left as on the sky. Routines take a surface or a view record and know no window.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "maps/DrawSurface.h"
#include "sky/mSky.h"
#include "sky/mSkyDraw.h"

namespace halvorine {

/// The part of the sphere that a chart shows: hours, Left greater than Right, and degrees. Single precision.
struct GeneralSkyBox {
  float Left = 24, Top = 90, Right = 0, Bottom = -90;
  bool operator==(const GeneralSkyBox&) const = default;
  double ScaleWidth() const { return static_cast<double>(Right) - static_cast<double>(Left); }
  double ScaleHeight() const { return static_cast<double>(Bottom) - static_cast<double>(Top); }
  /// Whether all 24 hours are shown: names are short then, and star circles large.
  bool WholeSky() const { return ScaleWidth() == -24; }
};

/// What a chart shows besides its stars.
struct GeneralSkySwitches {
  bool Grid = false, ConstellationLines = false, Planets = true, SunMoon = true;
  bool ConstellationNames = false, PlanetNames = true, SunMoonNames = false;
};

/// What the settings ask for.
GeneralSkySwitches GeneralSwitchesOf(const SkyOptions& options);

/// State of one general chart.
struct GeneralSkyView {
  GeneralSkyBox Box;
  int StarCount = 5146;  // rows of the star table; what does not exist is left out
  GeneralSkySwitches Switches;
  SkyPictures* Pictures = nullptr;
};

/// The box between two corners in any order, clipped to the sphere; nothing where they share an hour or a
/// degree. A box too small for single precision grows around its middle.
std::optional<GeneralSkyBox> ZoomBox(double x1, double y1, double x2, double y2);

/// The box after `notches` of the wheel (positive ones magnify) about a point, which keeps its place unless
/// the edge of the sphere is met. Zooming out ends at the whole sky.
GeneralSkyBox ZoomAbout(const GeneralSkyBox& box, double x, double y, double notches);

/// The box shifted by shares of its width and height, positive ones to the right and downwards, as far as the
/// sphere reaches.
GeneralSkyBox PanBox(const GeneralSkyBox& box, double right, double down);

/// Right ascension and declination of a point by their labels, as the window's title shows them; the empty
/// text outside the sphere.
std::string GeneralSkyReadout(double x, double y, std::string_view rightAscensionLabel,
                              std::string_view declinationLabel);

/// The star among the first `starCount` or the body that lies nearest to a point of the chart, as seen on the
/// whole chart's proportions; nothing where none is near enough.
std::optional<SkyPick> PickInGeneralSky(const GeneralSkyBox& box, int starCount, double x, double y);

/// What can be picked within the box, the bodies first, then the first `starCount` stars from the brightest.
std::vector<ChartSpot> PickablePlaces(const GeneralSkyBox& box, int starCount);

/// The figures in one colour, on a surface whose scale is set; a segment that crosses the hour 0 leaves the
/// chart at one edge and comes back at the other. A failure passes.
void DrawGeneralFigures(DrawSurface& surface, Colour colour);

/// Computes Sun, Moon and planets for CurrentDate and draws the whole chart on the persistent layer. A
/// failing part of the drawing ends silently; the others are drawn.
void Genera_mappa(DrawSurface& surface, const GeneralSkyView& view);

}  // namespace halvorine
