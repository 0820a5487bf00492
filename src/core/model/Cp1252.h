#pragma once
// Windows-1252 is the byte encoding of every text in the model and the files. These conversions are
// lossless for all 256 byte values: the five bytes Windows-1252 leaves unassigned (0x81, 0x8D, 0x8F,
// 0x90, 0x9D) map to the C1 control code points of the same number and back.
#include <optional>
#include <string>
#include <string_view>

namespace velto::cp1252 {

char32_t ToUnicode(unsigned char byte);
// The byte for a code point, or nothing when Windows-1252 cannot hold it.
std::optional<unsigned char> FromUnicode(char32_t codePoint);

// Windows-1252 bytes to UTF-8.
std::string ToUtf8(std::string_view bytes);
// UTF-8 to Windows-1252; nothing when a character does not fit or the UTF-8 is malformed.
std::optional<std::string> FromUtf8(std::string_view utf8);
// UTF-8 to Windows-1252 with every character that does not fit replaced by '?'.
std::string FromUtf8Lossy(std::string_view utf8);
// Whether every character of the UTF-8 text has a Windows-1252 byte.
bool Fits(std::string_view utf8);

// The small letter of a capital: ASCII, the Latin-1 capitals (not the multiplication sign) and the
// four capitals of the 0x80 row that have a small partner (Š Œ Ž Ÿ); any other byte as it is. Two
// bytes are one letter in either case when they fold to the same byte.
constexpr unsigned char FoldCase(unsigned char byte) {
    if ((byte >= 'A' && byte <= 'Z') || (byte >= 0xC0 && byte <= 0xDE && byte != 0xD7))
        return byte + 0x20;
    if (byte == 0x8A || byte == 0x8C || byte == 0x8E)
        return byte + 0x10;
    return byte == 0x9F ? 0xFF : byte;
}

// Appends the UTF-8 form of a code point.
void AppendUtf8(std::string& out, char32_t codePoint);
// Decodes one UTF-8 sequence at pos and advances pos; nothing for a malformed sequence (pos then
// moves past the offending byte).
std::optional<char32_t> DecodeUtf8(std::string_view utf8, size_t& pos);

} // namespace velto::cp1252
