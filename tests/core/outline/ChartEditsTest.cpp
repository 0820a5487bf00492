#include "outline/ChartEdits.h"
#include "core/outline/OutlineTestSupport.h"

namespace velto {

using namespace charttest;

class ChartEditsTest : public ::testing::Test {
protected:
    ~ChartEditsTest() override { FreeNodeList(first); }
    CProjectNode* N(const std::string& title) { return Find(first, title); }

    CProjectNode* first = BuildBranchedOutline();
};

TEST_F(ChartEditsTest, MovedSubtreeGoesBeforeTheTargetAsItsSiblingOrLastUnderTheRoot) {
    ASSERT_TRUE(MoveSubtree(first, N("B"), nullptr));
    EXPECT_EQ(Outline(first), "0:R 1:A 2:a1 1:T 1:N 1:B 2:b1");
    ASSERT_TRUE(MoveSubtree(first, N("N"), N("b1")));
    EXPECT_EQ(Outline(first), "0:R 1:A 2:a1 1:T 1:B 2:N 2:b1");
    ASSERT_TRUE(MoveSubtree(first, N("B"), N("a1")));
    EXPECT_EQ(Outline(first), "0:R 1:A 2:B 3:N 3:b1 2:a1 1:T");
}

TEST_F(ChartEditsTest, RefusedAndEmptyDropsLeaveTheListAlone) {
    const std::string before = Outline(first);
    EXPECT_EQ(CheckDrop(first, first, N("T")), DropVerdict::RootCannotMove);
    EXPECT_EQ(CheckDrop(first, N("A"), N("b1")), DropVerdict::IntoOwnSubtree);
    EXPECT_EQ(CheckDrop(first, N("T"), first), DropVerdict::BeforeRoot);
    EXPECT_EQ(CheckDrop(first, N("A"), N("A")), DropVerdict::NoChange);
    EXPECT_EQ(CheckDrop(first, N("A"), N("T")), DropVerdict::NoChange) << "right below its own rows";
    EXPECT_EQ(CheckDrop(first, N("N"), nullptr), DropVerdict::NoChange) << "already the root's last child";
    EXPECT_EQ(CheckDrop(first, N("B"), N("T")), DropVerdict::Allowed) << "below its rows, one level up";
    EXPECT_FALSE(MoveSubtree(first, N("A"), N("a1")));
    EXPECT_FALSE(MoveSubtree(first, N("T"), first));
    EXPECT_EQ(Outline(first), before);
    // A damaged list where a task has a child: nothing may be dropped under the task.
    N("b1")->m_nLevel = 2;
    N("T")->m_nLevel = 3;
    EXPECT_EQ(CheckDrop(first, N("N"), N("T")), DropVerdict::ParentNotProject);
}

TEST_F(ChartEditsTest, CutSelectsTheNearestShownPredecessor) {
    N("A")->m_bExpanded = 0;
    RecomputeVisibility(first);
    CProjectNode* task = N("T");
    SelectOnly(first, task);
    CProjectNode* chain = CutSubtree(first, task);
    ASSERT_EQ(chain, task);
    EXPECT_EQ(chain->m_pNext, nullptr);
    EXPECT_EQ(Outline(first), "0:R 1:A 2:a1 2:B 3:b1 1:N");
    EXPECT_EQ(CurrentNode(first)->m_strTitle, "A") << "b1 is hidden under the collapsed A";
    FreeChain(chain);
    EXPECT_EQ(CutSubtree(first, first), nullptr);
}

TEST_F(ChartEditsTest, CopiesAreDeepAndCarryNoRunningClock) {
    N("b1")->m_bClockedIn = 1;
    N("b1")->m_pHours = {CHoursEntry{}};
    CProjectNode* chain = CopySubtreeChain(N("B"));
    EXPECT_EQ(OutlineText(chain), "B\n\tb1");
    EXPECT_EQ(chain->m_pNext->m_bClockedIn, 0);
    chain->m_pNext->m_pHours.Erase(0);
    EXPECT_EQ(N("b1")->m_pHours.size(), 1u) << "the copy's entries are its own";
    EXPECT_EQ(N("b1")->m_bClockedIn, 1) << "the original keeps running";
    // Pasted before the head, the chain's first node becomes the new head at level 0.
    PasteChainBefore(first, first, chain);
    EXPECT_EQ(Outline(first), "0:B 1:b1 0:R 1:A 2:a1 2:B 3:b1 1:T 1:N");
    EXPECT_EQ(CurrentNode(first)->m_strTitle, "R");
}

} // namespace velto
