// The text search on a project of 100,000 nodes with notes of about 1 KB, three hours entries and an
// entry in each cost list: a step that finds nothing, and so passes over every node, as the search
// dialog runs it through the view; once with the texts kept from the step before, and once as the
// first step after the project was opened, whose notes are parsed in the background from the moment
// the window shows.
#include "BenchProject.h"
#include "base/CommandIds.h"
#include "base/ShellState.h"
#include "dialogs/CSearchDlg.h"
#include "model/NodeList.h"
#include "view/CVeltoView.h"
#include "view/NodeFinders.h"

#include <QCoreApplication>
#include <QLineEdit>

#include <benchmark/benchmark.h>

#include <chrono>
#include <memory>
#include <thread>

namespace velto {

namespace {

constexpr int kNodes = 100000;
// In no node: every step is a full pass.
const QString kAbsent = QStringLiteral("Rechnung");

struct SearchWindow {
    SearchWindow() : doc(prompter) {
        doc.m_pFirstNode = bench::BuildProject(kNodes, true);
        doc.m_pFirstNode->m_bSelected = 1;
    }
    // A view as the project opens it.
    void OpenView() {
        view = std::make_unique<CVeltoView>(doc, shell);
        view->resize(1920, 1080);
        view->show();
        QCoreApplication::sendPostedEvents();
    }
    CSearchDlg& OpenSearch() {
        view->OnCommand(cmd::FindText);
        return *view->Finders().SearchDialog();
    }

    bench::SilentPrompter prompter;
    CVeltoDoc doc;
    ShellState shell;
    std::unique_ptr<CVeltoView> view;
};

void BM_SearchPassWarm(benchmark::State& state) {
    SearchWindow window;
    window.OpenView();
    window.OpenSearch().findChild<QLineEdit*>("text")->setText(kAbsent);
    for (auto _ : state)
        window.view->OnCommand(cmd::SearchStep);
}
BENCHMARK(BM_SearchPassWarm)->Unit(benchmark::kMillisecond);

// From the search command to the end of the step that the third typed character starts, the command
// given `looking` after the window showed and the text typed `typing` after the command; the notes
// are parsed in the background meanwhile.
void FirstPass(benchmark::State& state, std::chrono::milliseconds looking, std::chrono::milliseconds typing) {
    SearchWindow window;
    for (auto _ : state) {
        state.PauseTiming();
        window.OpenView();
        std::this_thread::sleep_for(looking);
        state.ResumeTiming();
        CSearchDlg& search = window.OpenSearch();
        state.PauseTiming();
        std::this_thread::sleep_for(typing);
        state.ResumeTiming();
        search.findChild<QLineEdit*>("text")->setText(kAbsent);
    }
}

// The command and the text at once as the window shows: nothing parsed ahead.
void BM_SearchFirstPassAfterOpening(benchmark::State& state) {
    FirstPass(state, std::chrono::milliseconds(0), std::chrono::milliseconds(0));
}
BENCHMARK(BM_SearchFirstPassAfterOpening)->Unit(benchmark::kMillisecond)->Iterations(5);

// Three keys at 150 ms each after the command, given as the window shows.
void BM_SearchFirstPassAtTypingPace(benchmark::State& state) {
    FirstPass(state, std::chrono::milliseconds(0), std::chrono::milliseconds(450));
}
BENCHMARK(BM_SearchFirstPassAtTypingPace)->Unit(benchmark::kMillisecond)->Iterations(5);

// The command half a second after the window showed, as fast as a user finds the key, and the text
// typed at once: the first search of a user who searches right after opening, at the least.
void BM_SearchFirstPassSoonAfterOpening(benchmark::State& state) {
    FirstPass(state, std::chrono::milliseconds(500), std::chrono::milliseconds(0));
}
BENCHMARK(BM_SearchFirstPassSoonAfterOpening)->Unit(benchmark::kMillisecond)->Iterations(5);

// The same after a one-character change of one note, as the note pane saves it.
void BM_SearchPassAfterANoteChanged(benchmark::State& state) {
    SearchWindow window;
    window.OpenView();
    window.OpenSearch().findChild<QLineEdit*>("text")->setText(kAbsent);
    CProjectNode* node = window.doc.m_pFirstNode;
    for (int i = 0; i < kNodes / 2; ++i)
        node = node->m_pNext;
    int change = 0;
    for (auto _ : state) {
        state.PauseTiming();
        node->m_strNote = bench::BenchNote(change++);
        state.ResumeTiming();
        window.view->OnCommand(cmd::SearchStep);
    }
}
BENCHMARK(BM_SearchPassAfterANoteChanged)->Unit(benchmark::kMillisecond);

} // namespace

} // namespace velto
