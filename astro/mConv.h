// Number conversions with the program's own rules: whole parts, narrow integers, singles, format pictures,
// and reading of numbers. Nothing here looks at the process locale, and nothing keeps state.
#pragma once

#include <cmath>
#include <cstdint>
#include <string>
#include <string_view>

#include "shell/base/mRecords.h"

namespace halvorine {

/// Whole part, rounding towards minus infinity.
inline double Int(double x) { return std::floor(x); }
/// Whole part, truncating towards zero.
inline double Fix(double x) { return std::trunc(x); }
/// -1, 0 or 1.
inline double Sgn(double x) { return x > 0 ? 1.0 : x < 0 ? -1.0 : 0.0; }

/// Round to nearest, ties to even, then the range test; OverflowFailure outside the type (or for no number).
std::int16_t ToInt16(double x);
std::int32_t ToInt32(double x);
/// The only road into a 32-bit float; OverflowFailure where the result is not finite.
float ToSingle(double x);

/// Number at the beginning of a text: skips blanks, tabs and line feeds wherever they stand, takes sign,
/// digits, point and exponent (E or D), stops at the first other character; 0 where there is none.
double ParseNumber(std::string_view text);
/// The whole text as a number; blanks around it are skipped. ConversionFailure for anything else.
double ParseStrict(std::string_view text);

/// Shortest plain text of up to 15 significant digits (7 for a single), with a point.
std::string NumberText(double x);
std::string NumberText(float x);

/// A number by a picture such as "##0.00°": text before and behind the digits stands as it is, 0 is a forced
/// and # an optional digit, a comma between digits groups by thousands, % behind the digits shows hundredths.
/// Rounds the decimal text of 15 digits, ties away from zero. What is not finite gives the empty text.
std::string Format(double x, std::string_view picture);

/// The whole number that Format shows by the picture "00", without making the text.
double RoundedByPicture(double x);

/// A date by a picture, in letters of either case, of dd, d, ddd, dddd, mm, m, mmm, mmmm, yyyy, yy, hh, h,
/// nn, n, ss, s; "mm" or "m" after hours means minutes; other characters stand as they are. Names come from
/// `names`.
std::string FormatDate(Date date, std::string_view picture, const DateNames& names);

/// Calendar parts of a date, to the nearest second; the Gregorian calendar holds for all years.
struct DateParts {
  int year = 0, month = 0, day = 0, hour = 0, minute = 0, second = 0;
  int weekday = 0;  // 0 is Sunday
};
DateParts PartsOf(Date date);

/// The date of a calendar day at 0h. Day 0 is the last day of the month before; months and days outside
/// their ranges run on into other years and months. OverflowFailure outside the years -9999 to 9999.
Date DateOf(int year, int month, int day);

/// Adds seconds on the calendar: to whole seconds, so that steps add up without drift.
Date AddSeconds(Date date, double seconds);

}  // namespace halvorine
