#include <algorithm>
#include <array>

#include "astro/mAstro.h"
#include "astro/mMate.h"
#include "shell/base/mFiles.h"
#include "shell/base/mText.h"

namespace halvorine {

namespace {

constexpr std::size_t elementCount = 9;

std::string_view WithoutLeadingBlanks(std::string_view text) {
  return text.substr(std::min(text.find_first_not_of(" \t"), text.size()));
}

/// The nine numbers of a body; a comma, blanks, or both stand between two of them.
std::array<double, elementCount> ReadElements(std::string_view line) {
  std::array<double, elementCount> elements{};
  std::string_view rest = WithoutLeadingBlanks(line);
  for (std::size_t i = 0; i < elementCount; ++i) {
    const std::size_t end = std::min(rest.find_first_of(", \t"), rest.size());
    elements[i] = ParseStrict(rest.substr(0, end));
    rest = WithoutLeadingBlanks(rest.substr(end));
    if (!rest.empty() && rest.front() == ',') rest = WithoutLeadingBlanks(rest.substr(1));
  }
  if (!rest.empty()) throw ConversionFailure("more than nine elements in line '" + std::string(line) + "'");
  return elements;
}

SkyObject ReadSkyObject(LineReader& lines) {
  std::string_view name;
  std::string_view line;
  if (!lines.Next(name) || !lines.Next(line)) throw ConversionFailure("the planet file ends too early");
  const std::array<double, elementCount> elements = ReadElements(line);
  SkyObject body;
  body.ObjectName = Trimmed(name);
  body.PeriodYears = elements[0];
  body.LongitudeAtEpoch = elements[1];
  body.PerihelionLongitude = elements[2];
  body.Eccentricity = elements[3];
  body.SemiMajorAxis = elements[4];
  body.OrbitInclination = elements[5];
  body.NodeLongitude = elements[6];
  body.DiameterAtOneAU = elements[7];
  body.MagnitudeAtOneAU = elements[8];
  return body;
}

}  // namespace

void ReadSkyObjects(std::string_view text) {
  Slots<SkyObject, 10> table;
  LineReader lines(text);
  for (int row = 1; row <= Slots<SkyObject, 10>::Size(); ++row) table[row] = ReadSkyObject(lines);
  SkyObjectTable = table;
}

}  // namespace halvorine
