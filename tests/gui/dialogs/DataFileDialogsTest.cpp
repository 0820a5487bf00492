// The data file dialogs ("Feiertage, Urlaub, ...", the presets): the list from the file, adding,
// taking back, what OK writes, and files that cannot be read or written.
#include "dialogs/CAssigneeDlg.h"
#include "dialogs/CHolidayDlg.h"

#include "files/HolidayFile.h"
#include "gui/dialogs/DialogTestSupport.h"
#include "support/ScriptedPrompter.h"

#include <QCheckBox>
#include <QColorDialog>
#include <QDateEdit>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTest>
#include <QTreeWidget>
#include <sys/stat.h>

namespace velto {

namespace {

// What the list shows in one column, top to bottom.
QStringList Column(const QTreeWidget& list, int column) {
    QStringList texts;
    for (int row = 0; row < list.topLevelItemCount(); ++row)
        texts << list.topLevelItem(row)->text(column);
    return texts;
}

QColor FaceOf(QPushButton& button) {
    return button.grab().toImage().pixelColor(4, button.height() / 2);
}

class HolidayDlgTest : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(SaveHolidays(file, {{24, 12, 2023, 255, "Heilig Abend", true},
                                        {5, 1, 2024, 0xFF0000, "Urlaub", false},
                                        {1, 5, 2023, 0x00FF00, "", true}}));
        original = testsupport::ReadFile(file);
    }

    void Add(CHolidayDlg& dialog, QDate date, const QString& name, bool yearly) {
        Find<QDateEdit>(dialog, "date")->setDate(date);
        Find<QLineEdit>(dialog, "name")->setText(name);
        Find<QCheckBox>(dialog, "yearly")->setChecked(yearly);
        Find<QPushButton>(dialog, "add")->click();
    }

    testsupport::TempDir dir;
    std::string file = dir.PathOf("Feiertage.dat");
    std::string original;
    ScriptedPrompter prompter;
};

TEST_F(HolidayDlgTest, AddedEntriesInTheChosenColourAreWrittenOnOk) {
    CHolidayDlg dialog(file, prompter);
    dialog.show();
    QPushButton& colour = *Find<QPushButton>(dialog, "colour");
    EXPECT_EQ(FaceOf(colour), QColor(220, 255, 220)) << "the button shows the starting colour";
    OnNextModal<QColorDialog>([](QColorDialog& chooser) {
        chooser.setCurrentColor(QColor(255, 200, 120));
        chooser.accept();
    });
    colour.click();
    EXPECT_EQ(FaceOf(colour), QColor(255, 200, 120));
    Add(dialog, QDate(2024, 5, 1), "Tag der Arbeit", true);
    // Enter in the name adds the entry instead of closing the dialog without it.
    Find<QDateEdit>(dialog, "date")->setDate(QDate(2023, 12, 24));
    QLineEdit& name = *Find<QLineEdit>(dialog, "name");
    EXPECT_EQ(name.text(), "") << "cleared for the next entry";
    QTest::keyClick(&name, Qt::Key_Return);
    ASSERT_TRUE(dialog.isVisible());
    EXPECT_EQ(Find<QTreeWidget>(dialog, "entries")->currentItem()->text(2), "24.12.2023") << "the new row";
    ClickOk(dialog);
    ASSERT_EQ(dialog.result(), QDialog::Accepted);
    const std::vector<CHoliday> written = LoadHolidays(file);
    ASSERT_EQ(written.size(), 5u);
    EXPECT_EQ(written[0].name, "Tag der Arbeit");
    EXPECT_EQ(written[0].color, 255 | (200 << 8) | (120 << 16)) << "COLORREF: red in the low byte";
    EXPECT_TRUE(prompter.asked().empty());
}

TEST_F(HolidayDlgTest, TheListShowsTheFileLatestFirstTakingBackFillsTheInputAndCancelWritesNothing) {
    CHolidayDlg dialog(file, prompter);
    QTreeWidget& list = *Find<QTreeWidget>(dialog, "entries");
    EXPECT_EQ(Column(list, 2), QStringList({"05.01.2024", "24.12.2023", "01.05.2023"}));
    EXPECT_EQ(Column(list, 3), QStringList({"Urlaub", "Heilig Abend", " "}));
    EXPECT_EQ(Column(list, 4), QStringList({"NEIN", "JA", "JA"}));
    EXPECT_TRUE(list.isColumnHidden(0) && list.isColumnHidden(1)) << "the key and the colour";
    QPushButton& takeBack = *Find<QPushButton>(dialog, "takeBack");
    takeBack.click();
    EXPECT_EQ(prompter.texts(), std::vector<std::string>{"Kein Eintrag ausgewählt!"});
    list.setCurrentItem(list.topLevelItem(0));
    takeBack.click();
    EXPECT_EQ(Find<QDateEdit>(dialog, "date")->date(), QDate(2024, 1, 5));
    EXPECT_EQ(Find<QLineEdit>(dialog, "name")->text(), "Urlaub");
    EXPECT_FALSE(Find<QCheckBox>(dialog, "yearly")->isChecked());
    dialog.show();
    EXPECT_EQ(FaceOf(*Find<QPushButton>(dialog, "colour")), QColor(0, 0, 255)) << "the entry's colour";
    EXPECT_EQ(list.topLevelItemCount(), 2);
    // A cancelled colour choice keeps the colour.
    OnNextModal<QColorDialog>([](QColorDialog& chooser) { chooser.reject(); });
    Find<QPushButton>(dialog, "colour")->click();
    Add(dialog, QDate(2024, 1, 5), "Urlaub", false);
    EXPECT_EQ(dialog.Entries()[0].color, 0xFF0000);
    ClickCancel(dialog);
    EXPECT_EQ(testsupport::ReadFile(file), original);
}

TEST_F(HolidayDlgTest, AFileThatCannotBeWrittenKeepsTheDialogOpen) {
    CHolidayDlg dialog(dir.PathOf("fehlt/Feiertage.dat"), prompter);
    EXPECT_TRUE(dialog.Entries().empty()) << "a missing file is an empty list, without a word";
    dialog.show();
    Add(dialog, QDate(2024, 1, 1), "Neujahr", true);
    ClickOk(dialog);
    EXPECT_EQ(prompter.asked().size(), 1u);
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_EQ(dialog.Entries().size(), 1u);
}

TEST(Presets, AddedByButtonOrEnterWrittenOnOkAndTakenBackIntoTheEdit) {
    testsupport::TempDir dir;
    const std::string file = dir.PathOf("Bearbeiter.dat");
    ScriptedPrompter prompter;
    CAssigneeDlg dialog(file, prompter);
    QLineEdit* preset = Find<QLineEdit>(dialog, "preset");
    preset->setText("Max Muster");
    Find<QPushButton>(dialog, "add")->click();
    dialog.show();
    QApplication::setActiveWindow(&dialog);
    preset->setFocus();
    QTest::keyClicks(preset, "Anna");
    QTest::keyClick(preset, Qt::Key_Return);
    EXPECT_TRUE(dialog.isVisible()) << "Enter adds rather than closing the dialog";
    ClickOk(dialog);
    EXPECT_EQ(testsupport::ReadFile(file), "Anna\rMax#~*Muster\r");
    CAssigneeDlg again(file, prompter);
    QListWidget* list = Find<QListWidget>(again, "presets");
    ASSERT_EQ(list->count(), 2);
    list->setCurrentRow(1);
    Find<QPushButton>(again, "takeBack")->click();
    EXPECT_EQ(Find<QLineEdit>(again, "preset")->text(), "Max Muster");
    EXPECT_EQ(list->count(), 1);
    ClickCancel(again);
    EXPECT_EQ(testsupport::ReadFile(file), "Anna\rMax#~*Muster\r") << "Cancel writes nothing";
}

TEST(DataFileDialogs, AFileThatCannotBeReadIsNamedAndNeverOverwritten) {
    testsupport::TempDir dir;
    const std::string fifo =
        dir.PathOf("Daten.dat"); // cannot be read as a data file, but a save would replace it
    ASSERT_EQ(mkfifo(fifo.c_str(), 0600), 0);
    ScriptedPrompter prompter;
    CHolidayDlg holidays(fifo, prompter);
    CAssigneeDlg presets(fifo, prompter);
    for (QDialog* dialog : std::initializer_list<QDialog*>{&holidays, &presets}) {
        dialog->show();
        EXPECT_NE(Find<QLabel>(*dialog, "unreadable")->text().toStdString().find(fifo), std::string::npos);
        EXPECT_FALSE(ButtonOfRole(*dialog, QDialogButtonBox::AcceptRole)->isEnabled());
        dialog->accept();
        EXPECT_TRUE(dialog->isVisible());
    }
    EXPECT_TRUE(std::filesystem::is_fifo(fifo));
}

} // namespace

} // namespace velto
