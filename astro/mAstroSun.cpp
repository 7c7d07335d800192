#include "astro/mAstro.h"
#include "astro/mMate.h"

namespace halvorine {

void ComputeSun() {
  SkyObject& sun = SkyObjectTable[Sun];
  const double T = (ClockFields.JulianDayMidnight - 2415020.0) / 36525;
  const double L = 279.6966778 + 36000.76892 * T + 0.0003025 * (T * T);
  const double w = 281.2208444 + 1.719175 * T + 0.000452778 * (T * T);
  const double e = 0.01675104 - 4.18e-5 * T - 1.26e-7 * (T * T);
  const double n =
      ModFloor((ClockFields.JulianDayNow - ClockFields.JulianDayMidnight) * 360 / 365.242191, 360);
  // the anomaly is left unreduced; only a negative one gets a single turn
  double M = n + L - w;
  if (M < 0) M += 360;
  SunMeanAnomalyRad = M * DegToRad;

  double E = SunMeanAnomalyRad;
  double d = E - e * std::sin(E) - SunMeanAnomalyRad;
  while (std::fabs(d) > 1e-6) {  // tests the d from before the last correction
    d = E - e * std::sin(E) - SunMeanAnomalyRad;
    E = E - Div(d, 1 - e * std::cos(E));
  }
  const double v = 2 * std::atan(Pow(Div(1 + e, 1 - e), 0.5) * std::tan(E / 2)) * RadToDeg;
  SunLongitudeRad = ModFloor(w + v, 360) * DegToRad;

  const double f = Div(1 + e * std::cos(v * DegToRad), 1 - e * e);
  sun.Distance = Div(149598500, f);
  sun.AngularDiameter = f * sun.DiameterAtOneAU * 3600;

  EclipticToEquatorial(0, SunLongitudeRad, Obliquity, SunRightAscension, SunDeclination);
  sun.RightAscension = SunRightAscension;
  sun.Declination = SunDeclination;
  EquatorialToHorizontal(SunRightAscension, SunDeclination, sun.Azimuth, sun.Altitude);
}

}  // namespace halvorine
