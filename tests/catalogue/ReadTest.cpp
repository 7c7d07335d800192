#include <algorithm>

#include "catalogue/mCatalogue.h"
#include "shell/base/mLongOperation.h"
#include "tests/catalogue/CatalogueFixture.h"

namespace halvorine {
namespace {

using ReadTest = CatalogueTest;

/// The two windows of a read, which only log.
class LoggingDatabase : public DatabaseCalls {
 public:
  explicit LoggingDatabase(std::vector<std::string>& log) : log_(log) { RegisterForm("frmDatabase", this); }
  void Unload() override { UnregisterForm("frmDatabase"); }
  void Show() override { log_.emplace_back("show"); }
  void ReadBegins(int index) override { log_.push_back("disable " + std::to_string(index)); }
  void ReadEnded(int index) override { log_.push_back("enable " + std::to_string(index)); }
  void SelectActive(int /*position*/) override {}
  void RemoveSelected() override {}
  void ActiveListChanged() override {}
  void WarnOfOldElements(bool /*old*/) override {}

 private:
  std::vector<std::string>& log_;
};

class LoggingProgress : public ProgressCalls {
 public:
  void SetTask(const std::string& /*task*/) override {}
  explicit LoggingProgress(std::vector<std::string>& log) : log_(log) { RegisterForm("frmProgress", this); }
  void Unload() override {
    UnregisterForm("frmProgress");
    log_.emplace_back("progress closed");
  }
  void Show() override {}
  void Begin(const std::string& task, double maximum) override {
    log_.push_back(task + " " + std::to_string(static_cast<int>(maximum)));
  }
  void SetValue(double value) override { values.push_back(value); }
  std::vector<double> values;

 private:
  std::vector<std::string>& log_;
};

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
      {"trailing blank line", two + "\r\n", 2},
      {"everything behind a blank line is ignored", two + "\r\nrubbish\r\n", 2},
      {"a line of blanks is a name", "  \r\n" + one.substr(3), 1},
      {"empty", "", -1},
      {"first line blank", "\r\n" + one, -1},
      {"one line missing", two.substr(0, two.rfind("2 1000")), -1},
      {"two lines missing", two + "NAME\r\n", -1},
      {"no name lines", entry.line1 + "\n" + entry.line2 + "\n", -1},
      {"lines swapped: columns alone decide", "A\n" + entry.line2 + "\n" + entry.line1 + "\n", 1},
      {"carriage returns only", FileText(Series(2), "\r"), -1},
      {"letters for the year", Replaced(entry, 1, 19, "XX"), -1},
      {"blank year", Replaced(entry, 1, 19, "  "), -1},
      {"half a year", Replaced(entry, 1, 19, " 2"), 1},
      {"letters for the day", Replaced(entry, 1, 21, "XXX.XXXXXXXX"), 1},
      {"letters for the number", Replaced(entry, 1, 3, "A0005"), -1},
      {"blank number", Replaced(entry, 1, 3, "     "), -1},
      {"number with blanks", Replaced(entry, 1, 3, "    5"), 1},
      {"highest number of the table", Replaced(entry, 1, 3, "60000"), 1},
      {"number beyond the table", Replaced(entry, 1, 3, "60001"), -1},
      {"number below the table", Replaced(entry, 1, 3, "-0001"), -1},
      {"short lines", "A\n1 00005\n2 00005\n", -1},
      {"mean motion 0", Replaced(entry, 2, 53, " 0.00000000"), 1},
      {"mean motion 99.9", Replaced(entry, 2, 53, "99.90000000"), 1},
      {"eccentricity 0", Replaced(entry, 2, 27, "0000000"), 1},
      {"eccentricity 9999999", Replaced(entry, 2, 27, "9999999"), 1},
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
  for (const std::string& path : {(folder / "gone.txt").string(), folder.string()}) {
    platform.messages.clear();
    platform.fileQuestions.clear();
    Database_satelliti(path);
    ASSERT_EQ(MessageTexts(), std::vector<std::string>{"file " + path + " gone\n"});
    EXPECT_EQ(platform.messages[0].kind, MessageKind::Warning);
    ASSERT_EQ(platform.fileQuestions.size(), 1U);
    EXPECT_EQ(platform.fileQuestions[0].initial, "/nowhere/old.txt");
    platform.messages.clear();
    Database_satelliti_secondario(path);
    EXPECT_EQ(MessageTexts(), std::vector<std::string>{"format\n\n"});
  }
  EXPECT_FALSE(LongOperation::Running());
}

TEST_F(ReadTest, RefusedPrimaryFileLosesThePathAndKeepsTheActiveList) {
  MakeActive(Series(2));
  PrimaryDatabasePath = "some.txt";
  ReadPrimaryText(FileText(Series(3)) + "X\nY\n");
  EXPECT_EQ(PrimaryDatabasePath, "");
  EXPECT_EQ(DatabaseTag, -1);
  EXPECT_EQ(ActiveCount, 2);
  EXPECT_EQ(StatsTextsOf(Primary).Caricati, "0");
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
  EXPECT_EQ(DatabaseStats[Primary].path, (folder / "primary.txt").string());
  EXPECT_EQ(DatabaseTag, 3);
  EXPECT_EQ(StatsTextsOf(Secondary).Vecchi, "- days");
}

TEST_F(ReadTest, EpochYearsTurnAt57) {
  // 1 January 0h: 2056 is Julian day 2471998.5 and 1957 is 2435839.5
  ClockFields.JulianDayNow = 2471998.5;
  ReadPrimaryText(
      FileText({MadeEntry("A", "00001", "56001.00000000"), MadeEntry("B", "00002", "57001.00000000")}));
  EXPECT_DOUBLE_EQ(DatabaseStats[Primary].newest, 0.0);
  EXPECT_DOUBLE_EQ(DatabaseStats[Primary].oldest, 2471998.5 - 2435839.5);
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
  std::vector<std::string> log;
  LoggingDatabase database(log);
  LoggingProgress progress(log);
  const std::string text = FileText(Series(60));
  bool heldOff = true;
  platform.millisecondsPerLook = 10;
  platform.onYield = [&] { heldOff = heldOff && (!TickEnabled || log.empty()); };
  for (const bool standing : {true, false}) {
    log.clear();
    progress.values.clear();
    RegisterForm("frmProgress", &progress);
    TickEnabled = standing;
    SatelliteTickEnabled = true;
    ReadPrimaryText(text);
    EXPECT_EQ(TickEnabled, standing);
    EXPECT_TRUE(SatelliteTickEnabled);
    EXPECT_EQ(log, (std::vector<std::string>{"reading " + std::to_string(text.size()), "disable 0",
                                             "progress closed", "enable 0"}));
    ASSERT_GT(progress.values.size(), 5U);
    EXPECT_TRUE(std::is_sorted(progress.values.begin(), progress.values.end()));
    EXPECT_EQ(static_cast<int>(progress.values.back()) % 128, 0);
    EXPECT_LE(progress.values.back(), static_cast<double>(text.size()));
  }
  EXPECT_TRUE(heldOff);
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

TEST_F(ReadTest, CancelThatComesTooLateEndsWithTheRead) {
  MakeActive(Series(1));
  platform.onMessage = [] { CancelRequested = true; };  // the entries are read by then
  ReadPrimaryText(FileText(Series(2)));
  EXPECT_EQ(PrimaryDatabase.Count(), 2);
  EXPECT_FALSE(CancelRequested);
}

TEST_F(ReadTest, SecondCommandDuringAReadIsRefused) {
  platform.millisecondsPerLook = 10;
  bool tried = false, ended = false;
  platform.onYield = [&] {
    if (tried || PrimaryDatabase.Count() == 0) return;
    tried = true;
    Database_satelliti("other.txt");
    Database_satelliti_secondario("other.txt");
    Apertura_database(Secondary);
    EXPECT_FALSE(DatabaseAtHand());
    CancelRequested = true;
    AfterLongOperation = [&] { ended = !LongOperation::Running() && !CancelRequested; };
  };
  ReadPrimaryText(FileText(Series(20)));
  EXPECT_TRUE(tried);
  EXPECT_TRUE(ended);
  const std::vector<std::string> texts = MessageTexts();
  EXPECT_GE(std::count(texts.begin(), texts.end(), "busy"), 3);
  EXPECT_EQ(DatabaseStats[Primary].path, (folder / "primary.txt").string());
}

TEST_F(ReadTest, ChooserStartsInTheSampleFolderAndItsChoiceIsRead) {
  std::vector<std::string> log;
  LoggingDatabase database(log);
  Apertura_database(Primary);  // cancelled
  ASSERT_EQ(platform.fileQuestions.size(), 1U);
  EXPECT_EQ(platform.fileQuestions[0].initial, (folder / "elements").string());
  EXPECT_TRUE(log.empty());
  const std::string path = Write("chosen.txt", FileText(Series(3)));
  platform.chosenFiles = {path, path};
  Apertura_database(Secondary);
  EXPECT_EQ(SecondaryDatabase.Count(), 3);
  EXPECT_EQ(PrimaryDatabasePath, "");
  EXPECT_EQ(log.back(), "show");
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
  platform.chosenFiles = {(folder / "gone.txt").string()};
  Apertura_database(Primary, EmptyFile::IsIgnored);
  EXPECT_EQ(platform.messages.size(), 1U) << "a file that is gone is told";
  platform.chosenFiles = {empty};
  Apertura_database(Primary);
  EXPECT_EQ(platform.messages.size(), 2U);
  EXPECT_EQ(ListedRows(Primary)->Count(), 0);
}

TEST_F(ReadTest, DatabaseIsReadOnlyOnOkayWhenACommandNeedsIt) {
  EXPECT_FALSE(DatabaseAtHand());
  ASSERT_EQ(MessageTexts(), std::vector<std::string>{"needed"});
  EXPECT_EQ(platform.messages[0].buttons, MessageButtons::OkCancel);
  EXPECT_TRUE(platform.fileQuestions.empty());
  platform.answers = {MessageAnswer::Ok};
  EXPECT_FALSE(DatabaseAtHand());  // asked for a file, and none was chosen
  EXPECT_EQ(platform.fileQuestions.size(), 1U);
  PrimaryDatabasePath = Write("p.txt", FileText(Series(3)));
  platform.answers = {MessageAnswer::Ok};
  EXPECT_TRUE(DatabaseAtHand());
  platform.messages.clear();
  EXPECT_TRUE(DatabaseAtHand());
  EXPECT_TRUE(platform.messages.empty());
}

}  // namespace
}  // namespace halvorine
