// The chart window in mind-map mode: its controls, colours, mouse, keys and scrolling. The layout's
// rules are tested in core (MindMapLayoutTest); these check that the window draws and follows it.
#include "ChartTestSupport.h"

#include <QPushButton>
#include <QScrollBar>
#include <QWheelEvent>

namespace velto {

using namespace charttest;

namespace {

// R with A (a1, B with b1) and T on the right, N on the left.
class MindMapChart : public ChartFixture {
protected:
    void SetUp() override {
        chart.SetMindMapMode(true);
        Load(BuildBranchedOutline());
    }
    // A root with a hundred children, half of them on either side.
    void LoadTall() {
        CProjectNode* first = BuildList({{0, kKindProject, "R"}, {1, kKindTask, "K"}});
        AppendCopies(first->m_pNext, 99);
        FreeNodeList(First());
        Load(first);
    }
    int BoxOf(const CProjectNode* node) const { return chart.MindMap().Find(node); }
    QRect InWindow(const MapRect& r) const {
        const MapPoint p = chart.MindMapView().ToWindow({r.x, r.y});
        return QRect(p.x, p.y, r.w, r.h);
    }
    QRect BoxRect(const std::string& title) { return InWindow(chart.MindMap().Box(BoxOf(Node(title))).rect); }
    QRect MarkRect(const std::string& title) {
        return InWindow(chart.MindMap().MarkRect(BoxOf(Node(title))));
    }
    QColor At(QPoint p) const { return Image().pixelColor(p); }
    // The colour of the status strip along the bottom of a box, percent of its width from the left.
    QColor Strip(const std::string& title, int percent) {
        const QRect r = BoxRect(title);
        return At(QPoint(r.left() + 3 + (r.width() - 6) * percent / 100, r.bottom() - 2));
    }
    bool InView(const CProjectNode* node) const {
        const MapRect r = chart.MindMap().Box(BoxOf(node)).rect;
        const MapRect& view = chart.MindMapView().View();
        return r.x >= view.x && r.y >= view.y && r.Right() <= view.Right() && r.Bottom() <= view.Bottom();
    }
    QScrollBar* Bar(const char* name) { return chart.findChild<QScrollBar*>(QString::fromLatin1(name)); }
    QWidget* Control(const char* name) { return chart.findChild<QWidget*>(QString::fromLatin1(name)); }
};

const QColor kProjectBox(255, 255, 200);
const QColor kWhite(255, 255, 255);

} // namespace

TEST_F(MindMapChart, TheModeSwitchHidesTheTimelineControlsAndTheNotePaneAndBringsThemBack) {
    QWidget pane;
    chart.SetMindMapMode(false);
    chart.SetNotePane(&pane);
    chart.ZeichneAllesNeu();
    const auto shown = [&](const char* name) { return !Control(name)->isHidden(); };
    ASSERT_TRUE(shown("todayButton136") && shown("scrollBar131") && shown("scrollBar132"));
    EXPECT_FALSE(shown("scrollBar151") || shown("scrollBar152"));
    chart.SetMindMapMode(true);
    chart.ZeichneAllesNeu();
    EXPECT_FALSE(shown("todayButton136") || shown("scrollBar131") || shown("scrollBar132"));
    EXPECT_TRUE(pane.isHidden());
    ASSERT_TRUE(shown("scrollBar151") && shown("scrollBar152"));
    EXPECT_EQ(Bar("scrollBar151")->geometry(), QRect(785, 0, 15, 385));
    EXPECT_EQ(Bar("scrollBar152")->geometry(), QRect(0, 385, 785, 15));
    chart.SetMindMapMode(false);
    chart.ZeichneAllesNeu();
    EXPECT_TRUE(shown("todayButton136") && shown("scrollBar131") && shown("scrollBar132"));
    EXPECT_FALSE(shown("scrollBar151") || shown("scrollBar152"));
    EXPECT_TRUE(pane.isHidden()) << "the view shows the pane again, the chart does not";

    chart.SetMindMapMode(true);
    CProjectNode* list = std::exchange(host.doc.m_pFirstNode, nullptr);
    chart.ZeichneAllesNeu();
    EXPECT_EQ(host.prompter.texts(), std::vector<std::string>{"CGrafik::ZeichneAllesNeuMindMap()"});
    host.doc.m_pFirstNode = list;
}

TEST_F(MindMapChart, BoxesLinesMarksAndTheSelectionShowInTheirColours) {
    Node("a1")->m_bDone = 1;
    Node("T")->m_timeDue = Day(-2);
    Node("T")->m_crColor = 0x0000FF; // red
    Node("b1")->m_nKind = kKindMilestone;
    Redraw();
    const QRect root = BoxRect("R");
    EXPECT_EQ(At(root.topLeft() + QPoint(2, 2)), kProjectBox);
    EXPECT_EQ(At(BoxRect("A").topLeft() + QPoint(2, 2)), kProjectBox);
    EXPECT_EQ(At(BoxRect("a1").topLeft() + QPoint(2, 2)), kWhite);
    EXPECT_EQ(At(BoxRect("a1").topLeft() + QPoint(0, 3)), QColor(0, 100, 0)) << "frame";
    EXPECT_EQ(Strip("a1", 90), QColor(0, 255, 0)) << "done";
    EXPECT_EQ(Strip("T", 50), QColor(255, 0, 0)) << "late";
    EXPECT_EQ(Strip("b1", 50), QColor(0, 0, 255)) << "milestone";
    EXPECT_EQ(Strip("N", 50), QColor(255, 255, 0)) << "note";
    EXPECT_EQ(Strip("R", 10), QColor(0, 255, 0)) << "one of two tasks done";
    EXPECT_EQ(Strip("R", 90), QColor(230, 230, 230));
    EXPECT_EQ(At(QPoint(root.center().x(), root.top() - 3)), QColor(Qt::black))
        << "the selected root is framed";
    EXPECT_EQ(At(QPoint(BoxRect("A").center().x(), BoxRect("A").top() - 3)), kWhite);

    const MindMapLayout& map = chart.MindMap();
    const int t = BoxOf(Node("T"));
    const MapPoint a = map.LineStart(t), b = map.LineEnd(t);
    const QRect middle = InWindow({(a.x + b.x) / 2 - 1, (a.y + b.y) / 2 - 1, 3, 3});
    int red = 0;
    for (int x = middle.left(); x <= middle.right(); ++x)
        for (int y = middle.top(); y <= middle.bottom(); ++y)
            red += At(QPoint(x, y)) == QColor(255, 0, 0);
    EXPECT_GT(red, 0) << "the line to a red node is red";

    const QPoint offArm = MarkRect("A").center() + QPoint(-2, -2);
    EXPECT_EQ(At(offArm), kWhite) << "shown children";
    Node("A")->m_bExpanded = 0;
    RecomputeVisibility(First());
    Redraw();
    EXPECT_EQ(At(MarkRect("A").center() + QPoint(-2, -2)), QColor(100, 0, 0)) << "hidden children";
    EXPECT_EQ(At(MarkRect("A").center()), kWhite) << "the plus";
}

TEST_F(MindMapChart, ClicksSelectEditAndToggleAndTheToggledBoxStaysPut) {
    Click(chart, BoxRect("T").center());
    EXPECT_EQ(Selected(), "T");
    DoubleClick(chart, BoxRect("a1").center());
    EXPECT_EQ(Selected(), "a1");
    EXPECT_EQ(host.requests, std::vector<std::string>{"edit"});
    EXPECT_EQ(chart.SelectNodeAt(BoxRect("N").center()), Node("N")) << "a right click selects too";
    Select("T");
    const QRect before = BoxRect("A");
    Click(chart, MarkRect("A").center());
    EXPECT_EQ(Node("A")->m_bExpanded, 0);
    EXPECT_EQ(BoxOf(Node("b1")), -1);
    EXPECT_EQ(BoxRect("A"), before) << "the toggled box stays put, not the selected one";
    Click(chart, MarkRect("A").center());
    EXPECT_EQ(Node("A")->m_bExpanded, 1);
    EXPECT_NE(BoxOf(Node("b1")), -1);
    Select("b1");
    Click(chart, MarkRect("A").center());
    EXPECT_EQ(Selected(), "A") << "the selection does not stay hidden";
    EXPECT_EQ(host.requests.size(), 1u) << "no clicks went astray";
}

TEST_F(MindMapChart, ArrowKeysStepThroughTheMapAndScrollTheSelectionIntoView) {
    Key(chart, Qt::Key_Right);
    EXPECT_EQ(Selected(), "A");
    Key(chart, Qt::Key_Right);
    Key(chart, Qt::Key_Down);
    EXPECT_EQ(Selected(), "B");
    Key(chart, Qt::Key_Left);
    Key(chart, Qt::Key_Left);
    Key(chart, Qt::Key_Left);
    EXPECT_EQ(Selected(), "N");

    LoadTall();
    Key(chart, Qt::Key_Right);
    for (int i = 0; i < 40; ++i)
        Key(chart, Qt::Key_Down);
    const CProjectNode* selected = CurrentNode(First());
    EXPECT_EQ(CountNodes(First()) - CountNodes(selected), 41);
    EXPECT_TRUE(InView(selected));
    EXPECT_GT(Bar("scrollBar151")->value(), 0);
    EXPECT_EQ(Bar("scrollBar151")->value(), chart.MindMapView().VerticalPos());
}

TEST_F(MindMapChart, TheBackgroundPansTheWheelAndTheScrollBarsScrollAndSearchesScrollToTheirNode) {
    LoadTall();
    const MindMapViewport& view = chart.MindMapView();
    EXPECT_EQ(Bar("scrollBar151")->maximum(), view.Extent().h - 385);
    EXPECT_EQ(Bar("scrollBar152")->maximum(), std::max(0, view.Extent().w - 785));
    const QPoint background(5, 5);
    ASSERT_EQ(chart.MindMap().BoxAt(view.ToMap(5, 5)), -1);
    const MapPoint origin = view.Origin();
    Press(chart, background);
    Move(chart, background + QPoint(0, -60));
    Release(chart, background + QPoint(0, -60));
    EXPECT_EQ(view.Origin().y, origin.y + 60);
    EXPECT_EQ(Selected(), "R") << "panning selects nothing";

    QWheelEvent down(QPointF(200, 100), QPointF(200, 100), QPoint(), QPoint(0, -120), Qt::NoButton,
                     Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&chart, &down);
    EXPECT_EQ(view.Origin().y, origin.y + 60 + QApplication::wheelScrollLines() * 20);
    Bar("scrollBar151")->setValue(0);
    EXPECT_EQ(view.VerticalPos(), 0);

    CProjectNode* last = First();
    while (last->m_pNext)
        last = last->m_pNext;
    SelectOnly(First(), last);
    chart.ScrollToSelection(); // as a search or an alarm does after selecting
    EXPECT_TRUE(InView(last));

    SelectOnly(First(), First()->m_pNext);
    chart.SetMindMapMode(false);
    Redraw();
    chart.ScrollToSelection();
    chart.SetMindMapMode(true);
    Redraw();
    EXPECT_TRUE(InView(First()->m_pNext)) << "selected while the timeline was shown";
}

} // namespace velto
