// The orbit engine against its literal form, and the cost of its parts; ratios are taken within one run.
#include <algorithm>
#include <chrono>
#include <limits>

#include "bench/Figures.h"
#include "orbit/mSatCache.h"
#include "prediction/mPass.h"
#include "tests/fakes/FakePlatform.h"
#include "tests/orbit/ManySets.h"
#include "tests/prediction/LiteralSearch.h"

namespace halvorine {
namespace {

constexpr double searchStart = 2458139.5;
constexpr int wholeDatabase = 30000;

double Seconds(const std::function<void()>& work) {
  const auto begin = std::chrono::steady_clock::now();
  work();
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
}

/// Best times of two pieces of work that take turns, as a ratio.
double Ratio(int rounds, const std::function<void()>& one, const std::function<void()>& other) {
  double best = std::numeric_limits<double>::max(), otherBest = best;
  for (int round = 0; round < rounds; ++round) {
    best = std::min(best, Seconds(one));
    otherBest = std::min(otherBest, Seconds(other));
  }
  return best / otherBest;
}

void Prepare() {
  ResetSharedRecords();
  ResetOrbitRecords();
  MagnitudeTable.assign(100000, "");
  Options.Propagator = 3;
  Options.SunThreshold = -10;
  Site = {"", 45.4642F, 9.19F, 122, 1, 0};
}

void Load(const char* line1, const char* line2) {
  Prepare();
  Estrai_Dati_Satellite(1, "", line1, line2);
  ComputeSatelliteState(1, searchStart);
}

void LoadNear() {
  Load("1 25544U 98067A   18020.89808844  .00002078  00000-0  38550-4 0  9992",
       "2 25544  51.6424  32.9776 0003646  28.7227  39.5332 15.54190080 95614");
}

void LoadResonant() {
  Load("1 22674U 93035D   18019.55909107  .00002121  00000-0  29868-3 0  6569",
       "2 22674  63.5035 354.4452 7541712 253.3264  18.7754  2.00667980893877");
}

PassQuery OneDay() {
  PassQuery query;
  query.tStart = searchStart;
  query.tEnd = searchStart + 1;
  query.threshold = 10;
  return query;
}

class Counter : public PassWatcher {
 public:
  void Found(const PassRecord& pass) override {
    ++passes;
    sum += pass.rise.julianDay - searchStart;
  }
  std::int64_t passes = 0;
  double sum = 0;
};

std::vector<DatabaseEntry> databaseOfThirtyThousand;

const std::vector<DatabaseEntry>& Database() {
  if (databaseOfThirtyThousand.empty()) databaseOfThirtyThousand = ManySets(wholeDatabase);
  return databaseOfThirtyThousand;
}

double SearchAgainstLiteral() {
  FakePlatform platform;
  Prepare();
  const std::span<const DatabaseEntry> some(Database().data(), 1500);
  Counter rows;
  std::int64_t literalRows = 0;
  const double ratio = Ratio(
      3, [&] { PassEngine(OneDay(), rows).RunDatabase(some); },
      [&] {
        literal::LiteralSearch search(OneDay());
        search.RunDatabase(some);
        literalRows += static_cast<std::int64_t>(search.passes.size());
      });
  return rows.passes == literalRows ? ratio : std::numeric_limits<double>::infinity();
}

double SearchSeconds() {
  FakePlatform platform;
  Prepare();
  Counter rows;
  return Seconds([&] { PassEngine(OneDay(), rows).RunDatabase(Database()); });
}

/// The literal search makes about 470.
double Evaluations() {
  FakePlatform platform;
  Prepare();
  Counter rows;
  const std::int64_t before = ElevationObjective::Count;
  PassEngine(OneDay(), rows).RunDatabase(Database());
  int searched = 0;
  for (const DatabaseEntry& entry : Database()) {
    Estrai_Dati_Satellite(1, entry.name, entry.line1, entry.line2);
    searched += HasNearlyConstantElevation(ElementSets[1]) ? 0 : 1;
  }
  return static_cast<double>(ElevationObjective::Count - before) / searched;
}

double GrowthOfMemory() {
  FakePlatform platform;
  Prepare();
  Counter rows;
  PassEngine(OneDay(), rows).RunDatabase(Database());
  const double before = ProcessMemory("VmRSS");
  PassEngine(OneDay(), rows).RunDatabase(Database());
  return ProcessMemory("VmRSS") - before;
}

constexpr int propagations = 2000;  // a few hundred microseconds, so that some rounds go undisturbed
constexpr int rounds = 101;

/// `days` apart from the epoch, so that every call has an instant of its own.
double KeptPropagation(void (*load)(), void (*anew)(double)) {
  load();
  SlotTerms& terms = TermsOf(1);
  OrbitVectors out;
  double sum = 0;
  return Ratio(
      rounds,
      [&] {
        for (int i = 0; i < propagations; ++i) {
          RunModel(terms, 0.7 * i, out);
          sum += out.position[0];
        }
      },
      [&] {
        for (int i = 0; i < propagations; ++i) anew(0.7 * i);
      });
}

double OldResonance() {
  LoadResonant();
  const double epoch = ElementSets[1].EpochJulianDay;
  const auto around = [epoch](double days) {
    for (int i = 0; i < propagations; ++i) ComputeSatelliteState(1, epoch + days + 1e-4 * i);
  };
  return Ratio(
      rounds, [&] { around(365); }, [&] { around(1); });
}

double StateAgainstPropagation() {
  LoadNear();
  SlotTerms& terms = TermsOf(1);
  const double epoch = ElementSets[1].EpochJulianDay;
  OrbitVectors out;
  return Ratio(
      rounds,
      [&] {
        for (int i = 0; i < propagations; ++i) ComputeSatelliteState(1, epoch + 5e-4 * i);
      },
      [&] {
        for (int i = 0; i < propagations; ++i) RunModel(terms, 5e-4 * i * 1440, out);
      });
}

double DecodeAndCompute() {
  Prepare();
  const std::vector<DatabaseEntry>& entries = Database();
  return MedianMilliseconds(5, {}, [&] {
    for (const DatabaseEntry& entry : entries) {
      Estrai_Dati_Satellite(1, entry.name, entry.line1, entry.line2);
      ComputeSatelliteState(1, searchStart);
    }
  });
}

const FigureRegistration search({"pass search, 24 hours, as a part of the literal one", 0.25, "",
                                 SearchAgainstLiteral});
const FigureRegistration seconds({"passes of 30,000 satellites, 24 hours", 2.5, "s", SearchSeconds});
const FigureRegistration evaluations({"elevations per searched satellite and day (literal: 470)", 200, "",
                                      Evaluations});
const FigureRegistration near({"near-earth propagation with kept terms, as a part of one anew", 0.65, "",
                               [] { return KeptPropagation(LoadNear, PropagateSGP4); }});
const FigureRegistration deep({"deep-space propagation with kept terms, as a part of one anew", 0.5, "",
                               [] { return KeptPropagation(LoadResonant, PropagateSDP4); }});
const FigureRegistration resonance({"resonant state a year from the epoch, as a multiple of a day", 1.1, "",
                                    OldResonance});
const FigureRegistration state({"whole state, as a multiple of its propagation", 2.2, "",
                                StateAgainstPropagation});
const FigureRegistration decoding({"30,000 sets decoded and their state computed", 60, "ms",
                                   DecodeAndCompute});
const FigureRegistration memory({"growth of memory over a second search of 30,000", 1, "MiB",
                                 GrowthOfMemory});

}  // namespace
}  // namespace halvorine
