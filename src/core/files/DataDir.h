#pragma once
// Where "Feiertage.dat", "Bearbeiter.dat" and "Stempeluhr.dat" live: $VELTO_DATA_DIR when set, else
// the per-user application data folder of the platform, in "kolvarin/Velto5" below it:
//   Linux and other Unix desktops: $XDG_DATA_HOME, by default ~/.local/share
//   Windows:                        %APPDATA%, else %USERPROFILE%\AppData\Roaming
//   macOS:                          ~/Library/Application Support
// Without any home folder the data goes to the system's temporary folder rather than to the root of
// a drive.
#include <functional>
#include <string>

namespace velto {

enum class Platform { Unix, Windows, MacOs };

// The platform this program was built for.
Platform ThisPlatform();
// A variable of the environment; empty when it is not set.
using Environment = std::function<std::string(const char* name)>;

// The data folder for a platform and an environment (tests give both).
std::string DataDirectoryFor(Platform platform, const Environment& environment);
// The data folder of this program in this environment.
std::string DataDirectory();
// Creates the directory (and its parents) when missing; false when that fails.
bool EnsureDataDirectory();
std::string HolidayFilePath();  // DataDirectory() + "/Feiertage.dat"
std::string AssigneeFilePath(); // DataDirectory() + "/Bearbeiter.dat"
std::string ClockJournalPath(); // DataDirectory() + "/Stempeluhr.dat"

} // namespace velto
