// What the options dialog edits: one table of its controls, the setting that each stands for, and how a value
// is shown; and what a changed option does to the open windows.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "shell/base/mRecords.h"

namespace halvorine {

/// How a control shows a setting. Behind Swatch they are lists, each with its own entries.
enum class SettingKind : std::uint8_t {
  Check,         // -1 is checked
  Swatch,        // the colour itself
  Models,        // the entry's place
  PhaseLaws,     // the entry's place
  ClockFormats,  // the entry's place
  Orientations,  // the entry's place
  Thresholds,    // minus the entry's place: degrees of the Sun's altitude
  Projections,   // -1 is the second entry
  Coordinates,   // -1 is the second entry
  GridTypes,     // -1 is the second entry
  Magnitudes     // the count of the stars brighter than the entry's limit
};

struct SettingRow {
  std::string control;  // object name
  SettingKind kind;
  std::string section, key;  // of the store
  const char* caption;       // key of section frmSettings, or of Def for "am" and "pm"
};

/// All checks, lists and colours of the dialog, tab by tab. Texts, rows of lists and the ranges of the
/// filters are bound by the window itself.
const std::vector<SettingRow>& SettingTable();

/// The row of a control; SubscriptFailure where there is none.
const SettingRow& SettingOf(std::string_view control);

/// What a control shows for a record of options: 0 or 1 for a check, the place of an entry for a list, a
/// colour. A list that has no entry for the value shows none: -1.
std::int32_t ShownSetting(const SettingRow& row, const ProgramOptions& options);

/// The inverse: takes what a control shows into a record. A list without a chosen entry changes nothing.
void TakeSetting(const SettingRow& row, std::int32_t shown, ProgramOptions& options);

/// The texts of a list's entries in the language now chosen.
std::vector<std::string> SettingEntries(SettingKind kind);

/// The default of a colour's row.
std::int32_t DefaultColour(const SettingRow& row);

/// The defaults of the ten time servers and of the 31 element files.
std::vector<std::string> DefaultServers();
std::vector<std::string> DefaultRemoteFiles();

/// What the menu's check of the terminator says or, while there is no map, will say when one opens.
bool TerminatorShown();

/// Options have changed: open maps and charts take them over, and toolbar and status bar are shown or not.
/// The terminator's check is no option and given beside them; only an open map has it.
void ApplyOptions(bool terminator);

}  // namespace halvorine
