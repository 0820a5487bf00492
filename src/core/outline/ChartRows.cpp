#include "outline/ChartRows.h"

#include <algorithm>

namespace velto {

namespace {

// Counts done tasks into the project nodes above them while the list is walked once in order.
class ProgressCounter {
public:
    explicit ProgressCounter(CTime now) : m_now(now) {}

    void Visit(CProjectNode& node) {
        while (!m_open.empty() && m_open.back().node->m_nLevel >= node.m_nLevel)
            CloseProject();
        node.m_nRowPos = 0;
        node.m_nRowAux = 0;
        if (node.m_nKind == kKindProject) {
            m_open.push_back({&node});
        } else if (node.m_nKind == kKindTask) {
            const bool done = node.m_bDone != 0;
            node.m_nRowPos = done ? 100 : 0;
            node.m_nRowAux = !done && node.m_timeDue < m_now;
            if (!m_open.empty()) {
                m_open.back().tasks += 1;
                m_open.back().done += done;
            }
        }
    }

    void Finish() {
        while (!m_open.empty())
            CloseProject();
    }

private:
    // A project node whose subtree is still being counted.
    struct OpenProject {
        CProjectNode* node;
        int tasks = 0;
        int done = 0;
    };

    void CloseProject() {
        const OpenProject closed = m_open.back();
        m_open.pop_back();
        CProjectNode& node = *closed.node;
        node.m_nRowPos = closed.tasks ? closed.done * 100 / closed.tasks : 0;
        node.m_nRowAux = closed.done < closed.tasks && node.m_timeDue < m_now;
        if (!m_open.empty()) {
            m_open.back().tasks += closed.tasks;
            m_open.back().done += closed.done;
        }
    }

    CTime m_now;
    std::vector<OpenProject> m_open;
};

} // namespace

void ChartRows::Refresh(CProjectNode* first, CTime now) {
    if (!m_stale && first == m_first)
        return;
    m_rows.clear();
    m_selectedRow = -1;
    // One walk for the index and the progress values: on a large project every walk costs.
    ProgressCounter progress(now);
    for (CProjectNode* node = first; node; node = node->m_pNext) {
        progress.Visit(*node);
        if (!node->m_bVisible)
            continue;
        if (node->m_bSelected && m_selectedRow < 0)
            m_selectedRow = Count();
        m_rows.push_back(node);
    }
    progress.Finish();
    m_first = first;
    m_stale = false;
}

int ChartRows::RowOf(const CProjectNode* node) const {
    const auto found = std::find(m_rows.begin(), m_rows.end(), node);
    return found == m_rows.end() ? -1 : int(found - m_rows.begin());
}

void ComputeProgress(CProjectNode* first, CTime now) {
    ProgressCounter progress(now);
    for (CProjectNode* node = first; node; node = node->m_pNext)
        progress.Visit(*node);
    progress.Finish();
}

} // namespace velto
