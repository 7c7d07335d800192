#include "orbit/mSearch.h"
#include "tests/fakes/FakePlatform.h"
#include "tests/orbit/OrbitFixture.h"

namespace halvorine {
namespace {

/// A function told by the test, with a count of its values.
class Told : public Objective {
 public:
  explicit Told(double (*f)(double)) : f_(f) {}
  double At(double x) override {
    ++calls;
    return f_(x);
  }
  int calls = 0;

 private:
  double (*f_)(double);
};

class Search : public OrbitTest {
 protected:
  FakePlatform platform;
};

TEST_F(Search, ReferenceBracketsMinimaAndRoots) {
  Options.Propagator = 3;
  for (const ReferenceRow& line : ReferenceRows("orbit_search.txt", '|')) {
    if (line.Text(0) == "set") {
      Estrai_Dati_Satellite(1, "", line.Text(1), line.Text(2));
      PassSlot = 1;
      Observe(line.Number(3), line.Number(4), line.Number(5));
      PassThreshold = line.Number(6);
    } else if (line.Text(0) == "minimize") {
      double time = 0, value = 0;
      MinimizeBracketed(line.Number(1), line.Number(2), time, value);
      EXPECT_NEAR(time, line.Number(3), line.Number(5));
      EXPECT_NEAR(value, line.Number(4), 1e-7);
    } else if (line.Text(0) == "extend") {
      double end = line.Number(2);
      EXPECT_TRUE(ExtendBracket(line.Number(1), end));
      EXPECT_NEAR(end, line.Number(3), 1e-9);
    } else {
      double root = 0;
      FindRootBracketed(line.Number(1), line.Number(2), root);
      EXPECT_NEAR(root, line.Number(3), 3e-9);
    }
  }
  EXPECT_TRUE(platform.messages.empty());
}

TEST_F(Search, NoConvergenceShowsTheMessageOnceAndLeavesTheResults) {
  // a jump over many powers of ten keeps the root finder busy, noise the minimiser
  Told jump([](double x) { return x < 1e-9 ? -1e-300 : 1e300; });
  double root = 17;
  FindRootBracketed(jump, -1e9, 1e12, root);
  EXPECT_EQ(root, 17);
  ASSERT_EQ(platform.messages.size(), 1U);
  EXPECT_EQ(platform.messages[0].text, "Errore nella routine di previsione passaggi!");
  EXPECT_EQ(platform.messages[0].kind, MessageKind::Warning);
  Told steep([](double x) { return -1 / (x + 1e-300); });
  double time = 18, value = 19;
  MinimizeBracketed(steep, 0, 1e10, time, value);
  EXPECT_EQ(time, 18);
  EXPECT_EQ(value, 19);
  EXPECT_EQ(platform.messages.size(), 2U);
}

TEST_F(Search, BracketsThatCannotGrowEnd) {
  Told positive([](double) { return 1.0; });
  double end = 2458139.501;
  EXPECT_FALSE(ExtendBracket(positive, 2458139.5, end));
  EXPECT_GT(end - 2458139.5, 1000);
  EXPECT_LT(end - 2458139.5, 1300);
  end = 3;
  EXPECT_FALSE(ExtendBracket(positive, 3, end));
  Told broken([](double x) { return x > 2 ? std::numeric_limits<double>::quiet_NaN() : 1.0; });
  end = 1.5;
  EXPECT_FALSE(ExtendBracket(broken, 1, end));
  EXPECT_LT(broken.calls, 10);
}

}  // namespace
}  // namespace halvorine
