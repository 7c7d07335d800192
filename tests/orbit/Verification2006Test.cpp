#include <cstdlib>
#include <fstream>
#include <map>

#include "tests/orbit/OrbitFixture.h"

namespace halvorine {
namespace {

struct Verified {
  double worst = 0;  // km
  double last = 0;   // minutes
  double inclination = 0, eccentricity = 0;
  int rows = 0, failed = 0;
  bool deep = false;
};

class Verification2006 : public OrbitTest {
 protected:
  static std::map<std::string, std::pair<std::string, std::string>> ReadSets() {
    std::map<std::string, std::pair<std::string, std::string>> sets;
    std::vector<std::string> lines;
    for (const ReferenceRow& line : ReferenceRows("sgp4-2006.tle", '|')) lines.push_back(line.Text(0));
    for (std::size_t i = 0; i + 2 < lines.size(); i += 3) sets[lines[i]] = {lines[i + 1], lines[i + 2]};
    return sets;
  }

  static std::map<std::string, Verified> Run() {
    const auto sets = ReadSets();
    std::map<std::string, Verified> results;
    std::string name;
    Options.Propagator = 3;
    for (const ReferenceRow& line : ReferenceRows("sgp4-2006-expected.txt", ' ')) {
      if (line.Text(0) == "set") {
        name = line.Text(1);
        for (std::size_t i = 2; i < line.cells.size(); ++i) name += " " + line.Text(i);
        Estrai_Dati_Satellite(1, name, sets.at(name).first, sets.at(name).second);
        TakeWorkingElements(1);
        results[name].deep = StateScratch.deep;
        results[name].inclination = ElementSets[1].Inclination;
        results[name].eccentricity = ElementSets[1].Eccentricity;
        continue;
      }
      Verified& result = results[name];
      ++result.rows;
      result.last = line.Number(0);
      try {
        const double minutes = line.Number(0);
        result.deep ? PropagateSDP4(minutes) : PropagateSGP4(minutes);
        const std::array<double, 3> expected{line.Number(1), line.Number(2), line.Number(3)};
        result.worst = std::max(result.worst, Apart(PositionKm, expected));
      } catch (const ArithmeticFailure&) {
        ++result.failed;
      }
    }
    return results;
  }
};

TEST_F(Verification2006, SetsAgreeWithinMetresButWhereTheModelsPart) {
  // km. 1980 and 2006 part in the drag of the last revolutions. Below 0.2 radians of inclination 1980 takes
  // its terms by the inclination at the epoch and never unwraps the node; beyond an eccentricity of 0.97 the
  // lunar terms are out of their range.
  const std::map<std::string, double> wider{
      {"VERIFY 22312", 0.3},    {"VERIFY 28350", 7.5},  {"VERIFY 04632", 10},      {"VERIFY 09998", 10},
      {"VERIFY 14128", 3},      {"VERIFY 20413", 1800}, {"VERIFY 20413 B", 25000}, {"VERIFY 23177", 10},
      {"VERIFY 23333", 260000}, {"VERIFY 23599", 1200}, {"VERIFY 24208", 1},       {"VERIFY 25954", 30},
      {"VERIFY 26900", 30},     {"VERIFY 28626", 10},   {"VERIFY 33333", 2800},    {"VERIFY 33335", 10}};
  int deep = 0, near = 0;
  for (const auto& [name, result] : Run()) {
    ++(result.deep ? deep : near);
    const auto band = wider.find(name);
    EXPECT_LE(result.worst, band != wider.end() ? band->second : result.deep ? 0.03 : 0.01) << name;
    EXPECT_EQ(result.failed, name == "VERIFY 33334" ? 1 : 0) << name;
  }
  EXPECT_EQ(near, 9);
  EXPECT_EQ(deep, 24);
}

std::string MetresText(double km) { return Format(km * 1000, km < 0.0095 ? "0.0" : "#,##0"); }

/// The table of the documents; written anew when the environment asks for it.
TEST_F(Verification2006, TableOfTheDocumentsHoldsWhatIsMeasured) {
  const std::string file = std::string(TEST_SOURCE_DIR) + "/docs/verification-2006.md";
  std::string table =
      "| Set | Model | Inclination | Eccentricity | Days | Largest difference, m "
      "|\n|---|---|---|---|---|---|\n";
  for (const auto& [name, result] : Run()) {
    const std::string worst = result.failed > 0 ? "fails" : MetresText(result.worst);
    table += "| " + name.substr(7) + " | " + (result.deep ? "SDP4" : "SGP4") + " | " +
             Format(result.inclination, "0.0") + " | " + Format(result.eccentricity, "0.000") + " | " +
             Format(result.last / 1440, "0.0") + " | " + worst + " |\n";
  }
  if (std::getenv("HALVORINE_WRITE_TABLES") != nullptr) {
    const std::string text = ReadWholeFile(file);
    const std::string before = text.substr(0, text.find("| Set |"));
    std::ofstream(file) << before << table;
  }
  EXPECT_NE(ReadWholeFile(file).find(table), std::string::npos) << "set HALVORINE_WRITE_TABLES to write it";
}

}  // namespace
}  // namespace halvorine
