// Checked arithmetic and the small numeric routines on which all astronomy and orbit computation stands.
// Every constant is truncated on purpose; results depend on the truncated values.
#pragma once

#include <cmath>

#include "astro/mConv.h"
#include "shell/base/mFailure.h"

namespace halvorine {

constexpr double TwoPi = 6.2831853;        // truncated on purpose
constexpr double Pi = 3.14159265;          // truncated on purpose
constexpr double HalfPi = 1.57079633;      // truncated on purpose
constexpr double DegToRad = 0.0174532925;  // truncated on purpose
constexpr double RadToDeg = 57.295779513;  // truncated on purpose
constexpr double EarthRadius = 6378.135;   // km

/// Raise the failures of the checked operations; apart, so that the fast path stays small.
[[noreturn]] void FailDivision(double dividend);
[[noreturn]] void FailRoot(double x);
[[noreturn]] void FailPower(double base, double exponent);
[[noreturn]] void FailLogarithm(double x);
[[noreturn]] void FailArc(double x);
[[noreturn]] void FailOverflow(double x);

/// x where it is a finite number; OverflowFailure otherwise.
inline double Finite(double x) {
  if (!std::isfinite(x)) FailOverflow(x);
  return x;
}

/// x/y; ArithmeticFailure for y = 0.
inline double Div(double x, double y) {
  if (y == 0 || y != y) FailDivision(x);
  return x / y;
}

/// Square root; ArithmeticFailure below 0.
inline double Sqrt(double x) {
  if (!(x >= 0)) FailRoot(x);
  return std::sqrt(x);
}

/// x to the power y; ArithmeticFailure for a broken power of a negative number and a negative power of 0.
inline double Pow(double x, double y) {
  if ((x < 0 && y != Fix(y)) || (x == 0 && y < 0) || x != x || y != y) FailPower(x, y);
  return std::pow(x, y);
}

/// Natural logarithm; ArithmeticFailure at 0 and below.
inline double Log(double x) {
  if (!(x > 0)) FailLogarithm(x);
  return std::log(x);
}

/// Arc sine and arc cosine in radians by the arctangent of a quotient: at 1 and -1 they fail, on purpose,
/// as the quotient does (ArithmeticFailure); beyond as the root does.
inline double ArcSin(double x) {
  const double root = 1 - x * x;
  if (!(root > 0)) FailArc(x);
  return std::atan(x / std::sqrt(root));
}
inline double ArcCos(double x) {
  const double root = 1 - x * x;
  if (!(root > 0)) FailArc(x);
  return std::atan(-x / std::sqrt(root)) + 2 * std::atan(1.0);
}

/// Runs a statement that may fail; an ArithmeticFailure skips it, and what it was to set keeps its value.
/// Gives whether the statement ran to its end.
template <class Statement>
inline bool Attempt(Statement&& statement) {
  try {
    statement();
    return true;
  } catch (const ArithmeticFailure&) {
    return false;
  }
}

/// x reduced to 0 up to y (y > 0): x - Fix(x/y)*y, plus y if that is negative.
double ModFloor(double x, double y);

/// x radians reduced to 0 up to TwoPi; a result of exactly TwoPi becomes 0.
double Fmod2Pi(double x);

/// Angle of (cosValue, sinValue) in radians, 0 to two pi, with the program's own values on the axes.
double ArcTan2Positive(double sinValue, double cosValue);

/// Degrees (or hours), minutes and seconds to decimals.
double DmsToDecimal(double d, double m, double s);

/// Splits a decimal around Int: -0.5 gives -1, 30, 0. Seconds are rounded, ties away from zero, and carry.
void DecimalToDms(double x, double& d, double& m, double& s);
/// Likewise with rounded minutes.
void DecimalToDm(double x, double& d, double& m);

/// Height above the ellipsoid, km, of a point at `radiusKm` from the centre of the Earth and the geocentric
/// latitude in radians. Fails for a radius of 0.
double GeodeticHeight(double radiusKm, double geocentricLatitudeRad);

/// Cuts the second end of a chart segment at the horizon circle of radius 90; the first end stays. Vertical
/// segments and those that miss the circle raise ArithmeticFailure. Single precision throughout.
void ClipSegmentToCircle90(float x1, float y1, float& x2, float& y2);

}  // namespace halvorine
