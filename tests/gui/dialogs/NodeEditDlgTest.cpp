// "Knoten bearbeiten" and its entry lists driven as a user would; the rules they apply are tested in core.
#include "dialogs/CNodeEditDlg.h"

#include "dialogs/CNewResponsibleDlg.h"
#include "dialogs/CReminderDlg.h"
#include "dialogs/CResponsibleDlg.h"
#include "dialogs/CTextFormatDlg.h"
#include "files/AssigneeFile.h"
#include "gui/dialogs/DialogTestSupport.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>
#include <QTimeEdit>
#include <QToolButton>
#include <QTreeWidget>

namespace velto {

namespace {

using NodeDialog = NodeDialogFixture;

TEST_F(NodeDialog, EachKindShowsItsOwnControls) {
    auto dialog = Open("T");
    auto shown = [&](const char* name) { return Find<QWidget>(*dialog, name)->isVisible(); };
    EXPECT_TRUE(shown("start") && shown("due") && shown("done") && shown("planned") && shown("entries"));
    const int taskHeight = dialog->height();
    Find<QRadioButton>(*dialog, "kindProject")->click();
    EXPECT_TRUE(shown("title") && shown("responsible"));
    EXPECT_FALSE(shown("start") || shown("due") || shown("alarm") || shown("entries"));
    EXPECT_LT(dialog->height(), taskHeight) << "hidden controls leave no gaps";
    Find<QRadioButton>(*dialog, "kindMilestone")->click();
    EXPECT_TRUE(shown("due"));
    EXPECT_FALSE(shown("start") || shown("responsible") || shown("planned"));
    Find<QRadioButton>(*dialog, "kindNote")->click();
    EXPECT_TRUE(shown("title") && shown("kindNote"));
    EXPECT_FALSE(shown("due") || shown("responsible") || shown("textFormat"));
}

TEST_F(NodeDialog, ARefusedOkTakesTheUndoCopyAndKeepsTheDialogOpenWithItsInput) {
    auto dialog = Open("R"); // a project with children
    Find<QLineEdit>(*dialog, "title")->setText("Umbenannt");
    Find<QRadioButton>(*dialog, "kindTask")->click();
    ClickOk(*dialog);
    ASSERT_EQ(prompter.asked().size(), 1u);
    EXPECT_EQ(prompter.asked()[0].caption, "Knoten Wandlung nicht möglich");
    EXPECT_TRUE(dialog->isVisible());
    EXPECT_TRUE(Find<QRadioButton>(*dialog, "kindProject")->isChecked());
    EXPECT_EQ(Find<QLineEdit>(*dialog, "title")->text(), "Umbenannt");
    EXPECT_EQ(tree["R"]->m_strTitle, "R");
    EXPECT_EQ(undoCopies, 1);
}

TEST_F(NodeDialog, CancelChangesNothingAndEveryOkWritesTheInputAndStampsTheChange) {
    CProjectNode& task = *tree["T"];
    task.m_timeChanged = CTime(1000);
    auto cancelled = Open("T");
    Find<QLineEdit>(*cancelled, "title")->setText("Anders");
    Find<StepEdit>(*cancelled, "planned")->SetText("5");
    ClickCancel(*cancelled);
    EXPECT_EQ(task.m_strTitle, "T");
    EXPECT_TRUE(task.m_pCosts.empty()) << "not even the automatic cost entries";
    EXPECT_EQ(task.m_timeChanged, CTime(1000));
    task.m_timeDone = CTime(1000);
    const CTime before = CTime::GetCurrentTime();
    auto dialog = Open("T");
    Find<QDateEdit>(*dialog, "start")->setDate(QDate(2024, 5, 6));
    Find<QDateEdit>(*dialog, "due")->setDate(QDate(2024, 5, 7));
    Find<QCheckBox>(*dialog, "done")->click();
    Find<QCheckBox>(*dialog, "done")->click();
    ClickOk(*dialog);
    EXPECT_EQ(dialog->result(), QDialog::Accepted);
    EXPECT_EQ(task.m_timeStart.Format("%d.%m.%Y"), "06.05.2024");
    EXPECT_EQ(task.m_timeDue.Format("%d.%m.%Y"), "07.05.2024");
    EXPECT_GE(task.m_timeChanged, before);
    EXPECT_FALSE(task.m_bDone);
    EXPECT_GE(task.m_timeDone, before) << "the done stamp is the time of the last click";
    EXPECT_EQ(undoCopies, 1);
}

TEST_F(NodeDialog, StepButtonsAndArrowKeysStepEachFieldByItsMark) {
    auto dialog = Open("T");
    StepEdit* planned = Find<StepEdit>(*dialog, "planned");
    planned->SetText("1.10");
    planned->PlusButton()->click();
    EXPECT_EQ(planned->Text(), "1.25") << "hours in quarters";
    QTest::keyClick(planned->Edit(), Qt::Key_Down);
    EXPECT_EQ(planned->Text(), "1.00");
    StepEdit* rate = Find<StepEdit>(*dialog, "rate");
    rate->SetText("2.2");
    rate->PlusButton()->click();
    EXPECT_EQ(rate->Text(), "2.50") << "the rate in halves";
}

TEST_F(NodeDialog, TextFormatReachesTheNodeOnlyThroughOk) {
    auto dialog = Open("T");
    OnNextModal<CTextFormatDlg>([](CTextFormatDlg& format) {
        EXPECT_EQ(Find<QComboBox>(format, "fontName")->currentText(), "Arial");
        Find<QComboBox>(format, "fontName")->setCurrentText("Courier");
        for (QCheckBox* box : format.findChildren<QCheckBox*>())
            box->setChecked(box->text() == "Fett" || box->text() == "Kursiv");
        ClickOk(format);
    });
    Find<QPushButton>(*dialog, "textFormat")->click();
    EXPECT_FALSE(tree["T"]->m_bBold);
    ClickOk(*dialog);
    EXPECT_EQ(tree["T"]->m_strFontName, "Courier");
    EXPECT_TRUE(tree["T"]->m_bBold && tree["T"]->m_bItalic);
    EXPECT_FALSE(tree["T"]->m_bUnderline);
}

TEST_F(NodeDialog, TheReminderChosenReachesTheNodeAndOffClearsIt) {
    tree["T"]->m_timeReminder = CTime(2024, 5, 5, 10, 53, 0);
    auto dialog = Open("T");
    OnNextModal<CReminderDlg>([](CReminderDlg& reminder) {
        EXPECT_EQ(Find<QComboBox>(reminder, "hour")->currentText(), "10");
        Find<QComboBox>(reminder, "minute")->setCurrentText("15");
        ClickOk(reminder);
    });
    Find<QPushButton>(*dialog, "alarm")->click();
    ClickOk(*dialog);
    EXPECT_EQ(tree["T"]->m_timeReminder.Format("%d.%m.%Y %H:%M"), "05.05.2024 10:15");
    auto again = Open("T");
    // Escape (or closing the window) leaves the reminder as it was.
    OnNextModal<CReminderDlg>([](CReminderDlg& reminder) { QTest::keyClick(&reminder, Qt::Key_Escape); });
    Find<QPushButton>(*again, "alarm")->click();
    OnNextModal<CReminderDlg>([](CReminderDlg& reminder) { ClickCancel(reminder); });
    Find<QPushButton>(*again, "alarm")->click();
    ClickOk(*again);
    EXPECT_TRUE(tree["T"]->m_timeReminder.IsNull()) << "\"Erinnerung aus\" switches it off";
}

TEST_F(NodeDialog, ANewResponsiblePersonIsChosenAtOnceAndNobodyClearsIt) {
    auto dialog = Open("P");
    OnNextModal<CResponsibleDlg>([](CResponsibleDlg& choice) {
        OnNextModal<CNewResponsibleDlg>([](CNewResponsibleDlg& add) {
            EXPECT_FALSE(ButtonOfRole(add, QDialogButtonBox::AcceptRole)->isEnabled()) << "a name is needed";
            Find<QLineEdit>(add, "name")->setText("Jürgen");
            Find<QLineEdit>(add, "shortCode")->setText("JÜ");
            ClickOk(add);
        });
        Find<QPushButton>(choice, "add")->click();
    });
    Find<QPushButton>(*dialog, "responsible")->click();
    EXPECT_EQ(Find<QLabel>(*dialog, "responsibleName")->text(), "Jürgen «» JÜ");
    ClickOk(*dialog);
    EXPECT_EQ(tree["P"]->m_strResponsible, "J\xFCrgen \xAB\xBB J\xDC");
    dialog = Open("P");
    OnNextModal<CResponsibleDlg>([](CResponsibleDlg& choice) {
        QListWidget* list = Find<QListWidget>(choice, "persons");
        EXPECT_EQ(list->currentRow(), 1) << "the current person starts selected";
        list->setCurrentRow(0); // "--- Keiner ---"
        ClickOk(choice);
    });
    Find<QPushButton>(*dialog, "responsible")->click();
    EXPECT_EQ(Find<QLabel>(*dialog, "responsibleName")->text(), "");
    ClickOk(*dialog);
    EXPECT_EQ(tree["P"]->m_strResponsible, "");
}

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
    void TakeBack(int row) {
        List()->setCurrentItem(List()->topLevelItem(row));
        Get<QPushButton>("takeBackEntry")->click();
    }
    void AddHours(QDate day, QTime begin, QTime end, const char* assignee = "Anna", const char* remark = "") {
        Get<QDateEdit>("entryDay")->setDate(day);
        Get<QTimeEdit>("entryBegin")->setTime(begin);
        Get<QTimeEdit>("entryEnd")->setTime(end);
        Get<QComboBox>("entryAssignee")->setCurrentText(assignee);
        Get<QComboBox>("entryRemark")->setCurrentText(remark);
        Get<QPushButton>("addEntry")->click();
    }
    void AddCost(const char* price, const char* quantity, bool income) {
        Get<StepEdit>("unitPrice")->SetText(price);
        Get<StepEdit>("quantity")->SetText(quantity);
        Get<QRadioButton>(income ? "income" : "expense")->setChecked(true);
        Get<QPushButton>("addEntry")->click();
    }
};

TEST_F(EntryList, HoursFillTheListNewestDayFirstAndReachTheNodeOnOk) {
    Open();
    AddHours(QDate(2024, 5, 5), QTime(8, 0), QTime(8, 1));
    AddHours(QDate(2024, 5, 7), QTime(13, 0), QTime(14, 30), "Bert");
    ASSERT_EQ(List()->topLevelItemCount(), 2);
    EXPECT_EQ(Cell(0, 1), "07.05.2024");
    EXPECT_EQ(Get<QLineEdit>("needed")->text(), "1.52");
    ClickOk(*dialog);
    EXPECT_NEAR(task.m_fHoursNeeded, 1.52f, 1e-6);
    ASSERT_EQ(task.m_pHours.size(), 2u);
    EXPECT_EQ(task.m_pHours.front().m_str1, "Anna") << "entries are kept in the order they were added";
}

TEST_F(EntryList, EnterInTheInputRowAddsTheEntryInsteadOfClosing) {
    Open();
    QApplication::setActiveWindow(dialog.get());
    Get<QTimeEdit>("entryBegin")->setTime(QTime(8, 0));
    Get<QTimeEdit>("entryEnd")->setTime(QTime(9, 0));
    Get<QComboBox>("entryRemark")->setFocus();
    QTest::keyClick(Get<QComboBox>("entryRemark"), Qt::Key_Return);
    EXPECT_TRUE(dialog->isVisible());
    EXPECT_EQ(List()->topLevelItemCount(), 1);
    EXPECT_EQ(Get<QLineEdit>("needed")->text(), "1.00");
}

TEST_F(EntryList, TakingBackHoursRefillsTheInputRowAndTheSum) {
    Open();
    Get<QPushButton>("takeBackEntry")->click();
    EXPECT_EQ(prompter.texts(), std::vector<std::string>{"Kein Eintrag ausgewählt!"});
    AddHours(QDate(2024, 5, 5), QTime(8, 0), QTime(9, 0), "Anna", "x");
    AddHours(QDate(2024, 5, 6), QTime(10, 0), QTime(11, 0), "Anna", "y");
    TakeBack(1);
    EXPECT_EQ(List()->topLevelItemCount(), 1);
    EXPECT_EQ(Get<QLineEdit>("needed")->text(), "1.00");
    EXPECT_EQ(Get<QTimeEdit>("entryBegin")->time(), QTime(8, 0));
    EXPECT_EQ(Get<QComboBox>("entryRemark")->currentText(), "x");
    QApplication::setActiveWindow(dialog.get());
    List()->setFocus();
    List()->setCurrentItem(List()->topLevelItem(0));
    QTest::keyClick(List(), Qt::Key_Delete);
    EXPECT_EQ(List()->topLevelItemCount(), 0) << "the Delete key takes back too";
}

TEST_F(EntryList, CombosOfferThePresetFileAndAnAddedEntryJoinsTheRecentTexts) {
    ASSERT_TRUE(SaveAssignees(dir.PathOf("Bearbeiter.dat"), {"Zeta", "Max Muster"}));
    Open();
    EXPECT_EQ(Get<QComboBox>("entryRemark")->itemText(1), "Zeta");
    AddHours(QDate(2024, 5, 5), QTime(8, 0), QTime(9, 0), "Bert", "Abbau");
    EXPECT_EQ(dialog->Histories().remark[0], "Abbau");
}

TEST_F(EntryList, BothCostListsWithTheirAutomaticEntriesReachTheNodeOnOk) {
    Open();
    Get<QRadioButton>("modeCalculated")->click();
    EXPECT_EQ(Get<QGroupBox>("listGroup")->title(), "Kalkulierte Kosten");
    ASSERT_EQ(List()->topLevelItemCount(), 1);
    Get<StepEdit>("rate")->SetText("60");
    EXPECT_EQ(Cell(0, 7), "-480.00") << "the automatic entry follows the rate";
    AddCost("19.99", "3", true);
    EXPECT_EQ(Cell(0, 7), "59.97");
    TakeBack(0);
    EXPECT_EQ(Get<StepEdit>("unitPrice")->Text(), "19.99") << "the input row is refilled";
    EXPECT_TRUE(Get<QRadioButton>("income")->isChecked());
    ASSERT_EQ(List()->topLevelItemCount(), 1);
    Get<QPushButton>("addEntry")->click();
    Get<QLineEdit>("needed")->setText("2");
    Get<QRadioButton>("modeNeeded")->click();
    EXPECT_EQ(Cell(0, 6), "Benötigte Stunden");
    AddCost("7", "2", false);
    ClickOk(*dialog);
    EXPECT_EQ(task.m_pCosts.size(), 2u);
    EXPECT_EQ(task.m_pCosts2.size(), 2u);
    EXPECT_NEAR(task.m_fCostPlanned, -480.0f + 59.97f, 1e-3);
    EXPECT_FLOAT_EQ(task.m_fCostNeeded, -120.0f - 14.0f);
}

} // namespace

} // namespace velto
