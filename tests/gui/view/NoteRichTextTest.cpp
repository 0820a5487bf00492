// The note between the core model and the pane's QTextDocument: every paragraph, format and size
// comes back unchanged, including what Qt cannot show as it is (sizes of 0 pt and below, a last
// paragraph without a mark), and every note of the shared RTF corpus survives the trip.
#include "view/NoteRichText.h"
#include "text/RtfReader.h"
#include "text/RtfWriter.h"

#include "support/TempDir.h"
#include "support/TestEnvironment.h"

#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>

#include <filesystem>
#include <gtest/gtest.h>

namespace velto {

namespace {

rtf::CharFormat Format(std::string face, int halfPoints) {
    rtf::CharFormat format;
    format.face = std::move(face);
    format.halfPoints = halfPoints;
    return format;
}

rtf::Document RoundTrip(const rtf::Document& note) {
    QTextDocument document;
    notetext::ShowNote(document, note);
    return notetext::TakeNote(document);
}

rtf::Document RichNote() {
    rtf::CharFormat bold = Format("Arial", 20);
    bold.bold = true;
    rtf::CharFormat decorated = Format("Liberation Serif", 31);
    decorated.italic = decorated.underline = decorated.strikeOut = true;
    decorated.colour = rtf::MakeColour(12, 34, 56);
    rtf::CharFormat tiny = Format("", -4); // no face named, and a size below zero
    rtf::CharFormat huge = Format("Arial", 100000);

    rtf::DocumentBuilder builder;
    builder.AppendText("Fett", bold);
    builder.AppendText(" schräg\tmit Tab\u2028und Zeile", decorated);
    builder.EndParagraph(rtf::Alignment::Centre, bold, rtf::ParagraphBreak::Page);
    builder.EndParagraph(rtf::Alignment::Right, decorated, rtf::ParagraphBreak::Paragraph); // empty
    builder.AppendText("winzig", tiny);
    builder.AppendText("riesig €", huge);
    builder.EndParagraph(rtf::Alignment::Justified, tiny, rtf::ParagraphBreak::Paragraph);
    builder.AppendText("ohne Absatzmarke", Format("Arial", 24));
    return builder.Finish(rtf::Alignment::Left, Format("Arial", 24));
}

TEST(NoteRichText, EveryFormatAndParagraphComesBack) {
    const rtf::Document note = RichNote();
    ASSERT_EQ(note.paragraphs.back().end, rtf::ParagraphBreak::None);
    EXPECT_EQ(RoundTrip(note), note);
    // Empty notes: none at all, and the default note's one empty paragraph.
    EXPECT_EQ(RoundTrip(rtf::Document()), rtf::Document());
    rtf::DocumentBuilder empty;
    empty.EndParagraph(rtf::Alignment::Left, Format("Arial", 24), rtf::ParagraphBreak::Paragraph);
    const rtf::Document oneEmpty = empty.Finish(rtf::Alignment::Left, rtf::CharFormat());
    EXPECT_EQ(RoundTrip(oneEmpty), oneEmpty);
}

TEST(NoteRichText, ShownAsQtDrawsIt) {
    QTextDocument document;
    notetext::ShowNote(document, RichNote());
    EXPECT_FALSE(document.isUndoAvailable()) << "showing a note is nothing to undo";
    ASSERT_EQ(document.blockCount(), 4);
    const QTextBlock first = document.firstBlock();
    EXPECT_EQ(first.blockFormat().alignment() & Qt::AlignHorizontal_Mask, Qt::AlignHCenter);
    EXPECT_EQ(first.text(), QString::fromUtf8("Fett schräg\tmit Tab\u2028und Zeile"));
    const QTextBlock third = first.next().next();
    const QTextCharFormat tiny = third.begin().fragment().charFormat();
    EXPECT_EQ(tiny.fontPointSize(), 1.0) << "sizes below 1 pt show as 1 pt";
    EXPECT_EQ(notetext::HalfPointsOf(tiny), -4) << "and are kept as they were";
    EXPECT_FALSE(tiny.hasProperty(QTextFormat::FontFamilies));
    EXPECT_FALSE(tiny.hasProperty(QTextFormat::ForegroundBrush)) << "automatic colour";
}

TEST(NoteRichText, ASizeSetByOtherMeansWinsAndForeignObjectsAreDropped) {
    QTextCharFormat format;
    notetext::SetHalfPoints(format, -4);
    format.setFontPointSize(15.5); // the font dialog or pasted text changed it
    EXPECT_EQ(notetext::HalfPointsOf(format), 31);
    EXPECT_EQ(notetext::HalfPointsOf(QTextCharFormat()), rtf::kDefaultHalfPoints);
    QTextDocument document;
    QTextCursor cursor(&document);
    cursor.insertText("Bild:");
    cursor.insertImage(QImage(4, 4, QImage::Format_RGB32));
    cursor.insertText("Ende");
    const rtf::Document note = notetext::TakeNote(document);
    EXPECT_EQ(rtf::PlainText(rtf::WriteRtf(note)), "Bild:Ende");
}

// Any note the reader can make of real files goes through the pane unchanged: its lists, pictures,
// tables and layout, and the corners (control characters, symbol fonts, empty paragraphs after
// tables).
TEST(NoteRichText, CorpusNotesSurviveThePane) {
    const std::filesystem::path files = std::filesystem::path(testenv::SharedDir()) / "rtf-corpus" / "files";
    if (!std::filesystem::is_directory(files))
        GTEST_SKIP() << "no corpus at " << files;
    int checked = 0;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(files)) {
        if (entry.path().extension() != ".rtf")
            continue;
        const rtf::Document note = rtf::ReadRtf(testsupport::ReadFile(entry.path().string()));
        EXPECT_EQ(rtf::WriteRtf(RoundTrip(note)), rtf::WriteRtf(note)) << entry.path();
        ++checked;
    }
    EXPECT_GT(checked, 100);
}

} // namespace

} // namespace velto
