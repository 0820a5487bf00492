// "Knoten bearbeiten" driven as a user would; the rules it applies are tested in core.
#include "dialogs/CNodeEditDlg.h"

#include "dialogs/CNewResponsibleDlg.h"
#include "dialogs/CReminderDlg.h"
#include "dialogs/CResponsibleDlg.h"
#include "dialogs/CTextFormatDlg.h"
#include "gui/dialogs/DialogTestSupport.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
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

TEST_F(NodeDialog, TheTaskFitsA1024x768ScreenAndKeepsItsWidthInEveryListMode) {
    auto dialog = Open("T");
    const int width = dialog->minimumSizeHint().width();
    for (const char* mode : {"modeCalculated", "modeNeeded", "modeHours"}) {
        Find<QRadioButton>(*dialog, mode)->click();
        EXPECT_EQ(dialog->minimumSizeHint().width(), width) << mode;
        EXPECT_LE(width, 1000) << "room left for the window frame";
        EXPECT_LE(dialog->minimumSizeHint().height(), 680) << mode;
    }
}

TEST_F(NodeDialog, AProjectWithChildrenIsRefusedAfterTheUndoCopyAndStaysAProject) {
    auto dialog = Open("R");
    Find<QLineEdit>(*dialog, "title")->setText("Umbenannt");
    Find<QRadioButton>(*dialog, "kindTask")->click();
    ClickOk(*dialog);
    ASSERT_EQ(prompter.asked().size(), 1u);
    EXPECT_EQ(prompter.asked()[0].caption, "Knoten Wandlung nicht möglich");
    EXPECT_TRUE(dialog->isVisible());
    EXPECT_TRUE(Find<QRadioButton>(*dialog, "kindProject")->isChecked());
    EXPECT_EQ(Find<QLineEdit>(*dialog, "title")->text(), "Umbenannt") << "the input stays";
    EXPECT_EQ(tree["R"]->m_strTitle, "R");
    EXPECT_EQ(undoCopies, 1) << "a refused OK has taken its undo copy";

    auto childless = Open("P");
    Find<QRadioButton>(*childless, "kindTask")->click();
    ClickOk(*childless);
    EXPECT_EQ(tree["P"]->m_nKind, kKindTask);
}

TEST_F(NodeDialog, ImplausibleDatesAreRefusedAndPlausibleOnesWritten) {
    auto dialog = Open("T");
    Find<QDateEdit>(*dialog, "start")->setDate(QDate(2024, 5, 6));
    Find<QDateEdit>(*dialog, "due")->setDate(QDate(2024, 5, 5));
    ClickOk(*dialog);
    ASSERT_EQ(prompter.asked().size(), 1u);
    EXPECT_EQ(prompter.asked()[0].caption, "Zeiteingaben nicht plausibel");
    EXPECT_TRUE(dialog->isVisible());

    Find<QDateEdit>(*dialog, "due")->setDate(QDate(2024, 5, 7));
    ClickOk(*dialog);
    EXPECT_EQ(dialog->result(), QDialog::Accepted);
    EXPECT_EQ(tree["T"]->m_timeStart.Format("%d.%m.%Y"), "06.05.2024");
    EXPECT_EQ(tree["T"]->m_timeDue.Format("%d.%m.%Y"), "07.05.2024");
}

TEST_F(NodeDialog, CancelChangesNothingAndEveryOkStampsTheChange) {
    CProjectNode& task = *tree["T"];
    task.m_timeChanged = CTime(1000);
    auto cancelled = Open("T");
    Find<QLineEdit>(*cancelled, "title")->setText("Anders");
    Find<StepEdit>(*cancelled, "planned")->SetText("5");
    ClickCancel(*cancelled);
    EXPECT_EQ(task.m_strTitle, "T");
    EXPECT_TRUE(task.m_pCosts.empty()) << "not even the automatic cost entries";
    EXPECT_EQ(task.m_timeChanged, CTime(1000));

    const CTime before = CTime::GetCurrentTime();
    ClickOk(*Open("T"));
    EXPECT_GE(task.m_timeChanged, before) << "the stamp moves even when nothing was edited";
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
    StepEdit* quantity = Find<StepEdit>(*dialog, "quantity");
    quantity->MinusButton()->click();
    EXPECT_EQ(quantity->Text(), "0.50");
}

TEST_F(NodeDialog, TheDoneStampIsTheTimeOfTheLastClick) {
    tree["T"]->m_timeDone = CTime(1000);
    auto dialog = Open("T");
    const CTime before = CTime::GetCurrentTime();
    Find<QCheckBox>(*dialog, "done")->click();
    Find<QCheckBox>(*dialog, "done")->click();
    ClickOk(*dialog);
    EXPECT_FALSE(tree["T"]->m_bDone);
    EXPECT_GE(tree["T"]->m_timeDone, before);
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

TEST_F(NodeDialog, ChoosingNobodyClearsTheResponsiblePerson) {
    tree["T"]->m_strResponsible = "Eva";
    auto dialog = Open("T");
    EXPECT_EQ(Find<QLabel>(*dialog, "responsibleName")->text(), "Eva");
    OnNextModal<CResponsibleDlg>([](CResponsibleDlg& choice) {
        QListWidget* list = Find<QListWidget>(choice, "persons");
        EXPECT_EQ(list->currentRow(), 1) << "the current person starts selected";
        list->setCurrentRow(0); // "--- Keiner ---"
        ClickOk(choice);
    });
    Find<QPushButton>(*dialog, "responsible")->click();
    EXPECT_EQ(Find<QLabel>(*dialog, "responsibleName")->text(), "");
    ClickOk(*dialog);
    EXPECT_EQ(tree["T"]->m_strResponsible, "");
}

TEST_F(NodeDialog, ANewResponsiblePersonIsChosenAtOnce) {
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
}

TEST_F(NodeDialog, TabFollowsTheLayoutAndEnterInTheInputRowAddsTheEntry) {
    auto dialog = Open("T");
    QApplication::setActiveWindow(dialog.get());
    Find<QLineEdit>(*dialog, "title")->setFocus();
    // The named control that holds the focus; Tab through the sections of a date counts once.
    QStringList visited;
    for (int i = 0; i < 60 && !visited.contains("entries"); ++i) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        QWidget* w = QApplication::focusWidget();
        while (w && (w->objectName().isEmpty() || w->objectName().startsWith("qt_")))
            w = w->parentWidget();
        if (w && (visited.isEmpty() || visited.back() != w->objectName()))
            visited << w->objectName();
    }
    const QStringList expected{"kindProject", "responsible", "start",         "due",      "done",
                               "textFormat",  "alarm",       "planned",       "needed",   "rate",
                               "modeHours",   "entryDay",    "entryBegin",    "entryEnd", "entryAssignee",
                               "entryRemark", "addEntry",    "takeBackEntry", "entries"};
    EXPECT_EQ(visited, expected) << "one stop for each radio group, none on + and -";

    Find<QTimeEdit>(*dialog, "entryBegin")->setTime(QTime(8, 0));
    Find<QTimeEdit>(*dialog, "entryEnd")->setTime(QTime(9, 0));
    QComboBox* remark = Find<QComboBox>(*dialog, "entryRemark");
    remark->setFocus();
    remark->setCurrentText("Montage");
    QTest::keyClick(remark, Qt::Key_Return);
    EXPECT_TRUE(dialog->isVisible()) << "Enter while typing an entry does not close the dialog";
    EXPECT_EQ(Find<QTreeWidget>(*dialog, "entries")->topLevelItemCount(), 1);
    EXPECT_EQ(Find<QLineEdit>(*dialog, "needed")->text(), "1.00");
}

} // namespace

} // namespace velto
