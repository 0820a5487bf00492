#pragma once
// The menu bars and toolbars of the main window. Three menu sets: without a project, with a project
// in the timeline, with a project in the mind map; two toolbars: timeline (128) and mind map (129).
#include <QList>

class QMenu;
class QWidget;

namespace velto {

class ActionSet;

enum class MenuSet { NoDocument, Timeline, MindMap };

struct MenuBarMenus {
    QList<QMenu*> menus;
    QMenu* recentFiles = nullptr; // where the recent files stand (the "Datei" menu)
    QMenu* windows = nullptr;     // the "Fenster" menu, which lists the project windows
};

// Builds the menus of one set; the menus belong to parent.
MenuBarMenus BuildMenus(MenuSet set, ActionSet& actions, QWidget* parent);

// The buttons of a toolbar, 0 standing for a separator.
QList<int> ToolbarCommands(MenuSet set);

} // namespace velto
