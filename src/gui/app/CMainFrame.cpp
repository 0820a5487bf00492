#include "app/CMainFrame.h"

#include "VeltoVersion.h"
#include "app/CChildFrame.h"
#include "app/RecentFileList.h"
#include "app/WindowPlacement.h"
#include "base/ActionSet.h"
#include "base/CommandIds.h"
#include "base/DataFiles.h"
#include "base/Desktop.h"
#include "base/Icons.h"
#include "base/Settings.h"
#include "common/Prompter.h"
#include "view/CVeltoView.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QDir>
#include <QLabel>
#include <QMdiArea>
#include <QMenuBar>
#include <QMimeData>
#include <QStatusBar>
#include <QToolBar>
#include <QTranslator>

namespace velto {

namespace {
constexpr int kIdleIntervalMs = 200;
constexpr qsizetype kRecentLabelLength = 60;

// "&1 /path/to/file.VT5", shortened in the middle of long paths; '&' in a name is shown as itself.
QString RecentLabel(int index, const QString& path) {
    QString shown = QDir::toNativeSeparators(path);
    if (shown.size() > kRecentLabelLength)
        shown = shown.left(12) + QString::fromUtf8("…") + shown.right(kRecentLabelLength - 13);
    shown.replace(QLatin1Char('&'), QStringLiteral("&&"));
    return QStringLiteral("&%1 %2").arg(index + 1).arg(shown);
}

QString Text(const char* utf8) {
    return QString::fromUtf8(utf8);
}

void ForEachMenu(QMenu* menu, const std::function<void(QMenu*)>& visit) {
    visit(menu);
    for (QAction* action : menu->actions())
        if (QMenu* sub = action->menu())
            ForEachMenu(sub, visit);
}
// Qt names a maximised MDI window in the main window's title as "Velto - [Plan.VT5]", taking the
// title it finds as the base. Its two texts are ours here, so that it writes "Velto - Plan.VT5" and
// finds that a title RefreshTitle set already names the window, rather than adding it once more.
class MdiTitleTexts : public QTranslator {
public:
    QString translate(const char* context, const char* source, const char*, int) const override {
        if (qstrcmp(context, "QMdiSubWindow") != 0)
            return {};
        if (qstrcmp(source, "%1 - [%2]") == 0)
            return QStringLiteral("%1 - %2");
        if (qstrcmp(source, "- [%1]") == 0)
            return QStringLiteral("- %1");
        return {};
    }
    bool isEmpty() const override { return false; }
};

} // namespace

CMainFrame::CMainFrame(Desktop& desktop, SettingsStore& settings, RecentFileList& recent)
    : m_desktop(desktop), m_settings(settings), m_recent(recent), m_mdi(new QMdiArea(this)),
      m_documents(*this, *m_mdi, desktop, settings, recent),
      m_router([this] { return RoutingChain(); }, this),
      m_actions(std::make_unique<ActionSet>(*this, m_router)),
      m_titleTexts(std::make_unique<MdiTitleTexts>()) {
    QCoreApplication::installTranslator(m_titleTexts.get());
    setWindowTitle(QStringLiteral("Velto"));
    setWindowIcon(AppIcon());
    setCentralWidget(m_mdi);
    setAcceptDrops(true);
    m_mdi->setActivationOrder(QMdiArea::ActivationHistoryOrder);
    for (int i = 0; i < cmd::RecentFileCount; ++i)
        m_actions->Dynamic(cmd::FileMru1 + i, Text("Öffnet dieses Projekt."));
    RegisterCommands();
    CreateBars();
    CreateMenuSets();
    RestorePlacement();
    ShowMenuSet();
    connect(m_mdi, &QMdiArea::subWindowActivated, this, [this] {
        ShowMenuSet();
        RefreshTitle();
    });
    connect(&m_idle, &QTimer::timeout, this, &CMainFrame::OnIdle);
    m_idle.start(kIdleIntervalMs);
}

CMainFrame::~CMainFrame() {
    // The project windows go before the router and the actions they are routed through, and the MDI
    // area must not report activations to a frame that is half gone.
    m_idle.stop();
    m_mdi->disconnect(this);
    QCoreApplication::removeTranslator(m_titleTexts.get());
    for (CChildFrame* child : Children())
        delete child;
}

QAction* CMainFrame::Action(int id) {
    return m_actions->Get(id);
}

void CMainFrame::CreateBars() {
    m_toolBar = addToolBar(Text("Symbolleiste"));
    m_toolBar->setObjectName(QStringLiteral("Symbolleiste"));
    ShowToolbar(MenuSet::Timeline);
    m_statusPane = new QLabel(this);
    m_statusPane->setObjectName(QStringLiteral("Knoteninfo"));
    statusBar()->addWidget(m_statusPane, 1);
}

void CMainFrame::CreateMenuSets() {
    for (MenuSet set : {MenuSet::NoDocument, MenuSet::Timeline, MenuSet::MindMap}) {
        MenuBarMenus menus = BuildMenus(set, *m_actions, this);
        connect(menus.recentFiles, &QMenu::aboutToShow, this, &CMainFrame::FillRecentFiles);
        if (QMenu* windows = menus.windows)
            connect(windows, &QMenu::aboutToShow, this, [this, windows] { FillWindowList(windows); });
        for (QMenu* menu : menus.menus)
            ForEachMenu(menu, [this](QMenu* m) { m_router.UpdateBeforeShow(m); });
        m_menuSets.emplace(set, std::move(menus));
    }
}

void CMainFrame::RestorePlacement() {
    SettingsSession settings = m_settings.Open();
    PlaceAsFirstStart();
    if (!settings.IsOpen())
        return;
    const auto left = settings.Find(setting::FrameLeft), top = settings.Find(setting::FrameTop);
    const auto right = settings.Find(setting::FrameRight), bottom = settings.Find(setting::FrameBottom);
    if (left && top && right && bottom) {
        const QScreen* screen = this->screen();
        const QRect virtualScreen = screen ? screen->virtualGeometry() : QRect(0, 0, 800, 600);
        PlaceFrame(MainFramePlacement(StoredRect{*left, *top, *right, *bottom}, virtualScreen));
    }
    // Only a stored 0 hides a bar or clears the flag; a missing value leaves them on.
    m_toolBar->setHidden(settings.Find(setting::ToolbarShown) == 0);
    statusBar()->setHidden(settings.Find(setting::StatusBarShown) == 0);
    m_state.noteToolbar = settings.Find(setting::NoteToolbarShown) != 0;
    m_wasMaximized = settings.Get(setting::FrameMaximized) == 1;
}

void CMainFrame::PlaceAsFirstStart() {
    const QScreen* screen = this->screen();
    if (!screen)
        return;
    const QRect available = screen->availableGeometry();
    QRect frame(QPoint(0, 0), available.size() * 0.85);
    frame.moveCenter(available.center());
    PlaceFrame(frame);
}

void CMainFrame::PlaceFrame(const QRect& frame) {
    // move() places a window by its frame, title bar included; the size is the inside's, and the
    // frame's own size is known only once the window shows.
    move(frame.topLeft());
    resize(frame.size());
    m_pendingFrameSize = frame.size();
    FitPendingFrame();
}

void CMainFrame::FitPendingFrame() {
    if (!m_pendingFrameSize || !isVisible() || isMaximized())
        return;
    const QSize border = frameGeometry().size() - geometry().size();
    // Without a frame yet (the window manager adds it later, or there is none) the next idle pass
    // looks again.
    if (border.isEmpty())
        return;
    resize(*m_pendingFrameSize - border);
    m_pendingFrameSize.reset();
}

void CMainFrame::showEvent(QShowEvent* event) {
    QMainWindow::showEvent(event);
    FitPendingFrame();
}

void CMainFrame::SavePlacement() {
    SettingsSession settings = m_settings.Open();
    if (!settings.IsOpen())
        return;
    // A maximized frame keeps the normal rectangle stored before.
    if (!isMaximized()) {
        const StoredRect rect = ToStoredRect(frameGeometry());
        settings.Set(setting::FrameLeft, rect[0]);
        settings.Set(setting::FrameTop, rect[1]);
        settings.Set(setting::FrameRight, rect[2]);
        settings.Set(setting::FrameBottom, rect[3]);
    }
    settings.Set(setting::FrameMaximized, isMaximized() ? 1 : 0);
    settings.Set(setting::ToolbarShown, m_toolBar->isHidden() ? 0 : 1);
    settings.Set(setting::StatusBarShown, statusBar()->isHidden() ? 0 : 1);
    settings.Set(setting::NoteToolbarShown, m_state.noteToolbar ? 1 : 0);
    settings.Commit();
}

MenuSet CMainFrame::WantedMenuSet() const {
    if (Children().isEmpty())
        return MenuSet::NoDocument;
    return m_state.mindMapMode ? MenuSet::MindMap : MenuSet::Timeline;
}

void CMainFrame::ShowMenuSet() {
    const MenuSet wanted = WantedMenuSet();
    if (m_menuShown && wanted == m_shownSet)
        return;
    menuBar()->clear();
    for (QMenu* menu : m_menuSets.at(wanted).menus)
        menuBar()->addMenu(menu);
    m_shownSet = wanted;
    m_menuShown = true;
}

void CMainFrame::ShowToolbar(MenuSet set) {
    const QList<QAction*> old = m_toolBar->actions();
    m_toolBar->clear();
    for (QAction* action : old)
        if (action->parent() == m_toolBar) // the separators
            delete action;
    for (int id : ToolbarCommands(set)) {
        if (id == 0)
            m_toolBar->addSeparator();
        else
            m_toolBar->addAction(Action(id));
    }
}

void CMainFrame::SwitchMode(bool mindMap) {
    ShowToolbar(mindMap ? MenuSet::MindMap : MenuSet::Timeline);
    m_state.mindMapMode = mindMap;
    // Every project window is drawn anew in the new mode, also when two share a title.
    for (CChildFrame* child : Children())
        child->GetView().Redraw();
    ShowMenuSet();
}

CChildFrame* CMainFrame::ActiveChild() const {
    return qobject_cast<CChildFrame*>(m_mdi->currentSubWindow());
}

QList<CChildFrame*> CMainFrame::Children() const {
    QList<CChildFrame*> out;
    for (QMdiSubWindow* window : m_mdi->subWindowList(QMdiArea::CreationOrder))
        if (auto* child = qobject_cast<CChildFrame*>(window))
            out.append(child);
    return out;
}

std::vector<CommandTarget*> CMainFrame::RoutingChain() {
    if (CChildFrame* child = ActiveChild())
        return {&child->GetView(), &child->Commands(), &m_commands};
    return {&m_commands};
}

void CMainFrame::RegisterCommands() {
    CommandMap& c = m_commands;
    c.Add(cmd::FileNew, [this] { m_documents.NewDocument(); });
    c.Add(cmd::FileOpen, [this] { m_documents.ChooseAndOpen(); });
    c.Add(cmd::AppExit, [this] { close(); });
    c.Add(cmd::AppAbout, [this] { ShowAbout(); });
    c.Add(cmd::ImportVt4, [this] { StartConverter(); });
    c.Add(cmd::Manual, [this] { OpenManual(); });
    c.Add(cmd::MindMapMode, [this] { SwitchMode(true); });
    c.Add(cmd::TimelineMode, [this] { SwitchMode(false); });
    c.Add(
        cmd::NoteToolbar,
        [this] {
            m_state.noteToolbar = !m_state.noteToolbar;
            if (CChildFrame* child = ActiveChild())
                child->GetView().Redraw();
        },
        [this](CommandState& state) { state.checked = m_state.noteToolbar; });
    c.Add(
        cmd::ViewToolbar, [this] { m_toolBar->setHidden(!m_toolBar->isHidden()); },
        [this](CommandState& state) { state.checked = !m_toolBar->isHidden(); });
    c.Add(
        cmd::ViewStatusBar, [this] { statusBar()->setHidden(!statusBar()->isHidden()); },
        [this](CommandState& state) { state.checked = !statusBar()->isHidden(); });
    const auto needsWindow = [this](CommandState& state) { state.enabled = !Children().isEmpty(); };
    c.Add(
        cmd::WindowCascade, [this] { m_mdi->cascadeSubWindows(); }, needsWindow);
    c.Add(
        cmd::WindowTile, [this] { m_mdi->tileSubWindows(); }, needsWindow);
    for (int index = 0; index < cmd::RecentFileCount; ++index)
        c.Add(
            cmd::FileMru1 + index, [this, index] { m_documents.OpenRecent(index); },
            [this, index](CommandState& state) { state.enabled = index < m_recent.Files().size(); },
            CommandMap::Guard::WhenEnabled);
    // The dialogs of the settings, holidays and assignees are set from outside the shell.
    for (int id : {cmd::SettingsNoDoc, cmd::Settings, cmd::Holidays, cmd::HolidaysNoDoc, cmd::Assignees})
        c.AddDisabled(id);
}

void CMainFrame::SetCommandHandler(int id, std::function<void()> handler) {
    m_commands.Add(id, std::move(handler));
}

void CMainFrame::FillRecentFiles() {
    const QStringList& files = m_recent.Files();
    for (int i = 0; i < cmd::RecentFileCount; ++i) {
        QAction* action = Action(cmd::FileMru1 + i);
        action->setVisible(i < files.size());
        if (i < files.size())
            action->setText(RecentLabel(i, files[i]));
    }
}

void CMainFrame::FillWindowList(QMenu* menu) {
    for (QAction* action : m_windowActions) {
        menu->removeAction(action);
        delete action;
    }
    m_windowActions.clear();
    const CChildFrame* active = ActiveChild();
    const QList<CChildFrame*> children = Children();
    for (int i = 0; i < children.size(); ++i) {
        QPointer<CChildFrame> child = children[i];
        QString title = child->windowTitle().remove(QStringLiteral("[*]")).replace('&', QStringLiteral("&&"));
        auto* action = menu->addAction(QStringLiteral("&%1 %2").arg(i + 1).arg(title));
        action->setObjectName(QStringLiteral("Fensterliste"));
        action->setCheckable(true);
        action->setChecked(child == active);
        connect(action, &QAction::triggered, this, [this, child] {
            if (child)
                m_mdi->setActiveSubWindow(child);
        });
        m_windowActions.append(action);
    }
}

void CMainFrame::StartConverter() {
#ifdef Q_OS_WIN
    const QString name = QStringLiteral("VT4_VT5.exe");
#else
    const QString name = QStringLiteral("VT4_VT5");
#endif
    const QString path = QDir(m_desktop.ProgramDir()).filePath(name);
    if (!QFileInfo::exists(path))
        m_desktop.Warn(
            Text("Das Umwandlungsprogramm\n%1\nwurde nicht gefunden.").arg(QDir::toNativeSeparators(path)));
    else if (!m_desktop.StartProgram(path))
        m_desktop.Warn(Text("Das Umwandlungsprogramm\n%1\nkonnte nicht gestartet werden.")
                           .arg(QDir::toNativeSeparators(path)));
}

void CMainFrame::OpenManual() {
    const QString path = ShippedFile(m_desktop.ProgramDir(), QStringLiteral("Velto.pdf"));
    if (!QFileInfo::exists(path))
        m_desktop.Warn(Text("Das Handbuch\n%1\nwurde nicht gefunden.").arg(QDir::toNativeSeparators(path)));
    else if (!m_desktop.OpenDocument(path))
        m_desktop.Warn(
            Text("Das Handbuch\n%1\nkonnte nicht geöffnet werden. Ist ein PDF-Betrachter installiert?")
                .arg(QDir::toNativeSeparators(path)));
}

void CMainFrame::ShowAbout() {
    m_desktop.GetPrompter().Tell(std::string("Velto ") + kVeltoVersion +
                                     "\n\nProjekte als Zeitplan oder Mind Map planen,\n"
                                     "Notizen, Stunden und Kosten erfassen.",
                                 "Info über Velto");
}

void CMainFrame::OnIdle() {
    m_router.UpdateAll();
    m_statusPane->setText(m_router.Query(cmd::StatusNodeInfo).text);
    for (CChildFrame* child : Children())
        child->RefreshTitle();
    RefreshTitle();
    ShowMenuSet();
    FitPendingFrame();
}

void CMainFrame::RefreshTitle() {
    // Qt sets the title itself while a project window is maximised; this answers its change.
    if (m_settingTitle)
        return;
    m_settingTitle = true;
    const CChildFrame* active = ActiveChild();
    const QString wanted =
        active ? QStringLiteral("Velto - ") + active->windowTitle() : QStringLiteral("Velto");
    if (windowTitle() != wanted)
        setWindowTitle(wanted);
    setWindowModified(active && active->isWindowModified());
    m_settingTitle = false;
}

bool CMainFrame::event(QEvent* event) {
    const bool handled = QMainWindow::event(event);
    if (event->type() == QEvent::WindowTitleChange)
        RefreshTitle();
    return handled;
}

void CMainFrame::closeEvent(QCloseEvent* event) {
    SavePlacement();
    if (m_documents.CloseAllDocuments())
        event->accept();
    else
        event->ignore();
}

void CMainFrame::dragEnterEvent(QDragEnterEvent* event) {
    const QList<QUrl> urls = event->mimeData()->urls();
    if (std::any_of(urls.begin(), urls.end(), [](const QUrl& url) { return url.isLocalFile(); }))
        event->acceptProposedAction();
}

void CMainFrame::dropEvent(QDropEvent* event) {
    for (const QUrl& url : event->mimeData()->urls())
        if (url.isLocalFile())
            m_documents.OpenDocumentFile(url.toLocalFile());
    event->acceptProposedAction();
}

} // namespace velto
