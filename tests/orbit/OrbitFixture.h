// What the orbit tests share: clean records, reference tables, trapping arithmetic.
#pragma once

#include <cfenv>
#include <cmath>
#include <fstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "astro/mConv.h"
#include "orbit/mSat.h"
#include "shell/base/mText.h"

namespace halvorine {

/// Lets an invalid operation or a division by zero in unchecked code end the run while it lives.
class TrapArithmetic {
 public:
  TrapArithmetic() {
    std::feclearexcept(FE_ALL_EXCEPT);
    before_ = feenableexcept(FE_DIVBYZERO | FE_INVALID);
  }
  ~TrapArithmetic() {
    fedisableexcept(FE_DIVBYZERO | FE_INVALID);
    feenableexcept(before_);
  }
  TrapArithmetic(const TrapArithmetic&) = delete;
  TrapArithmetic& operator=(const TrapArithmetic&) = delete;

 private:
  int before_ = 0;
};

/// One line of a reference table: its kind and its fields.
struct TableLine {
  std::string kind;
  std::vector<std::string> fields;
  double Number(std::size_t at) const { return ParseStrict(fields.at(at)); }
  bool Fails() const { return fields.back() == "fails"; }
};

inline std::vector<TableLine> ReadTable(const std::string& name, char separator = '|') {
  std::ifstream file(std::string(TEST_SOURCE_DIR) + "/tests/reference/" + name);
  EXPECT_TRUE(file.good()) << name;
  std::vector<TableLine> lines;
  for (std::string text; std::getline(file, text);) {
    if (text.empty() || text[0] == '#') continue;
    std::vector<std::string> pieces = Split(text, separator);
    TableLine line{pieces.front(), {pieces.begin() + 1, pieces.end()}};
    lines.push_back(line);
  }
  EXPECT_FALSE(lines.empty()) << name;
  return lines;
}

/// Clean records, a magnitude table that takes all numbers, arithmetic that traps.
class OrbitTest : public testing::Test {
 protected:
  OrbitTest() {
    ResetSharedRecords();
    ResetOrbitRecords();
    MagnitudeTable.assign(100000, "");
    Options.Propagator = 2;
    Options.SunThreshold = -10;
  }
  ~OrbitTest() override { ResetSharedRecords(); }

  static void Observe(double latitude, double longitude, double height) {
    Site.Latitude = static_cast<float>(latitude);
    Site.Longitude = static_cast<float>(longitude);
    Site.Height = static_cast<float>(height);
  }

 private:
  TrapArithmetic trap_;
};

/// Working elements of the set in a slot, at any instant; the state comes with them.
inline void TakeWorkingElements(int slot) { ComputeSatelliteState(slot, ElementSets[slot].EpochJulianDay); }

/// Largest difference of three numbers.
inline double Apart(const std::array<double, 3>& a, const std::array<double, 3>& b) {
  return std::max({std::fabs(a[0] - b[0]), std::fabs(a[1] - b[1]), std::fabs(a[2] - b[2])});
}

inline const char* const issName = "ISS (ZARYA)";
inline const char* const issLine1 = "1 25544U 98067A   18020.89808844  .00002078  00000-0  38550-4 0  9992";
inline const char* const issLine2 = "2 25544  51.6424  32.9776 0003646  28.7227  39.5332 15.54190080 95614";

}  // namespace halvorine
