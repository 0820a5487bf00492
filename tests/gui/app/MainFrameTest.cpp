// The main window: menu sets and toolbars, placement, opening files, and the files beside the program.
#include "ShellTestSupport.h"

#include "base/CommandIds.h"
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
std::set<int> MenuIds(const QMenu* menu) {
    std::set<int> ids;
    for (QAction* action : menu->actions())
        if (!action->isSeparator())
            ids.insert(action->data().toInt());
    return ids;
}

bool ToolbarHas(const QToolBar& bar, int id) {
    for (QAction* action : bar.actions())
        if (action->data().toInt() == id)
            return true;
    return false;
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
    using namespace cmd;
    const std::set<int> timeline{MindMapMode, ZoomOut,     ZoomIn,    WidthDown,
                                 WidthUp,     CollapseAll, ExpandAll, ToggleCosts};
    const std::set<int> view = MenuIds(TopMenu(frame.menuBar(), "&Ansicht"));
    EXPECT_TRUE(std::includes(view.begin(), view.end(), timeline.begin(), timeline.end()));
    EXPECT_TRUE(ToolbarHas(frame.ToolBar(), MindMapMode));

    ASSERT_TRUE(frame.Router().Execute(MindMapMode));
    EXPECT_TRUE(first->GetView().ShowsMindMap() && second->GetView().ShowsMindMap());
    const std::set<int> mindMap = MenuIds(TopMenu(frame.menuBar(), "&Ansicht"));
    EXPECT_TRUE(mindMap.contains(TimelineMode) && mindMap.contains(ZoomIn));
    EXPECT_FALSE(mindMap.contains(MindMapMode) || mindMap.contains(WidthDown));
    EXPECT_TRUE(ToolbarHas(frame.ToolBar(), TimelineMode));
    EXPECT_FALSE(ToolbarHas(frame.ToolBar(), MindMapMode));

    ASSERT_TRUE(frame.Router().Execute(TimelineMode));
    EXPECT_FALSE(first->GetView().ShowsMindMap() || second->GetView().ShowsMindMap());
    EXPECT_EQ(MenuIds(TopMenu(frame.menuBar(), "&Ansicht")), view);

    for (CChildFrame* child : {first, second}) {
        child->close();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
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
    QAction* entry = nullptr;
    for (QAction* action : windows->actions())
        if (action->text() == "&1 Eins.VT5")
            entry = action;
    ASSERT_TRUE(entry);
    EXPECT_FALSE(entry->isChecked());
    entry->trigger();
    EXPECT_EQ(frame.ActiveChild(), one);
}

// ---- Placement ----

TEST_F(MainFrame, PlacementBarsAndNoteFlagSurviveARestart) {
    {
        CMainFrame& frame = MakeFrame();
        frame.setGeometry(40, 50, 700, 500);
        frame.Router().Execute(cmd::ViewStatusBar);
        frame.Router().Execute(cmd::NoteToolbar);
        frame.SavePlacement();
    }
    QSettings stored("kolvarin", "Velto5");
    EXPECT_EQ(stored.value("Right").toInt(), 740);
    EXPECT_EQ(stored.value("Bottom").toInt(), 550);
    EXPECT_EQ(stored.value("Max").toInt(), 0);

    CMainFrame again(desktop, settings, *recent);
    EXPECT_EQ(again.geometry(), QRect(40, 50, 700, 500));
    EXPECT_TRUE(again.statusBar()->isHidden());
    EXPECT_FALSE(again.ToolBar().isHidden());
    EXPECT_FALSE(again.State().noteToolbar);
    EXPECT_TRUE(desktop.prompter.asked().empty());
}

TEST_F(MainFrame, AMaximizedFrameKeepsTheStoredNormalRectangle) {
    Store({{"Left", 10}, {"Top", 20}, {"Right", 610}, {"Bottom", 420}});
    CMainFrame& frame = MakeFrame();
    frame.showMaximized();
    ASSERT_TRUE(frame.isMaximized());
    frame.SavePlacement();
    QSettings stored("kolvarin", "Velto5");
    EXPECT_EQ(stored.value("Max").toInt(), 1);
    EXPECT_EQ(stored.value("Bottom").toInt(), 420);
    EXPECT_TRUE(CMainFrame(desktop, settings, *recent).WasMaximized());
}

TEST_F(MainFrame, NewProjectsTakeTheNoteFontFromTheSettings) {
    Store({{"SchriftName", QString::fromUtf8("Liberation Séans")}, {"SchriftGroesse", 14}});
    CChildFrame* child = MakeFrame().Documents().NewDocument();
    ASSERT_TRUE(child);
    EXPECT_EQ(child->GetDocument().m_strNoteFont, "Liberation S\xE9"
                                                  "ans"); // Windows-1252 in the model
    EXPECT_EQ(child->GetDocument().m_nNoteFontSize, 14);
}

TEST_F(MainFrame, AnUnusableSettingsStoreIsReportedAndTheDefaultsApply) {
    UseUnusableSettingsFolder();
    CMainFrame& frame = MakeFrame();
    EXPECT_EQ(desktop.prompter.texts(), std::vector<std::string>{"Regestry Error"});
    frame.SavePlacement();
    EXPECT_EQ(desktop.prompter.texts().size(), 2u);
    CChildFrame* child = frame.Documents().NewDocument();
    ASSERT_TRUE(child);
    EXPECT_EQ(child->GetDocument().m_strNoteFont, "Arial");
}

// ---- Opening files ----

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

TEST_F(MainFrame, AMissingOrBrokenFileIsNamedAndNothingOpens) {
    QFile broken(ProjectPath("Kaputt.VT5"));
    ASSERT_TRUE(broken.open(QIODevice::WriteOnly));
    broken.write("\x01\x02\x03", 3); // ends in the middle of the header
    broken.close();
    CMainFrame& frame = MakeFrame();
    for (const char* name : {"Fehlt.VT5", "Kaputt.VT5"}) {
        EXPECT_EQ(frame.Documents().OpenDocumentFile(ProjectPath(name)), nullptr) << name;
        ASSERT_FALSE(desktop.prompter.asked().empty()) << name;
        EXPECT_NE(desktop.prompter.asked().back().text.find(name), std::string::npos);
    }
    EXPECT_TRUE(frame.Children().isEmpty());
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

// ---- Recent files ----

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

TEST_F(MainFrame, ARecentFileIsOpenedFromTheMenuAndDroppedWhenItIsGone) {
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
}

// ---- Beside the program ----

TEST_F(MainFrame, ConverterAndManualAreLookedForBesideTheProgram) {
    CMainFrame& frame = MakeFrame();
    frame.Router().Execute(cmd::ImportVt4);
    frame.Router().Execute(cmd::Manual);
    ASSERT_EQ(desktop.prompter.asked().size(), 2u);
    EXPECT_NE(desktop.prompter.asked()[0].text.find("VT4_VT5"), std::string::npos);
    EXPECT_NE(desktop.prompter.asked()[1].text.find("Velto.pdf"), std::string::npos);

    const QDir program(desktop.ProgramDir());
    QDir().mkpath(program.path());
    for (const char* name : {"VT4_VT5", "Velto.pdf"}) {
        QFile file(program.filePath(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    }
    frame.Router().Execute(cmd::ImportVt4);
    frame.Router().Execute(cmd::Manual);
    EXPECT_EQ(desktop.started, QStringList({program.filePath("VT4_VT5")}));
    EXPECT_EQ(desktop.opened, QStringList({program.filePath("Velto.pdf")}));
    EXPECT_EQ(desktop.prompter.asked().size(), 2u);
}

} // namespace velto
