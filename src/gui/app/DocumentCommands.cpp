#include "app/DocumentCommands.h"

#include "app/CChildFrame.h"
#include "app/CommandIds.h"
#include "app/Desktop.h"
#include "app/ProjectFiles.h"
#include "app/RecentFileList.h"
#include "document/Prompter.h"
#include "view/CVeltoView.h"

DocumentCommands::DocumentCommands(CChildFrame& child, Desktop& desktop, RecentFileList& recent)
    : m_child(child), m_desktop(desktop), m_recent(recent) {}

bool DocumentCommands::OnUpdateCommand(int id, CommandState&) {
    return id == cmd::FileSave || id == cmd::FileSaveAs || id == cmd::FileClose;
}

bool DocumentCommands::OnCommand(int id) {
    switch (id) {
    case cmd::FileSave:
        Save();
        return true;
    case cmd::FileSaveAs:
        SaveAs();
        return true;
    case cmd::FileClose:
        m_child.close();
        return true;
    default:
        return false;
    }
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
