// Stage one of start-up, the data tables and the daylight-saving check.
#include "shell/mStart.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include "shell/base/mFiles.h"
#include "shell/base/mReg.h"
#include "shell/mInstallation.h"
#include "tests/fakes/FakePlatform.h"
#include "tests/fakes/ProgramFolder.h"

namespace halvorine {
namespace {

class StartTest : public testing::Test {
 protected:
  StartTest() { platform_.settingsFile = folder_.SettingsFile(); }
  void Start() {
    StartStageOne({.chooseLanguage = [this] {
      ++languageDialogs_;
      if (!choice_.empty()) ChooseLanguage(choice_);
    }});
  }
  bool Ends() {
    try {
      Start();
      return false;
    } catch (const StartupEnds&) {
      return true;
    }
  }
  ProgramFolder folder_;
  FakePlatform platform_;
  std::string choice_ = "Italiano";
  int languageDialogs_ = 0;
};

TEST_F(StartTest, OnlyTheFirstStartAsksForTheLanguage) {
  Start();
  EXPECT_EQ(languageDialogs_, 1);
  EXPECT_EQ(LanguageFile, "Italiano.ini");
  EXPECT_TRUE(std::filesystem::exists(folder_.Path("Halvorine.ini"))) << "an empty list is made";
  Start();
  EXPECT_EQ(languageDialogs_, 1);
}

TEST_F(StartTest, ALanguageThatIsGoneOrLeadsElsewhereIsAskedForAgain) {
  for (const char* const stored : {"Klingon.ini", "../program/English.ini", "elements"}) {
    SaveRegistryString("Halvorine", "Generali", "Lingua", stored);
    languageDialogs_ = 0;
    Start();
    EXPECT_EQ(languageDialogs_, 1) << stored;
    EXPECT_EQ(GetRegistryString("Halvorine", "Generali", "Lingua", ""), "Italiano.ini");
  }
}

TEST_F(StartTest, LeavingTheLanguageDialogEndsTheStart) {
  choice_.clear();
  EXPECT_TRUE(Ends());
  EXPECT_TRUE(platform_.messages.empty());
}

TEST_F(StartTest, AnInstallationWithTheListFileFirstHasNoLanguage) {
  for (const std::string& name : InstalledLanguages()) folder_.Remove(name + ".ini");
  folder_.Write("HALVORINE.ini", "");
  folder_.Write("italiano.ini", "");
  EXPECT_TRUE(Ends());
  ASSERT_EQ(platform_.messages.size(), 1U);
  EXPECT_EQ(platform_.messages[0].text, "No language file available!\nPlease, check the installation");
}

TEST_F(StartTest, ASecondInstanceEndsBeforeItTouchesAFile) {
  SaveRegistryString("Halvorine", "Generali", "Lingua", "English.ini");
  platform_.firstInstance = false;
  EXPECT_TRUE(Ends());
  EXPECT_EQ(platform_.messages.at(0).text, LookupText("MDIForm1", "programmainesecuzione"));
  EXPECT_FALSE(std::filesystem::exists(folder_.Path("Halvorine.ini")));
}

TEST_F(StartTest, EachMissingFileStopsTheStartAndAnEmptyOneDoesNot) {
  SaveRegistryString("Halvorine", "Generali", "Lingua", "English.ini");
  for (const std::string& name : RequiredFiles()) {
    const std::string path = folder_.Path(name.substr(1));
    std::filesystem::rename(path, path + ".away");
    platform_.messages.clear();
    EXPECT_TRUE(Ends()) << name;
    folder_.Write(name.substr(1), "");
    EXPECT_FALSE(Ends()) << name;
    folder_.Remove(name.substr(1));
    std::filesystem::rename(path + ".away", path);
  }
  folder_.Remove("magnitud.dat");
  folder_.Remove("landscape.dat");
  EXPECT_FALSE(Ends());
}

TEST_F(StartTest, NamesAreFoundInAnyCaseAndTheUsersCopyCounts) {
  std::filesystem::rename(folder_.Path("stars.bin"), folder_.Path("STARS.Bin"));
  EXPECT_EQ(FindProgramFile("\\stars.bin"), folder_.Path("STARS.Bin"));
  UserFolder = std::filesystem::path(folder_.UserPath("x")).parent_path().string();
  ProgramFolder::WriteTo(folder_.UserPath("Cities.dat"), "mine");
  EXPECT_EQ(ReadProgramFile("\\cities.dat"), "mine");
}

TEST_F(StartTest, AProgramFolderThatCannotBeWrittenIsOverlaid) {
  // a parent that is a file cannot be written by anyone
  UserFolder = std::filesystem::path(folder_.UserPath("x")).parent_path().string();
  AppPath = folder_.Path("planets.dat") + "/below";
  WriteProgramFile("\\Halvorine.ini", "list");
  EXPECT_EQ(ProgramFolder::Read(folder_.UserPath("Halvorine.ini")), "list");
  EXPECT_EQ(ReadProgramFile("\\halvorine.ini"), "list");
}

TEST_F(StartTest, ATableThatCannotBeReadEndsTheStart) {
  const struct {
    const char *name, *content;
  } rows[] = {{"stars.bin", "short"},    {"clines.dat", ""},
              {"cnames.dat", "x,y,z"},   {"planets.dat", "Mercury\n1,2"},
              {"magnitud.dat", nullptr}, {"frequen.dat", "\"00001\",a,b,\"x\"\n"}};
  LanguageFile = "English.ini";
  for (const auto& row : rows) {
    const std::string path = folder_.Path(row.name);
    std::filesystem::rename(path, path + ".away");
    if (row.content != nullptr) folder_.Write(row.name, row.content);
    platform_.messages.clear();
    EXPECT_THROW(LoadDataTables(), StartupEnds) << row.name;
    EXPECT_EQ(platform_.messages.at(0).text, LookupText("MDIForm1", "erroredb")) << row.name;
    std::filesystem::remove(path);
    std::filesystem::rename(path + ".away", path);
  }
}

TEST_F(StartTest, AnInstallationIsInspectedWithoutAQuestion) {
  EXPECT_EQ(DataFolderOf(AppPath), AppPath);
  const std::filesystem::path prefix = std::filesystem::path(AppPath).parent_path();
  std::filesystem::create_directories(prefix / "bin");
  std::filesystem::create_directories(prefix / "share");
  std::filesystem::create_directory_symlink(AppPath, prefix / "share" / "halvorine");
  EXPECT_EQ(DataFolderOf((prefix / "bin").string()), (prefix / "share" / "halvorine").string());

  EXPECT_TRUE(InspectInstallation().whole) << InspectInstallation().text;
  folder_.Remove("cnames.dat");
  folder_.Write("frequen.dat", "");
  const InstallationReport report = InspectInstallation();
  EXPECT_FALSE(report.whole);
  for (const char* const fault :
       {"FAULT file cnames.dat is missing\n", "FAULT stars: ", "FAULT no radio frequencies\n"})
    EXPECT_NE(report.text.find(fault), std::string::npos) << report.text;
  EXPECT_TRUE(platform_.messages.empty());
}

TEST_F(StartTest, TheDaylightCheckStoresOnlyTheSwitchAndOnlyOnYes) {
  LoadSettings();
  platform_.zone = ZoneBias{-120, true};
  platform_.answers = {MessageAnswer::No};
  CheckDaylightSaving();
  EXPECT_EQ(Site.DaylightSaving, 0);
  Site.Height = 7;
  platform_.answers = {MessageAnswer::Yes};
  CheckDaylightSaving();
  EXPECT_EQ(Site.DaylightSaving, 1);
  EXPECT_EQ(GetRegistryString("Halvorine", "Osservatore", "Ora legale", ""), "1");
  EXPECT_EQ(GetRegistryString("Halvorine", "Osservatore", "Quota", "none"), "none");
}

}  // namespace
}  // namespace halvorine
