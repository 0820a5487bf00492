#include "view/NoteRichText.h"

#include "base/ColorRef.h"

#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>

#include <algorithm>
#include <cmath>

namespace velto::notetext {
namespace {

constexpr int kHalfPointsProperty = QTextFormat::UserProperty + 1;
constexpr int kUnterminatedProperty =
    QTextFormat::UserProperty + 2; // on a block: no paragraph mark closes it
// On a block: the paragraph layout, list membership and table cell the pane does not show yet, kept so
// that saving loses none of them.
constexpr int kLayoutProperty = QTextFormat::UserProperty + 3;
constexpr int kListProperty = QTextFormat::UserProperty + 5;
constexpr int kCellProperty = QTextFormat::UserProperty + 6;
// On an object replacement character: the note's picture it stands for, shown as a blank for now.
constexpr int kPictureProperty = QTextFormat::UserProperty + 4;

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
    if (paragraph.layout != rtf::ParagraphLayout())
        format.setProperty(kLayoutProperty, QVariant::fromValue(paragraph.layout));
    if (paragraph.list)
        format.setProperty(kListProperty, QVariant::fromValue(*paragraph.list));
    if (paragraph.cell)
        format.setProperty(kCellProperty, QVariant::fromValue(*paragraph.cell));
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
        // Only the note's own pictures come back; other objects (pasted ones) have no place in a note.
        const auto picture = format.property(kPictureProperty).value<rtf::Picture>();
        const QStringList pieces = fragment.text().split(QChar::ObjectReplacementCharacter);
        for (qsizetype i = 0; i < pieces.size(); ++i) {
            if (i > 0 && format.hasProperty(kPictureProperty))
                builder.AppendPicture(picture, noteFormat);
            builder.AppendText(pieces[i].toStdString(), noteFormat);
        }
    }
}

void InsertRun(QTextCursor& cursor, const rtf::Run& run) {
    QTextCharFormat format = ToTextFormat(run.format);
    if (!run.picture) {
        cursor.insertText(QString::fromStdString(run.text), format);
        return;
    }
    format.setProperty(kPictureProperty, QVariant::fromValue(*run.picture));
    cursor.insertText(QString(QChar::ObjectReplacementCharacter), format);
}

} // namespace

void ShowNote(QTextDocument& target, const rtf::Document& note) {
    target.setUndoRedoEnabled(false);
    target.clear();
    QTextCursor cursor(&target);
    bool first = true;
    for (const rtf::Paragraph& paragraph : note.paragraphs) {
        if (first) {
            cursor.setBlockFormat(ToBlockFormat(paragraph));
            cursor.setBlockCharFormat(ToTextFormat(paragraph.mark));
        } else {
            cursor.insertBlock(ToBlockFormat(paragraph), ToTextFormat(paragraph.mark));
        }
        first = false;
        for (const rtf::Run& run : paragraph.runs)
            InsertRun(cursor, run);
    }
    // An empty note is one unterminated empty block, which TakeNote reads as no paragraph at all.
    if (first) {
        rtf::Paragraph nothing;
        nothing.end = rtf::ParagraphBreak::None;
        cursor.setBlockFormat(ToBlockFormat(nothing));
    }
    target.setUndoRedoEnabled(true);
    target.setModified(false);
}

rtf::Document TakeNote(const QTextDocument& source) {
    rtf::DocumentBuilder builder;
    for (QTextBlock block = source.begin(); block.isValid(); block = block.next()) {
        AppendFragments(builder, block);
        const rtf::ParagraphBreak end = EndOf(block);
        // An unterminated empty block is no paragraph at all: it is how an empty note shows.
        if (end == rtf::ParagraphBreak::None && !builder.HasOpenParagraph())
            break;
        const QTextBlockFormat format = block.blockFormat();
        builder.SetLayout(format.property(kLayoutProperty).value<rtf::ParagraphLayout>());
        if (format.hasProperty(kListProperty))
            builder.SetList(format.property(kListProperty).value<rtf::ListMembership>());
        if (format.hasProperty(kCellProperty))
            builder.SetCell(format.property(kCellProperty).value<rtf::TableCell>());
        builder.EndParagraph(ToNoteAlignment(format.alignment()), ToNoteFormat(block.charFormat()), end);
    }
    return builder.Finish(rtf::Alignment::Left, rtf::CharFormat());
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
