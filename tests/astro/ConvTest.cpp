#include "astro/mConv.h"

#include <clocale>
#include <limits>
#include <locale>

#include "tests/fakes/ReferenceTable.h"
#include "tests/fakes/TrappingArithmetic.h"

namespace halvorine {
namespace {

class Conv : public TrappingArithmetic {};

TEST_F(Conv, NarrowIntegersRoundTiesToEvenBeforeTheRangeTest) {
  for (const ReferenceRow& row : ReferenceRows("kernel.txt", ' ', "toInt16"))
    EXPECT_EQ(ToInt16(row.Number(1)), row.Count(2)) << row.Text(1);
  EXPECT_EQ(ToInt16(32767.49), 32767);
  EXPECT_THROW(ToInt16(32767.5), OverflowFailure);
  EXPECT_THROW(ToInt16(-32769), OverflowFailure);
  EXPECT_EQ(ToInt32(2147483647.4), 2147483647);
  EXPECT_EQ(ToInt32(-2147483648.5), std::numeric_limits<std::int32_t>::min());
  EXPECT_THROW(ToInt32(2147483647.5), OverflowFailure);
  EXPECT_THROW(ToInt32(HUGE_VAL), OverflowFailure);
  EXPECT_EQ(ToSingle(3.4028235677973e38), std::numeric_limits<float>::max());
  EXPECT_THROW(ToSingle(3.4028235677973366e38), OverflowFailure);
}

struct NumberRow {
  const char* text;
  double expected;
};

void CheckLenientNumbers() {
  const NumberRow rows[] = {{"", 0},
                            {" 1 2 ", 12},
                            {"1d+2", 100},
                            {"\t7\n8", 78},
                            {"1,5", 1},
                            {"- 1 . 5 E - 1", -0.15},
                            {".", 0},
                            {"+-3", 0},
                            {"\r4", 0},
                            {"3e+", 3},
                            {"2E3x", 2000},
                            {"inf", 0},
                            {"0x10", 0},
                            {"1e-400", 0},
                            {"1e400", HUGE_VAL},
                            {"-1e400", -HUGE_VAL},
                            {"1e-99999999999999999999", 0}};
  for (const NumberRow& row : rows) EXPECT_EQ(ParseNumber(row.text), row.expected) << row.text;
}

TEST_F(Conv, LenientNumbersStopAtTheFirstOtherCharacter) { CheckLenientNumbers(); }

TEST_F(Conv, SizeOfLongNumbersIsTakenFromTheirDigits) {
  const std::string zeros(500, '0');
  EXPECT_EQ(ParseNumber("0." + zeros + "1"), 0);
  EXPECT_EQ(ParseNumber("1" + zeros + "e-5"), HUGE_VAL);
  EXPECT_EQ(ParseNumber("1" + zeros + "e-500"), 1);
  EXPECT_EQ(ParseNumber("0." + zeros + "25e501"), 2.5);
  EXPECT_THROW(ParseStrict("1" + zeros), ConversionFailure);
}

void CheckStrictNumbers() {
  EXPECT_EQ(ParseStrict("  -12.5 "), -12.5);
  EXPECT_EQ(ParseStrict("1.5E3"), 1500);
  EXPECT_EQ(ParseStrict("7."), 7);
  for (const char* text : {"", "   ", "1 2", "1,5", "12x", "--1", "1e", "inf", "nan", "1e999", "."})
    EXPECT_THROW(ParseStrict(text), ConversionFailure) << "'" << text << "'";
}

TEST_F(Conv, StrictNumbersRefuseAnythingElse) { CheckStrictNumbers(); }

struct PictureRow {
  double value;
  const char* picture;
  const char* expected;
};

void CheckPictures() {
  const PictureRow rows[] = {{2.675, "0.00", "2.68"},
                             {-2.5, "00", "-03"},
                             {0.49999999999999994, "0", "1"},
                             {9.996, "#0.00", "10.00"},
                             {0, "###", ""},
                             {0.5, "####.00", ".50"},
                             {45.4642, "#0.000#°", "45.4642°"},
                             {1234567.891, "###,###,##0.00", "1,234,567.89"},
                             {384401, "000,000,000 km", "000,384,401 km"},
                             {0.4567, "#0%", "46%"},
                             {42, "000 giorno", "042 giorno"},
                             {-0.05, "0.0", "-0.1"},
                             {123456789012345678.0, "0", "123456789012346000"},
                             {1e-20, "0.0000", "0.0000"},
                             {999999999999999.9, "0.0", "1000000000000000.0"},
                             {HUGE_VAL, "0.0", ""}};
  for (const PictureRow& row : rows)
    EXPECT_EQ(Format(row.value, row.picture), row.expected) << row.picture << " of " << row.value;
  EXPECT_EQ(NumberText(0.1 + 0.2), "0.3");
  EXPECT_EQ(NumberText(145.825F), "145.825");
  EXPECT_EQ(NumberText(-0.0), "0");
}

TEST_F(Conv, PicturesRoundTheDecimalTextAwayFromZero) { CheckPictures(); }

TEST_F(Conv, RoundedNumberIsTheOneThatThePictureShows) {
  for (const double x : {0.0, 0.5, -0.5, 2.5, 59.5, 59.4999999999999964, 29.49999999, 59.51, -7.3,
                         1e12 + 0.25, 123456789012345678.0})
    EXPECT_EQ(RoundedByPicture(x), ParseNumber(Format(x, "00"))) << x;
}

TEST_F(Conv, DatePicturesTellMinutesFromMonths) {
  const Date date = AddSeconds(DateOf(2024, 2, 9), 7 * 3600 + 5 * 60 + 3);
  DateNames names;
  names.Months[1] = "febbraio";
  names.ShortMonths[1] = "feb";
  names.ShortDays[5] = "ven";
  const std::pair<const char*, const char*> rows[] = {
      {"dd mmmm yyyy  hh:mm:ss", "09 febbraio 2024  07:05:03"},
      {"ddd dd mmmm yyyy", "ven 09 febbraio 2024"},
      {"mmm dd yyyy  hh:mm:ss", "feb 09 2024  07:05:03"},
      {"hh:mm dd mm", "07:05 09 02"},
      {"h.n.s d m dddd", "7.5.3 9 2 Friday"}};
  for (const auto& [picture, expected] : rows) EXPECT_EQ(FormatDate(date, picture, names), expected);
}

TEST_F(Conv, DatesRunOnOverMonthsAndKeepWholeSeconds) {
  EXPECT_EQ(DateOf(2024, 1, 0), DateOf(2023, 12, 31));
  EXPECT_EQ(DateOf(2023, 14, 30), DateOf(2024, 3, 1));
  EXPECT_EQ(DateOf(2024, -1, 1), DateOf(2023, 11, 1));
  EXPECT_THROW(DateOf(2000000000, 12, 1), OverflowFailure);
  EXPECT_THROW(PartsOf(1e300), OverflowFailure);
  // a day in steps of a second ends where it must
  Date date = DateOf(2024, 2, 28);
  for (int second = 0; second < 86400; ++second) date = AddSeconds(date, 1);
  EXPECT_EQ(date, DateOf(2024, 2, 29));
  // the second before midnight is not rounded away, neither before the origin of the count
  for (const int year : {1850, 1899, 2024}) {
    const DateParts parts = PartsOf(AddSeconds(DateOf(year, 3, 1), -1));
    EXPECT_EQ(parts.month, 2);
    EXPECT_EQ(parts.second, 59);
  }
}

class CommaNumbers : public std::numpunct<char> {
  char do_decimal_point() const override { return ','; }
  char do_thousands_sep() const override { return '.'; }
  std::string do_grouping() const override { return "\3"; }
};

TEST_F(Conv, ProcessLocaleChangesNothing) {
  const std::locale before = std::locale::global(std::locale(std::locale::classic(), new CommaNumbers));
  for (const char* name : {"it_IT.UTF-8", "it_IT.utf8", "it_IT", "de_DE.UTF-8"})
    if (std::setlocale(LC_ALL, name) != nullptr) break;
  CheckLenientNumbers();
  CheckStrictNumbers();
  CheckPictures();
  std::locale::global(before);
  std::setlocale(LC_ALL, "C");
}

}  // namespace
}  // namespace halvorine
