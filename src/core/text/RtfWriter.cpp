#include "text/RtfWriter.h"

#include "model/Cp1252.h"
#include "text/RtfLists.h"

#include <algorithm>
#include <cstdio>
#include <map>
#include <utility>
#include <vector>

namespace velto::rtf {
namespace {

// Faces and colours in the order of their first use: their positions are the \f and \cf numbers.
struct Tables {
    std::vector<std::string> faces;
    std::vector<Colour> colours; // \cf0 stays the automatic colour, so colour i is written as \cf(i+1)

    void Add(const CharFormat& format) {
        if (std::find(faces.begin(), faces.end(), format.face) == faces.end())
            faces.push_back(format.face);
        if (format.colour && std::find(colours.begin(), colours.end(), *format.colour) == colours.end())
            colours.push_back(*format.colour);
    }

    int FontNumber(const std::string& face) const {
        return static_cast<int>(std::find(faces.begin(), faces.end(), face) - faces.begin());
    }
    int ColourNumber(const std::optional<Colour>& colour) const {
        if (!colour)
            return 0;
        return static_cast<int>(std::find(colours.begin(), colours.end(), *colour) - colours.begin()) + 1;
    }
};

// The lists of a document as the writer numbers them (1, 2, … in order of first appearance), with the
// style of each level taken from its first item.
class Lists {
public:
    explicit Lists(const Document& document) {
        for (const Paragraph& paragraph : document.paragraphs) {
            if (!paragraph.list)
                continue;
            const auto [list, added] =
                m_numbers.try_emplace(paragraph.list->id, static_cast<int>(m_numbers.size()) + 1);
            if (added)
                m_levels.emplace_back(kListLevels);
            std::optional<ListLevelStyle>& level = m_levels[list->second - 1][Level(*paragraph.list)];
            if (!level)
                level = ListLevelStyle{paragraph.list->kind, paragraph.list->start};
        }
    }

    int Number(const ListMembership& list) const { return m_numbers.at(list.id); }
    size_t Count() const { return m_levels.size(); }
    // The style of a level of the list numbered n; levels no item uses are decimal from 1.
    ListLevelStyle Style(int n, int level) const { return m_levels[n - 1][level].value_or(ListLevelStyle()); }

    static size_t Level(const ListMembership& list) {
        return static_cast<size_t>(std::clamp(list.level, 0, kListLevels - 1));
    }

private:
    std::map<int, int> m_numbers;
    std::vector<std::vector<std::optional<ListLevelStyle>>> m_levels;
};

Tables CollectTables(const Document& document) {
    Tables tables;
    for (const Paragraph& paragraph : document.paragraphs) {
        for (const Run& run : paragraph.runs)
            tables.Add(run.format);
        tables.Add(paragraph.mark);
    }
    return tables;
}

class Writer {
public:
    explicit Writer(const Document& document)
        : m_document(document), m_tables(CollectTables(document)), m_lists(document) {}

    std::string Write() {
        m_out = "{\\rtf1\\ansi\\ansicpg1252\\deff0\\deflang1031";
        WriteFontTable();
        WriteColourTable();
        WriteListTables();
        Word("\\viewkind4\\uc1");
        for (size_t i = 0; i < m_document.paragraphs.size(); ++i)
            WriteParagraph(i);
        m_out += "}\r\n";
        return std::move(m_out);
    }

private:
    void WriteFontTable() {
        m_out += "{\\fonttbl";
        for (size_t i = 0; i < m_tables.faces.size(); ++i) {
            Word("{\\f" + std::to_string(i) + "\\fnil\\fcharset0");
            Text(m_tables.faces[i], true);
            m_out += ";}";
            m_delimit = false;
        }
        m_out += "}\r\n";
    }

    void WriteColourTable() {
        m_out += "{\\colortbl ;";
        for (Colour colour : m_tables.colours) {
            m_out += "\\red" + std::to_string(colour & 0xFF) + "\\green" +
                     std::to_string((colour >> 8) & 0xFF) + "\\blue" + std::to_string((colour >> 16) & 0xFF) +
                     ";";
        }
        m_out += "}\r\n";
    }

    // Each list is defined once with all nine levels, and named by an override of the same number, the
    // form that readers of lists expect.
    void WriteListTables() {
        if (m_lists.Count() == 0)
            return;
        m_out += "{\\*\\listtable";
        for (int n = 1; n <= static_cast<int>(m_lists.Count()); ++n) {
            m_out += "{\\list\\listtemplateid" + std::to_string(n);
            for (int level = 0; level < kListLevels; ++level)
                WriteListLevel(m_lists.Style(n, level), level);
            m_out += "{\\listname ;}\\listid" + std::to_string(n) + "}\r\n";
        }
        m_out += "}\r\n{\\*\\listoverridetable";
        for (int n = 1; n <= static_cast<int>(m_lists.Count()); ++n) {
            const std::string number = std::to_string(n);
            m_out += "{\\listoverride\\listid" + number + "\\listoverridecount0\\ls" + number + "}";
        }
        m_out += "}\r\n";
    }

    // The level text is a length byte and the label: a bullet, or the level's number and a '.'.
    void WriteListLevel(const ListLevelStyle& style, int level) {
        const std::string format = std::to_string(NumberFormatOf(style.kind));
        m_out += "{\\listlevel\\levelnfc" + format + "\\levelnfcn" + format + "\\leveljc0\\levelstartat" +
                 std::to_string(style.start);
        if (style.kind == ListKind::Bullet) {
            m_out += "{\\leveltext\\'01\\'95;}{\\levelnumbers;}";
        } else {
            char levelText[64];
            std::snprintf(levelText, sizeof levelText, "{\\leveltext\\'02\\'%02x.;}{\\levelnumbers\\'01;}",
                          level);
            m_out += levelText;
        }
        m_out += "}";
    }

    void WriteParagraph(size_t index) {
        const Paragraph& paragraph = m_document.paragraphs[index];
        if (StartsRow(index))
            WriteRowDefinition(index);
        if (index == 0 || !SameParagraphProperties(paragraph, m_paragraph)) {
            Word("\\pard");
            Word(AlignmentWord(paragraph.alignment));
            WriteLayout(paragraph.layout);
            if (paragraph.cell)
                Word("\\intbl");
            if (paragraph.list)
                WriteListMembership(*paragraph.list);
            m_paragraph.alignment = paragraph.alignment;
            m_paragraph.layout = paragraph.layout;
            m_paragraph.list = paragraph.list;
            m_paragraph.cell = paragraph.cell;
        }
        if (paragraph.list)
            WriteListLabel(*paragraph.list);
        for (const Run& run : paragraph.runs) {
            SwitchTo(run.format);
            if (run.picture)
                WritePicture(*run.picture);
            else
                Text(run.text, false);
        }
        SwitchTo(paragraph.mark);
        if (paragraph.end == ParagraphBreak::None)
            return;
        Word(MarkWord(paragraph));
        if (paragraph.end == ParagraphBreak::Page)
            Word("\\page"); // after the mark it belongs to this paragraph even when that is empty
        m_out += "\r\n";
        m_delimit = false;
    }

    // What \pard resets; the paragraph's place in a table counts only as being in one or not.
    static bool SameParagraphProperties(const Paragraph& a, const Paragraph& b) {
        return a.alignment == b.alignment && a.layout == b.layout && a.list == b.list &&
               a.cell.has_value() == b.cell.has_value();
    }

    static const char* MarkWord(const Paragraph& paragraph) {
        if (!paragraph.cell || !paragraph.cell->endsCell)
            return "\\par";
        return paragraph.cell->endsRow ? "\\cell\\row" : "\\cell";
    }

    bool StartsRow(size_t index) const {
        const auto& paragraphs = m_document.paragraphs;
        if (!paragraphs[index].cell)
            return false;
        if (index == 0)
            return true;
        const std::optional<TableCell>& before = paragraphs[index - 1].cell;
        return !before || (before->endsCell && before->endsRow);
    }

    // \trowd and the right edge of each cell of the row that starts at the paragraph.
    void WriteRowDefinition(size_t index) {
        Word("\\trowd");
        const auto& paragraphs = m_document.paragraphs;
        for (size_t i = index; i < paragraphs.size() && paragraphs[i].cell; ++i) {
            const TableCell& cell = *paragraphs[i].cell;
            if (!cell.endsCell)
                continue;
            Word("\\cellx" + std::to_string(cell.rightEdge));
            if (cell.endsRow)
                break;
        }
    }

    void WriteLayout(const ParagraphLayout& layout) {
        NumberWord("\\li", layout.leftIndent);
        NumberWord("\\ri", layout.rightIndent);
        NumberWord("\\fi", layout.firstLineIndent);
        NumberWord("\\sb", layout.spaceBefore);
        NumberWord("\\sa", layout.spaceAfter);
        if (layout.lineSpacing != 0 || layout.lineMultiple)
            Word("\\sl" + std::to_string(layout.lineSpacing) +
                 (layout.lineMultiple ? "\\slmult1" : "\\slmult0"));
        for (const TabStop& tab : layout.tabs) {
            Word(TabKindWord(tab.kind));
            Word("\\tx" + std::to_string(tab.position));
        }
    }

    // Zero is what a reader assumes when the word is missing.
    void NumberWord(const char* word, int value) {
        if (value != 0)
            Word(word + std::to_string(value));
    }

    static const char* TabKindWord(TabKind kind) {
        switch (kind) {
        case TabKind::Centre:
            return "\\tqc";
        case TabKind::Right:
            return "\\tqr";
        case TabKind::Decimal:
            return "\\tqdec";
        case TabKind::Left:
            break;
        }
        return "";
    }

    // \ls for readers of lists, \pn for older readers, which number the paragraphs themselves.
    void WriteListMembership(const ListMembership& list) {
        Word("\\ls" + std::to_string(m_lists.Number(list)) + "\\ilvl" + std::to_string(Lists::Level(list)));
        m_out += "{\\*\\pn";
        if (list.kind == ListKind::Bullet) {
            m_out += "\\pnlvlblt{\\pntxtb\\'95}}";
        } else {
            m_out += "\\pnlvlbody" + std::string(OldNumberingWord(list.kind)) + "\\pnstart" +
                     std::to_string(list.start) + "{\\pntxta.}}";
        }
        m_delimit = false;
    }

    static const char* OldNumberingWord(ListKind kind) {
        switch (kind) {
        case ListKind::LowerLetter:
            return "\\pnlcltr";
        case ListKind::UpperLetter:
            return "\\pnucltr";
        case ListKind::LowerRoman:
            return "\\pnlcrm";
        case ListKind::UpperRoman:
            return "\\pnucrm";
        case ListKind::Decimal:
        case ListKind::Bullet:
            break;
        }
        return "\\pndec";
    }

    // The label as text, for readers that know neither form; readers of lists skip it.
    void WriteListLabel(const ListMembership& list) {
        m_out += "{\\listtext";
        m_delimit = true;
        Text(ListLabel(list.kind, m_counter.Next(list)), false);
        Word("\\tab");
        m_out += '}';
        m_delimit = false;
    }

    void WritePicture(const Picture& picture) {
        m_out += "{\\pict";
        m_delimit = true;
        Word(PictureKindWord(picture));
        NumberWord("\\picw", picture.width);
        NumberWord("\\pich", picture.height);
        NumberWord("\\picwgoal", picture.goalWidth);
        NumberWord("\\pichgoal", picture.goalHeight);
        if (picture.scaleX != 100)
            Word("\\picscalex" + std::to_string(picture.scaleX));
        if (picture.scaleY != 100)
            Word("\\picscaley" + std::to_string(picture.scaleY));
        WriteHexLines(picture.data);
        m_out += '}';
        m_delimit = false;
    }

    static std::string PictureKindWord(const Picture& picture) {
        switch (picture.kind) {
        case PictureKind::Png:
            return "\\pngblip";
        case PictureKind::Jpeg:
            return "\\jpegblip";
        case PictureKind::WindowsMetafile:
            return "\\wmetafile" + std::to_string(picture.metafileMapping);
        case PictureKind::EnhancedMetafile:
            return "\\emfblip";
        case PictureKind::Unknown:
            break;
        }
        return "";
    }

    // Lines of 128 digits, as the rich-edit control writes them.
    void WriteHexLines(std::string_view data) {
        static constexpr char kDigits[] = "0123456789abcdef";
        static constexpr size_t kBytesPerLine = 64;
        m_out.reserve(m_out.size() + data.size() * 2 + data.size() / kBytesPerLine * 2 + 2);
        for (size_t i = 0; i < data.size(); ++i) {
            if (i % kBytesPerLine == 0)
                m_out += "\r\n";
            const auto byte = static_cast<unsigned char>(data[i]);
            m_out += kDigits[byte >> 4];
            m_out += kDigits[byte & 0xF];
        }
    }

    static const char* AlignmentWord(Alignment alignment) {
        switch (alignment) {
        case Alignment::Centre:
            return "\\qc";
        case Alignment::Right:
            return "\\qr";
        case Alignment::Justified:
            return "\\qj";
        case Alignment::Left:
            break;
        }
        return "";
    }

    // Writes the control words that change the current format into the given one. Face and size are
    // always written for the first text, so that no reader has to guess its defaults.
    void SwitchTo(const CharFormat& format) {
        if (!m_current || m_current->face != format.face)
            Word("\\f" + std::to_string(m_tables.FontNumber(format.face)));
        if (!m_current || m_current->halfPoints != format.halfPoints)
            Word("\\fs" + std::to_string(format.halfPoints));
        const CharFormat before = m_current.value_or(CharFormat());
        Flag(before.bold, format.bold, "\\b", "\\b0");
        Flag(before.italic, format.italic, "\\i", "\\i0");
        Flag(before.underline, format.underline, "\\ul", "\\ulnone");
        Flag(before.strikeOut, format.strikeOut, "\\strike", "\\strike0");
        if (before.colour != format.colour)
            Word("\\cf" + std::to_string(m_tables.ColourNumber(format.colour)));
        m_current = format;
    }

    void Flag(bool before, bool after, const char* on, const char* off) {
        if (before != after)
            Word(after ? on : off);
    }

    void Word(const std::string& word) {
        if (word.empty())
            return;
        m_out += word;
        m_delimit = true; // a letter or digit after a control word would become part of it
    }

    // Escapes UTF-8 text. In a font name a ';' ends the name, so it is written as a hex byte there.
    void Text(std::string_view utf8, bool fontName) {
        size_t pos = 0;
        while (pos < utf8.size()) {
            const auto c = cp1252::DecodeUtf8(utf8, pos);
            Character(c.value_or(0xFFFD), fontName);
        }
    }

    void Character(char32_t c, bool fontName) {
        switch (c) {
        case '\\':
        case '{':
        case '}':
            Symbol(static_cast<char>(c));
            return;
        case kTab:
            Word("\\tab");
            return;
        case kLineBreak:
            Word("\\line");
            return;
        case 0x00A0:
            Symbol('~');
            return;
        case 0x00AD:
            Symbol('-');
            return;
        case 0x2011:
            Symbol('_');
            return;
        default:
            break;
        }
        if (c >= 0x20 && c < 0x7F && !(fontName && c == ';')) {
            if (std::exchange(m_delimit, false))
                m_out += ' ';
            m_out += static_cast<char>(c);
        } else if (const auto byte = cp1252::FromUnicode(c)) {
            Hex(*byte);
        } else if (c > 0xFFFF) {
            Unicode(0xD800 + ((c - 0x10000) >> 10));
            Unicode(0xDC00 + ((c - 0x10000) & 0x3FF));
        } else {
            Unicode(c);
        }
    }

    void Symbol(char c) {
        m_out += '\\';
        m_out += c;
        m_delimit = false;
    }

    void Hex(unsigned char byte) {
        char buffer[8];
        std::snprintf(buffer, sizeof buffer, "\\'%02x", byte);
        m_out += buffer;
        m_delimit = false;
    }

    // \uN takes a signed 16-bit N; the '?' is the one fallback character \uc1 announces.
    void Unicode(char32_t c) {
        const int value = c > 0x7FFF ? static_cast<int>(c) - 0x10000 : static_cast<int>(c);
        m_out += "\\u" + std::to_string(value) + "?";
        m_delimit = false;
    }

    const Document& m_document;
    Tables m_tables;
    Lists m_lists;
    ListCounter m_counter;
    std::string m_out;
    bool m_delimit = false;
    std::optional<CharFormat> m_current;
    Paragraph m_paragraph; // the paragraph properties last written after \pard
};

} // namespace

std::string WriteRtf(const Document& document) {
    return Writer(document).Write();
}

} // namespace velto::rtf
