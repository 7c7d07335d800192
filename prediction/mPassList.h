// What a search has found, as it is listed: rows in their order with the text of each column, the report of a
// pass, and the whole list as a file. Texts are made when they are asked for; rows are only numbers.
#pragma once

#include <array>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "prediction/mPass.h"

namespace halvorine {

/// Columns of the list, counted from 1. The last two are never seen: by them the first and the sixth sort.
enum PassColumn : int {
  CulminationColumn = 1,
  SatelliteColumn,
  AltitudeColumn,
  AzimuthColumn,
  StatusColumn,
  MagnitudeColumn,
  DurationColumn,
  CulminationOrderColumn,
  MagnitudeOrderColumn
};
constexpr int PassColumnCount = 9;

/// A column's heading (by its key, or as it stands where there is none) and its width in twips.
struct PassColumnInfo {
  const char *section, *key, *literal;
  int width;
  bool rightAligned;
};
const PassColumnInfo& PassColumnOf(int column);
std::string PassHeading(int column);

/// How a list was last sorted. One record serves all lists of a window.
struct PassSort {
  enum Direction : std::int16_t { Ascending, Descending };
  std::int16_t sortColumn = 0;
  std::int16_t sortDirection = Ascending;
};

/// The three report rows of a pass, in the order rise, culmination, set.
using PassReport = std::array<std::string, 3>;

/// The date and time that a report row begins with, by the month names of the language; nothing where it
/// begins with none.
std::optional<Date> DateOfReport(std::string_view row, const DateNames& names);

/// A list of passes in the order in which they were found, until it is sorted. Copies share the passes, which
/// are all added before, and have an order of their own.
class PassList {
 public:
  PassList() : data_(std::make_shared<Data>()) {}
  /// For passes computed for this observer, whom the last line of a file names.
  explicit PassList(const ObserverSite& site) : PassList() { data_->site = site; }

  void Add(const PassRecord& pass, const std::string& satellite);
  void Clear() { *this = PassList(data_->site); }

  int Count() const { return static_cast<int>(order_.size()); }
  const ObserverSite& Site() const { return data_->site; }
  /// Rows count from 0; SubscriptFailure outside the list.
  const PassRecord& Pass(int row) const { return data_->passes[At(row)]; }
  const std::string& Satellite(int row) const;
  std::string Cell(int row, int column) const;
  /// Number of the database entry, or of the slot where the pass is not from a database.
  int Number(int row) const;
  PassReport Report(int row) const;
  /// Number and report rows, joined by ";".
  std::string Tag(int row) const;

  /// Sorts as a click on a heading (1 to 7) does: by the text of that column without regard to case, or of
  /// the hidden one behind it; ascending, but the other way round where the last sort was by the same column
  /// and this list is sorted. Equal texts keep the order in which they were found.
  void SortBy(int heading, PassSort& last);
  bool Sorted() const { return sorted_; }
  /// The row in which a pass stands now, by its place of finding; -1 for none.
  int RowOf(int found) const;
  int FoundAt(int row) const { return static_cast<int>(At(row)); }

  /// The whole list in its present order: columns of text under their headings, or comma-separated values
  /// with all three events of each pass. Ends with the line that names place and zone.
  std::string AsText() const;
  std::string AsCsv() const;

 private:
  struct Data {
    std::vector<PassRecord> passes;
    std::vector<std::uint32_t> nameOf;  // for each pass its place in names
    std::vector<std::string> names;
    ObserverSite site;
  };
  std::size_t At(int row) const;

  std::shared_ptr<Data> data_;
  std::vector<std::uint32_t> order_;
  bool sorted_ = false;
};

}  // namespace halvorine
