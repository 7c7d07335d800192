#include "orbit/mSatReach.h"

#include <algorithm>
#include <cmath>

namespace halvorine {

namespace {

constexpr double earthSpinPerDay = 6.300388099;
constexpr double fullTurn = 6.283185307179586;

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
                  double tEnd) {
  if (ModelOf(terms) != SlotModel::Sgp4 || terms.deep) return false;
  const double lowest = Options.Refraction == -1 ? threshold - refractionMargin : threshold;
  if (!(lowest > -30 && lowest < 89)) return false;
  terms_ = &terms.sgp4;
  epoch_ = terms.elements.Epoch;
  theta0_ = terms.theta0;
  const MeanPlace first = PlaceSgp4(terms.sgp4, (tStart - epoch_) * 1440);
  const MeanPlace last = PlaceSgp4(terms.sgp4, (tEnd - epoch_) * 1440);
  if (!Sane(first) || !Sane(last) || std::fabs(last.a / first.a - 1) > 0.02) return false;
  const double e = std::max(std::fabs(first.e), std::fabs(last.e)) + 0.004;
  const double a = std::max(first.a, last.a);
  halfCentre_ = 2 * e + 1.4 * e * e + 0.01;
  axis_ = a * xkmper;
  const double radius = axis_ * 1.005 * (1 + e) + radiusMargin;
  upright_ = observer.position[0] * observer.zenith[0] + observer.position[1] * observer.zenith[1] +
             observer.position[2] * observer.zenith[2];
  threshold_ = threshold * DegToRad;
  limit_ = CentralAngle(upright_, radius, lowest * DegToRad) + angleMargin;
  lambda_ = observer.lambda;
  sinPhi_ = std::sin(observer.phi);
  cosPhi_ = std::cos(observer.phi);
  sinI_ = terms.sgp4.secular.sinio;
  cosI_ = terms.sgp4.secular.cosio;
  rate_ = std::max(terms.sgp4.secular.xmdot * 1440 - earthSpinPerDay * cosI_, 1.0);
  plain_ = e < 0.1 && threshold >= -0.5;
  return true;
}

double Reach::ArgumentOfLatitude(double t) const {
  const Sgp4Terms& k = *terms_;
  const SecularTerms& s = k.secular;
  const double tsq = t * t;
  double templ = s.t2cof * tsq;
  if (!k.isimp) templ += k.t3cof * tsq * t + tsq * tsq * (k.t4cof + t * k.t5cof);
  return s.M0 + s.Omega0 + (s.xmdot + s.omgdot) * t + s.xnodp * templ;
}

bool Reach::StaysBelow(double t0, double t1) const {
  const SecularTerms& s = terms_->secular;
  const double middle = ((t0 + t1) / 2 - epoch_) * 1440;
  const double u0 = ArgumentOfLatitude((t0 - epoch_) * 1440);
  const double u1 = ArgumentOfLatitude((t1 - epoch_) * 1440);
  const double node = s.Node0 + (s.xnodot + s.xnodcf * middle) * middle;
  const double site = lambda_ + theta0_ + earthSpinPerDay * (middle / 1440) - node;
  // the zenith in the plane of the orbit, from the node
  const double along = cosPhi_ * std::cos(site);
  const double across = cosPhi_ * std::sin(site) * cosI_ + sinPhi_ * sinI_;
  const double apart = std::fabs(std::remainder((u0 + u1) / 2 - std::atan2(across, along), fullTurn));
  const double reach = std::fabs(u1 - u0) / 2 + halfCentre_;
  const double inPlane = std::sqrt(along * along + across * across);
  const double nearest = apart <= reach ? inPlane : inPlane * std::cos(apart - reach);
  const double turning = (t1 - t0) / 2 * (earthSpinPerDay * cosPhi_ + 0.2);
  return nearest < std::cos(std::min(limit_ + turning, fullTurn / 2));
}

bool Reach::CannotRise(double t0, double t1) const {
  if (StaysBelow(t0, t1)) return true;
  constexpr int parts = 6;
  for (int i = 0; i < parts; ++i)
    if (!StaysBelow(t0 + (t1 - t0) * i / parts, t0 + (t1 - t0) * (i + 1) / parts)) return false;
  return true;
}

double Reach::HalfPass(double culmination) const {
  const double edge = std::cos(CentralAngle(upright_, axis_, threshold_));
  const double top = std::cos(CentralAngle(upright_, axis_, culmination * DegToRad));
  return std::acos(std::clamp(edge / top, -1.0, 1.0)) / rate_;
}

}  // namespace halvorine
