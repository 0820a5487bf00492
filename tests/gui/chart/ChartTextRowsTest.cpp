#include "ChartTestSupport.h"
#include "chart/ChartRows.h"
#include "chart/ChartText.h"

#include <memory>

using namespace charttest;

namespace {

std::unique_ptr<CProjectNode> MakeNode(const std::string& title) {
    auto node = std::make_unique<CProjectNode>(
        NodeDefaults{Today(), CTime(2026, 11, 15, 1, 0, 0), CTime(2026, 11, 20, 23, 59, 59)});
    node->m_strTitle = title;
    return node;
}

TEST(ChartText, DatePrefixesFollowTheDatumSetting) {
    const auto owner = MakeNode("Titel");
    const CProjectNode& node = *owner;
    EXPECT_EQ(ChartRowText(node, DATE_PREFIX_NONE, false), "Titel");
    EXPECT_EQ(ChartRowText(node, DATE_PREFIX_START, false), "15.11.2026: Titel");
    EXPECT_EQ(ChartRowText(node, DATE_PREFIX_DUE, false), "20.11.26: Titel");
    EXPECT_EQ(ChartRowText(node, DATE_PREFIX_BOTH, false), "15.11.26-20.11.26: Titel");
    EXPECT_EQ(ChartRowText(node, 7, false), "Titel");
}

TEST(ChartText, ResponsibleShortCodeIsTheTextAfterTheSeparator) {
    const auto owner = MakeNode("Titel");
    CProjectNode& node = *owner;
    node.m_strResponsible = "Anna M\xFCller \xAB\xBB AM";
    EXPECT_EQ(ChartRowText(node, DATE_PREFIX_NONE, true), "[AM] Titel");
    EXPECT_EQ(ChartRowText(node, DATE_PREFIX_DUE, true), "20.11.26: [AM] Titel");
    EXPECT_EQ(ChartRowText(node, DATE_PREFIX_NONE, false), "Titel");
    EXPECT_EQ(ResponsibleShortCode("Ohne Trenner"), "Ohne Trenner");
    EXPECT_EQ(ResponsibleShortCode("A \xAB\xBB B \xAB\xBB C"), "C");
    EXPECT_EQ(ResponsibleShortCode("Name \xAB\xBB "), "");
    node.m_strResponsible.clear();
    EXPECT_EQ(ChartRowText(node, DATE_PREFIX_NONE, true), "Titel");
}

TEST(ChartText, Cp1252BytesConvertLosslessly) {
    EXPECT_EQ(ChartQString("Gr\xF6\xDF"
                           "e \x80"),
              QString::fromUtf8("Größe €"));
    EXPECT_EQ(ChartQString("\x81\x9D"), QString(QChar(0x81)) + QChar(0x9D));
    EXPECT_EQ(ChartQString(std::string_view("a\0b", 3)).size(), 3);
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
                                     {1, KIND_NOTE, "note", 0, 0},
                                     {1, KIND_PROJECT, "empty", -5, -2}});
};

TEST_F(ChartRowsTest, IndexHoldsShownNodesAndIsRebuiltOnlyWhenStaleOrTheHeadChanged) {
    Find(first, "P")->m_bExpanded = 0;
    RecomputeVisibility(first);
    SelectOnly(first, Find(first, "late"));
    ChartRows rows;
    rows.Refresh(first, Today());
    ASSERT_EQ(rows.Count(), 5);
    EXPECT_EQ(rows.At(2)->m_strTitle, "late");
    EXPECT_EQ(rows.SelectedRow(), 2);
    EXPECT_EQ(rows.RowOf(Find(first, "done")), -1);
    EXPECT_EQ(rows.At(5), nullptr);
    EXPECT_EQ(rows.At(-1), nullptr);

    Find(first, "P")->m_bExpanded = 1;
    RecomputeVisibility(first);
    rows.Refresh(first, Today());
    EXPECT_EQ(rows.Count(), 5) << "a fresh index is kept until someone says the list changed";
    rows.Invalidate();
    rows.Refresh(first, Today());
    EXPECT_EQ(rows.Count(), 9);
    EXPECT_EQ(rows.SelectedRow(), 6);

    rows.Refresh(first->m_pNext, Today());
    EXPECT_EQ(rows.Count(), 8) << "another head is another list";
}

TEST_F(ChartRowsTest, ProgressCountsEveryTaskOfTheSubtree) {
    Find(first, "done")->m_bDone = 1;
    ComputeProgress(first, Today());
    EXPECT_EQ(Find(first, "done")->m_nRowPos, 100);
    EXPECT_EQ(Find(first, "open")->m_nRowPos, 0);
    EXPECT_EQ(Find(first, "Q")->m_nRowPos, 0);
    EXPECT_EQ(Find(first, "P")->m_nRowPos, 33) << "one of three tasks, the nested one included";
    EXPECT_EQ(Find(first, "R")->m_nRowPos, 25);
    EXPECT_EQ(Find(first, "empty")->m_nRowPos, 0);
    EXPECT_EQ(Find(first, "note")->m_nRowPos, 0);
}

TEST_F(ChartRowsTest, LateMeansOpenWorkPastItsDueTime) {
    ComputeProgress(first, Today());
    EXPECT_EQ(Find(first, "late")->m_nRowAux, 1);
    EXPECT_EQ(Find(first, "open")->m_nRowAux, 0) << "due tonight is not late at noon";
    EXPECT_EQ(Find(first, "empty")->m_nRowAux, 0) << "a project node without tasks has nothing late";

    Find(first, "late")->m_bDone = 1;
    ComputeProgress(first, Day(2, 12));
    EXPECT_EQ(Find(first, "late")->m_nRowAux, 0);
    EXPECT_EQ(Find(first, "open")->m_nRowAux, 1);
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
