#pragma once
// Where "Feiertage.dat", "Bearbeiter.dat" and "Stempeluhr.dat" live: $VELTO_DATA_DIR when set, else the
// per-user application data directory ($XDG_DATA_HOME/kolvarin/Velto5, by default
// ~/.local/share/kolvarin/Velto5).
#include <string>

namespace velto {

std::string DataDirectory();
// Creates the directory (and its parents) when missing; false when that fails.
bool EnsureDataDirectory();
std::string HolidayFilePath();  // DataDirectory() + "/Feiertage.dat"
std::string AssigneeFilePath(); // DataDirectory() + "/Bearbeiter.dat"
std::string ClockJournalPath(); // DataDirectory() + "/Stempeluhr.dat"

} // namespace velto
