// The search against passes that were found in another way in the positions of another program.
#include "prediction/mPass.h"
#include "tests/fakes/FakePlatform.h"
#include "tests/orbit/OrbitFixture.h"

namespace halvorine {
namespace {

class Rows : public PassWatcher {
 public:
  void Found(const PassRecord& pass) override { passes.push_back(pass); }
  std::vector<PassRecord> passes;
};

class OutsidePasses : public OrbitTest {
 protected:
  OutsidePasses() { Options.Propagator = 3; }
  FakePlatform platform;
};

/// A pass in seconds after the start of the run, and degrees.
struct Outside {
  double rise, riseAzimuth, culmination, elevation, set, setAzimuth;
};

double AngleApart(double a, double b) { return std::fabs(std::remainder(a - b, 360)); }

/// Whether an instant is one at which the walk with its quarters of a revolution looks.
bool IsStepOfTheWalk(double second) {
  const double step = 86400 / ElementSets[1].MeanMotion / 4;
  return std::fabs(std::remainder(second, step)) < 0.01;
}

void Compare(const Outside& own, const Outside& outside, bool near, const std::string& where) {
  // what moves slowly, or hardly clears the threshold, crosses it slowly
  const bool grazing = outside.elevation < 10.6;
  const double seconds = !near ? 4 : grazing ? 3 : 1;
  const double degrees = grazing ? 0.6 : 0.1;
  EXPECT_NEAR(own.rise, outside.rise, seconds) << where;
  EXPECT_NEAR(own.set, outside.set, seconds) << where;
  EXPECT_LT(AngleApart(own.riseAzimuth, outside.riseAzimuth), degrees) << where;
  EXPECT_LT(AngleApart(own.setAzimuth, outside.setAzimuth), degrees) << where;
  // of several highest places within a stride of the walk only one is found; it is hours long in deep space
  if (!near) return;
  EXPECT_NEAR(own.elevation, outside.elevation, 0.1) << where;
  // slopes are taken over ten seconds: a step of the walk less than five behind the top stands for it
  EXPECT_NEAR(own.culmination, outside.culmination, IsStepOfTheWalk(own.culmination) ? 5 : 1) << where;
}

/// One for each stretch above the threshold.
void KeepStretches(std::vector<Outside>& passes) {
  const auto same = [](const Outside& a, const Outside& b) { return std::fabs(a.set - b.set) < 1; };
  passes.erase(std::unique(passes.begin(), passes.end(), same), passes.end());
}

TEST_F(OutsidePasses, ThirtySatellitesOverThreeSitesNoneMissingNoneExtra) {
  const std::vector<ReferenceRow> table = ReferenceRows("outside_passes.txt", '|');
  std::size_t compared = 0, neverSetting = 0, cut = 0;
  for (std::size_t at = 0; at < table.size();) {
    const ReferenceRow& run = table[at++];
    const std::string where = run.Text(1) + " at latitude " + run.Text(5);
    const bool near = run.Text(4) == "near";
    const double span = run.Number(9) * 86400, covered = run.Number(10);
    Estrai_Dati_Satellite(1, run.Text(1), run.Text(2), run.Text(3));
    Observe(run.Number(5), run.Number(6), run.Number(7));
    PassQuery query;
    query.tStart = run.Number(8);
    query.tEnd = query.tStart + run.Number(9);
    query.threshold = 10;
    query.azimuthMax = 400;
    Rows rows;
    EXPECT_TRUE(PassEngine(query, rows).RunSlots(1, 1));
    std::vector<Outside> own, outside;
    for (const PassRecord& pass : rows.passes) {
      const auto second = [&](const PassEvent& e) { return (e.julianDay - query.tStart) * 86400; };
      // the outside places of what comes down end before the span does
      if (covered < span && second(pass.culmination) > covered) continue;
      own.push_back({second(pass.rise), pass.rise.azimuth, second(pass.culmination),
                     pass.culmination.elevation, second(pass.set), pass.set.azimuth});
    }
    for (; at < table.size() && table[at].Text(0) != "run"; ++at) {
      const ReferenceRow& row = table[at];
      outside.push_back(
          {row.Number(0), row.Number(1), row.Number(2), row.Number(3), row.Number(4), row.Number(5)});
    }
    // what stands still in the sky is left out of the search
    if (HasNearlyConstantElevation(ElementSets[1])) outside.clear();
    if (!near) KeepStretches(own);
    if (!near) KeepStretches(outside);
    ASSERT_EQ(own.size(), outside.size()) << where;
    for (std::size_t i = 0; i < own.size(); ++i) {
      Compare(own[i], outside[i], near, where + ", " + NumberText(outside[i].culmination));
      const bool fromStart = own[i].rise == 0, toEnd = own[i].set == span;
      neverSetting += fromStart && toEnd ? 1 : 0;
      cut += fromStart != toEnd ? 1 : 0;
    }
    compared += own.size();
  }
  EXPECT_GT(compared, 1100U);
  EXPECT_GT(neverSetting, 0U);
  EXPECT_GT(cut, 4U);
  EXPECT_TRUE(platform.messages.empty());
}

}  // namespace
}  // namespace halvorine
