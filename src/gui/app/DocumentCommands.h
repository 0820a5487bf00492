#pragma once
// The commands of an open project's document: save, save as, close and the restore of a backup, and
// the question whether a modified project is to be saved before it closes.
#include "base/CommandMap.h"

#include <QString>

#include <functional>
#include <string>

namespace velto {

class CChildFrame;
class Desktop;
class RecentFileList;

class DocumentCommands : public CommandMap {
public:
    DocumentCommands(CChildFrame& child, Desktop& desktop, RecentFileList& recent);

    // Saves under the project's name, or asks for one when it has none yet. True when saved.
    bool Save();
    // Asks for a name and saves there. True when saved.
    bool SaveAs();
    // Asks "Änderungen in <title> speichern?" for a modified project. True when the project may close:
    // it was saved, the user said No, or it was not modified.
    bool SaveModified();

    // Opens a saved state of the project read-only in a window of its own (the main frame does).
    using StateOpener = std::function<void(const QString& statePath)>;
    void SetStateOpener(StateOpener opener) { m_openState = std::move(opener); }

private:
    bool SaveTo(const QString& path);
    // "Sicherung wiederherstellen": lists the backups to open one or make it the content.
    void ChooseBackup();
    void Restore(const std::string& statePath);

    CChildFrame& m_child;
    Desktop& m_desktop;
    RecentFileList& m_recent;
    StateOpener m_openState;
};

} // namespace velto
