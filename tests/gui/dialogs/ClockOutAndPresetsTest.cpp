// Clocking out, the preset file dialog, and what the document gets back from the node dialog.
#include "dialogs/CAssigneeDlg.h"
#include "dialogs/CClockOutDlg.h"
#include "dialogs/CNodeEditDlg.h"
#include "dialogs/NodeDialogs.h"

#include "document/CVeltoDoc.h"
#include "files/AssigneeFile.h"
#include "gui/dialogs/DialogTestSupport.h"
#include "support/ScriptedPrompter.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTest>
#include <QTimeEdit>
#include <sys/stat.h>

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

TEST_F(ClockOutFixture, DiscardingStopsTheClockWithoutAnEntry) {
    OnNextModal<CClockOutDlg>([](CClockOutDlg& dialog) {
        EXPECT_EQ(dialog.windowTitle(), "Ausstempeln: Montage");
        ClickCancel(dialog); // "Verwerfen"
    });
    EXPECT_FALSE(ClockOutNodeOfDocument(nullptr, doc, *task, prompter));
    EXPECT_FALSE(task->m_bClockedIn);
    EXPECT_TRUE(task->m_pHours.empty());
    EXPECT_FALSE(doc.IsModified());
}

TEST_F(ClockOutFixture, AnAcceptedEntryAddsItsHoursAndTheTexts) {
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

TEST(Presets, TwoWordsAreStoredJoinedAndComeBackSorted) {
    testsupport::TempDir dir;
    const std::string file = dir.PathOf("Bearbeiter.dat");
    ASSERT_TRUE(SaveAssignees(file, {"Zeta"}));
    ScriptedPrompter prompter;
    CAssigneeDlg dialog(file, prompter);
    Find<QLineEdit>(dialog, "preset")->setText("Max Muster");
    Find<QPushButton>(dialog, "add")->click();
    // Enter in the edit adds too, rather than closing the dialog and writing the file.
    dialog.show();
    QApplication::setActiveWindow(&dialog);
    Find<QLineEdit>(dialog, "preset")->setFocus();
    QTest::keyClicks(Find<QLineEdit>(dialog, "preset"), "Anna");
    QTest::keyClick(Find<QLineEdit>(dialog, "preset"), Qt::Key_Return);
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_EQ(Find<QListWidget>(dialog, "presets")->count(), 3);
    ClickOk(dialog);
    EXPECT_EQ(testsupport::ReadFile(file), "Anna\rMax#~*Muster\rZeta\r");
    EXPECT_EQ(testsupport::ReadFile(dir.PathOf("Bearbeiter.bak")), "Zeta\r");

    CAssigneeDlg again(file, prompter);
    QListWidget* list = Find<QListWidget>(again, "presets");
    ASSERT_EQ(list->count(), 3);
    EXPECT_EQ(list->item(1)->text(), "Max Muster");
    list->setCurrentRow(1);
    Find<QPushButton>(again, "takeBack")->click();
    EXPECT_EQ(Find<QLineEdit>(again, "preset")->text(), "Max Muster");
    EXPECT_EQ(list->count(), 2);
    ClickCancel(again);
    EXPECT_EQ(testsupport::ReadFile(file), "Anna\rMax#~*Muster\rZeta\r") << "Cancel writes nothing";
}

TEST(Presets, AFileThatCannotBeReadIsNamedAndNeverOverwritten) {
    testsupport::TempDir dir;
    const std::string fifo = dir.PathOf("Bearbeiter.dat");
    ASSERT_EQ(mkfifo(fifo.c_str(), 0600), 0);
    ScriptedPrompter prompter;
    CAssigneeDlg dialog(fifo, prompter);
    EXPECT_NE(Find<QLabel>(dialog, "unreadable")->text().toStdString().find(fifo), std::string::npos);
    EXPECT_FALSE(ButtonOfRole(dialog, QDialogButtonBox::AcceptRole)->isEnabled());
    dialog.accept();
    EXPECT_TRUE(std::filesystem::is_fifo(fifo));
}

} // namespace

} // namespace velto
