// The tools on element files: summary rows and their order, files of all kinds in the viewer, the editor's
// bytes, and the repair of line ends.
#include "catalogue/mElementFile.h"

#include <gmock/gmock.h>

#include "catalogue/mTables.h"
#include "orbit/mSat.h"
#include "tests/catalogue/CatalogueFixture.h"
#include "tests/fakes/FakeForms.h"

namespace halvorine {
namespace {

using testing::ElementsAre;

class ElementFileTest : public CatalogueTest {
 protected:
  static std::vector<std::string> ColumnOf(const SummaryTable& table, int column) {
    std::vector<std::string> cells;
    for (int row = 0; row < table.Count(); ++row) cells.push_back(table.Cell(row, column));
    return cells;
  }
};

/// An entry with an inclination (8 characters from column 9) and a mean motion (11 from column 53).
DatabaseEntry Shaped(const std::string& name, const std::string& number, const std::string& inclination,
                     const std::string& motion) {
  DatabaseEntry entry = MadeEntry(name, number);
  entry.line2 = Over(Over(entry.line2, 9, inclination), 53, motion);
  return entry;
}

TEST_F(ElementFileTest, RowHoldsElevenFixedWidthTexts) {
  MagnitudeTable[25544] = "-1.8";
  ClockFields.JulianDayNow = 2459747.0;  // a day and a half after the epoch, day 166.0
  SummaryTable table;
  const std::string path = Write("one.txt", FileText({MadeEntry("ISS (ZARYA)", "25544")}));
  ASSERT_EQ(SummariseFile(path, table), SummaryOutcome::Done);
  ASSERT_EQ(table.Count(), 1);
  const char* const expected[] = {"25544",    "Iss (Zarya)             ",
                                  "1998",     " 67  A",
                                  " 51.6447", "  92.9",
                                  "342.5501", "0.0004194",
                                  "-1.8",     " 999",
                                  "  1.5"};
  for (int column = 0; column < SummaryColumnCount; ++column)
    EXPECT_EQ(table.Cell(0, column), expected[column]) << column;
  EXPECT_THROW(table.Cell(0, SummaryColumnCount), SubscriptFailure);
  EXPECT_THROW(table.Cell(1, 0), SubscriptFailure);
}

TEST_F(ElementFileTest, WhatIsNotKnownIsThreeQuestionMarksAndEndsNothing) {
  SummaryTable table;
  const std::string path = Write("odd.txt", FileText({Shaped("STILL", "10001", " 51.0000", " 0.00000000"),
                                                      Shaped("LETTERS", "1O002", "x51.0000", "15.00000000"),
                                                      MadeEntry("GOOD", "10003")}));
  ASSERT_EQ(SummariseFile(path, table), SummaryOutcome::Done);
  EXPECT_THAT(ColumnOf(table, 5), ElementsAre("   ???", "  96.0", "  92.9"));
  EXPECT_THAT(ColumnOf(table, 8), ElementsAre(" ???", " ???", " ???"));
  EXPECT_EQ(table.Cell(1, 4), "  0.0000") << "letters are no inclination";
}

TEST_F(ElementFileTest, FilesThatAreViewedAndFilesThatAreNot) {
  const std::string three = FileText({MadeEntry("A", "10001")});
  const std::string bare = FileText({MadeEntry("A", "10001")}, "\n");
  const struct {
    const char* what;
    std::string text;
    SummaryOutcome outcome;
    int rows;
  } cases[] = {
      {"whole", three + three, SummaryOutcome::Done, 2},
      {"no end at the last line", three.substr(0, three.size() - 2), SummaryOutcome::Done, 1},
      {"empty lines at the end", three + "\r\n\r\n\r\n", SummaryOutcome::Done, 1},
      {"a line too many", three + "B\r\n", SummaryOutcome::NotAnElementFile, 0},
      {"a line too few", three + "B\r\n1 10002\r\n", SummaryOutcome::NotAnElementFile, 0},
      {"bare line feeds", bare, SummaryOutcome::BareLineFeeds, 0},
      {"two lines", "1 25544\r\n2 25544\r\n", SummaryOutcome::NotAnElementFile, 0},
      {"prose", "one\r\ntwo\r\nthree\r\n", SummaryOutcome::NotAnElementFile, 0},
      {"only line ends", "\r\n\r\n", SummaryOutcome::NotAnElementFile, 0},
      {"binary", std::string("\0\x01\xff\xfe\r\n\0\r\n\x80", 10), SummaryOutcome::NotAnElementFile, 0},
      {"one line with its end", "SAT\r\n", SummaryOutcome::NotAnElementFile, 0},
  };
  for (const auto& row : cases) {
    SummaryTable table;
    table.Append({});
    EXPECT_EQ(SummariseFile(Write("case.txt", row.text), table), row.outcome) << row.what;
    EXPECT_EQ(table.Count(), row.rows) << row.what;
  }
  SummaryTable table;
  EXPECT_EQ(SummariseFile((folder / "gone.txt").string(), table), SummaryOutcome::NotAnElementFile);
  EXPECT_EQ(SummariseFile(folder.string(), table), SummaryOutcome::NotAnElementFile) << "a folder";
  EXPECT_TRUE(platform.messages.empty());
}

TEST_F(ElementFileTest, OrderIsByTextWithinAWidthAndTheSameColumnAgainReversesIt) {
  SummaryTable table;
  ClockFields.JulianDayNow = 2459745.5;
  const auto aged = [](const std::string& name, const std::string& number, const std::string& epoch) {
    return MadeEntry(name, number, epoch);
  };
  ASSERT_EQ(SummariseFile(Write("ages.txt", FileText({aged("beta", "00005", "22156.00000000"),
                                                      aged("ALPHA", "40000", "19001.00000000"),
                                                      aged("Gamma", "10000", "22165.50000000")})),
                          table),
            SummaryOutcome::Done);
  EXPECT_EQ(table.SortColumn(), -1);
  table.SortBy(10);
  EXPECT_THAT(ColumnOf(table, 10), ElementsAre("  0.5", " 10.0", "1261.0")) << "also beyond the width";
  table.SortBy(10);
  EXPECT_TRUE(table.Descending());
  EXPECT_THAT(ColumnOf(table, 0), ElementsAre("40000", "00005", "10000"));
  table.SortBy(1);
  EXPECT_FALSE(table.Descending()) << "another column begins anew";
  EXPECT_THAT(ColumnOf(table, 0), ElementsAre("40000", "00005", "10000"));
  EXPECT_THROW(table.SortBy(11), SubscriptFailure);
  EXPECT_THROW(table.SortBy(-1), SubscriptFailure);
}

TEST_F(ElementFileTest, EverySatelliteIsDecodedByItselfWhateverRunsMeanwhile) {
  FrequencyTable = {{"10001", "145.8", "437.5"}};
  IndexFrequencies();
  platform.millisecondsPerLook = 100;  // a yield after each row
  platform.onYield = [] { ElementSets[ScratchSlot].Name = "disturbed"; };
  SummaryTable table;
  ASSERT_EQ(SummariseFile(Write("three.txt", FileText(Series(3))), table), SummaryOutcome::Done);
  EXPECT_GE(platform.yields, 3);
  EXPECT_EQ(table.Cell(2, 1), "Sat 3                   ");
  EXPECT_EQ(ElementSets[ScratchSlot].Uplink[0], "") << "channels of another satellite";
  FrequencyTable.clear();
  IndexFrequencies();
}

TEST_F(ElementFileTest, CancelKeepsTheRowsMadeAndIsForgotten) {
  platform.millisecondsPerLook = 100;
  platform.onYield = [this] { CancelRequested = platform.yields == 2; };
  SummaryTable table;
  EXPECT_EQ(SummariseFile(Write("many.txt", FileText(Series(9))), table), SummaryOutcome::Done);
  EXPECT_EQ(table.Count(), 2);
  EXPECT_FALSE(CancelRequested);
  platform.onYield = [this] {
    SummaryTable second;
    EXPECT_EQ(SummariseFile((folder / "many.txt").string(), second), SummaryOutcome::Refused);
    platform.onYield = nullptr;
  };
  EXPECT_EQ(SummariseFile((folder / "many.txt").string(), table), SummaryOutcome::Done);
  EXPECT_EQ(table.Count(), 9);
  EXPECT_THAT(MessageTexts(), ElementsAre("busy"));
}

TEST_F(ElementFileTest, DatabaseIsReadAndTabulatedWithEitherLineEnd) {
  for (const char* const end : {"\n", "\r\n"}) {
    SatelliteDatabase database;
    ReadDatabaseFile(Write("third.txt", FileText(Series(4), end) + end + "rest"), database);
    SummaryTable table;
    EXPECT_EQ(SummariseDatabase(database, table), SummaryOutcome::Done);
    EXPECT_THAT(ColumnOf(table, 0), ElementsAre("10001", "10002", "10003", "10004"));
    EXPECT_THROW(ReadDatabaseFile(Write("cut.txt", FileText(Series(2)) + "SAT 3\r\n"), database),
                 ConversionFailure);
    EXPECT_EQ(database.Count(), 0);
  }
}

TEST_F(ElementFileTest, RepairSetsLineEndsTrimsBlanksAndIsDoneOnce) {
  const struct {
    const char *text, *repaired;
  } cases[] = {
      {"a\nb\nc\n", "a\r\nb\r\nc\r\n\r\n"},
      {"  a \r\n b\n", "a\r\nb\r\n\r\n"},
      {"a\r\nb\r\n\r\n", "a\r\nb\r\n\r\n"},
      {"a", "a\r\n\r\n"},
      {"a\n\nb\n", "a\r\n\r\nb\r\n\r\n"},
      {"a\n  \n \n", "a\r\n\r\n\r\n"},
      {"\n", "\r\n"},
      {"   ", "\r\n"},
      {"\ta\n", "\ta\r\n\r\n"},
      {"a\rb \r \n", "a\rb \r\r\n\r\n"},
  };
  for (const auto& row : cases) {
    EXPECT_EQ(RepairedText(row.text), row.repaired) << row.text;
    EXPECT_EQ(RepairedText(row.repaired), row.repaired) << "a second run changes nothing";
  }
}

TEST_F(ElementFileTest, RepairedFileIsViewedReadAndKeptBesideTheOldOne) {
  const std::string bare = FileText(Series(2), "\n");
  const std::string path = Write("unix.txt", bare);
  EXPECT_TRUE(RepairFile(path));
  EXPECT_EQ(Content("unix.txt.bak"), bare);
  const std::string repaired = Content("unix.txt");
  SummaryTable table;
  EXPECT_EQ(SummariseFile(path, table), SummaryOutcome::Done);
  EXPECT_EQ(table.Count(), 2);
  EXPECT_TRUE(RepairFile(path));
  EXPECT_EQ(Content("unix.txt"), repaired);
  EXPECT_EQ(Content("unix.txt.bak"), bare) << "the file as it was is not lost by a second run";
  EXPECT_FALSE(RepairFile((folder / "gone.txt").string()));
}

TEST_F(ElementFileTest, RepairThatCannotWriteLeavesTheFileWhole) {
  const std::string path = Write("full.txt", "a\nb\n");
  platform.refuseWriting = true;
  EXPECT_THROW(RepairFile(path), FileFailure);
  EXPECT_EQ(Content("full.txt"), "a\nb\n");
}

TEST_F(ElementFileTest, EditorGivesBackTheBytesItRead) {
  for (const char* const text : {"caf\xe9 \xa0 1\r\n", "caf\xc3\xa9 \xe2\x82\xac\r\n", "plain\r\nno end", ""})
    EXPECT_EQ(EditorBytes(ReadEditorText(Write("kept.txt", text))), text);
  EXPECT_EQ(EditorBytes({"a\nb\r\n", false}), "a\r\nb\r\n");
  EXPECT_EQ(EditorBytes({"caf\xc3\xa9 \xe2\x82\xac", true}), "caf\xc3\xa9 \xe2\x82\xac")
      << "a sign that the old coding lacks";
  EXPECT_THROW(ReadEditorText(Write("long.txt", std::string((std::size_t{1} << 20U) + 1, 'x'))), FileFailure);
  EXPECT_THROW(ReadEditorText(folder.string()), FileFailure);
}

TEST_F(ElementFileTest, ChannelRowsShowWhatIsFreeAsZero) {
  ElementSet set;
  set.Downlink[1] = "145.825";
  set.Uplink[2] = "1267.35";
  EXPECT_EQ(ChannelRow(set, 1), "000.0000   \t000.0000");
  EXPECT_EQ(ChannelRow(set, 2), "145.8250   \t000.0000");
  EXPECT_EQ(ChannelRow(set, 3), "000.0000   \t1267.3500");
  EXPECT_THROW(ChannelRow(set, 0), SubscriptFailure);
  EXPECT_THROW(ChannelRow(set, 11), SubscriptFailure);
}

TEST_F(ElementFileTest, WindowsThatKeepTheirWorkStay) {
  class Keeper : public FormCalls {
   public:
    explicit Keeper(const std::string& name) : name_(name) { RegisterForm(name, this); }
    void Unload() override { UnregisterForm(name_); }
    void Show() override {}
    bool MayUnload() override { return may; }
    bool may = true;

   private:
    std::string name_;
  };
  Keeper first("frmFile1"), second("frmFile2");
  first.may = false;
  EXPECT_FALSE(FormsMayUnload("MDIForm1"));
  EXPECT_TRUE(IsFormLoaded("frmFile2")) << "a question alone unloads nothing";
  UnloadAllForms("MDIForm1");
  EXPECT_TRUE(IsFormLoaded("frmFile1"));
  EXPECT_FALSE(IsFormLoaded("frmFile2"));
  EXPECT_TRUE(FormsMayUnload("frmFile1"));
}

}  // namespace
}  // namespace halvorine
