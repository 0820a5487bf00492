// The data files' reading and saving: a file that cannot be read is told apart from a missing one,
// a save that fails at any step keeps the file and its backup, and a linked file stays linked.
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

    const std::string folder = PathOf("Bearbeiter.dat");
    std::filesystem::create_directory(folder);
    const AssigneeFileContent presets = ReadAssigneeFile(folder, fs);
    EXPECT_EQ(presets.error, -EISDIR);
    EXPECT_FALSE(presets.hasContent) << "the entry combos fall back to the recent texts";
    EXPECT_EQ(CannotReadDataFileMessage(folder, presets.error),
              "Die Datei \"" + folder +
                  "\" kann nicht gelesen werden (ist ein Ordner). Sie wird nicht überschrieben.");
}

TEST_F(DataFileTest, ASaveFailingAtAnyStepKeepsTheFileAndItsBackup) {
    using Fault = doctest::FaultyFileSystem::Fault;
    struct Case {
        const char* step;
        std::vector<Fault> faults; // the first one's error is the save's
    };
    // The temporary files' names end in ".tmp": first the new content, then the current file's
    // second name, a link or, where links are refused, a copy.
    const Case cases[] = {
        {"making the temporary file", {{Op::Open, ".tmp", ENOSPC}}},
        {"writing it", {{Op::Write, ".tmp", ENOSPC}}},
        {"syncing it", {{Op::Sync, ".tmp", EIO}}},
        {"closing it", {{Op::Close, ".tmp", EDQUOT}}},
        {"linking the current file", {{Op::Link, ".tmp", EIO}}},
        {"copying where links are refused", {{Op::Read, "Feiertage.dat", EIO}, {Op::Link, ".tmp", EPERM}}},
        {"writing the copy", {{Op::Write, ".tmp", ENOSPC, 1, 1}, {Op::Link, ".tmp", EXDEV}}},
        {"putting the backup in place", {{Op::Rename, "Feiertage.bak", EACCES}}},
        {"replacing the file", {{Op::Rename, "Feiertage.dat", EIO}}},
    };
    for (const Case& c : cases) {
        WriteFile(file, "current");
        WriteFile(backup, "previous");
        fs.faults = c.faults;
        const SaveOutcome saved = SaveHolidays(file, kNewEntries, fs);
        EXPECT_FALSE(saved) << c.step;
        EXPECT_EQ(saved.error, -c.faults[0].error) << c.step;
        EXPECT_EQ(ReadFile(file), "current") << c.step;
        // Only the last rename comes after the backup was replaced: it then holds the unchanged file.
        const bool lastStep = c.faults[0].op == Op::Rename && c.faults[0].suffix == "Feiertage.dat";
        EXPECT_EQ(ReadFile(backup), lastStep ? "current" : "previous") << c.step;
        EXPECT_EQ(Names(), (std::vector<std::string>{"Feiertage.bak", "Feiertage.dat"})) << c.step;
    }
    fs.faults.clear();
    ASSERT_TRUE(SaveHolidays(file, kNewEntries, fs));
    EXPECT_EQ(ReadFile(file), FormatHolidays(kNewEntries));
    EXPECT_EQ(ReadFile(backup), "current");
}

TEST_F(DataFileTest, ALinkedFileStaysLinkedAndKeepsItsBackupBesideItsTarget) {
    std::filesystem::create_directory(PathOf("team"));
    const std::string shared = PathOf("team/Feiertage.dat");
    WriteFile(shared, FormatHolidays({{3, 10, 2024, 255, "Einheit", true}}));
    std::filesystem::create_symlink(shared, file);
    EXPECT_EQ(ReadHolidayFile(file, fs).entries.size(), 1u);
    ASSERT_TRUE(SaveHolidays(file, kNewEntries, fs));
    EXPECT_TRUE(std::filesystem::is_symlink(file));
    EXPECT_EQ(ReadFile(shared), FormatHolidays(kNewEntries));
    EXPECT_EQ(ReadHolidayFile(PathOf("team/Feiertage.bak"), fs).entries[0].name, "Einheit");
}

TEST(DataFilePaths, TheBackupReplacesTheExtensionOfTheFileNameOnly) {
    EXPECT_EQ(BackupPathOf("/daten/Feiertage.dat"), "/daten/Feiertage.bak");
    EXPECT_EQ(BackupPathOf("/daten.v2/Bearbeiter"), "/daten.v2/Bearbeiter.bak");
    EXPECT_EQ(BackupPathOf("/daten/.liste"), "/daten/.liste.bak");
    EXPECT_EQ(BackupPathOf("Feiertage.alt.dat"), "Feiertage.alt.bak");
}

} // namespace

} // namespace velto
