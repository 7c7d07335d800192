#include "sky/mStars.h"

#include <gtest/gtest.h>

#include <bit>
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

/// One record, written byte by byte and not by the reader's own means.
std::string Record(float rightAscension, float declination, int hundredths, const std::string& texts) {
  std::string bytes;
  for (const float value : {rightAscension, declination}) {
    const auto bits = std::bit_cast<std::uint32_t>(value);
    for (unsigned shift = 0; shift < 32; shift += 8) bytes += static_cast<char>(bits >> shift & 0xFFU);
  }
  bytes += static_cast<char>(hundredths & 0xFF);
  bytes += static_cast<char>(hundredths >> 8 & 0xFF);
  return bytes + texts;
}

TEST_F(Stars, ShippedFilesFillTheTables) {
  LoadSkyData();
  ASSERT_EQ(StarTable.size(), 9010U);
  ASSERT_EQ(ConstellationLines.size(), 646U);
  ASSERT_EQ(ConstellationLabels.size(), 89U);
  for (const StarRow& star : StarTable) {
    EXPECT_TRUE(star.RightAscension >= 0 && star.RightAscension < 24);
    EXPECT_TRUE(std::fabs(star.Declination) <= 90);
  }
  std::set<std::string> abbreviations;
  for (const ConstellationLabel& label : ConstellationLabels) {
    EXPECT_TRUE(label.RightAscension >= 0 && label.RightAscension < 24) << label.Name;
    EXPECT_TRUE(std::fabs(label.Declination) <= 90) << label.Name;
    EXPECT_EQ(label.Abbreviation.size(), 3U);
    EXPECT_FALSE(label.Name.empty());
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
    EXPECT_FALSE(record.Spectrum.empty());
  }
}

TEST_F(Stars, CountsStandForMagnitudes) {
  const std::pair<int, double> rows[] = {{23, 1.5}, {1639, 5}, {5146, 6}, {8523, 6.5}};
  for (const auto& [number, magnitude] : rows)
    EXPECT_NEAR(ReadStar(number).Magnitude, magnitude, 0.05) << number;
  LoadSkyData();
  double former = -2;
  for (int number = 1; number <= CatalogueStars; number += 53) {
    const StarRecord star = ReadStar(number);
    EXPECT_GE(star.Magnitude, former) << number;
    former = star.Magnitude;
    EXPECT_EQ(star.RightAscension, StarTable[static_cast<std::size_t>(number - 1)].RightAscension);
    EXPECT_EQ(star.Declination, StarTable[static_cast<std::size_t>(number - 1)].Declination);
  }
}

TEST_F(Stars, RecordIsDecodedFieldByField) {
  const std::string texts = std::string("??") + "M2" + "g1" + "UMi" + "Ca\xF1opus x       ";
  std::string bytes = Record(23.5F, -0.125F, -146, texts) + Record(1, 2, 32767, std::string(25, '\0'));
  folder.Write("stars.bin", bytes);
  const StarRecord star = ReadStar(1);
  EXPECT_EQ(star.RightAscension, 23.5F);
  EXPECT_EQ(star.Declination, -0.125F);
  EXPECT_EQ(star.Magnitude, -1.46);
  EXPECT_EQ(star.Spectrum, "M2");
  EXPECT_EQ(star.Letter, "g1");
  EXPECT_EQ(star.Constellation, "UMi");
  EXPECT_EQ(star.Name, "Cañopus x");
  EXPECT_EQ(ReadStar(2).Magnitude, 327.67);
  EXPECT_EQ(ReadStar(2).Name, "");
  EXPECT_THROW(ReadStar(3), FileFailure);
}

TEST_F(Stars, NumbersOutsideTheCatalogueAndMissingFilesFail) {
  for (const int number : {0, -1, 9011, 2147483647}) EXPECT_THROW(ReadStar(number), SubscriptFailure);
  EXPECT_EQ(ReadStar(9010).Constellation.size(), 3U);
  folder.Write("stars.bin", Record(std::nanf(""), 0, 0, std::string(25, ' ')));
  EXPECT_THROW(ReadStar(1), ConversionFailure);
  folder.Remove("stars.bin");
  EXPECT_THROW(ReadStar(1), FileFailure);
  std::filesystem::create_directory(folder.Path("stars.bin"));
  EXPECT_THROW(ReadStar(1), FileFailure);
}

TEST_F(Stars, LinesBeyondTheCountAndForeignLineEndsAreTaken) {
  LoadSkyData();
  const ConstellationLine last = ConstellationLines.back();
  for (const char* name : {"clines.dat", "cnames.dat"}) {
    std::string text;
    for (const char c : ProgramFolder::Read(folder.Path(name)))
      text += c == '\n' ? std::string("\r\n") : std::string(1, c);
    folder.Write(name, text + "rubbish without end, \"");
  }
  folder.Write("stars.bin", ProgramFolder::Read(TEST_SOURCE_DIR "/data/stars.bin") + "tail");
  LoadSkyData();
  EXPECT_EQ(ConstellationLines.back().To.RightAscension, last.To.RightAscension);
  EXPECT_EQ(ConstellationLabels.front().Abbreviation, "And");
}

TEST_F(Stars, FigureNumbersAreDividedIntoHoursAndDegrees) {
  std::string figures, labels;
  for (int i = 0; i < FigureLines; ++i) figures += "\"UMa\",11062,6175, 0 ,-9000\n";
  for (int i = 0; i < FigureLabels; ++i) labels += "23999.5,-1234.5,\"A, B\",\"XY\"\n";
  folder.Write("clines.dat", figures);
  folder.Write("cnames.dat", labels);
  LoadSkyData();
  EXPECT_EQ(ConstellationLines[645].From.RightAscension, 11.062F);
  EXPECT_EQ(ConstellationLines[645].From.Declination, 61.75F);
  EXPECT_EQ(ConstellationLines[645].To.RightAscension, 0);
  EXPECT_EQ(ConstellationLines[645].To.Declination, -90);
  EXPECT_EQ(ConstellationLabels[88].RightAscension, 23.9995);
  EXPECT_EQ(ConstellationLabels[88].Declination, -12.345);
  EXPECT_EQ(ConstellationLabels[88].Name, "A, B");
  EXPECT_EQ(ConstellationLabels[88].Abbreviation, "XY ");
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
                                                     {"stars.bin", ""},
                                                     {"stars.bin", notANumber},
                                                     {"clines.dat", ""},
                                                     {"clines.dat", without(figures)},
                                                     {"clines.dat", swapped(figures, ",x")},
                                                     {"clines.dat", swapped(figures, ",99999,")},
                                                     {"clines.dat", std::string(5000, '"')},
                                                     {"cnames.dat", without(labels)},
                                                     {"cnames.dat", std::string(100000, ',')},
                                                     {"cnames.dat", swapped(labels, "\n\xFF")},
                                                     {"cnames.dat", std::string("\0\1\2", 3)}};
  for (const auto& [name, content] : bad) {
    folder.Write(name, content);
    StarTable[0].RightAscension = 77;
    ConstellationLines[0].To.Declination = 77;
    ConstellationLabels[0].Name = "kept";
    EXPECT_THROW(LoadSkyData(), RuntimeFailure) << name << " " << content.size();
    EXPECT_EQ(StarTable[0].RightAscension, 77) << name;
    EXPECT_EQ(ConstellationLines[0].To.Declination, 77) << name;
    EXPECT_EQ(ConstellationLabels[0].Name, "kept") << name;
    folder.Write("stars.bin", stars);
    folder.Write("clines.dat", figures);
    folder.Write("cnames.dat", labels);
  }
}

}  // namespace
}  // namespace halvorine
