#include <unordered_map>

#include "astro/mAstro.h"
#include "astro/mConv.h"
#include "orbit/mSat.h"
#include "shell/base/mText.h"

namespace halvorine {

namespace {

double NumberAt(std::string_view line, int first, int last) {
  return ParseNumber(Columns(line, first, last));
}

/// Two digits of a year: 57 to 99 are the last century.
double FullYear(double year) { return year < 57 ? year + 2000 : year + 1900; }

/// First 24 characters (not bytes) of the name line.
std::string_view NameOf(std::string_view nameLine) {
  std::size_t end = 0;
  for (int count = 0; end < nameLine.size(); ++end) {
    const bool begins = (static_cast<unsigned char>(nameLine[end]) & 0xC0U) != 0x80U;
    if (begins && ++count > 24) break;
  }
  return nameLine.substr(0, end);
}

std::string StandardMagnitudeOf(const std::string& catalogNumber) {
  const std::int32_t index = ToInt32(ParseStrict(catalogNumber));
  if (index < 0 || static_cast<std::size_t>(index) >= MagnitudeTable.size())
    throw SubscriptFailure("catalogue number " + std::to_string(index) + " lies outside the magnitude table");
  const std::string& entry = MagnitudeTable[static_cast<std::size_t>(index)];
  return entry.empty() ? std::string() : NumberText(ParseNumber(entry));
}

/// Rows of FrequencyTable by catalogue number, in the table's order.
struct FrequencyIndex {
  const FrequencyRow* rows = nullptr;  // the table that was indexed
  std::size_t size = 0;
  std::unordered_map<std::string, std::vector<std::size_t>> byNumber;
};
FrequencyIndex frequencyIndex;

void DistributeChannels(ElementSet& set) {
  if (frequencyIndex.rows != FrequencyTable.data() || frequencyIndex.size != FrequencyTable.size())
    IndexFrequencies();
  const auto found = frequencyIndex.byNumber.find(set.CatalogNumber);
  if (found == frequencyIndex.byNumber.end()) return;
  for (const std::size_t row : found->second) {
    std::size_t channel = 0;
    while (channel < set.Uplink.size() && !(set.Uplink[channel].empty() && set.Downlink[channel].empty()))
      ++channel;
    if (channel == set.Uplink.size()) return;
    set.Uplink[channel] = FrequencyTable[row].uplink;
    set.Downlink[channel] = FrequencyTable[row].downlink;
  }
}

void DecodeLine1(std::string_view line, ElementSet& set) {
  set.CatalogNumber = Columns(line, 3, 7);
  set.LaunchYear = FullYear(NumberAt(line, 10, 11));
  set.LaunchNumber = NumberAt(line, 12, 14);
  set.LaunchPiece = RightTrimmed(Columns(line, 15, 17));
  set.EpochYear = FullYear(NumberAt(line, 19, 20));
  set.EpochDay = NumberAt(line, 21, 32);
  set.MeanMotionDot = NumberAt(line, 34, 43);
  set.MeanMotionDDotMantissa = NumberAt(line, 45, 50) * 1e-5;
  set.MeanMotionDDotExponent = NumberAt(line, 51, 52);
  set.BstarMantissa = NumberAt(line, 54, 59) * 1e-5;
  set.BstarExponent = NumberAt(line, 60, 61);
}

void DecodeLine2(std::string_view line, ElementSet& set) {
  set.Inclination = NumberAt(line, 9, 16);
  set.RightAscension = NumberAt(line, 18, 25);
  set.Eccentricity = NumberAt(line, 27, 33) * 1e-7;
  set.ArgumentOfPerigee = NumberAt(line, 35, 42);
  set.MeanAnomaly = NumberAt(line, 44, 51);
  set.MeanMotion = NumberAt(line, 53, 63);
  set.RevolutionNumber = NumberAt(line, 64, 68);
}

}  // namespace

void IndexFrequencies() {
  frequencyIndex.rows = FrequencyTable.data();
  frequencyIndex.size = FrequencyTable.size();
  frequencyIndex.byNumber.clear();
  for (std::size_t row = 0; row < FrequencyTable.size(); ++row)
    frequencyIndex.byNumber[FrequencyTable[row].catalogueNumber].push_back(row);
}

void Estrai_Dati_Satellite(int slot, const std::string& nameLine, const std::string& line1,
                           const std::string& line2) {
  ElementSet& set = ElementSets[slot];
  DatabaseEntry& lines = ElementLines[slot];  // piece by piece, which keeps the storage they have
  lines.name = nameLine;
  lines.line1 = line1;
  lines.line2 = line2;
  DecodeLine1(line1, set);
  DecodeLine2(line2, set);
  set.Name = Trimmed(ProperCase(NameOf(nameLine)));
  set.EpochJulianDay = JulianDay(set.EpochYear, 1, 0) + set.EpochDay;
  DistributeChannels(set);
  // last, because it is all that can fail: the slot then lacks nothing but its magnitude
  set.StandardMagnitude.clear();
  set.StandardMagnitude = StandardMagnitudeOf(set.CatalogNumber);
}

}  // namespace halvorine
