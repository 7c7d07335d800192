// What the orbit models share: their constants, the secular rates that SGP4 and SDP4 have in common, and the
// way from the perturbed elements to position and velocity. Names are those of Spacetrack Report No. 3.
// Each model is parted into what depends on the element set alone and what depends on the time, so that the
// first part can be kept; the values are the same either way.
#pragma once

#include <array>

#include "astro/mMate.h"
#include "orbit/mSat.h"

namespace halvorine {

constexpr double xke = 0.0743669161;        // root of GM, Earth radii and minutes
constexpr double xkmper = EarthRadius;      // km
constexpr double ck2 = 0.000541308;         // half of J2
constexpr double ck4x125 = 7.762359375e-7;  // 1.25 * ck4
constexpr double a3ovk2 = 2.53881e-6 / ck2;
constexpr double xj3 = -2.53881e-6;
constexpr double sAtmosphere = 1.01222928;
constexpr double qoms2t = 1.88027916e-9;
constexpr double e6a = 1e-6;
constexpr double tothrd = 0.6666666666666666;
constexpr double tothrdTerm = 134.0 / 81.0;

constexpr double Square(double x) { return x * x; }
constexpr double Cube(double x) { return x * x * x; }

/// Six results of a model, before they are taken over.
struct OrbitVectors {
  std::array<double, 3> position{};  // km
  std::array<double, 3> velocity{};  // km/s
};

/// What SGP4 and SDP4 derive from the elements in the same way.
struct SecularTerms {
  double M0 = 0, Node0 = 0, Omega0 = 0, E0 = 0, I0 = 0, N0 = 0, Bstar = 0;
  double cosio = 0, sinio = 0, theta2 = 0, x3thm1 = 0, x1mth2 = 0, x7thm1 = 0, eosq = 0, betao2 = 0,
         betao = 0;
  double xnodp = 0, aodp = 0;
  double s4 = 0, tsi = 0, eta = 0, etasq = 0, eeta = 0, coef = 0, coef1 = 0;
  double c1 = 0, c4 = 0, xhdot1 = 0;
  double xmdot = 0, omgdot = 0, xnodot = 0, xnodcf = 0, t2cof = 0, xlcof = 0, aycof = 0;
};

/// Fills the secular terms from working elements; raises ArithmeticFailure.
void InitSecular(const WorkingElementsRecord& elements, SecularTerms& terms);

/// What SGP4 keeps for an element set.
struct Sgp4Terms {
  SecularTerms secular;
  bool isimp = false;
  double c5 = 0, omgcof = 0, xmcof = 0, delmo = 0, sinmo = 0;
  double d2 = 0, d3 = 0, d4 = 0, t3cof = 0, t4cof = 0, t5cof = 0;
};

void InitSgp4(const WorkingElementsRecord& elements, Sgp4Terms& terms);
void RunSgp4(const Sgp4Terms& terms, double tsince, OrbitVectors& out);

/// Elements at an instant, on their way into short-period terms.
struct MeanPlace {
  double a = 0, e = 0, omega = 0, xnode = 0, xl = 0, xinc = 0;
};

/// Long-period terms, Kepler's equation, short-period terms and orientation, the same for SGP4 and SDP4.
void FinishPlace(const SecularTerms& terms, const MeanPlace& place, OrbitVectors& out);

/// Unit vectors towards the satellite and along its motion, times distance and speeds in Earth radii and
/// minutes; the last step of all three report models.
void OrientOrbit(double rk, double rdotk, double rfdotk, double uk, double xnodek, double xinck,
                 OrbitVectors& out);

/// Takes a model's six results over into PositionKm and VelocityKmS.
void TakeOver(const OrbitVectors& vectors);

}  // namespace halvorine
