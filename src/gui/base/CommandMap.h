#pragma once
// The commands of one target (the view, a document, the main frame), each registered once with
// what it does and, where its state depends on the moment, an update handler. Menus, toolbars,
// shortcuts and context menus reach a command only through its id, so there is no second list of
// ids to keep in step.
#include "base/CommandTarget.h"

#include <functional>
#include <unordered_map>

namespace velto {

class CommandMap : public CommandTarget {
public:
    using Handler = std::function<void()>;
    // Sets enabled, checked or the status text; a command without one is always enabled.
    using Updater = std::function<void(CommandState&)>;
    enum class Guard {
        None,        // the handler copes with every state (it finds what it needs itself)
        WhenEnabled, // the handler runs only while the update handler leaves the command enabled
    };

    // Registers id; a second registration replaces the first.
    void Add(int id, Handler handler, Updater update = {}, Guard guard = Guard::None);
    // Claims id without running anything: it shows disabled, and no target further down the
    // chain gets it.
    void AddDisabled(int id);

    bool Contains(int id) const { return m_entries.contains(id); }
    bool OnUpdateCommand(int id, CommandState& state) override;
    bool OnCommand(int id) override;

private:
    struct Entry {
        Handler handler;
        Updater update;
        Guard guard;
    };
    std::unordered_map<int, Entry> m_entries;
};

} // namespace velto
