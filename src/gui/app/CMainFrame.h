#pragma once
// The main window: the project windows in an MDI area, the menu sets and toolbars of the timeline and
// the mind map, the status bar with the node info line, the window placement kept in the settings,
// and the commands that work without a project (new, open, recent files, converter, manual).
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

class ActionSet;
class CChildFrame;
class CVeltoDoc;
class CVeltoView;
class Desktop;
class QLabel;
class QMdiArea;
class QToolBar;
class RecentFileList;
class SettingsStore;

class CMainFrame : public QMainWindow {
    Q_OBJECT
public:
    // Restores the placement, the bars and the note toolbar flag from the settings.
    CMainFrame(Desktop& desktop, SettingsStore& settings, RecentFileList& recent);
    ~CMainFrame() override;

    // Opens a project file, or activates its window when it is open already. Null when it was not
    // opened (the user was told why).
    CChildFrame* OpenDocumentFile(const QString& path);
    // A backup or other saved state of a project, read-only in a window of its own to compare, with
    // no lock taken and no entry in the recent files. Null when it could not be read (told).
    CChildFrame* OpenStateReadOnly(const QString& statePath);
    // A new project with one root node.
    CChildFrame* NewDocument();

    CChildFrame* ActiveChild() const;
    QList<CChildFrame*> Children() const;
    QMdiArea& MdiArea() const { return *m_mdi; }
    QToolBar& ToolBar() const { return *m_toolBar; }
    QLabel& StatusPane() const { return *m_statusPane; }
    CommandRouter& Router() { return m_router; }
    QAction* Action(int id);

    // Makes the view of each new project window (the shell's own view unless set).
    using ViewFactory = std::function<CVeltoView*(CVeltoDoc&, const ShellState&)>;
    void SetViewFactory(ViewFactory factory) { m_viewFactory = std::move(factory); }

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
    // Offers every modified project for saving, then closes them all. False when the user cancelled
    // or a project stays open; then nothing more is closed.
    bool CloseAllDocuments();
    // The update pass that the idle timer runs: actions, status pane, window captions, menu set.
    void OnIdle();

protected:
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
    void ShowMenuSet();
    void ShowToolbar(MenuSet set);
    void SwitchMode(bool mindMap);
    void FillRecentFiles();
    void FillWindowList(QMenu* menu);
    void OpenRecent(int index);
    void ChooseAndOpen();
    void StartConverter();
    void OpenManual();
    void ShowAbout();
    std::unique_ptr<CVeltoDoc> MakeDocument() const;
    CChildFrame* AddChild(std::unique_ptr<CVeltoDoc> doc, bool fromFile);
    CChildFrame* FindDocument(const QString& fileKey) const;
    MenuSet WantedMenuSet() const;
    std::vector<CommandTarget*> RoutingChain();

    Desktop& m_desktop;
    SettingsStore& m_settings;
    RecentFileList& m_recent;
    ShellState m_state;
    bool m_wasMaximized = false;
    QMdiArea* m_mdi;
    QToolBar* m_toolBar = nullptr;
    QLabel* m_statusPane = nullptr;
    CommandRouter m_router;
    std::unique_ptr<ActionSet> m_actions;
    std::map<MenuSet, MenuBarMenus> m_menuSets;
    MenuSet m_shownSet = MenuSet::NoDocument;
    bool m_menuShown = false;
    CommandMap m_commands;
    QList<QAction*> m_windowActions;
    ViewFactory m_viewFactory;
    QTimer m_idle;
};
