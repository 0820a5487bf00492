#include "files/TokenReader.h"

#include <climits>
#include <cstdint>

namespace velto {

namespace {

bool IsSpace(char c) {
    return c == ' ' || c == '\t' || c == '\n' || c == '\v' || c == '\f' || c == '\r';
}
bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

} // namespace

std::nullopt_t TokenReader::Fail() {
    m_failed = true;
    return std::nullopt;
}

bool TokenReader::SkipSpace() {
    while (!AtEnd() && IsSpace(m_bytes[m_pos]))
        ++m_pos;
    if (!AtEnd())
        return true;
    m_reachedEnd = true;
    m_failed = true;
    return false;
}

std::optional<std::string_view> TokenReader::NextToken() {
    if (m_failed || !SkipSpace())
        return std::nullopt;
    const size_t begin = m_pos;
    while (!AtEnd() && !IsSpace(m_bytes[m_pos]))
        ++m_pos;
    m_reachedEnd = AtEnd();
    return m_bytes.substr(begin, m_pos - begin);
}

std::optional<int> TokenReader::NextInt() {
    if (m_failed || !SkipSpace())
        return std::nullopt;
    const bool negative = m_bytes[m_pos] == '-';
    if (negative || m_bytes[m_pos] == '+')
        ++m_pos;
    int64_t value = 0;
    bool anyDigit = false;
    bool overflow = false;
    for (; !AtEnd() && IsDigit(m_bytes[m_pos]); ++m_pos) {
        anyDigit = true;
        value = value * 10 + (m_bytes[m_pos] - '0');
        if (value > int64_t(INT_MAX) + 1) {
            overflow = true;
            value = int64_t(INT_MAX) + 1; // keeps the sum bounded over any number of digits
        }
    }
    m_reachedEnd = AtEnd();
    if (negative)
        value = -value;
    if (!anyDigit || overflow || value > INT_MAX || value < INT_MIN)
        return Fail();
    return int(value);
}

std::string EncodeBlanks(std::string_view text) {
    std::string out;
    out.reserve(text.size());
    for (char c : text) {
        if (IsSpace(c))
            out += kBlankMarker;
        else
            out += c;
    }
    return out;
}

std::string DecodeBlanks(std::string_view token) {
    std::string out;
    out.reserve(token.size());
    for (size_t i = 0; i < token.size();) {
        if (token.substr(i, kBlankMarker.size()) == kBlankMarker) {
            out += ' ';
            i += kBlankMarker.size();
        } else {
            out += token[i++];
        }
    }
    return out;
}

} // namespace velto
