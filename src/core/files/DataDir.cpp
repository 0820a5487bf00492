#include "files/DataDir.h"

#include <cstdlib>
#include <filesystem>

namespace velto {

#if __has_include(<pwd.h>)
#include <pwd.h>
#include <unistd.h>
#endif

namespace {

std::string FromEnv(const char* name) {
    const char* value = std::getenv(name);
    return value ? value : "";
}

std::string HomeDirectory() {
    std::string home = FromEnv("HOME");
#if __has_include(<pwd.h>)
    if (home.empty()) {
        if (const passwd* entry = getpwuid(getuid()); entry && entry->pw_dir)
            home = entry->pw_dir;
    }
#endif
    return home;
}

// The per-user data directory; a relative $XDG_DATA_HOME is ignored, as the convention asks.
std::string UserDataHome() {
    const std::string xdg = FromEnv("XDG_DATA_HOME");
    if (!xdg.empty() && std::filesystem::path(xdg).is_absolute())
        return xdg;
    return HomeDirectory() + "/.local/share";
}

} // namespace

std::string DataDirectory() {
    const std::string chosen = FromEnv("VELTO_DATA_DIR");
    if (!chosen.empty())
        return chosen;
    return UserDataHome() + "/kolvarin/Velto5";
}

bool EnsureDataDirectory() {
    std::error_code ec;
    const std::string dir = DataDirectory();
    std::filesystem::create_directories(dir, ec);
    return std::filesystem::is_directory(dir, ec);
}

std::string HolidayFilePath() {
    return DataDirectory() + "/Feiertage.dat";
}
std::string AssigneeFilePath() {
    return DataDirectory() + "/Bearbeiter.dat";
}
std::string ClockJournalPath() {
    return DataDirectory() + "/Stempeluhr.dat";
}

} // namespace velto
