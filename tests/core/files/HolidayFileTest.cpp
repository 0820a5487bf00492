// "Feiertage.dat": the token format, its reading quirks, bad input, and saving with the backup.
#include "files/HolidayFile.h"

#include "support/TempDir.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <tuple>

namespace velto {

using testsupport::ReadFile;
using testsupport::TempDir;
using testsupport::WriteFile;

namespace {

CHoliday Holiday(int day, int month, int year, int color, std::string name, bool yearly) {
    return {day, month, year, color, std::move(name), yearly};
}

void ExpectSame(const CHoliday& a, const CHoliday& b) {
    EXPECT_EQ(std::tie(a.day, a.month, a.year, a.color, a.name, a.yearly),
              std::tie(b.day, b.month, b.year, b.color, b.name, b.yearly));
}

TEST(HolidayFormat, EveryValueEndsWithACarriageReturnAndNoLineFeed) {
    const std::string bytes = FormatHolidays({Holiday(24, 12, 2023, 14483420, "Heiligabend", true),
                                              Holiday(5, 1, 2024, 0, "Erster Urlaubstag", false)});
    EXPECT_EQ(bytes, "24\r12\r2023\r14483420\rHeiligabend\rJA\r"
                     "5\r1\r2024\r0\rErster#~*Urlaubstag\rNEIN\r");
    EXPECT_EQ(bytes.find('\n'), std::string::npos);
}

TEST(HolidayFormat, NamesRoundTripWithBlanksAndTheEmptyNameComesBackAsOneBlank) {
    const auto entries = ParseHolidays(
        FormatHolidays({Holiday(1, 5, 2024, 255, "Tag der  Arbeit", true),
                        Holiday(3, 10, 2024, -1, "", false), Holiday(9, 9, 2024, 7, "Caf\xE9 \x80", false)}));
    ASSERT_EQ(entries.size(), 3u);
    ExpectSame(entries[0], Holiday(1, 5, 2024, 255, "Tag der  Arbeit", true));
    ExpectSame(entries[1], Holiday(3, 10, 2024, -1, " ", false));
    EXPECT_EQ(entries[2].name, "Caf\xE9 \x80") << "Windows-1252 bytes pass unchanged";
    EXPECT_EQ(FormatHolidays({Holiday(3, 10, 2024, 0, "", false)}), "3\r10\r2024\r0\r#~*\rNEIN\r");
}

TEST(HolidayFormat, OtherWhiteSpaceInANameCannotShiftTheFollowingValues) {
    const auto entries = ParseHolidays(
        FormatHolidays({Holiday(1, 1, 2024, 1, "a\tb\r\nc", true), Holiday(2, 2, 2024, 2, "d", true)}));
    ASSERT_EQ(entries.size(), 2u);
    EXPECT_EQ(entries[0].name, "a b  c");
    ExpectSame(entries[1], Holiday(2, 2, 2024, 2, "d", true));
}

TEST(HolidayParse, AnyWhiteSpaceSeparatesAndOnlyJaIsYearly) {
    const auto entries = ParseHolidays("  1 \n2\t2024 \r\n 42 Ostern JA\n"
                                       "+3\f-4\v2025\r99\rx ja\r");
    ASSERT_EQ(entries.size(), 2u);
    ExpectSame(entries[0], Holiday(1, 2, 2024, 42, "Ostern", true));
    ExpectSame(entries[1], Holiday(3, -4, 2025, 99, "x", false));
}

TEST(HolidayParse, ANumberEndsWhereItsDigitsEnd) {
    // A sign starts the next number and anything else the next token, separator or not.
    const auto entries = ParseHolidays("1+2-2024+7Name JA\r");
    ASSERT_EQ(entries.size(), 1u);
    ExpectSame(entries[0], Holiday(1, 2, -2024, 7, "Name", true));
}

TEST(HolidayParse, TheLastEntryIsLostWithoutAFinalSeparator) {
    const std::string two = "1\r1\r2024\r0\rA\rJA\r2\r2\r2024\r0\rB\rNEIN";
    EXPECT_EQ(ParseHolidays(two).size(), 1u);
    EXPECT_EQ(ParseHolidays(two + "\r").size(), 2u);
    EXPECT_EQ(ParseHolidays(two + " ").size(), 2u);
}

TEST(HolidayParse, AnEntryCutShortIsDropped) {
    EXPECT_TRUE(ParseHolidays("").empty());
    EXPECT_TRUE(ParseHolidays("\r\r \n").empty());
    EXPECT_TRUE(ParseHolidays("1\r1\r2024\r").empty());
    EXPECT_TRUE(ParseHolidays("1\r1\r2024\r0").empty());
    EXPECT_EQ(ParseHolidays("1\r1\r2024\r0\rA\rJA\r7\r7\r2024\r0\rB\r").size(), 1u);
}

TEST(HolidayParse, ANonNumberEndsTheListButKeepsWhatWasRead) {
    const std::string good = "1\r1\r2024\r0\rA\rJA\r";
    EXPECT_EQ(ParseHolidays(good + "x\r2\r2024\r0\rB\rJA\r" + good).size(), 1u);
    // A number directly followed by letters: the letters are where the next number should be.
    EXPECT_EQ(ParseHolidays(good + "2\r2abc\r2024\r0\rB\rJA\r").size(), 1u);
    EXPECT_EQ(ParseHolidays(good + "-\r2\r2024\r0\rB\rJA\r").size(), 1u);
}

TEST(HolidayParse, NumbersBeyondAnIntStopTheReading) {
    EXPECT_TRUE(ParseHolidays("1\r1\r2024\r2147483648\rA\rJA\r").empty());
    EXPECT_TRUE(ParseHolidays("1\r1\r2024\r99999999999999999999999999\rA\rJA\r").empty());
    const auto limits = ParseHolidays("1\r1\r2024\r2147483647\rA\rJA\r1\r1\r2024\r-2147483648\rB\rJA\r");
    ASSERT_EQ(limits.size(), 2u);
    EXPECT_EQ(limits[0].color, 2147483647);
    EXPECT_EQ(limits[1].color, -2147483647 - 1);
}

TEST(HolidayParse, BinaryNoiseEndsSafely) {
    std::string noise;
    for (int i = 0; i < 4096; ++i)
        noise += char((i * 131 + 7) % 256);
    EXPECT_LE(ParseHolidays(noise).size(), noise.size() / 11);
    EXPECT_TRUE(ParseHolidays(std::string(100000, '\0')).empty());
}

// Each save keeps the file before it as the one backup; the failures are in DataFileIoTest.
TEST(HolidayFile, LoadsWhatWasSavedKeepsTheFileBeforeAndToleratesMissingFiles) {
    TempDir dir;
    const std::string path = dir.PathOf("Feiertage.dat");
    EXPECT_TRUE(LoadHolidays(path).empty());
    EXPECT_TRUE(LoadHolidays(dir.Path()).empty()) << "a directory is not a file";
    ASSERT_TRUE(SaveHolidays(path, {Holiday(24, 12, 2024, 14483420, "Heilig Abend", true)}));
    EXPECT_EQ(dir.Names(), std::vector<std::string>{"Feiertage.dat"});
    const auto entries = LoadHolidays(path);
    ASSERT_EQ(entries.size(), 1u);
    ExpectSame(entries[0], Holiday(24, 12, 2024, 14483420, "Heilig Abend", true));
    const std::string first = ReadFile(path);
    ASSERT_TRUE(SaveHolidays(path, {}));
    EXPECT_EQ(ReadFile(dir.PathOf("Feiertage.bak")), first);
    EXPECT_EQ(dir.Names(), (std::vector<std::string>{"Feiertage.bak", "Feiertage.dat"}));
}

TEST(HolidayFile, AFailedWriteLeavesTheOldFilesAlone) {
    TempDir dir;
    EXPECT_FALSE(SaveHolidays(dir.PathOf("missing/Feiertage.dat"), {Holiday(1, 1, 2024, 1, "A", true)}));
    EXPECT_FALSE(std::filesystem::exists(dir.PathOf("missing")));

    // The data file's place is taken by a directory that cannot be moved aside over the backup.
    const std::string path = dir.PathOf("Feiertage.dat");
    std::filesystem::create_directories(path + "/inner");
    std::filesystem::create_directories(dir.PathOf("Feiertage.bak/inner"));
    EXPECT_FALSE(SaveHolidays(path, {Holiday(1, 1, 2024, 1, "A", true)}));
    EXPECT_TRUE(std::filesystem::is_directory(path + "/inner"));
    EXPECT_FALSE(std::filesystem::exists(path + ".tmp"));
}

} // namespace

} // namespace velto
