// The kernel without any check, for one benchmark: it stands before the real header on the include path of
// the twin library, whose other sources are the program's own. So the cost of the checks is measured on the
// same text.
#pragma once

#include <cmath>

#include "astro/mConv.h"
#include "shell/base/mFailure.h"

namespace halvorine {

constexpr double TwoPi = 6.2831853, Pi = 3.14159265, HalfPi = 1.57079633, DegToRad = 0.0174532925,
                 RadToDeg = 57.295779513, EarthRadius = 6378.135;

inline void FailRoot(double) {}
inline double Finite(double x) { return x; }
inline double Div(double x, double y) { return x / y; }
inline double Sqrt(double x) { return std::sqrt(x); }
inline double Pow(double x, double y) { return std::pow(x, y); }
inline double Log(double x) { return std::log(x); }
inline double ArcSin(double x) { return std::atan(x / std::sqrt(1 - x * x)); }
inline double ArcCos(double x) { return std::atan(-x / std::sqrt(1 - x * x)) + 2 * std::atan(1.0); }

template <class Statement>
inline bool Attempt(Statement&& statement) {
  statement();
  return true;
}

double ModFloor(double x, double y);
double Fmod2Pi(double x);
double ArcTan2Positive(double sinValue, double cosValue);
double DmsToDecimal(double d, double m, double s);
void DecimalToDms(double x, double& d, double& m, double& s);
void DecimalToDm(double x, double& d, double& m);
double GeodeticHeight(double radiusKm, double geocentricLatitudeRad);

}  // namespace halvorine
