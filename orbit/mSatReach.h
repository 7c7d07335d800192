// Where a near-earth orbit cannot rise above an elevation: bounds from the place of its plane and of the
// satellite along it, wide enough for every periodic term. They save evaluations that cannot find anything.
#pragma once

#include "orbit/mSatCache.h"

namespace halvorine {

class Reach {
 public:
  /// Makes the bounds of a set for a span of Julian days and a threshold in degrees. False where they do not
  /// hold: another model than SGP4, an eccentric, decaying or distorted orbit, a threshold far below the
  /// horizon.
  bool Start(const SlotTerms& terms, const ObserverTerms& observer, double threshold, double tStart,
             double tEnd);

  /// True only where the elevation stays below the threshold from t0 to t1.
  bool CannotRise(double t0, double t1) const;

  /// Whether the elevation falls steadily on both sides of a culmination as long as it is above the
  /// threshold.
  bool HasPlainPasses() const { return plain_; }

  /// Days from a culmination of the given elevation to the crossing of the threshold, roughly.
  double HalfPass(double culmination) const;

 private:
  bool Sane(const MeanPlace& place) const;
  bool StaysBelow(double t0, double t1) const;
  double ArgumentOfLatitude(double minutes) const;

  const Sgp4Terms* terms_ = nullptr;
  double epoch_ = 0, theta0_ = 0, lambda_ = 0;
  double sinPhi_ = 0, cosPhi_ = 0;
  double sinI_ = 0, cosI_ = 0;
  double upright_ = 0;     // km from the centre of the Earth up to the observer
  double limit_ = 0;       // geocentric angle of satellite and zenith at the threshold, radians
  double halfCentre_ = 0;  // bound of the equation of the centre, radians
  double axis_ = 0;        // km
  double rate_ = 0;        // radians per day along the orbit as seen from the turning Earth
  double threshold_ = 0;
  bool plain_ = false;
};

}  // namespace halvorine
