#include "outline/PrintLayout.h"

#include "outline/ChartCalendar.h"

#include <gtest/gtest.h>

namespace velto {

TEST(PrintLayout, PageGridsAndDaysAreReadStrictly) {
    const auto grid = ParsePageGrid("3x20");
    ASSERT_TRUE(grid);
    EXPECT_EQ(grid->across, 3);
    EXPECT_EQ(grid->down, 20);
    EXPECT_TRUE(ParsePageGrid("1X1"));
    for (const char* bad : {"0x1", "1x21", "21x1", "x2", "2x", "2", "2x2x", " 2x2", "-1x2", ""})
        EXPECT_FALSE(ParsePageGrid(bad)) << bad;

    EXPECT_EQ(ParseIsoDay("2026-11-24"), chartcal::DaysFromCivil(2026, 11, 24));
    EXPECT_EQ(ParseIsoDay("2028-02-29"), chartcal::DaysFromCivil(2028, 2, 29));
    for (const char* bad : {"2026-02-29", "2026-13-01", "2026-00-10", "2026-1-01", "2026/11/24", "26-11-24"})
        EXPECT_FALSE(ParseIsoDay(bad)) << bad;
}

TEST(PrintLayout, RowsFillPagesFromTheFirstPrintedRow) {
    const RowPages pages(5, 30, 10); // rows 5..29
    EXPECT_EQ(pages.PageCount(), 3);
    EXPECT_EQ(pages.FirstRowOf(0), 5);
    EXPECT_EQ(pages.FirstRowOf(2), 25);
    EXPECT_EQ(pages.RowsOn(1), 10);
    EXPECT_EQ(pages.RowsOn(2), 5);
    EXPECT_EQ(RowPages(0, 20, 10).PageCount(), 2) << "a full last page adds no empty one";
    EXPECT_EQ(RowPages(0, 0, 10).PageCount(), 1) << "the header alone still prints";
    EXPECT_EQ(RowPages(0, 3, 0).PageCount(), 3) << "a page too small for a row still takes one";
}

TEST(PrintLayout, TilesCoverTheScaledMapWithSharedStripsAndCutsInTheirMiddle) {
    // A map twice as wide as high on 2 x 2 pages of 100 x 100 with 10 of overlap: the printed area
    // is 190 x 190, so the width decides the scale and the map is centred vertically.
    const MapTiling tiling(-50, 20, 400, 200, 100, 100, PageGrid{2, 2}, 10);
    EXPECT_DOUBLE_EQ(tiling.Scale(), 190.0 / 400);
    ASSERT_EQ(tiling.TileCount(), 4);
    EXPECT_EQ(tiling.ColumnOf(1), 1);
    EXPECT_EQ(tiling.RowOf(2), 1);
    const double offsetY = (190 - 200 * tiling.Scale()) / 2;
    EXPECT_DOUBLE_EQ(tiling.TileOrigin(0).x, -50);
    EXPECT_DOUBLE_EQ(tiling.TileOrigin(0).y, 20 - offsetY / tiling.Scale());
    // The second column starts where the first ends less the overlap.
    EXPECT_DOUBLE_EQ(tiling.TileOrigin(3).x, -50 + 90 / tiling.Scale());
    EXPECT_DOUBLE_EQ(tiling.TileOrigin(3).y, tiling.TileOrigin(0).y + 90 / tiling.Scale());

    const MapTiling::Cuts first = tiling.CutsOf(0);
    EXPECT_FALSE(first.left);
    EXPECT_FALSE(first.top);
    EXPECT_EQ(first.right, 95);
    EXPECT_EQ(first.bottom, 95);
    const MapTiling::Cuts last = tiling.CutsOf(3);
    EXPECT_EQ(last.left, 5);
    EXPECT_EQ(last.top, 5);
    EXPECT_FALSE(last.right);
    EXPECT_FALSE(last.bottom);

    const MapTiling odd(0, 0, 100, 100, 100, 100, PageGrid{2, 1}, 7);
    // The cut lies at the same map point seen from both tiles.
    EXPECT_DOUBLE_EQ(odd.TileOrigin(0).x + *odd.CutsOf(0).right / odd.Scale(),
                     odd.TileOrigin(1).x + *odd.CutsOf(1).left / odd.Scale());
    EXPECT_FALSE(MapTiling(0, 0, 10, 10, 100, 100, PageGrid{}, 10).CutsOf(0).right) << "one page, no cuts";

    EXPECT_TRUE(PrefersLandscape(300, 100, PageGrid{2, 1}));
    EXPECT_FALSE(PrefersLandscape(300, 100, PageGrid{4, 1})) << "each of four pages is narrow";
}

TEST(PrintLayout, FooterTextsSayPageAndPrintTime) {
    EXPECT_EQ(PageNumberText(2, 5), "Seite 2 von 5");
    EXPECT_EQ(PrintDateText(CTime(2026, 11, 24, 9, 5, 0)), "Gedruckt am 24.11.2026 09:05");
}

} // namespace velto
