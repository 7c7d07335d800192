// The live panel: its rows of ten active satellites, and the pages that they make.
#pragma once

#include <cstdint>
#include <string>

#include "shell/base/mRecords.h"

namespace halvorine {

constexpr int TrackRows = 10;
constexpr int LastTrackPage = 191;  // slot of the top row of the last page

/// One row of the panel as it is shown.
struct TrackRow {
  bool Filled = false;        // whether the slot holds a satellite; all texts of a blank row are empty
  bool BelowHorizon = false;  // as the last computation of the slot left it
  std::string Name;
  LiveTexts Live;                // the right ascension with its hours by "#0"
  std::string Downlink, Uplink;  // of the channel, MHz, without Doppler
};

/// The row of a slot with a radio channel in use; 0 is taken as 1. Right ascension and declination are those
/// of the observer's sky at the instant of ClockFields. SubscriptFailure for a slot that does not exist.
TrackRow TrackRowOf(int slot, int channel);

enum class TrackMove : std::uint8_t { First, Previous, Next, Last };

/// The slot of the top row after a step from `firstSlot`, 1 to 191.
int MovedTrackPage(int firstSlot, TrackMove move);

/// "Satellites:  1 - 10".
std::string TrackPageText(int firstSlot);

}  // namespace halvorine
