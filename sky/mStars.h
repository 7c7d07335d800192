// Star catalogue, constellation figures and their labels: the tables that every sky chart is drawn from, and
// the full record of a star that was picked. Stars stand in the order of their brightness, so that the first
// n of them are those down to some magnitude.
#pragma once

#include "shell/base/mRecords.h"

namespace halvorine {

constexpr int CatalogueStars = 9010;
constexpr int FigureLines = 646;
constexpr int FigureLabels = 89;

/// Fills StarTable, ConstellationLines and ConstellationLabels from "\stars.bin", "\clines.dat" and
/// "\cnames.dat"; what a file holds beyond its fixed count is ignored. A file that is missing or too short
/// and a bad number raise a RuntimeFailure and leave all three tables as they were.
void LoadSkyData();

/// Reads one record of "\stars.bin", counted from 1. SubscriptFailure for a number outside the catalogue,
/// another RuntimeFailure where the file cannot be read or holds no numbers there.
StarRecord ReadStar(int number);

/// Reads a record into PickedStar; false where it cannot be read, which the user is told.
bool TakePickedStar(int number);

}  // namespace halvorine
