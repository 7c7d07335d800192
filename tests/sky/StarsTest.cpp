#include "sky/mStars.h"

#include <gtest/gtest.h>

#include <cmath>
#include <set>

#include "shell/base/mFiles.h"
#include "shell/base/mText.h"
#include "tests/fakes/ProgramFolder.h"

namespace halvorine {
namespace {

class Stars : public testing::Test {
 protected:
  ProgramFolder folder;
};

TEST_F(Stars, ShippedFilesFillTheTables) {
  LoadSkyData();
  ASSERT_EQ(StarTable.size(), 9010U);
  ASSERT_EQ(ConstellationLines.size(), 646U);
  ASSERT_EQ(ConstellationLabels.size(), 89U);
  std::set<std::string> abbreviations;
  for (const ConstellationLabel& label : ConstellationLabels) {
    abbreviations.insert(label.Abbreviation);
  }
  EXPECT_EQ(abbreviations.size(), 88U);  // the Serpent has two labels
}

TEST_F(Stars, BothEndsOfEachFigureLineLieNearAStarOfTheCatalogue) {
  LoadSkyData();
  int lost = 0;
  for (const ConstellationLine& line : ConstellationLines) {
    for (const StarRow& end : {line.From, line.To}) {
      bool near = false;
      for (const StarRow& star : StarTable)
        near = near ||
               (std::fabs(star.Declination - end.Declination) < 0.1F &&
                std::fabs(star.RightAscension - end.RightAscension) * 15 * std::cos(end.Declination / 57.3F) <
                    0.1F);
      lost += near ? 0 : 1;
    }
  }
  EXPECT_LT(lost, 13);  // one in a hundred
}

struct KnownStar {
  int number;
  double rightAscension, declination, magnitude;  // J2000, Hipparcos
  const char *constellation, *name;
};

TEST_F(Stars, BrightestStarsAreThoseOfTheAlmanacs) {
  const KnownStar known[] = {{1, 6.7525, -16.7161, -1.46, "CMa", "Sirius"},
                             {2, 6.3992, -52.6957, -0.62, "Car", "Canopus"},
                             {5, 18.6156, 38.7837, 0.03, "Lyr", "Vega"}};
  for (const KnownStar& star : known) {
    const StarRecord record = ReadStar(star.number);
    EXPECT_NEAR(record.RightAscension, star.rightAscension, 0.001) << star.name;
    EXPECT_NEAR(record.Declination, star.declination, 0.01) << star.name;
    EXPECT_NEAR(record.Magnitude, star.magnitude, 0.1) << star.name;
    EXPECT_EQ(record.Constellation, star.constellation);
    EXPECT_EQ(record.Name, star.name);
    EXPECT_EQ(record.Letter, "a");
  }
}

TEST_F(Stars, CountsStandForMagnitudes) {
  const std::pair<int, double> rows[] = {{23, 1.5}, {1639, 5}, {5146, 6}, {8523, 6.5}};
  for (const auto& [number, magnitude] : rows)
    EXPECT_NEAR(ReadStar(number).Magnitude, magnitude, 0.05) << number;
}

TEST_F(Stars, NumbersOutsideTheCatalogueAndMissingFilesFail) {
  for (const int number : {0, -1, 9011, 2147483647}) EXPECT_THROW(ReadStar(number), SubscriptFailure);
  EXPECT_EQ(ReadStar(9010).Constellation.size(), 3U);
  folder.Remove("stars.bin");
  EXPECT_THROW(ReadStar(1), FileFailure);
  std::filesystem::create_directory(folder.Path("stars.bin"));
  EXPECT_THROW(ReadStar(1), FileFailure);
}

TEST_F(Stars, BadFilesFailAndLeaveAllTables) {
  LoadSkyData();
  const std::string stars = ProgramFolder::Read(folder.Path("stars.bin"));
  const std::string figures = ProgramFolder::Read(folder.Path("clines.dat"));
  const std::string labels = ProgramFolder::Read(folder.Path("cnames.dat"));
  std::string notANumber = stars;
  notANumber.replace(35 * 4000, 4, "\xFF\xFF\xFF\x7F");
  const auto without = [](const std::string& text) { return text.substr(0, text.rfind(',')); };
  const auto swapped = [](std::string text, const char* what) {
    return text.replace(text.find(','), 1, what);
  };
  const std::pair<const char*, std::string> bad[] = {{"stars.bin", stars.substr(0, 315349)},
                                                     {"stars.bin", notANumber},
                                                     {"clines.dat", without(figures)},
                                                     {"clines.dat", swapped(figures, ",x")},
                                                     {"clines.dat", swapped(figures, ",99999,")},
                                                     {"cnames.dat", std::string(100000, ',')},
                                                     {"cnames.dat", swapped(labels, "\n\xFF")},
                                                     {"cnames.dat", std::string("\0\1\2", 3)}};
  for (const auto& [name, content] : bad) {
    folder.Write(name, content);
    StarTable[0].RightAscension = 77;
    ConstellationLines[0].To.Declination = 77;
    EXPECT_THROW(LoadSkyData(), RuntimeFailure) << name << " " << content.size();
    EXPECT_TRUE(StarTable[0].RightAscension == 77 && ConstellationLines[0].To.Declination == 77) << name;
    folder.Write("stars.bin", stars);
    folder.Write("clines.dat", figures);
    folder.Write("cnames.dat", labels);
  }
}

}  // namespace
}  // namespace halvorine
