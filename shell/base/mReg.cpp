#include "shell/base/mReg.h"

#include "astro/mConv.h"
#include "shell/base/mGlobal.h"
#include "shell/base/mLang.h"
#include "shell/base/mPlatform.h"
#include "shell/base/mStore.h"

namespace halvorine {

namespace {

/// Converts a stored text into a field; ConversionFailure or OverflowFailure.
void SetField(const OptionField& field, const std::string& text) {
  if (auto* const* number16 = std::get_if<std::int16_t*>(&field))
    **number16 = ToInt16(ParseStrict(text));
  else if (auto* const* number32 = std::get_if<std::int32_t*>(&field))
    **number32 = ToInt32(ParseStrict(text));
  else if (auto* const* real = std::get_if<double*>(&field))
    **real = ParseStrict(text);
  else
    *std::get<std::string*>(field) = text;
}

std::string FieldText(const OptionField& field) {
  if (const auto* const* number16 = std::get_if<std::int16_t*>(&field)) return std::to_string(**number16);
  if (const auto* const* number32 = std::get_if<std::int32_t*>(&field)) return std::to_string(**number32);
  if (const auto* const* real = std::get_if<double*>(&field)) return NumberText(**real);
  return *std::get<std::string*>(field);
}

std::string Stored(const std::string& section, const std::string& key, const std::string& defaultValue) {
  return GetRegistryString(settingsApplication, section, key, defaultValue);
}

/// Asks whether the default may stand in for a value that does not convert.
void AskForDefault(const OptionRow& row, const std::string& value) {
  std::string question = LookupText("MDIForm1", "valoreillegibile2");
  const std::size_t mark = question.find("%1");
  if (mark != std::string::npos) question.replace(mark, 2, row.defaultValue);
  const std::string text = LookupText("MDIForm1", "valoreillegibile1") + "\n" + row.section + ", " + row.key +
                           ": " + value + "\n" + question;
  if (Tell(MessageKind::Question, text, MessageButtons::YesNo) != MessageAnswer::Yes)
    throw StartupEnds("the setting " + row.key + " cannot be read");
}

void LoadRow(const OptionRow& row, ProgramOptions& options) {
  std::string text = row.defaultValue;
  try {
    text = Stored(row.section, row.key, row.defaultValue);
    SetField(row.field(options), text);
  } catch (const RuntimeFailure&) {
    AskForDefault(row, text);
    SetField(row.field(options), row.defaultValue);
  }
}

/// A number of the observer's section, with the same question where it does not convert.
double SiteNumber(const char* key, const char* defaultValue, bool (*fits)(double)) {
  std::string text = defaultValue;
  try {
    text = Stored("Osservatore", key, defaultValue);
    const double value = ParseStrict(text);
    if (fits(value)) return value;
  } catch (const RuntimeFailure&) {
    // asked below
  }
  AskForDefault({"Osservatore", key, defaultValue, nullptr}, text);
  return ParseStrict(defaultValue);
}

bool IsByte(double x) { return std::nearbyint(x) >= 0 && std::nearbyint(x) <= 255; }
bool IsSingle(double x) { return std::fabs(x) < 3.4e38; }

/// The zone alone is read by the lenient parser: "1,5" gives 1. No place is more than a day ahead or behind.
double StoredZone() {
  constexpr double largestZone = 24;  // hours
  const char* const defaultValue = "1";
  const std::string text = Stored("Osservatore", "Fuso", defaultValue);
  const double zone = ParseNumber(text);
  if (std::fabs(zone) <= largestZone) return zone;
  AskForDefault({"Osservatore", "Fuso", defaultValue, nullptr}, text);
  return ParseNumber(defaultValue);
}

void LoadSite() {
  Site.Place = Stored("Osservatore", "Localita", "Italy: Milano");
  Site.Latitude = ToSingle(SiteNumber("Latitudine", "45470", IsSingle)) / 1000.0F;
  Site.Longitude = ToSingle(SiteNumber("Longitudine", "9190", IsSingle)) / 1000.0F;
  Site.Height = ToSingle(SiteNumber("Quota", "133", IsSingle));
  Site.TimeZone = ToSingle(StoredZone());
  Site.DaylightSaving = static_cast<std::uint8_t>(ToInt16(SiteNumber("Ora legale", "0", IsByte)));
}

}  // namespace

void LoadSettings() {
  LoadSite();
  PrimaryDatabasePath = Stored("Database", "Primario", "");
  for (const OptionRow& row : OptionTable()) LoadRow(row, Options);
  LanguageFile = Stored("Generali", "Lingua", "");
  MakeSavedCopies();
}

void Salva_impostazioni() {
  SettingsBatch batch;
  const auto save = [](const std::string& section, const std::string& key, const std::string& value) {
    SaveRegistryString(settingsApplication, section, key, value);
  };
  save("Osservatore", "Localita", Site.Place);
  save("Osservatore", "Latitudine", NumberText(Site.Latitude * 1000.0F));
  save("Osservatore", "Longitudine", NumberText(Site.Longitude * 1000.0F));
  save("Osservatore", "Quota", NumberText(Site.Height));
  save("Osservatore", "Fuso", NumberText(Site.TimeZone));
  save("Osservatore", "Ora legale", std::to_string(Site.DaylightSaving));
  save("Database", "Primario", PrimaryDatabasePath);
  for (const OptionRow& row : OptionTable()) save(row.section, row.key, FieldText(row.field(Options)));
  save("Generali", "Lingua", LanguageFile);
  batch.Write();
}

void MakeSavedCopies() {
  SavedSite = Site;
  SavedOptions = Options;
  SavedPrimaryDatabasePath = PrimaryDatabasePath;
}

void Impostazioni_default() {
  for (const OptionRow& row : OptionTable()) SetField(row.field(Options), row.defaultValue);
}

void OptionsChanged(bool& changed) {
  ProgramOptions saved = SavedOptions;
  // the star count of the pass chart is changed by the chart itself and is not worth a question
  saved.Preview.StarCount = Options.Preview.StarCount;
  if (!(Site == SavedSite) || PrimaryDatabasePath != SavedPrimaryDatabasePath || !(Options == saved))
    changed = true;
}

WindowPlace LoadWindowPlace(const std::string& section) {
  WindowPlace place;
  const auto read = [&section](const char* key, int fallback) {
    try {
      return static_cast<int>(ToInt32(ParseStrict(Stored(section, key, std::to_string(fallback)))));
    } catch (const RuntimeFailure&) {
      return fallback;
    }
  };
  place.Left = read("Window_Left", place.Left);
  place.Top = read("Window_Top", place.Top);
  place.Width = read("Window_Width", place.Width);
  place.Height = read("Window_Height", place.Height);
  return place;
}

void SaveWindowPlace(const std::string& section, const WindowPlace& place) {
  SettingsBatch batch;
  const auto save = [&section](const char* key, int value) {
    SaveRegistryString(settingsApplication, section, key, std::to_string(value));
  };
  save("Window_Left", place.Left);
  save("Window_Top", place.Top);
  save("Window_Width", place.Width);
  save("Window_Height", place.Height);
  batch.Write();
}

}  // namespace halvorine
