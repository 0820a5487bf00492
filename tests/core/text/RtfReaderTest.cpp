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

const rtf::Run& OnlyRun(const rtf::Document& document) {
    EXPECT_EQ(document.paragraphs.size(), 1u);
    EXPECT_EQ(document.paragraphs.at(0).runs.size(), 1u);
    return document.paragraphs.at(0).runs.at(0);
}

} // namespace

TEST(RtfReaderStructure, ParagraphsAndHowTheyEnd) {
    const auto open = ReadRtf(R"({\rtf1 Hello})");
    ASSERT_EQ(open.paragraphs.size(), 1u);
    EXPECT_EQ(open.paragraphs[0].end, ParagraphBreak::None);
    EXPECT_EQ(OnlyRun(open).text, "Hello");

    const auto closed = ReadRtf(R"({\rtf1 a\par b\par})");
    EXPECT_EQ(Texts(closed), (std::vector<std::string>{"a", "b"}));
    EXPECT_EQ(closed.paragraphs[1].end, ParagraphBreak::Paragraph);

    // Empty paragraphs count; formatting after the last mark makes no paragraph.
    EXPECT_EQ(Texts(ReadRtf(R"({\rtf1 a\par\par\b })")), (std::vector<std::string>{"a", ""}));
    EXPECT_TRUE(ReadRtf(R"({\rtf1 })").paragraphs.empty());
    // A backslash before a line end is a paragraph mark.
    EXPECT_EQ(Texts(ReadRtf("{\\rtf1 a\\\r\nb}")), (std::vector<std::string>{"a", "b"}));
}

TEST(RtfReaderStructure, LineEndsInTheFileAreNoText) {
    EXPECT_EQ(PlainText("{\\rtf1 a\r\nb\nc\rd}"), "abcd");
    // NUL padding behind the document is ignored.
    EXPECT_EQ(PlainText(std::string("{\\rtf1 x}\0\0", 11)), "x");
}

TEST(RtfReaderStructure, LineBreaksAndTabsStayInsideTheParagraph) {
    const auto document = ReadRtf(R"({\rtf1 a\line b\tab c})");
    EXPECT_EQ(OnlyRun(document).text, "a\xE2\x80\xA8"
                                      "b\tc");
    EXPECT_EQ(PlainText(R"({\rtf1 a\line b\tab c})"), "a\nb\tc");
}

TEST(RtfReaderStructure, PageAndSectionBreaks) {
    const auto inside = ReadRtf(R"({\rtf1 a\page b})");
    EXPECT_EQ(Texts(inside), (std::vector<std::string>{"a", "b"}));
    EXPECT_EQ(inside.paragraphs[0].end, ParagraphBreak::Page);
    // At the start of a paragraph the break belongs to the one before: no empty paragraph appears.
    const auto atStart = ReadRtf(R"({\rtf1 a\par\page b})");
    EXPECT_EQ(Texts(atStart), (std::vector<std::string>{"a", "b"}));
    EXPECT_EQ(atStart.paragraphs[0].end, ParagraphBreak::Page);
    EXPECT_EQ(Texts(ReadRtf(R"({\rtf1 a\sect b})")), (std::vector<std::string>{"a", "b"}));
}

TEST(RtfReaderFormat, GroupsScopeCharacterFormat) {
    const auto document = ReadRtf(R"({\rtf1 a{\b b{\i c}d}e})");
    const auto& runs = document.paragraphs.at(0).runs;
    ASSERT_EQ(runs.size(), 5u);
    EXPECT_FALSE(runs[0].format.bold);
    EXPECT_TRUE(runs[1].format.bold);
    EXPECT_TRUE(runs[2].format.bold && runs[2].format.italic);
    EXPECT_TRUE(runs[3].format.bold && !runs[3].format.italic);
    EXPECT_EQ(runs[4].format, runs[0].format);
}

TEST(RtfReaderFormat, EffectsSwitchOnAndOff) {
    const auto document =
        ReadRtf(R"({\rtf1\b\i\ul\strike on\b0\i0\ulnone\strike0 off\ul1\striked1 x\ul0 y})");
    const auto& runs = document.paragraphs.at(0).runs;
    ASSERT_EQ(runs.size(), 4u);
    EXPECT_TRUE(runs[0].format.bold && runs[0].format.italic && runs[0].format.underline &&
                runs[0].format.strikeOut);
    EXPECT_EQ(runs[1].format, rtf::CharFormat());
    EXPECT_TRUE(runs[2].format.underline && runs[2].format.strikeOut);
    EXPECT_TRUE(!runs[3].format.underline && runs[3].format.strikeOut);
    // Any kind of underline is an underline.
    EXPECT_TRUE(OnlyRun(ReadRtf(R"({\rtf1\uldb x})")).format.underline);
    EXPECT_TRUE(OnlyRun(ReadRtf(R"({\rtf1\ulwave x})")).format.underline);
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
    // The old form without a group per font.
    EXPECT_EQ(OnlyRun(ReadRtf(R"({\rtf1{\fonttbl\f0 Arial;\f1 Courier;}\f1 x})")).format.face, "Courier");
    // No font table at all.
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
    EXPECT_EQ(runs[0].format.colour, rtf::MakeColour(255, 0, 0));
    EXPECT_EQ(runs[0].format.colour, 0x0000FFu); // red in the low byte
    EXPECT_EQ(runs[1].format.colour, 0xFF0000u);
    // Entry 0 without components and numbers beyond the table are the automatic colour.
    EXPECT_EQ(runs[2].format.colour, std::nullopt);
    EXPECT_EQ(runs[2].text, "az");
    // An entry 0 with components is a real colour; components beyond 255 are cut.
    EXPECT_EQ(OnlyRun(ReadRtf(R"({\rtf1{\colortbl\red0\green0\blue0;}\cf0 x})")).format.colour, 0u);
    EXPECT_EQ(OnlyRun(ReadRtf(R"({\rtf1{\colortbl;\red999\green-4\blue7;}\cf1 x})")).format.colour,
              rtf::MakeColour(255, 0, 7));
}

TEST(RtfReaderFormat, SizesInHalfPoints) {
    EXPECT_EQ(OnlyRun(ReadRtf(R"({\rtf1 x})")).format.halfPoints, 24);
    EXPECT_EQ(OnlyRun(ReadRtf(R"({\rtf1\fs17 x})")).format.halfPoints, 17);
    // The size buttons have no lower bound, so a negative size is kept.
    EXPECT_EQ(OnlyRun(ReadRtf(R"({\rtf1\fs-4 x})")).format.halfPoints, -4);
    EXPECT_EQ(OnlyRun(ReadRtf(R"({\rtf1\fs40\fs x})")).format.halfPoints, 24);
}

TEST(RtfReaderFormat, AlignmentIsTheParagraphsStateAtItsMark) {
    const auto document = ReadRtf(R"({\rtf1\qc a\par b\qr\par\pard c\par\qj d\par{\qc e\par}f\qd\par})");
    ASSERT_EQ(document.paragraphs.size(), 6u);
    EXPECT_EQ(document.paragraphs[0].alignment, Alignment::Centre);
    EXPECT_EQ(document.paragraphs[1].alignment, Alignment::Right);
    EXPECT_EQ(document.paragraphs[2].alignment, Alignment::Left);
    EXPECT_EQ(document.paragraphs[3].alignment, Alignment::Justified);
    EXPECT_EQ(document.paragraphs[4].alignment, Alignment::Centre);
    EXPECT_EQ(document.paragraphs[5].alignment, Alignment::Justified);
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
    EXPECT_EQ(PlainText(R"({\rtf1\ansi \'e4\'80\'9c})"), "ä€œ");
    EXPECT_EQ(PlainText("{\\rtf1\\ansi \xe4}"), "ä"); // unescaped 8-bit text too
    EXPECT_EQ(PlainText(R"({\rtf1\ansi\ansicpg1251 \'e4\'c0})"), "дА");
    EXPECT_EQ(PlainText(R"({\rtf1\ansi\ansicpg1250 \'b9\'e8})"), "ąč");
    EXPECT_EQ(PlainText(R"({\rtf1\mac \'8a})"), "ä");
    // A font's character set overrides the document's code page, only while that font is in use.
    EXPECT_EQ(PlainText(R"({\rtf1\ansi{\fonttbl{\f0 A;}{\f1\fcharset204 B;}{\f2\fcharset238 C;}})"
                        R"(\'e4\f1\'e4\f2\'e4{\f1\'e4}\'e4})"),
              "äдäдä");
    EXPECT_EQ(PlainText(R"({\rtf1{\fonttbl{\f0\cpg1251 A;}}\'e4})"), "д");
    // An unknown code page reads as Windows-1252.
    EXPECT_EQ(PlainText(R"({\rtf1\ansicpg0 \'e4})"), "ä");
    EXPECT_EQ(PlainText(R"({\rtf1\ansicpg4711 \'e4})"), "ä");
}

TEST(RtfReaderCharacters, DoubleByteCodePages) {
    EXPECT_EQ(PlainText(R"({\rtf1\ansicpg932 \'82\'a0})"), "あ");
    EXPECT_EQ(PlainText(R"({\rtf1\ansicpg932 \'83e\'b1})"), "テｱ"); // literal trail byte, half-width kana
    EXPECT_EQ(PlainText(R"({\rtf1{\fonttbl{\f0\fcharset134 SimSun;}}\f0\'c4\'e3 a})"), "你 a");
    EXPECT_EQ(PlainText(R"({\rtf1\ansicpg949 \'b0\'a1})"), "가");
    EXPECT_EQ(PlainText(R"({\rtf1\ansicpg950 \'a4\'40})"), "一");
    // A lead byte whose trail is cut off by the group's end is dropped rather than joined with the
    // next group's text.
    EXPECT_EQ(PlainText(R"({\rtf1\ansicpg932 {\'82}a})"), "a");
    // A pair the page leaves unassigned.
    EXPECT_EQ(PlainText(R"({\rtf1\ansicpg932 \'85\'40})"), "\xEF\xBF\xBD");
}

TEST(RtfReaderCharacters, SymbolFontsKeepTheirGlyphNumbers) {
    EXPECT_EQ(PlainText(R"({\rtf1{\fonttbl{\f0 Arial;}{\f1\fcharset2 Symbol;}}a\f1 a\'b7})"),
              "a\xEF\x81\xA1\xEF\x82\xB7"); // U+F061 U+F0B7
}

TEST(RtfReaderCharacters, UnicodeWithFallback) {
    EXPECT_EQ(PlainText(R"({\rtf1 \u8364?x})"), "€x");
    EXPECT_EQ(PlainText(R"({\rtf1 \u8364 ?x})"), "€x"); // the blank is the word's delimiter
    EXPECT_EQ(PlainText(R"({\rtf1\uc0 \u8364 x})"), "€x");
    EXPECT_EQ(PlainText(R"({\rtf1\uc2 \u8364\'80\'80x})"), "€x");
    EXPECT_EQ(PlainText(R"({\rtf1\uc2 \u8364 ab x})"), "€ x");
    // The fallback ends with the group, and \uc is scoped to its group.
    EXPECT_EQ(PlainText(R"({\rtf1 {\u8364}x})"), "€x");
    EXPECT_EQ(PlainText(R"({\rtf1 {\uc2 \u8364??}\u8364?x})"), "€€x");
    // A control word counts as one fallback character.
    EXPECT_EQ(PlainText(R"({\rtf1 \u8364\tab x})"), "€x");
    // Negative numbers are the upper half of the 16-bit range.
    EXPECT_EQ(PlainText(R"({\rtf1 \u-3913?})"), "\xEF\x82\xB7"); // U+F0B7
    // Surrogate pairs become one character; a lone half is replaced.
    EXPECT_EQ(PlainText(R"({\rtf1 \u-10179?\u-8704?})"), "😀");
    EXPECT_EQ(PlainText(R"({\rtf1 \u-8704?a})"), "\xEF\xBF\xBD"
                                                 "a");
    EXPECT_EQ(PlainText(R"({\rtf1 \u-10179?a})"), "a");
}

TEST(RtfReaderCharacters, ControlSymbolsAndNamedCharacters) {
    EXPECT_EQ(PlainText(R"({\rtf1 a\~b\-c\_d\{\}\\})"), "a\u00A0b\u00ADc\u2011d{}\\");
    EXPECT_EQ(PlainText(R"({\rtf1 \lquote\rquote\ldblquote\rdblquote\bullet\endash\emdash})"), "‘’“”•–—");
    EXPECT_EQ(PlainText(R"({\rtf1 a\:b\|c})"), "abc");
}

TEST(RtfReaderCharacters, UnknownControlWordsAreIgnored) {
    EXPECT_EQ(PlainText(R"({\rtf1 a\foo b\bar12 c\baz-3 d\qux-e})"), "abcd-e");
    // A word of more than 32 letters is no known word, even when it begins like one.
    EXPECT_EQ(PlainText(R"({\rtf1 a\parxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxx b})"), "ab");
}

TEST(RtfReaderDestinations, SkippedGroups) {
    EXPECT_EQ(PlainText(R"({\rtf1 a{\*\unknown x{y}}b})"), "ab");
    EXPECT_EQ(PlainText(R"({\rtf1{\info{\title T}{\author A}}{\stylesheet{\s1 Normal;}}a})"), "a");
    EXPECT_EQ(PlainText(R"({\rtf1 a{\pict\wmetafile8 0a0b{\*\blipuid 12}}b})"), "ab");
    EXPECT_EQ(PlainText(R"({\rtf1{\header H}{\footer F}a{\footnote N}b{\*\annotation C}})"), "ab");
    EXPECT_EQ(PlainText(R"({\rtf1 a{\object{\*\objdata 0102}{\result R}}b})"), "ab");
    // List labels are regenerated by the rich-edit control and are no text.
    EXPECT_EQ(PlainText(R"({\rtf1{\pntext\f1\'b7\tab}{\*\pn\pnlvlblt{\pntxtb\'b7}}Item})"), "Item");
    EXPECT_EQ(PlainText(R"({\rtf1{\listtext 1.\tab}Item})"), "Item");
    // Braces escaped inside a skipped group do not end it.
    EXPECT_EQ(PlainText(R"({\rtf1 a{\*\x \} \{ \\}b})"), "ab");
}

TEST(RtfReaderDestinations, BinaryDataIsSkippedByItsLength) {
    EXPECT_EQ(PlainText(R"({\rtf1 a{\pict\bin4 }}{}}b})"), "ab");
    EXPECT_EQ(PlainText(R"({\rtf1 a\bin3 }}}b})"), "ab");
    EXPECT_EQ(PlainText(R"({\rtf1 a\uc1\u8364\bin2 xyb})"), "a€b"); // data and all: one fallback character
    EXPECT_EQ(PlainText(R"({\rtf1 a\bin-5 b})"), "ab");
}

TEST(RtfReaderDestinations, FieldsShowTheirResult) {
    EXPECT_EQ(PlainText(R"({\rtf1 see {\field{\*\fldinst HYPERLINK "http://x"}{\fldrslt here}}.})"),
              "see here.");
    EXPECT_EQ(PlainText(R"({\rtf1{\field{\fldinst PAGE}{\fldrslt 3}}})"), "3");
}

TEST(RtfReaderDestinations, UnicodePairsUseTheirUnicodeHalf) {
    EXPECT_EQ(PlainText(R"({\rtf1 "{\upr{[G]}{\*\ud{[\uc0\u915]}}}"})"), "\"[Γ]\"");
}

TEST(RtfReaderTables, EachCellIsAParagraph) {
    EXPECT_EQ(Texts(ReadRtf(R"({\rtf1\trowd\cellx100\cellx200 a\intbl\cell b\cell\row after\par})")),
              (std::vector<std::string>{"a", "b", "after"}));
    // Cells merged into the one before add no empty paragraph; a merged cell with text keeps it.
    EXPECT_EQ(Texts(ReadRtf(R"({\rtf1\trowd\clmgf\cellx1\clmrg\cellx2\cellx3 a\cell\cell c\cell\row )"
                            R"(a2\cell m\cell c2\cell\row})")),
              (std::vector<std::string>{"a", "c", "a2", "m", "c2"}));
    // Nested tables: their cells are paragraphs too, the fallback text for old readers is not read, and
    // text that a writer put into the nested row's properties is kept.
    EXPECT_EQ(PlainText(R"({\rtf1 x\nestcell{\*\nesttableprops\trowd\cellx5 y\nestcell\nestrow})"
                        R"({\nonesttables\par}z\cell\row})"),
              "x\ny\nz");
}

TEST(RtfReaderInput, TextThatIsNoRtfIsPlainText) {
    const auto document = ReadRtf("Zeile 1\r\nZeile \xe4\n\nEnde");
    EXPECT_EQ(Texts(document), (std::vector<std::string>{"Zeile 1", "Zeile ä", "", "Ende"}));
    EXPECT_EQ(document.paragraphs.back().end, ParagraphBreak::None);
    EXPECT_EQ(PlainText("Zeile 1\r\nZeile \xe4\n\nEnde"), "Zeile 1\nZeile ä\n\nEnde");
    EXPECT_EQ(PlainText("a\n"), "a");
    EXPECT_TRUE(ReadRtf("").paragraphs.empty());
    EXPECT_FALSE(rtf::IsRtf("{\\rt"));
}

TEST(RtfReaderMalformed, TruncationKeepsWhatWasRead) {
    const auto document = ReadRtf(R"({\rtf1 a{\b b)");
    ASSERT_EQ(document.paragraphs.size(), 1u);
    ASSERT_EQ(document.paragraphs[0].runs.size(), 2u);
    EXPECT_TRUE(document.paragraphs[0].runs[1].format.bold);
    EXPECT_EQ(PlainText(R"({\rtf1 a\par b\)"), "a\nb");
    EXPECT_EQ(PlainText(R"({\rtf1 a\'4)"), "a4");
    EXPECT_EQ(PlainText(R"({\rtf1 a\'zzb})"), "azzb");
    EXPECT_EQ(PlainText(R"({\rtf1 a\u)"), "a");
    EXPECT_EQ(PlainText(R"({\rtf1 a\uc1\u65)"), "aA");
    EXPECT_EQ(PlainText(R"({\rtf1{\fonttbl{\f0 Ari)"), "");
}

TEST(RtfReaderMalformed, AnUnclosedFontTableEndsAtTheFirstParagraphWord) {
    const auto document = ReadRtf(R"({\rtf1{\fonttbl{\f0\fnil Verdana;} \pard\f0 5% Rabatt\par })");
    EXPECT_EQ(Texts(document), (std::vector<std::string>{"5% Rabatt"}));
    EXPECT_EQ(document.paragraphs[0].runs.at(0).format.face, "Verdana");
}

TEST(RtfReaderMalformed, UnbalancedBraces) {
    // Text after the outermost group has closed is not part of the note.
    EXPECT_EQ(PlainText(R"({\rtf1 a}}b})"), "a");
    EXPECT_EQ(PlainText(R"({\rtf1 a{{{b})"), "ab");
}

TEST(RtfReaderMalformed, AbsurdNumbers) {
    EXPECT_EQ(OnlyRun(ReadRtf(R"({\rtf1\fs99999999999999999999 x})")).format.halfPoints, INT_MAX);
    EXPECT_EQ(OnlyRun(ReadRtf(R"({\rtf1\fs-99999999999999999999 x})")).format.halfPoints, -INT_MAX);
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
    EXPECT_EQ(Texts(document), (std::vector<std::string>{"axy"}));
    const auto& runs = document.paragraphs.at(0).runs;
    ASSERT_EQ(runs.size(), 3u);
    EXPECT_TRUE(runs[1].format.bold);
    EXPECT_FALSE(runs[2].format.bold); // the deep groups have all closed again
    EXPECT_EQ(PlainText(rtf), "axy");
    EXPECT_EQ(PlainText("{\\rtf1 " + std::string(depth, '{')), "");
}

TEST(RtfReaderPlainText, EqualsTheJoinedParagraphs) {
    for (const char* rtf :
         {R"({\rtf1 a\par b\line c\tab d\par\par})", R"({\rtf1 a\par})", R"({\rtf1 \par})",
          R"({\rtf1 x\page y\sect z})", R"({\rtf1\trowd\cellx1 a\cell\row b})", "plain\r\ntext\n",
          R"({\rtf1\ansicpg932 a\par\'82})", R"({\rtf1\ansicpg932 a\par\'82\page b})"}) {
        EXPECT_EQ(PlainText(rtf), rtftest::Joined(ReadRtf(rtf))) << rtf;
    }
}

} // namespace velto
