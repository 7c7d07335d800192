#include "tests/orbit/LiteralState.h"

#include <cmath>

#include "orbit/mSatModels.h"

namespace halvorine::literal {

namespace {

using Vector = std::array<double, 3>;

constexpr double muEarth = 398600.8;  // km^3/s^2
constexpr double polarFactor = 1 - 0.003352779454167505;
constexpr double earthSpin = 7.2922e-5;          // radians per second
constexpr double earthSpinPerDay = 6.300388099;  // radians per day

double Dot(const Vector& a, const Vector& b) { return a[0] * b[0] + a[1] * b[1] + a[2] * b[2]; }

Vector Cross(const Vector& a, const Vector& b) {
  return {a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]};
}

/// Turned about the Earth's axis by the angle with that cosine and sine.
Vector Turned(double c, double s, const Vector& v) {
  return {c * v[0] - s * v[1], s * v[0] + c * v[1], v[2]};
}

/// Working elements of a set; a failure here is the caller's.
void TakeElements(const ElementSet& set) {
  WorkingElementsRecord& w = WorkingElements;
  w.Epoch = set.EpochJulianDay;
  w.E0 = set.Eccentricity;
  w.NDDot = Pow(10.0, set.MeanMotionDDotExponent) * set.MeanMotionDDotMantissa;
  w.M0 = set.MeanAnomaly * DegToRad;
  w.Node0 = set.RightAscension * DegToRad;
  w.Omega0 = set.ArgumentOfPerigee * DegToRad;
  w.I0 = set.Inclination * DegToRad;
  constexpr double c = TwoPi / 1440 / 1440;
  w.N0 = set.MeanMotion * c * 1440;
  w.NDot = set.MeanMotionDot * c;
  w.NDDot = w.NDDot * c / 1440;
  w.Bstar = Pow(10.0, set.BstarExponent) * set.BstarMantissa;
}

/// Whether the orbit counts as deep: 225 minutes or more. The test divides c, not the oblateness term that
/// it forms, by the axes; the term can fail all the same.
bool IsDeep(const WorkingElementsRecord& w) {
  constexpr double c = TwoPi / 1440 / 1440;
  const double a1 = Pow(Div(xke, w.N0), tothrd);
  static_cast<void>(Div(1.5 * ck2 * (3 * Square(std::cos(w.I0)) - 1), Pow(1 - Square(w.E0), 1.5)));
  const double d1 = Div(c, Square(a1));
  const double ao = (1 - (0.3333333333333333 + (1 + tothrdTerm * d1) * d1) * d1) * a1;
  const double d0 = Div(c, Square(ao));
  const double n = Div(w.N0, 1 + d0);
  return Div(TwoPi, n) / 1440 >= 0.15625;
}

void PlaceObserver(StateScratchRecord& k) {
  k.phi = static_cast<double>(Site.Latitude) * DegToRad;
  k.lambda = static_cast<double>(Site.Longitude) * DegToRad;
  k.h = static_cast<double>(Site.Height) / 1000;
  constexpr double a = EarthRadius;
  constexpr double b = polarFactor * a;
  const double cosPhi = std::cos(k.phi);
  const double sinPhi = std::sin(k.phi);
  const double cosLambda = std::cos(k.lambda);
  const double sinLambda = std::sin(k.lambda);
  const double w = Sqrt(Square(a) * Square(cosPhi) + Square(b) * Square(sinPhi));
  const double rho1 = Div(Square(a), w) + k.h;
  const double rho2 = Div(Square(b), w) + k.h;
  k.observer = {rho1 * cosPhi * cosLambda, rho1 * cosPhi * sinLambda, rho2 * sinPhi};
  k.observerVelocity = {-k.observer[1] * earthSpin, k.observer[0] * earthSpin, 0};
  k.zenith = {cosPhi * cosLambda, cosPhi * sinLambda, sinPhi};
  k.east = {-sinLambda, cosLambda, 0};
  k.north = {-sinPhi * cosLambda, -sinPhi * sinLambda, cosPhi};
}

void RunModel(bool deep, double minutes) {
  switch (Options.Propagator) {
    case 0:
      PropagatePlan13(minutes);
      break;
    case 1:
      PropagateSGP(minutes);
      break;
    case 2:
      PropagateSGP4(minutes);
      break;
    case 3:
      deep ? PropagateSDP4(minutes) : PropagateSGP4(minutes);
      break;
    default:
      break;
  }
}

void RotateToEarth(double julianDay, StateScratchRecord& k) {
  k.dt = julianDay - WorkingElements.Epoch;
  Attempt([&] { RunModel(k.deep, k.dt * 1440); });
  k.d0 = WorkingElements.Epoch - 2447891.5;
  k.theta0 = 99.4033 * DegToRad + k.d0 * earthSpinPerDay;
  k.theta = earthSpinPerDay * k.dt + k.theta0;
  k.cosTheta = std::cos(-k.theta);
  k.sinTheta = std::sin(-k.theta);
  k.position = Turned(k.cosTheta, k.sinTheta, PositionKm);
  k.velocity = Turned(k.cosTheta, k.sinTheta, VelocityKmS);
}

void ViewFromObserver(SatelliteState& state, StateScratchRecord& k) {
  for (std::size_t i = 0; i < 3; ++i) k.R[i] = k.position[i] - k.observer[i];
  Attempt([&] { state.Range = Finite(Sqrt(Dot(k.R, k.R))); });
  // u = R/|R|
  Attempt([&] {
    const double range = Finite(Sqrt(Dot(k.R, k.R)));
    k.u = {Div(k.R[0], range), Div(k.R[1], range), Div(k.R[2], range)};
  });
  state.TopoUp = Dot(k.u, k.zenith);
  state.TopoEast = Dot(k.u, k.east);
  state.TopoNorth = Dot(k.u, k.north);
  // RangeRate = (satellite velocity minus observer velocity) . u
  for (std::size_t i = 0; i < 3; ++i) k.relativeVelocity[i] = k.velocity[i] - k.observerVelocity[i];
  Attempt([&] { state.RangeRate = Finite(Dot(k.relativeVelocity, k.u)); });
}

void OsculatingOrbit(const ElementSet& set, SatelliteState& state, StateScratchRecord& k) {
  const Vector& r = PositionKm;
  const Vector& v = VelocityKmS;
  k.H = Cross(r, v);
  Attempt([&] { k.p = Finite(Dot(k.H, k.H) / muEarth); });
  Attempt([&] { state.Speed = Finite(Sqrt(Dot(v, v))); });
  Attempt([&] { state.GeocentricRadius = Finite(Sqrt(Dot(r, r))); });
  Attempt([&] {
    const double size = Finite(Sqrt(Dot(r, r)));
    state.Height = GeodeticHeight(state.GeocentricRadius, ArcSin(Div(r[2], size)));
  });
  // (1/mu)*((|v|^2 - mu/|r|)*r - (r . v)*v)
  Attempt([&] {
    const double radial = Finite(Dot(v, v)) - Div(muEarth, Finite(Sqrt(Dot(r, r))));
    const double along = Finite(Dot(r, v));
    Vector next;
    for (std::size_t i = 0; i < 3; ++i) next[i] = Finite(1 / muEarth * (radial * r[i] - along * v[i]));
    k.eccentricityVector = next;
  });
  Attempt([&] { k.e = Finite(Sqrt(Dot(k.eccentricityVector, k.eccentricityVector))); });
  Attempt([&] { state.PerigeeHeight = Div(k.p, 1 + k.e) - EarthRadius; });
  Attempt([&] { state.ApogeeHeight = Div(k.p, 1 - k.e) - EarthRadius; });
  Attempt([&] { k.a = Div(k.p, 1 - Square(k.e)); });
  // an orbit that does not close has no period
  Attempt([&] { state.Period = Finite(TwoPi * k.a * Sqrt(k.a / muEarth)); });

  const WorkingElementsRecord& w = WorkingElements;
  k.x = w.N0 * k.dt * 1440;
  Attempt([&] { k.y = Finite(Div(w.NDot, w.N0) * k.dt * 1440 + 1); });
  Attempt([&] { state.OrbitNumber = Finite((k.x * k.y + w.M0) / TwoPi + set.RevolutionNumber); });
}

void LookAngles(SatelliteState& state, StateScratchRecord& k) {
  state.Azimuth = ArcTan2Positive(state.TopoEast, state.TopoNorth) * RadToDeg;
  // fails straight overhead
  Attempt([&] { state.Elevation = ArcSin(state.TopoUp) * RadToDeg; });
  if (Options.Refraction != -1 || !(state.Elevation >= -0.6)) return;
  k.t = std::tan((10.3 / (state.Elevation + 5.11) + state.Elevation) * DegToRad);
  Attempt([&] { state.Elevation = state.Elevation + Div(1.02, k.t) / 60; });
}

void SubPoint(SatelliteState& state, const StateScratchRecord& k) {
  state.Longitude360 = ArcTan2Positive(k.position[1], k.position[0]) * RadToDeg;
  // fails over a pole
  Attempt([&] {
    state.LatitudeSigned = state.GeocentricLatitude =
        ArcSin(Div(k.position[2], state.GeocentricRadius)) * RadToDeg;
  });
  const bool south = state.LatitudeSigned < 0;
  state.LatitudeAbs = south ? -state.LatitudeSigned : state.LatitudeSigned;
  state.LatitudeHemisphere = south ? 'S' : 'N';
  const bool east = state.Longitude360 <= 180;
  state.LongitudeAbs = east ? state.Longitude360 : 360 - state.Longitude360;
  state.LongitudeEast = east ? state.LongitudeAbs : -state.LongitudeAbs;
  state.LongitudeHemisphere = east ? 'E' : 'W';
}

/// The Sun's place and the satellite's condition. The shadow is a cylinder without penumbra.
void SunAndCondition(SatelliteState& state, StateScratchRecord& k) {
  k.m = (0.98560027 * k.d0 + 356.6349) * DegToRad + 0.98560027 * k.dt * DegToRad;
  k.lon = 99.4033 * DegToRad + k.d0 * 0.017202791 + Pi + 0.017202791 * k.dt + 0.03343 * std::sin(k.m) +
          0.00034 * std::sin(2 * k.m);
  constexpr double eps = 23.4406 * DegToRad;
  k.S = {std::cos(k.lon), std::sin(k.lon) * std::cos(eps), std::sin(k.lon) * std::sin(eps)};
  Attempt([&] { k.q = Finite(Div(-Dot(k.S, PositionKm), state.GeocentricRadius)); });
  Attempt([&] { k.d = Sqrt(1 - Square(k.q)) * state.GeocentricRadius / EarthRadius; });
  const bool eclipsed = k.q >= 0 && k.d <= 1;
  k.earthS = Turned(k.cosTheta, k.sinTheta, k.S);
  // fails with the Sun overhead
  Attempt([&] { SunElevationRad = ArcSin(Dot(k.earthS, k.zenith)); });
  SunElevationDeg = SunElevationRad * RadToDeg;
  const bool bright = SunElevationDeg >= static_cast<double>(Options.SunThreshold);
  state.Condition = eclipsed ? Eclipsed : bright || state.Elevation <= 0 ? NotVisible : Visible;
}

void PhaseAndMagnitude(const ElementSet& set, SatelliteState& state, StateScratchRecord& k) {
  k.g = -Dot(k.u, k.earthS);
  // fails where Sun, satellite and observer stand in one line
  Attempt([&] { k.ang = ArcCos(k.g); });
  state.IlluminatedFraction = (1 + k.g) / 2;
  state.PhaseAngle = 180 - k.ang * RadToDeg;
  if (state.Condition == Eclipsed) {
    state.IlluminatedFraction = 0;
    state.Magnitude = {};
    return;
  }
  k.f = Options.PhaseLaw == 0 ? (1 + k.g) / 2 : (std::sin(k.ang) + (Pi - k.ang) * k.g) / 2;
  if (set.StandardMagnitude.empty()) {
    state.Magnitude = {MagnitudeValue::Kind::Unknown, 0};
    return;
  }
  Attempt([&] { k.xMagnitude = Finite(Div(Square(state.Range), k.f)); });
  // StandardMagnitude - 15.75 + 2.5*log(x)/log(10); fails where a phase law gives no light
  Attempt([&] {
    const double value =
        ParseNumber(set.StandardMagnitude) - 15.75 + 2.5 * Log(k.xMagnitude) / std::log(10.0);
    state.Magnitude = {MagnitudeValue::Kind::Number, Finite(value)};
  });
}

}  // namespace

void ComputeSatelliteState(int slot, double julianDay) {
  const ElementSet& set = ElementSets[slot];
  SatelliteState& state = SatelliteStates[slot];
  StateScratchRecord& k = StateScratch;
  TakeElements(set);
  k.deep = IsDeep(WorkingElements);
  PlaceObserver(k);
  RotateToEarth(julianDay, k);
  ViewFromObserver(state, k);
  OsculatingOrbit(set, state, k);
  LookAngles(state, k);
  SubPoint(state, k);
  SunAndCondition(state, k);
  PhaseAndMagnitude(set, state, k);
}

double StateObjective::At(double julianDay) {
  ComputeSatelliteState(PassSlot, julianDay);
  return PassThreshold - SatelliteStates[PassSlot].Elevation;
}

}  // namespace halvorine::literal
