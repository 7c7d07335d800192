// The disc of the Moon with its phase, for charts and for the almanac.
#pragma once

#include "maps/DrawSurface.h"

namespace halvorine {

/// Draws the Moon around (x, y); the radius counts in units of the x axis. The phase angle counts in degrees
/// from the new Moon (0) by the first quarter (90) to the full Moon (180) and on; below 180 the right side is
/// lit, from there on the left one. Round on the device whatever the scales. The surface keeps its fill.
void DrawMoon(DrawSurface& surface, double x, double y, double radius, double phaseAngle);

}  // namespace halvorine
