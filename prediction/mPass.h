// The pass search: every stretch of time in which a satellite stands above a wanted elevation, with what is
// seen at its rise, culmination and set. The engine keeps numbers; texts are made where they are shown.
#pragma once

#include <span>
#include <string>

#include "orbit/mSatReach.h"
#include "shell/base/mGlobal.h"
#include "shell/base/mPlatform.h"

namespace halvorine {

/// What a run looks for. Times are Julian days (Universal Time), angles degrees.
struct PassQuery {
  double tStart = 0, tEnd = 0;
  double threshold = 0;                     // elevation that a pass must exceed
  double azimuthMin = 0, azimuthMax = 360;  // of the culmination; not looked at with visibleOnly
  bool morning = true, evening = true;      // culminations up to and after 12:00 of the local clock
  bool visibleOnly = false;                 // rise, culmination or set must be in condition Visible
  bool transitOnly = false;                 // of a database only what is above the horizon at tStart
};

/// What is seen at one event of a pass.
struct PassEvent {
  double julianDay = 0;
  Date date = 0;  // civil local date and time
  double elevation = 0, azimuth = 0;
  double range = 0;  // km
  double sunElevation = 0;
  std::int32_t condition = 0;
  MagnitudeValue magnitude;
};

/// One pass. Where it began before tStart or ends after tEnd, its rise or set is the end of the span.
struct PassRecord {
  int currentEntry = 0;  // number of the database entry, 0 for an active satellite
  int slot = 0;
  PassEvent rise, culmination, set;
  double durationTotal = 0;  // whole seconds
  /// Magnitude at culmination; 99 where there is none.
  double MagnitudeValueForOrder() const;
};

/// Hours, minutes and seconds of a duration in whole seconds.
struct PassDuration {
  double hours = 0, minutes = 0, seconds = 0;
};
PassDuration DurationOf(double totalSeconds);

/// The fixed-width texts of an event and its whole report row.
struct PassTexts {
  std::string height, azimuth, magnitude, sun, distance, state;
  std::string row;
};
PassTexts TextsOf(const PassEvent& event);
/// Some of them alone.
std::string HeightText(const PassEvent& event);
std::string AzimuthText(const PassEvent& event);
std::string MagnitudeText(const PassEvent& event);
std::string StateText(const PassEvent& event);

/// Follows a run. Progress comes by the clock and not for each item.
class PassWatcher {
 public:
  virtual ~PassWatcher() = default;
  /// Number of the entry or ordinal of the active satellite in work, and days done of the present one.
  virtual void Progress(int /*number*/, double /*days*/) {}
  /// A pass that has stayed; its satellite is still in its slot.
  virtual void Found(const PassRecord& pass) = 0;
};

/// Raised when the user cancels, and caught by the runs below.
class SearchCancelled : public RuntimeFailure {
 public:
  SearchCancelled() : RuntimeFailure("pass search cancelled") {}
};

/// Julian day of an instant in the observer's civil time, as the search starts from it.
double PassStart(Date local);

/// Whether the search leaves an orbit out, because its elevation hardly changes or changes too slowly.
bool HasNearlyConstantElevation(const ElementSet& set);

/// One run of the search. Shares PassSlot and PassThreshold with the numerics, and yields to the window
/// system; the tick must be held off meanwhile.
class PassEngine {
 public:
  PassEngine(const PassQuery& query, PassWatcher& watcher);

  /// Searches the slots from first to last. False when cancelled; what was found before stays found.
  bool RunSlots(int first, int last);
  /// Searches all entries of a database in their order by slot 201, which is empty afterwards. Entries that
  /// cannot be decoded or computed are passed over. False when cancelled.
  bool RunDatabase(std::span<const DatabaseEntry> entries);

  /// All passes of PassSlot between two Julian days; `step` and `delta` in days are the stride of the walk
  /// and the width of its slopes.
  void PREDICI(double tStart, double tEnd, double step, double delta);
  /// The pass around `tFound`: its events, the filters, and its way to the watcher. Raises SearchCancelled.
  void EVENTI(double tStart, double tEnd, double tFound);

 private:
  /// The shared values before a satellite's search, for the case that it must be done again.
  struct Before {
    StateScratchRecord scratch;
    WorkingElementsRecord elements;
    std::array<double, 3> position, velocity;
    double sunDeg, sunRad;
    SatelliteState state;
    double tRise, tSet;
  };
  Before Remember() const;
  void PutBack(const Before& before);

  void SearchEntry(const DatabaseEntry& entry);
  void SearchSlot();
  /// As PREDICI, but looks only where the satellite can rise. Gives the same passes.
  void SearchWithinReach(double tStart, double tEnd, double step, double delta);
  double SlopeAt(double t, double delta);
  /// EVENTI with the value at tFound at hand; `isTop` where the elevation falls on both sides of it.
  void FileEvent(double tStart, double tEnd, double tFound, double fFound, bool isTop);
  /// Rise or set: the crossing of the threshold on the side of `tOuter`, or `limit` where it lies beyond.
  PassEvent Crossing(double tOuter, double limit, double& found);
  /// ExtendBracket from the top of a plain pass, by a guess of its length instead of one round after another.
  bool ExtendFromTop(double& tOuter, double& fOuter, double guess);
  void StateAt(double julianDay);
  PassEvent EventAt(double julianDay) const;
  bool Stays(const PassRecord& pass) const;
  /// Lets events run where it is time, then raises SearchCancelled where the user has asked for the end.
  void YieldAndLook(double days);

  PassQuery query_;
  PassWatcher& watcher_;
  StateObjective wholeState_;
  ElevationObjective elevation_;
  Reach reach_;
  Objective* f_ = &wholeState_;
  bool within_ = false;  // bounds of reach_ hold for the satellite in work
  double tFound_ = 0, fFound_ = 0;
  bool isTop_ = false;
  YieldClock clock_;
  int currentEntry_ = 0, number_ = 0;
  int events_ = 0, silentEvents_ = 0;  // of this satellite; those that were filed before it was done again
  double tRise_ = 0, tSet_ = 0;        // a search that fails leaves those of the pass before
};

}  // namespace halvorine
