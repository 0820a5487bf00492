#include "chart/ChartPrinter.h"

#include "chart/CGrafik.h"
#include "chart/MindMapPainter.h"

#include <QPagedPaintDevice>
#include <QPainter>

#include <cmath>

namespace velto {

namespace {

constexpr double kOverlapMm = 8.0;
constexpr double kCutMarkMm = 4.0;

int MmToDevice(const QPaintDevice& device, double mm) {
    return int(std::lround(mm * device.logicalDpiX() / 25.4));
}

// The footer below the chart, in the chart's units: the page number left, the print time right.
class Footer {
public:
    Footer(int fontSize, int pageCount, CTime printedAt)
        : m_pageCount(pageCount), m_printedAt(QString::fromStdString(PrintDateText(printedAt))) {
        m_font.setFamily(QStringLiteral("Arial"));
        m_font.setPixelSize(TextHeight(fontSize));
    }
    static int TextHeight(int fontSize) { return std::max(6, fontSize * 3 / 4); }
    static int HeightFor(int fontSize) { return 2 * TextHeight(fontSize); }
    void Paint(QPainter& p, QRect area, int page) const {
        p.save();
        p.setFont(m_font);
        p.setPen(Qt::black);
        const QRect text = area.adjusted(2, 0, -3, 0);
        p.drawText(text, Qt::AlignLeft | Qt::AlignVCenter,
                   QString::fromStdString(PageNumberText(page, m_pageCount)));
        p.drawText(text, Qt::AlignRight | Qt::AlignVCenter, m_printedAt);
        p.restore();
    }

private:
    QFont m_font;
    int m_pageCount;
    QString m_printedAt;
};

void PaintCutMarks(QPainter& p, const MapTiling::Cuts& cuts, QSize page, int length) {
    p.save();
    p.setPen(QPen(Qt::black, 0));
    for (const auto& x : {cuts.left, cuts.right}) {
        if (!x)
            continue;
        p.drawLine(*x, 0, *x, length);
        p.drawLine(*x, page.height() - length, *x, page.height());
    }
    for (const auto& y : {cuts.top, cuts.bottom}) {
        if (!y)
            continue;
        p.drawLine(0, *y, length, *y);
        p.drawLine(page.width() - length, *y, page.width(), *y);
    }
    p.restore();
}

} // namespace

std::optional<TimelinePrint> WindowTimelinePrint(CGrafik& chart) {
    const int firstRow = chart.PrintStartRow();
    if (firstRow < 0)
        return std::nullopt;
    return TimelinePrint{firstRow, chart.FirstShownDay(), chart.width()};
}

int PrintTimeline(CGrafik& chart, QPagedPaintDevice& device, const TimelinePrint& what) {
    QPainter painter;
    if (!painter.begin(&device))
        return 0;
    // The chart keeps its own units; the page is that many units wide and as high as its shape says.
    const double scale = double(device.width()) / std::max(1, what.width);
    const int pageHeight = int(device.height() / scale);
    const int fontSize = chart.FontSize();
    const int footerHeight = Footer::HeightFor(fontSize);
    const QSize chartSize(what.width, std::max(1, pageHeight - footerHeight));
    const RowPages pages(what.firstRow, chart.ShownRowCount(),
                         chart.PrintLayoutFor(chartSize).FullyShownRows());
    const Footer footer(fontSize, pages.PageCount(), chart.Now());
    for (int page = 0; page < pages.PageCount(); ++page) {
        if (page > 0)
            device.newPage();
        painter.save();
        painter.scale(scale, scale);
        painter.setClipRect(QRect(QPoint(0, 0), chartSize));
        chart.RenderPrintPage(painter, chartSize, pages.FirstRowOf(page), pages.RowsOn(page), what.firstDay);
        painter.setClipping(false);
        footer.Paint(painter, QRect(0, chartSize.height(), what.width, footerHeight), page + 1);
        painter.restore();
    }
    return pages.PageCount();
}

int PrintMindMap(CGrafik& chart, QPagedPaintDevice& device, PageGrid grid) {
    const MindMapLayout& map = chart.LaidOutMindMap();
    QPainter painter;
    if (!painter.begin(&device))
        return 0;
    const QSize page(device.width(), device.height());
    const MapRect extent = map.Extent();
    const MapTiling tiling(extent.x, extent.y, extent.w, extent.h, page.width(), page.height(), grid,
                           MmToDevice(device, kOverlapMm));
    const double scale = tiling.Scale();
    for (int tile = 0; tile < tiling.TileCount(); ++tile) {
        if (tile > 0)
            device.newPage();
        const MapTiling::Point origin = tiling.TileOrigin(tile);
        // The painter draws only what crosses its view; the view is the tile widened to whole units.
        const int left = int(std::floor(origin.x));
        const int top = int(std::floor(origin.y));
        const MapRect view{left, top, int(std::ceil(page.width() / scale)) + 2,
                           int(std::ceil(page.height() / scale)) + 2};
        painter.save();
        painter.setClipRect(QRect(QPoint(0, 0), page));
        painter.scale(scale, scale);
        painter.translate(left - origin.x, top - origin.y);
        const MindMapScene scene{map, view, true};
        MindMapPainter(painter, scene).Paint();
        painter.restore();
        PaintCutMarks(painter, tiling.CutsOf(tile), page, MmToDevice(device, kCutMarkMm));
    }
    return tiling.TileCount();
}

} // namespace velto
