#pragma once
// The project as an iCalendar file (RFC 5545) for calendar programs: every task a VTODO from its
// start to its due time, every milestone an all-day VEVENT on its day, and every set reminder a
// VALARM at its time on its item (a project node or note with a reminder becomes a VTODO that
// carries only the alarm). An unchanged file gives the same UIDs on every export.
#include "model/ProjectNode.h"

#include <string>
#include <string_view>

namespace velto {

// zoneName names the local time zone (TZID) that start and due times carry; the zone's rules
// follow in a VTIMEZONE, taken from the C library's local time for the given year. UTF-8, CRLF.
std::string ProjectCalendar(const CProjectNode* first, std::string_view zoneName, int year);

// The name of the local time zone: the TZ variable without a leading ':', else "Lokal".
std::string LocalZoneName();

// A TEXT value: backslash, semicolon and comma escaped, line breaks as "\n".
std::string EscapeCalendarText(std::string_view utf8);
// A content line folded after 75 octets, never inside a UTF-8 character, ended by CRLF.
std::string FoldCalendarLine(std::string_view line);

} // namespace velto
