#include "app/DocumentCommands.h"

#include "app/CChildFrame.h"
#include "app/RecentFileList.h"
#include "base/CommandIds.h"
#include "base/Desktop.h"
#include "base/ProjectFiles.h"
#include "chart/CGrafik.h"
#include "common/Prompter.h"
#include "dialogs/CRestoreDlg.h"
#include "document/ProjectStates.h"
#include "view/CVeltoView.h"

#include <QFileInfo>
#include <QGuiApplication>

namespace velto {

DocumentCommands::DocumentCommands(CChildFrame& child, Desktop& desktop, RecentFileList& recent)
    : m_child(child), m_desktop(desktop), m_recent(recent) {
    Add(cmd::FileSave, [this] { Save(); });
    Add(cmd::FileSaveAs, [this] { SaveAs(); });
    Add(cmd::FileClose, [this] { m_child.close(); });
    // Backups lie beside a file: a project never saved has none.
    Add(
        cmd::FileRestoreBackup, [this] { ChooseBackup(); },
        [this](CommandState& state) { state.enabled = !m_child.GetDocument().GetPathName().empty(); },
        Guard::WhenEnabled);
}

bool DocumentCommands::Save() {
    const QString path = FromCorePath(m_child.GetDocument().GetPathName());
    return path.isEmpty() ? SaveAs() : SaveTo(path);
}

bool DocumentCommands::SaveAs() {
    CVeltoDoc& doc = m_child.GetDocument();
    const QString current = FromCorePath(doc.GetPathName());
    const QString suggestion =
        current.isEmpty() ? WithProjectExtension(FromCoreText(doc.GetTitle())) : current;
    const QString chosen = m_desktop.ChooseFileToSave(&m_child, suggestion);
    if (chosen.isEmpty())
        return false;
    // The lock of the old name is let go only once a new name is chosen, so a cancelled dialog keeps it.
    doc.PrepareSaveAs();
    return SaveTo(WithProjectExtension(chosen));
}

bool DocumentCommands::SaveTo(const QString& path) {
    CVeltoDoc& doc = m_child.GetDocument();
    m_child.GetView().SaveNote();
    m_child.StoreViewValues(doc.m_view);
    const bool saved = doc.OnSaveDocument(ToCorePath(path));
    m_child.RefreshTitle();
    if (saved)
        m_recent.Add(FileKey(path));
    return saved;
}

bool DocumentCommands::SaveModified() {
    CVeltoDoc& doc = m_child.GetDocument();
    // What was just typed into the note counts as a change even while the note has the focus.
    m_child.GetView().SaveNote();
    if (!doc.IsModified())
        return true;
    const std::string question = "Änderungen in " + doc.GetTitle() + " speichern?";
    switch (m_desktop.GetPrompter().Ask(Prompter::kCaption, question, PromptButtons::YesNoCancel,
                                        PromptIcon::Question)) {
    case PromptAnswer::Yes:
        return Save();
    case PromptAnswer::No:
        return true;
    default:
        return false;
    }
}

void DocumentCommands::ChooseBackup() {
    // Changes not yet saved would not be in the backup that a restore keeps of the current state,
    // so they are offered for saving first; the list is read after that save's rotation.
    if (!SaveModified())
        return;
    CVeltoDoc& doc = m_child.GetDocument();
    PosixFileSystem fs;
    // Each state is read whole: five backups of a large project take about a second.
    QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    std::vector<ProjectState> states = ListProjectStates(fs, doc.GetPathName());
    QGuiApplication::restoreOverrideCursor();
    const QString path = FromCorePath(doc.GetPathName());
    CRestoreDlg dialog(std::move(states), QFileInfo(path).fileName(), !doc.m_bReadOnly,
                       m_desktop.GetPrompter(), &m_child);
    if (dialog.exec() != QDialog::Accepted)
        return;
    if (dialog.GetChoice() == CRestoreDlg::Choice::Restore)
        Restore(dialog.ChosenPath());
    else if (m_openState)
        m_openState(FromCorePath(dialog.ChosenPath()));
}

void DocumentCommands::Restore(const std::string& statePath) {
    CVeltoDoc& doc = m_child.GetDocument();
    if (doc.RestoreState(statePath)) {
        // The whole list is new: the chart indexes its rows anew and the note pane follows the
        // restored selection.
        doc.UpdateAllViews();
        m_child.GetView().Redraw();
        m_child.GetView().Chart().ScrollToSelection();
    }
    m_child.RefreshTitle();
}

} // namespace velto
