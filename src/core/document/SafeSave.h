#pragma once
// Saving a project so that the last good state survives any single failure: the new content goes
// to a temporary file beside the project and onto the disk first; only then do the backups rotate
// (.BK3 → .BK4 … .BK0 → .BK1, the project → .BK0) and the temporary file take the project's place.
#include "io/FileSystem.h"

#include <string>

struct SaveResult {
    enum class Outcome {
        Saved,
        // The new content could not be written, or the project could not be moved to .BK0: the
        // project file is untouched and no temporary file is left.
        NotWritten,
        // The temporary file could not take the project's place. The new content stays in
        // tempPath; lastGoodPath is where the last saved state is now: the project file when it
        // could be moved back from .BK0, else .BK0 (empty when the project did not exist before).
        NotReplaced,
    };
    Outcome outcome = Outcome::Saved;
    int error = 0; // -errno of the step that failed
    std::string tempPath;
    std::string lastGoodPath;
};

SaveResult SaveWithBackups(FileSystem& fs, const std::string& projectPath, const ContentProducer& produce);

// What the user is told about a failed save.
std::string SaveFailureMessage(const SaveResult& result, const std::string& projectPath);
