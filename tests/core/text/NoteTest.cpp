// The note rules that need no widget: the default note of a new node, the size step of "Text größer" /
// "Text kleiner", the hyperlink brackets, what a link target names and whether it opens without a
// question, and the plain-text cache.
#include "text/DefaultNote.h"
#include "text/Hyperlink.h"
#include "text/NoteFormat.h"
#include "text/NoteLink.h"
#include "text/RtfReader.h"

#include "core/text/RtfTestSupport.h"

#include <gtest/gtest.h>
#include <limits>

namespace velto {

using rtf::LinkKind;
using rtf::LinkRange;

TEST(DefaultNote, OneEmptyParagraphInTheConfiguredFaceAndSize) {
    for (int points : {6, 12, 100}) {
        rtf::Document expected;
        expected.paragraphs.emplace_back().mark = rtftest::Format("Arial", points * 2);
        EXPECT_EQ(rtf::ReadRtf(MakeDefaultNote("Arial", points)), expected) << points;
    }
    // The face name is Windows-1252 like every setting; the note comes from the writer, without the
    // template's unused fonts.
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
    EXPECT_EQ(std::tuple(file.folder, file.file), std::tuple("C:\\Daten\\", "Plan.doc"));
    const auto web = rtf::SplitLinkTarget(std::string_view("http://www.example.com/a/b"));
    EXPECT_EQ(std::tuple(web.folder, web.file), std::tuple("", "http://www.example.com/a/b"));
    const auto share = rtf::SplitLinkTarget(std::u16string_view(u"\\\\server\\share\\"));
    EXPECT_EQ(std::tuple(share.folder, share.file), std::tuple(u"\\\\server\\share\\", u""));
}

TEST(NoteSize, StepsInWholePointsWithoutBoundsAndSaturatesAtTheEndsOfInt) {
    EXPECT_EQ(rtf::StepSize(20, 2), 24) << "10 pt gives 12 pt";
    EXPECT_EQ(rtf::StepSize(2, -2), -2) << "1 pt gives -1 pt: no lower bound";
    EXPECT_EQ(rtf::StepSize(-2, -2), -6);
    EXPECT_EQ(rtf::StepSize(21, 2), 24) << "the half point of 10.5 pt is dropped";
    EXPECT_EQ(rtf::StepSize(21, -2), 16);
    EXPECT_EQ(rtf::StepSize(-3, -2), -6) << "dropped towards zero, as integer division drops it";
    EXPECT_EQ(rtf::StepSize(3, -2), -2);
    constexpr int kMax = std::numeric_limits<int>::max();
    EXPECT_EQ(rtf::StepSize(kMax, 2), kMax);
    EXPECT_EQ(rtf::StepSize(std::numeric_limits<int>::min(), -2), std::numeric_limits<int>::min());
    EXPECT_EQ(rtf::StepSize(kMax, -2), kMax - 1 - 4) << "away from the end it steps normally";
}

struct TargetCase {
    const char* target;
    LinkKind kind;
};

void ExpectKinds(std::initializer_list<TargetCase> cases) {
    for (const TargetCase& c : cases)
        EXPECT_EQ(rtf::KindOfLinkTarget(c.target), c.kind) << c.target;
}

TEST(NoteLinkTarget, OnlyWebMailAndDocumentsOpenUnasked) {
    ExpectKinds({{"http://www.example.com/a/b", LinkKind::WebAddress},
                 {"HTTPS://example.com/setup.exe", LinkKind::WebAddress}, // the browser decides
                 {"mailto:anna@example.com", LinkKind::WebAddress},
                 {"WWW.Example.com", LinkKind::WebAddress},
                 {"wwwx.de", LinkKind::Document},
                 {"search-ms:query=Rechnung&crumb=location:\\\\server\\x", LinkKind::OtherScheme},
                 {"ms-msdt:/id PCWDiagnostic", LinkKind::OtherScheme},
                 {"javascript:alert(1)", LinkKind::OtherScheme},
                 {"Plan:v2.txt", LinkKind::OtherScheme},
                 // A drive letter is no scheme; neither is a colon after a blank or a digit first.
                 {"C:\\Daten\\Plan.doc", LinkKind::Document},
                 {"1ab:x", LinkKind::Program},   // a data stream on Windows
                 {"http:", LinkKind::Program}}); // a scheme needs something after it
    EXPECT_TRUE(rtf::OpensUnasked(LinkKind::WebAddress));
    EXPECT_TRUE(rtf::OpensUnasked(LinkKind::Document));
    for (LinkKind kind : {LinkKind::OtherScheme, LinkKind::NetworkPath, LinkKind::Program})
        EXPECT_FALSE(rtf::OpensUnasked(kind));

    EXPECT_EQ(rtf::WebAddressOf("www.example.com/x"), "http://www.example.com/x");
    EXPECT_EQ(rtf::WebAddressOf("https://www.example.com"), "https://www.example.com");
}

TEST(NoteLinkTarget, NetworkPathsWithEitherSeparatorOrAsFileUrl) {
    ExpectKinds({{"\\\\server\\share\\Plan.doc", LinkKind::NetworkPath},
                 {"//server/share/Plan.doc", LinkKind::NetworkPath},
                 {"\\/server\\share", LinkKind::NetworkPath},
                 {"file://server/share/Plan.doc", LinkKind::NetworkPath},
                 {"file:////server/share/Plan.doc", LinkKind::NetworkPath},
                 {"file:%2F%2Fserver/share/Plan.doc", LinkKind::NetworkPath},
                 {"file://localhost/C:/Daten/Plan.doc", LinkKind::Document},
                 {"/home/anna/Plan.odt", LinkKind::Document}});
}

TEST(NoteLinkTarget, ProgramsByTheNameTheSystemOpens) {
    ExpectKinds({{"setup.exe", LinkKind::Program},
                 {"C:\\Tools\\RUN.BaT", LinkKind::Program},
                 {"tool.exe . .", LinkKind::Program},
                 {"C:\\x\\tool.exe\\.", LinkKind::Program},
                 {"C:tool.exe", LinkKind::Program},
                 {"C:\\x\\x.exe::$DATA", LinkKind::Program},
                 {"C:\\x\\Plan.txt:versteckt", LinkKind::Program}, // a named stream may hold anything
                 {"C:\\x\\Plan.txt::$data", LinkKind::Document},
                 {"x.exe::$DATA", LinkKind::OtherScheme}, // read as a scheme: asked either way
                 {"C:\\x\\tool.exe\\..\\Plan.pdf", LinkKind::Document},
                 {"C:\\Daten.exe\\Plan", LinkKind::Document},
                 {"file:///C:/x/tool.exe", LinkKind::Program},
                 {"file:///C:/x/tool%2EEXE", LinkKind::Program},
                 {"file:///x/tool.exe?a=Plan.txt", LinkKind::Program},
                 {"file:///home/anna/Plan.odt", LinkKind::Document}});
    for (const char* name : {"install.sh", "tool.AppImage", "app.desktop", "skript.py", "Verknüpfung.lnk",
                             "seite.URL", "paket.msi", "abbild.iso", "platte.vhdx", "paket.msix", "an.hta"})
        EXPECT_TRUE(rtf::IsProgramName(name)) << name;
    for (const char* name : {"Plan.doc", "/home/sh/Bericht.odt", "exe", "Notiz.", "archiv.tar.gz", ""})
        EXPECT_FALSE(rtf::IsProgramName(name)) << name;
}

TEST(NoteLinkTarget, LocalPathOfAFileUrl) {
    EXPECT_EQ(rtf::LocalPathOf("file:///home/anna/Plan%20neu.odt"), "/home/anna/Plan neu.odt");
    EXPECT_EQ(rtf::LocalPathOf("FILE:///C:/Daten/Plan.doc#x"), "C:/Daten/Plan.doc");
    EXPECT_EQ(rtf::LocalPathOf("file://server/share/a%zz"), "//server/share/a%zz");
    EXPECT_EQ(rtf::LocalPathOf("Anhang\\Plan%41.txt"), "Anhang\\Plan%41.txt") << "a path stays as written";
}

} // namespace velto
