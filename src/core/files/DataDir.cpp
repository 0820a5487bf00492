#include "files/DataDir.h"

#include <cstdlib>
#include <filesystem>

#if __has_include(<pwd.h>)
#include <pwd.h>
#include <unistd.h>
#endif

namespace velto {

namespace {

constexpr char kVendorFolder[] = "/kolvarin/Velto5";

std::string FromProcessEnvironment(const char* name) {
    const char* value = std::getenv(name);
    return value ? value : "";
}

bool IsAbsolute(const std::string& path) {
    // Judged by the form of the path, so that each platform's rule can be checked on any of them.
    return path.starts_with('/') || path.starts_with('\\') || (path.size() > 2 && path[1] == ':');
}

// The home folder from the password database, for a process started without $HOME.
std::string AccountHome() {
#if __has_include(<pwd.h>)
    if (const passwd* entry = getpwuid(getuid()); entry && entry->pw_dir)
        return entry->pw_dir;
#endif
    return {};
}

std::string UnixHome(const Environment& environment) {
    const std::string home = environment("HOME");
    return home.empty() ? AccountHome() : home;
}

// The folder below which the vendor folder lies; empty when the environment names no home at all.
std::string UserDataFolder(Platform platform, const Environment& environment) {
    switch (platform) {
    case Platform::Windows: {
        const std::string appData = environment("APPDATA");
        if (IsAbsolute(appData))
            return appData;
        const std::string profile = environment("USERPROFILE");
        return IsAbsolute(profile) ? profile + "/AppData/Roaming" : std::string();
    }
    case Platform::MacOs: {
        const std::string home = UnixHome(environment);
        return home.empty() ? home : home + "/Library/Application Support";
    }
    case Platform::Unix:
        break;
    }
    // A relative $XDG_DATA_HOME is ignored, as the convention asks.
    const std::string xdg = environment("XDG_DATA_HOME");
    if (IsAbsolute(xdg))
        return xdg;
    const std::string home = UnixHome(environment);
    return home.empty() ? home : home + "/.local/share";
}

} // namespace

Platform ThisPlatform() {
#if defined(_WIN32)
    return Platform::Windows;
#elif defined(__APPLE__)
    return Platform::MacOs;
#else
    return Platform::Unix;
#endif
}

std::string DataDirectoryFor(Platform platform, const Environment& environment) {
    const std::string chosen = environment("VELTO_DATA_DIR");
    if (!chosen.empty())
        return chosen;
    std::string folder = UserDataFolder(platform, environment);
    if (folder.empty()) {
        std::error_code ec;
        folder = std::filesystem::temp_directory_path(ec).generic_string();
    }
    return folder + kVendorFolder;
}

std::string DataDirectory() {
    return DataDirectoryFor(ThisPlatform(), &FromProcessEnvironment);
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
