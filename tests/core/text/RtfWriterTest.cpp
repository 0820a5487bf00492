// The RTF writer: the shape other programs expect, the escaping of every kind of character, and that
// reading its output gives back the document it was given.
#include "text/RtfWriter.h"

#include "core/text/RtfTestSupport.h"
#include "model/Cp1252.h"
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

Document OneParagraph(const std::string& text, const CharFormat& format = rtftest::Format("Arial")) {
    DocumentBuilder builder;
    builder.AppendText(text, format);
    builder.EndParagraph(Alignment::Left, format, ParagraphBreak::Paragraph);
    return builder.Finish(Alignment::Left, format);
}

// The body of the written RTF after the tables.
std::string Body(const std::string& rtf) {
    return rtf.substr(rtf.find("\\viewkind4"));
}

} // namespace

TEST(RtfWriterShape, HeaderTablesAndBody) {
    CharFormat red = rtftest::Format("Times New Roman", 20);
    red.colour = rtf::MakeColour(255, 0, 0);
    DocumentBuilder builder;
    builder.AppendText("a", rtftest::Format("Arial"));
    builder.AppendText("b", red);
    builder.EndParagraph(Alignment::Centre, red, ParagraphBreak::Paragraph);
    const std::string rtf = WriteRtf(builder.Finish(Alignment::Left, red));

    EXPECT_EQ(
        rtf.rfind("{\\rtf1\\ansi\\ansicpg1252\\deff0\\deflang1031{\\fonttbl{\\f0\\fnil\\fcharset0 Arial;}"
                  "{\\f1\\fnil\\fcharset0 Times New Roman;}}\r\n{\\colortbl ;\\red255\\green0\\blue0;}\r\n",
                  0),
        0u)
        << rtf;
    EXPECT_EQ(Body(rtf), "\\viewkind4\\uc1\\pard\\qc\\f0\\fs24 a\\f1\\fs20\\cf1 b\\par\r\n}\r\n");
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
    auto body = [](const std::string& text) {
        const std::string all = Body(WriteRtf(OneParagraph(text)));
        const size_t start = all.find("\\fs24") + 5;
        return all.substr(start, all.find("\\par\r\n") - start);
    };
    EXPECT_EQ(body("a{b}c\\d"), " a\\{b\\}c\\\\d");
    EXPECT_EQ(body("äöüß€"), "\\'e4\\'f6\\'fc\\'df\\'80");
    EXPECT_EQ(body("Γ"), "\\u915?");
    EXPECT_EQ(body("\xEF\x82\xB7"), "\\u-3913?"); // U+F0B7: above 0x7FFF, written negative
    EXPECT_EQ(body("😀"), "\\u-10179?\\u-8704?");  // a surrogate pair
    EXPECT_EQ(body("a\tb\xE2\x80\xA8"
                   "c"),
              " a\\tab b\\line c"); // tab and line break
    EXPECT_EQ(body("\u00A0\u00AD\u2011"), "\\~\\-\\_");
    EXPECT_EQ(body(std::string("\r\n\x01", 3)), "\\'0d\\'0a\\'01"); // raw line ends would be lost
    EXPECT_EQ(body("1 2"), " 1 2");                                 // a digit after \fs24 needs the blank
}

TEST(RtfWriterEscaping, FaceNames) {
    for (const std::string face : {"Schrift ä", "a;b", "Γράμμα", "{x}\\", ""}) {
        const Document document = OneParagraph("x", rtftest::Format(face));
        EXPECT_EQ(ReadRtf(WriteRtf(document)), document) << face;
    }
}

TEST(RtfWriterRoundTrip, HandBuiltDocument) {
    DocumentBuilder builder;
    CharFormat format = rtftest::Format("Arial", 20);
    builder.AppendText("plain ", format);
    format.bold = true;
    builder.AppendText("bold ", format);
    format.italic = true;
    format.colour = 0x0000FF;
    builder.AppendText("bold italic red ", format);
    format.bold = false;
    format.underline = true;
    format.colour = 0; // black is a colour, not the automatic one
    builder.AppendText("underlined black ", format);
    format.strikeOut = true;
    format.halfPoints = -2;
    format.face = "Courier New";
    builder.AppendText("struck small", format);
    builder.EndParagraph(Alignment::Justified, format, ParagraphBreak::Paragraph);
    builder.EndParagraph(Alignment::Right, rtftest::Format("Arial", 0), ParagraphBreak::Paragraph);
    builder.AppendText("Ende ä € Γ 😀", rtftest::Format("Verdana"));
    const Document document = builder.Finish(Alignment::Centre, rtftest::Format("Verdana"));

    const std::string rtf = WriteRtf(document);
    EXPECT_EQ(ReadRtf(rtf), document);
    EXPECT_EQ(WriteRtf(ReadRtf(rtf)), rtf);
}

TEST(RtfWriterRoundTrip, RandomDocuments) {
    // Characters from every class the writer treats apart.
    const std::vector<std::string> pieces = {
        "a", "Z", "7",        " ", "  ", ";", "{",      "}",      "\\",     "\t", "\xE2\x80\xA8",
        "ä", "€", "\xC2\x81", "Γ", "д",  "😀", "\u00A0", "\u00AD", "\u2011", "\r", "\x01",
        "?", "-", "'"};
    const std::vector<std::string> faces = {"Arial", "Times New Roman", "", "Schrift ä", "Γ"};
    std::mt19937 random(20240611);
    auto pick = [&](size_t count) { return static_cast<size_t>(random() % count); };
    for (int round = 0; round < 300; ++round) {
        DocumentBuilder builder;
        auto randomFormat = [&] {
            CharFormat format;
            format.face = faces[pick(faces.size())];
            format.halfPoints = static_cast<int>(pick(60)) - 10;
            format.bold = pick(2);
            format.italic = pick(2);
            format.underline = pick(2);
            format.strikeOut = pick(2);
            if (pick(3) > 0)
                format.colour = static_cast<rtf::Colour>(random() & 0xFFFFFF);
            return format;
        };
        const size_t paragraphs = pick(5);
        for (size_t p = 0; p < paragraphs; ++p) {
            for (size_t r = pick(4); r > 0; --r) {
                std::string text;
                for (size_t c = pick(6) + 1; c > 0; --c)
                    text += pieces[pick(pieces.size())];
                builder.AppendText(text, randomFormat());
            }
            builder.EndParagraph(static_cast<Alignment>(pick(4)), randomFormat(),
                                 pick(4) == 0 ? ParagraphBreak::Page : ParagraphBreak::Paragraph);
        }
        if (pick(2))
            builder.AppendText(pieces[pick(pieces.size())], randomFormat());
        const Document document = builder.Finish(static_cast<Alignment>(pick(4)), randomFormat());
        const std::string rtf = WriteRtf(document);
        ASSERT_EQ(ReadRtf(rtf), document) << rtf;
        ASSERT_EQ(rtf::PlainText(rtf), rtftest::Joined(document)) << rtf;
    }
}

TEST(RtfWriterRoundTrip, WhatTheReaderReadsFromRichEditOutput) {
    const std::string richEdit =
        "{\\rtf1\\ansi\\ansicpg1252\\deff0\\deflang1031{\\fonttbl{\\f0\\fswiss\\fcharset0 Arial;}"
        "{\\f1\\fnil\\fcharset2 Symbol;}}\r\n{\\colortbl ;\\red0\\green0\\blue255;}\r\n"
        "{\\*\\generator Msftedit 5.41.21.2510;}\\viewkind4\\uc1\\pard\\f0\\fs24 Siehe \\cf1\\ul "
        "[C:\\\\a.doc]"
        "\\cf0\\ulnone , \\b fett\\b0  und \\'e4\\u8364?.\\par\r\n\\pard{\\pntext\\f1\\'b7\\tab}"
        "{\\*\\pn\\pnlvlblt\\pnf1\\pnindent0{\\pntxtb\\'b7}}\\qc Punkt\\par\r\n}\r\n";
    const Document document = ReadRtf(richEdit);
    EXPECT_EQ(rtftest::Texts(document),
              (std::vector<std::string>{"Siehe [C:\\a.doc], fett und ä€.", "Punkt"}));
    EXPECT_EQ(ReadRtf(WriteRtf(document)), document);
}

} // namespace velto
