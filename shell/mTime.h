// The clock as the time window shows it, and its three states: real time, a simulation that stands, and one
// that runs. A simulation is no more than CurrentDate set by hand and moved on by the tick.
#pragma once

#include <cstdint>
#include <string>

#include "shell/base/mRecords.h"

namespace halvorine {

/// The labels of the clock, each by the name of its label.
struct TimeTexts {
  std::string LocalTime, LocalDate, LocalYear, UtTime, UtDate, UtcYear, Lst, Gst, Jd;
  std::string LstPlain, GstPlain;  // tool tips of the sidereal times
};

/// Texts of an instant: `current` in the observer's civil time, all else from the clock's fields.
TimeTexts TimeTextsOf(const ClockFieldsRecord& clock, Date current, const DateNames& names);

/// Hours as three groups of digits joined by points. Each group is rounded by itself, so that it may show 60,
/// 24, or a negative number after a group that was rounded up.
std::string SiderealText(double hours);

/// Hours as hh:mm:ss, to the nearest second of a day.
std::string PlainSiderealText(double hours);

enum class TimeState : std::uint8_t { RealTime, Stopped, Running };

/// What the controls of the time window look like in a state.
struct TimeControls {
  const char* stateKey;     // text of lblStato
  bool play, stop, picker;  // enabled
  bool startCaption;        // visible
};
TimeControls TimeControlsOf(TimeState state);

/// The clock follows the computer's from the next tick on. Gives what the picker shows: the computer's
/// instant.
Date EnterRealTime();
/// The clock stands at once. Gives what the picker shows: the present instant.
Date EnterSimulation();
/// A standing clock takes an instant; satellites and charts wait for the next tick.
void ChooseInstant(Date chosen);
/// The clock runs; the first tick of the timer falls exactly on the chosen instant.
void StartSimulation(Date chosen);
/// The clock stands where it is.
void StopSimulation();

}  // namespace halvorine
