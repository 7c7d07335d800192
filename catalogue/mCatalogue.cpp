#include "catalogue/mCatalogue.h"

#include <filesystem>
#include <optional>
#include <utility>

#include "astro/mConv.h"
#include "catalogue/mCatalogueParts.h"
#include "shell/base/mForms.h"
#include "shell/base/mLang.h"
#include "shell/base/mLongOperation.h"
#include "shell/base/mPlatform.h"
#include "shell/base/mText.h"

namespace halvorine {

const EntryView& SatelliteDatabase::Entry(int number) const {
  if (number < 1 || number > Count())
    throw SubscriptFailure("database entry " + std::to_string(number) + " does not exist");
  return entries_[static_cast<std::size_t>(number - 1)];
}

DatabaseEntry SatelliteDatabase::Copy(int number) const {
  const EntryView& entry = Entry(number);
  return {std::string(entry.name), std::string(entry.line1), std::string(entry.line2)};
}

void SatelliteDatabase::Erase() {
  // gives the memory back as well
  std::vector<EntryView>().swap(entries_);
  text_.reset();
}

std::string_view SatelliteDatabase::Take(std::string text) {
  Erase();
  text_ = std::make_unique<const std::string>(std::move(text));
  return *text_;
}

SatelliteDatabase& DatabaseOf(int index) {
  if (index != Primary && index != Secondary)
    throw SubscriptFailure("there is no database " + std::to_string(index));
  return index == Primary ? PrimaryDatabase : SecondaryDatabase;
}

std::string_view NumberKey(const EntryView& entry) { return Columns(entry.line1, 3, 7); }
int CatalogueNumberOf(const EntryView& entry) { return ToInt32(ParseStrict(NumberKey(entry))); }

StatsTexts StatsTextsOf(int index) {
  DatabaseOf(index);
  const CatalogueStats& stats = DatabaseStats[static_cast<std::size_t>(index)];
  const std::string days = LookupText("Def", "giorni");
  const auto age = [&](double value) {
    return stats.known ? Format(value, "####0.0") + " " + days : "- " + days;
  };
  return {std::to_string(stats.loaded), age(stats.oldest), age(stats.newest), age(stats.mean),
          std::to_string(stats.magnitudes)};
}

std::string ChooserStart() {
  if (!PrimaryDatabasePath.empty()) return PrimaryDatabasePath;
  return (std::filesystem::path(AppPath) / "elements").string();
}

namespace {

bool IsOfZeroLength(const std::string& path) {
  std::error_code failed;
  return std::filesystem::file_size(path, failed) == 0 && !failed;
}

}  // namespace

void Apertura_database(int index, EmptyFile empty) {
  DatabaseOf(index);
  if (LongOperation::Refused()) return;
  const std::optional<std::string> chosen = ThePlatform().ChooseFile(
      {LookupText("Dialogs", "apritle"), LookupText("Dialogs", "filtrotle"), ChooserStart(), false});
  if (!chosen || chosen->empty()) return;
  if (empty == EmptyFile::IsIgnored && IsOfZeroLength(*chosen)) return;
  PublishRows(index, nullptr);
  if (index == Primary) {
    PrimaryDatabasePath = *chosen;
    Database_satelliti(*chosen);
  } else {
    Database_satelliti_secondario(*chosen);
  }
  if (DatabaseCalls* const window = Load<DatabaseCalls>("frmDatabase")) window->Show();
}

bool DatabaseAtHand() {
  if (ListedRows(Primary)->Count() > 0) return true;
  if (LongOperation::Refused()) return false;
  if (Tell(MessageKind::Question, LookupText("MDIForm1", "necessariodb"), MessageButtons::OkCancel) !=
      MessageAnswer::Ok)
    return false;
  Database_satelliti(PrimaryDatabasePath);
  return ListedRows(Primary)->Count() > 0;
}

}  // namespace halvorine
