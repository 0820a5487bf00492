#include "outline/MindMapViewport.h"

#include <gtest/gtest.h>

namespace velto {

TEST(MindMapViewport, KeepsTheWindowOnTheMapAndScrollsAsLittleAsNeeded) {
    MindMapViewport view;
    view.SetViewSize(100, 50);
    view.SetExtent({-200, -20, 400, 40}); // wider than the window, lower than it
    view.CentreOn({0, 0});
    EXPECT_EQ(view.Origin(), (MapPoint{-50, -25})) << "vertically the map fits and stays in view";
    EXPECT_EQ(view.HorizontalRange(), 300);
    EXPECT_EQ(view.VerticalRange(), 0);
    EXPECT_EQ(view.HorizontalPos(), 150);
    view.SetOrigin({-1000, -25});
    EXPECT_EQ(view.Origin(), (MapPoint{-200, -25})) << "a fitting map may sit anywhere in view";
    view.SetHorizontalPos(400);
    EXPECT_EQ(view.Origin().x, 100);
    view.ScrollIntoView({-120, -5, 10, 10}, 5);
    EXPECT_EQ(view.Origin().x, -125) << "left edge with its margin";
    view.ScrollIntoView({-60, -5, 10, 10}, 5);
    EXPECT_EQ(view.Origin().x, -125) << "already in view";
    view.ScrollIntoView({0, -5, 10, 10}, 5);
    EXPECT_EQ(view.Origin().x, 15 - 100) << "right edge with its margin";
    view.SetViewSize(1000, 50);
    EXPECT_EQ(view.Origin().x, -200) << "a larger window shows the whole width";
    EXPECT_EQ(view.ToMap(10, 10), (MapPoint{-190, -15}));
}

} // namespace velto
