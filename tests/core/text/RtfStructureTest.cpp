// What a note holds besides formatted text: paragraph layout. Each case reads a line of RTF, checks
// the model, and writes and reads it back unchanged.
#include "text/RtfReader.h"
#include "text/RtfWriter.h"

#include "core/text/RtfTestSupport.h"

#include <gtest/gtest.h>

namespace velto {

using rtf::ParagraphLayout;
using rtf::ReadRtf;
using rtf::TabKind;
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

} // namespace

} // namespace velto
