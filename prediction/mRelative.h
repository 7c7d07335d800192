// Relative motion: the table in which two satellites are compared, A in the scratch slot and B in the last
// one.
#pragma once

#include "prediction/mTable.h"

namespace halvorine {

/// Slot of satellite B; nothing else uses it. Satellite A stands in ScratchSlot.
constexpr int RelativeSlot = 202;

/// The angle of a cosine in degrees: 0 from 1 upwards, 180 from -1 downwards.
double AngleOf(double cosine);

/// Difference of two longitudes in degrees, the shorter way round.
double LongitudeApart(double a, double b);

/// Makes the table of the two slots with its head, as MakeTable does. It ends also where either satellite
/// falls below 98 km.
TableOutcome MakeRelativeTable(const TableRequest& request, TextTable& table, const TableGrowth& grown);

}  // namespace halvorine
