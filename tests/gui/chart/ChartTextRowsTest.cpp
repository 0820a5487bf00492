#include "ChartTestSupport.h"
#include "chart/ChartRows.h"
#include "chart/ChartText.h"

using namespace charttest;

namespace {

TEST(ChartText, RowTextCarriesTheDatePrefixAndTheResponsibleShortCode) {
    CProjectNode* node = BuildList({{0, KIND_TASK, "Titel", 249, 254}}); // 15.11. to 20.11.2026
    EXPECT_EQ(ChartRowText(*node, DATE_PREFIX_NONE, true), "Titel");
    EXPECT_EQ(ChartRowText(*node, DATE_PREFIX_START, false), "15.11.2026: Titel");
    EXPECT_EQ(ChartRowText(*node, DATE_PREFIX_DUE, false), "20.11.26: Titel");
    EXPECT_EQ(ChartRowText(*node, DATE_PREFIX_BOTH, false), "15.11.26-20.11.26: Titel");
    EXPECT_EQ(ChartRowText(*node, 7, false), "Titel");
    node->m_strResponsible = "Anna M\xFCller \xAB\xBB AM";
    EXPECT_EQ(ChartRowText(*node, DATE_PREFIX_DUE, true), "20.11.26: [AM] Titel");
    EXPECT_EQ(ChartRowText(*node, DATE_PREFIX_NONE, false), "Titel");
    EXPECT_EQ(ResponsibleShortCode("Ohne Trenner"), "Ohne Trenner");
    EXPECT_EQ(ResponsibleShortCode("A \xAB\xBB B \xAB\xBB C"), "C");
    EXPECT_EQ(ToQString("Gr\xF6\xDF"
                        "e \x80\x81"),
              QString::fromUtf8("Größe €\u0081"));
    FreeNodeList(node);
}

class ChartRowsTest : public ::testing::Test {
protected:
    ~ChartRowsTest() override { FreeNodeList(first); }
    CProjectNode* first = BuildList({{0, KIND_PROJECT, "R", 0, 9},
                                     {1, KIND_PROJECT, "P", 0, 1},
                                     {2, KIND_TASK, "done", 0, 1},
                                     {2, KIND_TASK, "open", 0, 1},
                                     {2, KIND_PROJECT, "Q", 0, 1},
                                     {3, KIND_TASK, "deep", 0, 1},
                                     {1, KIND_TASK, "late", -3, -1},
                                     {1, KIND_PROJECT, "empty", -5, -2}});
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
    CProjectNode* first = BuildList({{0, KIND_PROJECT, "R"}, {5, KIND_TASK, "jump"}, {-2, KIND_TASK, "neg"}});
    Find(first, "jump")->m_bDone = 1;
    ComputeProgress(first, Today());
    EXPECT_EQ(first->m_nRowPos, 100) << "the root's subtree ends at the node above its level";
    FreeNodeList(first);
}

} // namespace
