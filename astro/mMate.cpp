#include "astro/mMate.h"

#include <string>

namespace halvorine {

void FailDivision(double dividend) {
  throw ArithmeticFailure("division of " + NumberText(dividend) + " by zero");
}
void FailRoot(double x) { throw ArithmeticFailure("square root of " + NumberText(x)); }
void FailPower(double base, double exponent) {
  throw ArithmeticFailure("power of " + NumberText(base) + " to " + NumberText(exponent));
}
void FailLogarithm(double x) { throw ArithmeticFailure("logarithm of " + NumberText(x)); }
void FailArc(double x) { throw ArithmeticFailure("arc of " + NumberText(x)); }
void FailOverflow(double x) { throw OverflowFailure("result " + NumberText(x) + " is no finite number"); }

double ModFloor(double x, double y) {
  const double r = x - Fix(Div(x, y)) * y;
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

double DmsToDecimal(double d, double m, double s) { return d + (m + s / 60) / 60; }

void DecimalToDms(double x, double& d, double& m, double& s) {
  d = Int(x);
  m = Int((x - d) * 60);
  s = RoundedByPicture(((x - d) * 60 - m) * 60);
  if (s == 60) {
    s = 0;
    m += 1;
  }
  if (m == 60) {  // also of itself, a hair below a whole degree
    m = 0;
    d += 1;
  }
}

void DecimalToDm(double x, double& d, double& m) {
  d = Int(x);
  m = RoundedByPicture((x - d) * 60);
  if (m == 60) {
    m = 0;
    d += 1;
  }
}

double GeodeticHeight(double radiusKm, double geocentricLatitudeRad) {
  constexpr double flatteningSquared = 1.1241130068287752e-5;
  constexpr double halfFlattening = 0.0016763897270837525;
  const double k = Div(EarthRadius, radiusKm);
  const double u = (k * 0.25 - 0.0625) * flatteningSquared * (1 - std::cos(4 * geocentricLatitudeRad));
  const double v = (1 - std::cos(2 * geocentricLatitudeRad)) * halfFlattening;
  return radiusKm + (u + v - 1) * EarthRadius;
}

namespace {

float SingleDiv(float x, float y) {
  if (y == 0) FailDivision(static_cast<double>(x));
  return x / y;
}

float SingleFinite(float x) {
  if (!std::isfinite(x)) FailOverflow(static_cast<double>(x));
  return x;
}

bool StrictlyBetween(float x, float a, float b) { return (x > a && x < b) || (x < a && x > b); }

}  // namespace

void ClipSegmentToCircle90(float x1, float y1, float& x2, float& y2) {
  const float m = SingleDiv(y1 - y2, x1 - x2);
  const float q = y1 - x1 * m;
  const float a = SingleFinite(m * m + 1);
  const float b = 2 * q * m;
  const float c = SingleFinite(q * q - 8100);
  const float discriminant = SingleFinite(b * b) - SingleFinite(4 * a * c);
  if (!(discriminant >= 0)) FailRoot(static_cast<double>(discriminant));
  const float root = std::sqrt(discriminant);
  const float xa = (-b + root) / (2 * a);
  const float xb = (-b - root) / (2 * a);
  const float ya = xa * m + q;
  const float yb = xb * m + q;
  if (StrictlyBetween(xa, x1, x2) && StrictlyBetween(ya, y1, y2)) {
    x2 = xa;
    y2 = ya;
  }
  if (StrictlyBetween(xb, x1, x2) && StrictlyBetween(yb, y1, y2)) {
    x2 = xb;
    y2 = yb;
  }
}

}  // namespace halvorine
