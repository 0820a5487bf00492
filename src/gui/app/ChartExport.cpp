#include "app/ChartExport.h"

#include "base/Settings.h"
#include "chart/CGrafik.h"
#include "chart/ChartPrinter.h"
#include "chart/MindMapPainter.h"
#include "common/Prompter.h"
#include "document/CVeltoDoc.h"
#include "files/DataDir.h"
#include "outline/ChartCalendar.h"
#include "view/ViewContext.h"

#include <QFileInfo>
#include <QImage>
#include <QPainter>
#include <QPdfWriter>
#include <QSaveFile>
#include <QSvgGenerator>

#include <algorithm>
#include <climits>

namespace velto {

namespace {

// The longest calendar an export draws when the project's own dates would span more.
constexpr int kMaxDays = 3660;
// An image beyond this many pixels is refused rather than allocated.
constexpr qint64 kMaxImagePixels = qint64(256) << 20;

enum class Format { Pdf, Png, Svg };

std::optional<Format> FormatOf(const QString& out) {
    const QString suffix = QFileInfo(out).suffix().toLower();
    if (suffix == QLatin1String("pdf"))
        return Format::Pdf;
    if (suffix == QLatin1String("png"))
        return Format::Png;
    if (suffix == QLatin1String("svg"))
        return Format::Svg;
    return std::nullopt;
}

// Messages of the document and the settings, on the error stream; every question is declined.
class StreamPrompter : public Prompter {
public:
    explicit StreamPrompter(std::FILE* stream) : m_stream(stream) {}
    PromptAnswer Ask(std::string_view, std::string_view text, PromptButtons buttons, PromptIcon) override {
        std::fprintf(m_stream, "%.*s\n", int(text.size()), text.data());
        return buttons == PromptButtons::Ok ? PromptAnswer::Ok : PromptAnswer::No;
    }

private:
    std::FILE* m_stream;
};

// The chart of an export edits nothing, so it needs the document and the messages only.
class ExportHost : public ChartHost {
public:
    ExportHost(CVeltoDoc& doc, Prompter& prompter) : m_doc(doc), m_prompter(prompter) {}
    CVeltoDoc* Document() override { return &m_doc; }
    void TakeUndoCopy() override {}
    void EditSelectedNode() override {}
    bool NotePaneHasFocus() const override { return false; }
    void PasteIntoNotePane() override {}
    Prompter& ChartPrompter() override { return m_prompter; }

private:
    CVeltoDoc& m_doc;
    Prompter& m_prompter;
};

// The days of the timeline: as asked, else from the first start to the last due day of the shown
// nodes, else the four weeks from today.
std::pair<int, int> DaysOf(const ExportRequest& request, const CVeltoDoc& doc, CTime now) {
    if (request.firstDay)
        return {*request.firstDay, *request.lastDay};
    int first = INT_MAX;
    int last = INT_MIN;
    for (const CProjectNode* node = doc.m_pFirstNode; node; node = node->m_pNext) {
        if (!node->m_bVisible)
            continue;
        first = std::min(first, chartcal::LocalDayNumber(node->m_timeStart));
        last = std::max(last, chartcal::LocalDayNumber(node->m_timeDue));
    }
    if (first > last) {
        first = chartcal::LocalDayNumber(now);
        last = first + 27;
    }
    return {first, std::min(last, first + kMaxDays - 1)};
}

class Exporter {
public:
    Exporter(const ExportRequest& request, CVeltoDoc& doc, Prompter& prompter, std::FILE* errors)
        : m_request(request), m_host(doc, prompter), m_errors(errors) {
        const ViewContext context = ReadViewContext(SettingsStore(prompter).Open(), HolidayFilePath());
        m_chart.SetHost(&m_host);
        m_chart.SetOptions(context.chart);
        m_chart.SetHolidays(context.holidays);
        m_chart.SetFontSize(doc.m_view.zoom);
        m_chart.SetMindMapFontSize(doc.m_view.zoom);
        m_chart.SetChartWidth1(doc.m_view.chartWidth1);
        const auto [first, last] = DaysOf(request, doc, m_chart.Now());
        m_firstDay = first;
        m_width = m_chart.WidthForDays(last - first + 1);
    }

    bool Write(QIODevice& out, Format format) {
        switch (format) {
        case Format::Pdf:
            return WritePdf(out);
        case Format::Png:
            return WriteImage(out);
        case Format::Svg:
            return WriteSvg(out);
        }
        return false;
    }

private:
    bool WritePdf(QIODevice& out) {
        QPdfWriter pdf(&out);
        pdf.setPageSize(QPageSize(QPageSize::A4));
        pdf.setCreator(QStringLiteral("Velto"));
        if (m_request.mindMap) {
            const MapRect extent = m_chart.LaidOutMindMap().Extent();
            if (PrefersLandscape(extent.w, extent.h, m_request.pages))
                pdf.setPageOrientation(QPageLayout::Landscape);
            return PrintMindMap(m_chart, pdf, m_request.pages) > 0;
        }
        pdf.setPageOrientation(QPageLayout::Landscape);
        return PrintTimeline(m_chart, pdf, TimelinePrint{0, m_firstDay, m_width}) > 0;
    }

    // The whole chart or map as one picture.
    QSize PictureSize() {
        if (m_request.mindMap) {
            const MapRect extent = m_chart.LaidOutMindMap().Extent();
            return QSize(std::max(1, extent.w), std::max(1, extent.h));
        }
        return QSize(m_width, m_chart.HeightForRows(m_chart.ShownRowCount()));
    }

    void Paint(QPainter& painter, QSize size) {
        if (m_request.mindMap) {
            const MindMapScene scene{m_chart.LaidOutMindMap(), m_chart.LaidOutMindMap().Extent(), true};
            MindMapPainter(painter, scene).Paint();
        } else {
            m_chart.RenderPrintPage(painter, size, 0, m_chart.ShownRowCount(), m_firstDay);
        }
    }

    bool WriteImage(QIODevice& out) {
        const QSize size = PictureSize();
        QImage image;
        if (qint64(size.width()) * size.height() <= kMaxImagePixels)
            image = QImage(size, QImage::Format_RGB32);
        if (image.isNull()) {
            std::fprintf(m_errors,
                         "Das Bild wäre mit %d x %d Punkten zu groß; bitte als PDF oder SVG "
                         "ausgeben oder den Zeitraum mit --from und --to eingrenzen.\n",
                         size.width(), size.height());
            return false;
        }
        {
            QPainter painter(&image);
            Paint(painter, size);
        }
        return image.save(&out, "PNG");
    }

    bool WriteSvg(QIODevice& out) {
        const QSize size = PictureSize();
        QSvgGenerator svg;
        svg.setOutputDevice(&out);
        svg.setSize(size);
        svg.setViewBox(QRect(QPoint(0, 0), size));
        svg.setTitle(QFileInfo(m_request.file).completeBaseName());
        QPainter painter;
        if (!painter.begin(&svg))
            return false;
        Paint(painter, size);
        return painter.end();
    }

    const ExportRequest& m_request;
    ExportHost m_host;
    std::FILE* m_errors;
    CGrafik m_chart;
    int m_firstDay = 0;
    int m_width = 0;
};

bool ParseDay(const QString& text, const char* option, std::optional<int>& day, QString& error) {
    day = ParseIsoDay(text.toStdString());
    if (!day)
        error = QString::fromUtf8("%1 erwartet ein Datum der Form JJJJ-MM-TT, nicht \"%2\".")
                    .arg(QLatin1String(option), text);
    return day.has_value();
}

} // namespace

std::optional<ExportRequest> ExportRequestOf(const CommandLine& line, QString& error) {
    ExportRequest request;
    request.out = line.exportOut;
    if (line.files.size() != 1) {
        error = QString::fromUtf8("--export erwartet genau eine Projektdatei.");
        return std::nullopt;
    }
    request.file = line.files.front();
    if (!FormatOf(request.out)) {
        error = QString::fromUtf8("Die Ausgabedatei muss auf .pdf, .png oder .svg enden.");
        return std::nullopt;
    }
    if (line.view != QLatin1String("timeline") && line.view != QLatin1String("mindmap")) {
        error = QString::fromUtf8("--view erwartet timeline oder mindmap.");
        return std::nullopt;
    }
    request.mindMap = line.view == QLatin1String("mindmap");
    const auto grid = ParsePageGrid(line.pages.toStdString());
    if (!grid) {
        error = QString::fromUtf8("--pages erwartet NxM mit N und M von 1 bis 20, etwa 2x3.");
        return std::nullopt;
    }
    request.pages = *grid;
    if (line.from.isEmpty() != line.to.isEmpty()) {
        error = QString::fromUtf8("--from und --to gehören zusammen.");
        return std::nullopt;
    }
    if (!line.from.isEmpty()) {
        if (!ParseDay(line.from, "--from", request.firstDay, error) ||
            !ParseDay(line.to, "--to", request.lastDay, error))
            return std::nullopt;
        if (*request.lastDay < *request.firstDay || *request.lastDay - *request.firstDay >= kMaxDays) {
            error = QString::fromUtf8("--to muss auf oder nach --from liegen, höchstens %1 Tage danach.")
                        .arg(kMaxDays - 1);
            return std::nullopt;
        }
    }
    return request;
}

int RunExport(const ExportRequest& request, std::FILE* errors) {
    StreamPrompter prompter(errors);
    CVeltoDoc doc(prompter);
    if (!QFileInfo::exists(request.file)) {
        std::fprintf(errors, "Die Datei \"%s\" gibt es nicht.\n", qPrintable(request.file));
        return kExportUnreadable;
    }
    if (!doc.OpenStateReadOnly(request.file.toStdString()))
        return kExportUnreadable;
    Exporter exporter(request, doc, prompter, errors);
    // Written beside OUT and put in its place only when complete: a failure leaves no OUT behind.
    QSaveFile out(request.out);
    if (!out.open(QIODevice::WriteOnly) || !exporter.Write(out, *FormatOf(request.out)) || !out.commit()) {
        std::fprintf(errors, "Die Datei \"%s\" kann nicht geschrieben werden: %s\n", qPrintable(request.out),
                     qPrintable(out.errorString()));
        return kExportUnwritable;
    }
    return kExportDone;
}

} // namespace velto
