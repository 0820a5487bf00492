// The list of earlier states offered for restoring: backups and interrupted saves beside a project.
#include "document/ProjectStates.h"
#include "core/document/DocTestSupport.h"

#include <filesystem>
#include <gmock/gmock.h>

namespace velto {

using namespace doctest;
using ::testing::HasSubstr;

namespace {

class ProjectStatesTest : public TempDirTest {
protected:
    void PutAt(const std::string& name, std::string_view content, int64_t modified) {
        WriteFile(PathOf(name), content);
        const auto time = std::filesystem::file_time_type::clock::now() -
                          std::chrono::seconds(std::time(nullptr) - modified);
        std::filesystem::last_write_time(PathOf(name), time);
    }
    // Label, root title and damage of each state, as the restore list shows them.
    std::vector<std::string> Shown(const std::vector<ProjectState>& states) const {
        std::vector<std::string> shown;
        for (const ProjectState& state : states)
            shown.push_back(state.label + " " + state.rootTitle + (state.damaged ? "beschädigt" : ""));
        return shown;
    }
    PosixFileSystem fs;
    std::string project = PathOf("Plan.VT5");
    const int64_t day = 86400, now = std::time(nullptr);
};

TEST_F(ProjectStatesTest, ListsBackupsNewestFirstThenInterruptedSavesAndShowsDamagedOnes) {
    const std::string full = ProjectBytes("Umbau \xC4nderung", 2);
    WriteFile(project, ProjectBytes("Aktuell"));
    PutAt("Plan.BK0", full, now - day);
    PutAt("Plan.BK1", ProjectBytes("Vorher"), now - 2 * day);
    // .BK2 is missing; .BK3 ends early, .BK4 cannot be opened.
    PutAt("Plan.BK3", full.substr(0, full.size() - 3), now - 4 * day);
    std::filesystem::create_symlink(project, PathOf("Plan.BK4"));
    PutAt("Plan.VT5.~pc7-41-0.tmp", ProjectBytes("Halb"), now - 3 * day);
    PutAt("Plan.VT5.~pc7-97-0.tmp", full, now);
    PutAt("Anderes.VT5.~pc7-97-0.tmp", full, now); // another project's
    const std::vector<ProjectState> states = ListProjectStates(fs, project);
    const std::string interrupted = kInterruptedSaveLabel;
    EXPECT_EQ(Shown(states), (std::vector<std::string>{
                                 "BK0 Umbau \xC4nderung", "BK1 Vorher", "BK3 beschädigt", "BK4 beschädigt",
                                 interrupted + " Umbau \xC4nderung", interrupted + " Halb"}));
    ASSERT_EQ(states.size(), 6u);
    EXPECT_EQ(std::tie(states[0].path, states[0].size, states[0].modified, states[0].nodeCount),
              std::tuple(PathOf("Plan.BK0"), int64_t(full.size()), now - day, 3u));
    EXPECT_THAT(states[2].damage, HasSubstr("Plan.BK3\" kann nicht geöffnet werden: sie ist unvollständig"));
    EXPECT_THAT(states[3].damage, HasSubstr("Plan.BK4\" kann nicht geöffnet werden: ist eine symbolische"));
    EXPECT_EQ(states[4].path, PathOf("Plan.VT5.~pc7-97-0.tmp"));
}

} // namespace

} // namespace velto
