#include "astro/mConv.h"

#include <array>
#include <charconv>
#include <chrono>
#include <cmath>
#include <cstdlib>
#include <limits>

#include "shell/base/mText.h"

namespace halvorine {

namespace {

constexpr double secondsPerDay = 86400.0;

std::string ShortText(double x, int digits) {
  std::array<char, 64> buffer{};
  const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), x == 0 ? 0.0 : x,
                                 std::chars_format::general, digits);
  return {buffer.data(), end.ptr};
}

char LowerLetter(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

/// What ParseNumber and ParseStrict share: how much of a clean text is a number, and its plain form.
struct NumberScan {
  std::string plain;  // in the form that from_chars takes
  std::size_t end = 0;
  bool digits = false;
};

std::size_t TakeDigits(std::string_view text, std::size_t at, std::string& plain) {
  while (at < text.size() && IsDigit(text[at])) plain += text[at++];
  return at;
}

NumberScan ScanNumber(std::string_view text) {
  NumberScan scan;
  std::size_t at = 0;
  if (at < text.size() && (text[at] == '+' || text[at] == '-')) {
    if (text[at] == '-') scan.plain = "-";
    ++at;
  }
  const std::size_t first = at;
  at = TakeDigits(text, at, scan.plain);
  scan.digits = at > first;
  if (at < text.size() && text[at] == '.') {
    scan.plain += scan.digits ? "." : "0.";
    const std::size_t fraction = ++at;
    at = TakeDigits(text, at, scan.plain);
    scan.digits = scan.digits || at > fraction;
    if (at == fraction) scan.plain += '0';
  }
  scan.end = at;
  if (!scan.digits) return scan;
  if (at < text.size() && std::string_view("eEdD").find(text[at]) != std::string_view::npos) {
    std::size_t exponent = at + 1;
    std::string plain = "e";
    if (exponent < text.size() && (text[exponent] == '+' || text[exponent] == '-')) plain += text[exponent++];
    const std::size_t end = TakeDigits(text, exponent, plain);
    if (end > exponent) {
      scan.plain += plain;
      scan.end = end;
    }
  }
  return scan;
}

/// Power of ten of a plain number text's first digit that is not 0; tells whether a number that fits no
/// double is too large or too small.
double SizeOf(std::string_view plain) {
  const std::size_t mark = std::min(plain.find('e'), plain.size());
  const std::size_t point = std::min(plain.find('.'), mark);
  const std::size_t digit = plain.find_first_of("123456789");
  const double place =
      digit < point ? static_cast<double>(point - digit) : -static_cast<double>(digit - point);
  double power = 0;
  for (std::size_t i = mark + 1; i < plain.size(); ++i)
    if (IsDigit(plain[i])) power = std::min(power * 10 + (plain[i] - '0'), 1e12);
  return place + (plain.substr(mark, 2) == "e-" ? -power : power);
}

/// Value of a plain number text; what is too small for a double gives 0, what is too large infinity.
double ValueOf(const std::string& plain) {
  double value = 0;
  const auto result = std::from_chars(plain.data(), plain.data() + plain.size(), value);
  if (result.ec == std::errc::result_out_of_range) {
    const double size = SizeOf(plain) > 0 ? std::numeric_limits<double>::infinity() : 0.0;
    return plain[0] == '-' ? -size : size;
  }
  return value;
}

/// The value of a short plain decimal: its digits and the power of ten are both exact in a double, so that
/// one division gives the nearest value, as the long road does. False for all that is longer or has an
/// exponent.
bool ParseShort(std::string_view text, double& value) {
  constexpr std::array<double, 16> tens{1e0, 1e1, 1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                        1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};
  std::int64_t digits = 0;
  std::size_t count = 0, places = 0;
  bool negative = false, point = false, begun = false;
  for (const char c : text) {
    if (c == ' ' || c == '\t' || c == '\n') continue;
    if (IsDigit(c)) {
      if (++count > 15) return false;
      digits = digits * 10 + (c - '0');
      if (point) ++places;
    } else if (c == '.' && !point) {
      point = true;
    } else if ((c == '+' || c == '-') && !begun) {
      negative = c == '-';
    } else if (count > 0 && std::string_view("eEdD").find(c) != std::string_view::npos) {
      return false;
    } else {
      break;
    }
    begun = true;
  }
  const double size = static_cast<double>(digits) / tens[places];
  value = count == 0 ? 0.0 : negative ? -size : size;
  return true;
}

/// Decimal digits of |x| to 15 significant ones: 0.d1d2d3... times ten to the exponent.
struct Decimal {
  std::string digits;
  int exponent = 0;
};

Decimal DecimalOf(double x) {
  std::array<char, 48> buffer{};
  const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), std::fabs(x),
                                 std::chars_format::scientific, 14);
  const std::string_view text(buffer.data(), static_cast<std::size_t>(end.ptr - buffer.data()));
  const std::size_t mark = text.find('e');
  Decimal result;
  result.digits = std::string(text.substr(0, 1)).append(text.substr(2, mark - 2));
  int power = 0;
  const std::size_t start = mark + (text[mark + 1] == '+' ? 2 : 1);
  std::from_chars(text.data() + start, text.data() + text.size(), power);
  result.exponent = x == 0 ? 0 : power + 1;
  return result;
}

/// Whole digits and `places` decimals of |x|, rounded half away from zero on the decimal text.
struct Rounded {
  std::string whole, fraction;
  bool zero = true;
};

Rounded RoundDecimal(double x, int places) {
  const Decimal decimal = DecimalOf(x);
  const int kept = decimal.exponent + places;  // digits that stay
  std::string digits;
  if (kept >= 0) {
    const auto count = static_cast<std::size_t>(kept);
    digits = decimal.digits.substr(0, count);
    const bool up = count < decimal.digits.size() && decimal.digits[count] >= '5';
    digits.append(count - digits.size(), '0');
    if (up) {
      std::size_t at = digits.size();
      while (at > 0 && digits[at - 1] == '9') digits[--at] = '0';
      if (at > 0)
        ++digits[at - 1];
      else
        digits.insert(0, 1, '1');
    }
  }
  const auto wanted = static_cast<std::size_t>(places);
  if (digits.size() < wanted) digits.insert(0, wanted - digits.size(), '0');
  Rounded result;
  result.whole = digits.substr(0, digits.size() - wanted);
  result.fraction = digits.substr(digits.size() - wanted);
  result.whole.erase(0, std::min(result.whole.find_first_not_of('0'), result.whole.size()));
  result.zero = digits.find_first_not_of('0') == std::string::npos;
  return result;
}

/// A picture taken apart.
struct Picture {
  std::string_view prefix, suffix;
  int forcedWhole = 0, places = 0, forcedPlaces = 0;
  bool point = false, grouped = false;
};

Picture ParsePicture(std::string_view text) {
  Picture picture;
  const std::size_t begin = std::min(text.find_first_of("#0"), text.size());
  picture.prefix = text.substr(0, begin);
  std::size_t at = begin;
  bool forced = false;
  for (; at < text.size(); ++at) {
    const char c = text[at];
    if (c == '.' && !picture.point) {
      picture.point = true;
    } else if (c == '0' || c == '#') {
      if (picture.point) {
        ++picture.places;
        if (c == '0') picture.forcedPlaces = picture.places;
      } else {
        forced = forced || c == '0';
        if (forced) ++picture.forcedWhole;
      }
    } else if (c == ',' && !picture.point) {
      picture.grouped = true;
    } else {
      break;
    }
  }
  picture.suffix = text.substr(at);
  return picture;
}

std::string Grouped(const std::string& digits) {
  std::string result;
  for (std::size_t i = 0; i < digits.size(); ++i) {
    if (i > 0 && (digits.size() - i) % 3 == 0) result += ',';
    result += digits[i];
  }
  return result;
}

std::string TwoDigits(int value) { return (value < 10 ? "0" : "") + std::to_string(value); }

std::string YearText(int year) {
  const std::string digits = std::to_string(std::abs(year));
  return (year < 0 ? "-" : "") + std::string(digits.size() < 4 ? 4 - digits.size() : 0, '0') + digits;
}

/// Text of one run of a date picture's letter.
std::string DatePiece(char letter, std::size_t count, const DateParts& parts, const DateNames& names) {
  const auto number = [count](int value) { return count > 1 ? TwoDigits(value) : std::to_string(value); };
  const auto month = static_cast<std::size_t>(parts.month - 1);
  const auto weekday = static_cast<std::size_t>(parts.weekday);
  switch (letter) {
    case 'd':
      return count >= 4 ? names.Days[weekday] : count == 3 ? names.ShortDays[weekday] : number(parts.day);
    case 'm':
      return count >= 4 ? names.Months[month] : count == 3 ? names.ShortMonths[month] : number(parts.month);
    case 'y':
      return count >= 3 ? YearText(parts.year) : TwoDigits(((parts.year % 100) + 100) % 100);
    case 'h':
      return number(parts.hour);
    case 'n':
      return number(parts.minute);
    default:
      return number(parts.second);
  }
}

}  // namespace

std::int16_t ToInt16(double x) {
  const double rounded = std::nearbyint(x);
  if (!(rounded >= -32768.0 && rounded <= 32767.0))
    throw OverflowFailure("number " + NumberText(x) + " does not fit 16 bits");
  return static_cast<std::int16_t>(rounded);
}

std::int32_t ToInt32(double x) {
  const double rounded = std::nearbyint(x);
  if (!(rounded >= -2147483648.0 && rounded <= 2147483647.0))
    throw OverflowFailure("number " + NumberText(x) + " does not fit 32 bits");
  return static_cast<std::int32_t>(rounded);
}

float ToSingle(double x) {
  // the range test comes first: the conversion itself is undefined beyond it
  constexpr double firstOverflow = 3.4028235677973366e38;  // halfway between the largest single and the next
  if (!(std::fabs(x) < firstOverflow))
    throw OverflowFailure("number " + NumberText(x) + " does not fit single precision");
  return static_cast<float>(x);
}

double ParseNumber(std::string_view text) {
  double value = 0;
  if (ParseShort(text, value)) return value;
  std::string clean;
  clean.reserve(text.size());
  for (const char c : text)
    if (c != ' ' && c != '\t' && c != '\n') clean += c;
  const NumberScan scan = ScanNumber(clean);
  return scan.digits ? ValueOf(scan.plain) : 0.0;
}

double ParseStrict(std::string_view text) {
  const std::string_view trimmed = Trimmed(text);
  const NumberScan scan = ScanNumber(trimmed);
  const double value = scan.digits && scan.end == trimmed.size() ? ValueOf(scan.plain)
                                                                 : std::numeric_limits<double>::quiet_NaN();
  if (!std::isfinite(value)) throw ConversionFailure("text '" + std::string(text) + "' is not a number");
  return value;
}

std::string NumberText(double x) { return ShortText(x, 15); }
std::string NumberText(float x) { return ShortText(static_cast<double>(x), 7); }

std::string Format(double x, std::string_view pictureText) {
  if (!std::isfinite(x)) return {};
  const Picture picture = ParsePicture(pictureText);
  const bool percent = picture.suffix.find('%') != std::string_view::npos;
  const Rounded rounded = RoundDecimal(percent ? x * 100 : x, picture.places);
  std::string whole = rounded.whole;
  const auto forced = static_cast<std::size_t>(picture.forcedWhole);
  if (whole.size() < forced) whole.insert(0, forced - whole.size(), '0');
  if (picture.grouped) whole = Grouped(whole);
  std::string fraction = rounded.fraction;
  while (fraction.size() > static_cast<std::size_t>(picture.forcedPlaces) && fraction.back() == '0')
    fraction.pop_back();
  std::string result = x < 0 && !rounded.zero ? "-" : "";
  result.append(picture.prefix).append(whole);
  if (picture.point) result.append(".").append(fraction);
  return result.append(picture.suffix);
}

double RoundedByPicture(double x) {
  if (!std::isfinite(x)) return 0;
  const double size = std::fabs(x);
  const double whole = Int(size);
  // near a tie, and where 15 digits leave few decimals, the decimal text decides and not the binary number
  const bool byText = std::fabs(size - whole - 0.5) < 1e-3 || size > 1e9;
  const double rounded = byText ? ParseNumber(Format(size, "00")) : whole + (size - whole > 0.5 ? 1 : 0);
  return x < 0 ? -rounded : rounded;
}

std::string FormatDate(Date date, std::string_view picture, const DateNames& names) {
  const DateParts parts = PartsOf(date);
  std::string result;
  char lastField = 0;
  for (std::size_t at = 0; at < picture.size();) {
    const char letter = LowerLetter(picture[at]);
    if (std::string_view("dmyhns").find(letter) == std::string_view::npos) {
      result += picture[at];
      ++at;
      continue;
    }
    std::size_t end = at + 1;
    while (end < picture.size() && LowerLetter(picture[end]) == letter) ++end;
    const std::size_t count = end - at;
    const bool minutes = letter == 'm' && count <= 2 && lastField == 'h';
    result += DatePiece(minutes ? 'n' : letter, count, parts, names);
    lastField = letter;
    at = end;
  }
  return result;
}

DateParts PartsOf(Date date) {
  if (!(std::fabs(date) < 4.0e6))
    throw OverflowFailure("date " + NumberText(date) + " is outside the calendar");
  const auto seconds = static_cast<std::int64_t>(std::llround(date * secondsPerDay));
  const std::chrono::sys_seconds instant{std::chrono::sys_days(std::chrono::year(1899) / 12 / 30) +
                                         std::chrono::seconds(seconds)};
  const auto day = std::chrono::floor<std::chrono::days>(instant);
  const std::chrono::year_month_day calendar(day);
  const std::chrono::hh_mm_ss time(instant - day);
  DateParts parts;
  parts.year = static_cast<int>(calendar.year());
  parts.month = static_cast<int>(static_cast<unsigned>(calendar.month()));
  parts.day = static_cast<int>(static_cast<unsigned>(calendar.day()));
  parts.hour = static_cast<int>(time.hours().count());
  parts.minute = static_cast<int>(time.minutes().count());
  parts.second = static_cast<int>(time.seconds().count());
  parts.weekday = static_cast<int>(std::chrono::weekday(day).c_encoding());
  return parts;
}

Date DateOf(int year, int month, int day) {
  constexpr int limit = 4000000;  // keeps the sums below far inside their type
  const bool wild = year < -limit || year > limit || month < -limit || month > limit;
  const int months = wild ? 0 : year * 12 + month - 1;
  const int wholeYear = static_cast<int>(Int(months / 12.0));
  if (wild || wholeYear < -9999 || wholeYear > 9999 || day < -limit || day > limit)
    throw OverflowFailure("year " + std::to_string(year) + " is outside the calendar");
  const auto wholeMonth = static_cast<unsigned>(months - wholeYear * 12 + 1);
  const auto first = std::chrono::sys_days(std::chrono::year(wholeYear) / std::chrono::month(wholeMonth) / 1);
  const auto origin = std::chrono::sys_days(std::chrono::year(1899) / 12 / 30);
  return static_cast<double>((first - origin).count() + day - 1);
}

Date AddSeconds(Date date, double seconds) {
  const double total = std::round(date * secondsPerDay) + std::round(seconds);
  const double day = std::floor(total / secondsPerDay);
  return day + (total - day * secondsPerDay) / secondsPerDay;
}

}  // namespace halvorine
