#include "catalogue/mElementFile.h"

#include <algorithm>
#include <filesystem>
#include <functional>
#include <utility>

#include "astro/mConv.h"
#include "astro/mMate.h"
#include "orbit/mSat.h"
#include "shell/base/mFiles.h"
#include "shell/base/mLang.h"
#include "shell/base/mLongOperation.h"
#include "shell/base/mText.h"

namespace halvorine {

const std::array<SummaryColumn, SummaryColumnCount> SummaryColumns = {{
    {"norad", 700, true},
    {"nomesatellite", 2700, false},
    {"anno", 600, true},
    {"lancio", 900, true},
    {"inclinazione", 1400, true},
    {"periodo", 1300, true},
    {"raan", 1400, true},
    {"eccentricita", 1200, true},
    {"magnitudine", 1200, true},
    {"set", 600, true},
    {"eta", 1300, true},
}};

namespace {

constexpr const char* unknown = "???";
constexpr std::size_t editorLimit = std::size_t{64} << 20U, editorLineLimit = std::size_t{1} << 20U;

std::string PeriodText(double meanMotion) {
  try {
    return Format(Div(1440, meanMotion), "0.0");
  } catch (const ArithmeticFailure&) {
    return unknown;
  }
}

std::string MagnitudeText(const std::string& magnitude) {
  const std::string text = magnitude.empty() ? std::string() : Format(ParseNumber(magnitude), "0.0");
  return RightAligned(text.empty() ? unknown : text, 4);
}

/// Cells of a column in one width, so that an order by text is one by number also where a text is too long.
std::string SortText(const std::string& cell, int column, std::size_t width) {
  return SummaryColumns[static_cast<std::size_t>(column)].rightAligned ? RightAligned(cell, width) : cell;
}

/// Decodes an entry into the scratch slot; false where its catalogue number is none the tables know.
bool DecodeScratch(const DatabaseEntry& entry) {
  // channels of the satellite before would stay otherwise
  Azzera_Satelement(ScratchSlot);
  try {
    Estrai_Dati_Satellite(ScratchSlot, entry.name, entry.line1, entry.line2);
    return true;
  } catch (const RuntimeFailure&) {
    return false;
  }
}

/// Tabulates `count` entries with progress; `step` is what the progress counts for one of them. False where
/// none of them could be decoded, unless the user has cancelled.
bool Tabulate(int count, const std::function<DatabaseEntry(int)>& entryAt, int step, SummaryTable& table,
              LongOperation& operation) {
  bool any = count == 0;
  for (int i = 0; i < count; ++i) {
    if (std::exchange(CancelRequested, false)) return true;
    const DatabaseEntry entry = entryAt(i);
    any = DecodeScratch(entry) || any;
    table.Append(MakeSummaryRow(ElementSets[ScratchSlot], entry.line1, ClockFields.JulianDayNow));
    operation.Step(static_cast<double>(i) * step);
  }
  return any;
}

std::vector<std::string_view> SplitAtLineEnds(std::string_view text, std::string_view end) {
  std::vector<std::string_view> lines;
  for (;;) {
    const std::size_t at = text.find(end);
    lines.push_back(text.substr(0, at));
    if (at == std::string_view::npos) return lines;
    text.remove_prefix(at + end.size());
  }
}

std::string Replaced(std::string_view text, std::string_view from, std::string_view to) {
  std::string result;
  result.reserve(text.size());
  for (;;) {
    const std::size_t at = text.find(from);
    result.append(text.substr(0, at));
    if (at == std::string_view::npos) return result;
    result.append(to);
    text.remove_prefix(at + from.size());
  }
}

}  // namespace

SummaryRow MakeSummaryRow(const ElementSet& set, std::string_view line1, double now) {
  return {{RightAligned(set.CatalogNumber, 5), LeftAligned(set.Name, 24),
           RightAligned(NumberText(set.LaunchYear), 4),
           RightAligned(NumberText(set.LaunchNumber), 3) + RightAligned(set.LaunchPiece, 3),
           RightAligned(Format(set.Inclination, "0.0000"), 8), RightAligned(PeriodText(set.MeanMotion), 6),
           RightAligned(Format(set.RightAscension, "0.0000"), 8),
           RightAligned(Format(set.Eccentricity, "0.0000000"), 9), MagnitudeText(set.StandardMagnitude),
           RightAligned(Columns(line1, 65, 68), 4),
           RightAligned(Format(now - set.EpochJulianDay, "0.0"), 5)}};
}

const std::string& SummaryTable::Cell(int row, int column) const {
  if (row < 0 || row >= Count() || column < 0 || column >= SummaryColumnCount)
    throw SubscriptFailure("the summary has no cell " + std::to_string(row) + ", " + std::to_string(column));
  return rows_[static_cast<std::size_t>(row)].cells[static_cast<std::size_t>(column)];
}

void SummaryTable::SortBy(int column) {
  if (column < 0 || column >= SummaryColumnCount)
    throw SubscriptFailure("the summary has no column " + std::to_string(column));
  if (column == sortColumn_) {
    std::reverse(rows_.begin(), rows_.end());
    descending_ = !descending_;
    return;
  }
  const auto cellOf = [column](const SummaryRow& row) -> const std::string& {
    return row.cells[static_cast<std::size_t>(column)];
  };
  std::size_t width = 0;
  for (const SummaryRow& row : rows_) width = std::max(width, CharacterCount(cellOf(row)));
  std::vector<std::pair<std::string, SummaryRow>> keyed;
  keyed.reserve(rows_.size());
  for (SummaryRow& row : rows_) {
    std::string key = LowerCase(SortText(cellOf(row), column, width));
    keyed.emplace_back(std::move(key), std::move(row));
  }
  std::stable_sort(keyed.begin(), keyed.end(),
                   [](const auto& a, const auto& b) { return a.first < b.first; });
  for (std::size_t i = 0; i < keyed.size(); ++i) rows_[i] = std::move(keyed[i].second);
  sortColumn_ = column;
  descending_ = false;
}

SummaryOutcome SummariseFile(const std::string& path, SummaryTable& table) {
  table = {};
  LongOperation operation;
  if (!operation.Started()) return SummaryOutcome::Refused;
  try {
    const std::string text = ReadWholeFile(path);
    std::vector<std::string_view> lines = SplitAtLineEnds(text, "\r\n");
    while (!lines.empty() && lines.back().empty()) lines.pop_back();
    operation.ShowProgress(LookupText("frmProgress", "letturasatelliti"),
                           static_cast<double>(std::max<std::size_t>(lines.size(), 1) - 1));
    // a triple that runs past the last line spoils the whole view, so that it need not be begun
    const bool whole = lines.size() % 3 == 0 && !lines.empty();
    const auto entryAt = [&lines](int i) {
      const std::size_t at = static_cast<std::size_t>(i) * 3;
      return DatabaseEntry{std::string(lines[at]), std::string(lines[at + 1]), std::string(lines[at + 2])};
    };
    if (whole && Tabulate(static_cast<int>(lines.size() / 3), entryAt, 3, table, operation))
      return SummaryOutcome::Done;
    table = {};
    const bool bare = text.find('\n') != std::string::npos && text.find("\r\n") == std::string::npos;
    return bare ? SummaryOutcome::BareLineFeeds : SummaryOutcome::NotAnElementFile;
  } catch (const RuntimeFailure&) {
    table = {};
    return SummaryOutcome::NotAnElementFile;
  }
}

SummaryOutcome SummariseDatabase(const SatelliteDatabase& database, SummaryTable& table) {
  table = {};
  LongOperation operation;
  if (!operation.Started()) return SummaryOutcome::Refused;
  operation.ShowProgress(LookupText("frmProgress", "creazionesommario"), database.Count());
  Tabulate(
      database.Count(), [&database](int i) { return database.Copy(i + 1); }, 1, table, operation);
  return SummaryOutcome::Done;
}

void ReadDatabaseFile(const std::string& path, SatelliteDatabase& database) {
  database.Erase();
  LineReader lines(database.Take(ReadWholeFile(path)));
  for (EntryView entry; lines.Next(entry.name) && !entry.name.empty();) {
    if (!lines.Next(entry.line1) || !lines.Next(entry.line2)) {
      database.Erase();
      throw ConversionFailure("file " + path + " ends inside an entry");
    }
    database.Append(entry);
  }
}

void TellNoElementFile(const std::string& path, SummaryOutcome outcome) {
  std::string text = LookupText("Dialogs", "formatononvalido");
  if (outcome == SummaryOutcome::BareLineFeeds)
    text += "\n" + LookupText("frmDatabase", "funzioneriparazione");
  ThePlatform().ShowMessage(MessageKind::Warning, path, text, MessageButtons::Ok);
}

void TellNotSaved(const RuntimeFailure& failure) {
  Tell(MessageKind::Warning, LookupText("Dialogs", "nonsalvato") + "\n" + failure.what());
}

EditorText ReadEditorText(const std::string& path) {
  const std::string bytes = ReadWholeFile(path, editorLimit);
  for (const std::string_view line : SplitAtLineEnds(bytes, "\n"))
    if (line.size() > editorLineLimit)
      throw FileFailure("file " + path + " cannot be edited: a line is too long");
  return {ToUtf8(bytes), !IsUtf8(bytes)};
}

std::string EditorBytes(const EditorText& text) {
  std::string lines = Replaced(Replaced(text.text, "\r\n", "\n"), "\n", "\r\n");
  if (!text.latin1) return lines;
  std::string bytes;
  for (std::size_t i = 0; i < lines.size(); ++i) {
    const auto first = static_cast<unsigned char>(lines[i]);
    if (first < 0x80) {
      bytes += lines[i];
      continue;
    }
    // two bytes that begin with C2 or C3 are what Latin-1 holds
    if (first > 0xC3 || i + 1 == lines.size()) return lines;
    const auto second = static_cast<unsigned char>(lines[++i]);
    bytes += static_cast<char>(((first & 0x03U) << 6U) | (second & 0x3FU));
  }
  return bytes;
}

std::string RepairedText(std::string_view text) {
  const std::string plain = Replaced(text, "\r\n", "\n");
  std::vector<std::string_view> lines;
  for (const std::string_view line : SplitAtLineEnds(plain, "\n")) lines.push_back(Trimmed(line));
  // exactly as many empty lines at the end as a former run has left
  if (lines.size() > 1 && lines.back().empty() && lines[lines.size() - 2].empty())
    lines.pop_back();
  else if (!lines.back().empty())
    lines.emplace_back();
  std::string repaired;
  repaired.reserve(text.size() + lines.size() * 2);
  for (const std::string_view line : lines) repaired.append(line).append("\r\n");
  return repaired;
}

bool RepairFile(const std::string& path) {
  std::string old;
  try {
    old = ReadWholeFile(path);
  } catch (const FileFailure&) {
    return false;
  }
  const std::string repaired = RepairedText(old);
  if (repaired == old) return true;
  ThePlatform().WriteFile(path + ".bak", old);
  ThePlatform().WriteFile(path, repaired);
  return true;
}

bool IsEmptyFile(const std::string& path) {
  std::error_code error;
  return std::filesystem::file_size(path, error) == 0 && !error;
}

std::string ChannelRow(const ElementSet& set, int channel) {
  if (channel < 1 || channel > static_cast<int>(set.Downlink.size()))
    throw SubscriptFailure("radio channel " + std::to_string(channel) + " does not exist");
  const auto at = static_cast<std::size_t>(channel - 1);
  const char* const picture = "000.0000";
  return Format(ParseNumber(set.Downlink[at]), picture) + "   \t" +
         Format(ParseNumber(set.Uplink[at]), picture);
}

}  // namespace halvorine
