#include "sky/mStars.h"

#include <bit>

#include "astro/mConv.h"
#include "shell/base/mFiles.h"
#include "shell/base/mGlobal.h"

namespace halvorine {

namespace {

constexpr std::size_t starCount = 9010, recordLength = 35;

float SingleAt(const std::string& bytes, std::size_t at) {
  std::uint32_t value = 0;
  for (std::size_t i = 4; i-- > 0;) value = value << 8U | static_cast<unsigned char>(bytes[at + i]);
  return std::bit_cast<float>(value);
}

}  // namespace

void LoadSkyData() {
  const std::string bytes = ReadProgramFile("\\stars.bin");
  if (bytes.size() < starCount * recordLength) throw FileFailure("file \\stars.bin is too short");
  StarTable.assign(starCount, {});
  for (std::size_t i = 0; i < starCount; ++i) {
    StarTable[i].RightAscension = SingleAt(bytes, i * recordLength);
    StarTable[i].Declination = SingleAt(bytes, i * recordLength + 4);
  }
  const std::string figures = ReadProgramFile("\\clines.dat");
  ItemReader lines(figures);
  ConstellationLines.assign(646, {});
  for (ConstellationLine& line : ConstellationLines) {
    lines.Text();
    for (StarRow* const end : {&line.From, &line.To}) {
      end->RightAscension = ToSingle(lines.Number() / 1000);
      end->Declination = ToSingle(lines.Number() / 100);
    }
  }
  const std::string names = ReadProgramFile("\\cnames.dat");
  ItemReader labels(names);
  ConstellationLabels.assign(89, {});
  for (ConstellationLabel& label : ConstellationLabels) {
    label.RightAscension = labels.Number() / 1000;
    label.Declination = labels.Number() / 100;
    label.Name = labels.Text();
    label.Abbreviation = labels.Text();
  }
}

}  // namespace halvorine
