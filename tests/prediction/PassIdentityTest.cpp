#include <algorithm>
#include <cstdlib>

#include "tests/fakes/FakePlatform.h"
#include "tests/orbit/ManySets.h"
#include "tests/orbit/OrbitFixture.h"
#include "tests/prediction/LiteralSearch.h"

namespace halvorine {
namespace {

class Rows : public PassWatcher {
 public:
  void Found(const PassRecord& pass) override { passes.push_back(pass); }
  std::vector<PassRecord> passes;
};

std::array<double, 9> NumbersOf(const PassEvent& e) {
  return {e.julianDay,
          e.date,
          e.elevation,
          e.azimuth,
          e.range,
          e.sunElevation,
          static_cast<double>(e.condition),
          static_cast<double>(e.magnitude.kind),
          e.magnitude.value};
}

bool Same(const PassRecord& a, const PassRecord& b) {
  return a.currentEntry == b.currentEntry && a.slot == b.slot && a.durationTotal == b.durationTotal &&
         NumbersOf(a.rise) == NumbersOf(b.rise) && NumbersOf(a.culmination) == NumbersOf(b.culmination) &&
         NumbersOf(a.set) == NumbersOf(b.set);
}

struct SearchedSpan {
  double latitude, threshold, start, days;
  std::int16_t model, refraction;
};

/// HALVORINE_SETS asks for more sets than the short default.
int SetsToTry(int few) {
  const char* const asked = std::getenv("HALVORINE_SETS");
  return asked != nullptr ? ToInt32(ParseNumber(asked)) : few;
}

class PassIdentity : public OrbitTest, public testing::WithParamInterface<SearchedSpan> {
 protected:
  FakePlatform platform;
};

TEST_P(PassIdentity, RowsAndTheRecordsLeftBehindAreThoseOfTheLiteralSearch) {
  const SearchedSpan& run = GetParam();
  const std::vector<DatabaseEntry> entries = ManySets(SetsToTry(200), true);
  MagnitudeTable.assign(100000, "5.1");
  Options.Propagator = run.model;
  Options.Refraction = run.refraction;
  Observe(run.latitude, 9.19, 122);
  PassQuery query;
  query.tStart = run.start;
  query.tEnd = run.start + run.days;
  query.threshold = run.threshold;

  Rows own;
  PassEngine(query, own).RunDatabase(entries);
  const std::array<double, 3> position = PositionKm, velocity = VelocityKmS;
  const double elevation = SatelliteStates[ScratchSlot].Elevation;
  const std::size_t messages = platform.messages.size();

  ResetOrbitRecords();
  Azzera_Valori(ScratchSlot);
  literal::LiteralSearch literal(query);
  literal.RunDatabase(entries);
  EXPECT_EQ(position, PositionKm);
  EXPECT_EQ(velocity, VelocityKmS);
  EXPECT_EQ(elevation, SatelliteStates[ScratchSlot].Elevation);
  EXPECT_EQ(platform.messages.size(), 2 * messages);
  EXPECT_EQ(own.passes.size(), literal.passes.size());
  const auto [mine, theirs] =
      std::mismatch(own.passes.begin(), own.passes.end(), literal.passes.begin(), literal.passes.end(), Same);
  if (mine == own.passes.end() && theirs == literal.passes.end()) return;
  const PassRecord& first = theirs == literal.passes.end() ? *mine : *theirs;
  const DatabaseEntry& entry = entries.at(static_cast<std::size_t>(first.currentEntry - 1));
  ADD_FAILURE() << entry.line1 << "\n"
                << entry.line2 << "\nculmination " << NumberText(first.culmination.julianDay);
}

INSTANTIATE_TEST_SUITE_P(
    Runs, PassIdentity,
    testing::Values(
        SearchedSpan{45.4642, 10, 2458139.5, 1, 3, 0}, SearchedSpan{45.4642, 0, 2458140.3, 1, 2, -1},
        SearchedSpan{-33.8688, 25, 2458160.1, 0.7, 3, -1}, SearchedSpan{78.2232, 10, 2458139.5, 1, 3, 0},
        SearchedSpan{0, -10, 2458139.5, 0.5, 2, 0}, SearchedSpan{90, 5, 2458300.5, 0.5, 3, -1},
        SearchedSpan{-64, 60, 2458139.5, 2, 2, 0}, SearchedSpan{45.4642, 10, 2458139.5, 0.5, 0, 0},
        SearchedSpan{45.4642, 10, 2458139.5, 0.5, 1, -1}, SearchedSpan{20, 89.5, 2458139.5, 1, 3, 0},
        SearchedSpan{20, 10, 2458139.5, 0.02, 3, 0}, SearchedSpan{45, 10, 2462139.5, 0.4, 3, 0}));

}  // namespace
}  // namespace halvorine
