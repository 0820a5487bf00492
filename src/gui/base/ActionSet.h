#pragma once
// One QAction per command, made from the command table and bound to the router. The actions belong
// to the main window, so their shortcuts work whichever menu set is shown.
#include <QString>

#include <map>

class QAction;
class QWidget;

namespace velto {

class CommandRouter;

class ActionSet {
public:
    ActionSet(QWidget& owner, CommandRouter& router);

    // The action of a command of the table (created on first use).
    QAction* Get(int id);
    // A second action for a command that a menu shows under another label (32791 is "E&instellungen..."
    // in the menu without a document).
    QAction* Alias(int id, const QString& label, const QString& prompt);
    // An action whose label changes at run time (the recent files).
    QAction* Dynamic(int id, const QString& prompt);

private:
    QAction* Make(int id, const QString& label, const QString& prompt);

    QWidget& m_owner;
    CommandRouter& m_router;
    std::map<int, QAction*> m_actions;
};

} // namespace velto
