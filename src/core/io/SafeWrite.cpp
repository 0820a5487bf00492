#include "io/SafeWrite.h"

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <fcntl.h>
#include <unistd.h>

namespace velto {

namespace {

// A crashed save may have left a temporary file behind; it is never overwritten, the next free
// name is taken instead.
constexpr int kTempNameAttempts = 100;

// Host names go into file names: anything but letters, digits, '-' and '.' becomes '_'.
std::string HostTag() {
    char host[256] = {};
    if (gethostname(host, sizeof host - 1) != 0 || host[0] == '\0')
        return "host";
    std::string tag = host;
    for (char& c : tag)
        if (!std::isalnum(static_cast<unsigned char>(c)) && c != '-' && c != '.')
            c = '_';
    return tag;
}

std::string TemporaryPrefixOf(const std::string& target) {
    return FileNameOf(target) + ".~";
}

// Links are refused by FAT, by some SMB servers and for files of other owners (protected hard links).
bool LinksRefused(int error) {
    return error == -EPERM || error == -EXDEV || error == -ENOTSUP || error == -EMLINK || error == -ENOSYS ||
           error == -EACCES;
}

int CopyFile(FileSystem& fs, const std::string& from, const std::string& to) {
    const int in = fs.Open(from, O_RDONLY);
    if (in < 0)
        return in;
    int readError = 0;
    const int written = WriteFileContent(
        fs, to,
        [&](const PieceWriter& put) {
            std::vector<uint8_t> buffer(1 << 20);
            for (;;) {
                const ssize_t got = fs.Read(in, buffer.data(), buffer.size());
                if (got <= 0) {
                    readError = int(std::min<ssize_t>(got, 0));
                    return;
                }
                if (!put({buffer.data(), size_t(got)}))
                    return;
            }
        },
        CreateMode::Exclusive, Durability::Synced);
    fs.Close(in);
    const int result = readError < 0 ? readError : written;
    if (result < 0 && written != -EEXIST)
        fs.Remove(to);
    return result;
}

} // namespace

std::string TemporaryFilePath(const std::string& target, int n) {
    return target + ".~" + HostTag() + "-" + std::to_string(getpid()) + "-" + std::to_string(n) + ".tmp";
}

std::vector<std::string> TemporaryFilesOf(FileSystem& fs, const std::string& target) {
    std::vector<std::string> names, found;
    fs.ListDirectory(DirectoryOf(target), names);
    const std::string prefix = TemporaryPrefixOf(target);
    const std::string folder = DirectoryOf(target) + "/";
    for (const std::string& name : names)
        if (name.starts_with(prefix) && name.ends_with(".tmp"))
            found.push_back(folder + name);
    return found;
}

int WriteTemporaryFile(FileSystem& fs, const std::string& target, const ContentProducer& produce,
                       std::string& tempPath) {
    FileStatus targetStatus;
    const bool carryAccess = fs.Status(target, targetStatus) == 0 && targetStatus.regular;
    for (int attempt = 0; attempt < kTempNameAttempts; ++attempt) {
        tempPath = TemporaryFilePath(target, attempt);
        int result =
            WriteFileContent(fs, tempPath, produce, CreateMode::Exclusive, Durability::Synced,
                             [&](int fd) { return carryAccess ? fs.CopyAccess(fd, targetStatus) : 0; });
        if (result == -EEXIST)
            continue;
        if (result < 0)
            fs.Remove(tempPath);
        return result;
    }
    return -EEXIST;
}

int ReplaceFile(FileSystem& fs, const std::string& temp, const std::string& target) {
    if (const int renamed = fs.Rename(temp, target); renamed < 0)
        return renamed;
    // Some network file systems refuse to sync a folder; the file is complete either way, only the
    // durability of the rename across a power cut is at stake.
    fs.SyncDirectory(DirectoryOf(target));
    return 0;
}

int KeepUnderSecondName(FileSystem& fs, const std::string& path, const std::string& keep) {
    const int linked = fs.Link(path, keep);
    return LinksRefused(linked) ? CopyFile(fs, path, keep) : linked;
}

int SaveFileWithBackup(FileSystem& fs, const std::string& path, const std::string& backupPath,
                       const ContentProducer& produce) {
    std::string temp;
    if (const int written = WriteTemporaryFile(fs, path, produce, temp); written < 0)
        return written;
    FileStatus current;
    if (fs.Status(path, current) == 0) {
        // The old backup goes only in the rename that puts the current file in its place.
        std::string keep;
        int kept = -EEXIST;
        for (int n = 0; kept == -EEXIST && n < kTempNameAttempts; ++n)
            kept = KeepUnderSecondName(fs, path, keep = TemporaryFilePath(backupPath, n));
        if (kept == 0)
            kept = fs.Rename(keep, backupPath);
        if (kept < 0) {
            if (kept != -EEXIST)
                fs.Remove(keep);
            fs.Remove(temp);
            return kept;
        }
    }
    const int replaced = ReplaceFile(fs, temp, path);
    if (replaced < 0)
        fs.Remove(temp);
    return replaced;
}

int SaveFile(FileSystem& fs, const std::string& path, const ContentProducer& produce) {
    std::string temp;
    if (const int written = WriteTemporaryFile(fs, path, produce, temp); written < 0)
        return written;
    const int replaced = ReplaceFile(fs, temp, path);
    if (replaced < 0)
        fs.Remove(temp);
    return replaced;
}

} // namespace velto
