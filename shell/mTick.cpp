#include "shell/mTick.h"

#include "astro/mAstro.h"
#include "astro/mConv.h"
#include "catalogue/mCatalogue.h"
#include "orbit/mSat.h"
#include "orbit/mSatTexts.h"
#include "shell/base/mForms.h"
#include "shell/base/mGlobal.h"
#include "shell/base/mLang.h"
#include "shell/base/mPlatform.h"
#include "shell/base/mText.h"

namespace halvorine {

namespace {

constexpr double decayHeight = 98.0;      // km; a perigee below it counts as a decay
constexpr int ticksBetweenRebuilds = 60;  // the map is rebuilt on the tick after

void AdvanceClock() {
  // reading the switch brings the window into being, hidden
  const auto* const time = Load<TimeCalls>("frmTime");
  CurrentDate = time == nullptr || time->UsesComputerClock() ? ComputerDate() : AddSeconds(CurrentDate, 1.0);
  UpdateSiderealTime(CurrentDate);
}

void CountTowardsRebuild() {
  ++MinuteCounter;
  if (MinuteCounter <= ticksBetweenRebuilds) return;
  MinuteCounter = 0;
  if (auto* const map = Loaded<WorldMapCalls>("frmWorldMap")) map->Genera_mappa();
}

/// Computes all slots; false when a decay has ended the tick.
bool ComputeSatellites() {
  for (int slot = 1; slot <= ActiveCount; ++slot) {
    try {
      ComputeSatelliteState(slot, ClockFields.JulianDayNow);
    } catch (const RuntimeFailure&) {
      continue;  // this slot keeps its former state
    }
    if (SatelliteStates[slot].PerigeeHeight < decayHeight && !SuppressDecay) {
      Azzera(slot);
      return false;
    }
  }
  return true;
}

void ShowSatellites() {
  const LiveTexts texts = BuildLiveTexts(SatelliteStates[1], ElementSets[1], Options.RadioChannel[0]);
  const MainFormCalls* const main = MainForm();
  if (auto* const floating = Loaded<FloatingCalls>("frmFloating")) floating->ShowTexts(texts);
  if (auto* const map = Loaded<WorldMapCalls>("frmWorldMap")) {
    for (int slot = 1; slot <= ActiveCount; ++slot) map->Disegna_satellite(slot);
    if (main != nullptr && main->IsChecked("mnuWorldmapCerchioVisibilita")) map->Disegna_visibilita();
    map->ShowTexts(texts);
  }
  if (auto* const sky = Loaded<LocalSkyCalls>("frmLocalSky")) {
    const bool principalOnly = main != nullptr && main->IsChecked("mnuLocalSkySoloPrincipale");
    for (int slot = 1; slot <= ActiveCount && (slot == 1 || !principalOnly); ++slot)
      sky->Disegna_satellite_in_cielo(slot);
    sky->ShowTexts(texts);
  }
}

/// The satellites' share of a tick; false when a decay has ended the tick.
bool TickSatellites() {
  CountTowardsRebuild();
  if (!ElementSets[1].Name.empty()) {
    if (!ComputeSatellites()) return false;
    ShowSatellites();
  }
  if (auto* const track = Loaded<RefreshCalls>("frmTrack")) track->Aggiorna_dati();
  return true;
}

/// Sun, Moon and planets; a body that fails keeps its former place.
void ComputeBodies() {
  for (void (*compute)() : {&ComputeSun, &ComputeMoon, &ComputePlanets}) {
    try {
      compute();
    } catch (const ArithmeticFailure&) {
      continue;
    }
  }
}

}  // namespace

Date ComputerDate() { return AddSeconds(ThePlatform().ComputerClockUtc(), ZoneShift() * 3600); }

void tmrCentrale_Timer() {
  if (!TickEnabled) return;
  AdvanceClock();
  // satellites go first, so that they see the Sun of the tick before
  if (SatelliteTickEnabled && !TickSatellites()) return;
  if (MainFormCalls* const main = MainForm()) {
    const std::string text = ClockText(Options.ClockFormat, ClockFields, Site, LanguageDates);
    if (!text.empty()) main->SetStatusPanel(1, text);
  }
  ShowPrincipalAge();
  ComputeBodies();
  if (auto* const time = Load<TimeCalls>("frmTime")) time->Aggiorna_dati();
  if (auto* const planets = Loaded<RefreshCalls>("frmPlanets")) planets->Aggiorna_dati();
}

void Azzera(int index) {
  const std::string number = ElementSets[index].CatalogNumber;
  const bool satellitesTick = SatelliteTickEnabled;
  SatelliteTickEnabled = false;
  const auto text = [](const char* key) { return LookupText("MDIForm1", key); };
  ThePlatform().ShowMessage(
      MessageKind::Warning, std::string(Trimmed(ElementSets[index].Name)),
      text("satellitedecaduto1") + "\n" + text("satellitedecaduto2") + "\n" + text("satellitedecaduto3"),
      MessageButtons::Ok);
  Azzera_Valori(index);
  if (index == 1) {
    if (auto* const map = Loaded<WorldMapCalls>("frmWorldMap")) map->Azzera_dati();
    if (auto* const sky = Loaded<LocalSkyCalls>("frmLocalSky")) sky->Azzera_dati();
  }
  // the list may have changed while the message stood
  int slot = 0;
  const auto holds = [&number](int at) {
    return at >= 1 && at <= ActiveCount && ElementSets[at].CatalogNumber == number;
  };
  if (holds(index)) slot = index;
  for (int at = 1; slot == 0 && at <= ActiveCount; ++at)
    if (holds(at)) slot = at;
  if (slot != 0) {
    if (auto* const database = Load<DatabaseCalls>("frmDatabase")) {
      database->Show();
      database->SelectActive(slot - 1);
      database->RemoveSelected();
    }
  }
  SatelliteTickEnabled = satellitesTick;
}

std::string ClockText(std::int16_t format, const ClockFieldsRecord& clock, const ObserverSite& site,
                      const DateNames& names) {
  const std::string mark = site.DaylightSaving == 1 ? " *" : " ";
  const auto local = [&](const char* picture) { return FormatDate(clock.LocalDate, picture, names); };
  const auto utc = [&](const char* picture) { return FormatDate(clock.UtcDate, picture, names); };
  switch (format) {
    case 0:
      return local("dd mmmm yyyy  hh:mm:ss") + mark;
    case 1:
      return utc("dd mmmm yyyy  hh:mm:ss") + " (Greenwich)";
    case 2:
      return local("ddd dd mmmm yyyy  hh:mm:ss") + mark;
    case 3:
      return utc("ddd dd mmmm yyyy  hh:mm:ss") + " (Greenwich)";
    case 4:
      return local("mmm dd yyyy  hh:mm:ss") + mark;
    case 5:
      return utc("mmm dd yyyy  hh:mm:ss") + " Greenwich";
    case 6:
      return Format(clock.LocalDayOfYear, "000 giorno") + local(" hh:mm:ss") + mark;
    case 7:
      // the day is Greenwich's and the time of day the observer's: a settled part of the display
      return Format(clock.UtcDayOfYear, "000 giorno") + local(" hh:mm:ss") + " Greenwich";
    case 8:
      return Format(clock.LocalDayOfYear + clock.LocalHours / 24, "##0.00000000") + "@" +
             NumberText(clock.LocalYear) + mark;
    case 9:
      return Format(clock.UtcDayOfYear + clock.UtcHours / 24, "##0.00000000") + "@" +
             NumberText(clock.UtcYear) + " Greenwich";
    default:
      return {};
  }
}

}  // namespace halvorine
