// "Feiertage, Urlaub, ...": the list as the file fills it, adding and taking back entries, the
// colour button, and the file that OK writes (read back identically) and Cancel leaves alone.
#include "dialogs/CHolidayDlg.h"

#include "files/HolidayFile.h"
#include "gui/dialogs/DialogTestSupport.h"
#include "support/ScriptedPrompter.h"

#include <QCheckBox>
#include <QColorDialog>
#include <QDateEdit>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTreeWidget>
#include <fstream>
#include <sstream>
#include <sys/stat.h>

namespace {

std::string Bytes(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    std::ostringstream out;
    out << in.rdbuf();
    return out.str();
}

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
        original = Bytes(file);
    }

    void Add(CHolidayDlg& dialog, QDate date, const QString& name, bool yearly) {
        Find<QDateEdit>(dialog, "date")->setDate(date);
        Find<QLineEdit>(dialog, "name")->setText(name);
        Find<QCheckBox>(dialog, "yearly")->setChecked(yearly);
        Find<QPushButton>(dialog, "add")->click();
    }

    ScratchDir dir;
    std::string file = dir.File("Feiertage.dat");
    std::string original;
    ScriptedPrompter prompter;
};

TEST_F(HolidayDlgTest, TheListShowsTheFileLatestFirstWithTheKeyAndColourHidden) {
    CHolidayDlg dialog(file, prompter);
    const QTreeWidget& list = *Find<QTreeWidget>(dialog, "entries");
    EXPECT_EQ(Column(list, 2), QStringList({"05.01.2024", "24.12.2023", "01.05.2023"}));
    EXPECT_EQ(Column(list, 0), QStringList({"2024/01/05", "2023/12/24", "2023/05/01"}));
    EXPECT_EQ(Column(list, 1), QStringList({"16711680", "255", "65280"}));
    EXPECT_EQ(Column(list, 3), QStringList({"Urlaub", "Heilig Abend", " "}))
        << "an empty name comes back as a blank";
    EXPECT_EQ(Column(list, 4), QStringList({"NEIN", "JA", "JA"}));
    EXPECT_TRUE(list.isColumnHidden(0));
    EXPECT_TRUE(list.isColumnHidden(1));
    EXPECT_FALSE(list.isColumnHidden(2));
    EXPECT_EQ(list.headerItem()->text(4), QString::fromUtf8("Jährlich"));
}

TEST_F(HolidayDlgTest, AddedEntriesAreWrittenAsTheListShowsThemAndReadBackIdentically) {
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
    Find<QCheckBox>(dialog, "yearly")->setChecked(false);
    QLineEdit& name = *Find<QLineEdit>(dialog, "name");
    EXPECT_EQ(name.text(), "") << "cleared for the next entry";
    QTest::keyClick(&name, Qt::Key_Return);
    ASSERT_TRUE(dialog.isVisible());
    EXPECT_EQ(Find<QTreeWidget>(dialog, "entries")->currentItem()->text(2), "24.12.2023") << "the new row";
    EXPECT_EQ(Column(*Find<QTreeWidget>(dialog, "entries"), 2),
              QStringList({"01.05.2024", "05.01.2024", "24.12.2023", "24.12.2023", "01.05.2023"}))
        << "a new entry goes behind the entries of its day";
    ClickOk(dialog);
    ASSERT_EQ(dialog.result(), QDialog::Accepted);

    const std::string written = Bytes(file);
    EXPECT_EQ(written.find('\n'), std::string::npos);
    const std::string first = "1\r5\r2024\r7915775\rTag#~*der#~*Arbeit\rJA\r";
    EXPECT_EQ(written.substr(0, first.size()), first) << "COLORREF: red in the low byte";
    EXPECT_NE(written.find("24\r12\r2023\r7915775\r#~*\rNEIN\r"), std::string::npos);
    EXPECT_EQ(Bytes(dir.File("Feiertage.bak")), original);

    // Opened again and confirmed unchanged, the dialog writes the very same bytes.
    CHolidayDlg again(file, prompter);
    EXPECT_EQ(again.Entries().size(), 5u);
    EXPECT_EQ(again.Entries()[0].name, "Tag der Arbeit");
    ClickOk(again);
    EXPECT_EQ(Bytes(file), written);
    EXPECT_EQ(Bytes(dir.File("Feiertage.bak")), written);
    EXPECT_TRUE(prompter.asked().empty());
}

TEST_F(HolidayDlgTest, TakingBackFillsTheInputAndCancelWritesNothing) {
    CHolidayDlg dialog(file, prompter);
    QTreeWidget& list = *Find<QTreeWidget>(dialog, "entries");
    QPushButton& takeBack = *Find<QPushButton>(dialog, "takeBack");
    takeBack.click();
    EXPECT_EQ(prompter.texts(), std::vector<std::string>{"Kein Eintrag ausgewählt!"});

    list.setCurrentItem(list.topLevelItem(1));
    takeBack.click();
    EXPECT_EQ(Find<QDateEdit>(dialog, "date")->date(), QDate(2023, 12, 24));
    EXPECT_EQ(Find<QLineEdit>(dialog, "name")->text(), "Heilig Abend");
    EXPECT_TRUE(Find<QCheckBox>(dialog, "yearly")->isChecked());
    dialog.show();
    EXPECT_EQ(FaceOf(*Find<QPushButton>(dialog, "colour")), QColor(255, 0, 0)) << "the entry's colour";
    EXPECT_EQ(Column(list, 3), QStringList({"Urlaub", " "}));

    // A cancelled colour choice keeps the colour.
    OnNextModal<QColorDialog>([](QColorDialog& chooser) { chooser.reject(); });
    Find<QPushButton>(dialog, "colour")->click();
    Add(dialog, QDate(2023, 12, 24), "Heilig Abend", true);
    EXPECT_EQ(dialog.Entries()[1].color, 255);

    ClickCancel(dialog);
    EXPECT_EQ(Bytes(file), original);
    EXPECT_FALSE(std::filesystem::exists(dir.File("Feiertage.bak")));
}

TEST_F(HolidayDlgTest, AFileThatCannotBeWrittenKeepsTheDialogOpen) {
    const std::string missing = dir.File("fehlt/Feiertage.dat");
    CHolidayDlg dialog(missing, prompter);
    EXPECT_TRUE(dialog.Entries().empty()) << "a missing file is an empty list, without a word";
    EXPECT_EQ(dialog.findChild<QLabel*>("unreadable"), nullptr);
    dialog.show();
    Add(dialog, QDate(2024, 1, 1), "Neujahr", true);
    ClickOk(dialog);
    EXPECT_EQ(prompter.texts(), std::vector<std::string>{"Die Datei \"" + missing +
                                                         "\" kann nicht geschrieben werden (Datei oder "
                                                         "Ordner nicht gefunden)."});
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_EQ(dialog.Entries().size(), 1u);
}

TEST_F(HolidayDlgTest, AFileThatCannotBeReadIsNamedAndNeverOverwritten) {
    // A FIFO cannot be read as a data file, but a save would replace it.
    const std::string fifo = dir.File("Feiertage.fifo");
    ASSERT_EQ(mkfifo(fifo.c_str(), 0600), 0);
    CHolidayDlg dialog(fifo, prompter);
    dialog.show();
    EXPECT_EQ(Find<QLabel>(dialog, "unreadable")->text().toStdString(),
              "Die Datei \"" + fifo +
                  "\" kann nicht gelesen werden (keine gewöhnliche Datei). Sie wird nicht überschrieben.");
    EXPECT_FALSE(ButtonOfRole(dialog, QDialogButtonBox::AcceptRole)->isEnabled());
    Add(dialog, QDate(2024, 1, 1), "Neujahr", true);
    dialog.accept();
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_TRUE(std::filesystem::is_fifo(fifo));
    ClickCancel(dialog);
    EXPECT_EQ(dialog.result(), QDialog::Rejected);
    EXPECT_TRUE(prompter.asked().empty());
}

} // namespace
