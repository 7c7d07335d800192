#include "catalogue/mCatalogue.h"
#include "tests/catalogue/CatalogueFixture.h"

namespace halvorine {
namespace {

using RowsTest = CatalogueTest;

EntryView ViewOf(const DatabaseEntry& entry) { return {entry.name, entry.line1, entry.line2}; }

TEST_F(RowsTest, EachKeyHasItsPicture) {
  const DatabaseEntry station = MadeEntry("ISS (ZARYA)", "25544");
  DatabaseEntry old = MadeEntry("VANGUARD 1 WITH A NAME BEYOND 24", "    5");
  old.line1 = Over(old.line1, 10, "58");
  old.line2 = Over(old.line2, 9, "  5.9500   0.0449 1845686   9.9600");
  old.line2 = Over(old.line2, 53, " 1.00272141");
  MagnitudeTable[25544] = "-1.25";
  struct Row {
    SortKey key;
    const char *station, *old;
  };
  const Row rows[] = {
      {SortKey::Name, "ISS (ZARYA)", "VANGUARD 1 WITH A NAME B"},
      {SortKey::LaunchYear, "1998  ISS (ZARYA)", "1958  VANGUARD 1 WITH A NAME B"},
      {SortKey::Inclination, "051.6  ISS (ZARYA)", "006.0  VANGUARD 1 WITH A NAME B"},
      {SortKey::AscendingNode, "342.6  ISS (ZARYA)", "000.0  VANGUARD 1 WITH A NAME B"},
      {SortKey::Period, "0092.9  ISS (ZARYA)", "1436.1  VANGUARD 1 WITH A NAME B"},
      {SortKey::CatalogueNumber, "25544  ISS (ZARYA)", "    5  VANGUARD 1 WITH A NAME B"},
      {SortKey::Magnitude, "-1.3  ISS (ZARYA)", "???  VANGUARD 1 WITH A NAME B"},
      {SortKey::Eccentricity, "0.0004  ISS (ZARYA)", "0.1846  VANGUARD 1 WITH A NAME B"},
      {SortKey::ArgumentOfPerigee, "243.0  ISS (ZARYA)", "010.0  VANGUARD 1 WITH A NAME B"},
      {SortKey::MeanMotion, "15.5  ISS (ZARYA)", "01.0  VANGUARD 1 WITH A NAME B"},
  };
  for (const Row& row : rows) {
    EXPECT_EQ(RowText(ViewOf(station), station.name, row.key, YearReading::Strict), row.station);
    EXPECT_EQ(RowText(ViewOf(old), old.name, row.key, YearReading::Strict), row.old);
  }
}

TEST_F(RowsTest, KeyThatCannotBeComputedShowsAsUnknown) {
  DatabaseEntry entry = MadeEntry("X", "00005");
  entry.line1 = Over(entry.line1, 10, "  ");
  entry.line2 = Over(entry.line2, 53, " 0.00000000");
  EXPECT_EQ(RowText(ViewOf(entry), "X", SortKey::Period, YearReading::Strict), "???  X");
  EXPECT_EQ(RowText(ViewOf(entry), "X", SortKey::LaunchYear, YearReading::Strict), "???  X");
  EXPECT_EQ(RowText(ViewOf(entry), "X", SortKey::LaunchYear, YearReading::Lenient), "2000  X");
  MagnitudeTable[5] = "var";
  EXPECT_EQ(RowText(ViewOf(entry), "X", SortKey::Magnitude, YearReading::Strict), "var  X");
  EXPECT_EQ(RowText({"X", "", ""}, "X", SortKey::Magnitude, YearReading::Strict), "???  X");
  EXPECT_EQ(RowText({"X", "", ""}, "X", SortKey::Inclination, YearReading::Strict), "000.0  X");
}

TEST_F(RowsTest, NamePartIsCutByCharactersAndIsAlwaysUtf8) {
  const std::string accents =
      "\xC3\xA9\xC3\xA9\xC3\xA9\xC3\xA9\xC3\xA9\xC3\xA9\xC3\xA9\xC3\xA9";  // 8 times é
  const auto row = [](const std::string& name) {
    return RowText({name, "", ""}, name, SortKey::Name, YearReading::Strict);
  };
  EXPECT_EQ(row(accents + accents + accents + "more"), accents + accents + accents);
  EXPECT_EQ(row("\xE9t\xE9"), "\xC3\xA9t\xC3\xA9");
  EXPECT_EQ(row("  KEPT BLANKS  "), "  KEPT BLANKS  ");
  EXPECT_EQ(row(std::string(95, 'a') + accents), std::string(24, 'a'));
  EXPECT_EQ(row(std::string(1000000, '\xFF')).size(), 48U);
}

TEST_F(RowsTest, ListIsSortedByWholeTextWithoutCaseAndStable) {
  const std::vector<std::string> names{"beta", "Alpha", "ALPHA", "alpha one long", "Alpha one", "_x", "Zeta"};
  std::vector<DatabaseEntry> entries;
  for (const std::string& name : names) entries.push_back(MadeEntry(name, "00005"));
  ReadPrimaryText(FileText(entries));
  EXPECT_EQ(Listed(Primary), (std::vector<std::string>{"_x", "Alpha", "ALPHA", "Alpha one", "alpha one long",
                                                       "beta", "Zeta"}));
  EXPECT_EQ(ListedRows(Primary)->Number(1), 2);
  EXPECT_EQ(ListedRows(Primary)->Number(2), 3);
}

TEST_F(RowsTest, MagnitudesSortAsTextAndYearsByThePivot) {
  const char* const magnitudes[] = {"2", "10", "-1.5", "", "0.5"};
  const char* const years[] = {"56", "57", "00", "99", "  "};
  std::vector<DatabaseEntry> entries;
  for (int i = 0; i < 5; ++i) {
    MagnitudeTable[static_cast<std::size_t>(100 + i)] = magnitudes[i];
    entries.push_back(MadeEntry("S" + std::to_string(i), "0010" + std::to_string(i)));
    entries.back().line1 = Over(entries.back().line1, 10, years[i]);
  }
  ReadPrimaryText(FileText(entries));
  ChangeSortKey(Primary, SortKey::Magnitude);
  EXPECT_EQ(Listed(Primary),
            (std::vector<std::string>{"-1.5  S2", "0.5  S4", "10.0  S1", "2.0  S0", "???  S3"}));
  ChangeSortKey(Primary, SortKey::LaunchYear);
  EXPECT_EQ(Listed(Primary),
            (std::vector<std::string>{"1957  S1", "1999  S3", "2000  S2", "2056  S0", "???  S4"}));
  EXPECT_EQ(SortKeyOf(Primary), SortKey::LaunchYear);
  EXPECT_EQ(SortKeyOf(Secondary), SortKey::Name);
}

}  // namespace
}  // namespace halvorine
