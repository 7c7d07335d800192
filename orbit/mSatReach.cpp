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
  const double x = upright * std::cos(elevation) / radius;
  return x < 1 ? std::acos(x) - elevation : 0.0;
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
  if (std::fabs(last.a / first.a - 1) > 0.02 || std::fabs(last.e - first.e) > 0.002) return false;
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
  const double motion = xke / (least * std::sqrt(least)) * (1 + 2 * e + 4 * e * e);
  const double fastest = motion * 1440 + earthSpinPerDay * cosPhi_ + 0.2;  // radians per day
  for (std::size_t i = 0; i < nearest_.size(); ++i)
    nearest_[i] = std::cos(std::min(limit + fastest * step / std::ldexp(2.0, static_cast<int>(i)), halfTurn));
  rate_ = std::max(s.xmdot * 1440 - earthSpinPerDay * cosI_, 1.0);
  plain_ = e < 0.1 && threshold >= -0.5;
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
  return std::acos(std::clamp(edge / top, -1.0, 1.0)) / rate_;
}

}  // namespace halvorine
