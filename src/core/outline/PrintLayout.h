#pragma once
// How a chart goes onto paper: the timeline's rows split over pages below a repeated calendar
// header, the mind map scaled onto N x M pages cut into overlapping tiles, the footer texts, and
// the "NxM" and "YYYY-MM-DD" arguments of the export. All sizes are in units of the target page.
#include "model/CTime.h"

#include <optional>
#include <string>
#include <string_view>

namespace velto {

// Pages across and down a mind map print may take.
struct PageGrid {
    int across = 1;
    int down = 1;
};
inline constexpr int kMinPagesPerSide = 1;
inline constexpr int kMaxPagesPerSide = 20;
inline bool PagesPerSideValid(int pages) {
    return pages >= kMinPagesPerSide && pages <= kMaxPagesPerSide;
}
// Landscape pages suit a map that is wider on each of its pages than it is high.
inline bool PrefersLandscape(double mapWidth, double mapHeight, PageGrid grid) {
    return mapWidth * grid.down > mapHeight * grid.across;
}
// "NxM" with N and M in 1..20 ("3x2": three across, two down), or nothing.
std::optional<PageGrid> ParsePageGrid(std::string_view text);
// "YYYY-MM-DD" as a day number (days since 1970-01-01), or nothing for an impossible date.
std::optional<int> ParseIsoDay(std::string_view text);

// The timeline's rows from firstRow to the last shown row, rowsPerPage on each page.
class RowPages {
public:
    // rowsPerPage below 1 is taken as 1, so every page makes progress.
    RowPages(int firstRow, int rowCount, int rowsPerPage);
    // At least one page, even without rows: the header alone is printed.
    int PageCount() const { return m_pageCount; }
    int FirstRowOf(int page) const { return m_firstRow + page * m_rowsPerPage; }
    // Rows on this page (the last page may hold fewer).
    int RowsOn(int page) const;
    int RowsPerPage() const { return m_rowsPerPage; }

private:
    int m_firstRow;
    int m_rowCount;
    int m_rowsPerPage;
    int m_pageCount;
};

// The mind map's extent scaled to fit grid pages of pageWidth x pageHeight, aspect kept and centred.
// Neighbouring tiles share overlap units, so that the pages can be cut and glued; the cut runs
// through the middle of the shared strip.
class MapTiling {
public:
    struct Point {
        double x;
        double y;
    };
    // Sides of a tile that border another tile, with the page coordinate of the cut on each.
    struct Cuts {
        std::optional<int> left, right, top, bottom;
    };

    MapTiling(double mapX, double mapY, double mapWidth, double mapHeight, int pageWidth, int pageHeight,
              PageGrid grid, int overlap);
    // Page units per map unit.
    double Scale() const { return m_scale; }
    int TileCount() const { return m_grid.across * m_grid.down; }
    // Tiles are printed row by row: tile i is column i % across, row i / across.
    int ColumnOf(int tile) const { return tile % m_grid.across; }
    int RowOf(int tile) const { return tile / m_grid.across; }
    // The map point at the top-left corner of the tile's page.
    Point TileOrigin(int tile) const;
    Cuts CutsOf(int tile) const;

private:
    double m_mapX, m_mapY;
    int m_pageWidth, m_pageHeight;
    PageGrid m_grid;
    int m_overlap;
    double m_scale = 1.0;
    double m_offsetX = 0.0; // centring of the scaled map in the area of all tiles
    double m_offsetY = 0.0;
};

// The footer of a printed page: "Seite 2 von 5" and "Gedruckt am 24.11.2026 21:30".
std::string PageNumberText(int page, int pageCount);
std::string PrintDateText(CTime printedAt);

} // namespace velto
