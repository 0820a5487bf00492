#include "chart/TimelinePainter.h"

#include "chart/ChartStyle.h"
#include "chart/ChartText.h"
#include "model/NodeList.h"

#include <QFont>

#include <algorithm>

namespace velto {

using namespace chartstyle;

namespace {

const QColor kCostOver(255, 100, 100);
const QColor kCostOther(100, 100, 100);
const QColor kResponsible(230, 230, 0);
const QColor kToday(255, 0, 0);

void DrawHLine(QPainter& p, const QColor& color, int x1, int x2, int y) {
    p.setPen(color);
    p.drawLine(x1, y, x2, y);
}

void DrawVLine(QPainter& p, const QColor& color, int x, int y1, int y2) {
    p.setPen(color);
    p.drawLine(x, y1, x, y2);
}

} // namespace

void DrawBumpEdge(QPainter& p, const QRect& r) {
    if (r.width() < 4 || r.height() < 4)
        return;
    const QRect inner = r.adjusted(1, 1, -1, -1);
    DrawHLine(p, QColor(227, 227, 227), r.left(), r.right(), r.top());
    DrawVLine(p, QColor(227, 227, 227), r.left(), r.top(), r.bottom());
    DrawHLine(p, QColor(105, 105, 105), r.left(), r.right(), r.bottom());
    DrawVLine(p, QColor(105, 105, 105), r.right(), r.top(), r.bottom());
    DrawHLine(p, QColor(160, 160, 160), inner.left(), inner.right(), inner.top());
    DrawVLine(p, QColor(160, 160, 160), inner.left(), inner.top(), inner.bottom());
    DrawHLine(p, QColor(255, 255, 255), inner.left(), inner.right(), inner.bottom());
    DrawVLine(p, QColor(255, 255, 255), inner.right(), inner.top(), inner.bottom());
}

void TimelinePainter::Paint() {
    const ChartLayout& l = m_s.layout;
    m_p.save();
    m_p.fillRect(QRect(QPoint(0, 0), l.Client()), kBackground);
    m_p.setBackgroundMode(Qt::TransparentMode);
    PaintCalendarBackground();
    PaintHeader();
    PaintRows();
    PaintDividers();
    m_p.restore();
}

void TimelinePainter::PaintCalendarBackground() {
    const ChartLayout& l = m_s.layout;
    m_p.save();
    m_p.setClipRect(l.CalendarArea());
    for (int offset = 0; offset < l.VisibleDays(); ++offset)
        PaintDayColumn(offset);
    m_p.restore();
}

void TimelinePainter::PaintDayColumn(int offset) {
    const ChartLayout& l = m_s.layout;
    const int day = m_s.firstDay + offset;
    const int x = l.DayX(offset);
    const int top = l.FontSize();
    const int bottom = l.RowAreaBottom() - 1;
    const QRect column(QPoint(x + 1, top), QPoint(x + l.DayWidth() - 1, bottom));
    if (const auto holiday = m_s.holidays.ColourOf(day))
        m_p.fillRect(column, ColorFromColorRef(*holiday));
    else if (chartcal::IsWeekend(day))
        m_p.fillRect(column, kCell);
    DrawVLine(m_p, kGrid, x, top, bottom);
    if (day == m_s.today) {
        const int middle = x + l.DayWidth() / 2;
        m_p.fillRect(QRect(QPoint(middle - 1, l.HeaderHeight()), QPoint(middle, bottom)), kToday);
    }
}

void TimelinePainter::PaintHeader() {
    const ChartLayout& l = m_s.layout;
    const int fs = l.FontSize();
    m_p.save();
    m_p.setClipRect(l.CalendarArea());
    m_p.setFont(ChartFont(fs * 3 / 4));
    m_p.setPen(Qt::black);
    for (int offset = 0; offset < l.VisibleDays(); ++offset) {
        const chartcal::CivilDate date = chartcal::CivilFromDays(m_s.firstDay + offset);
        if (date.day != 1 && offset != 0)
            continue;
        const int x = l.DayX(offset);
        if (date.day == 1)
            DrawVLine(m_p, kGrid, x, 0, fs);
        const int width = (chartcal::DaysInMonth(date.year, date.month) - date.day + 1) * l.DayWidth();
        const QString label = QString::fromUtf8(chartcal::GermanMonthName(date.month)) + QLatin1Char(' ') +
                              QString::number(date.year);
        m_p.setPen(Qt::black);
        m_p.drawText(QRect(x + 3, 0, width - 4, fs), Qt::AlignLeft | Qt::AlignVCenter, label);
    }
    const QFont dayFont = ChartFont(fs * 2 / 3);
    QFont todayFont = ChartFont(fs * 2 / 3, QFont::Bold);
    for (int offset = 0; offset < l.VisibleDays(); ++offset) {
        const int day = m_s.firstDay + offset;
        const bool isToday = day == m_s.today;
        m_p.setFont(isToday ? todayFont : dayFont);
        m_p.setPen(isToday ? kToday : QColor(Qt::black));
        m_p.drawText(QRect(l.DayX(offset), fs, l.DayWidth(), fs), Qt::AlignCenter,
                     QString::number(chartcal::CivilFromDays(day).day));
    }
    m_p.restore();
    DrawHLine(m_p, kGrid, 0, l.CalendarRight(), l.HeaderHeight() - 1);
}

void TimelinePainter::PaintDividers() {
    const ChartLayout& l = m_s.layout;
    m_p.setPen(QPen(kGrid, 2));
    const int x = l.VerticalDividerX();
    m_p.drawLine(x, 0, x, l.RowAreaBottom());
    m_p.drawLine(0, l.HorizontalDividerY() + 1, l.Client().width(), l.HorizontalDividerY() + 1);
}

void TimelinePainter::PaintRows() {
    const ChartLayout& l = m_s.layout;
    m_p.save();
    m_p.setClipRect(QRect(0, 0, l.Client().width(), l.RowAreaBottom()));
    const int shown = std::min(l.ShownRowCapacity(), m_s.rowLimit);
    for (int i = 0; i < shown; ++i) {
        const CProjectNode* node = m_s.rows.At(m_s.firstRow + i);
        if (!node)
            break;
        PaintRow(*node, l.RowTop(i));
    }
    m_p.restore();
}

void TimelinePainter::PaintRow(const CProjectNode& node, int rowTop) {
    const ChartLayout& l = m_s.layout;
    if (node.m_bSelected && !m_s.printing) {
        m_p.setPen(Qt::black);
        m_p.setBrush(Qt::NoBrush);
        m_p.drawRect(2, rowTop, l.Client().width() - 4, l.FontSize());
    }
    PaintMarker(node, rowTop);
    PaintRowText(node, rowTop);
    PaintIndicator(node, rowTop);
    PaintBar(node, rowTop);
    if (!node.m_strResponsible.empty())
        m_p.fillRect(l.ResponsibleMark(rowTop), kResponsible);
}

void TimelinePainter::PaintRowText(const CProjectNode& node, int rowTop) {
    const ChartLayout& l = m_s.layout;
    const int x = l.TextX(node.m_nLevel);
    const int right = l.TextRight();
    if (right <= x)
        return;
    const std::string text = ChartRowText(node, m_s.options.datePrefix, m_s.options.showResponsible);
    m_p.setFont(TitleFont(TitleStyleOf(node, l.FontSize())));
    m_p.setPen(ColorFromColorRef(node.m_crColor));
    m_p.drawText(QRect(x, rowTop, right - x, l.FontSize()),
                 Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, ToQString(text));
}

void TimelinePainter::PaintMarker(const CProjectNode& node, int rowTop) {
    if (!HasChildren(&node))
        return;
    const QRect box = m_s.layout.MarkerRect(node.m_nLevel, rowTop);
    m_p.setPen(QColor(120, 120, 120));
    m_p.setBrush(Qt::NoBrush);
    m_p.drawRect(box.adjusted(0, 0, -1, -1));
    const QPoint centre = box.center();
    const int arm = box.width() / 2 - 2;
    m_p.setPen(Qt::black);
    m_p.drawLine(centre.x() - arm, centre.y(), centre.x() + arm, centre.y());
    if (!node.m_bExpanded)
        m_p.drawLine(centre.x(), centre.y() - arm, centre.x(), centre.y() + arm);
}

void TimelinePainter::PaintIndicator(const CProjectNode& node, int rowTop) {
    const ChartLayout& l = m_s.layout;
    switch (node.m_nKind) {
    case kKindProject:
        PaintProgressBox(node, rowTop);
        break;
    case kKindTask:
        if (m_s.options.showCosts)
            PaintCostBox(node, rowTop);
        else
            PaintProgressBox(node, rowTop);
        if (node.m_bClockedIn)
            m_p.fillRect(l.ClockMark(rowTop), Qt::black);
        break;
    case kKindNote:
    case kKindMilestone:
        m_p.fillRect(l.KindSquare(rowTop), node.m_nKind == kKindNote ? kNote : kMilestone);
        DrawBumpEdge(m_p, l.KindSquare(rowTop));
        break;
    default:
        break;
    }
}

void TimelinePainter::PaintProgressBox(const CProjectNode& node, int rowTop) {
    const QRect box = m_s.layout.IndicatorBox(rowTop);
    const int percent = std::clamp(node.m_nRowPos, 0, 100);
    const int filled = percent * box.width() / 100;
    if (filled > 0)
        m_p.fillRect(QRect(box.left(), box.top(), filled, box.height()), node.m_nRowAux ? kLate : kProgress);
    DrawBumpEdge(m_p, box);
}

void TimelinePainter::PaintCostBox(const CProjectNode& node, int rowTop) {
    const QRect box = m_s.layout.IndicatorBox(rowTop);
    m_p.fillRect(box, node.m_fCostPlanned > node.m_fCostNeeded ? kCostOver : kCostOther);
    DrawBumpEdge(m_p, box);
}

int TimelinePainter::DayOffset(CTime t) const {
    return chartcal::LocalDayNumber(t) - m_s.firstDay;
}

void TimelinePainter::PaintBar(const CProjectNode& node, int rowTop) {
    const ChartLayout& l = m_s.layout;
    const int start = DayOffset(node.m_timeStart);
    const int due = DayOffset(node.m_timeDue);
    if (std::max(start, due) < 0 || std::min(start, due) >= l.VisibleDays())
        return;
    m_p.save();
    m_p.setClipRect(l.CalendarArea().intersected(QRect(0, 0, l.Client().width(), l.RowAreaBottom())));
    const bool ownColour = m_s.options.barInNodeColour;
    const QColor nodeColour = ColorFromColorRef(node.m_crColor);
    if (node.m_nKind == kKindMilestone) {
        const QRect cell = l.BarRect(rowTop, due, due);
        const int side = std::min(cell.width(), cell.height());
        QRect square(0, 0, side, side);
        square.moveCenter(cell.center());
        m_p.fillRect(square, ownColour ? nodeColour : kMilestone);
    } else {
        const QRect bar = l.BarRect(rowTop, start, due);
        if (ownColour || node.m_nKind == kKindNote) {
            m_p.fillRect(bar, ownColour ? nodeColour : kNote);
        } else {
            // The done share in green from the left; the rest grey, or red when overdue.
            m_p.fillRect(bar, node.m_nRowAux ? kLate : kCell);
            const int done = std::clamp(node.m_nRowPos, 0, 100) * bar.width() / 100;
            if (done > 0)
                m_p.fillRect(QRect(bar.left(), bar.top(), done, bar.height()), kProgress);
        }
    }
    m_p.restore();
}

} // namespace velto
