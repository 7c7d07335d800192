// The display values of a satellite's state, as text.
#pragma once

#include <string>

#include "shell/base/mGlobal.h"

namespace halvorine {

/// Magnitude as shown: by the picture "#0.0", "???" or "" as they are, "*" below the horizon or in eclipse.
std::string MagnitudeText(const SatelliteState& state);

/// The eighteen live values. `set` gives the radio channels, of which `channel` (1 to 10) is in use; any
/// other number counts as a free channel. Right ascension and declination are those of the observer's sky at
/// the instant of ClockFields. A frequency text that is no number gives "0".
LiveTexts BuildLiveTexts(const SatelliteState& state, const ElementSet& set, int channel);

}  // namespace halvorine
