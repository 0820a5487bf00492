// The save sequence: backups rotate as they always did, and whatever single step fails, the last
// good state stays in the project file or in its newest backup.
#include "document/SafeSave.h"
#include "document/LockFile.h"

#include "core/document/DocTestSupport.h"

#include <cerrno>

using namespace doctest;
using Outcome = SaveResult::Outcome;

namespace {

std::string Numbered(const char* prefix, int number) {
    std::string text = prefix;
    text += std::to_string(number);
    return text;
}

class SafeSaveTest : public TempDirTest {
protected:
    SaveResult Save(std::string_view content) {
        return SaveWithBackups(fs, project, [&](const PieceWriter& put) { put(Bytes(content)); });
    }
    bool AnyTempFile() const {
        const auto names = Names();
        return std::any_of(names.begin(), names.end(),
                           [](const std::string& n) { return n.ends_with(".tmp"); });
    }

    FaultyFileSystem fs;
    std::string project = PathOf("Plan.VT5");
};

TEST_F(SafeSaveTest, FirstSaveLeavesOnlyTheProject) {
    ASSERT_EQ(Save("eins").outcome, Outcome::Saved);
    EXPECT_EQ(Content(project), "eins");
    EXPECT_EQ(Names(), std::vector<std::string>{"Plan.VT5"});
}

TEST_F(SafeSaveTest, SixSavesKeepFiveBackupsNewestFirst) {
    for (const char* state : {"s1", "s2", "s3", "s4", "s5", "s6", "s7"})
        ASSERT_EQ(Save(state).outcome, Outcome::Saved);
    EXPECT_EQ(Names(), (std::vector<std::string>{"Plan.BK0", "Plan.BK1", "Plan.BK2", "Plan.BK3", "Plan.BK4",
                                                 "Plan.VT5"}));
    EXPECT_EQ(Content(project), "s7");
    for (int i = 0; i < kBackupCount; ++i)
        EXPECT_EQ(Content(BackupFilePath(project, i)), Numbered("s", 6 - i));
}

TEST_F(SafeSaveTest, LeftoverTemporaryFileIsNeitherReusedNorRemoved) {
    std::string leftover;
    fs.before = [&](Op op, const std::string& path) {
        if (op == Op::Open && leftover.empty())
            Put(leftover = path, "Rest");
    };
    ASSERT_EQ(Save("neu").outcome, Outcome::Saved);
    EXPECT_EQ(Content(project), "neu");
    EXPECT_EQ(Content(leftover), "Rest");
}

// One injected failure at every step of a save over a project with five backups.
struct FailurePoint {
    const char* name;
    FaultyFileSystem::Fault fault;
    Outcome outcome;
    const char* message = "";  // NotWritten: what the user is told
    const char* lastGood = ""; // NotReplaced: the file that holds the last good state
};

class SaveFailureTest : public SafeSaveTest, public ::testing::WithParamInterface<FailurePoint> {};

TEST_P(SaveFailureTest, LastGoodStateSurvives) {
    Put(project, "gut");
    for (int i = 0; i < kBackupCount; ++i)
        Put(BackupFilePath(project, i), Numbered("alt", i));
    fs.faults = {GetParam().fault};

    const SaveResult result = Save("neu");

    EXPECT_EQ(result.outcome, GetParam().outcome);
    const std::string bk0 = Content(BackupFilePath(project, 0));
    switch (result.outcome) {
    case Outcome::Saved:
        EXPECT_EQ(Content(project), "neu");
        EXPECT_EQ(bk0, "gut");
        EXPECT_FALSE(AnyTempFile());
        break;
    case Outcome::NotWritten:
        EXPECT_EQ(Content(project), "gut");
        EXPECT_FALSE(AnyTempFile());
        EXPECT_EQ(SaveFailureMessage(result, project), GetParam().message);
        break;
    case Outcome::NotReplaced:
        EXPECT_EQ(Content(result.tempPath), "neu");
        EXPECT_EQ(result.lastGoodPath, PathOf(GetParam().lastGood));
        EXPECT_EQ(Content(result.lastGoodPath), "gut");
        EXPECT_NE(SaveFailureMessage(result, project).find(result.tempPath), std::string::npos);
        EXPECT_NE(SaveFailureMessage(result, project).find(result.lastGoodPath), std::string::npos);
        break;
    }
    // A failure before the rotation must not have touched a single backup.
    if (GetParam().fault.suffix == std::string(".tmp")) {
        for (int i = 0; i < kBackupCount; ++i)
            EXPECT_EQ(Content(BackupFilePath(project, i)), Numbered("alt", i));
    }
}

const FailurePoint kFailurePoints[] = {
    {"CreateTemp", {Op::Open, ".tmp", EACCES}, Outcome::NotWritten, "Datei kann nicht angelegt werden!"},
    {"WriteFull", {Op::Write, ".tmp", ENOSPC}, Outcome::NotWritten, "Festplatte voll!"},
    {"WriteQuota", {Op::Write, ".tmp", EDQUOT}, Outcome::NotWritten, "Festplatte voll!"},
    {"Flush", {Op::Sync, ".tmp", EIO}, Outcome::NotWritten, "Datei kann nicht angelegt werden!"},
    {"CloseTemp", {Op::Close, ".tmp", ENOSPC}, Outcome::NotWritten, "Festplatte voll!"},
    {"DeleteBk4", {Op::Remove, ".BK4", EACCES}, Outcome::Saved, ""},
    {"RenameBk3", {Op::Rename, ".BK4", EIO}, Outcome::Saved, ""},
    {"DeleteBk3", {Op::Remove, ".BK3", EACCES}, Outcome::Saved, ""},
    {"RenameBk2", {Op::Rename, ".BK3", EIO}, Outcome::Saved, ""},
    {"DeleteBk2", {Op::Remove, ".BK2", EACCES}, Outcome::Saved, ""},
    {"RenameBk1", {Op::Rename, ".BK2", EIO}, Outcome::Saved, ""},
    {"DeleteBk1", {Op::Remove, ".BK1", EACCES}, Outcome::Saved, ""},
    {"RenameBk0", {Op::Rename, ".BK1", EIO}, Outcome::Saved, ""},
    {"DeleteBk0", {Op::Remove, ".BK0", EACCES}, Outcome::Saved, ""},
    {"ProjectToBk0", {Op::Rename, ".BK0", EIO}, Outcome::NotWritten, "Datei kann nicht angelegt werden!"},
    {"FinalRename", {Op::Rename, "Plan.VT5", EIO}, Outcome::NotReplaced, "", "Plan.VT5"},
    {"FinalRenameAndRestore", {Op::Rename, "Plan.VT5", EIO, 2}, Outcome::NotReplaced, "", "Plan.BK0"},
    {"SyncFolder", {Op::SyncDirectory, "", EINVAL}, Outcome::Saved, ""},
};

INSTANTIATE_TEST_SUITE_P(EveryStep, SaveFailureTest, ::testing::ValuesIn(kFailurePoints),
                         [](const auto& info) { return std::string(info.param.name); });

TEST_F(SafeSaveTest, FirstSaveWithFailedFinalRenameNamesNoEarlierState) {
    fs.faults = {{Op::Rename, "Plan.VT5", EIO}};
    const SaveResult first = Save("neu");
    EXPECT_EQ(first.outcome, Outcome::NotReplaced);
    EXPECT_EQ(first.lastGoodPath, "");
    EXPECT_EQ(SaveFailureMessage(first, project).find("zuletzt"), std::string::npos);
}

} // namespace
