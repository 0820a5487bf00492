#pragma once
// velto-cli rtf-text FILE and rtf-rewrite FILE; each returns the exit status.
#include <ostream>
#include <string>

namespace velto {

int RunRtfText(const std::string& path, std::ostream& out, std::ostream& err);
int RunRtfRewrite(const std::string& path, std::ostream& out, std::ostream& err);

} // namespace velto
