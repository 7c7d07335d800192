#include "maps/mMapPen.h"

#include <cmath>

#include "astro/mMate.h"

namespace halvorine {

namespace {

constexpr double edgeJump =
    320;  // degrees of longitude between neighbours that lie on both sides of the edge

}  // namespace

bool ProjectPlace(const MapView& view, const GeoPoint& place, double& x, double& y) {
  if (!view.IsGlobe()) {
    x = place.Longitude;
    y = place.Latitude;
    return true;
  }
  std::int16_t visible = 0;
  Proietta_orto(view.CentreLongitude, view.CentreLatitude, place.Longitude, place.Latitude, x, y, visible);
  return visible != 0;
}

void MapPen::MoveTo(const GeoPoint& place) {
  double x = 0, y = 0;
  down_ = ProjectPlace(view_, place, x, y);
  if (!down_) return;
  surface_.CurrentX = x;
  surface_.CurrentY = y;
}

void MapPen::LineTo(const GeoPoint& place, Colour colour) {
  if (!down_) {
    MoveTo(place);
    return;
  }
  double x = 0, y = 0;
  if (!ProjectPlace(view_, place, x, y)) {
    down_ = hidden_ == HiddenPart::KeepsPen;
    return;
  }
  if (view_.IsGlobe())
    surface_.Line(x, y, colour);
  else
    JoinFlat(x, y, colour);
}

void MapPen::JoinFlat(double x, double y, Colour colour) {
  const double penX = surface_.CurrentX, penY = surface_.CurrentY;
  if (std::abs(x - penX) <= edgeJump) {
    surface_.Line(x, y, colour);
    return;
  }
  // both halves run past the edge of the picture
  const double turn = x > penX ? 360 : -360;
  surface_.Line(x - turn, y, colour);
  surface_.Line(penX + turn, penY, x, y, colour);
}

}  // namespace halvorine
