// Redraw cost of the timeline at 1920 x 1080: it must stay the same for 100 and 100,000 nodes,
// because a redraw reads only the rows it draws.
#include "chart/CGrafik.h"
#include "document/CVeltoDoc.h"
#include "document/Prompter.h"

#include <QApplication>

#include <benchmark/benchmark.h>

#include <cstdlib>

namespace {

class SilentPrompter : public Prompter {
public:
    PromptAnswer Ask(std::string_view, std::string_view, PromptButtons, PromptIcon) override {
        return PromptAnswer::Ok;
    }
};

class BenchHost : public CChartHost {
public:
    BenchHost() : doc(prompter) {}
    CVeltoDoc* Document() override { return &doc; }
    void SendCommand(int) override {}
    bool NotePaneHasFocus() const override { return false; }
    void PasteIntoNotePane() override {}
    Prompter& ChartPrompter() override { return prompter; }

    SilentPrompter prompter;
    CVeltoDoc doc;
};

// A project of every node kind: project nodes of ten tasks, a note and a milestone each, dates
// spread over four months around today, some tasks done, bold or with a responsible person.
CProjectNode* BuildProject(int count) {
    const NodeDefaults defaults = NodeDefaults::Current();
    auto* root = new CProjectNode(defaults);
    root->m_strTitle = "Projekt";
    CProjectNode* tail = root;
    for (int i = 1; i < count; ++i) {
        auto* node = new CProjectNode(defaults);
        const int inGroup = i % 13;
        node->m_nLevel = inGroup == 1 ? 1 : 2;
        node->m_nKind = inGroup == 1    ? KIND_PROJECT
                        : inGroup == 12 ? KIND_MILESTONE
                        : inGroup == 11 ? KIND_NOTE
                                        : KIND_TASK;
        node->m_strTitle = "Knoten " + std::to_string(i);
        node->m_timeStart = defaults.start + int64_t(i % 120 - 60) * 86400;
        node->m_timeDue = node->m_timeStart + int64_t(i % 9) * 86400 + 82799;
        node->m_bDone = i % 3 == 0;
        node->m_bBold = i % 7 == 0;
        node->m_bSelected = 0;
        if (i % 5 == 0)
            node->m_strResponsible = "Anna \xAB\xBB AN";
        node->m_pPrev = tail;
        tail = tail->m_pNext = node;
    }
    return root;
}

struct Chart {
    explicit Chart(int nodes) {
        host.doc.m_pFirstNode = BuildProject(nodes);
        chart.SetHost(&host);
        chart.SetOptions({3, true, false, false});
        chart.SetChartWidth1(400);
        chart.SetChartWidth2(0);
        chart.resize(1920, 1080);
        chart.OnVScroll(CGrafik::SB_THUMBPOSITION, nodes / 2);
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

int main(int argc, char** argv) {
    setenv("QT_QPA_PLATFORM", "offscreen", 0);
    QApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
