#include <cstdlib>
#include <functional>

#include "tests/orbit/LiteralState.h"
#include "tests/orbit/ManySets.h"
#include "tests/orbit/OrbitFixture.h"

namespace halvorine {
namespace {

/// All that a state computation writes.
struct Written {
  StateScratchRecord scratch;
  std::array<double, 3> position, velocity;
  std::array<double, 27> numbers;
  bool failed = false;
  bool operator==(const Written&) const = default;
};

Written Take(int slot, bool failed) {
  const SatelliteState& s = SatelliteStates[slot];
  StateScratchRecord scratch = StateScratch;
  scratch.latitude = 0;  // kept only for the second of two uses
  scratch.latitudeKnown = false;
  return {scratch,
          PositionKm,
          VelocityKmS,
          {s.Elevation,
           s.Azimuth,
           s.IlluminatedFraction,
           s.PhaseAngle,
           static_cast<double>(s.Condition),
           static_cast<double>(s.Magnitude.kind),
           s.Magnitude.value,
           s.LatitudeAbs,
           s.LongitudeAbs,
           s.GeocentricRadius,
           s.OrbitNumber,
           s.RangeRate,
           s.ApogeeHeight,
           s.PerigeeHeight,
           s.Speed,
           s.Height,
           s.Range,
           s.Period,
           s.LatitudeSigned,
           s.LongitudeEast,
           s.GeocentricLatitude,
           s.Longitude360,
           s.TopoUp,
           s.TopoEast,
           s.TopoNorth,
           SunElevationDeg,
           SunElevationRad},
          failed};
}

class Identity : public OrbitTest {
 protected:
  using Compute = void (*)(int, double);

  /// Runs one of the two ways from the records as they are, and puts them back.
  static Written Try(Compute compute, int slot, double julianDay) {
    const StateScratchRecord scratch = StateScratch;
    const std::array<double, 3> position = PositionKm, velocity = VelocityKmS;
    const SatelliteState state = SatelliteStates[slot];
    const double deg = SunElevationDeg, rad = SunElevationRad;
    bool failed = false;
    try {
      compute(slot, julianDay);
    } catch (const ArithmeticFailure&) {
      failed = true;
    }
    const Written written = Take(slot, failed);
    StateScratch = scratch;
    PositionKm = position;
    VelocityKmS = velocity;
    SatelliteStates[slot] = state;
    SunElevationDeg = deg;
    SunElevationRad = rad;
    return written;
  }

  static void ExpectSame(int slot, double julianDay, const std::string& where) {
    const Written literal = Try(literal::ComputeSatelliteState, slot, julianDay);
    const Written kept = Try(ComputeSatelliteState, slot, julianDay);
    EXPECT_TRUE(literal == kept) << where << " at " << NumberText(julianDay);
    if (!literal.failed) ComputeSatelliteState(slot, julianDay);
  }
};

TEST_F(Identity, KeptTermsGiveTheBitsOfComputingAnew) {
  constexpr std::array<double, 6> days{2458139.5, 2458139.75, 2458141.25, 2458120.0, 2458504.6, 2460000.25};
  const std::vector<DatabaseEntry> entries = ManySets(1500, true);
  int slot = 0;
  for (const DatabaseEntry& entry : entries) {
    slot = slot % 5 + 1;
    try {
      Estrai_Dati_Satellite(slot, entry.name, entry.line1, entry.line2);
    } catch (const ConversionFailure&) {
    }
    ElementSets[slot].StandardMagnitude = slot % 2 == 0 ? "4.5" : "";
    Options.Refraction = slot % 3 == 0 ? -1 : 0;
    Options.PhaseLaw = slot % 4 == 0 ? 1 : 0;
    Observe(90 - 36.1 * slot, 71.3 * slot - 180, 100.0 * slot);
    for (std::int16_t model = 0; model <= 4; ++model) {
      Options.Propagator = model;
      for (const double day : days) ExpectSame(slot, day, entry.name + ", model " + std::to_string(model));
    }
  }
}

TEST_F(Identity, ChangeOfAnyKeyIsSeenAtOnce) {
  using Change = std::function<void(ElementSet&)>;
  const std::vector<std::pair<std::string, Change>> changes{
      {"nothing", [](ElementSet&) {}},
      {"epoch", [](ElementSet& s) { s.EpochJulianDay += 0.5; }},
      {"inclination", [](ElementSet& s) { s.Inclination += 1; }},
      {"node", [](ElementSet& s) { s.RightAscension += 1; }},
      {"eccentricity", [](ElementSet& s) { s.Eccentricity += 0.01; }},
      {"perigee", [](ElementSet& s) { s.ArgumentOfPerigee += 1; }},
      {"anomaly", [](ElementSet& s) { s.MeanAnomaly += 1; }},
      {"motion", [](ElementSet& s) { s.MeanMotion += 0.001; }},
      {"first derivative", [](ElementSet& s) { s.MeanMotionDot += 0.001; }},
      {"second derivative", [](ElementSet& s) { s.MeanMotionDDotMantissa += 0.001; }},
      {"its exponent", [](ElementSet& s) { s.MeanMotionDDotExponent -= 1; }},
      {"drag", [](ElementSet& s) { s.BstarMantissa += 0.1; }},
      {"its exponent", [](ElementSet& s) { s.BstarExponent += 1; }},
      {"revolution", [](ElementSet& s) { s.RevolutionNumber += 1; }},
      {"magnitude", [](ElementSet& s) { s.StandardMagnitude = "3"; }},
      {"latitude", [](ElementSet&) { Site.Latitude += 1; }},
      {"longitude", [](ElementSet&) { Site.Longitude += 1; }},
      {"height", [](ElementSet&) { Site.Height += 100; }},
      {"model", [](ElementSet&) { Options.Propagator = 1; }},
      {"refraction", [](ElementSet&) { Options.Refraction = -1; }},
  };
  for (const auto& [line1, line2] :
       {std::pair{issLine1, issLine2},
        std::pair{"1 11057U 78095A   18021.18348580  .00102177 -26516-6  17544-3 0  9991",
                  "2 11057  62.4998 306.9510 6145807 276.4738  21.4469  2.00613495318023"}}) {
    Options.Refraction = 0;
    Options.Propagator = 3;
    Estrai_Dati_Satellite(1, "", line1, line2);
    ElementSets[1].MeanMotionDDotMantissa = 0.1;
    ElementSets[1].StandardMagnitude = "2";
    for (const auto& [what, change] : changes) {
      change(ElementSets[1]);
      for (int i = 0; i < 8; ++i) ExpectSame(1, 2458170.5 + 0.37 * i, what);
    }
  }
}

TEST_F(Identity, StepsOfAResonanceGiveTheSameInAnyOrder) {
  Estrai_Dati_Satellite(1, "", "1 22674U 93035D   06176.55909107  .00002121  00000-0  29868-3 0  6569",
                        "2 22674  63.5035 354.4452 7541712 253.3264  18.7754  1.96679808 93877");
  Options.Propagator = 3;
  const double epoch = ElementSets[1].EpochJulianDay;
  for (const double days :
       {0.0, 400.0, 3.0, -7.5, 0.5, 0.4999999, -0.5, 0.5000001, 12.0, -200.0, 399.75, 1000.0, 20.25})
    ExpectSame(1, epoch + days, "resonance");
}

}  // namespace
}  // namespace halvorine
