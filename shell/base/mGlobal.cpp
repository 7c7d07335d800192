#include "shell/base/mGlobal.h"

namespace halvorine {

std::string Stato2Stringa(std::int32_t condition) {
  switch (condition) {
    case Eclipsed:
      return ConditionEclipsed;
    case Visible:
      return ConditionVisible;
    case NotVisible:
      return ConditionNotVisible;
    default:
      return {};
  }
}

void Azzera_Valori(int slot) { SatelliteStates[slot] = {}; }
void Azzera_Satelement(int slot) { ElementSets[slot] = {}; }
void Azzera_RigaDati(int slot) { ElementLines[slot] = {}; }

void SetTickEnabled(bool on) {
  TickHold* hold = TickHold::innermost_;
  if (hold == nullptr) {
    TickEnabled = on;
    return;
  }
  // the outermost hold puts back what stands afterwards
  while (hold->outer_ != nullptr) hold = hold->outer_;
  hold->tick_ = on;
}

void ResetSharedRecords() {
  AppPath.clear();
  DataIsShared = false;
  UserFolder.clear();
  HelpFile.clear();
  TickEnabled = SatelliteTickEnabled = CancelRequested = SuppressDecay = NightColoursActive = false;
  MinuteCounter = 0;
  ConditionEclipsed.clear();
  ConditionVisible.clear();
  ConditionNotVisible.clear();
  LanguageDates = {};
  Site = SavedSite = {};
  Options = SavedOptions = {};
  PrimaryDatabasePath.clear();
  SavedPrimaryDatabasePath.clear();
  LanguageFile.clear();
  CurrentDate = 0;
  ClockFields = {};
  ActiveCount = 0;
  for (int slot = 1; slot <= SlotCount; ++slot) {
    Azzera_Valori(slot);
    Azzera_Satelement(slot);
    Azzera_RigaDati(slot);
  }
  MagnitudeTable.clear();
  FrequencyTable.clear();
  SkyObjectTable = {};
  StarTable.clear();
  PickedStar = {};
  ConstellationLines.clear();
  ConstellationLabels.clear();
}

}  // namespace halvorine
