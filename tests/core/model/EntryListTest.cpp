// The compact entry lists and texts: every text survives packing (empty, repeated, long), changes
// go to the changed copy only, and inline and heap texts behave alike.
#include "model/EntryList.h"
#include "model/SharedText.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace velto {

namespace {

CHoursEntry Hours(uint32_t day, std::string_view assignee, std::string_view remark) {
    return {CTime(day), CTime(day + 1), CTime(day + 2), assignee, remark};
}

using Texts = std::vector<std::string>;

Texts Column(const CHoursList& list, std::string_view CHoursEntry::*column) {
    Texts texts;
    for (const CHoursEntry entry : list)
        texts.emplace_back(entry.*column);
    return texts;
}

TEST(EntryList, KeepsEveryTextAndNumberWhateverItsLengthOrRepetition) {
    const std::string longText(70000, 'L');
    const std::string text254(254, 'a'), text255(255, 'b');
    const CHoursList hours{Hours(10, "MM", ""),     Hours(20, "MM", "MM"),    Hours(30, "", text254),
                           Hours(40, "x", text255), Hours(50, "x", longText), Hours(60, "MM", longText)};
    // Texts equal to the one above or to the other column's, and empty ones after non-empty ones.
    EXPECT_EQ(Column(hours, &CHoursEntry::m_str1), (Texts{"MM", "MM", "", "x", "x", "MM"}));
    EXPECT_EQ(Column(hours, &CHoursEntry::m_str2), (Texts{"", "MM", text254, text255, longText, longText}));
    EXPECT_EQ(hours[3].m_time3.GetTime(), 42u);

    const CCostList costs{{CTime(7), -0.0f, 1e30f, -2.5f, "K", "R"}};
    EXPECT_EQ(std::bit_cast<uint32_t>(costs.front().m_fUnitPrice), 0x80000000u);
    EXPECT_EQ(costs.front().m_fQuantity, 1e30f);
    EXPECT_EQ(costs.front().m_fAmount, -2.5f);
    EXPECT_EQ(costs.front().m_str2, "R");
}

TEST(EntryList, AChangeGoesToTheChangedCopyOnly) {
    CHoursList list{Hours(1, "A", "a"), Hours(2, "B", "b"), Hours(3, "C", "c")};
    const CHoursList copy = list;
    list.Replace(1, list[2]); // an entry of the list itself
    list.Erase(0);
    list.Append(Hours(4, "D", "d"));
    EXPECT_EQ(Column(list, &CHoursEntry::m_str2), (Texts{"c", "c", "d"}));
    EXPECT_EQ(Column(copy, &CHoursEntry::m_str2), (Texts{"a", "b", "c"}));
    for (size_t last = list.size(); last-- > 0;)
        list.Erase(last);
    EXPECT_TRUE(list.empty());
    EXPECT_EQ(list.begin(), list.end());
}

TEST(SharedText, InlineAndHeapTextsCopyAndCompareAlike) {
    for (const std::string& bytes : {std::string(), std::string("1234567"), std::string("12345678"),
                                     std::string("a\0b", 3), std::string(300, '\xFF')}) {
        SharedText text(bytes);
        const SharedText copy = text;
        EXPECT_EQ(text.str(), bytes);
        EXPECT_EQ(copy, text);
        EXPECT_EQ(text.empty(), bytes.empty());
        text = "anders";
        EXPECT_EQ(copy.str(), bytes) << "the copy keeps its text";
        EXPECT_FALSE(copy == text);
    }
}

} // namespace

} // namespace velto
