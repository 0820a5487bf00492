// Node commands as the user runs them on a project of 100,000 nodes with notes, hours and costs:
// each one from the menu command to the redrawn chart, the undo copy included.
#include "BenchProject.h"
#include "base/CommandIds.h"
#include "base/ShellState.h"
#include "model/NodeList.h"
#include "outline/NodeClipboard.h"
#include "view/CVeltoView.h"

#include <QCoreApplication>

#include <benchmark/benchmark.h>

#include <memory>

namespace velto {

namespace {

constexpr int kNodes = 100000;

struct ProjectWindow {
    ProjectWindow() : doc(prompter) {
        doc.m_pFirstNode = bench::BuildProject(kNodes, true);
        doc.m_pFirstNode->m_bSelected = 1;
        view = std::make_unique<CVeltoView>(doc, shell);
        view->resize(1920, 1080);
        view->show();
    }
    ~ProjectWindow() { NodeClipboard::Instance().Clear(); }

    // The n-th node of the given kind from the middle of the project on.
    CProjectNode* FromTheMiddle(int kind, int n = 0) {
        int index = 0;
        for (CProjectNode* node = doc.m_pFirstNode; node; node = node->m_pNext)
            if (index++ >= kNodes / 2 && node->m_nKind == kind && n-- == 0)
                return node;
        return nullptr;
    }
    void Select(CProjectNode* node) { SelectOnly(doc.m_pFirstNode, node); }
    // The command and what it leaves queued (the note pane following the selection).
    void Run(int id) {
        view->OnCommand(id);
        QCoreApplication::sendPostedEvents();
    }

    bench::SilentPrompter prompter;
    CVeltoDoc doc;
    ShellState shell;
    std::unique_ptr<CVeltoView> view;
};

void BM_NewNode(benchmark::State& state) {
    ProjectWindow window;
    CProjectNode* parent = window.FromTheMiddle(kKindProject);
    for (auto _ : state) {
        state.PauseTiming();
        window.Select(parent); // the new node is selected; keep adding under the same parent
        state.ResumeTiming();
        window.Run(cmd::NewNode);
    }
}
BENCHMARK(BM_NewNode)->Unit(benchmark::kMillisecond);

void BM_DeleteNode(benchmark::State& state) {
    ProjectWindow window;
    int next = 0;
    for (auto _ : state) {
        state.PauseTiming();
        window.Select(window.FromTheMiddle(kKindTask, next++));
        state.ResumeTiming();
        window.Run(cmd::DeleteNode);
    }
}
BENCHMARK(BM_DeleteNode)->Unit(benchmark::kMillisecond);

void BM_SortByDate(benchmark::State& state) {
    ProjectWindow window;
    for (auto _ : state)
        window.Run(cmd::SortByDate); // alternates the direction, so every run moves nodes
}
BENCHMARK(BM_SortByDate)->Unit(benchmark::kMillisecond);

void BM_Undo(benchmark::State& state) {
    ProjectWindow window;
    window.Run(cmd::BackupTree);
    for (auto _ : state)
        window.Run(cmd::EditUndo); // swaps with the copy and back
}
BENCHMARK(BM_Undo)->Unit(benchmark::kMillisecond);

void BM_PasteNode(benchmark::State& state) {
    ProjectWindow window;
    window.Select(window.FromTheMiddle(kKindProject));
    window.Run(cmd::EditCopy);
    window.Select(window.FromTheMiddle(kKindTask, 20));
    for (auto _ : state)
        window.Run(cmd::EditPaste);
}
BENCHMARK(BM_PasteNode)->Unit(benchmark::kMillisecond);

// For comparison: what the undo copy alone costs.
void BM_UndoCopy(benchmark::State& state) {
    ProjectWindow window;
    for (auto _ : state)
        window.Run(cmd::BackupTree);
}
BENCHMARK(BM_UndoCopy)->Unit(benchmark::kMillisecond);

} // namespace

} // namespace velto
