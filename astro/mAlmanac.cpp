#include "astro/mAlmanac.h"

#include <algorithm>
#include <cmath>

#include "astro/mAstro.h"
#include "astro/mAstroRiseSet.h"
#include "astro/mMate.h"
#include "astro/mMoonDraw.h"

namespace halvorine {

namespace {

using RiseSetRoutine = decltype(SunRiseSet)&;

void ReadEvents(RiseSetRoutine routine, Date date, AlmanacEvent& rise, AlmanacEvent& set) {
  std::string note;
  // what was found before a failure is shown
  Attempt([&] {
    routine(static_cast<double>(Site.Latitude), static_cast<double>(Site.Longitude), -ZoneShift(), date,
            rise.Time, set.Time, rise.Azimuth, set.Azimuth, note);
  });
  for (AlmanacEvent* const event : {&rise, &set}) {
    if (event->Azimuth.empty())
      event->Time = note;
    else
      event->Azimuth += "°";
  }
}

/// Puts back what a computation of Sun and Moon for another instant changes.
class SkyInstantHold {
 public:
  SkyInstantHold() = default;
  ~SkyInstantHold() {
    ClockFields = clock_;
    SkyObjectTable[Sun] = sun_;
    SkyObjectTable[Moon] = moon_;
    SunLongitudeRad = longitude_;
    SunMeanAnomalyRad = anomaly_;
    SunRightAscension = rightAscension_;
    SunDeclination = declination_;
  }
  SkyInstantHold(const SkyInstantHold&) = delete;
  SkyInstantHold& operator=(const SkyInstantHold&) = delete;

 private:
  ClockFieldsRecord clock_ = ClockFields;
  SkyObject sun_ = SkyObjectTable[Sun], moon_ = SkyObjectTable[Moon];
  double longitude_ = SunLongitudeRad, anomaly_ = SunMeanAnomalyRad, rightAscension_ = SunRightAscension,
         declination_ = SunDeclination;
};

}  // namespace

Almanac AlmanacOf(Date date) {
  Almanac almanac;
  ReadEvents(SunRiseSet, date, almanac.SunRise, almanac.SunSet);
  ReadEvents(MoonRiseSet, date, almanac.MoonRise, almanac.MoonSet);
  return almanac;
}

double MoonPhaseAt(Date date) {
  const SkyInstantHold hold;
  UpdateSiderealTime(date);
  ComputeSun();
  ComputeMoon();
  return SkyObjectTable[Moon].PhaseAngle * RadToDeg;
}

double MoonLitPart(double phaseAngle) { return (1 - std::cos(phaseAngle * DegToRad)) / 2; }

void DrawMoonPicture(DrawSurface& surface, double phaseAngle) {
  constexpr double share = 0.42;  // of the shorter side
  surface.AutoRedraw(true);
  surface.ScaleModeTwips();
  surface.BackColor = Black;
  surface.Cls();
  DrawMoon(surface, surface.Width() / 2, surface.Height() / 2,
           share * std::min(surface.Width(), surface.Height()), phaseAngle);
}

}  // namespace halvorine
