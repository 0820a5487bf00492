#pragma once
// Calendar arithmetic of the timeline: local calendar days as plain day numbers (days since
// 1970-01-01 in the Gregorian calendar), so that columns, weekends and holidays need no mktime per
// column; and the holiday lookup the calendar paints from.
#include "files/HolidayFile.h"
#include "model/CTime.h"

#include <optional>
#include <unordered_map>
#include <vector>

namespace velto::chartcal {

struct CivilDate {
    int year;
    int month; // 1..12
    int day;   // 1..31
};

int DaysFromCivil(int year, int month, int day);
CivilDate CivilFromDays(int dayNumber);
// 0 = Sunday .. 6 = Saturday.
int Weekday(int dayNumber);
bool IsWeekend(int dayNumber);
int DaysInMonth(int year, int month);
// The day number of the local calendar date of t.
int LocalDayNumber(CTime t);
// "Januar" .. "Dezember" (UTF-8); an empty text outside 1..12.
const char* GermanMonthName(int month);

// The first day shown in the calendar: today − 365 + the scroll position, so the middle position
// 365 puts today in the first column.
inline int FirstCalendarDay(int today, int calendarPos) {
    return today - 365 + calendarPos;
}

// The holiday entries as a lookup by day. A yearly entry matches its day and month in every year
// (29 February only in leap years). An entry for one date wins over a yearly one on that day;
// among entries of one kind the first one listed wins.
class HolidayCalendar {
public:
    HolidayCalendar() = default;
    explicit HolidayCalendar(const std::vector<CHoliday>& entries);
    // The COLORREF of the day's entry, if the day is listed.
    std::optional<int> ColourOf(int dayNumber) const;
    bool Empty() const { return m_dated.empty() && m_yearly.empty(); }

private:
    std::unordered_map<int, int> m_dated;  // day number -> colour
    std::unordered_map<int, int> m_yearly; // month * 32 + day -> colour
};

} // namespace velto::chartcal
