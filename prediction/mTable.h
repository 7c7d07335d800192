// Tables of positions: for one satellite, or for two that are compared (mRelative), a row of numbers at each
// step of time. Rows become text of fixed width, or cells of a CSV file, only where they are shown, saved or
// printed.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "catalogue/mCatalogue.h"
#include "shell/base/mRecords.h"

namespace halvorine {

/// The four sets of coordinates by their agreed codes.
enum TableCode : int { ObserverTable = 1, InertialTable = 2, SubpointTable = 3, EquatorialTable = 4 };

/// How the value of a cell becomes text.
enum class CellKind : std::uint8_t {
  Number,          // by the picture; see UnknownMagnitude for the values that are none
  Condition,       // the word of a SatelliteCondition, as long as it is
  RightAscension,  // whole seconds: "05h06m07s"
  Declination,     // whole minutes, the sign also of a zero counts: "-17°13'"
  Arc,             // whole minutes, never negative: "17°13'"
  Latitude,        // degrees by the picture, "°" and N or S
  Longitude        // degrees by the picture, "°" and E or W
};

/// Values of a magnitude that shows "???", and of one that shows nothing.
constexpr double UnknownMagnitude = 1e30, NoMagnitude = -1e30;

struct TableColumn {
  int gap;    // blanks before it
  int width;  // characters, filled up at the left; what is longer takes of the blanks before it
  const char* picture = "";
  CellKind kind = CellKind::Number;
  char satellite = 0;  // 'A' or 'B' where a table of two has the column twice
};

constexpr std::size_t MostColumns = 9;

struct TableRow {
  Date time = 0;  // civil time of the observer
  std::array<double, MostColumns> values{};
};

/// A list takes that many rows, its head and its last one included.
constexpr int MostListRows = 32767;

/// A table in lines: its head, the rows, and a blank one when it is complete.
struct TextTable {
  std::vector<std::string> head;
  std::string heading;     // the line of the head that names the columns
  std::string satellites;  // name and number of what it is about
  std::span<const TableColumn> columns;
  std::vector<TableRow> rows;
  bool complete = false;

  int LineCount() const;
  /// A line, counted from 0; SubscriptFailure outside.
  std::string Line(int line) const;
};

/// The text of a cell without blanks around it, as a line shows it.
std::string CellText(const TableColumn& column, double value);

/// The rows of a table for a CSV file: names of the columns, then date, time and values, at last a line of
/// place and zone and what the table is about. Lines end with CR LF; latitudes and longitudes stand there
/// with their sign.
std::string CsvOf(const TextTable& table, const std::string& placeAndZone);
/// Rows of fixed width for a CSV file: a new cell begins behind two columns or more that are blank in all.
std::string CsvOfLines(const std::vector<std::string>& lines);

/// What a table is to hold. Dates in the observer's civil time.
struct TableRequest {
  Date start = 0, end = 0;
  double step = 0;  // seconds; 0 asks for the automatic choice, and the chosen step is written back
  int code = ObserverTable;
  bool onlyAboveHorizon = false;  // observer's coordinates alone: only rows with the satellite above it
};

/// The instant one step before the first row, and the step in seconds.
struct TableSpan {
  Date before = 0;
  double step = 0;
};
/// With a step that is not 0 the first row stands at the start. The automatic choice begins on a quarter of a
/// minute before it; its step depends on the whole minutes to the end, and stays 0 for exactly 720 of them.
TableSpan SpanOf(const TableRequest& request);

enum class TableOutcome : std::uint8_t {
  Done,          // also after a cancel, and where the satellite falls below 98 km
  Refused,       // another long operation runs; the user has been told
  NotComputable  // a row could not be computed; the table ends before it
};

/// Called whenever a table has grown by a line, for who shows it meanwhile.
using TableGrowth = std::function<void()>;

/// Makes the table of a slot with its head. Holds the tick off, shows progress and yields; clock fields and
/// the state of the slot are afterwards as before. A code outside 1 to 4 raises SubscriptFailure.
TableOutcome MakeTable(int slot, TableRequest& request, TextTable& table, const TableGrowth& grown);

/// "Details: name - start", the title of a window with a complete table.
std::string TableTitle(std::string_view name, Date start);
/// Tells that the elements give no position.
void TellNotComputable();

/// Names of the entries of a database in their order, each with its number.
std::shared_ptr<const CatalogueRows> EntryNames(int index);
/// Whether a row of EntryNames still belongs to the database, which may have been read anew.
bool IsEntry(int index, int number, std::string_view name);
/// Decodes an entry into a slot that nothing of its satellite before is left in. SubscriptFailure for an
/// entry that does not exist.
void TakeEntry(int slot, int index, int number);

/// Units of a duration and of a step, in the order of their choices.
enum SpanUnit : int { SpanMinutes = 0, SpanHours = 1, SpanDays = 2 };
enum StepUnit : int { StepSeconds = 0, StepMinutes = 1, StepHours = 2 };
Date SpanEnd(Date start, int amount, int unit);
double StepOf(int amount, int unit);

// What tables of one and of two satellites are made with.

/// A satellite of a table: computes its slot at the instant of ClockFields, and keeps its vectors apart, so
/// that a model that fails cannot leave it at the place of another satellite.
class TableSatellite {
 public:
  explicit TableSatellite(int slot);
  ~TableSatellite();
  TableSatellite(const TableSatellite&) = delete;
  TableSatellite& operator=(const TableSatellite&) = delete;
  /// False where the elements give no position.
  bool Compute();
  const SatelliteState& State() const { return state_; }
  bool HasFallen() const;
  std::array<double, 3> position{}, velocity{};  // inertial, km and km/s
  double sunElevation = 0;                       // degrees

 private:
  int slot_;
  SatelliteState before_, state_;
  double julianDay_ = 0;
};

/// Right ascension and declination of a state at the instant of ClockFields.
struct EquatorialCells {
  double rightAscension = 0;  // whole seconds
  double declination = 0;     // whole minutes; a zero has the sign of what was cut
};
EquatorialCells EquatorialOf(const SatelliteState& state);

struct RowOutcome {
  bool computed = true;  // otherwise the table ends before this row
  bool listed = true;    // whether the row is shown
  bool last = false;     // whether the table ends behind it
};
/// Gives the values of a row, for whose time the clock fields stand.
using RowMaker = std::function<RowOutcome(TableRow&)>;
TableOutcome FillTable(TextTable& table, const TableSpan& span, Date end, const RowMaker& make,
                       const TableGrowth& grown);

/// The four lines of a head that name the satellite of a slot; captions are `width` characters wide.
void AddSatelliteHead(TextTable& table, const char* key, int slot, std::size_t width);

}  // namespace halvorine
