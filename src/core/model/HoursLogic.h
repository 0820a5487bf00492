#pragma once
// Hours entries ("Stundenerfassung"): their duration, the rows of the hours list, adding, taking an
// entry back by its row, the needed hours that follow from the list, and booking a clock-out.
#include "model/ProjectNode.h"

#include <string>
#include <string_view>
#include <vector>

namespace velto {

// A local calendar day as a date picker holds it.
struct CalendarDay {
    int year = 1970;
    int month = 1;
    int day = 1;
    static CalendarDay Of(CTime time);
    CTime At(int hour, int minute, int second) const;
    bool operator==(const CalendarDay&) const = default;
};

// A day as the lists show it ("%d.%d.%d" read like sscanf: day, month, year; missing fields are 0).
CalendarDay ParseDayText(std::string_view text);

// "SO", "MO", ... "SA" for the weekday of time.
std::string WeekdayAbbreviation(CTime time);
// The hidden sort key of every list row: the day as "%Y/%m/%d".
std::string DaySortKey(CTime day);

// What the input row of an hours entry holds.
struct HoursInput {
    CalendarDay day;
    int beginHour = 0;
    int beginMinute = 0;
    int endHour = 0;
    int endMinute = 0;
    std::string assignee;
    std::string remark;

    // End minus begin in minutes of the day; the dates play no part, so an entry cannot cross
    // midnight.
    int Minutes() const { return (endHour * 60 + endMinute) - (beginHour * 60 + beginMinute); }
    // Less than one minute is refused ("Startzeit größer gleich Endzeit!").
    bool IsValid() const { return Minutes() >= 1; }
};

inline constexpr std::string_view kBadInterval = "Startzeit größer gleich Endzeit!";
inline constexpr std::string_view kNoEntrySelected = "Kein Eintrag ausgewählt!";

// Duration of an entry in hours from its begin and end hour and minute.
double EntryHours(const CHoursEntry& entry);

// One row of the hours list, column by column (column 0 is the hidden sort key).
struct HoursRow {
    std::string sortKey; // "%Y/%m/%d"
    std::string day;     // "%d.%m.%Y"
    std::string weekday; // "SO" .. "SA"
    std::string begin;   // "%H:%M"
    std::string end;     // "%H:%M"
    std::string assignee;
    std::string remark;
    std::string hours; // "%2.2f"
};
HoursRow MakeHoursRow(const CHoursEntry& entry);
std::vector<HoursRow> MakeHoursRows(const CHoursList& list);

// Appends an entry made from the input at the end of the list; refused (false, nothing changes)
// when the interval is shorter than a minute.
bool AddHoursEntry(CHoursList& list, const HoursInput& input);

// Reads a row back the way the list shows it: the day from "%d.%m.%Y", begin and end from "%H:%M".
HoursInput HoursInputOfRow(const HoursRow& row);
// Removes the first entry of the list with the row's day, begin and end (hour and minute) and
// texts; false when no entry matches.
bool RemoveFirstMatchingHours(CHoursList& list, const HoursInput& key);

// "Benötigt" after the list changed: the sum of the "h" column as shown (each rounded to
// hundredths), written with "%.2f".
std::string NeededHoursText(const CHoursList& list);

// Stopping a running clock: the clocked-in flag is cleared before the dialog opens, so that
// discarding the dialog ends the clocking without an entry.
void StopClock(CProjectNode& node);
// The clock-out entry: appended at the end of the hours list, and its duration added to the
// needed hours (unlike the node dialog, which sets them to the list sum). Refused like an entry
// of the dialog when shorter than a minute.
bool BookClockOut(CProjectNode& node, const HoursInput& input);

// What the clock-out dialog proposes for a clock that began at begin and is stopped now. An entry
// lies within one day, so a clock that ran past midnight is proposed to end at 23:59 on the day it
// began; a clock of more than twelve hours was most likely forgotten. Both come with a hint, so the
// user corrects the entry instead of losing it to "Startzeit größer gleich Endzeit!".
struct ClockOutProposal {
    CTime end;
    std::string hint; // empty for a clock that ran as usual
};
inline constexpr int64_t kLongClockSeconds = 12 * 3600;
ClockOutProposal ProposeClockOut(CTime begin, CTime now);

} // namespace velto
