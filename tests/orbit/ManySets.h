// Element sets in numbers: real ones with altered numbers, nodes, perigees, anomalies.
#pragma once

#include <string>
#include <vector>

#include "shell/base/mRecords.h"

namespace halvorine {

/// 85 in a hundred low orbits, 10 deep ones, 5 geostationary ones; the same sets for the same number. With
/// `broken` some of them fail: circular, without motion, letters in their numbers.
std::vector<DatabaseEntry> ManySets(int count, bool broken = false);

}  // namespace halvorine
