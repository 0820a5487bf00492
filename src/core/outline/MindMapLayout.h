#pragma once
// Where every box of the mind map stands: the root's title in a box centred on (0, 0), the root's
// children split into a right and a left half, each further level continuing outwards, and every
// subtree stacked in a band of its own with a fixed gap, so that no two boxes overlap. Nodes under
// a collapsed node are left out; the collapsed node's box carries a mark. The same outline, font
// size and stored root box width always give the same map.
//
// The laid-out map also answers what the window asks of it: the box or mark at a point, the boxes
// and lines that cross the window, and where the arrow keys lead.
#include "outline/MindMapGeometry.h"
#include "outline/TitleExtentCache.h"

#include <algorithm>
#include <cstdint>
#include <vector>

namespace velto {

// The root box: its size follows the stored width rules, its title is fitted into it.
struct RootBox {
    int width = 0;
    int height = 0;
    int marginX = 0;
    int marginY = 0;
    int fontSize = 0; // the fitted character height of the title
    int measurements = 0;
};

// The fitting loop changes the title's size by one per step between these bounds, so that a font
// whose extent never changes cannot hang it.
inline constexpr int kMindMapMinFontSize = 1;
inline constexpr int kMindMapMaxFontSize = 10000;

// Measures the root title at style.size (tw, th) and applies the box rules to storedWidth, which the
// caller keeps between layouts so that the box keeps its size while the title changes little: it
// becomes tw * 1.6 when 0 or wider than that, and tw / 2 when narrower than that. The box is th * 1.6
// high with margins of a fifth of the text's extent, and the title's size is then stepped up while
// the text with its margins stays inside the box, or down while it is wider.
RootBox FitRootBox(std::string_view title, TitleStyle style, int& storedWidth, TextMeasurer& measurer);

enum class MapSide : uint8_t { Root, Right, Left };

struct MindMapBox {
    CProjectNode* node = nullptr;
    MapRect rect;
    int parent = -1;
    int firstChild = -1;  // first shown child (for the root: the first on the right)
    int columnAbove = -1; // the box above at the same depth on the same side
    int columnBelow = -1; // the box below at the same depth on the same side
    int fontSize = 0;     // character height of the title
    MapSide side = MapSide::Root;
    bool hasChildren = false; // shown or hidden under a collapsed node
    bool collapsed = false;   // has children and they are hidden
};

class MindMapLayout {
public:
    enum class Step { Up, Down, Left, Right };

    // Lays out the outline from first at this character height. The root box width kept from the
    // last layout applies (see FitRootBox). A node whose ancestors are not all expanded is left out.
    // A damaged list may hold nodes no deeper than the first node: they count as the root's children.
    void Build(CProjectNode* first, int fontSize, TextMeasurer& measurer);
    // Forgets the layout (not the root box width): the boxes may point to nodes that are gone.
    void Clear();

    bool Empty() const { return m_boxes.empty(); }
    int Count() const { return int(m_boxes.size()); }
    const MindMapBox& Box(int index) const { return m_boxes[size_t(index)]; }
    const std::vector<MindMapBox>& Boxes() const { return m_boxes; }
    const RootBox& Root() const { return m_root; }
    int FontSize() const { return m_fontSize; }
    const TitleExtentCache& Extents() const { return m_extents; }
    // The smallest rectangle holding every box and mark, with a margin of one character height.
    MapRect Extent() const { return m_extent; }
    // The box of the first selected node when the map was laid out, or -1.
    int SelectedAtBuild() const { return m_selectedAtBuild; }
    // The box of node, or -1. Walks the boxes: for rare callers only.
    int Find(const CProjectNode* node) const;

    // The button of a box with children, which shows whether they are hidden and toggles them: a
    // circle outside the outward edge's midpoint, below the root box. Empty without children.
    MapRect MarkRect(int box) const;
    // The box or the mark at p, or -1.
    int BoxAt(MapPoint p) const;
    int MarkAt(MapPoint p) const;
    // The boxes that cross view, in layout order.
    void BoxesIn(const MapRect& view, std::vector<int>& out) const;

    // A line from a box to its parent's, cut to the part inside the view; box is the child's index.
    struct Line {
        MapPoint from;
        MapPoint to;
        int box = -1;
    };
    // The lines that cross view, cut to it. Lines that would cover the same pixels in the same
    // colour are given once: a root with thousands of children sends them all through the window.
    void LinesIn(const MapRect& view, std::vector<Line>& out) const;
    // The end points of the line from box to its parent: the facing edge midpoints.
    MapPoint LineStart(int box) const;
    MapPoint LineEnd(int box) const;

    // Where an arrow key leads from box: up and down to the box above or below at the same depth,
    // outwards to the first child, inwards to the parent; -1 when there is nothing that way.
    int Neighbour(int box, Step step) const;

    // Gaps between stacked boxes and between levels, from the character height.
    int StackGap() const { return std::max(2, m_fontSize / 2); }
    int LevelGap() const { return 2 * m_fontSize + MarkDiameter(); }
    int MarkDiameter() const { return std::max(7, m_fontSize * 2 / 3) | 1; }

private:
    struct Work; // the per-box sums of one Build
    void CollectBoxes(CProjectNode* first, Work& work);
    void SizeBoxes(TextMeasurer& measurer);
    void AssignSides(const Work& work);
    void MeasureBands(Work& work) const;
    void PlaceBoxes(const Work& work);
    void LinkColumns();
    void ComputeExtent();
    int FirstOnSide(int box, MapSide side) const;

    std::vector<MindMapBox> m_boxes;
    TitleExtentCache m_extents;
    RootBox m_root;
    MapRect m_extent;
    int m_fontSize = 20;
    int m_rootBoxWidth = 0; // kept from layout to layout, 0 until the first (see FitRootBox)
    int m_firstLeft = -1;   // the root's first child on the left
    int m_selectedAtBuild = -1;
};

} // namespace velto
