#include "astro/mMate.h"

#include <array>
#include <cstdio>
#include <functional>

#include "tests/fakes/ReferenceTable.h"
#include "tests/fakes/TrappingArithmetic.h"

namespace halvorine {
namespace {

class Mate : public TrappingArithmetic {};

/// Compares a routine of some arguments and one result with its reference rows; a row may say that it fails.
void CheckRows(const std::string& kind, std::size_t arguments,
               const std::function<double(const ReferenceRow&)>& routine) {
  for (const ReferenceRow& row : ReferenceRows("kernel.txt", ' ', kind)) {
    SCOPED_TRACE(testing::PrintToString(row.cells));
    if (row.Fails(arguments + 1)) {
      EXPECT_THROW(routine(row), ArithmeticFailure);
      continue;
    }
    const double expected = row.Number(arguments + 1);
    EXPECT_NEAR(routine(row), expected, 1e-15 + 1e-14 * std::fabs(expected));
  }
}

TEST_F(Mate, AgreesWithReferenceValues) {
  CheckRows("modFloor", 2, [](const ReferenceRow& r) { return ModFloor(r.Number(1), r.Number(2)); });
  CheckRows("fmod2Pi", 1, [](const ReferenceRow& r) { return Fmod2Pi(r.Number(1)); });
  CheckRows("arcTan2Positive", 2,
            [](const ReferenceRow& r) { return ArcTan2Positive(r.Number(1), r.Number(2)); });
  CheckRows("arcSin", 1, [](const ReferenceRow& r) { return ArcSin(r.Number(1)); });
  CheckRows("arcCos", 1, [](const ReferenceRow& r) { return ArcCos(r.Number(1)); });
  CheckRows("dmsToDecimal", 3,
            [](const ReferenceRow& r) { return DmsToDecimal(r.Number(1), r.Number(2), r.Number(3)); });
  CheckRows("geodeticHeight", 2,
            [](const ReferenceRow& r) { return GeodeticHeight(r.Number(1), r.Number(2)); });
}

TEST_F(Mate, AxesHaveTheProgramsOwnAngles) {
  EXPECT_EQ(ModFloor(24, 24), 0);
  EXPECT_EQ(ModFloor(-24, 24), 0);
  EXPECT_EQ(Fmod2Pi(-TwoPi), 0);
  // the sum of a tiny negative rest and the whole turn rounds to the whole turn
  EXPECT_EQ(Fmod2Pi(-1e-17), 0);
  EXPECT_EQ(ArcTan2Positive(-1, 0), 4.71238899);
  EXPECT_EQ(ArcTan2Positive(0, 0), HalfPi);
  EXPECT_EQ(ArcTan2Positive(-9e-9, -1), 3.14159266);
}

TEST_F(Mate, SplitsDecimalsAroundTheFloorAndCarries) {
  for (const ReferenceRow& row : ReferenceRows("kernel.txt", ' ', "decimalToDms")) {
    double d = 0, m = 0, s = 0;
    DecimalToDms(row.Number(1), d, m, s);
    EXPECT_EQ((std::array{d, m, s}), (std::array{row.Number(2), row.Number(3), row.Number(4)}))
        << row.Text(1);
  }
  for (const ReferenceRow& row : ReferenceRows("kernel.txt", ' ', "decimalToDm")) {
    double d = 0, m = 0;
    DecimalToDm(row.Number(1), d, m);
    EXPECT_EQ((std::array{d, m}), (std::array{row.Number(2), row.Number(3)})) << row.Text(1);
  }
  double d = 0, m = 0, s = 0;
  DecimalToDms(-0.5, d, m, s);
  EXPECT_EQ((std::array{d, m, s}), (std::array{-1.0, 30.0, 0.0}));
}

TEST_F(Mate, ClipsInSinglePrecisionToTheBit) {
  for (const ReferenceRow& row : ReferenceRows("kernel.txt", ' ', "clipSegmentToCircle90")) {
    SCOPED_TRACE(testing::PrintToString(row.cells));
    const float x1 = ToSingle(row.Number(1)), y1 = ToSingle(row.Number(2));
    float x2 = ToSingle(row.Number(3)), y2 = ToSingle(row.Number(4));
    if (row.Fails(5)) {
      EXPECT_THROW(ClipSegmentToCircle90(x1, y1, x2, y2), ArithmeticFailure);
      continue;
    }
    ClipSegmentToCircle90(x1, y1, x2, y2);
    EXPECT_EQ(x2, ToSingle(row.Number(5)));
    EXPECT_EQ(y2, ToSingle(row.Number(6)));
  }
}

TEST_F(Mate, ClippingFailsWithoutAMeetingPointAndKeepsSegmentsInside) {
  float x = 100, y = 101;
  EXPECT_THROW(ClipSegmentToCircle90(-100, 100, x, y), ArithmeticFailure);
  EXPECT_EQ(x, 100);
  EXPECT_EQ(y, 101);
  // so steep that single precision overflows
  float steepX = 1e-30F, steepY = 120;
  EXPECT_THROW(ClipSegmentToCircle90(0, 0, steepX, steepY), ArithmeticFailure);
  float insideX = 30, insideY = -40;
  ClipSegmentToCircle90(-10, 20, insideX, insideY);
  EXPECT_EQ(insideX, 30);
  EXPECT_EQ(insideY, -40);
}

TEST_F(Mate, CheckedOperationsFailAtTheOperation) {
  EXPECT_THROW(Div(1, 0), ArithmeticFailure);
  EXPECT_THROW(Div(0, 0), ArithmeticFailure);
  EXPECT_THROW(Sqrt(-1e-300), ArithmeticFailure);
  EXPECT_THROW(Pow(-8, 1.0 / 3), ArithmeticFailure);
  EXPECT_THROW(Pow(0, -1), ArithmeticFailure);
  EXPECT_EQ(Pow(-2, 3), -8);
  EXPECT_EQ(Pow(0, 0), 1);
  EXPECT_THROW(Log(0), ArithmeticFailure);
  EXPECT_THROW(ArcSin(1), ArithmeticFailure);
  EXPECT_THROW(ArcCos(1.5), ArithmeticFailure);
  EXPECT_THROW(GeodeticHeight(0, 1), ArithmeticFailure);
  EXPECT_THROW(Finite(HUGE_VAL), OverflowFailure);
}

TEST_F(Mate, UncheckedDivisionByZeroEndsTheRun) {
  volatile double zero = 0;
  EXPECT_DEATH(std::printf("%g", 1 / zero), "");
  EXPECT_DEATH(std::printf("%g", std::sqrt(zero - 1)), "");
}

TEST_F(Mate, SkippedStatementLeavesItsTargetAlone) {
  double value = 7;
  EXPECT_FALSE(Attempt([&] { value = ArcSin(1); }));
  EXPECT_EQ(value, 7);
  EXPECT_TRUE(Attempt([&] { value = Sqrt(9); }));
  EXPECT_EQ(value, 3);
  EXPECT_THROW(Attempt([] { throw ConversionFailure("no number"); }), ConversionFailure);
}

}  // namespace
}  // namespace halvorine
