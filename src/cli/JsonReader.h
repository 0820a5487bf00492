#pragma once
// Reads JSON text a window at a time, for velto-cli build: a project's JSON can be hundreds of
// megabytes, so values are pulled one by one and never held as a tree. Accepted is strict JSON
// (RFC 8259) after an optional UTF-8 byte order mark: no comments, no trailing commas, well-formed
// UTF-8 and surrogate pairs only, and no number beyond the range of a double. The first syntax error
// stops the reader for good: from then on every call returns at once, so callers simply unwind.
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace velto {

// Hands over the next bytes: how many it put into the buffer, 0 at the end, or -errno.
using JsonPieceReader = std::function<int64_t(char* buffer, size_t size)>;

enum class JsonKind { Object, Array, String, Number, Literal, Invalid };

// A number as written: an integer that fits 64 bits stays exact, everything else is the double
// nearest to it.
struct JsonNumber {
    enum class Kind { Signed, Unsigned, Double };
    Kind kind = Kind::Unsigned;
    int64_t signedValue = 0;
    uint64_t unsignedValue = 0;
    double doubleValue = 0;

    double AsDouble() const;
};

class JsonReader {
public:
    explicit JsonReader(JsonPieceReader read, size_t windowBytes = 256 * 1024);

    // The kind of the next value after white space (and, at the very start, a byte order mark).
    // Invalid, and a syntax error, when no value starts there.
    JsonKind Peek();

    // At an object or an array: steps inside. In an object NextMember then reads the next key (as
    // UTF-8, valid until the next call) and its colon, or steps past the closing brace and returns
    // false; in an array NextElement returns true when a value follows, false past the ']'. first:
    // nothing was read inside before.
    void Enter();
    bool NextMember(bool first, std::string_view& key);
    bool NextElement(bool first);

    // Reads a string value into text as Windows-1252; false when a character has no byte there
    // (the string is read to its end all the same, and such characters are left out).
    bool ReadText(std::string& text);
    // Reads a string value into text as UTF-8.
    void ReadUtf8(std::string& text);
    void ReadNumber(JsonNumber& number);
    // Passes over the next value, nested to any depth, checking it as strictly as the rest.
    void SkipValue();
    // After the outermost value: nothing but white space may follow.
    void ExpectEnd();

    bool Failed() const { return !m_error.empty(); }
    // "Zeile L, Spalte C: what is wrong", counting bytes from 1.
    const std::string& Error() const { return m_error; }

private:
    // The next byte, or -1 at the end; refills the window when it is used up.
    int PeekByte() {
        if (m_pos == m_end && !Refill())
            return -1;
        return static_cast<unsigned char>(m_window[m_pos]);
    }
    int NextByte() {
        const int byte = PeekByte();
        m_pos += byte >= 0;
        return byte;
    }
    int SkipSpace();
    bool Refill();
    void Fail(const char* problem);
    // Fails at the byte NextByte just gave, or at the end when it gave none.
    void FailAt(int byte, const char* problem);
    bool Expect(int byte, const char* problem);

    template <class Sink> void ReadString(Sink& sink);
    template <class Sink> void ReadEscape(Sink& sink);
    template <class Sink> void ReadMultiByte(Sink& sink);
    bool ReadHexUnit(char32_t& unit);
    void ReadLiteral();
    std::string_view NumberBytes(bool& inWindow);
    void Convert(std::string_view text, bool integral, JsonNumber& number);

    JsonPieceReader m_read;
    std::vector<char> m_window;
    size_t m_pos = 0;
    size_t m_end = 0;
    bool m_atEnd = false;
    bool m_started = false;
    // For the position in messages: the bytes of the windows already passed, the line breaks
    // passed, and where the current line starts.
    uint64_t m_passedBytes = 0;
    uint64_t m_lines = 0;
    uint64_t m_lineStart = 0;
    std::string m_number; // the text of the number being read
    std::string m_key;    // a key that is not read where it stands
    std::string m_error;
};

} // namespace velto
