// The settings store and the start of the program: the files of the settings first, then the
// command line, a new project when nothing was named, and a clear word about a missing file.
#include "ShellTestSupport.h"

#include "app/CVeltoApp.h"
#include "base/CommandIds.h"
#include "view/CVeltoView.h"

#include <QFileInfo>

using Startup = ShellTest;

TEST_F(Startup, EverySettingReadsItsDefaultWhenMissingAndItsValueWhenStored) {
    SettingsSession session = settings.Open();
    ASSERT_TRUE(session.IsOpen());
    EXPECT_EQ(session.Get(setting::NoteFontName), "Arial");
    EXPECT_EQ(session.Get(setting::NoteFontSize), 12);
    EXPECT_EQ(session.Get(setting::StartFile1), "");
    EXPECT_EQ(session.Find(setting::DatePrefix), std::nullopt);
    EXPECT_EQ(session.Get(setting::NoteToolbarShown), 1);

    session.Set(setting::NoteFontName, QString::fromUtf8("Liberation Sans"));
    session.Set(setting::NoteFontSize, 20);
    session.Set(setting::ShowResponsible, "FALSE");
    session.Set(setting::FrameLeft, -1200); // a monitor left of the main one
    ASSERT_TRUE(session.Commit());

    const SettingsSession again = settings.Open();
    EXPECT_EQ(again.Get(setting::NoteFontName), "Liberation Sans");
    EXPECT_EQ(again.Get(setting::NoteFontSize), 20);
    EXPECT_EQ(again.Get(setting::ShowResponsible), "FALSE");
    EXPECT_EQ(again.Find(setting::FrameLeft), -1200);
    EXPECT_TRUE(desktop.prompter.asked().empty());
}

TEST_F(Startup, ANumberStoredAsTextCountsAsMissing) {
    QSettings("kolvarin", "Velto5").setValue("SchriftGroesse", "zwoelf");
    EXPECT_EQ(settings.Open().Find(setting::NoteFontSize), std::nullopt);
    EXPECT_EQ(settings.Open().Get(setting::NoteFontSize), 12);
}

TEST_F(Startup, AHandEditedTextWithCommasReadsAsWritten) {
    QFile conf(m_dir.filePath("config/kolvarin/Velto5.conf"));
    ASSERT_TRUE(QDir().mkpath(QFileInfo(conf).absolutePath()));
    ASSERT_TRUE(conf.open(QIODevice::WriteOnly));
    conf.write("[General]\nDatei1=/daten/Projekte, alt/Plan.VT5\n");
    conf.close();
    EXPECT_EQ(settings.Open().Get(setting::StartFile1), "/daten/Projekte, alt/Plan.VT5");
}

TEST_F(Startup, TheStartFilesOpenFirstThenTheCommandLine) {
    WriteProject(ProjectPath("Eins.VT5"));
    WriteProject(ProjectPath("Drei.VT5"));
    WriteProject(ProjectPath("Argument.VT5"));
    {
        QSettings stored("kolvarin", "Velto5");
        stored.setValue("Datei1", ProjectPath("Eins.VT5"));
        stored.setValue("Datei2", ProjectPath("Fehlt.VT5"));
        stored.setValue("Datei3", ProjectPath("Drei.VT5"));
    }
    CVeltoApp app(desktop);
    app.Start({ProjectPath("Argument.VT5")});
    QStringList titles;
    for (CChildFrame* child : app.MainFrame().Children())
        titles.append(child->windowTitle());
    EXPECT_EQ(titles, QStringList({"Eins.VT5[*]", "Drei.VT5[*]", "Argument.VT5[*]"}));
    EXPECT_EQ(app.MainFrame().ActiveChild()->windowTitle(), "Argument.VT5[*]");
    ASSERT_EQ(desktop.prompter.asked().size(), 1u);
    const std::string& told = desktop.prompter.asked()[0].text;
    EXPECT_NE(told.find("Fehlt.VT5"), std::string::npos);
    EXPECT_NE(told.find("Datei2"), std::string::npos);
    CloseWithoutQuestions(app.MainFrame());
}

TEST_F(Startup, NothingNamedStartsWithANewProject) {
    CVeltoApp app(desktop);
    app.Start({});
    ASSERT_EQ(app.MainFrame().Children().size(), 1);
    CVeltoDoc& doc = app.MainFrame().ActiveChild()->GetDocument();
    EXPECT_EQ(doc.m_pFirstNode->m_strTitle, "Projektname");
    EXPECT_TRUE(app.MainFrame().isVisible());
    CloseWithoutQuestions(app.MainFrame());
}

TEST_F(Startup, AFileThatFailsOnTheCommandLineLeavesAnEmptyFrame) {
    CVeltoApp app(desktop);
    app.Start({ProjectPath("Gibtsnicht.VT5")});
    EXPECT_TRUE(app.MainFrame().Children().isEmpty());
    EXPECT_EQ(desktop.prompter.asked().size(), 1u);
}

TEST(NodeInfoLine, ShowsTheTimeStampsAndTheBalanceOfHoursOrCosts) {
    CProjectNode node;
    node.m_timeCreated = CTime(2024, 3, 5, 9, 7, 0);
    node.m_timeChanged = CTime(2024, 12, 24, 18, 30, 0);
    node.m_timeDone = CTime(2025, 1, 2, 8, 0, 0);
    node.m_fHoursPlanned = 10.0f;
    node.m_fHoursNeeded = 2.5f;
    node.m_fCostPlanned = 100.0f;
    node.m_fCostNeeded = 40.25f;
    const QString stamps =
        QString::fromUtf8("Erstellt: 05.03.24 / 09:07   |  Letzte Änderung: 24.12.24 / 18:30   |  ");
    EXPECT_EQ(CVeltoView::NodeInfoLine(node, false), stamps + "7.50h");
    // Costs take the operands the other way round.
    EXPECT_EQ(CVeltoView::NodeInfoLine(node, true), stamps + QString::fromUtf8("-59.75€"));

    node.m_bDone = 1; // the done stamp is shown for a done task only
    EXPECT_FALSE(CVeltoView::NodeInfoLine(node, false).contains("Erledigt am"));
    node.m_nKind = kKindTask;
    EXPECT_EQ(CVeltoView::NodeInfoLine(node, false), stamps + "Erledigt am: 02.01.25 / 08:00   |  7.50h");
}
