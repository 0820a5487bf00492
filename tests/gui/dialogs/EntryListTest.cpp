// The entry lists of the node dialog: hours with "Benötigt", the cost lists with their automatic
// first entries, text normalisation and signs, taking entries back, combos and totals on OK.
#include "dialogs/CNodeEditDlg.h"

#include "files/AssigneeFile.h"
#include "gui/dialogs/DialogTestSupport.h"
#include "support/ScriptedPrompter.h"

#include <QComboBox>
#include <QDateEdit>
#include <QGroupBox>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>
#include <QTimeEdit>
#include <QTreeWidget>
#include <fstream>

namespace {

struct EntryList : ::testing::Test {
    CProjectNode task;
    ScratchDir dir;
    ScriptedPrompter prompter;
    NodeEditContext context{&task, {}, {}, dir.File("Bearbeiter.dat")};
    std::unique_ptr<CNodeEditDlg> dialog;

    void SetUp() override {
        task.m_nKind = kKindTask;
        task.m_fHourlyRate = 50.0f;
        task.m_fHoursPlanned = 8.0f;
    }
    CNodeEditDlg& Open() {
        dialog = std::make_unique<CNodeEditDlg>(task, context, prompter);
        return *dialog;
    }
    template <typename T> T* Get(const char* name) { return Find<T>(*dialog, name); }
    QTreeWidget* List() { return Get<QTreeWidget>("entries"); }
    QString Cell(int row, int column) { return List()->topLevelItem(row)->text(column); }
    void Mode(const char* radio) { Get<QRadioButton>(radio)->click(); }
    void Click(const char* button) { Get<QPushButton>(button)->click(); }

    void AddHours(QDate day, QTime begin, QTime end, const char* assignee = "Anna", const char* remark = "") {
        Get<QDateEdit>("entryDay")->setDate(day);
        Get<QTimeEdit>("entryBegin")->setTime(begin);
        Get<QTimeEdit>("entryEnd")->setTime(end);
        Get<QComboBox>("entryAssignee")->setCurrentText(assignee);
        Get<QComboBox>("entryRemark")->setCurrentText(remark);
        Click("addEntry");
    }
    void AddCost(const char* price, const char* quantity, bool income) {
        Get<StepEdit>("unitPrice")->SetText(price);
        Get<StepEdit>("quantity")->SetText(quantity);
        Get<QRadioButton>(income ? "income" : "expense")->setChecked(true);
        Click("addEntry");
    }
};

TEST_F(EntryList, HoursFillTheListNewestDayFirstAndSetTheNeededHours) {
    Open();
    AddHours(QDate(2024, 5, 5), QTime(8, 0), QTime(8, 1));
    AddHours(QDate(2024, 5, 7), QTime(13, 0), QTime(14, 30), "Bert");
    ASSERT_EQ(List()->topLevelItemCount(), 2);
    EXPECT_EQ(Cell(0, 1), "07.05.2024");
    EXPECT_EQ(Cell(0, 2), "DI");
    EXPECT_EQ(Cell(1, 7), "0.02");
    EXPECT_EQ(Get<QLineEdit>("needed")->text(), "1.52");
    ClickOk(*dialog);
    EXPECT_NEAR(task.m_fHoursNeeded, 1.52f, 1e-6);
    ASSERT_FALSE(task.m_pHours.empty());
    EXPECT_EQ(task.m_pHours.front().m_str1, "Anna") << "entries are kept in the order they were added";
}

TEST_F(EntryList, EmptyOrBackwardIntervalsAreRefused) {
    Open();
    AddHours(QDate(2024, 5, 5), QTime(8, 0), QTime(8, 0));
    AddHours(QDate(2024, 5, 5), QTime(22, 0), QTime(1, 0));
    EXPECT_EQ(prompter.texts(), (std::vector<std::string>{"Startzeit größer gleich Endzeit!",
                                                          "Startzeit größer gleich Endzeit!"}));
    EXPECT_EQ(List()->topLevelItemCount(), 0);
}

TEST_F(EntryList, TakingBackHoursRefillsTheInputRowAndTheSum) {
    Open();
    Click("takeBackEntry");
    EXPECT_EQ(prompter.texts(), std::vector<std::string>{"Kein Eintrag ausgewählt!"});
    AddHours(QDate(2024, 5, 5), QTime(8, 0), QTime(9, 0), "Anna", "x");
    AddHours(QDate(2024, 5, 5), QTime(8, 0), QTime(9, 0), "Anna", "x");
    List()->setCurrentItem(List()->topLevelItem(1));
    Click("takeBackEntry");
    EXPECT_EQ(List()->topLevelItemCount(), 1);
    EXPECT_EQ(Get<QLineEdit>("needed")->text(), "1.00");
    EXPECT_EQ(Get<QTimeEdit>("entryBegin")->time(), QTime(8, 0));
    EXPECT_EQ(Get<QComboBox>("entryRemark")->currentText(), "x");

    // The Delete key in the list takes the selected entry back too.
    dialog->show();
    QApplication::setActiveWindow(dialog.get());
    List()->setFocus();
    List()->setCurrentItem(List()->topLevelItem(0));
    QTest::keyClick(List(), Qt::Key_Delete);
    EXPECT_EQ(List()->topLevelItemCount(), 0);
    EXPECT_EQ(Get<QLineEdit>("needed")->text(), "0.00");
}

TEST_F(EntryList, CombosOfferPresetsWhenTheFileHasSomeElseTheRecentTexts) {
    Open();
    AddHours(QDate(2024, 5, 5), QTime(8, 0), QTime(9, 0), "Bert", "Montage");
    QComboBox* assignee = Get<QComboBox>("entryAssignee");
    ASSERT_EQ(assignee->count(), 1);
    EXPECT_EQ(assignee->itemText(0), "Bert");
    EXPECT_EQ(dialog->Histories().remark[0], "Montage");

    context.histories = dialog->Histories();
    ASSERT_TRUE(SaveAssignees(context.presetFile, {"Zeta", "Max Muster"}));
    Open();
    EXPECT_EQ(Get<QComboBox>("entryAssignee")->count(), 2) << "presets only, no recent texts";
    EXPECT_EQ(Get<QComboBox>("entryAssignee")->itemText(0), "Max Muster");
    EXPECT_EQ(Get<QComboBox>("entryRemark")->itemText(1), "Zeta");

    std::ofstream(context.presetFile, std::ios::trunc).close();
    Open();
    EXPECT_EQ(Get<QComboBox>("entryRemark")->count(), 1) << "an empty file offers the recent texts";
    EXPECT_EQ(Get<QComboBox>("entryRemark")->itemText(0), "Montage");
}

TEST_F(EntryList, AutomaticEntriesFollowHoursAndRate) {
    Open();
    Mode("modeCalculated");
    EXPECT_EQ(Get<QGroupBox>("listGroup")->title(), "Kalkulierte Kosten");
    ASSERT_EQ(List()->topLevelItemCount(), 1);
    EXPECT_EQ(Cell(0, 3), "50.00");
    EXPECT_EQ(Cell(0, 4), "8");
    EXPECT_EQ(Cell(0, 6), "Kalkulierte Stunden");
    EXPECT_EQ(Cell(0, 7), "-400.00");

    Get<StepEdit>("rate")->SetText("60");
    EXPECT_EQ(Cell(0, 7), "-480.00");
    Get<QLineEdit>("needed")->setText("2");
    Mode("modeNeeded");
    EXPECT_EQ(Cell(0, 6), "Benötigte Stunden");
    EXPECT_EQ(Cell(0, 7), "-120.00");
    ClickOk(*dialog);
    EXPECT_FLOAT_EQ(task.m_fCostPlanned, -480.0f);
    EXPECT_FLOAT_EQ(task.m_fCostNeeded, -120.0f);
}

TEST_F(EntryList, CostTextsAreNormalisedAndIncomeAddsToTheTotal) {
    Open();
    Mode("modeCalculated");
    AddCost("19.99", "3", true);
    AddCost("7.123456", "1", false);
    AddCost("7", "2", false);
    ASSERT_EQ(List()->topLevelItemCount(), 4);
    // Same day: the newest row is on top.
    EXPECT_EQ(Cell(0, 3), "7.00");
    EXPECT_EQ(Cell(0, 7), "-14.00");
    EXPECT_EQ(Cell(1, 3), "7.12345");
    EXPECT_EQ(Cell(2, 4), "3.00");
    EXPECT_EQ(Cell(2, 7), "59.97");
    ClickOk(*dialog);
    EXPECT_NEAR(task.m_fCostPlanned, -400.0f + 59.97f - 7.12345f - 14.0f, 1e-3);
}

TEST_F(EntryList, TheAutomaticEntryCannotBeTakenBackButOthersCan) {
    Open();
    Mode("modeCalculated");
    AddCost("19.99", "3", true);
    List()->setCurrentItem(List()->topLevelItem(1)); // the automatic entry
    ASSERT_EQ(Cell(1, 6), "Kalkulierte Stunden");
    Click("takeBackEntry");
    EXPECT_EQ(prompter.texts(),
              std::vector<std::string>{"Dieser Eintrag wurde automatisch generiert und ist nicht löschbar!"});
    EXPECT_EQ(List()->topLevelItemCount(), 2);
    EXPECT_EQ(Get<StepEdit>("unitPrice")->Text(), "0.00") << "the input row is reset";
    EXPECT_EQ(Get<StepEdit>("quantity")->Text(), "1.00");
    EXPECT_TRUE(Get<QRadioButton>("expense")->isChecked());

    List()->setCurrentItem(List()->topLevelItem(0));
    Click("takeBackEntry");
    EXPECT_EQ(List()->topLevelItemCount(), 1);
    EXPECT_EQ(Get<StepEdit>("unitPrice")->Text(), "19.99");
    EXPECT_TRUE(Get<QRadioButton>("income")->isChecked());
}

} // namespace
