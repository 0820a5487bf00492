#pragma once
// Who is editing: the name written into a project's lock file.

#include <string>

namespace velto {

// The login name of the process owner; $USER or $LOGNAME when the user database has no entry;
// empty when none of them is known.
std::string CurrentLoginName();

} // namespace velto
