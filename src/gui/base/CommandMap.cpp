#include "base/CommandMap.h"

namespace velto {

void CommandMap::Add(int id, Handler handler, Updater update, Guard guard) {
    m_entries.insert_or_assign(id, Entry{std::move(handler), std::move(update), guard});
}

void CommandMap::AddDisabled(int id) {
    Add(
        id, [] {}, [](CommandState& state) { state.enabled = false; }, Guard::WhenEnabled);
}

bool CommandMap::OnUpdateCommand(int id, CommandState& state) {
    const auto entry = m_entries.find(id);
    if (entry == m_entries.end())
        return false;
    if (entry->second.update)
        entry->second.update(state);
    return true;
}

bool CommandMap::OnCommand(int id) {
    const auto entry = m_entries.find(id);
    if (entry == m_entries.end())
        return false;
    if (entry->second.guard == Guard::WhenEnabled) {
        CommandState state;
        if (!OnUpdateCommand(id, state) || !state.enabled)
            return true;
    }
    if (entry->second.handler)
        entry->second.handler();
    return true;
}

} // namespace velto
