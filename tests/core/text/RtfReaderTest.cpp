// The RTF reader, one rule at a time: a line of RTF in, the model or the plain text out.
#include "text/RtfReader.h"

#include "core/text/RtfTestSupport.h"

#include <climits>
#include <gtest/gtest.h>

namespace velto {

using rtf::Alignment;
using rtf::ParagraphBreak;
using rtf::PlainText;
using rtf::ReadRtf;
using rtftest::Texts;

namespace {

using Strings = std::vector<std::string>;

// The effects of each run of the first paragraph as letters (bold, italic, underline, strike-out),
// runs separated by '|'.
std::string Effects(const rtf::Document& document) {
    std::string effects;
    for (const rtf::Run& run : document.paragraphs.at(0).runs) {
        const rtf::CharFormat& f = run.format;
        effects += std::string(f.bold ? "b" : "") + (f.italic ? "i" : "") + (f.underline ? "u" : "") +
                   (f.strikeOut ? "s" : "") + "|";
    }
    return effects;
}

const rtf::Run& OnlyRun(const rtf::Document& document) {
    EXPECT_EQ(document.paragraphs.size(), 1u);
    EXPECT_EQ(document.paragraphs.at(0).runs.size(), 1u);
    return document.paragraphs.at(0).runs.at(0);
}

TEST(RtfReaderStructure, ParagraphsAndWhatEndsThem) {
    const auto open = ReadRtf(R"({\rtf1 Hello})");
    EXPECT_EQ(OnlyRun(open).text, "Hello");
    EXPECT_EQ(open.paragraphs.at(0).end, ParagraphBreak::None);
    const auto closed = ReadRtf(R"({\rtf1 a\par b\par})");
    EXPECT_EQ(Texts(closed), (Strings{"a", "b"}));
    EXPECT_EQ(closed.paragraphs.at(1).end, ParagraphBreak::Paragraph);
    // Empty paragraphs count; formatting after the last mark makes no paragraph.
    EXPECT_EQ(Texts(ReadRtf(R"({\rtf1 a\par\par\b })")), (Strings{"a", ""}));
    EXPECT_TRUE(ReadRtf(R"({\rtf1 })").paragraphs.empty());
    // A backslash before a line end is a paragraph mark; a plain line end and NUL padding are no text.
    EXPECT_EQ(Texts(ReadRtf("{\\rtf1 a\\\r\nb}")), (Strings{"a", "b"}));
    EXPECT_EQ(PlainText("{\\rtf1 a\r\nb\nc\rd}" + std::string(2, '\0')), "abcd");
    EXPECT_EQ(OnlyRun(ReadRtf(R"({\rtf1 a\line b\tab c})")).text, "a\xE2\x80\xA8"
                                                                  "b\tc");
    const auto inside = ReadRtf(R"({\rtf1 a\page b})");
    EXPECT_EQ(Texts(inside), (Strings{"a", "b"}));
    EXPECT_EQ(inside.paragraphs.at(0).end, ParagraphBreak::Page);
    // At the start of a paragraph the break belongs to the one before: no empty paragraph appears.
    const auto atStart = ReadRtf(R"({\rtf1 a\par\page b})");
    EXPECT_EQ(Texts(atStart), (Strings{"a", "b"}));
    EXPECT_EQ(atStart.paragraphs.at(0).end, ParagraphBreak::Page);
    EXPECT_EQ(Texts(ReadRtf(R"({\rtf1 a\sect b})")), (Strings{"a", "b"}));
}

TEST(RtfReaderFormat, GroupsScopeCharacterFormat) {
    EXPECT_EQ(Effects(ReadRtf(R"({\rtf1 a{\b b{\i c}d}e})")), "|b|bi|b||");
}

TEST(RtfReaderFormat, EffectsSwitchOnAndOffAndAnyUnderlineIsAnUnderline) {
    EXPECT_EQ(Effects(ReadRtf(R"({\rtf1\b\i\ul\strike on\b0\i0\ulnone\strike0 off\ul1\striked1 x\ul0 y})")),
              "bius||us|s|");
    EXPECT_EQ(Effects(ReadRtf(R"({\rtf1\uldb x\ulnone y\ulwave z})")), "u||u|");
}

TEST(RtfReaderFormat, PlainResetsCharacterFormatToTheDefaultFont) {
    const auto document =
        ReadRtf(R"({\rtf1\deff1{\fonttbl{\f0 Arial;}{\f1 Verdana;}}{\colortbl;\red1\green2\blue3;})"
                R"(\f0\fs40\b\i\ul\strike\cf1 x\plain y})");
    const auto& runs = document.paragraphs.at(0).runs;
    ASSERT_EQ(runs.size(), 2u);
    EXPECT_EQ(runs[0].format.face, "Arial");
    EXPECT_EQ(runs[1].format, rtftest::Format("Verdana"));
}

TEST(RtfReaderFormat, FontTable) {
    const auto document = ReadRtf(R"({\rtf1\deff1{\fonttbl{\f0\fswiss\fcharset0 Arial;})"
                                  R"({\f1\froman{\*\panose 02020603050405020304}Times New Roman;}})"
                                  R"(a\f0 b\f9 c})");
    const auto& runs = document.paragraphs.at(0).runs;
    ASSERT_EQ(runs.size(), 3u);
    EXPECT_EQ(runs[0].format.face, "Times New Roman"); // the default font, its panose group skipped
    EXPECT_EQ(runs[1].format.face, "Arial");
    EXPECT_EQ(runs[2].format.face, "Times New Roman"); // an unknown font number falls back to the default
    // The old form without a group per font; no font table at all.
    EXPECT_EQ(OnlyRun(ReadRtf(R"({\rtf1{\fonttbl\f0 Arial;\f1 Courier;}\f1 x})")).format.face, "Courier");
    EXPECT_EQ(OnlyRun(ReadRtf(R"({\rtf1\f3 x})")).format.face, "");
    // A name in the font's own code page, and a ';' that is escaped and so part of the name.
    EXPECT_EQ(OnlyRun(ReadRtf(R"({\rtf1{\fonttbl{\f0\fcharset204 \'c0\'e1;}}x})")).format.face, "Аб");
    EXPECT_EQ(OnlyRun(ReadRtf(R"({\rtf1{\fonttbl{\f0 a\'3bb;}}x})")).format.face, "a;b");
}

TEST(RtfReaderFormat, ColourTable) {
    const auto document = ReadRtf(R"({\rtf1{\colortbl;\red255\green0\blue0;\red0\green0\blue255;})"
                                  R"(\cf1 r\cf2 b\cf0 a\cf7 z})");
    const auto& runs = document.paragraphs.at(0).runs;
    ASSERT_EQ(runs.size(), 3u);
    EXPECT_EQ(runs[0].format.colour, 0x0000FFu); // red in the low byte
    EXPECT_EQ(runs[1].format.colour, 0xFF0000u);
    // Entry 0 without components and numbers beyond the table are the automatic colour.
    EXPECT_EQ(runs[2].format.colour, std::nullopt);
    // An entry 0 with components is a real colour; components beyond 255 are cut.
    EXPECT_EQ(OnlyRun(ReadRtf(R"({\rtf1{\colortbl\red0\green0\blue0;}\cf0 x})")).format.colour, 0u);
    EXPECT_EQ(OnlyRun(ReadRtf(R"({\rtf1{\colortbl;\red999\green-4\blue7;}\cf1 x})")).format.colour,
              rtf::MakeColour(255, 0, 7));
}

// The size buttons have no lower bound, so a negative size is kept; absurd sizes saturate.
TEST(RtfReaderFormat, SizesInHalfPoints) {
    const auto document = ReadRtf(R"({\rtf1 a\fs17 b\fs-4 c\fs40\fs d\fs99999999999999999999 e)"
                                  R"(\fs-99999999999999999999 f})");
    std::vector<int> sizes;
    for (const rtf::Run& run : document.paragraphs.at(0).runs)
        sizes.push_back(run.format.halfPoints);
    EXPECT_EQ(sizes, (std::vector{24, 17, -4, 24, INT_MAX, -INT_MAX}));
}

TEST(RtfReaderFormat, AlignmentIsTheParagraphsStateAtItsMark) {
    const auto document = ReadRtf(R"({\rtf1\qc a\par b\qr\par\pard c\par\qj d\par{\qc e\par}f\qd\par})");
    std::vector<Alignment> alignments;
    for (const rtf::Paragraph& paragraph : document.paragraphs)
        alignments.push_back(paragraph.alignment);
    EXPECT_EQ(alignments, (std::vector{Alignment::Centre, Alignment::Right, Alignment::Left,
                                       Alignment::Justified, Alignment::Centre, Alignment::Justified}));
}

TEST(RtfReaderFormat, TheParagraphMarkKeepsItsOwnFormat) {
    const auto document = ReadRtf(R"({\rtf1{\fonttbl{\f0 Arial;}{\f2 Verdana;}}\f2\fs17\par a\b\par})");
    ASSERT_EQ(document.paragraphs.size(), 2u);
    EXPECT_TRUE(document.paragraphs[0].runs.empty());
    EXPECT_EQ(document.paragraphs[0].mark, rtftest::Format("Verdana", 17));
    EXPECT_FALSE(document.paragraphs[1].runs.at(0).format.bold);
    EXPECT_TRUE(document.paragraphs[1].mark.bold);
    // The last paragraph without a mark takes the format at the end of the text.
    EXPECT_TRUE(ReadRtf(R"({\rtf1 a\i})").paragraphs.at(0).mark.italic);
}

TEST(RtfReaderCharacters, EightBitTextFollowsTheCodePage) {
    EXPECT_EQ(PlainText("{\\rtf1\\ansi \\'e4\\'80\\'9c\xe4}"), "ä€œä"); // unescaped 8-bit text too
    EXPECT_EQ(PlainText(R"({\rtf1\ansi\ansicpg1251 \'e4\'c0})"), "дА");
    EXPECT_EQ(PlainText(R"({\rtf1\mac \'8a})"), "ä");
    // A font's character set overrides the document's code page, only while that font is in use.
    EXPECT_EQ(PlainText(R"({\rtf1\ansi{\fonttbl{\f0 A;}{\f1\fcharset204 B;}{\f2\fcharset238 C;}})"
                        R"(\'e4\f1\'e4\f2\'b9{\f1\'e4}\'e4})"),
              "äдąдä");
    EXPECT_EQ(PlainText(R"({\rtf1{\fonttbl{\f0\cpg1251 A;}}\'e4})"), "д");
    // A code page of 0 is ignored; an unknown one reads as Windows-1252.
    EXPECT_EQ(PlainText(R"({\rtf1\ansicpg1251\ansicpg0 \'e4})"), "д");
    EXPECT_EQ(PlainText(R"({\rtf1\ansicpg4711 \'e4})"), "ä");
    // A symbol font keeps its glyph numbers, ASCII included: U+F061 U+F0B7.
    EXPECT_EQ(PlainText(R"({\rtf1{\fonttbl{\f0 Arial;}{\f1\fcharset2 Symbol;}}a\f1 a\'b7})"),
              "a\xEF\x81\xA1\xEF\x82\xB7");
}

TEST(RtfReaderCharacters, DoubleByteCodePages) {
    EXPECT_EQ(PlainText(R"({\rtf1\ansicpg932 \'82\'a0\'83e\'b1})"), "あテｱ"); // a literal trail byte, a kana
    EXPECT_EQ(PlainText(R"({\rtf1{\fonttbl{\f0\fcharset134 SimSun;}}\f0\'c4\'e3 a})"), "你 a");
    EXPECT_EQ(PlainText(R"({\rtf1\ansicpg949 \'b0\'a1})"), "가");
    EXPECT_EQ(PlainText(R"({\rtf1\ansicpg950 \'a4\'40})"), "一");
    // A lead byte whose trail is cut off by the group's end is dropped, not joined with what follows;
    // a pair the page leaves unassigned is replaced.
    EXPECT_EQ(PlainText(R"({\rtf1\ansicpg932 {\'82}a\'85\'40})"), "a\xEF\xBF\xBD");
}

TEST(RtfReaderCharacters, UnicodeWithFallback) {
    // One fallback character after the word's delimiting blank; none after \uc0; two after \uc2.
    EXPECT_EQ(PlainText(R"({\rtf1 \u8364?a\u8364 ?b\uc0\u8364 c})"), "€a€b€c");
    EXPECT_EQ(PlainText(R"({\rtf1\uc2 \u8364\'80\'80x\u8364 ab x})"), "€x€ x");
    // The fallback ends with the group, \uc is scoped to its group, a control word is one character.
    EXPECT_EQ(PlainText(R"({\rtf1 {\u8364}x{\uc2 \u8364??}\u8364?x\u8364\tab y})"), "€x€€x€y");
    // Negative numbers are the upper half of the 16-bit range (U+F0B7); surrogate pairs become one
    // character; a lone half is replaced.
    EXPECT_EQ(PlainText(R"({\rtf1 \u-3913?\u-10179?\u-8704?})"), "\xEF\x82\xB7😀");
    EXPECT_EQ(PlainText(R"({\rtf1 \u-8704?a\u-10179?b})"), "\xEF\xBF\xBD"
                                                           "ab");
}

TEST(RtfReaderCharacters, ControlSymbolsNamedCharactersAndUnknownWords) {
    EXPECT_EQ(PlainText(R"({\rtf1 a\~b\-c\_d\{\}\\\:\|})"), "a\u00A0b\u00ADc\u2011d{}\\");
    EXPECT_EQ(PlainText(R"({\rtf1 \lquote\rquote\ldblquote\rdblquote\bullet\endash\emdash})"), "‘’“”•–—");
    EXPECT_EQ(PlainText(R"({\rtf1 a\foo b\bar12 c\baz-3 d\qux-e})"), "abcd-e");
    // A word of more than 32 letters is no known word, even when it begins like one.
    EXPECT_EQ(PlainText(R"({\rtf1 a\parxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxx b})"), "ab");
}

TEST(RtfReaderDestinations, SkippedGroups) {
    EXPECT_EQ(PlainText(R"({\rtf1 a{\*\unknown x{y}}{\info{\title T}{\author A}}{\stylesheet{\s1 N;}})"
                        R"({\pict\wmetafile8 0a0b{\*\blipuid 12}}{\header H}{\footer F}{\footnote N})"
                        R"({\*\annotation C}{\object{\*\objdata 0102}{\result R}}b})"),
              "ab");
    // List labels are regenerated by the rich-edit control and are no text.
    EXPECT_EQ(PlainText(R"({\rtf1{\pntext\f1\'b7\tab}{\*\pn\pnlvlblt{\pntxtb\'b7}}{\listtext 1.\tab}I})"),
              "I");
    // Braces escaped inside a skipped group do not end it.
    EXPECT_EQ(PlainText(R"({\rtf1 a{\*\x \} \{ \\}b})"), "ab");
    // Binary data is skipped by its length; data and all are one fallback character.
    EXPECT_EQ(PlainText(R"({\rtf1 a{\pict\bin4 }}{}}b\bin3 }}}c\bin-5 d})"), "abcd");
    EXPECT_EQ(PlainText(R"({\rtf1 a\uc1\u8364\bin2 xyb})"), "a€b");
}

TEST(RtfReaderDestinations, FieldsShowTheirResultAndUnicodePairsTheirUnicodeHalf) {
    EXPECT_EQ(PlainText(R"({\rtf1 see {\field{\*\fldinst HYPERLINK "http://x"}{\fldrslt here}}.})"),
              "see here.");
    EXPECT_EQ(PlainText(R"({\rtf1{\field{\fldinst PAGE}{\fldrslt 3}}})"), "3");
    EXPECT_EQ(PlainText(R"({\rtf1 "{\upr{[G]}{\*\ud{[\uc0\u915]}}}"})"), "\"[Γ]\"");
}

TEST(RtfReaderTables, EachCellIsAParagraph) {
    EXPECT_EQ(Texts(ReadRtf(R"({\rtf1\trowd\cellx100\cellx200 a\intbl\cell b\cell\row after\par})")),
              (Strings{"a", "b", "after"}));
    // Cells merged into the one before add no empty paragraph; a merged cell with text keeps it.
    EXPECT_EQ(Texts(ReadRtf(R"({\rtf1\trowd\clmgf\cellx1\clmrg\cellx2\cellx3 a\cell\cell c\cell\row )"
                            R"(a2\cell m\cell c2\cell\row})")),
              (Strings{"a", "c", "a2", "m", "c2"}));
    // Nested tables: their cells are paragraphs too, the fallback text for old readers is not read, and
    // text that a writer put into the nested row's properties is kept.
    EXPECT_EQ(PlainText(R"({\rtf1 x\nestcell{\*\nesttableprops\trowd\cellx5 y\nestcell\nestrow})"
                        R"({\nonesttables\par}z\cell\row})"),
              "x\ny\nz");
}

TEST(RtfReaderInput, TextThatIsNoRtfIsPlainText) {
    const auto document = ReadRtf("Zeile 1\r\nZeile \xe4\n\nEnde");
    EXPECT_EQ(Texts(document), (Strings{"Zeile 1", "Zeile ä", "", "Ende"}));
    EXPECT_EQ(document.paragraphs.back().end, ParagraphBreak::None);
    EXPECT_TRUE(ReadRtf("").paragraphs.empty());
    EXPECT_FALSE(rtf::IsRtf("{\\rt"));
}

TEST(RtfReaderMalformed, TruncatedOrUnbalancedInputKeepsWhatWasRead) {
    EXPECT_EQ(Effects(ReadRtf(R"({\rtf1 a{\b b)")), "|b|");
    EXPECT_EQ(PlainText(R"({\rtf1 a\par b\)"), "a\nb");
    EXPECT_EQ(PlainText(R"({\rtf1 a\'4)"), "a4");
    EXPECT_EQ(PlainText(R"({\rtf1 a\'zzb})"), "azzb");
    EXPECT_EQ(PlainText(R"({\rtf1 a\u)"), "a");
    EXPECT_EQ(PlainText(R"({\rtf1 a\uc1\u65)"), "aA");
    EXPECT_EQ(PlainText(R"({\rtf1{\fonttbl{\f0 Ari)"), "");
    // Text after the outermost group has closed is not part of the note.
    EXPECT_EQ(PlainText(R"({\rtf1 a}}b})"), "a");
    EXPECT_EQ(PlainText(R"({\rtf1 a{{{b})"), "ab");
}

TEST(RtfReaderMalformed, AnUnclosedFontTableEndsAtTheFirstParagraphWord) {
    const auto document = ReadRtf(R"({\rtf1{\fonttbl{\f0\fnil Verdana;} \pard\f0 5% Rabatt\par })");
    EXPECT_EQ(Texts(document), (Strings{"5% Rabatt"}));
    EXPECT_EQ(document.paragraphs[0].runs.at(0).format.face, "Verdana");
}

TEST(RtfReaderMalformed, AbsurdNumbers) {
    EXPECT_EQ(PlainText(R"({\rtf1 \u99999999?x})"), "\xEF\xBF\xBD"
                                                    "x");
    EXPECT_EQ(PlainText(R"({\rtf1 a\bin99999999999 b})"), "a");
    EXPECT_EQ(PlainText(R"({\rtf1 \uc99999999 \u65 bcdefg{x}})"), "Ax");
    EXPECT_EQ(PlainText(R"({\rtf1{\fonttbl{\f-5 A;}}\f-5 x\cf-3 y\f99999999999 z})"), "xyz");
}

TEST(RtfReaderMalformed, DeepNestingCostsNoStack) {
    const size_t depth = 200000;
    std::string rtf = "{\\rtf1 a";
    rtf += std::string(depth, '{') + "\\b x" + std::string(depth, '}') + "y}";
    const auto document = ReadRtf(rtf);
    EXPECT_EQ(Texts(document), (Strings{"axy"}));
    EXPECT_EQ(Effects(document), "|b||"); // the deep groups have all closed again
    EXPECT_EQ(PlainText(rtf), "axy");
    EXPECT_EQ(PlainText("{\\rtf1 " + std::string(depth, '{')), "");
}

TEST(RtfReaderPlainText, EqualsTheJoinedParagraphs) {
    for (const char* rtf : {R"({\rtf1 a\par b\line c\tab d\par\par})", R"({\rtf1 a\par})", R"({\rtf1 \par})",
                            R"({\rtf1 x\page y\sect z})", R"({\rtf1\trowd\cellx1 a\cell\row b})",
                            "plain\r\ntext\n", "Zeile 1\r\nZeile \xe4\n\nEnde",
                            R"({\rtf1\ansicpg932 a\par\'82})", R"({\rtf1\ansicpg932 a\par\'82\page b})"})
        EXPECT_EQ(PlainText(rtf), rtftest::Joined(ReadRtf(rtf))) << rtf;
}

} // namespace

} // namespace velto
