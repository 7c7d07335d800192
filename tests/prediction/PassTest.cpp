#include "prediction/mPass.h"

#include "astro/mAstro.h"
#include "shell/base/mText.h"
#include "tests/fakes/FakePlatform.h"
#include "tests/orbit/ManySets.h"
#include "tests/orbit/OrbitFixture.h"

namespace halvorine {
namespace {

class PassList : public PassWatcher {
 public:
  void Found(const PassRecord& pass) override {
    passes.push_back(pass);
    names.push_back(ElementSets[pass.slot].Name);
  }
  std::vector<PassRecord> passes;
  std::vector<std::string> names;
};

class Passes : public OrbitTest {
 protected:
  Passes() { Options.Propagator = 3; }

  PassList Search(const PassQuery& query) {
    PassList list;
    PassEngine(query, list).RunSlots(1, 1);
    return list;
  }

  static PassQuery Days(double start, double days) {
    PassQuery query;
    query.tStart = start;
    query.tEnd = start + days;
    return query;
  }

  void LoadIss() {
    Estrai_Dati_Satellite(1, issName, issLine1, issLine2);
    Observe(45.4642, 9.19, 122);
  }

  FakePlatform platform;
};

/// A printed value against the same print of the reference; the next one counts where a step of the rounding
/// lies within the tolerance.
void CompareDigits(const std::string& printed, double value, double tolerance, const char* picture) {
  const double shown = ParseStrict(printed);
  EXPECT_GE(shown, ParseStrict(Format(value - tolerance, picture))) << NumberText(value);
  EXPECT_LE(shown, ParseStrict(Format(value + tolerance, picture))) << NumberText(value);
}

/// The columns of the report row against the reference values.
void CompareRow(const PassEvent& event, const ReferenceRow& wanted, double azimuthTolerance) {
  const std::string row = TextsOf(event).row;
  const auto columns = [&row](int first, int last) { return std::string(Columns(row, first, last)); };
  EXPECT_EQ(columns(1, 21), FormatDate(event.date, "dd mmm yyyy  hh:nn:ss", LanguageDates));
  CompareDigits(columns(40, 43), wanted.Number(2), 3e-4, "#0.0");
  CompareDigits(columns(47, 51), wanted.Number(3), azimuthTolerance, "000.0");
  if (event.magnitude.kind == MagnitudeValue::Kind::Number)
    CompareDigits(columns(65, 68), wanted.Number(6), 0.002, "#0.0");
  else
    EXPECT_EQ(columns(65, 68), RightAligned(wanted.Text(6), 4));
  CompareDigits(columns(72, 76), wanted.Number(7), 0.001, "00.0");
  CompareDigits(columns(79, 86), wanted.Number(5), 0.005, "0.0");
}

void CompareEvent(const PassEvent& event, const ReferenceRow& wanted, bool culmination,
                  double culminationTolerance) {
  const std::string where = "event at " + wanted.Text(1);
  EXPECT_NEAR(event.julianDay, wanted.Number(1), culmination ? culminationTolerance : 5e-9) << where;
  EXPECT_NEAR(event.elevation, wanted.Number(2), culmination ? 1e-6 : 3e-4) << where;
  const double azimuth = culmination ? (event.elevation > 80 ? 0.5 : 0.02) : 0.001;
  EXPECT_NEAR(event.azimuth, wanted.Number(3), azimuth) << where;
  EXPECT_EQ(event.condition, wanted.Count(4)) << where;
  EXPECT_NEAR(event.range, wanted.Number(5), culmination ? 0.2 : 0.05) << where;
  EXPECT_NEAR(event.sunElevation, wanted.Number(7), 0.001) << where;
  using Kind = MagnitudeValue::Kind;
  const std::string& magnitude = wanted.Text(6);
  EXPECT_EQ(event.magnitude.kind, magnitude.empty()    ? Kind::Empty
                                  : magnitude == "???" ? Kind::Unknown
                                                       : Kind::Number)
      << where;
  if (event.magnitude.kind == Kind::Number) {
    EXPECT_NEAR(event.magnitude.value, wanted.Number(6), 0.002) << where;
  }
  if (!wanted.Text(8).empty()) {
    EXPECT_EQ(FormatDate(event.date, "yyyy-mm-dd hh:nn:ss", {}), wanted.Text(8));
  }
  CompareRow(event, wanted, azimuth);
}

TEST_F(Passes, ReferenceRunsOverThreeDays) {
  const std::vector<ReferenceRow> table = ReferenceRows("orbit_passes.txt", '|');
  for (std::size_t at = 0; at < table.size();) {
    const ReferenceRow& run = table[at++];
    ASSERT_EQ(run.Text(0), "run");
    Estrai_Dati_Satellite(1, run.Text(1), run.Text(2), run.Text(3));
    ElementSets[1].StandardMagnitude = run.Text(4);
    Observe(run.Number(5), run.Number(6), run.Number(7));
    Site.TimeZone = static_cast<float>(run.Number(8));
    Options.Refraction = ToInt16(run.Number(9));
    PassQuery query = Days(run.Number(11), run.Number(12) - run.Number(11));
    query.threshold = run.Number(10);
    const std::vector<PassRecord> passes = Search(query).passes;
    std::size_t count = 0;
    for (; at < table.size() && table[at].Text(0) == "pass"; at += 4, ++count) {
      if (count >= passes.size()) continue;
      const PassRecord& pass = passes[count];
      const double tolerance = table[at].Number(1);
      CompareEvent(pass.rise, table[at + 1], false, tolerance);
      CompareEvent(pass.culmination, table[at + 2], true, tolerance);
      CompareEvent(pass.set, table[at + 3], false, tolerance);
      if (!table[at].Text(2).empty()) {
        EXPECT_EQ(pass.durationTotal, table[at].Number(2));
      }
    }
    EXPECT_EQ(passes.size(), count) << run.Text(1);
  }
  EXPECT_TRUE(platform.messages.empty());
}

TEST_F(Passes, PassUnderWayAtEitherEndIsClampedThere) {
  LoadIss();
  const PassRecord whole = Search(Days(2458140.35, 0.02)).passes.at(0);
  const double rise = whole.rise.julianDay, top = whole.culmination.julianDay, set = whole.set.julianDay;
  const double minute = 1.0 / 1440;
  const PassRecord falling = Search(Days(top + minute, 0.1)).passes.at(0);
  EXPECT_EQ(falling.rise.julianDay, top + minute);
  EXPECT_EQ(falling.culmination.julianDay, top + minute);
  EXPECT_NEAR(falling.set.julianDay, set, 1e-8);
  PassQuery early = Days(rise - 0.1, 0);
  early.tEnd = top - minute;
  const PassRecord cut = Search(early).passes.back();
  EXPECT_EQ(cut.set.julianDay, early.tEnd);
  EXPECT_EQ(cut.culmination.julianDay, early.tEnd);
}

TEST_F(Passes, OrbitsOfNearlyConstantElevationAreLeftOut) {
  const struct {
    double meanMotion, eccentricity;
    bool leftOut;
  } rows[] = {{1.0027, 0.001, true}, {1.0036, 0.7, true}, {1.0038, 0.1, false}, {1.0038, 0.0999, true},
              {2.0, 0.01, true},     {2.003, 0.0, false}, {0.5, 0.2, false}};
  for (const auto& row : rows) {
    ElementSet set;
    set.MeanMotion = row.meanMotion;
    set.Eccentricity = row.eccentricity;
    EXPECT_EQ(HasNearlyConstantElevation(set), row.leftOut) << row.meanMotion << " " << row.eccentricity;
  }
}

TEST_F(Passes, SatelliteThatNeverSetsEndsWithEventsAtTheSpan) {
  LoadIss();
  ElementSets[1].MeanMotion = 2.5;  // seen from the pole it keeps to one side of a very low threshold
  PassQuery query = Days(2458139.5, 2);
  query.threshold = -89.999;
  Observe(10, 9.19, 122);
  const std::vector<PassRecord> passes = Search(query).passes;
  ASSERT_FALSE(passes.empty());
  for (const PassRecord& pass : passes) {
    EXPECT_GE(pass.rise.julianDay, query.tStart);
    EXPECT_LE(pass.set.julianDay, query.tEnd);
  }
  EXPECT_TRUE(platform.messages.empty());
}

TEST_F(Passes, FiltersKeepWhatTheyName) {
  LoadIss();
  Site.TimeZone = 1;
  ElementSets[1].StandardMagnitude = "-1.3";
  PassQuery query = Days(2458139.5, 5);
  const std::vector<PassRecord> all = Search(query).passes;
  ASSERT_GT(all.size(), 20U);
  std::size_t morning = 0, visible = 0, east = 0;
  for (const PassRecord& pass : all) {
    const double hour = (pass.culmination.date - Int(pass.culmination.date)) * 24;
    morning += hour < 12 ? 1 : 0;
    const bool seen = pass.rise.condition == Visible || pass.culmination.condition == Visible ||
                      pass.set.condition == Visible;
    visible += seen ? 1 : 0;
    east += pass.culmination.azimuth >= 30 && pass.culmination.azimuth < 180 ? 1 : 0;
  }
  query.evening = false;
  EXPECT_EQ(Search(query).passes.size(), morning);
  query.evening = true;
  query.morning = false;
  EXPECT_EQ(Search(query).passes.size(), all.size() - morning);
  query.morning = true;
  query.azimuthMin = 30;
  query.azimuthMax = 180;
  EXPECT_EQ(Search(query).passes.size(), east);
  query.visibleOnly = true;  // the range of azimuth does not count then
  EXPECT_EQ(Search(query).passes.size(), visible);
  EXPECT_GT(visible, 0U);
  EXPECT_LT(visible, all.size());
}

TEST_F(Passes, DatabaseRunGoesOnOverBrokenEntriesAndClearsItsSlot) {
  Observe(45.4642, 9.19, 122);
  FrequencyTable = {{"25544", "145.2", "145.8"}};
  std::string zeroMotion = issLine2, foreign = issLine1;
  zeroMotion.replace(52, 11, " 0.00000000");
  foreign.replace(2, 5, "abcde");
  const std::vector<DatabaseEntry> entries{{"ONE", issLine1, issLine2},
                                           {"", "", ""},
                                           {"TWO", issLine1, zeroMotion},
                                           {"THREE", foreign, issLine2},
                                           {"FOUR", issLine1, issLine2}};
  PassList list;
  EXPECT_TRUE(PassEngine(Days(2458139.5, 1), list).RunDatabase(entries));
  ASSERT_FALSE(list.passes.empty());
  EXPECT_EQ(list.passes.front().currentEntry, 1);
  EXPECT_EQ(list.passes.back().currentEntry, 5);
  EXPECT_EQ(list.names.back(), "Four");
  EXPECT_EQ(list.passes.size() % 2, 0U);
  EXPECT_EQ(ElementSets[ScratchSlot].Name, "");
  EXPECT_EQ(ElementLines[ScratchSlot], DatabaseEntry{});
}

TEST_F(Passes, TransitTestKeepsOnlyWhatIsUpAtTheStart) {
  Observe(45.4642, 9.19, 122);
  const std::vector<DatabaseEntry> entries{{"ONE", issLine1, issLine2}};
  PassQuery query = Days(2458140.3619, 0.5);  // in the middle of a pass
  query.transitOnly = true;
  PassList up, down;
  PassEngine(query, up).RunDatabase(entries);
  EXPECT_GT(up.passes.size(), 1U);
  query.tStart += 0.02;
  PassEngine(query, down).RunDatabase(entries);
  EXPECT_TRUE(down.passes.empty());
}

}  // namespace
}  // namespace halvorine
