#pragma once
// Where everything of the timeline sits for one client size, zoom and pair of divider positions:
// rows, the text column, the indicator column, day columns, bars, dividers and the child controls.
// Painting and hit-testing both ask this class, so a click always lands where the row was drawn.
#include <QRect>
#include <QSize>

#include <algorithm>
#include <optional>

namespace velto {

class ChartLayout {
public:
    // Width of the scroll bars; the calendar and the row area leave it free at the right and bottom.
    static constexpr int kScrollBarExtent = 15;
    // Height of the handle band between the horizontal divider and the note area below it.
    static constexpr int kNoteGap = 3;
    static constexpr int kMaxIndentLevel = 1000;

    // textWidth: x of the vertical divider between row text and calendar (chart width 1).
    // noteHeight: height of the note area below the horizontal divider (chart width 2).
    // Both are applied clamped to the client, the stored values themselves are not bounded.
    ChartLayout(QSize client, int fontSize, int textWidth, int noteHeight);

    int FontSize() const { return m_fs; }
    QSize Client() const { return m_client; }
    int RowPitch() const { return m_fs + 2; }
    int HeaderHeight() const { return 2 * m_fs; }
    // Top edge of the shown row with this index (0 = the first row shown).
    int RowTop(int shownIndex) const { return HeaderHeight() + shownIndex * RowPitch(); }
    // Lower edge of the row area: rows are drawn above it, the calendar scroll bar below it.
    int RowAreaBottom() const;
    // How many rows are (at least partly) drawn, and how many fit in full.
    int ShownRowCapacity() const;
    int FullyShownRows() const;
    // The shown row under y (the two pixels between rows belong to the row above), or nothing for
    // the header and below the row area.
    std::optional<int> ShownRowAt(int y) const;

    // Dividers. A point grabs a divider when it lies strictly closer than the font size.
    int VerticalDividerX() const { return m_dividerX; }
    int HorizontalDividerY() const { return m_dividerY; }
    bool NearVerticalDivider(int x) const;
    bool NearHorizontalDivider(int y) const;
    // The ranges in which a dragged divider follows the mouse.
    bool VerticalDragAllowed(int x) const;
    bool HorizontalDragAllowed(int y) const;
    // The note area height that puts the horizontal divider at y.
    int NoteHeightForDivider(int y) const { return m_client.height() - y; }

    // Row line of a node drag: snapped to the row grid, marking the gap where the node would land.
    int SnapRowLine(int y) const;
    bool RowLineAllowed(int y) const;
    // The shown row just below a snapped row line (it may lie beyond the last row that exists).
    int ShownRowBelowLine(int lineY) const;

    // Row content, left to right: indentation, expand marker slot, text, indicator column.
    // Levels of a damaged file may be negative or huge: the indentation stays within reach.
    int IndentX(int level) const { return std::clamp(level, 0, kMaxIndentLevel) * m_fs + 5; }
    QRect MarkerRect(int level, int rowTop) const;
    // The whole slot of the marker: a click anywhere in it toggles the node.
    QRect MarkerSlot(int level, int rowTop) const { return QRect(IndentX(level), rowTop, m_fs, m_fs); }
    int TextX(int level) const { return IndentX(level) + m_fs + 2; }
    // Right edge up to which row text is drawn (it stops short of the indicator column).
    int TextRight() const { return IndicatorBox(0).left() - 4; }
    // The progress or cost box: fontSize high and twice as wide, outside the divider's grab zone.
    QRect IndicatorBox(int rowTop) const;
    // The note and milestone square, at the start of the indicator column.
    QRect KindSquare(int rowTop) const;
    // The mark of a running hours clock, centred on the indicator box.
    QRect ClockMark(int rowTop) const;

    // Calendar columns.
    int CalendarLeft() const { return m_dividerX + 2; }
    int CalendarRight() const { return m_client.width() - kScrollBarExtent; }
    int DayWidth() const { return m_fs + 4; }
    int VisibleDays() const;
    int DayX(int dayOffset) const { return CalendarLeft() + dayOffset * DayWidth(); }
    // The day column under x (as an offset from the first day shown), or nothing outside.
    std::optional<int> DayOffsetAt(int x) const;
    // A bar from the start day's column to the due day's column (inclusive), 2 pixels inset from
    // the row's edges; the day offsets may lie outside the shown range (the painter clips).
    QRect BarRect(int rowTop, int startOffset, int dueOffset) const;
    // The small square marking a row with a responsible person, at the calendar's left edge.
    QRect ResponsibleMark(int rowTop) const;
    QRect CalendarArea() const;
    QRect TextArea() const;

    // Child controls and the note area.
    QRect VerticalScrollBarRect() const;
    QRect CalendarScrollBarRect() const;
    QRect TodayButtonRect() const;
    QRect NoteAreaRect() const;

private:
    QSize m_client;
    int m_fs;
    int m_dividerX;
    int m_dividerY;
};

} // namespace velto
