#include "chart/ChartLayout.h"

#include <gtest/gtest.h>

namespace {

// 800 x 400 at zoom 20: vertical divider at 300, horizontal divider at 300 (note area 100 high).
ChartLayout Standard() {
    return ChartLayout(QSize(800, 400), 20, 300, 100);
}

TEST(ChartLayout, RowsStartBelowTheTwoHeaderRowsAndAdvanceByFontSizePlusTwo) {
    const ChartLayout l = Standard();
    EXPECT_EQ(l.RowTop(0), 40);
    EXPECT_EQ(l.RowTop(3), 40 + 3 * 22);
    EXPECT_FALSE(l.ShownRowAt(39));
    EXPECT_EQ(l.ShownRowAt(40), 0);
    // The two pixels between rows belong to the row above, so no click falls through.
    EXPECT_EQ(l.ShownRowAt(61), 0);
    EXPECT_EQ(l.ShownRowAt(62), 1);
    EXPECT_FALSE(l.ShownRowAt(l.RowAreaBottom()));
    EXPECT_TRUE(l.ShownRowAt(l.RowAreaBottom() - 1));
}

TEST(ChartLayout, RowCapacityCountsThePartlyShownLastRow) {
    const ChartLayout l = Standard();
    // Row area 40 .. 285 (the calendar scroll bar sits above the horizontal divider at 300).
    EXPECT_EQ(l.RowAreaBottom(), 285);
    EXPECT_EQ(l.ShownRowCapacity(), 12); // 11 full rows end at 40 + 11 * 22 - 2 = 280, a 12th starts at 282
    EXPECT_EQ(l.FullyShownRows(), 11);
    EXPECT_LT(l.RowTop(l.ShownRowCapacity() - 1), l.RowAreaBottom());
    EXPECT_GE(l.RowTop(l.ShownRowCapacity()), l.RowAreaBottom());
}

TEST(ChartLayout, DividerGrabIsStrictlyWithinTheFontSize) {
    const ChartLayout l = Standard();
    EXPECT_TRUE(l.NearVerticalDivider(300 - 19));
    EXPECT_TRUE(l.NearVerticalDivider(300 + 19));
    EXPECT_FALSE(l.NearVerticalDivider(300 - 20));
    EXPECT_FALSE(l.NearVerticalDivider(300 + 20));
    EXPECT_TRUE(l.NearHorizontalDivider(300 + 19));
    EXPECT_FALSE(l.NearHorizontalDivider(300 - 20));
    EXPECT_FALSE(l.NearHorizontalDivider(300 + 20));
}

TEST(ChartLayout, DragRangesKeepAFontSizeFromTheEdgesAndTheScrollBar) {
    const ChartLayout l = Standard();
    EXPECT_FALSE(l.HorizontalDragAllowed(19));
    EXPECT_TRUE(l.HorizontalDragAllowed(20));
    EXPECT_TRUE(l.HorizontalDragAllowed(380));
    EXPECT_FALSE(l.HorizontalDragAllowed(381));
    EXPECT_FALSE(l.VerticalDragAllowed(19));
    EXPECT_TRUE(l.VerticalDragAllowed(20));
    EXPECT_TRUE(l.VerticalDragAllowed(800 - 20 - 15));
    EXPECT_FALSE(l.VerticalDragAllowed(800 - 20 - 14));
    EXPECT_EQ(l.NoteHeightForDivider(250), 150);
}

TEST(ChartLayout, StoredWidthsBeyondTheWindowAreClampedForDrawingOnly) {
    // "Breite verkleinern" has no lower bound: a negative text width still lays out.
    const ChartLayout narrow(QSize(800, 400), 20, -70, 100);
    EXPECT_EQ(narrow.VerticalDividerX(), 0);
    const ChartLayout wide(QSize(800, 400), 20, 5000, 100);
    EXPECT_EQ(wide.VerticalDividerX(), 800 - 15);
    EXPECT_EQ(wide.VisibleDays(), 0);
    const ChartLayout tallNote(QSize(800, 400), 20, 300, 5000);
    EXPECT_EQ(tallNote.HorizontalDividerY(), 20);
    const ChartLayout noNote(QSize(800, 400), 20, 300, 0);
    EXPECT_EQ(noNote.HorizontalDividerY(), 380);
    const ChartLayout tiny(QSize(10, 10), 20, 300, 100);
    EXPECT_EQ(tiny.ShownRowCapacity(), 0);
    EXPECT_FALSE(tiny.ShownRowAt(5));
}

TEST(ChartLayout, SnappedRowLineLandsInTheGapBelowTheRowUnderTheMouse) {
    const ChartLayout l = Standard();
    for (int row = 0; row < 8; ++row) {
        // Below the first four pixels of a row the line marks the gap under it.
        for (int y = l.RowTop(row) + 4; y < l.RowTop(row + 1); ++y) {
            const int line = l.SnapRowLine(y);
            ASSERT_EQ(line, l.RowTop(row) + 21) << "y " << y;
            ASSERT_EQ(l.ShownRowBelowLine(line), row + 1) << "y " << y;
        }
    }
    // The line above the first row, reached from the day-number header row.
    EXPECT_EQ(l.ShownRowBelowLine(l.SnapRowLine(30)), 0);
    EXPECT_FALSE(l.RowLineAllowed(24));
    EXPECT_TRUE(l.RowLineAllowed(25));
    EXPECT_TRUE(l.RowLineAllowed(l.RowAreaBottom()));
    EXPECT_FALSE(l.RowLineAllowed(l.RowAreaBottom() + 1));
}

TEST(ChartLayout, RowPartsDoNotOverlapEachOtherOrTheDividerGrabZone) {
    const ChartLayout l = Standard();
    const QRect box = l.IndicatorBox(40);
    EXPECT_EQ(box.size(), QSize(40, 20));
    EXPECT_FALSE(l.NearVerticalDivider(box.right()));
    EXPECT_GT(box.left(), l.TextRight());
    EXPECT_EQ(l.KindSquare(40).topLeft(), box.topLeft());
    EXPECT_TRUE(box.contains(l.ClockMark(40)));
    EXPECT_EQ(l.ClockMark(40).width(), 4);
    EXPECT_LT(l.MarkerSlot(2, 40).right(), l.TextX(2));
    EXPECT_TRUE(l.MarkerSlot(2, 40).contains(l.MarkerRect(2, 40)));
    // Damaged levels neither overflow nor indent to the left of the window.
    EXPECT_EQ(l.IndentX(-3), 5);
    EXPECT_EQ(l.IndentX(INT32_MAX), l.IndentX(ChartLayout::kMaxIndentLevel));
}

TEST(ChartLayout, DayColumnsAndBarsCoverWholeDays) {
    const ChartLayout l = Standard();
    EXPECT_EQ(l.DayWidth(), 24);
    EXPECT_EQ(l.DayOffsetAt(l.DayX(5)), 5);
    EXPECT_EQ(l.DayOffsetAt(l.DayX(6) - 1), 5);
    EXPECT_FALSE(l.DayOffsetAt(l.CalendarLeft() - 1));
    EXPECT_FALSE(l.DayOffsetAt(l.CalendarRight()));
    const QRect bar = l.BarRect(40, 2, 4);
    EXPECT_GT(bar.left(), l.DayX(2));
    EXPECT_LT(bar.right(), l.DayX(5));
    EXPECT_GE(bar.right(), l.DayX(5) - 2);
    EXPECT_EQ(bar.top(), 42);
    EXPECT_EQ(bar.bottom(), 40 + 20 - 3);
    EXPECT_EQ(l.BarRect(40, 4, 2), bar) << "a due date before the start still spans both days";
}

TEST(ChartLayout, ChildControlsTileTheEdges) {
    const ChartLayout l = Standard();
    EXPECT_EQ(l.VerticalScrollBarRect(), QRect(785, 0, 15, 285));
    EXPECT_EQ(l.CalendarScrollBarRect(), QRect(302, 285, 800 - 15 - 302, 15));
    EXPECT_EQ(l.TodayButtonRect().right() + 1, l.CalendarScrollBarRect().left());
    EXPECT_EQ(l.NoteAreaRect(), QRect(0, 303, 800, 97));
}

} // namespace
