#include "sky/mSkySat.h"

#include <cmath>

#include "astro/mAstro.h"
#include "astro/mConv.h"
#include "astro/mMate.h"
#include "orbit/mSat.h"
#include "shell/base/mGlobal.h"
#include "shell/base/mPlatform.h"

namespace halvorine {

namespace {

constexpr double secondsPerDay = 86400;
constexpr double reach = 10;                // squared chart units from a press to the track
constexpr double longestPass = 30 * 86400;  // seconds; no list looks further ahead

/// Keeps the tick off and puts clock, place and bodies back to what they were before.
class OtherMoment {
 public:
  explicit OtherMoment(const ObserverSite& place) { Site = place; }
  ~OtherMoment() {
    Site = site_;
    ClockFields = clock_;
    SkyObjectTable = bodies_;
    SunLongitudeRad = sunLongitude_;
    SunMeanAnomalyRad = sunAnomaly_;
    SunRightAscension = sunRightAscension_;
    SunDeclination = sunDeclination_;
  }
  OtherMoment(const OtherMoment&) = delete;
  OtherMoment& operator=(const OtherMoment&) = delete;

 private:
  TickHold hold_;
  ObserverSite site_ = Site;
  ClockFieldsRecord clock_ = ClockFields;
  Slots<SkyObject, 10> bodies_ = SkyObjectTable;
  double sunLongitude_ = SunLongitudeRad, sunAnomaly_ = SunMeanAnomalyRad;
  double sunRightAscension_ = SunRightAscension, sunDeclination_ = SunDeclination;
};

/// Lends the scratch slot to an element set. Whoever worked on the slot before, a pass search in the middle
/// of its run among them, finds it and the orbit records as they were.
class ScratchLoan {
 public:
  explicit ScratchLoan(const PassChart& pass) {
    ElementSets[ScratchSlot] = pass.elements;
    ElementSets[ScratchSlot].Uplink = {};
    ElementSets[ScratchSlot].Downlink = {};
    ElementLines[ScratchSlot] = pass.lines;
    Azzera_Valori(ScratchSlot);
  }
  ~ScratchLoan() {
    ElementSets[ScratchSlot] = elements_;
    ElementLines[ScratchSlot] = lines_;
    SatelliteStates[ScratchSlot] = state_;
    StateScratch = scratch_;
    WorkingElements = working_;
    PositionKm = position_;
    VelocityKmS = velocity_;
    SunElevationDeg = sunDeg_;
    SunElevationRad = sunRad_;
  }
  ScratchLoan(const ScratchLoan&) = delete;
  ScratchLoan& operator=(const ScratchLoan&) = delete;

 private:
  ElementSet elements_ = ElementSets[ScratchSlot];
  DatabaseEntry lines_ = ElementLines[ScratchSlot];
  SatelliteState state_ = SatelliteStates[ScratchSlot];
  StateScratchRecord scratch_ = StateScratch;
  WorkingElementsRecord working_ = WorkingElements;
  std::array<double, 3> position_ = PositionKm, velocity_ = VelocityKmS;
  double sunDeg_ = SunElevationDeg, sunRad_ = SunElevationRad;
};

void BuildTrack(SkyTrack& track, const PassChart& pass, const SkyProjection& projection, double julianDay) {
  const auto at = [&](int seconds) {
    return TrackPointAt(projection, ScratchSlot, julianDay + seconds / secondsPerDay,
                        AddSeconds(pass.rise, seconds));
  };
  const double length = std::round((pass.set - pass.rise) * secondsPerDay);
  if (!(length >= 0 && length <= longestPass)) return;
  const int last = ToInt32(length);
  const int step = PassStep(last / 60);
  track.Start = at(0);
  for (int seconds = SecondsToFirstPoint(pass.rise); seconds <= last; seconds += step)
    track.Points.push_back(at(seconds));
  if (track.Points.empty()) track.Points.push_back(*track.Start);  // over before the first quarter
}

double JulianDayOf(Date local) {
  UpdateSiderealTime(local);
  return ClockFields.JulianDayNow;
}

void DrawSatellite(DrawSurface& surface, const PassView& view) {
  if (view.Sky.Track.Points.empty() || view.Sky.Pictures == nullptr) return;
  const TrackPoint& first = view.Sky.Track.Points.front();
  const DrawPicture& icon =
      view.Sky.Pictures->Icon(SkyIconOf(view.Pass.elements.CatalogNumber, first.Condition));
  PaintCentred(surface, icon, static_cast<double>(first.X), static_cast<double>(first.Y));
}

}  // namespace

PassView EmptyPassView() {
  PassView view;
  view.Sky.Switches = SwitchesOf(Options.Preview);
  view.Sky.Projection = ProjectionOf(Options.Preview);
  view.Sky.StarCount = Options.Preview.StarCount;
  view.Sky.Square = true;
  view.Pass.selected = CurrentDate;
  view.Place = Site;
  return view;
}

int PassStep(int wholeMinutes) {
  if (wholeMinutes < 10) return 15;
  if (wholeMinutes < 20) return 30;
  if (wholeMinutes < 60) return 60;
  return wholeMinutes < 720 ? 120 : 180;
}

int SecondsToFirstPoint(Date start) {
  const int s = PartsOf(start).second;
  return (s > 45 ? 60 : s > 30 ? 45 : s > 15 ? 30 : 15) - s;
}

void TakePass(PassView& view, const PassChart& pass) {
  view.Pass = pass;
  view.Place = Site;
  view.Sky.Track.Clear();
  view.Events = {};
  if (!view.HasSatellite()) return;
  const WaitPointerHold wait;
  const OtherMoment moment(view.Place);
  const ScratchLoan loan(pass);
  DrawQuietly([&] { BuildTrack(view.Sky.Track, pass, view.Sky.Projection, JulianDayOf(pass.rise)); });
  const std::array<Date, 3> dates{pass.rise, pass.culmination, pass.set};
  for (std::size_t i = 0; i < dates.size(); ++i) {
    view.Events[i].Time = dates[i];
    DrawQuietly([&] {
      view.Events[i] = TrackPointAt(view.Sky.Projection, ScratchSlot, JulianDayOf(dates[i]), dates[i]);
    });
  }
}

void Genera_mappa(DrawSurface& surface, PassView& view) {
  const WaitPointerHold wait;
  const OtherMoment moment(view.Place);
  SkyView& sky = view.Sky;
  surface.AutoRedraw(true);
  DrawQuietly([&] {
    ComputeSkyObjects(view.Pass.selected);
    ProjectObjects(sky.Places, sky.Projection, sky.StarCount);
    ProjectTrack(sky.Track, sky.Projection);
    SetSkyScale(surface, sky);
    DrawSky(surface, sky);
    Disegna_passaggio(surface, sky);
    DrawSatellite(surface, view);
    if (sky.Switches.Landscape) Disegna_terreno(surface, sky);
  });
  surface.AutoRedraw(false);
}

void AtPassMoment(const PassView& view, const std::function<void()>& routine) {
  const OtherMoment moment(view.Place);
  ComputeSkyObjects(view.Pass.selected);
  routine();
}

std::optional<int> PassPointAt(const PassView& view, double x, double y) {
  const std::optional<int> nearest = NearestTrackPoint(view.Sky.Track, {-100, 100, 100, -100}, x, y);
  if (!nearest) return std::nullopt;
  const TrackPoint& point = view.Sky.Track.Points.at(static_cast<std::size_t>(*nearest));
  const double dx = static_cast<double>(point.X) - x, dy = static_cast<double>(point.Y) - y;
  if (!(dx * dx + dy * dy < reach)) return std::nullopt;
  return nearest;
}

}  // namespace halvorine
