// The list of passes and the run that fills it, without a window.
#include "prediction/mPassList.h"

#include <algorithm>

#include "catalogue/mCatalogue.h"
#include "orbit/mSearch.h"
#include "prediction/mPassRun.h"
#include "shell/base/mFiles.h"
#include "shell/base/mLang.h"
#include "shell/base/mLongOperation.h"
#include "shell/base/mReg.h"
#include "shell/base/mText.h"
#include "tests/fakes/FakeForms.h"
#include "tests/fakes/FakePlatform.h"
#include "tests/orbit/ManySets.h"
#include "tests/orbit/OrbitFixture.h"

namespace halvorine {
namespace {

class PassLists : public OrbitTest {
 protected:
  PassLists() {
    AppPath = TEST_SOURCE_DIR "/data";
    SetLanguage("English.ini");
    Impostazioni_default();
    Site = {"Italy: Milano", 45.4642F, 9.19F, 122, 1, 1};
    TickEnabled = SatelliteTickEnabled = true;
    request.start = DateOf(2018, 1, 21);
  }
  ~PassLists() override {
    PrimaryDatabase.Erase();
    ChangeSortKey(Primary, SortKey::Name);
    LanguageLoaded = false;
    ResetForms();
  }
  static void SetLanguage(const char* file) {
    LanguageFile = file;
    LanguageLoaded = false;
    ReadLanguageDates();
    ConditionEclipsed = LookupText("Conditions", "eclisse");
    ConditionVisible = LookupText("Conditions", "visibile");
    ConditionNotVisible = LookupText("Conditions", "nonvisibile");
  }
  static PassRecord Pass(double day, double elevation, MagnitudeValue magnitude, double seconds) {
    PassRecord pass;
    pass.currentEntry = 7;
    pass.slot = ScratchSlot;
    pass.culmination.date = DateOf(2022, 1, 9) + day;
    pass.rise.date = pass.culmination.date - 300 / 86400.0;
    pass.set.date = pass.culmination.date + 300 / 86400.0;
    pass.culmination.elevation = elevation;
    pass.culmination.azimuth = 214.6;
    pass.culmination.condition = Eclipsed;
    pass.culmination.magnitude = magnitude;
    pass.culmination.range = 493.27;
    pass.culmination.sunElevation = -46.88;
    pass.durationTotal = seconds;
    return pass;
  }
  /// Four passes whose orders by the columns all differ.
  static PassList Four() {
    constexpr auto number = MagnitudeValue::Kind::Number, unknown = MagnitudeValue::Kind::Unknown;
    PassList list(Site);
    list.Add(Pass(2.5, 54.69, {number, -1.3}, 637), "Iss (Zarya)");
    list.Add(Pass(0.5, 9.96, {unknown, 0}, 3725), "Hst");
    list.Add(Pass(31.25, 10, {number, 4.25}, 36 * 3600), "iss (Nauka)");
    list.Add(Pass(2.25, 8, {number, -0.5}, 59), "iss (Nauka)");
    return list;
  }
  static std::string Order(const PassList& list) {
    std::string order;
    for (int row = 0; row < list.Count(); ++row) order += std::to_string(list.FoundAt(row));
    return order;
  }
  /// The first satellites of low orbits, all of which pass each day.
  static void Follow(int count) {
    ActiveCount = 0;
    for (const DatabaseEntry& set : ManySets(2 * count + 5)) {
      if (ActiveCount == count) return;
      Estrai_Dati_Satellite(ActiveCount + 1, set.name, set.line1, set.line2);
      if (ElementSets[ActiveCount + 1].MeanMotion > 11) ++ActiveCount;
    }
  }
  void ReadSample() {
    std::string text;
    for (const DatabaseEntry& set : ManySets(40))
      text.append(set.name).append("\n").append(set.line1).append("\n").append(set.line2).append("\n");
    const std::string path = testing::TempDir() + "halvorine_passes.txt";
    platform.WriteFile(path, text);
    Database_satelliti(path);
    platform.messages.clear();
  }

  FakePlatform platform;
  PassRequest request;
};

TEST_F(PassLists, CellsTagAndHiddenColumnsHaveTheirPictures) {
  const PassList list = Four();
  const char* const cells[] = {
      "11 Jan 2022 12:00:00", "Iss (Zarya)", "54.7", " 215", "Ecl", "-1.3", "00:10:37",
      "20220111 12:00:00",    "097.70"};
  for (int column = 1; column <= PassColumnCount; ++column)
    EXPECT_EQ(list.Cell(0, column), cells[column - 1]);
  EXPECT_EQ(list.Cell(1, MagnitudeColumn), " ???");
  EXPECT_EQ(list.Cell(1, MagnitudeOrderColumn), "198.00");
  EXPECT_EQ(list.Cell(1, DurationColumn), "01:02:05");
  EXPECT_EQ(Split(list.Tag(0), ';').at(2), TextsOf(list.Pass(0).culmination).row);
}

TEST_F(PassLists, HeadingsSortByTextAscendingFirstAndTheHiddenColumnsStandIn) {
  PassList list = Four();
  PassSort last;
  const struct {
    int heading;
    const char* order;
  } clicks[] = {{CulminationColumn, "1302"}, {CulminationColumn, "2031"},
                {SatelliteColumn, "1230"},                               // without regard to case
                {AltitudeColumn, "3120"},    {MagnitudeColumn, "0321"},  // no magnitude goes last
                {MagnitudeColumn, "1230"},   {AzimuthColumn, "0123"},
                {DurationColumn, "3012"}};
  for (const auto& click : clicks) {
    list.SortBy(click.heading, last);
    EXPECT_EQ(Order(list), click.order) << click.heading;
  }
  EXPECT_EQ(list.RowOf(0), 1);
  // the record is one for all lists: another list begins ascending, this one then turns round
  PassList other = Four();
  other.SortBy(DurationColumn, last);
  EXPECT_EQ(Order(other), "3012");
  list.SortBy(DurationColumn, last);
  EXPECT_EQ(Order(list), "2103");
}

TEST_F(PassLists, DatesAreReadBackFromReportRowsInEveryLanguage) {
  for (const char* const language :
       {"English.ini", "Italiano.ini", "Deutsch.ini", "Français.ini", "Español.ini"}) {
    SetLanguage(language);
    for (int month = 1; month <= 12; ++month) {
      PassEvent event;
      event.date = AddSeconds(DateOf(month < 6 ? 1900 : 2099, month, 28), 86399 - month);
      EXPECT_EQ(DateOfReport(TextsOf(event).row, LanguageDates), event.date) << language << " " << month;
    }
  }
  for (const char* const row :
       {"", "21 Jan 2018", "21 Foo 2018  03:00:00", "21 Jan 2018  03:00", "a Jan b  c:d:e"})
    EXPECT_EQ(DateOfReport(row, DateNames()), std::nullopt) << row;
}

TEST_F(PassLists, WholeListIsTextOrValuesAndNamesPlaceAndZone) {
  const PassList list = Four();
  const std::vector<std::string> text = Split(list.AsText(), '\n');
  ASSERT_EQ(text.size(), 7U) << "heading, four passes, place, and the empty rest behind the last end";
  EXPECT_EQ(
      text[1],
      "11 Jan 2022 12:00:00  Iss (Zarya)                54.7    215  Eclipsed   -1.3   00:10:37  11:55:00"
      "      0  12:05:00      0\r");
  EXPECT_EQ(text[5], "Italy: Milano - Times in zone UTC+02:00\r");
  const std::vector<std::string> values = Split(list.AsCsv(), '\n');
  ASSERT_EQ(values.size(), 7U);
  EXPECT_TRUE(values[1].starts_with("Iss (Zarya),00:10:37,2022-01-11 11:55:00,0.0,0.0,"));
  EXPECT_NE(values[1].find(",2022-01-11 12:00:00,54.7,214.6,Eclipsed,-1.3,-46.9,493.3,"), std::string::npos);
}

TEST_F(PassLists, RunsSearchWhatTheirTabNames) {
  Follow(12);
  const Slots<SatelliteState, SlotCount> before = SatelliteStates;
  const struct {
    int tab, limit, active, first, last;
  } rows[] = {{PrincipalSatellite, 200, 12, 1, 1},
              {SecondarySatellites, 9, 12, 2, 9},
              {SecondarySatellites, 200, 12, 2, 12},
              {SecondarySatellites, 10, 5, 2, 5}};
  for (const auto& row : rows) {
    Follow(row.active);
    request.tab = row.tab;
    request.limit = row.limit;
    request.noFilter = true;
    request.duration = 1;
    const std::optional<PassRun> run = RunPasses(request);
    ASSERT_TRUE(run);
    int lowest = SlotCount, highest = 0;
    for (int pass = 0; pass < run->list.Count(); ++pass) {
      lowest = std::min(lowest, run->list.Number(pass));
      highest = std::max(highest, run->list.Number(pass));
      EXPECT_LE(run->list.Pass(pass).set.julianDay, PassStart(request.start) + 2 + 1e-9);
    }
    EXPECT_EQ(lowest, row.first);
    EXPECT_EQ(highest, row.last);
    EXPECT_EQ(SatelliteStates[1].Elevation, before[1].Elevation) << "the map goes on with its states";
  }
  EXPECT_TRUE(TickEnabled && SatelliteTickEnabled);
  ElementSets[2].MeanMotion = 0;
  const std::optional<PassRun> failed = RunPasses(request);
  EXPECT_EQ(failed.value().list.Count(), 0) << "a failure takes all rows away";
}

TEST_F(PassLists, DatabaseRunIsCancelledAtEveryPointAndKeepsWhatWasFound) {
  ReadSample();
  request.duration = 24;
  request.noFilter = true;
  TickEnabled = false;  // the clock stands
  const std::optional<PassRun> whole = RunPasses(request);
  ASSERT_TRUE(whole);
  ASSERT_GT(whole->list.Count(), 100);
  platform.millisecondsPerLook = 50;  // a yield at every look
  for (int at = 1; at < 200; at += 13) {
    CallLog log;
    FakeProgress progress(log);
    int yields = 0;
    platform.onYield = [&] {
      EXPECT_FALSE(TickEnabled || SatelliteTickEnabled);
      if (++yields == at) CancelRequested = true;
    };
    const std::optional<PassRun> run = RunPasses(request);
    ASSERT_TRUE(run);
    EXPECT_EQ(yields, at) << "nothing is looked at any more";
    EXPECT_LT(run->list.Count(), at);
    for (int row = 0; row < run->list.Count(); ++row) EXPECT_EQ(run->list.Tag(row), whole->list.Tag(row));
    EXPECT_EQ(log[1], "frmProgress.Computing the 1° satellite");
    EXPECT_FALSE(TickEnabled || CancelRequested);
    EXPECT_TRUE(SatelliteTickEnabled);
    EXPECT_EQ(ElementSets[ScratchSlot].Name, "");
    EXPECT_FALSE(LongOperation::Running());
  }
}

TEST_F(PassLists, NothingChangesUnderARun) {
  ReadSample();
  Follow(3);
  FillActiveRows();
  request.duration = 2;
  request.noFilter = true;
  const std::optional<PassRun> whole = RunPasses(request);
  platform.millisecondsPerLook = 50;
  platform.onYield = [this] {
    RemoveAllActive();
    RotateActive();
    AddSelected(Primary, {5});
    Database_satelliti("elsewhere");
    EXPECT_FALSE(RunPasses(request));
    platform.onYield = {};
  };
  const std::optional<PassRun> run = RunPasses(request);
  ASSERT_TRUE(run && whole);
  EXPECT_EQ(run->list.AsCsv(), whole->list.AsCsv());
  EXPECT_EQ(ActiveCount, 3);
  EXPECT_EQ(platform.messages.size(), 5U);
  // an entry that is not there any more is no satellite
  EXPECT_TRUE(PreparePass(AllSatellites, PrimaryDatabase.Count()));
  EXPECT_EQ(PassSlot, ScratchSlot);
  EXPECT_FALSE(PreparePass(AllSatellites, PrimaryDatabase.Count() + 1));
  EXPECT_FALSE(PreparePass(SecondarySatellites, 4));
  EXPECT_TRUE(PreparePass(SecondarySatellites, 3));
  EXPECT_EQ(PassSlot, 3);
}

TEST_F(PassLists, OddPlacesAndYearsRunToTheirEnd) {
  Follow(6);
  request.tab = SecondarySatellites;
  request.limit = 200;
  request.noFilter = true;
  for (const ObserverSite& site : {ObserverSite{"", 90, 0, 0, 0, 0}, ObserverSite{"", -90, 0, 0, 12, 0},
                                   ObserverSite{"", 0, -180, 0, -12, 0}})
    for (const int year : {1900, 2018, 2099}) {
      Site = site;
      request.start = DateOf(year, 1, 21);
      const std::optional<PassRun> run = RunPasses(request);
      ASSERT_TRUE(run);
      for (int pass = 0; pass < run->list.Count(); ++pass) {
        const PassRecord& found = run->list.Pass(pass);
        EXPECT_GE(found.rise.date, request.start - 1.5 / 86400);
        EXPECT_LE(found.set.date, request.start + 1 + 1.5 / 86400);
      }
      EXPECT_TRUE(year != 2018 || run->list.Count() > 5) << site.Latitude;
    }
}

}  // namespace
}  // namespace halvorine
