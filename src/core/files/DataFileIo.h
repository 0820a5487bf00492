#pragma once
// Reading and saving the small data files. A missing file reads as empty. A file that exists but
// cannot be read is reported and must not be overwritten: its entries would be replaced by the
// empty list the dialog showed. Saving goes through the safe-write layer and keeps the one backup
// these files have always had ("<name>.bak" is the previous file), so a failed save leaves the
// file and its backup as they were.
#include "io/FileSystem.h"

#include <string>

namespace velto {

// The real file system, for callers that inject no other.
FileSystem& RealFileSystem();

// The file's bytes, or why it cannot be read (error: -errno). A missing file is empty, no error.
struct DataFileBytes {
    std::string bytes;
    int error = 0;
};
DataFileBytes ReadDataFile(FileSystem& fs, const std::string& path);

// How a save ended: true when the file was written, else the error (-errno) that stopped it.
struct SaveOutcome {
    int error = 0;
    explicit operator bool() const { return error == 0; }
};
// Writes the new bytes, keeping the current file as the backup. A symbolic link is followed, so a
// data file linked to a shared one stays shared.
SaveOutcome SaveDataFile(FileSystem& fs, const std::string& path, const std::string& bytes);

// The backup's path: the data file's extension replaced by ".bak".
std::string BackupPathOf(const std::string& path);

// What the editing dialogs say, naming the file and the reason.
std::string CannotReadDataFileMessage(const std::string& path, int error);
std::string CannotSaveDataFileMessage(const std::string& path, int error);

} // namespace velto
