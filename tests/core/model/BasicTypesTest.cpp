// CTime in local time, Windows-1252 conversion and the locale-free number formats.
#include "model/CTime.h"
#include "model/Cp1252.h"
#include "model/NumberFormat.h"

#include <array>
#include <clocale>
#include <cmath>
#include <cstdio>
#include <gtest/gtest.h>

namespace velto {

TEST(Environment, RunsUnderGermanLocaleAndBerlinTime) {
    // The number tests below only mean something when the C library would write a comma.
    char buffer[16];
    std::snprintf(buffer, sizeof buffer, "%.1f", 1.5);
    EXPECT_STREQ(buffer, "1,5") << "tests must run with LC_ALL=de_DE.UTF-8";
    EXPECT_EQ(CTime(2024, 1, 1, 0, 0, 0).GetTime(), 1704063600u) << "tests must run with TZ=Europe/Berlin";
}

TEST(CTimeTest, LocalFieldsAndFormats) {
    const CTime t(2023, 12, 24, 13, 5, 9);
    EXPECT_EQ((std::array{t.GetYear(), t.GetMonth(), t.GetDay(), t.GetHour(), t.GetMinute(), t.GetSecond()}),
              (std::array{2023, 12, 24, 13, 5, 9}));
    EXPECT_EQ(t.GetDayOfWeek(), 1); // a Sunday
    EXPECT_EQ(t.Format("%Y/%m/%d"), "2023/12/24");
    EXPECT_EQ(t.Format("%d.%m.%y / %H:%M "), "24.12.23 / 13:05 ");
}

TEST(CTimeTest, DaylightSavingIsDecidedByTheCalendar) {
    // Summer time: 01:00 local is 23:00 UTC of the day before.
    EXPECT_EQ(CTime(2024, 7, 1, 1, 0, 0).GetTime(), 1719788400u);
    // Winter time: 01:00 local is 00:00 UTC.
    EXPECT_EQ(CTime(2024, 1, 15, 1, 0, 0).GetTime(), 1705276800u);
    // The day of the switch keeps its wall-clock hours and has 23 of them.
    const CTime start(2024, 3, 31, 1, 0, 0);
    const CTime due(2024, 3, 31, 23, 59, 59);
    EXPECT_EQ(std::pair(start.GetHour(), due.GetHour()), std::pair(1, 23));
    EXPECT_EQ(due - start, 21 * 3600 + 59 * 60 + 59);
}

TEST(CTimeTest, TodayBoundsAreOnTodaysDate) {
    const std::string today = CTime::GetCurrentTime().Format("%d.%m.%Y");
    EXPECT_EQ(CTime::TodayAt(1, 0, 0).Format("%d.%m.%Y %H:%M:%S"), today + " 01:00:00");
    EXPECT_EQ(CTime::TodayAt(23, 59, 59).Format("%d.%m.%Y %H:%M:%S"), today + " 23:59:59");
}

TEST(CTimeTest, DatesBeyondTheRangeGiveZeroAndArithmeticClamps) {
    EXPECT_EQ(CTime(1960, 1, 1, 0, 0, 0).GetTime(), 0u);
    EXPECT_EQ((CTime(10) - 100).GetTime(), 0u);
    EXPECT_EQ((CTime(UINT32_MAX - 1) + 100).GetTime(), UINT32_MAX);
    // Unsigned 32-bit seconds reach past 2038.
    EXPECT_EQ(CTime(2037, 12, 31, 12, 0, 0).GetYear(), 2037);
    EXPECT_EQ(CTime(3000000000u).GetYear(), 2065);
}

TEST(Cp1252Test, SpecialCharactersAndEveryByteRoundTripThroughUtf8) {
    std::string all;
    for (int b = 0; b < 256; ++b)
        all += char(b);
    EXPECT_EQ(cp1252::FromUtf8(cp1252::ToUtf8(all)), all);
    EXPECT_EQ(cp1252::ToUtf8("\x80"), "€");
    EXPECT_EQ(cp1252::ToUtf8("\xAB\xBB"), "«»");
    EXPECT_EQ(cp1252::ToUtf8("\xE4\xF6\xFC\xDF"), "äöüß");
    EXPECT_EQ(cp1252::ToUnicode(0x81), 0x81u); // unassigned: its own C1 code point
    EXPECT_EQ(cp1252::ToUnicode(0x9D), 0x9Du);
    EXPECT_EQ(cp1252::FromUtf8("Größe 5 €"), std::string("Gr\xF6\xDF"
                                                         "e 5 \x80"));
}

TEST(Cp1252Test, TextThatDoesNotFit) {
    EXPECT_FALSE(cp1252::Fits("Привет"));
    EXPECT_FALSE(cp1252::Fits("😀"));
    EXPECT_FALSE(cp1252::Fits("\xC3"));     // truncated UTF-8
    EXPECT_FALSE(cp1252::Fits("\xC0\xAF")); // overlong
    EXPECT_TRUE(cp1252::Fits("Übersicht – „Plan“"));
    EXPECT_EQ(cp1252::FromUtf8Lossy("aЖb"), "a?b");
}

// 1.125: 1125 thousandths are whole, and %.2f rounds to even there.
TEST(NumberFormatTest, EditNumbersUseTwoDecimalsWhenThousandthsAreWhole) {
    const std::pair<double, const char*> cases[] = {
        {7.0, "7.00"},       {0.25, "0.25"},     {1.125, "1.12"},          {7.123456, "7.12346"},
        {-400.0, "-400.00"}, {0.0001, "0.0001"}, {1234567.5, "1234567.50"}};
    for (const auto& [value, text] : cases)
        EXPECT_EQ(numfmt::FormatEditNumber(value), text);
    EXPECT_EQ(numfmt::FormatGeneral(1e20), "1e+20");
    EXPECT_EQ(numfmt::FormatFixed2(59.97f), "59.97");
}

// The comma ends the number.
TEST(NumberFormatTest, ReadingFollowsScanfRulesWithADot) {
    const std::pair<const char*, double> cases[] = {{"3.5", 3.5}, {"  -2.25abc", -2.25}, {"3,5", 3.0},
                                                    {"+.5", 0.5}, {"1e3", 1000.0},       {"abc", 0.0},
                                                    {"", 0.0},    {"0x10", 16.0},        {"1e-999", 0.0}};
    for (const auto& [text, value] : cases)
        EXPECT_DOUBLE_EQ(numfmt::ParseNumber(text), value) << text;
    EXPECT_TRUE(std::isinf(numfmt::ParseNumber("1e999")));
    EXPECT_EQ(numfmt::ParseInt(" 42x"), 42);
    EXPECT_EQ(numfmt::ParseInt("-7"), -7);
    EXPECT_EQ(numfmt::ParseInt("x", -1), -1);
    EXPECT_EQ(numfmt::ParseInt("99999999999999"), INT32_MAX);
}

} // namespace velto
