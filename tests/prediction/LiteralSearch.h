// The pass search with a whole state, computed anew, for every value it looks at: what the program's own
// search must equal to the bit. Knows no filters, no yields and no cancelling.
#pragma once

#include <span>
#include <vector>

#include "prediction/mPass.h"
#include "tests/orbit/LiteralState.h"

namespace halvorine::literal {

class LiteralSearch {
 public:
  explicit LiteralSearch(const PassQuery& query) : query_(query) {}
  void RunDatabase(std::span<const DatabaseEntry> entries);
  std::vector<PassRecord> passes;

 private:
  void SearchEntry(const DatabaseEntry& entry);
  void SearchSlot();
  void PREDICI(double tStart, double tEnd, double step, double delta);
  void EVENTI(double tStart, double tEnd, double tFound);
  double SlopeAt(double t, double delta);
  PassEvent EventAt(double julianDay) const;
  PassEvent Crossing(double tFound, double tOuter, double limit, double& found);

  PassQuery query_;
  StateObjective f_;
  int currentEntry_ = 0;
  double tRise_ = 0, tSet_ = 0;
};

}  // namespace halvorine::literal
