// The date sort and the undo copy on outlines of 100,000 nodes with notes of about 1 KB and a few
// hours and cost entries each.
#include "model/NodeList.h"

#include <benchmark/benchmark.h>
#include <random>
#include <string>

namespace velto {

namespace {

constexpr int kNodes = 100000;

std::string RealisticNote(std::mt19937& rng) {
    std::string note = "{\\rtf1\\ansi\\deff0{\\fonttbl{\\f0\\fswiss Arial;}}\\pard\\plain\\f0\\fs24 ";
    while (note.size() < 1024)
        note += "Abstimmung mit dem Kunden, Angebot " + std::to_string(rng() % 10000) + " pr\\'fcfen.\\par ";
    return note + "}";
}

void AddEntries(CProjectNode& node, std::mt19937& rng) {
    for (int i = 0; i < 3; ++i)
        node.m_pHours.Append({CTime(rng()), CTime(rng()), CTime(rng()), "Bearbeiter", "Bemerkung"});
    node.m_pCosts = {{CTime(rng()), 12.5f, 3.0f, 37.5f, "Lieferant", "Material"}};
    node.m_pCosts2 = {{CTime(rng()), 80.0f, 1.0f, 80.0f, "Bearbeiter", "Stunden"}};
}

// One root; flat = every node a child of the root, else projects of projects ten to a hundred wide
// (levels 1..3) as real plans grow.
CProjectNode* MakeOutline(bool flat, bool withContent) {
    std::mt19937 rng(42);
    const NodeDefaults defaults = NodeDefaults::Current();
    CProjectNode* first = nullptr;
    CProjectNode* tail = nullptr;
    for (int i = 0; i < kNodes; ++i) {
        auto* node = new CProjectNode(defaults);
        node->m_nLevel = i == 0 ? 0 : flat ? 1 : (i % 1000 == 1 ? 1 : i % 100 == 2 ? 2 : 3);
        node->m_nKind = node->m_nLevel == 3 ? kKindTask : kKindProject;
        node->m_timeStart = CTime(1600000000u + rng() % 300000000u);
        node->m_timeDue = node->m_timeStart + int64_t(rng() % 10000000u);
        if (withContent) {
            node->m_strNote = RealisticNote(rng);
            AddEntries(*node, rng);
        }
        node->m_bSelected = i == 0;
        node->m_pPrev = tail;
        (tail ? tail->m_pNext : first) = node;
        tail = node;
    }
    return first;
}

void BM_SortByDate(benchmark::State& state) {
    CProjectNode* first = MakeOutline(state.range(0) != 0, false);
    bool ascending = false;
    for (auto _ : state) {
        SortSiblingsByDate(first, false, ascending);
        ascending = !ascending; // the view alternates the direction
        benchmark::DoNotOptimize(first);
    }
    FreeNodeList(first);
    state.SetItemsProcessed(state.iterations() * kNodes);
}
BENCHMARK(BM_SortByDate)->ArgName("flat")->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

void BM_DeepCopy(benchmark::State& state) {
    CProjectNode* first = MakeOutline(false, true);
    // The view frees the old undo copy right before it takes a new one, so the allocator hands the
    // same memory back; one copy ahead measures that steady state rather than the first touch of
    // fresh pages.
    FreeNodeList(DeepCopyList(first));
    for (auto _ : state) {
        CProjectNode* copy = DeepCopyList(first);
        benchmark::DoNotOptimize(copy);
        state.PauseTiming();
        FreeNodeList(copy);
        state.ResumeTiming();
    }
    FreeNodeList(first);
    state.SetItemsProcessed(state.iterations() * kNodes);
}
BENCHMARK(BM_DeepCopy)->Unit(benchmark::kMillisecond);

// The undo copy as the document takes it: the previous copy's nodes, strings and entries are
// refilled instead of freed and allocated again.
void BM_RefreshUndoCopy(benchmark::State& state) {
    CProjectNode* first = MakeOutline(false, true);
    CProjectNode* copy = DeepCopyList(first);
    for (auto _ : state) {
        copy = RefreshListCopy(copy, first);
        benchmark::DoNotOptimize(copy);
    }
    FreeNodeList(copy);
    FreeNodeList(first);
    state.SetItemsProcessed(state.iterations() * kNodes);
}
BENCHMARK(BM_RefreshUndoCopy)->Unit(benchmark::kMillisecond);

} // namespace

} // namespace velto
