#include <cstdlib>
#include <functional>
#include <tuple>
#include <utility>

#include "tests/orbit/LiteralState.h"
#include "tests/orbit/ManySets.h"
#include "tests/orbit/OrbitFixture.h"

namespace halvorine {
namespace {

/// All that a state computation writes.
struct Written {
  StateScratchRecord scratch;
  std::array<double, 3> position, velocity;
  std::map<std::string, double> numbers;
  bool failed = false;
  bool operator==(const Written&) const = default;
};

Written Take(int slot, bool failed) {
  StateScratchRecord scratch = StateScratch;
  scratch.latitude = 0;  // kept only for the second of two uses
  scratch.latitudeKnown = false;
  return {scratch, PositionKm, VelocityKmS, NumbersOf(SatelliteStates[slot]), failed};
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

using Vector = std::array<double, 3>;

Vector Scaled(const Vector& v, double factor) { return {factor * v[0], factor * v[1], factor * v[2]}; }

Vector Inertial(const StateScratchRecord& k, const Vector& fixed) {
  return {k.cosTheta * fixed[0] + k.sinTheta * fixed[1], k.cosTheta * fixed[1] - k.sinTheta * fixed[0],
          fixed[2]};
}

Vector FromObserver(const StateScratchRecord& k, const Vector& away) {
  return Inertial(k, {k.observer[0] + away[0], k.observer[1] + away[1], k.observer[2] + away[2]});
}

constexpr Vector usual{1, 2, 7};

/// Positions and velocities at which some statement fails; most do so only to the last digit, at some
/// instants.
std::array<std::pair<Vector, Vector>, 12> OddVectors(const StateScratchRecord& k, int i) {
  const double fall = 7000 + i;
  return {{{FromObserver(k, Scaled(k.zenith, 512)), usual},                   // straight overhead
           {FromObserver(k, {}), usual},                                      // at the observer
           {{0, 0, -7000}, usual},                                            // over a pole
           {{}, usual},                                                       // at the Earth's centre
           {{fall, 0, 0}, {}},                                                // eccentricity 1
           {{7000, 0, 0}, {0, 12, 0}},                                        // hyperbola
           {{1e200, 1e200, 0}, {1e200, 0, 1e200}},                            // range and speed overflow
           {{1e70, 0, 0}, {0, 1e70, 1e70}},                                   // eccentricity overflows
           {{1e-3, 1e-3, 1e-3}, Inertial(k, Scaled(k.observer, -3.45e304))},  // range rate overflows
           {Scaled(k.S, -7000), usual},                                       // in the axis of the shadow
           {FromObserver(k, Scaled(k.earthS, -3e4)), usual},                  // away from the Sun
           {FromObserver(k, Scaled(k.earthS, 3e4)), usual}}};                 // before the Sun: no light
}

TEST_F(Identity, ValuesOfFailingStatementsStayAsTheyWere) {
  Estrai_Dati_Satellite(1, "", issLine1, issLine2);
  ElementSets[1].StandardMagnitude = "4";
  Observe(45.4642, 9.19, 122);
  ComputeSatelliteState(1, 2458139.7);
  Options.Propagator = 9;  // no model: the vectors stand as they are
  for (int i = 0; i < 2000; ++i) {
    const double julianDay = 2458139.5 + 0.00137 * i;
    PositionKm = {-3000, 5000, 4000};
    VelocityKmS = usual;
    ComputeSatelliteState(1, julianDay);
    const auto odd = OddVectors(StateScratch, i);
    for (std::size_t at = 0; at < odd.size(); ++at) {
      std::tie(PositionKm, VelocityKmS) = odd[at];
      ExpectSame(1, julianDay, "odd place " + std::to_string(at));
    }
  }
  ExpectSame(1, 1e300, "more orbits than a number holds");
}

}  // namespace
}  // namespace halvorine
