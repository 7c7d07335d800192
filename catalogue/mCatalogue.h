// The catalogue: two databases that hold whole element files as text, the rows in which they are listed, and
// the operations on the list of active satellites. Databases are never decoded as a whole; columns are sliced
// from the text where they are needed. Everything here works with or without frmDatabase and frmProgress.
#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "shell/base/mGlobal.h"

namespace halvorine {

/// Index of a database, its list and its controls.
enum DatabaseIndex : int { Primary = 0, Secondary = 1 };

/// The three lines of an entry as slices of the database's text; they live as long as the file stays loaded.
struct EntryView {
  std::string_view name, line1, line2;
};

/// A growable sequence of entries over one file kept as one text. Numbers count from 1 in file order and stay
/// while the file stays loaded.
class SatelliteDatabase {
 public:
  SatelliteDatabase() = default;
  SatelliteDatabase(const SatelliteDatabase&) = delete;
  SatelliteDatabase& operator=(const SatelliteDatabase&) = delete;

  int Count() const { return static_cast<int>(entries_.size()); }
  /// An entry by its number; SubscriptFailure outside 1 to Count().
  const EntryView& Entry(int number) const;
  /// Likewise, as a record of its own.
  DatabaseEntry Copy(int number) const;
  /// Forgets text and entries.
  void Erase();
  /// Takes the text of a file and gives it back as kept; its entries follow by Append.
  std::string_view Take(std::string text);
  /// Appends an entry of slices of the kept text.
  void Append(const EntryView& entry) { entries_.push_back(entry); }

 private:
  std::unique_ptr<const std::string> text_;
  std::vector<EntryView> entries_;
};

inline SatelliteDatabase PrimaryDatabase, SecondaryDatabase;

/// The database of an index; SubscriptFailure for any other number.
SatelliteDatabase& DatabaseOf(int index);

/// What a read tells about the entries; recomputed only by a read.
struct CatalogueStats {
  bool known = false;                   // false before a read and after a failed one
  int loaded = 0;                       // entries
  double oldest = 0, newest = 9999999;  // days
  double mean = 0;                      // days
  int magnitudes = 0;                   // entries whose standard magnitude is known
  std::string path;
};

inline std::array<CatalogueStats, 2> DatabaseStats;
/// Number of the last entry read from the primary file, -1 before: the Tag of frmDatabase.
inline int DatabaseTag = -1;

/// The texts of the statistics labels.
struct StatsTexts {
  std::string Caricati, Vecchi, Recenti, Media, NumeroMagnitudini;
};
StatsTexts StatsTextsOf(int index);

/// What the rows of a database list begin with; in the order of cmbOrdina.
enum class SortKey : std::uint8_t {
  Name,
  LaunchYear,
  Inclination,
  AscendingNode,
  Period,
  CatalogueNumber,
  Magnitude,
  Eccentricity,
  ArgumentOfPerigee,
  MeanMotion
};
constexpr int SortKeyCount = 10;
/// Language keys of the choices, section frmDatabase.
extern const std::array<const char*, SortKeyCount> SortKeyTexts;

/// Rows of a database list, each with the number of its entry, in one piece of memory.
class CatalogueRows {
 public:
  void Reserve(int rows, std::size_t bytes);
  void Append(std::string_view text, int number);
  /// Ascending by the whole text without regard to case; rows of the same text keep file order.
  void Sort();
  int Count() const { return static_cast<int>(rows_.size()); }
  /// Text (UTF-8) and entry number of a row from 0; SubscriptFailure outside the list.
  std::string_view Text(int row) const;
  int Number(int row) const;

 private:
  struct Row {
    std::size_t at;
    std::uint32_t length;
    std::int32_t number;
    std::uint64_t order;  // the first eight characters folded to one case
  };
  const Row& Checked(int row) const;
  std::string_view TextOf(const Row& row) const { return {text_.data() + row.at, row.length}; }
  std::string text_;
  std::vector<Row> rows_;
};

/// The rows as they are listed now; never null, and never changed after it was handed out.
std::shared_ptr<const CatalogueRows> ListedRows(int index);
SortKey SortKeyOf(int index);

/// Whether the launch year of a row must be a number: a change of the sort key asks for it, a read does not.
enum class YearReading : std::uint8_t { Lenient, Strict };

/// The row of an entry: key by its picture, two blanks, the first 24 characters of `name`; "???" stands for a
/// key that cannot be computed. `name` is apart from the entry for the sake of one deliberate oddity of the
/// secondary reader.
std::string RowText(const EntryView& entry, std::string_view name, SortKey key, YearReading year);

/// Lists a database by another key. The active list is not touched.
void ChangeSortKey(int index, SortKey key);

/// Reads the primary file, rebuilds the active list against it and tells the user what came of it. An empty
/// path only asks for a file; so does, after its message, a file that is missing or no element file.
/// Refused with a message while another long operation runs.
void Database_satelliti(const std::string& path);
/// Reads the secondary file; the active list is not touched.
void Database_satelliti_secondario(const std::string& path);

/// Where a chooser for an element file starts: at the primary file, else in the folder of the sample.
std::string ChooserStart();

/// What happens to a chosen file of zero length: it is read and refused or not as any other, or left alone.
enum class EmptyFile : std::uint8_t { IsRead, IsIgnored };

/// Asks for the file of a database, reads it and shows frmDatabase. A cancelled chooser does nothing.
void Apertura_database(int index, EmptyFile empty = EmptyFile::IsRead);

/// Rows of a list, in its order, whose satellite stands above the observer's horizon at the program's clock:
/// what cmdVisibili selects. Entries that cannot be computed are left out. Uses the scratch slot.
std::vector<int> RowsAboveHorizon(int index);

/// Decodes an entry into the scratch slot; false where there is no such entry.
bool DecodeEntry(int index, int number);
/// Decodes an entry into the scratch slot and shows it in frmSatellite. Does nothing for an entry that does
/// not exist or where there is no such window.
void ShowEntry(int index, int number);
/// Shows a slot in frmSatellite, where there is such a window.
void ShowSatellite(int slot);

/// For commands that need the primary database: true where rows are listed; otherwise asks whether to read
/// the primary file, does so and tells whether there are rows then.
bool DatabaseAtHand();

// Commands that change the active list are refused, with a message, while a long operation runs.

/// Row texts of lstActive; the row at position p belongs to slot p + 1.
inline std::vector<std::string> ActiveRows;

/// Makes ActiveRows fit the element sets again after another part has changed them. Rows that still name the
/// satellite of their slot stay as they are.
void SyncActiveRows();
/// Takes all rows from the names of the element sets, as frmDatabase does when it is loaded.
void FillActiveRows();

/// Adds entries of a database to the end of the active list: the command of cmdAdd, with its messages.
/// An entry that is active already is told and left out; at 200 satellites the command ends.
void AddSelected(int index, const std::vector<int>& numbers);

/// Adds the satellite of a listed pass, an entry of the primary database, and asks whether it becomes the
/// principal one. Tells where it is active already. False where the command is to end: the list is full, or
/// the user has cancelled.
bool ActivateEntry(int number);

/// Removes the satellites at positions (from 0) of lstActive: the command of cmdRemove, with its message for
/// an empty choice. Positions that do not exist are left out. States are not moved; the next tick computes
/// them anew. Slots beyond the list are cleared.
void RemoveSelected(const std::vector<int>& positions);

/// Removes one active satellite; all three records of the slots behind it move up. SubscriptFailure for a
/// slot that is not active.
void RemoveActive(int slot);

/// Exchanges two slots, element sets and source lines but not states, by way of the scratch slot.
/// SubscriptFailure for a slot that is not active.
void SwapActive(int a, int b);

enum class ActiveMove : std::uint8_t { Up, Down, ToPrincipal };

/// Moves the one selected satellite: the commands of cmdUp, cmdDown and cmdPrincipale, with their message for
/// a choice of none or several. Gives its new position, or -1 where nothing moved.
int MoveSelected(const std::vector<int>& positions, ActiveMove move);

/// Moves the principal satellite to the end of the list: the command of cmdOrder.
void RotateActive();

/// Asks whether to remove all active satellites and does so: the command of cmdRemoveAll.
void RemoveAllActive();

/// Removes all active satellites and clears all slots.
void ClearActive();

/// Tells the loaded windows that slot 1 holds another satellite: status bar, world map, transit chart.
void PrincipalChanged();

/// Whether the elements of the principal satellite are older than 30 days at the program's clock.
bool PrincipalIsOld();
/// Tells it to the main window and to frmDatabase.
void ShowPrincipalAge();

/// Reads "\Halvorine.ini" into the source lines of slots 1 to 200. A missing file is an empty list, an
/// incomplete entry at the end is left out. FileFailure where the file cannot be read; the list is empty
/// then.
void LoadActiveList();

/// Decodes the source lines of all active slots. A slot that fails keeps what could be decoded.
void DecodeActiveList();

/// Writes the active list to "\Halvorine.ini": decoded name and both lines of each. FileFailure where that
/// fails; the old file then stays. A file that could not be read is replaced only if the user agrees.
void Salva_Ini();

/// Whether the active list holds other elements, or the same in another order, than when it was last loaded
/// or written. Names do not count: they are written in another case than files have them.
bool ActiveListChanged();

}  // namespace halvorine
