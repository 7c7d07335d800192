// The state of a satellite with everything computed anew at every call: what the kept terms must equal to the
// bit.
#pragma once

#include "orbit/mSearch.h"

namespace halvorine::literal {

/// Writes the same shared records as the program's own.
void ComputeSatelliteState(int slot, double julianDay);

/// The objective of the search by these states.
class StateObjective : public Objective {
 public:
  double At(double julianDay) override;
};

}  // namespace halvorine::literal
