// Geometry of the world map: which picture shows the Earth, the transforms between geographic and map
// coordinates, the night side and the circle of visibility. Map units are degrees on the flat map ("Recta")
// and a globe of radius 142 on the orthographic one ("Ortho"). Nothing here draws.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "maps/DrawSurface.h"
#include "shell/base/mRecords.h"

namespace halvorine {

inline constexpr std::string_view kindRecta = "Recta";
inline constexpr std::string_view kindOrtho = "Ortho";

constexpr double globeRadius = 142.0;   // of the forward transform, map units
constexpr double globeReadout = 138.0;  // of the inverse transform; two numbers on purpose
constexpr double hiddenPlace = 999.0;   // cached place of a satellite behind the globe

/// Degrees, east and north positive.
struct GeoPoint {
  double Longitude = 0, Latitude = 0;
};

/// A picture of the globe and the place in its centre, degrees.
struct MapFileChoice {
  std::string_view File;
  float CentreLongitude = 0, CentreLatitude = 0;
};

inline constexpr std::string_view mapEarthFile = "\\MapEarth.dat";

/// The globe's picture for a principal satellite at a latitude (degrees, north positive) and a longitude
/// (0 to 360 east). Nothing at exactly 315 degrees between the polar pictures: the former choice stands.
std::optional<MapFileChoice> ChooseMapFile(double latitude, double longitude360);

/// Orthographic projection of a place, degrees. `visible` becomes -1, or 0 for a place behind the globe; then
/// x and y keep their values.
void Proietta_orto(double centreLongitude, double centreLatitude, double longitude, double latitude,
                   double& x, double& y, std::int16_t& visible);

/// The place shown at a point of the globe, or nothing outside it. The radius differs from the forward
/// transform's, and beyond 90 degrees from the centre's meridian the longitude folds.
std::optional<GeoPoint> InvertGlobe(double centreLongitude, double centreLatitude, double x, double y);

/// Where the picture lies in a box, device twips.
struct PicturePlace {
  double X = 0, Y = 0, Width = 0, Height = 0;
};
PicturePlace PlaceMapPicture(std::string_view kind, double boxWidth, double boxHeight);

/// Sets the user scale of a map kind: degrees, or 360 units over the shorter side. ArithmeticFailure for a
/// box without extent.
void SetMapScale(DrawSurface& surface, std::string_view kind);

/// Longitude (degrees) over which the Sun stands, from Greenwich sidereal time and right ascension in hours.
double SubsolarLongitude(double siderealHours, double rightAscensionHours);

/// The Sun's declination as the night side uses it: never exactly 0.
double NightDeclination(double declination);

/// The terminator, each half degree of longitude from -180 to 180; latitudes rounded to two decimals.
using NightTable = std::array<GeoPoint, 721>;
NightTable BuildNightTable(double subsolarLongitude, double declination);

/// Rim of the area that sees a satellite on or above the horizon, each two degrees of bearing from north,
/// closed. Distance from the centre of the Earth in km. ArithmeticFailure below the surface.
using CirclePoints = std::array<GeoPoint, 181>;
CirclePoints VisibilityCircle(double geocentricRadius, double latitude, double longitude);

/// Longitude and latitude in degrees and minutes as the window's title shows them, with their labels.
std::string CoordinateReadout(const GeoPoint& place, std::string_view longitudeLabel,
                              std::string_view latitudeLabel);

}  // namespace halvorine
