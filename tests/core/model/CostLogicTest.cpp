// Cost entries: the automatic first entries, the text normalisation, expense and income, the entry
// that cannot be taken back, and the totals.
#include "model/CostLogic.h"

#include <array>
#include <gtest/gtest.h>

namespace velto {

namespace {

const CTime kNow = CalendarDay{2024, 5, 6}.At(10, 30, 0);

CostInput Input(std::string price, std::string quantity, bool expense, std::string remark = "") {
    return {{2024, 5, 6}, std::move(price), std::move(quantity), expense, "Anna", std::move(remark)};
}

// Model texts are Windows-1252: "\xF6" is the "ö".
TEST(CostAutomatic, HoursAreBookedAsAnExpenseAtTheRateAndARateChangeRewritesThemInPlace) {
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
    EXPECT_EQ(node.m_pCosts2.front().m_str2, "Ben\xF6tigte Stunden");

    AddCostEntry(node.m_pCosts, Input("10", "1", true, "Material"));
    RegenerateAutomaticEntries(node, "8", "4", "60", kNow + 60);
    ASSERT_EQ(node.m_pCosts.size(), 2u);
    EXPECT_EQ(node.m_pCosts2.size(), 1u);
    EXPECT_FLOAT_EQ(node.m_pCosts.front().m_fAmount, -480.0f);
    EXPECT_FLOAT_EQ(node.m_pCosts2.front().m_fAmount, -240.0f);
    EXPECT_EQ(node.m_pCosts.front().m_timeDate, kNow + 60);
    EXPECT_EQ(node.m_pCosts[1].m_str2, "Material");
    EXPECT_FLOAT_EQ(CostTotal(node.m_pCosts), -490.0f);
    RegenerateAutomaticEntries(node, "acht", "4", "60", kNow);
    EXPECT_FLOAT_EQ(node.m_pCosts.front().m_fQuantity, 0.0f) << "unparsable texts read as 0";
}

// Only "." is a decimal point: a comma stays part of the text and ends the number. The cut counts
// from the first point even when a later one made the tail too long.
TEST(CostText, NormalisationFillsUpAndCutsAsTyped) {
    const std::pair<const char*, const char*> cases[] = {
        {"7", "7.00"},         {"7.123456", "7.12345"},  {"5.", "5.00"}, {"5.5", "5.50"},
        {"5.25", "5.25"},      {"0.12345", "0.12345"},   {"", ".00"},    {".", ".00"},
        {"12,50", "12,50.00"}, {"1.2.345678", "1.2.345"}};
    for (const auto& [typed, normalised] : cases)
        EXPECT_EQ(NormaliseCostText(typed), normalised) << typed;
}

// The added row shows the typed texts normalised; a refilled row shows the list's own formats.
TEST(CostAdd, IncomeAndExpenseSetTheSignAndRowsShowTheAmount) {
    CCostList head;
    const CostRow income = AddCostEntry(head, Input("19.99", "3", false));
    EXPECT_EQ((std::array{income.unitPrice, income.quantity, income.amount}),
              (std::array<std::string, 3>{"19.99", "3.00", "59.97"}));
    const CostRow expense = AddCostEntry(head, Input("7", "2", true));
    EXPECT_EQ(expense.amount, "-14.00");
    EXPECT_NEAR(CostTotal(head), 45.97f, 1e-4);
    EXPECT_EQ(head[1].m_str1, "Anna");
    AddCostEntry(head, Input("12,50", "1", false));
    EXPECT_FLOAT_EQ(head[2].m_fUnitPrice, 12.0f);

    AddCostEntry(head, Input("7.123456", "2.5", false));
    const CostRow refilled = MakeCostRow(head[3]);
    EXPECT_EQ((std::array{refilled.unitPrice, refilled.quantity, refilled.amount, refilled.weekday,
                          refilled.sortKey}),
              (std::array<std::string, 5>{"7.12345", "2.5", "17.8086", "MO", "2024/05/06"}));
}

TEST(CostRemove, TheAutomaticEntryStaysAndTheFirstMatchingOtherEntryGoes) {
    CProjectNode node;
    RegenerateAutomaticEntries(node, "8", "0", "50", kNow);
    const CostInput automatic = CostInputOfRow(MakeCostRow(node.m_pCosts.front()));
    EXPECT_TRUE(automatic.expense);
    EXPECT_EQ(RemoveFirstMatchingCost(node.m_pCosts, automatic), CostRemoval::Automatic);
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

    EXPECT_EQ(RemoveFirstMatchingCost(node.m_pCosts, Input("1234.56789", "4", false, "a")),
              CostRemoval::NotFound);
    CCostList empty;
    EXPECT_EQ(RemoveFirstMatchingCost(empty, key), CostRemoval::NotFound);
}

} // namespace

} // namespace velto
