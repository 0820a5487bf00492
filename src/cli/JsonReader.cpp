#include "JsonReader.h"

#include "JsonText.h"
#include "model/Cp1252.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <locale.h>

namespace velto {

namespace {

constexpr const char* kUnexpectedEnd = "unerwartetes Ende der Daten";

// The character each one-letter escape stands for; 0 for letters that are no escape.
constexpr std::array<char, 256> kEscaped = [] {
    std::array<char, 256> escaped{};
    for (const auto& [letter, meaning] : {std::pair{'"', '"'},
                                          {'\\', '\\'},
                                          {'/', '/'},
                                          {'b', '\b'},
                                          {'f', '\f'},
                                          {'n', '\n'},
                                          {'r', '\r'},
                                          {'t', '\t'}})
        escaped[static_cast<unsigned char>(letter)] = meaning;
    return escaped;
}();

bool IsDigit(int byte) {
    return byte >= '0' && byte <= '9';
}

bool IsNumberByte(int byte) {
    return IsDigit(byte) || byte == '-' || byte == '+' || byte == '.' || byte == 'e' || byte == 'E';
}

// The length of the number at the start of text by the JSON grammar; nullptr, or what is wrong at
// text[length].
const char* ScanNumber(std::string_view text, size_t& length, bool& integral) {
    size_t& at = length;
    at = 0;
    const auto next = [&] { return at < text.size() ? text[at] : '\0'; };
    const auto digits = [&] {
        const size_t from = at;
        while (IsDigit(next()))
            ++at;
        return at - from;
    };
    if (next() == '-')
        ++at;
    if (next() == '0')
        ++at;
    else if (digits() == 0)
        return "Ziffer erwartet";
    if (next() == '.') {
        ++at;
        integral = false;
        if (digits() == 0)
            return "Ziffer nach dem Dezimalpunkt erwartet";
    }
    if (next() == 'e' || next() == 'E') {
        ++at;
        integral = false;
        if (next() == '+' || next() == '-')
            ++at;
        if (digits() == 0)
            return "Ziffer im Exponenten erwartet";
    }
    return nullptr;
}

// A decimal without exponent of at most 15 digits, as most floats in a project are: its digits and
// the power of ten below it are both exact doubles, so one division rounds correctly.
bool ExactDecimal(std::string_view text, double& value) {
    static constexpr double kPowersOfTen[] = {1e0, 1e1, 1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                              1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};
    const bool negative = text[0] == '-';
    uint64_t digits = 0;
    int count = 0, decimals = -1;
    for (const char c : text.substr(negative)) {
        if (c == '.') {
            decimals = 0;
            continue;
        }
        if (!IsDigit(c) || ++count > 15)
            return false;
        digits = digits * 10 + uint64_t(c - '0');
        decimals += decimals >= 0;
    }
    value = double(digits) / kPowersOfTen[std::max(decimals, 0)];
    value = negative ? -value : value;
    return true;
}

int HexValue(int byte) {
    if (IsDigit(byte))
        return byte - '0';
    if (byte >= 'a' && byte <= 'f')
        return byte - 'a' + 10;
    if (byte >= 'A' && byte <= 'F')
        return byte - 'A' + 10;
    return -1;
}

// Where the characters of a string go.
struct Utf8Sink {
    std::string& text;
    void Append(const char* bytes, size_t count) { text.append(bytes, count); }
    void Add(char32_t c) {
        if (c < 0x80)
            text += char(c);
        else
            cp1252::AppendUtf8(text, c);
    }
};

struct Cp1252Sink {
    std::string& text;
    bool fits = true;
    void Append(const char* bytes, size_t count) { text.append(bytes, count); }
    void Add(char32_t c) {
        if (c < 0x80)
            text += char(c);
        else if (const std::optional<unsigned char> byte = cp1252::FromUnicode(c))
            text += char(*byte);
        else
            fits = false;
    }
};

struct NoSink {
    void Append(const char*, size_t) {}
    void Add(char32_t) {}
};

// The double of a decimal beyond what from_chars gives (a value too large or too small for a
// double), in the C locale whatever locale the process runs in: infinity or the nearest denormal.
double DoubleBeyondRange(const std::string& text) {
    static const locale_t cLocale = newlocale(LC_ALL_MASK, "C", locale_t(0));
    return strtod_l(text.c_str(), nullptr, cLocale);
}

} // namespace

double JsonNumber::AsDouble() const {
    switch (kind) {
    case Kind::Signed:
        return double(signedValue);
    case Kind::Unsigned:
        return double(unsignedValue);
    case Kind::Double:
        break;
    }
    return doubleValue;
}

JsonReader::JsonReader(JsonPieceReader read, size_t windowBytes)
    : m_read(std::move(read)), m_window(std::max<size_t>(windowBytes, 1)) {}

// ---- bytes ----

bool JsonReader::Refill() {
    if (m_atEnd)
        return false;
    m_passedBytes += m_end;
    m_pos = m_end = 0;
    const int64_t got = m_read(m_window.data(), m_window.size());
    if (got <= 0) {
        m_atEnd = true;
        return false;
    }
    m_end = size_t(got);
    return true;
}

// Every line break before a syntax error is white space between values (one inside a string is
// the error), so counting them here is enough for the position in messages.
int JsonReader::SkipSpace() {
    for (;;) {
        for (; m_pos < m_end; ++m_pos) {
            const char byte = m_window[m_pos];
            if (byte == '\n') {
                ++m_lines;
                m_lineStart = m_passedBytes + m_pos + 1;
            } else if (byte != ' ' && byte != '\t' && byte != '\r') {
                return static_cast<unsigned char>(byte);
            }
        }
        if (!Refill())
            return -1;
    }
}

void JsonReader::Fail(const char* problem) {
    if (Failed())
        return;
    const uint64_t column = m_passedBytes + m_pos - m_lineStart;
    m_error =
        "Zeile " + std::to_string(m_lines + 1) + ", Spalte " + std::to_string(column + 1) + ": " + problem;
}

void JsonReader::FailAt(int byte, const char* problem) {
    if (byte < 0)
        return Fail(kUnexpectedEnd);
    --m_pos; // the byte just taken is the one that is wrong
    Fail(problem);
}

bool JsonReader::Expect(int byte, const char* problem) {
    const int found = SkipSpace();
    if (found != byte) {
        Fail(found < 0 ? kUnexpectedEnd : problem);
        return false;
    }
    ++m_pos;
    return true;
}

// ---- structure ----

JsonKind JsonReader::Peek() {
    if (Failed())
        return JsonKind::Invalid;
    if (!m_started) {
        m_started = true;
        if (PeekByte() == 0xEF) { // the UTF-8 byte order mark some editors write
            ++m_pos;
            for (const int expected : {0xBB, 0xBF})
                if (const int byte = NextByte(); byte != expected) {
                    FailAt(byte, "unvollständige Byte-Order-Markierung");
                    return JsonKind::Invalid;
                }
        }
    }
    const int byte = SkipSpace();
    switch (byte) {
    case '{':
        return JsonKind::Object;
    case '[':
        return JsonKind::Array;
    case '"':
        return JsonKind::String;
    case 't':
    case 'f':
    case 'n':
        return JsonKind::Literal;
    default:
        if (byte == '-' || IsDigit(byte))
            return JsonKind::Number;
    }
    Fail(byte < 0 ? kUnexpectedEnd : "Wert erwartet");
    return JsonKind::Invalid;
}

void JsonReader::Enter() {
    if (!Failed())
        ++m_pos;
}

bool JsonReader::NextMember(bool first, std::string_view& key) {
    if (Failed())
        return false;
    int byte = SkipSpace();
    if (byte == '}') {
        ++m_pos;
        return false;
    }
    if (!first) {
        if (!Expect(',', "',' oder '}' erwartet"))
            return false;
        byte = SkipSpace();
    }
    if (byte != '"') {
        Fail(byte < 0 ? kUnexpectedEnd : "Feldname in Anführungszeichen erwartet");
        return false;
    }
    // A plain key followed by its colon inside the window is used where it stands: no refill of the
    // window can come before the caller has looked at it.
    const char* start = m_window.data() + m_pos + 1;
    const char* end = m_window.data() + m_end;
    const size_t length = jsontext::PlainRun(start, end);
    if (end - start > ptrdiff_t(length + 1) && start[length] == '"' && start[length + 1] == ':') {
        key = {start, length};
        m_pos += length + 3;
        return true;
    }
    ReadUtf8(m_key);
    key = m_key;
    return Expect(':', "':' erwartet") && !Failed();
}

bool JsonReader::NextElement(bool first) {
    if (Failed())
        return false;
    if (SkipSpace() == ']') {
        ++m_pos;
        return false;
    }
    return first || Expect(',', "',' oder ']' erwartet");
}

void JsonReader::ExpectEnd() {
    if (!Failed() && SkipSpace() >= 0)
        Fail("Ende der Daten erwartet");
}

void JsonReader::SkipValue() {
    std::vector<char> open; // the closing brackets of the containers entered and not yet left
    std::string_view key;
    for (;;) {
        bool first = false;
        switch (Peek()) {
        case JsonKind::Object:
        case JsonKind::Array:
            open.push_back(m_window[m_pos] == '{' ? '}' : ']');
            Enter();
            first = true;
            break;
        case JsonKind::String: {
            NoSink sink;
            ReadString(sink);
            break;
        }
        case JsonKind::Number: {
            JsonNumber number;
            ReadNumber(number);
            break;
        }
        case JsonKind::Literal:
            ReadLiteral();
            break;
        case JsonKind::Invalid:
            return;
        }
        // On to the next value, leaving the containers that end here.
        for (;; first = false) {
            if (Failed() || open.empty())
                return;
            if (open.back() == '}' ? NextMember(first, key) : NextElement(first))
                break;
            open.pop_back();
        }
    }
}

// ---- values ----

bool JsonReader::ReadText(std::string& text) {
    text.clear();
    Cp1252Sink sink{text};
    ReadString(sink);
    return sink.fits;
}

void JsonReader::ReadUtf8(std::string& text) {
    text.clear();
    Utf8Sink sink{text};
    ReadString(sink);
}

// Runs of plain bytes go to the sink in one piece; the reader stops only at quotes, escapes,
// control characters and the bytes of multi-byte characters.
template <class Sink> void JsonReader::ReadString(Sink& sink) {
    if (Failed())
        return;
    ++m_pos; // the opening quote
    for (;;) {
        const size_t start = m_pos;
        m_pos += jsontext::PlainRun(m_window.data() + m_pos, m_window.data() + m_end);
        sink.Append(m_window.data() + start, m_pos - start);
        const int byte = PeekByte();
        if (byte == '"') {
            ++m_pos;
            return;
        }
        if (byte == '\\') {
            ++m_pos;
            ReadEscape(sink);
        } else if (byte >= 0x80) {
            ReadMultiByte(sink);
        } else if (byte < 0) {
            return Fail(kUnexpectedEnd);
        } else if (byte < 0x20) {
            return Fail("Steuerzeichen in einem Text ohne Escape-Folge");
        }
        if (Failed())
            return;
    }
}

template <class Sink> void JsonReader::ReadEscape(Sink& sink) {
    const int letter = NextByte();
    if (letter >= 0 && kEscaped[letter])
        return sink.Add(char32_t(kEscaped[letter]));
    if (letter != 'u')
        return FailAt(letter, "ungültige Escape-Folge");
    char32_t unit = 0;
    if (!ReadHexUnit(unit))
        return;
    if (unit >= 0xDC00 && unit <= 0xDFFF)
        return Fail("zweite Hälfte eines UTF-16-Ersatzpaars ohne erste");
    if (unit >= 0xD800 && unit <= 0xDBFF) {
        char32_t low = 0;
        for (const int expected : {'\\', 'u'})
            if (const int byte = NextByte(); byte != expected)
                return FailAt(byte, "erste Hälfte eines UTF-16-Ersatzpaars ohne zweite");
        if (!ReadHexUnit(low))
            return;
        if (low < 0xDC00 || low > 0xDFFF)
            return Fail("erste Hälfte eines UTF-16-Ersatzpaars ohne zweite");
        unit = 0x10000 + ((unit - 0xD800) << 10) + (low - 0xDC00);
    }
    sink.Add(unit);
}

bool JsonReader::ReadHexUnit(char32_t& unit) {
    unit = 0;
    for (int i = 0; i < 4; ++i) {
        const int byte = NextByte();
        const int value = HexValue(byte);
        if (value < 0) {
            FailAt(byte, "vier Hexadezimalziffern nach \\u erwartet");
            return false;
        }
        unit = unit * 16 + char32_t(value);
    }
    return true;
}

// Well-formed UTF-8 only: no overlong forms, no surrogates, nothing beyond U+10FFFF.
template <class Sink> void JsonReader::ReadMultiByte(Sink& sink) {
    const int lead = NextByte();
    int follow = 0;
    int low = 0x80, high = 0xBF; // the range of the first continuation byte
    char32_t c = 0;
    if (lead >= 0xC2 && lead <= 0xDF) {
        follow = 1;
        c = char32_t(lead & 0x1F);
    } else if (lead >= 0xE0 && lead <= 0xEF) {
        follow = 2;
        c = char32_t(lead & 0x0F);
        low = lead == 0xE0 ? 0xA0 : low;
        high = lead == 0xED ? 0x9F : high;
    } else if (lead >= 0xF0 && lead <= 0xF4) {
        follow = 3;
        c = char32_t(lead & 0x07);
        low = lead == 0xF0 ? 0x90 : low;
        high = lead == 0xF4 ? 0x8F : high;
    } else {
        return FailAt(lead, "ungültiges UTF-8");
    }
    for (int i = 0; i < follow; ++i, low = 0x80, high = 0xBF) {
        const int byte = NextByte();
        if (byte < low || byte > high)
            return FailAt(byte, "ungültiges UTF-8");
        c = (c << 6) | char32_t(byte & 0x3F);
    }
    sink.Add(c);
}

void JsonReader::ReadLiteral() {
    const int first = PeekByte();
    const std::string_view word = first == 't' ? "true" : first == 'f' ? "false" : "null";
    for (const char expected : word)
        if (const int byte = NextByte(); byte != expected)
            return FailAt(byte, "ungültiger Wert (true, false oder null erwartet)");
}

// The bytes that can belong to a number: a view into the window when the number ends inside it,
// else gathered across windows.
std::string_view JsonReader::NumberBytes(bool& inWindow) {
    const size_t start = m_pos;
    while (m_pos < m_end && IsNumberByte(static_cast<unsigned char>(m_window[m_pos])))
        ++m_pos;
    inWindow = m_pos < m_end;
    if (inWindow)
        return {m_window.data() + start, m_pos - start};
    m_number.assign(m_window.data() + start, m_pos - start);
    for (int byte = PeekByte(); IsNumberByte(byte); byte = PeekByte()) {
        m_number += char(byte);
        ++m_pos;
    }
    return m_number;
}

void JsonReader::ReadNumber(JsonNumber& number) {
    if (Failed())
        return;
    bool inWindow = false;
    const std::string_view bytes = NumberBytes(inWindow);
    size_t length = 0;
    bool integral = true;
    const char* problem = ScanNumber(bytes, length, integral);
    if (inWindow) // what the number does not take is left for the next step, which refuses it
        m_pos -= bytes.size() - length;
    if (!problem && (inWindow || length == bytes.size()))
        return Convert(bytes.substr(0, length), integral, number);
    if (!problem)
        problem = "ungültige Zahl";
    else if (!inWindow && length == bytes.size() && PeekByte() < 0)
        problem = kUnexpectedEnd;
    Fail(problem);
}

void JsonReader::Convert(std::string_view text, bool integral, JsonNumber& number) {
    const bool negative = text[0] == '-';
    if (integral && text.size() - negative <= 18) { // fits either integer kind
        uint64_t magnitude = 0;
        for (const char digit : text.substr(negative))
            magnitude = magnitude * 10 + uint64_t(digit - '0');
        number.kind = negative ? JsonNumber::Kind::Signed : JsonNumber::Kind::Unsigned;
        number.signedValue = -int64_t(magnitude);
        number.unsignedValue = magnitude;
        return;
    }
    if (!integral && ExactDecimal(text, number.doubleValue)) {
        number.kind = JsonNumber::Kind::Double;
        return;
    }
    const char* first = text.data();
    const char* last = first + text.size();
    if (integral) {
        // An integer too long for 64 bits becomes a double below, as any other JSON reader does.
        if (negative ? std::from_chars(first, last, number.signedValue).ec == std::errc()
                     : std::from_chars(first, last, number.unsignedValue).ec == std::errc()) {
            number.kind = negative ? JsonNumber::Kind::Signed : JsonNumber::Kind::Unsigned;
            return;
        }
    }
    number.kind = JsonNumber::Kind::Double;
    if (std::from_chars(first, last, number.doubleValue).ec == std::errc::result_out_of_range)
        number.doubleValue = DoubleBeyondRange(std::string(text));
    if (!std::isfinite(number.doubleValue))
        Fail("Zahl zu groß für eine Gleitkommazahl doppelter Genauigkeit");
}

} // namespace velto
