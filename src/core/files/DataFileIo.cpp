#include "files/DataFileIo.h"

#include "io/FileRead.h"
#include "io/SafeWrite.h"

#include <cstdint>
#include <span>

namespace velto {

FileSystem& RealFileSystem() {
    static PosixFileSystem fs;
    return fs;
}

DataFileBytes ReadDataFile(FileSystem& fs, const std::string& path) {
    DataFileBytes read;
    read.error = ReadWholeFile(fs, path, read.bytes);
    if (read.error == -ENOENT)
        read.error = 0;
    return read;
}

SaveOutcome SaveDataFile(FileSystem& fs, const std::string& path, const std::string& bytes) {
    const std::string target = ResolveFileLink(path);
    const auto produce = [&bytes](const PieceWriter& put) {
        put(std::span(reinterpret_cast<const uint8_t*>(bytes.data()), bytes.size()));
    };
    return {SaveFileWithBackup(fs, target, BackupPathOf(target), produce)};
}

std::string BackupPathOf(const std::string& path) {
    const std::string name = FileNameOf(path);
    const size_t dot = name.rfind('.');
    // A name that starts with its only dot has no extension.
    const size_t stemLength = dot == std::string::npos || dot == 0 ? name.size() : dot;
    return path.substr(0, path.size() - name.size() + stemLength) + ".bak";
}

std::string CannotReadDataFileMessage(const std::string& path, int error) {
    return "Die Datei \"" + path + "\" kann nicht gelesen werden (" + FileErrorReason(error) +
           "). Sie wird nicht überschrieben.";
}

std::string CannotSaveDataFileMessage(const std::string& path, int error) {
    return "Die Datei \"" + path + "\" kann nicht geschrieben werden (" + FileErrorReason(error) + ").";
}

} // namespace velto
