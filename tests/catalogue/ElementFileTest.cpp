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
      {"bare line feeds", bare, SummaryOutcome::BareLineFeeds, 0},
      {"two lines", "1 25544\r\n2 25544\r\n", SummaryOutcome::NotAnElementFile, 0},
      {"only line ends", "\r\n\r\n", SummaryOutcome::NotAnElementFile, 0},
      {"binary", std::string("\0\x01\xff\xfe\r\n\0\r\n\x80", 10), SummaryOutcome::NotAnElementFile, 0},
  };
  for (const auto& row : cases) {
    SummaryTable table;
    table.Append({});
    EXPECT_EQ(SummariseFile(Write("case.txt", row.text), table), row.outcome) << row.what;
    EXPECT_EQ(table.Count(), row.rows) << row.what;
  }
  SummaryTable table;
  EXPECT_EQ(SummariseFile(folder.Path("gone.txt"), table), SummaryOutcome::NotAnElementFile);
  EXPECT_EQ(SummariseFile(AppPath, table), SummaryOutcome::NotAnElementFile) << "a folder";
  EXPECT_TRUE(platform.messages.empty());
}

TEST_F(ElementFileTest, OrderIsByTextWithinAWidthAndTheSameColumnAgainReversesIt) {
  SummaryTable table;
  const std::string path = Write("ages.txt", FileText({MadeEntry("beta", "00005", "22156.00000000"),
                                                       MadeEntry("ALPHA", "40000", "19001.00000000"),
                                                       MadeEntry("Gamma", "10000", "22165.50000000")}));
  ASSERT_EQ(SummariseFile(path, table), SummaryOutcome::Done);
  table.SortBy(10);
  EXPECT_THAT(ColumnOf(table, 10), ElementsAre("  0.5", " 10.0", "1261.0")) << "also beyond the width";
  table.SortBy(10);
  EXPECT_TRUE(table.Descending());
  EXPECT_THAT(ColumnOf(table, 0), ElementsAre("40000", "00005", "10000"));
  table.SortBy(1);
  EXPECT_FALSE(table.Descending()) << "another column begins anew";
  EXPECT_THAT(ColumnOf(table, 0), ElementsAre("40000", "00005", "10000"));
}

TEST_F(ElementFileTest, CancelKeepsTheRowsMadeAndIsForgotten) {
  platform.millisecondsPerLook = 100;
  platform.onYield = [this] { CancelRequested = platform.yields == 2; };
  SummaryTable table;
  EXPECT_EQ(SummariseFile(Write("many.txt", FileText(Series(9))), table), SummaryOutcome::Done);
  EXPECT_EQ(table.Count(), 2);
  EXPECT_FALSE(CancelRequested);
}

TEST_F(ElementFileTest, RepairSetsLineEndsTrimsBlanksAndIsDoneOnce) {
  const struct {
    const char *text, *repaired;
  } cases[] = {
      {"  a \r\n b\n", "a\r\nb\r\n\r\n"},
      {"a\r\nb\r\n\r\n", "a\r\nb\r\n\r\n"},
      {"a", "a\r\n\r\n"},
      {"a\n  \n \n", "a\r\n\r\n\r\n"},
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
  EXPECT_FALSE(RepairFile(folder.Path("gone.txt")));
}

TEST_F(ElementFileTest, EditorGivesBackTheBytesItRead) {
  for (const char* const text : {"caf\xe9 \xa0 1\r\n", "caf\xc3\xa9 \xe2\x82\xac\r\n", "plain\r\nno end", ""})
    EXPECT_EQ(EditorBytes(ReadEditorText(Write("kept.txt", text))), text);
  EXPECT_EQ(EditorBytes({"a\nb\r\n", false}), "a\r\nb\r\n");
  EXPECT_EQ(EditorBytes({"caf\xc3\xa9 \xe2\x82\xac", true}), "caf\xc3\xa9 \xe2\x82\xac")
      << "a sign that the old coding lacks";
  EXPECT_THROW(ReadEditorText(Write("long.txt", std::string((std::size_t{1} << 20U) + 1, 'x'))), FileFailure);
  EXPECT_THROW(ReadEditorText(AppPath), FileFailure);
}

}  // namespace
}  // namespace halvorine
