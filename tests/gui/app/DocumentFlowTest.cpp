// Opening, saving, closing and restoring projects through the shell, locked and read-only ones included.
#include "ShellTestSupport.h"

#include "app/WindowPlacement.h"
#include "base/CommandIds.h"
#include "dialogs/CClockOutDlg.h"
#include "dialogs/CRestoreDlg.h"
#include "files/ClockJournal.h"
#include "files/DataDir.h"
#include "gui/dialogs/DialogTestSupport.h"
#include "support/EndedProcess.h"
#include "support/TempDir.h"
#include "view/CNotePane.h"
#include "view/CVeltoView.h"

#include <QFileInfo>
#include <QPushButton>
#include <QTextEdit>
#include <QTimeEdit>
#include <QTreeWidget>

namespace velto {

static QByteArray Contents(const QString& path) {
    return QByteArray::fromStdString(testsupport::ReadFile(path.toStdString()));
}

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

TEST_F(DocumentFlow, ANewProjectIsSavedUnderTheChosenNameWithTheNoteStillBeingTyped) {
    CMainFrame& frame = MakeFrame();
    CChildFrame* child = frame.Documents().NewDocument();
    ASSERT_TRUE(child);
    child->GetView().NotePane().Editor()->insertPlainText(QStringLiteral("Noch nicht gespeichert"));
    EXPECT_FALSE(child->GetDocument().IsModified()) << "no key let go, no focus lost yet";
    desktop.ChooseFiles({QString(), ProjectPath("Neu.vt5")}); // cancelled, then chosen
    frame.Router().Execute(cmd::FileSave);
    EXPECT_EQ(child->GetDocument().GetPathName(), "");
    EXPECT_EQ(desktop.suggestions.value(0), "Unbenannt.VT5");
    frame.Router().Execute(cmd::FileSave);
    EXPECT_FALSE(QFileInfo::exists(ProjectPath("Neu.vt5.VT5")));
    EXPECT_EQ(child->windowTitle(), "Neu.vt5[*]");
    EXPECT_TRUE(Contents(ProjectPath("Neu.vt5")).contains("Noch nicht gespeichert"));
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
    for (int i = 0; i < 2; ++i)
        frame.Documents().NewDocument()->GetDocument().SetModifiedFlag();
    desktop.prompter.Answer(PromptAnswer::No).Answer(PromptAnswer::Cancel);
    EXPECT_FALSE(frame.close());
    EXPECT_EQ(frame.Children().size(), 2);
    desktop.prompter.Answer(PromptAnswer::No).Answer(PromptAnswer::No);
    EXPECT_TRUE(frame.close());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(frame.Children().isEmpty());
    EXPECT_TRUE(Stored("Max").isValid()) << "the placement was kept on the way out";
}

TEST_F(DocumentFlow, ClosingAProjectWithARunningClockClocksOutThroughTheDialogAndKeepsItOpen) {
    CMainFrame& frame = MakeFrame();
    CChildFrame* child = frame.Documents().NewDocument();
    CProjectNode* task = child->GetDocument().m_pFirstNode;
    task->m_nKind = kKindTask;
    ASSERT_TRUE(frame.Router().Execute(cmd::ClockIn));
    OnNextModal<CClockOutDlg>([](CClockOutDlg& dialog) {
        EXPECT_EQ(dialog.windowTitle(), "Ausstempeln: Projektname");
        Find<QTimeEdit>(dialog, "begin")->setTime(QTime(8, 0));
        Find<QTimeEdit>(dialog, "end")->setTime(QTime(9, 30));
        ClickOk(dialog);
    });
    EXPECT_FALSE(child->close()) << "stays open so that the new hours can be saved";
    EXPECT_FALSE(task->m_bClockedIn);
    EXPECT_FALSE(task->m_pHours.empty());
    EXPECT_EQ(frame.Children().size(), 1);
}

TEST_F(DocumentFlow, AJournalThatCannotBeWrittenIsToldAtClockInAndAtClockOut) {
    QFile blocker(TempPath("belegt"));
    ASSERT_TRUE(blocker.open(QIODevice::WriteOnly));
    blocker.close();
    const DataDirOverride data(TempPath("belegt/daten"));
    CMainFrame& frame = MakeFrame();
    CChildFrame* child = frame.Documents().OpenDocumentFile(WriteProject("Uhr.VT5"));
    child->GetDocument().m_pFirstNode->m_nKind = kKindTask;
    ASSERT_TRUE(frame.Router().Execute(cmd::ClockIn));
    OnNextModal<CClockOutDlg>([](CClockOutDlg& dialog) { ClickCancel(dialog); });
    ASSERT_TRUE(frame.Router().Execute(cmd::ClockOut));
    const std::vector<std::string> told = desktop.prompter.texts();
    ASSERT_EQ(told.size(), 2u);
    for (const std::string& text : told)
        EXPECT_NE(text.find("Stempeluhr.dat"), std::string::npos) << text;
}

TEST_F(DocumentFlow, AClockOfAVeltoThatEndedIsOfferedBackWithItsBeginWhenTheProjectOpens) {
    const DataDirOverride data(TempPath("daten"));
    const QString path = WriteProject("Uhr.VT5");
    CMainFrame& frame = MakeFrame();
    CChildFrame* child = frame.Documents().OpenDocumentFile(path);
    child->GetDocument().m_pFirstNode->m_nKind = kKindTask;
    ASSERT_TRUE(frame.Router().Execute(cmd::ClockIn));
    ClockJournalContent journal = ReadClockJournal(ClockJournalPath());
    ASSERT_EQ(journal.clocks.size(), 1u);
    // The Velto that clocked in is killed: its clock stays in the journal only.
    journal.clocks[0].processId = testsupport::EndedProcessId();
    journal.clocks[0].clockIn = journal.clocks[0].clockIn - 7200;
    testsupport::WriteFile(ClockJournalPath(), FormatClockJournal(journal));
    child->GetDocument().m_pFirstNode->m_bClockedIn = 0;
    ASSERT_TRUE(child->close());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);

    desktop.prompter.Answer(PromptAnswer::Yes);
    const QTime begin = QDateTime::fromSecsSinceEpoch(journal.clocks[0].clockIn.GetTime()).time();
    OnNextModal<CClockOutDlg>([begin](CClockOutDlg& dialog) {
        EXPECT_EQ(Find<QTimeEdit>(dialog, "begin")->time().toString("HH:mm"), begin.toString("HH:mm"));
        Find<QTimeEdit>(dialog, "begin")->setTime(QTime(8, 0));
        Find<QTimeEdit>(dialog, "end")->setTime(QTime(9, 0));
        ClickOk(dialog);
    });
    child = frame.Documents().OpenDocumentFile(path);
    ASSERT_EQ(desktop.prompter.asked().size(), 1u);
    EXPECT_NE(desktop.prompter.asked()[0].text.find("\"Projektname\" läuft seit " +
                                                    journal.clocks[0].clockIn.Format("%d.%m.%Y %H:%M")),
              std::string::npos);
    EXPECT_FALSE(child->GetDocument().m_pFirstNode->m_pHours.empty());
    EXPECT_TRUE(ReadClockJournal(ClockJournalPath()).clocks.empty());
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
    EXPECT_EQ(saved.windowRect, (StoredRect{30, 40, 430, 340})) << "the normal rectangle";
    child->close();
    CChildFrame* reopened = frame.Documents().OpenDocumentFile(path);
    ASSERT_TRUE(reopened);
    EXPECT_TRUE(reopened->isMaximized());
    EXPECT_EQ(reopened->NormalGeometry(), QRect(30, 40, 400, 300));
    EXPECT_EQ(reopened->GetView().GetLayout().chartWidth1, 250);
    EXPECT_EQ(reopened->GetView().MindMapZoom(), 33);
}

TEST_F(DocumentFlow, RestoreIsOfferedForAProjectWithAFileAndOpensOneBackupReadOnlyOrRestoresAnother) {
    const QString path = WriteProject("Plan.VT5");
    CMainFrame& frame = MakeFrame();
    frame.Documents().NewDocument();
    EXPECT_FALSE(frame.Router().Query(cmd::FileRestoreBackup).enabled) << "never saved, no backups";
    CChildFrame* child = frame.Documents().OpenDocumentFile(path);
    ASSERT_TRUE(child);
    CVeltoDoc& doc = child->GetDocument();
    // Plan.BK0 then holds "Erster", Plan.BK1 the new project, and Plan.BK2 is damaged.
    for (const char* title : {"Erster", "Zweiter"}) {
        doc.m_pFirstNode->m_strTitle = title;
        doc.m_pFirstNode->m_strNote = std::string("{\\rtf1 Notiz ") + title + "\\par}";
        doc.SetModifiedFlag();
        frame.Router().Execute(cmd::FileSave);
    }
    doc.UpdateAllViews();
    QCoreApplication::processEvents();
    QTextEdit* note = child->GetView().NotePane().Editor();
    ASSERT_TRUE(note->toPlainText().contains("Notiz Zweiter"));
    QFile::copy(path, ProjectPath("Plan.BK2"));
    QFile::resize(ProjectPath("Plan.BK2"), 20);
    OnNextModal<CRestoreDlg>([](CRestoreDlg& dialog) {
        auto* list = Find<QTreeWidget>(dialog, "states");
        ASSERT_EQ(list->topLevelItemCount(), 3);
        list->setCurrentItem(list->topLevelItem(2)); // the damaged one
        EXPECT_FALSE(Find<QPushButton>(dialog, "open")->isEnabled());
        EXPECT_FALSE(Find<QPushButton>(dialog, "restore")->isEnabled());
        list->setCurrentItem(list->topLevelItem(0));
        Find<QPushButton>(dialog, "open")->click();
    });
    frame.Router().Execute(cmd::FileRestoreBackup);
    ASSERT_EQ(frame.Children().size(), 3);
    CChildFrame* opened = frame.ActiveChild();
    EXPECT_EQ(opened->GetDocument().m_pFirstNode->m_strTitle, "Erster");
    EXPECT_TRUE(opened->windowTitle().startsWith(QString::fromUtf8("Plan.BK0 - SCHREIBGESCHÜTZT")));
    opened->close();
    desktop.prompter.Answer(PromptAnswer::Yes);
    OnNextModal<CRestoreDlg>([](CRestoreDlg& dialog) {
        auto* list = Find<QTreeWidget>(dialog, "states");
        list->setCurrentItem(list->topLevelItem(1));
        Find<QPushButton>(dialog, "restore")->click();
    });
    frame.Router().Execute(cmd::FileRestoreBackup);
    EXPECT_EQ(desktop.prompter.asked().back().text.rfind("Soll der Stand vom ", 0), 0u);
    EXPECT_EQ(doc.m_pFirstNode->m_strTitle, "Projektname");
    EXPECT_FALSE(doc.IsModified());
    // The view shows the restored list, not the freed one.
    QCoreApplication::processEvents();
    EXPECT_EQ(child->GetView().NotePane().ShownNode(), doc.m_pFirstNode);
    EXPECT_FALSE(note->toPlainText().contains("Notiz"));
}

} // namespace velto
