#include "outline/Reminders.h"
#include "core/outline/OutlineTestSupport.h"
#include "outline/ChartEdits.h"

namespace velto {

using namespace charttest;

class RemindersTest : public ::testing::Test {
protected:
    ~RemindersTest() override { FreeNodeList(first); }
    CProjectNode* N(const std::string& title) { return Find(first, title); }

    CProjectNode* first = BuildBranchedOutline(); // R A a1 B b1 T N
};

TEST_F(RemindersTest, AReminderIsDueFromItsSecondOnAndTheLastDueNodeOfATickWins) {
    const CTime now = Today();
    EXPECT_EQ(LastDueReminder(first, now), nullptr) << "no reminder set";
    EXPECT_EQ(LastDueReminder(nullptr, now), nullptr);
    N("a1")->m_timeReminder = now + 1;
    EXPECT_EQ(LastDueReminder(first, now), nullptr) << "a second early";
    EXPECT_EQ(LastDueReminder(first, now + 1), N("a1"));
    N("T")->m_timeReminder = now - 3600;
    N("b1")->m_timeReminder = now + 60;
    EXPECT_EQ(LastDueReminder(first, now + 1), N("T"));
    N("T")->m_timeReminder = CTime();
    EXPECT_EQ(LastDueReminder(first, now + 60), N("b1"));
}

TEST_F(RemindersTest, SnoozeLabelsAreTakenOnlyWhenTheyMatchExactly) {
    EXPECT_EQ(SnoozeSeconds("1 Stunde"), 3600);
    EXPECT_EQ(SnoozeSeconds(kDefaultSnooze), 300);
    EXPECT_EQ(SnoozeSeconds("30 Tage"), 30 * 86400);
    for (std::string_view text : {"", "1 stunde", " 1 Stunde", "1 Stunde ", "60 Minuten", "1"})
        EXPECT_EQ(SnoozeSeconds(text), std::nullopt) << text;
    for (size_t i = 1; i < kSnoozeIntervals.size(); ++i)
        EXPECT_LT(kSnoozeIntervals[i - 1].seconds, kSnoozeIntervals[i].seconds) << "listed shortest first";
}

TEST_F(RemindersTest, GoingToANodeInACollapsedBranchExpandsItsAncestorsAndCountsTheRowsAbove) {
    N("A")->m_bExpanded = 0;
    N("B")->m_bExpanded = 0;
    RecomputeVisibility(first);
    EXPECT_EQ(ShowAlarmNode(first, N("b1")), 4) << "R A a1 B above it";
    EXPECT_TRUE(N("A")->m_bExpanded && N("B")->m_bExpanded);
    EXPECT_TRUE(N("b1")->m_bSelected);
    EXPECT_FALSE(N("R")->m_bSelected);
    N("A")->m_bExpanded = 0;
    RecomputeVisibility(first);
    EXPECT_EQ(ShowAlarmNode(first, N("T")), 2) << "a shown node leaves the collapsed branch alone";
    EXPECT_FALSE(N("A")->m_bExpanded);

    // A malformed list whose head is below level 0 has no ancestor at level 0 for b1.
    for (CProjectNode* node = first; node; node = node->m_pNext)
        ++node->m_nLevel;
    N("B")->m_bExpanded = 0;
    RecomputeVisibility(first);
    EXPECT_EQ(ShowAlarmNode(first, N("b1")), std::nullopt);
    EXPECT_TRUE(N("T")->m_bSelected) << "the selection stays";
}

TEST_F(RemindersTest, TheTrackerFollowsItsNodeThroughMovesAndUndoAndLetsGoWhenItIsGone) {
    NodeTracker tracker;
    EXPECT_EQ(tracker.Find(first), nullptr) << "following nothing";
    CProjectNode* b1 = N("b1");
    tracker.Follow(first, *b1);
    ASSERT_TRUE(MoveSubtree(first, N("B"), nullptr));
    CProjectNode* twin = b1->CloneUnlinked(); // a pasted copy keeps creation time and title
    SpliceChainBefore(first, N("B"), twin);
    EXPECT_EQ(Outline(first), "0:R 1:A 2:a1 1:T 1:N 1:b1 1:B 2:b1");
    EXPECT_EQ(tracker.Find(first), b1) << "of two alike, the one at its address";

    // Undo swaps in the copy taken before: there its twin stands nearest to where it was.
    CProjectNode* copy = DeepCopyList(first);
    std::swap(first, copy);
    EXPECT_EQ(tracker.Find(first), SubtreeLast(first)) << "the last node, like b1";
    std::swap(first, copy);
    FreeNodeList(copy);
    EXPECT_EQ(tracker.Find(first), b1);

    // Another node at its address, as when a freed node's memory is used again, is not taken for it.
    b1->AssignContentOf(*N("T"));
    EXPECT_EQ(tracker.Find(first), twin) << "the one left alike";
    twin->m_strTitle = "renamed";
    EXPECT_EQ(tracker.Find(first), nullptr);
    EXPECT_TRUE(tracker.IsFollowing()) << "an undo may bring it back";
    tracker.Forget();
    EXPECT_FALSE(tracker.IsFollowing());
}

} // namespace velto
