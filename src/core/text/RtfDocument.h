#pragma once
// The formatted text of a note as the RTF reader produces it and the writer consumes it: paragraphs
// holding runs of text, each run with one character format. Text is UTF-8, so a note keeps every
// character it was given, whatever Windows-1252 can hold.
//
// Inside run text, U+0009 is a tab and U+2028 a line break within the paragraph (the same characters a
// QTextDocument uses); paragraphs are separate objects.
#include <compare>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace velto::rtf {

// The size every text has when its RTF names none: 12 pt.
inline constexpr int kDefaultHalfPoints = 24;
// Characters the model uses for a line break inside a paragraph and for a tab.
inline constexpr char32_t kLineBreak = 0x2028;
inline constexpr char32_t kTab = 0x09;

// A colour as the rest of the program keeps it: red in the low byte, then green, then blue.
using Colour = uint32_t;
constexpr Colour MakeColour(int red, int green, int blue) {
    return Colour(red & 0xFF) | Colour(green & 0xFF) << 8 | Colour(blue & 0xFF) << 16;
}

struct CharFormat {
    std::string face;                    // font face name, UTF-8; empty when the RTF named none
    int halfPoints = kDefaultHalfPoints; // may be zero or negative: the size buttons have no bounds
    bool bold = false;
    bool italic = false;
    bool underline = false;
    bool strikeOut = false;
    std::optional<Colour> colour; // nothing: the automatic (window text) colour

    bool operator==(const CharFormat&) const = default;
};

// The picture kinds RTF notes hold. Unknown is a \pict whose kind this reader does not know: its bytes
// are kept, but nothing can show them.
enum class PictureKind { Png, Jpeg, WindowsMetafile, EnhancedMetafile, Unknown };

// A picture as the RTF gives it: its bytes untouched and the size words that go with them.
struct Picture {
    PictureKind kind = PictureKind::Unknown;
    int metafileMapping = 0; // the N of \wmetafileN
    int width = 0;           // \picw, \pich: in pixels or in the metafile's units
    int height = 0;
    int goalWidth = 0; // \picwgoal, \pichgoal: the wanted size in twips; 0 when not given
    int goalHeight = 0;
    int scaleX = 100; // \picscalex, \picscaley: percent
    int scaleY = 100;
    std::string data; // the picture file's bytes

    bool operator==(const Picture&) const = default;
};

// A picture held by a run. Its bytes can be megabytes and runs are copied and moved with their
// paragraphs, so copies share one unchangeable picture and a run without one stays small; two
// references are equal when their pictures are.
class PictureRef {
public:
    PictureRef() = default;
    PictureRef(Picture picture) : m_picture(std::make_shared<const Picture>(std::move(picture))) {}

    explicit operator bool() const { return m_picture != nullptr; }
    const Picture& operator*() const { return *m_picture; }
    const Picture* operator->() const { return m_picture.get(); }
    bool operator==(const PictureRef& other) const {
        return m_picture == other.m_picture ||
               (m_picture && other.m_picture && *m_picture == *other.m_picture);
    }

private:
    std::shared_ptr<const Picture> m_picture;
};

struct Run {
    std::string text; // UTF-8, never empty in a document built by DocumentBuilder unless a picture
    CharFormat format;
    // A picture at this place of the paragraph; its run has no text and is never merged with another.
    PictureRef picture;

    bool operator==(const Run&) const = default;
};

enum class Alignment { Left, Centre, Right, Justified };

// Where a tab stop aligns the text after the tab.
enum class TabKind { Left, Centre, Right, Decimal };

struct TabStop {
    int position = 0; // twips from the left indent's origin
    TabKind kind = TabKind::Left;

    bool operator==(const TabStop&) const = default;
};

// Indents, spacing and tab stops of a paragraph, in twips as RTF gives them. The pane shows none of
// these yet; the model carries them so that a note keeps them when only its text was edited.
struct ParagraphLayout {
    int leftIndent = 0;
    int rightIndent = 0;
    int firstLineIndent = 0; // relative to the left indent; negative for a hanging indent
    int spaceBefore = 0;
    int spaceAfter = 0;
    int lineSpacing = 0;       // 0: single; negative: exactly; positive: at least (or a multiple, below)
    bool lineMultiple = false; // lineSpacing counts in 240ths of a line
    std::vector<TabStop> tabs; // in the order the RTF gave them

    bool operator==(const ParagraphLayout&) const = default;
};

// How the items of a list level are labelled.
enum class ListKind { Bullet, Decimal, LowerLetter, UpperLetter, LowerRoman, UpperRoman };

// A paragraph's place in a bulleted or numbered list. Paragraphs with one id form one list, numbered
// through; the reader numbers ids 1, 2, … in the order lists first appear, and the writer does the
// same with the ids it is given. All paragraphs of one list and level share kind and start (the
// writer takes them from the first).
struct ListMembership {
    int id = 1;
    int level = 0; // 0 … 8
    ListKind kind = ListKind::Bullet;
    int start = 1; // the number of the level's first item

    bool operator==(const ListMembership&) const = default;
};

// A paragraph inside a table row. A cell holds the paragraphs up to the one that ends it; a row holds
// the cells up to the one whose last paragraph ends the row. Nested tables are flattened into the
// cells of the outer one.
struct TableCell {
    int rightEdge = 0;     // \cellx: the cell's right edge in twips; 0 for a cell that never ended
    bool endsCell = false; // the cell's last paragraph
    bool endsRow = false;  // the last paragraph of the row's last cell (only with endsCell)

    bool operator==(const TableCell&) const = default;
};

// What ends a paragraph: a paragraph mark, a page break, or nothing because the text ran out (only the
// last paragraph of a document can end so).
enum class ParagraphBreak { Paragraph, Page, None };

struct Paragraph {
    Alignment alignment = Alignment::Left;
    std::vector<Run> runs;
    // The format of the paragraph mark: what an empty paragraph shows and what typing at its end uses.
    CharFormat mark;
    ParagraphBreak end = ParagraphBreak::Paragraph;
    ParagraphLayout layout;
    std::optional<ListMembership> list;
    std::optional<TableCell> cell;

    bool operator==(const Paragraph&) const = default;
};

struct Document {
    std::vector<Paragraph> paragraphs;

    bool operator==(const Document&) const = default;
};

// Builds a document in reading order and keeps it in its normal form: no empty runs, and no two
// neighbouring runs of one paragraph with the same format. The reader and the note pane both build
// through it, so that a document read back from its own RTF compares equal to the original.
class DocumentBuilder {
public:
    void AppendText(std::string_view utf8, const CharFormat& format);
    void AppendPicture(Picture picture, const CharFormat& format);
    // Ends the open paragraph (even an empty one) with the given properties.
    void EndParagraph(Alignment alignment, const CharFormat& mark, ParagraphBreak end);
    // Sets the layout of the open paragraph; it stays with it when it ends.
    void SetLayout(const ParagraphLayout& layout) { m_open.layout = layout; }
    void SetList(const std::optional<ListMembership>& list) { m_open.list = list; }
    void SetCell(const std::optional<TableCell>& cell) { m_open.cell = cell; }
    // Gives the right edge to the cell that the last paragraph ended: to it and the paragraphs of the
    // cell before it.
    void CloseCell(int rightEdge);
    // Marks the last paragraph as ending its row, if it ends a cell.
    void MarkRowEnd();
    // Marks the last paragraph as followed by a page break.
    void MarkPageBreak();
    // Whether text was appended since the last paragraph ended.
    bool HasOpenParagraph() const { return !m_open.runs.empty(); }
    // Ends an open paragraph with ParagraphBreak::None and hands the document over.
    Document Finish(Alignment alignment, const CharFormat& mark);

private:
    Document m_document;
    Paragraph m_open;
};

// Sets the size of every run and every paragraph mark (the note pane's "select all, set size").
void ApplySizeToAll(Document& document, int halfPoints);

} // namespace velto::rtf
