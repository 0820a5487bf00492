// What a note holds besides formatted text: paragraph layout, pictures, lists and tables. Each case reads a
// line of RTF, checks the model, and writes and reads it back unchanged.
#include "text/RtfLists.h"
#include "text/RtfReader.h"
#include "text/RtfWriter.h"

#include "core/text/RtfTestSupport.h"

#include <gtest/gtest.h>

namespace velto {

using rtf::ListKind;
using rtf::ListMembership;
using rtf::ParagraphLayout;
using rtf::Picture;
using rtf::PictureKind;
using rtf::ReadRtf;
using rtf::TabKind;
using rtf::TableCell;
using rtf::TabStop;
using rtf::WriteRtf;

namespace {

// Reads the RTF and checks that the writer keeps what was read.
rtf::Document ReadAndRoundTrip(const std::string& rtf) {
    const rtf::Document document = ReadRtf(rtf);
    EXPECT_EQ(ReadRtf(WriteRtf(document)), document) << rtf << "\n" << WriteRtf(document);
    return document;
}

ParagraphLayout Layout(int left, int right, int first, int before, int after, int line, bool multiple,
                       std::vector<TabStop> tabs = {}) {
    return ParagraphLayout{left, right, first, before, after, line, multiple, std::move(tabs)};
}

TEST(RtfLayout, IndentsSpacingAndTabStopsBelongToTheParagraphAtItsMark) {
    const std::pair<std::string, ParagraphLayout> cases[] = {
        {R"(\li720\ri-360\fi-180 x)", Layout(720, -360, -180, 0, 0, 0, false)},
        {R"(\lin300\rin200 x)", Layout(300, 200, 0, 0, 0, 0, false)},
        {R"(\sb120\sa240\sl360\slmult1 x)", Layout(0, 0, 0, 120, 240, 360, true)},
        {R"(\sl-300\slmult0 x)", Layout(0, 0, 0, 0, 0, -300, false)},
        {R"(\tx1000\tqc\tx2000\tqr\tx3000\tqdec\tx4000\tx5000 x)", Layout(0, 0, 0, 0, 0, 0, false,
                                                                          {{1000, TabKind::Left},
                                                                           {2000, TabKind::Centre},
                                                                           {3000, TabKind::Right},
                                                                           {4000, TabKind::Decimal},
                                                                           {5000, TabKind::Left}})},
        {R"(\li500 x\pard)", Layout(0, 0, 0, 0, 0, 0, false)},              // in force at the mark
        {R"({\li500 x}\par)", Layout(0, 0, 0, 0, 0, 0, false)},             // scoped by the group
        {R"(\li500\sb20\tx9\pard\fi7 x)", Layout(0, 0, 7, 0, 0, 0, false)}, // \pard resets all
    };
    for (const auto& [body, layout] : cases) {
        const rtf::Document document = ReadAndRoundTrip("{\\rtf1 " + body + "\\par}");
        ASSERT_FALSE(document.paragraphs.empty()) << body;
        EXPECT_EQ(document.paragraphs.front().layout, layout) << body;
    }
    // A change of layout alone makes the writer start the paragraph afresh, and only then.
    const std::string rtf = WriteRtf(ReadAndRoundTrip(R"({\rtf1\li100 a\par b\par\pard c\par})"));
    EXPECT_NE(rtf.find("\\pard\\li100\\f0\\fs24 a\\par\r\nb\\par\r\n\\pard c"), std::string::npos) << rtf;
}

// The picture runs of the first paragraph, and its runs as text with "*" for each picture.
std::string Shape(const rtf::Document& document) {
    std::string shape;
    for (const rtf::Run& run : document.paragraphs.at(0).runs)
        shape += run.picture ? "*" : run.text;
    return shape;
}

TEST(RtfPictures, KeepTheirBytesSizeAndPlaceAmongTheRuns) {
    const std::string png = "\x89PNG\r\n\x1a\n";
    const std::tuple<std::string, Picture, std::string> cases[] = {
        {R"(a{\pict{\*\picprop{\sp{\sn x}{\sv 1}}}\pngblip\picw10\pich20\picwgoal150\pichgoal300
89504e47 0d0a1a0A
}b)",
         {PictureKind::Png, 0, 10, 20, 150, 300, 100, 100, png},
         "a*b"},
        {"{\\pict\\jpegblip\\picscalex50\\picscaley75\\bin4 \xff\xd8}{x}b",
         {PictureKind::Jpeg, 0, 0, 0, 0, 0, 50, 75, "\xff\xd8}{"},
         "*b"},
        {R"({\pict\wmetafile8\picw5 0100090}a)",
         {PictureKind::WindowsMetafile, 8, 5, 0, 0, 0, 100, 100, std::string("\x01\x00\x09", 3)},
         "*a"},
        {R"({\pict\emfblip 01}{\pict\emfblip 01})",
         {PictureKind::EnhancedMetafile, 0, 0, 0, 0, 0, 100, 100, "\x01"},
         "**"},
        {R"({\pict\macpict 02})", {PictureKind::Unknown, 0, 0, 0, 0, 0, 100, 100, "\x02"}, "*"},
        // The shape picture, not its fallback for older readers.
        {R"({\*\shppict{\pict\pngblip 89}}{\nonshppict{\pict\wmetafile8 01}})",
         {PictureKind::Png, 0, 0, 0, 0, 0, 100, 100, "\x89"},
         "*"},
    };
    for (const auto& [body, picture, shape] : cases) {
        const std::string rtf = "{\\rtf1 " + body + "\\par}";
        const rtf::Document document = ReadAndRoundTrip(rtf);
        EXPECT_EQ(Shape(document), shape) << body;
        const auto first =
            std::find_if(document.paragraphs.at(0).runs.begin(), document.paragraphs.at(0).runs.end(),
                         [](const rtf::Run& run) { return bool(run.picture); });
        ASSERT_NE(first, document.paragraphs.at(0).runs.end()) << body;
        EXPECT_EQ(*first->picture, picture) << body;
        EXPECT_EQ(rtf::PlainText(rtf), rtftest::Joined(document)) << body;
    }
}

// A paragraph holding only a picture is a paragraph: a page break or the end of the text closes it
// rather than the one before, in the model and in the plain text alike.
TEST(RtfPictures, OpenTheParagraphTheyStandIn) {
    const std::tuple<std::string, size_t, std::string> cases[] = {
        {R"({\rtf1 a\par{\pict 00}\page b})", 3, "a\n\nb"},
        {R"({\rtf1 a\par{\pict 00}})", 2, "a\n"},
        {R"({\rtf1 a\par{\pict 00}\par})", 2, "a\n"},
    };
    for (const auto& [rtf, paragraphs, text] : cases) {
        EXPECT_EQ(ReadAndRoundTrip(rtf).paragraphs.size(), paragraphs) << rtf;
        EXPECT_EQ(rtf::PlainText(rtf), text) << rtf;
    }
}

std::vector<std::optional<ListMembership>> Lists(const rtf::Document& document) {
    std::vector<std::optional<ListMembership>> lists;
    for (const rtf::Paragraph& paragraph : document.paragraphs)
        lists.push_back(paragraph.list);
    return lists;
}

// The second list names its id before its levels, as some writers do.
constexpr char kListTables[] =
    R"({\*\listtable{\list\listtemplateid7{\listlevel\levelnfc23\levelstartat1{\leveltext\'01\'b7;}})"
    R"({\listlevel\levelnfc4\levelstartat2}{\listname ;}\listid70}{\list\listid80{\listlevel\levelnfcn1)"
    R"(\levelstartat4}}})"
    R"({\*\listoverridetable{\listoverride\listid70\listoverridecount0\ls1}{\listoverride\listid80\ls2}})";

TEST(RtfLists, BothFormsGiveEachParagraphItsListLevelKindAndStart) {
    using L = std::optional<ListMembership>;
    const std::pair<std::string, std::vector<L>> cases[] = {
        {R"({\listtext\'b7\tab}\ls1 a\par{\listtext a.\tab}\ls1\ilvl1 b\par\pard c\par)",
         {L({1, 0, ListKind::Bullet, 1}), L({1, 1, ListKind::LowerLetter, 2}), std::nullopt}},
        // Lists are numbered in the order they appear; an \ls no override defines is no list.
        {R"(\ls2 a\par\ls1 b\par\ls2\ilvl5 c\par\ls9 d\par)",
         {L({1, 0, ListKind::UpperRoman, 4}), L({2, 0, ListKind::Bullet, 1}), L({1, 5, ListKind::Decimal, 1}),
          std::nullopt}},
        {R"({\pntext\f0 \'b7\tab}{\*\pn\pnlvlblt\pnf1\pnindent0{\pntxtb\'B7}}a\par)"
         R"({\*\pn\pnlvlbody\pnucrm\pnstart3{\pntxta.}}b\par{\pn\pnlvl2\pnlcltr}c\par)"
         R"({\*\pn\pnlvlcont}d\par\pard e)",
         {L({1, 0, ListKind::Bullet, 1}), L({2, 0, ListKind::UpperRoman, 3}),
          L({3, 1, ListKind::LowerLetter, 1}), std::nullopt, std::nullopt}},
        // \ls wins over \pn, which is there for older readers.
        {R"({\*\pn\pnlvlbody\pndec}\ls1 a)", {L({1, 0, ListKind::Bullet, 1})}},
    };
    for (const auto& [body, lists] : cases) {
        const std::string rtf = "{\\rtf1" + std::string(kListTables) + body + "}";
        const rtf::Document document = ReadAndRoundTrip(rtf);
        EXPECT_EQ(Lists(document), lists) << body;
        EXPECT_EQ(rtf::PlainText(rtf), rtftest::Joined(document)) << body;
    }
}

// The writer numbers the labels for readers that know neither form: a level continues, the levels
// below it start afresh.
TEST(RtfLists, WrittenLabelsFollowTheNumbering) {
    rtf::DocumentBuilder builder;
    const rtf::CharFormat format;
    const std::pair<const char*, ListMembership> items[] = {
        {"a", {5, 0, ListKind::Decimal, 1}},       {"b", {5, 1, ListKind::LowerLetter, 1}},
        {"c", {5, 1, ListKind::LowerLetter, 1}},   {"d", {5, 0, ListKind::Decimal, 1}},
        {"e", {5, 1, ListKind::LowerLetter, 1}},   {"f", {3, 0, ListKind::UpperRoman, 1998}},
        {"g", {3, 0, ListKind::UpperRoman, 1998}}, {"h", {6, 0, ListKind::Bullet, 1}},
    };
    for (const auto& [text, list] : items) {
        builder.AppendText(text, format);
        builder.SetList(list);
        builder.EndParagraph(rtf::Alignment::Left, format, rtf::ParagraphBreak::Paragraph);
    }
    const std::string rtf = WriteRtf(builder.Finish(rtf::Alignment::Left, format));
    std::string labels;
    for (size_t pos = 0; (pos = rtf.find("{\\listtext", pos)) != std::string::npos; ++pos) {
        const size_t start = pos + 10 + (rtf[pos + 10] == ' ');
        labels += rtf.substr(start, rtf.find("\\tab", pos) - start) + "|";
    }
    EXPECT_EQ(labels, "1.|a.|b.|2.|a.|MCMXCVIII.|MCMXCIX.|\\'95|");
    // The ids become 1, 2, 3 in order of appearance, with each level's kind and start.
    const rtf::Document back = ReadRtf(rtf);
    EXPECT_EQ(back.paragraphs.at(5).list, ListMembership({2, 0, ListKind::UpperRoman, 1998}));
    EXPECT_EQ(back.paragraphs.at(7).list, ListMembership({3, 0, ListKind::Bullet, 1}));
    EXPECT_NE(rtf.find("{\\*\\pn\\pnlvlbody\\pnucrm\\pnstart1998{\\pntxta.}}"), std::string::npos) << rtf;
}

TEST(RtfLists, LabelsInEveryStyle) {
    const std::tuple<ListKind, int, std::string> cases[] = {
        {ListKind::Decimal, -3, "-3."},        {ListKind::LowerLetter, 26, "z."},
        {ListKind::UpperLetter, 28, "AB."},    {ListKind::LowerLetter, 0, "0."},
        {ListKind::LowerRoman, 4, "iv."},      {ListKind::UpperRoman, 3999, "MMMCMXCIX."},
        {ListKind::UpperRoman, 4000, "4000."}, {ListKind::Bullet, 9, "\u2022"},
    };
    for (const auto& [kind, number, label] : cases)
        EXPECT_EQ(rtf::ListLabel(kind, number), label) << number;
}

// Each paragraph as "text" or "text@edge" with "|" after the last of a cell and "||" after a row's.
std::string Cells(const rtf::Document& document) {
    std::string cells;
    for (size_t i = 0; i < document.paragraphs.size(); ++i) {
        const std::optional<TableCell>& cell = document.paragraphs[i].cell;
        cells += rtftest::Texts(document)[i];
        if (cell) {
            cells += '@';
            cells += std::to_string(cell->rightEdge);
            cells.append(cell->endsCell + cell->endsRow, '|');
        }
        cells += " ";
    }
    return cells;
}

TEST(RtfTables, CellsKeepTheirParagraphsRightEdgesAndRows) {
    const std::pair<std::string, std::string> cases[] = {
        {R"(\trowd\cellx1000\cellx2500\pard\intbl a\par b\cell c\cell\row\pard d\par)",
         "a@1000 b@1000| c@2500|| d "},
        // Rows of their own widths; a cell without \intbl is a cell too.
        {R"(\trowd\cellx100 a\cell\row\trowd\cellx300\cellx600 b\cell c\cell\row)",
         "a@100|| b@300| c@600|| "},
        // A cell merged into the one before adds no paragraph; its edge is passed over.
        {R"(\trowd\cellx100\clmrg\cellx200\cellx300\intbl a\cell\cell b\cell\row)", "a@100| b@300|| "},
        // A nested table is flattened into its outer cell; all its text stays.
        {R"(\trowd\cellx900\intbl a\nestcell{\*\nesttableprops\trowd\cellx50\nestrow}b\cell\row)",
         "a@900 b@900|| "},
        // A cell that never ends has no edge yet.
        {R"(\trowd\cellx400\intbl a\par b)", "a@0 b@0 "},
    };
    for (const auto& [body, cells] : cases) {
        const std::string rtf = "{\\rtf1 " + body + "}";
        const rtf::Document document = ReadAndRoundTrip(rtf);
        EXPECT_EQ(Cells(document), cells) << body;
        EXPECT_EQ(rtf::PlainText(rtf), rtftest::Joined(document)) << body;
    }
    const std::string rtf =
        WriteRtf(ReadRtf(R"({\rtf1\trowd\cellx100\cellx300 \b a\b0\cell b\cell\row c\par})"));
    EXPECT_NE(
        rtf.find(
            "\\trowd\\cellx100\\cellx300\\pard\\intbl\\f0\\fs24\\b a\\b0\\cell\r\nb\\cell\\row\r\n\\pard c"),
        std::string::npos)
        << rtf;
}

} // namespace

} // namespace velto
