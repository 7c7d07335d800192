// Tables as lines of text and as CSV.
#include <algorithm>
#include <cmath>

#include "astro/mConv.h"
#include "prediction/mReport.h"
#include "prediction/mTable.h"
#include "shell/base/mLang.h"
#include "shell/base/mText.h"

namespace halvorine {

namespace {

constexpr int timeWidth = 21;   // "dd mmm yyyy  hh:mm:ss"
constexpr int timeColumn = 13;  // where the time of day begins in it
constexpr const char* lineEnd = "\r\n";

/// The characters of a UTF-8 text from one position up to another, counted from 0, without blanks around
/// them.
std::string Slice(std::string_view text, int from, int to) {
  std::string slice;
  int at = -1;
  for (const char c : text) {
    if ((static_cast<unsigned char>(c) & 0xC0U) != 0x80U) ++at;
    if (at >= from && at < to) slice += c;
  }
  return std::string(Trimmed(slice));
}

std::string Hours(double seconds) {
  const double hours = Int(seconds / 3600);
  const double minutes = Int((seconds - hours * 3600) / 60);
  return Format(hours, "00") + "h" + Format(minutes, "00") + "m" +
         Format(seconds - hours * 3600 - minutes * 60, "00") + "s";
}

std::string Degrees(double minutes) {
  const double degrees = Int(minutes / 60);
  return Format(degrees, "00") + "°" + Format(minutes - degrees * 60, "00") + "'";
}

std::string NumberCell(double value, const char* picture) {
  if (value == UnknownMagnitude) return "???";
  return value == NoMagnitude ? std::string() : Format(value, picture);
}

std::string RowLine(const TextTable& table, const TableRow& row) {
  std::string line = FormatDate(row.time, "dd mmm yyyy  hh:mm:ss", LanguageDates);
  for (std::size_t i = 0; i < table.columns.size(); ++i) {
    // what is wider than its column takes of the blanks before it, so that the columns behind it stay in line
    const TableColumn& column = table.columns[i];
    const std::string text = CellText(column, row.values[i]);
    const int blanks = column.gap + column.width - static_cast<int>(CharacterCount(text));
    line.append(static_cast<std::size_t>(column.width > 0 ? std::max(blanks, 1) : column.gap), ' ')
        .append(text);
  }
  return line;
}

/// The names of the columns stand above them in the heading, each ending where its column ends.
std::vector<std::string> ColumnNames(const TextTable& table) {
  std::vector<std::string> names = {Slice(table.heading, 0, timeColumn),
                                    Slice(table.heading, timeColumn, timeWidth)};
  int end = timeWidth;
  for (const TableColumn& column : table.columns) {
    const int begin = end;
    end = column.width > 0 ? begin + column.gap + column.width : MostListRows;
    std::string name = Slice(table.heading, begin, end);
    if (column.satellite != 0) name += std::string(" ") + column.satellite;
    names.push_back(std::move(name));
  }
  return names;
}

}  // namespace

std::string CellText(const TableColumn& column, double value) {
  switch (column.kind) {
    case CellKind::Condition:
      return Stato2Stringa(ToInt32(value));
    case CellKind::RightAscension:
      return Hours(value);
    case CellKind::Declination:
      return (std::signbit(value) ? "-" : "+") + Degrees(std::fabs(value));
    case CellKind::Arc:
      return Degrees(value);
    case CellKind::Latitude:
      return Format(std::fabs(value), column.picture) + (value < 0 ? "°S" : "°N");
    case CellKind::Longitude:
      return Format(std::fabs(value), column.picture) + (value < 0 ? "°W" : "°E");
    default:
      return NumberCell(value, column.picture);
  }
}

int TextTable::LineCount() const { return static_cast<int>(head.size() + rows.size()) + (complete ? 1 : 0); }

std::string TextTable::Line(int line) const {
  if (line < 0 || line >= LineCount()) throw SubscriptFailure("line " + std::to_string(line) + " of a table");
  const auto at = static_cast<std::size_t>(line);
  if (at < head.size()) return head[at];
  return at - head.size() < rows.size() ? RowLine(*this, rows[at - head.size()]) : std::string();
}

std::string CsvOf(const TextTable& table, const std::string& placeAndZone) {
  std::string text = CsvLine(ColumnNames(table)) + lineEnd;
  for (const TableRow& row : table.rows) {
    std::vector<std::string> cells = {FormatDate(row.time, "yyyy-mm-dd", LanguageDates),
                                      FormatDate(row.time, "hh:nn:ss", LanguageDates)};
    for (std::size_t i = 0; i < table.columns.size(); ++i) {
      const TableColumn& column = table.columns[i];
      const bool signedNumber = column.kind == CellKind::Latitude || column.kind == CellKind::Longitude;
      cells.push_back(signedNumber ? Format(row.values[i], column.picture) : CellText(column, row.values[i]));
    }
    text += CsvLine(cells) + lineEnd;
  }
  return text + CsvLine({placeAndZone, table.satellites}) + lineEnd;
}

std::string CsvOfLines(const std::vector<std::string>& lines) {
  std::vector<bool> used;
  for (const std::string& line : lines) {
    std::size_t at = 0;
    for (const char c : line) {
      if ((static_cast<unsigned char>(c) & 0xC0U) == 0x80U) continue;
      if (at >= used.size()) used.resize(at + 1);
      if (c != ' ') used[at] = true;
      ++at;
    }
  }
  std::vector<int> begins = {0};
  for (std::size_t at = 2; at < used.size(); ++at)
    if (used[at] && !used[at - 1] && !used[at - 2]) begins.push_back(static_cast<int>(at));
  begins.push_back(static_cast<int>(used.size()));
  std::string text;
  for (const std::string& line : lines) {
    std::vector<std::string> cells;
    for (std::size_t i = 0; i + 1 < begins.size(); ++i)
      cells.push_back(Slice(line, begins[i], begins[i + 1]));
    text += CsvLine(cells) + lineEnd;
  }
  return text;
}

}  // namespace halvorine
