// The main window: menu sets and toolbars in both modes, placement kept in the settings, opening
// files (twice, missing, recent, dropped), and the converter and manual beside the program.
#include "ShellTestSupport.h"

#include "base/CommandIds.h"
#include "view/CVeltoView.h"

#include <QAction>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QGuiApplication>
#include <QMdiArea>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>
#include <QScreen>
#include <QStatusBar>
#include <QToolBar>
#include <QUrl>

namespace {
QStringList MenuTitles(QMenuBar* bar) {
    QStringList titles;
    for (QAction* action : bar->actions())
        titles.append(action->text());
    return titles;
}

QStringList ItemTexts(QMenuBar* bar, const QString& menuTitle) {
    QStringList texts;
    for (QAction* top : bar->actions())
        if (top->text() == menuTitle)
            for (QAction* action : top->menu()->actions())
                if (!action->isSeparator())
                    texts.append(action->text());
    return texts;
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
    EXPECT_EQ(MenuTitles(frame.menuBar()), QStringList({"&Datei", "&Ansicht", "E&xtras", "&?"}));

    CChildFrame* first = frame.Documents().NewDocument();
    CChildFrame* second = frame.Documents().NewDocument();
    ASSERT_TRUE(first && second);
    EXPECT_EQ(MenuTitles(frame.menuBar()),
              QStringList({"&Datei", "&Bearbeiten", "&Ansicht", "E&xtras", "&Fenster", "&?"}));
    EXPECT_TRUE(ItemTexts(frame.menuBar(), "&Ansicht").contains("Mind Map"));
    EXPECT_TRUE(ToolbarHas(frame.ToolBar(), cmd::MindMapMode));

    ASSERT_TRUE(frame.Router().Execute(cmd::MindMapMode));
    EXPECT_TRUE(frame.State().mindMapMode);
    EXPECT_TRUE(first->GetView().ShowsMindMap());
    EXPECT_TRUE(second->GetView().ShowsMindMap());
    const QStringList viewItems = ItemTexts(frame.menuBar(), "&Ansicht");
    EXPECT_TRUE(viewItems.contains("Knoten Ansicht"));
    EXPECT_FALSE(viewItems.contains("Mind Map"));
    EXPECT_FALSE(viewItems.contains("&Breite verkleinern"));
    EXPECT_TRUE(ToolbarHas(frame.ToolBar(), cmd::TimelineMode));
    EXPECT_FALSE(ToolbarHas(frame.ToolBar(), cmd::MindMapMode));

    ASSERT_TRUE(frame.Router().Execute(cmd::TimelineMode));
    EXPECT_FALSE(first->GetView().ShowsMindMap());
    EXPECT_FALSE(second->GetView().ShowsMindMap());
    EXPECT_TRUE(ItemTexts(frame.menuBar(), "&Ansicht").contains("Mind Map"));
}

TEST_F(MainFrame, TwoProjectsOfTheSameTitleAreBothRedrawnInTheNewMode) {
    CMainFrame& frame = MakeFrame();
    CChildFrame* first = frame.Documents().NewDocument();
    CChildFrame* second = frame.Documents().NewDocument();
    ASSERT_EQ(first->GetDocument().GetTitle(), second->GetDocument().GetTitle());
    frame.Router().Execute(cmd::MindMapMode);
    EXPECT_TRUE(first->GetView().ShowsMindMap());
    EXPECT_TRUE(second->GetView().ShowsMindMap());
}

TEST_F(MainFrame, ClosingTheLastProjectBringsBackTheMenuWithoutDocument) {
    CMainFrame& frame = MakeFrame();
    CChildFrame* child = frame.Documents().NewDocument();
    child->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    frame.OnIdle();
    EXPECT_TRUE(frame.Children().isEmpty());
    EXPECT_EQ(MenuTitles(frame.menuBar()), QStringList({"&Datei", "&Ansicht", "E&xtras", "&?"}));
}

TEST_F(MainFrame, TheWindowMenuListsTheProjectsAndActivatesTheChosenOne) {
    CMainFrame& frame = MakeFrame();
    WriteProject(ProjectPath("Eins.VT5"));
    CChildFrame* one = frame.Documents().OpenDocumentFile(ProjectPath("Eins.VT5"));
    CChildFrame* two = frame.Documents().NewDocument();
    ASSERT_TRUE(one && two);
    QMenu* windows = nullptr;
    for (QAction* top : frame.menuBar()->actions())
        if (top->text() == "&Fenster")
            windows = top->menu();
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
    EXPECT_EQ(stored.value("Left").toInt(), 40);
    EXPECT_EQ(stored.value("Top").toInt(), 50);
    EXPECT_EQ(stored.value("Right").toInt(), 740);
    EXPECT_EQ(stored.value("Bottom").toInt(), 550);
    EXPECT_EQ(stored.value("Max").toInt(), 0);
    EXPECT_EQ(stored.value("Tool").toInt(), 1);
    EXPECT_EQ(stored.value("Status").toInt(), 0);
    EXPECT_EQ(stored.value("BtnNotiz").toInt(), 0);

    CMainFrame again(desktop, settings, *recent);
    EXPECT_EQ(again.geometry(), QRect(40, 50, 700, 500));
    EXPECT_TRUE(again.statusBar()->isHidden());
    EXPECT_FALSE(again.ToolBar().isHidden());
    EXPECT_FALSE(again.State().noteToolbar);
    EXPECT_TRUE(desktop.prompter.asked().empty());
}

TEST_F(MainFrame, ARectangleOffTheVirtualScreenFallsBackTo800x600AtTheOrigin) {
    const QRect screen = QGuiApplication::primaryScreen()->virtualGeometry();
    {
        QSettings stored("kolvarin", "Velto5");
        stored.setValue("Left", screen.right() + 100); // a monitor that is gone
        stored.setValue("Top", 10);
        stored.setValue("Right", screen.right() + 600);
        stored.setValue("Bottom", 400);
    }
    CMainFrame frame(desktop, settings, *recent);
    EXPECT_EQ(frame.geometry(), QRect(0, 0, 800, 600));
}

TEST_F(MainFrame, AMaximizedFrameKeepsTheStoredNormalRectangle) {
    {
        QSettings stored("kolvarin", "Velto5");
        stored.setValue("Left", 10);
        stored.setValue("Top", 20);
        stored.setValue("Right", 610);
        stored.setValue("Bottom", 420);
    }
    CMainFrame& frame = MakeFrame();
    frame.showMaximized();
    ASSERT_TRUE(frame.isMaximized());
    frame.SavePlacement();
    QSettings stored("kolvarin", "Velto5");
    EXPECT_EQ(stored.value("Max").toInt(), 1);
    EXPECT_EQ(stored.value("Left").toInt(), 10);
    EXPECT_EQ(stored.value("Bottom").toInt(), 420);
    CMainFrame again(desktop, settings, *recent);
    EXPECT_TRUE(again.WasMaximized());
}

TEST_F(MainFrame, AnUnusableSettingsStoreIsReportedAndTheDefaultsApply) {
    // A settings folder whose place is taken by a file can be neither read nor written.
    QFile blocker(TempPath("blocked"));
    ASSERT_TRUE(blocker.open(QIODevice::WriteOnly));
    blocker.close();
    UseSettingsFolder(TempPath("blocked"));
    CMainFrame& frame = MakeFrame();
    EXPECT_EQ(desktop.prompter.texts(), std::vector<std::string>{"Regestry Error"});
    EXPECT_EQ(desktop.prompter.asked()[0].caption, "Velto");
    EXPECT_TRUE(frame.State().noteToolbar);
    frame.SavePlacement();
    EXPECT_EQ(desktop.prompter.texts().size(), 2u);
    // A new project still gets the default note font.
    CChildFrame* child = frame.Documents().NewDocument();
    ASSERT_TRUE(child);
    EXPECT_EQ(child->GetDocument().m_strNoteFont, "Arial");
    EXPECT_EQ(child->GetDocument().m_nNoteFontSize, 12);
}

TEST_F(MainFrame, NewProjectsTakeTheNoteFontFromTheSettings) {
    {
        QSettings stored("kolvarin", "Velto5");
        stored.setValue("SchriftName", QString::fromUtf8("Liberation Séans"));
        stored.setValue("SchriftGroesse", 14);
    }
    CMainFrame& frame = MakeFrame();
    CChildFrame* child = frame.Documents().NewDocument();
    ASSERT_TRUE(child);
    EXPECT_EQ(child->GetDocument().m_strNoteFont, "Liberation S\xE9"
                                                  "ans"); // Windows-1252 in the model
    EXPECT_EQ(child->GetDocument().m_nNoteFontSize, 14);
}

// ---- Opening files ----

TEST_F(MainFrame, AFileThatIsOpenAlreadyIsActivatedNotOpenedTwice) {
    const QString path = ProjectPath("Doppelt.VT5");
    WriteProject(path);
    CMainFrame& frame = MakeFrame();
    CChildFrame* first = frame.Documents().OpenDocumentFile(path);
    frame.Documents().NewDocument();
    ASSERT_NE(frame.ActiveChild(), first);
    // Another spelling of the same file.
    CChildFrame* again = frame.Documents().OpenDocumentFile(ProjectDir() + "/./Doppelt.VT5");
    EXPECT_EQ(again, first);
    EXPECT_EQ(frame.ActiveChild(), first);
    EXPECT_EQ(frame.Children().size(), 2);
    EXPECT_TRUE(desktop.prompter.asked().empty()); // no lock question from our own lock
}

TEST_F(MainFrame, AMissingFileIsNamedInTheMessage) {
    CMainFrame& frame = MakeFrame();
    EXPECT_EQ(frame.Documents().OpenDocumentFile(ProjectPath("Fehlt.VT5")), nullptr);
    ASSERT_EQ(desktop.prompter.asked().size(), 1u);
    EXPECT_NE(desktop.prompter.asked()[0].text.find("Fehlt.VT5"), std::string::npos);
    EXPECT_NE(desktop.prompter.asked()[0].text.find("nicht gefunden"), std::string::npos);
    EXPECT_TRUE(frame.Children().isEmpty());
}

TEST_F(MainFrame, AnUnreadableFileIsReportedAndNothingOpens) {
    const QString path = ProjectPath("Kaputt.VT5");
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("\x01\x02\x03", 3); // ends in the middle of the header
    file.close();
    CMainFrame& frame = MakeFrame();
    EXPECT_EQ(frame.Documents().OpenDocumentFile(path), nullptr);
    EXPECT_TRUE(frame.Children().isEmpty());
    ASSERT_FALSE(desktop.prompter.asked().empty());
    EXPECT_NE(desktop.prompter.asked().back().text.find("Kaputt.VT5"), std::string::npos);
}

TEST_F(MainFrame, TheOpenCommandOpensWhatTheDialogChose) {
    const QString path = ProjectPath("Gewaehlt.vt5"); // lower case on a case-sensitive system
    WriteProject(path);
    CMainFrame& frame = MakeFrame();
    desktop.ChooseFiles({QString(), path});
    frame.Router().Execute(cmd::FileOpen); // cancelled
    EXPECT_TRUE(frame.Children().isEmpty());
    frame.Router().Execute(cmd::FileOpen);
    ASSERT_EQ(frame.Children().size(), 1);
    EXPECT_EQ(frame.ActiveChild()->GetDocument().GetTitle(), "Gewaehlt.vt5");
}

TEST_F(MainFrame, DroppedFilesAreOpened) {
    const QString path = ProjectPath("Gezogen.VT5");
    WriteProject(path);
    CMainFrame& frame = MakeFrame();
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(path), QUrl("https://example.org/x.VT5")});
    QDragEnterEvent enter(QPoint(10, 10), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&frame, &enter);
    EXPECT_TRUE(enter.isAccepted());
    QDropEvent drop(QPointF(10, 10), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&frame, &drop);
    ASSERT_EQ(frame.Children().size(), 1);
    EXPECT_EQ(frame.ActiveChild()->GetDocument().GetTitle(), "Gezogen.VT5");
}

// ---- Recent files ----

TEST_F(MainFrame, TheRecentListKeepsTheFourLastFilesNewestFirst) {
    CMainFrame& frame = MakeFrame();
    QStringList paths;
    for (const char* name : {"A.VT5", "B.VT5", "C.VT5", "D.VT5", "E.VT5"}) {
        paths.append(ProjectPath(name));
        WriteProject(paths.back());
        ASSERT_TRUE(frame.Documents().OpenDocumentFile(paths.back()));
    }
    EXPECT_EQ(recent->Files(), QStringList({paths[4], paths[3], paths[2], paths[1]}));
    frame.Documents().OpenDocumentFile(paths[2]); // open already: activated, and moved to the top
    EXPECT_EQ(recent->Files()[0], paths[2]);

    QSettings stored("Local AppWizard-Generated Applications", "Velto");
    stored.beginGroup("Recent File List");
    EXPECT_EQ(stored.value("File1").toString(), paths[2]);
    EXPECT_EQ(stored.value("File4").toString(), paths[1]);
    EXPECT_FALSE(stored.contains("File5"));
    EXPECT_EQ(RecentFileList().Files(), recent->Files());
}

TEST_F(MainFrame, ARecentFileIsOpenedFromTheMenuAndDroppedWhenItIsGone) {
    const QString kept = ProjectPath("Bleibt.VT5"), gone = ProjectPath("Weg.VT5");
    WriteProject(kept);
    WriteProject(gone);
    recent->Add(kept);
    recent->Add(gone);
    QFile::remove(gone);
    CMainFrame& frame = MakeFrame();
    frame.OnIdle();
    EXPECT_TRUE(frame.Action(cmd::FileMru1 + 1)->isEnabled());
    EXPECT_FALSE(frame.Action(cmd::FileMru1 + 2)->isEnabled());

    QMenu* fileMenu = frame.menuBar()->actions().first()->menu();
    emit fileMenu->aboutToShow();
    EXPECT_EQ(frame.Action(cmd::FileMru1)->text(), "&1 " + QDir::toNativeSeparators(gone));
    EXPECT_TRUE(frame.Action(cmd::FileMru1 + 1)->isVisible());
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
    EXPECT_TRUE(desktop.started.isEmpty());
    EXPECT_TRUE(desktop.opened.isEmpty());

    QDir().mkpath(desktop.ProgramDir());
    for (const char* name : {"VT4_VT5", "Velto.pdf"}) {
        QFile file(QDir(desktop.ProgramDir()).filePath(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    }
    frame.Router().Execute(cmd::ImportVt4);
    frame.Router().Execute(cmd::Manual);
    EXPECT_EQ(desktop.started, QStringList({QDir(desktop.ProgramDir()).filePath("VT4_VT5")}));
    EXPECT_EQ(desktop.opened, QStringList({QDir(desktop.ProgramDir()).filePath("Velto.pdf")}));
    EXPECT_EQ(desktop.prompter.asked().size(), 2u);
}
