#include "outline/ChartRows.h"
#include "core/outline/OutlineTestSupport.h"

namespace velto {

using namespace charttest;

class ChartRowsTest : public ::testing::Test {
protected:
    ~ChartRowsTest() override { FreeNodeList(first); }
    CProjectNode* first = BuildList({{0, kKindProject, "R", 0, 9},
                                     {1, kKindProject, "P", 0, 1},
                                     {2, kKindTask, "done", 0, 1},
                                     {2, kKindTask, "open", 0, 1},
                                     {2, kKindProject, "Q", 0, 1},
                                     {3, kKindTask, "deep", 0, 1},
                                     {1, kKindTask, "late", -3, -1},
                                     {1, kKindProject, "empty", -5, -2}});
};

TEST_F(ChartRowsTest, IndexHoldsShownNodesAndIsRebuiltOnlyWhenStaleOrTheHeadChanged) {
    Find(first, "P")->m_bExpanded = 0;
    RecomputeVisibility(first);
    SelectOnly(first, Find(first, "late"));
    ChartRows rows;
    rows.Refresh(first, Today());
    ASSERT_EQ(rows.Count(), 4);
    EXPECT_EQ(rows.At(2)->m_strTitle, "late");
    EXPECT_EQ(rows.SelectedRow(), 2);
    EXPECT_EQ(rows.At(4), nullptr);

    Find(first, "P")->m_bExpanded = 1;
    RecomputeVisibility(first);
    rows.Refresh(first, Today());
    EXPECT_EQ(rows.Count(), 4) << "kept until someone says the list changed";
    rows.Invalidate();
    rows.Refresh(first, Today());
    EXPECT_EQ(rows.Count(), 8);
    EXPECT_EQ(rows.SelectedRow(), 6);
    rows.Refresh(first->m_pNext, Today());
    EXPECT_EQ(rows.Count(), 7) << "another head is another list";
}

TEST_F(ChartRowsTest, ProgressCountsEveryTaskOfTheSubtreeAndLateMeansOpenWorkPastItsDueTime) {
    Find(first, "done")->m_bDone = 1;
    ComputeProgress(first, Today());
    EXPECT_EQ(Find(first, "done")->m_nRowPos, 100);
    EXPECT_EQ(Find(first, "P")->m_nRowPos, 33) << "one of three tasks, the nested one included";
    EXPECT_EQ(Find(first, "R")->m_nRowPos, 25);
    EXPECT_EQ(Find(first, "empty")->m_nRowPos, 0);
    EXPECT_EQ(Find(first, "late")->m_nRowAux, 1);
    EXPECT_EQ(Find(first, "open")->m_nRowAux, 0) << "due tonight is not late at noon";
    EXPECT_EQ(Find(first, "empty")->m_nRowAux, 0) << "nothing open, nothing late";

    Find(first, "late")->m_bDone = 1;
    ComputeProgress(first, Day(2, 12));
    EXPECT_EQ(Find(first, "late")->m_nRowAux, 0);
    EXPECT_EQ(Find(first, "P")->m_nRowAux, 1);
    EXPECT_EQ(Find(first, "R")->m_nRowAux, 0) << "the root is due later";
}

TEST(ChartRows, DamagedLevelsNeitherCrashNorMiscount) {
    CProjectNode* first = BuildList({{0, kKindProject, "R"}, {5, kKindTask, "jump"}, {-2, kKindTask, "neg"}});
    Find(first, "jump")->m_bDone = 1;
    ComputeProgress(first, Today());
    EXPECT_EQ(first->m_nRowPos, 100) << "the root's subtree ends at the node above its level";
    FreeNodeList(first);
}

} // namespace velto
