#include "orbit/mSatReach.h"

#include <algorithm>
#include <cmath>

namespace halvorine {

namespace {

constexpr double earthSpinPerDay = 6.300388099;
constexpr double halfTurn = 3.14159265358979;

// margins, all far above what they stand for
constexpr double radiusMargin = 40;       // km, short-period terms of the radius
constexpr double angleMargin = 0.02;      // radians: oblate Earth, short-period terms of plane and node
constexpr double refractionMargin = 0.9;  // degrees

/// Geocentric angle between zenith and satellite at an elevation.
double CentralAngle(double upright, double radius, double elevation) {
  const double x = Div(upright * std::cos(elevation), radius);
  return x < 1 ? std::acos(x) - elevation : 0.0;
}

/// Whether the elements at an instant are still those of the orbit, and drag that is out of its range has not
/// taken them over: place and speed would then no longer belong together.
bool IsItself(const SecularTerms& terms, const MeanPlace& place) {
  return std::fabs(Div(place.a, terms.aodp) - 1) < 0.05 && std::fabs(place.e - terms.E0) < 0.03;
}

}  // namespace

bool Reach::Sane(const MeanPlace& place) const {
  return place.a > 0.98 && place.a < 3 && std::fabs(place.e) < 0.25 &&
         place.a * (1 - std::fabs(place.e)) > 0.98;
}

bool Reach::Start(const SlotTerms& terms, const ObserverTerms& observer, double threshold, double tStart,
                  double tEnd, double step) {
  if (ModelOf(terms) != SlotModel::Sgp4 || terms.deep) return false;
  const double lowest = Options.Refraction == -1 ? threshold - refractionMargin : threshold;
  if (!(lowest > -30 && lowest < 89)) return false;
  terms_ = &terms.sgp4;
  epoch_ = terms.elements.Epoch;
  theta0_ = terms.theta0;
  const MeanPlace first = PlaceSgp4(terms.sgp4, (tStart - epoch_) * 1440);
  const MeanPlace last = PlaceSgp4(terms.sgp4, (tEnd - epoch_) * 1440);
  if (!Sane(first) || !Sane(last)) return false;
  if (std::fabs(Div(last.a, first.a) - 1) > 0.02 || std::fabs(last.e - first.e) > 0.002) return false;
  if (!IsItself(terms.sgp4.secular, first)) return false;
  e_ = std::max(std::fabs(first.e), std::fabs(last.e));
  const double e = e_ + 0.004;
  const double a = std::max(first.a, last.a);
  axis_ = a * xkmper;
  const double radius = axis_ * 1.005 * (1 + e) + radiusMargin;
  upright_ = observer.position[0] * observer.zenith[0] + observer.position[1] * observer.zenith[1] +
             observer.position[2] * observer.zenith[2];
  threshold_ = threshold * DegToRad;
  // the equation of the centre is taken to its second term
  const double beyondCentre = 2 * 0.004 + 1.5 * e * e * e;
  const double limit = CentralAngle(upright_, radius, lowest * DegToRad) + angleMargin + beyondCentre;
  lambda_ = observer.lambda;
  sinPhi_ = std::sin(observer.phi);
  cosPhi_ = std::cos(observer.phi);
  const SecularTerms& s = terms.sgp4.secular;
  sinI_ = s.sinio;
  cosI_ = s.cosio;
  const double least = std::min(first.a, last.a) * 0.99;
  const double motion = Div(xke, least * std::sqrt(least)) * (1 + 2 * e + 4 * e * e);
  const double fastest = motion * 1440 + earthSpinPerDay * cosPhi_ + 0.2;  // radians per day
  for (std::size_t i = 0; i < nearest_.size(); ++i)
    nearest_[i] = std::cos(std::min(limit + fastest * step / std::ldexp(2.0, static_cast<int>(i)), halfTurn));
  rate_ = std::max(s.xmdot * 1440 - earthSpinPerDay * cosI_, 1.0);
  plain_ = threshold >= -0.5;
  return true;
}

double Reach::CosineToZenith(double t) const {
  const Sgp4Terms& k = *terms_;
  const SecularTerms& s = k.secular;
  const double tsq = t * t;
  double templ = s.t2cof * tsq;
  if (!k.isimp) templ += k.t3cof * tsq * t + tsq * tsq * (k.t4cof + t * k.t5cof);
  const double anomaly = s.M0 + s.xmdot * t + s.xnodp * templ;
  const double sinM = std::sin(anomaly);
  const double cosM = std::cos(anomaly);
  const double u = anomaly + s.Omega0 + s.omgdot * t + e_ * sinM * (2 + 2.5 * e_ * cosM);
  const double site =
      lambda_ + theta0_ + earthSpinPerDay * (t / 1440) - (s.Node0 + (s.xnodot + s.xnodcf * t) * t);
  const double sinSite = std::sin(site);
  const double cosSite = std::cos(site);
  const double sinU = std::sin(u);
  const double cosU = std::cos(u);
  // the zenith in the plane of the orbit, from the node
  const double along = cosPhi_ * cosSite;
  const double across = cosPhi_ * sinSite * cosI_ + sinPhi_ * sinI_;
  return along * cosU + across * sinU;
}

bool Reach::StaysBelow(double m0, double m1, std::size_t halvings) const {
  const double middle = (m0 + m1) / 2;
  if (CosineToZenith(middle) < nearest_[halvings]) return true;
  if (++halvings == nearest_.size()) return false;
  return StaysBelow(m0, middle, halvings) && StaysBelow(middle, m1, halvings);
}

bool Reach::CannotRise(double t0, double t1) const {
  return StaysBelow((t0 - epoch_) * 1440, (t1 - epoch_) * 1440, 0);
}

double Reach::HalfPass(double culmination) const {
  const double edge = std::cos(CentralAngle(upright_, axis_, threshold_));
  const double top = std::cos(CentralAngle(upright_, axis_, culmination * DegToRad));
  return Div(std::acos(std::clamp(Div(edge, top), -1.0, 1.0)), rate_);
}

double SpanWithin(SlotTerms& terms, const ObserverTerms& observer, double julianDay, double degrees) {
  constexpr double mu = 398600.8;
  constexpr double spin = 7.2922e-5;  // radians per second
  const SlotModel model = ModelOf(terms);
  const bool isDeep = model == SlotModel::Sdp4;
  // in the low form of the periodic terms the node can jump
  if (model != SlotModel::Sgp4 && !(isDeep && terms.elements.I0 > 0.21)) return 0;
  const double spare = (degrees - (Options.Refraction == -1 ? refractionMargin : 0)) * DegToRad - angleMargin;
  if (!(spare > 0)) return 0;
  const double minutes = (julianDay - terms.elements.Epoch) * 1440;
  const SecularTerms& secular = isDeep ? terms.sdp4.secular : terms.sgp4.secular;
  const MeanPlace place =
      isDeep ? PlaceSdp4(terms.sdp4, minutes, terms.elements) : PlaceSgp4(terms.sgp4, minutes);
  if (!IsItself(secular, place)) return 0;
  OrbitVectors k;
  FinishPlace(secular, place, k);
  const auto& [r, v] = k;
  const double r2 = r[0] * r[0] + r[1] * r[1] + r[2] * r[2];
  const double v2 = v[0] * v[0] + v[1] * v[1] + v[2] * v[2];
  const double rv = r[0] * v[0] + r[1] * v[1] + r[2] * v[2];
  const double radius = std::sqrt(r2);
  const double axis = Div(1.0, Div(2.0, radius) - v2 / mu);
  const double e2 = 1 - Div(r2 * v2 - rv * rv, mu * axis);
  if (!(axis > 0 && e2 >= 0 && e2 < 0.98)) return 0;
  const double e = std::sqrt(e2);
  const double perigee = axis * (1 - e);
  if (!(perigee > 6400)) return 0;
  const double speed = 1.02 * std::sqrt(Div(2 * mu, perigee)) + spin * axis * (1 + e);
  const double range = 0.99 * (radius - std::sqrt(observer.position[0] * observer.position[0] +
                                                  observer.position[1] * observer.position[1] +
                                                  observer.position[2] * observer.position[2]));
  // the angle moves by less than speed/(range - speed*t)
  return Div(std::max(range, 0.0) * (1 - std::exp(-spare)), speed) / 86400;
}

}  // namespace halvorine
