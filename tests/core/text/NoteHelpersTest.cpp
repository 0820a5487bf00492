// The helpers around notes: the default note of a new node, the hyperlink brackets, the plain-text
// cache and the velto-cli commands.
#include "text/DefaultNote.h"
#include "text/Hyperlink.h"
#include "text/PlainTextCache.h"
#include "text/RtfReader.h"
#include "text/RtfWriter.h"

#include "core/text/RtfTestSupport.h"

#include <gtest/gtest.h>

namespace velto {

using rtf::LinkRange;

TEST(DefaultNote, TemplateCarriesTheFaceName) {
    const std::string note = DefaultNoteTemplate("Arial");
    EXPECT_NE(
        note.find("{\\f2\\fswiss Arial;}}\n{\\colortbl\\red0\\green0\\blue0;}\n\\deflang1031\\pard\\plain"
                  "\\f2\\fs17\\par }"),
        std::string::npos);
}

TEST(DefaultNote, OneEmptyParagraphInTheConfiguredFaceAndSize) {
    for (int points : {6, 12, 100}) {
        const std::string note = MakeDefaultNote("Arial", points);
        EXPECT_EQ(note.rfind("{\\rtf1\\ansi\\ansicpg1252\\deff0\\deflang1031{\\fonttbl", 0), 0u);
        const rtf::Document document = rtf::ReadRtf(note);
        ASSERT_EQ(document.paragraphs.size(), 1u);
        EXPECT_TRUE(document.paragraphs[0].runs.empty());
        EXPECT_EQ(document.paragraphs[0].end, rtf::ParagraphBreak::Paragraph);
        EXPECT_EQ(document.paragraphs[0].mark, rtftest::Format("Arial", points * 2));
        EXPECT_EQ(rtf::PlainText(note), "");
    }
    // The face name is Windows-1252 like every setting; the unused template fonts are gone.
    const std::string note = MakeDefaultNote("Schrift \xC4", 10);
    EXPECT_EQ(rtf::ReadRtf(note).paragraphs.at(0).mark.face, "Schrift Ä");
    EXPECT_EQ(note.find("Symbol"), std::string::npos);
}

TEST(Hyperlink, DoubleClickInsideBrackets) {
    const std::u16string_view text = u"Siehe [C:\\Daten\\Plan.doc] und [www.example.com].";
    // A word inside the first link, the whole second link, and a caret inside it.
    EXPECT_EQ(rtf::FindLinkAround(text, 10, 15), (LinkRange{7, 24}));
    EXPECT_EQ(rtf::FindLinkAround(text, 30, 47), (LinkRange{31, 46}));
    EXPECT_EQ(rtf::FindLinkAround(text, 35, 35), (LinkRange{31, 46}));
    // Outside the brackets, between two links, nothing.
    EXPECT_EQ(rtf::FindLinkAround(text, 0, 5), std::nullopt);
    EXPECT_EQ(rtf::FindLinkAround(text, 26, 29), std::nullopt);
    EXPECT_EQ(rtf::FindLinkAround(text, 47, 48), std::nullopt);
    // A bracket that never closes on its line is no link.
    EXPECT_EQ(rtf::FindLinkAround(std::u16string_view(u"[abc\u2029def]"), 1, 2), std::nullopt);
    EXPECT_EQ(rtf::FindLinkAround(std::string_view("[abc\ndef]"), 6, 7), std::nullopt);
    // Out-of-range positions are clamped.
    EXPECT_EQ(rtf::FindLinkAround(std::string_view("[ab]"), 9, 3), std::nullopt);
    EXPECT_EQ(rtf::FindLinkAround(std::string_view("[ab]"), 1, 99), (LinkRange{1, 3}));
}

TEST(Hyperlink, TypedClosingBracket) {
    const std::string_view text = "Pfad [C:\\a.doc] und [x] y]";
    EXPECT_EQ(rtf::FindLinkClosedAt(text, 15), (LinkRange{6, 14}));
    EXPECT_EQ(rtf::FindLinkClosedAt(text, 23), (LinkRange{21, 22}));
    EXPECT_EQ(rtf::FindLinkClosedAt(text, 14), std::nullopt); // no ']' before the caret
    EXPECT_EQ(rtf::FindLinkClosedAt(text, 26), std::nullopt); // the nearest bracket back is a ']'
    EXPECT_EQ(rtf::FindLinkClosedAt(std::string_view("a[]"), 3), std::nullopt);
    EXPECT_EQ(rtf::FindLinkClosedAt(std::string_view("]"), 1), std::nullopt);
    EXPECT_EQ(rtf::FindLinkClosedAt(std::string_view("x"), 0), std::nullopt);
    EXPECT_EQ(rtf::FindLinkClosedAt(std::string_view("[a]"), 7), std::nullopt);
}

TEST(Hyperlink, TargetSplitsAtTheLastBackslash) {
    const auto file = rtf::SplitLinkTarget(std::string_view("C:\\Daten\\Plan.doc"));
    EXPECT_EQ(file.folder, "C:\\Daten\\");
    EXPECT_EQ(file.file, "Plan.doc");
    const auto web = rtf::SplitLinkTarget(std::string_view("http://www.example.com/a/b"));
    EXPECT_EQ(web.folder, "");
    EXPECT_EQ(web.file, "http://www.example.com/a/b");
    const auto share = rtf::SplitLinkTarget(std::u16string_view(u"\\\\server\\share\\"));
    EXPECT_EQ(share.folder, u"\\\\server\\share\\");
    EXPECT_EQ(share.file, u"");
}

TEST(PlainTextCache, ParsesEachNoteOnceAndStaysBounded) {
    rtf::PlainTextCache cache(2);
    const std::string a = R"({\rtf1 Alpha\par Beta})";
    const std::string b = R"({\rtf1 Gamma})";
    EXPECT_EQ(cache.Get(a), "Alpha\nBeta");
    EXPECT_EQ(cache.Get(a), "Alpha\nBeta");
    EXPECT_EQ(cache.Size(), 1u);
    EXPECT_EQ(cache.Get(b), "Gamma");
    // A changed note is a new key, even with the same length.
    EXPECT_EQ(cache.Get(R"({\rtf1 Gammb})"), "Gammb");
    EXPECT_LE(cache.Size(), 2u);
    EXPECT_EQ(cache.Get(a), "Alpha\nBeta");
    EXPECT_EQ(cache.Get(b), "Gamma");
    cache.Clear();
    EXPECT_EQ(cache.Size(), 0u);
}

} // namespace velto
