// A document's life: new, save with backups, save as, close with running clocks, undo, views.
#include "core/document/DocTestSupport.h"
#include "model/NodeList.h"
#include "text/DefaultNote.h"

#include <cerrno>
#include <tuple>

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
              std::tuple(nullptr, KIND_PROJECT, 0, 1, 1));
    EXPECT_EQ(root.m_strNote, MakeDefaultNote("Verdana", 14));
    EXPECT_EQ(std::tuple(fresh.m_view.chartWidth1, fresh.m_view.chartWidth2, fresh.m_view.zoom),
              std::tuple(200, 200, 20u));
    EXPECT_EQ(fresh.GetTitle(), "Unbenannt");
}

TEST_F(DocSaveTest, SixSavesLeaveFiveBackupsWithTheStateBeforeTheLastInBk0) {
    for (int i = 1; i <= 6; ++i)
        ASSERT_TRUE(SaveAs("Stand " + std::to_string(i), project));
    EXPECT_EQ(Names(), (std::vector<std::string>{"Plan.BK0", "Plan.BK1", "Plan.BK2", "Plan.BK3", "Plan.BK4",
                                                 "Plan.VT5", "Plan.~~~"}));
    EXPECT_EQ(RootTitleIn(BackupFilePath(project, 0)), "Stand 5");
    EXPECT_EQ(RootTitleIn(BackupFilePath(project, 4)), "Stand 1");
    EXPECT_EQ(RootTitleIn(project), "Stand 6");
    EXPECT_FALSE(doc.IsModified());
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

TEST_F(DocSaveTest, SaveAsFromReadOnlyBelongsToTheNewFile) {
    const std::string foreign = ProjectBytes("fremd");
    Put(project, foreign);
    Put(lock, LockOf("Bert"));
    prompter.Answer(PromptAnswer::Yes);
    CVeltoDoc viewer(prompter, "Arial", 12, &fs, "Anna");
    ASSERT_TRUE(viewer.OnOpenDocument(project));

    // A failed "save as" leaves the document read-only: a plain save must still be refused.
    viewer.PrepareSaveAs();
    fs.faults = {{Op::Sync, ".tmp", EIO}};
    EXPECT_FALSE(viewer.OnSaveDocument(PathOf("Kopie.VT5")));
    EXPECT_FALSE(Exists(PathOf("Kopie.~~~")));
    EXPECT_FALSE(viewer.OnSaveDocument(project));
    EXPECT_EQ(prompter.texts().back(), "Datei ist schreibgeschützt!");

    viewer.PrepareSaveAs();
    EXPECT_EQ(Content(lock), LockOf("Anna")); // rewritten by the refused save, but not removed
    ASSERT_TRUE(viewer.OnSaveDocument(PathOf("Kopie.VT5")));
    EXPECT_FALSE(viewer.m_bReadOnly);
    EXPECT_EQ(viewer.GetTitle(), "Kopie.VT5");
    EXPECT_EQ(Content(PathOf("Kopie.VT5")), foreign);
    EXPECT_EQ(Content(PathOf("Kopie.~~~")), LockOf("Anna"));
    EXPECT_EQ(Content(project), foreign);
}

TEST_F(DocSaveTest, SaveAsReleasesTheOldLockAndCancellingTakesItBack) {
    ASSERT_TRUE(SaveAs("eins", project));
    doc.PrepareSaveAs();
    EXPECT_FALSE(Exists(lock));
    doc.CancelSaveAs();
    EXPECT_FALSE(doc.m_bSaveAsPending);
    EXPECT_EQ(Content(lock), LockOf("Anna"));

    doc.PrepareSaveAs();
    ASSERT_TRUE(SaveAs("zwei", PathOf("Neu.VT5")));
    EXPECT_FALSE(Exists(lock));
    EXPECT_EQ(doc.GetPathName(), PathOf("Neu.VT5"));
    EXPECT_TRUE(doc.OnCloseDocument());
    EXPECT_EQ(Names(), (std::vector<std::string>{"Neu.VT5", "Plan.VT5"}));
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
    EXPECT_FALSE(Exists(lock));

    // With every clock stopped the close goes through.
    EXPECT_TRUE(doc.OnCloseDocument());
    EXPECT_EQ(clockedOut.size(), 2u);
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

struct CountingView : CDocObserver {
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
