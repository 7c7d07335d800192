// The almanac of one civil day at the observer's place: the four events of Sun and Moon as they are shown,
// and the phase of the Moon.
#pragma once

#include <string>

#include "maps/DrawSurface.h"
#include "shell/base/mRecords.h"

namespace halvorine {

/// One event as it is shown: its time and azimuth, or in the place of the time why it does not take place.
struct AlmanacEvent {
  std::string Time;     // "06:17", or the note
  std::string Azimuth;  // "091.6°"; empty for an event that does not take place
};

struct Almanac {
  AlmanacEvent SunRise, SunSet, MoonRise, MoonSet;
};

/// The events of the civil day of `date` for Site, in its zone with the daylight saving now in force.
Almanac AlmanacOf(Date date);

/// Longitude of the Moon less that of the Sun, degrees 0 to 360, at an instant in the observer's civil time.
/// The shared clock, the rows of Sun and Moon and the shared values of the Sun stay as they are. A date
/// outside the calendar raises OverflowFailure.
double MoonPhaseAt(Date date);

/// Lit part of the Moon's disc at a phase angle in degrees, 0 to 1.
double MoonLitPart(double phaseAngle);

/// Draws the Moon with its phase into a surface of its own.
void DrawMoonPicture(DrawSurface& surface, double phaseAngle);

}  // namespace halvorine
