#pragma once
// The commands of an open project's document: save, save as and close, and the question whether a
// modified project is to be saved before it closes.
#include "app/CommandTarget.h"

#include <QString>

class CChildFrame;
class Desktop;
class RecentFileList;

class DocumentCommands : public CommandTarget {
public:
    DocumentCommands(CChildFrame& child, Desktop& desktop, RecentFileList& recent);

    bool OnUpdateCommand(int id, CommandState& state) override;
    bool OnCommand(int id) override;

    // Saves under the project's name, or asks for one when it has none yet. True when saved.
    bool Save();
    // Asks for a name and saves there. True when saved.
    bool SaveAs();
    // Asks "Änderungen in <title> speichern?" for a modified project. True when the project may close:
    // it was saved, the user said No, or it was not modified.
    bool SaveModified();

private:
    bool SaveTo(const QString& path);

    CChildFrame& m_child;
    Desktop& m_desktop;
    RecentFileList& m_recent;
};
