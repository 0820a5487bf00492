#pragma once
// Cuts RTF into its tokens: braces, control words with their numeric parameter, control symbols,
// hexadecimal bytes and runs of plain text. It never fails: whatever the input, it moves forward and
// ends at the end of the input.
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace velto::rtf {

struct Token {
    enum class Kind { End, GroupOpen, GroupClose, ControlWord, ControlSymbol, HexByte, Text };
    Kind kind = Kind::End;
    std::string_view text; // the word of a control word; the bytes of a text run
    int32_t param = 0;     // saturated to the 32-bit range
    bool hasParam = false;
    unsigned char byte = 0; // the character of a control symbol; the value of a hex byte
};

// The value of a hexadecimal digit, -1 for any other character.
int HexDigitValue(unsigned char c);

class Lexer {
public:
    // Control words longer than this are no RTF words; they are read whole and reported cut short.
    static constexpr size_t kMaxWordLength = 32;

    explicit Lexer(std::string_view input) : m_input(input) {}

    Token Next();
    // Passes over count bytes of binary data (\binN); a count beyond the input ends it.
    void SkipBytes(int64_t count);
    // The same, handing the bytes over.
    std::string_view TakeBytes(int64_t count);
    // Passes over the rest of the group whose opening brace was read last, its closing brace included,
    // honouring escaped braces and binary data inside it.
    void SkipGroup();
    size_t Position() const { return m_pos; }

private:
    Token ReadControl();
    Token ReadText();
    bool AtEnd() const { return m_pos >= m_input.size(); }
    unsigned char Peek() const { return static_cast<unsigned char>(m_input[m_pos]); }
    // Reads the optional signed number after a control word.
    void ReadParam(Token& token);
    // The position of the next brace or backslash from the current one, the end if there is none.
    size_t NextSpecial();

    std::string_view m_input;
    size_t m_pos = 0;
    // Where each of '{', '}' and '\\' next stands; looked for again only once passed, so that skipping
    // groups costs one memchr pass over the input whatever it holds (picture data: no scan per byte).
    size_t m_nextSpecial[3] = {};
    bool m_nextSpecialKnown = false;
};

} // namespace velto::rtf
