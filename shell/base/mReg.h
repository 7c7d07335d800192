// All that the user can set: one table of section, key, type, default and field, and what is built on it.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <variant>
#include <vector>

#include "shell/base/mRecords.h"

namespace halvorine {

/// Application name under which the settings are stored.
inline const std::string settingsApplication = "Halvorine";

/// Where a setting lives in a ProgramOptions record, by its type.
using OptionField = std::variant<std::int16_t*, std::int32_t*, double*, std::string*>;

/// One row of the table of options.
struct OptionRow {
  std::string section, key, defaultValue;
  std::function<OptionField(ProgramOptions&)> field;
};

/// The table of options in the order of ProgramOptions.
const std::vector<OptionRow>& OptionTable();

/// Fills Site, PrimaryDatabasePath, Options and LanguageFile from the store, then makes the saved copies. A
/// value that does not convert is asked about: Yes takes the default, No raises StartupEnds.
void LoadSettings();

/// Writes Site, PrimaryDatabasePath and Options under the same keys, in one go. SettingsFailure.
void Salva_impostazioni();

/// Copies Site, PrimaryDatabasePath and Options to their saved twins.
void MakeSavedCopies();

/// Sets Options to the defaults, in memory only.
void Impostazioni_default();

/// True in `changed` when Site, the primary file or an option differs from what was read from the store.
void OptionsChanged(bool& changed);

/// Place and size of a window, twips.
struct WindowPlace {
  int Left = 0, Top = 0, Width = 10665, Height = 6870;
};

/// The stored place of a window of a section; defaults where nothing legible is stored.
WindowPlace LoadWindowPlace(const std::string& section);
void SaveWindowPlace(const std::string& section, const WindowPlace& place);

}  // namespace halvorine
