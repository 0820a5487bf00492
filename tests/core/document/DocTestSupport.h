#pragma once
// A temporary folder per test and a file system that fails on command, for the document's file
// handling.
#include "document/CVeltoDoc.h"
#include "document/FileSystem.h"
#include "document/LockFile.h"
#include "document/ProjectFile.h"
#include "support/ScriptedPrompter.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <map>
#include <stdexcept>
#include <string>
#include <vector>

namespace doctest {

enum class Op { Open, Write, Sync, Close, Remove, Rename, SyncDirectory };

// The real file system, except that the calls named by a fault fail. A fault matches an operation
// on a path ending in `suffix` (for a rename: the target); it lets `skip` matches pass, then fails
// `times` of them with `error`.
class FaultyFileSystem : public PosixFileSystem {
public:
    struct Fault {
        Op op;
        std::string suffix;
        int error;
        int times = 1;
        int skip = 0;
    };
    std::vector<Fault> faults;
    // Runs before every operation (a test can change the folder "between" two calls).
    std::function<void(Op, const std::string&)> before;
    std::vector<std::pair<Op, std::string>> log;

    int Open(const std::string& path, int flags, mode_t mode) override {
        if (const int error = Check(Op::Open, path))
            return error;
        const int fd = PosixFileSystem::Open(path, flags, mode);
        if (fd >= 0)
            m_paths[fd] = path;
        return fd;
    }
    ssize_t Read(int fd, void* buffer, size_t size) override {
        return PosixFileSystem::Read(fd, buffer, size);
    }
    ssize_t Write(int fd, const void* buffer, size_t size) override {
        const int error = Check(Op::Write, m_paths[fd]);
        return error ? error : PosixFileSystem::Write(fd, buffer, size);
    }
    int Sync(int fd) override {
        const int error = Check(Op::Sync, m_paths[fd]);
        return error ? error : PosixFileSystem::Sync(fd);
    }
    int Close(int fd) override {
        const int error = Check(Op::Close, m_paths[fd]);
        const int closed = PosixFileSystem::Close(fd); // the descriptor goes either way
        m_paths.erase(fd);
        return error ? error : closed;
    }
    int Remove(const std::string& path) override {
        const int error = Check(Op::Remove, path);
        return error ? error : PosixFileSystem::Remove(path);
    }
    int Rename(const std::string& from, const std::string& to) override {
        const int error = Check(Op::Rename, to);
        return error ? error : PosixFileSystem::Rename(from, to);
    }
    int SyncDirectory(const std::string& path) override {
        const int error = Check(Op::SyncDirectory, path);
        return error ? error : PosixFileSystem::SyncDirectory(path);
    }

private:
    int Check(Op op, const std::string& path) {
        log.emplace_back(op, path);
        if (before)
            before(op, path);
        for (Fault& fault : faults) {
            const bool matches =
                fault.op == op && path.size() >= fault.suffix.size() &&
                path.compare(path.size() - fault.suffix.size(), fault.suffix.size(), fault.suffix) == 0;
            if (!matches || fault.times == 0)
                continue;
            if (fault.skip > 0) {
                --fault.skip;
                continue;
            }
            --fault.times;
            return -fault.error;
        }
        return 0;
    }
    std::map<int, std::string> m_paths;
};

// A fresh folder for each test, removed afterwards. Made in the constructor so that members of
// derived fixtures can already name files in it.
class TempDirTest : public ::testing::Test {
protected:
    TempDirTest() : m_dir(MakeTempDir()) {}
    ~TempDirTest() override { std::filesystem::remove_all(m_dir); }

    std::string PathOf(const std::string& name) const { return m_dir + "/" + name; }

    static std::vector<uint8_t> Bytes(std::string_view text) { return {text.begin(), text.end()}; }
    static bool Exists(const std::string& path) { return std::filesystem::exists(path); }
    static std::string Content(const std::string& path) {
        std::ifstream in(path, std::ios::binary);
        return {std::istreambuf_iterator<char>(in), {}};
    }
    static void Put(const std::string& path, std::string_view content) {
        std::ofstream(path, std::ios::binary) << content;
    }
    // The names in the folder, sorted.
    std::vector<std::string> Names() const {
        std::vector<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(m_dir))
            names.push_back(entry.path().filename().string());
        std::sort(names.begin(), names.end());
        return names;
    }

    static std::string MakeTempDir() {
        std::string pattern = (std::filesystem::temp_directory_path() / "velto-doc-XXXXXX").string();
        if (!mkdtemp(pattern.data()))
            throw std::runtime_error("no temporary folder: " + pattern);
        return pattern;
    }

    const std::string m_dir;
};

// The bytes of a project file whose one node has the given title.
inline std::string ProjectBytes(const std::string& rootTitle) {
    ProjectContent content;
    content.firstNode = new CProjectNode();
    content.firstNode->m_strTitle = rootTitle;
    const std::vector<uint8_t> bytes = WriteProject(content);
    return {bytes.begin(), bytes.end()};
}

// The root title of the project file at path; empty when it cannot be read.
inline std::string RootTitleIn(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    const std::vector<uint8_t> bytes{std::istreambuf_iterator<char>(in), {}};
    ProjectContent content;
    const bool read = ReadProject(bytes, content).status == ReadStatus::Ok && content.firstNode;
    return read ? content.firstNode->m_strTitle : "";
}

inline std::string LockOf(const std::string& name) {
    const std::vector<uint8_t> record = LockRecord(name);
    return {record.begin(), record.end()};
}

// A document of the user "Anna" over the faulty file system, with a project path in the folder.
class DocTest : public TempDirTest {
protected:
    FaultyFileSystem fs;
    ScriptedPrompter prompter;
    CVeltoDoc doc{prompter, "Arial", 12, &fs, "Anna"};
    std::string project = PathOf("Plan.VT5");
    std::string lock = PathOf("Plan.~~~");
};

} // namespace doctest
