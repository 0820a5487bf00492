#include "files/ClockJournal.h"

#include "io/Process.h"
#include "model/Cp1252.h"
#include "model/ProjectNode.h"

#include <charconv>
#include <cstdlib>
#include <limits>

namespace velto {

namespace {

constexpr char kSeparator = '\t';
constexpr size_t kFieldCount = 7;

// Texts may hold the separator or a line break; a backslash marks them.
std::string Escape(std::string_view text) {
    std::string out;
    for (const char c : text) {
        switch (c) {
        case '\\':
            out += "\\\\";
            break;
        case '\t':
            out += "\\t";
            break;
        case '\n':
            out += "\\n";
            break;
        case '\r':
            out += "\\r";
            break;
        default:
            out += c;
        }
    }
    return out;
}

bool Unescape(std::string_view field, std::string& out) {
    out.clear();
    for (size_t i = 0; i < field.size(); ++i) {
        if (field[i] != '\\') {
            out += field[i];
            continue;
        }
        if (++i == field.size())
            return false;
        switch (field[i]) {
        case '\\':
            out += '\\';
            break;
        case 't':
            out += '\t';
            break;
        case 'n':
            out += '\n';
            break;
        case 'r':
            out += '\r';
            break;
        default:
            return false;
        }
    }
    return true;
}

template <typename Number> bool ParseNumber(std::string_view field, Number& value) {
    const auto parsed = std::from_chars(field.data(), field.data() + field.size(), value);
    return !field.empty() && parsed.ec == std::errc() && parsed.ptr == field.data() + field.size();
}

std::vector<std::string_view> SplitFields(std::string_view line) {
    std::vector<std::string_view> fields;
    size_t start = 0;
    for (size_t tab; (tab = line.find(kSeparator, start)) != std::string_view::npos; start = tab + 1)
        fields.push_back(line.substr(start, tab - start));
    fields.push_back(line.substr(start));
    return fields;
}

// Fields: clock-in, host, process, project, node creation, node position, node title.
bool ParseLine(std::string_view line, RunningClock& clock) {
    const std::vector<std::string_view> f = SplitFields(line);
    uint32_t clockIn = 0, created = 0;
    if (f.size() != kFieldCount || !ParseNumber(f[0], clockIn) || !Unescape(f[1], clock.host) ||
        !ParseNumber(f[2], clock.processId) || !Unescape(f[3], clock.project) ||
        !ParseNumber(f[4], created) || !ParseNumber(f[5], clock.node.position) ||
        !Unescape(f[6], clock.node.title))
        return false;
    clock.clockIn = CTime(clockIn);
    clock.node.created = CTime(created);
    return true;
}

std::string FormatLine(const RunningClock& c) {
    const std::string fields[] = {std::to_string(c.clockIn.GetTime()),
                                  Escape(c.host),
                                  std::to_string(c.processId),
                                  Escape(c.project),
                                  std::to_string(c.node.created.GetTime()),
                                  std::to_string(c.node.position),
                                  Escape(c.node.title)};
    std::string line;
    for (const std::string& field : fields)
        line += (line.empty() ? "" : std::string(1, kSeparator)) + field;
    return line + '\n';
}

bool IsSameClock(const RunningClock& a, const RunningClock& b) {
    return a.project == b.project && a.host == b.host && a.processId == b.processId &&
           a.clockIn == b.clockIn && a.node.created == b.node.created;
}

int PositionOf(const CProjectNode* first, const CProjectNode& node) {
    int position = 0;
    for (const CProjectNode* n = first; n && n != &node; n = n->m_pNext)
        ++position;
    return position;
}

} // namespace

ClockJournalContent ParseClockJournal(std::string_view bytes) {
    ClockJournalContent content;
    while (!bytes.empty()) {
        const size_t end = bytes.find('\n');
        const std::string_view line = bytes.substr(0, end);
        bytes.remove_prefix(end == std::string_view::npos ? bytes.size() : end + 1);
        RunningClock clock;
        if (ParseLine(line, clock))
            content.clocks.push_back(std::move(clock));
        else if (!line.empty())
            content.damagedLines.emplace_back(line);
    }
    return content;
}

std::string FormatClockJournal(const ClockJournalContent& content) {
    std::string bytes;
    for (const RunningClock& clock : content.clocks)
        bytes += FormatLine(clock);
    for (const std::string& line : content.damagedLines)
        bytes += line + '\n';
    return bytes;
}

ClockJournalContent ReadClockJournal(const std::string& path, FileSystem& fs) {
    const DataFileBytes read = ReadDataFile(fs, path);
    ClockJournalContent content = ParseClockJournal(read.bytes);
    content.error = read.error;
    return content;
}

SaveOutcome RecordClock(const std::string& path, const RunningClock& clock, FileSystem& fs) {
    ClockJournalContent content = ReadClockJournal(path, fs);
    if (content.error)
        return {content.error};
    content.clocks.push_back(clock);
    return SaveDataFile(fs, path, FormatClockJournal(content));
}

SaveOutcome ForgetClock(const std::string& path, const RunningClock& clock, FileSystem& fs) {
    ClockJournalContent content = ReadClockJournal(path, fs);
    if (content.error)
        return {content.error};
    if (std::erase_if(content.clocks, [&clock](const RunningClock& c) { return IsSameClock(c, clock); }) == 0)
        return {};
    return SaveDataFile(fs, path, FormatClockJournal(content));
}

RunningClock ClockOfNode(const std::string& projectPathUtf8, const CProjectNode* first,
                         const CProjectNode& node) {
    return {cp1252::FromUtf8Lossy(projectPathUtf8),
            {node.m_timeCreated, std::string(node.m_strTitle), PositionOf(first, node)},
            node.m_timeClockIn,
            cp1252::FromUtf8Lossy(ThisHostName()),
            ThisProcessId()};
}

std::vector<RunningClock> EndedClocksOf(const ClockJournalContent& content,
                                        const std::string& projectPathUtf8) {
    const std::string project = cp1252::FromUtf8Lossy(projectPathUtf8);
    std::vector<RunningClock> ended;
    for (const RunningClock& clock : content.clocks)
        if (clock.project == project && HasProcessEnded(cp1252::ToUtf8(clock.host), clock.processId))
            ended.push_back(clock);
    return ended;
}

CProjectNode* FindClockedNode(CProjectNode* first, const NodeIdentity& identity) {
    CProjectNode* found = nullptr;
    int nearest = std::numeric_limits<int>::max();
    int position = 0;
    for (CProjectNode* node = first; node; node = node->m_pNext, ++position) {
        const int distance = std::abs(position - identity.position);
        if (node->m_timeCreated == identity.created && node->m_strTitle == identity.title &&
            distance < nearest) {
            found = node;
            nearest = distance;
        }
    }
    return found;
}

std::string EndedClockQuestion(const RunningClock& clock) {
    return "Für \"" + cp1252::ToUtf8(clock.node.title) + "\" läuft seit " +
           clock.clockIn.Format("%d.%m.%Y %H:%M") + " eine Stempeluhr eines Velto, das nicht mehr läuft.\n" +
           "Jetzt ausstempeln? (Nein verwirft die Stempeluhr.)";
}

std::string EndedClockNotFound(const RunningClock& clock) {
    return "Die Stempeluhr für \"" + cp1252::ToUtf8(clock.node.title) + "\" seit " +
           clock.clockIn.Format("%d.%m.%Y %H:%M") +
           " gehört zu keinem Knoten dieses Projekts mehr und wird verworfen.";
}

} // namespace velto
