#include "model/NumberFormat.h"

#include <algorithm>
#include <cctype>
#include <charconv>
#include <climits>
#include <cmath>
#include <cstring>

namespace velto::numfmt {
namespace {

std::string ToChars(double value, std::chars_format format, int precision) {
    char buffer[512];
    const auto result = std::to_chars(buffer, buffer + sizeof buffer, value, format, precision);
    return std::string(buffer, result.ptr);
}

// printf writes infinities and NaN as "inf"/"nan" (with sign); to_chars agrees except for the
// sign of NaN, which printf shows and to_chars drops.
std::string SpecialValue(double value) {
    if (std::isnan(value))
        return std::signbit(value) ? "-nan" : "nan";
    return value < 0 ? "-inf" : "inf";
}

bool StartsWithNoCase(std::string_view text, std::string_view prefix) {
    if (text.size() < prefix.size())
        return false;
    for (size_t i = 0; i < prefix.size(); ++i)
        if (std::tolower(static_cast<unsigned char>(text[i])) != prefix[i])
            return false;
    return true;
}

size_t SkipSpace(std::string_view text) {
    size_t pos = 0;
    while (pos < text.size() && std::isspace(static_cast<unsigned char>(text[pos])))
        ++pos;
    return pos;
}

} // namespace

std::string FormatFixed2(double value) {
    if (!std::isfinite(value))
        return SpecialValue(value);
    return ToChars(value, std::chars_format::fixed, 2);
}

std::string FormatGeneral(double value) {
    if (!std::isfinite(value))
        return SpecialValue(value);
    return ToChars(value, std::chars_format::general, 6);
}

std::string FormatEditNumber(double value) {
    const double scaled = value * 1000.0;
    if (std::isfinite(scaled) && std::floor(scaled) == scaled)
        return FormatFixed2(value);
    return FormatGeneral(value);
}

double ParseNumber(std::string_view text) {
    text.remove_prefix(SkipSpace(text));
    bool negative = false;
    if (!text.empty() && (text[0] == '+' || text[0] == '-')) {
        negative = text[0] == '-';
        text.remove_prefix(1);
    }
    double value = 0.0;
    if (StartsWithNoCase(text, "inf")) {
        value = INFINITY;
    } else if (StartsWithNoCase(text, "nan")) {
        value = NAN;
    } else if (StartsWithNoCase(text, "0x")) {
        const auto result =
            std::from_chars(text.data() + 2, text.data() + text.size(), value, std::chars_format::hex);
        if (result.ec == std::errc::invalid_argument)
            value = 0.0; // "0x" alone: scanf has read the zero
    } else {
        const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
        if (result.ec == std::errc::result_out_of_range) {
            // Out of range: like strtod, overflow gives infinity and underflow zero.
            const char* e = static_cast<const char*>(std::memchr(text.data(), 'e', text.size()));
            if (!e)
                e = static_cast<const char*>(std::memchr(text.data(), 'E', text.size()));
            const bool tiny = e && e + 1 < text.data() + text.size() && e[1] == '-';
            value = tiny ? 0.0 : INFINITY;
        } else if (result.ec != std::errc()) {
            value = 0.0;
        }
    }
    return negative ? -value : value;
}

int ParseInt(std::string_view text, int fallback) {
    text.remove_prefix(SkipSpace(text));
    bool negative = false;
    if (!text.empty() && (text[0] == '+' || text[0] == '-')) {
        negative = text[0] == '-';
        text.remove_prefix(1);
    }
    if (text.empty() || !std::isdigit(static_cast<unsigned char>(text[0])))
        return fallback;
    long long value = 0;
    for (char c : text) {
        if (!std::isdigit(static_cast<unsigned char>(c)))
            break;
        value = std::min<long long>(value * 10 + (c - '0'), LLONG_MAX / 20);
    }
    if (negative)
        value = -value;
    return int(std::clamp<long long>(value, INT_MIN, INT_MAX));
}

} // namespace velto::numfmt
