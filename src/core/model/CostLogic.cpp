#include "model/CostLogic.h"

#include "model/NumberFormat.h"

CCostEntry*& CostListOf(CProjectNode& node, CostList list) {
    return list == CostList::Calculated ? node.m_pCosts : node.m_pCosts2;
}

namespace {

float ReadFloat(std::string_view text) {
    return float(numfmt::ParseNumber(text));
}

void BookHours(CCostEntry*& head, float rate, float hours, const char* remark, CTime now) {
    if (!head)
        head = new CCostEntry;
    head->m_timeDate = now;
    head->m_fUnitPrice = rate;
    head->m_fQuantity = hours;
    head->m_fAmount = -(rate * hours);
    head->m_str1.clear();
    head->m_str2 = remark;
}

void Append(CCostEntry*& head, CCostEntry* entry) {
    CCostEntry** tail = &head;
    while (*tail)
        tail = &(*tail)->m_pNext;
    *tail = entry;
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
            entry.m_str1,
            entry.m_str2,
            numfmt::FormatEditNumber(entry.m_fAmount)};
}

std::vector<CostRow> MakeCostRows(const CCostEntry* head) {
    std::vector<CostRow> rows;
    for (; head; head = head->m_pNext)
        rows.push_back(MakeCostRow(*head));
    return rows;
}

CostRow AddCostEntry(CCostEntry*& head, const CostInput& input) {
    auto* entry = new CCostEntry;
    entry->m_timeDate = input.day.At(0, 0, 0);
    const std::string price = NormaliseCostText(input.unitPriceText);
    const std::string quantity = NormaliseCostText(input.quantityText);
    entry->m_fUnitPrice = ReadFloat(price);
    entry->m_fQuantity = ReadFloat(quantity);
    entry->m_fAmount = input.expense ? entry->m_fUnitPrice * -1.0f * entry->m_fQuantity
                                     : entry->m_fUnitPrice * entry->m_fQuantity;
    entry->m_str1 = input.assignee;
    entry->m_str2 = input.remark;
    Append(head, entry);
    // The row shows the texts as normalised and the amount with two places; a refill later shows
    // them in the list's own formats.
    CostRow row = MakeCostRow(*entry);
    row.unitPrice = price;
    row.quantity = quantity;
    row.amount = numfmt::FormatFixed2(entry->m_fAmount);
    return row;
}

CostInput CostInputOfRow(const CostRow& row) {
    return {ParseDayText(row.day), row.unitPrice, row.quantity, numfmt::ParseNumber(row.amount) < 0,
            row.assignee,          row.remark};
}

CostRemoval RemoveFirstMatchingCost(CCostEntry*& head, const CostInput& key) {
    if (head && Matches(*head, key))
        return CostRemoval::Automatic;
    if (!head)
        return CostRemoval::NotFound;
    for (CCostEntry** link = &head->m_pNext; *link; link = &(*link)->m_pNext) {
        if (Matches(**link, key)) {
            CCostEntry* found = *link;
            *link = found->m_pNext;
            delete found;
            return CostRemoval::Removed;
        }
    }
    return CostRemoval::NotFound;
}

float CostTotal(const CCostEntry* head) {
    float sum = 0.0f;
    for (; head; head = head->m_pNext)
        sum += head->m_fAmount;
    return sum;
}
