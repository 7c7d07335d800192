#include "sky/mStars.h"

#include <bit>
#include <cmath>
#include <fstream>

#include "astro/mConv.h"
#include "shell/base/mFiles.h"
#include "shell/base/mGlobal.h"
#include "shell/base/mLang.h"
#include "shell/base/mPlatform.h"
#include "shell/base/mText.h"

namespace halvorine {

namespace {

constexpr std::string_view starFile = "\\stars.bin";
constexpr std::size_t recordLength = 35;

std::uint32_t LittleEndian(std::string_view bytes) {
  std::uint32_t value = 0;
  for (std::size_t i = bytes.size(); i-- > 0;) value = value << 8U | static_cast<unsigned char>(bytes[i]);
  return value;
}

float SingleAt(std::string_view record, std::size_t at) {
  const float value = std::bit_cast<float>(LittleEndian(record.substr(at, 4)));
  if (!std::isfinite(value)) throw ConversionFailure("a place in the star file is not a number");
  return value;
}

/// A text of the file without its padding; some writers pad with zero bytes.
std::string TextAt(std::string_view record, std::size_t at, std::size_t length) {
  const std::string_view text = record.substr(at, length);
  return ToUtf8(RightTrimmed(text.substr(0, std::min(text.find('\0'), text.size()))));
}

StarRow PlaceOf(std::string_view record) {
  StarRow star;
  star.RightAscension = SingleAt(record, 0);
  star.Declination = SingleAt(record, 4);
  return star;
}

std::vector<StarRow> ReadStars(std::string_view bytes) {
  std::vector<StarRow> stars(CatalogueStars);
  if (bytes.size() < stars.size() * recordLength) throw FileFailure("the star file is too short");
  for (std::size_t i = 0; i < stars.size(); ++i)
    stars[i] = PlaceOf(bytes.substr(i * recordLength, recordLength));
  return stars;
}

/// The next two items as a place: hours times 1000 and degrees times 100, whole numbers.
StarRow ReadEnd(ItemReader& items) {
  StarRow end;
  end.RightAscension = ToSingle(ToInt16(items.Number()) / 1000.0);
  end.Declination = ToSingle(ToInt16(items.Number()) / 100.0);
  return end;
}

std::vector<ConstellationLine> ReadFigures(std::string_view text) {
  std::vector<ConstellationLine> lines(FigureLines);
  ItemReader items(text);
  for (ConstellationLine& line : lines) {
    items.Text();  // the constellation, which nothing shows
    line.From = ReadEnd(items);
    line.To = ReadEnd(items);
  }
  return lines;
}

std::vector<ConstellationLabel> ReadLabels(std::string_view text) {
  std::vector<ConstellationLabel> labels(FigureLabels);
  ItemReader items(text);
  for (ConstellationLabel& label : labels) {
    label.RightAscension = items.Number() / 1000;
    label.Declination = items.Number() / 100;
    label.Name = ToUtf8(items.Text());
    label.Abbreviation = LeftAligned(items.Text().substr(0, 3), 3);
  }
  return labels;
}

}  // namespace

void LoadSkyData() {
  std::vector<StarRow> stars = ReadStars(ReadProgramFile(starFile));
  std::vector<ConstellationLine> lines = ReadFigures(ReadProgramFile("\\clines.dat"));
  ConstellationLabels = ReadLabels(ReadProgramFile("\\cnames.dat"));
  StarTable = std::move(stars);
  ConstellationLines = std::move(lines);
}

StarRecord ReadStar(int number) {
  if (number < 1 || number > CatalogueStars)
    throw SubscriptFailure("star " + std::to_string(number) + " does not exist");
  const std::string path = FindProgramFile(starFile);
  std::ifstream file(path, std::ios::binary);
  file.seekg(static_cast<std::streamoff>(number - 1) * static_cast<std::streamoff>(recordLength));
  std::string record(recordLength, '\0');
  if (!file.read(record.data(), static_cast<std::streamsize>(recordLength)))
    throw FileFailure("star " + std::to_string(number) + " cannot be read from file '" + path + "'");
  StarRecord star;
  star.RightAscension = SingleAt(record, 0);
  star.Declination = SingleAt(record, 4);
  star.Magnitude = std::bit_cast<std::int16_t>(
                       static_cast<std::uint16_t>(LittleEndian(std::string_view(record).substr(8, 2)))) /
                   100.0;
  star.Spectrum = TextAt(record, 12, 2);  // the two bytes before it are reserved
  star.Letter = TextAt(record, 14, 2);
  star.Constellation = TextAt(record, 16, 3);
  star.Name = TextAt(record, 19, 16);
  return star;
}

bool TakePickedStar(int number) {
  try {
    PickedStar = ReadStar(number);
    return true;
  } catch (const RuntimeFailure& failure) {
    Tell(MessageKind::Warning, LookupText("MDIForm1", "erroredb") + "\n" + failure.what());
    return false;
  }
}

}  // namespace halvorine
