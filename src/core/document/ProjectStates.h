#pragma once
// The earlier states of a project that lie beside it: the five backups and what a save that was
// killed halfway left in its temporary file, each described well enough to choose one to restore.
#include "io/FileSystem.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace velto {

struct ProjectState {
    std::string path;
    // "BK0" … "BK4", or kInterruptedSaveLabel for a temporary file of a save that never finished.
    std::string label;
    int64_t modified = 0; // seconds since 1970
    int64_t size = 0;
    // The file does not read as a project; the fields below are then empty.
    bool damaged = false;
    // Why it does not read, in German, naming the file and the place; empty when it reads.
    std::string damage;
    size_t nodeCount = 0;
    std::string rootTitle; // Windows-1252
};

inline constexpr const char* kInterruptedSaveLabel = "Abgebrochene Speicherung";

// The backups from the newest (".BK0") to the oldest, then the interrupted saves from the newest.
// Missing backups are left out. Each file is read whole, one at a time, and let go before the next.
std::vector<ProjectState> ListProjectStates(FileSystem& fs, const std::string& projectPath);

} // namespace velto
