// What saved and printed lists have in common: the line that names place and zone, and the two forms of file.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "shell/base/mRecords.h"

namespace halvorine {

/// The last line of whatever is saved or printed: "Italy: Milano - Times in zone UTC+02:00", daylight saving
/// included.
std::string PlaceAndZoneLine(const ObserverSite& site);

/// A text file (UTF-8) of these lines, each ended by CR LF.
std::string TextFile(const std::vector<std::string>& lines);

/// A line of comma-separated values (RFC 4180) without its end; cells are quoted where they must be.
std::string CsvLine(const std::vector<std::string>& cells);

/// Whether a file's ending asks for comma-separated values.
bool IsCsvPath(std::string_view path);

}  // namespace halvorine
