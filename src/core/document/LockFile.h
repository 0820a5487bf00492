#pragma once
// The files kept beside a project: the lock file that names who edits it and the five backups.
#include "io/FileSystem.h"

#include <string>

// The project path up to its extension: the stem every file beside the project is named after.
std::string ProjectBaseName(const std::string& projectPath);
// Base name + ".~~~".
std::string LockFilePath(const std::string& projectPath);
// Base name + ".BK0" (newest) … ".BK4" (oldest).
std::string BackupFilePath(const std::string& projectPath, int index);
inline constexpr int kBackupCount = 5;

// The lock file's content: the login name (UTF-8, stored as Windows-1252) zero-padded to 256 bytes.
std::vector<uint8_t> LockRecord(const std::string& userName);

// Reads the holder's name (as UTF-8) from a lock file; an empty lock file names "???".
// 0, -ENOENT when there is no lock file, or another -errno.
int ReadLockHolder(FileSystem& fs, const std::string& lockPath, std::string& holder);
