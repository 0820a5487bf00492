#include "outline/CostReport.h"

#include "model/NumberFormat.h"

namespace velto {

CostReport::CostReport(const CProjectNode* first, const ReportOptions& options, CostList list) {
    m_columns = {{"Tag"},          {"Preis", true}, {"Anzahl", true}, {"Aufgabe"},
                 {"Bear./Kommi."}, {"Bemerkung"},   {"Summe", true}};
    Fill(first, options, [list](const CProjectNode& node) -> const CCostList& {
        return list == CostList::Calculated ? node.m_pCosts : node.m_pCosts2;
    });
}

std::string CostReport::Cell(size_t row, size_t column) const {
    // The columns as the constructor lists them.
    const Row& r = m_rows[row];
    switch (column) {
    case 0:
        return r.entry.m_timeDate.Format("%d.%m.%Y");
    case 1:
        return ReportNumber(r.entry.m_fUnitPrice);
    case 2:
        return WithDecimalComma(numfmt::FormatGeneral(r.entry.m_fQuantity));
    case 3:
        return std::string(r.node->m_strTitle.str());
    case 4:
        return std::string(r.entry.m_str1);
    case 5:
        return std::string(r.entry.m_str2);
    default:
        return ReportNumber(r.entry.m_fAmount);
    }
}

std::string CostReport::TotalText() const {
    double total = 0.0;
    for (const Row& row : m_rows)
        total += row.entry.m_fAmount;
    return ReportNumber(total) + " \x80"; // the euro sign of Windows-1252
}

} // namespace velto
