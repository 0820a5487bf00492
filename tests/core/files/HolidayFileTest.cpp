// "Feiertage.dat": the token format, its reading quirks and bad input.
#include "files/HolidayFile.h"

#include <gtest/gtest.h>

namespace velto {

namespace {

// The entries as "day.month.year colour name JA|NEIN", one per line.
std::string Show(const std::vector<CHoliday>& entries) {
    std::string shown;
    for (const CHoliday& e : entries)
        shown += std::to_string(e.day) + "." + std::to_string(e.month) + "." + std::to_string(e.year) + " " +
                 std::to_string(e.color) + " " + e.name + (e.yearly ? " JA\n" : " NEIN\n");
    return shown;
}

TEST(HolidayFormat, EveryValueEndsWithACarriageReturnAndBlanksAreMarked) {
    EXPECT_EQ(FormatHolidays({{24, 12, 2023, 14483420, "Heiligabend", true},
                              {5, 1, 2024, 0, "Erster Urlaubstag", false}}),
              "24\r12\r2023\r14483420\rHeiligabend\rJA\r"
              "5\r1\r2024\r0\rErster#~*Urlaubstag\rNEIN\r");
    EXPECT_EQ(FormatHolidays({{3, 10, 2024, 0, "", false}}), "3\r10\r2024\r0\r#~*\rNEIN\r");
}

// Windows-1252 bytes pass unchanged; other white space in a name cannot shift the values after it.
TEST(HolidayFormat, NamesComeBackWithTheirBlanksAndTheEmptyNameAsOneBlank) {
    const std::string bytes = FormatHolidays({{1, 5, 2024, 255, "Tag der  Arbeit", true},
                                              {3, 10, 2024, -1, "", false},
                                              {9, 9, 2024, 7, "Caf\xE9 \x80", false},
                                              {1, 1, 2024, 1, "a\tb\r\nc", true},
                                              {2, 2, 2024, 2, "d", true}});
    EXPECT_EQ(Show(ParseHolidays(bytes)),
              "1.5.2024 255 Tag der  Arbeit JA\n3.10.2024 -1   NEIN\n"
              "9.9.2024 7 Caf\xE9 \x80 NEIN\n1.1.2024 1 a b  c JA\n2.2.2024 2 d JA\n");
}

TEST(HolidayParse, QuirksOfTheOldReaderAreKept) {
    const std::string a = "1\r1\r2024\r0\rA\rJA\r", aShown = "1.1.2024 0 A JA\n";
    const std::string ab = a + "2\r2\r2024\r0\rB\rNEIN";
    const std::pair<std::string, std::string> cases[] = {
        // Any white space separates, and only "JA" is yearly.
        {"  1 \n2\t2024 \r\n 42 Ostern JA\n+3\f-4\v2025\r99\rx ja\r",
         "1.2.2024 42 Ostern JA\n3.-4.2025 99 x NEIN\n"},
        // A number ends where its digits end: a sign starts the next number, anything else the next token.
        {"1+2-2024+7Name JA\r", "1.2.-2024 7 Name JA\n"},
        // The last entry is lost without a final separator; an entry cut short is dropped.
        {ab, aShown},
        {ab + "\r", aShown + "2.2.2024 0 B NEIN\n"},
        {"", ""},
        {"1\r1\r2024\r0", ""},
        {a + "7\r7\r2024\r0\rB\r", aShown},
        // A value that is no number ends the list and keeps what was read.
        {a + "x\r2\r2024\r0\rB\rJA\r" + a, aShown},
        {a + "2\r2abc\r2024\r0\rB\rJA\r", aShown},
        {a + "-\r2\r2024\r0\rB\rJA\r", aShown},
        // So does a number beyond an int.
        {"1\r1\r2024\r2147483648\rA\rJA\r", ""},
        {"1\r1\r2024\r99999999999999999999999999\rA\rJA\r", ""},
        {"1\r1\r2024\r2147483647\rA\rJA\r1\r1\r2024\r-2147483648\rB\rJA\r",
         "1.1.2024 2147483647 A JA\n1.1.2024 -2147483648 B JA\n"},
    };
    for (const auto& [bytes, shown] : cases)
        EXPECT_EQ(Show(ParseHolidays(bytes)), shown) << bytes;
}

} // namespace

} // namespace velto
