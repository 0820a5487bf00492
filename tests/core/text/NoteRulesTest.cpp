// The note pane's rules that need no widget: the size step of "Text größer" / "Text kleiner" and
// what a hyperlink target names and whether it opens without a question.
#include "text/NoteFormat.h"
#include "text/NoteLink.h"

#include <gtest/gtest.h>

#include <limits>

namespace velto {

using rtf::LinkKind;

TEST(NoteSize, StepsInWholePointsWithoutBounds) {
    EXPECT_EQ(rtf::StepSize(20, 2), 24) << "10 pt gives 12 pt";
    EXPECT_EQ(rtf::StepSize(2, -2), -2) << "1 pt gives -1 pt: no lower bound";
    EXPECT_EQ(rtf::StepSize(-2, -2), -6);
    EXPECT_EQ(rtf::StepSize(21, 2), 24) << "the half point of 10.5 pt is dropped";
    EXPECT_EQ(rtf::StepSize(21, -2), 16);
    EXPECT_EQ(rtf::StepSize(-3, -2), -6) << "dropped towards zero, as integer division drops it";
    EXPECT_EQ(rtf::StepSize(3, -2), -2);
}

TEST(NoteSize, SaturatesAtTheEndsOfInt) {
    constexpr int kMax = std::numeric_limits<int>::max();
    constexpr int kMin = std::numeric_limits<int>::min();
    EXPECT_EQ(rtf::StepSize(kMax, 2), kMax);
    EXPECT_EQ(rtf::StepSize(kMin, -2), kMin);
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
                 {"tool.exe.", LinkKind::Program},
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
