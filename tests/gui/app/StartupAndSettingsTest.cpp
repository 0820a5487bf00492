// The start of the program: the settings' start files, the command line, and what the store reads.
#include "ShellTestSupport.h"

#include "app/CVeltoApp.h"
#include "app/CommandLine.h"
#include "app/SingleInstance.h"
#include "base/CommandIds.h"
#include "support/TempDir.h"
#include "view/CVeltoView.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QTest>

#include <atomic>
#include <thread>

namespace velto {

using Startup = ShellTest;

TEST_F(Startup, ANumberStoredAsTextCountsAsMissingAndAHandEditedTextWithCommasReadsAsWritten) {
    Store({{"SchriftGroesse", "zwoelf"}});
    EXPECT_EQ(settings.Open().Get(setting::NoteFontSize), 12);
    ASSERT_TRUE(QDir().mkpath(m_dir.filePath("config/kolvarin")));
    testsupport::WriteFile(m_dir.filePath("config/kolvarin/Velto5.conf").toStdString(),
                           "[General]\nDatei1=/daten/Projekte, alt/Plan.VT5\n");
    EXPECT_EQ(settings.Open().Get(setting::StartFile1), "/daten/Projekte, alt/Plan.VT5");
}

TEST_F(Startup, TheStartFilesOpenFirstThenTheCommandLine) {
    Store({{"Datei1", WriteProject("Eins.VT5")},
           {"Datei2", ProjectPath("Fehlt.VT5")},
           {"Datei3", WriteProject("Drei.VT5")}});
    CVeltoApp app(desktop);
    app.Start({WriteProject("Argument.VT5")});
    QStringList titles;
    for (CChildFrame* child : app.MainFrame().Children())
        titles.append(child->windowTitle());
    EXPECT_EQ(titles, QStringList({"Eins.VT5[*]", "Drei.VT5[*]", "Argument.VT5[*]"}));
    EXPECT_EQ(app.MainFrame().ActiveChild()->windowTitle(), "Argument.VT5[*]");
    ASSERT_EQ(desktop.prompter.asked().size(), 1u);
    EXPECT_NE(desktop.prompter.asked()[0].text.find("Fehlt.VT5"), std::string::npos);
    CloseWithoutQuestions(app.MainFrame());
}

TEST_F(Startup, NothingNamedStartsWithANewProject) {
    CVeltoApp app(desktop);
    app.Start({});
    ASSERT_EQ(app.MainFrame().Children().size(), 1);
    EXPECT_EQ(app.MainFrame().ActiveChild()->GetDocument().m_pFirstNode->m_strTitle, "Projektname");
    EXPECT_TRUE(app.MainFrame().isVisible());
    CloseWithoutQuestions(app.MainFrame());
}

TEST_F(Startup, ABrokenFileOnTheCommandLineIsNamedAndLeavesAnEmptyFrame) {
    testsupport::WriteFile(ProjectPath("Kaputt.VT5").toStdString(), "\x01\x02\x03"); // ends in the header
    CVeltoApp app(desktop);
    app.Start({ProjectPath("Kaputt.VT5")});
    EXPECT_TRUE(app.MainFrame().Children().isEmpty());
    ASSERT_EQ(desktop.prompter.asked().size(), 1u);
    EXPECT_NE(desktop.prompter.asked()[0].text.find("Kaputt.VT5"), std::string::npos);
}

TEST(CommandLine, FilesOptionsAndErrors) {
    const CommandLine line = ParseCommandLine({"velto", "a.VT5", "b c.VT5"});
    EXPECT_TRUE(line.error.isEmpty());
    EXPECT_FALSE(line.help);
    EXPECT_EQ(line.files, QStringList({"a.VT5", "b c.VT5"}));
    // After "--" a name that looks like an option is a file.
    EXPECT_EQ(ParseCommandLine({"velto", "--", "-seltsam.VT5"}).files, QStringList({"-seltsam.VT5"}));
    EXPECT_TRUE(ParseCommandLine({"velto", "--help"}).help);
    EXPECT_TRUE(ParseCommandLine({"velto", "-h"}).help);
    EXPECT_TRUE(ParseCommandLine({"velto", "--version"}).version);
    EXPECT_TRUE(ParseCommandLine({"velto", "--new-instance", "a.VT5"}).newInstance);
    EXPECT_TRUE(UsageText().startsWith("Aufruf: velto"));
    EXPECT_EQ(ParseCommandLine({"velto", "--gibtsnicht", "a.VT5"}).error, "Unbekannte Option: gibtsnicht");
}

// A second program hands its files to the running one, which opens them and comes forward; the
// socket a crashed program left behind is taken over.
TEST_F(Startup, ASecondProgramHandsItsFilesToTheRunningOne) {
    const QString name = QStringLiteral("velto-test-%1").arg(QCoreApplication::applicationPid());
    // What a crash leaves: the socket's file, and nobody listening.
    const QString stale = QDir(QDir::tempPath()).filePath(name);
    testsupport::WriteFile(stale.toStdString(), "");
    SingleInstance running(name);
    EXPECT_FALSE(running.HandOver({})) << "nobody answers on a stale socket";
    ASSERT_TRUE(running.Listen());

    CVeltoApp app(desktop);
    app.Start({WriteProject("Erstes.VT5")});
    QObject::connect(&running, &SingleInstance::filesHandedOver, &app.MainFrame(),
                     [&app](const QStringList& files) { app.OpenHandedOver(files); });
    app.MainFrame().showMinimized();
    const QString second = WriteProject("Zweites Projekt.VT5");
    // The second program waits for the answer, so it runs beside the event loop of the first.
    std::atomic<int> handedOver = -1;
    std::thread program([&] { handedOver = SingleInstance(name).HandOver({second}) ? 1 : 0; });
    QTRY_VERIFY(handedOver != -1);
    program.join();
    EXPECT_EQ(handedOver, 1);
    ASSERT_EQ(app.MainFrame().Children().size(), 2);
    EXPECT_EQ(app.MainFrame().ActiveChild()->windowTitle(), "Zweites Projekt.VT5[*]");
    EXPECT_FALSE(app.MainFrame().isMinimized());
    CloseWithoutQuestions(app.MainFrame());
}

} // namespace velto
