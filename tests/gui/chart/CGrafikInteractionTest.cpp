// The chart under mouse, keys, scroll bars and the clipboard.
#include "ChartTestSupport.h"
#include "outline/NodeClipboard.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QScrollBar>
#include <QWheelEvent>

namespace velto {

using namespace charttest;

namespace {

// Rows: 0 R, 1 A, 2 a1, 3 B, 4 b1, 5 T, 6 N. Both dividers lie at 300.
class CGrafikInteraction : public ChartFixture {
protected:
    void SetUp() override { Load(BuildBranchedOutline()); }
    // A press at from, moves through the points, and the release at the last one.
    void Drag(QPoint from, std::initializer_list<QPoint> path) {
        Press(chart, from);
        QPoint last = from;
        for (QPoint point : path)
            Move(chart, last = point);
        Release(chart, last);
    }
    // Presses on one row and lets go at y, after the small first move every real drag makes.
    void DragRow(int shownRow, int y) {
        const QPoint from = RowPoint(shownRow);
        Drag(from, {from + QPoint(3, 0), QPoint(from.x(), y)});
    }
    int LowerHalfOf(int shownRow) const { return chart.Layout().RowTop(shownRow) + 12; }
    QScrollBar* RowScrollBar() { return chart.findChild<QScrollBar*>(QStringLiteral("scrollBar131")); }
};

TEST_F(CGrafikInteraction, ClickSelectsDoubleClickEditsAndTheMarkerCollapsesAndExpandsAProject) {
    Press(chart, RowPoint(3));
    EXPECT_EQ(Selected(), "B");
    EXPECT_EQ(chart.DragMode(), CGrafik::Drag::Pressed);
    Release(chart, RowPoint(3));
    EXPECT_EQ(chart.DragMode(), CGrafik::Drag::None);
    Click(chart, QPoint(200, 10));
    Click(chart, RowPoint(9));
    EXPECT_EQ(Selected(), "B") << "header and empty rows select nothing";
    EXPECT_TRUE(host.requests.empty());
    DoubleClick(chart, RowPoint(5));
    EXPECT_EQ(Selected(), "T");
    EXPECT_EQ(host.requests, std::vector<std::string>{"edit"});
    EXPECT_FALSE(chart.ClickPending());
    Select("b1");
    const ChartLayout l = chart.Layout();
    const QPoint marker = l.MarkerSlot(1, l.RowTop(1)).center();
    Click(chart, marker);
    EXPECT_EQ(Node("A")->m_bExpanded, 0);
    EXPECT_EQ(Node("b1")->m_bVisible, 0);
    EXPECT_EQ(Selected(), "A") << "the selection does not stay on a hidden row";
    Click(chart, RowPoint(2));
    EXPECT_EQ(Selected(), "T") << "the row below the collapsed node";
    Click(chart, marker);
    EXPECT_EQ(Node("A")->m_bExpanded, 1);
    EXPECT_EQ(Node("b1")->m_bVisible, 1);
    Click(chart, l.MarkerSlot(1, l.RowTop(5)).center());
    EXPECT_EQ(Node("T")->m_bExpanded, 1) << "no children, no marker: a plain click";
}

TEST_F(CGrafikInteraction, UpAndDownWalkTheShownRowsAndScrollThemIntoView) {
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
    AppendCopies(Node("N"), 30);
    Select("R");
    for (int i = 0; i < 15; ++i)
        Key(chart, Qt::Key_Down);
    EXPECT_EQ(chart.FirstRow(), 15 - chart.Layout().FullyShownRows() + 1);
}
TEST_F(CGrafikInteraction, DividersAreGrabbedNearThemAndFollowTheMouseWithinTheirRanges) {
    Press(chart, QPoint(281, 150));
    EXPECT_EQ(chart.DragMode(), CGrafik::Drag::VerticalDivider);
    EXPECT_EQ(chart.cursor().shape(), Qt::SizeHorCursor);
    Release(chart, QPoint(281, 150));
    EXPECT_EQ(chart.ChartWidth1(), 300) << "a click without a move keeps the divider";
    Press(chart, QPoint(280, RowPoint(2).y()));
    EXPECT_EQ(chart.DragMode(), CGrafik::Drag::Pressed) << "a row click instead";
    Release(chart, QPoint(280, RowPoint(2).y()));
    Drag(QPoint(300, 150), {QPoint(400, 150), QPoint(10, 150)});
    EXPECT_EQ(chart.ChartWidth1(), 400) << "the line stopped at the last allowed place";
    EXPECT_EQ(chart.cursor().shape(), Qt::ArrowCursor);
    Drag(QPoint(200, 300), {QPoint(200, 150)});
    EXPECT_EQ(chart.ChartWidth2(), 250);
    Drag(QPoint(200, 150), {QPoint(200, 381)});
    EXPECT_EQ(chart.ChartWidth2(), 250) << "within a font size of the bottom is refused";
}

TEST_F(CGrafikInteraction, DraggingARowMovesItsSubtreeBeforeTheRowBelowTheLine) {
    DragRow(3, LowerHalfOf(0)); // B with b1 to the line below R: before A
    EXPECT_EQ(Outline(First()), "0:R 1:B 2:b1 1:A 2:a1 1:T 1:N");
    EXPECT_EQ(host.requests, std::vector<std::string>{"undo copy"});
    EXPECT_TRUE(host.doc.IsModified());
    EXPECT_EQ(Selected(), "B");
    EXPECT_EQ(chart.DragMode(), CGrafik::Drag::None);
    DragRow(1, LowerHalfOf(9)); // B below the last row: the root's last child
    EXPECT_EQ(Outline(First()), "0:R 1:A 2:a1 1:T 1:N 1:B 2:b1");
}

TEST_F(CGrafikInteraction, RefusedDropsSayWhyAndTakeNoUndoCopy) {
    const std::string before = Outline(First());
    DragRow(1, LowerHalfOf(3));   // A into its own subtree, before b1
    DragRow(0, LowerHalfOf(5));   // the root
    DragRow(5, LowerHalfOf(4));   // T onto the line right above itself
    const QPoint t = RowPoint(5); // and, after a detour, onto the line right below itself
    Drag(t, {t + QPoint(3, 0), QPoint(200, LowerHalfOf(6)), QPoint(200, LowerHalfOf(5))});
    EXPECT_EQ(Outline(First()), before);
    EXPECT_TRUE(host.requests.empty());
    EXPECT_FALSE(host.doc.IsModified());
    EXPECT_EQ(host.prompter.texts(),
              (std::vector<std::string>{"Ein Knoten kann nicht unter sich selbst verschoben werden!",
                                        "Der erste Knoten kann nicht verschoben werden!"}));
}

TEST_F(CGrafikInteraction, ScrollHandlerScrollBarAndWheelClampToTheShownRows) {
    chart.OnVScroll(CGrafik::ScrollCode::PageDown);
    EXPECT_EQ(chart.FirstRow(), 6);
    ASSERT_NE(RowScrollBar(), nullptr);
    EXPECT_EQ(RowScrollBar()->maximum(), 6);
    RowScrollBar()->setValue(4);
    EXPECT_EQ(chart.FirstRow(), 4);
    QWheelEvent up(QPointF(200, 100), QPointF(200, 100), QPoint(), QPoint(0, 120), Qt::NoButton,
                   Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&chart, &up);
    EXPECT_EQ(chart.FirstRow(), std::max(0, 4 - QApplication::wheelScrollLines()));
    QWheelEvent days(QPointF(200, 100), QPointF(200, 100), QPoint(), QPoint(0, -120), Qt::NoButton,
                     Qt::ShiftModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&chart, &days);
    EXPECT_EQ(chart.CalendarPos(), CGrafik::kCalendarToday + QApplication::wheelScrollLines());
    First()->m_bExpanded = 0;
    RecomputeVisibility(First());
    host.doc.UpdateAllViews();
    chart.OnVScroll(CGrafik::ScrollCode::Refresh);
    EXPECT_EQ(chart.FirstRow(), 0) << "fewer rows than the first one shown";
}
TEST_F(CGrafikInteraction, HoldingANodeAboveOrBelowTheRowsScrolls) {
    AppendCopies(Node("N"), 30);
    Redraw();
    chart.OnDragTimer();
    EXPECT_EQ(chart.FirstRow(), 0) << "without a held node the timer does nothing";
    const QPoint from = RowPoint(2);
    Press(chart, from);
    Move(chart, from + QPoint(3, 0));
    Move(chart, QPoint(from.x(), chart.Layout().RowAreaBottom() + 5));
    chart.OnDragTimer();
    chart.OnDragTimer();
    EXPECT_EQ(chart.FirstRow(), 2);
    Move(chart, QPoint(from.x(), 20));
    chart.OnDragTimer();
    EXPECT_EQ(chart.FirstRow(), 1);
    Release(chart, QPoint(from.x(), 20));
    EXPECT_EQ(Outline(First()).substr(0, 16), "0:R 1:A 2:a1 2:B") << "no line was allowed there: no drop";
}

class CGrafikClipboard : public ChartFixture {
protected:
    void SetUp() override {
        NodeClipboard::Instance().Clear();
        Load({{0, kKindProject, "R"},
              {1, kKindProject, "A"},
              {2, kKindProject, "B"},
              {3, kKindTask,
               "Gr\xF6\xDF"
               "e \x80"},
              {1, kKindTask, "T"}});
    }
    void TearDown() override { NodeClipboard::Instance().Clear(); }
    QString SystemClipboard() { return QGuiApplication::clipboard()->text(); }
};

TEST_F(CGrafikClipboard, ACutTakesTheUndoCopyAndIsPastedOnce) {
    Select("B");
    chart.OnEditCut();
    EXPECT_EQ(Outline(First()), "0:R 1:A 1:T");
    EXPECT_EQ(host.requests, std::vector<std::string>{"undo copy"});
    EXPECT_TRUE(host.doc.IsModified());
    EXPECT_EQ(SystemClipboard(), QString::fromUtf8("B\n\tGröße €"));
    Select("T");
    chart.OnEditPaste();
    EXPECT_EQ(Outline(First()), "0:R 1:A 1:B 2:Gr\xF6\xDF"
                                "e \x80 1:T");
    chart.OnEditPaste();
    EXPECT_EQ(host.prompter.texts(), std::vector<std::string>{"Zwischenablage ist leer!"});
    EXPECT_EQ(host.requests.size(), 2u) << "no undo copy for a paste that does nothing";
}

TEST_F(CGrafikClipboard, ACopyChangesNothingTheFirstNodeIsNeverCutAndAFocusedNotePaneTakesThePaste) {
    const std::string before = Outline(First());
    chart.OnEditCut(); // the root is selected
    EXPECT_EQ(host.prompter.texts(),
              std::vector<std::string>{"Erster Knoten kann nicht ausgeschnitten werden!"});
    EXPECT_TRUE(NodeClipboard::Instance().IsEmpty());
    Select("A");
    chart.OnEditCopy();
    EXPECT_EQ(SystemClipboard(), QString::fromUtf8("A\n\tB\n\t\tGröße €"));
    host.notePaneFocused = true;
    chart.OnEditPaste();
    EXPECT_EQ(host.notePastes, 1);
    EXPECT_TRUE(host.requests.empty());
    EXPECT_FALSE(host.doc.IsModified());
    EXPECT_EQ(Outline(First()), before);
}

} // namespace

} // namespace velto
