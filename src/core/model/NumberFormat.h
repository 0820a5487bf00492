#pragma once
// Numbers as the program writes and reads them in texts and number edits: always with "." as the
// decimal point, whatever the user's locale, because the C library's printf/scanf follow the
// locale that Qt sets at start-up.
#include <string>
#include <string_view>

namespace velto::numfmt {

// "%.2f" when value × 1000 is a whole number, "%g" otherwise (the number edits' rule).
std::string FormatEditNumber(double value);
// "%.2f": hours, amounts, balances.
std::string FormatFixed2(double value);
// "%g".
std::string FormatGeneral(double value);
// Reads like sscanf "%f": leading white space, optional sign, the longest number prefix
// (also "inf", "nan" and hexadecimal); text that holds no number reads as 0.
double ParseNumber(std::string_view text);
// Reads like sscanf "%d": leading white space, optional sign, digits; no number reads as
// fallback. Values beyond 32 bits are clamped.
int ParseInt(std::string_view text, int fallback = 0);

} // namespace velto::numfmt
