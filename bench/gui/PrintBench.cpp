// Printing to PDF as the export does it: the timeline of a large project over as many pages as its
// rows need, and the whole mind map onto 4 x 4 pages. Pages are streamed to the file, so the peak
// memory must stay flat from 1,000 to 10,000 nodes (the counter peak_rss_mb, in the order run).
#include "BenchProject.h"
#include "chart/CGrafik.h"
#include "chart/ChartPrinter.h"
#include "model/NodeList.h"

#include <QPdfWriter>

#include <benchmark/benchmark.h>

#include <sys/resource.h>

namespace velto {

namespace {

using bench::BenchHost;
using bench::BuildProject;

double PeakRssMb() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return double(usage.ru_maxrss) / 1024.0;
}

struct PrintFixture {
    explicit PrintFixture(int nodes) {
        host.doc.m_pFirstNode = BuildProject(nodes);
        ExpandAllProjects(host.doc.m_pFirstNode);
        chart.SetHost(&host);
        chart.resize(1280, 800);
    }
    BenchHost host;
    CGrafik chart;
};

const QString kPdf = QStringLiteral("/tmp/velto-print-bench.pdf");

void BM_TimelineToPdf(benchmark::State& state) {
    PrintFixture fixture(int(state.range(0)));
    int pages = 0;
    for (auto _ : state) {
        QPdfWriter pdf(kPdf);
        pdf.setPageOrientation(QPageLayout::Landscape);
        // Eight weeks of calendar, as a window of this width shows.
        pages =
            PrintTimeline(fixture.chart, pdf,
                          TimelinePrint{0, fixture.chart.FirstShownDay(), fixture.chart.WidthForDays(56)});
    }
    state.counters["pages"] = pages;
    state.counters["peak_rss_mb"] = PeakRssMb();
}
BENCHMARK(BM_TimelineToPdf)->ArgName("nodes")->Arg(1000)->Arg(10000)->Unit(benchmark::kSecond);

void BM_MindMapToPdf(benchmark::State& state) {
    PrintFixture fixture(int(state.range(0)));
    for (auto _ : state) {
        QPdfWriter pdf(kPdf);
        PrintMindMap(fixture.chart, pdf, PageGrid{4, 4});
    }
    state.counters["peak_rss_mb"] = PeakRssMb();
}
BENCHMARK(BM_MindMapToPdf)->ArgName("nodes")->Arg(100000)->Unit(benchmark::kSecond);

} // namespace

} // namespace velto
