#pragma once
// Prints the rows a report hands over: columns as wide as their widest text (narrowed together
// when the page is too small), the header line and the column titles on top of every page, pages
// broken between rows, and a footer with the page number and the time printing began.
#include <QDateTime>
#include <QFont>
#include <QString>
#include <QStringList>

#include <functional>
#include <optional>
#include <vector>

class QPagedPaintDevice;
class QPainter;

namespace velto {

class Report;

class ReportPrinter {
public:
    ReportPrinter(QString headerLine, int pointSize, QDateTime started);

    void SetColumns(const QStringList& titles, const std::vector<bool>& rightAligned);
    void AddRow(QStringList cells);
    // Takes the shown columns and every row of a report.
    void AddReport(const Report& report);

    // Told after each page the pages printed and the pages in all (0 and 0 while the columns are
    // measured); false stops printing.
    using PageProgress = std::function<bool(int printed, int pages)>;
    // Prints onto the device, which must be fresh; returns the number of pages printed.
    int Print(QPagedPaintDevice& device, const PageProgress& progress = {}) const;

    // "Page : 3".
    static QString PageText(int page);
    // The time printing began: "24/11/2026  09:05:03" (day/month/year, two blanks, time).
    static QString StartedText(const QDateTime& started);

private:
    struct Layout;
    // Nothing when progress stopped it.
    std::optional<Layout> MakeLayout(QPainter& painter, const QPagedPaintDevice& device,
                                     const PageProgress& progress) const;
    void DrawTop(QPainter& painter, const Layout& layout) const;
    void DrawRow(QPainter& painter, const Layout& layout, const QStringList& cells, double y) const;
    void DrawFooter(QPainter& painter, const Layout& layout, int page) const;

    QString m_headerLine;
    QFont m_font;
    QDateTime m_started;
    QStringList m_titles;
    std::vector<bool> m_rightAligned;
    std::vector<QStringList> m_rows;
};

} // namespace velto
