#include "catalogue/mTables.h"

#include <map>
#include <string>
#include <utility>
#include <vector>

#include "astro/mConv.h"
#include "shell/base/mFailure.h"
#include "shell/base/mFiles.h"
#include "shell/base/mGlobal.h"

namespace halvorine {

namespace {

// beyond every number that five columns can hold; a damaged file must not take the whole memory
constexpr int highestNumber = 999999;

}  // namespace

void ReadMagnitudes(std::string_view text) {
  // rows may fall as well as rise, so that the table is made when the last of them is known
  std::map<std::size_t, std::string> rows;
  std::size_t size = 0;
  ItemReader items(text);
  while (!items.AtBlankLine()) {  // whose first item is empty, which ends the table
    const std::string field = items.Text();
    if (field.empty()) break;
    const int number = ToInt32(ParseStrict(field));
    if (number < 0 || number > highestNumber)
      throw SubscriptFailure("magnitude of catalogue number " + field);
    size = static_cast<std::size_t>(number) + 1;
    rows.erase(rows.upper_bound(size - 1), rows.end());
    rows[size - 1] = items.Text();
  }
  std::vector<std::string> table(size);
  for (auto& [number, magnitude] : rows) table[number] = std::move(magnitude);
  MagnitudeTable = std::move(table);
}

void ReadFrequencies(std::string_view text) {
  std::vector<FrequencyRow> table;
  ItemReader items(text);
  while (!items.AtBlankLine()) {  // whose first item is empty, which ends the table
    FrequencyRow row;
    row.catalogueNumber = items.Text();
    if (row.catalogueNumber.empty()) break;
    row.uplink = NumberText(ToSingle(items.Number()));
    row.downlink = NumberText(ToSingle(items.Number()));
    items.Text();
    table.push_back(std::move(row));
  }
  FrequencyTable = std::move(table);
}

void LoadMagnitudes() { ReadMagnitudes(ReadProgramFile("\\magnitud.dat")); }
void LoadFrequencies() { ReadFrequencies(ReadProgramFile("\\frequen.dat")); }

std::string_view StandardMagnitude(int number) {
  if (number < 0 || static_cast<std::size_t>(number) >= MagnitudeTable.size())
    throw SubscriptFailure("catalogue number " + std::to_string(number) + " is beyond the magnitude table");
  return MagnitudeTable[static_cast<std::size_t>(number)];
}

namespace {

void FillFreeChannel(ElementSet& set, const FrequencyRow& row) {
  for (std::size_t channel = 0; channel < set.Uplink.size(); ++channel) {
    if (!set.Uplink[channel].empty() || !set.Downlink[channel].empty()) continue;
    set.Uplink[channel] = row.uplink;
    set.Downlink[channel] = row.downlink;
    return;
  }
}

}  // namespace

void DistributeFrequencies() {
  for (const FrequencyRow& row : FrequencyTable)
    for (int slot = 1; slot <= ActiveCount; ++slot)
      if (ElementSets[slot].CatalogNumber == row.catalogueNumber) {
        FillFreeChannel(ElementSets[slot], row);
        break;
      }
}

}  // namespace halvorine
