#pragma once
// The chart's index of shown rows: the nodes whose m_bVisible is set, in list order. A redraw reads
// only the rows it draws from here; the index is rebuilt once per change of the document, so the
// cost of a redraw does not grow with the project.
#include "model/CTime.h"
#include "model/ProjectNode.h"

#include <vector>

namespace velto {

class ChartRows {
public:
    // Marks the index stale; the next Refresh rebuilds it.
    void Invalidate() { m_stale = true; }
    // Rebuilds the index (and the progress values) when it is stale or the list head changed.
    // now decides which unfinished tasks are late.
    void Refresh(CProjectNode* first, CTime now);

    int Count() const { return int(m_rows.size()); }
    CProjectNode* At(int row) const { return row >= 0 && row < Count() ? m_rows[size_t(row)] : nullptr; }
    // Row of the first selected shown node, or -1.
    int SelectedRow() const { return m_selectedRow; }
    // Row of node, or -1 when it is not shown. Walks the index: for rare callers only.
    int RowOf(const CProjectNode* node) const;

private:
    std::vector<CProjectNode*> m_rows;
    CProjectNode* m_first = nullptr;
    int m_selectedRow = -1;
    bool m_stale = true;
};

// Fills the run-time values the progress box shows. A task: m_nRowPos 100 when done, else 0. A
// project node: the percentage of done tasks among all tasks of its subtree (0 without tasks).
// m_nRowAux is set for a task that is not done after its due time, and for a project node whose
// due time has passed while a task of its subtree is still open. Notes and milestones get 0.
// One pass over the list, whatever its depth.
void ComputeProgress(CProjectNode* first, CTime now);

} // namespace velto
