#include "sky/mSkySat.h"

#include <cfenv>
#include <cmath>
#include <limits>
#include <utility>
#include <vector>

#include "tests/fakes/FoundPass.h"
#include "tests/sky/SkyFixture.h"

namespace halvorine {
namespace {

using Kind = Primitive::Kind;

class PassCharts : public SkyTest {
 protected:
  PassCharts() {
    std::feholdexcept(&before_);  // what is no number comes in here on purpose
    pictures.sun = FakePicture(0, 0, true);
    CurrentDate = DateOf(2022, 6, 16) + 0.5;
    Estrai_Dati_Satellite(1, "ISS (ZARYA)",
                          "1 25544U 98067A   22166.98291539  .00007389  00000+0  13721-3 0  9996",
                          "2 25544  51.6447 342.5501 0004194 242.9750 255.0959 15.50021518344998");
    ActiveCount = 1;
    UpdateSiderealTime(CurrentDate);
    pass = FirstPass(1, false).value();
    view = EmptyPassView();
    view.Sky.Pictures = &pictures;
  }
  ~PassCharts() override { std::fesetenv(&before_); }
  void Draw(PassView& which) {
    surface.drawn.clear();
    Genera_mappa(surface, which);
  }
  int First(Kind kind, Colour colour, int from = 0) const {
    for (auto i = static_cast<std::size_t>(from); i < surface.drawn.size(); ++i)
      if (surface.drawn[i].kind == kind && surface.drawn[i].colour == colour) return static_cast<int>(i);
    return -1;
  }

  PassChart pass;
  PassView view;
  RecordingSurface surface{7200, 7200};

 private:
  std::fenv_t before_{};
};

TEST_F(PassCharts, StepsFollowTheDuration) {
  struct Case {
    int minutes, step;
  };
  for (const Case& row :
       {Case{0, 15}, Case{9, 15}, Case{10, 30}, Case{20, 60}, Case{60, 120}, Case{719, 120}, Case{720, 180}})
    EXPECT_EQ(PassStep(row.minutes), row.step) << row.minutes;
  for (const auto& [second, shift] : {std::pair{0, 15}, {1, 14}, {15, 0}, {59, 1}})
    EXPECT_EQ(SecondsToFirstPoint(DateOf(2022, 6, 14) + (3600 * 22 + second) / 86400.0), shift) << second;
}

TEST_F(PassCharts, TrackHasItsPointsAtWholeQuartersAndWhereTheSatelliteStands) {
  TakePass(view, pass);
  const SkyTrack& track = view.Sky.Track;
  ASSERT_TRUE(track.Start);
  ASSERT_GT(track.Points.size(), 10U);
  EXPECT_EQ(track.Start->Time, pass.rise);
  Date before = 0;
  for (const TrackPoint& point : track.Points) {
    EXPECT_EQ(PartsOf(point.Time).second % 15, 0);
    EXPECT_TRUE(before == 0 || std::abs((point.Time - before) * 86400 - 15) < 1e-3);
    before = point.Time;
    // the place on the disc by the textbook's stereographic projection, seen from the south
    UpdateSiderealTime(point.Time);
    ComputeSatelliteState(1, ClockFields.JulianDayNow);
    const double radius = 90 * std::tan((90 - SatelliteStates[1].Elevation) * M_PI / 360);
    const double azimuth = SatelliteStates[1].Azimuth * M_PI / 180;
    view.Sky.Projection.Stereographic = true;
    ProjectTrack(view.Sky.Track, view.Sky.Projection);
    EXPECT_NEAR(static_cast<double>(point.X), -radius * std::sin(azimuth), 0.02);
    EXPECT_NEAR(static_cast<double>(point.Y), radius * std::cos(azimuth), 0.02);
  }
  EXPECT_GE((pass.set - track.Points.back().Time) * 86400, -0.5);
  EXPECT_LT((pass.set - track.Points.back().Time) * 86400, 15);
  EXPECT_GT(view.Events[1].Altitude, view.Events[0].Altitude);
  EXPECT_NEAR(view.Events[2].Altitude, 10, 0.1);
}

TEST_F(PassCharts, NothingOfThePresentChanges) {
  // what a pass search in the middle of its run would leave behind
  Estrai_Dati_Satellite(ScratchSlot, "OTHER",
                        "1 20580U 90037B   22166.72259426  .00001958  00000+0  10487-3 0  9993",
                        "2 20580  28.4685 180.2715 0002576  22.0506 128.8465 15.10573416565956");
  ComputeSkyObjects(CurrentDate);
  ComputeSatelliteState(ScratchSlot, ClockFields.JulianDayNow);
  ComputeSatelliteState(1, ClockFields.JulianDayNow);
  TickEnabled = SatelliteTickEnabled = true;
  const StateScratchRecord scratch = StateScratch;
  const double julianDay = ClockFields.JulianDayNow, sun = SkyObjectTable[Sun].Altitude,
               sunAltitude = SunElevationDeg;
  const double first = SatelliteStates[1].Range, other = SatelliteStates[ScratchSlot].Range;
  TakePass(view, pass);
  Draw(view);
  EXPECT_EQ(StateScratch, scratch);
  EXPECT_EQ(ClockFields.JulianDayNow, julianDay);
  EXPECT_EQ(SkyObjectTable[Sun].Altitude, sun);
  EXPECT_EQ(SunElevationDeg, sunAltitude);
  EXPECT_EQ(SatelliteStates[1].Range, first);
  EXPECT_EQ(SatelliteStates[ScratchSlot].Range, other);
  EXPECT_EQ(ElementSets[ScratchSlot].CatalogNumber, "20580");
  EXPECT_TRUE(TickEnabled && SatelliteTickEnabled);
  EXPECT_EQ(platform.waitDepth, 0);
}

TEST_F(PassCharts, TwoChartsKeepTheirOwnOptionsPlaceAndMoment) {
  PassView other = EmptyPassView();
  other.Sky.Pictures = &pictures;
  TakePass(view, pass);
  Draw(view);
  const std::size_t plain = surface.drawn.size();
  PassChart noon = pass;
  noon.selected = std::floor(pass.selected) + 13.0 / 24;
  other.Sky.Switches.Grid = other.Sky.Switches.ConstellationNames = true;
  other.Sky.Projection = {false, FacingNorth};
  other.Sky.StarCount = 23;
  Site.Latitude = -33.9F;
  TakePass(other, noon);
  Draw(other);
  EXPECT_GE(First(Kind::Ellipse, Rgb(0, 0, 196)), 0) << "the sky of the day";
  EXPECT_NE(surface.drawn.size(), plain);
  Draw(view);
  EXPECT_EQ(surface.drawn.size(), plain) << "the other chart and the observer's move change nothing here";
  EXPECT_EQ(Site.Latitude, -33.9F);
}

TEST_F(PassCharts, WhatCannotBeShownIsLeftOut) {
  Draw(view);
  EXPECT_TRUE(surface.Lines(Rgb(255, 0, 0)).empty()) << "no element set: the sky only";
  EXPECT_GE(First(Kind::Point, Rgb(220, 220, 220)), 0);
  const double nan = std::numeric_limits<double>::quiet_NaN();
  for (const auto& [rise, set] : std::vector<std::pair<Date, Date>>{
           {pass.set, pass.rise}, {pass.rise, nan}, {pass.rise, pass.rise + 4000}, {-1e300, 1e300}}) {
    PassChart broken = pass;
    broken.rise = rise;
    broken.set = set;
    TakePass(view, broken);
    EXPECT_TRUE(view.Sky.Track.Points.empty()) << rise << " " << set;
    Draw(view);
  }
  PassChart dead = pass;
  dead.elements.MeanMotion = 0;
  TakePass(view, dead);
  Draw(view);
  EXPECT_TRUE(view.Sky.Track.Points.empty());
  PassChart brief = pass;
  brief.set = pass.rise + 1.0 / 86400;
  TakePass(view, brief);
  EXPECT_EQ(view.Sky.Track.Points.size(), 1U) << "a pass that ends before its first quarter has its start";
}

TEST_F(PassCharts, PressSelectsThePointNearBy) {
  TakePass(view, pass);
  const TrackPoint& point = view.Sky.Track.Points[5];
  const double x = static_cast<double>(point.X), y = static_cast<double>(point.Y);
  EXPECT_EQ(PassPointAt(view, x, y), 5);
  const double outward = 1 + 3.1 / std::hypot(x, y), beyond = 1 + 3.3 / std::hypot(x, y);
  EXPECT_TRUE(PassPointAt(view, x * outward, y * outward));
  EXPECT_FALSE(PassPointAt(view, -x * beyond, -y * beyond));
  EXPECT_FALSE(PassPointAt(view, 101, y));
  EXPECT_FALSE(PassPointAt(view, std::nan(""), y));
}

}  // namespace
}  // namespace halvorine
