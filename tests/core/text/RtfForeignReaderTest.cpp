// Another word processor reads the notes Velto writes with the same bullets, numbers, pictures and
// tables. Runs where LibreOffice is installed (it converts the written RTF to HTML), and is skipped
// elsewhere.
#include "text/RtfReader.h"
#include "text/RtfWriter.h"

#include "support/TempDir.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <regex>

namespace velto {
namespace {

// A red picture of 2 x 2 pixels.
constexpr char kPng[] =
    "89504e470d0a1a0a0000000d4948445200000002000000020802000000fdd49a730000001049444154789c63"
    "f8cfc000440c100a001fee03fd8b5f14d40000000049454e44ae426082";

std::string NoteWithEverything() {
    return std::string("{\\rtf1\\ansi{\\fonttbl{\\f0 Arial;}}"
                       "{\\*\\listtable{\\list{\\listlevel\\levelnfc23{\\leveltext\\'01\\u8226 ?;}}\\listid7}"
                       "{\\list{\\listlevel\\levelnfc0\\levelstartat1{\\leveltext\\'02\\'00.;}}\\listid9}}"
                       "{\\*\\listoverridetable{\\listoverride\\listid7\\ls1}{\\listoverride\\listid9\\ls2}}"
                       "\\pard\\f0 Titel\\par\\pard\\ls1\\li720\\fi-360 Punkt eins\\par Punkt zwei\\par"
                       "\\pard\\ls2\\li720\\fi-360 Schritt eins\\par Schritt zwei\\par"
                       "\\pard Bild {\\pict\\pngblip\\picw2\\pich2\\picwgoal600\\pichgoal600 ") +
           kPng + "}\\par\\trowd\\cellx2000\\cellx4000\\pard\\intbl A1\\cell B1\\cell\\row\\pard Ende\\par}";
}

int Count(const std::string& text, const std::string& pattern) {
    const std::regex expression(pattern);
    return int(
        std::distance(std::sregex_iterator(text.begin(), text.end(), expression), std::sregex_iterator()));
}

TEST(RtfForeignReader, AnotherWordProcessorSeesTheListsPictureAndTable) {
    if (std::system("command -v soffice >/dev/null 2>&1") != 0)
        GTEST_SKIP() << "LibreOffice is not installed";
    const testsupport::TempDir dir;
    testsupport::WriteFile(dir.PathOf("note.rtf"), rtf::WriteRtf(rtf::ReadRtf(NoteWithEverything())));
    const std::string command = "cd '" + dir.Path() + "' && soffice -env:UserInstallation=file://" +
                                dir.Path() +
                                "/profile --headless --convert-to html --outdir out note.rtf >/dev/null 2>&1";
    ASSERT_EQ(std::system(command.c_str()), 0);
    const std::string html = testsupport::ReadFile(dir.PathOf("out/note.html"));
    EXPECT_EQ(Count(html, "<ul"), 1) << html;
    EXPECT_EQ(Count(html, "<ol"), 1) << html;
    EXPECT_EQ(Count(html, "<li"), 4) << html;
    EXPECT_EQ(Count(html, "<img[^>]*width=\"40\""), 1) << html;
    EXPECT_EQ(Count(html, "<table"), 1) << html;
    // The converter wraps long lines between words.
    for (const char* text : {"Punkt\\s+zwei", "Schritt\\s+eins", "A1", "B1", "Ende"})
        EXPECT_EQ(Count(html, text), 1) << text;
}

} // namespace
} // namespace velto
