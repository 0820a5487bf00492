#pragma once
// Runs the built velto-cli in a temporary folder and collects its exit status and output.
#include "document/ProjectFile.h"
#include "support/TestEnvironment.h"

#include <algorithm>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <spawn.h>
#include <string>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

extern char** environ;

namespace clitest {

namespace fs = std::filesystem;

struct CliRun {
    int status = -1;
    std::string out;
    std::string err;
};

inline std::string ReadText(const fs::path& path) {
    std::ifstream in(path, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), {});
}

inline std::vector<uint8_t> ReadBytes(const fs::path& path) {
    const std::string text = ReadText(path);
    return std::vector<uint8_t>(text.begin(), text.end());
}

inline void WriteBytes(const fs::path& path, const std::vector<uint8_t>& bytes) {
    std::ofstream(path, std::ios::binary).write(reinterpret_cast<const char*>(bytes.data()), bytes.size());
}

inline void WriteText(const fs::path& path, const std::string& text) {
    std::ofstream(path, std::ios::binary) << text;
}

// A fresh folder per test, removed afterwards.
class CliTest : public ::testing::Test {
protected:
    void SetUp() override {
        std::string pattern = (fs::temp_directory_path() / "velto-cli-test-XXXXXX").string();
        ASSERT_NE(mkdtemp(pattern.data()), nullptr);
        m_dir = pattern;
    }
    void TearDown() override { fs::remove_all(m_dir); }

    fs::path Path(const std::string& name) const { return m_dir / name; }

    CliRun Run(const std::vector<std::string>& arguments) const {
        const std::string cli = testenv::CliPath();
        std::vector<std::string> words{cli};
        words.insert(words.end(), arguments.begin(), arguments.end());
        std::vector<char*> argv;
        for (std::string& word : words)
            argv.push_back(word.data());
        argv.push_back(nullptr);

        const std::string outFile = (m_dir / ".stdout").string();
        const std::string errFile = (m_dir / ".stderr").string();
        posix_spawn_file_actions_t actions;
        posix_spawn_file_actions_init(&actions);
        posix_spawn_file_actions_addopen(&actions, 1, outFile.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
        posix_spawn_file_actions_addopen(&actions, 2, errFile.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
        pid_t pid = 0;
        CliRun run;
        const int spawned = posix_spawn(&pid, cli.c_str(), &actions, nullptr, argv.data(), environ);
        posix_spawn_file_actions_destroy(&actions);
        EXPECT_EQ(spawned, 0) << "cannot start " << cli;
        int status = 0;
        if (spawned == 0 && waitpid(pid, &status, 0) == pid && WIFEXITED(status))
            run.status = WEXITSTATUS(status);
        run.out = ReadText(outFile);
        run.err = ReadText(errFile);
        fs::remove(outFile);
        fs::remove(errFile);
        return run;
    }

    // The folder's entries, apart from the captured output.
    std::vector<std::string> Listing() const {
        std::vector<std::string> names;
        for (const auto& entry : fs::directory_iterator(m_dir))
            names.push_back(entry.path().filename().string());
        std::sort(names.begin(), names.end());
        return names;
    }

    fs::path m_dir;
};

} // namespace clitest
