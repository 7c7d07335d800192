// The central tick: one step of the program's clock, the states of all active satellites, and the refresh of
// whatever is open. Everything that is seen moving is moved from here.
#pragma once

#include <cstdint>
#include <string>

#include "shell/base/mRecords.h"

namespace halvorine {

/// One tick. Called once a second by the timer, once directly at start-up, and by the start of a simulation.
/// A satellite that cannot be computed keeps its former state, and the tick goes on with the next one.
void tmrCentrale_Timer();

/// Tells that the satellite in a slot has decayed and removes it from the active list.
void Azzera(int index);

/// Clock text of status bar panel 1 for an option value of 0 to 9; the empty text for any other value.
std::string ClockText(std::int16_t format, const ClockFieldsRecord& clock, const ObserverSite& site,
                      const DateNames& names);

/// The computer's instant in the observer's civil time.
Date ComputerDate();

}  // namespace halvorine
