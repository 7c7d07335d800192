#include <gtest/gtest.h>

#include "astro/mAstro.h"
#include "tests/fakes/SkyReference.h"

namespace halvorine {
namespace {

class SkyObjects : public testing::Test {
 protected:
  ~SkyObjects() override { ResetSharedRecords(); }
  const std::string shipped = ReadWholeFile(std::string(TEST_SOURCE_DIR) + "/data/planets.dat");
};

TEST_F(SkyObjects, ShippedFileFillsAllRows) {
  ReadSkyObjects(shipped);
  const char* names[] = {"Mercury", "Venus",   "Mars", "Jupiter", "Saturn",
                         "Uranus",  "Neptune", "Sun",  "Moon",    "Earth"};
  for (int row = 1; row <= 10; ++row) EXPECT_EQ(SkyObjectTable[row].ObjectName, names[row - 1]);
  // the third law holds for each planet: the square of the years is the cube of the axis
  for (int row = Mercury; row <= Neptune; ++row) {
    const SkyObject& body = SkyObjectTable[row];
    EXPECT_NEAR(std::pow(body.PeriodYears, 2) / std::pow(body.SemiMajorAxis, 3), 1, 0.002) << row;
  }
}

TEST_F(SkyObjects, BadFilesAreRefusedAndLeaveTheTable) {
  ReadSkyObjects(shipped);
  const auto replaced = [this](const std::string& what, const std::string& with) {
    std::string text = shipped;
    return text.replace(text.find(what), what.size(), with);
  };
  const std::string bad[] = {"",
                             shipped.substr(0, shipped.find("Earth")),
                             shipped.substr(0, shipped.rfind(',')),
                             replaced("6.74", "6,74"),
                             replaced("6.74", ""),
                             replaced("-0.42", "-0.42,1"),
                             std::string("\0\xff\n\x01\n", 5),
                             std::string(200000, ',')};
  for (const std::string& text : bad) {
    EXPECT_THROW(ReadSkyObjects(text), ConversionFailure) << text.substr(0, 60);
    EXPECT_EQ(SkyObjectTable[Earth].ObjectName, "Earth");
  }
}

}  // namespace
}  // namespace halvorine
