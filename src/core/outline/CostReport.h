#pragma once
// "Kosten - Report": the entries of the calculated or the needed cost lists of the whole project
// in a period, and their total in euros. Incomes and expenses keep their signs.
#include "model/CostLogic.h"
#include "outline/Report.h"

namespace velto {

class CostReport : public Report {
public:
    // Walks the nodes from first in list order, and each node's entries of the list in list order.
    CostReport(const CProjectNode* first, const ReportOptions& options, CostList list);

    size_t RowCount() const override { return m_rows.size(); }
    std::string Cell(size_t row, size_t column) const override;
    std::string SortKey(size_t row) const override;
    void RemoveRows(const std::vector<size_t>& rows) override { RemovePositions(m_rows, rows); }
    std::string TotalText() const override;

private:
    struct Row {
        const CProjectNode* node;
        CCostEntry entry;
    };
    std::vector<Row> m_rows;
};

} // namespace velto
