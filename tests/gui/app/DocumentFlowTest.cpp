// Opening, saving and closing projects through the shell, locked and read-only ones included.
#include "ShellTestSupport.h"

#include "app/WindowPlacement.h"
#include "base/CommandIds.h"
#include "view/CNotePane.h"
#include "view/CVeltoView.h"

#include <QCloseEvent>
#include <QFileInfo>
#include <QTextEdit>

namespace velto {

namespace {
QByteArray Contents(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}
} // namespace

using DocumentFlow = ShellTest;

TEST_F(DocumentFlow, ALockedFileOpensReadOnlyInASecondInstanceAndSavesUnderANewName) {
    const QString path = WriteProject("Geteilt.VT5");
    ASSERT_TRUE(MakeFrame().Documents().OpenDocumentFile(path));
    CMainFrame& theirs = MakeFrame(); // another instance of the program
    desktop.prompter.Answer(PromptAnswer::Yes);
    CChildFrame* readOnly = theirs.Documents().OpenDocumentFile(path);
    ASSERT_TRUE(readOnly);
    ASSERT_EQ(desktop.prompter.asked().size(), 1u);
    EXPECT_EQ(desktop.prompter.asked()[0].caption, "Datei wird bearbeitet.");
    EXPECT_TRUE(readOnly->windowTitle().startsWith(QString::fromUtf8("Geteilt.VT5 - SCHREIBGESCHÜTZT")));

    desktop.ChooseFiles({ProjectPath("Kopie")});
    theirs.Router().Execute(cmd::FileSaveAs);
    EXPECT_EQ(desktop.suggestions.value(0), path);
    EXPECT_TRUE(QFileInfo::exists(ProjectPath("Kopie.VT5"))) << "the extension is added";
    EXPECT_FALSE(readOnly->GetDocument().m_bReadOnly);
    EXPECT_EQ(readOnly->windowTitle(), "Kopie.VT5[*]");
    EXPECT_EQ(recent->Files().value(0), ProjectPath("Kopie.VT5"));
    EXPECT_TRUE(QFileInfo::exists(ProjectPath("Geteilt.~~~"))) << "the other instance's lock stays";
}

TEST_F(DocumentFlow, DecliningReadOnlyOpensNothingButKeepsTheFileInTheRecentList) {
    const QString path = WriteProject("Gesperrt.VT5");
    ASSERT_TRUE(MakeFrame().Documents().OpenDocumentFile(path));
    CMainFrame& theirs = MakeFrame();
    desktop.prompter.Answer(PromptAnswer::No).Answer(PromptAnswer::No);
    EXPECT_EQ(theirs.Documents().OpenDocumentFile(path), nullptr);
    EXPECT_TRUE(QFileInfo::exists(ProjectPath("Gesperrt.~~~")));
    EXPECT_EQ(recent->Files().value(0), path) << "declined, not gone: stays in the list";
    EXPECT_TRUE(theirs.Children().isEmpty());
}

TEST_F(DocumentFlow, ANewProjectIsSavedUnderTheChosenName) {
    CMainFrame& frame = MakeFrame();
    CChildFrame* child = frame.Documents().NewDocument();
    ASSERT_TRUE(child);
    desktop.ChooseFiles({QString()}); // cancelled
    frame.Router().Execute(cmd::FileSave);
    EXPECT_EQ(child->GetDocument().GetPathName(), "");
    EXPECT_EQ(desktop.suggestions.value(0), "Unbenannt.VT5");

    desktop.ChooseFiles({ProjectPath("Neu.vt5")});
    frame.Router().Execute(cmd::FileSave);
    EXPECT_TRUE(QFileInfo::exists(ProjectPath("Neu.vt5")));
    EXPECT_FALSE(QFileInfo::exists(ProjectPath("Neu.vt5.VT5")));
    EXPECT_EQ(child->windowTitle(), "Neu.vt5[*]");
}

TEST_F(DocumentFlow, TheSaveQuestionOnCloseHonoursEachAnswer) {
    const QString path = WriteProject("Frage.VT5");
    const QByteArray original = Contents(path);
    CMainFrame& frame = MakeFrame();
    const auto openModified = [&] {
        CChildFrame* child = frame.Documents().OpenDocumentFile(path);
        child->GetDocument().m_pFirstNode->m_strTitle = "Geaendert";
        child->GetDocument().SetModifiedFlag();
        return child;
    };
    CChildFrame* child = openModified();
    desktop.prompter.Answer(PromptAnswer::Cancel).Answer(PromptAnswer::No);
    EXPECT_FALSE(child->close());
    EXPECT_EQ(desktop.prompter.texts(), std::vector<std::string>{"Änderungen in Frage.VT5 speichern?"});
    EXPECT_TRUE(child->close());
    EXPECT_EQ(Contents(path), original);

    ASSERT_TRUE(frame.Documents().OpenDocumentFile(path));
    frame.Router().Execute(cmd::FileClose);
    EXPECT_EQ(desktop.prompter.asked().size(), 2u) << "an unmodified project closes without a question";

    desktop.prompter.Answer(PromptAnswer::Yes);
    EXPECT_TRUE(openModified()->close());
    EXPECT_NE(Contents(path), original);
    EXPECT_FALSE(QFileInfo::exists(ProjectPath("Frage.~~~"))) << "the lock goes with the window";
}

TEST_F(DocumentFlow, ExitAsksForEveryModifiedProjectAndCancelKeepsThemAll) {
    CMainFrame& frame = MakeFrame();
    CChildFrame* first = frame.Documents().NewDocument();
    CChildFrame* second = frame.Documents().NewDocument();
    first->GetDocument().SetModifiedFlag();
    second->GetDocument().SetModifiedFlag();

    desktop.prompter.Answer(PromptAnswer::No).Answer(PromptAnswer::Cancel);
    EXPECT_FALSE(frame.close());
    EXPECT_EQ(frame.Children().size(), 2);

    desktop.prompter.Answer(PromptAnswer::No).Answer(PromptAnswer::No);
    EXPECT_TRUE(frame.close());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(frame.Children().isEmpty());
    EXPECT_TRUE(QSettings("kolvarin", "Velto5").contains("Max")); // the placement was kept on the way out
}

TEST_F(DocumentFlow, AProjectWithARunningClockStaysOpenWhenClosed) {
    CMainFrame& frame = MakeFrame();
    CChildFrame* child = frame.Documents().NewDocument();
    CVeltoDoc& doc = child->GetDocument();
    int clockedOut = 0;
    doc.SetClockOutHandler([&](CProjectNode& node) {
        node.m_bClockedIn = 0;
        ++clockedOut;
    });
    doc.m_pFirstNode->m_bClockedIn = 1;
    EXPECT_FALSE(child->close());
    EXPECT_EQ(clockedOut, 1);
    EXPECT_EQ(frame.Children().size(), 1);
    EXPECT_TRUE(doc.IsModified());
}

TEST_F(DocumentFlow, TheViewValuesTravelWithTheFile) {
    const QString path = ProjectPath("Ansicht.VT5");
    CMainFrame& frame = MakeFrame();
    CChildFrame* child = frame.Documents().NewDocument();
    child->setGeometry(30, 40, 400, 300);
    child->GetView().SetLayout({250, 180, 33});
    child->showMaximized();
    desktop.ChooseFiles({path});
    ASSERT_TRUE(child->Commands().SaveAs());
    const ProjectViewValues& saved = child->GetDocument().m_view;
    EXPECT_EQ(saved.chartWidth2, 180);
    EXPECT_EQ(saved.maximized, 1u);
    EXPECT_EQ(saved.windowRect,
              (StoredRect{30, 40, 430, 340})); // the normal rectangle, not the maximized one
    child->close();

    CChildFrame* reopened = frame.Documents().OpenDocumentFile(path);
    ASSERT_TRUE(reopened);
    EXPECT_TRUE(reopened->isMaximized());
    EXPECT_EQ(reopened->NormalGeometry(), QRect(30, 40, 400, 300));
    EXPECT_EQ(reopened->GetView().GetLayout().chartWidth1, 250);
    EXPECT_EQ(reopened->GetView().MindMapZoom(), 33);
}

TEST_F(DocumentFlow, SavingTakesTheNoteThatIsStillBeingTyped) {
    const QString path = ProjectPath("Notiz.VT5");
    CChildFrame* child = MakeFrame().Documents().NewDocument();
    child->GetView().NotePane().Editor()->insertPlainText(QStringLiteral("Noch nicht gespeichert"));
    EXPECT_FALSE(child->GetDocument().IsModified()) << "no key let go, no focus lost yet";
    desktop.ChooseFiles({path});
    ASSERT_TRUE(child->Commands().SaveAs());
    child->close();
    EXPECT_TRUE(Contents(path).contains("Noch nicht gespeichert"));
}

} // namespace velto
