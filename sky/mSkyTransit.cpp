#include "sky/mSkyTransit.h"

#include <cmath>

#include "astro/mAstro.h"
#include "astro/mConv.h"
#include "astro/mMate.h"
#include "orbit/mSat.h"
#include "shell/base/mGlobal.h"
#include "shell/base/mLang.h"
#include "shell/base/mPlatform.h"

namespace halvorine {

namespace {

constexpr int stepsPerPeriod = 180;
constexpr double secondsPerDay = 86400;
constexpr double farAway = 100000;  // squared chart units, where a search begins

/// Cuts the track's last segment at the horizon where its end lies below.
void CutEnd(TrackPoint& end, const TrackPoint& before) {
  if (end.Altitude >= 0) return;
  if (const std::optional<ChartSpot> cut = CutAtHorizon({before.X, before.Y}, {end.X, end.Y})) {
    end.X = cut->X;
    end.Y = cut->Y;
  }
}

void BuildTransit(SkyTrack& track, const SkyProjection& projection) {
  const double period = SatelliteStates[1].Period;
  const double s = period / stepsPerPeriod;
  const double now = ClockFields.JulianDayNow;
  const auto at = [&](int step) {
    return TrackPointAt(projection, 1, now + s * step / secondsPerDay,
                        CurrentDate + s * step / secondsPerDay);
  };
  track.Start = at(-1);
  for (int step = 0; step < stepsPerPeriod; ++step) {
    track.Points.push_back(at(step));
    if (track.Points.back().Altitude < 0) break;
  }
  ProjectTrack(track, projection);
}

}  // namespace

TrackPoint TrackPointAt(const SkyProjection& projection, int slot, double julianDay, Date time) {
  ComputeSatelliteState(slot, julianDay);
  const SatelliteState& state = SatelliteStates[slot];
  double x = 0, y = 0;
  Mappatura(projection, state.Azimuth, state.Elevation, x, y);
  TrackPoint point;
  point.X = ToSingle(x);
  point.Y = ToSingle(y);
  point.Time = time;
  if (state.Condition != Eclipsed) point.Magnitude = state.Magnitude;
  point.Azimuth = state.Azimuth;
  point.Altitude = state.Elevation;
  point.Condition = ToInt16(state.Condition);
  return point;
}

void ComputeTransit(SkyTrack& track, const SkyProjection& projection) {
  track.Clear();
  if (ActiveCount < 1 || !(SatelliteStates[1].Elevation > 0)) return;
  const WaitPointerHold wait;
  const TickHold hold;
  Attempt([&] { BuildTransit(track, projection); });
  Attempt([] {
    UpdateSiderealTime(CurrentDate);
    ComputeSatelliteState(1, ClockFields.JulianDayNow);
  });
}

void ProjectTrack(SkyTrack& track, const SkyProjection& projection) {
  const auto project = [&](TrackPoint& point) {
    double x = 0, y = 0;
    Mappatura(projection, point.Azimuth, point.Altitude, x, y);
    point.X = ToSingle(x);
    point.Y = ToSingle(y);
  };
  for (TrackPoint& point : track.Points) project(point);
  if (track.Points.size() > 1) CutEnd(track.Points.back(), track.Points[track.Points.size() - 2]);
  if (track.Start && !track.Points.empty()) {
    project(*track.Start);
    CutEnd(*track.Start, track.Points.front());
  }
  for (TimeMark& mark : track.Marks) {
    const TrackPoint& point = track.Points.at(static_cast<std::size_t>(mark.Point));
    const double x = static_cast<double>(point.X), y = static_cast<double>(point.Y);
    mark.X2 += x - mark.X1;
    mark.Y2 += y - mark.Y1;
    mark.X1 = x;
    mark.Y1 = y;
  }
}

std::optional<int> NearestTrackPoint(const SkyTrack& track, const ChartBox& box, double x, double y) {
  const bool inside =
      IsWithinChart(box, x) && y <= static_cast<double>(box.Top) && y >= static_cast<double>(box.Bottom);
  if (!inside) return std::nullopt;
  double least = farAway;
  std::optional<int> nearest;
  for (std::size_t i = 0; i < track.Points.size(); ++i) {
    const double dx = static_cast<double>(track.Points[i].X) - x;
    const double dy = static_cast<double>(track.Points[i].Y) - y;
    const double squared = dx * dx + dy * dy;
    if (!(squared < least)) continue;
    least = squared;
    nearest = static_cast<int>(i);
  }
  return nearest;
}

void AddTimeMark(SkyTrack& track, int point, double x, double y) {
  const TrackPoint& at = track.Points.at(static_cast<std::size_t>(point));
  track.Marks.push_back({static_cast<double>(at.X), static_cast<double>(at.Y), x, y, point});
}

std::string TimeMarkText(const TrackPoint& point) {
  std::string text = FormatDate(point.Time, "hh:mm:ss", LanguageDates);
  if (point.Magnitude.kind == MagnitudeValue::Kind::Number)
    text += " " + LookupText("Def", "mag") + " " + Format(point.Magnitude.value, "#0.0");
  return text;
}

}  // namespace halvorine
