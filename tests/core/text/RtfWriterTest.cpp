// The RTF writer: the shape other programs expect, the escaping of every kind of character, and that
// reading its output gives back the document it was given.
#include "text/RtfWriter.h"

#include "core/text/RtfTestSupport.h"
#include "text/RtfReader.h"

#include <gtest/gtest.h>
#include <random>

namespace velto {

using rtf::Alignment;
using rtf::CharFormat;
using rtf::Document;
using rtf::DocumentBuilder;
using rtf::ParagraphBreak;
using rtf::ReadRtf;
using rtf::WriteRtf;

namespace {

// The body of the written RTF after the tables.
std::string Body(const std::string& rtf) {
    return rtf.substr(rtf.find("\\viewkind4"));
}

TEST(RtfWriterShape, HeaderTablesAndBody) {
    CharFormat red = rtftest::Format("Times New Roman", 20);
    red.colour = rtf::MakeColour(255, 0, 0);
    DocumentBuilder builder;
    builder.AppendText("a", rtftest::Format("Arial"));
    builder.AppendText("b", red);
    builder.EndParagraph(Alignment::Centre, red, ParagraphBreak::Paragraph);
    EXPECT_EQ(WriteRtf(builder.Finish(Alignment::Left, red)),
              "{\\rtf1\\ansi\\ansicpg1252\\deff0\\deflang1031{\\fonttbl{\\f0\\fnil\\fcharset0 Arial;}"
              "{\\f1\\fnil\\fcharset0 Times New Roman;}}\r\n{\\colortbl ;\\red255\\green0\\blue0;}\r\n"
              "\\viewkind4\\uc1\\pard\\qc\\f0\\fs24 a\\f1\\fs20\\cf1 b\\par\r\n}\r\n");
}

TEST(RtfWriterShape, EmptyDocumentAndParagraphEnds) {
    EXPECT_EQ(ReadRtf(WriteRtf(Document())), Document());

    DocumentBuilder builder;
    const CharFormat format = rtftest::Format("Arial");
    builder.EndParagraph(Alignment::Left, format, ParagraphBreak::Paragraph);
    builder.AppendText("x", format);
    builder.EndParagraph(Alignment::Left, format, ParagraphBreak::Page);
    builder.EndParagraph(Alignment::Left, format, ParagraphBreak::Page); // an empty page
    builder.AppendText("last", format);
    const Document document = builder.Finish(Alignment::Right, format);
    const std::string rtf = WriteRtf(document);
    EXPECT_NE(rtf.find("x\\par\\page\r\n\\par\\page\r\n\\pard\\qr last}"), std::string::npos) << rtf;
    EXPECT_EQ(ReadRtf(rtf), document);
}

TEST(RtfWriterEscaping, EveryKindOfCharacter) {
    const std::pair<std::string, std::string> cases[] = {
        {"a{b}c\\d", " a\\{b\\}c\\\\d"},
        {"äöüß€", "\\'e4\\'f6\\'fc\\'df\\'80"},
        {"Γ", "\\u915?"},
        {"\xEF\x82\xB7", "\\u-3913?"}, // U+F0B7: above 0x7FFF, written negative
        {"😀", "\\u-10179?\\u-8704?"},  // a surrogate pair
        {"a\tb\xE2\x80\xA8"
         "c",
         " a\\tab b\\line c"},
        {"\u00A0\u00AD\u2011", "\\~\\-\\_"},
        {std::string("\r\n\x01", 3), "\\'0d\\'0a\\'01"}, // raw line ends would be lost
        {"1 2", " 1 2"},                                 // a digit after \fs24 needs the blank
    };
    for (const auto& [text, escaped] : cases) {
        DocumentBuilder builder;
        builder.AppendText(text, rtftest::Format("Arial"));
        const std::string body = Body(WriteRtf(builder.Finish(Alignment::Left, rtftest::Format("Arial"))));
        EXPECT_EQ(body, "\\viewkind4\\uc1\\pard\\f0\\fs24" + escaped + "}\r\n") << text;
    }
}

// Documents of random paragraphs, runs, formats and characters from every class the writer treats
// apart, face names included, are read back as they were, and written again as the same bytes.
TEST(RtfWriterRoundTrip, RandomDocuments) {
    const std::vector<std::string> pieces = {
        "a", "Z", "7",        " ", "  ", ";", "{",      "}",      "\\",     "\t", "\xE2\x80\xA8",
        "ä", "€", "\xC2\x81", "Γ", "д",  "😀", "\u00A0", "\u00AD", "\u2011", "\r", "\x01",
        "?", "-", "'"};
    const std::vector<std::string> faces = {"Arial", "Times New Roman", "", "Schrift ä", "Γράμμα", "a;b",
                                            "{x}\\"};
    std::mt19937 random(20240611);
    auto pick = [&](size_t count) { return static_cast<size_t>(random() % count); };
    auto randomFormat = [&] {
        CharFormat format = rtftest::Format(faces[pick(faces.size())], static_cast<int>(pick(60)) - 10);
        format.bold = pick(2);
        format.italic = pick(2);
        format.underline = pick(2);
        format.strikeOut = pick(2);
        if (pick(3) > 0) // black is a colour of its own, not the automatic one
            format.colour = pick(4) ? static_cast<rtf::Colour>(random() & 0xFFFFFF) : 0;
        return format;
    };
    for (int round = 0; round < 300; ++round) {
        DocumentBuilder builder;
        for (size_t p = pick(5); p > 0; --p) {
            for (size_t r = pick(4); r > 0; --r) {
                std::string text;
                for (size_t c = pick(6) + 1; c > 0; --c)
                    text += pieces[pick(pieces.size())];
                builder.AppendText(text, randomFormat());
            }
            if (pick(3) == 0)
                builder.SetLayout({static_cast<int>(pick(3)) * 360,
                                   0,
                                   static_cast<int>(pick(3)) - 1,
                                   0,
                                   static_cast<int>(pick(2)) * 120,
                                   static_cast<int>(pick(3)) * 120,
                                   pick(2) == 0,
                                   {{static_cast<int>(pick(4)) * 500, rtf::TabKind(pick(4))}}});
            builder.EndParagraph(static_cast<Alignment>(pick(4)), randomFormat(),
                                 pick(4) == 0 ? ParagraphBreak::Page : ParagraphBreak::Paragraph);
        }
        if (pick(2))
            builder.AppendText(pieces[pick(pieces.size())], randomFormat());
        const Document document = builder.Finish(static_cast<Alignment>(pick(4)), randomFormat());
        const std::string rtf = WriteRtf(document);
        ASSERT_EQ(ReadRtf(rtf), document) << rtf;
        ASSERT_EQ(WriteRtf(ReadRtf(rtf)), rtf);
        ASSERT_EQ(rtf::PlainText(rtf), rtftest::Joined(document)) << rtf;
    }
}

} // namespace

} // namespace velto
