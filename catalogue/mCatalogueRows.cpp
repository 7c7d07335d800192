#include <algorithm>
#include <utility>

#include "astro/mConv.h"
#include "astro/mMate.h"
#include "catalogue/mCatalogue.h"
#include "catalogue/mCatalogueParts.h"
#include "catalogue/mTables.h"
#include "shell/base/mForms.h"
#include "shell/base/mText.h"

namespace halvorine {

namespace {

constexpr std::size_t nameCharacters = 24;
constexpr std::string_view unknown = "???";

struct Listing {
  SortKey key = SortKey::Name;
  std::shared_ptr<const CatalogueRows> rows = std::make_shared<CatalogueRows>();
};

std::array<Listing, 2> listings;

Listing& ListingOf(int index) {
  if (index != Primary && index != Secondary)
    throw SubscriptFailure("there is no database " + std::to_string(index));
  return listings[static_cast<std::size_t>(index)];
}

char Folded(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c; }

std::uint64_t OrderOf(std::string_view text) {
  std::uint64_t order = 0;
  for (std::size_t i = 0; i < 8; ++i)
    order = order << 8U | (i < text.size() ? static_cast<unsigned char>(Folded(text[i])) : 0U);
  return order;
}

bool Continues(char c) { return (static_cast<unsigned char>(c) & 0xC0U) == 0x80U; }

/// The first characters of a name, in UTF-8 whatever the file holds.
std::string NamePart(std::string_view name) {
  std::size_t cut = std::min(name.size(), nameCharacters * 4);
  while (cut > 0 && cut < name.size() && Continues(name[cut])) --cut;
  std::string text = ToUtf8(name.substr(0, cut));
  std::size_t end = 0;
  for (std::size_t characters = 0; end < text.size(); ++end) {
    if (!Continues(text[end]) && ++characters > nameCharacters) break;
  }
  text.resize(end);
  return text;
}

/// A magnitude by its picture; what is no number stands as the table has it.
std::string MagnitudeKey(const EntryView& entry) {
  const std::string_view magnitude = StandardMagnitude(CatalogueNumberOf(entry));
  if (magnitude.empty()) return std::string(unknown);
  try {
    return Format(ParseStrict(magnitude), "0.0");
  } catch (const ConversionFailure&) {
    return std::string(magnitude);
  }
}

std::string KeyText(const EntryView& entry, SortKey key, YearReading year) {
  const auto number = [&entry](int first, int last) {
    return ParseNumber(Columns(entry.line2, first, last));
  };
  switch (key) {
    case SortKey::LaunchYear: {
      const std::string_view digits = Columns(entry.line1, 10, 11);
      return NumberText(FullYear(year == YearReading::Strict ? ParseStrict(digits) : ParseNumber(digits)));
    }
    case SortKey::Inclination:
      return Format(number(9, 16), "000.0");
    case SortKey::AscendingNode:
      return Format(number(18, 25), "000.0");
    case SortKey::Period:
      return Format(Div(1440, number(53, 63)), "0000.0");
    case SortKey::CatalogueNumber:
      return std::string(Columns(entry.line1, 3, 7));
    case SortKey::Magnitude:
      return MagnitudeKey(entry);
    case SortKey::Eccentricity:
      return Format(ParseNumber(std::string(".").append(Columns(entry.line2, 27, 33))), "0.0000");
    case SortKey::ArgumentOfPerigee:
      return Format(number(35, 42), "000.0");
    case SortKey::MeanMotion:
      return Format(number(53, 63), "00.0");
    default:
      return {};
  }
}

}  // namespace

const std::array<const char*, SortKeyCount> SortKeyTexts{"optname",    "optyear",  "optinc",       "optraan",
                                                         "optperiod",  "optnorad", "optmagnitude", "optecc",
                                                         "optperigee", "optrev"};

void CatalogueRows::Reserve(int rows, std::size_t bytes) {
  rows_.reserve(static_cast<std::size_t>(rows));
  text_.reserve(bytes);
}

void CatalogueRows::Append(std::string_view text, int number) {
  rows_.push_back({text_.size(), static_cast<std::uint32_t>(text.size()), number, OrderOf(text)});
  text_.append(text);
}

void CatalogueRows::Sort() {
  std::sort(rows_.begin(), rows_.end(), [this](const Row& a, const Row& b) {
    if (a.order != b.order) return a.order < b.order;
    if (LessText(TextOf(a), TextOf(b))) return true;
    if (LessText(TextOf(b), TextOf(a))) return false;
    return a.number < b.number;
  });
}

const CatalogueRows::Row& CatalogueRows::Checked(int row) const {
  if (row < 0 || row >= Count()) throw SubscriptFailure("row " + std::to_string(row) + " does not exist");
  return rows_[static_cast<std::size_t>(row)];
}

std::string_view CatalogueRows::Text(int row) const { return TextOf(Checked(row)); }
int CatalogueRows::Number(int row) const { return Checked(row).number; }

std::string RowText(const EntryView& entry, std::string_view name, SortKey key, YearReading year) {
  if (key == SortKey::Name) return NamePart(name);
  std::string row;
  try {
    row = ToUtf8(KeyText(entry, key, year));
  } catch (const RuntimeFailure&) {
    row = unknown;
  }
  return row.append("  ").append(NamePart(name));
}

std::shared_ptr<const CatalogueRows> ListedRows(int index) { return ListingOf(index).rows; }
SortKey SortKeyOf(int index) { return ListingOf(index).key; }

void PublishRows(int index, std::shared_ptr<const CatalogueRows> rows) {
  ListingOf(index).rows = rows != nullptr ? std::move(rows) : std::make_shared<const CatalogueRows>();
}

void ChangeSortKey(int index, SortKey key) {
  const SatelliteDatabase& database = DatabaseOf(index);
  auto rows = std::make_shared<CatalogueRows>();
  rows->Reserve(database.Count(), static_cast<std::size_t>(database.Count()) * 32);
  for (int number = 1; number <= database.Count(); ++number) {
    const EntryView& entry = database.Entry(number);
    rows->Append(RowText(entry, entry.name, key, YearReading::Strict), number);
  }
  rows->Sort();
  ListingOf(index).key = key;
  PublishRows(index, std::move(rows));
}

}  // namespace halvorine
