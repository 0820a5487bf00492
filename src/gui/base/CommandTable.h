#pragma once
// What the user sees of each command: the menu label (with its '&' mnemonic and, after a tab, the
// shortcut as the menu shows it), the status-bar prompt and tool tip, the keys and the icon.
#include <QKeySequence>
#include <QList>

#include <vector>

namespace velto {

struct CommandInfo {
    int id;
    const char* label;
    // The status-bar text, a line break, then the tool tip.
    const char* prompt;
    QList<QKeySequence> keys = {};
    // A freedesktop icon name, or "velto-…" for an icon only Velto draws; empty for commands that have
    // no button.
    const char* icon = "";
    bool checkable = false;
};

// Every command that has a menu item or a button, in no particular order.
const std::vector<CommandInfo>& CommandTable();
// The entry for id, or null.
const CommandInfo* FindCommand(int id);

} // namespace velto
