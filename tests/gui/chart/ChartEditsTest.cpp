#include "chart/ChartEdits.h"
#include "ChartTestSupport.h"
#include "chart/NodeClipboard.h"

using namespace charttest;

namespace {

class ChartEditsTest : public ::testing::Test {
protected:
    ~ChartEditsTest() override { FreeNodeList(first); }
    CProjectNode* N(const std::string& title) { return Find(first, title); }

    CProjectNode* first = BuildList({{0, KIND_PROJECT, "R"},
                                     {1, KIND_PROJECT, "A"},
                                     {2, KIND_TASK, "a1"},
                                     {2, KIND_PROJECT, "B"},
                                     {3, KIND_TASK, "b1"},
                                     {1, KIND_TASK, "T"},
                                     {1, KIND_NOTE, "N"}});
};

TEST_F(ChartEditsTest, MovedSubtreeGoesBeforeTheTargetAsItsSibling) {
    ASSERT_TRUE(MoveSubtree(first, N("B"), N("T")));
    EXPECT_EQ(Outline(first), "0:R 1:A 2:a1 1:B 2:b1 1:T 1:N");
    ASSERT_TRUE(MoveSubtree(first, N("N"), N("b1")));
    EXPECT_EQ(Outline(first), "0:R 1:A 2:a1 1:B 2:N 2:b1 1:T");
    EXPECT_TRUE(LinksSound(first));
}

TEST_F(ChartEditsTest, BelowTheLastRowTheSubtreeBecomesTheRootsLastChild) {
    ASSERT_TRUE(MoveSubtree(first, N("B"), nullptr));
    EXPECT_EQ(Outline(first), "0:R 1:A 2:a1 1:T 1:N 1:B 2:b1");
    EXPECT_TRUE(LinksSound(first));
}

TEST_F(ChartEditsTest, RefusedDropsLeaveTheListAlone) {
    const std::string before = Outline(first);
    EXPECT_EQ(CheckDrop(first, first, N("T")), DropVerdict::RootCannotMove);
    EXPECT_EQ(CheckDrop(first, N("A"), N("b1")), DropVerdict::IntoOwnSubtree);
    EXPECT_EQ(CheckDrop(first, N("A"), N("A")), DropVerdict::NoChange);
    EXPECT_EQ(CheckDrop(first, N("A"), N("T")), DropVerdict::NoChange) << "right below its own rows";
    EXPECT_EQ(CheckDrop(first, N("N"), nullptr), DropVerdict::NoChange) << "already the root's last child";
    EXPECT_EQ(CheckDrop(first, N("T"), first), DropVerdict::BeforeRoot);
    EXPECT_FALSE(MoveSubtree(first, N("A"), N("a1")));
    EXPECT_FALSE(MoveSubtree(first, N("T"), first));
    EXPECT_EQ(Outline(first), before);
    // Right after its own subtree at a shallower level: an outdent.
    EXPECT_EQ(CheckDrop(first, N("B"), N("T")), DropVerdict::Allowed);
}

TEST_F(ChartEditsTest, OnlyProjectNodesReceiveChildren) {
    // A damaged list where a task has a child: nothing may be dropped under the task.
    N("b1")->m_nLevel = 2;
    N("T")->m_nLevel = 3;
    EXPECT_EQ(CheckDrop(first, N("N"), N("T")), DropVerdict::ParentNotProject);
    first->m_nKind = KIND_TASK;
    EXPECT_EQ(CheckDrop(first, N("A"), nullptr), DropVerdict::ParentNotProject);
}

TEST_F(ChartEditsTest, CutTakesTheSubtreeAndSelectsTheNearestShownPredecessor) {
    N("A")->m_bExpanded = 0;
    RecomputeVisibility(first);
    CProjectNode* task = N("T");
    SelectOnly(first, task);
    CProjectNode* chain = CutSubtree(first, task);
    ASSERT_EQ(chain, task);
    EXPECT_EQ(Outline(first), "0:R 1:A 2:a1 2:B 3:b1 1:N");
    EXPECT_EQ(CurrentNode(first)->m_strTitle, "A") << "b1 is hidden under the collapsed A";
    EXPECT_EQ(chain->m_pPrev, nullptr);
    EXPECT_EQ(chain->m_pNext, nullptr);
    FreeChain(chain);
    EXPECT_EQ(CutSubtree(first, first), nullptr);
}

TEST_F(ChartEditsTest, CopyIsDeepAndCarriesNoRunningClock) {
    N("b1")->m_bClockedIn = 1;
    N("b1")->m_timeClockIn = Today();
    N("b1")->m_pHours = new CHoursEntry{};
    CProjectNode* chain = CopySubtreeChain(N("B"));
    EXPECT_EQ(Outline(chain), "2:B 3:b1");
    EXPECT_EQ(OutlineText(chain), "B\n\tb1");
    const CProjectNode* copy = chain->m_pNext;
    EXPECT_EQ(copy->m_bClockedIn, 0);
    EXPECT_TRUE(copy->m_timeClockIn.IsNull());
    ASSERT_NE(copy->m_pHours, nullptr);
    EXPECT_NE(copy->m_pHours, N("b1")->m_pHours);
    EXPECT_EQ(N("b1")->m_bClockedIn, 1) << "the original keeps running";
    EXPECT_EQ(Outline(first), "0:R 1:A 2:a1 2:B 3:b1 1:T 1:N");
    FreeChain(chain);
}

TEST_F(ChartEditsTest, PasteShiftsLevelsKeepsTheSelectionAndCanBecomeTheHead) {
    // Cut from under a collapsed node, pasted where it is shown again.
    N("A")->m_bExpanded = 0;
    RecomputeVisibility(first);
    PasteChainBefore(first, N("T"), CutSubtree(first, N("B")));
    EXPECT_EQ(Outline(first), "0:R 1:A 2:a1 1:B 2:b1 1:T 1:N");
    EXPECT_EQ(CurrentNode(first)->m_strTitle, "A") << "the cut moved the selection; paste keeps it";
    EXPECT_EQ(N("B")->m_bVisible, 1);
    EXPECT_EQ(N("b1")->m_bVisible, 1);
    EXPECT_EQ(N("a1")->m_bVisible, 0);
    // Before the head, the chain's first node becomes the new head at level 0.
    PasteChainBefore(first, first, CopySubtreeChain(N("B")));
    EXPECT_EQ(Outline(first), "0:B 1:b1 0:R 1:A 2:a1 1:B 2:b1 1:T 1:N");
    EXPECT_TRUE(LinksSound(first));
}

TEST(NodeClipboard, ACutIsPastedOnceACopyAgainAndAgain) {
    CProjectNode* list = BuildList({{0, KIND_PROJECT, "R"}, {1, KIND_TASK, "x"}});
    NodeClipboard clipboard;
    EXPECT_TRUE(clipboard.IsEmpty());
    EXPECT_EQ(clipboard.TakeForPaste(), nullptr);

    clipboard.HoldCopy(CopySubtreeChain(list->m_pNext));
    CProjectNode* first = clipboard.TakeForPaste();
    CProjectNode* second = clipboard.TakeForPaste();
    ASSERT_TRUE(first && second);
    EXPECT_NE(first, second);
    EXPECT_NE(first, clipboard.Peek());
    EXPECT_FALSE(clipboard.IsEmpty());
    FreeChain(first);
    FreeChain(second);

    CProjectNode* cut = CutSubtree(list, list->m_pNext);
    clipboard.HoldCut(cut);
    EXPECT_EQ(clipboard.TakeForPaste(), cut);
    EXPECT_TRUE(clipboard.IsEmpty());
    EXPECT_EQ(clipboard.TakeForPaste(), nullptr);
    FreeChain(cut);
    FreeNodeList(list);
}

} // namespace
