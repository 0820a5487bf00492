// The node dialog's rules: step buttons, reminder lists, and OK's kind changes, dates and totals.
#include "model/NodeEditLogic.h"

#include "core/model/NodeListTestTree.h"
#include "model/CostLogic.h"

#include <array>
#include <cmath>
#include <gtest/gtest.h>

namespace velto {

namespace {

// Rows: value, one step up, one step down.
template <size_t N> void ExpectSteps(double step, const double (&rows)[N][3]) {
    for (const auto& [value, up, down] : rows) {
        SCOPED_TRACE(value);
        EXPECT_DOUBLE_EQ(StepUp(value, step), up);
        EXPECT_DOUBLE_EQ(StepDown(value, step), down);
    }
}

// 1.1f: the values come from float fields, a little above 1.1.
TEST(Steps, GoToTheNextMarkNeverBelowZeroAndNotBeyondTheLimit) {
    const double quarter[][3] = {{1.25, 1.5, 1.0},   {1.0, 1.25, 0.75},  {double(1.1f), 1.25, 1.0},
                                 {1.3, 1.5, 1.25},   {1.9, 2.0, 1.75},   {0.0, 0.25, 0.0},
                                 {-1.3, -1.25, 0.0}, {1e30, 1e30, 1e30}, {-INFINITY, -INFINITY, 0.0}};
    ExpectSteps(kQuarterStep, quarter);
    const double half[][3] = {{2.0, 2.5, 1.5}, {2.4, 2.5, 2.0},   {2.7, 3.0, 2.5},
                              {0.1, 0.5, 0.0}, {-3.0, -2.5, 0.0}, {9999999.0, 9999999.0, 9999998.5}};
    ExpectSteps(kHalfStep, half);
    EXPECT_DOUBLE_EQ(StepUp(9999998.9, kHalfStep), 9999999.0);
    EXPECT_TRUE(std::isnan(StepUp(NAN, kQuarterStep)));
    EXPECT_DOUBLE_EQ(StepDown(NAN, kQuarterStep), 0.0);
}

TEST(Reminder, ListItemsAndHour24RollingOverToTheNextDay) {
    EXPECT_EQ(ReminderHourItem(0), 23); // "24"
    EXPECT_EQ(ReminderHourItem(1), 0);
    EXPECT_EQ(ReminderHourItem(23), 22);
    const std::pair<int, int> bands[] = {{0, 0},  {2, 0},   {3, 1},   {7, 1},   {8, 2},
                                         {47, 9}, {48, 10}, {52, 10}, {53, 11}, {59, 11}};
    for (auto [minute, item] : bands)
        EXPECT_EQ(ReminderMinuteItem(minute), item) << minute;
    EXPECT_EQ(ReminderTime({2024, 5, 5}, 24, 15).Format("%d.%m.%Y %H:%M:%S"), "06.05.2024 00:15:00");
    EXPECT_EQ(ReminderTime({2024, 12, 31}, 24, 0).Format("%d.%m.%Y %H:%M"), "01.01.2025 00:00");
    EXPECT_EQ(ReminderTime({2024, 5, 5}, 9, 55).Format("%d.%m.%Y %H:%M"), "05.05.2024 09:55");
}

NodeEditForm Form(int kind, CalendarDay start, CalendarDay due) {
    return {kind, start, due, true, CTime(1234567), "8", "2.5", "50", "Neu", "Anna \xAB\xBB AN"};
}

std::string DayAndTime(CTime time) {
    return time.Format("%d.%m.%Y %H:%M:%S");
}

// A root project R with the childless projects A and B; each test edits a working copy of one node.
struct EditFixture : ::testing::Test {
    TestTree tree{{0, "R"}, {1, "A"}, {1, "B"}};
    std::unique_ptr<CProjectNode> CopyOf(const char* title) {
        return std::unique_ptr<CProjectNode>(tree[title]->CloneUnlinked());
    }
};

TEST_F(EditFixture, AProjectWithChildrenKeepsItsKindWithTheMessageOfTheChosenKind) {
    const std::pair<int, const char*> kinds[] = {
        {kKindTask, "Aufgabe"}, {kKindMilestone, "Meilenstein"}, {kKindNote, "Notiz"}};
    for (auto [kind, name] : kinds) {
        auto copy = CopyOf("R");
        const auto refusal = ApplyEditForm(*copy, *tree["R"], Form(kind, {2024, 5, 5}, {2024, 5, 6}));
        ASSERT_TRUE(refusal.has_value()) << name;
        EXPECT_EQ(refusal->caption, "Knoten Wandlung nicht möglich");
        EXPECT_EQ(refusal->text, std::string("Umwandlung in Knotenart ") + name +
                                     " nicht möglich, da der Projektknoten Unterknoten besitzt!");
        EXPECT_TRUE(refusal->backToProject);
        EXPECT_EQ(copy->m_nKind, kKindProject);
        EXPECT_EQ(copy->m_strTitle, "R") << "a refusal leaves the copy as it was";
    }
    // It may stay a project, and a project's dates are not checked.
    auto copy = CopyOf("R");
    ASSERT_FALSE(ApplyEditForm(*copy, *tree["R"], Form(kKindProject, {2024, 5, 6}, {2024, 5, 5})));
    EXPECT_EQ(copy->m_strTitle, "Neu");
}

TEST_F(EditFixture, AChildlessProjectBecomesATaskWithAllItsValues) {
    auto copy = CopyOf("B");
    RegenerateAutomaticEntries(*copy, "8", "2.5", "50", CTime(1700000000));
    ASSERT_FALSE(ApplyEditForm(*copy, *tree["B"], Form(kKindTask, {2024, 5, 5}, {2024, 5, 5})))
        << "start and due on the same day is valid";
    EXPECT_EQ(copy->m_nKind, kKindTask);
    EXPECT_EQ(DayAndTime(copy->m_timeStart), "05.05.2024 01:00:00");
    EXPECT_EQ(DayAndTime(copy->m_timeDue), "05.05.2024 23:59:59");
    EXPECT_TRUE(copy->m_bDone);
    EXPECT_EQ(copy->m_timeDone, CTime(1234567));
    EXPECT_EQ((std::array{copy->m_fHoursPlanned, copy->m_fHoursNeeded, copy->m_fHourlyRate,
                          copy->m_fCostPlanned, copy->m_fCostNeeded}),
              (std::array{8.0f, 2.5f, 50.0f, -400.0f, -125.0f}));
    EXPECT_EQ(copy->m_strTitle, "Neu");
    EXPECT_EQ(copy->m_strResponsible, "Anna \xAB\xBB AN");
}

TEST_F(EditFixture, ATaskDueBeforeItStartsIsRefused) {
    auto copy = CopyOf("A");
    const auto refusal = ApplyEditForm(*copy, *tree["A"], Form(kKindTask, {2024, 5, 6}, {2024, 5, 5}));
    ASSERT_TRUE(refusal.has_value());
    EXPECT_EQ(refusal->caption, "Zeiteingaben nicht plausibel");
    EXPECT_EQ(refusal->text, "Der Zeitpunkt 'Zu Erledigen Bis' muss nach 'Aufgabe starten' liegen!");
    EXPECT_FALSE(refusal->backToProject);
    EXPECT_EQ(copy->m_strTitle, "A");
}

TEST_F(EditFixture, AMilestoneTakesItsDayFromTheDueDateAndNoHours) {
    auto copy = CopyOf("B");
    ASSERT_FALSE(ApplyEditForm(*copy, *tree["B"], Form(kKindMilestone, {2030, 1, 1}, {2024, 5, 7})));
    EXPECT_EQ(copy->m_nKind, kKindMilestone);
    EXPECT_EQ(DayAndTime(copy->m_timeStart), "07.05.2024 01:00:00");
    EXPECT_EQ(DayAndTime(copy->m_timeDue), "07.05.2024 23:59:59");
    EXPECT_FLOAT_EQ(copy->m_fHoursPlanned, 0.0f);
}

TEST_F(EditFixture, CommittingKeepsTheLinksSwapsAllThreeListsAndStampsTheChange) {
    CProjectNode* node = tree["A"];
    node->m_bSelected = 0;
    node->m_pHours = {CHoursEntry{}};
    auto copy = CopyOf("A");
    copy->m_pHours = {};
    copy->m_pCosts = {CCostEntry{}};
    copy->m_pCosts2 = {CCostEntry{}, CCostEntry{}};
    copy->m_strTitle = "Ge\xE4ndert";
    copy->m_bBold = 1;
    copy->m_timeReminder = CTime(99);
    CommitWorkingCopy(*node, *copy, CTime(1800000000));
    EXPECT_EQ(Outline(tree.first), "0:R 1:Ge\xE4ndert 1:B");
    EXPECT_TRUE(node->m_bBold);
    EXPECT_EQ(node->m_timeReminder, CTime(99));
    EXPECT_TRUE(node->m_pHours.empty());
    EXPECT_EQ(copy->m_pHours.size(), 1u) << "the copy now holds the old list";
    EXPECT_EQ(std::pair(node->m_pCosts.size(), node->m_pCosts2.size()), std::pair(size_t(1), size_t(2)));
    EXPECT_TRUE(node->m_bSelected);
    EXPECT_EQ(node->m_timeChanged, CTime(1800000000));
}

} // namespace

} // namespace velto
