// The three one-dimensional routines of the pass search: a minimiser, a root finder (both after Brent,
// "Algorithms for Minimization without Derivatives") and the widening of a bracket. They work on one
// objective: the wanted elevation less the satellite's, so that a pass is where it is negative.
#pragma once

#include <cstdint>

namespace halvorine {

inline std::int16_t PassSlot = 1;  // slot whose satellite is searched
inline double PassThreshold = 0;   // wanted elevation, degrees

/// A function of time, Julian day to degrees.
class Objective {
 public:
  virtual ~Objective() = default;
  virtual double At(double julianDay) = 0;
  /// Makes sure that the shared records hold the state of the last place that was asked for.
  virtual void Settle() {}
};

/// PassThreshold less the elevation of PassSlot, by a whole state computation for each value. Failures of the
/// preparation pass through.
class StateObjective : public Objective {
 public:
  double At(double julianDay) override;
};

/// Instant and value of the least value between two Julian days. More than 50 rounds show one message and
/// leave both results as they were.
void MinimizeBracketed(Objective& f, double lower, double upper, double& bestTime, double& bestValue);
void MinimizeBracketed(double lower, double upper, double& bestTime, double& bestValue);

/// Instant at which the objective crosses zero between two Julian days whose values are meant to differ in
/// sign; to about 0.1 ms. More than 50 rounds show one message and leave the result as it was.
void FindRootBracketed(Objective& f, double lower, double upper, double& result);
void FindRootBracketed(double lower, double upper, double& result);
/// The same where the values at both ends are known already.
void FindRootBracketed(Objective& f, double lower, double fLower, double upper, double fUpper,
                       double& result);

/// Moves `end` away from `start` by a quarter of their distance at a time until the objective has another
/// sign there; `start` itself is never moved. False where there is no such end: the interval has no width, a
/// value is not finite, or the interval has grown beyond 1000 days (or 10,000 rounds).
bool ExtendBracket(Objective& f, double start, double& end);
/// The same where the value at the start is known; gives that at the end.
bool ExtendBracket(Objective& f, double start, double fStart, double& end, double& fEnd);
bool ExtendBracket(double start, double& end);

}  // namespace halvorine
