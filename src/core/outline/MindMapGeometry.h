#pragma once
// Points, rectangles and the measuring of titles in the mind map's own coordinates, where the root
// box is centred on (0, 0). Integer pixels, as the window draws them; no Qt.
#include "model/ProjectNode.h"

#include <string_view>

namespace velto {

struct MapPoint {
    int x = 0;
    int y = 0;
    friend bool operator==(MapPoint, MapPoint) = default;
};

// A rectangle from (x, y) to (x + w, y + h), the right and bottom edges excluded.
struct MapRect {
    int x = 0;
    int y = 0;
    int w = 0;
    int h = 0;

    int Right() const { return x + w; }
    int Bottom() const { return y + h; }
    MapPoint Centre() const { return {x + w / 2, y + h / 2}; }
    bool Contains(MapPoint p) const { return p.x >= x && p.x < Right() && p.y >= y && p.y < Bottom(); }
    bool Intersects(const MapRect& o) const {
        return x < o.Right() && o.x < Right() && y < o.Bottom() && o.y < Bottom();
    }
    friend bool operator==(const MapRect&, const MapRect&) = default;
};

// The format a title is measured and drawn in: the node's font and flags at a character height.
struct TitleStyle {
    std::string_view fontName;
    bool bold = false;
    bool italic = false;
    bool underline = false;
    bool strikeOut = false;
    int size = 0; // character height in pixels
};
TitleStyle TitleStyleOf(const CProjectNode& node, int size);

struct TextExtent {
    int width = 0;
    int height = 0;
};

// Measures a title as the window would draw it; the window supplies one for its fonts, tests their own.
class TextMeasurer {
public:
    virtual ~TextMeasurer() = default;
    virtual TextExtent Measure(std::string_view cp1252Text, const TitleStyle& style) = 0;
};

} // namespace velto
