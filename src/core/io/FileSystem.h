#pragma once
// The file operations Velto needs, one system call each, so that a test can make any single step of
// an open or a save fail. Every call returns a negative errno value on failure.
//
// Project folders are shared with other people, so nothing here follows a symbolic link or waits:
// Open refuses a link (-ELOOP) and anything but a regular file or a folder (kNotRegularFile), and
// never blocks on a FIFO. Callers that accept a linked project resolve the path first.
#include <cerrno>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <sys/types.h>
#include <vector>

namespace velto {

// The error Open reports for a FIFO, a device or a socket.
inline constexpr int kNotRegularFile = -EMEDIUMTYPE;

// What lstat/fstat tell about a file.
struct FileStatus {
    bool regular = false;
    bool symlink = false;
    mode_t mode = 0; // permission bits only
    uid_t owner = 0;
    gid_t group = 0;
    dev_t device = 0;
    ino_t inode = 0;
    int64_t size = 0;
    int64_t modified = 0; // seconds since 1970
    bool SameFileAs(const FileStatus& other) const { return device == other.device && inode == other.inode; }
};

class FileSystem {
public:
    virtual ~FileSystem() = default;

    // A descriptor, or -errno. flags as for open(2); mode applies when a file is created.
    virtual int Open(const std::string& path, int flags, mode_t mode = 0666) = 0;
    // Bytes read (0 at the end of the file), or -errno.
    virtual ssize_t Read(int fd, void* buffer, size_t size) = 0;
    // Bytes written, or -errno.
    virtual ssize_t Write(int fd, const void* buffer, size_t size) = 0;
    // The size of an open file, or -errno.
    virtual int64_t FileSize(int fd) = 0;
    // Flushes the file's data to the disk.
    virtual int Sync(int fd) = 0;
    virtual int Close(int fd) = 0;
    virtual int Remove(const std::string& path) = 0;
    // Replaces `to` when it exists.
    virtual int Rename(const std::string& from, const std::string& to) = 0;
    // Makes the folder's entries (a rename into it) durable.
    virtual int SyncDirectory(const std::string& path) = 0;
    // A second name for the file at from; fails with -EEXIST when `to` exists.
    virtual int Link(const std::string& from, const std::string& to) = 0;
    // The status of path itself (a link is not followed).
    virtual int Status(const std::string& path, FileStatus& status) = 0;
    virtual int StatusOf(int fd, FileStatus& status) = 0;
    // Gives the open file the permission bits, owner and group of another file. A user who may not
    // give the file away keeps it, but the group and the mode are still carried over when allowed.
    virtual int CopyAccess(int fd, const FileStatus& from) = 0;
    // Whether the process may write the file (0) or not (-EACCES, -EROFS, ...); a file without any
    // write permission bit counts as write-protected.
    virtual int CheckWritable(const std::string& path) = 0;
    // An advisory write lock on the whole open file, held until the descriptor is closed and seen by
    // other processes (open-file-description lock). -EAGAIN when someone else holds one.
    virtual int TryLock(int fd) = 0;
    // 1 when another open file holds a lock on the file, 0 when nobody does, or -errno.
    virtual int IsLockedByOther(int fd) = 0;
    // The names in a folder (without "." and "..").
    virtual int ListDirectory(const std::string& path, std::vector<std::string>& names) = 0;
};

// The real file system.
class PosixFileSystem : public FileSystem {
public:
    int Open(const std::string& path, int flags, mode_t mode = 0666) override;
    ssize_t Read(int fd, void* buffer, size_t size) override;
    ssize_t Write(int fd, const void* buffer, size_t size) override;
    int64_t FileSize(int fd) override;
    int Sync(int fd) override;
    int Close(int fd) override;
    int Remove(const std::string& path) override;
    int Rename(const std::string& from, const std::string& to) override;
    int SyncDirectory(const std::string& path) override;
    int Link(const std::string& from, const std::string& to) override;
    int Status(const std::string& path, FileStatus& status) override;
    int StatusOf(int fd, FileStatus& status) override;
    int CopyAccess(int fd, const FileStatus& from) override;
    int CheckWritable(const std::string& path) override;
    int TryLock(int fd) override;
    int IsLockedByOther(int fd) override;
    int ListDirectory(const std::string& path, std::vector<std::string>& names) override;
};

// Reads at most maxBytes from the start of the file; 0 or -errno.
int ReadFileBytes(FileSystem& fs, const std::string& path, std::vector<uint8_t>& out,
                  size_t maxBytes = SIZE_MAX);

enum class CreateMode {
    Truncate,  // create, or empty an existing file
    Exclusive, // fail with -EEXIST when the file exists
};
enum class Durability { Buffered, Synced };

// Takes a file's content piece by piece, in order; false tells the producer to stop.
using PieceWriter = std::function<bool(std::span<const uint8_t> piece)>;
// Hands the whole content to the writer, so that it never needs to exist in one buffer.
using ContentProducer = std::function<void(const PieceWriter& put)>;

// Runs on a freshly created file before its content is written; 0 or -errno.
using FilePreparer = std::function<int(int fd)>;

// Creates the file and writes the content; with Synced it is on the disk before this returns.
// 0 or -errno of the first step that failed (what was written so far stays: the caller decides).
int WriteFileContent(FileSystem& fs, const std::string& path, const ContentProducer& produce, CreateMode mode,
                     Durability durability = Durability::Buffered, const FilePreparer& prepare = {});
int WriteFileBytes(FileSystem& fs, const std::string& path, std::span<const uint8_t> bytes, CreateMode mode,
                   Durability durability = Durability::Buffered);

// The folder part of a path ("." when it has none).
std::string DirectoryOf(const std::string& path);
// The part after the last '/'.
std::string FileNameOf(const std::string& path);
// The file a symbolic link at path finally points to, so that a linked project is saved beside its
// target and keeps being a link; path itself when it is no link (or its target cannot be found).
std::string ResolveFileLink(const std::string& path);

// Why a file operation failed, in German, for messages ("Zugriff verweigert").
std::string FileErrorReason(int error);
// A full disk or an exhausted quota.
bool IsDiskFull(int error);

} // namespace velto
