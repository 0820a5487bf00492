// One tick of a project view's minute timer on a project of 100,000 nodes with notes, hours and
// costs: the reminder check, and the chart drawn anew for today's column and the late marks.
#include "BenchProject.h"
#include "base/ShellState.h"
#include "view/CVeltoView.h"

#include <QTimer>

#include <benchmark/benchmark.h>

namespace velto {

namespace {

void BM_MinuteTick(benchmark::State& state) {
    bench::SilentPrompter prompter;
    CVeltoDoc doc(prompter);
    doc.m_pFirstNode = bench::BuildProject(100000, true);
    doc.m_pFirstNode->m_bSelected = 1;
    // Reminders in the future on every fiftieth node: checked, none raised.
    int index = 0;
    for (CProjectNode* node = doc.m_pFirstNode; node; node = node->m_pNext)
        if (index++ % 50 == 0)
            node->m_timeReminder = CTime::GetCurrentTime() + 86400;
    ShellState shell;
    CVeltoView view(doc, shell);
    view.resize(1920, 1080);
    view.show();
    QTimer* timer = view.findChild<QTimer*>("minuteTimer");
    for (auto _ : state)
        QMetaObject::invokeMethod(timer, "timeout");
}
BENCHMARK(BM_MinuteTick)->Unit(benchmark::kMillisecond);

} // namespace

} // namespace velto
