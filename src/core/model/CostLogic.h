#pragma once
// Cost entries of a task: the two lists "Kalkulierte Kosten" and "Benötigte Kosten", their
// automatic first entries booked from hours and hourly rate, the rows of the cost list, the
// normalisation of typed prices and quantities, taking an entry back by its row, and the totals.
#include "model/HoursLogic.h"

#include <string>
#include <string_view>
#include <vector>

namespace velto {

enum class CostList { Calculated, Needed };

// The node's list for a kind of cost.
CCostList& CostListOf(CProjectNode& node, CostList list);

// Makes sure both lists start with their automatic entry and books the hours at the rate into it,
// as an expense, dated now: rate × calculated hours ("Kalkulierte Stunden") and rate × needed
// hours ("Benötigte Stunden"). The texts are those of the three edits, read like "%f".
void RegenerateAutomaticEntries(CProjectNode& node, std::string_view plannedText, std::string_view neededText,
                                std::string_view rateText, CTime now);

// A typed unit price or quantity as the list shows it: ".00" appended when it has no point, a
// trailing "." or ".5" filled up to two places, and cut five characters behind the first point
// when more than five follow the last one ("7" → "7.00", "7.123456" → "7.12345").
std::string NormaliseCostText(std::string text);

// One row of a cost list, column by column (column 0 is the hidden sort key).
struct CostRow {
    std::string sortKey;   // "%Y/%m/%d"
    std::string day;       // "%d.%m.%Y"
    std::string weekday;   // "SO" .. "SA"
    std::string unitPrice; // "Einzelpreis in €"
    std::string quantity;  // "Anzahl"
    std::string assignee;
    std::string remark;
    std::string amount; // "Summe in €"
};
// A row of a filled list: price and amount in the edit number format, the quantity with "%g".
CostRow MakeCostRow(const CCostEntry& entry);
std::vector<CostRow> MakeCostRows(const CCostList& list);

// What the input row of a cost entry holds.
struct CostInput {
    CalendarDay day;
    std::string unitPriceText;
    std::string quantityText;
    bool expense = true; // "Ausgabe" checked
    std::string assignee;
    std::string remark;
};
// Normalises the typed texts, appends the entry at the end of the list and returns the row as it
// is added: the normalised texts and the amount with "%.2f" (negative for an expense). Nothing is
// refused.
CostRow AddCostEntry(CCostList& list, const CostInput& input);

// Reads a row back into the input row: day, price and quantity as shown, and "Ausgabe" when the
// amount is negative.
CostInput CostInputOfRow(const CostRow& row);

enum class CostRemoval { Removed, Automatic, NotFound };
inline constexpr std::string_view kAutomaticEntry =
    "Dieser Eintrag wurde automatisch generiert und ist nicht löschbar!";
// Removes the first entry matching the row (day, price, quantity and texts); the list's first,
// automatic entry is never removed, even by a row that merely looks like it.
CostRemoval RemoveFirstMatchingCost(CCostList& list, const CostInput& key);

// The sum of the amounts of a list, the automatic entry included.
float CostTotal(const CCostList& list);

} // namespace velto
