#include "shell/mInstallation.h"

#include <algorithm>
#include <filesystem>
#include <functional>
#include <utility>
#include <vector>

#include "astro/mAstro.h"
#include "catalogue/mTables.h"
#include "shell/base/mFiles.h"
#include "shell/base/mGlobal.h"
#include "shell/mStart.h"
#include "sky/mStars.h"

namespace halvorine {

namespace {

namespace fs = std::filesystem;

bool HoldsData(const fs::path& folder) {
  std::error_code ignored;
  return fs::is_regular_file(folder / "MapEarth.dat", ignored);
}

std::size_t LinesOf(const std::string& content) {
  return static_cast<std::size_t>(std::count(content.begin(), content.end(), '\n'));
}

}  // namespace

std::string DataFolderOf(const std::string& executableFolder) {
  const fs::path own = executableFolder;
  if (HoldsData(own)) return own.string();
  const fs::path shared = (own / ".." / "share" / "halvorine").lexically_normal();
  return HoldsData(shared) ? shared.string() : own.string();
}

InstallationReport InspectInstallation() {
  InstallationReport report{true, "Data: " + AppPath + "\n"};
  const auto fault = [&report](const std::string& what) {
    report.whole = false;
    report.text += "FAULT " + what + "\n";
  };
  for (const std::string& name : RequiredFiles())
    if (FindProgramFile(name).empty()) fault("file " + name.substr(1) + " is missing");
  const std::vector<std::pair<std::string, std::function<std::size_t()>>> tables = {
      {"languages", [] { return InstalledLanguages().size(); }},
      {"places", [] { return LinesOf(ReadProgramFile("\\cities.dat")); }},
      {"stars",
       [] {
         LoadSkyData();
         return StarTable.size();
       }},
      {"magnitudes",
       [] {
         ReadMagnitudes(ReadProgramFile("\\magnitud.dat"));
         return static_cast<std::size_t>(std::count_if(MagnitudeTable.begin(), MagnitudeTable.end(),
                                                       [](const std::string& m) { return !m.empty(); }));
       }},
      {"radio frequencies",
       [] {
         ReadFrequencies(ReadProgramFile("\\frequen.dat"));
         return FrequencyTable.size();
       }},
      {"bodies",
       [] {
         ReadSkyObjects(ReadProgramFile("\\planets.dat"));
         return static_cast<std::size_t>(Earth);
       }},
  };
  for (const auto& [what, count] : tables) {
    try {
      const std::size_t found = count();
      report.text += what + ": " + std::to_string(found) + "\n";
      if (found == 0) fault("no " + what);
    } catch (const RuntimeFailure& failure) {
      fault(what + ": " + failure.what());
    }
  }
  return report;
}

}  // namespace halvorine
