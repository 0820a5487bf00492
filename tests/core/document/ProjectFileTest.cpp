// The project file reader and writer against hand-built bytes: field order, the string length
// forms, the UTF-16 marker, the plausibility check, and damaged files of every kind.
#include "document/ProjectFile.h"
#include "text/DefaultNote.h"

#include <algorithm>
#include <bit>
#include <cerrno>
#include <cstring>
#include <gtest/gtest.h>
#include <tuple>

namespace velto {

namespace {

// Project file bytes put together by hand, independent of the writer under test.
struct Bytes {
    std::vector<uint8_t> data;

    Bytes& U8(uint8_t value) {
        data.push_back(value);
        return *this;
    }
    Bytes& U16(uint16_t value) { return U8(value & 0xFF).U8(value >> 8); }
    Bytes& U32(uint32_t value) { return U16(value & 0xFFFF).U16(value >> 16); }
    Bytes& U64(uint64_t value) { return U32(uint32_t(value)).U32(uint32_t(value >> 32)); }
    Bytes& Raw(std::string_view text) {
        data.insert(data.end(), text.begin(), text.end());
        return *this;
    }
    // The one-byte length form only, so that this helper cannot share a mistake with the writer.
    Bytes& Str(std::string_view text) { return U8(uint8_t(text.size())).Raw(text); }
    Bytes& Append(const Bytes& other) {
        data.insert(data.end(), other.data.begin(), other.data.end());
        return *this;
    }
    size_t Size() const { return data.size(); }
};

// Header fields 1 to 6: distinct values, so that a swapped field shows.
inline Bytes Header(uint32_t zoom, uint32_t nodeCount) {
    Bytes b;
    b.U32(310).U32(0xFFFFFFF0).U32(1); // chart widths (the second negative), maximized
    b.U32(uint32_t(-7)).U32(12).U32(812).U32(612);
    return b.U32(zoom).U32(nodeCount);
}

inline Bytes Histories() {
    Bytes b;
    for (int i = 0; i < 10; ++i)
        b.Str("Bear" + std::to_string(i)).Str("Bem" + std::to_string(i));
    return b;
}

constexpr size_t kHeaderSize = 36;

// Fields 2, 10, 12, 33 and 34 of a node record are texts (title, note, font, text 2, responsible).
inline bool IsTextField(uint32_t field) {
    return field == 2 || field == 10 || field == 12 || field >= 33;
}

// What Node(base) stores in a four-byte field: base + field number, the floats (18 to 22) as bit
// patterns, so that a swapped field shows.
inline uint32_t NodeScalar(uint32_t base, uint32_t field) {
    return (field >= 18 && field <= 22 ? 0x40000000 : 0) + base + field;
}

// A node record with the given title field (else "Knoten <base>"), `hours` hours entries and
// `costs` entries in each cost list.
inline Bytes Node(uint32_t base, int hours = 0, int costs = 0, Bytes title = {}) {
    if (title.data.empty())
        title.Str("Knoten " + std::to_string(base));
    const char* const texts[] = {"{\\rtf1 Notiz}", "Arial", "Text2", "Max Mustermann \xAB\xBB MM"};
    Bytes b;
    for (uint32_t field = 1, text = 0; field <= 34; ++field) {
        if (field == 2)
            b.Append(title);
        else if (IsTextField(field))
            b.Str(texts[text++]);
        else
            b.U32(NodeScalar(base, field));
    }
    b.U32(uint32_t(hours));
    for (int i = 0; i < hours; ++i) {
        b.U32(base + 100 + i).U32(base + 200 + i).U32(base + 300 + i);
        b.Str("Bear" + std::to_string(i)).Str("Std");
    }
    for (int list = 0; list < 2; ++list) {
        b.U32(uint32_t(costs));
        for (int i = 0; i < costs; ++i) { // quantity 1, unit price 50, amount -50
            b.U32(base + 400 + i).U32(0x3F800000).U32(0x42480000).U32(0xC2480000);
            b.Str("K").Str(list ? "B" : "C");
        }
    }
    return b;
}

// Header, histories and the given node records.
inline Bytes File(std::initializer_list<Bytes> nodes, uint32_t zoom = 20) {
    Bytes b = Header(zoom, uint32_t(nodes.size()));
    b.Append(Histories());
    for (const Bytes& node : nodes)
        b.Append(node);
    return b;
}

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
    EXPECT_EQ(std::tie(pieces.status, pieces.what, pieces.offset, pieces.trailingBytes),
              std::tie(whole.status, whole.what, whole.offset, whole.trailingBytes));
    if (whole.status == ReadStatus::Ok) {
        EXPECT_EQ(WriteProject(streamed), WriteProject(content));
    }
    return whole;
}

uint32_t Bits(float value) {
    return std::bit_cast<uint32_t>(value);
}

void PatchU32(Bytes& bytes, size_t at, uint32_t value) {
    for (int i = 0; i < 4; ++i)
        bytes.data[at + i] = uint8_t(value >> (8 * i));
}

// A node's four-byte fields in file order, the floats as bit patterns.
std::vector<uint32_t> ScalarsOf(const CProjectNode& n) {
    return {uint32_t(n.m_nKind),       uint32_t(n.m_nLevel),      uint32_t(n.m_bDone),
            uint32_t(n.m_bSelected),   uint32_t(n.m_bVisible),    uint32_t(n.m_bExpanded),
            n.m_timeStart.GetTime(),   n.m_timeDue.GetTime(),     n.m_timeReminder.GetTime(),
            uint32_t(n.m_crColor),     uint32_t(n.m_bStrikeOut),  uint32_t(n.m_bBold),
            uint32_t(n.m_bItalic),     uint32_t(n.m_bUnderline),  Bits(n.m_fHoursPlanned),
            Bits(n.m_fHoursNeeded),    Bits(n.m_fHourlyRate),     Bits(n.m_fCostPlanned),
            Bits(n.m_fCostNeeded),     n.m_timeCreated.GetTime(), n.m_timeChanged.GetTime(),
            n.m_timeDone.GetTime(),    uint32_t(n.m_nRemind1),    uint32_t(n.m_nRemind2),
            uint32_t(n.m_nRemind3),    uint32_t(n.m_nRemind4),    uint32_t(n.m_nRemind5),
            n.m_timeRemind1.GetTime(), n.m_timeRemind2.GetTime()};
}

std::vector<uint32_t> ScalarsOfNode(uint32_t base) {
    std::vector<uint32_t> values;
    for (uint32_t field = 1; field <= 32; ++field)
        if (!IsTextField(field))
            values.push_back(NodeScalar(base, field));
    return values;
}

void ExpectError(std::span<const uint8_t> bytes, const std::string& what, uint64_t offset) {
    SCOPED_TRACE(what);
    ProjectContent content;
    content.firstNode = new CProjectNode(); // must be freed and cleared
    const ReadResult result = ReadBothWays(bytes, content);
    EXPECT_EQ(std::tie(result.status, result.what, result.offset),
              std::tuple(ReadStatus::Error, what, offset));
    EXPECT_EQ(content.firstNode, nullptr);
}

TEST(ProjectFileRead, EveryFieldLandsInItsPlaceAndIsWrittenBackUnchanged) {
    Bytes bytes = File({Node(1000, 2, 1), Node(2000)});
    // The second node's floats: a NaN with a payload, a signalling NaN, -0, the smallest denormal, -inf.
    const std::vector<uint32_t> oddFloats{0x7FC00001, 0x7F800001, 0x80000000, 0x00000001, 0xFF800000};
    const size_t secondFloats = kFirstNode + Node(1000, 2, 1).Size() + 4 + 12 + 7 * 4 + 14 + 4 + 6 + 5 * 4;
    for (size_t i = 0; i < oddFloats.size(); ++i)
        PatchU32(bytes, secondFloats + 4 * i, oddFloats[i]);
    ProjectContent content;
    const ReadResult result = ReadBothWays(Bytes(bytes).Raw("xyz").data, content);
    ASSERT_EQ(result.status, ReadStatus::Ok);
    EXPECT_EQ(result.trailingBytes, 3u) << "bytes after the last node are counted and dropped";
    EXPECT_EQ(result.Message("x"), "");
    EXPECT_EQ(WriteProject(content), bytes.data);
    const ProjectViewValues& view = content.view;
    EXPECT_EQ(std::tuple(view.chartWidth1, view.chartWidth2, view.maximized, view.zoom),
              std::tuple(310, -16, 1u, 20u));
    EXPECT_EQ(view.windowRect, (std::array<int32_t, 4>{-7, 12, 812, 612}));
    EXPECT_EQ(std::tie(content.assigneeHistory[1], content.remarkHistory[1], content.remarkHistory[9]),
              std::tuple("Bear1", "Bem1", "Bem9"));
    const CProjectNode& n = *content.firstNode;
    ASSERT_TRUE(n.m_pNext);
    EXPECT_EQ(std::tuple(n.m_pPrev, n.m_pNext->m_pPrev, n.m_pNext->m_pNext),
              std::tuple(nullptr, &n, nullptr));
    std::vector<uint32_t> second = ScalarsOfNode(2000);
    std::copy(oddFloats.begin(), oddFloats.end(), second.begin() + 14);
    EXPECT_EQ(ScalarsOf(n), ScalarsOfNode(1000));
    EXPECT_EQ(ScalarsOf(*n.m_pNext), second);
    EXPECT_EQ(std::tie(n.m_strTitle, n.m_strNote, n.m_strFontName, n.m_strText2, n.m_strResponsible),
              std::tuple("Knoten 1000", "{\\rtf1 Notiz}", "Arial", "Text2", "Max Mustermann \xAB\xBB MM"));
    // Entries keep their order; cost entries hold quantity before unit price.
    ASSERT_EQ(n.m_pHours.size(), 2u);
    const CHoursEntry hours = n.m_pHours[0];
    EXPECT_EQ(std::tuple(hours.m_time1.GetTime(), hours.m_time2.GetTime(), hours.m_time3.GetTime(),
                         hours.m_str1, hours.m_str2, n.m_pHours[1].m_str1),
              std::tuple(1100u, 1200u, 1300u, "Bear0", "Std", "Bear1"));
    for (const CCostList* costs : {&n.m_pCosts, &n.m_pCosts2}) {
        ASSERT_EQ(costs->size(), 1u);
        const CCostEntry cost = costs->front();
        EXPECT_EQ(std::tuple(cost.m_timeDate.GetTime(), cost.m_fQuantity, cost.m_fUnitPrice, cost.m_fAmount,
                             cost.m_str1, cost.m_str2),
                  std::tuple(1400u, 1.0f, 50.0f, -50.0f, "K", costs == &n.m_pCosts ? "C" : "B"));
    }
}

TEST(ProjectFileStrings, WriterPicksTheShortestLengthForm) {
    // Title of the only node; with empty histories it starts at byte 36 + 20 + 4.
    const size_t at = kHeaderSize + 20 + 4;
    const std::pair<size_t, std::vector<uint8_t>> cases[] = {
        {0, {0x00}},
        {254, {0xFE}},
        {255, {0xFF, 0xFF, 0x00}},
        {65533, {0xFF, 0xFD, 0xFF}},
        {65534, {0xFF, 0xFF, 0xFF, 0xFE, 0xFF, 0x00, 0x00}},
        {70000, {0xFF, 0xFF, 0xFF, 0x70, 0x11, 0x01, 0x00}},
    };
    for (const auto& [length, prefix] : cases) {
        SCOPED_TRACE(length);
        ProjectContent content;
        content.firstNode = new CProjectNode(NodeDefaults{});
        content.firstNode->m_strTitle = std::string(length, 'x');
        const std::vector<uint8_t> bytes = WriteProject(content);
        ASSERT_GT(bytes.size(), at + prefix.size() + length);
        EXPECT_EQ(std::vector<uint8_t>(bytes.begin() + at, bytes.begin() + at + prefix.size()), prefix);

        ProjectContent back;
        ASSERT_EQ(ReadBothWays(bytes, back).status, ReadStatus::Ok);
        EXPECT_EQ(WriteProject(back), bytes);
    }
}

Bytes Utf16(std::u16string_view units) {
    Bytes b;
    for (char16_t unit : units)
        b.U16(unit);
    return b;
}

// The UTF-16 marker: a 16-bit 0xFFFE where the length would be.
Bytes Wide() {
    return Bytes().U8(0xFF).U16(0xFFFE);
}

TEST(ProjectFileStrings, ReaderTakesEveryLengthFormAndUtf16AsWindows1252) {
    const std::pair<Bytes, std::string> cases[] = {
        {Bytes().U8(0xFF).U16(3).Raw("abc"), "abc"},
        {Bytes().U8(0xFF).U16(0xFFFF).U32(2).Raw("de"), "de"},
        {Bytes().U8(0xFF).U16(0xFFFF).U32(0xFFFFFFFF).U64(1).Raw("f"), "f"},
        {Bytes().U8(0xFF).U16(254).Raw(std::string(254, 'g')), std::string(254, 'g')},
        {Wide().U8(3).Append(Utf16(u"A\u00E4\u20AC")), "A\xE4\x80"},
        // Omega, a surrogate pair, a lone low surrogate, "B", a high surrogate at the end.
        {Wide().U8(6).Append(Utf16(u"\u03A9\xD83D\xDE00\xDC00"
                                   u"B\xD800")),
         "???B?"},
        // The 16-bit and 32-bit length forms after the marker; there 0xFFFE is a plain length.
        {Wide().U8(0xFF).U16(300).Append(Utf16(std::u16string(300, u'm'))), std::string(300, 'm')},
        {Wide().U8(0xFF).U16(0xFFFE).Append(Utf16(std::u16string(0xFFFE, u'w'))), std::string(0xFFFE, 'w')},
        {Wide().U8(0xFF).U16(0xFFFF).U32(2).Append(Utf16(u"ok")), "ok"},
        {Wide().U8(0), ""},
    };
    for (const auto& [field, title] : cases) {
        SCOPED_TRACE(title.substr(0, 10));
        ProjectContent content;
        ASSERT_EQ(ReadBothWays(File({Node(1000, 0, 0, field)}).data, content).status, ReadStatus::Ok);
        const CProjectNode& node = *content.firstNode; // the rest of the node must still be found
        EXPECT_EQ(std::tie(node.m_strTitle, node.m_strResponsible),
                  std::tuple(title, "Max Mustermann \xAB\xBB MM"));
        if (title.size() < 0xFF) { // saved again, the title is a plain 8-bit string
            EXPECT_EQ(WriteProject(content), File({Node(1000, 0, 0, Bytes().Str(title))}).data);
        }
    }
}

TEST(ProjectFileFormat, ZoomOutsideFiveToFiftyOrNoNodesOpensTheReplacementDocument) {
    for (const auto& [zoom, count] : {std::pair{4u, 1u}, {51u, 1u}, {20u, 0u}, {0xFFFFFFFFu, 1u}}) {
        SCOPED_TRACE(std::to_string(zoom) + " " + std::to_string(count));
        ProjectContent content;
        // Only the header is read; what follows does not matter.
        const ReadResult result = ReadBothWays(Header(zoom, count).U8(0x99).data, content);
        ASSERT_EQ(result.status, ReadStatus::WrongFormat);
        EXPECT_EQ(result.Message("x.VT5"), "Falsches Dateiformat!");
        const ProjectViewValues& view = content.view;
        EXPECT_EQ(std::tuple(view.zoom, view.chartWidth1, view.chartWidth2, view.maximized),
                  std::tuple(20u, 200, 200, 1u));
        EXPECT_EQ(view.windowRect, (std::array<int32_t, 4>{-7, 12, 812, 612})) << "placement is kept";
        // One root with the raw note template; the node defaults are the model's.
        ASSERT_TRUE(content.firstNode);
        const CProjectNode& root = *content.firstNode;
        EXPECT_EQ(root.m_pNext, nullptr);
        EXPECT_EQ(std::tie(root.m_strTitle, root.m_strNote),
                  std::tuple("Neuer Knoten", DefaultNoteTemplate("Arial")));
        EXPECT_TRUE(content.assigneeHistory[0].empty());
    }
    for (uint32_t zoom : {5u, 50u}) {
        ProjectContent content;
        EXPECT_EQ(ReadBothWays(File({Node(1000)}, zoom).data, content).status, ReadStatus::Ok) << zoom;
        EXPECT_EQ(content.view.zoom, zoom);
    }
}

TEST(ProjectFileDamage, EveryTruncationIsRefusedWithThePlaceOfTheCut) {
    const Bytes whole = File({Node(1000, 2, 1), Node(2000, 1, 2)});
    for (size_t length = 0; length < whole.Size(); ++length) {
        ProjectContent content;
        const ReadResult result = ReadBothWays(std::span(whole.data.data(), length), content);
        ASSERT_EQ(result.status, ReadStatus::Error) << length;
        EXPECT_FALSE(result.what.empty());
        EXPECT_LE(result.offset, length);
        EXPECT_EQ(content.firstNode, nullptr);
    }
    // Within a node's entries one node is enough, so that the node count still fits.
    const Bytes single = File({Node(1000, 2, 1)});
    const size_t secondNode = kFirstNode + Node(1000, 2, 1).Size();
    const size_t secondHours = kFirstNode + Node(1000).Size() - 8 + 22;
    const size_t histories = kHeaderSize + 6 * 11;
    const struct {
        const Bytes& bytes;
        size_t length;
        std::string what;
        size_t offset;
    } cuts[] = {
        {whole, 10, "Maximiert-Kennzeichen", 8},
        {whole, histories + 8, "Bemerkung von Verlaufseintrag 7", histories + 6},
        {whole, secondNode + 9, "Titel von Knoten 2", secondNode + 4},
        {single, secondHours + 13, "Bearbeiter von Stundeneintrag 2 in Knoten 1", secondHours + 12},
        {single, single.Size() - 1, "Bemerkung von Kosteneintrag (benötigt) 1 in Knoten 1",
         single.Size() - 2},
    };
    for (const auto& cut : cuts)
        ExpectError(std::span(cut.bytes.data.data(), cut.length), cut.what, cut.offset);
}

TEST(ProjectFileDamage, CountsAndLengthsBeyondTheBytesLeftAreRefused) {
    const size_t hoursCount = kFirstNode + Node(1000).Size() - 12;
    const struct {
        size_t at;
        uint32_t count;
        std::string what;
    } counts[] = {
        {32, 0xFFFFFFFF, "Knotenanzahl"},
        {32, 2, "Knotenanzahl"}, // two nodes promised, one there
        {hoursCount, 0xFFFFFFFF, "Anzahl der Stundeneinträge von Knoten 1"},
        {hoursCount + 8, 1,
         "Anzahl der benötigten Kosteneinträge von Knoten 1"}, // 18 bytes needed, none left
    };
    for (const auto& c : counts) {
        Bytes bytes = File({Node(1000)});
        PatchU32(bytes, c.at, c.count);
        ExpectError(bytes.data, c.what, c.at);
    }
    for (const Bytes& field : {Bytes().U8(200).Raw("kurz"), Bytes().U8(0xFF).U16(0xFFFD),
                               Bytes().U8(0xFF).U16(0xFFFF).U32(0xFFFFFFFE),
                               Bytes().U8(0xFF).U16(0xFFFF).U32(0xFFFFFFFF).U64(uint64_t(1) << 63),
                               Bytes().U8(0xFF).U16(0xFFFF).U32(0xFFFFFFFF).U64(~uint64_t(0)),
                               Wide().U8(0xFF).U16(0xFFFF).U32(0x80000000),
                               Wide().U8(0xFF).U16(0xFFFF).U32(0xFFFFFFFF).U64(uint64_t(1) << 63)}) {
        // Enough bytes behind for one node record, fewer than the length asks for.
        const Bytes file = Header(20, 1).Append(Histories()).U32(1).Append(field).Raw(std::string(140, '\0'));
        ExpectError(file.data, "Titel von Knoten 1", kFirstNode + 4);
    }
}

// Long texts bypass the read window, and a save hands its bytes over in pieces of at most 1 MiB.
TEST(ProjectFileStream, LargeProjectsGoInPiecesAndAShortOrFailingSourceOrSinkIsAnError) {
    ProjectContent content;
    ASSERT_EQ(ReadBothWays(File({Node(1000, 2, 1), Node(2000)}).data, content).status, ReadStatus::Ok);
    content.firstNode->m_strNote = std::string(2'500'000, 'n');
    content.firstNode->m_pNext->m_strTitle = std::string(300'000, 't');
    const std::vector<uint8_t> bytes = WriteProject(content);
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
    EXPECT_EQ(streamed, bytes);
    int calls = 0;
    EXPECT_FALSE(write([&](std::span<const uint8_t>) { return ++calls < 2; }));
    EXPECT_EQ(calls, 2);
    for (size_t piece : {size_t(1) << 16, bytes.size()}) {
        ProjectContent back;
        const ReadResult result = ReadProject(bytes.size(), SourceOver(bytes, piece), back);
        ASSERT_EQ(result.status, ReadStatus::Ok);
        EXPECT_EQ(result.trailingBytes, 0u);
        EXPECT_EQ(WriteProject(back), bytes) << piece;
    }
    // The file claims more bytes than it has: it ends early, inside the second node's long title.
    const size_t secondNode = kFirstNode + Node(1000, 2, 1).Size() + 2'500'000 - 13 + 6;
    ProjectContent back;
    ReadResult result =
        ReadProject(bytes.size(), SourceOver(std::span(bytes).first(secondNode + 200'000), 4096), back);
    EXPECT_EQ(std::tie(result.status, result.what, result.offset, result.ioError),
              std::tuple(ReadStatus::Error, "Titel von Knoten 2", secondNode + 4, 0));
    EXPECT_EQ(back.firstNode, nullptr);
    // A read error half-way is kept and told.
    ProjectSource inner = SourceOver(bytes, 4096);
    calls = 0;
    const ProjectSource failing = [&](uint8_t* buffer, size_t size) {
        return ++calls > 3 ? int64_t(-EIO) : inner(buffer, size);
    };
    result = ReadProject(bytes.size(), failing, back);
    EXPECT_EQ(std::tuple(result.status, result.ioError), std::tuple(ReadStatus::Error, -EIO));
    EXPECT_NE(result.Message("Plan.VT5").find("kann nicht gelesen werden: Ein-/Ausgabefehler"),
              std::string::npos)
        << result.Message("Plan.VT5");
}

} // namespace

} // namespace velto
