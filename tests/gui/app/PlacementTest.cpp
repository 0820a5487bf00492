// Where windows go when restored: the frame on the virtual screen, a project window in the MDI area.
#include "app/WindowPlacement.h"

#include <gtest/gtest.h>

#include <climits>

namespace velto {

TEST(MainFramePlacement, TheStoredRectangleIsUsedOnlyWhenItLiesOnTheVirtualScreen) {
    const QRect twoScreens(-1920, 0, 3840, 1080); // a second monitor left of the first
    EXPECT_EQ(MainFramePlacement(StoredRect{-1900, 10, -1000, 700}, twoScreens), QRect(-1900, 10, 900, 690));
    EXPECT_EQ(MainFramePlacement(StoredRect{-1920, 0, 1920, 1080}, twoScreens), twoScreens);
    const QRect screen(0, 0, 1280, 800), fallback(0, 0, 800, 600);
    EXPECT_EQ(MainFramePlacement(std::nullopt, screen), fallback);
    // Each edge just outside, a monitor that is gone, and empty or inverted rectangles.
    for (const StoredRect& stored :
         {StoredRect{-1, 0, 500, 500}, StoredRect{0, -1, 500, 500}, StoredRect{0, 0, 1281, 500},
          StoredRect{0, 0, 500, 801}, StoredRect{1500, 100, 2300, 700}, StoredRect{100, 100, 100, 500},
          StoredRect{500, 100, 100, 500}})
        EXPECT_EQ(MainFramePlacement(stored, screen), fallback) << stored[0] << "," << stored[2];
    EXPECT_EQ(FromStoredRect(StoredRect{5, 6, 105, 56}), QRect(5, 6, 100, 50)) << "one past the last pixel";
    EXPECT_EQ(ToStoredRect(QRect(5, 6, 100, 50)), (StoredRect{5, 6, 105, 56}));
}

TEST(ChildWindowPlacement, InsideStaysPastAnEdgeMovesToZeroAndUnusableRectanglesAreLeftToTheCaller) {
    const QSize area(600, 400), screen(1280, 800);
    const std::pair<StoredRect, std::optional<QRect>> cases[] = {
        {{10, 20, 410, 320}, QRect(10, 20, 400, 300)},
        {{500, 20, 800, 220}, QRect(0, 20, 300, 200)},     // past the right edge: keeps its size
        {{20, 300, 320, 500}, QRect(20, 0, 300, 200)},     // past the bottom
        {{300, 200, 600, 400}, QRect(300, 200, 300, 200)}, // exactly on the edge is inside
        {{-50, 20, 300, 220}, QRect(0, 20, 300, 200)},     // left below zero: widens to its right edge
        {{20, -30, 320, 200}, QRect(20, 0, 300, 200)},
        {{0, 0, 0, 0}, std::nullopt}, // never placed
        {{300, 300, 100, 100}, std::nullopt},
        {{INT32_MIN, INT32_MIN, INT32_MAX, INT32_MAX}, std::nullopt},
    };
    for (const auto& [stored, placed] : cases)
        EXPECT_EQ(ChildWindowPlacement(stored, area, screen), placed) << stored[0] << "," << stored[1];
}

TEST(NewChildWindowPlacement, NewWindowsCascadeAndStayInsideTheArea) {
    EXPECT_EQ(NewChildWindowPlacement(QSize(1000, 700), 0), QRect(0, 0, 800, 560));
    EXPECT_EQ(NewChildWindowPlacement(QSize(1000, 700), 1), QRect(24, 24, 800, 560));
    for (const QSize area : {QSize(1000, 700), QSize(1920, 1000), QSize(500, 400), QSize(330, 250)})
        for (int index = 0; index < 40; ++index)
            EXPECT_TRUE(QRect(QPoint(0, 0), area).contains(NewChildWindowPlacement(area, index)))
                << area.width() << "x" << area.height() << " #" << index;
    // A tiny area: the window keeps a usable size at the origin rather than shrinking to nothing.
    EXPECT_EQ(NewChildWindowPlacement(QSize(100, 50), 3), QRect(0, 0, 320, 240));
}

} // namespace velto
