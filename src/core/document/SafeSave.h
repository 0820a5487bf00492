#pragma once
// Saving a project so that no failure and no kill at any moment loses a state:
//  1. the new content goes to a temporary file beside the project, with the project's access, and
//     onto the disk;
//  2. the current project gets a second name (a hard link, or a synced copy where links are
//     refused), which proves the folder takes new names before any backup moves;
//  3. the backups move up one name each, oldest first (.BK4 → .BK5 … .BK0 → .BK1), every rename
//     onto a free name; a refused rename moves them all back;
//  4. the temporary file replaces the project in one atomic rename;
//  5. the second name becomes .BK0, .BK5 goes, and the folder is synced.
// The project's name always holds the old or the new state whole. A save killed in between leaves
// names that RepairInterruptedSave puts right.
#include "io/FileSystem.h"

#include <string>
#include <vector>

namespace velto {

struct SaveResult {
    enum class Outcome {
        Saved,
        // The new content could not be written, or the current state could not be kept: the
        // project and its backups are as they were.
        NotWritten,
        // The new file could not take the project's place: everything was put back as it was.
        NotReplaced,
    };
    Outcome outcome = Outcome::Saved;
    int error = 0; // -errno of the step that failed
};

SaveResult SaveWithBackups(FileSystem& fs, const std::string& projectPath, const ContentProducer& produce);

// What the user is told about a failed save.
std::string SaveFailureMessage(const SaveResult& result, const std::string& projectPath);

// Puts right what a killed save left beside the project: the backups get their names back (moved
// back when the project was not yet replaced, moved on when it was), temporary files that do not
// hold a whole project are removed. Returns the temporary files that hold a whole project newer
// than the project file: states the user saved but that never took the project's place. Only the
// holder of the project's lock may call this.
std::vector<std::string> RepairInterruptedSave(FileSystem& fs, const std::string& projectPath);

} // namespace velto
