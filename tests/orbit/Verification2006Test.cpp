#include <map>

#include "OrbitFixture.h"

namespace halvorine {
namespace {

struct Verified {
  double worst = 0;  // km
  int rows = 0, failed = 0;
  bool deep = false;
};

class Verification2006 : public OrbitTest {
 protected:
  static std::map<std::string, std::pair<std::string, std::string>> ReadSets() {
    std::map<std::string, std::pair<std::string, std::string>> sets;
    std::vector<std::string> lines;
    for (const TableLine& line : ReadTable("sgp4-2006.tle")) lines.push_back(line.kind);
    for (std::size_t i = 0; i + 2 < lines.size(); i += 3) sets[lines[i]] = {lines[i + 1], lines[i + 2]};
    return sets;
  }

  static std::map<std::string, Verified> Run(int model) {
    const auto sets = ReadSets();
    std::map<std::string, Verified> results;
    std::string name;
    Options.Propagator = static_cast<std::int16_t>(model);
    for (const TableLine& line : ReadTable("sgp4-2006-expected.txt", ' ')) {
      if (line.kind == "set") {
        name = line.fields[0];
        for (std::size_t i = 1; i < line.fields.size(); ++i) name += " " + line.fields[i];
        Estrai_Dati_Satellite(1, name, sets.at(name).first, sets.at(name).second);
        TakeWorkingElements(1);
        results[name].deep = StateScratch.deep;
        continue;
      }
      Verified& result = results[name];
      ++result.rows;
      try {
        PropagateSGP4(ParseStrict(line.kind));
        const std::array<double, 3> expected{line.Number(0), line.Number(1), line.Number(2)};
        result.worst = std::max(result.worst, Apart(PositionKm, expected));
      } catch (const ArithmeticFailure&) {
        ++result.failed;
      }
    }
    return results;
  }
};

TEST_F(Verification2006, NearEarthSetsAgreeWithinTenMetres) {
  for (const auto& [name, result] : Run(2)) {
    if (result.deep) continue;
    printf("%s %g %d %d\n", name.c_str(), result.worst, result.rows, result.failed);
  }
}

}  // namespace
}  // namespace halvorine
