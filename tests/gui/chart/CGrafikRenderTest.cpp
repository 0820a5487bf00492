// Pixel probes on the back buffer. Today is Wednesday 11 March 2026 in the first day column, so
// columns 3 and 4 are the weekend.
#include "ChartTestSupport.h"
#include "chart/ChartText.h"

#include <QPainter>

namespace velto {

using namespace charttest;

namespace {

const QColor kWhite(255, 255, 255);
const QColor kBlack(0, 0, 0);
const QColor kGreen(0, 255, 0);
const QColor kRed(255, 0, 0);
const QColor kYellow(255, 255, 0);
const QColor kBlue(0, 0, 255);
const QColor kCell(230, 230, 230);

class CGrafikRender : public ChartFixture {
protected:
    void SetUp() override {
        Load({{0, kKindProject, "Projekt", 0, 20},
              {1, kKindTask, "Erledigt", 1, 2},
              {1, kKindTask, "Verspätet", -3, -1},
              {1, kKindNote, "Notiz", 5, 6},
              {1, kKindMilestone, "Meilenstein", 7, 7},
              {1, kKindTask, "Muster", 9, 9},
              {1, kKindTask, "Muster", 9, 9}});
        Node("Erledigt")->m_bDone = 1;
        Node("Muster")->m_bBold = 1; // the first of the two
        Select("Verspätet");
    }
    QColor At(QPoint p) const { return Image().pixelColor(p); }
    QColor InBox(int row, int percentFromLeft) const {
        const QRect box = chart.Layout().IndicatorBox(chart.Layout().RowTop(row));
        return At(QPoint(box.left() + box.width() * percentFromLeft / 100, box.center().y()));
    }
    QColor InSquare(int row) const {
        return At(chart.Layout().KindSquare(chart.Layout().RowTop(row)).center());
    }
    QColor InColumn(int dayOffset, int row) const {
        const ChartLayout l = chart.Layout();
        return At(QPoint(l.DayX(dayOffset) + l.DayWidth() / 2 - 4, l.RowTop(row) + 10));
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

TEST_F(CGrafikRender, RowsShowTheSelectionFrameProgressKindBoldTextAndTheExpandMarker) {
    const int top = chart.Layout().RowTop(2);
    EXPECT_EQ(At(QPoint(2, top + 10)), kBlack);
    EXPECT_EQ(At(QPoint(400, top)), kBlack) << "the frame runs across the calendar";
    EXPECT_NE(At(QPoint(400, chart.Layout().RowTop(1))), kBlack);
    EXPECT_EQ(InBox(1, 50), kGreen) << "a done task is full";
    EXPECT_EQ(InBox(2, 50), kWhite) << "0 % is an empty box, even when late";
    EXPECT_EQ(InBox(0, 10), kGreen) << "one of four tasks of the root";
    EXPECT_EQ(InBox(0, 60), kWhite);
    EXPECT_EQ(InSquare(3), kYellow);
    EXPECT_EQ(InSquare(4), kBlue);
    EXPECT_GT(Ink(6), 20);
    EXPECT_GT(Ink(5), Ink(6) * 5 / 4) << "a bold row carries more ink";
    const QRect marker = chart.Layout().MarkerRect(0, chart.Layout().RowTop(0));
    const QPoint upperArm = marker.center() - QPoint(0, marker.width() / 2 - 2);
    EXPECT_EQ(At(marker.center()), kBlack);
    EXPECT_NE(At(upperArm), kBlack);
    EXPECT_EQ(At(chart.Layout().MarkerRect(1, chart.Layout().RowTop(1)).center()), kWhite) << "no children";
    First()->m_bExpanded = 0;
    RecomputeVisibility(First());
    Redraw();
    EXPECT_EQ(At(upperArm), kBlack);
    EXPECT_EQ(InBox(1, 50), kWhite) << "the children's rows are gone";
}

TEST_F(CGrafikRender, TheCalendarMarksWeekendsHolidaysAndTodayAndReachesAYearBackAndAhead) {
    // A yearly holiday on Monday 16 March, and one on Tuesday 17 March of another year only.
    chart.SetHolidays({Holiday(16, 3, 2001, 0xC0C0FF, true), Holiday(17, 3, 2025, 0xC0C0FF, false)});
    Redraw();
    EXPECT_EQ(InColumn(2, 9), kWhite);
    EXPECT_EQ(InColumn(3, 9), kCell);
    EXPECT_EQ(InColumn(4, 9), kCell);
    EXPECT_EQ(InColumn(5, 9), QColor(255, 192, 192)) << "a yearly holiday, in its colour";
    EXPECT_EQ(InColumn(6, 9), kWhite) << "a dated holiday of another year";
    const ChartLayout l = chart.Layout();
    EXPECT_EQ(At(QPoint(l.DayX(0) + l.DayWidth() / 2, l.RowTop(9))), kRed);
    EXPECT_NE(At(QPoint(l.DayX(1) + l.DayWidth() / 2, l.RowTop(9))), kRed);
    Node("Muster")->m_timeStart = Day(-365);
    Node("Muster")->m_timeDue = Day(-365, 23, 59, 59);
    chart.SetCalendarPos(0);
    Redraw();
    EXPECT_EQ(InColumn(0, 5), kRed) << "a year-old open task";
    EXPECT_NE(InColumn(1, 5), kRed);
    Node("Muster")->m_timeStart = Day(365);
    Node("Muster")->m_timeDue = Day(365, 23, 59, 59);
    chart.SetCalendarPos(730);
    Redraw();
    EXPECT_EQ(InColumn(0, 5), kCell);
    chart.OnJumpToToday();
    EXPECT_EQ(chart.CalendarPos(), 365);
}

TEST_F(CGrafikRender, BarsCostBoxesAndMarksFollowProgressNodeColoursAndTheOptions) {
    EXPECT_EQ(InColumn(0, 1), kWhite);
    EXPECT_EQ(InColumn(2, 1), kGreen);
    EXPECT_EQ(InColumn(3, 1), kCell) << "weekend background, no bar";
    EXPECT_EQ(InColumn(6, 3), kYellow);
    EXPECT_EQ(InColumn(7, 4), kBlue);
    EXPECT_EQ(InColumn(9, 5), kCell) << "an open task's bar is grey";
    Node("Muster")->m_timeStart = Day(0, 0, 0, 0);
    Node("Muster")->m_timeDue = Day(0, 0, 0, 1);
    chart.SetOptions({kDatePrefixNone, false, false, false});
    Redraw();
    EXPECT_EQ(InColumn(0, 5), kRed) << "overdue";
    Node("Erledigt")->m_crColor = 0x0000FF;
    chart.SetOptions({kDatePrefixNone, false, true, false});
    Redraw();
    EXPECT_EQ(InColumn(1, 1), kRed) << "\"Balken\": the node's colour";
    EXPECT_EQ(InColumn(7, 4), kBlack);
    Node("Erledigt")->m_fCostPlanned = 10.0f;
    Node("Erledigt")->m_fCostNeeded = 5.0f;
    Node("Erledigt")->m_bClockedIn = 1;
    Node("Verspätet")->m_strResponsible = "Anna \xAB\xBB AN";
    chart.SetOptions({kDatePrefixNone, true, false, true});
    Redraw();
    const ChartLayout l = chart.Layout();
    EXPECT_EQ(InBox(1, 25), QColor(255, 100, 100));
    EXPECT_EQ(InBox(2, 25), QColor(100, 100, 100));
    EXPECT_EQ(InBox(0, 10), kGreen) << "project nodes keep their progress box";
    EXPECT_EQ(At(l.ClockMark(l.RowTop(1)).center()), kBlack);
    EXPECT_NE(At(l.ClockMark(l.RowTop(2)).center()), kBlack);
    EXPECT_EQ(At(l.ResponsibleMark(l.RowTop(2)).center()), QColor(230, 230, 0));
    EXPECT_NE(At(l.ResponsibleMark(l.RowTop(1)).center()), QColor(230, 230, 0));
}

TEST_F(CGrafikRender, ATreeTallerThanTheWindowStopsAtTheBottomOfTheRowArea) {
    AppendCopies(Node("Notiz"), 40);
    CProjectNode* selected = First();
    for (int row = 0; row < 13; ++row)
        selected = selected->m_pNext;
    SelectOnly(First(), selected); // its frame would lie below the row area
    Redraw();
    const ChartLayout l = chart.Layout();
    const QImage image = Image();
    for (int y = l.RowAreaBottom() + 1; y < chart.height(); ++y) {
        for (int x = 0; x < chart.width(); x += 3) {
            ASSERT_NE(image.pixelColor(x, y), kYellow) << x << "," << y;
            ASSERT_NE(image.pixelColor(x, y), kBlack) << x << "," << y;
        }
    }
    EXPECT_EQ(InSquare(10), kYellow);
}

TEST_F(CGrafikRender, PrintingStartsAtTheSelectionWithoutFrame) {
    Select("Notiz");
    chart.SetPrinting(true);
    QImage page(800, 400, QImage::Format_RGB32);
    QPainter painter(&page);
    ASSERT_TRUE(chart.RenderTimeline(painter, page.size()));
    const ChartLayout l = chart.Layout();
    EXPECT_EQ(page.pixelColor(l.KindSquare(l.RowTop(0)).center()), kYellow);
    EXPECT_EQ(page.pixelColor(l.KindSquare(l.RowTop(1)).center()), kBlue);
    EXPECT_NE(page.pixelColor(400, l.RowTop(0)), kBlack);
    SelectOnly(First(), nullptr);
    EXPECT_FALSE(chart.RenderTimeline(painter, page.size()));
    EXPECT_EQ(host.prompter.texts(), std::vector<std::string>{"Fehler Drucken!"});
}

TEST(CGrafikEmpty, ADocumentWithoutNodesIsReportedAndNothingIsDrawn) {
    TestHost host;
    CGrafik chart;
    chart.SetHost(&host);
    chart.resize(300, 200);
    chart.ZeichneAllesNeu();
    EXPECT_EQ(host.prompter.texts(), std::vector<std::string>{"CGrafik::ZeichneAllesNeu()"});
    EXPECT_EQ(chart.BackBuffer().toImage().pixelColor(150, 30), kWhite);
}

} // namespace

} // namespace velto
