#include <gtest/gtest.h>

#include <cmath>

#include "shell/base/mFailure.h"
#include "tests/fakes/RecordingSurface.h"

namespace halvorine {
namespace {

TEST(SurfaceTest, ScaleTurnsUserUnitsIntoTwipsAndBack) {
  RecordingSurface surface(3600, 1800);
  surface.Scale(-180, 90, 180, -90);
  EXPECT_EQ(surface.ScaleHeight(), -180);
  surface.Line(-180, 90, 0, 0, White);
  EXPECT_EQ(surface.drawn.at(0).from, (DeviceSpot{0, 0}));
  EXPECT_EQ(surface.drawn.at(0).to, (DeviceSpot{1800, 900}));
  EXPECT_EQ(surface.UserX(3600), 180);
  EXPECT_EQ(surface.UserY(0), 90);
  surface.ScaleModeTwips();
  EXPECT_EQ(surface.ScaleWidth(), 3600);
  EXPECT_EQ(surface.UserY(12), 12);
}

TEST(SurfaceTest, PenFollowsEachOperation) {
  RecordingSurface surface(1000, 1000);
  surface.Scale(0, 10, 10, 0);
  surface.Line(3, 4, White);
  EXPECT_EQ(surface.drawn.at(0).x1, 0);
  EXPECT_EQ(surface.CurrentY, 4);
  surface.Circle(5, 5, 2, White);
  EXPECT_EQ(surface.CurrentX, 5);
  surface.Print("ab");  // 180 twips are 1.8 units
  EXPECT_NEAR(surface.CurrentX, 6.8, 1e-12);
  EXPECT_NEAR(surface.TextWidth("ab"), 1.8, 1e-12);
  EXPECT_NEAR(surface.TextHeight("ab"), 1.8, 1e-12);
  surface.Cls();
  EXPECT_EQ(surface.CurrentX, 0);
}

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

TEST(SurfaceTest, CircleRadiusCountsAlongXAndTheAspectSquashesIt) {
  RecordingSurface surface(1000, 500);
  surface.Scale(0, 0, 100, 100);
  surface.Circle(0, 0, 10, White);
  surface.Circle(0, 0, 10, White, 0.5);
  surface.Circle(0, 0, 10, White, 2);
  const double radii[3][2] = {{100, 100}, {100, 50}, {50, 100}};
  for (std::size_t i = 0; i < 3; ++i) {
    EXPECT_EQ(surface.drawn.at(i).x2, radii[i][0]);
    EXPECT_EQ(surface.drawn.at(i).y2, radii[i][1]);
  }
}

TEST(SurfaceTest, BoxAndStretchedPictureTakeTheirCornersInAnyOrder) {
  RecordingSurface surface(100, 100);
  surface.Scale(0, 10, 10, 0);
  surface.Box(8, 2, 2, 8, White, true);
  EXPECT_EQ(surface.drawn.at(0).from, (DeviceSpot{20, 20}));
  EXPECT_EQ(surface.drawn.at(0).to, (DeviceSpot{80, 80}));
  surface.PaintPicture(FakePicture(), 0, 10, 10, -10);
  EXPECT_EQ(surface.drawn.at(1).to, (DeviceSpot{100, 100}));
  surface.PaintPicture(FakePicture(0, 0, true), 0, 0);
  EXPECT_EQ(surface.drawn.size(), 2U);
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
