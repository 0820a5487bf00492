#include "outline/MindMapViewport.h"

#include <algorithm>

namespace velto {

int MindMapViewport::Clamp(int origin, int extentStart, int extent, int view) {
    const int last = extentStart + extent - view; // the far edge of the map on the window's far edge
    return std::clamp(origin, std::min(extentStart, last), std::max(extentStart, last));
}

void MindMapViewport::SetViewSize(int width, int height) {
    m_view.w = std::max(0, width);
    m_view.h = std::max(0, height);
    SetOrigin(Origin());
}

void MindMapViewport::SetExtent(const MapRect& extent) {
    m_extent = extent;
    SetOrigin(Origin());
}

void MindMapViewport::SetOrigin(MapPoint origin) {
    m_view.x = Clamp(origin.x, m_extent.x, m_extent.w, m_view.w);
    m_view.y = Clamp(origin.y, m_extent.y, m_extent.h, m_view.h);
}

void MindMapViewport::ScrollIntoView(const MapRect& r, int margin) {
    const auto axis = [](int origin, int start, int size, int view) {
        if (start < origin || size > view)
            return start;
        return start + size > origin + view ? start + size - view : origin;
    };
    SetOrigin({axis(m_view.x, r.x - margin, r.w + 2 * margin, m_view.w),
               axis(m_view.y, r.y - margin, r.h + 2 * margin, m_view.h)});
}

} // namespace velto
