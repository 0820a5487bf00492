// Where the data files live: the override, the per-user data directory and its fallbacks.
#include "files/DataDir.h"

#include "support/TempDir.h"

#include <cstdlib>
#include <filesystem>
#include <gtest/gtest.h>
#include <map>
#include <optional>

namespace velto {

using testsupport::TempDir;
using testsupport::WriteFile;

namespace {

// Sets (or, given nullptr, clears) an environment variable for one scope.
class ScopedEnv {
public:
    ScopedEnv(const char* name, const char* value) : m_name(name) {
        if (const char* old = std::getenv(name))
            m_old = old;
        Set(value);
    }
    ~ScopedEnv() { Set(m_old ? m_old->c_str() : nullptr); }
    ScopedEnv(const ScopedEnv&) = delete;
    ScopedEnv& operator=(const ScopedEnv&) = delete;

private:
    void Set(const char* value) const { value ? setenv(m_name, value, 1) : unsetenv(m_name); }

    const char* m_name;
    std::optional<std::string> m_old;
};

// The override wins; else each platform's per-user data folder, with its fallbacks.
TEST(DataDir, TheDataFilesLieInTheOverrideOrThePlatformsUserDataFolder) {
    using Variables = std::map<std::string, std::string>;
    const struct {
        Platform platform;
        Variables variables;
        std::string dir;
    } cases[] = {
        {Platform::Unix, {{"VELTO_DATA_DIR", "/srv/velto"}, {"HOME", "/home/u"}}, "/srv/velto"},
        {Platform::Unix,
         {{"XDG_DATA_HOME", "/home/u/data"}, {"HOME", "/home/u"}},
         "/home/u/data/kolvarin/Velto5"},
        {Platform::Unix,
         {{"XDG_DATA_HOME", "relative/data"}, {"HOME", "/home/u"}},
         "/home/u/.local/share/kolvarin/Velto5"},
        {Platform::Windows,
         {{"APPDATA", "C:\\Users\\u\\AppData\\Roaming"}, {"HOME", "/home/u"}},
         "C:\\Users\\u\\AppData\\Roaming/kolvarin/Velto5"},
        {Platform::Windows, {{"USERPROFILE", "D:\\Profile"}}, "D:\\Profile/AppData/Roaming/kolvarin/Velto5"},
        {Platform::MacOs, {{"HOME", "/Users/u"}}, "/Users/u/Library/Application Support/kolvarin/Velto5"},
    };
    for (const auto& c : cases) {
        const auto environment = [&c](const char* name) {
            const auto it = c.variables.find(name);
            return it == c.variables.end() ? std::string() : it->second;
        };
        EXPECT_EQ(DataDirectoryFor(c.platform, environment), c.dir);
    }
    // Windows without any profile folder: not the root of a drive.
    const std::string nowhere =
        DataDirectoryFor(Platform::Windows, [](const char*) { return std::string(); });
    EXPECT_EQ(nowhere, std::filesystem::temp_directory_path().generic_string() + "/kolvarin/Velto5");

    ScopedEnv dir("VELTO_DATA_DIR", "/srv/velto");
    EXPECT_EQ(HolidayFilePath(), "/srv/velto/Feiertage.dat");
    EXPECT_EQ(AssigneeFilePath(), "/srv/velto/Bearbeiter.dat");
}

TEST(DataDir, EnsureCreatesTheMissingParents) {
    TempDir temp;
    const std::string target = temp.PathOf("a/b/c");
    ScopedEnv dir("VELTO_DATA_DIR", target.c_str());
    EXPECT_TRUE(EnsureDataDirectory());
    EXPECT_TRUE(std::filesystem::is_directory(target));
    EXPECT_TRUE(EnsureDataDirectory()) << "an existing directory is fine";
    WriteFile(temp.PathOf("file"), "x");
    ScopedEnv blocked("VELTO_DATA_DIR", temp.PathOf("file/sub").c_str());
    EXPECT_FALSE(EnsureDataDirectory());
}

} // namespace

} // namespace velto
