#pragma once
// velto-cli search: the nodes of a project that hold a text, by the rule of the program's search.
#include <iosfwd>
#include <string>

namespace velto {

// Prints "INDEX<TAB>PARTS<TAB>TITLE" for every node that holds text (UTF-8) in list order. Returns
// the exit status: found or not, 0; the file's status when it cannot be read or opens as the
// replacement document.
int RunSearch(const std::string& path, const std::string& text, bool matchCase, std::ostream& out,
              std::ostream& err);

} // namespace velto
