#pragma once
// The view of one project inside its window: hosts the timeline chart, runs the node commands of
// the menus, toolbar, keys and the node context menu on the selected node, keeps the one-level undo
// copy current before every change of the tree, and ends every change by updating all views,
// redrawing the chart and marking the document modified. Once a minute it checks the reminders and
// raises the alarm window of a due one.
#include "base/CommandMap.h"
#include "chart/ChartHost.h"
#include "document/CVeltoDoc.h"
#include "outline/Reminders.h"
#include "view/ViewContext.h"

#include <QPointer>
#include <QTimer>
#include <QWidget>

#include <functional>
#include <memory>

class QMenu;

namespace velto {

struct SaveOutcome;
struct ShellState;
class AlarmBell;
class CAlarmDlg;
class CGrafik;
class CNotePane;
class CProjectNode;
class NodeFinders;

// The view values a project file keeps.
struct ViewLayout {
    int chartWidth1 = 200;
    int chartWidth2 = 200;
    int zoom = 20;
};

class CVeltoView : public QWidget, public CommandTarget, public DocObserver, public ChartHost {
    Q_OBJECT
public:
    static constexpr int kMinZoom = 10;
    static constexpr int kMaxZoom = 30;
    static constexpr int kWidthStep = 10;
    static constexpr int kReminderPeriodMs = 60000;

    CVeltoView(CVeltoDoc& doc, const ShellState& shell, ViewContext context = {}, QWidget* parent = nullptr);

    // Offers the clocks of this project that a Velto left running when it ended: each is clocked
    // out through the dialog with its recorded begin, or discarded, and leaves the journal.
    void OfferEndedClocks();
    ~CVeltoView() override;

    CVeltoDoc& GetDocument() const { return m_doc; }
    CGrafik& Chart() const { return *m_chart; }
    CNotePane& NotePane() const { return *m_notePane; }
    // Writes what was typed into the note back into its node (before a save or a close).
    void SaveNote();

    // The clock of the reminders, of today's column and of the late marks; tests fix it.
    void SetClock(std::function<CTime()> clock);
    // What sounds and notifies when an alarm is raised; tests put a quiet one here.
    void SetAlarmBell(std::unique_ptr<AlarmBell> bell);

    bool OnUpdateCommand(int id, CommandState& state) override;
    bool OnCommand(int id) override;
    void OnDocumentUpdated(CVeltoDoc& doc) override;

    ViewLayout GetLayout() const;
    // Takes the values of a file just read: the zoom goes to the timeline and to the mind map.
    void SetLayout(const ViewLayout& layout);
    int ChartZoom() const;
    int MindMapZoom() const { return m_mindMapZoom; }
    bool ShowsCosts() const { return m_showCosts; }
    // The direction the next sort runs in.
    bool SortsAscending() const { return m_sortAscending; }

    // Draws everything anew in the mode the main frame shows.
    void Redraw();
    bool ShowsMindMap() const { return m_showsMindMap; }

    // The node context menu: menu 140 for a task, 154 (without "Erledigt" and the clock) otherwise.
    // Its items run this view's commands; the caller shows it.
    QMenu* CreateNodeMenu(QWidget* parent);

    // The text search and "Meine Aufgaben" with their dialogs.
    NodeFinders& Finders() const { return *m_finders; }

    // The status pane's node info line for the current node ("Erstellt: ..."), in hours or costs.
    static QString NodeInfoLine(const CProjectNode& node, bool costs);

    // ChartHost
    CVeltoDoc* Document() override { return &m_doc; }
    void TakeUndoCopy() override;
    void EditSelectedNode() override { EditNode(); }
    bool NotePaneHasFocus() const override;
    void PasteIntoNotePane() override;
    Prompter& ChartPrompter() override { return m_doc.GetPrompter(); }

protected:
    void showEvent(QShowEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    CProjectNode* Current() const;
    void RegisterCommands();

    void Zoom(int step);
    void ChangeWidth(int step);
    void NewNode();
    void EditNode();
    void DeleteNode();
    void CollapseAll();
    void ExpandAll();
    void Undo();
    void SortByDate();
    void ToggleCosts();
    void ToggleFlag(int CProjectNode::*flag);
    void ToggleDone();
    void ChooseNodeColour();
    void ClockIn();
    void ClockOut();
    void ClockOutNode(CProjectNode& node);
    void RecordRunningClock(const CProjectNode& node);
    void WarnIfJournalNotSaved(const std::string& journal, const SaveOutcome& saved);
    // F6 and Shift+F6: with two panes, both move the focus to the other one.
    void SwitchPane();
    void ShowContextMenu(const QPoint& pos);
    void OnMinuteTimer();
    void ShowSelectedNote();

    // The alarm: one window at a time, for the last node whose reminder was due at the tick.
    void CheckReminders();
    void RaiseAlarm(CProjectNode& node);
    void SwitchAlarmOff();
    void SnoozeAlarm(int seconds);
    // "Gehe zu": the project's window comes to the front, then the view goes to the node.
    void GoToAlarm();
    void GoToAlarmNode();
    void CloseAlarm();
    void BringForward();

    // The common ends of the commands: what changed the tree or a node, and what only changed
    // what is shown.
    void AfterChange();
    void AfterDisplayChange();
    void StampChange(CProjectNode& node);

    CVeltoDoc& m_doc;
    const ShellState& m_shell;
    ViewContext m_context;
    CGrafik* m_chart;
    CNotePane* m_notePane;
    QTimer m_reminderTimer{this};
    std::function<CTime()> m_clock;
    std::unique_ptr<AlarmBell> m_bell;
    QPointer<CAlarmDlg> m_alarm;
    NodeTracker m_alarmNode;
    bool m_noteFollowPending = false;
    int m_mindMapZoom = 20;
    bool m_showsMindMap = false;
    bool m_showCosts = false;
    // Earliest first on the first sort; every sort flips it.
    bool m_sortAscending = true;
    CommandMap m_commands;
    std::unique_ptr<NodeFinders> m_finders;
};

} // namespace velto
