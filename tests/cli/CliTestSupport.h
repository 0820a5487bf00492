#pragma once
// Runs velto-cli's command line in-process in a temporary folder and collects its exit status and
// output.
#include "CliCommands.h"
#include "document/ProjectFile.h"
#include "support/TestEnvironment.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <sstream>
#include <string>
#include <unistd.h>
#include <vector>

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
        std::ostringstream out, err;
        CliRun run;
        run.status = RunCommandLine(arguments, out, err);
        run.out = out.str();
        run.err = err.str();
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
