// Hours entries: durations and rows, the refused intervals, taking back the first matching entry,
// the needed hours from the list, the clock-out booking and the recent-text histories.
#include "model/HoursLogic.h"
#include "model/PickListLogic.h"

#include <gtest/gtest.h>

namespace velto {

namespace {

using Texts = std::vector<std::string>;
const CalendarDay kMay5{2024, 5, 5}; // a Sunday

HoursInput Input(int bh, int bm, int eh, int em, std::string remark = "") {
    return {kMay5, bh, bm, eh, em, "Anna", std::move(remark)};
}

// The date is not part of the comparison: a night shift over midnight cannot be booked.
TEST(HoursEntry, IntervalsShorterThanAMinuteAreRefused) {
    CHoursList list;
    EXPECT_FALSE(AddHoursEntry(list, Input(8, 0, 8, 0)));
    EXPECT_FALSE(AddHoursEntry(list, Input(22, 0, 1, 0)));
    EXPECT_TRUE(list.empty());
}

TEST(HoursEntry, OneMinuteShowsAsTwoHundredthsAndRowsCarryEveryColumn) {
    CHoursList list;
    ASSERT_TRUE(AddHoursEntry(list, Input(8, 0, 8, 1, "Aufbau")));
    const HoursRow row = MakeHoursRow(list.front());
    EXPECT_EQ(
        (Texts{row.sortKey, row.day, row.weekday, row.begin, row.end, row.assignee, row.remark, row.hours}),
        (Texts{"2024/05/05", "05.05.2024", "SO", "08:00", "08:01", "Anna", "Aufbau", "0.02"}));
    const char* weekdays[] = {"SO", "MO", "DI", "MI", "DO", "FR", "SA"};
    for (int i = 0; i < 7; ++i)
        EXPECT_EQ(WeekdayAbbreviation(CalendarDay{2024, 5, 5 + i}.At(12, 0, 0)), weekdays[i]);
}

// Each minute shows as 0.02 in the list, so three of them sum to 0.06, not 0.05.
TEST(HoursEntry, NeededHoursSumTheColumnAsShown) {
    CHoursList list;
    EXPECT_EQ(NeededHoursText(list), "0.00");
    for (int i = 0; i < 3; ++i)
        ASSERT_TRUE(AddHoursEntry(list, Input(8, 0, 8, 1)));
    EXPECT_EQ(NeededHoursText(list), "0.06");
    ASSERT_TRUE(AddHoursEntry(list, Input(13, 15, 17, 45)));
    EXPECT_EQ(NeededHoursText(list), "4.56");
}

TEST(HoursEntry, TakingBackRemovesTheFirstEntryWhoseDayTimesAndTextsAllMatch) {
    CHoursList list;
    for (const char* remark : {"x", "y", "x"})
        ASSERT_TRUE(AddHoursEntry(list, Input(8, 0, 9, 0, remark)));
    const HoursInput key = HoursInputOfRow(MakeHoursRow(list[2]));
    for (auto change : std::initializer_list<void (*)(HoursInput&)>{
             [](HoursInput& k) { k.day.day = 6; }, [](HoursInput& k) { k.beginMinute = 1; },
             [](HoursInput& k) { k.endHour = 10; }, [](HoursInput& k) { k.assignee = "anna"; },
             [](HoursInput& k) { k.remark = "x "; }}) {
        HoursInput other = key;
        change(other);
        EXPECT_FALSE(RemoveFirstMatchingHours(list, other));
    }
    ASSERT_TRUE(RemoveFirstMatchingHours(list, key));
    ASSERT_EQ(list.size(), 2u);
    EXPECT_EQ(list[0].m_str2, "y");
    EXPECT_EQ(list[1].m_str2, "x");
}

// A damaged text reads as far as it goes; what is missing stays 0 and matches no entry.
TEST(HoursEntry, DayTextsReadLikeTheListWritesThem) {
    EXPECT_EQ(ParseDayText("05.05.2024"), (CalendarDay{2024, 5, 5}));
    EXPECT_EQ(ParseDayText("05/05/2024"), (CalendarDay{0, 0, 5}));
    EXPECT_EQ(ParseDayText(""), (CalendarDay{0, 0, 0}));
}

// The needed hours were typed by hand, not summed from the list; stopping alone books nothing.
TEST(ClockOut, BookingAddsTheDurationToTheStoredNeededHours) {
    CProjectNode node;
    node.m_bClockedIn = 1;
    node.m_fHoursNeeded = 7.0f;
    StopClock(node);
    EXPECT_FALSE(node.m_bClockedIn);
    EXPECT_TRUE(node.m_pHours.empty());
    ASSERT_TRUE(BookClockOut(node, Input(10, 0, 11, 30)));
    ASSERT_TRUE(BookClockOut(node, Input(12, 0, 12, 15)));
    EXPECT_FLOAT_EQ(node.m_fHoursNeeded, 8.75f);
    ASSERT_EQ(node.m_pHours.size(), 2u);
    EXPECT_EQ(node.m_pHours[1].m_time2.GetHour(), 12);
    EXPECT_FALSE(BookClockOut(node, Input(22, 0, 1, 0)));
    EXPECT_FLOAT_EQ(node.m_fHoursNeeded, 8.75f);
}

TEST(ClockOut, AClockPastMidnightIsProposedToEndOnItsFirstDayAndALongOneIsPointedOut) {
    const CTime begin(2024, 3, 30, 22, 0, 0); // the night summer time begins
    const struct {
        CTime now;
        CTime end;
        const char* hint;
    } cases[] = {
        {CTime(2024, 3, 30, 23, 59, 59), CTime(2024, 3, 30, 23, 59, 59), ""},
        {CTime(2024, 3, 31, 0, 0, 0), CTime(2024, 3, 30, 23, 59, 0), "30.03.2024 22:00 über Mitternacht"},
        {CTime(2024, 4, 2, 9, 0, 0), CTime(2024, 3, 30, 23, 59, 0), "über Mitternacht"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.now.Format("%d.%m. %H:%M"));
        const ClockOutProposal proposal = ProposeClockOut(begin, c.now);
        EXPECT_EQ(proposal.end, c.end);
        EXPECT_EQ(proposal.hint.empty(), !*c.hint);
        EXPECT_NE(proposal.hint.find(c.hint), std::string::npos) << proposal.hint;
    }
    const CTime early(2024, 5, 6, 7, 0, 0);
    EXPECT_TRUE(ProposeClockOut(early, early + kLongClockSeconds).hint.empty());
    EXPECT_NE(ProposeClockOut(early, early + kLongClockSeconds + 60).hint.find("12 Stunden"),
              std::string::npos);
}

TEST(History, NewTextsGoFirstAKnownTextKeepsItsPlaceAndTheEleventhPushesTheOldestOut) {
    TextHistory history{};
    for (const char* text : {"1", "2", "3", "1"})
        PushHistory(history, text);
    EXPECT_EQ(Texts(history.begin(), history.begin() + 4), (Texts{"3", "2", "1", ""}));
    for (int i = 4; i <= 11; ++i)
        PushHistory(history, std::to_string(i));
    EXPECT_EQ(Texts(history.begin(), history.end()),
              (Texts{"11", "10", "9", "8", "7", "6", "5", "4", "3", "2"}));
}

TEST(History, ChoicesSkipEmptyTextsAndASingleBlank) {
    TextHistory history{"b", "", " ", "A", "  "};
    EXPECT_EQ(HistoryChoices(history), (Texts{"  ", "A", "b"}));
}

} // namespace

} // namespace velto
