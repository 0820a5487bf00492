// Redraw cost of the timeline at 1920 x 1080: it must stay the same for 100 and 100,000 nodes,
// because a redraw reads only the rows it draws.
#include "BenchProject.h"
#include "chart/CGrafik.h"
#include "document/CVeltoDoc.h"

#include <benchmark/benchmark.h>

namespace velto {

namespace {

using bench::BenchHost;
using bench::BuildProject;

struct Chart {
    explicit Chart(int nodes) {
        host.doc.m_pFirstNode = BuildProject(nodes);
        chart.SetHost(&host);
        chart.SetOptions({3, true, false, false});
        chart.SetChartWidth1(400);
        chart.SetChartWidth2(0);
        chart.resize(1920, 1080);
        chart.OnVScroll(CGrafik::ScrollCode::ThumbPosition, nodes / 2);
    }
    BenchHost host;
    CGrafik chart;
};

void BM_Redraw(benchmark::State& state) {
    Chart fixture(int(state.range(0)));
    for (auto _ : state)
        fixture.chart.ZeichneAllesNeu();
    state.counters["rows"] = fixture.chart.Layout().ShownRowCapacity();
}
BENCHMARK(BM_Redraw)->Arg(100)->Arg(100000)->Unit(benchmark::kMillisecond);

// The first redraw after a change of the document also rebuilds the row index.
void BM_RedrawAfterDocumentChange(benchmark::State& state) {
    Chart fixture(int(state.range(0)));
    for (auto _ : state) {
        fixture.host.doc.UpdateAllViews();
        fixture.chart.ZeichneAllesNeu();
    }
}
BENCHMARK(BM_RedrawAfterDocumentChange)->Arg(100)->Arg(100000)->Unit(benchmark::kMillisecond);

} // namespace

} // namespace velto
