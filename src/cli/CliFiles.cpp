#include "CliFiles.h"

#include "document/ProjectReading.h"
#include "io/FileRead.h"
#include "io/SafeWrite.h"

#include <algorithm>
#include <fcntl.h>

namespace velto {

namespace {

PosixFileSystem files; // holds no state: one serves every command

} // namespace

bool ReadInput(const std::string& path, std::string& bytes, std::string& error) {
    const int read = ReadWholeFile(files, path, bytes);
    if (read < 0)
        error = CannotReadMessage(path, read);
    return read == 0;
}

bool ReadInputInPieces(const std::string& path, const std::function<void(const JsonPieceReader&)>& consume,
                       std::string& error) {
    const std::string target = ResolveFileLink(path);
    const int fd = files.Open(target, O_RDONLY);
    if (fd < 0) {
        error = CannotReadMessage(path, NameFolder(files, target, fd));
        return false;
    }
    int failure = 0;
    consume([&](char* buffer, size_t size) {
        const ssize_t got = files.Read(fd, buffer, size);
        failure = got < 0 ? int(got) : failure;
        return int64_t(got);
    });
    const int closed = files.Close(fd);
    failure = failure < 0 ? failure : std::min(closed, 0);
    if (failure < 0)
        error = CannotReadMessage(path, failure);
    return failure == 0;
}

bool ReadProjectInput(const std::string& path, ProjectContent& content, ReadResult& result,
                      std::string& error) {
    const std::string target = ResolveFileLink(path);
    const int opened = ReadProjectFile(files, target, content, result);
    if (opened < 0)
        error = CannotReadMessage(path, NameFolder(files, target, opened));
    return opened == 0;
}

bool WriteOutput(const std::string& path, const ContentProducer& produce, std::string& error) {
    const int saved = SaveFile(files, path, produce);
    if (saved < 0)
        error = "Die Datei \"" + path + "\" kann nicht geschrieben werden: " + FileErrorReason(saved) + ".";
    return saved == 0;
}

} // namespace velto
