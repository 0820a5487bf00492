#include "view/CVeltoView.h"

#include "view/ChartPrinting.h"

#include "base/CommandIds.h"
#include "base/CommandTable.h"
#include "base/Cp1252Text.h"
#include "base/ProjectFiles.h"
#include "base/ShellState.h"
#include "chart/CGrafik.h"
#include "common/Prompter.h"
#include "dialogs/CAlarmDlg.h"
#include "dialogs/CCostReportDlg.h"
#include "dialogs/CHoursReportDlg.h"
#include "dialogs/NodeDialogs.h"
#include "files/ClockJournal.h"
#include "files/DataDir.h"
#include "model/NodeList.h"
#include "model/NumberFormat.h"
#include "view/AlarmBell.h"
#include "view/CNotePane.h"
#include "view/CalendarExport.h"
#include "view/ChartPrinting.h"
#include "view/NodeFinders.h"

#include <QAction>
#include <QApplication>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QVBoxLayout>

#include <algorithm>
#include <array>

namespace velto {

namespace {
// The items of the node context menu; 0 is a separator. Menu 154 leaves out those of tasks only.
constexpr std::array kNodeMenu = {
    cmd::NodeDone,  0, cmd::NodeBold, cmd::NodeItalic, cmd::NodeUnderline, cmd::NodeStrikeOut,
    cmd::NodeColor, 0, cmd::ClockIn,  cmd::ClockOut,
};

bool IsTaskOnlyItem(int id) {
    return id == cmd::NodeDone || id == cmd::ClockIn || id == cmd::ClockOut;
}

QString Stamp(const CTime& time) {
    return QString::fromStdString(time.Format("%d.%m.%y / %H:%M "));
}

// The four format toggles of a node.
constexpr std::array<std::pair<int, int CProjectNode::*>, 4> kFormatFlags = {{
    {cmd::NodeBold, &CProjectNode::m_bBold},
    {cmd::NodeItalic, &CProjectNode::m_bItalic},
    {cmd::NodeUnderline, &CProjectNode::m_bUnderline},
    {cmd::NodeStrikeOut, &CProjectNode::m_bStrikeOut},
}};

bool IsFormatToggle(int id) {
    return std::any_of(kFormatFlags.begin(), kFormatFlags.end(),
                       [id](const auto& entry) { return entry.first == id; });
}

// A zoom read from a file may lie outside the range; a step never moves it further out and never
// pulls it in by more than the one step.
int SteppedZoom(int zoom, int step) {
    const bool inside = step < 0 ? zoom > CVeltoView::kMinZoom : zoom < CVeltoView::kMaxZoom;
    return inside ? zoom + step : zoom;
}

// Activates the project window titled title, looking at each window once, so that a window closed
// meanwhile or a title no window has any more cannot keep the search going.
void ActivateProjectWindow(const QWidget& view, const QString& title) {
    QMdiArea* area = nullptr;
    for (QWidget* parent = view.parentWidget(); parent && !area; parent = parent->parentWidget())
        area = qobject_cast<QMdiArea*>(parent);
    if (!area)
        return;
    for (QMdiSubWindow* window : area->subWindowList()) {
        if (window->windowTitle().remove(QStringLiteral("[*]")) == title) {
            area->setActiveSubWindow(window);
            return;
        }
    }
}

// Brings a window back from the task bar as it was before (maximized or not).
void Restore(QWidget& window) {
    window.setWindowState((window.windowState() & ~Qt::WindowMinimized) | Qt::WindowActive);
}
} // namespace

CVeltoView::CVeltoView(CVeltoDoc& doc, const ShellState& shell, ViewContext context, QWidget* parent)
    : QWidget(parent), m_doc(doc), m_shell(shell), m_context(std::move(context)), m_chart(new CGrafik(this)),
      m_notePane(new CNotePane(doc, doc.GetPrompter(), m_chart)), m_clock(&CTime::GetCurrentTime),
      m_bell(std::make_unique<DesktopAlarmBell>(AlarmSoundFile())),
      m_finders(std::make_unique<NodeFinders>(*this)) {
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_chart);
    m_chart->setObjectName(QStringLiteral("chart130"));
    m_chart->SetHost(this);
    m_chart->SetOptions(m_context.chart);
    m_chart->SetHolidays(m_context.holidays);
    m_chart->SetNotePane(m_notePane);
    m_notePane->SetReadOnly(m_doc.m_bReadOnly);
    m_chart->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(m_chart, &QWidget::customContextMenuRequested, this, &CVeltoView::ShowContextMenu);
    setFocusProxy(m_chart);

    m_doc.AddObserver(this);
    m_doc.SetClockOutHandler([this](CProjectNode& node) { ClockOutNode(node); });
    m_reminderTimer.setObjectName(QStringLiteral("minuteTimer"));
    m_reminderTimer.setInterval(kReminderPeriodMs);
    connect(&m_reminderTimer, &QTimer::timeout, this, &CVeltoView::OnMinuteTimer);
    SetLayout({m_doc.m_view.chartWidth1, m_doc.m_view.chartWidth2, int(m_doc.m_view.zoom)});
    m_notePane->ShowNode(Current());
    RegisterCommands();
}

CVeltoView::~CVeltoView() {
    // The alarm window talks to members that go before the widget's children.
    delete m_alarm;
    m_doc.SetClockOutHandler({});
    m_doc.RemoveObserver(this);
    m_chart->DetachDocument();
}

void CVeltoView::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    Redraw();
    m_finders->OnViewShown();
}

void CVeltoView::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    // The reminders are checked from the view's first sizing on.
    if (!m_reminderTimer.isActive())
        m_reminderTimer.start();
}

void CVeltoView::SetClock(std::function<CTime()> clock) {
    m_clock = clock;
    m_chart->SetClock(std::move(clock));
}

void CVeltoView::SetAlarmBell(std::unique_ptr<AlarmBell> bell) {
    m_bell = std::move(bell);
}

CProjectNode* CVeltoView::Current() const {
    return CurrentNode(m_doc.m_pFirstNode);
}

// ---- layout values of the file ----

ViewLayout CVeltoView::GetLayout() const {
    return {m_chart->ChartWidth1(), m_chart->ChartWidth2(), m_chart->FontSize()};
}

void CVeltoView::SetLayout(const ViewLayout& layout) {
    m_chart->SetChartWidth1(layout.chartWidth1);
    m_chart->SetChartWidth2(layout.chartWidth2);
    m_chart->SetFontSize(layout.zoom);
    // A file may hold 5..50; the zoom commands only step while inside 10..30, so take it as it is.
    m_mindMapZoom = layout.zoom;
}

int CVeltoView::ChartZoom() const {
    return m_chart->FontSize();
}

// ---- routing ----

void CVeltoView::RegisterCommands() {
    using Guard = CommandMap::Guard;
    CommandMap& c = m_commands;
    c.Add(cmd::ZoomOut, [this] { Zoom(-1); });
    c.Add(cmd::ZoomIn, [this] { Zoom(+1); });
    c.Add(cmd::WidthDown, [this] { ChangeWidth(-kWidthStep); });
    c.Add(cmd::WidthUp, [this] { ChangeWidth(+kWidthStep); });
    c.Add(cmd::CollapseAll, [this] { CollapseAll(); });
    c.Add(cmd::ExpandAll, [this] { ExpandAll(); });
    c.Add(cmd::BackupTree, [this] { TakeUndoCopy(); });
    c.Add(cmd::SortByDate, [this] { SortByDate(); });
    c.Add(cmd::EditCopy, [this] { m_chart->OnEditCopy(); });
    c.Add(cmd::EditCut, [this] { m_chart->OnEditCut(); });
    c.Add(cmd::EditPaste, [this] { m_chart->OnEditPaste(); });
    c.Add(cmd::NextPane, [this] { SwitchPane(); });
    c.Add(cmd::PrevPane, [this] { SwitchPane(); });
    c.Add(
        cmd::EditUndo, [this] { Undo(); }, [this](CommandState& s) { s.enabled = m_doc.m_pBackupFirst; });
    c.Add(
        cmd::ToggleCosts, [this] { ToggleCosts(); }, [this](CommandState& s) { s.checked = m_showCosts; });
    c.Add(cmd::StatusNodeInfo, {}, [this](CommandState& s) {
        const CProjectNode* current = Current();
        s.text = current ? NodeInfoLine(*current, m_showCosts) : QString();
    });

    // The tree commands find the selected node themselves and do nothing without one; checking
    // first would walk a large list twice.
    const auto needsNode = [this](CommandState& s) { s.enabled = Current() != nullptr; };
    c.Add(
        cmd::NewNode, [this] { NewNode(); }, needsNode);
    c.Add(
        cmd::EditNode, [this] { EditNode(); }, needsNode);
    c.Add(
        cmd::DeleteNode, [this] { DeleteNode(); }, needsNode);
    c.Add(
        cmd::NodeColor, [this] { ChooseNodeColour(); }, needsNode, Guard::WhenEnabled);
    for (const auto& [id, flag] : kFormatFlags) {
        c.Add(
            id, [this, flag = flag] { ToggleFlag(flag); },
            [this, flag = flag](CommandState& s) {
                const CProjectNode* node = Current();
                s.enabled = node != nullptr;
                s.checked = node && node->*flag;
            },
            Guard::WhenEnabled);
    }
    const auto task = [this]() -> const CProjectNode* {
        const CProjectNode* node = Current();
        return node && node->m_nKind == kKindTask ? node : nullptr;
    };
    c.Add(
        cmd::NodeDone, [this] { ToggleDone(); },
        [task](CommandState& s) {
            const CProjectNode* node = task();
            s.enabled = node != nullptr;
            s.checked = node && node->m_bDone;
        },
        Guard::WhenEnabled);
    c.Add(
        cmd::ClockIn, [this] { ClockIn(); },
        [task](CommandState& s) {
            const CProjectNode* node = task();
            s.enabled = node && !node->m_bClockedIn;
        },
        Guard::WhenEnabled);
    c.Add(
        cmd::ClockOut, [this] { ClockOut(); },
        [task](CommandState& s) {
            const CProjectNode* node = task();
            s.enabled = node && node->m_bClockedIn;
        },
        Guard::WhenEnabled);

    c.Add(
        cmd::GoToAlarmNode, [this] { GoToAlarmNode(); },
        [this](CommandState& s) { s.enabled = m_alarmNode.IsFollowing(); }, Guard::WhenEnabled);
    m_finders->RegisterCommands(c);

    // The reports read the project as it is and never change it.
    c.Add(cmd::HoursReport,
          [this] { CHoursReportDlg(m_doc.m_pFirstNode, m_doc.GetPrompter(), this).exec(); });
    c.Add(cmd::CostReport, [this] { CCostReportDlg(m_doc.m_pFirstNode, m_doc.GetPrompter(), this).exec(); });
    c.Add(cmd::ExportCalendar, [this] { velto::ExportCalendar(this, m_doc); });

    for (const auto& [id, mode] :
         {std::pair{cmd::FilePrint, PrintMode::Dialog}, std::pair{cmd::FilePrintDirect, PrintMode::Direct},
          std::pair{cmd::FilePrintPreview, PrintMode::Preview}})
        c.Add(id,
              [this, mode = mode] { PrintChart(this, *m_chart, m_doc.GetPrompter(), m_showsMindMap, mode); });
}

bool CVeltoView::OnUpdateCommand(int id, CommandState& state) {
    // The note's commands, and edit commands while the note has the focus, are the pane's.
    return m_notePane->OnUpdateCommand(id, state) || m_commands.OnUpdateCommand(id, state);
}

bool CVeltoView::OnCommand(int id) {
    return m_notePane->OnCommand(id) || m_commands.OnCommand(id);
}

void CVeltoView::OnDocumentUpdated(CVeltoDoc&) {
    // A node deleted under the open alarm takes the alarm with it; an undo that brings it back
    // brings its reminder back, which rings again on the next tick.
    if (m_alarm && !m_alarmNode.Find(m_doc.m_pFirstNode))
        CloseAlarm();
    m_finders->OnDocumentUpdated();
    // The chart observes the document itself and reindexes on its next redraw. The pane follows
    // the selection once the command is through: a command may update the views more than once,
    // and by then the chart's fresh row index knows the selected node without a walk of the list.
    if (m_noteFollowPending)
        return;
    m_noteFollowPending = true;
    QMetaObject::invokeMethod(this, &CVeltoView::ShowSelectedNote, Qt::QueuedConnection);
}

void CVeltoView::ShowSelectedNote() {
    m_noteFollowPending = false;
    // A save under a new name may have made a read-only project writable.
    m_notePane->SetReadOnly(m_doc.m_bReadOnly);
    m_notePane->ShowNode(m_chart->SelectedNode());
}

void CVeltoView::SaveNote() {
    m_notePane->SaveNote();
}

// ---- drawing ----

void CVeltoView::Redraw() {
    m_showsMindMap = m_shell.mindMapMode;
    m_chart->SetMindMapMode(m_showsMindMap);
    m_chart->SetMindMapFontSize(m_mindMapZoom);
    // The map hides the note pane; back on the timeline it is the view that shows it again.
    if (!m_showsMindMap)
        m_notePane->show();
    m_notePane->SetToolbarVisible(m_shell.noteToolbar);
    m_chart->ZeichneAllesNeu();
}

void CVeltoView::AfterDisplayChange() {
    m_doc.UpdateAllViews();
    m_chart->ZeichneAllesNeu();
}

void CVeltoView::AfterChange() {
    m_doc.UpdateAllViews();
    m_chart->ZeichneAllesNeu();
    m_doc.SetModifiedFlag();
}

void CVeltoView::StampChange(CProjectNode& node) {
    node.m_timeChanged = CTime::GetCurrentTime();
}

// ---- the commands ----

void CVeltoView::Zoom(int step) {
    if (m_showsMindMap)
        m_mindMapZoom = SteppedZoom(m_mindMapZoom, step);
    else
        m_chart->SetFontSize(SteppedZoom(m_chart->FontSize(), step));
    Redraw();
}

void CVeltoView::ChangeWidth(int step) {
    m_chart->SetChartWidth1(m_chart->ChartWidth1() + step);
    Redraw();
}

void CVeltoView::NewNode() {
    if (CreateChildNode(m_doc.m_pFirstNode, m_doc.DefaultNote(), m_doc.GetPrompter(),
                        [this] { TakeUndoCopy(); }))
        AfterChange();
    m_chart->ScrollToSelection();
}

void CVeltoView::EditNode() {
    if (CProjectNode* node = Current(); node && EditNodeOfDocument(this, m_doc, *node, m_doc.GetPrompter()))
        m_chart->ZeichneAllesNeu();
}

void CVeltoView::DeleteNode() {
    if (DeleteCurrentNode(m_doc.m_pFirstNode, m_doc.GetPrompter(), [this] { TakeUndoCopy(); }))
        AfterChange();
}

void CVeltoView::CollapseAll() {
    CollapseAllProjects(m_doc.m_pFirstNode);
    // The rows start at the top again; the calendar keeps its day, since collapsing the outline is
    // no reason to lose the user's place in time.
    m_chart->OnVScroll(CGrafik::ScrollCode::ThumbPosition, 0);
    AfterDisplayChange();
}

void CVeltoView::ExpandAll() {
    ExpandAllProjects(m_doc.m_pFirstNode);
    // As for collapsing, the calendar keeps its day: the outline changed, not the time looked at.
    m_chart->OnVScroll(CGrafik::ScrollCode::ThumbPosition, 0);
    AfterDisplayChange();
}

void CVeltoView::TakeUndoCopy() {
    // The copy must hold what was typed into the note so far.
    SaveNote();
    m_doc.BackupTree();
}

void CVeltoView::Undo() {
    SaveNote();
    if (!m_doc.Undo())
        return;
    RecomputeVisibility(m_doc.m_pFirstNode);
    AfterChange();
    m_chart->ScrollToSelection();
}

void CVeltoView::SortByDate() {
    TakeUndoCopy();
    SortSiblingsByDate(m_doc.m_pFirstNode, m_context.sortByDue, m_sortAscending);
    m_sortAscending = !m_sortAscending;
    AfterChange();
}

void CVeltoView::ToggleCosts() {
    m_showCosts = !m_showCosts;
    ChartOptions options = m_chart->Options();
    options.showCosts = m_showCosts;
    m_chart->SetOptions(options);
    AfterDisplayChange();
}

void CVeltoView::ToggleFlag(int CProjectNode::*flag) {
    CProjectNode* node = Current();
    node->*flag = !(node->*flag);
    StampChange(*node);
    AfterChange();
}

void CVeltoView::ToggleDone() {
    CProjectNode* node = Current();
    node->m_bDone = !node->m_bDone;
    if (node->m_bDone)
        node->m_timeDone = CTime::GetCurrentTime();
    StampChange(*node);
    AfterChange();
}

void CVeltoView::ChooseNodeColour() {
    CProjectNode* node = Current();
    const auto choose = m_context.chooseColour ? m_context.chooseColour : &ChooseColourWithDialog;
    const std::optional<int> colour = choose(this, node->m_crColor);
    if (!colour)
        return;
    node->m_crColor = *colour;
    StampChange(*node);
    AfterChange();
}

void CVeltoView::ClockIn() {
    CProjectNode* node = Current();
    node->m_bClockedIn = 1;
    node->m_timeClockIn = CTime::GetCurrentTime();
    // The running clock is not saved, so the document stays unmodified; the journal keeps it.
    RecordRunningClock(*node);
    m_chart->ZeichneAllesNeu();
}

// A document that was never saved has no path to find the clock again by.
void CVeltoView::RecordRunningClock(const CProjectNode& node) {
    if (m_doc.GetPathName().empty())
        return;
    EnsureDataDirectory();
    const std::string journal = ClockJournalPath();
    WarnIfJournalNotSaved(journal,
                          RecordClock(journal, ClockOfNode(m_doc.GetPathName(), m_doc.m_pFirstNode, node)));
}

// A journal that cannot be written would offer a clock back that was booked, or lose one that runs.
void CVeltoView::WarnIfJournalNotSaved(const std::string& journal, const SaveOutcome& saved) {
    if (!saved)
        m_doc.GetPrompter().Tell(CannotSaveDataFileMessage(journal, saved.error), Prompter::kCaption,
                                 PromptIcon::Warning);
}

void CVeltoView::ClockOut() {
    ClockOutNode(*Current());
}

void CVeltoView::ClockOutNode(CProjectNode& node) {
    const RunningClock clock = ClockOfNode(m_doc.GetPathName(), m_doc.m_pFirstNode, node);
    ClockOutNodeOfDocument(this, m_doc, node, m_doc.GetPrompter());
    const std::string journal = ClockJournalPath();
    WarnIfJournalNotSaved(journal, ForgetClock(journal, clock));
    m_chart->ZeichneAllesNeu();
}

void CVeltoView::OfferEndedClocks() {
    const std::string journal = ClockJournalPath();
    for (const RunningClock& clock : EndedClocksOf(ReadClockJournal(journal), m_doc.GetPathName())) {
        CProjectNode* node = FindClockedNode(m_doc.m_pFirstNode, clock.node);
        if (!node)
            m_doc.GetPrompter().Tell(EndedClockNotFound(clock), Prompter::kCaption, PromptIcon::Warning);
        else if (m_doc.GetPrompter().AskYesNo(Prompter::kCaption, EndedClockQuestion(clock))) {
            node->m_bClockedIn = 1;
            node->m_timeClockIn = clock.clockIn;
            ClockOutNodeOfDocument(this, m_doc, *node, m_doc.GetPrompter());
        }
        WarnIfJournalNotSaved(journal, ForgetClock(journal, clock));
    }
    m_chart->ZeichneAllesNeu();
}

void CVeltoView::SwitchPane() {
    if (m_notePane->EditorHasFocus() || !m_notePane->isVisible())
        m_chart->setFocus(Qt::TabFocusReason);
    else
        m_notePane->FocusEditor();
}

void CVeltoView::OnMinuteTimer() {
    // Today's column and the late marks follow the clock, also past midnight; the late marks are
    // worked out when the rows are indexed, so the index is rebuilt.
    m_chart->InvalidateRows();
    Redraw();
    CheckReminders();
}

// ---- reminders and the alarm ----

void CVeltoView::CheckReminders() {
    if (m_alarm)
        return;
    if (CProjectNode* due = LastDueReminder(m_doc.m_pFirstNode, m_clock()))
        RaiseAlarm(*due);
}

void CVeltoView::RaiseAlarm(CProjectNode& node) {
    // Asked before the alarm window takes the focus: is another program in front?
    const bool elsewhere = QApplication::activeWindow() == nullptr;
    m_alarmNode.Follow(m_doc.m_pFirstNode, node);
    const QString title = ToQString(node.m_strTitle);
    const QString project = FromCoreText(m_doc.GetTitle());
    m_alarm = new CAlarmDlg(title, project, m_doc.GetPrompter(), this);
    connect(m_alarm, &CAlarmDlg::SwitchOffChosen, this, &CVeltoView::SwitchAlarmOff);
    connect(m_alarm, &CAlarmDlg::SnoozeChosen, this, &CVeltoView::SnoozeAlarm);
    connect(m_alarm, &CAlarmDlg::GoToChosen, this, &CVeltoView::GoToAlarm);
    connect(m_alarm, &QDialog::finished, this, &CVeltoView::CloseAlarm);
    m_alarm->show();
    if (window()->isMinimized())
        Restore(*window());
    m_bell->Ring();
    if (elsewhere)
        m_bell->Notify(m_alarm->windowTitle(), title, [this] { BringForward(); });
}

// The reminder is saved with the project, so a changed one marks it modified, read-only or not.
void CVeltoView::SwitchAlarmOff() {
    if (CProjectNode* node = m_alarmNode.Find(m_doc.m_pFirstNode)) {
        node->m_timeReminder = CTime();
        AfterChange();
    }
}

void CVeltoView::SnoozeAlarm(int seconds) {
    if (CProjectNode* node = m_alarmNode.Find(m_doc.m_pFirstNode)) {
        node->m_timeReminder = m_clock() + seconds;
        AfterChange();
    }
}

void CVeltoView::GoToAlarm() {
    ActivateProjectWindow(*this, m_alarm->ProjectTitle());
    OnCommand(cmd::GoToAlarmNode);
}

void CVeltoView::GoToAlarmNode() {
    CProjectNode* node = m_alarmNode.Find(m_doc.m_pFirstNode);
    const std::optional<int> row = node ? ShowAlarmNode(m_doc.m_pFirstNode, node) : std::nullopt;
    m_doc.UpdateAllViews();
    if (!row) {
        m_doc.GetPrompter().Tell("Alarmknoten nicht gefunden!", Prompter::kCaption, PromptIcon::Warning);
        return;
    }
    m_chart->OnVScroll(CGrafik::ScrollCode::ThumbPosition, *row);
    m_doc.SetModifiedFlag();
}

void CVeltoView::CloseAlarm() {
    m_alarmNode.Forget();
    m_bell->Withdraw();
    if (CAlarmDlg* alarm = m_alarm) {
        m_alarm = nullptr;
        alarm->disconnect(this);
        alarm->hide();
        alarm->deleteLater();
    }
}

void CVeltoView::BringForward() {
    Restore(*window());
    window()->raise();
    window()->activateWindow();
    if (m_alarm) {
        m_alarm->raise();
        m_alarm->activateWindow();
    }
}

// ---- note pane ----

bool CVeltoView::NotePaneHasFocus() const {
    return m_notePane->EditorHasFocus();
}

void CVeltoView::PasteIntoNotePane() {
    m_notePane->OnCommand(cmd::EditPaste); // saves the note at once
}

// ---- context menu ----

QMenu* CVeltoView::CreateNodeMenu(QWidget* parent) {
    auto* menu = new QMenu(parent);
    const CProjectNode* node = Current();
    const bool forTask = node && node->m_nKind == kKindTask;
    menu->setObjectName(forTask ? QStringLiteral("menu140") : QStringLiteral("menu154"));
    for (int id : kNodeMenu) {
        if (id == 0) {
            if (!menu->isEmpty() && !menu->actions().last()->isSeparator())
                menu->addSeparator();
            continue;
        }
        if (!forTask && IsTaskOnlyItem(id))
            continue;
        const CommandInfo* info = FindCommand(id);
        QAction* action = menu->addAction(QString::fromUtf8(info->label));
        action->setStatusTip(QString::fromUtf8(info->prompt).section(QLatin1Char('\n'), 0, 0));
        CommandState state;
        m_commands.OnUpdateCommand(id, state);
        action->setEnabled(state.enabled);
        action->setCheckable(IsFormatToggle(id) || id == cmd::NodeDone);
        action->setChecked(state.checked);
        connect(action, &QAction::triggered, this, [this, id] { m_commands.OnCommand(id); });
    }
    if (menu->actions().last()->isSeparator())
        menu->removeAction(menu->actions().last());
    return menu;
}

void CVeltoView::ShowContextMenu(const QPoint& pos) {
    if (!m_chart->SelectNodeAt(pos))
        return;
    QMenu* menu = CreateNodeMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->popup(m_chart->mapToGlobal(pos));
}

// ---- status pane ----

QString CVeltoView::NodeInfoLine(const CProjectNode& node, bool costs) {
    const QString separator = QStringLiteral("  |  ");
    QString line = QStringLiteral("Erstellt: ") + Stamp(node.m_timeCreated) + separator +
                   QString::fromUtf8("Letzte Änderung: ") + Stamp(node.m_timeChanged);
    if (node.m_nKind == kKindTask && node.m_bDone)
        line += separator + QStringLiteral("Erledigt am: ") + Stamp(node.m_timeDone);
    // The operands are taken in opposite order for hours and costs on purpose.
    const double balance = costs ? double(node.m_fCostNeeded) - double(node.m_fCostPlanned)
                                 : double(node.m_fHoursPlanned) - double(node.m_fHoursNeeded);
    line += separator + QString::fromStdString(numfmt::FormatFixed2(balance)) +
            (costs ? QString::fromUtf8("€") : QStringLiteral("h"));
    return line;
}

} // namespace velto
