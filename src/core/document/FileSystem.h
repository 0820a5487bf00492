#pragma once
// The file operations a document needs, one system call each, so that a test can make any single
// step of an open or a save fail. Every call returns a negative errno value on failure.
#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <sys/types.h>
#include <vector>

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

// Creates the file and writes the content; with Synced it is on the disk before this returns.
// 0 or -errno of the first step that failed (what was written so far stays: the caller decides).
int WriteFileContent(FileSystem& fs, const std::string& path, const ContentProducer& produce, CreateMode mode,
                     Durability durability = Durability::Buffered);
int WriteFileBytes(FileSystem& fs, const std::string& path, std::span<const uint8_t> bytes, CreateMode mode,
                   Durability durability = Durability::Buffered);

// The folder part of a path ("." when it has none).
std::string DirectoryOf(const std::string& path);
// The part after the last '/'.
std::string FileNameOf(const std::string& path);

// Why a file operation failed, in German, for messages ("Zugriff verweigert").
std::string FileErrorReason(int error);
// A full disk or an exhausted quota.
bool IsDiskFull(int error);
