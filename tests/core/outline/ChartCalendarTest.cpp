#include "outline/ChartCalendar.h"
#include "core/outline/OutlineTestSupport.h"

namespace velto {

using namespace chartcal;
using charttest::Holiday;

TEST(ChartCalendar, DayNumbersRoundTripAndKnowTheirWeekdays) {
    EXPECT_EQ(DaysFromCivil(1970, 1, 1), 0);
    EXPECT_EQ(DaysFromCivil(2100, 3, 1) - DaysFromCivil(2100, 2, 28), 1) << "2100 is no leap year";
    for (int day = DaysFromCivil(1899, 12, 31); day < DaysFromCivil(2107, 1, 1); ++day) {
        const CivilDate date = CivilFromDays(day);
        ASSERT_EQ(DaysFromCivil(date.year, date.month, date.day), day);
        ASSERT_LE(date.day, DaysInMonth(date.year, date.month));
    }
    EXPECT_EQ(Weekday(DaysFromCivil(2026, 3, 11)), 3);  // Wednesday
    EXPECT_EQ(Weekday(DaysFromCivil(1969, 12, 27)), 6); // a Saturday some days before the epoch
    EXPECT_TRUE(IsWeekend(DaysFromCivil(2026, 3, 15)));
    EXPECT_FALSE(IsWeekend(DaysFromCivil(2026, 3, 16)));
}

TEST(ChartCalendar, LocalDayNumberFollowsTheLocalDateAcrossDaylightSavingChanges) {
    const int march29 = DaysFromCivil(2026, 3, 29); // 23 hours long in Berlin
    EXPECT_EQ(LocalDayNumber(CTime(2026, 3, 29, 1, 0, 0)), march29);
    EXPECT_EQ(LocalDayNumber(CTime(2026, 3, 29, 23, 59, 59)), march29);
    const int october25 = DaysFromCivil(2026, 10, 25); // 25 hours long
    EXPECT_EQ(LocalDayNumber(CTime(2026, 10, 25, 23, 59, 59)), october25);
    // 23:30 UTC on 31 December is already New Year in Berlin.
    EXPECT_EQ(LocalDayNumber(CTime(uint32_t(DaysFromCivil(2026, 1, 1) * 86400 - 1800))),
              DaysFromCivil(2026, 1, 1));
}

TEST(ChartCalendar, YearlyHolidaysRecurDatedOnesDoNotAndDamagedOnesAreIgnored) {
    const HolidayCalendar calendar({
        Holiday(29, 2, 2023, 1, true),  // a yearly leap day, entered in a common year
        Holiday(3, 10, 2026, 2, true),  // yearly
        Holiday(3, 10, 2026, 3, false), // the same day, dated: wins in its year
        Holiday(3, 10, 2026, 4, false), // a second dated entry: the first one listed wins
        Holiday(31, 4, 2026, 5, false), // no such date
    });
    EXPECT_EQ(calendar.ColourOf(DaysFromCivil(2028, 2, 29)), 1);
    EXPECT_FALSE(calendar.ColourOf(DaysFromCivil(2027, 3, 1)));
    EXPECT_EQ(calendar.ColourOf(DaysFromCivil(2026, 10, 3)), 3);
    EXPECT_EQ(calendar.ColourOf(DaysFromCivil(2031, 10, 3)), 2);
    EXPECT_FALSE(calendar.ColourOf(DaysFromCivil(2026, 5, 1)));
}

} // namespace velto
