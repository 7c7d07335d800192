// The disc of the Moon with its phase, for charts and for the almanac.
#pragma once

#include "maps/DrawSurface.h"

namespace halvorine {

/// Draws the Moon around (x, y), user units of the surface's x axis. The phase angle counts in degrees from
/// the new Moon (0) by the first quarter (90) to the full Moon (180) and on; up to 180 the right side is lit,
/// beyond it the left one. Round on the device whatever the scales. The surface keeps its fill.
void DrawMoon(DrawSurface& surface, double x, double y, double radius, double phaseAngle);

}  // namespace halvorine
