#include <cmath>
#include <functional>

#include "astro/mMate.h"
#include "maps/mMapDraw.h"
#include "maps/mMapPen.h"
#include "shell/base/mGlobal.h"

namespace halvorine {

namespace {

constexpr Colour nightColour = Rgb(65, 65, 65), terminatorColour = Rgb(105, 105, 105);
constexpr double nightOpacity = 0.62;
constexpr double terminatorWidth = 1.4;  // pixels
constexpr double bigMap = 14000;         // twips; from this width on the night side takes each table entry
constexpr double gridLabelPoints = 8;
constexpr double gridStep = 5;  // degrees along a line of the globe's grid

void DrawNightFlat(DrawSurface& surface, const NightTable& table, double declination) {
  surface.DrawStyle = LineKind::Solid;
  surface.DrawWidth = 1;
  const std::size_t step = surface.Width() > bigMap ? 1 : 2;
  const double pole = declination < 0 ? 90 : -90;
  const ShadeScope shade(surface, nightColour, nightOpacity);
  for (std::size_t i = 0; i < table.size(); i += step)
    surface.Line(table[i].Longitude, table[i].Latitude, table[i].Longitude, pole, nightColour);
}

void DrawNightGlobe(DrawSurface& surface, const MapView& view, const NightTable& table, double declination) {
  surface.DrawStyle = LineKind::Dashed;
  surface.DrawWidth = 1;
  const double pole = declination < 0 ? 90 : -90;
  const double step = declination < 0 ? 2 : -2;
  const ShadeScope shade(surface, nightColour, nightOpacity);
  for (const GeoPoint& start : table) {
    MapPen pen(surface, view, HiddenPart::LiftsPen);
    for (int i = 0; (pole - start.Latitude - step * i) * step > 0; ++i)
      pen.LineTo({start.Longitude, start.Latitude + step * i}, nightColour);
    pen.LineTo({start.Longitude, pole},
               nightColour);  // the last step ends on the pole, or a hole stays there
  }
}

void DrawTerminator(DrawSurface& surface, const MapView& view, const NightTable& table) {
  surface.DrawStyle = LineKind::Solid;
  surface.DrawWidth = terminatorWidth;
  const CurveScope curve(surface, 0);
  MapPen pen(surface, view, HiddenPart::LiftsPen);
  for (const GeoPoint& point : table) pen.LineTo(point, terminatorColour);
}

/// The figure of a grid line with the letter of its hemisphere.
std::string GridLabel(int degrees, std::string_view below, std::string_view above) {
  std::string text = std::to_string(std::abs(degrees)) + " ";
  if (degrees < 0) text += below;
  if (degrees > 0) text += above;
  return text;
}

void PrintAt(DrawSurface& surface, double x, double y, const std::string& text) {
  surface.CurrentX = x;
  surface.CurrentY = y;
  surface.Print(text);
}

void DrawFlatGrid(DrawSurface& surface, Colour colour) {
  // the labels keep out of the night at the pole
  const double labelY = SkyObjectTable[SkyObjectRow::Sun].Declination > 0 ? 89.0 : -85.0;
  for (int longitude = -150; longitude <= 150; longitude += 30) {
    surface.Line(longitude, 90, longitude, -90, colour);
    PrintAt(surface, longitude, labelY, GridLabel(longitude, "°W", "°E"));
  }
  for (int latitude = -60; latitude <= 60; latitude += 30) {
    surface.Line(-180, latitude, 180, latitude, colour);
    PrintAt(surface, -180, latitude, GridLabel(latitude, "°S", "°N"));
  }
}

/// A point of the globe's grid; the longitude counts from the centre.
struct GridPoint {
  double x, y, depth;
};

GridPoint GlobePoint(double centreLatitude, double longitude, double latitude) {
  const double lat0 = centreLatitude * DegToRad;
  const double phi = latitude * DegToRad;
  const double a = longitude * DegToRad;
  return {globeRadius * std::cos(phi) * std::sin(a),
          globeRadius * (std::sin(phi) * std::cos(lat0) - std::cos(phi) * std::cos(a) * std::sin(lat0)),
          globeRadius * std::cos(phi) * std::cos(a) * std::cos(lat0) +
              globeRadius * std::sin(phi) * std::sin(lat0)};
}

void PenTo(DrawSurface& surface, const GridPoint& point) {
  surface.CurrentX = point.x;
  surface.CurrentY = point.y;
}

/// Longitude from the centre at which a parallel meets the limb, degrees: 180 for a parallel wholly in view,
/// nothing for one wholly behind.
std::optional<double> ParallelLimit(double centreLatitude, double latitude) {
  const double lat0 = centreLatitude * DegToRad;
  const double lat = latitude * DegToRad;
  const double c = Div(-std::sin(lat0) * std::sin(lat), std::cos(lat0) * std::cos(lat));
  if (c >= 1) return std::nullopt;
  if (c <= -1) return 180;
  double L = c * c > 0.001 ? std::atan(Div(Sqrt(1 - c * c), c)) * RadToDeg : -90;
  if (!(L > 0)) L = -(-180 - L);
  return L;
}

void DrawParallel(DrawSurface& surface, double centreLatitude, double latitude, Colour colour) {
  const std::optional<double> limit = ParallelLimit(centreLatitude, latitude);
  if (!limit) return;
  PenTo(surface, GlobePoint(centreLatitude, -*limit, latitude));
  for (int i = 1; gridStep * i <= 2 * *limit + gridStep; ++i) {
    const GridPoint point = GlobePoint(centreLatitude, -*limit + gridStep * i, latitude);
    if (point.depth >= 0)
      surface.Line(point.x, point.y, colour);
    else
      PenTo(surface, point);
  }
}

void DrawMeridian(DrawSurface& surface, double centreLatitude, double longitude, Colour colour) {
  const double step = centreLatitude < 0 ? gridStep : -gridStep;
  const double pole = centreLatitude < 0 ? -90 : 90;
  PenTo(surface, GlobePoint(centreLatitude, longitude, pole));
  for (int i = 1; i * gridStep <= 180; ++i) {
    const GridPoint point = GlobePoint(centreLatitude, longitude, pole + i * step);
    if (!(point.depth >= 0)) return;
    surface.Line(point.x, point.y, colour);
  }
}

void DrawGlobeGrid(DrawSurface& surface, const MapView& view, Colour colour) {
  const double lat0 = view.CentreLatitude;
  const CurveScope curve(surface, 0);
  for (int latitude = -60; latitude <= 60; latitude += 30) {
    if (lat0 > 0 ? latitude < lat0 - 90 : latitude > lat0 + 90) continue;
    DrawParallel(surface, lat0, latitude, colour);
  }
  for (int longitude = -150; longitude <= 180; longitude += 30)
    DrawMeridian(surface, lat0, longitude - static_cast<double>(view.CentreLongitude), colour);
  surface.CurrentX = globeRadius;
  surface.CurrentY = 0;
  for (int angle = 0; angle <= 360; angle += 10)
    surface.Line(globeRadius * std::cos(angle * DegToRad), globeRadius * std::sin(angle * DegToRad), colour);
}

}  // namespace

void Disegna_ombra(DrawSurface& surface, const MapView& view) {
  DrawQuietly([&] {
    const SkyObject& sun = SkyObjectTable[SkyObjectRow::Sun];
    const double declination = NightDeclination(sun.Declination);
    const NightTable table = BuildNightTable(
        SubsolarLongitude(ClockFields.GreenwichSiderealHours, sun.RightAscension), declination);
    if (view.IsGlobe())
      DrawNightGlobe(surface, view, table, declination);
    else
      DrawNightFlat(surface, table, declination);
    DrawTerminator(surface, view, table);
  });
}

void Disegna_griglia(DrawSurface& surface, const MapView& view) {
  DrawQuietly([&] {
    const Colour colour = Options.Colours.MapGrid;
    surface.ForeColor = colour;
    surface.DrawStyle = LineKind::Solid;
    surface.DrawWidth = 1;
    surface.Font = {};
    surface.Font.Points = gridLabelPoints;
    if (view.IsGlobe())
      DrawGlobeGrid(surface, view, colour);
    else
      DrawFlatGrid(surface, colour);
  });
  surface.ForeColor = White;
}

}  // namespace halvorine
