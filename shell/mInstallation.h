// Where an installed program finds its data, and the check of an installation that a packager runs without a
// screen.
#pragma once

#include <string>

namespace halvorine {

/// The folder that holds the data files: the executable's own where they lie beside it, as in a portable
/// folder, else the shared one of an installation (`../share/halvorine`), else the executable's own again.
/// Separators at the end are dropped.
std::string DataFolderOf(const std::string& executableFolder);

/// What was found of the program's data.
struct InstallationReport {
  bool whole = false;
  std::string text;  // one line for each table or fault, each with a line feed
};

/// Reads every data table from AppPath and UserFolder, as a start does. Asks nothing, writes nothing, and
/// raises nothing: what is missing or cannot be read is a line of the report.
InstallationReport InspectInstallation();

}  // namespace halvorine
