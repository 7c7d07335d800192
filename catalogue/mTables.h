// The two side tables of the catalogue, keyed by catalogue number: standard magnitudes and radio channels.
#pragma once

#include <string_view>

namespace halvorine {

/// Reads the text of a magnitude file into MagnitudeTable. Each row resizes the table to its number, so that
/// the last row gives the highest number that the catalogue accepts. Ends at a row with an empty number. A
/// number that is none raises ConversionFailure, one below 0 or of seven digits SubscriptFailure; the table
/// then stays as it was.
void ReadMagnitudes(std::string_view text);

/// Reads the text of a frequency file into FrequencyTable: number, uplink and downlink in MHz, a note that is
/// not kept. The frequencies become the text of a single. Ends at a row with an empty number. A frequency
/// that is no number raises ConversionFailure or OverflowFailure; the table then stays as it was.
void ReadFrequencies(std::string_view text);

/// Read "\magnitud.dat" and "\frequen.dat"; FileFailure where they are missing, else as above.
void LoadMagnitudes();
void LoadFrequencies();

/// The table's text for a catalogue number; the empty text where none is known. A number outside the table
/// raises SubscriptFailure.
std::string_view StandardMagnitude(int number);

/// Gives each row of FrequencyTable to the first active slot with its number, into the first channel of that
/// slot that is free. Channels that are filled stay, so a second run fills further ones with the same.
void DistributeFrequencies();

}  // namespace halvorine
