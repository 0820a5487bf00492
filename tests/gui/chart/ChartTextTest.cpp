#include "chart/ChartText.h"
#include "ChartTestSupport.h"

namespace velto {

using namespace charttest;

namespace {

TEST(ChartText, RowTextCarriesTheDatePrefixAndTheResponsibleShortCode) {
    CProjectNode* node = BuildList({{0, kKindTask, "Titel", 249, 254}}); // 15.11. to 20.11.2026
    EXPECT_EQ(ChartRowText(*node, kDatePrefixNone, true), "Titel");
    EXPECT_EQ(ChartRowText(*node, kDatePrefixStart, false), "15.11.2026: Titel");
    EXPECT_EQ(ChartRowText(*node, kDatePrefixDue, false), "20.11.26: Titel");
    EXPECT_EQ(ChartRowText(*node, kDatePrefixBoth, false), "15.11.26-20.11.26: Titel");
    EXPECT_EQ(ChartRowText(*node, 7, false), "Titel");
    node->m_strResponsible = "Anna M\xFCller \xAB\xBB AM";
    EXPECT_EQ(ChartRowText(*node, kDatePrefixDue, true), "20.11.26: [AM] Titel");
    EXPECT_EQ(ChartRowText(*node, kDatePrefixNone, false), "Titel");
    EXPECT_EQ(ResponsibleShortCode("Ohne Trenner"), "Ohne Trenner");
    EXPECT_EQ(ResponsibleShortCode("A \xAB\xBB B \xAB\xBB C"), "C");
    FreeNodeList(node);
}

} // namespace

} // namespace velto
