// The kernel routines of the twin library, without checks, and its one entry.
#include "astro/mMate.h"
#include "bench/unchecked/Twin.h"
#include "orbit/mSat.h"

namespace halvorine {

double ModFloor(double x, double y) {
  const double r = x - Fix(x / y) * y;
  return r < 0 ? r + y : r;
}

double Fmod2Pi(double x) {
  const double r = ModFloor(x, TwoPi);
  return r == TwoPi ? 0.0 : r;
}

double ArcTan2Positive(double sinValue, double cosValue) {
  constexpr double onAxis = 1e-8;
  if (std::fabs(sinValue) < onAxis) return (1 - Sgn(cosValue)) * HalfPi;
  const double q = (2 - Sgn(sinValue)) * HalfPi;
  if (std::fabs(cosValue) < onAxis) return q;
  return q + (std::fabs(std::atan(sinValue / cosValue)) - HalfPi) * Sgn(sinValue) * Sgn(cosValue);
}

double GeodeticHeight(double radiusKm, double geocentricLatitudeRad) {
  const double k = EarthRadius / radiusKm;
  const double u = (k * 0.25 - 0.0625) * 1.1241130068287752e-5 * (1 - std::cos(4 * geocentricLatitudeRad));
  const double v = (1 - std::cos(2 * geocentricLatitudeRad)) * 0.0016763897270837525;
  return radiusKm + (u + v - 1) * EarthRadius;
}

}  // namespace halvorine

void TwinTake(const std::string& name, const std::string& line1, const std::string& line2) {
  using namespace halvorine;  // NOLINT: the name is another one in this library
  MagnitudeTable.assign(100000, "");
  Options.Propagator = 2;
  Options.SunThreshold = -10;
  Site.Latitude = 45.47F;
  Site.Longitude = 9.19F;
  Site.Height = 133;
  Estrai_Dati_Satellite(1, name, line1, line2);
}

double TwinState(double julianDay) {
  halvorine::ComputeSatelliteState(1, julianDay);
  return halvorine::SatelliteStates[1].Azimuth;
}
