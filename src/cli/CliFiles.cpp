#include "CliFiles.h"

#include "io/FileSystem.h"

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

std::string FileError(const char* action, const std::string& path, int error) {
    return "Die Datei \"" + path + "\" kann nicht " + action + " werden: " + FileErrorReason(-error) + ".";
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

InputFile::~InputFile() {
    if (m_fd >= 0)
        close(m_fd);
}

bool InputFile::Open(const std::string& path, std::string& error) {
    m_fd = open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (m_fd < 0) {
        error = FileError("gelesen", path, errno);
        return false;
    }
    struct stat status {};
    int failure = 0;
    if (fstat(m_fd, &status) != 0)
        failure = errno;
    else if (S_ISDIR(status.st_mode))
        failure = EISDIR;
    else if (!S_ISREG(status.st_mode))
        failure = EINVAL;
    if (failure) {
        error = FileError("gelesen", path, failure);
        return false;
    }
    m_size = uint64_t(status.st_size);
    return true;
}

int64_t InputFile::Read(uint8_t* buffer, size_t size) {
    for (;;) {
        const ssize_t count = read(m_fd, buffer, size);
        if (count >= 0)
            return count;
        if (errno != EINTR)
            return -errno;
    }
}

bool ReadWholeFile(const std::string& path, std::vector<uint8_t>& bytes, std::string& error) {
    InputFile file;
    if (!file.Open(path, error))
        return false;
    bytes.resize(size_t(file.Size()));
    size_t done = 0;
    while (done < bytes.size()) {
        const int64_t count = file.Read(bytes.data() + done, bytes.size() - done);
        if (count < 0) {
            error = FileError("gelesen", path, int(-count));
            return false;
        }
        if (count == 0) // shrunk while we read: keep what is there
            break;
        done += size_t(count);
    }
    bytes.resize(done);
    return true;
}

bool WriteFileSafely(const std::string& path, const FileWriter& writer, std::string& error) {
    const std::string temporary = path + ".tmp" + std::to_string(getpid());
    const int fd = open(temporary.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    if (fd < 0) {
        error = FileError("geschrieben", path, errno);
        return false;
    }
    errno = 0;
    bool ok = writer([fd](std::span<const uint8_t> piece) { return WriteAll(fd, piece); }) && fsync(fd) == 0;
    int failure = errno ? errno : EIO;
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
