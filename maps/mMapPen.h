// A pen that joins geographic places on either kind of map: around the edge of the flat map, and past the
// hidden half of the globe.
#pragma once

#include "maps/mMapDraw.h"

namespace halvorine {

/// Map coordinates of a place; false for a place behind the globe, which leaves x and y as they are.
bool ProjectPlace(const MapView& view, const GeoPoint& place, double& x, double& y);

/// What a hidden place does to a line on the globe: the pen stays at the last visible place, so that a chord
/// closes the gap, or it is lifted.
enum class HiddenPart : std::uint8_t { KeepsPen, LiftsPen };

class MapPen {
 public:
  MapPen(DrawSurface& surface, const MapView& view, HiddenPart hidden)
      : surface_(surface), view_(view), hidden_(hidden) {}
  void MoveTo(const GeoPoint& place);
  /// Draws to a place from the last one; only moves while no visible place came before.
  void LineTo(const GeoPoint& place, Colour colour);

 private:
  void JoinFlat(double x, double y, Colour colour);
  DrawSurface& surface_;
  const MapView& view_;
  HiddenPart hidden_;
  bool down_ = false;
};

}  // namespace halvorine
