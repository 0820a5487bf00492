// The data files' reading and saving: a file that cannot be read is told apart from a missing one,
// each save keeps the file before it as the one backup, and a save that fails at any step keeps the
// file and its backup.
#include "files/AssigneeFile.h"
#include "files/HolidayFile.h"

#include "core/document/DocTestSupport.h"

#include <gtest/gtest.h>

namespace velto {

namespace {

using doctest::Op;
using testsupport::ReadFile;
using testsupport::WriteFile;

const std::vector<CHoliday> kNewEntries = {{1, 1, 2025, 255, "Neujahr", true}};

class DataFileTest : public doctest::TempDirTest {
protected:
    doctest::FaultyFileSystem fs;
    std::string file = PathOf("Feiertage.dat");
    std::string backup = PathOf("Feiertage.bak");
};

TEST_F(DataFileTest, AFileThatCannotBeReadIsToldApartFromAMissingOne) {
    EXPECT_EQ(ReadHolidayFile(file, fs).error, 0) << "missing: an empty list";
    WriteFile(file, "1\r1\r2024\r255\rNeujahr\rJA\r");
    fs.faults = {{Op::Open, "Feiertage.dat", EACCES}, {Op::Read, "Feiertage.dat", EIO}};
    EXPECT_EQ(ReadHolidayFile(file, fs).error, -EACCES);
    const HolidayFileContent failedRead = ReadHolidayFile(file, fs);
    EXPECT_EQ(failedRead.error, -EIO);
    EXPECT_TRUE(failedRead.entries.empty()) << "nothing of a file read halfway";
    EXPECT_EQ(ReadHolidayFile(file, fs).entries.size(), 1u);
    EXPECT_TRUE(LoadHolidays(Dir()).empty()) << "a folder is not a file";
    const std::string folder = PathOf("Bearbeiter.dat");
    std::filesystem::create_directory(folder);
    const AssigneeFileContent presets = ReadAssigneeFile(folder, fs);
    EXPECT_EQ(presets.error, -EISDIR);
    EXPECT_FALSE(presets.hasContent) << "the entry combos fall back to the recent texts";
    EXPECT_EQ(CannotReadDataFileMessage(folder, presets.error),
              "Die Datei \"" + folder +
                  "\" kann nicht gelesen werden (ist ein Ordner). Sie wird nicht überschrieben.");
}

// The first save makes no backup; a linked file stays linked and keeps its backup beside its target.
TEST_F(DataFileTest, EachSaveKeepsTheFileBeforeItAsTheBackup) {
    ASSERT_TRUE(SaveHolidays(file, {{24, 12, 2024, 14483420, "Heilig Abend", true}}, fs));
    EXPECT_EQ(Names(), std::vector<std::string>{"Feiertage.dat"});
    const std::string first = ReadFile(file);
    std::filesystem::create_directory(PathOf("team"));
    std::filesystem::rename(file, PathOf("team/Feiertage.dat"));
    std::filesystem::create_symlink(PathOf("team/Feiertage.dat"), file);
    ASSERT_EQ(LoadHolidays(file).size(), 1u);
    EXPECT_EQ(LoadHolidays(file)[0].name, "Heilig Abend");
    ASSERT_TRUE(SaveHolidays(file, kNewEntries, fs));
    EXPECT_TRUE(std::filesystem::is_symlink(file));
    EXPECT_EQ(ReadFile(PathOf("team/Feiertage.dat")), FormatHolidays(kNewEntries));
    EXPECT_EQ(ReadFile(PathOf("team/Feiertage.bak")), first);
}

TEST_F(DataFileTest, ASaveFailingAtAnyStepKeepsTheFileAndItsBackup) {
    using Fault = doctest::FaultyFileSystem::Fault;
    struct Case {
        const char* step;
        std::vector<Fault> faults; // the first one's error is the save's
    };
    // The temporary files' names end in ".tmp": first the new content (its other steps are those
    // of a project's save), then the current file's second name, a link or, where refused, a copy.
    const Case cases[] = {
        {"writing it", {{Op::Write, ".tmp", ENOSPC}}},
        {"linking the current file", {{Op::Link, ".tmp", EIO}}},
        {"copying where links are refused", {{Op::Read, "Feiertage.dat", EIO}, {Op::Link, ".tmp", EPERM}}},
        {"writing the copy", {{Op::Write, ".tmp", ENOSPC, 1, 1}, {Op::Link, ".tmp", EXDEV}}},
        {"putting the backup in place", {{Op::Rename, "Feiertage.bak", EACCES}}},
        {"replacing the file", {{Op::Rename, "Feiertage.dat", EIO}}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.step);
        WriteFile(file, "current");
        WriteFile(backup, "previous");
        fs.faults = c.faults;
        const SaveOutcome saved = SaveHolidays(file, kNewEntries, fs);
        EXPECT_FALSE(saved);
        EXPECT_EQ(saved.error, -c.faults[0].error);
        EXPECT_EQ(ReadFile(file), "current");
        // Only the last rename comes after the backup was replaced: it then holds the unchanged file.
        const bool lastStep = c.faults[0].op == Op::Rename && c.faults[0].suffix == "Feiertage.dat";
        EXPECT_EQ(ReadFile(backup), lastStep ? "current" : "previous");
        EXPECT_EQ(Names(), (std::vector<std::string>{"Feiertage.bak", "Feiertage.dat"}));
    }
}

TEST(DataFilePaths, TheBackupReplacesTheExtensionOfTheFileNameOnly) {
    EXPECT_EQ(BackupPathOf("/daten/Feiertage.dat"), "/daten/Feiertage.bak");
    EXPECT_EQ(BackupPathOf("/daten.v2/Bearbeiter"), "/daten.v2/Bearbeiter.bak");
    EXPECT_EQ(BackupPathOf("/daten/.liste"), "/daten/.liste.bak");
    EXPECT_EQ(BackupPathOf("Feiertage.alt.dat"), "Feiertage.alt.bak");
}

} // namespace

} // namespace velto
