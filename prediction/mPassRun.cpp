#include "prediction/mPassRun.h"

#include <algorithm>
#include <array>

#include "astro/mConv.h"
#include "catalogue/mCatalogue.h"
#include "orbit/mSat.h"
#include "orbit/mSearch.h"
#include "shell/base/mLang.h"
#include "shell/base/mLongOperation.h"

namespace halvorine {

namespace {

constexpr const char* section = "frmVisibleSatellites";

std::string CountText(int count, const char* one, const char* many) {
  return std::to_string(count) + " " + LookupText("Def", count == 1 ? one : many);
}

/// Lists what is found and shows how far the search is.
class RunWatcher : public PassWatcher {
 public:
  RunWatcher(const PassRequest& request, const LongOperation& operation)
      : list(Site),
        operation_(operation),
        task_(LookupText(section, "stocalcolando") + " "),
        satellite_("° " + LookupText(section, "satellite")),
        before_(request.tab == AllSatellites ? 0 : 1) {}
  void Progress(int number, double days) override {
    operation_.ShowTask(task_ + std::to_string(number + before_) + satellite_, days);
  }
  void Found(const PassRecord& pass) override { list.Add(pass, ElementSets[pass.slot].Name); }

  PassList list;

 private:
  const LongOperation& operation_;
  std::string task_, satellite_;
  int before_;  // the ordinal that is shown is one beyond the slot
};

std::vector<DatabaseEntry> CopyOfDatabase() {
  std::vector<DatabaseEntry> entries;
  entries.reserve(static_cast<std::size_t>(PrimaryDatabase.Count()));
  for (int number = 1; number <= PrimaryDatabase.Count(); ++number)
    entries.push_back(PrimaryDatabase.Copy(number));
  return entries;
}

double DaysOf(const PassRequest& request) {
  if (request.tab != AllSatellites) return request.duration + 1;
  const std::vector<PassChoice> choices = DurationChoices(request.tab);
  return choices.at(static_cast<std::size_t>(request.duration)).value / 1440.0;
}

std::string FirstTask(int tab) {
  constexpr std::array<const char*, PassTabCount> keys = {"", "calcoloprimo", "calcolosecondo"};
  return tab == AllSatellites ? std::string() : LookupText(section, keys.at(static_cast<std::size_t>(tab)));
}

/// Puts all states back at its end: the map draws the active satellites from them, also while the clock
/// stands.
class StatesHold {
 public:
  StatesHold() : states_(SatelliteStates) {}
  ~StatesHold() { SatelliteStates = states_; }
  StatesHold(const StatesHold&) = delete;
  StatesHold& operator=(const StatesHold&) = delete;

 private:
  Slots<SatelliteState, SlotCount> states_;
};

void SearchSlots(PassEngine& engine, const PassRequest& request) {
  const StatesHold hold;
  int limit = 1;
  if (request.tab == SecondarySatellites) limit = std::min<int>(request.limit, ActiveCount);
  engine.RunSlots(request.tab, limit);
}

}  // namespace

std::vector<PassChoice> DurationChoices(int tab) {
  std::vector<PassChoice> choices;
  if (tab == AllSatellites) {
    choices.push_back({CountText(30, "minuti", "minuti"), 30});
    for (int hours = 1; hours <= 24; ++hours) choices.push_back({CountText(hours, "ora", "ore"), hours * 60});
  } else {
    for (int days = 1; days <= 28; ++days) choices.push_back({CountText(days, "giorno", "giorni"), days});
  }
  return choices;
}

std::vector<PassChoice> LimitChoices() {
  std::vector<PassChoice> choices;
  for (const int slots : {10, 20, 30, 40, 50}) choices.push_back({std::to_string(slots), slots});
  choices.push_back({LookupText(section, "tutti"), MaxActive});
  return choices;
}

const FilterOptions& StoredFilter(int tab) {
  return tab == AllSatellites        ? Options.FilterAll
         : tab == PrincipalSatellite ? Options.FilterPrincipal
                                     : Options.FilterSecondary;
}

PassQuery FilterInForce(int tab, bool none) {
  PassQuery query;
  if (none) return query;
  const FilterOptions& filter = StoredFilter(tab);
  query.threshold = filter.MinAltitude;
  query.azimuthMin = filter.MinAzimuth;
  query.azimuthMax = filter.MaxAzimuth;
  return query;
}

bool HasSomethingToSearch(const PassRequest& request) {
  const char* key = nullptr;
  if (request.tab == PrincipalSatellite && ActiveCount == 0)
    key = "nessunsatelliteprimario";
  else if (request.tab == SecondarySatellites && ActiveCount < 2)
    key = "nessunsatellitesecondario";
  else if (!request.morning && !request.evening)
    key = "selezionareampm";
  if (key != nullptr) Tell(MessageKind::Information, LookupText(section, key));
  return key == nullptr;
}

bool HasForwardAzimuths(int tab) {
  const FilterOptions& filter = StoredFilter(tab);
  const bool forward = filter.MinAzimuth < filter.MaxAzimuth;
  if (!forward) Tell(MessageKind::Warning, LookupText(section, "intervalloazimutherrato"));
  return forward;
}

std::optional<PassRun> RunPasses(const PassRequest& request) {
  LongOperation operation;
  if (!operation.Started()) return std::nullopt;
  const TickHold hold;
  SatelliteTickEnabled = false;
  PassQuery query = FilterInForce(request.tab, request.noFilter);
  query.tStart = PassStart(request.start);
  query.tEnd = query.tStart + DaysOf(request);
  query.morning = request.morning;
  query.evening = request.evening;
  query.visibleOnly = request.visibleOnly;
  query.transitOnly = request.transitOnly;
  operation.ShowProgress(FirstTask(request.tab), query.tEnd - query.tStart);
  RunWatcher run(request, operation);
  try {
    PassEngine engine(query, run);
    if (request.tab == AllSatellites)
      engine.RunDatabase(CopyOfDatabase());
    else
      SearchSlots(engine, request);
  } catch (const RuntimeFailure&) {
    run.list.Clear();
  }
  return PassRun{run.list, static_cast<bool>(AfterLongOperation)};
}

bool PreparePass(int tab, int number) {
  if (tab != AllSatellites) {
    if (number < 1 || number > ActiveCount) return false;
    PassSlot = ToInt16(number);
    return true;
  }
  PassSlot = ScratchSlot;
  return DecodeEntry(Primary, number);
}

}  // namespace halvorine
