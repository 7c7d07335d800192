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
  EXPECT_EQ(PassHeading(MagnitudeOrderColumn), "Mag. (appoggio)");
  const std::vector<std::string> tag = Split(list.Tag(0), ';');
  ASSERT_EQ(tag.size(), 4U);
  EXPECT_EQ(tag[0], "7");
  EXPECT_EQ(tag[2], TextsOf(list.Pass(0).culmination).row);
  EXPECT_THROW(list.Cell(4, 1), SubscriptFailure);
  EXPECT_THROW(list.Cell(0, 10), SubscriptFailure);
}

TEST_F(PassLists, HeadingsSortByTextAscendingFirstAndTheHiddenColumnsStandIn) {
  PassList list = Four();
  PassSort last;
  struct Click {
    int heading;
    const char* order;
  };
  for (const Click& click : std::vector<Click>{{CulminationColumn, "1302"},
                                               {CulminationColumn, "2031"},
                                               {SatelliteColumn, "1230"},  // without regard to case
                                               {AltitudeColumn, "3120"},
                                               {MagnitudeColumn, "0321"},  // no magnitude goes last
                                               {MagnitudeColumn, "1230"},
                                               {MagnitudeColumn, "0321"},
                                               {AzimuthColumn, "0123"},
                                               {DurationColumn, "3012"}}) {
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
  EXPECT_EQ(text[0].find("Duration") + 8, text[1].find("00:10:37") + 8);
  EXPECT_EQ(text[5], "Italy: Milano - Times in zone UTC+02:00\r");
  const std::vector<std::string> values = Split(list.AsCsv(), '\n');
  ASSERT_EQ(values.size(), 7U);
  for (std::size_t line = 0; line < 5; ++line)
    EXPECT_EQ(std::count(values[line].begin(), values[line].end(), ','), 22);
  EXPECT_TRUE(values[1].starts_with("Iss (Zarya),00:10:37,2022-01-11 11:55:00,0.0,0.0,"));
  EXPECT_NE(values[1].find(",2022-01-11 12:00:00,54.7,214.6,Eclipsed,-1.3,-46.9,493.3,"), std::string::npos);
}

TEST_F(PassLists, ChoicesAndFiltersAreThoseOfTheTab) {
  EXPECT_EQ(DurationChoices(AllSatellites).size(), 25U);
  EXPECT_EQ(DurationChoices(AllSatellites)[1].text, "1 hour");
  EXPECT_EQ(DurationChoices(AllSatellites)[24].value, 1440);
  EXPECT_EQ(DurationChoices(PrincipalSatellite).back().text, "28 days");
  EXPECT_EQ(LimitChoices().back().text, "all");
  Options.FilterSecondary = {0, -1, 0, 25, 30, 200};
  EXPECT_EQ(FilterInForce(SecondarySatellites, false).threshold, 25);
  EXPECT_EQ(FilterInForce(SecondarySatellites, false).azimuthMin, 30);
  EXPECT_EQ(FilterInForce(SecondarySatellites, true).azimuthMax, 360);
  EXPECT_EQ(FilterInForce(SecondarySatellites, true).threshold, 0);
  EXPECT_TRUE(HasForwardAzimuths(SecondarySatellites));
  Options.FilterSecondary.MinAzimuth = 200;
  EXPECT_FALSE(HasForwardAzimuths(SecondarySatellites));
  EXPECT_EQ(platform.messages.back().kind, MessageKind::Warning);
  for (const int tab : {PrincipalSatellite, SecondarySatellites}) {
    request.tab = tab;
    EXPECT_FALSE(HasSomethingToSearch(request));
    Follow(tab);
    request.morning = request.evening = false;
    EXPECT_FALSE(HasSomethingToSearch(request));
    EXPECT_EQ(platform.messages.back().text, LookupText("frmVisibleSatellites", "selezionareampm"));
    request.evening = true;
    EXPECT_TRUE(HasSomethingToSearch(request));
  }
}

TEST_F(PassLists, RunsSearchWhatTheirTabNames) {
  Follow(12);
  const Slots<SatelliteState, SlotCount> before = SatelliteStates;
  struct Row {
    int tab, limit, active, first, last;
  };
  for (const Row& row : std::vector<Row>{{PrincipalSatellite, 200, 12, 1, 1},
                                         {SecondarySatellites, 10, 12, 2, 10},
                                         {SecondarySatellites, 200, 12, 2, 12},
                                         {SecondarySatellites, 9, 12, 2, 9},
                                         {SecondarySatellites, 10, 5, 2, 5}}) {
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
    EXPECT_TRUE(TickEnabled && SatelliteTickEnabled);
  }
  ElementSets[2].MeanMotion = 0;
  const std::optional<PassRun> failed = RunPasses(request);
  ASSERT_TRUE(failed);
  EXPECT_EQ(failed->list.Count(), 0) << "a failure takes all rows away";
  EXPECT_TRUE(TickEnabled && SatelliteTickEnabled);
}

/// Writes down the tasks.
class TaskLog : public FakeForm<ProgressCalls> {
 public:
  explicit TaskLog(CallLog& log) : FakeForm("frmProgress", log) {}
  void Begin(const std::string& task, double maximum) override { Note(task + " " + NumberText(maximum)); }
  void SetTask(const std::string& task) override { Note(task); }
  void SetValue(double value) override { highest = std::max(highest, value); }
  double highest = 0;
};

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
    TaskLog progress(log);
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
    EXPECT_EQ(log.front(), "frmProgress. 1");
    EXPECT_EQ(log[1], "frmProgress.Computing the 1° satellite");
    EXPECT_LE(progress.highest, 1);
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
  struct Row {
    float latitude, longitude, zone;
    int year;
  };
  for (const Row& row : std::vector<Row>{{90, 0, 0, 2018},
                                         {-90, 0, 12, 2018},
                                         {0, 180, 12, 2018},
                                         {0, -180, -12, 2018},
                                         {45, 9, 1, 1900},
                                         {45, 9, 1, 2099}}) {
    Site = {"", row.latitude, row.longitude, 0, row.zone, 0};
    request.tab = SecondarySatellites;
    request.limit = 200;
    request.noFilter = true;
    request.start = DateOf(row.year, 1, 21);
    const std::optional<PassRun> run = RunPasses(request);
    ASSERT_TRUE(run);
    for (int pass = 0; pass < run->list.Count(); ++pass) {
      const PassRecord& found = run->list.Pass(pass);
      EXPECT_GE(found.rise.date, request.start - 1.5 / 86400);
      EXPECT_LE(found.rise.date, found.culmination.date);
      EXPECT_LE(found.culmination.date, found.set.date);
      EXPECT_LE(found.set.date, request.start + 1 + 1.5 / 86400);
      EXPECT_EQ(DateOfReport(run->list.Report(pass)[1], LanguageDates), found.culmination.date);
    }
    EXPECT_TRUE(row.year != 2018 || run->list.Count() > 5) << row.latitude;
  }
}

}  // namespace
}  // namespace halvorine
