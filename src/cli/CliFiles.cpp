#include "CliFiles.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

std::string FileError(const char* action, const std::string& path, int error) {
    return "Die Datei \"" + path + "\" kann nicht " + action + " werden: " + std::strerror(error);
}

bool ReadAll(int fd, std::vector<uint8_t>& bytes) {
    size_t done = 0;
    while (done < bytes.size()) {
        const ssize_t count = read(fd, bytes.data() + done, bytes.size() - done);
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            return false;
        if (count == 0) // shrunk while we read: keep what is there
            break;
        done += size_t(count);
    }
    bytes.resize(done);
    return true;
}

bool WriteAll(int fd, std::span<const uint8_t> bytes) {
    while (!bytes.empty()) {
        const ssize_t count = write(fd, bytes.data(), bytes.size());
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            return false;
        bytes = bytes.subspan(size_t(count));
    }
    return true;
}

} // namespace

bool ReadWholeFile(const std::string& path, std::vector<uint8_t>& bytes, std::string& error) {
    const int fd = open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (fd < 0) {
        error = FileError("gelesen", path, errno);
        return false;
    }
    struct stat status {};
    bool ok = fstat(fd, &status) == 0;
    int failure = errno;
    if (ok && !S_ISREG(status.st_mode)) {
        ok = false;
        failure = S_ISDIR(status.st_mode) ? EISDIR : EINVAL;
    }
    if (ok) {
        bytes.resize(size_t(status.st_size));
        ok = ReadAll(fd, bytes);
        failure = errno;
    }
    close(fd);
    if (!ok)
        error = FileError("gelesen", path, failure);
    return ok;
}

bool WriteFileSafely(const std::string& path, std::span<const uint8_t> bytes, std::string& error) {
    const std::string temporary = path + ".tmp" + std::to_string(getpid());
    const int fd = open(temporary.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    if (fd < 0) {
        error = FileError("geschrieben", path, errno);
        return false;
    }
    bool ok = WriteAll(fd, bytes) && fsync(fd) == 0;
    int failure = errno;
    if (close(fd) != 0 && ok) {
        ok = false;
        failure = errno;
    }
    if (ok && std::rename(temporary.c_str(), path.c_str()) != 0) {
        ok = false;
        failure = errno;
    }
    if (!ok) {
        unlink(temporary.c_str());
        error = FileError("geschrieben", path, failure);
    }
    return ok;
}
