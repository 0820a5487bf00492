#pragma once
// velto-cli calendar: the project as an iCalendar file on the standard output.
#include <iosfwd>
#include <string>

namespace velto {

// Exit 0, 2 when the file cannot be read, 3 for a file of the wrong format (nothing printed).
int RunCalendar(const std::string& path, std::ostream& out, std::ostream& err);

} // namespace velto
