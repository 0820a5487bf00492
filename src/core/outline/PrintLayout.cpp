#include "outline/PrintLayout.h"

#include "outline/ChartCalendar.h"

#include <algorithm>
#include <charconv>

namespace velto {

namespace {

std::optional<int> ParseNumber(std::string_view text) {
    int value = 0;
    const char* end = text.data() + text.size();
    const auto [ptr, ec] = std::from_chars(text.data(), end, value);
    if (text.empty() || ec != std::errc() || ptr != end)
        return std::nullopt;
    return value;
}

} // namespace

std::optional<PageGrid> ParsePageGrid(std::string_view text) {
    const size_t x = text.find_first_of("xX");
    if (x == std::string_view::npos)
        return std::nullopt;
    const auto across = ParseNumber(text.substr(0, x));
    const auto down = ParseNumber(text.substr(x + 1));
    if (!across || !down || !PagesPerSideValid(*across) || !PagesPerSideValid(*down))
        return std::nullopt;
    return PageGrid{*across, *down};
}

std::optional<int> ParseIsoDay(std::string_view text) {
    if (text.size() != 10 || text[4] != '-' || text[7] != '-')
        return std::nullopt;
    const auto year = ParseNumber(text.substr(0, 4));
    const auto month = ParseNumber(text.substr(5, 2));
    const auto day = ParseNumber(text.substr(8, 2));
    if (!year || !month || !day || *month < 1 || *month > 12 || *day < 1 ||
        *day > chartcal::DaysInMonth(*year, *month))
        return std::nullopt;
    return chartcal::DaysFromCivil(*year, *month, *day);
}

RowPages::RowPages(int firstRow, int rowCount, int rowsPerPage)
    : m_firstRow(firstRow), m_rowCount(std::max(0, rowCount - firstRow)),
      m_rowsPerPage(std::max(1, rowsPerPage)),
      m_pageCount(std::max(1, (m_rowCount + m_rowsPerPage - 1) / m_rowsPerPage)) {}

int RowPages::RowsOn(int page) const {
    return std::clamp(m_rowCount - page * m_rowsPerPage, 0, m_rowsPerPage);
}

MapTiling::MapTiling(double mapX, double mapY, double mapWidth, double mapHeight, int pageWidth,
                     int pageHeight, PageGrid grid, int overlap)
    : m_mapX(mapX), m_mapY(mapY), m_pageWidth(pageWidth), m_pageHeight(pageHeight), m_grid(grid),
      m_overlap(std::clamp(overlap, 0, std::min(pageWidth, pageHeight) / 2)) {
    const double areaWidth = double(grid.across) * pageWidth - double(grid.across - 1) * m_overlap;
    const double areaHeight = double(grid.down) * pageHeight - double(grid.down - 1) * m_overlap;
    if (mapWidth > 0 && mapHeight > 0)
        m_scale = std::min(areaWidth / mapWidth, areaHeight / mapHeight);
    m_offsetX = (areaWidth - mapWidth * m_scale) / 2;
    m_offsetY = (areaHeight - mapHeight * m_scale) / 2;
}

MapTiling::Point MapTiling::TileOrigin(int tile) const {
    const double x = double(ColumnOf(tile)) * (m_pageWidth - m_overlap) - m_offsetX;
    const double y = double(RowOf(tile)) * (m_pageHeight - m_overlap) - m_offsetY;
    return {m_mapX + x / m_scale, m_mapY + y / m_scale};
}

MapTiling::Cuts MapTiling::CutsOf(int tile) const {
    // The two tiles of a strip of odd width must still agree on where its middle is.
    const int half = m_overlap / 2;
    const int otherHalf = m_overlap - half;
    Cuts cuts;
    if (ColumnOf(tile) > 0)
        cuts.left = half;
    if (ColumnOf(tile) < m_grid.across - 1)
        cuts.right = m_pageWidth - otherHalf;
    if (RowOf(tile) > 0)
        cuts.top = half;
    if (RowOf(tile) < m_grid.down - 1)
        cuts.bottom = m_pageHeight - otherHalf;
    return cuts;
}

std::string PageNumberText(int page, int pageCount) {
    return "Seite " + std::to_string(page) + " von " + std::to_string(pageCount);
}

std::string PrintDateText(CTime printedAt) {
    return "Gedruckt am " + printedAt.Format("%d.%m.%Y %H:%M");
}

} // namespace velto
