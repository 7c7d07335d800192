#include "prediction/mReport.h"

#include <cmath>

#include "astro/mConv.h"
#include "shell/base/mLang.h"
#include "shell/base/mText.h"

namespace halvorine {

std::string PlaceAndZoneLine(const ObserverSite& site) {
  const double minutes = std::round((static_cast<double>(site.TimeZone) + site.DaylightSaving) * 60);
  const double apart = std::fabs(minutes);
  const std::string zone = LookupText("frmDetails", "orariofuso") + (minutes < 0 ? "-" : "+") +
                           Format(Int(apart / 60), "00") + ":" + Format(std::fmod(apart, 60), "00");
  const std::string place(Trimmed(site.Place));
  return place.empty() ? zone : place + " - " + zone;
}

std::string TextFile(const std::vector<std::string>& lines) {
  std::string text;
  for (const std::string& line : lines) text.append(line).append("\r\n");
  return text;
}

std::string CsvLine(const std::vector<std::string>& cells) {
  std::string line;
  for (const std::string& cell : cells) {
    if (&cell != &cells.front()) line += ',';
    if (cell.find_first_of(",\"\r\n") == std::string::npos) {
      line += cell;
      continue;
    }
    line += '"';
    for (const char c : cell) line.append(c == '"' ? 2 : 1, c);
    line += '"';
  }
  return line;
}

bool IsCsvPath(std::string_view path) {
  constexpr std::string_view ending = ".csv";
  return path.size() >= ending.size() && SameText(path.substr(path.size() - ending.size()), ending);
}

}  // namespace halvorine
