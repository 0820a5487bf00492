// The reminder check of the view's minute timer on a project of 100,000 nodes, each with a note of
// about 1 KB so that the nodes lie apart in memory as in a loaded project.
#include "model/NodeList.h"
#include "outline/Reminders.h"

#include <benchmark/benchmark.h>
#include <string>

namespace velto {

namespace {

constexpr int kNodes = 100000;

// Every fiftieth node has a reminder, none of them due before the year is out.
CProjectNode* ProjectWithReminders(CTime now) {
    const NodeDefaults defaults = NodeDefaults::Current();
    const std::string note(1024, 'x');
    CProjectNode* first = nullptr;
    CProjectNode* tail = nullptr;
    for (int i = 0; i < kNodes; ++i) {
        auto* node = new CProjectNode(defaults);
        node->m_nLevel = i == 0 ? 0 : 1;
        node->m_strNote = note + std::to_string(i);
        if (i % 50 == 0)
            node->m_timeReminder = now + int64_t(86400 + i);
        node->m_pPrev = tail;
        (tail ? tail->m_pNext : first) = node;
        tail = node;
    }
    return first;
}

void BM_MinuteReminderCheck(benchmark::State& state) {
    const CTime now = CTime::GetCurrentTime();
    CProjectNode* first = ProjectWithReminders(now);
    for (auto _ : state)
        benchmark::DoNotOptimize(LastDueReminder(first, now));
    FreeNodeList(first);
}
BENCHMARK(BM_MinuteReminderCheck)->Unit(benchmark::kMillisecond);

} // namespace

} // namespace velto
