#include <gmock/gmock.h>

#include <functional>
#include <map>

#include "tests/orbit/OrbitFixture.h"

namespace halvorine {
namespace {

using FieldText = std::function<std::string(const ElementSet&)>;

FieldText Of(double ElementSet::*field) {
  return [field](const ElementSet& set) { return NumberText(set.*field); };
}
FieldText Of(std::string ElementSet::*field) {
  return [field](const ElementSet& set) { return set.*field; };
}

const std::map<std::string, FieldText> readers{
    {"CatalogNumber", Of(&ElementSet::CatalogNumber)},
    {"LaunchYear", Of(&ElementSet::LaunchYear)},
    {"LaunchNumber", Of(&ElementSet::LaunchNumber)},
    {"LaunchPiece", Of(&ElementSet::LaunchPiece)},
    {"EpochYear", Of(&ElementSet::EpochYear)},
    {"EpochDay", Of(&ElementSet::EpochDay)},
    {"MeanMotionDot", Of(&ElementSet::MeanMotionDot)},
    {"MeanMotionDDotMantissa", Of(&ElementSet::MeanMotionDDotMantissa)},
    {"MeanMotionDDotExponent", Of(&ElementSet::MeanMotionDDotExponent)},
    {"BstarMantissa", Of(&ElementSet::BstarMantissa)},
    {"BstarExponent", Of(&ElementSet::BstarExponent)},
    {"Inclination", Of(&ElementSet::Inclination)},
    {"RightAscension", Of(&ElementSet::RightAscension)},
    {"Eccentricity", Of(&ElementSet::Eccentricity)},
    {"ArgumentOfPerigee", Of(&ElementSet::ArgumentOfPerigee)},
    {"MeanAnomaly", Of(&ElementSet::MeanAnomaly)},
    {"MeanMotion", Of(&ElementSet::MeanMotion)},
    {"RevolutionNumber", Of(&ElementSet::RevolutionNumber)},
    {"Name", Of(&ElementSet::Name)},
    {"EpochJulianDay", Of(&ElementSet::EpochJulianDay)},
};

class Elements : public OrbitTest {
 protected:
  static const ElementSet& Decode(const std::string& name, const std::string& line1,
                                  const std::string& line2) {
    Estrai_Dati_Satellite(1, name, line1, line2);
    return ElementSets[1];
  }
};

TEST_F(Elements, ReferenceSetsDecodeFieldByField) {
  std::vector<std::string> fields;
  for (const ReferenceRow& line : ReferenceRows("orbit_decoding.txt", '|')) {
    if (line.Text(0) == "fields") fields.assign(line.cells.begin() + 1, line.cells.end());
    if (line.Text(0) == "lines") Decode(line.Text(1), line.Text(2), line.Text(3));
    if (line.Text(0) != "values") continue;
    for (std::size_t i = 0; i < fields.size(); ++i) {
      const std::string found = readers.at(fields[i])(ElementSets[1]);
      const bool text = fields[i] == "CatalogNumber" || fields[i] == "LaunchPiece" || fields[i] == "Name";
      EXPECT_EQ(found, text ? line.Text(i + 1) : NumberText(line.Number(i + 1)))
          << fields[i] << " of " << ElementSets[1].Name;
    }
  }
}

TEST_F(Elements, YearsTurnAtFiftySeven) {
  const std::string line1 = issLine1;
  EXPECT_EQ(Decode("", std::string(line1).replace(18, 2, "56").replace(9, 2, "56"), issLine2).EpochYear,
            2056);
  EXPECT_EQ(ElementSets[1].LaunchYear, 2056);
  EXPECT_EQ(Decode("", std::string(line1).replace(18, 2, "57").replace(9, 2, "57"), issLine2).EpochYear,
            1957);
  EXPECT_EQ(ElementSets[1].LaunchYear, 1957);
  EXPECT_EQ(Decode("", std::string(line1).replace(18, 14, "00  1.00000000"), issLine2).EpochJulianDay,
            2451544.5);
}

TEST_F(Elements, NameIsCutToTwentyFourCharactersBeforeItIsTrimmed) {
  EXPECT_EQ(Decode("   ABC DEF (GHI JKL) MNO PQR", issLine1, issLine2).Name, "Abc Def (Ghi Jkl) Mno");
  EXPECT_EQ(Decode("ÀÀÀÀÀÀÀÀÀÀÀÀÀÀÀÀÀÀÀÀÀÀÀÀÀÀ", issLine1, issLine2).Name, "ÀÀÀÀÀÀÀÀÀÀÀÀÀÀÀÀÀÀÀÀÀÀÀÀ");
}

TEST_F(Elements, ShortAndBrokenLinesGiveZeros) {
  MagnitudeTable.assign(1, "");
  for (const auto& [line1, line2] : std::vector<std::pair<std::string, std::string>>{
           {"1 00000", ""},
           {"1 00000 xxxxxxxx", "2 x"},
           {std::string("1 00000U\0\xFF\xFE garbage", 19), "\x80"}}) {
    const ElementSet& set = Decode("", line1, line2);
    EXPECT_EQ(set.MeanMotion, 0);
    EXPECT_EQ(set.Inclination, 0);
    EXPECT_THROW(ComputeSatelliteState(1, 2458139.5), ArithmeticFailure);
  }
}

TEST_F(Elements, NumberOutsideTheMagnitudeTableFailsButLeavesAUsableSet) {
  FrequencyTable = {{"25544", "145.2", "145.8"}};
  ElementSets[1].StandardMagnitude = "7";
  MagnitudeTable.assign(25544, "");
  EXPECT_THROW(Decode(issName, issLine1, issLine2), SubscriptFailure);
  EXPECT_EQ(ElementSets[1].StandardMagnitude, "");
  EXPECT_EQ(ElementSets[1].Downlink[0], "145.8");
  EXPECT_DOUBLE_EQ(ElementSets[1].EpochJulianDay, 2458139.39808844);
  for (const std::string number : {"     ", "A5544", "-0001"}) {
    EXPECT_THROW(Decode(issName, std::string(issLine1).replace(2, 5, number), issLine2), RuntimeFailure)
        << number;
    EXPECT_EQ(ElementSets[1].CatalogNumber, number);
  }
}

TEST_F(Elements, ChannelsThatTheSlotHoldsStayAndRowsComeBehindThemUpToTen) {
  for (int row = 1; row <= 12; ++row) {
    FrequencyTable.push_back({"25544", "", std::to_string(row)});
    FrequencyTable.push_back({"2554", "9", "9"});
    FrequencyTable.push_back({"25544 ", "9", "9"});
  }
  ElementSets[1].Uplink[0] = "145.1";
  ElementSets[1].Downlink[2] = "437.0";
  Decode(issName, issLine1, issLine2);
  EXPECT_EQ(ElementSets[1].Uplink[0], "145.1");
  EXPECT_THAT(ElementSets[1].Downlink,
              testing::ElementsAre("", "1", "437.0", "2", "3", "4", "5", "6", "7", "8"));
}

TEST_F(Elements, ChangedTableIsIndexedAnew) {
  FrequencyTable = {{"25544", "1", "2"}};
  Decode(issName, issLine1, issLine2);
  FrequencyTable[0].catalogueNumber = "00001";
  IndexFrequencies();
  ElementSets[1] = {};
  EXPECT_EQ(Decode(issName, issLine1, issLine2).Downlink[0], "");
  FrequencyTable.push_back({"25544", "5", "6"});
  EXPECT_EQ(Decode(issName, issLine1, issLine2).Downlink[0], "6");
}

}  // namespace
}  // namespace halvorine
