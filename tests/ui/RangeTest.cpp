// The range tool by mouse, keys and what it tells.
#include "controls/RangeTool.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QMouseEvent>
#include <QTest>
#include <limits>
#include <utility>
#include <vector>

#include "shell/base/qtForms.h"

namespace halvorine {
namespace {

// 214 pixels wide, so that a pixel of its way is half a unit of 0 to 100.

class Range : public testing::Test {
 protected:
  Range() {
    tool_.resize(214, 40);
    tool_.show();
    QObject::connect(&tool_, &RangeTool::Change,
                     [this](double lower, double upper) { changes_.emplace_back(lower, upper); });
  }
  void Drag(const char* thumb, int pixels) {
    auto* const held = Control<QWidget>(&tool_, thumb);
    const QPoint start(5, 8);
    QTest::mousePress(held, Qt::LeftButton, {}, start);
    QMouseEvent move(QEvent::MouseMove, start + QPoint(pixels, 0),
                     held->mapToGlobal(start + QPoint(pixels, 0)), Qt::NoButton, Qt::LeftButton, {});
    QCoreApplication::sendEvent(held, &move);
    QTest::mouseRelease(held, Qt::LeftButton, {}, start);
  }
  std::pair<double, double> Values() const { return {tool_.LowerValue(), tool_.UpperValue()}; }

  RangeTool tool_;
  std::vector<std::pair<double, double>> changes_;
};

TEST_F(Range, ThumbsAreDraggedWithinTheTrackAndNotPastEachOther) {
  EXPECT_EQ(Values(), std::pair(25.0, 75.0));
  EXPECT_EQ(Control<QWidget>(&tool_, "picBottom")->x(), 50);
  const struct {
    const char* thumb;
    int pixels;
    double lower, upper;
  } rows[] = {{"picBottom", 21, 36, 75}, {"picTop", -30, 36, 60},   {"picBottom", 1000, 60, 60},
              {"picTop", -1000, 60, 60}, {"picTop", 5000, 60, 100}, {"picBottom", -5000, 0, 100},
              {"picBottom", 0, 0, 100}};
  for (const auto& row : rows) {
    Drag(row.thumb, row.pixels);
    EXPECT_EQ(Values(), std::pair(row.lower, row.upper)) << row.thumb << " " << row.pixels;
    EXPECT_EQ(changes_.empty() ? Values() : changes_.back(), Values());
  }
  EXPECT_EQ(changes_.size(), 5U) << "a value that does not move is not told";
  QTest::mouseMove(Control<QWidget>(&tool_, "picTop"), QPoint(0, 5));
  EXPECT_EQ(Values(), std::pair(0.0, 100.0)) << "only a held thumb moves";
}

TEST_F(Range, LockedThumbsStay) {
  tool_.SetLowerLocked(true);
  Drag("picBottom", 30);
  QTest::keyClick(Control<QWidget>(&tool_, "picBottom"), Qt::Key_Right);
  Control<RangeThumb>(&tool_, "picBottom")->TakeTold(3);
  EXPECT_EQ(Values(), std::pair(25.0, 75.0));
  Drag("picTop", 20);
  EXPECT_EQ(Values(), std::pair(25.0, 85.0));
  EXPECT_TRUE(QTest::qWaitForWindowExposed(&tool_));
}

TEST_F(Range, KeysAndOddValuesStopAtTheLimits) {
  auto* const lower = Control<QWidget>(&tool_, "picBottom");
  const std::pair<Qt::Key, double> keys[] = {{Qt::Key_Right, 26},  {Qt::Key_Up, 27},       {Qt::Key_Left, 26},
                                             {Qt::Key_PageUp, 36}, {Qt::Key_PageDown, 26}, {Qt::Key_Home, 0},
                                             {Qt::Key_Left, 0},    {Qt::Key_End, 75},      {Qt::Key_Up, 75}};
  for (const auto& [key, value] : keys) {
    QTest::keyClick(lower, key);
    EXPECT_EQ(tool_.LowerValue(), value) << key;
  }
  QAccessibleInterface* const told = QAccessible::queryAccessibleInterface(lower);
  EXPECT_EQ(told->valueInterface()->maximumValue().toDouble(), 75);
  told->valueInterface()->setCurrentValue(12.0);
  EXPECT_EQ(told->text(QAccessible::Value), QStringLiteral("12"));
  tool_.SetLowerValue(std::numeric_limits<double>::quiet_NaN());
  EXPECT_EQ(tool_.LowerValue(), 0);
  tool_.SetUpperValue(1e300);
  EXPECT_EQ(tool_.UpperValue(), 100);
  tool_.SetRange(10, -5);
  EXPECT_EQ(Values(), std::pair(10.0, 10.0));
  Drag("picTop", 50);
  tool_.resize(5, 5);
  Drag("picBottom", 50);
  EXPECT_EQ(Values(), std::pair(10.0, 10.0));
}

}  // namespace
}  // namespace halvorine
