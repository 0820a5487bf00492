#include "document/LockFile.h"

#include "io/Process.h"
#include "model/Cp1252.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <charconv>
#include <cstring>
#include <fcntl.h>
#include <utility>

namespace velto {

namespace {

constexpr size_t kLockRecordSize = 256;

// Appends text and its terminating zero as far as the record allows, always leaving the last byte 0.
size_t PutField(std::vector<uint8_t>& record, size_t at, const std::string& text) {
    if (at >= kLockRecordSize - 1)
        return at;
    const size_t count = std::min(text.size(), kLockRecordSize - 1 - at);
    std::copy_n(text.begin(), count, record.begin() + at);
    return at + count + 1;
}

// The zero-ended field starting at `at`, and where the next one starts.
std::string FieldAt(const std::vector<uint8_t>& bytes, size_t& at) {
    const auto start = bytes.begin() + std::min(at, bytes.size());
    const auto end = std::find(start, bytes.end(), 0);
    at = size_t(end - bytes.begin()) + 1;
    return {start, end};
}

// The name as the program always read it: over a buffer that starts as "???" and zeros.
std::string UserNameOf(const std::vector<uint8_t>& bytes) {
    std::array<char, kLockRecordSize + 1> buffer{'?', '?', '?'};
    std::memcpy(buffer.data(), bytes.data(), std::min(bytes.size(), kLockRecordSize));
    return cp1252::ToUtf8(buffer.data());
}

void ReadOwnerFields(const std::vector<uint8_t>& bytes, LockOwner& owner) {
    size_t at = 0;
    FieldAt(bytes, at);
    const std::string host = FieldAt(bytes, at);
    const std::string pid = FieldAt(bytes, at);
    int64_t processId = 0;
    const auto parsed = std::from_chars(pid.data(), pid.data() + pid.size(), processId);
    // Only a record with both fields is one of ours; anything else is an unknown writer's.
    if (!host.empty() && parsed.ec == std::errc() && parsed.ptr == pid.data() + pid.size()) {
        owner.host = cp1252::ToUtf8(host);
        owner.processId = processId;
    }
}

} // namespace

std::string ProjectBaseName(const std::string& projectPath) {
    // Only a dot in the file name starts the extension: a dot in a folder name must not send the
    // lock file into another folder.
    const size_t slash = projectPath.rfind('/');
    const size_t nameStart = slash == std::string::npos ? 0 : slash + 1;
    const size_t dot = projectPath.rfind('.');
    if (dot == std::string::npos || dot < nameStart)
        return projectPath;
    return projectPath.substr(0, dot);
}

std::string LockFilePath(const std::string& projectPath) {
    return ProjectBaseName(projectPath) + ".~~~";
}

std::string BackupFilePath(const std::string& projectPath, int index) {
    return ProjectBaseName(projectPath) + ".BK" + std::to_string(index);
}

std::vector<uint8_t> LockRecord(const std::string& userName, const std::string& host, int64_t processId) {
    std::vector<uint8_t> record(kLockRecordSize, 0);
    size_t at = PutField(record, 0, cp1252::FromUtf8Lossy(userName));
    if (!host.empty()) {
        at = PutField(record, at, cp1252::FromUtf8Lossy(host));
        PutField(record, at, std::to_string(processId));
    }
    return record;
}

std::vector<uint8_t> OwnLockRecord(const std::string& userName) {
    return LockRecord(userName, ThisHostName(), ThisProcessId());
}

int ReadLockOwner(FileSystem& fs, const std::string& lockPath, LockOwner& owner) {
    owner = LockOwner{};
    const int fd = fs.Open(lockPath, O_RDONLY);
    if (fd < 0)
        return fd;
    std::vector<uint8_t> bytes(kLockRecordSize);
    size_t got = 0;
    ssize_t read = 0;
    while (got < bytes.size() && (read = fs.Read(fd, bytes.data() + got, bytes.size() - got)) > 0)
        got += size_t(read);
    bytes.resize(got);
    FileStatus status;
    if (fs.StatusOf(fd, status) == 0)
        owner.written = status.modified;
    // Where the file system cannot tell (a share without a lock manager), the lock counts as live:
    // calling it left over would invite a second writer.
    owner.held = fs.IsLockedByOther(fd) != 0;
    fs.Close(fd);
    if (read < 0)
        return int(read);
    owner.user = UserNameOf(bytes);
    ReadOwnerFields(bytes, owner);
    return 0;
}

// ---- ProjectLock ----

void ProjectLock::TakeFrom(ProjectLock& other) {
    Release();
    m_fd = std::exchange(other.m_fd, -1);
    m_path = std::move(other.m_path);
}

int ProjectLock::Create(const std::string& lockPath, const std::vector<uint8_t>& record) {
    const int fd = m_fs.Open(lockPath, O_RDWR | O_CREAT | O_EXCL);
    if (fd < 0)
        return fd;
    const int held = Hold(fd, lockPath, record);
    if (held < 0)
        m_fs.Remove(lockPath);
    return held;
}

int ProjectLock::TakeOver(const std::string& lockPath, const std::vector<uint8_t>& record) {
    const int fd = m_fs.Open(lockPath, O_RDWR);
    return fd < 0 ? fd : Hold(fd, lockPath, record);
}

int ProjectLock::Hold(int fd, const std::string& lockPath, const std::vector<uint8_t>& record) {
    // The advisory lock comes before the content, so that nobody takes a lock file for left over
    // while it is being written. File systems without advisory locks still get the lock file.
    int result = m_fs.TryLock(fd);
    if (result == -ENOLCK || result == -EINVAL || result == -ENOSYS || result == -EOPNOTSUPP)
        result = 0;
    size_t done = 0;
    while (result == 0 && done < record.size()) {
        const ssize_t written = m_fs.Write(fd, record.data() + done, record.size() - done);
        result = written < 0 ? int(written) : written == 0 ? -ENOSPC : 0;
        done += size_t(std::max<ssize_t>(written, 0));
    }
    if (result == 0)
        result = m_fs.Sync(fd);
    if (result < 0) {
        m_fs.Close(fd);
        return result;
    }
    Release();
    m_fd = fd;
    m_path = lockPath;
    return 0;
}

bool ProjectLock::IsStillOurs() const {
    FileStatus held, named;
    return IsHeld() && m_fs.StatusOf(m_fd, held) == 0 && m_fs.Status(m_path, named) == 0 &&
           held.SameFileAs(named);
}

void ProjectLock::Release() {
    if (!IsHeld())
        return;
    if (IsStillOurs())
        m_fs.Remove(m_path);
    m_fs.Close(m_fd);
    m_fd = -1;
    m_path.clear();
}

} // namespace velto
