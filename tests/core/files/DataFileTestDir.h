#pragma once
// A fresh temporary directory per test, removed afterwards, and whole-file helpers.
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

class TestDir {
public:
    TestDir() {
        std::string pattern = (std::filesystem::temp_directory_path() / "velto-files-XXXXXX").string();
        m_path = mkdtemp(pattern.data()) ? pattern : std::string();
    }
    ~TestDir() {
        std::error_code ec;
        std::filesystem::remove_all(m_path, ec);
    }
    TestDir(const TestDir&) = delete;
    TestDir& operator=(const TestDir&) = delete;

    std::string File(const std::string& name) const { return m_path + "/" + name; }
    const std::string& Path() const { return m_path; }

private:
    std::string m_path;
};

inline void WriteBytes(const std::string& path, const std::string& bytes) {
    std::ofstream(path, std::ios::binary) << bytes;
}

inline std::string ReadBytes(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}
