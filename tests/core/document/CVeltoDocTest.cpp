// A document's life: new, save with backups, save as, close with running clocks, undo, views.
#include "core/document/DocTestSupport.h"
#include "model/NodeList.h"
#include "text/DefaultNote.h"

#include <cerrno>
#include <sys/stat.h>
#include <tuple>
#include <unistd.h>

namespace velto {

using namespace doctest;

namespace {

class DocSaveTest : public DocTest {
protected:
    DocSaveTest() { doc.OnNewDocument(); }

    // Gives the root a new title and saves.
    bool SaveAs(const std::string& title, const std::string& path) {
        doc.m_pFirstNode->m_strTitle = title;
        doc.SetModifiedFlag();
        return doc.OnSaveDocument(path);
    }
};

TEST_F(DocSaveTest, NewDocumentHasTheNamedRootAndTheSettingsNote) {
    CVeltoDoc fresh(prompter, "Verdana", 14, &fs, "Anna");
    ASSERT_TRUE(fresh.OnNewDocument());
    const CProjectNode& root = *fresh.m_pFirstNode;
    EXPECT_EQ(root.m_strTitle, "Projektname");
    EXPECT_EQ(std::tuple(root.m_pNext, root.m_nKind, root.m_nLevel, root.m_bExpanded, root.m_bSelected),
              std::tuple(nullptr, kKindProject, 0, 1, 1));
    EXPECT_EQ(root.m_strNote, MakeDefaultNote("Verdana", 14));
    EXPECT_EQ(std::tuple(fresh.m_view.chartWidth1, fresh.m_view.chartWidth2, fresh.m_view.zoom),
              std::tuple(200, 200, 20u));
    EXPECT_EQ(fresh.GetTitle(), "Unbenannt");
}

TEST_F(DocSaveTest, FailedWriteKeepsTheFileAndTheModifiedFlag) {
    ASSERT_TRUE(SaveAs("gut", project));
    fs.faults = {{Op::Write, ".tmp", ENOSPC}};
    EXPECT_FALSE(SaveAs("neu", project));
    EXPECT_EQ(prompter.texts().back(), "Festplatte voll!");
    EXPECT_TRUE(doc.IsModified());
    EXPECT_EQ(RootTitleIn(project), "gut");
    EXPECT_EQ(Names(), (std::vector<std::string>{"Plan.VT5", "Plan.~~~"}));
}

TEST_F(DocSaveTest, LockThatCannotBeWrittenStopsTheSave) {
    fs.faults = {{Op::Open, ".~~~", EACCES}};
    EXPECT_FALSE(SaveAs("neu", project));
    EXPECT_NE(prompter.texts().back().find(lock), std::string::npos);
    EXPECT_TRUE(Names().empty());
}

// A failed or cancelled "save as" leaves the document exactly as it was: a viewer stays a viewer
// and never touches the holder's lock.
TEST_F(DocSaveTest, FailedSaveAsLeavesAReadOnlyDocumentReadOnly) {
    const std::string foreign = ProjectBytes("fremd");
    WriteFile(project, foreign);
    WriteFile(lock, LockOf("Bert"));
    prompter.Answer(PromptAnswer::Yes);
    CVeltoDoc viewer(prompter, "Arial", 12, &fs, "Anna");
    ASSERT_TRUE(viewer.OnOpenDocument(project));

    for (const std::string& target : {PathOf("fehlt/Kopie.VT5"), PathOf("Kopie.VT5")}) {
        viewer.PrepareSaveAs();
        fs.faults = {{Op::Sync, ".tmp", EIO}};
        EXPECT_FALSE(viewer.OnSaveDocument(target));
        EXPECT_FALSE(Exists(LockFilePath(target)));
        EXPECT_TRUE(viewer.m_bReadOnly);
        EXPECT_FALSE(viewer.OnSaveDocument(project));
        EXPECT_EQ(prompter.texts().back(), "Datei ist schreibgeschützt!");
        EXPECT_EQ(ReadFile(lock), LockOf("Bert"));
        EXPECT_EQ(ReadFile(project), foreign);
    }
    viewer.PrepareSaveAs();
    viewer.CancelSaveAs();
    EXPECT_FALSE(viewer.OnSaveDocument(project));

    viewer.PrepareSaveAs();
    ASSERT_TRUE(viewer.OnSaveDocument(PathOf("Kopie.VT5")));
    EXPECT_FALSE(viewer.m_bReadOnly);
    EXPECT_EQ(viewer.GetTitle(), "Kopie.VT5");
    EXPECT_EQ(ReadFile(PathOf("Kopie.VT5")), foreign);
    EXPECT_EQ(ReadFile(PathOf("Kopie.~~~")), OwnLockOf("Anna"));
    EXPECT_EQ(ReadFile(lock), LockOf("Bert"));
}

TEST_F(DocSaveTest, SaveAsKeepsTheOldLockUntilTheNewFileIsSaved) {
    ASSERT_TRUE(SaveAs("eins", project));
    doc.PrepareSaveAs();
    fs.faults = {{Op::Write, ".tmp", ENOSPC}};
    EXPECT_FALSE(SaveAs("zwei", PathOf("Neu.VT5")));
    EXPECT_EQ(ReadFile(lock), OwnLockOf("Anna"));
    EXPECT_FALSE(Exists(PathOf("Neu.~~~")));

    // A target someone else holds is not overwritten.
    WriteFile(PathOf("Fremd.~~~"), LockOf("Bert"));
    doc.PrepareSaveAs();
    EXPECT_FALSE(SaveAs("zwei", PathOf("Fremd.VT5")));
    EXPECT_EQ(ReadFile(PathOf("Fremd.~~~")), LockOf("Bert"));
    EXPECT_FALSE(Exists(PathOf("Fremd.VT5")));

    doc.PrepareSaveAs();
    ASSERT_TRUE(SaveAs("zwei", PathOf("Neu.VT5")));
    EXPECT_FALSE(Exists(lock));
    EXPECT_EQ(doc.GetPathName(), PathOf("Neu.VT5"));
    EXPECT_TRUE(doc.OnCloseDocument());
    EXPECT_EQ(Names(), (std::vector<std::string>{"Fremd.~~~", "Neu.VT5", "Plan.VT5"}));
}

TEST_F(DocSaveTest, LockTakenOverByAnotherStopsOurSavesAndOurClose) {
    ASSERT_TRUE(SaveAs("eins", project));
    std::filesystem::remove(lock); // "Schreibschutz entfernen" by Bert, who then opens it
    WriteFile(lock, LockOf("Bert"));
    EXPECT_FALSE(SaveAs("zwei", project));
    EXPECT_NE(prompter.texts().back().find("ist bereits von Bert"), std::string::npos);
    EXPECT_EQ(RootTitleIn(project), "eins");
    EXPECT_TRUE(doc.OnCloseDocument());
    EXPECT_EQ(ReadFile(lock), LockOf("Bert"));
}

// The file keeps being what it was: a link stays a link, access and group are carried over, and a
// write-protected file is not replaced.
TEST_F(DocSaveTest, SavingKeepsTheFilesIdentity) {
    ASSERT_TRUE(SaveAs("eins", project));
    EXPECT_FALSE(doc.IsModified());
    ASSERT_EQ(chmod(project.c_str(), 0660), 0);
    ASSERT_EQ(chown(project.c_str(), 4321, 4322), 0);
    ASSERT_TRUE(SaveAs("zwei", project));
    struct stat info {};
    ASSERT_EQ(stat(project.c_str(), &info), 0);
    EXPECT_EQ(info.st_mode & 07777, 0660u);
    EXPECT_EQ(std::tuple(info.st_uid, info.st_gid), std::tuple(4321u, 4322u));

    ASSERT_EQ(chmod(project.c_str(), 0444), 0);
    EXPECT_FALSE(SaveAs("drei", project));
    EXPECT_EQ(prompter.texts().back(), "Datei ist schreibgeschützt!");
    EXPECT_EQ(RootTitleIn(project), "zwei");
    ASSERT_EQ(chmod(project.c_str(), 0660), 0);

    std::filesystem::create_directory(PathOf("echt"));
    const std::string link = PathOf("Verknüpfung.VT5");
    std::filesystem::create_symlink(project, link);
    CVeltoDoc linked(prompter, "Arial", 12, &fs, "Anna");
    ASSERT_TRUE(doc.OnCloseDocument());
    ASSERT_TRUE(linked.OnOpenDocument(link));
    EXPECT_EQ(ReadFile(lock), OwnLockOf("Anna")); // beside the real file
    linked.m_pFirstNode->m_strTitle = "über Link";
    ASSERT_TRUE(linked.OnSaveDocument(link));
    EXPECT_TRUE(std::filesystem::is_symlink(link));
    EXPECT_EQ(RootTitleIn(project), "über Link");
    EXPECT_EQ(RootTitleIn(BackupFilePath(project, 0)), "zwei");
    EXPECT_EQ(linked.GetTitle(), "Verknüpfung.VT5");
}

TEST_F(DocSaveTest, SaveKilledBeforeItsLastRenameIsOfferedBackOnOpen) {
    ASSERT_TRUE(SaveAs("alt", project));
    ASSERT_TRUE(doc.OnCloseDocument());
    // What a save killed just before the replace leaves: a whole newer state beside the project.
    WriteFile(project + ".~rechner-77-0.tmp", ProjectBytes("neuer"));
    WriteFile(project + ".~rechner-78-0.tmp", ProjectBytes("halb").substr(0, 40));
    CVeltoDoc next(prompter, "Arial", 12, &fs, "Anna");
    prompter.Answer(PromptAnswer::Yes);
    ASSERT_TRUE(next.OnOpenDocument(project));
    ASSERT_FALSE(prompter.asked().empty());
    EXPECT_EQ(prompter.asked().back().caption, "Wiederherstellen?");
    EXPECT_EQ(next.m_pFirstNode->m_strTitle, "neuer");
    EXPECT_FALSE(next.IsModified());
    EXPECT_EQ(RootTitleIn(project), "neuer");
    EXPECT_EQ(RootTitleIn(BackupFilePath(project, 0)), "alt");
    EXPECT_EQ(Names(), (std::vector<std::string>{"Plan.BK0", "Plan.VT5", "Plan.~~~"}));
}

TEST_F(DocSaveTest, CloseClocksOutRunningClocksAndStaysOpen) {
    ASSERT_TRUE(SaveAs("Wurzel", project));
    CProjectNode* first = CreateChildNode(doc.m_pFirstNode, "", prompter);
    SelectOnly(doc.m_pFirstNode, doc.m_pFirstNode);
    CProjectNode* second = CreateChildNode(doc.m_pFirstNode, "", prompter); // now before first
    SelectOnly(doc.m_pFirstNode, doc.m_pFirstNode);
    first->m_bClockedIn = second->m_bClockedIn = 1;

    std::vector<CProjectNode*> clockedOut;
    doc.SetClockOutHandler([&](CProjectNode& node) {
        EXPECT_EQ(CurrentNode(doc.m_pFirstNode), &node);
        node.m_bClockedIn = 0;
        clockedOut.push_back(&node);
    });
    EXPECT_FALSE(doc.OnCloseDocument());
    EXPECT_EQ(clockedOut, (std::vector<CProjectNode*>{second, first}));
    EXPECT_TRUE(doc.IsModified());
    EXPECT_EQ(CurrentNode(doc.m_pFirstNode), doc.m_pFirstNode);
    EXPECT_TRUE(Exists(lock)); // kept until the document really closes

    // With every clock stopped the close goes through.
    EXPECT_TRUE(doc.OnCloseDocument());
    EXPECT_EQ(clockedOut.size(), 2u);
    EXPECT_FALSE(Exists(lock));
}

TEST_F(DocSaveTest, CloseWithoutCurrentNodeIsToldAndGoesThrough) {
    doc.m_pFirstNode->m_bSelected = 0;
    EXPECT_TRUE(doc.OnCloseDocument());
    EXPECT_EQ(prompter.texts(), std::vector<std::string>{"Fehler: OnCloseDocument"});
}

TEST_F(DocSaveTest, UndoSwapsWithTheCopyAndBackAgain) {
    EXPECT_FALSE(doc.Undo());
    doc.BackupTree();
    doc.m_pFirstNode->m_strTitle = "geändert";
    doc.BackupTree(); // a second copy replaces the first
    doc.m_pFirstNode->m_strTitle = "nochmal";
    ASSERT_TRUE(doc.Undo());
    EXPECT_EQ(doc.m_pFirstNode->m_strTitle, "geändert");
    ASSERT_TRUE(doc.Undo());
    EXPECT_EQ(doc.m_pFirstNode->m_strTitle, "nochmal");
}

struct CountingView : DocObserver {
    std::function<void()> onUpdate;
    int updates = 0;
    void OnDocumentUpdated(CVeltoDoc&) override {
        ++updates;
        if (onUpdate)
            onUpdate();
    }
};

TEST_F(DocSaveTest, ViewsAreToldOnceAndNotAfterTheyLeft) {
    CountingView first, second;
    doc.AddObserver(&first);
    doc.AddObserver(&first);
    doc.AddObserver(&second);
    first.onUpdate = [&] { doc.RemoveObserver(&second); };
    doc.UpdateAllViews();
    EXPECT_EQ(first.updates, 1);
    EXPECT_EQ(second.updates, 0);
}

} // namespace

} // namespace velto
