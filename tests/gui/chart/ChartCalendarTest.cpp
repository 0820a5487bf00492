#include "chart/ChartCalendar.h"

#include <gtest/gtest.h>

using namespace chartcal;

namespace {

TEST(ChartCalendar, DayNumbersRoundTripAcrossLeapYearsAndCenturies) {
    EXPECT_EQ(DaysFromCivil(1970, 1, 1), 0);
    EXPECT_EQ(DaysFromCivil(2000, 3, 1) - DaysFromCivil(2000, 2, 28), 2) << "2000 is a leap year";
    EXPECT_EQ(DaysFromCivil(2100, 3, 1) - DaysFromCivil(2100, 2, 28), 1) << "2100 is not";
    for (int day = DaysFromCivil(1899, 12, 31); day < DaysFromCivil(2107, 1, 1); ++day) {
        const CivilDate date = CivilFromDays(day);
        ASSERT_EQ(DaysFromCivil(date.year, date.month, date.day), day);
        ASSERT_GE(date.day, 1);
        ASSERT_LE(date.day, DaysInMonth(date.year, date.month));
    }
}

TEST(ChartCalendar, WeekdaysAndWeekends) {
    EXPECT_EQ(Weekday(DaysFromCivil(1970, 1, 1)), 4);   // Thursday
    EXPECT_EQ(Weekday(DaysFromCivil(2026, 3, 11)), 3);  // Wednesday
    EXPECT_EQ(Weekday(DaysFromCivil(1969, 12, 28)), 0); // a Sunday before the epoch
    EXPECT_TRUE(IsWeekend(DaysFromCivil(2026, 3, 14)));
    EXPECT_TRUE(IsWeekend(DaysFromCivil(2026, 3, 15)));
    EXPECT_FALSE(IsWeekend(DaysFromCivil(2026, 3, 16)));
    EXPECT_EQ(DaysInMonth(2024, 2), 29);
    EXPECT_EQ(DaysInMonth(2026, 13), 0);
}

TEST(ChartCalendar, LocalDayNumberFollowsTheLocalDateAcrossDaylightSavingChanges) {
    // The last Sunday of March 2026 has 23 hours in Berlin, the last Sunday of October 25.
    const int march29 = DaysFromCivil(2026, 3, 29);
    EXPECT_EQ(LocalDayNumber(CTime(2026, 3, 29, 1, 0, 0)), march29);
    EXPECT_EQ(LocalDayNumber(CTime(2026, 3, 29, 23, 59, 59)), march29);
    EXPECT_EQ(LocalDayNumber(CTime(2026, 3, 30, 0, 0, 0)), march29 + 1);
    const int october25 = DaysFromCivil(2026, 10, 25);
    EXPECT_EQ(LocalDayNumber(CTime(2026, 10, 25, 0, 0, 0)), october25);
    EXPECT_EQ(LocalDayNumber(CTime(2026, 10, 25, 23, 59, 59)), october25);
    // 23:30 UTC on 31 December is already the next day in Berlin.
    EXPECT_EQ(LocalDayNumber(CTime(uint32_t(DaysFromCivil(2026, 1, 1) * 86400 - 1800))),
              DaysFromCivil(2026, 1, 1));
}

TEST(ChartCalendar, CalendarPositionsSpanAYearEitherSideOfToday) {
    const int today = DaysFromCivil(2026, 3, 11);
    EXPECT_EQ(FirstCalendarDay(today, 365), today);
    EXPECT_EQ(FirstCalendarDay(today, 0), today - 365);
    EXPECT_EQ(FirstCalendarDay(today, 730), today + 365);
}

TEST(ChartCalendar, MonthNamesAreGerman) {
    EXPECT_STREQ(GermanMonthName(3), "März");
    EXPECT_STREQ(GermanMonthName(12), "Dezember");
    EXPECT_STREQ(GermanMonthName(0), "");
}

CHoliday Entry(int day, int month, int year, int colour, bool yearly) {
    CHoliday holiday;
    holiday.day = day;
    holiday.month = month;
    holiday.year = year;
    holiday.color = colour;
    holiday.yearly = yearly;
    return holiday;
}

TEST(ChartCalendar, YearlyHolidaysRecurAndDatedOnesDoNot) {
    const HolidayCalendar calendar({Entry(24, 12, 2019, 0x0000FF, true), Entry(1, 5, 2026, 0x00FF00, false)});
    EXPECT_EQ(calendar.ColourOf(DaysFromCivil(2019, 12, 24)), 0x0000FF);
    EXPECT_EQ(calendar.ColourOf(DaysFromCivil(2031, 12, 24)), 0x0000FF);
    EXPECT_EQ(calendar.ColourOf(DaysFromCivil(2026, 5, 1)), 0x00FF00);
    EXPECT_FALSE(calendar.ColourOf(DaysFromCivil(2027, 5, 1)));
    EXPECT_FALSE(calendar.ColourOf(DaysFromCivil(2026, 12, 25)));
}

TEST(ChartCalendar, LeapDayAndClashingAndDamagedEntries) {
    const HolidayCalendar calendar({
        Entry(29, 2, 2023, 1, true),  // yearly leap day, entered in a common year
        Entry(3, 10, 2026, 2, true),  // yearly
        Entry(3, 10, 2026, 3, false), // the same day as a dated entry: the dated one wins
        Entry(3, 10, 2026, 4, false), // a second dated entry: the first one listed wins
        Entry(31, 4, 2026, 5, false), // no such date
        Entry(1, 13, 2026, 6, true),  // no such month
    });
    EXPECT_EQ(calendar.ColourOf(DaysFromCivil(2028, 2, 29)), 1);
    EXPECT_FALSE(calendar.ColourOf(DaysFromCivil(2027, 3, 1)));
    EXPECT_EQ(calendar.ColourOf(DaysFromCivil(2026, 10, 3)), 3);
    EXPECT_EQ(calendar.ColourOf(DaysFromCivil(2027, 10, 3)), 2);
    EXPECT_FALSE(calendar.ColourOf(DaysFromCivil(2026, 5, 1)));
    EXPECT_TRUE(HolidayCalendar().Empty());
}

} // namespace
