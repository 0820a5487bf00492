#include "document/ProjectFile.h"

#include "io/FileSystem.h"
#include "model/Cp1252.h"
#include "model/NodeList.h"
#include "text/DefaultNote.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <utility>

namespace velto {

namespace {

// Smallest encoded sizes of the repeated records; a count that the bytes left cannot hold is
// refused before anything is built. A node has 32 four-byte fields (its three list counts
// included) and five strings of at least one byte.
constexpr uint64_t kMinNodeBytes = 32 * 4 + 5;
constexpr uint64_t kMinHoursBytes = 3 * 4 + 2;
constexpr uint64_t kMinCostBytes = 4 * 4 + 2;

// The pieces a streamed save hands to its sink.
constexpr size_t kSinkPieceSize = 1 << 20;

// The order of the fields, written once for both directions: the reader's archive fills the
// fields, the writer's archives measure or store them. The names are the reader's, for its error
// texts.
template <class Archive, class View> void ViewFields(Archive& ar, View& view) {
    ar.Field(view.chartWidth1, "Diagrammbreite 1");
    ar.Field(view.chartWidth2, "Diagrammbreite 2");
    ar.Field(view.maximized, "Maximiert-Kennzeichen");
    ar.Field(view.windowRect[0], "Fensterposition links");
    ar.Field(view.windowRect[1], "Fensterposition oben");
    ar.Field(view.windowRect[2], "Fensterposition rechts");
    ar.Field(view.windowRect[3], "Fensterposition unten");
    ar.Field(view.zoom, "Zoomstufe");
}

template <class Archive, class Node> void NodeFields(Archive& ar, Node& node) {
    ar.Field(node.m_nKind, "Knotenart");
    ar.Field(node.m_strTitle, "Titel");
    ar.Field(node.m_nLevel, "Ebene");
    ar.Field(node.m_bDone, "Erledigt-Kennzeichen");
    ar.Field(node.m_bSelected, "Auswahl-Kennzeichen");
    ar.Field(node.m_bVisible, "Sichtbar-Kennzeichen");
    ar.Field(node.m_bExpanded, "Aufgeklappt-Kennzeichen");
    ar.Field(node.m_timeStart, "Startzeit");
    ar.Field(node.m_timeDue, "Fälligkeit");
    ar.Field(node.m_strNote, "Notiz");
    ar.Field(node.m_timeReminder, "Erinnerungszeit");
    ar.Field(node.m_strFontName, "Schriftart");
    ar.Field(node.m_crColor, "Farbe");
    ar.Field(node.m_bStrikeOut, "Durchgestrichen-Kennzeichen");
    ar.Field(node.m_bBold, "Fett-Kennzeichen");
    ar.Field(node.m_bItalic, "Kursiv-Kennzeichen");
    ar.Field(node.m_bUnderline, "Unterstrichen-Kennzeichen");
    ar.Field(node.m_fHoursPlanned, "Kalkulierte Stunden");
    ar.Field(node.m_fHoursNeeded, "Benötigte Stunden");
    ar.Field(node.m_fHourlyRate, "Stundensatz");
    ar.Field(node.m_fCostPlanned, "Kalkulierte Kosten");
    ar.Field(node.m_fCostNeeded, "Benötigte Kosten");
    ar.Field(node.m_timeCreated, "Erstellt");
    ar.Field(node.m_timeChanged, "Letzte Änderung");
    ar.Field(node.m_timeDone, "Erledigt am");
    ar.Field(node.m_nRemind1, "Erinnerungswert 1");
    ar.Field(node.m_nRemind2, "Erinnerungswert 2");
    ar.Field(node.m_nRemind3, "Erinnerungswert 3");
    ar.Field(node.m_nRemind4, "Erinnerungswert 4");
    ar.Field(node.m_nRemind5, "Erinnerungswert 5");
    ar.Field(node.m_timeRemind1, "Erinnerungszeit 1");
    ar.Field(node.m_timeRemind2, "Erinnerungszeit 2");
    ar.Field(node.m_strText2, "Text 2");
    ar.Field(node.m_strResponsible, "Verantwortlich");
}

struct HoursFields {
    template <class Archive, class Entry> void operator()(Archive& ar, Entry& entry) const {
        ar.Field(entry.m_time1, "Tag");
        ar.Field(entry.m_time2, "Beginn");
        ar.Field(entry.m_time3, "Ende");
        ar.Field(entry.m_str1, "Bearbeiter");
        ar.Field(entry.m_str2, "Bemerkung");
    }
};

// Quantity before unit price: the file has always had them in this order.
struct CostFields {
    template <class Archive, class Entry> void operator()(Archive& ar, Entry& entry) const {
        ar.Field(entry.m_timeDate, "Datum");
        ar.Field(entry.m_fQuantity, "Anzahl");
        ar.Field(entry.m_fUnitPrice, "Einzelpreis");
        ar.Field(entry.m_fAmount, "Summe");
        ar.Field(entry.m_str1, "Bearbeiter");
        ar.Field(entry.m_str2, "Bemerkung");
    }
};

// ---- Reading ----

// Where the reader is, for the error text: a header field, a field of node n, or a field of an
// entry of some list (a history pair, an hours or cost entry), inside node n or not.
struct Place {
    uint32_t node = 0; // 1-based; 0 outside the node records
    const char* list = nullptr;
    uint32_t entry = 0; // 1-based
};

std::string Describe(const char* field, const Place& place) {
    std::string text = field;
    if (place.list)
        text += std::string(" von ") + place.list + " " + std::to_string(place.entry);
    if (place.node)
        text += (place.list ? " in Knoten " : " von Knoten ") + std::to_string(place.node);
    return text;
}

// Windows-1252 has no character beyond the Basic Multilingual Plane, so a surrogate pair, like a
// lone surrogate, becomes one "?".
std::string Utf16ToCp1252(const uint8_t* data, uint64_t units) {
    std::string text;
    text.reserve(units);
    for (uint64_t i = 0; i < units; ++i) {
        const char16_t unit = char16_t(data[2 * i] | data[2 * i + 1] << 8);
        const bool high = unit >= 0xD800 && unit <= 0xDBFF;
        if (high && i + 1 < units) {
            const char16_t next = char16_t(data[2 * i + 2] | data[2 * i + 3] << 8);
            if (next >= 0xDC00 && next <= 0xDFFF)
                ++i;
        }
        text += char(cp1252::FromUnicode(unit).value_or('?'));
    }
    return text;
}

// Reads little-endian values from a file's bytes: all of them at once, or fetched from a source
// into a window as they are needed. A failed read records the first failure (what was being read
// and where it began) and moves to the end, so that every later read fails too and the caller can
// finish its loops without checking each field.
class ArchiveReader {
public:
    explicit ArchiveReader(std::span<const uint8_t> bytes)
        : m_data(bytes.data()), m_have(bytes.size()), m_total(bytes.size()) {}
    ArchiveReader(uint64_t fileSize, const ProjectSource& source)
        : m_source(&source), m_window(size_t(std::min<uint64_t>(kWindowSize, fileSize))),
          m_data(m_window.data()), m_total(fileSize) {}

    Place place;

    bool Failed() const { return m_failed; }
    uint64_t Offset() const { return m_base + m_pos; }
    uint64_t Left() const { return m_total - Offset(); }
    const std::string& What() const { return m_what; }
    uint64_t FailedAt() const { return m_failedAt; }
    int IoError() const { return m_ioError; }

    void Field(uint32_t& value, const char* name) { value = U32(name); }
    void Field(int32_t& value, const char* name) { value = int32_t(U32(name)); }
    void Field(float& value, const char* name) { value = std::bit_cast<float>(U32(name)); }
    void Field(CTime& value, const char* name) { value = CTime(U32(name)); }
    void Field(std::string& value, const char* name);
    void Field(SharedText& value, const char* name);
    // An entry's text, read into the first of two buffers taken in turn: both texts of an entry stay
    // valid until it is stored.
    void Field(std::string_view& value, const char* name) {
        std::string& text = m_entryTexts[m_nextEntryText];
        m_nextEntryText ^= 1;
        Field(text, name);
        value = text;
    }

    // A count of records that each take at least minRecordBytes; 0 after a failure.
    uint32_t Count(const char* name, uint64_t minRecordBytes) {
        const uint64_t start = Offset();
        const uint32_t count = U32(name);
        if (count > Left() / minRecordBytes) {
            Fail(name, start);
            return 0;
        }
        return count;
    }

    // Also used for a check made after the fact: the node count is weighed against the bytes left
    // only once the histories behind it are read.
    void Fail(const char* name, uint64_t at) {
        if (!m_failed) {
            m_failed = true;
            m_what = Describe(name, place);
            m_failedAt = at;
        }
        m_total = Offset();
        m_have = m_pos;
    }

private:
    // Large enough for every field but long strings, which bypass it.
    static constexpr size_t kWindowSize = 256 * 1024;

    template <class T> bool Take(T& value) {
        if (m_have - m_pos < sizeof(T) && !Fetch(sizeof(T)))
            return false;
        uint64_t assembled = 0;
        for (size_t i = 0; i < sizeof(T); ++i)
            assembled |= uint64_t(m_data[m_pos + i]) << (8 * i);
        value = T(assembled);
        m_pos += sizeof(T);
        return true;
    }

    uint32_t U32(const char* name) {
        const uint64_t start = Offset();
        uint32_t value = 0;
        if (!Take(value))
            Fail(name, start);
        return value;
    }

    bool TakeLength(uint64_t& length, bool& wide);
    bool Fetch(size_t count);
    bool TakeBytes(char* bytes, uint64_t count);
    size_t Receive(uint8_t* buffer, size_t needed, size_t room, uint64_t at);

    const ProjectSource* m_source = nullptr;
    std::vector<uint8_t> m_window;
    const uint8_t* m_data;
    size_t m_have = 0;   // valid bytes at m_data
    size_t m_pos = 0;    // the next byte, within m_data
    uint64_t m_base = 0; // the file offset of m_data[0]
    uint64_t m_total;    // the file's size; lowered when it turns out shorter
    int m_ioError = 0;
    bool m_failed = false;
    std::string m_what;
    uint64_t m_failedAt = 0;
    std::string m_entryTexts[2];
    int m_nextEntryText = 0;
};

// Makes count (at most the window's size) bytes available at m_pos: keeps the unread rest at the
// front of the window and fills up the window from the source.
bool ArchiveReader::Fetch(size_t count) {
    if (!m_source || count > Left())
        return false;
    const size_t rest = m_have - m_pos;
    std::memmove(m_window.data(), m_data + m_pos, rest);
    m_base += m_pos;
    m_pos = 0;
    m_have = rest;
    const size_t room = size_t(std::min<uint64_t>(m_window.size(), Left()));
    m_have += Receive(m_window.data() + rest, count - rest, room - rest, m_base + rest);
    return m_have >= count;
}

// Reads into buffer (file offset `at`) until at least `needed` bytes have come, taking up to `room`
// if the source offers them. A file that ends sooner lowers the size the reader believes in; a
// read error is kept for the message.
size_t ArchiveReader::Receive(uint8_t* buffer, size_t needed, size_t room, uint64_t at) {
    size_t done = 0;
    while (done < needed) {
        const int64_t got = (*m_source)(buffer + done, room - done);
        if (got <= 0) {
            m_ioError = int(std::min<int64_t>(got, 0));
            m_total = at + done;
            break;
        }
        done += size_t(got);
    }
    return done;
}

// count bytes (at most Left()) into bytes: from the window when they fit in it, else the window's
// rest followed by a direct read, so that a long note never needs a window of its size.
bool ArchiveReader::TakeBytes(char* bytes, uint64_t count) {
    if (m_have - m_pos >= count || (count <= m_window.size() && Fetch(size_t(count)))) {
        std::memcpy(bytes, m_data + m_pos, size_t(count));
        m_pos += size_t(count);
        return true;
    }
    if (!m_source || count > Left())
        return false;
    const size_t inWindow = m_have - m_pos;
    const size_t needed = size_t(count) - inWindow;
    std::memcpy(bytes, m_data + m_pos, inWindow);
    m_base += m_have;
    m_pos = m_have = 0;
    const size_t got = Receive(reinterpret_cast<uint8_t*>(bytes) + inWindow, needed, needed, m_base);
    m_base += got;
    return got == needed;
}

// The archive's length prefix: one byte below 0xFF; else a 16-bit length below 0xFFFF; else a
// 32-bit length below 0xFFFFFFFF; else a 64-bit length. A 16-bit 0xFFFE in place of the length
// marks a UTF-16 string: a second prefix of the same kind follows and counts 16-bit units; in
// that second prefix 0xFFFE is an ordinary length.
bool ArchiveReader::TakeLength(uint64_t& length, bool& wide) {
    uint8_t byte = 0;
    if (!Take(byte))
        return false;
    if (byte < 0xFF) {
        length = byte;
        return true;
    }
    uint16_t word = 0;
    if (!Take(word))
        return false;
    if (word == 0xFFFE && !wide) {
        wide = true;
        return TakeLength(length, wide);
    }
    if (word < 0xFFFF) {
        length = word;
        return true;
    }
    uint32_t dword = 0;
    if (!Take(dword))
        return false;
    if (dword < 0xFFFFFFFF) {
        length = dword;
        return true;
    }
    return Take(length);
}

void ArchiveReader::Field(std::string& value, const char* name) {
    const uint64_t start = Offset();
    uint64_t length = 0;
    bool wide = false;
    if (!TakeLength(length, wide) || length > (wide ? Left() / 2 : Left())) {
        Fail(name, start);
        return;
    }
    value.resize(size_t(wide ? 2 * length : length));
    if (!TakeBytes(value.data(), value.size())) {
        Fail(name, start);
        return;
    }
    if (wide)
        value = Utf16ToCp1252(reinterpret_cast<const uint8_t*>(value.data()), length);
}

// A narrow text goes straight into its storage, so that a long note is never held twice; a UTF-16
// one is converted on the way.
void ArchiveReader::Field(SharedText& value, const char* name) {
    const uint64_t start = Offset();
    uint64_t length = 0;
    bool wide = false;
    if (!TakeLength(length, wide) || length > (wide ? Left() / 2 : Left())) {
        Fail(name, start);
        return;
    }
    if (wide) {
        std::string units(size_t(2 * length), '\0');
        if (TakeBytes(units.data(), units.size()))
            value = Utf16ToCp1252(reinterpret_cast<const uint8_t*>(units.data()), length);
        else
            Fail(name, start);
        return;
    }
    value = SharedText::Make(length, [&](char* bytes) { return TakeBytes(bytes, length); });
    if (value.size() != length)
        Fail(name, start);
}

template <class Entry, class Fields>
EntryList<Entry> LoadEntries(ArchiveReader& reader, const char* countName, const char* listName,
                             uint64_t minBytes, Fields fields) {
    const uint32_t count = reader.Count(countName, minBytes);
    typename EntryList<Entry>::Builder builder(count);
    reader.place.list = listName;
    for (uint32_t i = 0; i < count && !reader.Failed(); ++i) {
        reader.place.entry = i + 1;
        const uint64_t start = reader.Offset();
        Entry entry;
        fields(reader, entry);
        if (!reader.Failed() && !builder.Add(entry))
            reader.Fail("Texte (mehr als 4 GiB in einer Liste)", start);
    }
    reader.place.list = nullptr;
    return reader.Failed() ? EntryList<Entry>() : builder.Finish();
}

void LoadHistories(ArchiveReader& reader, ProjectContent& content) {
    reader.place.list = "Verlaufseintrag";
    for (size_t i = 0; i < content.assigneeHistory.size(); ++i) {
        reader.place.entry = uint32_t(i + 1);
        reader.Field(content.assigneeHistory[i], "Bearbeiter");
        reader.Field(content.remarkHistory[i], "Bemerkung");
    }
    reader.place.list = nullptr;
}

void LoadNodes(ArchiveReader& reader, uint32_t count, ProjectContent& content) {
    // Asking the C library for local time per node would dominate a large load.
    const NodeDefaults defaults = NodeDefaults::Current();
    CProjectNode* last = nullptr;
    for (uint32_t i = 0; i < count && !reader.Failed(); ++i) {
        reader.place.node = i + 1;
        auto* node = new CProjectNode(defaults);
        // Linked before it is filled, so that a failure part-way frees it with the rest.
        node->m_pPrev = last;
        (last ? last->m_pNext : content.firstNode) = node;
        last = node;
        NodeFields(reader, *node);
        node->m_pHours = LoadEntries<CHoursEntry>(reader, "Anzahl der Stundeneinträge", "Stundeneintrag",
                                                  kMinHoursBytes, HoursFields{});
        node->m_pCosts = LoadEntries<CCostEntry>(reader, "Anzahl der kalkulierten Kosteneinträge",
                                                 "Kosteneintrag (kalkuliert)", kMinCostBytes, CostFields{});
        node->m_pCosts2 = LoadEntries<CCostEntry>(reader, "Anzahl der benötigten Kosteneinträge",
                                                  "Kosteneintrag (benötigt)", kMinCostBytes, CostFields{});
    }
    reader.place.node = 0;
}

// What a file with an implausible header opens as: one root node with the raw note template.
void MakeReplacementDocument(ProjectContent& content) {
    content.view.zoom = 20;
    content.view.chartWidth1 = 200;
    content.view.chartWidth2 = 200;
    auto* root = new CProjectNode(NodeDefaults::Current());
    root->m_strNote = DefaultNoteTemplate("Arial");
    content.firstNode = root;
}

ReadResult Load(ArchiveReader& reader, ProjectContent& out) {
    ProjectContent content;
    ReadResult result;
    ViewFields(reader, content.view);
    const uint64_t countAt = reader.Offset();
    uint32_t nodeCount = 0;
    reader.Field(nodeCount, "Knotenanzahl");
    if (!reader.Failed() && (nodeCount == 0 || content.view.zoom < 5 || content.view.zoom > 50)) {
        MakeReplacementDocument(content);
        result.status = ReadStatus::WrongFormat;
    } else {
        LoadHistories(reader, content);
        if (nodeCount > reader.Left() / kMinNodeBytes)
            reader.Fail("Knotenanzahl", countAt);
        LoadNodes(reader, nodeCount, content);
        result.trailingBytes = reader.Left();
    }
    if (reader.Failed()) {
        // Nothing of a damaged file is kept: the document is not opened.
        out = ProjectContent{};
        return {ReadStatus::Error, reader.What(), reader.FailedAt(), 0, reader.IoError()};
    }
    out = std::move(content);
    return result;
}

// ---- Writing ----

uint64_t LengthPrefixSize(uint64_t length) {
    if (length < 0xFF)
        return 1;
    if (length < 0xFFFE)
        return 3;
    if (length < 0xFFFFFFFF)
        return 7;
    return 15;
}

// Measures what StoreArchive will write, so that the output is allocated once.
class SizeArchive {
public:
    uint64_t size = 0;
    template <class Scalar> void Field(const Scalar&, const char* = nullptr) { size += 4; }
    void Field(std::string_view value, const char* = nullptr) {
        size += LengthPrefixSize(value.size()) + value.size();
    }
    void Field(const std::string& value, const char* name = nullptr) { Field(std::string_view(value), name); }
    void Field(const SharedText& value, const char* name = nullptr) { Field(value.str(), name); }
};

// Stores the fields into a buffer. With a sink, a full buffer is handed over and filled again; without
// one, the buffer must hold the whole file.
class StoreArchive {
public:
    StoreArchive(std::span<uint8_t> buffer, const ProjectSink* sink)
        : m_begin(buffer.data()), m_out(m_begin), m_end(m_begin + buffer.size()), m_sink(sink) {}

    void Field(uint32_t value, const char* = nullptr) { Put(value); }
    void Field(int32_t value, const char* = nullptr) { Put(uint32_t(value)); }
    void Field(float value, const char* = nullptr) { Put(std::bit_cast<uint32_t>(value)); }
    void Field(CTime value, const char* = nullptr) { Put(value.GetTime()); }
    void Field(std::string_view value, const char* = nullptr) {
        const uint64_t length = value.size();
        if (length < 0xFF) {
            Put(uint8_t(length));
        } else if (length < 0xFFFE) {
            Put(uint8_t(0xFF));
            Put(uint16_t(length));
        } else if (length < 0xFFFFFFFF) {
            Put(uint8_t(0xFF));
            Put(uint16_t(0xFFFF));
            Put(uint32_t(length));
        } else {
            Put(uint8_t(0xFF));
            Put(uint16_t(0xFFFF));
            Put(uint32_t(0xFFFFFFFF));
            Put(length);
        }
        PutBytes(reinterpret_cast<const uint8_t*>(value.data()), length);
    }

    // Hands over what is left; false when the sink refused any piece.
    bool Finish() { return Flush(); }

private:
    template <class T> void Put(T value) {
        uint8_t bytes[sizeof(T)];
        for (size_t i = 0; i < sizeof(T); ++i)
            bytes[i] = uint8_t(uint64_t(value) >> (8 * i));
        PutBytes(bytes, sizeof(T));
    }

    void PutBytes(const uint8_t* data, size_t size) {
        while (size > 0) {
            if (m_out == m_end && !Flush())
                return;
            const size_t piece = std::min(size, size_t(m_end - m_out));
            std::memcpy(m_out, data, piece);
            m_out += piece;
            data += piece;
            size -= piece;
        }
    }

    bool Flush() {
        if (m_out != m_begin && !m_failed) {
            m_failed = !m_sink || !(*m_sink)(std::span<const uint8_t>(m_begin, m_out));
            m_out = m_begin;
        }
        return !m_failed;
    }

    uint8_t* m_begin;
    uint8_t* m_out;
    uint8_t* m_end;
    const ProjectSink* m_sink;
    bool m_failed = false;
};

template <class Archive, class Entry, class Fields>
void StoreEntries(Archive& ar, const EntryList<Entry>& list, Fields fields) {
    ar.Field(uint32_t(list.size()));
    for (const Entry entry : list)
        fields(ar, entry);
}

template <class Archive>
void StoreProject(Archive& ar, const ProjectViewValues& view,
                  const std::array<std::string, 10>& assigneeHistory,
                  const std::array<std::string, 10>& remarkHistory, const CProjectNode* firstNode) {
    ViewFields(ar, view);
    ar.Field(uint32_t(CountNodes(firstNode)));
    for (size_t i = 0; i < assigneeHistory.size(); ++i) {
        ar.Field(assigneeHistory[i]);
        ar.Field(remarkHistory[i]);
    }
    for (const CProjectNode* node = firstNode; node; node = node->m_pNext) {
        NodeFields(ar, *node);
        StoreEntries(ar, node->m_pHours, HoursFields{});
        StoreEntries(ar, node->m_pCosts, CostFields{});
        StoreEntries(ar, node->m_pCosts2, CostFields{});
    }
}

} // namespace

ProjectContent::~ProjectContent() {
    FreeNodeList(firstNode);
}

ProjectContent::ProjectContent(ProjectContent&& other) noexcept
    : view(other.view), assigneeHistory(std::move(other.assigneeHistory)),
      remarkHistory(std::move(other.remarkHistory)), firstNode(other.ReleaseNodes()) {}

ProjectContent& ProjectContent::operator=(ProjectContent&& other) noexcept {
    if (this != &other) {
        FreeNodeList(firstNode);
        view = other.view;
        assigneeHistory = std::move(other.assigneeHistory);
        remarkHistory = std::move(other.remarkHistory);
        firstNode = other.ReleaseNodes();
    }
    return *this;
}

CProjectNode* ProjectContent::ReleaseNodes() {
    return std::exchange(firstNode, nullptr);
}

std::string ReadResult::Message(const std::string& path) const {
    switch (status) {
    case ReadStatus::Ok:
        return {};
    case ReadStatus::WrongFormat:
        return "Falsches Dateiformat!";
    case ReadStatus::Error:
        break;
    }
    const std::string place = what + " (Byte " + std::to_string(offset) + ").";
    if (ioError)
        return "Die Datei \"" + path + "\" kann nicht gelesen werden: " + FileErrorReason(ioError) +
               ".\nFehler beim Lesen von: " + place;
    return "Die Datei \"" + path + "\" kann nicht geöffnet werden: sie ist unvollständig oder beschädigt.\n" +
           "Fehler beim Lesen von: " + place;
}

ReadResult ReadProject(std::span<const uint8_t> bytes, ProjectContent& out) {
    ArchiveReader reader(bytes);
    return Load(reader, out);
}

ReadResult ReadProject(uint64_t fileSize, const ProjectSource& source, ProjectContent& out) {
    ArchiveReader reader(fileSize, source);
    return Load(reader, out);
}

std::vector<uint8_t> WriteProject(const ProjectViewValues& view,
                                  const std::array<std::string, 10>& assigneeHistory,
                                  const std::array<std::string, 10>& remarkHistory,
                                  const CProjectNode* firstNode) {
    SizeArchive measure;
    StoreProject(measure, view, assigneeHistory, remarkHistory, firstNode);
    std::vector<uint8_t> bytes(measure.size);
    StoreArchive store(bytes, nullptr);
    StoreProject(store, view, assigneeHistory, remarkHistory, firstNode);
    return bytes;
}

bool WriteProject(const ProjectViewValues& view, const std::array<std::string, 10>& assigneeHistory,
                  const std::array<std::string, 10>& remarkHistory, const CProjectNode* firstNode,
                  const ProjectSink& sink) {
    std::vector<uint8_t> buffer(kSinkPieceSize);
    StoreArchive store(buffer, &sink);
    StoreProject(store, view, assigneeHistory, remarkHistory, firstNode);
    return store.Finish();
}

std::vector<uint8_t> WriteProject(const ProjectContent& content) {
    return WriteProject(content.view, content.assigneeHistory, content.remarkHistory, content.firstNode);
}

} // namespace velto
