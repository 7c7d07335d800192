#include "tests/orbit/OrbitFixture.h"

namespace halvorine {
namespace {

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
      const std::map<std::string, double> numbers = NumbersOf(s);
      for (std::size_t i = 0; i < fields.size(); ++i) {
        const std::string where = fields[i] + " at " + NumberText(julianDay);
        if (fields[i] == "Magnitude")
          CompareMagnitude(s, line.Text(i + 1), where);
        else if (fields[i] == "LatitudeHemisphere")
          EXPECT_EQ(std::string(1, s.LatitudeHemisphere), line.Text(i + 1)) << where;
        else if (fields[i] == "LongitudeHemisphere")
          EXPECT_EQ(std::string(1, s.LongitudeHemisphere), line.Text(i + 1)) << where;
        else
          EXPECT_NEAR(numbers.at(fields[i]), line.Number(i + 1), ParseStrict(tolerances[i])) << where;
      }
    }
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

TEST_F(State, SunOverheadKeepsItsFormerElevation) {
  LoadIss();
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
