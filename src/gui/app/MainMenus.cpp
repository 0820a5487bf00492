#include "app/MainMenus.h"

#include "base/ActionSet.h"
#include "base/CommandIds.h"

#include <QAction>
#include <QMenu>
#include <QWidget>

#include <initializer_list>

namespace velto {

namespace {
constexpr int kSeparator = 0;

void Fill(QMenu* menu, ActionSet& actions, std::initializer_list<int> ids) {
    for (int id : ids) {
        if (id == kSeparator)
            menu->addSeparator();
        else
            menu->addAction(actions.Get(id));
    }
}

QMenu* Menu(const char* title, QWidget* parent) {
    return new QMenu(QString::fromUtf8(title), parent);
}

QMenu* FileMenu(MenuSet set, ActionSet& actions, QWidget* parent) {
    using namespace cmd;
    QMenu* menu = Menu("&Datei", parent);
    if (set == MenuSet::NoDocument) {
        Fill(menu, actions, {FileNew, FileOpen, kSeparator, ImportVt4, kSeparator});
    } else {
        Fill(menu, actions,
             {FileNew, FileOpen, FileClose, FileSave, FileSaveAs, FileRestoreBackup, kSeparator, ImportVt4,
              kSeparator, FilePrint, FilePrintDirect, FilePrintPreview});
        Fill(menu->addMenu(QString::fromUtf8("&Exportieren")), actions, {ExportCalendar});
        menu->addSeparator();
    }
    for (int i = 0; i < RecentFileCount; ++i)
        menu->addAction(actions.Get(FileMru1 + i));
    Fill(menu, actions, {kSeparator, AppExit});
    return menu;
}

QMenu* EditMenu(ActionSet& actions, QWidget* parent) {
    using namespace cmd;
    QMenu* menu = Menu("&Bearbeiten", parent);
    Fill(menu, actions,
         {EditUndo, kSeparator, EditCut, EditCopy, EditPaste, kSeparator, NewNode, EditNode, DeleteNode,
          kSeparator});
    QMenu* node = menu->addMenu(QString::fromUtf8("&Knoten"));
    Fill(node, actions,
         {NodeDone, kSeparator, NodeBold, NodeItalic, NodeUnderline, NodeStrikeOut, NodeColor, kSeparator,
          ClockIn, ClockOut});
    QMenu* note = menu->addMenu(QString::fromUtf8("&Notiz"));
    Fill(note, actions,
         {NoteBold, NoteItalic, NoteUnderline, kSeparator, NoteFont, InsertHyperlink, kSeparator, NoteBullets,
          NoteNumbering, NoteIndentMore, NoteIndentLess});
    Fill(menu, actions, {kSeparator, FindText, MyTasks, kSeparator, SortByDate});
    return menu;
}

QMenu* ViewMenu(MenuSet set, ActionSet& actions, QWidget* parent) {
    using namespace cmd;
    QMenu* menu = Menu("&Ansicht", parent);
    Fill(menu, actions, {ViewToolbar, ViewStatusBar});
    if (set == MenuSet::NoDocument)
        return menu;
    Fill(menu, actions, {NoteToolbar, kSeparator});
    if (set == MenuSet::Timeline) {
        Fill(menu, actions,
             {MindMapMode, kSeparator, ZoomOut, ZoomIn, WidthDown, WidthUp, kSeparator, CollapseAll,
              ExpandAll, kSeparator, ToggleCosts});
    } else {
        Fill(menu, actions, {TimelineMode, kSeparator, ZoomOut, ZoomIn, kSeparator, CollapseAll, ExpandAll});
    }
    return menu;
}

QMenu* ExtrasMenu(MenuSet set, ActionSet& actions, QWidget* parent) {
    using namespace cmd;
    QMenu* menu = Menu("E&xtras", parent);
    if (set == MenuSet::NoDocument) {
        // 32791 is the settings only here; with a project it is the note's bold command.
        menu->addAction(actions.Alias(SettingsNoDoc, QString::fromUtf8("E&instellungen..."),
                                      QString::fromUtf8("Ändert die Einstellungen.\nEinstellungen")));
        Fill(menu, actions, {HolidaysNoDoc, Assignees});
    } else {
        Fill(menu, actions, {HoursReport, CostReport, kSeparator, Settings, Holidays, Assignees});
    }
    return menu;
}

QMenu* WindowMenu(ActionSet& actions, QWidget* parent) {
    using namespace cmd;
    QMenu* menu = Menu("&Fenster", parent);
    Fill(menu, actions, {WindowCascade, WindowTile, kSeparator, NextPane, PrevPane, kSeparator});
    return menu;
}

QMenu* HelpMenu(ActionSet& actions, QWidget* parent) {
    QMenu* menu = Menu("&?", parent);
    Fill(menu, actions, {cmd::Manual, kSeparator, cmd::AppAbout});
    return menu;
}
} // namespace

MenuBarMenus BuildMenus(MenuSet set, ActionSet& actions, QWidget* parent) {
    MenuBarMenus out;
    out.recentFiles = FileMenu(set, actions, parent);
    out.menus.append(out.recentFiles);
    if (set != MenuSet::NoDocument)
        out.menus.append(EditMenu(actions, parent));
    out.menus.append(ViewMenu(set, actions, parent));
    out.menus.append(ExtrasMenu(set, actions, parent));
    if (set != MenuSet::NoDocument) {
        out.windows = WindowMenu(actions, parent);
        out.menus.append(out.windows);
    }
    out.menus.append(HelpMenu(actions, parent));
    return out;
}

QList<int> ToolbarCommands(MenuSet set) {
    using namespace cmd;
    if (set == MenuSet::MindMap)
        return {FileNew,     FileOpen,   FileSave,   kSeparator,   EditCut,    EditCopy,
                EditPaste,   kSeparator, FilePrint,  kSeparator,   NewNode,    EditNode,
                DeleteNode,  EditUndo,   kSeparator, ZoomOut,      ZoomIn,     kSeparator,
                CollapseAll, ExpandAll,  kSeparator, TimelineMode, kSeparator, Manual};
    return {FileNew,     FileOpen,  FileSave,   kSeparator,  EditCut,     EditCopy,   EditPaste,
            kSeparator,  FilePrint, kSeparator, NewNode,     EditNode,    DeleteNode, EditUndo,
            kSeparator,  ZoomOut,   ZoomIn,     kSeparator,  CollapseAll, ExpandAll,  kSeparator,
            ToggleCosts, FindText,  kSeparator, MindMapMode, kSeparator,  Manual};
}

} // namespace velto
