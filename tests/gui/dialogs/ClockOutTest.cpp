// Clocking out, and what the document gets back from the node dialog.
#include "dialogs/CClockOutDlg.h"
#include "dialogs/CNodeEditDlg.h"
#include "dialogs/DialogParts.h"
#include "dialogs/NodeDialogs.h"

#include "document/CVeltoDoc.h"
#include "gui/dialogs/DialogTestSupport.h"
#include "support/ScriptedPrompter.h"

#include <QComboBox>
#include <QDateEdit>
#include <QLabel>
#include <QPushButton>
#include <QTimeEdit>

namespace velto {

namespace {

struct ClockOutFixture : ::testing::Test {
    ScriptedPrompter prompter;
    CVeltoDoc doc{prompter};
    CProjectNode* task = nullptr;

    void SetUp() override {
        doc.OnNewDocument();
        task = doc.m_pFirstNode;
        task->m_nKind = kKindTask;
        task->m_strTitle = "Montage";
        task->m_fHoursNeeded = 1.0f;
        task->m_bClockedIn = 1;
        task->m_timeClockIn = CTime::GetCurrentTime() - 3600;
    }
};

TEST_F(ClockOutFixture, DiscardingStopsTheClockAndAnAcceptedEntryAddsItsHoursAndTexts) {
    OnNextModal<CClockOutDlg>([](CClockOutDlg& dialog) {
        EXPECT_EQ(dialog.windowTitle(), "Ausstempeln: Montage");
        ClickCancel(dialog); // "Verwerfen"
    });
    EXPECT_FALSE(ClockOutNodeOfDocument(nullptr, doc, *task, prompter));
    EXPECT_FALSE(task->m_bClockedIn);
    EXPECT_TRUE(task->m_pHours.empty());
    EXPECT_FALSE(doc.IsModified());
    task->m_bClockedIn = 1;
    OnNextModal<CClockOutDlg>([this](CClockOutDlg& dialog) {
        Find<QTimeEdit>(dialog, "begin")->setTime(QTime(22, 0));
        Find<QTimeEdit>(dialog, "end")->setTime(QTime(1, 0));
        ClickOk(dialog);
        EXPECT_EQ(prompter.texts(), std::vector<std::string>{"Startzeit größer gleich Endzeit!"});
        EXPECT_TRUE(dialog.isVisible());
        Find<QTimeEdit>(dialog, "begin")->setTime(QTime(8, 0));
        Find<QTimeEdit>(dialog, "end")->setTime(QTime(9, 30));
        Find<QComboBox>(dialog, "assignee")->setCurrentText("Bert");
        ClickOk(dialog);
    });
    EXPECT_TRUE(ClockOutNodeOfDocument(nullptr, doc, *task, prompter));
    EXPECT_FLOAT_EQ(task->m_fHoursNeeded, 2.5f) << "added to the stored value";
    ASSERT_FALSE(task->m_pHours.empty());
    EXPECT_EQ(task->m_pHours.front().m_str1, "Bert");
    EXPECT_EQ(doc.m_strAssigneeHistory[0], "Bert");
    EXPECT_TRUE(doc.IsModified());
}

TEST_F(ClockOutFixture, AClockLeftRunningOverNightIsProposedOnItsFirstDayWithAHint) {
    task->m_timeClockIn = CTime::TodayAt(0, 0, 0) - 7200; // yesterday, 22:00
    OnNextModal<CClockOutDlg>([this](CClockOutDlg& dialog) {
        EXPECT_EQ(Find<QDateEdit>(dialog, "day")->date(), ToQDate(task->m_timeClockIn));
        EXPECT_EQ(Find<QTimeEdit>(dialog, "end")->time(), QTime(23, 59));
        EXPECT_TRUE(Find<QLabel>(dialog, "hint")->text().contains("Mitternacht"));
        EXPECT_FALSE(Find<QLabel>(dialog, "hint")->isHidden());
        ClickOk(dialog);
    });
    EXPECT_TRUE(ClockOutNodeOfDocument(nullptr, doc, *task, prompter));
    EXPECT_NEAR(task->m_fHoursNeeded, 1.0f + 119 / 60.0f, 0.01f);
}

TEST_F(ClockOutFixture, TheNodeDialogHandsBackHistoriesOnlyOnOk) {
    doc.m_strRemarkHistory[0] = "alt";
    const auto addEntryAnd = [](void (*close)(const QDialog&)) {
        OnNextModal<CNodeEditDlg>([close](CNodeEditDlg& dialog) {
            Find<QTimeEdit>(dialog, "entryBegin")->setTime(QTime(8, 0));
            Find<QTimeEdit>(dialog, "entryEnd")->setTime(QTime(9, 0));
            Find<QComboBox>(dialog, "entryRemark")->setCurrentText("neu");
            Find<QPushButton>(dialog, "addEntry")->click();
            close(dialog);
        });
    };
    addEntryAnd(ClickCancel);
    EXPECT_FALSE(EditNodeOfDocument(nullptr, doc, *task, prompter));
    EXPECT_EQ(doc.m_strRemarkHistory[0], "alt");
    EXPECT_EQ(doc.m_pBackupFirst, nullptr) << "Cancel takes no undo copy";
    EXPECT_FALSE(doc.IsModified());
    addEntryAnd(ClickOk);
    EXPECT_TRUE(EditNodeOfDocument(nullptr, doc, *task, prompter));
    EXPECT_EQ(doc.m_strRemarkHistory[0], "neu");
    EXPECT_NE(doc.m_pBackupFirst, nullptr);
    EXPECT_TRUE(doc.IsModified());
}

} // namespace

} // namespace velto
