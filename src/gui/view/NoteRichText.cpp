#include "view/NoteRichText.h"

#include "base/ColorRef.h"
#include "view/NoteBlocks.h"
#include "view/NotePictures.h"
#include "view/NoteProperties.h"
#include "view/NoteTables.h"

#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextDocumentFragment>

#include <algorithm>
#include <cmath>
#include <span>

namespace velto::notetext {
namespace {

// Qt draws no font of 0 pt or below, and giant sizes only cost memory.
constexpr double kSmallestShownPoints = 1.0;
constexpr double kLargestShownPoints = 1638.0;

Qt::Alignment ToQtAlignment(rtf::Alignment alignment) {
    switch (alignment) {
    case rtf::Alignment::Centre:
        return Qt::AlignHCenter;
    case rtf::Alignment::Right:
        return Qt::AlignRight;
    case rtf::Alignment::Justified:
        return Qt::AlignJustify;
    case rtf::Alignment::Left:
        break;
    }
    return Qt::AlignLeft;
}

rtf::Alignment ToNoteAlignment(Qt::Alignment alignment) {
    switch (alignment & Qt::AlignHorizontal_Mask) {
    case Qt::AlignHCenter:
        return rtf::Alignment::Centre;
    case Qt::AlignRight:
        return rtf::Alignment::Right;
    case Qt::AlignJustify:
        return rtf::Alignment::Justified;
    default:
        return rtf::Alignment::Left;
    }
}

QTextBlockFormat ToBlockFormat(const rtf::Paragraph& paragraph) {
    QTextBlockFormat format;
    format.setAlignment(ToQtAlignment(paragraph.alignment));
    if (paragraph.end == rtf::ParagraphBreak::Page)
        format.setPageBreakPolicy(QTextFormat::PageBreak_AlwaysAfter);
    if (paragraph.end == rtf::ParagraphBreak::None)
        format.setProperty(kUnterminatedProperty, true);
    ApplyLayout(format, paragraph.layout,
                paragraph.list ? std::optional<int>(paragraph.list->level) : std::nullopt);
    if (paragraph.cell)
        format.setProperty(kCellEdgeProperty, paragraph.cell->rightEdge);
    return format;
}

rtf::ParagraphBreak EndOf(const QTextBlock& block) {
    const QTextBlockFormat format = block.blockFormat();
    if (format.pageBreakPolicy() & QTextFormat::PageBreak_AlwaysAfter)
        return rtf::ParagraphBreak::Page;
    // Only the last paragraph can run out without a mark; a block split off it keeps the property.
    if (!block.next().isValid() && format.boolProperty(kUnterminatedProperty))
        return rtf::ParagraphBreak::None;
    return rtf::ParagraphBreak::Paragraph;
}

std::string FaceOf(const QTextCharFormat& format) {
    const QStringList families = format.fontFamilies().toStringList();
    return families.isEmpty() ? std::string() : families.first().toStdString();
}

void AppendFragments(rtf::DocumentBuilder& builder, const QTextBlock& block) {
    for (auto it = block.begin(); !it.atEnd(); ++it) {
        const QTextFragment fragment = it.fragment();
        const QTextCharFormat format = fragment.charFormat();
        const rtf::CharFormat noteFormat = ToNoteFormat(format);
        // Only the note's own pictures come back; a paste turns the images it brings into such.
        const rtf::PictureRef picture = PictureOf(format);
        const QStringList pieces = fragment.text().split(QChar::ObjectReplacementCharacter);
        for (qsizetype i = 0; i < pieces.size(); ++i) {
            if (i > 0 && picture)
                builder.AppendPicture(*picture, noteFormat);
            builder.AppendText(pieces[i].toStdString(), noteFormat);
        }
    }
}

void InsertRun(QTextCursor& cursor, const rtf::Run& run) {
    const QTextCharFormat format = ToTextFormat(run.format);
    if (run.picture)
        InsertPicture(cursor, run.picture, format);
    else
        cursor.insertText(QString::fromStdString(run.text), format);
}

// Inserts the paragraphs of a note at a cursor, block after block, tables as tables.
class NoteInserter {
public:
    // Where the first paragraph goes: into the cursor's empty block, which it gives its formats, or
    // into the cursor's paragraph, whose formats stay.
    enum class Start { IntoEmptyBlock, IntoParagraph };

    NoteInserter(QTextCursor& cursor, int firstListId, Start start)
        : m_cursor(cursor), m_lists(firstListId), m_start(start) {}

    void Insert(const rtf::Document& note) {
        const std::span<const rtf::Paragraph> paragraphs = note.paragraphs;
        for (size_t i = 0; i < paragraphs.size();) {
            if (!paragraphs[i].cell) {
                InsertNext(paragraphs[i++]);
                continue;
            }
            size_t end = i;
            while (end < paragraphs.size() && paragraphs[end].cell)
                ++end;
            InsertTableOf(paragraphs.subspan(i, end - i));
            i = end;
        }
    }

    // Whether the cursor is in an empty block no paragraph has filled (the one after a table).
    bool AtEmptyBlock() const { return m_start == Start::IntoEmptyBlock; }

private:
    void InsertNext(const rtf::Paragraph& paragraph) {
        if (m_start == Start::IntoParagraph)
            InsertRuns(m_cursor, paragraph);
        else
            InsertParagraph(m_cursor, paragraph, m_start == Start::IntoEmptyBlock);
        m_start = std::nullopt;
    }

    void InsertTableOf(std::span<const rtf::Paragraph> cells) {
        // Qt keeps a block before every table; one no paragraph has filled stays out of the note.
        if (m_start == Start::IntoEmptyBlock)
            MarkStructural(m_cursor);
        InsertTable(m_cursor, cells,
                    [this](QTextCursor& cursor, const rtf::Paragraph& paragraph, bool intoCurrent) {
                        InsertParagraph(cursor, paragraph, intoCurrent);
                    });
        m_start = Start::IntoEmptyBlock;
    }

    void InsertParagraph(QTextCursor& cursor, const rtf::Paragraph& paragraph, bool intoCurrent) {
        if (intoCurrent) {
            cursor.setBlockFormat(ToBlockFormat(paragraph));
            cursor.setBlockCharFormat(ToTextFormat(paragraph.mark));
        } else {
            cursor.insertBlock(ToBlockFormat(paragraph), ToTextFormat(paragraph.mark));
        }
        m_lists.Place(cursor, paragraph.list);
        InsertRuns(cursor, paragraph);
    }

    static void InsertRuns(QTextCursor& cursor, const rtf::Paragraph& paragraph) {
        for (const rtf::Run& run : paragraph.runs)
            InsertRun(cursor, run);
    }

    QTextCursor& m_cursor;
    ListPlacer m_lists;
    std::optional<Start> m_start; // nothing once the first paragraph is in
};

void MarkUnterminated(QTextCursor& cursor) {
    QTextBlockFormat format = cursor.blockFormat();
    format.setProperty(kUnterminatedProperty, true);
    cursor.setBlockFormat(format);
}

} // namespace

void ShowNote(QTextDocument& target, const rtf::Document& note) {
    target.setUndoRedoEnabled(false);
    target.clear();
    QTextCursor cursor(&target);
    NoteInserter inserter(cursor, 1, NoteInserter::Start::IntoEmptyBlock);
    inserter.Insert(note);
    // An empty note is one unterminated empty block, which TakeNote reads as no paragraph at all; so
    // is the block Qt keeps after a table that ends the note.
    if (inserter.AtEmptyBlock())
        MarkUnterminated(cursor);
    target.setUndoRedoEnabled(true);
    target.setModified(false);
}

rtf::Document TakeNote(const QTextDocument& source) {
    rtf::DocumentBuilder builder;
    ListReader lists;
    for (QTextBlock block = source.begin(); block.isValid(); block = block.next()) {
        if (IsStructural(block))
            continue;
        AppendFragments(builder, block);
        const rtf::ParagraphBreak end = EndOf(block);
        // An unterminated empty block is no paragraph at all: it is how an empty note shows.
        if (end == rtf::ParagraphBreak::None && !builder.HasOpenParagraph())
            break;
        builder.SetLayout(LayoutOf(block));
        builder.SetList(lists.MembershipOf(block));
        builder.SetCell(CellOf(block));
        builder.EndParagraph(ToNoteAlignment(block.blockFormat().alignment()),
                             ToNoteFormat(block.charFormat()), end);
    }
    return builder.Finish(rtf::Alignment::Left, rtf::CharFormat());
}

void PasteNote(QTextCursor& cursor, const rtf::Document& note) {
    cursor.beginEditBlock();
    cursor.removeSelectedText();
    const QTextBlockFormat restFormat = cursor.blockFormat();
    const QTextCharFormat restMark = cursor.blockCharFormat();
    const bool intoEmpty = cursor.block().length() == 1;
    NoteInserter inserter(cursor, NextListId(*cursor.document()),
                          intoEmpty ? NoteInserter::Start::IntoEmptyBlock
                                    : NoteInserter::Start::IntoParagraph);
    inserter.Insert(note);
    // A pasted paragraph mark ends the paragraph; what stood after the cursor follows as before.
    const bool endsWithMark =
        !note.paragraphs.empty() && note.paragraphs.back().end != rtf::ParagraphBreak::None;
    if (endsWithMark && !inserter.AtEmptyBlock())
        cursor.insertBlock(restFormat, restMark);
    cursor.endEditBlock();
}

rtf::Document NoteOfSelection(const QTextCursor& cursor) {
    QTextDocument selected;
    QTextCursor into(&selected);
    into.insertFragment(cursor.selection());
    // The selection's last paragraph goes on in the document, its mark is not part of it.
    MarkUnterminated(into);
    return TakeNote(selected);
}

QTextCharFormat ToTextFormat(const rtf::CharFormat& format) {
    QTextCharFormat text;
    if (!format.face.empty())
        text.setFontFamilies({QString::fromStdString(format.face)});
    SetHalfPoints(text, format.halfPoints);
    text.setFontWeight(format.bold ? QFont::Bold : QFont::Normal);
    text.setFontItalic(format.italic);
    text.setFontUnderline(format.underline);
    text.setFontStrikeOut(format.strikeOut);
    if (format.colour)
        text.setForeground(ColorFromColorRef(int(*format.colour)));
    return text;
}

rtf::CharFormat ToNoteFormat(const QTextCharFormat& format) {
    rtf::CharFormat note;
    note.face = FaceOf(format);
    note.halfPoints = HalfPointsOf(format);
    note.bold = format.fontWeight() >= QFont::DemiBold;
    note.italic = format.fontItalic();
    note.underline = format.fontUnderline();
    note.strikeOut = format.fontStrikeOut();
    if (format.hasProperty(QTextFormat::ForegroundBrush) && format.foreground().style() != Qt::NoBrush) {
        note.colour = rtf::Colour(ColorRefOf(format.foreground().color()));
    }
    return note;
}

int HalfPointsOf(const QTextCharFormat& format) {
    const bool shownSizeSet = format.hasProperty(QTextFormat::FontPointSize);
    if (format.hasProperty(kHalfPointsProperty)) {
        const int kept = format.intProperty(kHalfPointsProperty);
        if (!shownSizeSet || format.fontPointSize() == DisplayPoints(kept))
            return kept;
    }
    if (shownSizeSet)
        return int(std::lround(format.fontPointSize() * 2));
    return rtf::kDefaultHalfPoints;
}

void SetHalfPoints(QTextCharFormat& format, int halfPoints) {
    format.setProperty(kHalfPointsProperty, halfPoints);
    format.setFontPointSize(DisplayPoints(halfPoints));
}

double DisplayPoints(int halfPoints) {
    return std::clamp(halfPoints / 2.0, kSmallestShownPoints, kLargestShownPoints);
}

} // namespace velto::notetext
