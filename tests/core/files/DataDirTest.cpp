// Where the data files live: the override, the per-user data directory and its fallbacks.
#include "files/DataDir.h"

#include "support/TempDir.h"

#include <cstdlib>
#include <filesystem>
#include <gtest/gtest.h>
#include <optional>

namespace velto {

using testsupport::ReadFile;
using testsupport::TempDir;
using testsupport::WriteFile;

namespace {

// Sets or clears an environment variable for one test and restores it afterwards.
class ScopedEnv {
public:
    ScopedEnv(const char* name, const char* value) : m_name(name) {
        if (const char* old = std::getenv(name))
            m_old = old;
        if (value)
            setenv(name, value, 1);
        else
            unsetenv(name);
    }
    ~ScopedEnv() {
        if (m_old)
            setenv(m_name, m_old->c_str(), 1);
        else
            unsetenv(m_name);
    }
    ScopedEnv(const ScopedEnv&) = delete;
    ScopedEnv& operator=(const ScopedEnv&) = delete;

private:
    const char* m_name;
    std::optional<std::string> m_old;
};

TEST(DataDir, TheOverrideWinsOverTheUserDirectory) {
    ScopedEnv dir("VELTO_DATA_DIR", "/srv/velto");
    ScopedEnv xdg("XDG_DATA_HOME", "/home/u/data");
    EXPECT_EQ(DataDirectory(), "/srv/velto");
    EXPECT_EQ(HolidayFilePath(), "/srv/velto/Feiertage.dat");
    EXPECT_EQ(AssigneeFilePath(), "/srv/velto/Bearbeiter.dat");
}

TEST(DataDir, UserDirectoryComesFromXdgThenHome) {
    ScopedEnv dir("VELTO_DATA_DIR", "");
    ScopedEnv home("HOME", "/home/u");
    {
        ScopedEnv xdg("XDG_DATA_HOME", "/home/u/data");
        EXPECT_EQ(DataDirectory(), "/home/u/data/kolvarin/Velto5");
    }
    {
        ScopedEnv xdg("XDG_DATA_HOME", "relative/data");
        EXPECT_EQ(DataDirectory(), "/home/u/.local/share/kolvarin/Velto5");
    }
    ScopedEnv xdg("XDG_DATA_HOME", nullptr);
    EXPECT_EQ(DataDirectory(), "/home/u/.local/share/kolvarin/Velto5");
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
