#include "io/FileSystem.h"

#include <algorithm>
#include <cerrno>
#include <dirent.h>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <unistd.h>

namespace velto {

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

namespace {

FileStatus StatusFrom(const struct stat& info) {
    FileStatus status;
    status.regular = S_ISREG(info.st_mode);
    status.symlink = S_ISLNK(info.st_mode);
    status.mode = info.st_mode & 07777;
    status.owner = info.st_uid;
    status.group = info.st_gid;
    status.device = info.st_dev;
    status.inode = info.st_ino;
    status.size = info.st_size;
    status.modified = info.st_mtim.tv_sec;
    return status;
}

// An open that waited for the other end of a FIFO is undone: the descriptor stays non-blocking only
// for the moment of the check, regular files ignore the flag anyway.
int RefuseAllButRegular(int fd, int flags) {
    struct stat info {};
    if (::fstat(fd, &info) != 0) {
        const int error = -errno;
        ::close(fd);
        return error;
    }
    const bool wanted = (flags & O_DIRECTORY) ? S_ISDIR(info.st_mode) : S_ISREG(info.st_mode);
    if (!wanted) {
        ::close(fd);
        return kNotRegularFile;
    }
    ::fcntl(fd, F_SETFL, ::fcntl(fd, F_GETFL) & ~O_NONBLOCK);
    return fd;
}

} // namespace

int PosixFileSystem::Open(const std::string& path, int flags, mode_t mode) {
    const int fd =
        Retrying([&] { return ::open(path.c_str(), flags | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK, mode); });
    if (fd == -ENXIO) // a FIFO opened for writing without a reader
        return kNotRegularFile;
    return fd < 0 ? fd : RefuseAllButRegular(fd, flags);
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
    // A folder reached through a link is still the folder the files were renamed in.
    const int fd = Retrying([&] { return ::open(path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC); });
    if (fd < 0)
        return fd;
    const int synced = Sync(fd);
    const int closed = Close(fd);
    return synced < 0 ? synced : closed;
}

int PosixFileSystem::Link(const std::string& from, const std::string& to) {
    return ::link(from.c_str(), to.c_str()) == 0 ? 0 : -errno;
}

int PosixFileSystem::Status(const std::string& path, FileStatus& status) {
    struct stat info {};
    if (::lstat(path.c_str(), &info) != 0)
        return -errno;
    status = StatusFrom(info);
    return 0;
}

int PosixFileSystem::StatusOf(int fd, FileStatus& status) {
    struct stat info {};
    if (::fstat(fd, &info) != 0)
        return -errno;
    status = StatusFrom(info);
    return 0;
}

int PosixFileSystem::CopyAccess(int fd, const FileStatus& from) {
    if (::fchown(fd, from.owner, from.group) != 0)
        ::fchown(fd, uid_t(-1), from.group); // members of the group keep their access
    return ::fchmod(fd, from.mode) == 0 ? 0 : -errno;
}

int PosixFileSystem::CheckWritable(const std::string& path) {
    if (::faccessat(AT_FDCWD, path.c_str(), W_OK, AT_EACCESS | AT_SYMLINK_NOFOLLOW) != 0)
        return -errno;
    // A file without any write permission is write-protected on purpose, also for the superuser,
    // whom the access check lets through.
    struct stat info {};
    return ::lstat(path.c_str(), &info) == 0 && (info.st_mode & 0222) == 0 ? -EACCES : 0;
}

namespace {

struct flock WholeFileWriteLock() {
    struct flock lock {};
    lock.l_type = F_WRLCK;
    lock.l_whence = SEEK_SET;
    return lock;
}

} // namespace

int PosixFileSystem::TryLock(int fd) {
    struct flock lock = WholeFileWriteLock();
    if (::fcntl(fd, F_OFD_SETLK, &lock) == 0)
        return 0;
    return errno == EACCES ? -EAGAIN : -errno;
}

int PosixFileSystem::IsLockedByOther(int fd) {
    struct flock lock = WholeFileWriteLock();
    if (::fcntl(fd, F_OFD_GETLK, &lock) != 0)
        return -errno;
    return lock.l_type == F_UNLCK ? 0 : 1;
}

int PosixFileSystem::ListDirectory(const std::string& path, std::vector<std::string>& names) {
    names.clear();
    DIR* dir = ::opendir(path.c_str());
    if (!dir)
        return -errno;
    while (const dirent* entry = ::readdir(dir)) {
        const std::string name = entry->d_name;
        if (name != "." && name != "..")
            names.push_back(name);
    }
    ::closedir(dir);
    return 0;
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
                     Durability durability, const FilePreparer& prepare) {
    const int flags = O_WRONLY | O_CREAT | (mode == CreateMode::Exclusive ? O_EXCL : O_TRUNC);
    const int fd = fs.Open(path, flags);
    if (fd < 0)
        return fd;
    int error = prepare ? prepare(fd) : 0;
    if (error == 0)
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

std::string ResolveFileLink(const std::string& path) {
    std::error_code error;
    if (!std::filesystem::is_symlink(path, error))
        return path;
    const std::filesystem::path target = std::filesystem::weakly_canonical(path, error);
    return error ? path : target.string();
}

std::string FileErrorReason(int error) {
    if (error == kNotRegularFile)
        return "keine gewöhnliche Datei";
    switch (-error) {
    case ELOOP:
        return "ist eine symbolische Verknüpfung";
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

} // namespace velto
