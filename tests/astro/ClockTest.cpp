#include "astro/mAstro.h"
#include "astro/mMate.h"
#include "tests/fakes/ReferenceTable.h"
#include "tests/fakes/TrappingArithmetic.h"

namespace halvorine {
namespace {

class Clock : public TrappingArithmetic {};

TEST_F(Clock, JulianDaysAgreeWithReferenceValues) {
  for (const ReferenceRow& row : ReferenceRows("kernel.txt", ' ', "julianDay"))
    EXPECT_EQ(JulianDay(row.Number(1), row.Number(2), row.Number(3)), row.Number(4)) << row.Text(4);
}

TEST_F(Clock, CalendarChangesOnTheFifteenthOfOctober1582) {
  EXPECT_EQ(JulianDay(1582, 10, 15), 2299160.5);
  EXPECT_EQ(JulianDay(1582, 10, 4), 2299159.5);
  EXPECT_EQ(JulianDay(1582, 10, 10), 2299165.5);  // a day that no calendar had counts on in the Julian one
}

TEST_F(Clock, LocalDatesAgreeWithReferenceValues) {
  for (const ReferenceRow& row : ReferenceRows("kernel.txt", ' ', "julianDayToLocalDate")) {
    Site.TimeZone = ToSingle(row.Number(2));
    EXPECT_EQ(JulianDayToLocalDate(row.Number(1)), ReferenceDate(row, 3)) << row.Text(1);
  }
}

TEST_F(Clock, RoundTripThroughTheJulianDayMovesAtMostOneSecond) {
  for (int second = 0; second < 86400; second += 977) {
    const Date date = AddSeconds(DateOf(2031, 7, 14), second);
    UpdateSiderealTime(date);
    EXPECT_NEAR((JulianDayToLocalDate(ClockFields.JulianDayNow) - date) * 86400, 0, 1.01) << second;
  }
}

TEST_F(Clock, DaysOutsideTheCalendarFail) {
  EXPECT_THROW(JulianDayToLocalDate(1e9), OverflowFailure);
  EXPECT_THROW(JulianDayToLocalDate(1e300), OverflowFailure);
}

TEST_F(Clock, SiderealTimeAgreesWithReferenceValues) {
  for (const ReferenceRow& row : ReferenceRows("kernel.txt", ' ', "updateSiderealTime")) {
    SCOPED_TRACE(testing::PrintToString(row.cells));
    Site.Longitude = ToSingle(row.Number(7));
    Site.TimeZone = ToSingle(row.Number(8));
    Site.DaylightSaving = static_cast<std::uint8_t>(row.Count(9));
    UpdateSiderealTime(ReferenceDate(row, 1));
    EXPECT_EQ(ClockFields.LocalDate, ReferenceDate(row, 1));
    EXPECT_EQ(ClockFields.UtcDate, ReferenceDate(row, 10));
    EXPECT_EQ(ClockFields.UtcYear, row.Number(10));
    EXPECT_NEAR(ClockFields.UtcHours, row.Number(16), 1e-12);
    EXPECT_NEAR(ClockFields.LocalHours, row.Number(17), 1e-12);
    EXPECT_EQ(ClockFields.UtcDayOfYear, row.Count(18));
    EXPECT_EQ(ClockFields.LocalDayOfYear, row.Count(19));
    EXPECT_EQ(ClockFields.JulianDayNow, row.Number(20));
    EXPECT_EQ(ClockFields.JulianDayMidnight, row.Number(21));
    EXPECT_NEAR(ClockFields.GreenwichSiderealHours, row.Number(22), 1e-9);
    EXPECT_NEAR(ClockFields.LocalSiderealHours, row.Number(23), 1e-9);
  }
}

// Meeus, "Astronomical Algorithms", example 12.b: 10 April 1987, 19h 21m UT
TEST_F(Clock, SiderealTimeAgreesWithTheTextbook) {
  UpdateSiderealTime(AddSeconds(DateOf(1987, 4, 10), 19 * 3600 + 21 * 60));
  EXPECT_NEAR(ClockFields.GreenwichSiderealHours, 8 + (34 + 57.0896 / 60) / 60, 1e-5);
}

}  // namespace
}  // namespace halvorine
