// The settings store, the table of options and the questions about values that cannot be read.
#include "shell/base/mStore.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "astro/mConv.h"
#include "shell/base/mReg.h"
#include "tests/fakes/FakePlatform.h"
#include "tests/fakes/ProgramFolder.h"

namespace halvorine {
namespace {

class StoreTest : public testing::Test {
 protected:
  StoreTest() { platform_.settingsFile = folder_.SettingsFile(); }
  ProgramFolder folder_;
  FakePlatform platform_;
};

/// Another value for an option of any type.
void Change(const OptionRow& row, int number) {
  const auto change = [number](auto* field) {
    if constexpr (std::is_same_v<decltype(field), std::string*>)
      *field += std::to_string(number);
    else
      *field = static_cast<std::remove_pointer_t<decltype(field)>>(*field + number);
  };
  std::visit(change, row.field(Options));
}

TEST_F(StoreTest, EmptyNamesAreRefusedInOrderWithTheirCodes) {
  const auto refused = [](const char* application, const char* section, const char* key, const char* text,
                          std::uint32_t code) {
    try {
      SaveRegistryString(application, section, key, "x");
      ADD_FAILURE() << text;
    } catch (const SettingsFailure& failure) {
      EXPECT_STREQ(failure.what(), text);
      EXPECT_EQ(failure.Code, code);
    }
    EXPECT_THROW(GetRegistryString(application, section, key, "x"), SettingsFailure) << text;
  };
  refused(" ", "", "", "AppName may not be empty", 0x800403E8);
  refused("Halvorine", "  ", "", "Section may not be empty", 0x800403E9);
  refused("Halvorine", "Generali", " ", "Key may not be empty", 0x800403EA);
}

TEST_F(StoreTest, ValuesComeBackWholeFromDisk) {
  namespace fs = std::filesystem;
  SaveRegistryString("Halvorine", "Generali", "Lingua", "English.ini");
  fs::permissions(folder_.SettingsFile(), fs::perms::owner_read | fs::perms::owner_write);
  const char* const values[] = {"",       "plain",         "with = and \"quotes\" and \\ too", "line\r\nend",
                                "[head]", "M\xC3\xBCnchen"};
  for (const char* const value : values) {
    SaveRegistryString(" Halvorine ", " Cielo locale ", "Griglia 10", value);
    ForgetSettings();
    EXPECT_EQ(GetRegistryString("Halvorine", "cielo LOCALE", "griglia 10", "default"), value);
  }
  EXPECT_EQ(GetRegistryString("Halvorine", "Cielo locale", " Griglia 10", "default"), "default")
      << "a key is taken as given";
  EXPECT_EQ(fs::status(folder_.SettingsFile()).permissions(), fs::perms::owner_read | fs::perms::owner_write);
}

TEST_F(StoreTest, ANumberTypeIsNoText) {
  folder_.WriteTo(folder_.SettingsFile(),
                  "[SOFTWARE\\Halvorine\\Generali]\n\"Unita\"=dword:00000001\nrubbish\n");
  try {
    GetRegistryString("Halvorine", "Generali", "Unita", "0");
    FAIL();
  } catch (const SettingsFailure& failure) {
    EXPECT_STREQ(failure.what(), "Registry data not a string");
    EXPECT_EQ(failure.Code, 0x800407D4U);
  }
  SaveRegistryString("Halvorine", "Generali", "Barra stato", "0");
  EXPECT_NE(folder_.Read(folder_.SettingsFile()).find("\"Unita\"=dword:00000001"), std::string::npos)
      << "a rewrite keeps what it does not know";
}

TEST_F(StoreTest, AStoreThatCannotBeWrittenTellsAndKeepsTheOldOne) {
  SaveRegistryString("Halvorine", "Generali", "Lingua", "English.ini");
  platform_.refuseWriting = true;
  const auto expectFailure = [](const char* text, int error) {
    try {
      SaveRegistryString("Halvorine", "Generali", "Lingua", "Italiano.ini");
      FAIL();
    } catch (const SettingsFailure& failure) {
      EXPECT_STREQ(failure.what(), text);
      EXPECT_EQ(failure.Code, 0x800407D0U + static_cast<std::uint32_t>(error));
    }
  };
  expectFailure("Could not set key value", ENOSPC);
  EXPECT_EQ(GetRegistryString("Halvorine", "Generali", "Lingua", ""), "English.ini");
  platform_.refuseWriting = false;
  platform_.settingsFile = folder_.SettingsFile() + "/below/a/file.txt";
  ForgetSettings();
  expectFailure("Could not open/create registry section", ENOTDIR);
  // what is there and cannot be read
  platform_.settingsFile = folder_.Path("");
  ForgetSettings();
  expectFailure("Could not open/create registry section", EIO);
}

TEST_F(StoreTest, SavingIsTheInverseOfLoadingForEveryOption) {
  LoadSettings();
  int number = 3;
  for (const OptionRow& row : OptionTable()) Change(row, ++number);
  Site = {"Chile: La Silla", -29.26F, -70.7313F, 2400, -3.5F, 1};
  PrimaryDatabasePath = "/elements/visual.txt";
  const ProgramOptions options = Options;
  const ObserverSite site = Site;
  Salva_impostazioni();
  ForgetSettings();
  Options = {};
  Site = {};
  LoadSettings();
  EXPECT_EQ(Site, site);
  EXPECT_EQ(PrimaryDatabasePath, "/elements/visual.txt");
  EXPECT_TRUE(Options == options);
}

TEST_F(StoreTest, SouthAndWestAreStoredInThousandths) {
  SaveRegistryString("Halvorine", "Osservatore", "Latitudine", "-33870");
  SaveRegistryString("Halvorine", "Osservatore", "Fuso", "1,5");
  LoadSettings();
  EXPECT_FLOAT_EQ(Site.Latitude, -33.87F);
  EXPECT_FLOAT_EQ(Site.TimeZone, 1) << "the zone alone is read up to the comma";
}

TEST_F(StoreTest, AnUnreadableValueIsAskedAboutAndTheStoreIsLeftAlone) {
  LanguageFile = "English.ini";
  const struct {
    const char *section, *key, *value;
  } rows[] = {{"Osservatore", "Quota", "high"},
              {"Osservatore", "Ora legale", "300"},
              {"Filtri", "Altezza min tutti", "1e999"},
              {"Satelliti", "Soglia", ""},
              {"Osservatore", "Fuso", "1e9"}};
  for (const auto& row : rows) {
    SaveRegistryString("Halvorine", row.section, row.key, row.value);
    platform_.messages.clear();
    platform_.answers = {MessageAnswer::Yes};
    EXPECT_NO_THROW(LoadSettings()) << row.key;
    ASSERT_EQ(platform_.messages.size(), 1U) << row.key;
    for (const char* const part : {row.section, row.key, row.value})
      EXPECT_NE(platform_.messages[0].text.find(part), std::string::npos) << part;
    platform_.answers = {MessageAnswer::No};
    EXPECT_THROW(LoadSettings(), StartupEnds) << row.key;
    EXPECT_EQ(GetRegistryString("Halvorine", row.section, row.key, "gone"), row.value);
    SaveRegistryString("Halvorine", row.section, row.key, "1");
    LanguageFile = "English.ini";
  }
}

TEST_F(StoreTest, OptionsChangedSeesEveryFieldButOne) {
  const auto changed = [] {
    bool result = false;
    OptionsChanged(result);
    return result;
  };
  LoadSettings();
  EXPECT_FALSE(changed());
  for (const OptionRow& row : OptionTable()) {
    Change(row, 1);
    EXPECT_EQ(changed(), !(row.section == "Cielo anteprima" && row.key == "Stelle"))
        << row.section << row.key;
    Options = SavedOptions;
  }
  Site.DaylightSaving = 1;
  EXPECT_TRUE(changed());
}

TEST_F(StoreTest, RestoredDefaultsLeaveThePlaceAndTheStoreAlone) {
  LoadSettings();
  Options.Map.Grid = 0;
  Site.Height = 1000;
  Options.TimeServers[3] = "";
  SaveRegistryString("Halvorine", "Mappamondo", "Griglia", "0");
  Impostazioni_default();
  EXPECT_EQ(Options.Map.Grid, -1);
  EXPECT_FALSE(Options.TimeServers[3].empty());
  EXPECT_EQ(Site.Height, 1000);
  EXPECT_EQ(GetRegistryString("Halvorine", "Mappamondo", "Griglia", ""), "0");
}

}  // namespace
}  // namespace halvorine
