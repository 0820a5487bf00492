#pragma once
// A file system that fails on command, and a document over it in a temporary folder.
#include "document/CVeltoDoc.h"
#include "document/LockFile.h"
#include "support/ScriptedPrompter.h"
#include "support/TempDir.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <map>
#include <string>
#include <vector>

namespace velto::doctest {

using testsupport::ReadFile;
using testsupport::TempDirTest;
using testsupport::WriteFile;

enum class Op { Open, Read, Write, Sync, Close, Remove, Rename, SyncDirectory, Link };

// The real file system, except that a fault makes calls fail: it matches an operation on a path
// ending in `suffix` (for a rename or a link: the target), lets `skip` matches pass, then fails `times`.
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
    // Runs before every operation, so a test can change the folder between two calls.
    std::function<void(Op, const std::string&)> before;

    int Open(const std::string& path, int flags, mode_t mode) override {
        const int fd = Guard(Op::Open, path, [&] { return PosixFileSystem::Open(path, flags, mode); });
        if (fd >= 0)
            m_paths[fd] = path;
        return fd;
    }
    ssize_t Read(int fd, void* data, size_t size) override {
        return Guard(Op::Read, m_paths[fd], [&] { return PosixFileSystem::Read(fd, data, size); });
    }
    ssize_t Write(int fd, const void* data, size_t size) override {
        return Guard(Op::Write, m_paths[fd], [&] { return PosixFileSystem::Write(fd, data, size); });
    }
    int Sync(int fd) override {
        return Guard(Op::Sync, m_paths[fd], [&] { return PosixFileSystem::Sync(fd); });
    }
    int Close(int fd) override {
        const int closed = PosixFileSystem::Close(fd); // the descriptor goes either way
        return Guard(Op::Close, m_paths[fd], [&] { return closed; });
    }
    int Remove(const std::string& path) override {
        return Guard(Op::Remove, path, [&] { return PosixFileSystem::Remove(path); });
    }
    int Rename(const std::string& from, const std::string& to) override {
        return Guard(Op::Rename, to, [&] { return PosixFileSystem::Rename(from, to); });
    }
    int SyncDirectory(const std::string& path) override {
        return Guard(Op::SyncDirectory, path, [&] { return PosixFileSystem::SyncDirectory(path); });
    }
    int Link(const std::string& from, const std::string& to) override {
        return Guard(Op::Link, to, [&] { return PosixFileSystem::Link(from, to); });
    }

private:
    template <class Call> auto Guard(Op op, const std::string& path, Call call) -> decltype(call()) {
        if (before)
            before(op, path);
        for (Fault& fault : faults) {
            if (fault.op != op || fault.times == 0 || !path.ends_with(fault.suffix))
                continue;
            if (fault.skip > 0) {
                --fault.skip;
                continue;
            }
            --fault.times;
            return -fault.error;
        }
        return call();
    }
    std::map<int, std::string> m_paths;
};

inline std::vector<uint8_t> Bytes(std::string_view text) {
    return {text.begin(), text.end()};
}
inline std::string Text(const std::vector<uint8_t>& bytes) {
    return {bytes.begin(), bytes.end()};
}
inline bool Exists(const std::string& path) {
    return std::filesystem::exists(path);
}

// The bytes of a project file whose root has the given title and `children` nodes below it, each
// with a note of `noteSize` bytes.
inline std::string ProjectBytes(const std::string& rootTitle, int children = 0, size_t noteSize = 0) {
    ProjectContent content;
    content.firstNode = new CProjectNode();
    content.firstNode->m_strTitle = rootTitle;
    for (CProjectNode* last = content.firstNode; children-- > 0; last = last->m_pNext) {
        last->m_pNext = new CProjectNode();
        last->m_pNext->m_nLevel = 1;
        last->m_pNext->m_bSelected = 0;
        last->m_pNext->m_strNote = std::string(noteSize, 'n');
        last->m_pNext->m_pPrev = last;
    }
    return Text(WriteProject(content));
}

// The root title of the project file at path; empty when it cannot be read.
inline std::string RootTitleIn(const std::string& path) {
    ProjectContent content;
    return ReadProject(Bytes(ReadFile(path)), content).status == ReadStatus::Ok
               ? std::string(content.firstNode->m_strTitle)
               : "";
}

// The lock records of another program (or an older Velto), the name alone, and of this process.
inline std::string LockOf(const std::string& name) {
    return Text(LockRecord(name));
}
inline std::string OwnLockOf(const std::string& name) {
    return Text(OwnLockRecord(name));
}

// A document of the user "Anna" over the faulty file system.
class DocTest : public TempDirTest {
protected:
    // What the user was told last.
    std::string Told() const { return prompter.asked().empty() ? "" : prompter.asked().back().text; }

    FaultyFileSystem fs;
    ScriptedPrompter prompter;
    CVeltoDoc doc{prompter, "Arial", 12, &fs, "Anna"};
    std::string project = PathOf("Plan.VT5");
    std::string lock = PathOf("Plan.~~~");
};

} // namespace velto::doctest
