// The shared records of the running program, one instance each, read and written directly by every part.
// All of it belongs to the one user-interface thread. Whoever writes a record redraws what depends on it.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "shell/base/mRecords.h"

namespace halvorine {

inline std::string AppPath;     // folder of the program, without a separator at its end
inline bool DataIsShared;       // AppPath belongs to the whole system: nothing is ever written there
inline std::string UserFolder;  // what the program rewrites, where its own folder cannot be written
inline std::string HelpFile;    // full name of the help file of the language

inline bool TickEnabled = false;           // while false a tick does nothing at all
inline bool SatelliteTickEnabled = false;  // while false a tick leaves the satellites alone
inline bool CancelRequested = false;       // set by Cancel; who watches it clears it when the work ends
inline bool SuppressDecay = false;         // while true a tick reports no decay
inline std::int16_t MinuteCounter = 0;     // ticks since the world map was last rebuilt
inline bool NightColoursActive = false;

inline std::string ConditionEclipsed, ConditionVisible, ConditionNotVisible;
inline DateNames LanguageDates;

inline ObserverSite Site, SavedSite;
inline ProgramOptions Options, SavedOptions;
inline std::string PrimaryDatabasePath, SavedPrimaryDatabasePath;
inline std::string LanguageFile;  // name with its ending, without a path

inline Date CurrentDate = 0;  // the program's clock, in the observer's civil time
inline ClockFieldsRecord ClockFields;

inline std::int16_t ActiveCount = 0;
inline Slots<ElementSet, SlotCount> ElementSets;
inline Slots<DatabaseEntry, SlotCount> ElementLines;
inline Slots<SatelliteState, SlotCount> SatelliteStates;

inline std::vector<std::string> MagnitudeTable;  // standard magnitude by catalogue number
inline std::vector<FrequencyRow> FrequencyTable;
inline Slots<SkyObject, 10> SkyObjectTable;
inline std::vector<StarRow> StarTable;
inline StarRecord PickedStar;  // the star that was last picked on a chart
inline std::vector<ConstellationLine> ConstellationLines;
inline std::vector<ConstellationLabel> ConstellationLabels;

/// The text of a condition code; the empty text for any other number.
std::string Stato2Stringa(std::int32_t condition);

/// Reset one slot of the states, the element sets or the source lines to the empty record.
/// A slot outside 1 to 202 raises SubscriptFailure.
void Azzera_Valori(int slot);
void Azzera_Satelement(int slot);
void Azzera_RigaDati(int slot);

/// Puts every shared record back to its state before start-up; serves tests.
void ResetSharedRecords();

/// Switches the tick on or off. While a TickHold lives, the choice takes effect at its end.
void SetTickEnabled(bool on);

/// Holds the tick off while it lives and puts both flags back as they were, so that a clock which stood
/// before still stands afterwards.
class TickHold {
 public:
  TickHold() : tick_(TickEnabled), satellites_(SatelliteTickEnabled), outer_(innermost_) {
    TickEnabled = false;
    innermost_ = this;
  }
  ~TickHold() {
    TickEnabled = tick_;
    SatelliteTickEnabled = satellites_;
    innermost_ = outer_;
  }
  TickHold(const TickHold&) = delete;
  TickHold& operator=(const TickHold&) = delete;

 private:
  friend void SetTickEnabled(bool on);
  inline static TickHold* innermost_ = nullptr;
  bool tick_, satellites_;
  TickHold* outer_;
};

}  // namespace halvorine
