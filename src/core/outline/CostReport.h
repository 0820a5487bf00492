#pragma once
// "Kosten - Report": the entries of the calculated or the needed cost lists of the whole project
// in a period, and their total in euros. Incomes and expenses keep their signs.
#include "model/CostLogic.h"
#include "outline/Report.h"

namespace velto {

class CostReport : public EntryReport<CCostEntry> {
public:
    // Walks the nodes from first in list order, and each node's entries of the list in list order.
    CostReport(const CProjectNode* first, const ReportOptions& options, CostList list);

    std::string Cell(size_t row, size_t column) const override;
    std::string TotalText() const override;
};

} // namespace velto
