// "Einstellungen": what it shows and writes, a store that fails, and the commands that open it.
#include "dialogs/CSettingsDlg.h"

#include "app/CVeltoApp.h"
#include "base/CommandIds.h"
#include "dialogs/CAssigneeDlg.h"
#include "dialogs/CHolidayDlg.h"
#include "gui/app/ShellTestSupport.h"
#include "gui/dialogs/DialogTestSupport.h"
#include "view/ViewContext.h"

#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>

namespace velto {

namespace {

using SettingsDlg = ShellTest;

bool Checked(const CSettingsDlg& dialog, const char* name) {
    return Find<QAbstractButton>(dialog, name)->isChecked();
}

void SetChecked(const CSettingsDlg& dialog, const char* name, bool checked) {
    Find<QAbstractButton>(dialog, name)->setChecked(checked);
}

QLineEdit& StartFile(const CSettingsDlg& dialog, int number) {
    return *Find<QLineEdit>(dialog, QStringLiteral("startFile%1").arg(number).toLatin1().constData());
}

TEST_F(SettingsDlg, WithNothingStoredItShowsTheDefaultsCancelWritesNothingAndOkEveryValue) {
    CSettingsDlg cancelled(settings, desktop);
    SetChecked(cancelled, "dueDate", true);
    StartFile(cancelled, 1).setText(ProjectPath("Eins.VT5"));
    ClickCancel(cancelled);
    EXPECT_TRUE(QSettings("kolvarin", "Velto5").allKeys().isEmpty());
    CSettingsDlg dialog(settings, desktop);
    EXPECT_EQ(Find<QComboBox>(dialog, "fontName")->currentText(), "Arial");
    EXPECT_EQ(Find<QSpinBox>(dialog, "fontSize")->value(), 12);
    for (const char* box : {"startDate", "dueDate", "responsible", "barInNodeColour", "sortByDue"})
        EXPECT_FALSE(Checked(dialog, box)) << box;
    EXPECT_TRUE(Checked(dialog, "sortByStart")) << "a missing value sorts by the start date, so it says so";
    ClickOk(dialog);
    EXPECT_EQ(dialog.result(), QDialog::Accepted);
    QStringList keys = QSettings("kolvarin", "Velto5").allKeys();
    keys.sort();
    EXPECT_EQ(keys, QStringList({"Balken", "Datei1", "Datei2", "Datei3", "Datum", "SchriftGroesse",
                                 "SchriftName", "Sortieren", "Verant"}));
    // Numbers are read back as numbers and "Verant" as its text.
    const SettingsSession stored = settings.Open();
    EXPECT_EQ(stored.Find(setting::NoteFontSize), 12);
    EXPECT_EQ(stored.Find(setting::SortByDue), 0);
    EXPECT_EQ(stored.Find(setting::ShowResponsible), "FALSE");
    EXPECT_TRUE(desktop.prompter.asked().empty());
}

TEST_F(SettingsDlg, StoredValuesAreShownAndTheEditedOnesWrittenBack) {
    const QString first = ProjectPath("Projekte, alt.VT5");
    Store({{"Datei1", first},
           {"SchriftName", "Liberation Serif"},
           {"SchriftGroesse", 20},
           {"Verant", "false"},
           {"Sortieren", 1},
           {"Balken", 1}});
    CSettingsDlg dialog(settings, desktop);
    EXPECT_EQ(StartFile(dialog, 1).text(), first);
    EXPECT_EQ(Find<QComboBox>(dialog, "fontName")->currentText(), "Liberation Serif");
    EXPECT_EQ(Find<QSpinBox>(dialog, "fontSize")->value(), 20);
    EXPECT_TRUE(Checked(dialog, "responsible"));
    EXPECT_TRUE(Checked(dialog, "sortByDue"));
    EXPECT_TRUE(Checked(dialog, "barInNodeColour"));
    desktop.ChooseFiles({ProjectPath("Zwei.VT5"), ""});
    Find<QPushButton>(dialog, "browse2")->click();
    Find<QPushButton>(dialog, "browse1")->click(); // cancelled: the file stays
    EXPECT_EQ(StartFile(dialog, 2).text(), ProjectPath("Zwei.VT5"));
    SetChecked(dialog, "startDate", true);
    SetChecked(dialog, "responsible", false);
    SetChecked(dialog, "sortByStart", true);
    Find<QSpinBox>(dialog, "fontSize")->setValue(150);
    ClickOk(dialog);
    const SettingsSession stored = settings.Open();
    EXPECT_EQ(stored.Get(setting::StartFile1), first);
    EXPECT_EQ(stored.Get(setting::StartFile2), ProjectPath("Zwei.VT5"));
    EXPECT_EQ(stored.Find(setting::NoteFontSize), 100);
    EXPECT_EQ(stored.Find(setting::ShowResponsible), "FALSE");
    EXPECT_EQ(stored.Find(setting::SortByDue), 0);
    EXPECT_EQ(stored.Find(setting::BarInNodeColor), 1);
}

TEST_F(SettingsDlg, EachPairOfDateBoxesIsStoredAsItsNumberAndShownAgain) {
    struct Case {
        bool start, due;
        int stored;
    };
    for (const Case& c :
         {Case{false, false, 0}, Case{true, false, 1}, Case{false, true, 2}, Case{true, true, 3}}) {
        CSettingsDlg dialog(settings, desktop);
        SetChecked(dialog, "startDate", c.start);
        SetChecked(dialog, "dueDate", c.due);
        ClickOk(dialog);
        EXPECT_EQ(settings.Open().Find(setting::DatePrefix), c.stored);
        const CSettingsDlg again(settings, desktop);
        EXPECT_EQ(Checked(again, "startDate"), c.start) << c.stored;
        EXPECT_EQ(Checked(again, "dueDate"), c.due) << c.stored;
    }
}

// The dialog must show what the chart and the sort make of a value, however odd.
TEST_F(SettingsDlg, OddStoredValuesReadInTheDialogAsTheChartAndTheSortReadThem) {
    const std::string noHolidays = TempPath("keine-Feiertage.dat").toStdString();
    const auto store = [&](const char* name, const QVariant& value) {
        QSettings stored("kolvarin", "Velto5");
        stored.clear();
        if (value.isValid())
            stored.setValue(name, value);
        stored.sync();
        return std::pair(ReadSettingsValues(settings.Open()), ReadViewContext(settings.Open(), noHolidays));
    };
    for (const auto& [value, shown] :
         {std::pair<QVariant, bool>{QVariant(), false}, {"false", true}, {"Fertig", false}, {"TRUE", true}}) {
        const auto [dialog, chart] = store("Verant", value);
        EXPECT_EQ(dialog.showResponsible, shown) << value.toString().toStdString();
        EXPECT_EQ(chart.chart.showResponsible, shown) << value.toString().toStdString();
    }
    for (const auto& [value, on] : {std::pair{0, false}, {1, true}, {5, true}}) {
        const auto [dialog, chart] = store("Sortieren", value);
        EXPECT_EQ(dialog.sortByDue, on) << value;
        EXPECT_EQ(chart.sortByDue, on) << value;
    }
    for (const auto& [value, on] : {std::pair{1, true}, {2, false}}) {
        const auto [dialog, chart] = store("Balken", value);
        EXPECT_EQ(dialog.barInNodeColour, on) << value;
        EXPECT_EQ(chart.chart.barInNodeColour, on) << value;
    }
    const auto [dialog, chart] = store("Datum", 4);
    EXPECT_FALSE(dialog.showStartDate || dialog.showDueDate);
    EXPECT_EQ(chart.chart.datePrefix, 0);
    EXPECT_EQ(store("SchriftGroesse", 3).first.noteFontSize, 6);
}

TEST_F(SettingsDlg, AnUnusableStoreIsReportedOnOpeningAndOnOk) {
    UseUnusableSettingsFolder();
    CSettingsDlg dialog(settings, desktop);
    EXPECT_EQ(desktop.prompter.texts(), std::vector<std::string>{"Regestry Error"});
    EXPECT_EQ(Find<QComboBox>(dialog, "fontName")->currentText(), "Arial") << "the defaults are shown";
    dialog.show();
    ClickOk(dialog);
    EXPECT_EQ(desktop.prompter.texts(), std::vector<std::string>(2, "Regestry Error"));
    EXPECT_EQ(dialog.result(), QDialog::Rejected);
    EXPECT_FALSE(dialog.isVisible());
}

template <typename D> void ExpectOpensAndCancel(CMainFrame& frame, int id) {
    bool opened = false;
    OnNextModal<D>([&opened](D& dialog) {
        opened = true;
        ClickCancel(dialog);
    });
    EXPECT_TRUE(frame.Router().Execute(id)) << id;
    EXPECT_TRUE(opened) << id;
}

TEST_F(SettingsDlg, TheMenuCommandsOpenTheDialogsWithAndWithoutAProject) {
    const DataDirOverride data(TempPath("daten"));
    CVeltoApp app(desktop);
    CMainFrame& frame = app.MainFrame();
    ExpectOpensAndCancel<CSettingsDlg>(frame, cmd::SettingsNoDoc);
    ExpectOpensAndCancel<CHolidayDlg>(frame, cmd::HolidaysNoDoc);
    ExpectOpensAndCancel<CAssigneeDlg>(frame, cmd::Assignees);
    ASSERT_TRUE(frame.Documents().NewDocument());
    ExpectOpensAndCancel<CSettingsDlg>(frame, cmd::Settings);
    OnNextModal<CHolidayDlg>([](CHolidayDlg& dialog) { ClickOk(dialog); });
    EXPECT_TRUE(frame.Router().Execute(cmd::Holidays));
    EXPECT_TRUE(QFileInfo::exists(TempPath("daten/Feiertage.dat"))) << "the data folder is made when missing";
    EXPECT_TRUE(desktop.prompter.asked().empty());
    CloseWithoutQuestions(frame);
}

} // namespace

} // namespace velto
