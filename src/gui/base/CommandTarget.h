#pragma once
// Anything that can take commands: the view, the document's commands and the main frame. The
// router asks them in that order; the first that knows a command gets it.
#include <QString>

namespace velto {

// What an update handler decides about a command before a menu opens or on idle.
struct CommandState {
    bool enabled = true;
    bool checked = false;
    QString text; // the status pane's text, for the pane's own update handler
};

class CommandTarget {
public:
    virtual ~CommandTarget() = default;
    // True when this target handles id; it then sets the command's state (enabled unless told).
    virtual bool OnUpdateCommand(int id, CommandState& state) = 0;
    // Runs id; true when this target handled it.
    virtual bool OnCommand(int id) = 0;
};

} // namespace velto
