#include <algorithm>
#include <utility>

#include "astro/mConv.h"
#include "astro/mMate.h"
#include "catalogue/mCatalogue.h"
#include "catalogue/mCatalogueParts.h"
#include "orbit/mSat.h"
#include "shell/base/mForms.h"
#include "shell/base/mLang.h"
#include "shell/base/mLongOperation.h"
#include "shell/base/mPlatform.h"
#include "shell/base/mText.h"

namespace halvorine {

namespace {

constexpr int nameColumns = 24;

void ClearSlot(int slot) {
  Azzera_RigaDati(slot);
  Azzera_Satelement(slot);
}

void CopySlot(int from, int to) {
  ElementSets[to] = ElementSets[from];
  ElementLines[to] = ElementLines[from];
}

void CheckActive(int slot) {
  if (slot < 1 || slot > ActiveCount)
    throw SubscriptFailure("slot " + std::to_string(slot) + " is not active");
}

/// Tells everybody who shows the list.
void ListChanged() {
  if (auto* const window = Loaded<DatabaseCalls>("frmDatabase")) window->ActiveListChanged();
  ShowPrincipalName();
  BlankWhenEmpty();
}

bool RowNames(const std::string& row, const ElementSet& set) {
  return SameText(Trimmed(Columns(row, 1, nameColumns)), set.Name);
}

/// The active slot with that catalogue number as text, 0 for none.
int ActiveSlotOf(std::string_view number) {
  for (int slot = 1; slot <= ActiveCount; ++slot)
    if (ElementSets[slot].CatalogNumber == number) return slot;
  return 0;
}

void TellActive(int slot) {
  ThePlatform().ShowMessage(MessageKind::Information, std::string(Trimmed(ElementSets[slot].Name)),
                            LookupText("frmDatabase", "satellitegiainelenco"), MessageButtons::Ok);
}

void TellFull(MessageKind kind) {
  Tell(kind,
       LookupText("frmDatabase", "limiteraggiunto1") + "\n" + LookupText("frmDatabase", "limiteraggiunto2"));
}

void Append(const EntryView& entry) {
  const int slot = ActiveCount + 1;
  Azzera_Valori(slot);
  DecodeInto(slot, entry);
  ActiveRows.emplace_back(entry.name);
  ActiveCount = ToInt16(slot);
}

void Compact() {
  int to = 1;
  for (int slot = 1; slot <= SlotCount; ++slot) {
    if (ElementLines[slot].name.empty()) continue;
    if (slot != to) CopySlot(slot, to);
    ++to;
  }
  for (; to <= SlotCount; ++to) ClearSlot(to);
}

}  // namespace

void ShowPrincipalName() {
  if (MainFormCalls* const main = MainForm())
    main->SetStatusPanel(2, std::string(Trimmed(ElementSets[1].Name)));
  ShowPrincipalAge();
}

void BlankWhenEmpty() {
  if (ActiveCount > 0) return;
  if (auto* const map = Loaded<WorldMapCalls>("frmWorldMap")) map->Azzera_dati();
  if (auto* const sky = Loaded<LocalSkyCalls>("frmLocalSky")) sky->Azzera_dati();
}

void FillActiveRows() {
  ActiveRows.clear();
  for (int slot = 1; slot <= ActiveCount; ++slot) ActiveRows.push_back(ElementSets[slot].Name);
}

void SyncActiveRows() {
  ActiveRows.resize(static_cast<std::size_t>(ActiveCount));
  int slot = 1;
  for (std::string& row : ActiveRows) {
    const ElementSet& set = ElementSets[slot++];
    if (!RowNames(row, set)) row = set.Name;
  }
}

void AddSelected(int index, const std::vector<int>& numbers) {
  const SatelliteDatabase& database = DatabaseOf(index);
  if (LongOperation::Refused()) return;
  if (numbers.empty()) {
    Tell(MessageKind::Information, LookupText("frmDatabase", "nosatelliteselezionato"));
    return;
  }
  SyncActiveRows();
  for (const int number : numbers) {
    if (ActiveCount >= MaxActive) {
      ListChanged();
      TellFull(MessageKind::Warning);
      return;
    }
    if (number < 1 || number > database.Count()) continue;
    const EntryView& entry = database.Entry(number);
    if (const int slot = ActiveSlotOf(NumberKey(entry))) {
      ListChanged();
      TellActive(slot);
      continue;
    }
    Append(entry);
  }
  ListChanged();
}

bool ActivateEntry(int number) {
  if (LongOperation::Refused()) return false;
  if (ActiveCount >= MaxActive) {
    TellFull(MessageKind::Information);
    return false;
  }
  if (number < 1 || number > PrimaryDatabase.Count()) return true;
  if (const int slot = ActiveSlotOf(NumberKey(PrimaryDatabase.Entry(number)))) {
    TellActive(slot);
    return true;
  }
  const MessageAnswer answer =
      Tell(MessageKind::Question, LookupText("frmVisibleSatellites", "impostarecomeprincipale"),
           MessageButtons::YesNoCancel);
  if (answer == MessageAnswer::Cancel) return false;
  // lists may have changed while the question stood
  if (ActiveCount >= MaxActive || number > PrimaryDatabase.Count()) return false;
  SyncActiveRows();
  Append(PrimaryDatabase.Entry(number));
  ListChanged();
  if (answer != MessageAnswer::Yes || ActiveCount == 1) return true;
  const int position = MoveSelected({ActiveCount - 1}, ActiveMove::ToPrincipal);
  if (auto* const window = Loaded<DatabaseCalls>("frmDatabase")) window->SelectActive(position);
  return true;
}

void RemoveSelected(const std::vector<int>& positions) {
  if (positions.empty()) {
    Tell(MessageKind::Information, LookupText("frmDatabase", "nosatelliteselezionato"));
    return;
  }
  SyncActiveRows();
  std::vector<int> order(positions);
  std::sort(order.rbegin(), order.rend());
  order.erase(std::unique(order.begin(), order.end()), order.end());
  for (const int position : order) {
    if (position < 0 || position >= ActiveCount) continue;
    ActiveRows.erase(ActiveRows.begin() + position);
    ClearSlot(position + 1);
  }
  Compact();
  ActiveCount = ToInt16(static_cast<double>(ActiveRows.size()));
  for (int slot = ActiveCount + 1; slot <= SlotCount; ++slot) {
    ClearSlot(slot);
    Azzera_Valori(slot);
  }
  ListChanged();
}

void RemoveActive(int slot) {
  CheckActive(slot);
  SyncActiveRows();
  for (int from = slot + 1; from <= ActiveCount; ++from) {
    CopySlot(from, from - 1);
    SatelliteStates[from - 1] = SatelliteStates[from];
  }
  ClearSlot(ActiveCount);
  Azzera_Valori(ActiveCount);
  ActiveRows.erase(ActiveRows.begin() + (slot - 1));
  --ActiveCount;
  ListChanged();
}

void SwapActive(int a, int b) {
  CheckActive(a);
  CheckActive(b);
  SyncActiveRows();
  CopySlot(a, ScratchSlot);
  CopySlot(b, a);
  CopySlot(ScratchSlot, b);
  ClearSlot(ScratchSlot);
  std::swap(ActiveRows[static_cast<std::size_t>(a - 1)], ActiveRows[static_cast<std::size_t>(b - 1)]);
  if (auto* const window = Loaded<DatabaseCalls>("frmDatabase")) window->ActiveListChanged();
}

int MoveSelected(const std::vector<int>& positions, ActiveMove move) {
  if (LongOperation::Refused()) return -1;
  if (positions.size() != 1) {
    Tell(MessageKind::Information, LookupText("frmDatabase", "selezionaresatellite"));
    return -1;
  }
  const int from = positions.front();
  const int to = move == ActiveMove::Up ? from - 1 : move == ActiveMove::Down ? from + 1 : 0;
  if (from < 0 || from >= ActiveCount || to < 0 || to >= ActiveCount || to == from) return -1;
  SwapActive(from + 1, to + 1);
  if (from == 0 || to == 0) PrincipalChanged();
  if (move == ActiveMove::Down) ShowPrincipalName();
  return to;
}

void RotateActive() {
  if (ActiveCount == 0 || LongOperation::Refused()) return;
  SyncActiveRows();
  std::rotate(ActiveRows.begin(), ActiveRows.begin() + 1, ActiveRows.end());
  CopySlot(1, ActiveCount + 1);
  ClearSlot(1);
  for (int slot = 2; slot <= ActiveCount + 1; ++slot) {
    CopySlot(slot, slot - 1);
    ClearSlot(slot);
  }
  if (auto* const window = Loaded<DatabaseCalls>("frmDatabase")) window->ActiveListChanged();
  PrincipalChanged();
}

void ClearActive() {
  for (int slot = 1; slot <= SlotCount; ++slot) {
    ClearSlot(slot);
    Azzera_Valori(slot);
  }
  ActiveCount = 0;
  ActiveRows.clear();
  ListChanged();
}

void RemoveAllActive() {
  if (ActiveCount == 0 || LongOperation::Refused()) return;
  if (Tell(MessageKind::Question, LookupText("frmDatabase", "richiestacancellazione"),
           MessageButtons::YesNoDefaultNo) == MessageAnswer::Yes)
    ClearActive();
}

void PrincipalChanged() {
  ShowPrincipalName();
  if (auto* const map = Loaded<WorldMapCalls>("frmWorldMap")) {
    Attempt([] { ComputeSatelliteState(1, ClockFields.JulianDayNow); });
    map->Genera_mappa();
  }
  MainFormCalls* const main = MainForm();
  auto* const sky = Loaded<LocalSkyCalls>("frmLocalSky");
  if (main == nullptr || sky == nullptr || !main->IsChecked("mnuLocalSkyTransitoPrincipale")) return;
  main->SetChecked("mnuLocalSkyTempi", false);
  main->SetChecked("mnuLocalSkyTransitoPrincipale", false);  // its toolbar button follows
  sky->ResetModeButton();
  sky->Genera_mappa();
}

}  // namespace halvorine
