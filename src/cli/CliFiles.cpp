#include "CliFiles.h"

#include "document/ProjectReading.h"
#include "io/FileRead.h"
#include "io/SafeWrite.h"

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
