#pragma once
// A fresh temporary folder per test, removed afterwards, and whole-file helpers.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace velto::testsupport {

class TempDir {
public:
    TempDir() {
        std::string pattern = (std::filesystem::temp_directory_path() / "velto-test-XXXXXX").string();
        if (!mkdtemp(pattern.data()))
            throw std::runtime_error("no temporary folder: " + pattern);
        m_path = pattern;
    }
    ~TempDir() {
        std::error_code ec;
        std::filesystem::remove_all(m_path, ec);
    }
    TempDir(const TempDir&) = delete;
    TempDir& operator=(const TempDir&) = delete;

    const std::string& Path() const { return m_path; }
    std::string PathOf(const std::string& name) const { return m_path + "/" + name; }
    std::vector<std::string> Names() const { // sorted
        std::vector<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(m_path))
            names.push_back(entry.path().filename().string());
        std::sort(names.begin(), names.end());
        return names;
    }

private:
    std::string m_path;
};

inline std::string ReadFile(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}
inline std::vector<uint8_t> ReadFileBytes(const std::string& path) {
    const std::string text = ReadFile(path);
    return {text.begin(), text.end()};
}
inline void WriteFile(const std::string& path, std::string_view content) {
    std::ofstream(path, std::ios::binary) << content;
}
inline void WriteFile(const std::string& path, const std::vector<uint8_t>& bytes) {
    WriteFile(path, std::string_view(reinterpret_cast<const char*>(bytes.data()), bytes.size()));
}

// The folder is made before the fixture's members, so that they can already name files in it.
class TempDirTest : public ::testing::Test {
protected:
    std::string PathOf(const std::string& name) const { return m_temp.PathOf(name); }
    std::vector<std::string> Names() const { return m_temp.Names(); }
    const std::string& Dir() const { return m_temp.Path(); }

private:
    TempDir m_temp;
};

} // namespace velto::testsupport
