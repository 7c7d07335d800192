#include <algorithm>

#include "catalogue/mCatalogue.h"
#include "catalogue/mTables.h"
#include "orbit/mSat.h"
#include "tests/catalogue/CatalogueFixture.h"
#include "tests/fakes/FakeForms.h"
#include "tests/fakes/FakeMainForm.h"

namespace halvorine {
namespace {

using ActiveListTest = CatalogueTest;
using Texts = std::vector<std::string>;

std::vector<int> Numbers(int first, int last) {
  std::vector<int> numbers;
  for (int i = first; i <= last; ++i) numbers.push_back(i);
  return numbers;
}

TEST_F(ActiveListTest, RebuildFollowsTheOldOrderAndTheFilesDuplicates) {
  struct Row {
    Texts old, file, expected;
    const char* first;   // message about the count
    bool principalLost;  // second message
  };
  const Row rows[] = {
      {{"00003", "00001"}, {"00001", "00002", "00003"}, {"00003", "00001"}, "contains 2 of 2 ", false},
      {{"00003", "00001"}, {"00001", "00002"}, {"00001"}, "contains 1 of 2 ", true},
      {{"00003"}, {"00001"}, {}, "contains 0 of 1 ", false},
      {{"00002", "00001"},
       {"00001", "00002", "00002"},
       {"00002", "00002", "00001"},
       "contains 3 of 2 ",
       false},
      {{"    1"}, {"00001"}, {}, "contains 0 of 1 ", false},  // compared as text
      {{}, {"00001"}, {}, nullptr, false},
  };
  for (const Row& row : rows) {
    platform.messages.clear();
    std::vector<DatabaseEntry> old, file;
    for (const std::string& number : row.old) old.push_back(MadeEntry("OLD", number));
    for (const std::string& number : row.file) file.push_back(MadeEntry(" NEW " + number + " ", number));
    MakeActive(old);
    ReadPrimaryText(FileText(file));
    EXPECT_EQ(Active(), row.expected);
    for (std::size_t i = 0; i < ActiveRows.size(); ++i) EXPECT_EQ(ActiveRows[i], "NEW " + row.expected[i]);
    Texts expected;
    if (row.first != nullptr) expected.emplace_back(row.first);
    if (row.principalLost) expected.emplace_back();
    EXPECT_EQ(MessageTexts(), expected);
  }
}

TEST_F(ActiveListTest, RebuildDropsOldRadioChannelsAndStopsAtTheLimit) {
  FrequencyTable = {{"10002", "145", "437"}};
  MakeActive(Series(2));
  ElementSets[1].Downlink[3] = "99";
  std::vector<DatabaseEntry> file;
  for (int i = 0; i < 201; ++i) file.push_back(Series(1)[0]);
  file.push_back(Series(1, 2)[0]);
  ReadPrimaryText(FileText(file));
  EXPECT_EQ(ActiveCount, 200);
  EXPECT_EQ(Active().back(), "10001");
  EXPECT_EQ(ElementSets[1].Downlink[3], "");
  EXPECT_EQ(ElementSets[2].Downlink[0], "");
  EXPECT_EQ(ElementSets[201].CatalogNumber, "");
}

TEST_F(ActiveListTest, AddingStopsAtTwoHundredAndTellsIt) {
  ReadPrimaryText(FileText(Series(205)));
  MakeActive(Series(197));
  AddSelected(Primary, Numbers(198, 202));
  EXPECT_EQ(ActiveCount, 200);
  EXPECT_EQ(ElementSets[200].CatalogNumber, "10200");
  EXPECT_EQ(ElementSets[201].CatalogNumber, "");
  EXPECT_EQ(MessageTexts(), Texts{"limit\n"});
}

TEST_F(ActiveListTest, AddingTellsKnownSatellitesByNameAndGoesOn) {
  ReadSecondaryText(
      FileText({MadeEntry("ONE ", "00001"), MadeEntry("TWO", "    1"), MadeEntry("THREE", "00003")}));
  ElementSets[1].Uplink[2] = "145";  // left behind by a satellite before
  AddSelected(Secondary, {1});
  EXPECT_EQ(ElementSets[1].Uplink[2], "");
  EXPECT_EQ(ActiveRows, Texts{"ONE "});
  AddSelected(Secondary, {1, 2, 3, 4, 0});
  EXPECT_EQ(Active(), (Texts{"00001", "    1", "00003"}));  // numbers are compared as they stand
  ASSERT_EQ(MessageTexts(), Texts{"already"});
  EXPECT_EQ(platform.messages[0].caption, "One");
}

TEST_F(ActiveListTest, RemovalCompactsAndClearsTheRest) {
  FakeMainForm window;
  struct Row {
    std::vector<int> positions;
    Texts expected;
  };
  const Row rows[] = {
      {{4}, {"10001", "10002", "10003", "10004"}},
      {{3, 1}, {"10001", "10003", "10005"}},
      {{1, 1, 7, -1}, {"10001", "10003", "10004", "10005"}},
      {{0, 1, 2, 3, 4}, {}},
  };
  for (const Row& row : rows) {
    MakeActive(Series(5));
    ElementLines[201] = MadeEntry("SCRATCH", "00099");
    ElementSets[201].CatalogNumber = "00099";
    SatelliteStates[5].Range = 7;
    RemoveSelected(row.positions);
    EXPECT_EQ(Active(), row.expected);
    Texts names;
    for (const std::string& number : row.expected) names.push_back("Sat " + number.substr(4));
    EXPECT_EQ(ActiveRows, names);
    for (int slot = ActiveCount + 1; slot <= 202; ++slot) {
      ASSERT_EQ(ElementLines[slot], DatabaseEntry());
      ASSERT_EQ(ElementSets[slot].CatalogNumber, "");
      ASSERT_EQ(SatelliteStates[slot].Range, 0);
    }
    EXPECT_EQ(window.panels[2], row.expected.empty() ? "" : "Sat " + row.expected[0].substr(4));
  }
}

TEST_F(ActiveListTest, SwapRotateAndSingleRemovalKeepLinesWithTheirSets) {
  MakeActive(Series(4));
  SatelliteStates[1].Range = 1;
  SwapActive(1, 3);
  EXPECT_EQ(Active(), (Texts{"10003", "10002", "10001", "10004"}));
  EXPECT_EQ(ActiveRows, (Texts{"Sat 3", "Sat 2", "Sat 1", "Sat 4"}));
  EXPECT_EQ(SatelliteStates[1].Range, 1);  // states stay where they are
  EXPECT_EQ(ElementLines[201], DatabaseEntry());
  EXPECT_EQ(ElementSets[201].CatalogNumber, "");
  RotateActive();
  EXPECT_EQ(Active(), (Texts{"10002", "10001", "10004", "10003"}));
  EXPECT_EQ(ElementSets[5].CatalogNumber, "");
  SatelliteStates[3].Range = 3;
  RemoveActive(2);
  EXPECT_EQ(Active(), (Texts{"10002", "10004", "10003"}));
  EXPECT_EQ(SatelliteStates[2].Range, 3);
  EXPECT_EQ(ElementLines[4], DatabaseEntry());
  for (int slot = 1; slot <= 3; ++slot)
    EXPECT_EQ(ElementLines[slot].name, "SAT " + ElementSets[slot].CatalogNumber.substr(4));
  EXPECT_THROW(SwapActive(1, 4), SubscriptFailure);
  MakeActive(Series(200));
  RotateActive();
  EXPECT_EQ(Active().back(), "10001");
  EXPECT_EQ(ElementSets[201].CatalogNumber, "");
}

TEST_F(ActiveListTest, DamagedListFilesAreReadAsFarAsTheyGo) {
  const std::string two = FileText(Series(2));
  struct Row {
    const char* what;
    std::string text;
    int count;
  };
  const Row rows[] = {
      {"empty", "", 0},
      {"entry cut at the end", two + "NAME\r\n1 00005", 2},
      {"more than 200", FileText(Series(230)), 200},
      {"rubbish", std::string("\x01\xFF\n\x02\nabc\n", 9), 1},
      {"bad number", FileText({MadeEntry("A", "XXXXX"), MadeEntry("B", "00005")}), 2},
  };
  for (const Row& row : rows) {
    Write("Halvorine.ini", row.text);
    LoadActiveList();
    EXPECT_EQ(ActiveCount, row.count) << row.what;
    EXPECT_NO_THROW(DecodeActiveList()) << row.what;
  }
  EXPECT_EQ(ElementSets[2].CatalogNumber, "00005");  // the satellite behind a bad one is decoded
}

TEST_F(ActiveListTest, ListCountsAsChangedUntilItIsWrittenOrTakenBack) {
  Write("Halvorine.ini", FileText(Series(3)));
  LoadActiveList();
  DecodeActiveList();
  EXPECT_FALSE(ActiveListChanged());
  RotateActive();
  EXPECT_TRUE(ActiveListChanged()) << "the order counts";
  RotateActive();
  RotateActive();
  EXPECT_FALSE(ActiveListChanged());
  RemoveActive(3);
  EXPECT_TRUE(ActiveListChanged());
  platform.refuseWriting = true;
  EXPECT_THROW(Salva_Ini(), FileFailure);
  EXPECT_TRUE(ActiveListChanged());
  platform.refuseWriting = false;
  Salva_Ini();
  EXPECT_FALSE(ActiveListChanged());
}

TEST_F(ActiveListTest, ListFileThatCannotBeReadIsReplacedOnlyOnYes) {
  std::filesystem::create_symlink("/proc/self/mem",
                                  folder.Path("Halvorine.ini"));  // opens, but cannot be read
  MakeActive(Series(2));
  EXPECT_THROW(LoadActiveList(), FileFailure);
  EXPECT_EQ(ActiveCount, 0);
  EXPECT_FALSE(ActiveListChanged());
  MakeActive(Series(2));
  EXPECT_TRUE(ActiveListChanged());
  Salva_Ini();
  ASSERT_EQ(platform.messages.size(), 1U);
  EXPECT_EQ(platform.messages[0].buttons, MessageButtons::YesNoDefaultNo);
  EXPECT_TRUE(std::filesystem::is_symlink(folder.Path("Halvorine.ini")));
  EXPECT_TRUE(ActiveListChanged());
  platform.answers = {MessageAnswer::Yes};
  EXPECT_THROW(Salva_Ini(), FileFailure);  // agreed, but there is no writing in that place
  std::filesystem::remove(folder.Path("Halvorine.ini"));
  Salva_Ini();
  Salva_Ini();
  EXPECT_EQ(platform.messages.size(), 2U) << "what has gone or is our own needs no question";
  EXPECT_FALSE(Content("Halvorine.ini").empty());
}

TEST_F(ActiveListTest, ElementsOfThePrincipalAreOldAfterThirtyDays) {
  CallLog log;
  FakeMainForm main;
  FakeDatabase window(log);
  MakeActive({MadeEntry("A", "00001", "22166.00000000"), MadeEntry("B", "00002", "22130.00000000")});
  const double epoch = ElementSets[1].EpochJulianDay;
  for (const double age : {-100.0, 0.0, 29.99}) {
    ClockFields.JulianDayNow = epoch + age;
    EXPECT_FALSE(PrincipalIsOld()) << age;
  }
  ClockFields.JulianDayNow = epoch + 30.01;
  EXPECT_TRUE(PrincipalIsOld());
  ClockFields.JulianDayNow = epoch + 1;
  RotateActive();
  EXPECT_TRUE(main.oldElements && window.oldElements);
  RotateActive();
  EXPECT_FALSE(main.oldElements || window.oldElements);
}

TEST_F(ActiveListTest, RowsAboveTheHorizonAreThoseOverTheObserver) {
  Options.Propagator = 3;
  ClockFields.JulianDayNow = 2459746.25;
  DatabaseEntry overhead = MadeEntry("E", "10001"), beneath = overhead, still = overhead, broken = overhead;
  MakeActive({overhead});
  ComputeSatelliteState(1, ClockFields.JulianDayNow);
  Site.Latitude = static_cast<float>(SatelliteStates[1].LatitudeSigned);
  Site.Longitude = static_cast<float>(SatelliteStates[1].LongitudeEast);
  ClearActive();
  beneath.name = "A";
  beneath.line2 = Over(beneath.line2, 44, " 75.0959");  // half an orbit away
  still.name = "F";
  still.line2 = Over(still.line2, 53, " 0.00000000");
  broken.name = "G";  // no orbit; comes after the one overhead, whose place it must not inherit
  broken.line2 = Over(broken.line2, 27, "9999999");
  DatabaseEntry twin = overhead;
  twin.name = "H";
  ReadSecondaryText(FileText({still, twin, broken, overhead, beneath}));
  TickEnabled = true;
  EXPECT_EQ(RowsAboveHorizon(Secondary), (std::vector<int>{1, 4}));
  EXPECT_TRUE(TickEnabled);
}

}  // namespace
}  // namespace halvorine
