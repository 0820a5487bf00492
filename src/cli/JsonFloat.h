#pragma once
// 32-bit floats in JSON, so that dump then build gives back every bit pattern: the shortest decimal
// that reads back to the same float; negative zero as -0.0; the strings "Infinity", "-Infinity",
// "NaN" for the positive quiet NaN 0x7FC00000, and "NaN(0xXXXXXXXX)" with the bit pattern for every
// other NaN, whose payload and sign a plain "NaN" would lose.
#include <string>
#include <string_view>

namespace velto::jsonfloat {

// The JSON text of the value: a number, or a quoted string for NaN and the infinities.
std::string Format(float value);

enum class ParseError { None, NotAFloat, OutOfRange };

// The float a JSON number (as the double nearest to its decimal) stands for: the float whose shortest
// decimal it is; other decimals are rounded to the nearest float. Beyond the float range (or a
// non-zero value that would round to zero) is OutOfRange.
ParseError FromNumber(double number, float& out);
// The float one of the strings above stands for; any other string is NotAFloat.
ParseError FromString(std::string_view text, float& out);

} // namespace velto::jsonfloat
