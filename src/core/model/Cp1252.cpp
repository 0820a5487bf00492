#include "model/Cp1252.h"

#include <array>

namespace velto::cp1252 {
namespace {

// 0x80..0x9F; the unassigned positions keep their own (C1) code point.
constexpr std::array<char32_t, 32> kHighTable = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,
};

} // namespace

char32_t ToUnicode(unsigned char byte) {
    if (byte >= 0x80 && byte <= 0x9F)
        return kHighTable[byte - 0x80];
    return byte;
}

std::optional<unsigned char> FromUnicode(char32_t codePoint) {
    if (codePoint < 0x80 || (codePoint >= 0xA0 && codePoint <= 0xFF))
        return static_cast<unsigned char>(codePoint);
    for (size_t i = 0; i < kHighTable.size(); ++i)
        if (kHighTable[i] == codePoint)
            return static_cast<unsigned char>(0x80 + i);
    return std::nullopt;
}

void AppendUtf8(std::string& out, char32_t c) {
    if (c < 0x80) {
        out += char(c);
    } else if (c < 0x800) {
        out += char(0xC0 | (c >> 6));
        out += char(0x80 | (c & 0x3F));
    } else if (c < 0x10000) {
        out += char(0xE0 | (c >> 12));
        out += char(0x80 | ((c >> 6) & 0x3F));
        out += char(0x80 | (c & 0x3F));
    } else {
        out += char(0xF0 | (c >> 18));
        out += char(0x80 | ((c >> 12) & 0x3F));
        out += char(0x80 | ((c >> 6) & 0x3F));
        out += char(0x80 | (c & 0x3F));
    }
}

std::optional<char32_t> DecodeUtf8(std::string_view s, size_t& pos) {
    const auto lead = static_cast<unsigned char>(s[pos++]);
    if (lead < 0x80)
        return lead;
    int extra;
    char32_t c;
    if ((lead & 0xE0) == 0xC0) {
        extra = 1;
        c = lead & 0x1F;
    } else if ((lead & 0xF0) == 0xE0) {
        extra = 2;
        c = lead & 0x0F;
    } else if ((lead & 0xF8) == 0xF0) {
        extra = 3;
        c = lead & 0x07;
    } else {
        return std::nullopt;
    }
    if (pos + extra > s.size())
        return std::nullopt;
    for (int i = 0; i < extra; ++i) {
        const auto next = static_cast<unsigned char>(s[pos]);
        if ((next & 0xC0) != 0x80)
            return std::nullopt;
        c = (c << 6) | (next & 0x3F);
        ++pos;
    }
    static constexpr char32_t kMinimum[] = {0, 0x80, 0x800, 0x10000};
    if (c < kMinimum[extra] || c > 0x10FFFF || (c >= 0xD800 && c <= 0xDFFF))
        return std::nullopt;
    return c;
}

std::string ToUtf8(std::string_view bytes) {
    std::string out;
    out.reserve(bytes.size() + bytes.size() / 8);
    // ASCII is the same in both: runs of it are copied in one piece.
    size_t run = 0;
    for (size_t i = 0; i < bytes.size(); ++i) {
        const auto b = static_cast<unsigned char>(bytes[i]);
        if (b < 0x80)
            continue;
        out.append(bytes.substr(run, i - run));
        AppendUtf8(out, ToUnicode(b));
        run = i + 1;
    }
    out.append(bytes.substr(run));
    return out;
}

namespace {

template <typename OnMissing> bool Convert(std::string_view utf8, std::string& out, OnMissing onMissing) {
    out.reserve(utf8.size());
    size_t pos = 0;
    while (pos < utf8.size()) {
        const auto c = DecodeUtf8(utf8, pos);
        const auto b = c ? FromUnicode(*c) : std::nullopt;
        if (b)
            out += char(*b);
        else if (!onMissing(out))
            return false;
    }
    return true;
}

} // namespace

std::optional<std::string> FromUtf8(std::string_view utf8) {
    std::string out;
    if (!Convert(utf8, out, [](std::string&) { return false; }))
        return std::nullopt;
    return out;
}

std::string FromUtf8Lossy(std::string_view utf8) {
    std::string out;
    Convert(utf8, out, [](std::string& o) {
        o += '?';
        return true;
    });
    return out;
}

bool Fits(std::string_view utf8) {
    return FromUtf8(utf8).has_value();
}

} // namespace velto::cp1252
