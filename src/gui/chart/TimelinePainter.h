#pragma once
// Paints the timeline into any QPainter: the back buffer of the chart window, a printer page or a
// test image. One Paint() call draws the whole picture for one layout.
#include "base/ColorRef.h"
#include "chart/ChartHost.h"
#include "chart/ChartLayout.h"
#include "outline/ChartCalendar.h"
#include "outline/ChartRows.h"

#include <QColor>
#include <QPainter>

namespace velto {

// The raised-outer, sunken-inner 3-D frame every box and square of the chart gets.
void DrawBumpEdge(QPainter& painter, const QRect& rect);

struct TimelineScene {
    const ChartLayout& layout;
    const ChartRows& rows;
    int firstRow = 0; // index in rows of the first row drawn
    int today = 0;    // day number of today
    int firstDay = 0; // day number of the first calendar column
    const ChartOptions& options;
    const chartcal::HolidayCalendar& holidays;
    bool printing = false;  // no selection frame on paper
    int rowLimit = 1 << 30; // a printed page stops before the row that starts the next page
};

class TimelinePainter {
public:
    TimelinePainter(QPainter& painter, const TimelineScene& scene) : m_p(painter), m_s(scene) {}
    void Paint();

private:
    void PaintCalendarBackground();
    void PaintDayColumn(int offset);
    void PaintHeader();
    void PaintDividers();
    void PaintRows();
    void PaintRow(const CProjectNode& node, int rowTop);
    void PaintRowText(const CProjectNode& node, int rowTop);
    void PaintMarker(const CProjectNode& node, int rowTop);
    void PaintIndicator(const CProjectNode& node, int rowTop);
    void PaintProgressBox(const CProjectNode& node, int rowTop);
    void PaintCostBox(const CProjectNode& node, int rowTop);
    void PaintBar(const CProjectNode& node, int rowTop);
    int DayOffset(CTime t) const;

    QPainter& m_p;
    const TimelineScene& m_s;
};

} // namespace velto
