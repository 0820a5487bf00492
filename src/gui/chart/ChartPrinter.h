#pragma once
// Puts the chart on paper: any paged device (a printer, the print preview, a PDF file) gets its
// pages one after the other, so a long project never holds more than one page in memory.
#include "outline/PrintLayout.h"

class QPagedPaintDevice;

namespace velto {

class CGrafik;

// What of the timeline goes onto paper: the shown rows from firstRow on, and the calendar from
// firstDay in a chart of width units (the window's width prints the days the window shows). The
// width is spread over the page width; the page height decides how many rows a page takes.
struct TimelinePrint {
    int firstRow = 0;
    int firstDay = 0;
    int width = 0;
};

// The timeline of the window as it prints: from the selected row, the window's days; nothing
// (after "Fehler Drucken!") when no node is selected.
std::optional<TimelinePrint> WindowTimelinePrint(CGrafik& chart);

// Every page: the calendar header, the rows that fit, and a footer with the page number and the
// chart's time of printing. Returns the number of pages, 0 when the device could not be opened.
int PrintTimeline(CGrafik& chart, QPagedPaintDevice& device, const TimelinePrint& what);

// The whole mind map scaled onto grid pages, cut into tiles that overlap by a few millimetres and
// carry cut marks where they meet. Returns the number of pages, 0 when the device could not be
// opened.
int PrintMindMap(CGrafik& chart, QPagedPaintDevice& device, PageGrid grid);

} // namespace velto
