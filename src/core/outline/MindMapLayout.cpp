#include "outline/MindMapLayout.h"

#include <climits>
#include <cmath>
#include <tuple>

namespace velto {

namespace {

// Bands of a huge outline are summed in 64 bits; a coordinate is then held within reach of int.
int ToCoordinate(int64_t value) {
    return int(std::clamp<int64_t>(value, INT_MIN / 4, INT_MAX / 4));
}

// The first node after node that is not deeper than level: the end of a hidden subtree.
CProjectNode* SkipDeeper(CProjectNode* node, int level) {
    while (node && node->m_nLevel > level)
        node = node->m_pNext;
    return node;
}

// The part of the segment a-b inside view (edges included), or nothing (Liang and Barsky's cut).
bool ClipSegment(const MapRect& view, MapPoint& a, MapPoint& b) {
    const double dx = double(b.x) - a.x;
    const double dy = double(b.y) - a.y;
    double t0 = 0.0;
    double t1 = 1.0;
    const auto cut = [&](double p, double q) {
        if (p == 0.0)
            return q >= 0.0;
        const double t = q / p;
        if (p < 0.0)
            t0 = std::max(t0, t);
        else
            t1 = std::min(t1, t);
        return t0 <= t1;
    };
    if (!cut(-dx, double(a.x) - view.x) || !cut(dx, double(view.Right() - 1) - a.x) ||
        !cut(-dy, double(a.y) - view.y) || !cut(dy, double(view.Bottom() - 1) - a.y))
        return false;
    const MapPoint from{int(std::lround(a.x + t0 * dx)), int(std::lround(a.y + t0 * dy))};
    b = {int(std::lround(a.x + t1 * dx)), int(std::lround(a.y + t1 * dy))};
    a = from;
    return true;
}

} // namespace

RootBox FitRootBox(std::string_view title, TitleStyle style, int& storedWidth, TextMeasurer& measurer) {
    RootBox box;
    const TextExtent text = measurer.Measure(title, style);
    box.measurements = 1;
    const int wide = ToCoordinate(int64_t(text.width) * 8 / 5); // tw * 1.6, truncated
    if (storedWidth == 0 || storedWidth > wide)
        storedWidth = wide;
    if (storedWidth < text.width / 2)
        storedWidth = text.width / 2;
    box.width = storedWidth;
    box.height = ToCoordinate(int64_t(text.height) * 8 / 5);
    box.marginX = text.width / 5;
    box.marginY = text.height / 5;

    int size = style.size;
    TextExtent fitted = text;
    const auto measureAt = [&](int newSize) {
        style.size = newSize;
        ++box.measurements;
        return measurer.Measure(title, style);
    };
    if (fitted.width + 2 * box.marginX < box.width) {
        while (fitted.width + 2 * box.marginX < box.width && fitted.height + 2 * box.marginY < box.height &&
               size < kMindMapMaxFontSize)
            fitted = measureAt(++size);
    } else {
        while (fitted.width + 2 * box.marginX > box.width && size > kMindMapMinFontSize)
            fitted = measureAt(--size);
    }
    box.fontSize = size;
    return box;
}

// Per box of one Build, in layout order.
struct MindMapLayout::Work {
    std::vector<int64_t> band;       // height of the band the box's subtree is stacked in
    std::vector<int64_t> childBlock; // height of the box's children stacked with their gaps
    int64_t rightBlock = 0;          // the root's children on either side
    int64_t leftBlock = 0;
    int rootChildren = 0;
};

void MindMapLayout::Clear() {
    m_boxes.clear();
    m_extent = {};
    m_firstLeft = -1;
    m_selectedAtBuild = -1;
}

void MindMapLayout::Build(CProjectNode* first, int fontSize, TextMeasurer& measurer) {
    Clear();
    m_fontSize = std::clamp(fontSize, kMindMapMinFontSize, kMindMapMaxFontSize);
    if (!first)
        return;
    Work work;
    CollectBoxes(first, work);
    SizeBoxes(measurer);
    AssignSides(work);
    MeasureBands(work);
    PlaceBoxes(work);
    LinkColumns();
    ComputeExtent();
    m_extents.EndPass();
}

void MindMapLayout::CollectBoxes(CProjectNode* first, Work& work) {
    m_boxes.emplace_back().node = first;
    if (first->m_bSelected)
        m_selectedAtBuild = 0;
    // The chain of boxes the next node may hang below; the root stays at the bottom of it, so that a
    // node no deeper than the root (a damaged list) becomes the root's child.
    std::vector<int> open{0};
    CProjectNode* node = first->m_pNext;
    while (node) {
        while (open.size() > 1 && m_boxes[size_t(open.back())].node->m_nLevel >= node->m_nLevel)
            open.pop_back();
        const int parent = open.back();
        MindMapBox& above = m_boxes[size_t(parent)];
        above.hasChildren = true;
        if (!above.node->m_bExpanded) {
            above.collapsed = true;
            node = SkipDeeper(node, parent == 0 ? INT_MIN : above.node->m_nLevel);
            continue;
        }
        const int index = Count();
        if (above.firstChild < 0)
            above.firstChild = index;
        if (parent == 0)
            ++work.rootChildren;
        if (node->m_bSelected && m_selectedAtBuild < 0)
            m_selectedAtBuild = index;
        MindMapBox& box = m_boxes.emplace_back();
        box.node = node;
        box.parent = parent;
        open.push_back(index);
        node = node->m_pNext;
    }
}

void MindMapLayout::SizeBoxes(TextMeasurer& measurer) {
    MindMapBox& root = m_boxes.front();
    m_root = FitRootBox(root.node->m_strTitle.str(), TitleStyleOf(*root.node, m_fontSize), m_rootBoxWidth,
                        measurer);
    // A box of no width could be neither seen nor clicked: an empty title gets a square box. The
    // stored width keeps the rules' value.
    root.rect = {0, 0, std::max(m_root.width, m_root.height), m_root.height};
    root.rect.x = -root.rect.w / 2;
    root.rect.y = -root.rect.h / 2;
    root.fontSize = m_root.fontSize;
    for (size_t i = 1; i < m_boxes.size(); ++i) {
        MindMapBox& box = m_boxes[i];
        const TextExtent text = m_extents.Get(*box.node, m_fontSize, measurer);
        const int height = text.height + 2 * (text.height / 5);
        box.rect.w = std::max(text.width + 2 * (text.width / 5), height);
        box.rect.h = height;
        box.fontSize = m_fontSize;
    }
}

void MindMapLayout::MeasureBands(Work& work) const {
    const size_t n = m_boxes.size();
    work.band.assign(n, 0);
    work.childBlock.assign(n, 0);
    const int64_t gap = StackGap();
    // Children follow their parent, so walking backwards sums every subtree before its parent.
    for (size_t i = n; i-- > 1;) {
        const MindMapBox& box = m_boxes[i];
        work.band[i] = std::max<int64_t>(box.rect.h, work.childBlock[i]);
        int64_t& block = box.parent != 0              ? work.childBlock[size_t(box.parent)]
                         : box.side == MapSide::Right ? work.rightBlock
                                                      : work.leftBlock;
        block += (block > 0 ? gap : 0) + work.band[i];
    }
}

void MindMapLayout::AssignSides(const Work& work) {
    // The root's children: the first half on the right, the rest on the left; their subtrees follow.
    const int onRight = (work.rootChildren + 1) / 2;
    int ordinal = 0;
    for (size_t i = 1; i < m_boxes.size(); ++i) {
        MindMapBox& box = m_boxes[i];
        if (box.parent == 0) {
            box.side = ordinal++ < onRight ? MapSide::Right : MapSide::Left;
            if (box.side == MapSide::Left && m_firstLeft < 0)
                m_firstLeft = int(i);
        } else {
            box.side = m_boxes[size_t(box.parent)].side;
        }
    }
}

void MindMapLayout::PlaceBoxes(const Work& work) {
    // cursor: the top of the next child's band, per parent (and per side for the root).
    std::vector<int64_t> cursor(m_boxes.size(), 0);
    int64_t rightCursor = -work.rightBlock / 2;
    int64_t leftCursor = -work.leftBlock / 2;
    const int64_t gap = StackGap();
    for (size_t i = 1; i < m_boxes.size(); ++i) {
        MindMapBox& box = m_boxes[i];
        const MapRect& parent = m_boxes[size_t(box.parent)].rect;
        int64_t& next = box.parent != 0              ? cursor[size_t(box.parent)]
                        : box.side == MapSide::Right ? rightCursor
                                                     : leftCursor;
        const int64_t top = next;
        next += work.band[i] + gap;
        box.rect.y = ToCoordinate(top + (work.band[i] - box.rect.h) / 2);
        box.rect.x = ToCoordinate(box.side == MapSide::Right ? int64_t(parent.Right()) + LevelGap()
                                                             : int64_t(parent.x) - LevelGap() - box.rect.w);
        cursor[i] = top + (work.band[i] - work.childBlock[i]) / 2;
    }
}

void MindMapLayout::LinkColumns() {
    // Within one depth on one side, layout order runs from top to bottom.
    std::vector<int> depth(m_boxes.size(), 0);
    std::vector<int> lastRight;
    std::vector<int> lastLeft;
    for (size_t i = 1; i < m_boxes.size(); ++i) {
        MindMapBox& box = m_boxes[i];
        depth[i] = depth[size_t(box.parent)] + 1;
        std::vector<int>& last = box.side == MapSide::Right ? lastRight : lastLeft;
        if (last.size() <= size_t(depth[i]))
            last.resize(size_t(depth[i]) + 1, -1);
        int& above = last[size_t(depth[i])];
        if (above >= 0) {
            m_boxes[size_t(above)].columnBelow = int(i);
            box.columnAbove = above;
        }
        above = int(i);
    }
}

void MindMapLayout::ComputeExtent() {
    int left = INT_MAX, top = INT_MAX, right = INT_MIN, bottom = INT_MIN;
    const auto take = [&](const MapRect& r) {
        left = std::min(left, r.x);
        top = std::min(top, r.y);
        right = std::max(right, r.Right());
        bottom = std::max(bottom, r.Bottom());
    };
    for (int i = 0; i < Count(); ++i) {
        take(m_boxes[size_t(i)].rect);
        if (m_boxes[size_t(i)].hasChildren)
            take(MarkRect(i));
    }
    const int margin = m_fontSize;
    m_extent = {left - margin, top - margin, right - left + 2 * margin, bottom - top + 2 * margin};
}

int MindMapLayout::Find(const CProjectNode* node) const {
    for (int i = 0; i < Count(); ++i)
        if (m_boxes[size_t(i)].node == node)
            return i;
    return -1;
}

MapRect MindMapLayout::MarkRect(int index) const {
    const MindMapBox& box = m_boxes[size_t(index)];
    if (!box.hasChildren)
        return {};
    const int d = MarkDiameter();
    const MapRect& r = box.rect;
    const int middle = r.y + r.h / 2 - d / 2;
    switch (box.side) {
    case MapSide::Right:
        return {r.Right(), middle, d, d};
    case MapSide::Left:
        return {r.x - d, middle, d, d};
    case MapSide::Root:
        break;
    }
    return {r.x + r.w / 2 - d / 2, r.Bottom(), d, d};
}

int MindMapLayout::BoxAt(MapPoint p) const {
    for (int i = 0; i < Count(); ++i)
        if (m_boxes[size_t(i)].rect.Contains(p))
            return i;
    return -1;
}

int MindMapLayout::MarkAt(MapPoint p) const {
    for (int i = 0; i < Count(); ++i)
        if (m_boxes[size_t(i)].hasChildren && MarkRect(i).Contains(p))
            return i;
    return -1;
}

void MindMapLayout::BoxesIn(const MapRect& view, std::vector<int>& out) const {
    out.clear();
    // A box just outside still shows its mark or selection frame.
    const int reach = MarkDiameter() + 3;
    const MapRect wide{view.x - reach, view.y - reach, view.w + 2 * reach, view.h + 2 * reach};
    for (int i = 0; i < Count(); ++i)
        if (m_boxes[size_t(i)].rect.Intersects(wide))
            out.push_back(i);
}

MapPoint MindMapLayout::LineStart(int index) const {
    const MindMapBox& box = m_boxes[size_t(index)];
    const MapRect& r = box.rect;
    return {box.side == MapSide::Left ? r.Right() - 1 : r.x, r.y + r.h / 2};
}

MapPoint MindMapLayout::LineEnd(int index) const {
    const MindMapBox& box = m_boxes[size_t(index)];
    const MapRect& r = m_boxes[size_t(box.parent)].rect;
    return {box.side == MapSide::Left ? r.x : r.Right() - 1, r.y + r.h / 2};
}

void MindMapLayout::LinesIn(const MapRect& view, std::vector<Line>& out) const {
    out.clear();
    for (int i = 1; i < Count(); ++i) {
        MapPoint a = LineStart(i);
        MapPoint b = LineEnd(i);
        const MapRect bounds{std::min(a.x, b.x), std::min(a.y, b.y), std::abs(b.x - a.x) + 1,
                             std::abs(b.y - a.y) + 1};
        if (bounds.Intersects(view) && ClipSegment(view, a, b))
            out.push_back({a, b, i});
    }
    const auto key = [this](const Line& l) {
        return std::make_tuple(l.from.x, l.from.y, l.to.x, l.to.y, m_boxes[size_t(l.box)].node->m_crColor);
    };
    std::sort(out.begin(), out.end(), [&](const Line& a, const Line& b) { return key(a) < key(b); });
    out.erase(
        std::unique(out.begin(), out.end(), [&](const Line& a, const Line& b) { return key(a) == key(b); }),
        out.end());
}

int MindMapLayout::FirstOnSide(int index, MapSide side) const {
    const MindMapBox& box = m_boxes[size_t(index)];
    if (box.side == MapSide::Root)
        return side == MapSide::Right ? box.firstChild : m_firstLeft;
    return box.side == side ? box.firstChild : box.parent;
}

int MindMapLayout::Neighbour(int index, Step step) const {
    if (index < 0 || index >= Count())
        return -1;
    switch (step) {
    case Step::Up:
        return m_boxes[size_t(index)].columnAbove;
    case Step::Down:
        return m_boxes[size_t(index)].columnBelow;
    case Step::Left:
        return FirstOnSide(index, MapSide::Left);
    case Step::Right:
        break;
    }
    return FirstOnSide(index, MapSide::Right);
}

} // namespace velto
