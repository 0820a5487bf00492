// Pixel probes on the back buffer. Today is Wednesday 11 March 2026 in the first day column, so
// columns 3 and 4 are the weekend.
#include "ChartTestSupport.h"
#include "chart/ChartText.h"
#include "chart/TimelinePainter.h"

#include <QPainter>

using namespace charttest;

namespace {

const QColor kWhite(255, 255, 255);
const QColor kBlack(0, 0, 0);
const QColor kGreen(0, 255, 0);
const QColor kRed(255, 0, 0);
const QColor kCell(230, 230, 230);

class CGrafikRender : public ChartFixture {
protected:
    void SetUp() override {
        Load({{0, KIND_PROJECT, "Projekt", 0, 20},
              {1, KIND_TASK, "Erledigt", 1, 2},
              {1, KIND_TASK, "Verspätet", -3, -1},
              {1, KIND_NOTE, "Notiz", 5, 6},
              {1, KIND_MILESTONE, "Meilenstein", 7, 7},
              {1, KIND_TASK, "Muster", 9, 9},
              {1, KIND_TASK, "Muster", 9, 9}});
        Node("Erledigt")->m_bDone = 1;
        Node("Muster")->m_bBold = 1; // the first of the two
        Select("Verspätet");
    }
    QColor At(int x, int y) const { return Image().pixelColor(x, y); }
    QColor InBox(int row, int percentFromLeft) const {
        const QRect box = chart.Layout().IndicatorBox(chart.Layout().RowTop(row));
        return At(box.left() + box.width() * percentFromLeft / 100, box.center().y());
    }
    QColor InColumn(int dayOffset, int row) const {
        const ChartLayout l = chart.Layout();
        return At(l.DayX(dayOffset) + l.DayWidth() / 2 - 4, l.RowTop(row) + 10);
    }
    int Ink(int row) const {
        const ChartLayout l = chart.Layout();
        const QImage image = Image();
        int dark = 0;
        for (int y = l.RowTop(row); y < l.RowTop(row) + l.FontSize(); ++y)
            for (int x = l.TextX(1); x < l.TextRight(); ++x)
                dark += image.pixelColor(x, y).lightness() < 128;
        return dark;
    }
};

TEST_F(CGrafikRender, SelectedRowIsFramedAcrossTheWholeWidth) {
    const ChartLayout l = chart.Layout();
    const int top = l.RowTop(2);
    EXPECT_EQ(At(2, top + 10), kBlack);
    EXPECT_EQ(At(400, top), kBlack);
    EXPECT_EQ(At(400, top + 20), kBlack);
    EXPECT_EQ(At(chart.width() - 2, top + 10), kBlack);
    EXPECT_NE(At(400, l.RowTop(1)), kBlack);
    EXPECT_NE(At(2, l.RowTop(1) + 10), kBlack);
}

TEST_F(CGrafikRender, ProgressBoxesFillByTheShareOfDoneTasks) {
    EXPECT_EQ(InBox(1, 50), kGreen) << "a done task is full";
    EXPECT_EQ(InBox(2, 50), kWhite) << "0 % is an empty box, even when late";
    EXPECT_EQ(InBox(0, 10), kGreen) << "one of four tasks of the root";
    EXPECT_EQ(InBox(0, 60), kWhite);
    const QRect box = chart.Layout().IndicatorBox(chart.Layout().RowTop(2));
    EXPECT_EQ(At(box.left(), box.center().y()), QColor(227, 227, 227)) << "the 3-D frame";
    EXPECT_EQ(At(box.right(), box.center().y()), QColor(105, 105, 105));

    Node("Erledigt")->m_bDone = 0;
    Node("Verspätet")->m_bDone = 1;
    Redraw();
    EXPECT_EQ(InBox(1, 50), kWhite);
    EXPECT_EQ(InBox(2, 50), kGreen);
}

TEST_F(CGrafikRender, NotesAndMilestonesShowColouredSquares) {
    const ChartLayout l = chart.Layout();
    EXPECT_EQ(At(l.KindSquare(l.RowTop(3)).center().x(), l.KindSquare(l.RowTop(3)).center().y()),
              QColor(255, 255, 0));
    EXPECT_EQ(At(l.KindSquare(l.RowTop(4)).center().x(), l.KindSquare(l.RowTop(4)).center().y()),
              QColor(0, 0, 255));
}

TEST_F(CGrafikRender, WeekendsHolidaysAndTodayAreMarkedInTheirColumns) {
    CHoliday monday;
    monday.day = 16;
    monday.month = 3;
    monday.year = 2001;
    monday.color = 0xC0C0FF;
    monday.yearly = true;
    CHoliday lastYear = monday;
    lastYear.day = 17;
    lastYear.year = 2025;
    lastYear.yearly = false;
    chart.SetHolidays({monday, lastYear});
    Redraw();
    EXPECT_EQ(InColumn(2, 9), kWhite);
    EXPECT_EQ(InColumn(3, 9), kCell);
    EXPECT_EQ(InColumn(4, 9), kCell);
    EXPECT_EQ(InColumn(5, 9), QColor(255, 192, 192));
    EXPECT_EQ(InColumn(6, 9), kWhite) << "a dated holiday of another year";
    const ChartLayout l = chart.Layout();
    EXPECT_EQ(At(l.DayX(0) + l.DayWidth() / 2, l.RowTop(9)), kRed);
    EXPECT_NE(At(l.DayX(1) + l.DayWidth() / 2, l.RowTop(9)), kRed);
}

TEST_F(CGrafikRender, BarsRunFromStartDayToDueDay) {
    EXPECT_EQ(InColumn(0, 1), kWhite);
    EXPECT_EQ(InColumn(1, 1), kGreen);
    EXPECT_EQ(InColumn(2, 1), kGreen);
    EXPECT_EQ(InColumn(3, 1), kCell) << "weekend background, no bar";
    EXPECT_EQ(InColumn(5, 3), QColor(255, 255, 0));
    EXPECT_EQ(InColumn(6, 3), QColor(255, 255, 0));
    EXPECT_EQ(InColumn(7, 4), QColor(0, 0, 255));
    EXPECT_EQ(InColumn(9, 5), kCell) << "an open task's bar is grey";

    chart.SetOptions({DATE_PREFIX_NONE, false, true, false});
    Node("Erledigt")->m_crColor = 0x0000FF;
    Redraw();
    EXPECT_EQ(InColumn(1, 1), kRed) << "\"Balken\": the node's colour";
    EXPECT_EQ(InColumn(7, 4), kBlack);
}

TEST_F(CGrafikRender, LateBarsAreRed) {
    Node("Muster")->m_timeDue = Day(0, 0, 0, 1);
    Node("Muster")->m_timeStart = Day(0, 0, 0, 0);
    Redraw();
    EXPECT_EQ(InColumn(0, 5), kRed);
}

TEST_F(CGrafikRender, BoldRowsCarryMoreInkThanNormalOnes) {
    const int bold = Ink(5);
    const int normal = Ink(6);
    EXPECT_GT(normal, 20);
    EXPECT_GT(bold, normal * 5 / 4);
}

TEST_F(CGrafikRender, ExpandMarkerShowsMinusOrPlus) {
    const ChartLayout l = chart.Layout();
    const QRect marker = l.MarkerRect(0, l.RowTop(0));
    const QPoint centre = marker.center();
    const int arm = marker.width() / 2 - 2;
    EXPECT_EQ(At(centre.x(), centre.y()), kBlack);
    EXPECT_NE(At(centre.x(), centre.y() - arm), kBlack);
    const QRect childSlot = l.MarkerRect(1, l.RowTop(1));
    EXPECT_EQ(At(childSlot.center().x(), childSlot.center().y()), kWhite) << "no marker without children";

    First()->m_bExpanded = 0;
    RecomputeVisibility(First());
    Redraw();
    EXPECT_EQ(At(centre.x(), centre.y() - arm), kBlack);
    EXPECT_EQ(InBox(1, 50), kWhite) << "the children's rows are gone";
}

TEST_F(CGrafikRender, CostModeClockMarkAndResponsibleMark) {
    CProjectNode* task = Node("Erledigt");
    task->m_fCostPlanned = 10.0f;
    task->m_fCostNeeded = 5.0f;
    task->m_bClockedIn = 1;
    Node("Verspätet")->m_strResponsible = "Anna \xAB\xBB AN";
    chart.SetOptions({DATE_PREFIX_NONE, true, false, true});
    Redraw();
    const ChartLayout l = chart.Layout();
    EXPECT_EQ(InBox(1, 25), QColor(255, 100, 100));
    EXPECT_EQ(InBox(2, 25), QColor(100, 100, 100));
    EXPECT_EQ(InBox(0, 10), kGreen) << "project nodes keep their progress box";
    const QRect clock = l.ClockMark(l.RowTop(1));
    EXPECT_EQ(At(clock.center().x(), clock.center().y()), kBlack);
    EXPECT_NE(At(clock.center().x(), l.ClockMark(l.RowTop(2)).center().y()), kBlack);
    const QRect mark = l.ResponsibleMark(l.RowTop(2));
    EXPECT_EQ(At(mark.center().x(), mark.center().y()), QColor(230, 230, 0));
    EXPECT_NE(At(mark.center().x(), l.ResponsibleMark(l.RowTop(1)).center().y()), QColor(230, 230, 0));
}

TEST_F(CGrafikRender, CalendarEndsShowAYearBackAndAYearAhead) {
    Node("Muster")->m_timeStart = Day(-365);
    Node("Muster")->m_timeDue = Day(-365, 23, 59, 59);
    chart.SetCalendarPos(0);
    Redraw();
    EXPECT_EQ(InColumn(0, 5), kRed) << "a year-old open task, overdue";
    EXPECT_NE(InColumn(1, 5), kRed);
    Node("Muster")->m_timeStart = Day(365);
    Node("Muster")->m_timeDue = Day(365, 23, 59, 59);
    chart.SetCalendarPos(730);
    Redraw();
    EXPECT_EQ(InColumn(0, 5), kCell);
    chart.OnJumpToToday();
    EXPECT_EQ(chart.CalendarPos(), 365);
}

TEST(CGrafikTall, DrawingStopsAtTheBottomOfTheRowArea) {
    TestHost host;
    host.doc.m_pFirstNode = BuildList({{0, KIND_PROJECT, "R"}});
    CProjectNode* tail = host.doc.m_pFirstNode;
    for (int i = 0; i < 60; ++i) {
        auto* note = new CProjectNode(NodeDefaults{Today(), Day(0), Day(0, 23, 59, 59)});
        note->m_nLevel = 1;
        note->m_nKind = KIND_NOTE;
        note->m_bSelected = 0;
        note->m_pPrev = tail;
        tail = tail->m_pNext = note;
    }
    // The node of row 13, whose frame would lie below the row area.
    CProjectNode* selected = host.doc.m_pFirstNode;
    for (int row = 0; row < 13; ++row)
        selected = selected->m_pNext;
    SelectOnly(host.doc.m_pFirstNode, selected);
    CGrafik chart;
    chart.SetHost(&host);
    chart.SetClock(&Today);
    chart.SetChartWidth1(300);
    chart.SetChartWidth2(100);
    chart.resize(800, 400);
    chart.ZeichneAllesNeu();
    const QImage image = chart.BackBuffer().toImage();
    const ChartLayout l = chart.Layout();
    ASSERT_EQ(l.ShownRowCapacity(), 12);
    for (int y = l.RowAreaBottom(); y < 400; ++y)
        for (int x = 0; x < 800; x += 3)
            ASSERT_NE(image.pixelColor(x, y), QColor(255, 255, 0)) << x << "," << y;
    EXPECT_NE(image.pixelColor(400, l.RowTop(13)), QColor(0, 0, 0));
    EXPECT_EQ(image.pixelColor(l.KindSquare(l.RowTop(10)).center()), QColor(255, 255, 0));
}

TEST_F(CGrafikRender, PrintingStartsAtTheSelectionWithoutFrame) {
    Select("Notiz");
    chart.SetPrinting(true);
    QImage page(800, 400, QImage::Format_RGB32);
    QPainter painter(&page);
    ASSERT_TRUE(chart.RenderTimeline(painter, page.size()));
    painter.end();
    const ChartLayout l = chart.Layout();
    EXPECT_EQ(page.pixelColor(l.KindSquare(l.RowTop(0)).center()), QColor(255, 255, 0));
    EXPECT_EQ(page.pixelColor(l.KindSquare(l.RowTop(1)).center()), QColor(0, 0, 255));
    EXPECT_NE(page.pixelColor(400, l.RowTop(0)), kBlack);

    for (CProjectNode* node = First(); node; node = node->m_pNext)
        node->m_bSelected = 0;
    QPainter again(&page);
    EXPECT_FALSE(chart.RenderTimeline(again, page.size()));
    EXPECT_EQ(host.prompter.texts(), std::vector<std::string>{"Fehler Drucken!"});
}

TEST(CGrafikEmpty, ADocumentWithoutNodesIsReportedAndNothingIsDrawn) {
    TestHost host;
    CGrafik chart;
    chart.SetHost(&host);
    chart.resize(300, 200);
    chart.ZeichneAllesNeu();
    ASSERT_FALSE(host.prompter.texts().empty());
    EXPECT_EQ(host.prompter.texts().back(), "CGrafik::ZeichneAllesNeu()");
    EXPECT_EQ(chart.BackBuffer().toImage().pixelColor(150, 30), QColor(255, 255, 255));
}

TEST(ChartColours, ColorRefHoldsRedInTheLowByte) {
    EXPECT_EQ(ColorFromColorRef(0x00332211), QColor(0x11, 0x22, 0x33));
    EXPECT_EQ(ColorFromColorRef(int(0xFF0000FF)), QColor(255, 0, 0)) << "the high byte is no colour";
}

} // namespace
