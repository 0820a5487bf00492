#pragma once
// "Stempeluhr.dat": the clocks that run right now, so that a clock-in survives a crash, a kill or a
// power cut of the Velto that started it. The running clock is not part of the project file; this
// per-user journal names, one line per clock, the project, the node, the clock-in time and the host
// and process of the Velto that clocked in. A clock-out removes its line and keeps every other one.
//
// The node is named by its creation time and title, with its position in the display order to
// choose among several nodes that share both (docs/file-format.md, "The running clock").
#include "files/DataFileIo.h"
#include "model/CTime.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace velto {

class CProjectNode;

struct NodeIdentity {
    CTime created;
    std::string title; // Windows-1252
    int position = 0;  // 0 for the first node of the list
};

struct RunningClock {
    std::string project; // the project's path as Windows-1252
    NodeIdentity node;
    CTime clockIn;
    std::string host; // Windows-1252
    int64_t processId = 0;
};

// The entries of the journal; lines that cannot be read are kept as they were, so that a damaged
// line costs neither the other clocks nor itself when the journal is written again.
struct ClockJournalContent {
    std::vector<RunningClock> clocks;
    std::vector<std::string> damagedLines;
    int error = 0; // -errno when the file cannot be read; it must then not be overwritten
};

ClockJournalContent ParseClockJournal(std::string_view bytes);
std::string FormatClockJournal(const ClockJournalContent& content);
ClockJournalContent ReadClockJournal(const std::string& path, FileSystem& fs = RealFileSystem());

// Adds the clock to the journal. A journal that cannot be read is left alone (its error).
SaveOutcome RecordClock(const std::string& path, const RunningClock& clock,
                        FileSystem& fs = RealFileSystem());
// Removes the line of this clock (same project, process, node creation and clock-in time) and
// keeps all others; nothing is written when the journal holds no such line.
SaveOutcome ForgetClock(const std::string& path, const RunningClock& clock,
                        FileSystem& fs = RealFileSystem());

// The entry for a node of a list whose first node is `first`, clocked in by this process.
RunningClock ClockOfNode(const std::string& projectPathUtf8, const CProjectNode* first,
                         const CProjectNode& node);
// The clocks of a project whose Velto has ended (HasProcessEnded).
std::vector<RunningClock> EndedClocksOf(const ClockJournalContent& content,
                                        const std::string& projectPathUtf8);

// The node an entry names: the only node with its creation time and title, or of several such the
// one nearest to the recorded position; nullptr when none has both.
CProjectNode* FindClockedNode(CProjectNode* first, const NodeIdentity& identity);

// What the user is asked when a project opens with the clock of an ended Velto in the journal.
std::string EndedClockQuestion(const RunningClock& clock);
// What the user is told when the node of such a clock is not in the project any more.
std::string EndedClockNotFound(const RunningClock& clock);

} // namespace velto
