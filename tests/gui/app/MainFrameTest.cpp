// The main window: menu sets and toolbars, placement, opening files, and the files beside the program.
#include "ShellTestSupport.h"

#include "base/CommandIds.h"
#include "chart/CGrafik.h"
#include "support/TempDir.h"
#include "view/CNotePane.h"
#include "view/CVeltoView.h"

#include <QDragEnterEvent>
#include <QDropEvent>
#include <QMimeData>
#include <QStatusBar>
#include <QToolBar>
#include <QUrl>

#include <algorithm>
#include <set>

namespace velto {

namespace {
QStringList MenuTitles(const QMenuBar* bar) {
    QStringList titles;
    for (QAction* action : bar->actions())
        titles << action->text();
    return titles;
}

std::set<int> Ids(const QList<QAction*>& actions) {
    std::set<int> ids;
    for (QAction* action : actions)
        if (!action->isSeparator())
            ids.insert(action->data().toInt());
    return ids;
}
} // namespace

using MainFrame = ShellTest;

TEST_F(MainFrame, TheMenuSetFollowsTheProjectsAndTheMode) {
    CMainFrame& frame = MakeFrame();
    const QStringList withoutProject{"&Datei", "&Ansicht", "E&xtras", "&?"};
    EXPECT_EQ(MenuTitles(frame.menuBar()), withoutProject);
    CChildFrame* first = frame.Documents().NewDocument();
    CChildFrame* second = frame.Documents().NewDocument();
    ASSERT_TRUE(first && second);
    EXPECT_EQ(MenuTitles(frame.menuBar()),
              QStringList({"&Datei", "&Bearbeiten", "&Ansicht", "E&xtras", "&Fenster", "&?"}));
    const auto viewMenu = [&] { return Ids(TopMenu(frame.menuBar(), "&Ansicht")->actions()); };
    using namespace cmd;
    const std::set<int> timeline{MindMapMode, ZoomOut,     ZoomIn,    WidthDown,
                                 WidthUp,     CollapseAll, ExpandAll, ToggleCosts};
    const std::set<int> view = viewMenu();
    EXPECT_TRUE(std::includes(view.begin(), view.end(), timeline.begin(), timeline.end()));
    EXPECT_TRUE(Ids(frame.ToolBar().actions()).contains(MindMapMode));
    ASSERT_TRUE(frame.Router().Execute(MindMapMode));
    EXPECT_TRUE(first->GetView().ShowsMindMap() && second->GetView().ShowsMindMap());
    EXPECT_TRUE(second->GetView().Chart().MindMapMode() && second->GetView().NotePane().isHidden());
    const std::set<int> mindMap = viewMenu();
    EXPECT_TRUE(mindMap.contains(TimelineMode) && mindMap.contains(ZoomIn));
    EXPECT_FALSE(mindMap.contains(MindMapMode) || mindMap.contains(WidthDown));
    EXPECT_TRUE(Ids(frame.ToolBar().actions()).contains(TimelineMode));
    EXPECT_FALSE(Ids(frame.ToolBar().actions()).contains(MindMapMode));
    ASSERT_TRUE(frame.Router().Execute(TimelineMode));
    EXPECT_FALSE(first->GetView().ShowsMindMap() || second->GetView().ShowsMindMap());
    EXPECT_FALSE(second->GetView().Chart().MindMapMode() || second->GetView().NotePane().isHidden());
    EXPECT_EQ(viewMenu(), view);
    for (CChildFrame* child : {first, second})
        child->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    frame.OnIdle();
    EXPECT_EQ(MenuTitles(frame.menuBar()), withoutProject);
}

TEST_F(MainFrame, TheWindowMenuListsTheProjectsAndActivatesTheChosenOne) {
    CMainFrame& frame = MakeFrame();
    CChildFrame* one = frame.Documents().OpenDocumentFile(WriteProject("Eins.VT5"));
    ASSERT_TRUE(one && frame.Documents().NewDocument());
    QMenu* windows = TopMenu(frame.menuBar(), "&Fenster");
    ASSERT_TRUE(windows);
    emit windows->aboutToShow();
    const QList<QAction*> entries = windows->actions();
    const auto entry = std::find_if(entries.begin(), entries.end(),
                                    [](QAction* action) { return action->text() == "&1 Eins.VT5"; });
    ASSERT_NE(entry, entries.end());
    (*entry)->trigger();
    EXPECT_EQ(frame.ActiveChild(), one);
}

TEST_F(MainFrame, TheTitleNamesTheActiveProjectMaximisedOrNot) {
    CMainFrame& frame = MakeFrame();
    EXPECT_EQ(frame.windowTitle(), "Velto");
    CChildFrame* one = frame.Documents().OpenDocumentFile(WriteProject("Eins.VT5"));
    CChildFrame* two = frame.Documents().OpenDocumentFile(WriteProject("Zwei.VT5"));
    ASSERT_TRUE(one && two);
    EXPECT_EQ(frame.windowTitle(), "Velto - Zwei.VT5[*]");
    two->showMaximized();
    frame.Documents().OpenDocumentFile(ProjectPath("Eins.VT5")); // activates the open one
    QCoreApplication::processEvents();
    EXPECT_EQ(frame.windowTitle(), "Velto - Eins.VT5[*]") << "maximised, the same form";
    one->GetDocument().m_bReadOnly = true;
    frame.OnIdle();
    EXPECT_EQ(frame.windowTitle(), "Velto - Eins.VT5 - SCHREIBGESCHÜTZT[*]");
    one->showNormal();
    frame.OnIdle();
    EXPECT_EQ(frame.windowTitle(), "Velto - Eins.VT5 - SCHREIBGESCHÜTZT[*]");
    one->GetDocument().m_bReadOnly = false;
    CloseWithoutQuestions(frame);
}

TEST_F(MainFrame, PlacementMaximizedStateBarsAndNoteFlagSurviveARestart) {
    {
        CMainFrame& frame = MakeFrame();
        CommandRouter& router = frame.Router();
        EXPECT_TRUE(router.Query(cmd::NoteToolbar).checked);
        frame.setGeometry(40, 50, 700, 500);
        for (int id : {cmd::ViewToolbar, cmd::ViewStatusBar, cmd::NoteToolbar}) {
            router.Execute(id);
            EXPECT_FALSE(router.Query(id).checked) << id;
        }
        EXPECT_TRUE(frame.ToolBar().isHidden());
        router.Execute(cmd::ViewToolbar);
        frame.SavePlacement();
    }
    // The frame is stored, its border (2 pixels on this platform) included, and placed again.
    EXPECT_EQ(Stored("Left").toInt(), 38);
    EXPECT_EQ(Stored("Bottom").toInt(), 552);
    EXPECT_EQ(Stored("Max").toInt(), 0);
    CMainFrame again(desktop, settings, *recent);
    again.show();
    QCoreApplication::processEvents();
    EXPECT_EQ(again.frameGeometry(), QRect(38, 48, 704, 504));
    EXPECT_EQ(again.geometry(), QRect(40, 50, 700, 500));
    EXPECT_TRUE(again.statusBar()->isHidden());
    EXPECT_FALSE(again.ToolBar().isHidden());
    EXPECT_FALSE(again.State().noteToolbar);
    again.showMaximized();
    ASSERT_TRUE(again.isMaximized());
    again.SavePlacement();
    EXPECT_EQ(Stored("Max").toInt(), 1);
    EXPECT_EQ(Stored("Bottom").toInt(), 552) << "the normal rectangle is kept";
    EXPECT_TRUE(CMainFrame(desktop, settings, *recent).WasMaximized());
    // A rectangle off the screen falls back to 800 x 600 with the title bar on the screen.
    Store({{"Left", -5000}, {"Top", 0}, {"Right", 100}, {"Bottom", 100}, {"Max", 0}});
    CMainFrame fallback(desktop, settings, *recent);
    fallback.show();
    QCoreApplication::processEvents();
    EXPECT_EQ(fallback.frameGeometry(), QRect(0, 0, 800, 600));
    EXPECT_TRUE(desktop.prompter.asked().empty());
}

TEST_F(MainFrame, NewProjectsTakeTheNoteFontFromTheSettings) {
    Store({{"SchriftName", QString::fromUtf8("Liberation Séans")}, {"SchriftGroesse", 14}});
    CChildFrame* child = MakeFrame().Documents().NewDocument();
    ASSERT_TRUE(child);
    EXPECT_EQ(child->GetDocument().m_strNoteFont, "Liberation S\xE9"
                                                  "ans"); // Windows-1252 in the model
    EXPECT_EQ(child->GetDocument().m_nNoteFontSize, 14);
}

TEST_F(MainFrame, AFileThatIsOpenAlreadyIsActivatedNotOpenedTwice) {
    const QString path = WriteProject("Doppelt.VT5");
    CMainFrame& frame = MakeFrame();
    CChildFrame* first = frame.Documents().OpenDocumentFile(path);
    frame.Documents().NewDocument();
    ASSERT_NE(frame.ActiveChild(), first);
    EXPECT_EQ(frame.Documents().OpenDocumentFile(ProjectDir() + "/./Doppelt.VT5"), first);
    EXPECT_EQ(frame.ActiveChild(), first);
    EXPECT_EQ(frame.Children().size(), 2);
    EXPECT_TRUE(desktop.prompter.asked().empty()) << "no lock question from our own lock";
}

TEST_F(MainFrame, TheOpenCommandAndADropOpenTheChosenFiles) {
    const QString chosen = WriteProject("Gewaehlt.vt5"), dropped = WriteProject("Gezogen.VT5");
    CMainFrame& frame = MakeFrame();
    desktop.ChooseFiles({QString(), chosen});
    frame.Router().Execute(cmd::FileOpen); // cancelled
    EXPECT_TRUE(frame.Children().isEmpty());
    frame.Router().Execute(cmd::FileOpen);
    ASSERT_EQ(frame.Children().size(), 1);
    EXPECT_EQ(frame.ActiveChild()->GetDocument().GetTitle(), "Gewaehlt.vt5");
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(dropped), QUrl("https://example.org/x.VT5")});
    QDragEnterEvent enter(QPoint(10, 10), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&frame, &enter);
    EXPECT_TRUE(enter.isAccepted());
    QDropEvent drop(QPointF(10, 10), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&frame, &drop);
    ASSERT_EQ(frame.Children().size(), 2);
    EXPECT_EQ(frame.ActiveChild()->GetDocument().GetTitle(), "Gezogen.VT5");
}

TEST_F(MainFrame, TheRecentListKeepsTheFourLastFilesNewestFirst) {
    CMainFrame& frame = MakeFrame();
    QStringList paths;
    for (const char* name : {"A.VT5", "B.VT5", "C.VT5", "D.VT5", "E.VT5"}) {
        paths.append(WriteProject(name));
        ASSERT_TRUE(frame.Documents().OpenDocumentFile(paths.back()));
    }
    EXPECT_EQ(recent->Files(), QStringList({paths[4], paths[3], paths[2], paths[1]}));
    frame.Documents().OpenDocumentFile(paths[2]); // open already: activated, and moved to the top
    EXPECT_EQ(recent->Files()[0], paths[2]);
    QSettings stored("Local AppWizard-Generated Applications", "Velto");
    stored.beginGroup("Recent File List");
    EXPECT_EQ(stored.value("File1").toString(), paths[2]);
    EXPECT_FALSE(stored.contains("File5"));
    EXPECT_EQ(RecentFileList().Files(), recent->Files());
}

TEST_F(MainFrame, ARecentFileIsOpenedFromTheMenuDroppedWhenGoneAndKeptWhenDeclined) {
    const QString kept = WriteProject("Bleibt.VT5"), gone = WriteProject("Weg.VT5");
    recent->Add(kept);
    recent->Add(gone);
    QFile::remove(gone);
    CMainFrame& frame = MakeFrame();
    frame.OnIdle();
    EXPECT_TRUE(frame.Action(cmd::FileMru1 + 1)->isEnabled());
    EXPECT_FALSE(frame.Action(cmd::FileMru1 + 2)->isEnabled());
    emit frame.menuBar()->actions().first()->menu()->aboutToShow();
    EXPECT_EQ(frame.Action(cmd::FileMru1)->text(), "&1 " + QDir::toNativeSeparators(gone));
    EXPECT_FALSE(frame.Action(cmd::FileMru1 + 2)->isVisible());
    frame.Router().Execute(cmd::FileMru1); // the newest: gone
    EXPECT_EQ(recent->Files(), QStringList({kept}));
    frame.Router().Execute(cmd::FileMru1);
    ASSERT_EQ(frame.Children().size(), 1);
    EXPECT_EQ(frame.ActiveChild()->GetDocument().GetTitle(), "Bleibt.VT5");
    CMainFrame& theirs = MakeFrame();       // another instance, which finds the file locked
    theirs.Router().Execute(cmd::FileMru1); // the script declines to open it read-only
    EXPECT_TRUE(theirs.Children().isEmpty());
    EXPECT_EQ(recent->Files(), QStringList({kept}));
}

TEST_F(MainFrame, ConverterAndManualAreLookedForBesideTheProgramAndTheManualInTheInstallation) {
    CMainFrame& frame = MakeFrame();
    const auto runBoth = [&] {
        frame.Router().Execute(cmd::ImportVt4);
        frame.Router().Execute(cmd::Manual);
    };
    runBoth();
    ASSERT_EQ(desktop.prompter.asked().size(), 2u);
    EXPECT_NE(desktop.prompter.asked()[0].text.find("VT4_VT5"), std::string::npos);
    EXPECT_NE(desktop.prompter.asked()[1].text.find("Velto.pdf"), std::string::npos);
    const QDir program(desktop.ProgramDir());
    QDir().mkpath(program.path());
    // Installed, the manual lies in the data folder beside the program's folder.
    const QString installed = QDir::cleanPath(program.filePath("../share/velto/Velto.pdf"));
    QDir().mkpath(QFileInfo(installed).path());
    testsupport::WriteFile(installed.toStdString(), "");
    testsupport::WriteFile(program.filePath("VT4_VT5").toStdString(), "");
    runBoth();
    EXPECT_EQ(desktop.started, QStringList({program.filePath("VT4_VT5")}));
    EXPECT_EQ(desktop.opened, QStringList({installed}));
    testsupport::WriteFile(program.filePath("Velto.pdf").toStdString(), "");
    frame.Router().Execute(cmd::Manual);
    EXPECT_EQ(desktop.opened.back(), program.filePath("Velto.pdf")) << "the program's own folder comes first";
    EXPECT_EQ(desktop.prompter.asked().size(), 2u);
}

} // namespace velto
