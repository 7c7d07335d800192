// What the mouse on the world map does to the active list.
#pragma once

namespace halvorine {

/// Whether a place in the active list can be promoted or removed by the mouse: any but the first of several.
bool CanChangePlace(int slot);

/// Makes a satellite the principal one, shows its name in the status bar and computes both places for the
/// present. Does nothing for a place that cannot be changed. The caller draws.
void PromoteSatellite(int slot);

/// Takes a satellite off the active list and computes the principal one for the present. Does nothing for a
/// place that cannot be changed. The caller draws.
void RemoveMapSatellite(int slot);

}  // namespace halvorine
