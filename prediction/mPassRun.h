// A run of the pass search as a window starts it: what can be chosen, what is told before, and the run itself
// with its progress.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "prediction/mPassList.h"

namespace halvorine {

/// The tabs of frmVisibleSatellites: every entry of the primary database, the principal satellite, the
/// others.
enum PassTab : int { AllSatellites = 0, PrincipalSatellite = 1, SecondarySatellites = 2 };
constexpr int PassTabCount = 3;

/// A row of a list of choices.
struct PassChoice {
  std::string text;
  int value;  // its data value
};
/// Rows of cmbDurata: minutes for the whole database, days for the others.
std::vector<PassChoice> DurationChoices(int tab);
/// Rows of cmbLimite: the highest slot to be searched.
std::vector<PassChoice> LimitChoices();

/// What the controls of a tab ask for.
struct PassRequest {
  int tab = AllSatellites;
  bool morning = true, evening = true, visibleOnly = false, noFilter = false, transitOnly = false;
  Date start = 0;    // civil local
  int duration = 0;  // position of the row of cmbDurata
  int limit = 200;   // data value of the row of cmbLimite
};

/// The stored filter of a tab.
const FilterOptions& StoredFilter(int tab);
/// Threshold and range of azimuth for a tab: those of the stored filter, or with `none` 0, 0 and 360.
PassQuery FilterInForce(int tab, bool none);

/// Tells the user where a tab has no satellite to search or neither half of the day is chosen; false then.
/// The database is not looked at.
bool HasSomethingToSearch(const PassRequest& request);
/// Tells the user where the stored range of azimuth runs backwards; false then.
bool HasForwardAzimuths(int tab);

/// What a run has left.
struct PassRun {
  PassList list;
  bool exitWaits = false;  // it was cancelled by an exit, which is asked for again at once
};

/// Searches with the tick held off and frmProgress shown; flags and states of the active satellites are as
/// before in the end. Works on a copy of the database. A cancelled run gives what was found so far, one that
/// fails nothing at all. Refused, with a message and no result, while another long operation runs.
std::optional<PassRun> RunPasses(const PassRequest& request);

/// Makes the satellite of a listed pass the one of PassSlot: an entry of the primary database by way of the
/// scratch slot, or an active slot. False where there is no such satellite any more.
bool PreparePass(int tab, int number);

}  // namespace halvorine
