#include "base/CommandRouter.h"

#include <QAction>
#include <QMenu>

namespace velto {

CommandRouter::CommandRouter(Chain chain, QObject* parent) : QObject(parent), m_chain(std::move(chain)) {}

void CommandRouter::Bind(QAction* action, int id) {
    action->setData(id);
    m_actions.emplace(id, action);
    connect(action, &QAction::triggered, this, [this, id] { Execute(id); });
    connect(action, &QObject::destroyed, this, [this, action] {
        std::erase_if(m_actions, [action](const auto& entry) { return entry.second == action; });
    });
}

CommandState CommandRouter::Query(int id) const {
    for (CommandTarget* target : m_chain()) {
        CommandState state;
        if (target && target->OnUpdateCommand(id, state))
            return state;
    }
    CommandState nobody;
    nobody.enabled = false;
    return nobody;
}

bool CommandRouter::Execute(int id) {
    for (CommandTarget* target : m_chain()) {
        CommandState state;
        if (!target || !target->OnUpdateCommand(id, state))
            continue;
        return state.enabled && target->OnCommand(id);
    }
    return false;
}

void CommandRouter::Apply(QAction* action, int id) const {
    const CommandState state = Query(id);
    action->setEnabled(state.enabled);
    if (action->isCheckable())
        action->setChecked(state.checked);
}

void CommandRouter::UpdateAll() {
    for (const auto& [id, action] : m_actions)
        Apply(action, id);
}

void CommandRouter::UpdateBeforeShow(QMenu* menu) {
    connect(menu, &QMenu::aboutToShow, this, [this, menu] {
        for (QAction* action : menu->actions()) {
            const QVariant id = action->data();
            if (id.isValid())
                Apply(action, id.toInt());
        }
    });
}

} // namespace velto
