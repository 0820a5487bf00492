// Where the data files live: the override, the per-user data directory and its fallbacks.
#include "files/DataDir.h"

#include "support/TempDir.h"

#include <cstdlib>
#include <filesystem>
#include <gtest/gtest.h>
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

// The override wins; else an absolute $XDG_DATA_HOME, else the home folder's default.
TEST(DataDir, TheDataFilesLieInTheOverrideOrTheUserDataDirectory) {
    ScopedEnv home("HOME", "/home/u");
    const struct {
        const char* override;
        const char* xdg;
        std::string dir;
    } cases[] = {
        {"/srv/velto", "/home/u/data", "/srv/velto"},
        {"", "/home/u/data", "/home/u/data/kolvarin/Velto5"},
        {"", "relative/data", "/home/u/.local/share/kolvarin/Velto5"},
        {nullptr, nullptr, "/home/u/.local/share/kolvarin/Velto5"},
    };
    for (const auto& c : cases) {
        ScopedEnv dir("VELTO_DATA_DIR", c.override), xdg("XDG_DATA_HOME", c.xdg);
        EXPECT_EQ(DataDirectory(), c.dir);
        EXPECT_EQ(HolidayFilePath(), c.dir + "/Feiertage.dat");
        EXPECT_EQ(AssigneeFilePath(), c.dir + "/Bearbeiter.dat");
    }
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
