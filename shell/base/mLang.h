// The language file in memory and the one way in which a text is looked up.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace halvorine {

/// Lines of the language file that are not empty, in file order, with one empty line before each section
/// head.
inline std::vector<std::string> LanguageLines;
/// True while LanguageLines holds the file of LanguageFile; cleared when another language is chosen.
inline bool LanguageLoaded = false;

/// Text of a key of a section, compared without regard to case, or the empty text. Reads the file at the
/// first call after LanguageLoaded was cleared. Never fails and shows nothing.
std::string LookupText(std::string_view section, std::string_view key);

/// Month and day names of section "Dates" into LanguageDates; English names where a list is missing or has
/// another length.
void ReadLanguageDates();

}  // namespace halvorine
