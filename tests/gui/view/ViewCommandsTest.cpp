// The project view's commands: what they change, stamp and mark, what they refuse, the undo copy.
#include "base/CommandIds.h"
#include "base/ShellState.h"
#include "gui/app/ShellTestSupport.h" // MenuTexts
#include "gui/chart/ChartTestSupport.h"
#include "outline/NodeClipboard.h"
#include "text/RtfReader.h"
#include "view/CNotePane.h"
#include "view/CVeltoView.h"
#include "view/ViewContext.h"

#include <QTest>
#include <QTextEdit>
#include <QTimer>

namespace velto {

using namespace charttest;

namespace {

class ViewCommands : public ::testing::Test {
protected:
    ViewCommands() : doc(prompter) {
        NodeClipboard::Instance().Clear();
        doc.OnNewDocument();
        FreeNodeList(doc.m_pFirstNode);
        doc.m_pFirstNode = BuildList({{0, kKindProject, "R"},
                                      {1, kKindProject, "P", 0, 5},
                                      {2, kKindTask, "t1", 3, 3},
                                      {2, kKindTask, "t2", 1, 1},
                                      {2, kKindTask, "t3", 2, 2},
                                      {1, kKindNote, "N", -1, -1},
                                      {1, kKindMilestone, "M", 4, 4}});
        doc.SetModifiedFlag(false);
    }
    ~ViewCommands() override { NodeClipboard::Instance().Clear(); }

    CVeltoView& MakeView(ViewContext context = {}) {
        m_view = std::make_unique<CVeltoView>(doc, shell, std::move(context));
        m_view->resize(900, 500);
        return *m_view;
    }
    CommandState Query(int id) {
        CommandState state;
        EXPECT_TRUE(m_view->OnUpdateCommand(id, state)) << id;
        return state;
    }
    bool Run(int id, int times = 1) {
        bool taken = true;
        for (int i = 0; i < times; ++i)
            taken = m_view->OnCommand(id);
        return taken;
    }
    void Select(const std::string& title) { SelectOnly(doc.m_pFirstNode, Find(doc.m_pFirstNode, title)); }
    CProjectNode* Node(const std::string& title) { return Find(doc.m_pFirstNode, title); }
    std::string Selected() { return std::string(CurrentNode(doc.m_pFirstNode)->m_strTitle); }
    std::string Outline() { return charttest::Outline(doc.m_pFirstNode); }
    // The note pane follows the selection once the command's events are through.
    void ShowSelection() {
        doc.UpdateAllViews();
        QCoreApplication::sendPostedEvents();
    }
    void Type(const QString& text) {
        m_view->NotePane().Editor()->moveCursor(QTextCursor::End);
        m_view->NotePane().Editor()->insertPlainText(text);
    }

    ScriptedPrompter prompter;
    CVeltoDoc doc;
    ShellState shell;

private:
    std::unique_ptr<CVeltoView> m_view;
};

bool NoteHas(const CProjectNode* node, const std::string& text) {
    return rtf::PlainText(node->m_strNote).find(text) != std::string::npos;
}

TEST_F(ViewCommands, ZoomStaysInsideItsRangeInEachModeAndWidthHasNoBound) {
    CVeltoView& view = MakeView();
    Run(cmd::ZoomIn, 30);
    EXPECT_EQ(view.ChartZoom(), CVeltoView::kMaxZoom);
    EXPECT_EQ(view.MindMapZoom(), 20) << "the modes zoom apart";
    shell.mindMapMode = true;
    view.Redraw();
    Run(cmd::ZoomOut, 30);
    EXPECT_EQ(view.MindMapZoom(), CVeltoView::kMinZoom);
    EXPECT_EQ(view.Chart().MindMap().FontSize(), CVeltoView::kMinZoom) << "the map is laid out at its zoom";
    Run(cmd::WidthDown, 40);
    EXPECT_EQ(view.GetLayout().chartWidth1, 200 - 400);
    doc.m_view.zoom = 5; // from a file, outside the range: it only steps back towards it
    CVeltoView& fromFile = MakeView();
    fromFile.Redraw();
    Run(cmd::ZoomOut);
    EXPECT_EQ(fromFile.MindMapZoom(), 5);
    Run(cmd::ZoomIn);
    EXPECT_EQ(fromFile.MindMapZoom(), 6);
}

TEST_F(ViewCommands, NewAndDeleteAreUndoableAndTheirQuestionsAndRefusalsAreShown) {
    MakeView();
    EXPECT_FALSE(Query(cmd::EditUndo).enabled) << "no copy yet";
    Select("P");
    const std::string before = Outline();
    Run(cmd::NewNode);
    EXPECT_EQ(Selected(), "Neuer Knoten");
    EXPECT_TRUE(doc.IsModified());
    ASSERT_TRUE(Query(cmd::EditUndo).enabled);
    Run(cmd::EditUndo);
    EXPECT_EQ(Outline(), before);
    Select("t1");
    doc.SetModifiedFlag(false);
    Run(cmd::DeleteNode); // the script answers No
    EXPECT_FALSE(doc.IsModified());
    prompter.Answer(PromptAnswer::Yes);
    Run(cmd::DeleteNode);
    EXPECT_EQ(Outline(), "0:R 1:P 2:t2 2:t3 1:N 1:M");
    EXPECT_TRUE(doc.IsModified());
    Run(cmd::EditUndo);
    EXPECT_EQ(Outline(), before);
    Select("N");
    Run(cmd::NewNode);
    EXPECT_EQ(prompter.texts(),
              (std::vector<std::string>{"Möchten Sie den Knoten 't1' löschen?",
                                        "Möchten Sie den Knoten 't1' löschen?",
                                        "Neue Knoten sind nur unter Projektknoten möglich."}));
}

TEST_F(ViewCommands, SortAlternatesDirectionByTheConfiguredDate) {
    ViewContext byDue;
    byDue.sortByDue = true;
    Node("t1")->m_timeDue = Day(9); // t1 starts last but is due last too; t3 is due before t2
    Node("t2")->m_timeDue = Day(8);
    Node("t3")->m_timeDue = Day(7);
    MakeView(byDue);
    const std::string unsorted = Outline();
    Run(cmd::SortByDate);
    EXPECT_EQ(Outline(), "0:R 1:N 1:M 1:P 2:t3 2:t2 2:t1") << "ascending first, by due date";
    EXPECT_TRUE(doc.IsModified());
    Run(cmd::EditUndo);
    EXPECT_EQ(Outline(), unsorted) << "the undo copy is taken before sorting";
    Run(cmd::EditUndo);
    Run(cmd::SortByDate);
    EXPECT_EQ(Outline(), "0:R 1:P 2:t1 2:t2 2:t3 1:M 1:N");
}

TEST_F(ViewCommands, LateMarksFollowTheClockWithoutAClick) {
    CVeltoView& view = MakeView();
    CTime now = Day(1, 12); // t2 is due at the end of that day
    view.Chart().SetClock([&] { return now; });
    view.Redraw();
    ASSERT_EQ(Node("t2")->m_nRowAux, 0);
    now = Day(2, 0, 1);
    auto* timer = view.findChild<QTimer*>(QStringLiteral("minuteTimer"));
    ASSERT_TRUE(timer);
    timer->start(1);
    EXPECT_TRUE(QTest::qWaitFor([&] { return Node("t2")->m_nRowAux != 0; }, 2000));
}

TEST_F(ViewCommands, F6AndShiftF6MoveTheFocusBetweenChartAndNote) {
    CVeltoView& view = MakeView();
    view.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&view));
    view.Chart().setFocus();
    Run(cmd::NextPane);
    EXPECT_TRUE(view.NotePane().EditorHasFocus());
    Run(cmd::PrevPane);
    EXPECT_TRUE(view.Chart().hasFocus());
}

TEST_F(ViewCommands, CollapseAndExpandAllChangeTheOutlineButNotTheProject) {
    MakeView();
    Select("t2");
    Run(cmd::CollapseAll);
    EXPECT_FALSE(Node("P")->m_bVisible);
    Run(cmd::ExpandAll);
    EXPECT_TRUE(Node("t2")->m_bVisible);
    EXPECT_FALSE(doc.IsModified());
}

TEST_F(ViewCommands, FormatTogglesDoneAndColourStampTheNodeAndMarkTheDocument) {
    int offered = -1;
    std::optional<int> answer;
    ViewContext context;
    context.chooseColour = [&](QWidget*, int colour) {
        offered = colour;
        return answer;
    };
    MakeView(context);
    Select("t1");
    CProjectNode* node = Node("t1");
    node->m_crColor = 0x0000FF;
    const auto changes = [&](int id) {
        node->m_timeChanged = Day(-30);
        doc.SetModifiedFlag(false);
        Run(id);
        return node->m_timeChanged > Day(-30) && doc.IsModified();
    };
    EXPECT_FALSE(changes(cmd::NodeColor)) << "cancelled";
    EXPECT_EQ(offered, 0x0000FF);
    answer = 0x00FF00;
    EXPECT_TRUE(changes(cmd::NodeColor));
    EXPECT_EQ(node->m_crColor, 0x00FF00);
    for (int id : {cmd::NodeBold, cmd::NodeItalic, cmd::NodeUnderline, cmd::NodeStrikeOut, cmd::NodeDone}) {
        EXPECT_FALSE(Query(id).checked) << id;
        EXPECT_TRUE(changes(id)) << id;
        EXPECT_TRUE(Query(id).checked) << id;
    }
    EXPECT_TRUE(node->m_bBold && node->m_bItalic && node->m_bUnderline && node->m_bStrikeOut &&
                node->m_bDone);
    EXPECT_EQ(doc.m_pBackupFirst, nullptr) << "format changes take no undo copy";
}

TEST_F(ViewCommands, DoneAndTheClockAreForTasksOnly) {
    MakeView();
    Select("P");
    for (int id : {cmd::NodeDone, cmd::ClockIn, cmd::ClockOut})
        EXPECT_FALSE(Query(id).enabled) << id;
    Select("t2");
    CProjectNode* task = Node("t2");
    Run(cmd::NodeDone);
    const CTime doneAt = task->m_timeDone;
    EXPECT_GT(doneAt, Today() - 24 * 3600);
    Run(cmd::NodeDone);
    EXPECT_FALSE(task->m_bDone);
    EXPECT_EQ(task->m_timeDone, doneAt) << "undone keeps the time it was done";
    doc.SetModifiedFlag(false);
    EXPECT_FALSE(Query(cmd::ClockOut).enabled);
    const CTime before = CTime::GetCurrentTime();
    Run(cmd::ClockIn);
    EXPECT_TRUE(task->m_bClockedIn);
    EXPECT_GE(task->m_timeClockIn, before);
    EXPECT_FALSE(doc.IsModified()) << "a running clock is not saved";
    EXPECT_FALSE(Query(cmd::ClockIn).enabled);
    EXPECT_TRUE(Query(cmd::ClockOut).enabled);
}

TEST_F(ViewCommands, TheNodeInfoLineShowsStampsAndTheBalanceOfTheMode) {
    CProjectNode* node = Node("t1");
    node->m_timeCreated = CTime(2026, 1, 2, 3, 4, 0);
    node->m_timeChanged = CTime(2026, 2, 3, 14, 5, 0);
    node->m_timeDone = CTime(2026, 3, 4, 23, 59, 0);
    node->m_fHoursPlanned = 8;
    node->m_fHoursNeeded = 10.5f;
    node->m_fCostPlanned = 100;
    node->m_fCostNeeded = 40;
    const QString stamps =
        QString::fromUtf8("Erstellt: 02.01.26 / 03:04   |  Letzte Änderung: 03.02.26 / 14:05   |  ");
    MakeView();
    Select("t1");
    EXPECT_EQ(Query(cmd::StatusNodeInfo).text, stamps + "-2.50h");
    node->m_bDone = 1;
    Run(cmd::ToggleCosts);
    EXPECT_TRUE(Query(cmd::ToggleCosts).checked);
    EXPECT_EQ(Query(cmd::StatusNodeInfo).text,
              stamps + QString::fromUtf8("Erledigt am: 04.03.26 / 23:59   |  -60.00€"));
    node->m_nKind = kKindNote;
    EXPECT_FALSE(Query(cmd::StatusNodeInfo).text.contains("Erledigt")) << "for done tasks only";
}

TEST_F(ViewCommands, ATaskGetsTheFullContextMenuAndOtherNodesTheShortOne) {
    CVeltoView& view = MakeView();
    Select("t1");
    std::unique_ptr<QMenu> menu(view.CreateNodeMenu(nullptr));
    EXPECT_EQ(menu->objectName(), "menu140");
    EXPECT_EQ(MenuTexts(*menu).size(), 10);
    EXPECT_FALSE(menu->actions().last()->isEnabled()) << "not clocked in";
    menu->actions()[2]->trigger();
    EXPECT_TRUE(Node("t1")->m_bBold) << menu->actions()[2]->text().toStdString();
    Select("M");
    menu.reset(view.CreateNodeMenu(nullptr));
    EXPECT_EQ(menu->objectName(), "menu154");
    EXPECT_FALSE(MenuTexts(*menu).contains("-")) << "the formats only";
}

TEST_F(ViewCommands, EveryPrintCommandRefusesWithoutASelectedNodeBeforeAnyDialog) {
    MakeView();
    SelectOnly(doc.m_pFirstNode, nullptr);
    for (int id : {cmd::FilePrint, cmd::FilePrintDirect, cmd::FilePrintPreview}) {
        EXPECT_TRUE(Query(id).enabled) << id;
        EXPECT_TRUE(Run(id)) << id;
    }
    EXPECT_EQ(prompter.texts(), std::vector<std::string>(3, "Fehler Drucken!"));
}

TEST_F(ViewCommands, TheNoteFollowsTheSelectionAndWhatWasTypedReachesTheUndoCopy) {
    CVeltoView& view = MakeView();
    Select("t1");
    ShowSelection();
    EXPECT_EQ(view.NotePane().ShownNode(), Node("t1"));
    Type("Angebot einholen");
    Select("P");
    ShowSelection();
    EXPECT_EQ(view.NotePane().ShownNode(), Node("P"));
    EXPECT_TRUE(NoteHas(Node("t1"), "Angebot einholen")) << "saved on leaving";
    EXPECT_TRUE(doc.IsModified());
    Type("Kosten klären");
    Run(cmd::NewNode); // takes the undo copy first
    QCoreApplication::sendPostedEvents();
    EXPECT_TRUE(NoteHas(Find(doc.m_pBackupFirst, "P"), "Kosten klären"));
    EXPECT_EQ(view.NotePane().ShownNode(), Node("Neuer Knoten"));
}

} // namespace

} // namespace velto
