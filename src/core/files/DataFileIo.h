#pragma once
// Reading and saving the small data files. Saving keeps the one backup these files have always had
// ("<name>.bak" is the previous file) and never leaves the user without the last good state: the
// new bytes are written and flushed to a temporary file first, so a failed write touches nothing.
#include <optional>
#include <string>

// The whole file, or nothing when it is missing or cannot be read.
std::optional<std::string> ReadDataFile(const std::string& path);
// The backup's path: the data file's extension replaced by ".bak".
std::string BackupPathOf(const std::string& path);
// Deletes the old backup, moves the file to the backup and puts the new bytes in its place.
// False when the new file could not be written.
bool SaveDataFile(const std::string& path, const std::string& bytes);
