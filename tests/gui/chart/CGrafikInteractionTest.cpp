#include "ChartTestSupport.h"

#include <QApplication>
#include <QScrollBar>
#include <QWheelEvent>

using namespace charttest;

namespace {

class CGrafikInteraction : public ChartFixture {
protected:
    void SetUp() override {
        Load({{0, KIND_PROJECT, "R"},
              {1, KIND_PROJECT, "A"},
              {2, KIND_TASK, "a1"},
              {2, KIND_PROJECT, "B"},
              {3, KIND_TASK, "b1"},
              {1, KIND_TASK, "T"},
              {1, KIND_NOTE, "N"}});
    }
    std::string Selected() { return CurrentNode(First())->m_strTitle; }
    void Press(QPoint pos) { charttest::Press(chart, pos); }
    void Move(QPoint pos) { charttest::Move(chart, pos); }
    void Release(QPoint pos) { charttest::Release(chart, pos); }
    // Presses on one row and lets go at y (after the small first move every real drag makes).
    void DragRow(int shownRow, int y) {
        const QPoint from = RowPoint(shownRow);
        Press(from);
        Move(from + QPoint(3, 0));
        Move(QPoint(from.x(), y));
        Release(QPoint(from.x(), y));
    }
    int LowerHalfOf(int shownRow) const { return chart.Layout().RowTop(shownRow) + 12; }
    QScrollBar* RowScrollBar() {
        for (QScrollBar* bar : chart.findChildren<QScrollBar*>())
            if (bar->orientation() == Qt::Vertical)
                return bar;
        return nullptr;
    }
};

TEST_F(CGrafikInteraction, ClickSelectsTheRowAndArmsADrag) {
    Press(RowPoint(3));
    EXPECT_EQ(Selected(), "B");
    EXPECT_TRUE(chart.ClickPending());
    EXPECT_EQ(chart.DragMode(), CGrafik::DRAG_PRESSED);
    Release(RowPoint(3));
    EXPECT_EQ(chart.DragMode(), CGrafik::DRAG_NONE);
    EXPECT_EQ(Selected(), "B");
    EXPECT_TRUE(host.commands.empty());

    Click(chart, QPoint(200, 10));
    Click(chart, RowPoint(9));
    EXPECT_EQ(Selected(), "B") << "header and empty rows select nothing";
}

TEST_F(CGrafikInteraction, DoubleClickOpensTheEditDialog) {
    DoubleClick(chart, RowPoint(5));
    EXPECT_EQ(Selected(), "T");
    EXPECT_EQ(host.commands, std::vector<int>{CHART_CMD_EDIT_NODE});
    EXPECT_FALSE(chart.ClickPending());
}

TEST_F(CGrafikInteraction, UpAndDownWalkTheShownRows) {
    Node("B")->m_bExpanded = 0;
    RecomputeVisibility(First());
    Select("B");
    Key(chart, Qt::Key_Down);
    EXPECT_EQ(Selected(), "T") << "b1 is hidden";
    Key(chart, Qt::Key_Up);
    Key(chart, Qt::Key_Up);
    EXPECT_EQ(Selected(), "a1");
    Key(chart, Qt::Key_Left);
    EXPECT_EQ(Selected(), "a1") << "other keys are not the chart's";
    Select("R");
    Key(chart, Qt::Key_Up);
    EXPECT_EQ(Selected(), "R");
    Select("N");
    Key(chart, Qt::Key_Down);
    EXPECT_EQ(Selected(), "N");
}

TEST_F(CGrafikInteraction, ClicksExactlyAFontSizeFromADividerDoNotGrabIt) {
    Press(QPoint(300 - 19, 150));
    EXPECT_EQ(chart.DragMode(), CGrafik::DRAG_VERTICAL_DIVIDER);
    EXPECT_EQ(chart.cursor().shape(), Qt::SizeHorCursor);
    Release(QPoint(300 - 19, 150));
    EXPECT_EQ(chart.ChartWidth1(), 300) << "a click without a move keeps the divider";

    Press(QPoint(300 - 20, RowPoint(2).y()));
    EXPECT_EQ(chart.DragMode(), CGrafik::DRAG_PRESSED) << "a row click instead";
    Release(QPoint(300 - 20, RowPoint(2).y()));

    Press(QPoint(200, 300 + 19));
    EXPECT_EQ(chart.DragMode(), CGrafik::DRAG_HORIZONTAL_DIVIDER);
    Release(QPoint(200, 300 + 19));
    Press(QPoint(200, 300 + 20));
    EXPECT_EQ(chart.DragMode(), CGrafik::DRAG_NONE);
    Release(QPoint(200, 300 + 20));
    Press(QPoint(200, 300 - 20));
    EXPECT_EQ(chart.DragMode(), CGrafik::DRAG_NONE);
    Release(QPoint(200, 300 - 20));
}

TEST_F(CGrafikInteraction, TheVerticalDividerFollowsOnlyWithinItsRange) {
    Press(QPoint(300, 150));
    Move(QPoint(400, 150));
    Move(QPoint(10, 150));
    Release(QPoint(10, 150));
    EXPECT_EQ(chart.ChartWidth1(), 400) << "the line stopped at the last allowed place";
    Press(QPoint(400, 150));
    Move(QPoint(20, 150));
    Release(QPoint(20, 150));
    EXPECT_EQ(chart.ChartWidth1(), 20);
    EXPECT_EQ(chart.cursor().shape(), Qt::ArrowCursor);
}

TEST_F(CGrafikInteraction, TheHorizontalDividerIsRefusedNearTheTopAndBottom) {
    Press(QPoint(200, 300));
    Move(QPoint(200, 150));
    Release(QPoint(200, 150));
    EXPECT_EQ(chart.ChartWidth2(), 250);
    EXPECT_EQ(chart.Layout().HorizontalDividerY(), 150);
    Press(QPoint(200, 150));
    Move(QPoint(200, 381));
    Move(QPoint(200, 19));
    Release(QPoint(200, 19));
    EXPECT_EQ(chart.ChartWidth2(), 250);
    Press(QPoint(200, 150));
    Move(QPoint(200, 380));
    Release(QPoint(200, 380));
    EXPECT_EQ(chart.ChartWidth2(), 20);
}

TEST_F(CGrafikInteraction, DraggingARowMovesItsSubtreeBeforeTheRowBelowTheLine) {
    DragRow(3, LowerHalfOf(0)); // B with b1 to the line below R: before A
    EXPECT_EQ(Outline(First()), "0:R 1:B 2:b1 1:A 2:a1 1:T 1:N");
    EXPECT_EQ(host.commands, std::vector<int>{CHART_CMD_BACKUP_TREE});
    EXPECT_TRUE(host.doc.IsModified());
    EXPECT_EQ(Selected(), "B");
    EXPECT_EQ(chart.DragMode(), CGrafik::DRAG_NONE);
    EXPECT_TRUE(LinksSound(First()));

    DragRow(6, LowerHalfOf(4)); // N to the line below a1: before T, at T's level
    EXPECT_EQ(Outline(First()), "0:R 1:B 2:b1 1:A 2:a1 1:N 1:T");
    DragRow(5, LowerHalfOf(2)); // N to the line below b1: before A
    EXPECT_EQ(Outline(First()), "0:R 1:B 2:b1 1:N 1:A 2:a1 1:T");
}

TEST_F(CGrafikInteraction, BelowTheLastRowANodeBecomesTheRootsLastChild) {
    DragRow(1, LowerHalfOf(9));
    EXPECT_EQ(Outline(First()), "0:R 1:T 1:N 1:A 2:a1 2:B 3:b1");
}

TEST_F(CGrafikInteraction, RefusedDropsSayWhyAndTakeNoUndoCopy) {
    const std::string before = Outline(First());
    DragRow(1, LowerHalfOf(3)); // A into its own subtree, before b1
    DragRow(0, LowerHalfOf(5)); // the root
    EXPECT_EQ(Outline(First()), before);
    EXPECT_TRUE(host.commands.empty());
    EXPECT_EQ(host.prompter.texts(),
              (std::vector<std::string>{"Ein Knoten kann nicht unter sich selbst verschoben werden!",
                                        "Der erste Knoten kann nicht verschoben werden!"}));
    DragRow(5, LowerHalfOf(4)); // T onto the line right above itself
    Press(RowPoint(5));         // and, after a detour, onto the line right below itself
    Move(RowPoint(5) + QPoint(3, 0));
    Move(QPoint(200, LowerHalfOf(6)));
    Move(QPoint(200, LowerHalfOf(5)));
    EXPECT_EQ(chart.DragMode(), CGrafik::DRAG_ROW_LINE);
    Release(QPoint(200, LowerHalfOf(5)));
    EXPECT_EQ(host.prompter.texts().size(), 2u) << "dropping in place is silent";
    EXPECT_FALSE(host.doc.IsModified());
}

TEST_F(CGrafikInteraction, TheMarkerCollapsesAndExpandsAProjectNode) {
    Select("b1");
    const ChartLayout l = chart.Layout();
    const QPoint marker = l.MarkerSlot(1, l.RowTop(1)).center();
    Click(chart, marker);
    EXPECT_EQ(Node("A")->m_bExpanded, 0);
    EXPECT_EQ(Node("b1")->m_bVisible, 0);
    EXPECT_EQ(Node("a1")->m_bVisible, 0);
    EXPECT_EQ(Selected(), "A") << "the selection does not stay on a hidden row";
    Click(chart, RowPoint(2));
    EXPECT_EQ(Selected(), "T") << "the row below the collapsed node";
    Click(chart, marker);
    EXPECT_EQ(Node("A")->m_bExpanded, 1);
    EXPECT_EQ(Node("b1")->m_bVisible, 1);
    EXPECT_EQ(Selected(), "T");
    const QPoint taskSlot = l.MarkerSlot(1, l.RowTop(5)).center();
    Click(chart, taskSlot);
    EXPECT_EQ(Node("T")->m_bExpanded, 1) << "no marker, no toggle: a plain click";
}

TEST_F(CGrafikInteraction, ScrollHandlerClampsToTheShownRows) {
    chart.OnVScroll(CGrafik::SB_PAGEDOWN);
    EXPECT_EQ(chart.FirstRow(), 6);
    chart.OnVScroll(CGrafik::SB_LINEUP);
    EXPECT_EQ(chart.FirstRow(), 5);
    chart.OnVScroll(CGrafik::SB_REFRESH);
    EXPECT_EQ(chart.FirstRow(), 5);
    ASSERT_NE(RowScrollBar(), nullptr);
    EXPECT_EQ(RowScrollBar()->maximum(), 6);
    EXPECT_EQ(RowScrollBar()->value(), 5);
    First()->m_bExpanded = 0;
    RecomputeVisibility(First());
    host.doc.UpdateAllViews();
    chart.OnVScroll(CGrafik::SB_REFRESH);
    EXPECT_EQ(chart.FirstRow(), 0);
    EXPECT_EQ(RowScrollBar()->maximum(), 0);
    chart.OnVScroll(CGrafik::SB_PAGEUP);
    EXPECT_EQ(chart.FirstRow(), 0);
}

TEST_F(CGrafikInteraction, TheScrollBarAndTheWheelMoveTheFirstRow) {
    RowScrollBar()->setValue(4);
    EXPECT_EQ(chart.FirstRow(), 4);
    QWheelEvent up(QPointF(200, 100), chart.mapToGlobal(QPointF(200, 100)), QPoint(), QPoint(0, 120),
                   Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&chart, &up);
    EXPECT_EQ(chart.FirstRow(), std::max(0, 4 - QApplication::wheelScrollLines()));
    QWheelEvent sideways(QPointF(200, 100), chart.mapToGlobal(QPointF(200, 100)), QPoint(), QPoint(0, -120),
                         Qt::NoButton, Qt::ShiftModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&chart, &sideways);
    EXPECT_EQ(chart.CalendarPos(), CGrafik::kCalendarToday + QApplication::wheelScrollLines());
}

TEST_F(CGrafikInteraction, HoldingANodeBelowTheRowsScrollsDown) {
    // Thirty more notes, so the list is taller than the window.
    CProjectNode* tail = Node("N");
    for (int i = 0; i < 30; ++i) {
        auto* note = tail->CloneUnlinked();
        note->m_bSelected = 0;
        note->m_pPrev = tail;
        tail = tail->m_pNext = note;
    }
    Redraw();
    chart.OnDragTimer();
    EXPECT_EQ(chart.FirstRow(), 0) << "without a held node the timer does nothing";

    const QPoint from = RowPoint(2);
    Press(from);
    Move(from + QPoint(3, 0));
    Move(QPoint(from.x(), chart.Layout().RowAreaBottom() + 5));
    chart.OnDragTimer();
    chart.OnDragTimer();
    EXPECT_EQ(chart.FirstRow(), 2);
    Move(QPoint(from.x(), 20));
    chart.OnDragTimer();
    EXPECT_EQ(chart.FirstRow(), 1);
    Release(QPoint(from.x(), 20));
    EXPECT_EQ(chart.DragMode(), CGrafik::DRAG_NONE);
}

TEST_F(CGrafikInteraction, KeyboardSelectionScrollsTheRowIntoView) {
    CProjectNode* tail = Node("N");
    for (int i = 0; i < 30; ++i) {
        auto* note = tail->CloneUnlinked();
        note->m_bSelected = 0;
        note->m_pPrev = tail;
        tail = tail->m_pNext = note;
    }
    Redraw();
    for (int i = 0; i < 15; ++i)
        Key(chart, Qt::Key_Down);
    const int fullRows = chart.Layout().FullyShownRows();
    EXPECT_EQ(chart.FirstRow(), 15 - fullRows + 1);
    for (int i = 0; i < 15; ++i)
        Key(chart, Qt::Key_Up);
    EXPECT_EQ(chart.FirstRow(), 0);
}

} // namespace
