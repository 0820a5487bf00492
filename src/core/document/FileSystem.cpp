#include "document/FileSystem.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

// The system calls report failure as -1 with errno; interrupted calls are simply repeated.
template <class Call> auto Retrying(Call call) -> decltype(call()) {
    for (;;) {
        const auto result = call();
        if (result >= 0)
            return result;
        if (errno != EINTR)
            return -errno;
    }
}

} // namespace

int PosixFileSystem::Open(const std::string& path, int flags, mode_t mode) {
    return Retrying([&] { return ::open(path.c_str(), flags | O_CLOEXEC, mode); });
}

ssize_t PosixFileSystem::Read(int fd, void* buffer, size_t size) {
    return Retrying([&] { return ::read(fd, buffer, size); });
}

ssize_t PosixFileSystem::Write(int fd, const void* buffer, size_t size) {
    return Retrying([&] { return ::write(fd, buffer, size); });
}

int64_t PosixFileSystem::FileSize(int fd) {
    struct stat info {};
    return ::fstat(fd, &info) == 0 ? int64_t(info.st_size) : -errno;
}

int PosixFileSystem::Sync(int fd) {
    return Retrying([&] { return ::fsync(fd); });
}

int PosixFileSystem::Close(int fd) {
    // Never repeated: after an interrupted close the descriptor is gone on Linux.
    return ::close(fd) == 0 ? 0 : -errno;
}

int PosixFileSystem::Remove(const std::string& path) {
    return ::unlink(path.c_str()) == 0 ? 0 : -errno;
}

int PosixFileSystem::Rename(const std::string& from, const std::string& to) {
    return ::rename(from.c_str(), to.c_str()) == 0 ? 0 : -errno;
}

int PosixFileSystem::SyncDirectory(const std::string& path) {
    const int fd = Open(path, O_RDONLY | O_DIRECTORY);
    if (fd < 0)
        return fd;
    const int synced = Sync(fd);
    const int closed = Close(fd);
    return synced < 0 ? synced : closed;
}

int ReadFileBytes(FileSystem& fs, const std::string& path, std::vector<uint8_t>& out, size_t maxBytes) {
    out.clear();
    const int fd = fs.Open(path, O_RDONLY);
    if (fd < 0)
        return fd;
    // The buffer grows with what was actually read, at most one chunk ahead of the content.
    constexpr size_t kChunk = 64 * 1024;
    ssize_t got = 0;
    while (out.size() < maxBytes) {
        const size_t used = out.size();
        out.resize(used + std::min(kChunk, maxBytes - used));
        got = fs.Read(fd, out.data() + used, out.size() - used);
        out.resize(used + size_t(std::max<ssize_t>(got, 0)));
        if (got <= 0)
            break;
    }
    const int closed = fs.Close(fd);
    if (got < 0)
        return int(got);
    return closed < 0 ? closed : 0;
}

namespace {

int WriteAll(FileSystem& fs, int fd, std::span<const uint8_t> bytes) {
    for (size_t done = 0; done < bytes.size();) {
        const ssize_t written = fs.Write(fd, bytes.data() + done, bytes.size() - done);
        if (written < 0)
            return int(written);
        if (written == 0)
            return -ENOSPC; // a write that makes no progress: the medium is full
        done += size_t(written);
    }
    return 0;
}

} // namespace

int WriteFileContent(FileSystem& fs, const std::string& path, const ContentProducer& produce, CreateMode mode,
                     Durability durability) {
    const int flags = O_WRONLY | O_CREAT | (mode == CreateMode::Exclusive ? O_EXCL : O_TRUNC);
    const int fd = fs.Open(path, flags);
    if (fd < 0)
        return fd;
    int error = 0;
    produce([&](std::span<const uint8_t> piece) {
        error = WriteAll(fs, fd, piece);
        return error == 0;
    });
    if (error == 0 && durability == Durability::Synced)
        error = fs.Sync(fd);
    // Network file systems may report a failed write only here.
    const int closed = fs.Close(fd);
    return error < 0 ? error : closed;
}

int WriteFileBytes(FileSystem& fs, const std::string& path, std::span<const uint8_t> bytes, CreateMode mode,
                   Durability durability) {
    return WriteFileContent(
        fs, path, [&](const PieceWriter& put) { put(bytes); }, mode, durability);
}

std::string DirectoryOf(const std::string& path) {
    const size_t slash = path.rfind('/');
    if (slash == std::string::npos)
        return ".";
    return slash == 0 ? "/" : path.substr(0, slash);
}

std::string FileNameOf(const std::string& path) {
    const size_t slash = path.rfind('/');
    return slash == std::string::npos ? path : path.substr(slash + 1);
}

std::string FileErrorReason(int error) {
    switch (-error) {
    case ENOENT:
        return "Datei oder Ordner nicht gefunden";
    case EACCES:
    case EPERM:
        return "Zugriff verweigert";
    case ENOSPC:
    case EDQUOT:
        return "Festplatte voll";
    case EROFS:
        return "Laufwerk ist schreibgeschützt";
    case EISDIR:
        return "ist ein Ordner";
    case EIO:
        return "Ein-/Ausgabefehler";
    default:
        return "Systemfehler " + std::to_string(-error);
    }
}

bool IsDiskFull(int error) {
    return error == -ENOSPC || error == -EDQUOT;
}
