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
    if (cancelAt > 0 && static_cast<int>(passes.size()) == cancelAt) CancelRequested = true;
  }
  void Progress(int number, double days) override {
    ++progresses;
    lastNumber = number;
    lastDays = days;
  }
  std::vector<PassRecord> passes;
  std::vector<std::string> names;
  int progresses = 0, lastNumber = 0, cancelAt = 0;
  double lastDays = 0;
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

TEST_F(Passes, EveryStretchAboveTheThresholdIsFoundWhateverTheSpanCuts) {
  LoadIss();
  constexpr double epoch = 2458139.5;
  for (int shift = 0; shift < 40; ++shift) {
    PassQuery query = Days(epoch + 0.0137 * shift, 0.31);
    query.threshold = 5;
    const std::vector<PassRecord> passes = Search(query).passes;
    std::size_t next = 0;
    bool above = false;
    for (double t = query.tStart; t < query.tEnd; t += 5.0 / 86400) {
      ComputeSatelliteState(1, t);
      const bool now = SatelliteStates[1].Elevation > 5.001;
      if (now) {
        ASSERT_LT(next, passes.size()) << "at " << t;
        EXPECT_GE(t, passes[next].rise.julianDay - 1e-7);
        EXPECT_LE(t, passes[next].set.julianDay + 1e-7);
        EXPECT_LE(SatelliteStates[1].Elevation, passes[next].culmination.elevation + 1e-6);
      } else if (above) {
        ++next;
      }
      above = now;
    }
    for (const PassRecord& pass : passes) {
      EXPECT_GE(pass.rise.julianDay, query.tStart);
      EXPECT_LE(pass.set.julianDay, query.tEnd);
    }
  }
}

/// Crossing of the threshold between two instants of different sign, by halving.
double Crossed(double before, double after, double threshold) {
  const auto isAbove = [threshold](double t) {
    ComputeSatelliteState(1, t);
    return SatelliteStates[1].Elevation > threshold;
  };
  const bool first = isAbove(before);
  for (int i = 0; i < 12; ++i) {
    const double middle = (before + after) / 2;
    (isAbove(middle) == first ? before : after) = middle;
  }
  return after;
}

TEST_F(Passes, SamplingThirtySatellitesOverThreeSitesFindsTheSameEvents) {
  int events = 0;
  double site = 0;
  std::vector<DatabaseEntry> entries = ManySets(60);
  for (const DatabaseEntry& entry : entries) {
    Estrai_Dati_Satellite(1, entry.name, entry.line1, entry.line2);
    if (ElementSets[1].MeanMotion < 12) continue;
    site = std::fmod(site + 1, 3);
    Observe(45.4642 - 40 * site, 9.19 + 100 * site, 122);
    PassQuery query = Days(2458139.5, 3);
    query.azimuthMax = 400;
    query.threshold = 3;
    const std::vector<PassRecord> passes = Search(query).passes;
    std::size_t next = 0;
    constexpr double stride = 20.0 / 86400, second = 1.0 / 86400;
    bool above = false;
    for (double t = query.tStart; t < query.tEnd; t += stride) {
      ComputeSatelliteState(1, t);
      const bool now = SatelliteStates[1].Elevation > query.threshold;
      if (now != above && t > query.tStart) {
        const double event = Crossed(t - stride, t, query.threshold);
        // passes of less than a stride are the search's alone
        while (next < passes.size() && passes[next].set.julianDay < event - stride) ++next;
        ASSERT_LT(next, passes.size()) << entry.name << " at " << NumberText(event);
        EXPECT_NEAR(now ? passes[next].rise.julianDay : passes[next].set.julianDay, event, second);
        ++events;
      }
      above = now;
    }
  }
  EXPECT_GT(events, 800);
}

TEST_F(Passes, PassUnderWayAtEitherEndIsClampedThere) {
  LoadIss();
  const PassRecord whole = Search(Days(2458140.35, 0.02)).passes.at(0);
  const double rise = whole.rise.julianDay, top = whole.culmination.julianDay, set = whole.set.julianDay;
  const double minute = 1.0 / 1440;
  const PassRecord rising = Search(Days(rise + minute, 0.1)).passes.at(0);
  EXPECT_EQ(rising.rise.julianDay, rise + minute);
  EXPECT_GT(rising.rise.elevation, 1);
  EXPECT_NEAR(rising.culmination.julianDay, top, 1e-6);
  const PassRecord falling = Search(Days(top + minute, 0.1)).passes.at(0);
  EXPECT_EQ(falling.rise.julianDay, top + minute);
  EXPECT_EQ(falling.culmination.julianDay, top + minute);
  EXPECT_NEAR(falling.set.julianDay, set, 1e-8);
  PassQuery early = Days(rise - 0.1, 0);
  early.tEnd = top - minute;
  const PassRecord cut = Search(early).passes.back();
  EXPECT_EQ(cut.set.julianDay, early.tEnd);
  EXPECT_EQ(cut.culmination.julianDay, early.tEnd);
  early.tEnd = top + minute;
  const PassRecord tail = Search(early).passes.back();
  EXPECT_NEAR(tail.culmination.julianDay, top, 1e-6);
  EXPECT_EQ(tail.set.julianDay, early.tEnd);
}

TEST_F(Passes, OrbitsOfNearlyConstantElevationAreLeftOut) {
  struct Row {
    double meanMotion, eccentricity;
    bool leftOut;
  };
  for (const Row& row : std::vector<Row>{{1.0027, 0.001, true},
                                         {1.0027, 0.5, true},
                                         {1.0036, 0.7, true},
                                         {1.0038, 0.1, false},
                                         {1.0038, 0.0999, true},
                                         {2.0, 0.01, true},
                                         {2.003, 0.0, false},
                                         {0.5, 0.2, false},
                                         {15.5, 0.0, false}}) {
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

TEST_F(Passes, CancelStopsAtTheNextPassAndKeepsWhatWasFound) {
  LoadIss();
  PassList list;
  list.cancelAt = 3;
  EXPECT_FALSE(PassEngine(Days(2458139.5, 5), list).RunSlots(1, 1));
  EXPECT_EQ(list.passes.size(), 3U);
  EXPECT_FALSE(CancelRequested);
}

TEST_F(Passes, YieldsAndProgressGoByTheClock) {
  LoadIss();
  PassList still;
  PassEngine(Days(2458139.5, 5), still).RunSlots(1, 1);
  EXPECT_EQ(platform.yields, 0);
  platform.millisecondsPerLook = 15;
  PassList list;
  PassEngine(Days(2458139.5, 5), list).RunSlots(1, 1);
  EXPECT_GT(platform.yields, 4);
  EXPECT_LT(platform.yields, static_cast<int>(list.passes.size()));
  EXPECT_EQ(list.progresses, platform.yields);
  EXPECT_EQ(list.lastNumber, 1);
  EXPECT_GT(list.lastDays, 3);
}

TEST_F(Passes, ReportRowHasItsFixedColumns) {
  ConditionVisible = "visible";
  PassEvent event;
  event.date = DateOf(2018, 1, 21) + 3.0 / 24;
  event.elevation = 7.04;
  event.azimuth = 5.25;
  event.range = 1605.78;
  event.sunElevation = -7.25;
  event.condition = Visible;
  event.magnitude = {MagnitudeValue::Kind::Number, -1.26};
  EXPECT_EQ(TextsOf(event).row,
            "21 Jan 2018  03:00:00                   7.0   005.3   visible   -1.3   -07.3    1605.8");
  event.magnitude = {MagnitudeValue::Kind::Unknown, 0};
  EXPECT_EQ(TextsOf(event).magnitude, " ???");
  EXPECT_EQ(TextsOf(event).azimuth, "   5");
}

TEST_F(Passes, StartIsTheSitesCivilTime) {
  Site.TimeZone = 5.75F;
  Site.DaylightSaving = 1;
  const Date local = DateOf(2018, 3, 1) + 2.5 / 24;
  EXPECT_NEAR(PassStart(local), 2458178.5 + (2.5 - 6.75) / 24, 1e-9);
  EXPECT_NEAR(JulianDayToLocalDate(PassStart(local)), local, 2e-5);
}

}  // namespace
}  // namespace halvorine
