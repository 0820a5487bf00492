// The save sequence: backups rotate as they always did, and whatever single step fails, the last
// good state stays in the project file or in its newest backup.
#include "document/SafeSave.h"
#include "document/LockFile.h"

#include "core/document/DocTestSupport.h"

#include <cerrno>
#include <sys/stat.h>

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

TEST_F(SafeSaveTest, SevenSavesKeepFiveBackupsNewestFirst) {
    ASSERT_EQ(Save("s1").outcome, Outcome::Saved);
    EXPECT_EQ(Names(), std::vector<std::string>{"Plan.VT5"});
    for (const char* state : {"s2", "s3", "s4", "s5", "s6", "s7"})
        ASSERT_EQ(Save(state).outcome, Outcome::Saved);
    EXPECT_EQ(Names(), (std::vector<std::string>{"Plan.BK0", "Plan.BK1", "Plan.BK2", "Plan.BK3", "Plan.BK4",
                                                 "Plan.VT5"}));
    EXPECT_EQ(ReadFile(project), "s7");
    for (int i = 0; i < kBackupCount; ++i)
        EXPECT_EQ(ReadFile(BackupFilePath(project, i)), std::string("s").append(std::to_string(6 - i)));
}

TEST_F(SafeSaveTest, LeftoverTemporaryFileIsNeitherReusedNorRemoved) {
    std::string leftover;
    fs.before = [&](Op op, const std::string& path) {
        if (op == Op::Open && leftover.empty())
            WriteFile(leftover = path, "Rest");
    };
    ASSERT_EQ(Save("neu").outcome, Outcome::Saved);
    EXPECT_EQ(ReadFile(project), "neu");
    EXPECT_EQ(ReadFile(leftover), "Rest");
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
        std::vector<std::string> names{"Plan.VT5"};
        for (int i = 0; i < kBackupCount; ++i) {
            EXPECT_EQ(ReadFile(BackupFilePath(project, i)), backups[i]) << i;
            names.push_back("Plan.BK" + std::to_string(i));
        }
        std::sort(names.begin(), names.end());
        EXPECT_EQ(Names(), names);
    }
};

TEST_P(SaveFailureTest, NoStateIsLost) {
    WriteFile(project, "gut");
    for (int i = 0; i < kBackupCount; ++i)
        WriteFile(BackupFilePath(project, i), std::string("alt").append(std::to_string(i)));
    fs.faults = GetParam().faults;

    const SaveResult result = Save("neu");

    EXPECT_EQ(result.outcome, GetParam().outcome);
    EXPECT_EQ(SaveFailureMessage(result, project).substr(0, std::string(GetParam().message).size()),
              GetParam().message);
    fs.faults.clear();
    EXPECT_TRUE(RepairInterruptedSave(fs, project).empty());
    if (result.outcome == Outcome::Saved)
        ExpectStates("neu", {"gut", "alt0", "alt1", "alt2", "alt3"});
    else
        ExpectStates("gut", {"alt0", "alt1", "alt2", "alt3", "alt4"});
}

using Fault = FaultyFileSystem::Fault;
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
    {"Bk1Refused", {{Op::Rename, ".BK2", EACCES}}, Outcome::NotWritten, "Datei kann nicht angelegt werden!"},
    {"Bk0Refused", {{Op::Rename, ".BK1", EBUSY}}, Outcome::NotWritten, "Datei kann nicht angelegt werden!"},
    {"Replace", {{Op::Rename, "Plan.VT5", EACCES}}, Outcome::NotReplaced, "Die Datei \""},
    {"KeptToBk0", {{Op::Rename, ".BK0", EIO}}, Outcome::Saved},
    {"DropBk5", {{Op::Remove, ".BK5", EIO}}, Outcome::Saved},
    {"SyncFolder", {{Op::SyncDirectory, "", EINVAL}}, Outcome::Saved},
};

INSTANTIATE_TEST_SUITE_P(EveryStep, SaveFailureTest, ::testing::ValuesIn(kFailurePoints),
                         [](const auto& info) { return std::string(info.param.name); });

// The renames only count once the folder is synced after them: the sync is the save's last step.
TEST_F(SafeSaveTest, TheFolderIsSyncedAfterTheLastRename) {
    WriteFile(project, "gut");
    std::vector<std::pair<Op, std::string>> ops;
    fs.before = [&](Op op, const std::string& path) {
        if (op == Op::Rename || op == Op::SyncDirectory)
            ops.emplace_back(op, path);
    };
    ASSERT_EQ(Save("neu").outcome, Outcome::Saved);
    ASSERT_GE(ops.size(), 2u);
    EXPECT_EQ(ops.back().first, Op::SyncDirectory);
    EXPECT_EQ(ops[ops.size() - 2].first, Op::Rename);
}

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
