#pragma once
// The 8-bit code pages RTF text can be written in: the document's (\ansicpg, \mac, \pc) or a font's
// (\fcharset, \cpg): the Windows single-byte pages, Mac Roman, the DOS pages 437 and 850, and the East
// Asian double-byte pages 932, 936, 949 and 950.
#include <cstdint>

namespace velto::rtf {

namespace dbcs {
struct DoubleByteTable;
}

class CodePage {
public:
    // The page with this number; pages this reader does not know decode as Windows-1252.
    static const CodePage& ForNumber(int number);
    // The code page a font's \fcharset selects, or nothing (0) for "the document's code page".
    static int NumberForCharset(int charset);
    // Symbol fonts: their bytes are glyph numbers, not characters.
    static const CodePage& Symbol();

    int Number() const { return m_number; }
    bool IsSymbol() const { return m_number == 42; }
    bool IsDoubleByte() const { return m_leadFirst != 0; }
    bool IsLeadByte(unsigned char byte) const {
        return (byte >= m_leadFirst && byte <= m_leadLast) || (byte >= m_lead2First && byte <= m_lead2Last);
    }
    // The character of a single byte (for a double-byte page: of a byte that is no lead byte).
    char32_t ToUnicode(unsigned char byte) const;
    // The character of a lead byte and the byte after it on a double-byte page.
    char32_t PairToUnicode(unsigned char lead, unsigned char trail) const;

    CodePage(int number, const char16_t* high) : m_number(number), m_high(high) {}
    // A double-byte page whose lead bytes are leadFirst..leadLast and lead2First..lead2Last.
    CodePage(int number, const dbcs::DoubleByteTable& table, unsigned char leadFirst, unsigned char leadLast,
             unsigned char lead2First = 0, unsigned char lead2Last = 0);

private:
    int m_number;
    const char16_t* m_high; // characters of the bytes 0x80..0xFF; null where computed
    const char16_t* m_pairs = nullptr;
    unsigned char m_leadFirst = 0, m_leadLast = 0, m_lead2First = 0, m_lead2Last = 0;
};

} // namespace velto::rtf
