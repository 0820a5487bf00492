#include "JsonFloat.h"

#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <optional>
#include <string_view>

namespace velto::jsonfloat {
namespace {

constexpr uint32_t kDefaultNaN = 0x7FC00000;
constexpr std::string_view kNaNPrefix = "NaN(0x";

std::string Shortest(float value) {
    std::array<char, 32> buffer;
    const auto result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value);
    return std::string(buffer.data(), result.ptr);
}

double ReadDouble(const std::string& text) {
    double value = 0;
    std::from_chars(text.data(), text.data() + text.size(), value);
    return value;
}

std::string NaNText(uint32_t bits) {
    static constexpr char kHex[] = "0123456789ABCDEF";
    std::string text(kNaNPrefix);
    for (int shift = 28; shift >= 0; shift -= 4)
        text += kHex[(bits >> shift) & 0xF];
    return text + ")";
}

std::optional<float> FromNaNText(std::string_view text) {
    if (text.size() != kNaNPrefix.size() + 9 || !text.starts_with(kNaNPrefix) || text.back() != ')')
        return std::nullopt;
    uint32_t bits = 0;
    const char* first = text.data() + kNaNPrefix.size();
    const auto result = std::from_chars(first, first + 8, bits, 16);
    if (result.ec != std::errc() || result.ptr != first + 8 || !std::isnan(std::bit_cast<float>(bits)))
        return std::nullopt;
    return std::bit_cast<float>(bits);
}

std::optional<float> SpecialFromString(std::string_view text) {
    if (text == "NaN")
        return std::bit_cast<float>(kDefaultNaN);
    if (text == "Infinity")
        return HUGE_VALF;
    if (text == "-Infinity")
        return -HUGE_VALF;
    return FromNaNText(text);
}

// The JSON reader holds a number as a double. Converting that double to float rounds twice (decimal
// to double, double to float), which can miss by one step when the decimal lies next to the middle
// between two floats (of all finite floats, ±7.038531e-26 do); so the neighbours are tried too, and
// the float whose shortest decimal gives this very double wins.
float NearestFloat(double value) {
    const float rounded = static_cast<float>(value);
    if (double(rounded) == value) // exactly a float: no neighbour's shortest decimal can be this close
        return rounded;
    for (const float candidate :
         {rounded, std::nextafter(rounded, -HUGE_VALF), std::nextafter(rounded, HUGE_VALF)})
        if (std::isfinite(candidate) && ReadDouble(Shortest(candidate)) == value)
            return candidate;
    return rounded;
}

} // namespace

std::string Format(float value) {
    const uint32_t bits = std::bit_cast<uint32_t>(value);
    if (std::isnan(value)) {
        std::string text = "\"";
        text += bits == kDefaultNaN ? std::string("NaN") : NaNText(bits);
        return text += '"';
    }
    if (std::isinf(value))
        return value > 0 ? "\"Infinity\"" : "\"-Infinity\"";
    std::string text = Shortest(value);
    // A whole number gets ".0" so that it reads as a float, and -0 keeps its sign.
    if (text.find_first_of(".e") == std::string::npos)
        text += ".0";
    return text;
}

ParseError FromNumber(double number, float& out) {
    const float nearest = NearestFloat(number);
    if (std::isinf(nearest) || (nearest == 0 && number != 0))
        return ParseError::OutOfRange;
    out = nearest;
    return ParseError::None;
}

ParseError FromString(std::string_view text, float& out) {
    const std::optional<float> special = SpecialFromString(text);
    if (!special)
        return ParseError::NotAFloat;
    out = *special;
    return ParseError::None;
}

} // namespace velto::jsonfloat
