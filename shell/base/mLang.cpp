#include "shell/base/mLang.h"

#include <algorithm>
#include <array>
#include <string>

#include "shell/base/mFailure.h"
#include "shell/base/mFiles.h"
#include "shell/base/mGlobal.h"
#include "shell/base/mText.h"

namespace halvorine {

namespace {

void ReadLanguageFile() {
  LanguageLines.clear();
  try {
    std::string text = ToUtf8(ReadProgramFile(LanguageFile));
    if (text.starts_with("\xEF\xBB\xBF")) text.erase(0, 3);
    LineReader lines(text);
    for (std::string_view line; lines.Next(line);) {
      if (line.empty()) continue;
      if (line.front() == '[') LanguageLines.emplace_back();
      LanguageLines.emplace_back(line);
    }
    LanguageLoaded = true;
  } catch (const RuntimeFailure&) {
    // an unreadable file leaves the interface without texts; the next lookup tries again
  }
}

bool HoldsMark(std::string_view text) { return text.find_first_of("[]=") != std::string_view::npos; }

template <std::size_t N>
void TakeNames(std::string_view key, std::array<std::string, N>& names) {
  const std::vector<std::string> pieces = Split(LookupText("Dates", key), ',');
  if (pieces.size() != N ||
      std::any_of(pieces.begin(), pieces.end(), [](const auto& p) { return p.empty(); }))
    return;
  std::copy(pieces.begin(), pieces.end(), names.begin());
}

}  // namespace

std::string LookupText(std::string_view section, std::string_view key) {
  // a section name with such a character is searched all the same
  if (!HoldsMark(section) && HoldsMark(key)) return {};
  if (!LanguageLoaded) ReadLanguageFile();
  const std::string head = std::string("[").append(section).append("]");
  auto line = std::find_if(LanguageLines.begin(), LanguageLines.end(),
                           [&head](const std::string& text) { return StartsWithText(text, head); });
  if (line == LanguageLines.end()) return {};
  const std::string wanted = std::string(key).append("=");
  for (++line; line != LanguageLines.end() && !line->starts_with('['); ++line)
    if (StartsWithText(*line, wanted)) return line->substr(line->find('=') + 1);
  return {};
}

void ReadLanguageDates() {
  LanguageDates = {};
  TakeNames("mesi", LanguageDates.Months);
  TakeNames("mesibrevi", LanguageDates.ShortMonths);
  TakeNames("giorni", LanguageDates.Days);
  TakeNames("giornibrevi", LanguageDates.ShortDays);
}

}  // namespace halvorine
