#pragma once
// velto-cli report: the hours or the cost report of a project file, as the clipboard text of the
// report dialogs or as their CSV file.
#include <iosfwd>
#include <string>
#include <vector>

namespace velto {

// words: "hours" or "costs", the file, then the options. Exit 0 (also for an empty report),
// 1 for wrong usage or a bad date, 2 when the file cannot be read as a project.
int RunReport(const std::vector<std::string>& words, std::ostream& out, std::ostream& err);

} // namespace velto
