// Star catalogue, constellation figures and labels.
#pragma once

namespace halvorine {

/// Fills StarTable, ConstellationLines and ConstellationLabels from their files; any failure is a
/// RuntimeFailure.
void LoadSkyData();

}  // namespace halvorine
