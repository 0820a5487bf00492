#include "document/SafeSave.h"

#include "document/LockFile.h"

#include <cerrno>
#include <unistd.h>

namespace {

// A crashed save may have left a temporary file behind; it is never overwritten, the next free
// name is taken instead.
constexpr int kTempNameAttempts = 100;

std::string TempFilePath(const std::string& projectPath, int attempt) {
    return projectPath + ".~" + std::to_string(getpid()) + "-" + std::to_string(attempt) + ".tmp";
}

int WriteTempFile(FileSystem& fs, const std::string& projectPath, const ContentProducer& produce,
                  std::string& tempPath) {
    for (int attempt = 0; attempt < kTempNameAttempts; ++attempt) {
        tempPath = TempFilePath(projectPath, attempt);
        const int result = WriteFileContent(fs, tempPath, produce, CreateMode::Exclusive, Durability::Synced);
        if (result == -EEXIST)
            continue;
        if (result < 0)
            fs.Remove(tempPath);
        return result;
    }
    return -EEXIST;
}

// Delete the target, then rename the source onto it: the rotation as the program has always done
// it. A missing source is no error (fewer backups than five, the first save of a project).
int MoveOnto(FileSystem& fs, const std::string& from, const std::string& to) {
    fs.Remove(to);
    return fs.Rename(from, to);
}

// Failures in the older backups are ignored, as they always were: they cost an old backup at
// worst. Returns the result of moving the project itself to .BK0.
int RotateBackups(FileSystem& fs, const std::string& projectPath) {
    for (int index = kBackupCount - 1; index > 0; --index)
        MoveOnto(fs, BackupFilePath(projectPath, index - 1), BackupFilePath(projectPath, index));
    return MoveOnto(fs, projectPath, BackupFilePath(projectPath, 0));
}

} // namespace

SaveResult SaveWithBackups(FileSystem& fs, const std::string& projectPath, const ContentProducer& produce) {
    SaveResult result;
    if (const int written = WriteTempFile(fs, projectPath, produce, result.tempPath); written < 0)
        return {SaveResult::Outcome::NotWritten, written, {}, {}};

    const int moved = RotateBackups(fs, projectPath);
    // Replacing the project while it could not go to .BK0 would destroy the last good state.
    if (moved < 0 && moved != -ENOENT) {
        fs.Remove(result.tempPath);
        return {SaveResult::Outcome::NotWritten, moved, {}, {}};
    }
    if (const int replaced = fs.Rename(result.tempPath, projectPath); replaced < 0) {
        result.outcome = SaveResult::Outcome::NotReplaced;
        result.error = replaced;
        if (moved == 0)
            result.lastGoodPath = fs.Rename(BackupFilePath(projectPath, 0), projectPath) == 0
                                      ? projectPath
                                      : BackupFilePath(projectPath, 0);
        return result;
    }
    // Some network file systems refuse to sync a folder; the files are complete either way, only
    // the durability of the rename across a power cut is at stake.
    fs.SyncDirectory(DirectoryOf(projectPath));
    result.tempPath.clear();
    return result;
}

std::string SaveFailureMessage(const SaveResult& result, const std::string& projectPath) {
    switch (result.outcome) {
    case SaveResult::Outcome::Saved:
        return {};
    case SaveResult::Outcome::NotWritten:
        return IsDiskFull(result.error) ? "Festplatte voll!" : "Datei kann nicht angelegt werden!";
    case SaveResult::Outcome::NotReplaced:
        break;
    }
    const std::string head = "Die Datei \"" + projectPath + "\" konnte nicht ersetzt werden (" +
                             FileErrorReason(result.error) + ").\n";
    const std::string saved = "Der neue Stand ist in \"" + result.tempPath + "\" gespeichert.";
    if (result.lastGoodPath == projectPath)
        return head + "Sie ist unverändert. " + saved;
    if (result.lastGoodPath.empty())
        return head + saved;
    return head + "Der zuletzt gespeicherte Stand liegt in \"" + result.lastGoodPath + "\". " + saved;
}
