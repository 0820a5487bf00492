#include "outline/ChartCalendar.h"

#include <ctime>

namespace velto::chartcal {

// The well-known era-based conversion between Gregorian dates and day counts; exact for every
// date, no table and no loop.
int DaysFromCivil(int year, int month, int day) {
    year -= month <= 2;
    const int era = (year >= 0 ? year : year - 399) / 400;
    const int yearOfEra = year - era * 400;
    const int dayOfYear = (153 * (month + (month > 2 ? -3 : 9)) + 2) / 5 + day - 1;
    const int dayOfEra = yearOfEra * 365 + yearOfEra / 4 - yearOfEra / 100 + dayOfYear;
    return era * 146097 + dayOfEra - 719468;
}

CivilDate CivilFromDays(int dayNumber) {
    dayNumber += 719468;
    const int era = (dayNumber >= 0 ? dayNumber : dayNumber - 146096) / 146097;
    const int dayOfEra = dayNumber - era * 146097;
    const int yearOfEra = (dayOfEra - dayOfEra / 1460 + dayOfEra / 36524 - dayOfEra / 146096) / 365;
    const int dayOfYear = dayOfEra - (365 * yearOfEra + yearOfEra / 4 - yearOfEra / 100);
    const int shiftedMonth = (5 * dayOfYear + 2) / 153;
    const int day = dayOfYear - (153 * shiftedMonth + 2) / 5 + 1;
    const int month = shiftedMonth < 10 ? shiftedMonth + 3 : shiftedMonth - 9;
    return {yearOfEra + era * 400 + (month <= 2), month, day};
}

int Weekday(int dayNumber) {
    // 1970-01-01 was a Thursday.
    const int weekday = (dayNumber + 4) % 7;
    return weekday < 0 ? weekday + 7 : weekday;
}

bool IsWeekend(int dayNumber) {
    const int weekday = Weekday(dayNumber);
    return weekday == 0 || weekday == 6;
}

int DaysInMonth(int year, int month) {
    if (month < 1 || month > 12)
        return 0;
    const int nextYear = month == 12 ? year + 1 : year;
    const int nextMonth = month == 12 ? 1 : month + 1;
    return DaysFromCivil(nextYear, nextMonth, 1) - DaysFromCivil(year, month, 1);
}

int LocalDayNumber(CTime t) {
    struct tm fields {};
    const time_t seconds = time_t(t.GetTime());
    localtime_r(&seconds, &fields);
    return DaysFromCivil(fields.tm_year + 1900, fields.tm_mon + 1, fields.tm_mday);
}

const char* GermanMonthName(int month) {
    static const char* const kNames[] = {"Januar", "Februar", "März",      "April",   "Mai",      "Juni",
                                         "Juli",   "August",  "September", "Oktober", "November", "Dezember"};
    return month >= 1 && month <= 12 ? kNames[month - 1] : "";
}

namespace {

bool IsValidDate(int year, int month, int day) {
    return month >= 1 && month <= 12 && day >= 1 && day <= DaysInMonth(year, month);
}

int YearlyKey(int month, int day) {
    return month * 32 + day;
}

} // namespace

HolidayCalendar::HolidayCalendar(const std::vector<CHoliday>& entries) {
    for (const CHoliday& entry : entries) {
        // A yearly 29 February is kept even when its own year is not a leap year.
        const int checkYear = entry.yearly ? 2000 : entry.year;
        if (!IsValidDate(checkYear, entry.month, entry.day))
            continue;
        if (entry.yearly)
            m_yearly.try_emplace(YearlyKey(entry.month, entry.day), entry.color);
        else
            m_dated.try_emplace(DaysFromCivil(entry.year, entry.month, entry.day), entry.color);
    }
}

std::optional<int> HolidayCalendar::ColourOf(int dayNumber) const {
    if (Empty())
        return std::nullopt;
    if (const auto dated = m_dated.find(dayNumber); dated != m_dated.end())
        return dated->second;
    const CivilDate date = CivilFromDays(dayNumber);
    if (const auto yearly = m_yearly.find(YearlyKey(date.month, date.day)); yearly != m_yearly.end())
        return yearly->second;
    return std::nullopt;
}

} // namespace velto::chartcal
