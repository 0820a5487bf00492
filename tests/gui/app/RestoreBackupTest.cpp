// "Sicherung wiederherstellen" through the shell: open a backup read-only, restore another.
#include "ShellTestSupport.h"

#include "base/CommandIds.h"
#include "dialogs/CRestoreDlg.h"
#include "gui/dialogs/DialogTestSupport.h"
#include "view/CNotePane.h"
#include "view/CVeltoView.h"

#include <QPushButton>
#include <QTextEdit>
#include <QTreeWidget>

namespace velto {

using RestoreBackup = ShellTest;

TEST_F(RestoreBackup, OpensOneBackupReadOnlyAndRestoresAnother) {
    const QString path = WriteProject("Plan.VT5");
    CMainFrame& frame = MakeFrame();
    CChildFrame* child = frame.Documents().OpenDocumentFile(path);
    ASSERT_TRUE(child);
    CVeltoDoc& doc = child->GetDocument();
    for (const char* title :
         {"Erster", "Zweiter"}) { // Plan.BK0 then holds "Erster", Plan.BK1 the new project
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
    ASSERT_EQ(frame.Children().size(), 2);
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

TEST_F(RestoreBackup, IsOfferedOnlyForAProjectWithAFile) {
    CMainFrame& frame = MakeFrame();
    frame.Documents().NewDocument();
    EXPECT_FALSE(frame.Router().Query(cmd::FileRestoreBackup).enabled);
    const QString path = WriteProject("Plan.VT5");
    frame.Documents().OpenDocumentFile(path);
    EXPECT_TRUE(frame.Router().Query(cmd::FileRestoreBackup).enabled);
}

} // namespace velto
