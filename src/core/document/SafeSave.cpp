#include "document/SafeSave.h"

#include "document/LockFile.h"
#include "document/ProjectReading.h"
#include "io/SafeWrite.h"

#include <cerrno>
#include <fcntl.h>

namespace velto {

namespace {

constexpr int kNameAttempts = 100;

struct Renamed {
    std::string from, to;
};

// .BK0 … .BK4 and .BK5, the name the oldest backup passes through on its way out.
std::vector<std::string> BackupChain(const std::string& projectPath) {
    std::vector<std::string> chain;
    for (int index = 0; index <= kBackupCount; ++index)
        chain.push_back(BackupFilePath(projectPath, index));
    return chain;
}

bool Exists(FileSystem& fs, const std::string& path) {
    FileStatus status;
    return fs.Status(path, status) == 0;
}

void MoveBack(FileSystem& fs, const std::vector<Renamed>& done) {
    for (auto step = done.rbegin(); step != done.rend(); ++step)
        fs.Rename(step->to, step->from);
}

// Moves every backup one name up, oldest first, so that each rename goes onto a free name and no
// state is ever overwritten. A refused rename (a backup open elsewhere on a share) moves the ones
// done back. Missing backups are no error.
int ShiftBackups(FileSystem& fs, const std::string& projectPath, std::vector<Renamed>& done) {
    const std::vector<std::string> chain = BackupChain(projectPath);
    for (int index = kBackupCount; index > 0; --index) {
        const int renamed = fs.Rename(chain[index - 1], chain[index]);
        if (renamed == -ENOENT)
            continue;
        if (renamed < 0) {
            MoveBack(fs, done);
            done.clear();
            return renamed;
        }
        done.push_back({chain[index - 1], chain[index]});
    }
    return 0;
}

// Gives the current project a second name beside .BK0; kept stays empty when there is no project.
int KeepCurrentState(FileSystem& fs, const std::string& projectPath, std::string& kept) {
    kept.clear();
    if (!Exists(fs, projectPath))
        return 0;
    for (int n = 0; n < kNameAttempts; ++n) {
        const std::string candidate = TemporaryFilePath(BackupFilePath(projectPath, 0), n);
        const int result = KeepUnderSecondName(fs, projectPath, candidate);
        if (result == -EEXIST)
            continue;
        if (result == 0)
            kept = candidate;
        return result;
    }
    return -EEXIST;
}

SaveResult Failed(SaveResult::Outcome outcome, int error) {
    return {outcome, error};
}

} // namespace

SaveResult SaveWithBackups(FileSystem& fs, const std::string& projectPath, const ContentProducer& produce) {
    std::string temp, kept;
    if (const int written = WriteTemporaryFile(fs, projectPath, produce, temp); written < 0)
        return Failed(SaveResult::Outcome::NotWritten, written);
    // Nothing of the backups moves before the current state is safe under a second name.
    if (const int keptResult = KeepCurrentState(fs, projectPath, kept); keptResult < 0) {
        fs.Remove(temp);
        return Failed(SaveResult::Outcome::NotWritten, keptResult);
    }
    std::vector<Renamed> shifted;
    if (!kept.empty()) {
        if (const int moved = ShiftBackups(fs, projectPath, shifted); moved < 0) {
            fs.Remove(kept);
            fs.Remove(temp);
            return Failed(SaveResult::Outcome::NotWritten, moved);
        }
    }
    if (const int replaced = fs.Rename(temp, projectPath); replaced < 0) {
        MoveBack(fs, shifted);
        if (!kept.empty())
            fs.Remove(kept);
        fs.Remove(temp);
        return Failed(SaveResult::Outcome::NotReplaced, replaced);
    }
    // From here the save has happened; a step that fails now leaves a name for the next repair.
    if (!kept.empty())
        fs.Rename(kept, BackupFilePath(projectPath, 0));
    fs.Remove(BackupFilePath(projectPath, kBackupCount));
    // Some network file systems refuse to sync a folder; the files are complete either way, only
    // the durability of the renames across a power cut is at stake.
    fs.SyncDirectory(DirectoryOf(projectPath));
    return {};
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
    return "Die Datei \"" + projectPath + "\" konnte nicht ersetzt werden (" + FileErrorReason(result.error) +
           ").\nSie und ihre Sicherungen sind unverändert.";
}

// ---- Repair after a killed save ----

namespace {

bool SameBytes(FileSystem& fs, const std::string& first, const std::string& second) {
    std::vector<uint8_t> a, b;
    constexpr size_t kChunk = 1 << 20;
    const int fa = fs.Open(first, O_RDONLY);
    const int fb = fa < 0 ? -1 : fs.Open(second, O_RDONLY);
    bool same = fa >= 0 && fb >= 0 && fs.FileSize(fa) == fs.FileSize(fb);
    while (same) {
        a.resize(kChunk);
        b.resize(kChunk);
        const ssize_t ga = fs.Read(fa, a.data(), kChunk);
        const ssize_t gb = ga <= 0 ? ga : fs.Read(fb, b.data(), size_t(ga));
        same = ga >= 0 && ga == gb && std::equal(a.begin(), a.begin() + ga, b.begin());
        if (ga <= 0)
            break;
    }
    if (fb >= 0)
        fs.Close(fb);
    if (fa >= 0)
        fs.Close(fa);
    return same;
}

// The second name of the project that a killed save left: while it is still the project itself,
// the project was never replaced and it goes; otherwise it is the state before the save and
// becomes .BK0.
void SettleKeptState(FileSystem& fs, const std::string& projectPath) {
    const std::string bk0 = BackupFilePath(projectPath, 0);
    for (const std::string& kept : TemporaryFilesOf(fs, bk0)) {
        FileStatus keptStatus, project;
        if (fs.Status(kept, keptStatus) != 0 || !keptStatus.regular)
            continue;
        if (fs.Status(projectPath, project) != 0)
            fs.Rename(kept, projectPath);
        else if (keptStatus.SameFileAs(project) || SameBytes(fs, kept, projectPath))
            fs.Remove(kept);
        else if (!Exists(fs, bk0))
            fs.Rename(kept, bk0);
    }
}

// Gives the backups that exist the names .BK0, .BK1, … in their order, so that the gap a killed
// rotation left closes; a sixth state is the oldest on its way out and goes.
void CloseBackupGap(FileSystem& fs, const std::string& projectPath) {
    const std::vector<std::string> chain = BackupChain(projectPath);
    int next = 0;
    for (int index = 0; index <= kBackupCount; ++index) {
        if (!Exists(fs, chain[index]))
            continue;
        if (next == kBackupCount)
            fs.Remove(chain[index]);
        else if (index != next)
            fs.Rename(chain[index], chain[next]);
        ++next;
    }
}

} // namespace

std::vector<std::string> RepairInterruptedSave(FileSystem& fs, const std::string& projectPath) {
    SettleKeptState(fs, projectPath);
    CloseBackupGap(fs, projectPath);
    FileStatus project;
    const bool hasProject = fs.Status(projectPath, project) == 0;
    std::vector<std::string> newer;
    for (const std::string& temp : TemporaryFilesOf(fs, projectPath)) {
        FileStatus status;
        if (fs.Status(temp, status) != 0 || !status.regular)
            continue;
        if (!HoldsWholeProject(fs, temp))
            fs.Remove(temp);
        else if (!hasProject || status.modified >= project.modified)
            newer.push_back(temp);
    }
    return newer;
}

} // namespace velto
