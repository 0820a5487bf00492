#include "document/ProjectReading.h"

#include <fcntl.h>

namespace velto {

int ReadProjectFile(FileSystem& fs, const std::string& path, ProjectContent& content, ReadResult& result) {
    const int fd = fs.Open(path, O_RDONLY);
    if (fd < 0)
        return fd;
    const int64_t size = fs.FileSize(fd);
    if (size >= 0)
        result = ReadProject(
            uint64_t(size),
            [&](uint8_t* buffer, size_t count) { return int64_t(fs.Read(fd, buffer, count)); }, content);
    fs.Close(fd);
    return size < 0 ? int(size) : 0;
}

bool HoldsWholeProject(FileSystem& fs, const std::string& path) {
    ProjectContent content;
    ReadResult result;
    return ReadProjectFile(fs, path, content, result) == 0 && result.status != ReadStatus::Error;
}

} // namespace velto
