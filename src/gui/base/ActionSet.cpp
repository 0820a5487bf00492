#include "base/ActionSet.h"

#include "base/CommandRouter.h"
#include "base/CommandTable.h"
#include "base/Icons.h"

#include <QAction>
#include <QWidget>

namespace velto {

namespace {
// A prompt is the status-bar text, a line break and the tool tip.
void SetPrompt(QAction& action, const QString& prompt) {
    const qsizetype breakAt = prompt.indexOf(QLatin1Char('\n'));
    action.setStatusTip(prompt.left(breakAt));
    if (breakAt >= 0)
        action.setToolTip(prompt.mid(breakAt + 1));
}
} // namespace

ActionSet::ActionSet(QWidget& owner, CommandRouter& router) : m_owner(owner), m_router(router) {}

QAction* ActionSet::Make(int id, const QString& label, const QString& prompt) {
    auto* action = new QAction(label, &m_owner);
    SetPrompt(*action, prompt);
    m_owner.addAction(action);
    m_router.Bind(action, id);
    return action;
}

QAction* ActionSet::Get(int id) {
    if (const auto it = m_actions.find(id); it != m_actions.end())
        return it->second;
    const CommandInfo* info = FindCommand(id);
    Q_ASSERT_X(info, "ActionSet::Get", "command missing from the command table");
    QAction* action = Make(id, QString::fromUtf8(info->label), QString::fromUtf8(info->prompt));
    action->setShortcuts(info->keys);
    action->setIcon(CommandIcon(*info));
    action->setCheckable(info->checkable);
    m_actions.emplace(id, action);
    return action;
}

QAction* ActionSet::Alias(int id, const QString& label, const QString& prompt) {
    return Make(id, label, prompt);
}

QAction* ActionSet::Dynamic(int id, const QString& prompt) {
    QAction* action = Make(id, QString(), prompt);
    m_actions.emplace(id, action);
    return action;
}

} // namespace velto
