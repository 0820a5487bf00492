// The node dialog's rules: step buttons, reminder lists, and OK's kind changes, dates and totals.
#include "model/NodeEditLogic.h"

#include "core/model/NodeListTestTree.h"
#include "model/CostLogic.h"

#include <cmath>
#include <gtest/gtest.h>

namespace velto {

namespace {

TEST(Steps, QuarterStepsGoToTheNextMark) {
    EXPECT_DOUBLE_EQ(StepUp(1.10, kQuarterStep), 1.25);
    EXPECT_DOUBLE_EQ(StepUp(1.25, kQuarterStep), 1.5);
    EXPECT_DOUBLE_EQ(StepUp(1.8, kQuarterStep), 2.0);
    EXPECT_DOUBLE_EQ(StepUp(0.0, kQuarterStep), 0.25);
    EXPECT_DOUBLE_EQ(StepDown(1.25, kQuarterStep), 1.0);
    EXPECT_DOUBLE_EQ(StepDown(1.00, kQuarterStep), 0.75);
    EXPECT_DOUBLE_EQ(StepDown(1.3, kQuarterStep), 1.25);
    EXPECT_DOUBLE_EQ(StepDown(1.9, kQuarterStep), 1.75);
    // The values come from float fields: 1.1f is a little above 1.1.
    EXPECT_DOUBLE_EQ(StepUp(double(1.1f), kQuarterStep), 1.25);
}

TEST(Steps, HalfStepsGoToTheNextMark) {
    EXPECT_DOUBLE_EQ(StepUp(2.0, kHalfStep), 2.5);
    EXPECT_DOUBLE_EQ(StepUp(2.4, kHalfStep), 2.5);
    EXPECT_DOUBLE_EQ(StepUp(2.5, kHalfStep), 3.0);
    EXPECT_DOUBLE_EQ(StepDown(2.0, kHalfStep), 1.5);
    EXPECT_DOUBLE_EQ(StepDown(2.5, kHalfStep), 2.0);
    EXPECT_DOUBLE_EQ(StepDown(2.7, kHalfStep), 2.5);
}

TEST(Steps, NeverBelowZeroAndNotBeyondTheLimit) {
    EXPECT_DOUBLE_EQ(StepDown(0.0, kQuarterStep), 0.0);
    EXPECT_DOUBLE_EQ(StepDown(0.1, kHalfStep), 0.0);
    EXPECT_DOUBLE_EQ(StepDown(-3.0, kHalfStep), 0.0);
    EXPECT_DOUBLE_EQ(StepUp(-1.3, kQuarterStep), -1.25);
    EXPECT_DOUBLE_EQ(StepUp(9999998.9, kHalfStep), 9999999.0);
    EXPECT_DOUBLE_EQ(StepUp(9999999.0, kHalfStep), 9999999.0);
    EXPECT_DOUBLE_EQ(StepUp(1e30, kQuarterStep), 1e30);
    EXPECT_TRUE(std::isnan(StepUp(NAN, kQuarterStep)));
    EXPECT_DOUBLE_EQ(StepDown(NAN, kQuarterStep), 0.0);
    EXPECT_DOUBLE_EQ(StepDown(-INFINITY, kQuarterStep), 0.0);
}

TEST(Reminder, HourAndMinuteItems) {
    EXPECT_EQ(ReminderHourItem(0), 23); // "24"
    EXPECT_EQ(ReminderHourItem(1), 0);
    EXPECT_EQ(ReminderHourItem(23), 22);
    const std::pair<int, int> bands[] = {{0, 0},  {2, 0},   {3, 1},   {7, 1},   {8, 2},
                                         {47, 9}, {48, 10}, {52, 10}, {53, 11}, {59, 11}};
    for (auto [minute, item] : bands)
        EXPECT_EQ(ReminderMinuteItem(minute), item) << minute;
}

TEST(Reminder, Hour24RollsOverToTheNextDay) {
    const CTime t = ReminderTime({2024, 5, 5}, 24, 15);
    EXPECT_EQ(t.Format("%d.%m.%Y %H:%M:%S"), "06.05.2024 00:15:00");
    EXPECT_EQ(ReminderTime({2024, 12, 31}, 24, 0).Format("%d.%m.%Y %H:%M"), "01.01.2025 00:00");
    EXPECT_EQ(ReminderTime({2024, 5, 5}, 9, 55).Format("%d.%m.%Y %H:%M"), "05.05.2024 09:55");
}

NodeEditForm TaskForm(CalendarDay start, CalendarDay due) {
    NodeEditForm form;
    form.kind = kKindTask;
    form.startDay = start;
    form.dueDay = due;
    form.done = true;
    form.doneStamp = CTime(1234567);
    form.plannedText = "8";
    form.neededText = "2.5";
    form.rateText = "50";
    form.title = "Neu";
    form.responsible = "Anna \xAB\xBB AN";
    return form;
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
        NodeEditForm form = TaskForm({2024, 5, 5}, {2024, 5, 6});
        form.kind = kind;
        const auto refusal = ApplyEditForm(*copy, *tree["R"], form);
        ASSERT_TRUE(refusal.has_value()) << name;
        EXPECT_EQ(refusal->caption, "Knoten Wandlung nicht möglich");
        EXPECT_EQ(refusal->text, std::string("Umwandlung in Knotenart ") + name +
                                     " nicht möglich, da der Projektknoten Unterknoten besitzt!");
        EXPECT_TRUE(refusal->backToProject);
        EXPECT_EQ(copy->m_nKind, kKindProject);
        EXPECT_EQ(copy->m_strTitle, "R") << "a refusal leaves the copy as it was";
    }
}

TEST_F(EditFixture, AChildlessProjectBecomesATaskWithAllItsValues) {
    auto copy = CopyOf("B");
    RegenerateAutomaticEntries(*copy, "8", "2.5", "50", CTime(1700000000));
    ASSERT_FALSE(ApplyEditForm(*copy, *tree["B"], TaskForm({2024, 5, 5}, {2024, 5, 5})).has_value())
        << "start and due on the same day is valid";
    EXPECT_EQ(copy->m_nKind, kKindTask);
    EXPECT_EQ(copy->m_timeStart.Format("%d.%m.%Y %H:%M:%S"), "05.05.2024 01:00:00");
    EXPECT_EQ(copy->m_timeDue.Format("%d.%m.%Y %H:%M:%S"), "05.05.2024 23:59:59");
    EXPECT_TRUE(copy->m_bDone);
    EXPECT_EQ(copy->m_timeDone, CTime(1234567));
    EXPECT_FLOAT_EQ(copy->m_fHoursPlanned, 8.0f);
    EXPECT_FLOAT_EQ(copy->m_fHoursNeeded, 2.5f);
    EXPECT_FLOAT_EQ(copy->m_fHourlyRate, 50.0f);
    EXPECT_FLOAT_EQ(copy->m_fCostPlanned, -400.0f);
    EXPECT_FLOAT_EQ(copy->m_fCostNeeded, -125.0f);
    EXPECT_EQ(copy->m_strTitle, "Neu");
    EXPECT_EQ(copy->m_strResponsible, "Anna \xAB\xBB AN");
}

TEST_F(EditFixture, ATaskDueBeforeItStartsIsRefused) {
    tree["A"]->m_nKind = kKindTask;
    auto copy = CopyOf("A");
    const auto refusal = ApplyEditForm(*copy, *tree["A"], TaskForm({2024, 5, 6}, {2024, 5, 5}));
    ASSERT_TRUE(refusal.has_value());
    EXPECT_EQ(refusal->caption, "Zeiteingaben nicht plausibel");
    EXPECT_EQ(refusal->text, "Der Zeitpunkt 'Zu Erledigen Bis' muss nach 'Aufgabe starten' liegen!");
    EXPECT_FALSE(refusal->backToProject);
    EXPECT_EQ(copy->m_strTitle, "A");
}

TEST_F(EditFixture, AMilestoneTakesItsDayFromTheDueDate) {
    auto copy = CopyOf("B");
    NodeEditForm form = TaskForm({2030, 1, 1}, {2024, 5, 7});
    form.kind = kKindMilestone;
    ASSERT_FALSE(ApplyEditForm(*copy, *tree["B"], form).has_value());
    EXPECT_EQ(copy->m_nKind, kKindMilestone);
    EXPECT_EQ(copy->m_timeStart.Format("%d.%m.%Y %H:%M:%S"), "07.05.2024 01:00:00");
    EXPECT_EQ(copy->m_timeDue.Format("%d.%m.%Y %H:%M:%S"), "07.05.2024 23:59:59");
    EXPECT_FLOAT_EQ(copy->m_fHoursPlanned, 0.0f) << "a milestone takes no hours";
}

TEST_F(EditFixture, AProjectWithChildrenMayStayAProject) {
    auto copy = CopyOf("R");
    NodeEditForm form = TaskForm({2024, 5, 6}, {2024, 5, 5});
    form.kind = kKindProject;
    ASSERT_FALSE(ApplyEditForm(*copy, *tree["R"], form).has_value()) << "no date check for a project";
    EXPECT_EQ(copy->m_nKind, kKindProject);
    EXPECT_EQ(copy->m_strTitle, "Neu");
}

TEST_F(EditFixture, CommittingKeepsTheLinksSwapsAllThreeListsAndStampsTheChange) {
    CProjectNode* node = tree["A"];
    CProjectNode* next = node->m_pNext;
    CProjectNode* prev = node->m_pPrev;
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
    EXPECT_EQ(node->m_pNext, next);
    EXPECT_EQ(node->m_pPrev, prev);
    EXPECT_EQ(node->m_strTitle, "Ge\xE4ndert");
    EXPECT_TRUE(node->m_bBold);
    EXPECT_EQ(node->m_timeReminder, CTime(99));
    EXPECT_TRUE(node->m_pHours.empty());
    EXPECT_EQ(copy->m_pHours.size(), 1u) << "the copy now holds the old list";
    EXPECT_EQ(std::pair(node->m_pCosts.size(), node->m_pCosts2.size()), std::pair(size_t(1), size_t(2)));
    EXPECT_TRUE(node->m_bSelected);
    EXPECT_EQ(node->m_timeChanged, CTime(1800000000));
    EXPECT_TRUE(LinksAreSound(tree.first));
}

} // namespace

} // namespace velto
