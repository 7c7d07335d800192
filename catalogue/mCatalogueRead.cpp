#include <optional>
#include <unordered_map>
#include <utility>

#include "astro/mAstro.h"
#include "astro/mMate.h"
#include "catalogue/mCatalogue.h"
#include "catalogue/mCatalogueParts.h"
#include "catalogue/mTables.h"
#include "orbit/mSat.h"
#include "shell/base/mFiles.h"
#include "shell/base/mForms.h"
#include "shell/base/mLang.h"
#include "shell/base/mLongOperation.h"
#include "shell/base/mText.h"

namespace halvorine {

namespace {

enum class ReadOutcome : std::uint8_t { Done, NotFound, BadFormat };

/// Keeps frmDatabase disabled during a read, if it is loaded.
class DatabaseWindowHold {
 public:
  explicit DatabaseWindowHold(int index) : index_(index) {
    if (auto* const window = Loaded<DatabaseCalls>("frmDatabase")) window->ReadBegins(index_);
  }
  ~DatabaseWindowHold() { Release(); }
  DatabaseWindowHold(const DatabaseWindowHold&) = delete;
  DatabaseWindowHold& operator=(const DatabaseWindowHold&) = delete;
  void Release() {
    if (!std::exchange(held_, false)) return;
    if (auto* const window = Loaded<DatabaseCalls>("frmDatabase")) window->ReadEnded(index_);
  }

 private:
  int index_;
  bool held_ = true;
};

/// Julian day of an entry's epoch. The year must be a number, the day is what can be read of it.
double EpochOf(const EntryView& entry) {
  const double year = FullYear(ParseStrict(Columns(entry.line1, 19, 20)));
  return JulianDay(year, 1.0, ParseNumber(Columns(entry.line1, 21, 32)));
}

/// One run of the reader over a file's text.
class EntryReader {
 public:
  explicit EntryReader(int index)
      : index_(index), database_(DatabaseOf(index)), now_(ClockFields.JulianDayNow), key_(SortKeyOf(index)) {}

  /// Reads all entries into the database. Every failure leaves it to the caller.
  void Read(std::string text, LongOperation& operation) {
    PublishRows(index_, nullptr);  // the rows of the former file must not lead into this one
    const std::string_view kept = database_.Take(std::move(text));
    LineReader lines(kept);
    for (EntryView entry; !Cancelled() && lines.Next(entry.name) && !entry.name.empty();) {
      if (!lines.Next(entry.line1) || !lines.Next(entry.line2))
        throw ConversionFailure("the file ends inside entry " + std::to_string(database_.Count() + 1));
      TakeEntry(entry);
      // the position counts in blocks of 128 bytes, as the bar always did
      operation.Step(std::max(0.0, (Int(static_cast<double>(lines.Position()) / 128) - 1) * 128));
    }
    rows_->Sort();
  }

  /// Statistics of what was read; ArithmeticFailure where nothing was.
  CatalogueStats Stats(const std::string& path) {
    stats_.mean = Div(sum_, stats_.loaded);
    stats_.known = true;
    stats_.path = path;
    return stats_;
  }
  std::shared_ptr<const CatalogueRows> Rows() const { return rows_; }

 private:
  static bool Cancelled() { return std::exchange(CancelRequested, false); }

  void TakeEntry(const EntryView& entry) {
    const double age = now_ - EpochOf(entry);
    const int number = ToInt16(database_.Count() + 1);  // a 16-bit counter: one more than 32767 fails
    database_.Append(entry);
    if (index_ == Primary) DatabaseTag = number;
    const int catalogueNumber = CatalogueNumberOf(entry);
    rows_->Append(RowText(entry, RowName(entry, number), key_, YearReading::Lenient), number);
    stats_.loaded = number;
    stats_.newest = std::min(stats_.newest, age);
    if (age > stats_.oldest) stats_.oldest = age;
    sum_ += age;
    if (!StandardMagnitude(catalogueNumber).empty()) ++stats_.magnitudes;
  }

  /// Deliberate oddity: by eccentricity the secondary reader takes the name from the primary database.
  std::string_view RowName(const EntryView& entry, int number) const {
    const bool crossed = index_ == Secondary && key_ == SortKey::Eccentricity;
    return crossed ? PrimaryDatabase.Entry(number).name : entry.name;
  }

  int index_;
  SatelliteDatabase& database_;
  double now_;
  SortKey key_;
  double sum_ = 0;
  CatalogueStats stats_;
  std::shared_ptr<CatalogueRows> rows_ = std::make_shared<CatalogueRows>();
};

/// Puts a database back to the state without a file.
void Discard(int index) {
  DatabaseOf(index).Erase();
  PublishRows(index, nullptr);
  DatabaseStats[static_cast<std::size_t>(index)] = {};
  if (index != Primary) return;
  PrimaryDatabasePath.clear();
  DatabaseTag = -1;
}

void TellNotFound(const std::string& path) {
  Tell(MessageKind::Warning, LookupText("frmDatabase", "file") + " " + path + " " +
                                 LookupText("frmDatabase", "nontrovato") + "\n" +
                                 LookupText("frmDatabase", "selezionarenuovofile"));
}

void TellBadFormat() {
  Tell(MessageKind::Warning, LookupText("Dialogs", "formatononvalido") + "\n" +
                                 LookupText("frmDatabase", "aprirenuovofile") + "\n" +
                                 LookupText("frmDatabase", "funzioneriparazione"));
}

/// Tells what became of the active list, which takes its new length behind the first message.
void TellRebuild(const ActiveRebuild& rebuild) {
  if (rebuild.oldCount >= 1)
    Tell(MessageKind::Information,
         LookupText("frmDatabase", "databasecontiene") + " " + std::to_string(rebuild.matched) + " " +
             LookupText("frmDatabase", "su") + " " + std::to_string(rebuild.oldCount) + " " +
             LookupText("frmDatabase", "satellitipreimpostati"));
  if (rebuild.oldCount != rebuild.matched) {
    ActiveCount = ToInt16(rebuild.matched);
    for (int slot = rebuild.matched + 1; slot <= ScratchSlot; ++slot) {
      Azzera_Satelement(slot);
      Azzera_Valori(slot);
    }
  }
  BlankWhenEmpty();
  if (!rebuild.principalFound && ActiveCount > 0)
    Tell(MessageKind::Information, LookupText("frmDatabase", "satellitenondisponibile"));
}

/// What both readers do between the opening of the file and the end; true unless the file is no element file.
bool ReadText(int index, const std::string& path, std::string text, LongOperation& operation) {
  operation.ShowProgress(LookupText("frmProgress", "letturasatelliti"), static_cast<double>(text.size()));
  DatabaseWindowHold window(index);
  try {
    EntryReader reader(index);
    reader.Read(std::move(text), operation);
    PublishRows(index, reader.Rows());
    const ActiveRebuild rebuild = index == Primary ? RebuildActiveList() : ActiveRebuild();
    operation.CloseProgress();
    if (index == Primary) {
      TellRebuild(rebuild);
      ShowPrincipalName();
    }
    DatabaseStats[static_cast<std::size_t>(index)] = reader.Stats(path);
    return true;
  } catch (const RuntimeFailure&) {
    operation.CloseProgress();
    Discard(index);
    window.Release();
    TellBadFormat();
    return false;
  }
}

ReadOutcome ReadPrimary(const std::string& path) {
  LongOperation operation;
  if (!operation.Started()) return ReadOutcome::Done;
  ThePlatform().Yield();
  DatabaseTag = -1;
  std::string text;
  try {
    text = ReadWholeFile(path);
  } catch (const FileFailure&) {
    TellNotFound(path);
    return ReadOutcome::NotFound;
  }
  const TickHold hold;
  return ReadText(Primary, path, std::move(text), operation) ? ReadOutcome::Done : ReadOutcome::BadFormat;
}

ReadOutcome ReadSecondary(const std::string& path) {
  LongOperation operation;
  if (!operation.Started()) return ReadOutcome::Done;
  ThePlatform().Yield();
  try {
    return ReadText(Secondary, path, ReadWholeFile(path), operation) ? ReadOutcome::Done
                                                                     : ReadOutcome::BadFormat;
  } catch (const FileFailure&) {
    // a missing secondary file is told as any other file that is no element file
    Discard(Secondary);
    if (auto* const window = Loaded<DatabaseCalls>("frmDatabase")) window->ReadEnded(Secondary);
    TellBadFormat();
    return ReadOutcome::BadFormat;
  }
}

}  // namespace

void DecodeInto(int slot, const EntryView& entry) {
  // the element set goes first: channels of the satellite before would stay otherwise
  Azzera_Satelement(slot);
  try {
    Estrai_Dati_Satellite(slot, std::string(entry.name), std::string(entry.line1), std::string(entry.line2));
  } catch (const RuntimeFailure&) {
    // one bad satellite keeps what was decoded of it and ends nothing
  }
}

ActiveRebuild RebuildActiveList() {
  ActiveRebuild rebuild;
  rebuild.oldCount = ActiveCount;
  std::vector<std::string> wanted;
  for (int slot = 1; slot <= ActiveCount; ++slot) wanted.push_back(ElementSets[slot].CatalogNumber);
  std::unordered_map<std::string_view, std::vector<int>> entriesOf;
  for (const std::string& number : wanted) entriesOf[number];
  for (int number = 1; number <= PrimaryDatabase.Count(); ++number)
    if (const auto found = entriesOf.find(NumberKey(PrimaryDatabase.Entry(number))); found != entriesOf.end())
      found->second.push_back(number);

  ActiveRows.clear();
  for (int slot = 1; slot <= SlotCount; ++slot) Azzera_RigaDati(slot);
  for (const std::string& old : wanted)
    for (const int number : entriesOf[old]) {
      if (rebuild.matched == MaxActive) break;
      if (&old == &wanted.front()) rebuild.principalFound = true;
      const EntryView& entry = PrimaryDatabase.Entry(number);
      DecodeInto(++rebuild.matched, entry);
      ActiveRows.emplace_back(Trimmed(entry.name));
    }
  return rebuild;
}

void Database_satelliti(const std::string& path) {
  if (path.empty() || ReadPrimary(path) != ReadOutcome::Done) Apertura_database(Primary);
}

void Database_satelliti_secondario(const std::string& path) {
  if (ReadSecondary(path) != ReadOutcome::Done) Apertura_database(Secondary);
}

}  // namespace halvorine
