#include "chart/ChartLayout.h"

#include <algorithm>
#include <cstdlib>

namespace velto {

namespace {

// std::clamp requires lo <= hi; a window smaller than two rows must not break that.
int ClampSafe(int value, int lo, int hi) {
    return std::max(lo, std::min(value, hi));
}

} // namespace

ChartLayout::ChartLayout(QSize client, int fontSize, int textWidth, int noteHeight)
    : m_client(client.expandedTo(QSize(0, 0))), m_fs(std::max(1, fontSize)),
      m_dividerX(ClampSafe(textWidth, 0, m_client.width() - kScrollBarExtent)),
      m_dividerY(ClampSafe(m_client.height() - noteHeight, m_fs, m_client.height() - m_fs)) {}

int ChartLayout::RowAreaBottom() const {
    return std::max(HeaderHeight(), m_dividerY - kScrollBarExtent);
}

int ChartLayout::ShownRowCapacity() const {
    const int span = RowAreaBottom() - HeaderHeight();
    return span <= 0 ? 0 : (span + RowPitch() - 1) / RowPitch();
}

int ChartLayout::FullyShownRows() const {
    // The last row needs its own height only, not the gap below it.
    const int span = RowAreaBottom() - HeaderHeight() + 2;
    return std::max(0, span / RowPitch());
}

std::optional<int> ChartLayout::ShownRowAt(int y) const {
    if (y < HeaderHeight() || y >= RowAreaBottom())
        return std::nullopt;
    return (y - HeaderHeight()) / RowPitch();
}

bool ChartLayout::NearVerticalDivider(int x) const {
    return std::abs(x - m_dividerX) < m_fs;
}

bool ChartLayout::NearHorizontalDivider(int y) const {
    return std::abs(y - m_dividerY) < m_fs;
}

bool ChartLayout::VerticalDragAllowed(int x) const {
    return x >= m_fs && x <= m_client.width() - m_fs - kScrollBarExtent;
}

bool ChartLayout::HorizontalDragAllowed(int y) const {
    return y >= m_fs && y <= m_client.height() - m_fs;
}

int ChartLayout::SnapRowLine(int y) const {
    return y / RowPitch() * RowPitch() + m_fs - 3;
}

bool ChartLayout::RowLineAllowed(int y) const {
    return y >= m_fs + 5 && y <= RowAreaBottom();
}

int ChartLayout::ShownRowBelowLine(int lineY) const {
    // A snapped line lies one pixel below a row's lower edge, in the gap above the next row.
    return (lineY + 3 - HeaderHeight()) / RowPitch();
}

QRect ChartLayout::MarkerRect(int level, int rowTop) const {
    const int side = std::max(5, m_fs - 6) | 1; // odd, so the plus sign sits centred
    return QRect(IndentX(level) + (m_fs - side) / 2, rowTop + (m_fs - side) / 2, side, side);
}

QRect ChartLayout::IndicatorBox(int rowTop) const {
    const int width = 2 * m_fs;
    return QRect(m_dividerX - m_fs - 2 - width, rowTop, width, m_fs);
}

QRect ChartLayout::KindSquare(int rowTop) const {
    const QRect box = IndicatorBox(rowTop);
    return QRect(box.left(), rowTop, m_fs, m_fs);
}

QRect ChartLayout::ClockMark(int rowTop) const {
    const int middle = IndicatorBox(rowTop).center().x() + 1;
    return QRect(middle - 2, rowTop + 4, 4, std::max(1, m_fs - 10));
}

int ChartLayout::VisibleDays() const {
    const int span = CalendarRight() - CalendarLeft();
    return span <= 0 ? 0 : (span + DayWidth() - 1) / DayWidth();
}

std::optional<int> ChartLayout::DayOffsetAt(int x) const {
    if (x < CalendarLeft() || x >= CalendarRight())
        return std::nullopt;
    return (x - CalendarLeft()) / DayWidth();
}

QRect ChartLayout::BarRect(int rowTop, int startOffset, int dueOffset) const {
    const int first = std::min(startOffset, dueOffset);
    const int last = std::max(startOffset, dueOffset);
    const int left = DayX(first) + 1;
    const int right = DayX(last + 1) - 1;
    return QRect(QPoint(left, rowTop + 2), QPoint(right - 1, rowTop + m_fs - 3));
}

QRect ChartLayout::ResponsibleMark(int rowTop) const {
    const int side = std::max(2, m_fs / 4);
    return QRect(CalendarLeft() + 1, rowTop + 1, side, side);
}

QRect ChartLayout::CalendarArea() const {
    return QRect(QPoint(CalendarLeft(), 0), QPoint(CalendarRight() - 1, RowAreaBottom() - 1));
}

QRect ChartLayout::TextArea() const {
    return QRect(0, 0, m_dividerX, RowAreaBottom());
}

QRect ChartLayout::VerticalScrollBarRect() const {
    return QRect(CalendarRight(), 0, kScrollBarExtent, RowAreaBottom());
}

QRect ChartLayout::CalendarScrollBarRect() const {
    return QRect(CalendarLeft(), RowAreaBottom(), std::max(0, CalendarRight() - CalendarLeft()),
                 kScrollBarExtent);
}

QRect ChartLayout::TodayButtonRect() const {
    const int width = std::min(4 * kScrollBarExtent, CalendarLeft());
    return QRect(CalendarLeft() - width, RowAreaBottom(), width, kScrollBarExtent);
}

QRect ChartLayout::NoteAreaRect() const {
    const int top = m_dividerY + kNoteGap;
    return QRect(0, top, m_client.width(), std::max(0, m_client.height() - top));
}

} // namespace velto
