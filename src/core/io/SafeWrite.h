#pragma once
// The one way Velto writes a file that matters: the new content goes to a temporary file beside the
// target, created exclusively under a name no other save uses, with the target's permissions,
// owner and group, and onto the disk; then it replaces the target in one atomic rename, and the
// folder is synced so that the rename survives a power cut. The target's name never stands empty.
#include "io/FileSystem.h"

#include <string>

namespace velto {

// The name of this process's n-th temporary file for target: target + ".~" + host + "-" + pid +
// "-" + n + ".tmp". Killed saves leave such files; TemporaryFilesOf finds them.
std::string TemporaryFilePath(const std::string& target, int n);
// The names (full paths) of the temporary files of any process beside target.
std::vector<std::string> TemporaryFilesOf(FileSystem& fs, const std::string& target);

// Writes the content to a fresh temporary file beside target (see above) and syncs it. The target's
// access is carried over when it exists. On failure nothing is left behind. 0 or -errno.
int WriteTemporaryFile(FileSystem& fs, const std::string& target, const ContentProducer& produce,
                       std::string& tempPath);
// Renames temp onto target (replacing it atomically) and syncs the folder. A folder that cannot be
// synced (some network file systems) does not fail the replace.
int ReplaceFile(FileSystem& fs, const std::string& temp, const std::string& target);
// Gives the current content of path a second name: a hard link, or a synced copy where the file
// system refuses links. keep must not exist. 0 or -errno.
int KeepUnderSecondName(FileSystem& fs, const std::string& path, const std::string& keep);

// The whole save of a file with one backup: the new content in a temporary file, the current file
// kept as backup (replacing the old backup only once the current file is safely linked), then the
// atomic replace. A failure leaves the file and its backup as they were. 0 or -errno.
int SaveFileWithBackup(FileSystem& fs, const std::string& path, const std::string& backupPath,
                       const ContentProducer& produce);
// A file without a backup (velto-cli's outputs): temporary file and atomic replace. 0 or -errno.
int SaveFile(FileSystem& fs, const std::string& path, const ContentProducer& produce);

} // namespace velto
