// A document's life: opening with the lock-file dialogue, left-over and hostile lock files and
// unreadable files; new, save, save as, close with running clocks, undo, views.
#include "core/document/DocTestSupport.h"
#include "model/NodeList.h"
#include "text/DefaultNote.h"

#include <cerrno>
#include <gmock/gmock.h>
#include <sys/stat.h>
#include <tuple>
#include <unistd.h>

namespace velto {

using namespace doctest;
using ::testing::HasSubstr;

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
    EXPECT_EQ(std::tie(root.m_strTitle, root.m_strNote),
              std::tuple("Projektname", MakeDefaultNote("Verdana", 14)));
    EXPECT_EQ(root.m_pNext, nullptr);
    EXPECT_EQ(std::tuple(fresh.m_view.chartWidth1, fresh.m_view.chartWidth2, fresh.m_view.zoom),
              std::tuple(200, 200, 20u));
    EXPECT_EQ(fresh.GetTitle(), "Unbenannt");
}

// A full disk, a lock file that cannot be written and a lock taken over by someone else each stop
// the save with a message; the file stays and so does the modified flag.
TEST_F(DocSaveTest, SavesThatCannotGoThroughKeepTheFileAndTheModifiedFlag) {
    ASSERT_TRUE(SaveAs("gut", project));
    fs.faults = {{Op::Write, ".tmp", ENOSPC}};
    EXPECT_FALSE(SaveAs("neu", project));
    EXPECT_EQ(Told(), "Festplatte voll!");
    EXPECT_TRUE(doc.IsModified());
    EXPECT_EQ(RootTitleIn(project), "gut");

    fs.faults = {{Op::Open, ".~~~", EACCES}};
    EXPECT_FALSE(SaveAs("neu", PathOf("Anders.VT5")));
    EXPECT_THAT(Told(), HasSubstr(PathOf("Anders.~~~")));
    EXPECT_FALSE(Exists(PathOf("Anders.VT5")));

    std::filesystem::remove(lock); // "Schreibschutz entfernen" by Bert, who then opens it
    WriteFile(lock, LockOf("Bert"));
    EXPECT_FALSE(SaveAs("neu", project));
    EXPECT_THAT(Told(), HasSubstr("ist bereits von Bert"));
    EXPECT_EQ(RootTitleIn(project), "gut");
    EXPECT_TRUE(doc.IsModified());
    EXPECT_TRUE(doc.OnCloseDocument());
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

    doc.PrepareSaveAs();
    ASSERT_TRUE(SaveAs("zwei", PathOf("Neu.VT5")));
    EXPECT_FALSE(Exists(lock));
    EXPECT_EQ(doc.GetPathName(), PathOf("Neu.VT5"));
    EXPECT_TRUE(doc.OnCloseDocument());
    EXPECT_EQ(Names(), (std::vector<std::string>{"Fremd.~~~", "Neu.VT5", "Plan.VT5"}));
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
    EXPECT_EQ(std::tuple(info.st_mode & 07777, info.st_uid, info.st_gid), std::tuple(0660u, 4321u, 4322u));

    ASSERT_EQ(chmod(project.c_str(), 0444), 0);
    EXPECT_FALSE(SaveAs("drei", project));
    EXPECT_EQ(Told(), "Datei ist schreibgeschützt!");
    EXPECT_EQ(RootTitleIn(project), "zwei");
    ASSERT_EQ(chmod(project.c_str(), 0660), 0);

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
    std::function<void()> onUpdate = [] {};
    int updates = 0;
    void OnDocumentUpdated(CVeltoDoc&) override {
        ++updates;
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
    EXPECT_EQ(std::tuple(first.updates, second.updates), std::tuple(1, 0));
}

class DocOpenTest : public DocTest {
protected:
    DocOpenTest() { WriteFile(project, original); }
    // Opens the project in a document of its own and says whether it came up read-only.
    bool OpensReadOnly() {
        CVeltoDoc other(prompter, "Arial", 12, &fs, "Anna");
        EXPECT_TRUE(other.OnOpenDocument(project));
        return other.m_bReadOnly;
    }

    const std::string original = ProjectBytes("Plan A");
    std::string heldQuestion =
        project + " ist bereits von Bert geöffnet.\nSoll die Datei schreibgeschützt geöffnet werden?";
};

// Declining both questions keeps Bert's lock; removing it still opens nothing, the next open does.
TEST_F(DocOpenTest, AHeldProjectOpensOnlyWhenAskedAgainAfterItsLockWasRemoved) {
    WriteFile(lock, LockOf("Bert"));
    for (PromptAnswer answer : {PromptAnswer::No, PromptAnswer::No, PromptAnswer::No, PromptAnswer::Yes})
        prompter.Answer(answer);
    EXPECT_FALSE(doc.OnOpenDocument(project));
    ASSERT_EQ(prompter.asked().size(), 2u);
    const auto& [held, remove] = std::tie(prompter.asked()[0], prompter.asked()[1]);
    EXPECT_EQ(std::tie(held.caption, held.text, held.buttons),
              std::tuple("Datei wird bearbeitet.", heldQuestion, PromptButtons::YesNo));
    EXPECT_EQ(remove.caption, "Schreibschutz entfernen?");
    EXPECT_THAT(remove.text,
                HasSubstr("Möchten Sie den Schreibschutz von " + project + " entfernen?\nENTFERNEN"));
    EXPECT_EQ(ReadFile(lock), LockOf("Bert"));
    EXPECT_EQ(doc.m_pFirstNode, nullptr);
    EXPECT_FALSE(doc.OnOpenDocument(project));
    EXPECT_FALSE(Exists(lock));
    ASSERT_TRUE(doc.OnOpenDocument(project));
    EXPECT_EQ(prompter.asked().size(), 4u);
    EXPECT_EQ(doc.m_pFirstNode->m_strTitle, "Plan A");
    EXPECT_EQ(ReadFile(lock), OwnLockOf("Anna"));
    EXPECT_EQ(doc.GetTitle(), "Plan.VT5");
    EXPECT_FALSE(doc.IsModified());
}

// A read-only document refuses every save to its own file and never touches the holder's lock; a
// failed or cancelled "save as" leaves it read-only, a successful one makes it ours.
TEST_F(DocOpenTest, AReadOnlyDocumentStaysReadOnlyUntilSavedUnderANewName) {
    WriteFile(lock, LockOf("Bert"));
    prompter.Answer(PromptAnswer::Yes);
    ASSERT_TRUE(doc.OnOpenDocument(project));
    EXPECT_EQ(doc.GetTitle(), "Plan.VT5 - SCHREIBGESCHÜTZT");
    for (const std::string& target : {PathOf("fehlt/Kopie.VT5"), PathOf("Kopie.VT5")}) {
        doc.PrepareSaveAs();
        fs.faults = {{Op::Sync, ".tmp", EIO}};
        EXPECT_FALSE(doc.OnSaveDocument(target));
        EXPECT_FALSE(Exists(LockFilePath(target)));
        EXPECT_TRUE(doc.m_bReadOnly);
        doc.m_pFirstNode->m_strTitle = "Geändert";
        EXPECT_FALSE(doc.OnSaveDocument(project));
        EXPECT_EQ(Told(), "Datei ist schreibgeschützt!");
    }
    doc.PrepareSaveAs();
    doc.CancelSaveAs();
    EXPECT_FALSE(doc.OnSaveDocument(project));
    EXPECT_EQ(ReadFile(project), original);
    EXPECT_EQ(Names(), (std::vector<std::string>{"Plan.VT5", "Plan.~~~"}));
    EXPECT_EQ(ReadFile(lock), LockOf("Bert"));

    doc.PrepareSaveAs();
    ASSERT_TRUE(doc.OnSaveDocument(PathOf("Kopie.VT5")));
    EXPECT_FALSE(doc.m_bReadOnly);
    EXPECT_EQ(doc.GetTitle(), "Kopie.VT5");
    EXPECT_EQ(RootTitleIn(PathOf("Kopie.VT5")), "Geändert");
    EXPECT_EQ(ReadFile(PathOf("Kopie.~~~")), OwnLockOf("Anna"));
    EXPECT_TRUE(doc.OnCloseDocument());
    EXPECT_EQ(ReadFile(lock), LockOf("Bert"));
}

// Without a lock of its own the project would be open to a second writer: it opens read-only.
TEST_F(DocOpenTest, LockFileErrorsAndLostRacesOpenReadOnly) {
    for (int skip : {0, 1}) { // reading the lock, creating it
        fs.faults = {{Op::Open, ".~~~", EACCES, 1, skip}};
        EXPECT_TRUE(OpensReadOnly());
        EXPECT_THAT(Told(), HasSubstr("schreibgeschützt geöffnet"));
        EXPECT_FALSE(Exists(lock));
    }
    // Someone creates the lock file just after each of our three looks and removes it again.
    fs.faults.clear();
    for (int attempt = 0; attempt < 3; ++attempt)
        fs.faults.insert(fs.faults.end(), {{Op::Open, ".~~~", ENOENT}, {Op::Open, ".~~~", EEXIST}});
    EXPECT_TRUE(OpensReadOnly());
    // A lock taken between our check and our create is asked about, not overwritten.
    fs.faults.clear();
    int lockOpens = 0;
    fs.before = [&](Op op, const std::string& path) {
        if (op == Op::Open && path == lock && ++lockOpens == 2)
            WriteFile(lock, LockOf("Bert"));
    };
    prompter.Answer(PromptAnswer::Yes);
    EXPECT_TRUE(OpensReadOnly());
    EXPECT_EQ(Told(), heldQuestion);
    EXPECT_EQ(ReadFile(lock), LockOf("Bert"));
}

TEST_F(DocOpenTest, ALinkedLockFileIsRefusedNotFollowed) {
    const std::string victim = PathOf("Opfer.txt");
    WriteFile(victim, "bleibt");
    std::filesystem::create_symlink(victim, lock);
    ASSERT_TRUE(doc.OnOpenDocument(project));
    EXPECT_TRUE(doc.m_bReadOnly);
    EXPECT_THAT(Told(), HasSubstr("symbolische Verknüpfung"));
    EXPECT_TRUE(doc.OnCloseDocument());
    EXPECT_EQ(ReadFile(victim), "bleibt");
    EXPECT_TRUE(std::filesystem::is_symlink(lock));
}

TEST_F(DocOpenTest, LeftOverLockNamesItsHostAndIsTakenOverWithOneAnswer) {
    WriteFile(lock, LockRecord("Bert", "laptop7", 4242));
    prompter.Answer(PromptAnswer::Yes);
    ASSERT_TRUE(doc.OnOpenDocument(project));
    ASSERT_EQ(prompter.asked().size(), 1u);
    EXPECT_EQ(prompter.asked()[0].caption, "Datei wird bearbeitet.");
    EXPECT_THAT(Told(), HasSubstr("auf dem Rechner laptop7 am "));
    EXPECT_THAT(Told(), HasSubstr("läuft nicht mehr"));
    EXPECT_FALSE(doc.m_bReadOnly);
    EXPECT_EQ(ReadFile(lock), OwnLockOf("Anna"));
    prompter.Answer(PromptAnswer::Yes); // the lock is live now: the usual question
    EXPECT_TRUE(OpensReadOnly());
    EXPECT_EQ(Told(),
              project + " ist bereits von Anna geöffnet.\nSoll die Datei schreibgeschützt geöffnet werden?");
}

TEST_F(DocOpenTest, UnreadableProjectIsNotOpenedButAnImplausibleHeaderOpensTheReplacement) {
    const std::string missing = PathOf("Fehlt.VT5");
    EXPECT_FALSE(doc.OnOpenDocument(missing));
    EXPECT_THAT(Told(), HasSubstr("\"" + missing +
                                  "\" kann nicht geöffnet werden: Datei oder Ordner nicht gefunden"));

    WriteFile(project, original.substr(0, original.size() - 3));
    EXPECT_FALSE(doc.OnOpenDocument(project));
    EXPECT_THAT(Told(), HasSubstr(project + "\" kann nicht geöffnet werden: sie ist unvollständig"));
    EXPECT_EQ(doc.m_pFirstNode, nullptr);
    EXPECT_EQ(Names(), std::vector<std::string>{"Plan.VT5"});

    std::filesystem::remove(project);
    ASSERT_EQ(mkfifo(project.c_str(), 0600), 0);
    EXPECT_FALSE(doc.OnOpenDocument(project));
    EXPECT_THAT(Told(), HasSubstr("keine gewöhnliche Datei")) << "a FIFO is told, not waited for";
    EXPECT_EQ(Names(), std::vector<std::string>{"Plan.VT5"});

    std::filesystem::remove(project);
    std::string implausible = original;
    implausible[28] = 4; // zoom
    WriteFile(project, implausible);
    ASSERT_TRUE(doc.OnOpenDocument(project));
    EXPECT_EQ(Told(), "Falsches Dateiformat!");
    EXPECT_EQ(doc.m_pFirstNode->m_strTitle, "Neuer Knoten")
        << "the replacement document opens after the message";
    EXPECT_TRUE(Exists(lock));
}

} // namespace

} // namespace velto
