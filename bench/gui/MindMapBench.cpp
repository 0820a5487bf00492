// The mind map at 1920 x 1080: a redraw must cost the same for 100 and 100,000 nodes, because only
// the boxes and lines in view are drawn, and a layout of 100,000 nodes after a change must stay
// well below a tenth of a second.
#include "BenchProject.h"
#include "chart/CGrafik.h"
#include "chart/TitleMeasurer.h"
#include "model/NodeList.h"

#include <benchmark/benchmark.h>

namespace velto {

namespace {

using bench::BenchHost;
using bench::BuildProject;

// The map of a project, shown around the root (where the root's thousands of lines meet) or around
// a node in the middle of the outline.
struct MindMap {
    MindMap(int nodes, bool middle) {
        host.doc.m_pFirstNode = BuildProject(nodes);
        chart.SetHost(&host);
        chart.SetMindMapMode(true);
        chart.resize(1920, 1080);
        chart.ZeichneAllesNeu();
        if (middle) {
            CProjectNode* node = host.doc.m_pFirstNode;
            for (int i = 0; i < nodes / 2; ++i)
                node = node->m_pNext;
            SelectOnly(host.doc.m_pFirstNode, node);
            host.doc.UpdateAllViews();
            chart.ScrollToSelection();
        }
    }
    BenchHost host;
    CGrafik chart;
};

void BM_MindMapRedraw(benchmark::State& state) {
    MindMap fixture(int(state.range(0)), state.range(1) != 0);
    for (auto _ : state)
        fixture.chart.ZeichneAllesNeu();
}
BENCHMARK(BM_MindMapRedraw)
    ->ArgNames({"nodes", "middle"})
    ->Args({100, 0})
    ->Args({100000, 0})
    ->Args({100000, 1})
    ->Unit(benchmark::kMillisecond);

// A title changes: the map is laid out anew (only that title is measured again) and redrawn.
void BM_MindMapRedrawAfterChange(benchmark::State& state) {
    MindMap fixture(int(state.range(0)), false);
    CProjectNode* changed = fixture.host.doc.m_pFirstNode->m_pNext;
    int round = 0;
    for (auto _ : state) {
        changed->m_strTitle = "Titel " + std::to_string(++round % 2);
        fixture.host.doc.UpdateAllViews();
        fixture.chart.ZeichneAllesNeu();
    }
}
BENCHMARK(BM_MindMapRedrawAfterChange)->Arg(100)->Arg(100000)->Unit(benchmark::kMillisecond);

// The layout alone, with every title measured afresh (a project just opened, or a new zoom).
void BM_MindMapLayoutMeasuringAll(benchmark::State& state) {
    CProjectNode* first = BuildProject(int(state.range(0)));
    for (auto _ : state) {
        TitleMeasurer measurer;
        MindMapLayout layout;
        layout.Build(first, 20, measurer);
        benchmark::DoNotOptimize(layout.Extent());
    }
    FreeNodeList(first);
}
BENCHMARK(BM_MindMapLayoutMeasuringAll)->Arg(100000)->Unit(benchmark::kMillisecond);

} // namespace

} // namespace velto
