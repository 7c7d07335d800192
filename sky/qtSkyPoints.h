// Places of sky charts as the pointer of the keys takes them.
#pragma once

#include <QPointF>
#include <vector>

#include "sky/mSky.h"
#include "sky/mSkyTransit.h"

namespace halvorine {

/// The coordinates of places or of the points of a track, chart units.
template <class Places>
std::vector<QPointF> PointsOf(const Places& places) {
  std::vector<QPointF> points;
  points.reserve(places.size());
  for (const auto& place : places)
    points.emplace_back(static_cast<double>(place.X), static_cast<double>(place.Y));
  return points;
}

}  // namespace halvorine
