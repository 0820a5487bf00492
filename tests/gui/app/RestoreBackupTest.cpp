// "Sicherung wiederherstellen" through the shell: the menu command lists the backups, opens one
// read-only in a window of its own and restores another so that the state before lands in ".BK0".
#include "ShellTestSupport.h"

#include "base/CommandIds.h"
#include "dialogs/CRestoreDlg.h"
#include "gui/dialogs/DialogTestSupport.h"
#include "view/CNotePane.h"
#include "view/CVeltoView.h"

#include <QPushButton>
#include <QTextEdit>
#include <QTreeWidget>

namespace {
std::string RootTitleOf(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return "(fehlt)";
    const QByteArray bytes = file.readAll();
    ProjectContent content;
    const auto* data = reinterpret_cast<const uint8_t*>(bytes.constData());
    if (ReadProject({data, size_t(bytes.size())}, content).status != ReadStatus::Ok)
        return "(beschädigt)";
    return std::string(content.firstNode->m_strTitle);
}

// Selects the row and clicks the button of the dialog the next event loop shows.
void ChooseRowOfNextDialog(int row, const char* button) {
    OnNextModal<CRestoreDlg>([row, button](CRestoreDlg& dialog) {
        auto* list = Find<QTreeWidget>(dialog, "states");
        list->setCurrentItem(list->topLevelItem(row));
        Find<QPushButton>(dialog, button)->click();
    });
}
} // namespace

using RestoreBackup = ShellTest;

TEST_F(RestoreBackup, OpensOneBackupReadOnlyAndRestoresAnotherKeepingTheCurrentState) {
    const QString path = ProjectPath("Plan.VT5");
    WriteProject(path);
    CMainFrame& frame = MakeFrame();
    CChildFrame* child = frame.Documents().OpenDocumentFile(path);
    ASSERT_TRUE(child);
    CVeltoDoc& doc = child->GetDocument();
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

    // The damaged backup is listed, and neither opened nor restored.
    OnNextModal<CRestoreDlg>([](CRestoreDlg& dialog) {
        auto* list = Find<QTreeWidget>(dialog, "states");
        ASSERT_EQ(list->topLevelItemCount(), 3);
        EXPECT_EQ(list->topLevelItem(1)->text(4), "Projektname");
        EXPECT_EQ(list->topLevelItem(2)->text(4), QString::fromUtf8("beschädigt"));
        list->setCurrentItem(list->topLevelItem(2));
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
    ChooseRowOfNextDialog(1, "restore");
    frame.Router().Execute(cmd::FileRestoreBackup);
    EXPECT_EQ(desktop.prompter.asked().back().text.rfind("Soll der Stand vom ", 0), 0u);
    EXPECT_EQ(doc.m_pFirstNode->m_strTitle, "Projektname");
    EXPECT_FALSE(doc.IsModified());
    EXPECT_EQ(RootTitleOf(path), "Projektname");
    EXPECT_EQ(RootTitleOf(ProjectPath("Plan.BK0")), "Zweiter");
    EXPECT_EQ(RootTitleOf(ProjectPath("Plan.BK1")), "Erster");
    // The view shows the restored list, not the freed one.
    QCoreApplication::processEvents();
    EXPECT_EQ(child->GetView().NotePane().ShownNode(), doc.m_pFirstNode);
    EXPECT_FALSE(note->toPlainText().contains("Notiz"));
}

TEST_F(RestoreBackup, IsOfferedOnlyForAProjectWithAFile) {
    CMainFrame& frame = MakeFrame();
    frame.Documents().NewDocument();
    EXPECT_FALSE(frame.Router().Query(cmd::FileRestoreBackup).enabled);
    const QString path = ProjectPath("Plan.VT5");
    WriteProject(path);
    frame.Documents().OpenDocumentFile(path);
    EXPECT_TRUE(frame.Router().Query(cmd::FileRestoreBackup).enabled);
}
