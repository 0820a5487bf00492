#pragma once
// The files kept beside a project: the lock file that names who edits it and the five backups.
//
// The lock file holds, in 256 bytes, the login name of the editor followed by a zero byte, so that
// every reader that stops at the zero sees the name alone; behind that zero Velto writes the host
// name and the process id, each ended by a zero too. While a project is open the lock file also
// carries an advisory lock of the open file, so that a lock file nobody holds any more (a Velto that
// was killed or whose computer went down) can be told from a live one.
#include "io/FileSystem.h"

#include <cstdint>
#include <string>

namespace velto {

// The project path up to its extension: the stem every file beside the project is named after.
std::string ProjectBaseName(const std::string& projectPath);
// Base name + ".~~~".
std::string LockFilePath(const std::string& projectPath);
// Base name + ".BK0" (newest) … ".BK4" (oldest); ".BK5" is the oldest backup on its way out while
// a save rotates them.
std::string BackupFilePath(const std::string& projectPath, int index);
inline constexpr int kBackupCount = 5;

// Who wrote a lock file and whether that Velto still runs.
struct LockOwner {
    std::string user; // UTF-8
    std::string host; // empty when the lock file was not written by this Velto
    int64_t processId = 0;
    int64_t written = 0; // the lock file's modification time, seconds since 1970
    bool held = false;   // some process holds the advisory lock right now
    // A lock file of a Velto that is known to have ended: it names its host, and nobody holds it.
    bool IsLeftOver() const { return !host.empty() && !held; }
};

// The lock file's content: the user name (UTF-8, stored as Windows-1252) ended by a zero byte,
// then host name and process id, zero-padded to 256 bytes. An overlong name is cut so that its
// zero always ends inside the record.
std::vector<uint8_t> LockRecord(const std::string& userName, const std::string& host = {},
                                int64_t processId = 0);
// The record of this process: the given user, this host and this process.
std::vector<uint8_t> OwnLockRecord(const std::string& userName);

// Reads a lock file: the name read over "???" as the program always did (an empty lock file names
// "???"), host and process id when present, and whether its advisory lock is held.
// 0, -ENOENT when there is no lock file, -ELOOP for a link, kNotRegularFile, or another -errno.
int ReadLockOwner(FileSystem& fs, const std::string& lockPath, LockOwner& owner);

// The lock file of one open project, held from creation until Release.
class ProjectLock {
public:
    explicit ProjectLock(FileSystem& fs) : m_fs(fs) {}
    ~ProjectLock() { Release(); }
    ProjectLock(const ProjectLock&) = delete;
    ProjectLock& operator=(const ProjectLock&) = delete;
    // Moves the held lock from other into this one (which must hold none).
    void TakeFrom(ProjectLock& other);

    // Creates the lock file only when it does not exist, so that of two people opening the project
    // at the same moment exactly one gets it. 0, -EEXIST, or another -errno.
    int Create(const std::string& lockPath, const std::vector<uint8_t>& record);
    // Takes over a lock file that nobody holds: -EAGAIN when someone does.
    int TakeOver(const std::string& lockPath, const std::vector<uint8_t>& record);
    // Whether the lock file under its name is still the one this lock created (nobody removed or
    // replaced it in the meantime).
    bool IsStillOurs() const;
    // Removes the lock file if it is still ours and lets go of it.
    void Release();

    bool IsHeld() const { return m_fd >= 0; }
    const std::string& Path() const { return m_path; }

private:
    int Hold(int fd, const std::string& lockPath, const std::vector<uint8_t>& record);

    FileSystem& m_fs;
    int m_fd = -1;
    std::string m_path;
};

} // namespace velto
