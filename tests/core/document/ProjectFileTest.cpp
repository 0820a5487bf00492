// The project file reader and writer against hand-built bytes: field order, the string length
// forms, the UTF-16 marker, the plausibility check, and damaged files of every kind.
#include "document/ProjectFile.h"
#include "ProjectFileTestBytes.h"
#include "text/DefaultNote.h"

#include <algorithm>
#include <bit>
#include <cerrno>
#include <cstring>
#include <gtest/gtest.h>

namespace velto {

using namespace filebytes;

namespace {

const size_t kFirstNode = kHeaderSize + Histories().Size();

// A source over bytes that hands out at most `piece` bytes per call.
ProjectSource SourceOver(std::span<const uint8_t> bytes, size_t piece) {
    return [bytes, piece, pos = size_t(0)](uint8_t* buffer, size_t size) mutable -> int64_t {
        const size_t count = std::min({size, piece, bytes.size() - pos});
        std::memcpy(buffer, bytes.data() + pos, count);
        pos += count;
        return int64_t(count);
    };
}

// Reads the bytes whole, and again streamed in small pieces; both ways must agree.
ReadResult ReadBothWays(std::span<const uint8_t> bytes, ProjectContent& content) {
    const ReadResult whole = ReadProject(bytes, content);
    ProjectContent streamed;
    const ReadResult pieces = ReadProject(bytes.size(), SourceOver(bytes, 7), streamed);
    EXPECT_EQ(pieces.status, whole.status);
    EXPECT_EQ(pieces.what, whole.what);
    EXPECT_EQ(pieces.offset, whole.offset);
    EXPECT_EQ(pieces.trailingBytes, whole.trailingBytes);
    if (whole.status == ReadStatus::Ok) {
        EXPECT_EQ(WriteProject(streamed), WriteProject(content));
    }
    return whole;
}

ReadResult Read(const Bytes& bytes, ProjectContent& content) {
    return ReadBothWays(bytes.data, content);
}

std::vector<const CProjectNode*> NodesOf(const ProjectContent& content) {
    std::vector<const CProjectNode*> nodes;
    for (const CProjectNode* node = content.firstNode; node; node = node->m_pNext)
        nodes.push_back(node);
    return nodes;
}

uint32_t Bits(float value) {
    return std::bit_cast<uint32_t>(value);
}

void PatchU32(Bytes& bytes, size_t at, uint32_t value) {
    for (int i = 0; i < 4; ++i)
        bytes.data[at + i] = uint8_t(value >> (8 * i));
}

// A one-node file whose title field is given raw; the rest of the node must still be found.
ProjectContent ReadTitleField(const Bytes& titleField) {
    ProjectContent content;
    const ReadResult result = Read(File({NodeWithTitleField(1000, titleField)}), content);
    EXPECT_EQ(result.status, ReadStatus::Ok) << result.Message("t.VT5");
    if (content.firstNode) {
        EXPECT_EQ(content.firstNode->m_strNote, "{\\rtf1 Notiz}");
        EXPECT_EQ(content.firstNode->m_strResponsible, "Max Mustermann \xAB\xBB MM");
    }
    EXPECT_EQ(result.trailingBytes, 0u);
    return content;
}

std::string ReadTitle(const Bytes& titleField) {
    const ProjectContent content = ReadTitleField(titleField);
    return content.firstNode ? std::string(content.firstNode->m_strTitle) : "<nicht gelesen>";
}

void ExpectError(const Bytes& bytes, const std::string& what, uint64_t offset) {
    ProjectContent content;
    content.firstNode = new CProjectNode(); // must be freed and cleared
    const ReadResult result = Read(bytes, content);
    EXPECT_EQ(result.status, ReadStatus::Error);
    EXPECT_EQ(result.what, what);
    EXPECT_EQ(result.offset, offset);
    EXPECT_EQ(content.firstNode, nullptr);
}

} // namespace

TEST(ProjectFileRead, EveryFieldLandsInItsPlaceAndIsWrittenBackUnchanged) {
    const Bytes bytes = File({Node(1000, 2, 1), Node(2000)});
    ProjectContent content;
    ASSERT_EQ(Read(bytes, content).status, ReadStatus::Ok);

    EXPECT_EQ(content.view.chartWidth1, 310);
    EXPECT_EQ(content.view.chartWidth2, -16);
    EXPECT_EQ(content.view.maximized, 1u);
    EXPECT_EQ(content.view.windowRect, (std::array<int32_t, 4>{-7, 12, 812, 612}));
    EXPECT_EQ(content.view.zoom, 20u);
    EXPECT_EQ(content.assigneeHistory[0], "Bear0");
    EXPECT_EQ(content.remarkHistory[9], "Bem9");

    const auto nodes = NodesOf(content);
    ASSERT_EQ(nodes.size(), 2u);
    const CProjectNode& n = *nodes[0];
    EXPECT_EQ(n.m_pPrev, nullptr);
    EXPECT_EQ(nodes[1]->m_pPrev, nodes[0]);
    EXPECT_EQ(n.m_nKind, 1001);
    EXPECT_EQ(n.m_strTitle, "Knoten 1000");
    EXPECT_EQ((std::array{n.m_nLevel, n.m_bDone, n.m_bSelected, n.m_bVisible, n.m_bExpanded}),
              (std::array{1003, 1004, 1005, 1006, 1007}));
    EXPECT_EQ(n.m_timeStart.GetTime(), 1008u);
    EXPECT_EQ(n.m_timeDue.GetTime(), 1009u);
    EXPECT_EQ(n.m_timeReminder.GetTime(), 1011u);
    EXPECT_EQ(n.m_strFontName, "Arial");
    EXPECT_EQ((std::array{n.m_crColor, n.m_bStrikeOut, n.m_bBold, n.m_bItalic, n.m_bUnderline}),
              (std::array{1013, 1014, 1015, 1016, 1017}));
    EXPECT_EQ((std::array{Bits(n.m_fHoursPlanned), Bits(n.m_fHoursNeeded), Bits(n.m_fHourlyRate),
                          Bits(n.m_fCostPlanned), Bits(n.m_fCostNeeded)}),
              (std::array<uint32_t, 5>{0x40000000 + 1018, 0x40000000 + 1019, 0x40000000 + 1020,
                                       0x40000000 + 1021, 0x40000000 + 1022}));
    EXPECT_EQ((std::array{n.m_timeCreated.GetTime(), n.m_timeChanged.GetTime(), n.m_timeDone.GetTime()}),
              (std::array<uint32_t, 3>{1023, 1024, 1025}));
    EXPECT_EQ((std::array{n.m_nRemind1, n.m_nRemind2, n.m_nRemind3, n.m_nRemind4, n.m_nRemind5}),
              (std::array{1026, 1027, 1028, 1029, 1030}));
    EXPECT_EQ(n.m_timeRemind1.GetTime(), 1031u);
    EXPECT_EQ(n.m_timeRemind2.GetTime(), 1032u);
    EXPECT_EQ(n.m_strText2, "Text2");

    // Entries keep their order; cost entries hold quantity before unit price.
    ASSERT_EQ(n.m_pHours.size(), 2u);
    EXPECT_EQ(n.m_pHours[0].m_time1.GetTime(), 1100u);
    EXPECT_EQ(n.m_pHours[0].m_time2.GetTime(), 1200u);
    EXPECT_EQ(n.m_pHours[0].m_time3.GetTime(), 1300u);
    EXPECT_EQ(n.m_pHours[0].m_str1, "Bear0");
    EXPECT_EQ(n.m_pHours[1].m_str1, "Bear1");
    for (const CCostList* costs : {&n.m_pCosts, &n.m_pCosts2}) {
        ASSERT_EQ(costs->size(), 1u);
        const CCostEntry cost = costs->front();
        EXPECT_EQ(cost.m_timeDate.GetTime(), 1400u);
        EXPECT_EQ(cost.m_fQuantity, 1.0f);
        EXPECT_EQ(cost.m_fUnitPrice, 50.0f);
        EXPECT_EQ(cost.m_fAmount, -50.0f);
    }
    EXPECT_EQ(n.m_pCosts.front().m_str2, "C");
    EXPECT_EQ(n.m_pCosts2.front().m_str2, "B");
    EXPECT_TRUE(nodes[1]->m_pHours.empty());

    EXPECT_EQ(WriteProject(content), bytes.data);
}

TEST(ProjectFileRead, FloatBitPatternsSurviveUnchanged) {
    // A NaN with a payload, a signalling NaN, negative zero, the smallest denormal, -infinity.
    const std::array<uint32_t, 5> patterns{0x7FC00001, 0x7F800001, 0x80000000, 0x00000001, 0xFF800000};
    Bytes bytes = File({Node(1000)});
    const size_t floats = kFirstNode + 4 + 12 + 7 * 4 + 14 + 4 + 6 + 5 * 4;
    for (size_t i = 0; i < patterns.size(); ++i)
        PatchU32(bytes, floats + 4 * i, patterns[i]);
    ProjectContent content;
    ASSERT_EQ(Read(bytes, content).status, ReadStatus::Ok);
    const CProjectNode& n = *content.firstNode;
    EXPECT_EQ((std::array{Bits(n.m_fHoursPlanned), Bits(n.m_fHoursNeeded), Bits(n.m_fHourlyRate),
                          Bits(n.m_fCostPlanned), Bits(n.m_fCostNeeded)}),
              patterns);
    EXPECT_EQ(WriteProject(content), bytes.data);
}

TEST(ProjectFileStrings, WriterPicksTheShortestLengthForm) {
    // Title of the only node; with empty histories it starts at byte 36 + 20 + 4.
    const size_t at = kHeaderSize + 20 + 4;
    struct Case {
        size_t length;
        std::vector<uint8_t> prefix;
    };
    const Case cases[] = {
        {0, {0x00}},
        {254, {0xFE}},
        {255, {0xFF, 0xFF, 0x00}},
        {65533, {0xFF, 0xFD, 0xFF}},
        {65534, {0xFF, 0xFF, 0xFF, 0xFE, 0xFF, 0x00, 0x00}},
        {70000, {0xFF, 0xFF, 0xFF, 0x70, 0x11, 0x01, 0x00}},
    };
    for (const Case& c : cases) {
        ProjectContent content;
        content.firstNode = new CProjectNode(NodeDefaults{});
        content.firstNode->m_strTitle = std::string(c.length, 'x');
        const std::vector<uint8_t> bytes = WriteProject(content);
        ASSERT_GT(bytes.size(), at + c.prefix.size() + c.length) << c.length;
        EXPECT_EQ(std::vector<uint8_t>(bytes.begin() + at, bytes.begin() + at + c.prefix.size()), c.prefix)
            << c.length;
        EXPECT_EQ(bytes[at + c.prefix.size()], c.length ? 'x' : 0);
        // Level to due, the empty note, the reminder, then the font name's length and first letter.
        EXPECT_EQ(bytes[at + c.prefix.size() + c.length + 28 + 1 + 4 + 1], 'A') << c.length;

        ProjectContent back;
        ASSERT_EQ(ReadBothWays(bytes, back).status, ReadStatus::Ok) << c.length;
        EXPECT_EQ(back.firstNode->m_strTitle.size(), c.length);
        EXPECT_EQ(WriteProject(back), bytes);
    }
}

TEST(ProjectFileStrings, ReaderTakesEveryLengthForm) {
    EXPECT_EQ(ReadTitle(Bytes().U8(0xFF).U16(3).Raw("abc")), "abc");
    EXPECT_EQ(ReadTitle(Bytes().U8(0xFF).U16(0xFFFF).U32(2).Raw("de")), "de");
    EXPECT_EQ(ReadTitle(Bytes().U8(0xFF).U16(0xFFFF).U32(0xFFFFFFFF).U64(1).Raw("f")), "f");
    EXPECT_EQ(ReadTitle(Bytes().U8(0xFF).U16(254).Raw(std::string(254, 'g'))), std::string(254, 'g'));
}

TEST(ProjectFileStrings, Utf16StringsAfterTheMarkerAreConvertedToWindows1252) {
    auto utf16 = [](std::initializer_list<uint16_t> units) {
        Bytes b;
        for (uint16_t unit : units)
            b.U16(unit);
        return b;
    };
    // "Aä€": all three have a Windows-1252 byte.
    EXPECT_EQ(ReadTitle(Bytes().U8(0xFF).U16(0xFFFE).U8(3).Append(utf16({'A', 0xE4, 0x20AC}))), "A\xE4\x80");
    // Omega, a surrogate pair, a lone low surrogate, "B", a high surrogate at the end.
    EXPECT_EQ(ReadTitle(Bytes().U8(0xFF).U16(0xFFFE).U8(6).Append(
                  utf16({0x03A9, 0xD83D, 0xDE00, 0xDC00, 'B', 0xD800}))),
              "???B?");
    // The 16-bit and 32-bit length forms after the marker; there 0xFFFE is a plain length.
    Bytes many = Bytes().U8(0xFF).U16(0xFFFE).U8(0xFF).U16(300);
    for (int i = 0; i < 300; ++i)
        many.U16('m');
    EXPECT_EQ(ReadTitle(many), std::string(300, 'm'));
    Bytes fffe = Bytes().U8(0xFF).U16(0xFFFE).U8(0xFF).U16(0xFFFE);
    for (int i = 0; i < 0xFFFE; ++i)
        fffe.U16('w');
    EXPECT_EQ(ReadTitle(fffe), std::string(0xFFFE, 'w'));
    EXPECT_EQ(ReadTitle(Bytes().U8(0xFF).U16(0xFFFE).U8(0xFF).U16(0xFFFF).U32(2).Append(utf16({'o', 'k'}))),
              "ok");
    EXPECT_EQ(ReadTitle(Bytes().U8(0xFF).U16(0xFFFE).U8(0)), "");

    // Saved again, the title is an 8-bit string.
    const ProjectContent content = ReadTitleField(Bytes().U8(0xFF).U16(0xFFFE).U8(1).Append(utf16({0xFC})));
    const std::vector<uint8_t> written = WriteProject(content);
    EXPECT_EQ(written[kFirstNode + 4], 1);
    EXPECT_EQ(written[kFirstNode + 5], 0xFC);
}

TEST(ProjectFileFormat, ZoomOutsideFiveToFiftyOrNoNodesOpensTheReplacementDocument) {
    for (const auto& [zoom, count] : {std::pair{4u, 1u}, {51u, 1u}, {20u, 0u}, {0xFFFFFFFFu, 1u}}) {
        ProjectContent content;
        // Only the header is read; what follows does not matter.
        const ReadResult result = Read(Header(zoom, count).U8(0x99), content);
        ASSERT_EQ(result.status, ReadStatus::WrongFormat) << zoom << " " << count;
        EXPECT_EQ(result.Message("x.VT5"), "Falsches Dateiformat!");
        EXPECT_EQ(content.view.zoom, 20u);
        EXPECT_EQ(content.view.chartWidth1, 200);
        EXPECT_EQ(content.view.chartWidth2, 200);
        EXPECT_EQ(content.view.windowRect, (std::array<int32_t, 4>{-7, 12, 812, 612})) << "placement is kept";
        EXPECT_EQ(content.view.maximized, 1u);
        const auto nodes = NodesOf(content);
        ASSERT_EQ(nodes.size(), 1u);
        const CProjectNode& root = *nodes[0];
        EXPECT_EQ(root.m_strTitle, "Neuer Knoten");
        EXPECT_EQ(root.m_strNote, DefaultNoteTemplate("Arial"));
        EXPECT_EQ(root.m_strFontName, "Arial");
        EXPECT_EQ((std::array{root.m_nKind, root.m_nLevel, root.m_bDone, root.m_bExpanded, root.m_bSelected}),
                  (std::array{0, 0, 0, 1, 1}));
        EXPECT_EQ(root.m_timeStart.Format("%H:%M:%S"), "01:00:00");
        EXPECT_EQ(root.m_timeDue.Format("%H:%M:%S"), "23:59:59");
        EXPECT_EQ(root.m_timeStart.Format("%d.%m.%Y"), CTime::GetCurrentTime().Format("%d.%m.%Y"));
        EXPECT_TRUE(content.assigneeHistory[0].empty());
    }
    for (uint32_t zoom : {5u, 50u}) {
        ProjectContent content;
        EXPECT_EQ(Read(File({Node(1000)}, zoom), content).status, ReadStatus::Ok) << zoom;
        EXPECT_EQ(content.view.zoom, zoom);
    }
}

TEST(ProjectFileDamage, EveryTruncationIsRefusedWithThePlaceOfTheCut) {
    const Bytes whole = File({Node(1000, 2, 1), Node(2000, 1, 2)});
    for (size_t length = 0; length < whole.Size(); ++length) {
        ProjectContent content;
        const ReadResult result = ReadBothWays(std::span<const uint8_t>(whole.data.data(), length), content);
        ASSERT_EQ(result.status, ReadStatus::Error) << length;
        EXPECT_FALSE(result.what.empty());
        EXPECT_LE(result.offset, length);
        EXPECT_EQ(content.firstNode, nullptr);
    }

    Bytes cut = whole;
    cut.data.resize(10);
    ExpectError(cut, "Maximiert-Kennzeichen", 8);
    cut = whole;
    cut.data.resize(kHeaderSize + 6 * 11 + 8);
    ExpectError(cut, "Bemerkung von Verlaufseintrag 7", kHeaderSize + 6 * 11 + 6);
    const size_t secondNode = kFirstNode + Node(1000, 2, 1).Size();
    cut = whole;
    cut.data.resize(secondNode + 9);
    ExpectError(cut, "Titel von Knoten 2", secondNode + 4);

    // Within a node's entries (one node, so that the node count still fits).
    const Bytes single = File({Node(1000, 2, 1)});
    const size_t secondHours = kFirstNode + Node(1000).Size() - 8 + 22;
    cut = single;
    cut.data.resize(secondHours + 13);
    ExpectError(cut, "Bearbeiter von Stundeneintrag 2 in Knoten 1", secondHours + 12);
    cut = single;
    cut.data.resize(single.Size() - 1);
    ExpectError(cut, "Bemerkung von Kosteneintrag (benötigt) 1 in Knoten 1", single.Size() - 2);
}

TEST(ProjectFileDamage, CountsAndLengthsBeyondTheBytesLeftAreRefused) {
    Bytes bytes = File({Node(1000)});
    PatchU32(bytes, 32, 0xFFFFFFFF);
    ExpectError(bytes, "Knotenanzahl", 32);
    // Two nodes promised, one there.
    bytes = File({Node(1000)});
    PatchU32(bytes, 32, 2);
    ExpectError(bytes, "Knotenanzahl", 32);

    const size_t hoursCount = kFirstNode + Node(1000).Size() - 12;
    bytes = File({Node(1000)});
    PatchU32(bytes, hoursCount, 0xFFFFFFFF);
    ExpectError(bytes, "Anzahl der Stundeneinträge von Knoten 1", hoursCount);
    bytes = File({Node(1000)});
    PatchU32(bytes, hoursCount + 8, 1); // an entry needs 18 bytes, none are left
    ExpectError(bytes, "Anzahl der benötigten Kosteneinträge von Knoten 1", hoursCount + 8);

    const size_t title = kFirstNode + 4;
    for (const Bytes& field :
         {Bytes().U8(200).Raw("kurz"), Bytes().U8(0xFF).U16(0xFFFD),
          Bytes().U8(0xFF).U16(0xFFFF).U32(0xFFFFFFFE),
          Bytes().U8(0xFF).U16(0xFFFF).U32(0xFFFFFFFF).U64(uint64_t(1) << 63),
          Bytes().U8(0xFF).U16(0xFFFF).U32(0xFFFFFFFF).U64(~uint64_t(0)),
          Bytes().U8(0xFF).U16(0xFFFE).U8(0xFF).U16(0xFFFF).U32(0x80000000),
          Bytes().U8(0xFF).U16(0xFFFE).U8(0xFF).U16(0xFFFF).U32(0xFFFFFFFF).U64(uint64_t(1) << 63)}) {
        // Enough bytes behind for one node record, fewer than the length asks for.
        Bytes file = Header(20, 1).Append(Histories()).U32(1).Append(field).Raw(std::string(140, '\0'));
        ExpectError(file, "Titel von Knoten 1", title);
    }
}

TEST(ProjectFileDamage, MessageNamesFileFieldAndOffset) {
    const ReadResult result{ReadStatus::Error, "Titel von Knoten 3", 1234, 0};
    const std::string message = result.Message("/daten/Plan.VT5");
    EXPECT_NE(message.find("\"/daten/Plan.VT5\""), std::string::npos) << message;
    EXPECT_NE(message.find("Titel von Knoten 3"), std::string::npos) << message;
    EXPECT_NE(message.find("Byte 1234"), std::string::npos) << message;
    EXPECT_EQ(ReadResult{}.Message("x"), "");
}

TEST(ProjectFileRead, BytesAfterTheLastNodeAreCountedAndDropped) {
    Bytes bytes = File({Node(1000)});
    const std::vector<uint8_t> exact = bytes.data;
    bytes.Raw("xyz");
    ProjectContent content;
    const ReadResult result = Read(bytes, content);
    ASSERT_EQ(result.status, ReadStatus::Ok);
    EXPECT_EQ(result.trailingBytes, 3u);
    EXPECT_EQ(WriteProject(content), exact);
}

TEST(ProjectFileWrite, StreamedPiecesAddUpToTheSameBytesAndStopWhenRefused) {
    ProjectContent content;
    ASSERT_EQ(Read(File({Node(1000, 2, 1), Node(2000)}), content).status, ReadStatus::Ok);
    content.firstNode->m_strNote = std::string(2'500'000, 'n'); // spans three pieces
    const auto write = [&](const ProjectSink& sink) {
        return WriteProject(content.view, content.assigneeHistory, content.remarkHistory, content.firstNode,
                            sink);
    };
    std::vector<uint8_t> streamed;
    int pieces = 0;
    EXPECT_TRUE(write([&](std::span<const uint8_t> piece) {
        EXPECT_LE(piece.size(), size_t(1) << 20);
        streamed.insert(streamed.end(), piece.begin(), piece.end());
        return ++pieces > 0;
    }));
    EXPECT_EQ(pieces, 3);
    EXPECT_EQ(streamed, WriteProject(content));

    int calls = 0;
    EXPECT_FALSE(write([&](std::span<const uint8_t>) { return ++calls < 2; }));
    EXPECT_EQ(calls, 2);
}

TEST(ProjectFileStream, LongNotesBypassTheWindowAndAShortOrFailingSourceIsAnError) {
    ProjectContent content;
    ASSERT_EQ(Read(File({Node(1000, 2, 1), Node(2000)}), content).status, ReadStatus::Ok);
    content.firstNode->m_strNote = std::string(700'000, 'n');
    content.firstNode->m_pNext->m_strTitle = std::string(300'000, 't');
    const std::vector<uint8_t> bytes = WriteProject(content);
    for (size_t piece : {size_t(1) << 16, bytes.size()}) {
        ProjectContent streamed;
        const ReadResult result = ReadProject(bytes.size(), SourceOver(bytes, piece), streamed);
        ASSERT_EQ(result.status, ReadStatus::Ok);
        EXPECT_EQ(result.trailingBytes, 0u);
        EXPECT_EQ(WriteProject(streamed), bytes) << piece;
    }

    // The file claims more bytes than it has: it ends early, inside the second node's long title.
    const size_t secondNode = kFirstNode + Node(1000, 2, 1).Size() + 700'000 - 13 + 6;
    const std::span<const uint8_t> shortened(bytes.data(), secondNode + 200'000);
    ProjectContent streamed;
    ReadResult result = ReadProject(bytes.size(), SourceOver(shortened, 4096), streamed);
    EXPECT_EQ(result.status, ReadStatus::Error);
    EXPECT_EQ(result.what, "Titel von Knoten 2");
    EXPECT_EQ(result.offset, secondNode + 4);
    EXPECT_EQ(result.ioError, 0);
    EXPECT_EQ(streamed.firstNode, nullptr);

    // A read error half-way is kept and told.
    ProjectSource inner = SourceOver(bytes, 4096);
    int calls = 0;
    const ProjectSource failing = [&](uint8_t* buffer, size_t size) {
        return ++calls > 3 ? int64_t(-EIO) : inner(buffer, size);
    };
    result = ReadProject(bytes.size(), failing, streamed);
    EXPECT_EQ(result.status, ReadStatus::Error);
    EXPECT_EQ(result.ioError, -EIO);
    EXPECT_NE(result.Message("Plan.VT5").find("kann nicht gelesen werden: Ein-/Ausgabefehler"),
              std::string::npos)
        << result.Message("Plan.VT5");
}

namespace {

// Many entries whose texts repeat, change, are empty or long, as an hours-heavy project has them.
TEST(ProjectFileEntries, AnHoursHeavyProjectKeepsEveryEntryThroughARoundTrip) {
    ProjectContent content;
    content.firstNode = new CProjectNode(NodeDefaults{});
    content.firstNode->m_pNext = new CProjectNode(NodeDefaults{});
    content.firstNode->m_pNext->m_pPrev = content.firstNode;
    CHoursList& hours = content.firstNode->m_pNext->m_pHours;
    const int kCount = 20000;
    CHoursList::Builder builder(kCount);
    for (int i = 0; i < kCount; ++i) {
        const std::string remark = i % 7 == 0 ? std::string(300, char('a' + i % 26)) : std::to_string(i / 3);
        const uint32_t day = 1700000000u + uint32_t(i) * 86400u;
        ASSERT_TRUE(builder.Add({CTime(day), CTime(day + 60), CTime(day + 120), i % 5 ? "MM" : "", remark}));
    }
    hours = builder.Finish();
    content.firstNode->m_pNext->m_pCosts2 = {{CTime(5), 1.0f, 2.0f, -2.0f, "", "Ben\xF6tigt"}};
    const std::vector<uint8_t> bytes = WriteProject(content);

    ProjectContent back;
    ASSERT_EQ(ReadBothWays(bytes, back).status, ReadStatus::Ok);
    const CHoursList& read = back.firstNode->m_pNext->m_pHours;
    ASSERT_EQ(read.size(), size_t(kCount));
    for (int i : {0, 1, 3, 7, 4999, kCount - 1}) {
        EXPECT_EQ(read[i].m_time3, hours[i].m_time3) << i;
        EXPECT_EQ(read[i].m_str1, hours[i].m_str1) << i;
        EXPECT_EQ(read[i].m_str2, hours[i].m_str2) << i;
    }
    EXPECT_EQ(back.firstNode->m_pNext->m_pCosts2.front().m_str2, "Ben\xF6tigt");
    EXPECT_EQ(WriteProject(back), bytes);
}

} // namespace

} // namespace velto
