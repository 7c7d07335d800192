// Tables of reference values: lines of cells, "#" before a comment; the first cell may name the kind of line.
#pragma once

#include <cstdlib>
#include <string>
#include <vector>

#include "astro/mConv.h"
#include "shell/base/mFiles.h"
#include "shell/base/mText.h"

namespace halvorine {

struct ReferenceRow {
  std::vector<std::string> cells;

  const std::string& Text(std::size_t cell) const { return cells.at(cell); }
  double Number(std::size_t cell) const { return ParseStrict(cells.at(cell)); }
  int Count(std::size_t cell) const { return ToInt32(Number(cell)); }
  bool Fails(std::size_t cell) const { return cells.at(cell) == "fails"; }
};

/// Rows of a file of tests/reference; with a kind only those that begin with it.
inline std::vector<ReferenceRow> ReferenceRows(const std::string& file, char separator,
                                               std::string_view kind = {}) {
  const std::string text = ReadWholeFile(std::string(TEST_SOURCE_DIR) + "/tests/reference/" + file);
  std::vector<ReferenceRow> rows;
  LineReader lines(text);
  for (std::string_view line; lines.Next(line);) {
    if (line.empty() || line.front() == '#') continue;
    ReferenceRow row{Split(line, separator)};
    if (kind.empty() || row.cells.front() == kind) rows.push_back(row);
  }
  if (rows.empty()) throw ConversionFailure("no rows of " + std::string(kind) + " in " + file);
  return rows;
}

/// The date of six cells: year, month, day, hour, minute, second.
inline Date ReferenceDate(const ReferenceRow& row, std::size_t cell) {
  const Date day = DateOf(row.Count(cell), row.Count(cell + 1), row.Count(cell + 2));
  return AddSeconds(day, row.Number(cell + 3) * 3600 + row.Number(cell + 4) * 60 + row.Number(cell + 5));
}

}  // namespace halvorine
