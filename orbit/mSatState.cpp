// Each formula below is one statement in the sense of the failure rule: the bare ones cannot fail, the ones
// inside Attempt can, and then what they were to set keeps the value of the computation before.
#include <cmath>

#include "orbit/mSatCache.h"

namespace halvorine {

namespace {

using Vector = std::array<double, 3>;

constexpr double muEarth = 398600.8;             // km^3/s^2
constexpr double earthSpinPerDay = 6.300388099;  // radians per day

double Dot(const Vector& a, const Vector& b) { return a[0] * b[0] + a[1] * b[1] + a[2] * b[2]; }

Vector Cross(const Vector& a, const Vector& b) {
  return {a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]};
}

/// Turned about the Earth's axis by the angle with that cosine and sine.
Vector Turned(double c, double s, const Vector& v) {
  return {c * v[0] - s * v[1], s * v[0] + c * v[1], v[2]};
}

void PlaceObserver(StateScratchRecord& k) {
  const ObserverTerms& observer = ObserverOf();
  k.phi = observer.phi;
  k.lambda = observer.lambda;
  k.h = observer.h;
  k.observer = observer.position;
  k.observerVelocity = observer.velocity;
  k.zenith = observer.zenith;
  k.east = observer.east;
  k.north = observer.north;
}

void RotateToEarth(SlotTerms& terms, double julianDay, StateScratchRecord& k) {
  k.dt = julianDay - WorkingElements.Epoch;
  if (!terms.modelFails && ModelOf(terms) != SlotModel::None) {
    Attempt([&] {
      OrbitVectors vectors;
      RunModel(terms, k.dt * 1440, vectors);
      TakeOver(vectors);
    });
  }
  k.d0 = terms.d0;
  k.theta0 = terms.theta0;
  k.theta = earthSpinPerDay * k.dt + k.theta0;
  // of -theta: the cosine is even and the sine odd to the bit, and of one angle both cost as much as one
  k.cosTheta = std::cos(k.theta);
  k.sinTheta = -std::sin(k.theta);
  k.position = Turned(k.cosTheta, k.sinTheta, PositionKm);
  k.velocity = Turned(k.cosTheta, k.sinTheta, VelocityKmS);
}

void ViewFromObserver(SatelliteState& state, StateScratchRecord& k) {
  for (std::size_t i = 0; i < 3; ++i) k.R[i] = k.position[i] - k.observer[i];
  const double range = std::sqrt(Dot(k.R, k.R));
  Attempt([&] { state.Range = Finite(range); });
  // u = R/|R|
  Attempt([&] {
    const double size = Finite(range);
    k.u = {Div(k.R[0], size), Div(k.R[1], size), Div(k.R[2], size)};
  });
  state.TopoUp = Dot(k.u, k.zenith);
  state.TopoEast = Dot(k.u, k.east);
  state.TopoNorth = Dot(k.u, k.north);
  // RangeRate = (satellite velocity minus observer velocity) . u
  for (std::size_t i = 0; i < 3; ++i) k.relativeVelocity[i] = k.velocity[i] - k.observerVelocity[i];
  Attempt([&] { state.RangeRate = Finite(Dot(k.relativeVelocity, k.u)); });
}

void OsculatingOrbit(const ElementSet& set, const SlotTerms& terms, SatelliteState& state,
                     StateScratchRecord& k) {
  const Vector& r = PositionKm;
  const Vector& v = VelocityKmS;
  const double radius = std::sqrt(Dot(r, r));
  const double v2 = Dot(v, v);
  k.latitudeKnown = false;
  k.H = Cross(r, v);
  Attempt([&] { k.p = Finite(Dot(k.H, k.H) / muEarth); });
  Attempt([&] { state.Speed = Finite(std::sqrt(v2)); });
  Attempt([&] { state.GeocentricRadius = Finite(radius); });
  Attempt([&] {
    k.latitude = ArcSin(Div(r[2], Finite(radius)));
    k.latitudeKnown = true;
    state.Height = GeodeticHeight(state.GeocentricRadius, k.latitude);
  });
  // (1/mu)*((|v|^2 - mu/|r|)*r - (r . v)*v)
  Attempt([&] {
    const double radial = Finite(v2) - Div(muEarth, Finite(radius));
    const double along = Finite(Dot(r, v));
    Vector next;
    for (std::size_t i = 0; i < 3; ++i) next[i] = Finite(1 / muEarth * (radial * r[i] - along * v[i]));
    k.eccentricityVector = next;
  });
  Attempt([&] { k.e = Finite(Sqrt(Dot(k.eccentricityVector, k.eccentricityVector))); });
  state.PerigeeHeight = Div(k.p, 1 + k.e) - EarthRadius;  // cannot fail: e is a root
  Attempt([&] { state.ApogeeHeight = Div(k.p, 1 - k.e) - EarthRadius; });
  Attempt([&] { k.a = Div(k.p, 1 - Square(k.e)); });
  // an orbit that does not close has no period
  Attempt([&] { state.Period = Finite(TwoPi * k.a * Sqrt(k.a / muEarth)); });

  const WorkingElementsRecord& w = WorkingElements;
  k.x = w.N0 * k.dt * 1440;
  if (terms.motionChange) Attempt([&] { k.y = Finite(*terms.motionChange * k.dt * 1440 + 1); });
  Attempt([&] { state.OrbitNumber = Finite((k.x * k.y + w.M0) / TwoPi + set.RevolutionNumber); });
}

void LookAngles(SatelliteState& state, StateScratchRecord& k) {
  state.Azimuth = ArcTan2Positive(state.TopoEast, state.TopoNorth) * RadToDeg;
  // fails straight overhead
  Attempt([&] { state.Elevation = ArcSin(state.TopoUp) * RadToDeg; });
  if (Options.Refraction != -1 || !(state.Elevation >= -0.6)) return;
  k.t = std::tan((10.3 / (state.Elevation + 5.11) + state.Elevation) * DegToRad);
  state.Elevation = state.Elevation + Div(1.02, k.t) / 60;  // cannot fail: the angle ends 6 minutes past 90
}

void SubPoint(SatelliteState& state, const StateScratchRecord& k) {
  state.Longitude360 = ArcTan2Positive(k.position[1], k.position[0]) * RadToDeg;
  // ArcSin(Earth-fixed z/GeocentricRadius): mostly the arc that the height took, for turning leaves z as it
  // is
  if (k.latitudeKnown)
    state.LatitudeSigned = state.GeocentricLatitude = k.latitude * RadToDeg;
  else  // over a pole
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
void SunAndCondition(const SlotTerms& terms, SatelliteState& state, StateScratchRecord& k) {
  k.m = terms.sunAnomaly + 0.98560027 * k.dt * DegToRad;
  k.lon = terms.sunLongitude + 0.017202791 * k.dt + 0.03343 * std::sin(k.m) + 0.00034 * std::sin(2 * k.m);
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

void PhaseAndMagnitude(const SlotTerms& terms, SatelliteState& state, StateScratchRecord& k) {
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
  if (terms.magnitudeText.empty()) {
    state.Magnitude = {MagnitudeValue::Kind::Unknown, 0};
    return;
  }
  Attempt([&] { k.xMagnitude = Finite(Div(Square(state.Range), k.f)); });
  // StandardMagnitude - 15.75 + 2.5*log(x)/log(10); fails where a phase law gives no light
  Attempt([&] {
    const double value = terms.magnitude - 15.75 + 2.5 * Log(k.xMagnitude) / std::log(10.0);
    state.Magnitude = {MagnitudeValue::Kind::Number, Finite(value)};
  });
}

}  // namespace

void ComputeSatelliteState(int slot, double julianDay) {
  const ElementSet& set = ElementSets[slot];
  SatelliteState& state = SatelliteStates[slot];
  StateScratchRecord& k = StateScratch;
  SlotTerms& terms = TermsOf(slot);
  WorkingElements = terms.elements;
  k.deep = terms.deep;
  PlaceObserver(k);
  RotateToEarth(terms, julianDay, k);
  ViewFromObserver(state, k);
  OsculatingOrbit(set, terms, state, k);
  LookAngles(state, k);
  SubPoint(state, k);
  SunAndCondition(terms, state, k);
  PhaseAndMagnitude(terms, state, k);
}

void ResetOrbitRecords() {
  WorkingElements = {};
  PositionKm = VelocityKmS = {};
  SunElevationDeg = SunElevationRad = 0;
  StateScratch = {};
}

}  // namespace halvorine
