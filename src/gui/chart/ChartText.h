#pragma once
// The texts the chart shows for a node, built in Windows-1252 like the model, and their conversion
// to QString at the boundary.
#include "model/ProjectNode.h"

#include "base/Cp1252Text.h"

#include <QString>

#include <string>
#include <string_view>

namespace velto {

// Date prefix modes of the setting "Datum".
inline constexpr int kDatePrefixNone = 0;
inline constexpr int kDatePrefixStart = 1;
inline constexpr int kDatePrefixDue = 2;
inline constexpr int kDatePrefixBoth = 3;

// "15.11.2026: " (start alone, four-digit year on purpose), "20.11.26: " (due alone) or
// "15.11.26-20.11.26: " (both); empty for any other mode.
std::string ChartDatePrefix(const CProjectNode& node, int mode);
// The short code of a responsible person stored as name + " «» " + short code: the text after the
// last separator; a text without the separator is all short code.
std::string ResponsibleShortCode(std::string_view responsible);
// The row text: date prefix, then "[short code] " when shown and set, then the title.
std::string ChartRowText(const CProjectNode& node, int datePrefixMode, bool showResponsible);

} // namespace velto
