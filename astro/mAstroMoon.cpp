#include "astro/mAstro.h"
#include "astro/mMate.h"

namespace halvorine {

void ComputeMoon() {
  SkyObject& moon = SkyObjectTable[Moon];
  const double d = ClockFields.JulianDayNow - 2447891.5;
  double l = ModFloor(13.1763966 * d + moon.LongitudeAtEpoch, 360);
  double mm = ModFloor(l - 0.1114041 * d - moon.PerihelionLongitude, 360);
  const double nn = ModFloor(moon.NodeLongitude - 0.0529539 * d, 360);
  l = l * DegToRad;
  mm = mm * DegToRad;

  const double c = l - SunLongitudeRad;
  const double ev = 1.2739 * std::sin(2 * c - mm) * DegToRad;
  const double ae = 0.1858 * std::sin(SunMeanAnomalyRad) * DegToRad;
  const double a3 = 0.37 * std::sin(SunMeanAnomalyRad) * DegToRad;
  const double mp = ev + mm - ae - a3;
  const double ec = 6.2886 * std::sin(mp) * DegToRad;

  const double e = moon.Eccentricity;
  const double q = Div(1 - e * e, 1 + e * std::cos(mp + ec));
  moon.Distance = q * 384401;
  moon.AngularDiameter = Div(0.00904255084425, q) * RadToDeg * 3600;

  const double a4 = 0.214 * std::sin(2 * mp) * DegToRad;
  const double lp = ev + l + ec + ae + a4;  // the textbook subtracts ae; the program adds it, on purpose
  const double v = 0.6583 * std::sin(2 * (lp - SunLongitudeRad)) * DegToRad;
  const double lpp = lp + v;
  const double np = (nn - 0.16 * std::sin(SunMeanAnomalyRad)) * DegToRad;
  const double i = moon.OrbitInclination * DegToRad;

  const double y = std::sin(lpp - np) * std::cos(i);
  const double x = std::cos(lpp - np);
  const double longitude = (ArcTan2Positive(y, x) * RadToDeg + np * RadToDeg) * DegToRad;
  const double latitude = ArcSin(std::sin(lpp - np) * std::sin(i));
  EclipticToEquatorial(latitude, longitude, Obliquity, moon.RightAscension, moon.Declination);
  EquatorialToHorizontal(moon.RightAscension, moon.Declination, moon.Azimuth, moon.Altitude);

  moon.PhaseAngle = lpp - SunLongitudeRad;
  if (moon.PhaseAngle < 0) moon.PhaseAngle += TwoPi;
}

}  // namespace halvorine
