#include "document/ICalendar.h"

#include "model/Cp1252.h"
#include "text/RtfReader.h"

#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <vector>

namespace velto {

namespace {

constexpr size_t kLineOctets = 75;

struct tm LocalFields(time_t t) {
    struct tm fields {};
    localtime_r(&t, &fields);
    return fields;
}

long OffsetAt(time_t t) {
    return LocalFields(t).tm_gmtoff;
}

std::string Formatted(const struct tm& fields, const char* pattern) {
    char text[32];
    std::strftime(text, sizeof text, pattern, &fields);
    return text;
}

std::string LocalStamp(CTime time) {
    return Formatted(LocalFields(time_t(time.GetTime())), "%Y%m%dT%H%M%S");
}

std::string UtcStamp(CTime time) {
    const time_t t = time_t(time.GetTime());
    struct tm fields {};
    gmtime_r(&t, &fields);
    return Formatted(fields, "%Y%m%dT%H%M%SZ");
}

std::string Offset(long seconds) {
    char text[40];
    const long minutes = (seconds < 0 ? -seconds : seconds) / 60;
    std::snprintf(text, sizeof text, "%c%02ld%02ld", seconds < 0 ? '-' : '+', minutes / 60, minutes % 60);
    return text;
}

struct Transition {
    time_t at;
    long from;
    long to;
};

// The changes of the local offset in a year, found day by day and then to the second.
std::vector<Transition> TransitionsOf(int year) {
    struct tm start {};
    start.tm_year = year - 1900;
    start.tm_mday = 1;
    start.tm_isdst = -1;
    const time_t begin = std::mktime(&start);
    std::vector<Transition> found;
    for (time_t day = begin; day < begin + 366 * 86400; day += 86400) {
        if (OffsetAt(day) == OffsetAt(day + 86400))
            continue;
        time_t low = day;
        time_t high = day + 86400;
        while (high - low > 1) {
            const time_t middle = low + (high - low) / 2;
            (OffsetAt(middle) == OffsetAt(day) ? low : high) = middle;
        }
        found.push_back({high, OffsetAt(low), OffsetAt(high)});
    }
    return found;
}

// The yearly rule of a transition: its month and its weekday counted from the start of the month,
// or as the last of the month when it falls in the last seven days.
std::string YearlyRule(const struct tm& wall) {
    static const char* const kDays[] = {"SU", "MO", "TU", "WE", "TH", "FR", "SA"};
    struct tm next = wall;
    next.tm_mday += 7;
    next.tm_isdst = -1;
    std::mktime(&next);
    const std::string ordinal =
        next.tm_mon != wall.tm_mon ? "-1" : std::to_string((wall.tm_mday - 1) / 7 + 1);
    return "RRULE:FREQ=YEARLY;BYMONTH=" + std::to_string(wall.tm_mon + 1) + ";BYDAY=" + ordinal +
           kDays[wall.tm_wday];
}

void AddLine(std::string& out, std::string_view line) {
    out += FoldCalendarLine(line);
}

void AddTimeZone(std::string& out, std::string_view zoneName, int year) {
    AddLine(out, "BEGIN:VTIMEZONE");
    AddLine(out, "TZID:" + EscapeCalendarText(zoneName));
    const std::vector<Transition> transitions = TransitionsOf(year);
    if (transitions.empty()) {
        const std::string offset = Offset(OffsetAt(std::time(nullptr)));
        for (const std::string& line :
             {std::string("BEGIN:STANDARD"), std::string("DTSTART:19700101T000000"), "TZOFFSETFROM:" + offset,
              "TZOFFSETTO:" + offset, std::string("END:STANDARD")})
            AddLine(out, line);
    }
    for (const Transition& change : transitions) {
        const std::string kind = change.to > change.from ? "DAYLIGHT" : "STANDARD";
        // The wall-clock time at which the change happens, in the offset before it.
        struct tm wall {};
        const time_t before = change.at + change.from;
        gmtime_r(&before, &wall);
        AddLine(out, "BEGIN:" + kind);
        AddLine(out, "DTSTART:" + Formatted(wall, "%Y%m%dT%H%M%S"));
        AddLine(out, YearlyRule(wall));
        AddLine(out, "TZOFFSETFROM:" + Offset(change.from));
        AddLine(out, "TZOFFSETTO:" + Offset(change.to));
        AddLine(out, "END:" + kind);
    }
    AddLine(out, "END:VTIMEZONE");
}

void AddAlarm(std::string& out, const CProjectNode& node, const std::string& summary) {
    AddLine(out, "BEGIN:VALARM");
    AddLine(out, "ACTION:DISPLAY");
    AddLine(out, "DESCRIPTION:" + summary);
    AddLine(out, "TRIGGER;VALUE=DATE-TIME:" + UtcStamp(node.m_timeReminder));
    AddLine(out, "END:VALARM");
}

void AddItem(std::string& out, const CProjectNode& node, int index, std::string_view zoneName) {
    const bool task = node.m_nKind == kKindTask;
    const bool milestone = node.m_nKind == kKindMilestone;
    const bool reminder = !node.m_timeReminder.IsNull();
    if (!task && !milestone && !reminder)
        return;
    const std::string component = milestone ? "VEVENT" : "VTODO";
    const std::string summary = EscapeCalendarText(cp1252::ToUtf8(node.m_strTitle.str()));
    const std::string zone = ";TZID=" + std::string(zoneName) + ":";
    AddLine(out, "BEGIN:" + component);
    // The position and the creation time: the same for an unchanged file, distinct within it.
    AddLine(out,
            "UID:" + std::to_string(index) + "-" + std::to_string(node.m_timeCreated.GetTime()) + "@velto");
    AddLine(out, "DTSTAMP:" + UtcStamp(node.m_timeChanged));
    AddLine(out, "SUMMARY:" + summary);
    if (task || milestone) {
        const std::string description = rtf::PlainText(node.m_strNote);
        if (!description.empty())
            AddLine(out, "DESCRIPTION:" + EscapeCalendarText(description));
    }
    if (task) {
        AddLine(out, "DTSTART" + zone + LocalStamp(node.m_timeStart));
        AddLine(out, "DUE" + zone + LocalStamp(node.m_timeDue));
        AddLine(out, node.m_bDone ? "STATUS:COMPLETED" : "STATUS:NEEDS-ACTION");
        if (node.m_bDone)
            AddLine(out, "COMPLETED:" + UtcStamp(node.m_timeDone));
    }
    if (milestone) {
        const CTime day = node.m_timeStart;
        AddLine(out, "DTSTART;VALUE=DATE:" + day.Format("%Y%m%d"));
        AddLine(out, "DTEND;VALUE=DATE:" +
                         CTime(day.GetYear(), day.GetMonth(), day.GetDay() + 1, 12, 0, 0).Format("%Y%m%d"));
        AddLine(out, "TRANSP:TRANSPARENT");
    }
    if (reminder)
        AddAlarm(out, node, summary);
    AddLine(out, "END:" + component);
}

} // namespace

std::string LocalZoneName() {
    const char* tz = std::getenv("TZ");
    std::string name = tz ? tz : "";
    if (!name.empty() && name[0] == ':')
        name.erase(0, 1);
    return name.empty() ? "Lokal" : name;
}

std::string EscapeCalendarText(std::string_view utf8) {
    std::string out;
    for (char c : utf8) {
        if (c == '\\' || c == ';' || c == ',')
            out += '\\';
        if (c == '\n')
            out += "\\n";
        else if (c != '\r')
            out += c;
    }
    return out;
}

std::string FoldCalendarLine(std::string_view line) {
    std::string out;
    size_t room = kLineOctets;
    while (line.size() > room) {
        size_t cut = room;
        // Back up over continuation octets so that a character stays whole.
        while (cut > 0 && (static_cast<unsigned char>(line[cut]) & 0xC0) == 0x80)
            --cut;
        out.append(line.substr(0, cut));
        out += "\r\n ";
        line.remove_prefix(cut);
        room = kLineOctets - 1; // the leading blank counts
    }
    out.append(line);
    out += "\r\n";
    return out;
}

std::string ProjectCalendar(const CProjectNode* first, std::string_view zoneName, int year) {
    std::string out;
    for (const char* line :
         {"BEGIN:VCALENDAR", "VERSION:2.0", "PRODID:-//kolvarin//Velto 5//DE", "CALSCALE:GREGORIAN"})
        AddLine(out, line);
    AddTimeZone(out, zoneName, year);
    int index = 0;
    for (const CProjectNode* node = first; node; node = node->m_pNext)
        AddItem(out, *node, index++, zoneName);
    AddLine(out, "END:VCALENDAR");
    return out;
}

} // namespace velto
