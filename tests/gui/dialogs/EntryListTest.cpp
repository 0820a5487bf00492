// The entry lists of the node dialog: entries reach the list, the totals and, on OK, the node.
#include "dialogs/CNodeEditDlg.h"

#include "files/AssigneeFile.h"
#include "gui/dialogs/DialogTestSupport.h"

#include <QComboBox>
#include <QDateEdit>
#include <QGroupBox>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>
#include <QTimeEdit>
#include <QTreeWidget>

namespace velto {

namespace {

struct EntryList : NodeDialogFixture {
    CProjectNode& task = *tree["T"];
    std::unique_ptr<CNodeEditDlg> dialog;

    void SetUp() override {
        task.m_fHourlyRate = 50.0f;
        task.m_fHoursPlanned = 8.0f;
    }
    void Open() { dialog = NodeDialogFixture::Open("T"); }
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

TEST_F(EntryList, HoursFillTheListNewestDayFirstAndReachTheNodeOnOk) {
    Open();
    AddHours(QDate(2024, 5, 5), QTime(8, 0), QTime(8, 1));
    AddHours(QDate(2024, 5, 7), QTime(13, 0), QTime(14, 30), "Bert");
    AddHours(QDate(2024, 5, 5), QTime(22, 0), QTime(1, 0));
    EXPECT_EQ(prompter.texts(), std::vector<std::string>{"Startzeit größer gleich Endzeit!"});
    ASSERT_EQ(List()->topLevelItemCount(), 2);
    EXPECT_EQ(Cell(0, 1), "07.05.2024");
    EXPECT_EQ(Get<QLineEdit>("needed")->text(), "1.52");
    ClickOk(*dialog);
    EXPECT_NEAR(task.m_fHoursNeeded, 1.52f, 1e-6);
    ASSERT_EQ(task.m_pHours.size(), 2u);
    EXPECT_EQ(task.m_pHours.front().m_str1, "Anna") << "entries are kept in the order they were added";
}

TEST_F(EntryList, TakingBackHoursRefillsTheInputRowAndTheSum) {
    Open();
    Click("takeBackEntry");
    EXPECT_EQ(prompter.texts(), std::vector<std::string>{"Kein Eintrag ausgewählt!"});
    AddHours(QDate(2024, 5, 5), QTime(8, 0), QTime(9, 0), "Anna", "x");
    AddHours(QDate(2024, 5, 6), QTime(10, 0), QTime(11, 0), "Anna", "y");
    List()->setCurrentItem(List()->topLevelItem(1));
    Click("takeBackEntry");
    EXPECT_EQ(List()->topLevelItemCount(), 1);
    EXPECT_EQ(Get<QLineEdit>("needed")->text(), "1.00");
    EXPECT_EQ(Get<QTimeEdit>("entryBegin")->time(), QTime(8, 0));
    EXPECT_EQ(Get<QComboBox>("entryRemark")->currentText(), "x");

    // The Delete key in the list takes the selected entry back too.
    QApplication::setActiveWindow(dialog.get());
    List()->setFocus();
    List()->setCurrentItem(List()->topLevelItem(0));
    QTest::keyClick(List(), Qt::Key_Delete);
    EXPECT_EQ(List()->topLevelItemCount(), 0);
}

TEST_F(EntryList, CombosOfferPresetsWhenTheFileHasSomeElseTheRecentTexts) {
    histories.remark[0] = "Montage";
    Open();
    EXPECT_EQ(Get<QComboBox>("entryRemark")->itemText(0), "Montage");
    ASSERT_TRUE(SaveAssignees(dir.PathOf("Bearbeiter.dat"), {"Zeta", "Max Muster"}));
    Open();
    EXPECT_EQ(Get<QComboBox>("entryAssignee")->count(), 2) << "presets only, no recent texts";
    EXPECT_EQ(Get<QComboBox>("entryRemark")->itemText(1), "Zeta");
    AddHours(QDate(2024, 5, 5), QTime(8, 0), QTime(9, 0), "Bert", "Abbau");
    EXPECT_EQ(dialog->Histories().remark[0], "Abbau");
}

TEST_F(EntryList, BothCostListsWithTheirAutomaticEntriesReachTheNodeOnOk) {
    Open();
    Mode("modeCalculated");
    EXPECT_EQ(Get<QGroupBox>("listGroup")->title(), "Kalkulierte Kosten");
    ASSERT_EQ(List()->topLevelItemCount(), 1);
    EXPECT_EQ(Cell(0, 7), "-400.00");
    Get<StepEdit>("rate")->SetText("60");
    EXPECT_EQ(Cell(0, 7), "-480.00") << "the automatic entry follows the rate";
    AddCost("19.99", "3", true);
    EXPECT_EQ(Cell(0, 7), "59.97");

    Get<QLineEdit>("needed")->setText("2");
    Mode("modeNeeded");
    EXPECT_EQ(Cell(0, 6), "Benötigte Stunden");
    AddCost("7", "2", false);
    ClickOk(*dialog);
    EXPECT_EQ(task.m_pCosts.size(), 2u);
    EXPECT_EQ(task.m_pCosts2.size(), 2u);
    EXPECT_NEAR(task.m_fCostPlanned, -480.0f + 59.97f, 1e-3);
    EXPECT_FLOAT_EQ(task.m_fCostNeeded, -120.0f - 14.0f);
}

TEST_F(EntryList, TheAutomaticEntryCannotBeTakenBackButOthersCan) {
    Open();
    Mode("modeCalculated");
    AddCost("19.99", "3", true);
    List()->setCurrentItem(List()->topLevelItem(1)); // the automatic entry
    Click("takeBackEntry");
    EXPECT_EQ(prompter.texts(),
              std::vector<std::string>{"Dieser Eintrag wurde automatisch generiert und ist nicht löschbar!"});
    EXPECT_EQ(List()->topLevelItemCount(), 2);

    List()->setCurrentItem(List()->topLevelItem(0));
    Click("takeBackEntry");
    EXPECT_EQ(List()->topLevelItemCount(), 1);
    EXPECT_EQ(Get<StepEdit>("unitPrice")->Text(), "19.99");
    EXPECT_TRUE(Get<QRadioButton>("income")->isChecked());
}

} // namespace

} // namespace velto
