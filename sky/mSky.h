// Geometry of the sky charts. A chart of the observer's sky is a disc of radius 90 around the origin: the
// horizon is its edge, the zenith its middle. Horizontal coordinates come onto it by one of two projections,
// turned to one of four sides. Every window owns its view; nothing here draws.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "shell/base/mRecords.h"

namespace halvorine {

constexpr double HorizonRadius = 90;  // chart units

/// The side that the observer faces, in the order of the settings; facing south, north is at the top.
enum SkyOrientation : std::int16_t { FacingNorth, FacingSouth, FacingWest, FacingEast };

/// How the sky comes onto the disc: stereographic, or azimuthal equidistant where that is off.
struct SkyProjection {
  bool Stereographic = true;
  std::int16_t Orientation = FacingSouth;
  bool operator==(const SkyProjection&) const = default;
};

/// Quarter turns of the chart for an orientation: 0 facing south, 1 east, 2 north, 3 west; 0 for any other.
int QuarterTurns(std::int16_t orientation);

/// Azimuth (from north through east) and altitude, degrees, to chart units. What lies below the horizon comes
/// outside the disc; callers test the altitude. ArithmeticFailure where a point has no place.
void Mappatura(const SkyProjection& projection, double azimuth, double altitude, double& x, double& y);

/// Chart units back to azimuth and altitude, degrees; the altitude is negative outside the disc. A failure
/// raises ArithmeticFailure.
void Mappatura_inversa(const SkyProjection& projection, double x, double y, double& azimuth,
                       double& altitude);

/// What a chart shows, user units of its surface, single precision.
struct ChartBox {
  float Left = -200, Top = 100, Right = 200, Bottom = -100;
  double Width() const { return static_cast<double>(Right) - static_cast<double>(Left); }
  double Height() const { return static_cast<double>(Bottom) - static_cast<double>(Top); }
  bool operator==(const ChartBox&) const = default;
};

/// The whole disc with 10 units to spare on the shorter side, for a surface of the ratio width by height.
/// ArithmeticFailure for a ratio that is no positive number.
ChartBox FullDiscBox(double ratio);

/// The box between two corners in any order, clipped to x from -200 to 200 and y from -100 to 100; nothing
/// where the corners share a coordinate. A box too small for single precision grows around its middle.
std::optional<ChartBox> ZoomDiscBox(double x1, double y1, double x2, double y2);

/// The box after `notches` of the wheel about a point, which keeps its place; positive ones magnify. Nothing
/// where the box would be larger than `full`: the view is then whole again.
std::optional<ChartBox> ZoomDiscAbout(const ChartBox& box, const ChartBox& full, double x, double y,
                                      double notches);

/// The box shifted by shares of its width and height, positive ones to the right and downwards, as far as
/// `full` reaches.
ChartBox PanDiscBox(const ChartBox& box, const ChartBox& full, double right, double down);

/// Places on one chart, by azimuth and altitude (degrees) and chart units.
struct SkyPlaces {
  std::vector<StarRow> Stars;            // the brightest ones, as many as are shown
  std::vector<ConstellationLine> Lines;  // of the figures
  std::vector<StarRow> Labels;           // of the figures' names, in the order of ConstellationLabels
  Slots<StarRow, 10> Bodies;             // rows of SkyObjectTable
};

/// A star count as it can be used: 0 to the number of stars in the table.
int UsableStarCount(int count);

/// Computes sidereal time, Sun, Moon and planets for an instant in the observer's civil time; a body that
/// fails keeps its former place.
void ComputeSkyObjects(Date localDate);

/// Places of stars, figures, their names and the bodies for the present sidereal time and observer.
void ProjectObjects(SkyPlaces& places, const SkyProjection& projection, int starCount);

/// Azimuth, altitude and chart units of one place that has its right ascension and declination.
void ProjectPlace(StarRow& place, const SkyProjection& projection);

/// Whether a point lies between the sides of a chart; those of a view twice as wide as the sky stand at half
/// its width.
bool IsWithinChart(const ChartBox& box, double x);

/// A click's find: a star by its number in the catalogue or a row of SkyObjectTable, the other being 0.
struct SkyPick {
  int Star = 0, Body = 0;
};

/// The star or body above the horizon that lies nearest to a point of the chart; nothing where none is near
/// enough or the point lies outside the chart.
std::optional<SkyPick> PickInSky(const SkyPlaces& places, const ChartBox& box, double x, double y);

/// A place on a chart, its units.
struct ChartSpot {
  float X = 0, Y = 0;
};

/// What can be picked within the box, the bodies first, then the stars from the brightest.
std::vector<ChartSpot> PickablePlaces(const SkyPlaces& places, const ChartBox& box);

/// The place of a segment's far end after a cut at the horizon; nothing where the segment cannot be cut and
/// ends outside the disc.
std::optional<ChartSpot> CutAtHorizon(ChartSpot above, ChartSpot below);

/// Coordinates of a point of the chart with their labels, as the window's title shows them; the empty text
/// below the horizon.
std::string SkyReadout(const SkyProjection& projection, bool equatorial, double x, double y);

/// Name of a row of SkyObjectTable (Mercury to Moon) in the chosen language.
std::string BodyName(int row);

/// The instant of a chart as its title and its page show it.
std::string ChartDate(Date localDate);

}  // namespace halvorine
