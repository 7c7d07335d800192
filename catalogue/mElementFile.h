// Tools that work on element files as text: the summary table of a file or a database, the text of the file
// editor, and the repair of line ends.
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "catalogue/mCatalogue.h"

namespace halvorine {

constexpr int SummaryColumnCount = 11;

/// How a column of the summary is headed and laid out.
struct SummaryColumn {
  const char* key;  // of the heading, section frmDetails
  int width;        // twips
  bool rightAligned;
};
extern const std::array<SummaryColumn, SummaryColumnCount> SummaryColumns;

/// One satellite of the summary as fixed-width texts: number, name, year, launch, inclination, period
/// (minutes), node, eccentricity, magnitude, number of the set, age (days). What cannot be computed shows
/// "???".
struct SummaryRow {
  std::array<std::string, SummaryColumnCount> cells;
};

/// The row of a decoded set; `line1` is its source line and `now` the Julian day from which its age counts.
SummaryRow MakeSummaryRow(const ElementSet& set, std::string_view line1, double now);

/// The rows of a summary in the order in which they are shown.
class SummaryTable {
 public:
  void Append(SummaryRow row) { rows_.push_back(std::move(row)); }
  int Count() const { return static_cast<int>(rows_.size()); }
  /// A text of the table, both counted from 0; SubscriptFailure outside.
  const std::string& Cell(int row, int column) const;
  /// Orders by the text of a column, without regard to case; the same column once more reverses the order.
  /// SubscriptFailure outside the columns.
  void SortBy(int column);
  /// The column of the present order, -1 for the order of the file.
  int SortColumn() const { return sortColumn_; }
  bool Descending() const { return descending_; }

 private:
  std::vector<SummaryRow> rows_;
  int sortColumn_ = -1;
  bool descending_ = false;
};

enum class SummaryOutcome : std::uint8_t {
  Done,
  Refused,  // another long operation runs; the user has been told
  NotAnElementFile,
  BareLineFeeds,  // likewise, and the cause are line ends that the formatting tool repairs
};

/// Tabulates a file whose lines end with CR LF: names, first and second lines in turn, without check of their
/// content. A cancel leaves the rows made so far. Uses the scratch slot. Raises nothing.
SummaryOutcome SummariseFile(const std::string& path, SummaryTable& table);
/// Tabulates a loaded database likewise.
SummaryOutcome SummariseDatabase(const SatelliteDatabase& database, SummaryTable& table);

/// Reads a file into a database as the catalogue does, but for its lists; lines end with LF or CR LF, and an
/// empty name ends it. FileFailure where the file cannot be read, ConversionFailure where it ends inside an
/// entry; the database is empty then.
void ReadDatabaseFile(const std::string& path, SatelliteDatabase& database);

/// The box for a file that is none of elements, titled with its path.
void TellNoElementFile(const std::string& path, SummaryOutcome outcome = SummaryOutcome::NotAnElementFile);
/// The box for a file that could not be written, with the reason.
void TellNotSaved(const RuntimeFailure& failure);

/// A text for the file editor, and how its file is coded.
struct EditorText {
  std::string text;  // UTF-8
  bool latin1 = false;
};
/// Reads a file for the editor. FileFailure where it cannot be read or no editor could show it: more than
/// 64 MiB, or a line of more than a mebibyte.
EditorText ReadEditorText(const std::string& path);
/// The bytes of a text to be saved: line ends become CR LF, and the file's own coding stays where it can hold
/// all characters.
std::string EditorBytes(const EditorText& text);

/// The text with CR LF at the end of each line and without blanks around it. An empty line stands behind the
/// last line, as the tool always left it; what was repaired before stays as it is.
std::string RepairedText(std::string_view text);
/// Repairs a file in its place; the old one stays beside it under its name with ".bak". A file that needs no
/// repair is not written. False where it cannot be read; FileFailure where writing fails: it is whole then.
bool RepairFile(const std::string& path);

/// Whether there is a file of that path with nothing in it.
bool IsEmptyFile(const std::string& path);

/// A row of frmChannel: downlink, three blanks and a tabulator, uplink in MHz; a free channel shows zeros.
/// `channel` counts from 1 to 10; SubscriptFailure outside.
std::string ChannelRow(const ElementSet& set, int channel);

}  // namespace halvorine
