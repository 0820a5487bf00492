#include "text/RtfLexer.h"

#include <algorithm>
#include <cstring>
#include <iterator>
#include <limits>

namespace velto::rtf {
namespace {

bool IsLetter(unsigned char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}
bool IsDigit(unsigned char c) {
    return c >= '0' && c <= '9';
}
// Line ends carry no meaning in RTF; NUL bytes appear as padding after the text of some writers.
bool IsIgnored(unsigned char c) {
    return c == '\r' || c == '\n' || c == '\0';
}

Token MakeToken(Token::Kind kind) {
    Token token;
    token.kind = kind;
    return token;
}

} // namespace

int HexDigitValue(unsigned char c) {
    if (IsDigit(c))
        return c - '0';
    if (c >= 'a' && c <= 'f')
        return c - 'a' + 10;
    if (c >= 'A' && c <= 'F')
        return c - 'A' + 10;
    return -1;
}

Token Lexer::Next() {
    while (!AtEnd() && IsIgnored(Peek()))
        ++m_pos;
    if (AtEnd())
        return Token{};
    switch (Peek()) {
    case '{':
        ++m_pos;
        return MakeToken(Token::Kind::GroupOpen);
    case '}':
        ++m_pos;
        return MakeToken(Token::Kind::GroupClose);
    case '\\':
        return ReadControl();
    default:
        return ReadText();
    }
}

Token Lexer::ReadText() {
    const size_t start = m_pos;
    while (!AtEnd()) {
        const unsigned char c = Peek();
        if (c == '\\' || c == '{' || c == '}' || IsIgnored(c))
            break;
        ++m_pos;
    }
    Token token = MakeToken(Token::Kind::Text);
    token.text = m_input.substr(start, m_pos - start);
    return token;
}

Token Lexer::ReadControl() {
    ++m_pos; // the backslash
    if (AtEnd())
        return Token{};
    const unsigned char first = Peek();
    if (IsLetter(first)) {
        const size_t start = m_pos;
        while (!AtEnd() && IsLetter(Peek()))
            ++m_pos;
        Token token = MakeToken(Token::Kind::ControlWord);
        token.text = m_input.substr(start, std::min(m_pos - start, kMaxWordLength + 1));
        ReadParam(token);
        if (!AtEnd() && Peek() == ' ')
            ++m_pos; // the delimiter belongs to the word
        return token;
    }
    ++m_pos;
    if (first == '\'') {
        if (m_pos + 2 <= m_input.size()) {
            const int high = HexDigitValue(static_cast<unsigned char>(m_input[m_pos]));
            const int low = HexDigitValue(static_cast<unsigned char>(m_input[m_pos + 1]));
            if (high >= 0 && low >= 0) {
                m_pos += 2;
                Token token = MakeToken(Token::Kind::HexByte);
                token.byte = static_cast<unsigned char>(high * 16 + low);
                return token;
            }
        }
        // A broken escape: the quote stands for nothing, the text after it is read as text.
    }
    Token token = MakeToken(Token::Kind::ControlSymbol);
    token.byte = first;
    return token;
}

void Lexer::ReadParam(Token& token) {
    size_t pos = m_pos;
    const bool negative = pos < m_input.size() && m_input[pos] == '-';
    if (negative)
        ++pos;
    if (pos >= m_input.size() || !IsDigit(static_cast<unsigned char>(m_input[pos])))
        return;
    constexpr int64_t kLimit = std::numeric_limits<int32_t>::max();
    int64_t value = 0;
    while (pos < m_input.size() && IsDigit(static_cast<unsigned char>(m_input[pos]))) {
        value = std::min(kLimit, value * 10 + (m_input[pos] - '0'));
        ++pos;
    }
    m_pos = pos;
    token.hasParam = true;
    token.param = static_cast<int32_t>(negative ? -value : value);
}

void Lexer::SkipBytes(int64_t count) {
    if (count <= 0)
        return;
    const size_t left = m_input.size() - m_pos;
    m_pos += static_cast<size_t>(std::min<int64_t>(count, static_cast<int64_t>(left)));
}

std::string_view Lexer::TakeBytes(int64_t count) {
    const size_t start = m_pos;
    SkipBytes(count);
    return m_input.substr(start, m_pos - start);
}

size_t Lexer::NextSpecial() {
    static constexpr char kSpecial[] = {'{', '}', '\\'};
    size_t next = m_input.size();
    for (size_t i = 0; i < std::size(kSpecial); ++i) {
        if (m_nextSpecial[i] < m_pos || !m_nextSpecialKnown) {
            const void* hit = std::memchr(m_input.data() + m_pos, kSpecial[i], m_input.size() - m_pos);
            m_nextSpecial[i] =
                hit ? static_cast<size_t>(static_cast<const char*>(hit) - m_input.data()) : m_input.size();
        }
        next = std::min(next, m_nextSpecial[i]);
    }
    m_nextSpecialKnown = true;
    return next;
}

void Lexer::SkipGroup() {
    int depth = 1;
    while ((m_pos = NextSpecial()) < m_input.size()) {
        const char c = m_input[m_pos++];
        if (c == '{') {
            ++depth;
        } else if (c == '}') {
            if (--depth == 0)
                return;
        } else if (!AtEnd()) {
            if (m_input.substr(m_pos, 3) == "bin") {
                --m_pos;
                const Token word = ReadControl();
                if (word.text == "bin")
                    SkipBytes(word.param);
            } else {
                ++m_pos; // an escaped brace or backslash is no brace
            }
        }
    }
}

} // namespace velto::rtf
