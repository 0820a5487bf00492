#pragma once
// The main window: the project windows in an MDI area, the menu sets and toolbars of the timeline and
// the mind map, the status bar with the node info line, the window placement kept in the settings,
// and the commands that work without a project (new, open, recent files, converter, manual).
#include "app/DocumentManager.h"
#include "app/MainMenus.h"
#include "base/CommandMap.h"
#include "base/CommandRouter.h"
#include "base/ShellState.h"

#include <QList>
#include <QMainWindow>
#include <QTimer>

#include <functional>
#include <map>
#include <memory>
#include <optional>

class QLabel;
class QMdiArea;
class QTranslator;
class QToolBar;

namespace velto {

class ActionSet;
class CChildFrame;
class CVeltoDoc;
class CVeltoView;
class Desktop;
class RecentFileList;
class SettingsStore;

class CMainFrame : public QMainWindow {
    Q_OBJECT
public:
    // Restores the placement, the bars and the note toolbar flag from the settings.
    CMainFrame(Desktop& desktop, SettingsStore& settings, RecentFileList& recent);
    ~CMainFrame() override;

    // The open projects: opening, new, recent files, closing them all.
    DocumentManager& Documents() { return m_documents; }
    CChildFrame* ActiveChild() const;
    QList<CChildFrame*> Children() const;
    QMdiArea& MdiArea() const { return *m_mdi; }
    QToolBar& ToolBar() const { return *m_toolBar; }
    QLabel& StatusPane() const { return *m_statusPane; }
    CommandRouter& Router() { return m_router; }
    QAction* Action(int id);

    // The dialogs of the settings, holidays and assignees come from elsewhere; until their handler is
    // set here, their commands stay disabled. The frame's own commands are registered in
    // RegisterCommands.
    void SetCommandHandler(int id, std::function<void()> handler);

    const ShellState& State() const { return m_state; }
    // Whether the frame was maximized when it was closed last.
    bool WasMaximized() const { return m_wasMaximized; }
    Desktop& GetDesktop() const { return m_desktop; }
    RecentFileList& Recent() const { return m_recent; }

    // Writes placement, bars and the note toolbar flag to the settings (done when the window closes).
    void SavePlacement();
    // The update pass that the idle timer runs: actions, status pane, window captions, menu set.
    void OnIdle();
    // Shows the menu set and toolbar that fit the active window and the mode.
    void ShowMenuSet();
    // "Velto - " and the active project's title (with " - SCHREIBGESCHÜTZT" for a read-only one),
    // whether its window is maximised or not; "Velto" without a project.
    void RefreshTitle();

protected:
    bool event(QEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void RegisterCommands();
    void CreateBars();
    void CreateMenuSets();
    void RestorePlacement();
    // Without a stored placement the frame takes most of the screen, centred.
    void PlaceAsFirstStart();
    // Places the window so that its frame, title bar included, covers the rectangle.
    void PlaceFrame(const QRect& frame);
    void FitPendingFrame();
    void ShowToolbar(MenuSet set);
    void SwitchMode(bool mindMap);
    void FillRecentFiles();
    void FillWindowList(QMenu* menu);
    void StartConverter();
    void OpenManual();
    void ShowAbout();
    MenuSet WantedMenuSet() const;
    std::vector<CommandTarget*> RoutingChain();

    Desktop& m_desktop;
    SettingsStore& m_settings;
    RecentFileList& m_recent;
    ShellState m_state;
    bool m_wasMaximized = false;
    QMdiArea* m_mdi;
    DocumentManager m_documents;
    QToolBar* m_toolBar = nullptr;
    QLabel* m_statusPane = nullptr;
    CommandRouter m_router;
    std::unique_ptr<ActionSet> m_actions;
    std::map<MenuSet, MenuBarMenus> m_menuSets;
    MenuSet m_shownSet = MenuSet::NoDocument;
    bool m_menuShown = false;
    CommandMap m_commands;
    QList<QAction*> m_windowActions;
    QTimer m_idle;
    // Makes Qt name a maximised project as RefreshTitle does; see there.
    std::unique_ptr<QTranslator> m_titleTexts;
    bool m_settingTitle = false;
    // The frame size PlaceFrame was given, until the frame's border is known.
    std::optional<QSize> m_pendingFrameSize;
};

} // namespace velto
