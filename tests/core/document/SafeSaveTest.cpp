// The save sequence: backups rotate as they always did, and whatever single step fails, the last
// good state stays in the project file or in its newest backup.
#include "document/SafeSave.h"
#include "document/LockFile.h"
#include "io/SafeWrite.h"

#include "core/document/DocTestSupport.h"

#include <cerrno>

namespace velto {

using namespace doctest;
using Outcome = SaveResult::Outcome;

namespace {

class SafeSaveTest : public TempDirTest {
protected:
    // Hands the content over a byte at a time, as a large project comes in many pieces.
    SaveResult Save(std::string_view content) {
        return SaveWithBackups(fs, project, [&](const PieceWriter& put) {
            for (char byte : content)
                if (!put(Bytes(std::string_view(&byte, 1))))
                    return;
        });
    }

    FaultyFileSystem fs;
    std::string project = PathOf("Plan.VT5");
};

// Every save moves the backups one place down and keeps the five newest; the renames count only
// once the folder is synced after them; a file that a killed save left is neither reused nor removed.
TEST_F(SafeSaveTest, SavesKeepFiveBackupsNewestFirstAndEndBySyncingTheFolder) {
    const std::string leftover = TemporaryFilePath(project, 0);
    WriteFile(leftover, "Rest");
    ASSERT_EQ(Save("s1").outcome, Outcome::Saved);
    EXPECT_EQ(Names(), (std::vector<std::string>{"Plan.VT5", FileNameOf(leftover)}));
    std::vector<Op> steps;
    fs.before = [&](Op op, const std::string&) {
        if (op == Op::Rename || op == Op::SyncDirectory)
            steps.push_back(op);
    };
    for (const char* state : {"s2", "s3", "s4", "s5", "s6", "s7"})
        ASSERT_EQ(Save(state).outcome, Outcome::Saved);
    EXPECT_EQ(std::vector(steps.end() - 2, steps.end()), (std::vector{Op::Rename, Op::SyncDirectory}));
    EXPECT_EQ(Names(), (std::vector<std::string>{"Plan.BK0", "Plan.BK1", "Plan.BK2", "Plan.BK3", "Plan.BK4",
                                                 "Plan.VT5", FileNameOf(leftover)}));
    EXPECT_EQ(ReadFile(leftover), "Rest");
    EXPECT_EQ(ReadFile(project), "s7");
    for (int i = 0; i < kBackupCount; ++i)
        EXPECT_EQ(ReadFile(BackupFilePath(project, i)), std::string("s").append(std::to_string(6 - i)));
}

// One injected failure at every step of a save over a project with five backups: a save that
// fails leaves project and backups exactly as they were; once the project is replaced, whatever
// fails later is put right by the repair.
struct FailurePoint {
    const char* name;
    std::vector<FaultyFileSystem::Fault> faults;
    Outcome outcome;
    const char* message = ""; // what the user is told
};

class SaveFailureTest : public SafeSaveTest, public ::testing::WithParamInterface<FailurePoint> {
protected:
    void ExpectStates(const std::string& projectState, const std::vector<std::string>& backups) {
        EXPECT_EQ(ReadFile(project), projectState);
        for (int i = 0; i < kBackupCount; ++i)
            EXPECT_EQ(ReadFile(BackupFilePath(project, i)), backups[i]) << i;
        EXPECT_EQ(Names(), (std::vector<std::string>{"Plan.BK0", "Plan.BK1", "Plan.BK2", "Plan.BK3",
                                                     "Plan.BK4", "Plan.VT5"}));
    }
};

TEST_P(SaveFailureTest, NoStateIsLost) {
    WriteFile(project, "gut");
    for (int i = 0; i < kBackupCount; ++i)
        WriteFile(BackupFilePath(project, i), std::string("alt").append(std::to_string(i)));
    fs.faults = GetParam().faults;
    const SaveResult result = Save("neu");
    EXPECT_EQ(result.outcome, GetParam().outcome);
    EXPECT_TRUE(SaveFailureMessage(result, project).starts_with(GetParam().message));
    fs.faults.clear();
    if (result.outcome != Outcome::Saved) {
        ExpectStates("gut", {"alt0", "alt1", "alt2", "alt3", "alt4"});
        return;
    }
    EXPECT_TRUE(RepairInterruptedSave(fs, project).empty());
    ExpectStates("neu", {"gut", "alt0", "alt1", "alt2", "alt3"});
}

const FailurePoint kFailurePoints[] = {
    {"CreateTemp", {{Op::Open, ".tmp", EACCES}}, Outcome::NotWritten, "Datei kann nicht angelegt werden!"},
    {"WriteFull", {{Op::Write, ".tmp", ENOSPC}}, Outcome::NotWritten, "Festplatte voll!"},
    {"WriteQuota", {{Op::Write, ".tmp", EDQUOT}}, Outcome::NotWritten, "Festplatte voll!"},
    {"LaterPieceFull", {{Op::Write, ".tmp", ENOSPC, 1, 1}}, Outcome::NotWritten, "Festplatte voll!"},
    {"Flush", {{Op::Sync, ".tmp", EIO}}, Outcome::NotWritten, "Datei kann nicht angelegt werden!"},
    {"CloseTemp", {{Op::Close, ".tmp", ENOSPC}}, Outcome::NotWritten, "Festplatte voll!"},
    {"KeepByLink", {{Op::Link, ".tmp", EIO}}, Outcome::NotWritten, "Datei kann nicht angelegt werden!"},
    {"LinksRefusedSoCopied", {{Op::Link, ".tmp", EPERM}}, Outcome::Saved},
    {"CopyFails",
     {{Op::Link, ".tmp", EPERM}, {Op::Write, ".tmp", ENOSPC, 1, 3}},
     Outcome::NotWritten,
     "Festplatte voll!"},
    {"Bk4Refused", {{Op::Rename, ".BK5", EACCES}}, Outcome::NotWritten, "Datei kann nicht angelegt werden!"},
    {"Bk0Refused", {{Op::Rename, ".BK1", EBUSY}}, Outcome::NotWritten, "Datei kann nicht angelegt werden!"},
    {"Replace", {{Op::Rename, "Plan.VT5", EACCES}}, Outcome::NotReplaced, "Die Datei \""},
    {"KeptToBk0", {{Op::Rename, ".BK0", EIO}}, Outcome::Saved},
    {"DropBk5", {{Op::Remove, ".BK5", EIO}}, Outcome::Saved},
    {"SyncFolder", {{Op::SyncDirectory, "", EINVAL}}, Outcome::Saved},
};

INSTANTIATE_TEST_SUITE_P(EveryStep, SaveFailureTest, ::testing::ValuesIn(kFailurePoints),
                         [](const auto& info) { return std::string(info.param.name); });

TEST_F(SafeSaveTest, RepairPutsBackupsInOrderAndDropsOnlyASixth) {
    for (const char* name : {"Plan.BK0", "Plan.BK2", "Plan.BK3", "Plan.BK4", "Plan.BK5"})
        WriteFile(PathOf(name), name);
    RepairInterruptedSave(fs, project);
    EXPECT_EQ(ReadFile(BackupFilePath(project, 1)), "Plan.BK2");
    EXPECT_EQ(ReadFile(BackupFilePath(project, 4)), "Plan.BK5");
    WriteFile(PathOf("Plan.BK5"), "sechster");
    RepairInterruptedSave(fs, project);
    EXPECT_FALSE(Exists(PathOf("Plan.BK5")));
    EXPECT_EQ(ReadFile(BackupFilePath(project, 4)), "Plan.BK5");
}

} // namespace

} // namespace velto
