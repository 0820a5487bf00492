// The note pane's rules that need no widget: the size step of "Text größer" / "Text kleiner" and
// what a hyperlink target names.
#include "text/NoteFormat.h"
#include "text/NoteLink.h"

#include <gtest/gtest.h>

#include <limits>

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

TEST(NoteLinkTarget, WebAddressesAndFiles) {
    EXPECT_EQ(rtf::KindOfLinkTarget("http://www.example.com/a/b"), LinkKind::WebAddress);
    EXPECT_EQ(rtf::KindOfLinkTarget("HTTPS://example.com"), LinkKind::WebAddress);
    EXPECT_EQ(rtf::KindOfLinkTarget("mailto:anna@example.com"), LinkKind::WebAddress);
    EXPECT_EQ(rtf::KindOfLinkTarget("www.example.com"), LinkKind::WebAddress);
    EXPECT_EQ(rtf::KindOfLinkTarget("WWW.Example.com"), LinkKind::WebAddress);
    EXPECT_EQ(rtf::KindOfLinkTarget("file:///home/anna/Plan.odt"), LinkKind::FileUrl);
    // A drive letter is no scheme; neither is a colon after a blank or a digit first.
    EXPECT_EQ(rtf::KindOfLinkTarget("C:\\Daten\\Plan.doc"), LinkKind::FilePath);
    EXPECT_EQ(rtf::KindOfLinkTarget("c:/Daten/Plan.doc"), LinkKind::FilePath);
    EXPECT_EQ(rtf::KindOfLinkTarget("\\\\server\\share\\Plan.doc"), LinkKind::FilePath);
    EXPECT_EQ(rtf::KindOfLinkTarget("/home/anna/Plan.odt"), LinkKind::FilePath);
    EXPECT_EQ(rtf::KindOfLinkTarget("Angebot 2: Entwurf.txt"), LinkKind::FilePath);
    EXPECT_EQ(rtf::KindOfLinkTarget("1ab:x"), LinkKind::FilePath);
    EXPECT_EQ(rtf::KindOfLinkTarget("wwwx.de"), LinkKind::FilePath);
    EXPECT_EQ(rtf::KindOfLinkTarget("http:"), LinkKind::FilePath) << "a scheme needs something after it";
    EXPECT_EQ(rtf::KindOfLinkTarget(""), LinkKind::FilePath);

    EXPECT_EQ(rtf::WebAddressOf("www.example.com/x"), "http://www.example.com/x");
    EXPECT_EQ(rtf::WebAddressOf("https://www.example.com"), "https://www.example.com");
}

TEST(NoteLinkTarget, ProgramsAndScriptsByName) {
    for (const char* name : {"setup.exe", "C:\\Tools\\RUN.BAT", "/home/anna/install.sh", "start.cmd",
                             "makro.vbs", "tool.AppImage", "app.desktop", "skript.py", "Verknüpfung.lnk"})
        EXPECT_TRUE(rtf::IsProgramName(name)) << name;
    for (const char* name : {"Plan.doc", "C:\\exe\\Plan.pdf", "/home/sh/Bericht.odt", "exe", "Notiz.", "bat",
                             "archiv.tar.gz", "C:\\Daten.exe\\Plan"})
        EXPECT_FALSE(rtf::IsProgramName(name)) << name;
}
