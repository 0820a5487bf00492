// Hours entries: durations and rows, the refused intervals, taking back the first matching entry,
// the needed hours from the list, the clock-out booking and the recent-text histories.
#include "model/HoursLogic.h"
#include "model/PickListLogic.h"

#include <gtest/gtest.h>
#include <memory>

namespace velto {

namespace {

const CalendarDay kMay5{2024, 5, 5}; // a Sunday

HoursInput Input(int bh, int bm, int eh, int em, std::string assignee = "Anna", std::string remark = "") {
    return {kMay5, bh, bm, eh, em, std::move(assignee), std::move(remark)};
}

TEST(HoursEntry, IntervalsShorterThanAMinuteAreRefused) {
    CHoursList list;
    EXPECT_FALSE(AddHoursEntry(list, Input(8, 0, 8, 0)));
    EXPECT_FALSE(AddHoursEntry(list, Input(9, 30, 9, 29)));
    // The date is not part of the comparison: a night shift over midnight cannot be booked.
    EXPECT_FALSE(AddHoursEntry(list, Input(22, 0, 1, 0)));
    EXPECT_TRUE(list.empty());
}

TEST(HoursEntry, OneMinuteShowsAsTwoHundredthsAndRowsCarryEveryColumn) {
    CHoursList list;
    ASSERT_TRUE(AddHoursEntry(list, Input(8, 0, 8, 1, "Anna", "Aufbau")));
    const HoursRow row = MakeHoursRow(list.front());
    EXPECT_EQ(row.sortKey, "2024/05/05");
    EXPECT_EQ(row.day, "05.05.2024");
    EXPECT_EQ(row.weekday, "SO");
    EXPECT_EQ(row.begin, "08:00");
    EXPECT_EQ(row.end, "08:01");
    EXPECT_EQ(row.assignee, "Anna");
    EXPECT_EQ(row.remark, "Aufbau");
    EXPECT_EQ(row.hours, "0.02");
}

TEST(HoursEntry, WeekdaysRunFromSundayToSaturday) {
    const char* expected[] = {"SO", "MO", "DI", "MI", "DO", "FR", "SA"};
    for (int i = 0; i < 7; ++i)
        EXPECT_EQ(WeekdayAbbreviation(CalendarDay{2024, 5, 5 + i}.At(12, 0, 0)), expected[i]);
}

TEST(HoursEntry, NeededHoursSumTheColumnAsShown) {
    CHoursList list;
    EXPECT_EQ(NeededHoursText(list), "0.00");
    // Each minute shows as 0.02 in the list, so three of them sum to 0.06, not 0.05.
    for (int i = 0; i < 3; ++i)
        ASSERT_TRUE(AddHoursEntry(list, Input(8, 0, 8, 1)));
    EXPECT_EQ(NeededHoursText(list), "0.06");
    ASSERT_TRUE(AddHoursEntry(list, Input(13, 15, 17, 45)));
    EXPECT_EQ(NeededHoursText(list), "4.56");
}

TEST(HoursEntry, TakingBackRemovesOnlyTheFirstOfTwoIdenticalEntries) {
    CHoursList list;
    ASSERT_TRUE(AddHoursEntry(list, Input(8, 0, 9, 0, "Anna", "x")));
    ASSERT_TRUE(AddHoursEntry(list, Input(8, 0, 9, 0, "Anna", "y")));
    ASSERT_TRUE(AddHoursEntry(list, Input(8, 0, 9, 0, "Anna", "x")));

    const HoursInput key = HoursInputOfRow(MakeHoursRow(list[2]));
    EXPECT_EQ(key.day, kMay5);
    EXPECT_EQ(key.beginHour, 8);
    EXPECT_EQ(key.endHour, 9);
    ASSERT_TRUE(RemoveFirstMatchingHours(list, key));
    ASSERT_EQ(list.size(), 2u);
    EXPECT_EQ(list[0].m_str2, "y");
    EXPECT_EQ(list[1].m_str2, "x");
}

TEST(HoursEntry, TakingBackNeedsDayTimesAndTextsToMatch) {
    CHoursList list;
    ASSERT_TRUE(AddHoursEntry(list, Input(8, 0, 9, 0, "Anna", "x")));
    HoursInput key = HoursInputOfRow(MakeHoursRow(list.front()));
    for (auto change : std::initializer_list<void (*)(HoursInput&)>{
             [](HoursInput& k) { k.day.day = 6; }, [](HoursInput& k) { k.beginMinute = 1; },
             [](HoursInput& k) { k.endHour = 10; }, [](HoursInput& k) { k.assignee = "anna"; },
             [](HoursInput& k) { k.remark = "x "; }}) {
        HoursInput other = key;
        change(other);
        EXPECT_FALSE(RemoveFirstMatchingHours(list, other));
    }
    EXPECT_EQ(list.size(), 1u);
    EXPECT_TRUE(RemoveFirstMatchingHours(list, key));
    EXPECT_TRUE(list.empty());
}

TEST(HoursEntry, DayTextsReadLikeTheListWritesThem) {
    EXPECT_EQ(ParseDayText("05.05.2024"), (CalendarDay{2024, 5, 5}));
    EXPECT_EQ(ParseDayText(" 7.12.1999"), (CalendarDay{1999, 12, 7}));
    // A damaged text reads as far as it goes; what is missing stays 0 and matches no entry.
    EXPECT_EQ(ParseDayText("05/05/2024"), (CalendarDay{0, 0, 5}));
    EXPECT_EQ(ParseDayText(""), (CalendarDay{0, 0, 0}));
}

TEST(ClockOut, StoppingFirstMeansDiscardingLeavesNoEntryAndNoClock) {
    CProjectNode node;
    node.m_bClockedIn = 1;
    node.m_fHoursNeeded = 2.0f;
    StopClock(node); // what happens before the dialog; "Verwerfen" then books nothing
    EXPECT_FALSE(node.m_bClockedIn);
    EXPECT_TRUE(node.m_pHours.empty());
    EXPECT_FLOAT_EQ(node.m_fHoursNeeded, 2.0f);
}

TEST(ClockOut, BookingAddsTheDurationToTheStoredNeededHours) {
    CProjectNode node;
    node.m_fHoursNeeded = 7.0f; // typed by hand, not the sum of the list
    ASSERT_TRUE(BookClockOut(node, Input(10, 0, 11, 30)));
    ASSERT_TRUE(BookClockOut(node, Input(12, 0, 12, 15)));
    EXPECT_FLOAT_EQ(node.m_fHoursNeeded, 8.75f);
    ASSERT_EQ(node.m_pHours.size(), 2u);
    EXPECT_EQ(node.m_pHours[0].m_time2.GetHour(), 10);
    EXPECT_EQ(node.m_pHours[1].m_time2.GetHour(), 12);
    EXPECT_FALSE(BookClockOut(node, Input(22, 0, 1, 0)));
    EXPECT_FLOAT_EQ(node.m_fHoursNeeded, 8.75f);
}

TEST(History, NewTextsGoFirstAndTheEleventhPushesTheOldestOut) {
    TextHistory history{};
    for (int i = 1; i <= 11; ++i)
        PushHistory(history, std::to_string(i) + "t");
    EXPECT_EQ(history[0], "11t");
    EXPECT_EQ(history[9], "2t");
    EXPECT_EQ(std::count(history.begin(), history.end(), "1t"), 0);
}

TEST(History, AKnownTextKeepsItsPlace) {
    TextHistory history{"c", "b", "a"};
    PushHistory(history, "a");
    EXPECT_EQ(history[0], "c");
    EXPECT_EQ(history[2], "a");
    EXPECT_EQ(history[3], "");
}

TEST(History, ChoicesSkipEmptyTextsAndASingleBlank) {
    TextHistory history{"b", "", " ", "A", "  "};
    EXPECT_EQ(HistoryChoices(history), (std::vector<std::string>{"  ", "A", "b"}));
}

} // namespace

} // namespace velto
