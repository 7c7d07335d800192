#include "prediction/mPassList.h"

#include <algorithm>
#include <cmath>
#include <numeric>

#include "astro/mConv.h"
#include "shell/base/mLang.h"
#include "shell/base/mText.h"

namespace halvorine {

namespace {

constexpr const char* section = "frmVisibleSatellites";
constexpr int seconds = 86400;

const std::array<PassColumnInfo, PassColumnCount> columns = {{
    {section, "dataculmine", nullptr, 2300, false},
    {section, "nomesatellite", nullptr, 2400, false},
    {"Def", "alt", nullptr, 800, true},
    {"Def", "az", nullptr, 800, true},
    {"Def", "stato", nullptr, 900, false},
    {"Def", "mag", nullptr, 800, true},
    {section, "durata1", nullptr, 1200, true},
    {nullptr, nullptr, "Data culmine (appoggio)", 0, false},
    {nullptr, nullptr, "Mag. (appoggio)", 0, false},
}};

/// The first characters (code points) of a text.
std::string_view FirstCharacters(std::string_view text, std::size_t count) {
  std::size_t end = 0;
  while (end < text.size()) {
    const bool begins = (static_cast<unsigned char>(text[end]) & 0xC0U) != 0x80U;
    if (begins && count-- == 0) break;
    ++end;
  }
  return text.substr(0, end);
}

std::string DurationText(double total) {
  const PassDuration duration = DurationOf(total);
  return Format(duration.hours, "00") + ":" + Format(duration.minutes, "00") + ":" +
         Format(duration.seconds, "00");
}

/// A key that sorts as the first sixteen bytes of a text, without regard to case.
struct SortKeyOfRow {
  std::uint64_t high = 0, low = 0;
  std::uint32_t found = 0;
  bool operator<(const SortKeyOfRow& other) const {
    if (high != other.high) return high < other.high;
    if (low != other.low) return low < other.low;
    return found < other.found;
  }
};

SortKeyOfRow KeyOfText(std::string_view text) {
  constexpr std::size_t half = sizeof(std::uint64_t);
  const std::string folded = LowerCase(text);
  SortKeyOfRow key;
  for (std::size_t i = 0; i < 2 * half; ++i) {
    std::uint64_t& word = i < half ? key.high : key.low;
    word = word << 8U | (i < folded.size() ? static_cast<unsigned char>(folded[i]) : 0U);
  }
  return key;
}

/// A number that sorts as the picture "yyyymmdd hh:mm:ss" of a date.
std::uint64_t DateOrder(Date date) {
  const DateParts parts = PartsOf(date);
  const std::int64_t day = (static_cast<std::int64_t>(parts.year) * 100 + parts.month) * 100 + parts.day;
  const std::int64_t second = (parts.hour * 60 + parts.minute) * 60 + parts.second;
  return static_cast<std::uint64_t>(std::max<std::int64_t>(day, 0) * seconds + second);
}

/// For each text its place among all of them in order; equal ones have the same.
std::vector<std::uint32_t> RanksOf(const std::vector<std::string>& texts) {
  std::vector<std::uint32_t> order(texts.size());
  std::iota(order.begin(), order.end(), 0U);
  std::sort(order.begin(), order.end(),
            [&](std::uint32_t a, std::uint32_t b) { return LessText(texts[a], texts[b]); });
  std::vector<std::uint32_t> ranks(texts.size());
  std::uint32_t rank = 0;
  for (std::size_t i = 0; i < order.size(); ++i) {
    if (i > 0 && LessText(texts[order[i - 1]], texts[order[i]])) ++rank;
    ranks[order[i]] = rank;
  }
  return ranks;
}

}  // namespace

const PassColumnInfo& PassColumnOf(int column) {
  if (column < 1 || column > PassColumnCount)
    throw SubscriptFailure("column " + std::to_string(column) + " does not exist");
  return columns[static_cast<std::size_t>(column - 1)];
}

std::string PassHeading(int column) {
  const PassColumnInfo& info = PassColumnOf(column);
  return info.literal != nullptr ? info.literal : LookupText(info.section, info.key);
}

std::optional<Date> DateOfReport(std::string_view row, const DateNames& names) {
  constexpr std::size_t dateColumns = 24;
  const std::string_view text = Trimmed(FirstCharacters(row, dateColumns));
  const std::size_t time = text.rfind(' ');
  if (time == std::string_view::npos) return std::nullopt;
  const std::string_view date = RightTrimmed(text.substr(0, time));
  const std::size_t dayEnd = date.find(' '), yearBegin = date.rfind(' ');
  if (dayEnd == std::string_view::npos || yearBegin <= dayEnd) return std::nullopt;
  const std::string_view month = Trimmed(date.substr(dayEnd, yearBegin - dayEnd));
  const auto named = std::find(names.ShortMonths.begin(), names.ShortMonths.end(), month);
  const std::vector<std::string> parts = Split(text.substr(time + 1), ':');
  if (named == names.ShortMonths.end() || parts.size() != 3) return std::nullopt;
  try {
    const Date day = DateOf(ToInt32(ParseStrict(date.substr(yearBegin))),
                            static_cast<int>(named - names.ShortMonths.begin()) + 1,
                            ToInt32(ParseStrict(date.substr(0, dayEnd))));
    return AddSeconds(day, ParseStrict(parts[0]) * 3600 + ParseStrict(parts[1]) * 60 + ParseStrict(parts[2]));
  } catch (const RuntimeFailure&) {
    return std::nullopt;
  }
}

void PassList::Add(const PassRecord& pass, const std::string& satellite) {
  Data& data = *data_;
  // all passes of a satellite come in succession
  if (data.names.empty() || data.names.back() != satellite) data.names.push_back(satellite);
  data.nameOf.push_back(static_cast<std::uint32_t>(data.names.size() - 1));
  order_.push_back(static_cast<std::uint32_t>(data.passes.size()));
  data.passes.push_back(pass);
}

std::size_t PassList::At(int row) const {
  if (row < 0 || row >= Count()) throw SubscriptFailure("pass " + std::to_string(row) + " does not exist");
  return order_[static_cast<std::size_t>(row)];
}

const std::string& PassList::Satellite(int row) const { return data_->names[data_->nameOf[At(row)]]; }

std::string PassList::Cell(int row, int column) const {
  const PassRecord& pass = Pass(row);
  const PassEvent& top = pass.culmination;
  switch (column) {
    case CulminationColumn:
      return FormatDate(top.date, "dd mmm yyyy hh:mm:ss", LanguageDates);
    case SatelliteColumn:
      return Satellite(row);
    case AltitudeColumn:
      return HeightText(top);
    case AzimuthColumn:
      return AzimuthText(top);
    case StatusColumn:
      return std::string(FirstCharacters(StateText(top), 3));
    case MagnitudeColumn:
      return MagnitudeText(top);
    case DurationColumn:
      return DurationText(pass.durationTotal);
    case CulminationOrderColumn:
      return FormatDate(top.date, "yyyymmdd hh:mm:ss", LanguageDates);
    case MagnitudeOrderColumn:
      return Format(pass.MagnitudeValueForOrder() + 99, "000.00");
    default:
      throw SubscriptFailure("column " + std::to_string(column) + " does not exist");
  }
}

int PassList::Number(int row) const {
  const PassRecord& pass = Pass(row);
  return pass.currentEntry > 0 ? pass.currentEntry : pass.slot;
}

PassReport PassList::Report(int row) const {
  const PassRecord& pass = Pass(row);
  return {TextsOf(pass.rise).row, TextsOf(pass.culmination).row, TextsOf(pass.set).row};
}

std::string PassList::Tag(int row) const {
  std::string tag = std::to_string(Number(row));
  for (const std::string& report : Report(row)) tag += ";" + report;
  return tag;
}

void PassList::SortBy(int heading, PassSort& last) {
  const int column = heading == CulminationColumn ? CulminationOrderColumn
                     : heading == MagnitudeColumn ? MagnitudeOrderColumn
                                                  : heading;
  const bool again = sorted_ && column == last.sortColumn;
  last.sortDirection =
      again && last.sortDirection == PassSort::Ascending ? PassSort::Descending : PassSort::Ascending;
  last.sortColumn = static_cast<std::int16_t>(column);
  sorted_ = true;
  std::vector<std::uint32_t> nameRanks;
  if (column == SatelliteColumn) nameRanks = RanksOf(data_->names);
  std::vector<SortKeyOfRow> keys(order_.size());
  std::iota(order_.begin(), order_.end(), 0U);  // rows by the order of finding
  for (std::uint32_t found = 0; found < keys.size(); ++found) {
    SortKeyOfRow& key = keys[found];
    if (column == SatelliteColumn)
      key.high = nameRanks[data_->nameOf[found]];
    else if (column == CulminationOrderColumn)
      key.high = DateOrder(data_->passes[found].culmination.date);
    else
      key = KeyOfText(Cell(static_cast<int>(found), column));
    key.found = found;
  }
  std::sort(keys.begin(), keys.end());
  if (last.sortDirection == PassSort::Descending) std::reverse(keys.begin(), keys.end());
  std::transform(keys.begin(), keys.end(), order_.begin(), [](const SortKeyOfRow& key) { return key.found; });
}

int PassList::RowOf(int found) const {
  const auto row = std::find(order_.begin(), order_.end(), static_cast<std::uint32_t>(found));
  return found < 0 || row == order_.end() ? -1 : static_cast<int>(row - order_.begin());
}

}  // namespace halvorine
