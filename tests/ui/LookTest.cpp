#include "controls/qtLook.h"

#include <gtest/gtest.h>

namespace halvorine {
namespace {

TEST(Look, NightIsToldByThePalette) {
  EXPECT_TRUE(IsNight(NightPalette()));
  EXPECT_FALSE(IsNight(DayPalette()));
}

}  // namespace
}  // namespace halvorine
