#include "orbit/mSatCache.h"

#include <cmath>

#include "shell/base/mRecords.h"

namespace halvorine {

namespace {

constexpr double polarFactor = 1 - 0.003352779454167505;
constexpr double earthSpin = 7.2922e-5;          // radians per second
constexpr double earthSpinPerDay = 6.300388099;  // radians per day

Slots<SlotTerms, SlotCount> slotTerms;
ObserverTerms observerTerms;

std::array<double, 12> RawOf(const ElementSet& set) {
  return {set.EpochJulianDay,
          set.Inclination,
          set.RightAscension,
          set.Eccentricity,
          set.ArgumentOfPerigee,
          set.MeanAnomaly,
          set.MeanMotion,
          set.MeanMotionDot,
          set.MeanMotionDDotMantissa,
          set.BstarMantissa,
          set.MeanMotionDDotExponent,
          set.BstarExponent};
}

/// Working elements of a set; a failure here is the caller's.
void TakeElements(const ElementSet& set, WorkingElementsRecord& w) {
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

void InitModel(SlotTerms& terms) {
  switch (ModelOf(terms)) {
    case SlotModel::Plan13:
      InitPlan13(terms.elements, terms.plan13);
      break;
    case SlotModel::Sgp:
      InitSgp(terms.elements, terms.sgp);
      break;
    case SlotModel::Sgp4:
      InitSgp4(terms.elements, terms.sgp4);
      break;
    case SlotModel::Sdp4:
      InitSdp4(terms.elements, terms.sdp4);
      break;
    default:
      break;
  }
}

void MakeTerms(const ElementSet& set, SlotTerms& terms) {
  terms.valid = false;
  terms.raw = RawOf(set);
  terms.propagator = Options.Propagator;
  TakeElements(set, WorkingElements);
  terms.elements = WorkingElements;
  terms.deep = IsDeep(terms.elements);
  terms.modelFails = !Attempt([&] { InitModel(terms); });
  terms.d0 = terms.elements.Epoch - 2447891.5;
  terms.theta0 = 99.4033 * DegToRad + terms.d0 * earthSpinPerDay;
  terms.sunAnomaly = (0.98560027 * terms.d0 + 356.6349) * DegToRad;
  terms.sunLongitude = 99.4033 * DegToRad + terms.d0 * 0.017202791 + Pi;
  terms.motionChange.reset();
  Attempt([&] { terms.motionChange = Div(terms.elements.NDot, terms.elements.N0); });
  terms.valid = true;
}

/// Position of the model without its velocity, where it has a way to that.
std::array<double, 3> PositionOf(SlotTerms& terms, double minutes) {
  switch (ModelOf(terms)) {
    case SlotModel::Sgp4:
      return PositionAlone(terms.sgp4.secular, PlaceSgp4(terms.sgp4, minutes));
    case SlotModel::Sdp4:
      return PositionAlone(terms.sdp4.secular, PlaceSdp4(terms.sdp4, minutes, terms.elements));
    default:
      OrbitVectors vectors;
      RunModel(terms, minutes, vectors);
      return vectors.position;
  }
}

}  // namespace

SlotModel ModelOf(const SlotTerms& terms) {
  switch (terms.propagator) {
    case 0:
      return SlotModel::Plan13;
    case 1:
      return SlotModel::Sgp;
    case 2:
      return SlotModel::Sgp4;
    case 3:
      return terms.deep ? SlotModel::Sdp4 : SlotModel::Sgp4;
    default:
      return SlotModel::None;
  }
}

SlotTerms& TermsOf(int slot) {
  const ElementSet& set = ElementSets[slot];
  SlotTerms& terms = slotTerms[slot];
  if (!terms.valid || terms.propagator != Options.Propagator || terms.raw != RawOf(set))
    MakeTerms(set, terms);
  if (terms.magnitudeText != set.StandardMagnitude) {
    terms.magnitudeText = set.StandardMagnitude;
    terms.magnitude = ParseNumber(set.StandardMagnitude);
  }
  return terms;
}

const ObserverTerms& ObserverOf() {
  ObserverTerms& k = observerTerms;
  if (k.valid && k.latitude == Site.Latitude && k.longitude == Site.Longitude && k.height == Site.Height)
    return k;
  k.latitude = Site.Latitude;
  k.longitude = Site.Longitude;
  k.height = Site.Height;
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
  k.position = {rho1 * cosPhi * cosLambda, rho1 * cosPhi * sinLambda, rho2 * sinPhi};
  k.velocity = {-k.position[1] * earthSpin, k.position[0] * earthSpin, 0};
  k.zenith = {cosPhi * cosLambda, cosPhi * sinLambda, sinPhi};
  k.east = {-sinLambda, cosLambda, 0};
  k.north = {-sinPhi * cosLambda, -sinPhi * sinLambda, cosPhi};
  k.valid = true;
  return k;
}

void RunModel(SlotTerms& terms, double minutes, OrbitVectors& out) {
  switch (ModelOf(terms)) {
    case SlotModel::Plan13:
      RunPlan13(terms.plan13, minutes, out);
      break;
    case SlotModel::Sgp:
      RunSgp(terms.sgp, minutes, out);
      break;
    case SlotModel::Sgp4:
      RunSgp4(terms.sgp4, minutes, out);
      break;
    case SlotModel::Sdp4:
      FinishPlace(terms.sdp4.secular, PlaceSdp4(terms.sdp4, minutes, WorkingElements), out);
      break;
    default:
      break;
  }
}

double ElevationAlone(SlotTerms& terms, const ObserverTerms& observer, double julianDay) {
  const double dt = julianDay - terms.elements.Epoch;
  const std::array<double, 3> r = PositionOf(terms, dt * 1440);
  const double theta = earthSpinPerDay * dt + terms.theta0;
  const double c = std::cos(-theta);
  const double s = std::sin(-theta);
  const double x = c * r[0] - s * r[1] - observer.position[0];
  const double y = s * r[0] + c * r[1] - observer.position[1];
  const double z = r[2] - observer.position[2];
  const double range = Finite(Sqrt(x * x + y * y + z * z));
  const double up = Div(x, range) * observer.zenith[0] + Div(y, range) * observer.zenith[1] +
                    Div(z, range) * observer.zenith[2];
  const double elevation = ArcSin(up) * RadToDeg;
  if (Options.Refraction != -1 || !(elevation >= -0.6)) return elevation;
  const double t = std::tan((10.3 / (elevation + 5.11) + elevation) * DegToRad);
  return elevation + Div(1.02, t) / 60;
}

bool ElevationObjective::Start() {
  terms_ = &TermsOf(PassSlot);
  observer_ = &ObserverOf();
  return !terms_->modelFails && ModelOf(*terms_) != SlotModel::None;
}

double ElevationObjective::At(double julianDay) {
  ++Count;
  Pretend(julianDay);
  return PassThreshold - ElevationAlone(*terms_, *observer_, julianDay);
}

void ElevationObjective::Settle() {
  if (!settled_) ComputeSatelliteState(PassSlot, last_);
  settled_ = true;
}

}  // namespace halvorine
