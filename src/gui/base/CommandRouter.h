#pragma once
// Sends each command to the first target of the chain that knows it (active view, then its
// document, then the main frame) and keeps every action's enabled and checked state current.
#include "base/CommandTarget.h"

#include <QObject>

#include <functional>
#include <map>
#include <vector>

class QAction;
class QMenu;

namespace velto {

class CommandRouter : public QObject {
    Q_OBJECT
public:
    using Chain = std::function<std::vector<CommandTarget*>()>;
    explicit CommandRouter(Chain chain, QObject* parent = nullptr);

    // Routes the action's command when it is triggered. Several actions may carry one command.
    void Bind(QAction* action, int id);

    // The state the first target that knows id gives it; disabled when nobody knows it.
    CommandState Query(int id) const;
    // Runs id at the first target that knows it, unless that target has it disabled right now
    // (a shortcut may fire between two idle updates). True when the command ran.
    bool Execute(int id);

    // Applies the update handlers to every bound action.
    void UpdateAll();
    // Applies them to a menu's actions each time it is about to open.
    void UpdateBeforeShow(QMenu* menu);

private:
    void Apply(QAction* action, int id) const;

    Chain m_chain;
    std::multimap<int, QAction*> m_actions;
};

} // namespace velto
