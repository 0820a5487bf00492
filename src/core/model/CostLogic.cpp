#include "model/CostLogic.h"

#include "model/NumberFormat.h"

namespace velto {

CCostList& CostListOf(CProjectNode& node, CostList list) {
    return list == CostList::Calculated ? node.m_pCosts : node.m_pCosts2;
}

namespace {

float ReadFloat(std::string_view text) {
    return float(numfmt::ParseNumber(text));
}

void BookHours(CCostList& list, float rate, float hours, const char* remark, CTime now) {
    const CCostEntry entry{now, rate, hours, -(rate * hours), {}, remark};
    if (list.empty())
        list.Append(entry);
    else
        list.Replace(0, entry);
}

// Prices and quantities are compared as the list shows them: a refilled row shows six significant
// digits, which need not read back to the very float that is stored.
bool ShowsNumber(std::string_view shown, float stored) {
    const float read = ReadFloat(shown);
    return read == stored || numfmt::FormatGeneral(read) == numfmt::FormatGeneral(stored);
}

bool Matches(const CCostEntry& entry, const CostInput& key) {
    return CalendarDay::Of(entry.m_timeDate) == key.day &&
           ShowsNumber(key.unitPriceText, entry.m_fUnitPrice) &&
           ShowsNumber(key.quantityText, entry.m_fQuantity) && entry.m_str1 == key.assignee &&
           entry.m_str2 == key.remark;
}

bool LastTwoHavePoint(const std::string& text) {
    const size_t from = text.size() < 2 ? 0 : text.size() - 2;
    return text.find('.', from) != std::string::npos;
}

} // namespace

void RegenerateAutomaticEntries(CProjectNode& node, std::string_view plannedText, std::string_view neededText,
                                std::string_view rateText, CTime now) {
    const float rate = ReadFloat(rateText);
    BookHours(node.m_pCosts, rate, ReadFloat(plannedText), "Kalkulierte Stunden", now);
    // Model texts are Windows-1252: 0xF6 is the "ö".
    BookHours(node.m_pCosts2, rate, ReadFloat(neededText), "Ben\xF6tigte Stunden", now);
}

std::string NormaliseCostText(std::string text) {
    if (text.find('.') == std::string::npos)
        text += ".00";
    for (int i = 0; i < 2; ++i)
        if (LastTwoHavePoint(text))
            text += '0';
    const size_t lastPoint = text.rfind('.');
    if (text.size() - lastPoint - 1 > 5)
        text.resize(std::min(text.size(), text.find('.') + 6));
    return text;
}

CostRow MakeCostRow(const CCostEntry& entry) {
    return {DaySortKey(entry.m_timeDate),
            entry.m_timeDate.Format("%d.%m.%Y"),
            WeekdayAbbreviation(entry.m_timeDate),
            numfmt::FormatEditNumber(entry.m_fUnitPrice),
            numfmt::FormatGeneral(entry.m_fQuantity),
            std::string(entry.m_str1),
            std::string(entry.m_str2),
            numfmt::FormatEditNumber(entry.m_fAmount)};
}

std::vector<CostRow> MakeCostRows(const CCostList& list) {
    std::vector<CostRow> rows;
    rows.reserve(list.size());
    for (const CCostEntry entry : list)
        rows.push_back(MakeCostRow(entry));
    return rows;
}

CostRow AddCostEntry(CCostList& list, const CostInput& input) {
    const std::string price = NormaliseCostText(input.unitPriceText);
    const std::string quantity = NormaliseCostText(input.quantityText);
    CCostEntry entry{input.day.At(0, 0, 0), ReadFloat(price), ReadFloat(quantity), 0.0f,
                     input.assignee,        input.remark};
    entry.m_fAmount = input.expense ? entry.m_fUnitPrice * -1.0f * entry.m_fQuantity
                                    : entry.m_fUnitPrice * entry.m_fQuantity;
    list.Append(entry);
    // The row shows the texts as normalised and the amount with two places; a refill later shows
    // them in the list's own formats.
    CostRow row = MakeCostRow(entry);
    row.unitPrice = price;
    row.quantity = quantity;
    row.amount = numfmt::FormatFixed2(entry.m_fAmount);
    return row;
}

CostInput CostInputOfRow(const CostRow& row) {
    return {ParseDayText(row.day), row.unitPrice, row.quantity, numfmt::ParseNumber(row.amount) < 0,
            row.assignee,          row.remark};
}

CostRemoval RemoveFirstMatchingCost(CCostList& list, const CostInput& key) {
    if (!list.empty() && Matches(list.front(), key))
        return CostRemoval::Automatic;
    for (size_t i = 1; i < list.size(); ++i) {
        if (Matches(list[i], key)) {
            list.Erase(i);
            return CostRemoval::Removed;
        }
    }
    return CostRemoval::NotFound;
}

float CostTotal(const CCostList& list) {
    float sum = 0.0f;
    for (const CCostEntry entry : list)
        sum += entry.m_fAmount;
    return sum;
}

} // namespace velto
