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
      {{"00001", "00002"},
       {"00002", "00001", "00002"},
       {"00001", "00002", "00002"},
       "contains 3 of 2 ",
       false},
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
    EXPECT_EQ(ActiveRows.size(), row.expected.size());
    for (std::size_t i = 0; i < ActiveRows.size(); ++i) EXPECT_EQ(ActiveRows[i], "NEW " + row.expected[i]);
    Texts expected;
    if (row.first != nullptr) expected.emplace_back(row.first);
    if (row.principalLost) expected.emplace_back();
    EXPECT_EQ(MessageTexts(), expected);
    for (int slot = ActiveCount + 1; slot <= 201; ++slot) ASSERT_EQ(ElementSets[slot].CatalogNumber, "");
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

TEST_F(ActiveListTest, AllTwoHundredReloadInTheirPlaces) {
  MakeActive(Series(200));
  std::vector<DatabaseEntry> file = Series(300);
  std::reverse(file.begin(), file.end());
  ReadPrimaryText(FileText(file));
  EXPECT_EQ(ActiveCount, 200);
  for (int slot = 1; slot <= 200; ++slot)
    ASSERT_EQ(ElementSets[slot].CatalogNumber, std::to_string(10000 + slot));
}

TEST_F(ActiveListTest, AddingStopsAtTwoHundredAndTellsIt) {
  FakeMainForm window;
  ReadPrimaryText(FileText(Series(205)));
  MakeActive(Series(197));
  AddSelected(Primary, Numbers(198, 202));
  EXPECT_EQ(ActiveCount, 200);
  EXPECT_EQ(ElementSets[200].CatalogNumber, "10200");
  EXPECT_EQ(ElementSets[201].CatalogNumber, "");
  ASSERT_EQ(MessageTexts(), Texts{"limit\n"});
  EXPECT_EQ(platform.messages[0].kind, MessageKind::Warning);
  EXPECT_EQ(window.panels[2], "Sat 1");
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
  AddSelected(Secondary, {});
  EXPECT_EQ(platform.messages.size(), 2U);
}

TEST_F(ActiveListTest, RemovalCompactsAndClearsTheRest) {
  FakeMainForm window;
  struct Row {
    std::vector<int> positions;
    Texts expected;
  };
  const Row rows[] = {
      {{0}, {"10002", "10003", "10004", "10005"}},
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
    for (int slot = 1; slot <= ActiveCount; ++slot)
      EXPECT_EQ(ElementLines[slot].name, "SAT " + ElementSets[slot].CatalogNumber.substr(4));
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
  EXPECT_TRUE(platform.messages.empty());
  RemoveSelected({});
  EXPECT_EQ(platform.messages.size(), 1U);
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
  EXPECT_THROW(RemoveActive(0), SubscriptFailure);
  MakeActive(Series(1));
  RotateActive();
  EXPECT_EQ(Active(), Texts{"10001"});
  MakeActive(Series(200));
  RotateActive();
  EXPECT_EQ(Active().back(), "10001");
  EXPECT_EQ(ElementSets[201].CatalogNumber, "");
  ClearActive();
  EXPECT_EQ(ActiveCount, 0);
  EXPECT_EQ(ElementLines[1], DatabaseEntry());
}

TEST_F(ActiveListTest, RowsFollowChangesMadeElsewhere) {
  ReadPrimaryText(FileText(Series(3)));
  AddSelected(Primary, {1, 2, 3});
  std::swap(ElementSets[1], ElementSets[2]);
  SyncActiveRows();
  EXPECT_EQ(ActiveRows, (Texts{"Sat 2", "Sat 1", "SAT 3"}));
}

TEST_F(ActiveListTest, ListFileComesBackAsItWasWritten) {
  MakeActive({MadeEntry("ISS (ZARYA)", "25544"), MadeEntry("HST", "20580")});
  Salva_Ini();
  const DatabaseEntry station = MadeEntry("Iss (Zarya)", "25544");
  EXPECT_EQ(Content("Halvorine.ini"), FileText({station, MadeEntry("Hst", "20580")}, "\n"));
  const Texts before = Active();
  ClearActive();
  LoadActiveList();
  EXPECT_EQ(ActiveCount, 2);
  EXPECT_EQ(ElementLines[1], station);
  EXPECT_EQ(ElementSets[1].CatalogNumber, "");  // decoding is a step of its own
  DecodeActiveList();
  EXPECT_EQ(Active(), before);
  EXPECT_EQ(ActiveRows, (Texts{"Iss (Zarya)", "Hst"}));
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
      {"CR LF", two, 2},
      {"entry cut at the end", two + "NAME\r\n1 00005", 2},
      {"more than 200", FileText(Series(230)), 200},
      {"empty name", "\n\n\n" + two, 2},
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
  std::filesystem::remove(folder / "Halvorine.ini");
  LoadActiveList();
  EXPECT_EQ(ActiveCount, 0);
}

TEST_F(ActiveListTest, RefusedWritingLeavesTheOldListFile) {
  MakeActive(Series(1));
  Salva_Ini();
  const std::string before = Content("Halvorine.ini");
  MakeActive(Series(2));
  platform.refuseWriting = true;
  EXPECT_THROW(Salva_Ini(), FileFailure);
  EXPECT_EQ(Content("Halvorine.ini"), before);
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
  ReadPrimaryText(FileText(Series(2)));  // the same lines under the names of another case
  EXPECT_FALSE(ActiveListChanged());
  ReadPrimaryText(FileText({MadeEntry("SAT 1", "10001", "22167.00000000"), Series(1, 2)[0]}));
  EXPECT_TRUE(ActiveListChanged()) << "newer elements count";
}

TEST_F(ActiveListTest, ListFileThatCannotBeReadIsReplacedOnlyOnYes) {
  std::filesystem::create_symlink("/proc/self/mem", folder / "Halvorine.ini");  // opens, but cannot be read
  MakeActive(Series(2));
  EXPECT_THROW(LoadActiveList(), FileFailure);
  EXPECT_EQ(ActiveCount, 0);
  EXPECT_FALSE(ActiveListChanged());
  MakeActive(Series(2));
  EXPECT_TRUE(ActiveListChanged());
  Salva_Ini();
  ASSERT_EQ(platform.messages.size(), 1U);
  EXPECT_EQ(platform.messages[0].buttons, MessageButtons::YesNoDefaultNo);
  EXPECT_TRUE(std::filesystem::is_symlink(folder / "Halvorine.ini"));
  EXPECT_TRUE(ActiveListChanged());
  platform.answers = {MessageAnswer::Yes};
  EXPECT_THROW(Salva_Ini(), FileFailure);  // agreed, but there is no writing in that place
  std::filesystem::remove(folder / "Halvorine.ini");
  Salva_Ini();
  Salva_Ini();
  EXPECT_EQ(platform.messages.size(), 2U) << "what has gone or is our own needs no question";
  EXPECT_FALSE(Content("Halvorine.ini").empty());
}

TEST_F(ActiveListTest, PrincipalChangeReachesMapSkyAndMenu) {
  CallLog log;
  FakeMainForm main;
  MakeActive(Series(2));
  PrincipalChanged();  // without windows
  FakeLocalSky sky(log);
  main.checks = {{"mnuLocalSkyTransitoPrincipale", false}, {"mnuLocalSkyTempi", true}};
  MoveSelected({1}, ActiveMove::Up);
  EXPECT_EQ(main.panels[2], "Sat 2");
  EXPECT_TRUE(log.empty());
  EXPECT_TRUE(main.checks["mnuLocalSkyTempi"]) << "without the transit display nothing changes";
  FakeWorldMap map(log);
  main.checks["mnuLocalSkyTransitoPrincipale"] = true;
  SatelliteStates[1] = {};
  MoveSelected({0}, ActiveMove::Down);
  EXPECT_EQ(log,
            (CallLog{"frmWorldMap.Genera_mappa", "frmLocalSky.ResetModeButton", "frmLocalSky.Genera_mappa"}));
  EXPECT_NE(SatelliteStates[1].Range, 0) << "computed before it is drawn";
  EXPECT_FALSE(main.checks["mnuLocalSkyTransitoPrincipale"] || main.checks["mnuLocalSkyTempi"]);
  log.clear();
  MakeActive(Series(4));
  MoveSelected({2}, ActiveMove::Up);
  MoveSelected({1}, ActiveMove::Down);
  EXPECT_TRUE(log.empty()) << "the principal stayed";
}

TEST_F(ActiveListTest, ElementsOfThePrincipalAreOldAfterThirtyDays) {
  CallLog log;
  FakeMainForm main;
  FakeDatabase window(log);
  EXPECT_FALSE(PrincipalIsOld()) << "without a principal";
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
  EXPECT_TRUE(RowsAboveHorizon(Primary).empty());
  EXPECT_EQ(ActiveCount, 0);
}

TEST_F(ActiveListTest, EntryIsShownFromTheScratchSlotWhereThereIsAWindow) {
  CallLog log;
  ReadPrimaryText(FileText(Series(3)));
  ElementSets[ScratchSlot].Uplink[3] = "145";
  ShowEntry(Primary, 2);
  EXPECT_EQ(ElementSets[ScratchSlot].Name, "") << "without the window nothing is decoded";
  FakeSatellite window(log);
  for (const int number : {2, 0, -1, 4}) ShowEntry(Primary, number);
  EXPECT_EQ(log, CallLog{"frmSatellite.ShowSlot 201"});
  EXPECT_EQ(ElementSets[ScratchSlot].Name, "Sat 2");
  EXPECT_EQ(ElementSets[ScratchSlot].Uplink[3], "");
}

}  // namespace
}  // namespace halvorine
