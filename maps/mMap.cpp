#include "maps/mMap.h"

#include <algorithm>
#include <cmath>

#include "astro/mMate.h"

namespace halvorine {

namespace {

/// Three pictures that share the longitude of their centre.
struct MapColumn {
  float centre;
  std::string_view plain, north, south;
};

constexpr std::array<MapColumn, 4> mapColumns{{
    {0, "\\Map0.dat", "\\Map0N45.dat", "\\Map0S45.dat"},
    {90, "\\Map90.dat", "\\Map90N45.dat", "\\Map90S45.dat"},
    {180, "\\Map180.dat", "\\Map180N45.dat", "\\Map180S45.dat"},
    {270, "\\Map270.dat", "\\Map270N45.dat", "\\Map270S45.dat"},
}};

const MapColumn* ColumnOf(double longitude360) {
  if (longitude360 < 45 || longitude360 > 315) return &mapColumns[0];
  if (longitude360 < 135) return &mapColumns[1];
  if (longitude360 < 225) return &mapColumns[2];
  if (longitude360 < 315) return &mapColumns[3];
  return nullptr;
}

}  // namespace

std::optional<MapFileChoice> ChooseMapFile(double latitude, double longitude360) {
  if (latitude > 70) return MapFileChoice{"\\MapNorth.dat", 0, 90};
  if (latitude < -70) return MapFileChoice{"\\MapSouth.dat", 0, -90};
  const MapColumn* const column = ColumnOf(longitude360);
  if (column == nullptr) return std::nullopt;
  if (latitude < -30) return MapFileChoice{column->south, column->centre, -45};
  if (latitude > 30) return MapFileChoice{column->north, column->centre, 45};
  return MapFileChoice{column->plain, column->centre, 0};
}

void Proietta_orto(double centreLongitude, double centreLatitude, double longitude, double latitude,
                   double& x, double& y, std::int16_t& visible) {
  const double d = (longitude - centreLongitude) * DegToRad;
  const double lat0 = centreLatitude * DegToRad;
  const double lat = latitude * DegToRad;
  const double c = std::sin(lat0) * std::sin(lat) + std::cos(lat0) * std::cos(lat) * std::cos(d);
  visible = c > 0 || std::abs(c) <= 1e-07 ? -1 : 0;
  if (visible == 0) return;
  x = globeRadius * std::cos(lat) * std::sin(d);
  y = globeRadius * (std::cos(lat0) * std::sin(lat) - std::sin(lat0) * std::cos(lat) * std::cos(d));
}

std::optional<GeoPoint> InvertGlobe(double centreLongitude, double centreLatitude, double x, double y) {
  const double X = x / globeReadout;
  const double Y = y / globeReadout;
  const double rho = Sqrt(X * X + Y * Y);
  if (!(rho <= 1)) return std::nullopt;
  GeoPoint place{centreLongitude, centreLatitude};
  const bool found = rho == 0 || Attempt([&] {
                       const double lat0 = centreLatitude * DegToRad;
                       const double c = ArcSin(rho);
                       const double latitude =
                           ArcSin(std::cos(c) * std::sin(lat0) + Div(Y * std::sin(c) * std::cos(lat0), rho));
                       const double longitude =
                           centreLongitude * DegToRad +
                           std::atan(Div(X * std::sin(c), rho * std::cos(lat0) * std::cos(c) -
                                                              Y * std::sin(lat0) * std::sin(c)));
                       place = {longitude * RadToDeg, latitude * RadToDeg};
                     });
  if (!found) return std::nullopt;
  if (place.Longitude > 180) place.Longitude = -(360 - place.Longitude);
  return place;
}

PicturePlace PlaceMapPicture(std::string_view kind, double boxWidth, double boxHeight) {
  if (kind == kindRecta) return {0, 0, boxWidth, boxHeight};
  const double height = boxHeight > boxWidth ? boxWidth : boxHeight;
  const double width = 2 * height;
  return {(boxWidth - width) / 2, (boxHeight - height) / 2, width, height};
}

void SetMapScale(DrawSurface& surface, std::string_view kind) {
  if (kind == kindRecta) {
    surface.Scale(-180, 90, 180, -90);
    return;
  }
  const float a = ToSingle(Div(surface.Width(), surface.Height()));
  if (a >= 1)
    surface.Scale(-180 * static_cast<double>(a), 180, 180 * static_cast<double>(a), -180);
  else
    surface.Scale(-180, Div(180, static_cast<double>(a)), 180, Div(-180, static_cast<double>(a)));
}

double SubsolarLongitude(double siderealHours, double rightAscensionHours) {
  const double v = ModFloor(siderealHours - rightAscensionHours, 24) * 360 / 24;
  if (v < 180) return -v;
  return v == 180 ? 180 : 360 - v;
}

double NightDeclination(double declination) { return declination == 0 ? 0.5 : declination; }

NightTable BuildNightTable(double subsolarLongitude, double declination) {
  const double tangent = std::tan(NightDeclination(declination) * DegToRad);
  NightTable table;
  double longitude = -180;
  for (GeoPoint& point : table) {
    const double latitude =
        std::atan(Div(-std::cos((longitude - subsolarLongitude) * DegToRad), tangent)) / DegToRad;
    point = {longitude, std::nearbyint(latitude * 100) / 100};
    longitude += 0.5;
  }
  return table;
}

CirclePoints VisibilityCircle(double geocentricRadius, double latitude, double longitude) {
  const double q = Div(EarthRadius, geocentricRadius);
  const double rho = HalfPi - ArcTan2Positive(q, Sqrt(1 - q * q));
  const double phi = latitude * DegToRad;
  const double lambda = longitude * DegToRad;
  CirclePoints points;
  int i = 0;
  for (GeoPoint& point : points) {
    const double t = 2.0 * Pi * i++ / 180;
    const double u = std::cos(rho) * std::cos(phi) - std::sin(rho) * std::cos(t) * std::sin(phi);
    const double X = u * std::cos(lambda) - std::sin(rho) * std::sin(t) * std::sin(lambda);
    const double Y = u * std::sin(lambda) + std::sin(rho) * std::sin(t) * std::cos(lambda);
    const double Z = std::cos(rho) * std::sin(phi) + std::sin(rho) * std::cos(t) * std::cos(phi);
    point.Longitude = ArcTan2Positive(Y, X) * RadToDeg;
    if (point.Longitude > 180) point.Longitude -= 360;
    point.Latitude = ArcSin(Z) * RadToDeg;
  }
  return points;
}

namespace {

std::string SignedDegrees(double value, std::string_view degreesPicture) {
  const double size = std::abs(value);
  const double degrees = Fix(size);
  return (value < 0 ? "-" : "+") + Format(degrees, degreesPicture) +
         Format(Int((size - degrees) * 60), "00m ");
}

}  // namespace

std::string CoordinateReadout(const GeoPoint& place, std::string_view longitudeLabel,
                              std::string_view latitudeLabel) {
  return std::string(longitudeLabel) + " " + SignedDegrees(place.Longitude, "#00° ") + " " +
         std::string(latitudeLabel) + " " + SignedDegrees(place.Latitude, "00° ");
}

}  // namespace halvorine
