#pragma once
// What velto-cli's "rtf-text" and "rtf-rewrite" do, kept in the core so that it is tested there.
// Both return the exit status: 0, or 2 with a message on err when the file cannot be read at all.
#include <ostream>
#include <string>

namespace rtf {

// Prints the plain text of an RTF file as UTF-8, with a final line end.
int PrintPlainText(const std::string& path, std::ostream& out, std::ostream& err);
// Prints the RTF that the writer makes of what the reader reads from the file.
int PrintRewritten(const std::string& path, std::ostream& out, std::ostream& err);

} // namespace rtf
