#include "base/ReportPrinter.h"

#include "base/Cp1252Text.h"
#include "outline/Report.h"

#include <QHash>
#include <QPagedPaintDevice>
#include <QPainter>

#include <algorithm>
#include <optional>

namespace velto {

namespace {
constexpr size_t kRowsBetweenProgress = 4096;
} // namespace

struct ReportPrinter::Layout {
    int width = 0;
    int height = 0;
    int lineHeight = 0;
    int footerHeight = 0;
    int bodyTop = 0;
    int rowsPerPage = 1;
    std::vector<int> left; // x of each column
    std::vector<int> columnWidth;
};

ReportPrinter::ReportPrinter(QString headerLine, int pointSize, QDateTime started)
    : m_headerLine(std::move(headerLine)), m_font("Arial", pointSize), m_started(std::move(started)) {}

void ReportPrinter::SetColumns(const QStringList& titles, const std::vector<bool>& rightAligned) {
    m_titles = titles;
    m_rightAligned = rightAligned;
}

void ReportPrinter::AddRow(QStringList cells) {
    // A remark may hold line breaks; a printed row is one line.
    for (QString& cell : cells)
        cell.replace('\r', ' ').replace('\n', ' ');
    m_rows.push_back(std::move(cells));
}

void ReportPrinter::AddReport(const Report& report) {
    QStringList titles;
    std::vector<bool> right;
    for (const ReportColumn& column : report.Columns()) {
        titles << ToQString(column.header);
        right.push_back(column.rightAligned);
    }
    SetColumns(titles, right);
    for (size_t row = 0; row < report.RowCount(); ++row) {
        QStringList cells;
        for (size_t column = 0; column < report.Columns().size(); ++column)
            cells << ToQString(report.Cell(row, column));
        AddRow(std::move(cells));
    }
}

QString ReportPrinter::PageText(int page) {
    return QString::asprintf("Page : %d", page);
}

QString ReportPrinter::StartedText(const QDateTime& started) {
    const QDate date = started.date();
    const QTime time = started.time();
    return QString::asprintf("%02d/%02d/%04d  %02d:%02d:%02d", date.day(), date.month(), date.year(),
                             time.hour(), time.minute(), time.second());
}

std::optional<ReportPrinter::Layout> ReportPrinter::MakeLayout(QPainter& painter,
                                                               const QPagedPaintDevice& device,
                                                               const PageProgress& progress) const {
    const QFontMetrics metrics = painter.fontMetrics();
    Layout layout;
    layout.width = device.width();
    layout.height = device.height();
    layout.lineHeight = metrics.height() + metrics.height() / 4;
    layout.footerHeight = metrics.height() + 4;
    // The header line, the column titles and a gap below their rule.
    layout.bodyTop = 3 * layout.lineHeight;
    const int body = layout.height - layout.footerHeight - layout.bodyTop;
    layout.rowsPerPage = std::max(1, body / layout.lineHeight);

    const int gap = metrics.averageCharWidth() * 2;
    std::vector<int> widths;
    for (const QString& title : m_titles)
        widths.push_back(metrics.horizontalAdvance(title) + gap);
    // Days, times, names and remarks repeat down a report: each text is measured once per column.
    std::vector<QHash<QString, int>> measured(widths.size());
    for (size_t row = 0; row < m_rows.size(); ++row) {
        const QStringList& cells = m_rows[row];
        for (int column = 0; column < std::min<int>(cells.size(), int(widths.size())); ++column) {
            auto known = measured[size_t(column)].find(cells[column]);
            if (known == measured[size_t(column)].end())
                known = measured[size_t(column)].insert(cells[column],
                                                        metrics.horizontalAdvance(cells[column]) + gap);
            widths[size_t(column)] = std::max(widths[size_t(column)], *known);
        }
        // Measuring a long report takes a moment: the caller may show it and stop it.
        if (progress && row % kRowsBetweenProgress == kRowsBetweenProgress - 1 && !progress(0, 0))
            return std::nullopt;
    }
    // Too wide for the page: every column gives up the same share, and its texts are elided.
    int total = 0;
    for (int width : widths)
        total += width;
    const double scale = total > layout.width ? double(layout.width) / total : 1.0;
    int x = 0;
    for (int width : widths) {
        layout.left.push_back(x);
        layout.columnWidth.push_back(int(width * scale));
        x += layout.columnWidth.back();
    }
    return layout;
}

void ReportPrinter::DrawRow(QPainter& painter, const Layout& layout, const QStringList& cells,
                            double y) const {
    const QFontMetrics metrics = painter.fontMetrics();
    // Columns were measured with two average characters to spare: one keeps neighbours apart, the
    // other absorbs the rounding of integer metrics, so that the widest text is never elided.
    const int pad = metrics.averageCharWidth();
    for (int column = 0; column < std::min<int>(cells.size(), int(layout.left.size())); ++column) {
        const int width = layout.columnWidth[size_t(column)] - pad;
        const QRect cell(layout.left[size_t(column)] + pad / 2, int(y), std::max(0, width),
                         layout.lineHeight);
        const Qt::Alignment align = m_rightAligned[size_t(column)] ? Qt::AlignRight : Qt::AlignLeft;
        painter.drawText(cell, align | Qt::AlignVCenter | Qt::TextSingleLine,
                         metrics.elidedText(cells[column], Qt::ElideRight, cell.width()));
    }
}

void ReportPrinter::DrawTop(QPainter& painter, const Layout& layout) const {
    QFont bold = m_font;
    bold.setBold(true);
    painter.setFont(bold);
    painter.drawText(QRect(0, 0, layout.width, layout.lineHeight),
                     Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, m_headerLine);
    DrawRow(painter, layout, m_titles, layout.lineHeight);
    painter.setFont(m_font);
    const int rule = 2 * layout.lineHeight + layout.lineHeight / 4;
    painter.drawLine(0, rule, layout.width, rule);
}

void ReportPrinter::DrawFooter(QPainter& painter, const Layout& layout, int page) const {
    const int top = layout.height - layout.footerHeight;
    const int half = layout.width / 2;
    painter.drawText(QRect(2, top, half - 2, layout.footerHeight),
                     Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, PageText(page));
    painter.drawText(QRect(half, top, layout.width - 3 - half, layout.footerHeight),
                     Qt::AlignRight | Qt::AlignVCenter | Qt::TextSingleLine, StartedText(m_started));
}

int ReportPrinter::Print(QPagedPaintDevice& device, const PageProgress& progress) const {
    QPainter painter(&device);
    painter.setFont(m_font);
    const std::optional<Layout> measured = MakeLayout(painter, device, progress);
    if (!measured)
        return 0;
    const Layout& layout = *measured;
    const size_t perPage = size_t(layout.rowsPerPage);
    const int total = int(std::max<size_t>(1, (m_rows.size() + perPage - 1) / perPage));
    int pages = 0;
    size_t next = 0;
    do {
        if (pages > 0)
            device.newPage();
        ++pages;
        DrawTop(painter, layout);
        const size_t end = std::min(m_rows.size(), next + perPage);
        for (int line = 0; next < end; ++next, ++line)
            DrawRow(painter, layout, m_rows[next], layout.bodyTop + line * layout.lineHeight);
        DrawFooter(painter, layout, pages);
        if (progress && !progress(pages, total))
            break;
    } while (next < m_rows.size());
    return pages;
}

} // namespace velto
