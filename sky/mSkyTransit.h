// The track of a satellite through the observer's sky, with the marks that the user has set at its points:
// the principal satellite's transit on the local chart, a predicted pass on a chart of its own.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "shell/base/mRecords.h"
#include "sky/mSky.h"

namespace halvorine {

/// One step of a track.
struct TrackPoint {
  float X = 0, Y = 0;        // chart units
  Date Time = 0;             // the observer's civil time
  MagnitudeValue Magnitude;  // empty in eclipse
  double Azimuth = 0, Altitude = 0;
  std::int16_t Condition = 0;  // SatelliteCondition
};

/// A time written beside a track: a line from a point of it, and which point that is.
struct TimeMark {
  double X1 = 0, Y1 = 0, X2 = 0, Y2 = 0;  // chart units
  int Point = 0;                          // index in the track, from 0
};

/// A track and its marks. `Start` is where the line begins; it has no dot and no time.
struct SkyTrack {
  std::optional<TrackPoint> Start;
  std::vector<TrackPoint> Points;
  std::vector<TimeMark> Marks;
  void Clear() { *this = {}; }
};

/// State of a slot at a Julian day as a point of a track; `time` is the same instant in civil time.
/// ArithmeticFailure where it cannot be computed.
TrackPoint TrackPointAt(const SkyProjection& projection, int slot, double julianDay, Date time);

/// Track of the principal satellite from now to its set, for one period at most; empty where it is not above
/// the horizon. Clock and state are put back to the present.
void ComputeTransit(SkyTrack& track, const SkyProjection& projection);

/// Chart units of all points, and the marks with them, after the projection has changed.
void ProjectTrack(SkyTrack& track, const SkyProjection& projection);

/// Index of the point nearest to a place of the chart; nothing where the track is empty or the place lies
/// outside the box.
std::optional<int> NearestTrackPoint(const SkyTrack& track, const ChartBox& box, double x, double y);

/// Adds a mark whose text begins at a place of the chart.
void AddTimeMark(SkyTrack& track, int point, double x, double y);

/// What a mark says: the time, and the magnitude where it is a number.
std::string TimeMarkText(const TrackPoint& point);

}  // namespace halvorine
