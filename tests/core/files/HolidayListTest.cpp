// The holiday dialog's list: the row texts and the order latest first by the sort key.
#include "files/HolidayList.h"

#include <gtest/gtest.h>
#include <tuple>

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
    EXPECT_EQ(std::tie(row.sortKey, row.color, row.date, row.name, row.yearly),
              std::tuple("2024/01/05", "14483420", "05.01.2024", "Urlaub", "JA"));
    // Values of a damaged file are shown as the list always showed them, not refused.
    const HolidayRow odd = MakeHolidayRow({-5, 123, 99, -1, " ", false});
    EXPECT_EQ(std::tie(odd.sortKey, odd.color, odd.date, odd.yearly),
              std::tuple("0099/123/-5", "-1", "-5.123.0099", "NEIN"));
}

TEST(HolidayList, KeepsTheLatestDayFirstAndDaysInTheirListedOrder) {
    // Unpadded, "9" would sort above "10" and January above October.
    HolidayList list({Entry(9, 1, 2024, "9.1."), Entry(1, 10, 2024, "1.10."), Entry(10, 1, 2024, "10.1. A"),
                      Entry(10, 1, 2024, "10.1. B"), Entry(31, 12, 2023, "31.12.")});
    EXPECT_EQ(Names(list), (std::vector<std::string>{"1.10.", "10.1. A", "10.1. B", "9.1.", "31.12."}));
    EXPECT_EQ(list.Add(Entry(10, 1, 2024, "10.1. C")), 3u) << "behind the entries of its day";
    EXPECT_EQ(list.Add(Entry(1, 1, 2025, "neu")), 0u);
    EXPECT_EQ(list.Add(Entry(1, 1, 1970, "alt")), 7u);
    EXPECT_EQ(list.Take(2).name, "10.1. A");
    EXPECT_EQ(Names(list),
              (std::vector<std::string>{"neu", "1.10.", "10.1. B", "10.1. C", "9.1.", "31.12.", "alt"}));
}

} // namespace

} // namespace velto
