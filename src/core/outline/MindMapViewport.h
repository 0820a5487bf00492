#pragma once
// The part of the mind map a window looks at: the map point at the window's top-left corner, kept
// so that the window shows as much of the map as it can, and the scroll bars that go with it. Along
// an axis where the map is larger than the window, the scroll range is the map's extent minus the
// window's; where the whole map fits, it stays wholly in view wherever it was put (so a branch
// folded away does not move the rest), and the scroll bar has no range.
#include "outline/MindMapGeometry.h"

namespace velto {

class MindMapViewport {
public:
    // The size of the area the map is drawn in; the origin is kept within the map.
    void SetViewSize(int width, int height);
    // The extent of a new layout; the origin is kept within it.
    void SetExtent(const MapRect& extent);
    const MapRect& Extent() const { return m_extent; }

    MapPoint Origin() const { return {m_view.x, m_view.y}; }
    void SetOrigin(MapPoint origin);
    // The rectangle of the map in view.
    const MapRect& View() const { return m_view; }
    MapPoint ToMap(int windowX, int windowY) const { return {m_view.x + windowX, m_view.y + windowY}; }
    MapPoint ToWindow(MapPoint p) const { return {p.x - m_view.x, p.y - m_view.y}; }
    void CentreOn(MapPoint p) { SetOrigin({p.x - m_view.w / 2, p.y - m_view.h / 2}); }
    // Scrolls as little as needed for r with a margin around it to be in view; a rectangle larger
    // than the view gets its top-left corner shown.
    void ScrollIntoView(const MapRect& r, int margin);

    int HorizontalRange() const { return RangeOf(m_extent.w, m_view.w); }
    int VerticalRange() const { return RangeOf(m_extent.h, m_view.h); }
    int HorizontalPos() const { return m_view.x - m_extent.x; }
    int VerticalPos() const { return m_view.y - m_extent.y; }
    void SetHorizontalPos(int pos) { SetOrigin({m_extent.x + pos, m_view.y}); }
    void SetVerticalPos(int pos) { SetOrigin({m_view.x, m_extent.y + pos}); }

private:
    static int RangeOf(int extent, int view) { return extent > view ? extent - view : 0; }
    static int Clamp(int origin, int extentStart, int extent, int view);

    MapRect m_extent;
    MapRect m_view;
};

} // namespace velto
