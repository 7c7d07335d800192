// Start-up: language, second instance, installation check, and the tables that are read once.
#pragma once

#include <functional>
#include <string>
#include <vector>

namespace halvorine {

/// What start-up shows on its way; the windows are the caller's.
struct StartDialogs {
  std::function<void()> chooseLanguage;  // frmLanguage, modal
};

/// Stage one, before the main window exists; AppPath and UserFolder are set by then. Raises StartupEnds when
/// the program cannot go on; what there is to say has been said by then.
void StartStageOne(const StartDialogs& dialogs);

/// Names, with a leading "\", of the data files that must lie beside the program, in the order of the test.
const std::vector<std::string>& RequiredFiles();

/// Reads the tables of stars, constellations, planets, magnitudes and frequencies. A failure shows
/// "erroredb" and raises StartupEnds.
void LoadDataTables();

/// Names of the languages that are installed, as the choice shows them, in order.
std::vector<std::string> InstalledLanguages();

/// Takes a language of that list as the chosen one and stores it at once. SettingsFailure where the store
/// refuses; the language is in force all the same.
void ChooseLanguage(const std::string& name);

/// The daylight-saving check at the end of start-up, where the option asks for it.
void CheckDaylightSaving();

/// Application title and version as the caption of the main window shows them.
std::string ApplicationCaption();
inline constexpr const char* applicationTitle = "Halvorine";

}  // namespace halvorine
