#include "text/RtfReader.h"

#include "model/Cp1252.h"
#include "text/CodePage.h"
#include "text/RtfKeywords.h"
#include "text/RtfLexer.h"
#include "text/RtfLists.h"

#include <algorithm>
#include <map>
#include <optional>
#include <utility>
#include <vector>

namespace velto::rtf {
namespace {

// Where the text of a group goes.
enum class Destination : uint8_t {
    Text,        // the note's text
    FontTable,   // font names
    ColourTable, // ';' ends a colour
    Dropped,     // the 8-bit half of a \upr pair: its Unicode half follows in \ud
};

// The character format while reading: font and colour stay table indices until a run needs them.
struct CharState {
    int font = -1;   // -1: the default font (\deff)
    int colour = -1; // -1: automatic
    int halfPoints = kDefaultHalfPoints;
    bool bold = false;
    bool italic = false;
    bool underline = false;
    bool strikeOut = false;

    bool operator==(const CharState&) const = default;
};

// The paragraph properties while reading; \pard resets them.
struct ParagraphState {
    Alignment alignment = Alignment::Left;
    ParagraphLayout layout;
    TabKind nextTab = TabKind::Left; // the kind \tx gives the stop it sets
    int listNumber = 0;              // \ls: 0 for none
    int listLevel = 0;               // \ilvl
    std::optional<OldNumbering> oldNumbering;
    bool inTable = false; // \intbl
};

struct GroupState {
    CharState chars;
    ParagraphState paragraph;
    Destination destination = Destination::Text;
    bool nestedRow = false; // in the properties of a nested table row, which do not define top-level cells
    int unicodeSkip = 1;    // \uc: characters of 8-bit fallback after each \u
};

struct FontEntry {
    std::string face;
    int codePage = 0; // 0: the document's code page
};

// Groups nested deeper than this share their parent's state, so that hostile nesting costs no memory.
constexpr size_t kMaxDepth = 256;
// No real writer puts more fallback characters after \u; a larger \uc is cut to this.
constexpr int kMaxUnicodeSkip = 64;
constexpr char32_t kReplacement = 0xFFFD;

bool IsHighSurrogate(char32_t c) {
    return c >= 0xD800 && c <= 0xDBFF;
}
bool IsLowSurrogate(char32_t c) {
    return c >= 0xDC00 && c <= 0xDFFF;
}

std::string_view Trim(std::string_view s) {
    while (!s.empty() && s.front() == ' ')
        s.remove_prefix(1);
    while (!s.empty() && s.back() == ' ')
        s.remove_suffix(1);
    return s;
}

bool FlagOn(const Token& token) {
    return !token.hasParam || token.param != 0;
}

// Collects a picture's size words and its data, given as hexadecimal digits or as \bin bytes.
class PictureReader {
public:
    explicit PictureReader(Picture& picture) : m_picture(picture) {}

    void Word(const Token& token) {
        static constexpr std::pair<std::string_view, PictureKind> kKinds[] = {
            {"pngblip", PictureKind::Png},
            {"jpegblip", PictureKind::Jpeg},
            {"wmetafile", PictureKind::WindowsMetafile},
            {"emfblip", PictureKind::EnhancedMetafile},
        };
        for (const auto& [word, kind] : kKinds) {
            if (token.text == word) {
                m_picture.kind = kind;
                if (kind == PictureKind::WindowsMetafile)
                    m_picture.metafileMapping = token.param;
                return;
            }
        }
        if (int* size = SizeField(token.text))
            *size = token.param;
    }

    // Digits in pairs make bytes; blanks between them and a lone last digit are no data.
    void HexDigits(std::string_view digits) {
        std::string& data = m_picture.data;
        for (char c : digits) {
            const int value = HexDigitValue(static_cast<unsigned char>(c));
            if (value < 0)
                continue;
            if (m_high < 0) {
                m_high = value;
            } else {
                data += static_cast<char>(m_high << 4 | value);
                m_high = -1;
            }
        }
    }

    void Bytes(std::string_view bytes) { m_picture.data += bytes; }

private:
    int* SizeField(std::string_view word) {
        if (word == "picw")
            return &m_picture.width;
        if (word == "pich")
            return &m_picture.height;
        if (word == "picwgoal")
            return &m_picture.goalWidth;
        if (word == "pichgoal")
            return &m_picture.goalHeight;
        if (word == "picscalex")
            return &m_picture.scaleX;
        if (word == "picscaley")
            return &m_picture.scaleY;
        return nullptr;
    }

    Picture& m_picture;
    int m_high = -1;
};

// Turns RTF into either a Document (kModel) or its plain text: one pass, no recursion, with all state
// in a bounded stack of groups.
template <bool kModel> class Parser {
public:
    explicit Parser(std::string_view rtf) : m_lexer(rtf) {}

    void Run() {
        for (Token token = m_lexer.Next(); token.kind != Token::Kind::End; token = m_lexer.Next()) {
            if (!Handle(token))
                break;
        }
    }

    Document TakeDocument() {
        FlushRun();
        m_builder.SetLayout(m_state.paragraph.layout);
        m_builder.SetList(ListOf(m_state.paragraph));
        m_builder.SetCell(CellOf(m_state.paragraph, false));
        return m_builder.Finish(m_state.paragraph.alignment, Resolve(m_state.chars));
    }

    std::string TakeText() {
        if (!m_openParagraph && !m_text.empty() && m_text.back() == '\n')
            m_text.pop_back(); // paragraphs are separated, not terminated
        return std::move(m_text);
    }

private:
    // False once the outermost group has closed.
    bool Handle(const Token& token) {
        using Kind = Token::Kind;
        if (token.kind != Kind::ControlWord)
            m_optionalDestination = false;
        switch (token.kind) {
        case Kind::GroupOpen:
            OpenGroup();
            return true;
        case Kind::GroupClose:
            return CloseGroup();
        case Kind::ControlWord:
            return ControlWord(token);
        case Kind::ControlSymbol:
            ControlSymbol(token.byte);
            return true;
        case Kind::HexByte:
            HexByte(token.byte);
            return true;
        case Kind::Text:
            Text(token.text);
            return true;
        case Kind::End:
            break;
        }
        return false;
    }

    // ---- groups

    void OpenGroup() {
        EndFallback();
        if (m_stack.size() < kMaxDepth)
            m_stack.push_back(m_state);
        else
            ++m_overflowDepth;
    }

    bool CloseGroup() {
        EndFallback();
        if (m_overflowDepth > 0) {
            --m_overflowDepth;
            return true;
        }
        // A font entry ends with its group; a skipped group inside it (\*\panose) does not end it.
        if (m_state.destination == Destination::FontTable && m_stack.size() <= m_fontDepth)
            CommitFontEntry();
        // The outermost group keeps its state: the format at its end is that of the last paragraph mark.
        if (m_stack.size() <= 1)
            return false;
        m_state = m_stack.back();
        m_stack.pop_back();
        return true;
    }

    bool SkipGroup() {
        m_lexer.SkipGroup();
        return CloseGroup();
    }

    void EndFallback() {
        m_skipChars = 0;
        m_leadByte = -1;
        m_highSurrogate = 0;
    }

    // Consumes one character of the 8-bit fallback that follows \u; true when it was one.
    bool SkipFallbackChar() {
        if (m_skipChars == 0)
            return false;
        --m_skipChars;
        return true;
    }

    // ---- control words and symbols

    bool ControlWord(const Token& token) {
        const Keyword keyword = LookUpKeyword(token.text);
        if (m_optionalDestination) {
            m_optionalDestination = false;
            // "\*" marks a destination a reader may skip. Kept are the Unicode text of a pair, the
            // properties of nested table rows, into which some writers put the cells' text, and the
            // picture that \nonshppict repeats for older readers.
            if (!IsKeptOptionalDestination(keyword))
                return SkipGroup();
        }
        if (keyword == Keyword::Binary) {
            m_lexer.SkipBytes(token.param); // never text; with its data one character of \u fallback
            SkipFallbackChar();
            return true;
        }
        if (SkipFallbackChar())
            return true;
        if (m_state.destination == Destination::FontTable && IsParagraphWord(keyword))
            LeaveUnclosedFontTable();
        if (keyword == Keyword::Skipped || keyword == Keyword::FieldInstruction)
            return SkipGroup();
        if (keyword == Keyword::Picture)
            return m_state.destination == Destination::Text ? ReadPicture() : SkipGroup();
        if (keyword == Keyword::ListTable || keyword == Keyword::ListOverrideTable ||
            keyword == Keyword::OldNumbering)
            return ReadListWords(keyword);
        if (!TableWord(keyword, token) && !FormatWord(keyword, token) && !ParagraphWord(keyword, token) &&
            !LayoutWord(keyword, token)) {
            if (const char32_t c = NamedCharacter(keyword))
                Emit(c);
        }
        return true;
    }

    static bool IsKeptOptionalDestination(Keyword keyword) {
        switch (keyword) {
        case Keyword::UnicodeAlternative:
        case Keyword::NestedTableProperties:
        case Keyword::ShapePicture:
        case Keyword::ListTable:
        case Keyword::ListOverrideTable:
        case Keyword::OldNumbering:
            return true;
        default:
            return false;
        }
    }

    // Code pages, the font and colour tables, and the destinations that decide where text goes.
    bool TableWord(Keyword keyword, const Token& token) {
        switch (keyword) {
        case Keyword::Ansi:
            SetDocumentCodePage(1252);
            return true;
        case Keyword::Mac:
            SetDocumentCodePage(10000);
            return true;
        case Keyword::Pc:
            SetDocumentCodePage(437);
            return true;
        case Keyword::Pca:
            SetDocumentCodePage(850);
            return true;
        case Keyword::AnsiCodePage:
            if (token.param > 0)
                SetDocumentCodePage(token.param);
            return true;
        case Keyword::DefaultFont:
            m_defaultFont = token.param;
            TablesChanged();
            return true;
        case Keyword::FontTable:
            m_state.destination = Destination::FontTable;
            m_fontOpen = false;
            return true;
        case Keyword::ColourTable:
            m_state.destination = Destination::ColourTable;
            m_colours.clear();
            m_colourPart = {};
            TablesChanged();
            return true;
        case Keyword::Charset:
            if (m_fontOpen)
                m_fontEntry.codePage = CodePage::NumberForCharset(token.param);
            return true;
        case Keyword::FontCodePage:
            if (m_fontOpen && token.param > 0)
                m_fontEntry.codePage = token.param;
            return true;
        case Keyword::Red:
        case Keyword::Green:
        case Keyword::Blue:
            SetColourPart(keyword, token.param);
            return true;
        case Keyword::FieldResult:
        case Keyword::UnicodeAlternative:
            m_state.destination = Destination::Text;
            return true;
        case Keyword::UnicodePair:
            m_state.destination = Destination::Dropped;
            return true;
        case Keyword::NestedTableProperties:
            m_state.nestedRow = true;
            return true;
        default:
            return false;
        }
    }

    bool FormatWord(Keyword keyword, const Token& token) {
        CharState& chars = m_state.chars;
        switch (keyword) {
        case Keyword::Font:
            if (m_state.destination == Destination::FontTable)
                BeginFontEntry(token.param);
            else
                chars.font = token.param;
            return true;
        case Keyword::Plain:
            chars = CharState();
            return true;
        case Keyword::FontSize:
            chars.halfPoints = token.hasParam ? token.param : kDefaultHalfPoints;
            return true;
        case Keyword::Bold:
            chars.bold = FlagOn(token);
            return true;
        case Keyword::Italic:
            chars.italic = FlagOn(token);
            return true;
        case Keyword::Underline:
            chars.underline = FlagOn(token);
            return true;
        case Keyword::UnderlineNone:
            chars.underline = false;
            return true;
        case Keyword::StrikeOut:
            chars.strikeOut = FlagOn(token);
            return true;
        case Keyword::Colour:
            chars.colour = token.param;
            return true;
        case Keyword::UnicodeSkip:
            m_state.unicodeSkip = std::clamp(token.param, 0, kMaxUnicodeSkip);
            return true;
        case Keyword::Unicode:
            if (token.hasParam)
                UnicodeChar(token.param);
            return true;
        default:
            return false;
        }
    }

    // Alignment, paragraph ends and table cells.
    bool ParagraphWord(Keyword keyword, const Token& token) {
        switch (keyword) {
        case Keyword::ParagraphDefault:
            m_state.paragraph = ParagraphState();
            return true;
        case Keyword::AlignLeft:
            m_state.paragraph.alignment = Alignment::Left;
            return true;
        case Keyword::AlignCentre:
            m_state.paragraph.alignment = Alignment::Centre;
            return true;
        case Keyword::AlignRight:
            m_state.paragraph.alignment = Alignment::Right;
            return true;
        case Keyword::AlignJustified:
            m_state.paragraph.alignment = Alignment::Justified;
            return true;
        case Keyword::Par:
        case Keyword::NestedCell:
        case Keyword::Section:
            EndParagraph(ParagraphBreak::Paragraph);
            return true;
        case Keyword::Page:
            PageBreak();
            return true;
        case Keyword::Cell:
            EndCell();
            return true;
        case Keyword::Row:
            EndRow();
            return true;
        case Keyword::RowDefaults:
        case Keyword::CellBoundary:
        case Keyword::CellMerged:
            DefineCell(keyword, token.param);
            return true;
        case Keyword::InTable:
            m_state.paragraph.inTable = true;
            return true;
        default:
            return false;
        }
    }

    // Indents, spacing and tab stops.
    bool LayoutWord(Keyword keyword, const Token& token) {
        ParagraphLayout& layout = m_state.paragraph.layout;
        switch (keyword) {
        case Keyword::LeftIndent:
            layout.leftIndent = token.param;
            return true;
        case Keyword::RightIndent:
            layout.rightIndent = token.param;
            return true;
        case Keyword::FirstLineIndent:
            layout.firstLineIndent = token.param;
            return true;
        case Keyword::SpaceBefore:
            layout.spaceBefore = token.param;
            return true;
        case Keyword::SpaceAfter:
            layout.spaceAfter = token.param;
            return true;
        case Keyword::LineSpacing:
            layout.lineSpacing = token.param;
            return true;
        case Keyword::LineMultiple:
            layout.lineMultiple = FlagOn(token);
            return true;
        case Keyword::TabCentre:
        case Keyword::TabRight:
        case Keyword::TabDecimal:
            m_state.paragraph.nextTab = keyword == Keyword::TabCentre  ? TabKind::Centre
                                        : keyword == Keyword::TabRight ? TabKind::Right
                                                                       : TabKind::Decimal;
            return true;
        case Keyword::TabPosition:
            AddTabStop(token.param);
            return true;
        case Keyword::ListNumber:
            m_state.paragraph.listNumber = token.param;
            return true;
        case Keyword::ListLevel:
            m_state.paragraph.listLevel = std::clamp(token.param, 0, kListLevels - 1);
            return true;
        default:
            return false;
        }
    }

    // A paragraph holds few tab stops; more than this come only from hostile input.
    static constexpr size_t kMaxTabStops = 64;

    void AddTabStop(int position) {
        ParagraphState& paragraph = m_state.paragraph;
        if (paragraph.layout.tabs.size() < kMaxTabStops)
            paragraph.layout.tabs.push_back(TabStop{position, paragraph.nextTab});
        paragraph.nextTab = TabKind::Left;
    }

    static char32_t NamedCharacter(Keyword keyword) {
        switch (keyword) {
        case Keyword::Line:
            return kLineBreak;
        case Keyword::Tab:
            return kTab;
        case Keyword::LeftQuote:
            return 0x2018;
        case Keyword::RightQuote:
            return 0x2019;
        case Keyword::LeftDoubleQuote:
            return 0x201C;
        case Keyword::RightDoubleQuote:
            return 0x201D;
        case Keyword::Bullet:
            return 0x2022;
        case Keyword::EnDash:
            return 0x2013;
        case Keyword::EmDash:
            return 0x2014;
        case Keyword::EmSpace:
            return 0x2003;
        case Keyword::EnSpace:
            return 0x2002;
        case Keyword::QuarterEmSpace:
            return 0x2005;
        case Keyword::ZeroWidthJoiner:
            return 0x200D;
        case Keyword::ZeroWidthNonJoiner:
            return 0x200C;
        case Keyword::LeftToRightMark:
            return 0x200E;
        case Keyword::RightToLeftMark:
            return 0x200F;
        default:
            return 0;
        }
    }

    void ControlSymbol(unsigned char symbol) {
        if (SkipFallbackChar())
            return;
        switch (symbol) {
        case '*':
            m_optionalDestination = true;
            break;
        case '~':
            Emit(0x00A0);
            break;
        case '-':
            Emit(0x00AD);
            break;
        case '_':
            Emit(0x2011);
            break;
        case '{':
        case '}':
        case '\\':
            TextByte(symbol);
            break;
        case '\t':
            Emit(kTab);
            break;
        case '\r':
        case '\n':
            EndParagraph(ParagraphBreak::Paragraph); // a backslash before a line end is a \par
            break;
        default:
            break; // \:, \| and symbols RTF does not define
        }
    }

    // ---- Unicode and 8-bit text

    void UnicodeChar(int32_t value) {
        char32_t c = static_cast<char32_t>(value < 0 ? value + 0x10000 : value);
        if (c > 0x10FFFF)
            c = kReplacement;
        const char32_t high = std::exchange(m_highSurrogate, 0);
        if (IsHighSurrogate(c)) {
            m_highSurrogate = c;
        } else if (IsLowSurrogate(c)) {
            Emit(high ? 0x10000 + ((high - 0xD800) << 10) + (c - 0xDC00) : kReplacement);
        } else {
            Emit(c);
        }
        m_skipChars = m_state.unicodeSkip;
    }

    void HexByte(unsigned char byte) {
        if (SkipFallbackChar())
            return;
        TextByte(byte);
    }

    void Text(std::string_view bytes) {
        const size_t skipped = std::min<size_t>(m_skipChars, bytes.size());
        m_skipChars -= static_cast<int>(skipped);
        bytes.remove_prefix(skipped);
        if (bytes.empty())
            return;
        switch (m_state.destination) {
        case Destination::Text:
            BodyText(bytes);
            break;
        case Destination::FontTable:
            for (char c : bytes)
                FontTableByte(static_cast<unsigned char>(c), false);
            break;
        case Destination::ColourTable:
            for (char c : bytes)
                if (c == ';')
                    CommitColour();
            break;
        case Destination::Dropped:
            break;
        }
    }

    void TextByte(unsigned char byte) {
        if (m_state.destination == Destination::Text)
            BodyText(std::string_view(reinterpret_cast<const char*>(&byte), 1));
        else if (m_state.destination == Destination::FontTable)
            FontTableByte(byte, true);
    }

    void BodyText(std::string_view bytes) {
        const CodePage& page = CurrentCodePage();
        PrepareText();
        const size_t before = m_text.size();
        if (page.IsDoubleByte()) {
            for (char c : bytes)
                DoubleByteText(page, static_cast<unsigned char>(c));
        } else {
            const bool asciiIsAscii = !page.IsSymbol();
            for (char c : bytes) {
                const auto byte = static_cast<unsigned char>(c);
                if (byte < 0x80 && asciiIsAscii)
                    m_text += c;
                else
                    cp1252::AppendUtf8(m_text, page.ToUnicode(byte));
            }
        }
        // A lone lead byte is no text yet: the paragraph is not open because of it.
        if (m_text.size() != before)
            m_openParagraph = true;
    }

    void DoubleByteText(const CodePage& page, unsigned char byte) {
        if (m_leadByte >= 0) {
            cp1252::AppendUtf8(m_text, page.PairToUnicode(static_cast<unsigned char>(m_leadByte), byte));
            m_leadByte = -1;
        } else if (page.IsLeadByte(byte)) {
            m_leadByte = byte;
        } else {
            cp1252::AppendUtf8(m_text, page.ToUnicode(byte));
        }
    }

    void Emit(char32_t c) {
        if (m_state.destination == Destination::FontTable && m_fontOpen) {
            cp1252::AppendUtf8(m_fontEntry.face, c);
            return;
        }
        if (m_state.destination != Destination::Text)
            return;
        PrepareText();
        if (!kModel && c == kLineBreak)
            c = '\n';
        cp1252::AppendUtf8(m_text, c);
        m_openParagraph = true;
    }

    // Makes m_text ready to take text in the current format.
    void PrepareText() {
        if constexpr (kModel) {
            if (m_runChars != m_state.chars) {
                FlushRun();
                m_runChars = m_state.chars;
            }
        }
    }

    void FlushRun() {
        if constexpr (kModel) {
            if (!m_text.empty())
                m_builder.AppendText(m_text, Resolve(m_runChars));
            m_text.clear();
        }
    }

    // endsCell: the paragraph mark is \cell.
    void EndParagraph(ParagraphBreak end, bool endsCell = false) {
        if (m_state.destination != Destination::Text)
            return;
        m_leadByte = -1;
        if constexpr (kModel) {
            FlushRun();
            m_builder.SetLayout(m_state.paragraph.layout);
            m_builder.SetList(ListOf(m_state.paragraph));
            m_builder.SetCell(CellOf(m_state.paragraph, endsCell));
            m_builder.EndParagraph(m_state.paragraph.alignment, Resolve(m_state.chars), end);
        } else {
            m_text += '\n';
        }
        m_openParagraph = false;
    }

    // A page break ends the paragraph it stands in; at the start of a paragraph (where writers put
    // it) it belongs to the end of the paragraph before.
    void PageBreak() {
        if (m_state.destination != Destination::Text)
            return;
        if (m_openParagraph)
            EndParagraph(ParagraphBreak::Page);
        else if constexpr (kModel)
            m_builder.MarkPageBreak();
    }

    // ---- pictures: the plain text passes over their data at the lexer's speed; the model keeps
    // their bytes and size words.

    bool ReadPicture() {
        m_openParagraph = true;
        if constexpr (!kModel) {
            return SkipGroup();
        } else {
            Picture picture;
            PictureReader reader(picture);
            for (Token token = m_lexer.Next(); token.kind != Token::Kind::End; token = m_lexer.Next()) {
                if (token.kind == Token::Kind::GroupClose)
                    break;
                if (token.kind == Token::Kind::GroupOpen)
                    m_lexer.SkipGroup(); // \*\picprop, \*\blipuid: nothing a note needs
                else if (token.kind == Token::Kind::Text)
                    reader.HexDigits(token.text);
                else if (token.kind == Token::Kind::ControlWord && token.text == "bin")
                    reader.Bytes(m_lexer.TakeBytes(token.param));
                else if (token.kind == Token::Kind::ControlWord)
                    reader.Word(token);
            }
            const bool more = CloseGroup();
            FlushRun();
            m_builder.AppendPicture(std::move(picture), Resolve(m_state.chars));
            return more;
        }
    }

    // ---- lists: the plain text has no use for them and passes over their groups.

    bool ReadListWords(Keyword keyword) {
        if constexpr (!kModel) {
            return SkipGroup();
        } else {
            std::optional<OldNumbering> numbering;
            if (keyword == Keyword::ListTable)
                m_listTables.ReadListTable(m_lexer);
            else if (keyword == Keyword::ListOverrideTable)
                m_listTables.ReadOverrideTable(m_lexer);
            else
                numbering = ReadOldNumbering(m_lexer);
            const bool more = CloseGroup(); // the lexer has read the closing brace
            // \pn stands in a group of its own but numbers the paragraph around it.
            if (keyword == Keyword::OldNumbering)
                m_state.paragraph.oldNumbering = numbering;
            return more;
        }
    }

    // The list the paragraph belongs to: \ls when a list override defines it, else \pn. Lists are
    // numbered in the order they first appear; \pn lists are told apart by their style.
    std::optional<ListMembership> ListOf(const ParagraphState& paragraph) {
        ListLevelStyle style;
        int level = 0;
        std::tuple<bool, int, ListKind, int> key;
        const auto found = paragraph.listNumber != 0
                               ? m_listTables.Find(paragraph.listNumber, paragraph.listLevel)
                               : std::nullopt;
        if (found) {
            style = *found;
            level = paragraph.listLevel;
            key = {false, paragraph.listNumber, ListKind::Bullet, 0};
        } else if (paragraph.oldNumbering) {
            style = paragraph.oldNumbering->style;
            level = paragraph.oldNumbering->level;
            key = {true, 0, style.kind, style.start};
        } else {
            return std::nullopt;
        }
        const int id = m_listIds.try_emplace(key, static_cast<int>(m_listIds.size()) + 1).first->second;
        return ListMembership{id, level, style.kind, style.start};
    }

    // ---- tables: each cell is a paragraph, except that a cell merged into the one before it
    // (\clmrg) adds no empty paragraph of its own. The right edge of a cell is known when it ends.

    void DefineCell(Keyword keyword, int param) {
        if (m_state.nestedRow)
            return;
        if (keyword == Keyword::RowDefaults) {
            m_row.cells.clear();
            m_row.nextMerged = false;
            m_row.cell = 0;
        } else if (keyword == Keyword::CellMerged) {
            m_row.nextMerged = true;
        } else {
            m_row.cells.push_back({param, m_row.nextMerged});
            m_row.nextMerged = false;
        }
    }

    void EndCell() {
        const size_t index = m_row.cell++;
        const CellDefinition cell = index < m_row.cells.size() ? m_row.cells[index] : CellDefinition();
        if (cell.merged && !m_openParagraph)
            return;
        EndParagraph(ParagraphBreak::Paragraph, true);
        if constexpr (kModel) {
            if (m_state.destination == Destination::Text)
                m_builder.CloseCell(cell.rightEdge);
        }
    }

    void EndRow() {
        m_row.cell = 0;
        if constexpr (kModel) {
            if (m_state.destination == Destination::Text)
                m_builder.MarkRowEnd();
        }
    }

    static std::optional<TableCell> CellOf(const ParagraphState& paragraph, bool endsCell) {
        if (!paragraph.inTable && !endsCell)
            return std::nullopt;
        return TableCell{0, endsCell, false};
    }

    // ---- code pages

    void SetDocumentCodePage(int number) {
        m_documentCodePage = number;
        TablesChanged();
    }

    const CodePage& CodePageOf(int codePage) const {
        if (codePage == 42)
            return CodePage::Symbol();
        return CodePage::ForNumber(codePage == 0 ? m_documentCodePage : codePage);
    }

    const CodePage& CurrentCodePage() {
        if (!m_pageCache || m_pageCacheFont != m_state.chars.font) {
            const FontEntry* font = FindFont(m_state.chars.font);
            m_pageCache = &CodePageOf(font ? font->codePage : 0);
            m_pageCacheFont = m_state.chars.font;
        }
        return *m_pageCache;
    }

    void TablesChanged() {
        m_pageCache = nullptr;
        m_resolvedValid = false;
    }

    // ---- font table

    const FontEntry* FindFont(int number) const {
        auto found = m_fonts.find(number < 0 ? m_defaultFont : number);
        if (found == m_fonts.end())
            found = m_fonts.find(m_defaultFont);
        return found == m_fonts.end() ? nullptr : &found->second;
    }

    static bool IsParagraphWord(Keyword keyword) {
        return keyword == Keyword::ParagraphDefault || keyword == Keyword::Par;
    }

    // Paragraph words never stand in a font table: the writer forgot to close it, and what follows is
    // the note's text.
    void LeaveUnclosedFontTable() {
        CommitFontEntry();
        m_state.destination = Destination::Text;
    }

    void BeginFontEntry(int number) {
        CommitFontEntry();
        m_fontEntry = FontEntry();
        m_fontNumber = number;
        m_fontDepth = m_stack.size();
        m_fontOpen = true;
    }

    // A literal ';' ends a font name; an escaped one is part of it.
    void FontTableByte(unsigned char byte, bool escaped) {
        if (byte == ';' && !escaped) {
            CommitFontEntry();
        } else if (m_fontOpen) {
            cp1252::AppendUtf8(m_fontEntry.face, CodePageOf(m_fontEntry.codePage).ToUnicode(byte));
        }
    }

    void CommitFontEntry() {
        if (!m_fontOpen)
            return;
        m_fontEntry.face = std::string(Trim(m_fontEntry.face));
        m_fonts.insert_or_assign(m_fontNumber, std::move(m_fontEntry));
        m_fontOpen = false;
        TablesChanged();
    }

    // ---- colour table

    void SetColourPart(Keyword part, int value) {
        if (m_state.destination != Destination::ColourTable)
            return;
        const int component = std::clamp(value, 0, 255);
        (part == Keyword::Red     ? m_colourPart.red
         : part == Keyword::Green ? m_colourPart.green
                                  : m_colourPart.blue) = component;
        m_colourPart.given = true;
    }

    void CommitColour() {
        m_colours.push_back(m_colourPart.given ? std::optional(MakeColour(
                                                     m_colourPart.red, m_colourPart.green, m_colourPart.blue))
                                               : std::nullopt);
        m_colourPart = {};
        TablesChanged();
    }

    // ---- formats

    const CharFormat& Resolve(const CharState& chars) {
        if (m_resolvedValid && m_resolvedChars == chars)
            return m_resolved;
        const FontEntry* font = FindFont(chars.font);
        m_resolved.face = font ? font->face : std::string();
        m_resolved.halfPoints = chars.halfPoints;
        m_resolved.bold = chars.bold;
        m_resolved.italic = chars.italic;
        m_resolved.underline = chars.underline;
        m_resolved.strikeOut = chars.strikeOut;
        m_resolved.colour = chars.colour >= 0 && static_cast<size_t>(chars.colour) < m_colours.size()
                                ? m_colours[chars.colour]
                                : std::nullopt;
        m_resolvedChars = chars;
        m_resolvedValid = true;
        return m_resolved;
    }

    Lexer m_lexer;
    GroupState m_state;
    std::vector<GroupState> m_stack;
    size_t m_overflowDepth = 0;
    bool m_optionalDestination = false;

    int m_skipChars = 0;
    char32_t m_highSurrogate = 0;
    int m_leadByte = -1;

    int m_documentCodePage = 1252;
    int m_defaultFont = 0;
    std::map<int, FontEntry> m_fonts;
    FontEntry m_fontEntry;
    int m_fontNumber = 0;
    size_t m_fontDepth = 0;
    bool m_fontOpen = false;
    std::vector<std::optional<Colour>> m_colours;
    struct {
        int red = 0, green = 0, blue = 0;
        bool given = false;
    } m_colourPart;

    struct CellDefinition {
        int rightEdge = 0;
        bool merged = false; // into the cell before it
    };
    struct {
        std::vector<CellDefinition> cells; // of the current row definition
        bool nextMerged = false;
        size_t cell = 0;
    } m_row;

    ListTables m_listTables;
    std::map<std::tuple<bool, int, ListKind, int>, int> m_listIds;

    const CodePage* m_pageCache = nullptr;
    int m_pageCacheFont = 0;
    CharState m_resolvedChars;
    CharFormat m_resolved;
    bool m_resolvedValid = false;

    // Plain text: all of it. Model: the text of the run being read, in m_runChars.
    std::string m_text;
    CharState m_runChars;
    bool m_openParagraph = false;
    DocumentBuilder m_builder;
};

// Plain text that is not RTF: one paragraph per line.
template <typename OnLine> void ForEachLine(std::string_view text, OnLine onLine) {
    size_t start = 0;
    while (start < text.size()) {
        const size_t end = text.find_first_of("\r\n", start);
        if (end == std::string_view::npos) {
            onLine(text.substr(start), false);
            return;
        }
        onLine(text.substr(start, end - start), true);
        start = end + (text.compare(end, 2, "\r\n") == 0 ? 2 : 1);
    }
}

Document ReadPlainText(std::string_view text) {
    DocumentBuilder builder;
    const CharFormat format;
    ForEachLine(text, [&](std::string_view line, bool ended) {
        builder.AppendText(cp1252::ToUtf8(line), format);
        if (ended)
            builder.EndParagraph(Alignment::Left, format, ParagraphBreak::Paragraph);
    });
    return builder.Finish(Alignment::Left, format);
}

} // namespace

bool IsRtf(std::string_view text) {
    return text.starts_with("{\\rtf");
}

Document ReadRtf(std::string_view rtf) {
    if (!IsRtf(rtf))
        return ReadPlainText(rtf);
    Parser<true> parser(rtf);
    parser.Run();
    return parser.TakeDocument();
}

std::string PlainText(std::string_view rtf) {
    if (!IsRtf(rtf)) {
        std::string text;
        ForEachLine(rtf, [&](std::string_view line, bool ended) {
            text += cp1252::ToUtf8(line);
            if (ended)
                text += '\n';
        });
        if (!text.empty() && text.back() == '\n')
            text.pop_back();
        return text;
    }
    Parser<false> parser(rtf);
    parser.Run();
    return parser.TakeText();
}

} // namespace velto::rtf
