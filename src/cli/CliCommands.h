#pragma once
// velto-cli's command line: picks the command named by the first word and runs it. Each command
// lives in its own function; this only picks it. Returns the exit status (ExitStatus.h).
#include <ostream>
#include <string>
#include <vector>

namespace velto {

int RunCommandLine(const std::vector<std::string>& words, std::ostream& out, std::ostream& err);

} // namespace velto
