// The whole list of passes as a file.
#include "astro/mConv.h"
#include "prediction/mPassList.h"
#include "prediction/mReport.h"
#include "shell/base/mLang.h"
#include "shell/base/mText.h"

namespace halvorine {

namespace {

/// A column of the text file; numbers stand at its right.
struct TextColumn {
  std::string heading;
  std::size_t width;
  bool rightAligned;
};

/// The columns of the list, then time and azimuth of rise and set.
std::vector<TextColumn> TextColumns() {
  constexpr std::array<std::size_t, DurationColumn> widths = {20, 24, 5, 5, 8, 5, 9};
  std::vector<TextColumn> columns;
  for (int column = 1; column <= DurationColumn; ++column)
    columns.push_back({PassHeading(column), widths[static_cast<std::size_t>(column - 1)],
                       PassColumnOf(column).rightAligned});
  for (const char* const event : {"inizio", "fine"}) {
    columns.push_back({LookupText("frmSkySat", event), 8, false});
    columns.push_back({LookupText("Def", "az"), 5, true});
  }
  return columns;
}

std::string TextLine(const std::vector<TextColumn>& columns, const std::vector<std::string>& cells) {
  std::string line;
  for (std::size_t i = 0; i < columns.size(); ++i) {
    if (i > 0) line += "  ";
    line += columns[i].rightAligned ? RightAligned(cells[i], columns[i].width)
                                    : LeftAligned(cells[i], columns[i].width);
  }
  return std::string(RightTrimmed(line));
}

std::string TrimmedText(const std::string& text) { return std::string(Trimmed(text)); }

/// Cells of one event: instant, altitude, azimuth, status, magnitude, altitude of the Sun, range.
void AppendEvent(std::vector<std::string>& cells, const PassEvent& event) {
  const PassTexts texts = TextsOf(event);
  cells.push_back(FormatDate(event.date, "yyyy-mm-dd hh:nn:ss", LanguageDates));
  cells.push_back(TrimmedText(texts.height));
  cells.push_back(Format(event.azimuth, "0.0"));
  for (const std::string* const text : {&texts.state, &texts.magnitude}) cells.push_back(TrimmedText(*text));
  cells.push_back(Format(event.sunElevation, "0.0"));
  cells.push_back(TrimmedText(texts.distance));
}

std::vector<std::string> CsvHeadings() {
  std::vector<std::string> cells{PassHeading(SatelliteColumn), PassHeading(DurationColumn)};
  const std::array<std::string, 6> values = {LookupText("Def", "alt"),      LookupText("Def", "az"),
                                             LookupText("Def", "stato"),    LookupText("Def", "mag"),
                                             LookupText("Planets", "sole"), LookupText("Def", "dist")};
  for (const char* const key : {"inizio", "culmine", "fine"}) {
    const std::string event = LookupText("frmSkySat", key);
    cells.push_back(event);
    for (const std::string& value : values) cells.push_back(std::string(event).append(" ").append(value));
  }
  return cells;
}

}  // namespace

std::string PassList::AsText() const {
  const std::vector<TextColumn> columns = TextColumns();
  std::vector<std::string> lines, cells;
  for (const TextColumn& column : columns) cells.push_back(column.heading);
  lines.push_back(TextLine(columns, cells));
  for (int row = 0; row < Count(); ++row) {
    cells.clear();
    for (int column = 1; column <= DurationColumn; ++column) cells.push_back(Cell(row, column));
    cells[StatusColumn - 1] = TrimmedText(StateText(Pass(row).culmination));
    for (const PassEvent* const event : {&Pass(row).rise, &Pass(row).set}) {
      cells.push_back(FormatDate(event->date, "hh:nn:ss", LanguageDates));
      cells.push_back(AzimuthText(*event));
    }
    lines.push_back(TextLine(columns, cells));
  }
  lines.push_back(PlaceAndZoneLine(Site()));
  return TextFile(lines);
}

std::string PassList::AsCsv() const {
  std::vector<std::string> lines{CsvLine(CsvHeadings())}, cells;
  for (int row = 0; row < Count(); ++row) {
    const PassRecord& pass = Pass(row);
    cells = {Satellite(row), Cell(row, DurationColumn)};
    for (const PassEvent* const event : {&pass.rise, &pass.culmination, &pass.set})
      AppendEvent(cells, *event);
    lines.push_back(CsvLine(cells));
  }
  lines.push_back(CsvLine({PlaceAndZoneLine(Site())}));
  return TextFile(lines);
}

}  // namespace halvorine
