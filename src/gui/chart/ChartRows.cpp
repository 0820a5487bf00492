#include "chart/ChartRows.h"

#include <algorithm>

void ChartRows::Refresh(CProjectNode* first, CTime now) {
    if (!m_stale && first == m_first)
        return;
    m_rows.clear();
    m_selectedRow = -1;
    for (CProjectNode* node = first; node; node = node->m_pNext) {
        if (!node->m_bVisible)
            continue;
        if (node->m_bSelected && m_selectedRow < 0)
            m_selectedRow = Count();
        m_rows.push_back(node);
    }
    ComputeProgress(first, now);
    m_first = first;
    m_stale = false;
}

int ChartRows::RowOf(const CProjectNode* node) const {
    const auto found = std::find(m_rows.begin(), m_rows.end(), node);
    return found == m_rows.end() ? -1 : int(found - m_rows.begin());
}

namespace {

// A project node whose subtree is still being counted.
struct OpenProject {
    CProjectNode* node;
    int tasks = 0;
    int done = 0;
};

void CloseProject(std::vector<OpenProject>& open, CTime now) {
    const OpenProject closed = open.back();
    open.pop_back();
    CProjectNode& node = *closed.node;
    node.m_nRowPos = closed.tasks ? closed.done * 100 / closed.tasks : 0;
    node.m_nRowAux = closed.done < closed.tasks && node.m_timeDue < now;
    if (!open.empty()) {
        open.back().tasks += closed.tasks;
        open.back().done += closed.done;
    }
}

} // namespace

void ComputeProgress(CProjectNode* first, CTime now) {
    std::vector<OpenProject> open;
    for (CProjectNode* node = first; node; node = node->m_pNext) {
        while (!open.empty() && open.back().node->m_nLevel >= node->m_nLevel)
            CloseProject(open, now);
        node->m_nRowPos = 0;
        node->m_nRowAux = 0;
        if (node->m_nKind == KIND_PROJECT) {
            open.push_back({node});
        } else if (node->m_nKind == KIND_TASK) {
            const bool done = node->m_bDone != 0;
            node->m_nRowPos = done ? 100 : 0;
            node->m_nRowAux = !done && node->m_timeDue < now;
            if (!open.empty()) {
                open.back().tasks += 1;
                open.back().done += done;
            }
        }
    }
    while (!open.empty())
        CloseProject(open, now);
}
