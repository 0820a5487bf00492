#include "document/ProjectStates.h"

#include "document/LockFile.h"
#include "document/ProjectReading.h"
#include "io/SafeWrite.h"
#include "model/NodeList.h"

#include <algorithm>

namespace velto {

namespace {

std::string CannotOpen(const std::string& path, int error) {
    return "Die Datei \"" + path + "\" kann nicht geöffnet werden: " + FileErrorReason(error) + ".";
}

void MarkDamaged(ProjectState& state, std::string why) {
    state.damaged = true;
    state.damage = std::move(why);
}

// Reads the file through the streaming reader, so that even a large backup is never held whole,
// and keeps only what the list shows; the nodes go as soon as they are counted.
void Describe(FileSystem& fs, ProjectState& state) {
    ProjectContent content;
    ReadResult result;
    if (const int opened = ReadProjectFile(fs, state.path, content, result); opened < 0)
        return MarkDamaged(state, CannotOpen(state.path, opened));
    // A wrong format reads as the one-node replacement document: nothing worth restoring.
    if (result.status != ReadStatus::Ok)
        return MarkDamaged(state, result.Message(state.path));
    state.nodeCount = size_t(CountNodes(content.firstNode));
    state.rootTitle = content.firstNode->m_strTitle;
}

// A file that is not there is left out.
void AddState(FileSystem& fs, const std::string& path, std::string label, std::vector<ProjectState>& out) {
    FileStatus status;
    const int found = fs.Status(path, status);
    if (found == -ENOENT)
        return;
    ProjectState state;
    state.path = path;
    state.label = std::move(label);
    state.modified = status.modified;
    state.size = status.size;
    if (found < 0)
        MarkDamaged(state, CannotOpen(path, found));
    else
        Describe(fs, state);
    out.push_back(std::move(state));
}

} // namespace

std::vector<ProjectState> ListProjectStates(FileSystem& fs, const std::string& projectPath) {
    std::vector<ProjectState> states;
    for (int i = 0; i < kBackupCount; ++i)
        AddState(fs, BackupFilePath(projectPath, i), "BK" + std::to_string(i), states);
    const size_t firstInterrupted = states.size();
    for (const std::string& path : TemporaryFilesOf(fs, projectPath))
        AddState(fs, path, kInterruptedSaveLabel, states);
    std::sort(states.begin() + ptrdiff_t(firstInterrupted), states.end(),
              [](const ProjectState& a, const ProjectState& b) {
                  return a.modified != b.modified ? a.modified > b.modified : a.path < b.path;
              });
    return states;
}

} // namespace velto
