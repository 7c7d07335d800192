// What the orbit tests share: clean records, arithmetic that traps, and a sample set.
#pragma once

#include <algorithm>
#include <array>
#include <cmath>
#include <map>
#include <string>
#include <vector>

#include "orbit/mSat.h"
#include "tests/fakes/ReferenceTable.h"
#include "tests/fakes/TrappingArithmetic.h"

namespace halvorine {

/// A magnitude table that takes all numbers, SGP4, no refraction.
class OrbitTest : public TrappingArithmetic {
 protected:
  OrbitTest() {
    ResetOrbitRecords();
    MagnitudeTable.assign(100000, "");
    Options.Propagator = 2;
    Options.SunThreshold = -10;
  }

  static void Observe(double latitude, double longitude, double height) {
    Site.Latitude = static_cast<float>(latitude);
    Site.Longitude = static_cast<float>(longitude);
    Site.Height = static_cast<float>(height);
  }
};

/// Working elements of the set in a slot; the state at the epoch comes with them.
inline void TakeWorkingElements(int slot) { ComputeSatelliteState(slot, ElementSets[slot].EpochJulianDay); }

/// Largest difference of three numbers.
inline double Apart(const std::array<double, 3>& a, const std::array<double, 3>& b) {
  return std::max({std::fabs(a[0] - b[0]), std::fabs(a[1] - b[1]), std::fabs(a[2] - b[2])});
}

/// The numbers of a state by their names, and the Sun's elevation that was computed with it.
inline std::map<std::string, double> NumbersOf(const SatelliteState& s) {
  return {{"Elevation", s.Elevation},
          {"Azimuth", s.Azimuth},
          {"IlluminatedFraction", s.IlluminatedFraction},
          {"PhaseAngle", s.PhaseAngle},
          {"Condition", static_cast<double>(s.Condition)},
          {"MagnitudeKind", static_cast<double>(s.Magnitude.kind)},
          {"MagnitudeValue", s.Magnitude.value},
          {"LatitudeAbs", s.LatitudeAbs},
          {"LongitudeAbs", s.LongitudeAbs},
          {"GeocentricRadius", s.GeocentricRadius},
          {"OrbitNumber", s.OrbitNumber},
          {"RangeRate", s.RangeRate},
          {"ApogeeHeight", s.ApogeeHeight},
          {"PerigeeHeight", s.PerigeeHeight},
          {"Speed", s.Speed},
          {"Height", s.Height},
          {"Range", s.Range},
          {"Period", s.Period},
          {"LatitudeSigned", s.LatitudeSigned},
          {"LongitudeEast", s.LongitudeEast},
          {"GeocentricLatitude", s.GeocentricLatitude},
          {"Longitude360", s.Longitude360},
          {"TopoUp", s.TopoUp},
          {"TopoEast", s.TopoEast},
          {"TopoNorth", s.TopoNorth},
          {"SunElevationDeg", SunElevationDeg},
          {"SunElevationRad", SunElevationRad}};
}

inline const char* const issName = "ISS (ZARYA)";
inline const char* const issLine1 = "1 25544U 98067A   18020.89808844  .00002078  00000-0  38550-4 0  9992";
inline const char* const issLine2 = "2 25544  51.6424  32.9776 0003646  28.7227  39.5332 15.54190080 95614";

}  // namespace halvorine
