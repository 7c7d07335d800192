// What the orbit models share: their constants, the secular rates that SGP4 and SDP4 have in common, and the
// way from the perturbed elements to position and velocity. Names are those of Spacetrack Report No. 3.
// Each model is parted into what depends on the element set alone and what depends on the time, so that the
// first part can be kept; the values are the same either way.
#pragma once

#include <array>
#include <vector>

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

/// Elements at an instant, on their way into short-period terms.
struct MeanPlace {
  double a = 0, e = 0, omega = 0, xnode = 0, xl = 0, xinc = 0;
};

void InitSgp4(const WorkingElementsRecord& elements, Sgp4Terms& terms);
MeanPlace PlaceSgp4(const Sgp4Terms& terms, double tsince);
void RunSgp4(const Sgp4Terms& terms, double tsince, OrbitVectors& out);

/// What SGP keeps for an element set.
struct SgpTerms {
  double M0 = 0, Node0 = 0, Omega0 = 0, I0 = 0, N0 = 0, NDot = 0, NDDot = 0;
  double ao = 0, qo = 0, xlo = 0, d10 = 0, d20 = 0, d30 = 0, d40 = 0, omgdt = 0, xnodot = 0, c5 = 0, c6 = 0;
};

void InitSgp(const WorkingElementsRecord& elements, SgpTerms& terms);
void RunSgp(const SgpTerms& terms, double tsince, OrbitVectors& out);

/// What Plan13 keeps for an element set.
struct Plan13Terms {
  double M0 = 0, Node0 = 0, Omega0 = 0, E0 = 0, N0 = 0;
  double ns = 0, a0 = 0, b0 = 0, qd = 0, wd = 0, dc = 0, cosi = 0, sini = 0;
};

void InitPlan13(const WorkingElementsRecord& elements, Plan13Terms& terms);
void RunPlan13(const Plan13Terms& terms, double tsince, OrbitVectors& out);

/// A step of the integration of a resonance: longitude and motion, and their rates there.
struct Resonance {
  double atime = 0, xli = 0, xni = 0;
  double xndot = 0, xnddt = 0, xldot = 0;
};

/// State of the deep-space perturbations; names are those of the report's routine.
struct DeepStateRecord {
  // day of the lunar terms, and what depends on it alone
  double Preep = 0;
  double Zcosil = 0, Zsinil = 0, Zsinhl = 0, Zcoshl = 0, Zmol = 0, Zmos = 0, Zcosgl = 0, Zsingl = 0;

  double ds50 = 0, thgr = 0, xnq = 0, xqncl = 0, omegaq = 0, omgdot = 0, e0 = 0, i0 = 0, sinio = 0, cosio = 0;
  double sse = 0, ssi = 0, ssl = 0, ssg = 0, ssh = 0;
  double se2 = 0, se3 = 0, si2 = 0, si3 = 0, sl2 = 0, sl3 = 0, sl4 = 0, sgh2 = 0, sgh3 = 0, sgh4 = 0, sh2 = 0,
         sh3 = 0;
  double ee2 = 0, e3 = 0, xi2 = 0, xi3 = 0, xl2 = 0, xl3 = 0, xl4 = 0, xgh2 = 0, xgh3 = 0, xgh4 = 0, xh2 = 0,
         xh3 = 0;
  bool iresfl = false, isynfl = false;
  double d2201 = 0, d2211 = 0, d3210 = 0, d3222 = 0, d4410 = 0, d4422 = 0, d5220 = 0, d5232 = 0, d5421 = 0,
         d5433 = 0;
  double del1 = 0, del2 = 0, del3 = 0;
  double xlamo = 0, xfact = 0;
  // steps of the integration from the epoch on, forwards and backwards, as far as they were needed
  std::vector<Resonance> forwards, backwards;
};

/// Lunar and solar perturbations and the resonances of deep orbits. Entry 1 sets `state` up from `elements`;
/// entry 2 adds the secular part and entry 3 the periodic one to Xll, Omgasm, Xnodes, Em, Xinc and Xn of
/// `elements` for its T. The records are handed over so that a set's state can be kept. Other entries do
/// nothing.
void DeepSpacePerturbations(int entry, WorkingElementsRecord& elements, DeepStateRecord& state);

/// What SDP4 keeps for an element set.
struct Sdp4Terms {
  SecularTerms secular;
  DeepStateRecord deep;
};

void InitSdp4(WorkingElementsRecord& elements, Sdp4Terms& terms);
MeanPlace PlaceSdp4(Sdp4Terms& terms, double tsince, WorkingElementsRecord& elements);

/// A place after Kepler's equation and the short-period terms, before it is turned into vectors.
struct SolvedPlace {
  double a = 0, esine = 0, pl = 0, rInverse = 0, temp1 = 0, sin2u = 0, cos2u = 0;
  double rk = 0, uk = 0, xnodek = 0, xinck = 0;
};

/// Long-period terms, Kepler's equation, short-period terms and orientation, the same for SGP4 and SDP4.
SolvedPlace SolvePlace(const SecularTerms& terms, const MeanPlace& place);
void FinishPlace(const SecularTerms& terms, const MeanPlace& place, OrbitVectors& out);

/// The same position without its velocity, in km. Fails in a few more cases, where the velocity might.
std::array<double, 3> PositionAlone(const SecularTerms& terms, const MeanPlace& place);

/// Unit vectors towards the satellite and along its motion, times distance and speeds in Earth radii and
/// minutes; the last step of all three report models.
void OrientOrbit(double rk, double rdotk, double rfdotk, double uk, double xnodek, double xinck,
                 OrbitVectors& out);

/// Takes a model's six results over into PositionKm and VelocityKmS.
void TakeOver(const OrbitVectors& vectors);

}  // namespace halvorine
