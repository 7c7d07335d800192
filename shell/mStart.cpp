#include "shell/mStart.h"

#include <algorithm>

#include "astro/mAstro.h"
#include "catalogue/mTables.h"
#include "shell/base/mFiles.h"
#include "shell/base/mGlobal.h"
#include "shell/base/mLang.h"
#include "shell/base/mPlatform.h"
#include "shell/base/mReg.h"
#include "shell/base/mStore.h"
#include "shell/base/mText.h"
#include "sky/mStars.h"

namespace halvorine {

namespace {

constexpr const char* listFile = "Halvorine.ini";

[[noreturn]] void EndWith(MessageKind kind, const std::string& text) {
  Tell(kind, text);
  throw StartupEnds(text);
}

bool LanguageIsThere() {
  if (LanguageFile.empty() || LanguageFile.find_first_of("/\\") != std::string::npos) return false;
  const std::string found = FindProgramFile(LanguageFile);
  return !found.empty() && SameText(found.substr(found.rfind('/') + 1), LanguageFile);
}

std::string StoredLanguage() { return GetRegistryString(settingsApplication, "Generali", "Lingua", ""); }

void SettleLanguage(const StartDialogs& dialogs) {
  LanguageFile = StoredLanguage();
  LanguageLoaded = false;
  if (LanguageIsThere()) return;
  LanguageFile.clear();
  SaveRegistryString(settingsApplication, "Generali", "Lingua", "");
  const std::vector<std::string> files = ListProgramFiles(".ini");
  if (!files.empty() && SameText(files.front(), listFile))
    EndWith(MessageKind::Critical, "No language file available!\nPlease, check the installation");
  dialogs.chooseLanguage();
  if (StoredLanguage().empty() || !LanguageIsThere()) throw StartupEnds("no language was chosen");
}

void CheckInstallation() {
  for (const std::string& name : RequiredFiles())
    if (FindProgramFile(name).empty())
      EndWith(MessageKind::Critical, LookupText("MDIform1", "verificainstallazione1") + "\n" +
                                         LookupText("MDIform1", "verificainstallazione2"));
}

void CreateListFile() {
  if (!FindProgramFile(listFile).empty()) return;
  try {
    WriteProgramFile(listFile, {});
  } catch (const FileFailure&) {
    // a missing list file reads as an empty list; saving will tell
  }
}

}  // namespace

const std::vector<std::string>& RequiredFiles() {
  static const std::vector<std::string> names = {
      "\\MapEarth.dat", "\\Map0.dat",      "\\Map0N45.dat",   "\\Map0S45.dat",   "\\Map90.dat",
      "\\Map90N45.dat", "\\Map90S45.dat",  "\\Map180.dat",    "\\Map180N45.dat", "\\Map180S45.dat",
      "\\Map270.dat",   "\\Map270N45.dat", "\\Map270S45.dat", "\\MapNorth.dat",  "\\MapSouth.dat",
      "\\stars.bin",    "\\cities.dat",    "\\clines.dat",    "\\cnames.dat",    "\\planets.dat",
      "\\frequen.dat"};
  return names;
}

void StartStageOne(const StartDialogs& dialogs) {
  try {
    SettleLanguage(dialogs);
  } catch (const SettingsFailure& failure) {
    EndWith(MessageKind::Critical, failure.what());
  }
  if (!ThePlatform().FirstInstance())
    EndWith(MessageKind::Information, LookupText("MDIForm1", "programmainesecuzione"));
  CreateListFile();
  CheckInstallation();
}

void LoadDataTables() {
  try {
    LoadSkyData();
    ReadSkyObjects(ReadProgramFile("\\planets.dat"));
    ReadMagnitudes(ReadProgramFile("\\magnitud.dat"));
    ReadFrequencies(ReadProgramFile("\\frequen.dat"));
  } catch (const RuntimeFailure&) {
    EndWith(MessageKind::Warning, LookupText("MDIForm1", "erroredb"));
  }
}

std::vector<std::string> InstalledLanguages() {
  std::vector<std::string> names;
  for (const std::string& file : ListProgramFiles(".ini"))
    if (!SameText(file, listFile) && file.size() > 4)
      names.push_back(ProperCase(std::string_view(file).substr(0, file.size() - 4)));
  return names;
}

void ChooseLanguage(const std::string& name) {
  LanguageFile = name + ".ini";
  LanguageLoaded = false;
  SaveRegistryString(settingsApplication, "Generali", "Lingua", LanguageFile);
}

void CheckDaylightSaving() {
  if (Options.CheckDaylight == 0) return;
  const std::optional<ZoneBias> zone = ThePlatform().GetZoneBias();
  const std::uint8_t system = zone && zone->isDaylight ? 1 : 0;
  if (!zone || system == Site.DaylightSaving) return;
  const std::string question =
      LookupText("MDIForm1", "cambiareoralegale1") + "\n" + LookupText("MDIForm1", "cambiareoralegale2");
  if (Tell(MessageKind::Question, question, MessageButtons::YesNo) != MessageAnswer::Yes) return;
  Site.DaylightSaving = system;
  try {
    SaveRegistryString(settingsApplication, "Osservatore", "Ora legale", std::to_string(system));
  } catch (const SettingsFailure& failure) {
    Tell(MessageKind::Warning, failure.what());
  }
}

std::string ApplicationCaption() { return std::string(applicationTitle) + " " + HALVORINE_VERSION; }

}  // namespace halvorine
