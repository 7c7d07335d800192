#include <map>

#include "tests/orbit/OrbitFixture.h"

namespace halvorine {
namespace {

double MagnitudeNumber(const SatelliteState& s) {
  return s.Magnitude.kind == MagnitudeValue::Kind::Number ? s.Magnitude.value : 0;
}

/// Number fields of a state by their names.
double ValueOf(const SatelliteState& s, const std::string& name) {
  const std::map<std::string, double> values{{"Elevation", s.Elevation},
                                             {"Azimuth", s.Azimuth},
                                             {"IlluminatedFraction", s.IlluminatedFraction},
                                             {"PhaseAngle", s.PhaseAngle},
                                             {"Condition", static_cast<double>(s.Condition)},
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
                                             {"Magnitude", MagnitudeNumber(s)}};
  return values.at(name);
}

void CompareMagnitude(const SatelliteState& s, const std::string& wanted, const std::string& where) {
  using Kind = MagnitudeValue::Kind;
  const Kind kind = wanted.empty() ? Kind::Empty : wanted == "???" ? Kind::Unknown : Kind::Number;
  EXPECT_EQ(s.Magnitude.kind, kind) << where;
  if (kind == Kind::Number) {
    EXPECT_NEAR(s.Magnitude.value, ParseStrict(wanted), 1e-8) << where;
  }
}

class State : public OrbitTest {
 protected:
  static const SatelliteState& Compute(double julianDay) {
    ComputeSatelliteState(1, julianDay);
    return SatelliteStates[1];
  }
  static void LoadIss() { Estrai_Dati_Satellite(1, issName, issLine1, issLine2); }
};

TEST_F(State, ReferenceRecordsOfAllModelsAndOptions) {
  const std::vector<ReferenceRow> table = ReferenceRows("orbit_states.txt", '|');
  std::vector<std::string> fields, tolerances;
  double julianDay = 0;
  for (const ReferenceRow& line : table) {
    if (line.Text(0) == "fields") fields.assign(line.cells.begin() + 1, line.cells.end());
    if (line.Text(0) == "tolerances") tolerances.assign(line.cells.begin() + 1, line.cells.end());
    if (line.Text(0) == "set") {
      Estrai_Dati_Satellite(1, "", line.Text(1), line.Text(2));
      ElementSets[1].StandardMagnitude = line.Text(3);
      Observe(line.Number(4), line.Number(5), line.Number(6));
    } else if (line.Text(0) == "options") {
      Options.Propagator = ToInt16(line.Number(1));
      Options.Refraction = ToInt16(line.Number(2));
      Options.PhaseLaw = ToInt16(line.Number(3));
      Options.SunThreshold = ToInt16(line.Number(4));
      julianDay = line.Number(5);
    } else if (line.Text(0) == "values") {
      const SatelliteState& s = Compute(julianDay);
      for (std::size_t i = 0; i < fields.size(); ++i) {
        const std::string where = fields[i] + " at " + NumberText(julianDay);
        if (fields[i] == "Magnitude")
          CompareMagnitude(s, line.Text(i + 1), where);
        else if (fields[i] == "LatitudeHemisphere")
          EXPECT_EQ(std::string(1, s.LatitudeHemisphere), line.Text(i + 1)) << where;
        else if (fields[i] == "LongitudeHemisphere")
          EXPECT_EQ(std::string(1, s.LongitudeHemisphere), line.Text(i + 1)) << where;
        else
          EXPECT_NEAR(ValueOf(s, fields[i]), line.Number(i + 1), ParseStrict(tolerances[i])) << where;
      }
    }
  }
}

TEST_F(State, DirectionIsAUnitVectorAndOrbitLawsHold) {
  LoadIss();
  Observe(45.4642, 9.19, 122);
  for (int i = 0; i < 500; ++i) {
    const SatelliteState& s = Compute(ElementSets[1].EpochJulianDay + 0.013 * i);
    EXPECT_NEAR(s.TopoUp * s.TopoUp + s.TopoEast * s.TopoEast + s.TopoNorth * s.TopoNorth, 1, 1e-12);
    const double axis = (s.ApogeeHeight + s.PerigeeHeight) / 2 + 6378.135;
    EXPECT_NEAR(s.Speed * s.Speed, 398600.8 * (2 / s.GeocentricRadius - 1 / axis), 1e-9);
    EXPECT_NEAR(s.Period, 6.2831853 * std::sqrt(axis * axis * axis / 398600.8), 1e-6);
    EXPECT_GE(s.Height, s.GeocentricRadius - 6378.135 - 1e-9);
    EXPECT_LE(std::fabs(s.LatitudeSigned), 51.75);
  }
}

TEST_F(State, MeanMotionOfZeroReachesTheCaller) {
  LoadIss();
  ElementSets[1].MeanMotion = 0;
  EXPECT_THROW(Compute(2458139.5), ArithmeticFailure);
  ElementSets[1].MeanMotion = 15;
  ElementSets[1].Eccentricity = 1;
  EXPECT_THROW(Compute(2458139.5), ArithmeticFailure);
}

TEST_F(State, FailingModelGoesOnWithTheVectorsOfAnotherSatellite) {
  LoadIss();
  const SatelliteState first = Compute(2458139.5);
  Estrai_Dati_Satellite(2, "", issLine1, issLine2);
  ElementSets[2].Eccentricity = 0;
  ComputeSatelliteState(2, 2458139.5);
  EXPECT_EQ(SatelliteStates[2].LatitudeSigned, first.LatitudeSigned);
  EXPECT_EQ(SatelliteStates[2].Range, first.Range);
}

TEST_F(State, UnknownModelNumberCallsNoModel) {
  LoadIss();
  Compute(2458139.5);
  const std::array<double, 3> before = PositionKm;
  for (const std::int16_t model : {-1, 4, 17}) {
    Options.Propagator = model;
    Compute(2458139.6);
    EXPECT_EQ(PositionKm, before);
  }
}

/// Vectors set from outside stand, as those of a model that fails: no model is called. Most of these places
/// are hit only to the last digit, so each test looks for an instant at which it comes out exactly.
class SkippedStatements : public State {
 protected:
  SkippedStatements() {
    LoadIss();
    Observe(45.4642, 9.19, 122);
    ElementSets[1].StandardMagnitude = "4";
    Compute(2458139.7);
    Options.Propagator = 9;
  }

  enum class From { Centre, Observer };
  using Choose = std::array<double, 3> (*)(const StateScratchRecord&);

  /// Tries instants with the satellite at the Earth-fixed place that `choose` tells, until `exact` holds for
  /// the scratch values. Gives the state before and after the computation that hit.
  template <class Exact>
  static std::pair<SatelliteState, SatelliteState> Hit(From from, Choose choose, Exact exact) {
    for (int i = 0; i < 5000; ++i) {
      const double julianDay = 2458139.5 + 0.00137 * i;
      PositionKm = {-3000, 5000, 4000};
      VelocityKmS = {1, 2, 7};
      const SatelliteState before = Compute(julianDay);
      const StateScratchRecord& k = StateScratch;
      std::array<double, 3> fixed = choose(k);
      if (from == From::Observer)
        for (std::size_t at = 0; at < 3; ++at) fixed[at] += k.observer[at];
      PositionKm = {k.cosTheta * fixed[0] + k.sinTheta * fixed[1],
                    k.cosTheta * fixed[1] - k.sinTheta * fixed[0], fixed[2]};
      const SatelliteState after = Compute(julianDay);
      if (exact(k)) return {before, after};
    }
    ADD_FAILURE() << "no instant hits the place exactly";
    return {};
  }

  static std::array<double, 3> Scaled(const std::array<double, 3>& v, double factor) {
    return {factor * v[0], factor * v[1], factor * v[2]};
  }
};

TEST_F(SkippedStatements, OverheadKeepsFormerElevation) {
  const auto [before, after] = Hit(
      From::Observer, [](const StateScratchRecord& k) { return Scaled(k.zenith, 512.0); },
      [](const StateScratchRecord& k) {
        const double up = SatelliteStates[1].TopoUp;
        return k.phi != 0 && !(1 - up * up > 0);
      });
  EXPECT_EQ(after.Elevation, before.Elevation);
  EXPECT_NE(after.Azimuth, before.Azimuth);
  EXPECT_NEAR(after.TopoUp, 1, 1e-15);
}

TEST_F(SkippedStatements, SatelliteAtTheObserverKeepsTheFormerDirection) {
  const auto [before, after] = Hit(
      From::Observer, [](const StateScratchRecord&) { return std::array<double, 3>{}; },
      [](const StateScratchRecord& k) { return k.R == std::array<double, 3>{}; });
  EXPECT_EQ(after.Range, 0);
  EXPECT_EQ(after.TopoUp, before.TopoUp);
  EXPECT_EQ(after.Elevation, before.Elevation);
}

TEST_F(SkippedStatements, OverAPoleKeepsFormerHeightAndLatitude) {
  const SatelliteState before = Compute(2458139.7);
  PositionKm = {0, 0, -7000};
  const SatelliteState after = Compute(2458139.7);
  EXPECT_EQ(after.Height, before.Height);
  EXPECT_EQ(after.LatitudeSigned, before.LatitudeSigned);
  EXPECT_EQ(after.LatitudeAbs, before.LatitudeAbs);
  EXPECT_EQ(after.GeocentricRadius, 7000);
}

TEST_F(SkippedStatements, AtTheCentreOfTheEarthOrbitAndShadowStay) {
  Compute(2458139.7);
  const SatelliteState before = Compute(2458139.7);
  const StateScratchRecord scratch = StateScratch;
  PositionKm = {};
  const SatelliteState after = Compute(2458139.7);
  EXPECT_EQ(StateScratch.eccentricityVector, scratch.eccentricityVector);
  EXPECT_EQ(StateScratch.e, scratch.e);
  EXPECT_EQ(StateScratch.q, scratch.q);
  EXPECT_EQ(after.Height, before.Height);
  EXPECT_EQ(after.LatitudeSigned, before.LatitudeSigned);
  EXPECT_EQ(after.GeocentricRadius, 0);
}

TEST_F(SkippedStatements, ParabolaKeepsFormerApogeeAndPeriod) {
  SatelliteState before, after;
  double apart = 1;
  for (int i = 0; i < 2000 && apart != 0; ++i) {
    PositionKm = {-3000, 5000, 4000};
    VelocityKmS = {1, 2, 7};
    before = Compute(2458139.7);
    const double axis = StateScratch.a;
    PositionKm = {7000.0 + i, 0, 0};
    VelocityKmS = {};  // falls straight down: eccentricity 1
    after = Compute(2458139.7);
    apart = 1 - StateScratch.e;
    if (apart == 0) {
      EXPECT_EQ(StateScratch.a, axis);
    }
  }
  ASSERT_EQ(apart, 0);
  EXPECT_EQ(after.ApogeeHeight, before.ApogeeHeight);
  EXPECT_EQ(after.Period, before.Period);
  EXPECT_EQ(after.PerigeeHeight, -6378.135);
}

TEST_F(SkippedStatements, HyperbolaKeepsFormerPeriod) {
  const SatelliteState before = Compute(2458139.7);
  PositionKm = {7000, 0, 0};
  VelocityKmS = {0, 12, 0};
  const SatelliteState after = Compute(2458139.7);
  EXPECT_LT(StateScratch.a, 0);
  EXPECT_EQ(after.Period, before.Period);
  EXPECT_LT(after.ApogeeHeight, 0);
}

TEST_F(SkippedStatements, ResultsBeyondTheRangeOfDoublesStay) {
  const SatelliteState before = Compute(2458139.7);
  PositionKm = {1e200, 1e200, 0};
  VelocityKmS = {1e200, 0, 1e200};
  const StateScratchRecord scratch = StateScratch;
  ElementSets[1].MeanMotionDot = 1e308;
  const SatelliteState after = Compute(2468139.7);
  EXPECT_EQ(after.Range, before.Range);
  EXPECT_EQ(after.Speed, before.Speed);
  EXPECT_EQ(after.GeocentricRadius, before.GeocentricRadius);
  EXPECT_EQ(StateScratch.p, scratch.p);
  EXPECT_EQ(StateScratch.y, scratch.y);
}

TEST_F(SkippedStatements, EachOfTheOtherOverflowsLeavesItsValue) {
  const SatelliteState before = Compute(2458139.7);
  // from near the centre of the Earth away from the observer, faster than a number holds
  const StateScratchRecord k = StateScratch;
  const std::array<double, 3> fixed = Scaled(k.observer, -3.45e304);
  PositionKm = {1e-3, 1e-3, 1e-3};
  VelocityKmS = {k.cosTheta * fixed[0] + k.sinTheta * fixed[1], k.cosTheta * fixed[1] - k.sinTheta * fixed[0],
                 fixed[2]};
  EXPECT_EQ(Compute(2458139.7).RangeRate, before.RangeRate);

  PositionKm = {-3000, 5000, 4000};
  VelocityKmS = {1, 2, 7};
  Compute(2458139.7);
  const double e = StateScratch.e;
  PositionKm = {1e70, 0, 0};
  VelocityKmS = {0, 1e70, 1e70};
  Compute(2458139.7);
  EXPECT_GT(StateScratch.eccentricityVector[0], 1e200);
  EXPECT_EQ(StateScratch.e, e) << "the square of the eccentricity";

  EXPECT_EQ(Compute(1e300).OrbitNumber, before.OrbitNumber) << "more orbits than a number holds";
}

TEST_F(SkippedStatements, BehindTheEarthOnTheSunsLineKeepsTheFormerShadowDistance) {
  bool hit = false;
  for (int i = 0; i < 5000 && !hit; ++i) {
    const double julianDay = 2458139.5 + 0.00137 * i;
    PositionKm = {-3000, 5000, 4000};
    Compute(julianDay);
    const double former = StateScratch.d;
    PositionKm = Scaled(StateScratch.S, -7000);
    Compute(julianDay);
    hit = StateScratch.q > 1;
    if (hit) {
      EXPECT_EQ(StateScratch.d, former);
    }
  }
  EXPECT_TRUE(hit);
}

TEST_F(SkippedStatements, InLineWithTheSunKeepsFormerPhaseAngle) {
  const auto [before, after] = Hit(
      From::Observer, [](const StateScratchRecord& k) { return Scaled(k.earthS, -3e4); },
      [](const StateScratchRecord& k) { return !(1 - k.g * k.g > 0); });
  EXPECT_EQ(after.PhaseAngle, before.PhaseAngle);
  EXPECT_EQ(StateScratch.g, 1);
}

TEST_F(SkippedStatements, InFrontOfTheSunTheFormerLightOrMagnitudeStays) {
  double light = 0;
  const Choose beforeTheSun = [](const StateScratchRecord& k) { return Scaled(k.earthS, 3e4); };
  Hit(From::Observer, beforeTheSun, [&](const StateScratchRecord& k) {
    if (k.f == 0) return true;
    light = k.xMagnitude;
    return false;
  });
  EXPECT_EQ(StateScratch.f, 0);
  const auto [before, after] =
      Hit(From::Observer, beforeTheSun, [](const StateScratchRecord& k) { return k.f < 0; });
  EXPECT_EQ(after.Magnitude.value, before.Magnitude.value);
  EXPECT_EQ(after.Magnitude.kind, before.Magnitude.kind);
}

TEST_F(SkippedStatements, SunOverheadKeepsItsFormerElevation) {
  bool hit = false;
  for (int i = 0; i < 400 && !hit; ++i) {
    double julianDay = 2458200.5;
    Observe(0, -170.0 + 0.8371 * i, 0);
    for (int round = 0; round < 6; ++round) {
      Compute(julianDay);
      const std::array<double, 3>& sun = StateScratch.earthS;
      const double behind = std::atan2(sun[1], sun[0]) - StateScratch.lambda;
      julianDay += std::remainder(behind, 2 * M_PI) / 6.2831853;
      Observe(std::asin(sun[2]) / 0.0174532925, static_cast<double>(Site.Longitude), 0);
    }
    const double former = SunElevationRad;
    Compute(julianDay);
    const std::array<double, 3>&sun = StateScratch.earthS, &zenith = StateScratch.zenith;
    const double height = sun[0] * zenith[0] + sun[1] * zenith[1] + sun[2] * zenith[2];
    hit = !(1 - height * height > 0);
    if (hit) {
      EXPECT_EQ(SunElevationRad, former);
    }
  }
  EXPECT_TRUE(hit);
}

TEST_F(State, RefractionStartsAtSixTenthsBelowTheHorizonAndOnlyForMinusOne) {
  LoadIss();
  Observe(45.4642, 9.19, 122);
  int lifted = 0;
  for (int i = 0; i < 3000; ++i) {
    const double julianDay = 2458139.5 + 0.0003 * i;
    Options.Refraction = 1;
    const double plain = Compute(julianDay).Elevation;
    Options.Refraction = -1;
    const double seen = Compute(julianDay).Elevation;
    EXPECT_EQ(seen > plain, plain >= -0.6) << plain;
    if (plain > -0.6 && plain < 1) {
      EXPECT_NEAR(seen - plain, 0.5, 0.25);  // half a degree at the horizon
      ++lifted;
    }
  }
  EXPECT_GT(lifted, 3);
}

TEST_F(State, ConditionFollowsShadowThresholdAndHorizon) {
  LoadIss();
  Observe(45.4642, 9.19, 122);
  std::array<int, 4> seen{};
  for (int i = 0; i < 3000; ++i) {
    const SatelliteState& s = Compute(2458139.5 + 0.0011 * i);
    ++seen[static_cast<std::size_t>(s.Condition)];
    EXPECT_EQ(s.Condition == Visible,
              s.Magnitude.kind != MagnitudeValue::Kind::Empty && SunElevationDeg < -10 && s.Elevation > 0);
    EXPECT_EQ(s.Magnitude.kind == MagnitudeValue::Kind::Empty, s.Condition == Eclipsed);
    EXPECT_EQ(s.IlluminatedFraction == 0, s.Condition == Eclipsed);
  }
  EXPECT_GT(seen[Eclipsed], 900);  // a low orbit spends a third of its time in the shadow
  EXPECT_LT(seen[Eclipsed], 1300);
  EXPECT_GT(seen[Visible], 0);
}

TEST_F(State, SunAtTheThresholdHidesTheSatellite) {
  LoadIss();
  ElementSets[1].StandardMagnitude = "";
  Observe(45.4642, 9.19, 122);
  Options.Propagator = 9;
  PositionKm = {42000, 0, 0};
  for (int i = 0; i < 400; ++i) {
    const SatelliteState& s = Compute(2458139.5 + 0.0025 * i);
    if (s.Condition == Eclipsed || s.Elevation <= 0) continue;
    EXPECT_EQ(s.Condition == NotVisible, SunElevationDeg >= -10);
  }
}

}  // namespace
}  // namespace halvorine
