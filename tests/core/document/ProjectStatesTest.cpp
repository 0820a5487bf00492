// The list of earlier states offered for restoring: backups and interrupted saves beside a project.
#include "document/ProjectStates.h"
#include "core/document/DocTestSupport.h"

#include <filesystem>

namespace velto {

using namespace doctest;

namespace {

class ProjectStatesTest : public TempDirTest {
protected:
    void PutAt(const std::string& name, std::string_view content, int64_t modified) {
        WriteFile(PathOf(name), content);
        const auto time = std::filesystem::file_time_type::clock::now() -
                          std::chrono::seconds(std::time(nullptr) - modified);
        std::filesystem::last_write_time(PathOf(name), time);
    }
    std::vector<std::string> Labels(const std::vector<ProjectState>& states) const {
        std::vector<std::string> labels;
        for (const ProjectState& state : states)
            labels.push_back(state.label + (state.damaged ? " beschädigt" : ""));
        return labels;
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
    // .BK2 is missing; .BK3 ends early, .BK4 holds no project at all.
    PutAt("Plan.BK3", full.substr(0, full.size() - 3), now - 4 * day);
    PutAt("Plan.BK4", "", now - 5 * day);
    PutAt("Plan.VT5.~pc7-41-0.tmp", ProjectBytes("Halb"), now - 3 * day);
    PutAt("Plan.VT5.~pc7-97-0.tmp", full, now);
    PutAt("Anderes.VT5.~pc7-97-0.tmp", full, now); // another project's

    const std::vector<ProjectState> states = ListProjectStates(fs, project);

    EXPECT_EQ(Labels(states), (std::vector<std::string>{"BK0", "BK1", "BK3 beschädigt", "BK4 beschädigt",
                                                        kInterruptedSaveLabel, kInterruptedSaveLabel}));
    ASSERT_EQ(states.size(), 6u);
    EXPECT_EQ(states[0].path, PathOf("Plan.BK0"));
    EXPECT_EQ(states[0].size, int64_t(full.size()));
    EXPECT_EQ(states[0].modified, now - day);
    EXPECT_EQ(states[0].nodeCount, 3u);
    EXPECT_EQ(states[0].rootTitle, "Umbau \xC4nderung");
    EXPECT_EQ(states[1].rootTitle, "Vorher");
    EXPECT_EQ(states[2].nodeCount, 0u);
    EXPECT_EQ(states[2].rootTitle, "");
    EXPECT_NE(states[2].damage.find("Plan.BK3"), std::string::npos) << states[2].damage;
    EXPECT_EQ(states[4].path, PathOf("Plan.VT5.~pc7-97-0.tmp"));
    EXPECT_EQ(states[5].rootTitle, "Halb");
}

TEST_F(ProjectStatesTest, NothingBesideTheProjectListsNothing) {
    WriteFile(project, ProjectBytes("Aktuell"));
    EXPECT_TRUE(ListProjectStates(fs, project).empty());
}

TEST_F(ProjectStatesTest, AFileThatCannotBeOpenedIsListedAsDamaged) {
    WriteFile(PathOf("Ziel.VT5"), ProjectBytes("Ziel"));
    std::filesystem::create_symlink(PathOf("Ziel.VT5"), PathOf("Plan.BK0"));
    const std::vector<ProjectState> states = ListProjectStates(fs, project);
    ASSERT_EQ(states.size(), 1u);
    EXPECT_TRUE(states[0].damaged);
    EXPECT_NE(states[0].damage.find("kann nicht geöffnet werden"), std::string::npos) << states[0].damage;
}

} // namespace

} // namespace velto
