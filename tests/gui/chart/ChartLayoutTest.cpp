// The geometry of the chart and the text of its rows.
#include "chart/ChartLayout.h"
#include "ChartTestSupport.h"
#include "chart/ChartText.h"

namespace velto {

using namespace charttest;

namespace {

// 800 x 400 at zoom 20: vertical divider at 300, horizontal divider at 300 (note area 100 high),
// so the row area runs from 40 to 285, above the calendar scroll bar.
ChartLayout Standard() {
    return ChartLayout(QSize(800, 400), 20, 300, 100);
}

TEST(ChartLayout, RowsLieBetweenTheHeaderAndTheScrollBarAndADropLineSnapsIntoTheGapBelowARow) {
    const ChartLayout l = Standard();
    EXPECT_EQ(l.RowTop(3), 40 + 3 * 22);
    EXPECT_FALSE(l.ShownRowAt(39));
    EXPECT_EQ(l.ShownRowAt(40), 0);
    EXPECT_EQ(l.ShownRowAt(61), 0) << "the gap belongs to the row above";
    EXPECT_EQ(l.ShownRowAt(62), 1);
    EXPECT_EQ(l.RowAreaBottom(), 285);
    EXPECT_FALSE(l.ShownRowAt(285));
    EXPECT_EQ(l.ShownRowCapacity(), 12) << "the 12th row starts at 282 and is cut";
    EXPECT_EQ(l.FullyShownRows(), 11);
    for (int row = 0; row < 8; ++row) {
        for (int y = l.RowTop(row) + 4; y < l.RowTop(row + 1); ++y) {
            ASSERT_EQ(l.SnapRowLine(y), l.RowTop(row) + 21) << "y " << y;
            ASSERT_EQ(l.ShownRowBelowLine(l.SnapRowLine(y)), row + 1) << "y " << y;
        }
    }
    EXPECT_EQ(l.ShownRowBelowLine(l.SnapRowLine(30)), 0) << "from the day header: above the first row";
    EXPECT_FALSE(l.RowLineAllowed(24));
    EXPECT_TRUE(l.RowLineAllowed(25));
    EXPECT_FALSE(l.RowLineAllowed(286));
}

TEST(ChartLayout, DividersAreGrabbedStrictlyWithinTheFontSizeDraggedWithinBoundsAndClampedForDrawing) {
    const ChartLayout l = Standard();
    for (int at : {281, 319})
        EXPECT_TRUE(l.NearVerticalDivider(at) && l.NearHorizontalDivider(at)) << at;
    for (int at : {280, 320})
        EXPECT_FALSE(l.NearVerticalDivider(at) || l.NearHorizontalDivider(at)) << at;
    for (int at : {20, 380})
        EXPECT_TRUE(l.HorizontalDragAllowed(at)) << at;
    for (int at : {19, 381})
        EXPECT_FALSE(l.HorizontalDragAllowed(at)) << at;
    EXPECT_TRUE(l.VerticalDragAllowed(20) && l.VerticalDragAllowed(765));
    EXPECT_FALSE(l.VerticalDragAllowed(766)) << "the vertical scroll bar's 15 pixels stay free";
    EXPECT_EQ(ChartLayout(QSize(800, 400), 20, -70, 100).VerticalDividerX(), 0);
    EXPECT_EQ(ChartLayout(QSize(800, 400), 20, 5000, 100).VisibleDays(), 0);
    EXPECT_EQ(ChartLayout(QSize(800, 400), 20, 300, 5000).HorizontalDividerY(), 20);
    EXPECT_EQ(ChartLayout(QSize(800, 400), 20, 300, 0).HorizontalDividerY(), 380);
    const ChartLayout tiny(QSize(10, 10), 20, 300, 100);
    EXPECT_EQ(tiny.ShownRowCapacity(), 0);
    EXPECT_FALSE(tiny.ShownRowAt(5));
}

TEST(ChartLayout, RowPartsStayApartAndBarsCoverWholeDayColumns) {
    const ChartLayout l = Standard();
    const QRect box = l.IndicatorBox(40);
    EXPECT_EQ(box.size(), QSize(40, 20));
    EXPECT_FALSE(l.NearVerticalDivider(box.right()));
    EXPECT_GT(box.left(), l.TextRight());
    EXPECT_TRUE(box.contains(l.ClockMark(40)));
    EXPECT_LT(l.MarkerSlot(2, 40).right(), l.TextX(2));
    EXPECT_TRUE(l.MarkerSlot(2, 40).contains(l.MarkerRect(2, 40)));
    EXPECT_EQ(l.IndentX(-3), 5) << "damaged levels neither indent leftwards nor overflow";
    EXPECT_EQ(l.IndentX(INT32_MAX), l.IndentX(ChartLayout::kMaxIndentLevel));
    EXPECT_EQ(l.DayOffsetAt(l.DayX(6) - 1), 5);
    EXPECT_FALSE(l.DayOffsetAt(l.CalendarRight()));
    const QRect bar = l.BarRect(40, 2, 4);
    EXPECT_GT(bar.left(), l.DayX(2));
    EXPECT_LT(bar.right(), l.DayX(5));
    EXPECT_GE(bar.right(), l.DayX(5) - 2);
    EXPECT_EQ(bar.top(), 42);
    EXPECT_EQ(bar.bottom(), 57);
    EXPECT_EQ(l.BarRect(40, 4, 2), bar) << "a due date before the start still spans both days";
}

TEST(ChartText, RowTextCarriesTheDatePrefixAndTheResponsibleShortCode) {
    CProjectNode* node = BuildList({{0, kKindTask, "Titel", 249, 254}}); // 15.11. to 20.11.2026
    EXPECT_EQ(ChartRowText(*node, kDatePrefixNone, true), "Titel");
    EXPECT_EQ(ChartRowText(*node, kDatePrefixStart, false), "15.11.2026: Titel");
    EXPECT_EQ(ChartRowText(*node, kDatePrefixDue, false), "20.11.26: Titel");
    EXPECT_EQ(ChartRowText(*node, kDatePrefixBoth, false), "15.11.26-20.11.26: Titel");
    EXPECT_EQ(ChartRowText(*node, 7, false), "Titel");
    node->m_strResponsible = "Anna M\xFCller \xAB\xBB AM";
    EXPECT_EQ(ChartRowText(*node, kDatePrefixDue, true), "20.11.26: [AM] Titel");
    EXPECT_EQ(ChartRowText(*node, kDatePrefixNone, false), "Titel");
    EXPECT_EQ(ResponsibleShortCode("Ohne Trenner"), "Ohne Trenner");
    EXPECT_EQ(ResponsibleShortCode("A \xAB\xBB B \xAB\xBB C"), "C");
    FreeNodeList(node);
}

} // namespace

} // namespace velto
