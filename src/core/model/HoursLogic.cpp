#include "model/HoursLogic.h"

#include "model/NumberFormat.h"

#include <algorithm>
#include <cctype>

namespace velto {

CalendarDay CalendarDay::Of(CTime time) {
    return {time.GetYear(), time.GetMonth(), time.GetDay()};
}

CTime CalendarDay::At(int hour, int minute, int second) const {
    return CTime(year, month, day, hour, minute, second);
}

std::string WeekdayAbbreviation(CTime time) {
    static const char* const kNames[] = {"SO", "MO", "DI", "MI", "DO", "FR", "SA"};
    return kNames[(time.GetDayOfWeek() - 1) % 7];
}

std::string DaySortKey(CTime day) {
    return day.Format("%Y/%m/%d");
}

double EntryHours(const CHoursEntry& entry) {
    const int minutes = (entry.m_time3.GetHour() * 60 + entry.m_time3.GetMinute()) -
                        (entry.m_time2.GetHour() * 60 + entry.m_time2.GetMinute());
    return minutes / 60.0;
}

HoursRow MakeHoursRow(const CHoursEntry& entry) {
    return {DaySortKey(entry.m_time1),          entry.m_time1.Format("%d.%m.%Y"),
            WeekdayAbbreviation(entry.m_time1), entry.m_time2.Format("%H:%M"),
            entry.m_time3.Format("%H:%M"),      std::string(entry.m_str1),
            std::string(entry.m_str2),          numfmt::FormatFixed2(EntryHours(entry))};
}

std::vector<HoursRow> MakeHoursRows(const CHoursList& list) {
    std::vector<HoursRow> rows;
    rows.reserve(list.size());
    for (const CHoursEntry entry : list)
        rows.push_back(MakeHoursRow(entry));
    return rows;
}

namespace {

CHoursEntry MakeEntry(const HoursInput& input) {
    return {input.day.At(0, 0, 0), input.day.At(input.beginHour, input.beginMinute, 0),
            input.day.At(input.endHour, input.endMinute, 0), input.assignee, input.remark};
}

// Reads up to count integers separated by separator, as sscanf "%d.%d.%d" does: reading stops at
// the first field that is missing or not followed by the separator; the fields not read stay 0.
void ScanSeparatedInts(std::string_view text, char separator, int* fields, int count) {
    std::fill(fields, fields + count, 0);
    size_t pos = 0;
    for (int i = 0; i < count; ++i) {
        while (pos < text.size() && std::isspace(static_cast<unsigned char>(text[pos])))
            ++pos;
        const size_t numberStart = pos;
        if (pos < text.size() && (text[pos] == '+' || text[pos] == '-'))
            ++pos;
        const size_t digitsStart = pos;
        while (pos < text.size() && std::isdigit(static_cast<unsigned char>(text[pos])))
            ++pos;
        if (pos == digitsStart)
            return;
        fields[i] = numfmt::ParseInt(text.substr(numberStart, pos - numberStart));
        if (pos >= text.size() || text[pos] != separator)
            return;
        ++pos;
    }
}

bool Matches(const CHoursEntry& entry, const HoursInput& key) {
    return CalendarDay::Of(entry.m_time1) == key.day && entry.m_time2.GetHour() == key.beginHour &&
           entry.m_time2.GetMinute() == key.beginMinute && entry.m_time3.GetHour() == key.endHour &&
           entry.m_time3.GetMinute() == key.endMinute && entry.m_str1 == key.assignee &&
           entry.m_str2 == key.remark;
}

} // namespace

bool AddHoursEntry(CHoursList& list, const HoursInput& input) {
    if (!input.IsValid())
        return false;
    list.Append(MakeEntry(input));
    return true;
}

CalendarDay ParseDayText(std::string_view text) {
    int date[3];
    ScanSeparatedInts(text, '.', date, 3);
    return {date[2], date[1], date[0]};
}

HoursInput HoursInputOfRow(const HoursRow& row) {
    int begin[2];
    int end[2];
    ScanSeparatedInts(row.begin, ':', begin, 2);
    ScanSeparatedInts(row.end, ':', end, 2);
    return {ParseDayText(row.day), begin[0], begin[1], end[0], end[1], row.assignee, row.remark};
}

bool RemoveFirstMatchingHours(CHoursList& list, const HoursInput& key) {
    for (size_t i = 0; i < list.size(); ++i) {
        if (Matches(list[i], key)) {
            list.Erase(i);
            return true;
        }
    }
    return false;
}

std::string NeededHoursText(const CHoursList& list) {
    double sum = 0.0;
    for (const CHoursEntry entry : list)
        sum += numfmt::ParseNumber(numfmt::FormatFixed2(EntryHours(entry)));
    return numfmt::FormatFixed2(sum);
}

void StopClock(CProjectNode& node) {
    node.m_bClockedIn = 0;
}

bool BookClockOut(CProjectNode& node, const HoursInput& input) {
    if (!AddHoursEntry(node.m_pHours, input))
        return false;
    node.m_fHoursNeeded += float(input.Minutes() / 60.0);
    return true;
}

namespace {
bool SameDay(CTime a, CTime b) {
    return a.GetYear() == b.GetYear() && a.GetMonth() == b.GetMonth() && a.GetDay() == b.GetDay();
}
} // namespace

ClockOutProposal ProposeClockOut(CTime begin, CTime now) {
    const std::string since = "Die Uhr läuft seit " + begin.Format("%d.%m.%Y %H:%M");
    if (!SameDay(begin, now))
        return {CTime(begin.GetYear(), begin.GetMonth(), begin.GetDay(), 23, 59, 0),
                since + " über Mitternacht. Ein Eintrag endet am Tag seines Beginns: "
                        "vorgeschlagen ist 23:59 Uhr. Bitte das Ende prüfen."};
    if (now - begin > kLongClockSeconds)
        return {now, since + ", länger als 12 Stunden. Bitte Beginn und Ende prüfen."};
    return {now, {}};
}

} // namespace velto
