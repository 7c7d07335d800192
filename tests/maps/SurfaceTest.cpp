#include <gtest/gtest.h>

#include <cmath>

#include "shell/base/mFailure.h"
#include "tests/fakes/RecordingSurface.h"

namespace halvorine {
namespace {

TEST(SurfaceTest, ClsWithoutAutoRedrawLeavesThePersistentLayer) {
  RecordingSurface surface;
  surface.AutoRedraw(false);
  surface.Cls();
  ASSERT_EQ(surface.drawn.size(), 1U);
  EXPECT_EQ(surface.drawn[0].layer, DrawLayer::Transient);
  surface.AutoRedraw(true);
  surface.Cls();
  EXPECT_EQ(surface.drawn.size(), 3U);
  EXPECT_EQ(surface.drawn[1].layer, DrawLayer::Persistent);
}

TEST(SurfaceTest, WhatIsNoNumberFailsAndDrawQuietlyEndsTheRoutine) {
  RecordingSurface surface;
  surface.Scale(0, 0, 1, 1);
  EXPECT_THROW(surface.Line(0, 0, std::nan(""), 0, White), RuntimeFailure);
  EXPECT_THROW(surface.Scale(1, 0, 1, 1), RuntimeFailure);
  bool after = false;
  DrawQuietly([&] {
    const CurveScope curve(surface, 0);
    surface.Line(0, 0, 1e308 * 10, 0, White);
    after = true;
  });
  EXPECT_FALSE(after);
  EXPECT_FALSE(surface.Open());
}

}  // namespace
}  // namespace halvorine
