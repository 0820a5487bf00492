// Cost entries: the automatic first entries, the text normalisation, expense and income, the entry
// that cannot be taken back, and the totals.
#include "model/CostLogic.h"

#include <gtest/gtest.h>

namespace velto {

namespace {

const CTime kNow = CalendarDay{2024, 5, 6}.At(10, 30, 0);

CostInput Input(std::string price, std::string quantity, bool expense, std::string remark = "") {
    return {{2024, 5, 6}, std::move(price), std::move(quantity), expense, "Anna", std::move(remark)};
}

TEST(CostAutomatic, HoursAreBookedAsAnExpenseAtTheRate) {
    CProjectNode node;
    RegenerateAutomaticEntries(node, "8", "2.5", "50", kNow);
    ASSERT_EQ(node.m_pCosts.size(), 1u);
    const CCostEntry calculated = node.m_pCosts.front();
    EXPECT_FLOAT_EQ(calculated.m_fUnitPrice, 50.0f);
    EXPECT_FLOAT_EQ(calculated.m_fQuantity, 8.0f);
    EXPECT_FLOAT_EQ(calculated.m_fAmount, -400.0f);
    EXPECT_EQ(calculated.m_str2, "Kalkulierte Stunden");
    EXPECT_EQ(calculated.m_str1, "");
    EXPECT_EQ(calculated.m_timeDate, kNow);
    ASSERT_EQ(node.m_pCosts2.size(), 1u);
    EXPECT_FLOAT_EQ(node.m_pCosts2.front().m_fAmount, -125.0f);
    EXPECT_EQ(node.m_pCosts2.front().m_str2, "Ben\xF6tigte Stunden") << "model texts are Windows-1252";
    EXPECT_FLOAT_EQ(CostTotal(node.m_pCosts), -400.0f);
    EXPECT_EQ(MakeCostRow(calculated).amount, "-400.00");
}

TEST(CostAutomatic, ARateChangeRewritesBothFirstEntriesInPlace) {
    CProjectNode node;
    RegenerateAutomaticEntries(node, "8", "4", "50", kNow);
    AddCostEntry(node.m_pCosts, Input("10", "1", true, "Material"));
    RegenerateAutomaticEntries(node, "8", "4", "60", kNow + 60);
    ASSERT_EQ(node.m_pCosts.size(), 2u) << "the first entry is rewritten, not stacked";
    EXPECT_EQ(node.m_pCosts2.size(), 1u);
    EXPECT_FLOAT_EQ(node.m_pCosts.front().m_fAmount, -480.0f);
    EXPECT_FLOAT_EQ(node.m_pCosts2.front().m_fAmount, -240.0f);
    EXPECT_EQ(node.m_pCosts.front().m_timeDate, kNow + 60);
    EXPECT_EQ(node.m_pCosts[1].m_str2, "Material") << "the entry behind it stays";
    // Unparsable texts read as 0.
    RegenerateAutomaticEntries(node, "acht", "4", "60", kNow);
    EXPECT_FLOAT_EQ(node.m_pCosts.front().m_fQuantity, 0.0f);
}

TEST(CostText, NormalisationFillsUpAndCutsAsTyped) {
    EXPECT_EQ(NormaliseCostText("7"), "7.00");
    EXPECT_EQ(NormaliseCostText("7.123456"), "7.12345");
    EXPECT_EQ(NormaliseCostText("5."), "5.00");
    EXPECT_EQ(NormaliseCostText("5.5"), "5.50");
    EXPECT_EQ(NormaliseCostText("5.25"), "5.25");
    EXPECT_EQ(NormaliseCostText("0.12345"), "0.12345");
    EXPECT_EQ(NormaliseCostText(""), ".00");
    EXPECT_EQ(NormaliseCostText("."), ".00");
    // Only "." is a decimal point: a comma stays part of the text and ends the number.
    EXPECT_EQ(NormaliseCostText("12,50"), "12,50.00");
    // The cut counts from the first point even when a later one made the tail too long.
    EXPECT_EQ(NormaliseCostText("1.2.345678"), "1.2.345");
}

TEST(CostAdd, IncomeAndExpenseSetTheSign) {
    CCostList head;
    const CostRow income = AddCostEntry(head, Input("19.99", "3", false));
    EXPECT_EQ(income.unitPrice, "19.99");
    EXPECT_EQ(income.quantity, "3.00");
    EXPECT_EQ(income.amount, "59.97");
    EXPECT_NEAR(CostTotal(head), 59.97f, 1e-4);
    const CostRow expense = AddCostEntry(head, Input("7", "2", true));
    EXPECT_EQ(expense.unitPrice, "7.00");
    EXPECT_EQ(expense.amount, "-14.00");
    EXPECT_NEAR(CostTotal(head), 45.97f, 1e-4);
    EXPECT_EQ(head[1].m_str1, "Anna");
    // A comma cuts the number: 12,50 is 12.
    AddCostEntry(head, Input("12,50", "1", false));
    EXPECT_FLOAT_EQ(head[2].m_fUnitPrice, 12.0f);
}

TEST(CostAdd, RefilledRowsUseTheListFormats) {
    CCostList head;
    AddCostEntry(head, Input("7.123456", "2.5", false));
    const CostRow row = MakeCostRow(head.front());
    EXPECT_EQ(row.unitPrice, "7.12345");
    EXPECT_EQ(row.quantity, "2.5");
    EXPECT_EQ(row.amount, "17.8086");
    EXPECT_EQ(row.weekday, "MO");
    EXPECT_EQ(row.sortKey, "2024/05/06");
}

TEST(CostRemove, TheAutomaticEntryStays) {
    CProjectNode node;
    RegenerateAutomaticEntries(node, "8", "0", "50", kNow);
    const CostInput key = CostInputOfRow(MakeCostRow(node.m_pCosts.front()));
    EXPECT_TRUE(key.expense);
    EXPECT_EQ(RemoveFirstMatchingCost(node.m_pCosts, key), CostRemoval::Automatic);
    EXPECT_EQ(node.m_pCosts.size(), 1u);
}

TEST(CostRemove, TheFirstMatchingEntryAfterTheAutomaticOneGoes) {
    CProjectNode node;
    RegenerateAutomaticEntries(node, "1", "0", "1", kNow);
    AddCostEntry(node.m_pCosts, Input("1234.56789", "3", false, "a"));
    AddCostEntry(node.m_pCosts, Input("2", "1", false, "b"));
    AddCostEntry(node.m_pCosts, Input("1234.56789", "3", false, "a"));

    // Taken back from a refilled row, whose %g texts need not read back to the stored floats.
    const CostInput key = CostInputOfRow(MakeCostRow(node.m_pCosts[3]));
    EXPECT_FALSE(key.expense);
    EXPECT_EQ(RemoveFirstMatchingCost(node.m_pCosts, key), CostRemoval::Removed);
    ASSERT_EQ(node.m_pCosts.size(), 3u);
    EXPECT_EQ(node.m_pCosts[1].m_str2, "b") << "the first of the two equal entries went";
    EXPECT_EQ(node.m_pCosts[2].m_str2, "a");

    const CostInput other = Input("1234.56789", "4", false, "a");
    EXPECT_EQ(RemoveFirstMatchingCost(node.m_pCosts, other), CostRemoval::NotFound);
    CCostList empty;
    EXPECT_EQ(RemoveFirstMatchingCost(empty, key), CostRemoval::NotFound);
}

} // namespace

} // namespace velto
