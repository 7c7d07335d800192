#include <algorithm>

#include "catalogue/mCatalogue.h"
#include "shell/base/mLongOperation.h"
#include "tests/catalogue/CatalogueFixture.h"
#include "tests/fakes/FakeForms.h"

namespace halvorine {
namespace {

using ReadTest = CatalogueTest;

std::string Replaced(DatabaseEntry entry, int line, int column, const std::string& text) {
  std::string& changed = line == 1 ? entry.line1 : entry.line2;
  changed = Over(changed, column, text);
  return FileText({entry});
}

TEST_F(ReadTest, FileIsAcceptedOrRefusedByItsContent) {
  const std::string one = FileText({MadeEntry("A", "00005")});
  const std::string two = FileText(Series(2));
  const DatabaseEntry entry = MadeEntry("A", "00005");
  std::string rubbish(3000, '\0');
  for (std::size_t i = 0; i < rubbish.size(); ++i) rubbish[i] = static_cast<char>(i * 7919 % 251);
  struct Row {
    const char* what;
    std::string text;
    int count;  // -1 where the file is refused
  };
  const Row rows[] = {
      {"CR LF", two, 2},
      {"LF", FileText(Series(2), "\n"), 2},
      {"no end of the last line", two.substr(0, two.size() - 2), 2},
      {"everything behind a blank line is ignored", two + "\r\nrubbish\r\n", 2},
      {"a line of blanks is a name", "  \r\n" + one.substr(3), 1},
      {"empty", "", -1},
      {"first line blank", "\r\n" + one, -1},
      {"one line missing", two.substr(0, two.rfind("2 1000")), -1},
      {"lines swapped: columns alone decide", "A\n" + entry.line2 + "\n" + entry.line1 + "\n", 1},
      {"carriage returns only", FileText(Series(2), "\r"), -1},
      {"letters for the year", Replaced(entry, 1, 19, "XX"), -1},
      {"half a year", Replaced(entry, 1, 19, " 2"), 1},
      {"letters for the day", Replaced(entry, 1, 21, "XXX.XXXXXXXX"), 1},
      {"letters for the number", Replaced(entry, 1, 3, "A0005"), -1},
      {"number with blanks", Replaced(entry, 1, 3, "    5"), 1},
      {"highest number of the table", Replaced(entry, 1, 3, "60000"), 1},
      {"number beyond the table", Replaced(entry, 1, 3, "60001"), -1},
      {"number below the table", Replaced(entry, 1, 3, "-0001"), -1},
      {"mean motion 0", Replaced(entry, 2, 53, " 0.00000000"), 1},
      {"eccentricity 0", Replaced(entry, 2, 27, "0000000"), 1},
      {"binary rubbish", rubbish, -1},
      {"long single line", std::string(5000000, 'x'), -1},
  };
  for (const Row& row : rows)
    for (const int index : {Primary, Secondary}) {
      platform.messages.clear();
      platform.fileQuestions.clear();
      ChangeSortKey(index, SortKey::Period);
      index == Primary ? ReadPrimaryText(row.text) : ReadSecondaryText(row.text);
      const bool refused = row.count < 0;
      EXPECT_EQ(DatabaseOf(index).Count(), refused ? 0 : row.count) << row.what;
      EXPECT_EQ(ListedRows(index)->Count(), refused ? 0 : row.count) << row.what;
      EXPECT_EQ(DatabaseStats[static_cast<std::size_t>(index)].known, !refused) << row.what;
      EXPECT_EQ(platform.fileQuestions.size(), refused ? 1U : 0U) << row.what;
      EXPECT_EQ(MessageTexts(), std::vector<std::string>(refused ? 1 : 0, "format\n\n")) << row.what;
    }
}

TEST_F(ReadTest, MissingFileAndFolderAreToldAndAnotherFileIsAskedFor) {
  PrimaryDatabasePath = "/nowhere/old.txt";
  for (const std::string& path : {folder.Path("gone.txt"), AppPath}) {
    platform.messages.clear();
    Database_satelliti(path);
    EXPECT_EQ(MessageTexts(), std::vector<std::string>{"file " + path + " gone\n"});
    EXPECT_EQ(platform.fileQuestions.back().initial, "/nowhere/old.txt");
  }
}

TEST_F(ReadTest, RefusedPrimaryFileLosesThePathAndKeepsTheActiveList) {
  MakeActive(Series(2));
  PrimaryDatabasePath = "some.txt";
  ReadPrimaryText(FileText(Series(3)) + "X\nY\n");
  EXPECT_EQ(PrimaryDatabasePath, "");
  EXPECT_EQ(ActiveCount, 2);
  EXPECT_EQ(StatsTextsOf(Primary).Media, "- days");
}

TEST_F(ReadTest, EmptyFileTakesTheActiveListWithIt) {
  MakeActive(Series(2));
  ReadPrimaryText("");
  EXPECT_EQ(ActiveCount, 0);
  EXPECT_EQ(ElementSets[1].CatalogNumber, "");
  EXPECT_EQ(MessageTexts(), (std::vector<std::string>{"contains 0 of 2 ", "format\n\n"}));
}

TEST_F(ReadTest, StatisticsCountAgesFromTheProgramsClock) {
  MagnitudeTable[2] = "3.5";
  ReadPrimaryText(
      FileText({MadeEntry("A", "00001", "22156.00000000"), MadeEntry("B", "00002", "22165.00000000"),
                MadeEntry("C", "00003", "22167.50000000")}));
  const StatsTexts texts = StatsTextsOf(Primary);
  EXPECT_EQ(texts.Caricati, "3");
  EXPECT_EQ(texts.Vecchi, "10.0 days");
  EXPECT_EQ(texts.Recenti, "-1.5 days");  // from the future, and not clamped
  EXPECT_EQ(texts.Media, "3.2 days");
  EXPECT_EQ(texts.NumeroMagnitudini, "1");
}

TEST_F(ReadTest, SecondaryReaderTakesNamesFromThePrimaryByEccentricity) {
  ReadPrimaryText(FileText({MadeEntry("P1", "00001"), MadeEntry("P2", "00002")}));
  ChangeSortKey(Secondary, SortKey::Eccentricity);
  ReadSecondaryText(FileText({MadeEntry("S1", "00003"), MadeEntry("S2", "00004")}));
  EXPECT_EQ(Listed(Secondary), (std::vector<std::string>{"0.0004  P1", "0.0004  P2"}));
  ChangeSortKey(Secondary, SortKey::Eccentricity);
  EXPECT_EQ(Listed(Secondary), (std::vector<std::string>{"0.0004  S1", "0.0004  S2"}));
  EXPECT_TRUE(platform.messages.empty());
  ReadSecondaryText(FileText(Series(3)));
  EXPECT_EQ(MessageTexts(), std::vector<std::string>{"format\n\n"});
  EXPECT_EQ(SecondaryDatabase.Count(), 0);
  EXPECT_EQ(PrimaryDatabase.Count(), 2);
}

TEST_F(ReadTest, ThirtyTwoThousandSevenHundredAndSixtyEighthEntryFails) {
  std::string text;
  const std::string one = FileText({MadeEntry("A", "00005")});
  for (int i = 0; i < 32767; ++i) text += one;
  ReadPrimaryText(text);
  EXPECT_EQ(PrimaryDatabase.Count(), 32767);
  ReadPrimaryText(text + one);
  EXPECT_EQ(PrimaryDatabase.Count(), 0);
  EXPECT_EQ(MessageTexts(), std::vector<std::string>{"format\n\n"});
}

TEST_F(ReadTest, WindowsSeeBeginAndEndAndTheTickIsHeldAsItStood) {
  CallLog log;
  FakeDatabase database(log);
  FakeProgress progress(log);
  const std::string text = FileText(Series(60));
  platform.millisecondsPerLook = 10;
  platform.onYield = [&] { EXPECT_TRUE(!TickEnabled || log.empty()); };
  for (const bool standing : {true, false}) {
    log.clear();
    progress.values.clear();
    RegisterForm("frmProgress", &progress);
    TickEnabled = standing;
    SatelliteTickEnabled = true;
    ReadPrimaryText(text);
    EXPECT_TRUE(TickEnabled == standing && SatelliteTickEnabled);
    EXPECT_EQ(log, (CallLog{"frmProgress.reading " + std::to_string(text.size()), "frmDatabase.ReadBegins 0",
                            "frmDatabase.ReadEnded 0"}));
    EXPECT_FALSE(IsFormLoaded("frmProgress"));
    ASSERT_GT(progress.values.size(), 5U);
    EXPECT_TRUE(std::is_sorted(progress.values.begin(), progress.values.end()));
    EXPECT_LE(progress.values.back(), static_cast<double>(text.size()));
  }
}

TEST_F(ReadTest, CancelKeepsWhatWasReadAndRebuildsAgainstIt) {
  MakeActive({MadeEntry("LATE", "10020"), MadeEntry("EARLY", "10002")});
  platform.millisecondsPerLook = 10;
  platform.onYield = [&] { CancelRequested = PrimaryDatabase.Count() >= 4; };
  ReadPrimaryText(FileText(Series(20)));
  EXPECT_GE(PrimaryDatabase.Count(), 4);
  EXPECT_LT(PrimaryDatabase.Count(), 12);
  EXPECT_EQ(ListedRows(Primary)->Count(), PrimaryDatabase.Count());
  EXPECT_EQ(Active(), std::vector<std::string>{"10002"});
  EXPECT_FALSE(CancelRequested);
}

TEST_F(ReadTest, SecondCommandDuringAReadIsRefused) {
  platform.millisecondsPerLook = 10;
  bool ended = false;
  platform.onYield = [&] {
    if (PrimaryDatabase.Count() == 0) return;
    platform.onYield = {};
    Database_satelliti("other.txt");
    Database_satelliti_secondario("other.txt");
    Apertura_database(Secondary);
    CancelRequested = true;
    AfterLongOperation = [&] { ended = !LongOperation::Running() && !CancelRequested; };
  };
  ReadPrimaryText(FileText(Series(20)));
  EXPECT_TRUE(ended);
  const std::vector<std::string> texts = MessageTexts();
  EXPECT_GE(std::count(texts.begin(), texts.end(), "busy"), 3);
  EXPECT_EQ(DatabaseStats[Primary].path, folder.Path("primary.txt"));
}

TEST_F(ReadTest, ChooserStartsInTheSampleFolderAndItsChoiceIsRead) {
  CallLog log;
  FakeDatabase database(log);
  Apertura_database(Primary);  // cancelled
  EXPECT_EQ(platform.fileQuestions.at(0).initial, folder.Path("elements"));
  const std::string path = Write("chosen.txt", FileText(Series(3)));
  platform.chosenFiles = {path, path};
  Apertura_database(Secondary);
  EXPECT_EQ(SecondaryDatabase.Count(), 3);
  EXPECT_EQ(PrimaryDatabasePath, "");
  Database_satelliti("");
  EXPECT_EQ(PrimaryDatabase.Count(), 3);
  EXPECT_EQ(PrimaryDatabasePath, path);
}

TEST_F(ReadTest, ChosenFileOfZeroLengthIsLeftAloneOnlyWhereThatIsAskedFor) {
  ReadPrimaryText(FileText(Series(2)));
  const std::string before = PrimaryDatabasePath = Write("before.txt", "x");
  const std::string empty = Write("empty.txt", "");
  platform.chosenFiles = {empty};
  Apertura_database(Primary, EmptyFile::IsIgnored);
  EXPECT_EQ(PrimaryDatabasePath, before);
  EXPECT_EQ(ListedRows(Primary)->Count(), 2);
  EXPECT_TRUE(platform.messages.empty());
  platform.chosenFiles = {empty};
  Apertura_database(Primary);
  EXPECT_EQ(ListedRows(Primary)->Count(), 0);
}

}  // namespace
}  // namespace halvorine
