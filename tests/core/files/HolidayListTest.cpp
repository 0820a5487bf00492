// The holiday dialog's list: the row texts and the order latest first by the sort key.
#include "files/HolidayList.h"

#include <gtest/gtest.h>

namespace velto {

namespace {

CHoliday Entry(int day, int month, int year, std::string name = "x") {
    return {day, month, year, kDefaultHolidayColor, std::move(name), false};
}

std::vector<std::string> Names(const HolidayList& list) {
    std::vector<std::string> names;
    for (const CHoliday& entry : list.Entries())
        names.push_back(entry.name);
    return names;
}

TEST(HolidayRow, DatesAreZeroPaddedInTheKeyAndTheShownDate) {
    const HolidayRow row = MakeHolidayRow({5, 1, 2024, 14483420, "Urlaub", true});
    EXPECT_EQ(row.sortKey, "2024/01/05");
    EXPECT_EQ(row.color, "14483420");
    EXPECT_EQ(row.date, "05.01.2024");
    EXPECT_EQ(row.name, "Urlaub");
    EXPECT_EQ(row.yearly, "JA");

    // Values of a damaged file are shown as the list always showed them, not refused.
    const HolidayRow odd = MakeHolidayRow({-5, 123, 99, -1, " ", false});
    EXPECT_EQ(odd.sortKey, "0099/123/-5");
    EXPECT_EQ(odd.date, "-5.123.0099");
    EXPECT_EQ(odd.color, "-1");
    EXPECT_EQ(odd.yearly, "NEIN");
}

TEST(HolidayList, KeepsTheLatestDayFirstAndDaysInTheirListedOrder) {
    // Unpadded, "9" would sort above "10" and January above October.
    HolidayList list({Entry(9, 1, 2024, "9.1."), Entry(1, 10, 2024, "1.10."), Entry(10, 1, 2024, "10.1. A"),
                      Entry(10, 1, 2024, "10.1. B"), Entry(31, 12, 2023, "31.12.")});
    EXPECT_EQ(Names(list), (std::vector<std::string>{"1.10.", "10.1. A", "10.1. B", "9.1.", "31.12."}));

    EXPECT_EQ(list.Add(Entry(10, 1, 2024, "10.1. C")), 3u) << "behind the entries of its day";
    EXPECT_EQ(list.Add(Entry(1, 1, 2025, "neu")), 0u);
    const std::size_t oldest = list.Add(Entry(1, 1, 1970, "alt"));
    EXPECT_EQ(oldest, list.Entries().size() - 1);

    const CHoliday taken = list.Take(2);
    EXPECT_EQ(taken.name, "10.1. A");
    EXPECT_EQ(Names(list),
              (std::vector<std::string>{"neu", "1.10.", "10.1. B", "10.1. C", "9.1.", "31.12.", "alt"}));
}

} // namespace

} // namespace velto
