// What the present sky and the program's clock say about the entries and about the principal satellite.
#include "catalogue/mCatalogue.h"
#include "catalogue/mCatalogueParts.h"
#include "orbit/mSat.h"
#include "shell/base/mForms.h"

namespace halvorine {

namespace {

constexpr double oldElements = 30;  // days

/// Whether the satellite of an entry stands above the horizon now; one that fails does not. `text` is memory
/// that all entries share.
bool IsAboveHorizon(const EntryView& entry, DatabaseEntry& text) {
  Azzera_Satelement(ScratchSlot);
  Azzera_Valori(ScratchSlot);
  // a failing model would leave the satellite before it in the sky; the centre of the Earth is below any
  // horizon
  PositionKm = VelocityKmS = {};
  text.name.assign(entry.name);
  text.line1.assign(entry.line1);
  text.line2.assign(entry.line2);
  try {
    Estrai_Dati_Satellite(ScratchSlot, text.name, text.line1, text.line2);
    ComputeSatelliteState(ScratchSlot, ClockFields.JulianDayNow);
  } catch (const RuntimeFailure&) {
    return false;
  }
  return SatelliteStates[ScratchSlot].Elevation > 0;
}

}  // namespace

std::vector<int> RowsAboveHorizon(int index) {
  const TickHold hold;
  const SatelliteDatabase& database = DatabaseOf(index);
  const std::shared_ptr<const CatalogueRows> rows = ListedRows(index);
  std::vector<int> above;
  DatabaseEntry text;
  for (int row = 0; row < rows->Count(); ++row)
    if (IsAboveHorizon(database.Entry(rows->Number(row)), text)) above.push_back(row);
  return above;
}

bool DecodeEntry(int index, int number) {
  if (number < 1 || number > DatabaseOf(index).Count()) return false;
  DecodeInto(ScratchSlot, DatabaseOf(index).Entry(number));
  return true;
}

void ShowEntry(int index, int number) {
  if (CanLoadForm("frmSatellite") && DecodeEntry(index, number)) ShowSatellite(ScratchSlot);
}

void ShowSatellite(int slot) {
  if (auto* const window = Load<SatelliteCalls>("frmSatellite")) window->ShowSlot(slot);
}

bool PrincipalIsOld() {
  const ElementSet& principal = ElementSets[1];
  return !principal.Name.empty() && ClockFields.JulianDayNow - principal.EpochJulianDay > oldElements;
}

void ShowPrincipalAge() {
  const bool old = PrincipalIsOld();
  if (MainFormCalls* const main = MainForm()) main->WarnOfOldElements(old);
  if (auto* const window = Loaded<DatabaseCalls>("frmDatabase")) window->WarnOfOldElements(old);
}

}  // namespace halvorine
