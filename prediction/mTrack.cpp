#include "prediction/mTrack.h"

#include <algorithm>
#include <array>
#include <cstddef>

#include "astro/mConv.h"
#include "orbit/mSatTexts.h"
#include "shell/base/mGlobal.h"
#include "shell/base/mLang.h"

namespace halvorine {

namespace {

/// A frequency by the picture of the panel; "0" where the channel has none.
std::string FrequencyOf(const std::array<std::string, 10>& frequencies, int channel) {
  if (channel < 1 || channel > static_cast<int>(frequencies.size())) return "0";
  const std::string& frequency = frequencies[static_cast<std::size_t>(channel - 1)];
  if (frequency.empty()) return "0";
  try {
    return Format(ParseStrict(frequency), "000.0000");
  } catch (const ConversionFailure&) {
    return "0";
  }
}

}  // namespace

TrackRow TrackRowOf(int slot, int channel) {
  TrackRow row;
  row.BelowHorizon = SatelliteStates[slot].Elevation < 0;
  row.Name = ElementLines[slot].name;
  row.Filled = !row.Name.empty();
  if (!row.Filled) return row;
  const int used = channel == 0 ? 1 : channel;
  row.Live = BuildLiveTexts(SatelliteStates[slot], ElementSets[slot], used);
  // the picture of the hours here is "#0"
  if (row.Live.Ascension.starts_with('0')) row.Live.Ascension.erase(0, 1);
  row.Downlink = FrequencyOf(ElementSets[slot].Downlink, used);
  row.Uplink = FrequencyOf(ElementSets[slot].Uplink, used);
  return row;
}

int MovedTrackPage(int firstSlot, TrackMove move) {
  switch (move) {
    case TrackMove::First:
      return 1;
    case TrackMove::Previous:
      return firstSlot > 1 ? firstSlot - 1 : firstSlot;
    case TrackMove::Next:
      return firstSlot < LastTrackPage ? firstSlot + 1 : firstSlot;
    default:
      return std::clamp(ActiveCount - (TrackRows - 1), 1, LastTrackPage);
  }
}

std::string TrackPageText(int firstSlot) {
  return LookupText("frmTrack", "satelliti") + ":  " + std::to_string(firstSlot) + " - " +
         std::to_string(firstSlot + TrackRows - 1);
}

}  // namespace halvorine
