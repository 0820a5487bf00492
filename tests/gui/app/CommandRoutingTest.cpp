// The command chain (view, document, frame), the update handlers, and the command table behind the
// menus: every menu item has its label, and no shortcut is given to two commands.
#include "ShellTestSupport.h"

#include "base/CommandIds.h"
#include "base/CommandRouter.h"
#include "base/CommandTable.h"
#include "view/CVeltoView.h"

#include <QAction>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QToolBar>

#include <functional>
#include <set>

namespace {
// A target that knows a fixed set of commands and records what it ran.
class RecordingTarget : public CommandTarget {
public:
    RecordingTarget(std::set<int> known, std::set<int> disabled = {})
        : m_known(std::move(known)), m_disabled(std::move(disabled)) {}
    bool OnUpdateCommand(int id, CommandState& state) override {
        if (!m_known.contains(id))
            return false;
        state.enabled = !m_disabled.contains(id);
        state.checked = checked;
        return true;
    }
    bool OnCommand(int id) override {
        ran.push_back(id);
        return true;
    }
    std::vector<int> ran;
    bool checked = false;

private:
    std::set<int> m_known;
    std::set<int> m_disabled;
};

struct Chain {
    RecordingTarget view{{1, 2}};
    RecordingTarget doc{{2, 3}};
    RecordingTarget frame{{1, 2, 3, 4}, {4}};
    bool withView = true;
    CommandRouter router{[this] {
        std::vector<CommandTarget*> chain;
        if (withView)
            chain = {&view, &doc};
        chain.push_back(&frame);
        return chain;
    }};
};
} // namespace

TEST(CommandRouter, TheFirstTargetThatKnowsACommandTakesIt) {
    Chain c;
    EXPECT_TRUE(c.router.Execute(1));
    EXPECT_TRUE(c.router.Execute(2));
    EXPECT_TRUE(c.router.Execute(3));
    EXPECT_EQ(c.view.ran, (std::vector<int>{1, 2}));
    EXPECT_EQ(c.doc.ran, (std::vector<int>{3}));
    EXPECT_TRUE(c.frame.ran.empty());

    c.withView = false;
    EXPECT_TRUE(c.router.Execute(1));
    EXPECT_EQ(c.frame.ran, (std::vector<int>{1}));
}

TEST(CommandRouter, ADisabledCommandDoesNotRunNorFallThrough) {
    Chain c;
    EXPECT_FALSE(c.router.Execute(4));  // the frame has it disabled
    EXPECT_FALSE(c.router.Execute(99)); // nobody knows it
    EXPECT_TRUE(c.frame.ran.empty());
    EXPECT_FALSE(c.router.Query(4).enabled);
    EXPECT_FALSE(c.router.Query(99).enabled);
}

TEST(CommandRouter, ActionsFollowTheUpdateHandlersAndRouteWhenTriggered) {
    Chain c;
    QWidget owner;
    QAction known(&owner), unknown(&owner);
    known.setCheckable(true);
    c.router.Bind(&known, 1);
    c.router.Bind(&unknown, 99);
    c.view.checked = true;
    c.router.UpdateAll();
    EXPECT_TRUE(known.isEnabled());
    EXPECT_TRUE(known.isChecked());
    EXPECT_FALSE(unknown.isEnabled());

    c.view.checked = false;
    QMenu menu;
    menu.addAction(&known);
    c.router.UpdateBeforeShow(&menu);
    emit menu.aboutToShow();
    EXPECT_FALSE(known.isChecked());

    known.trigger();
    EXPECT_EQ(c.view.ran, (std::vector<int>{1}));
}

TEST(CommandRouter, ADeletedActionIsForgotten) {
    Chain c;
    auto* action = new QAction;
    c.router.Bind(action, 1);
    delete action;
    c.router.UpdateAll(); // must not touch the deleted action
}

TEST(CommandTable, EveryMenuAndToolbarCommandHasAnEntryAndNoKeyIsTakenTwice) {
    std::set<int> ids;
    std::map<QString, int> keyOwner;
    for (const CommandInfo& info : CommandTable()) {
        EXPECT_TRUE(ids.insert(info.id).second) << "twice in the table: " << info.id;
        EXPECT_TRUE(QString::fromUtf8(info.prompt).contains('\n')) << info.id << " has no tool tip";
        for (const QKeySequence& key : info.keys) {
            const auto [it, fresh] = keyOwner.emplace(key.toString(), info.id);
            EXPECT_TRUE(fresh) << key.toString().toStdString() << " belongs to " << it->second << " and "
                               << info.id;
        }
    }
    for (MenuSet set : {MenuSet::NoDocument, MenuSet::Timeline, MenuSet::MindMap})
        for (int id : ToolbarCommands(set))
            EXPECT_TRUE(id == 0 || FindCommand(id)) << id;
}

// ---- The chain of the running program ----

namespace {
// A view whose note-bold command works, as it will once the note pane is there.
class BoldView : public CVeltoView {
public:
    using CVeltoView::CVeltoView;
    bool OnUpdateCommand(int id, CommandState& state) override {
        if (id != cmd::NoteBold)
            return CVeltoView::OnUpdateCommand(id, state);
        state.checked = bold;
        return true;
    }
    bool OnCommand(int id) override {
        if (id != cmd::NoteBold)
            return CVeltoView::OnCommand(id);
        bold = !bold;
        return true;
    }
    bool bold = false;
};

QAction* FindByText(QMenuBar* bar, const QString& text) {
    for (QAction* action : AllMenuActions(bar))
        if (action->text() == text)
            return action;
    return nullptr;
}
} // namespace

using ShellRouting = ShellTest;

TEST_F(ShellRouting, Command32791IsSettingsWithoutAViewAndBoldWithOne) {
    CMainFrame& frame = MakeFrame();
    int settingsOpened = 0;
    frame.SetCommandHandler(cmd::SettingsNoDoc, [&] { ++settingsOpened; });

    // Without a project the menu shows 32791 as the settings.
    QAction* settingsItem = FindByText(frame.menuBar(), QString::fromUtf8("E&instellungen..."));
    ASSERT_TRUE(settingsItem);
    EXPECT_TRUE(settingsItem->isEnabled());
    settingsItem->trigger();
    EXPECT_EQ(settingsOpened, 1);

    BoldView* view = nullptr;
    frame.SetViewFactory(
        [&](CVeltoDoc& doc, const ShellState& state) { return view = new BoldView(doc, state); });
    ASSERT_TRUE(frame.NewDocument());
    ASSERT_TRUE(view);
    EXPECT_TRUE(frame.Router().Execute(cmd::NoteBold));
    EXPECT_TRUE(view->bold);
    EXPECT_EQ(settingsOpened, 1);
    frame.Router().UpdateAll();
    EXPECT_TRUE(frame.Action(cmd::NoteBold)->isChecked());
}

TEST_F(ShellRouting, TheViewRunsTheNodeCommandsAndLeavesTheRestToTheFrame) {
    CMainFrame& frame = MakeFrame();
    int settingsOpened = 0;
    frame.SetCommandHandler(cmd::SettingsNoDoc, [&] { ++settingsOpened; });
    frame.NewDocument();
    CommandRouter& router = frame.Router();
    for (int id : {cmd::NewNode, cmd::EditCopy, cmd::SortByDate, cmd::ZoomIn})
        EXPECT_TRUE(router.Query(id).enabled) << id;
    for (int id : {cmd::EditUndo, cmd::FilePrint, cmd::FindText})
        EXPECT_FALSE(router.Query(id).enabled) << id;
    for (int id :
         {cmd::FileSave, cmd::FileSaveAs, cmd::FileClose, cmd::FileNew, cmd::Manual, cmd::MindMapMode})
        EXPECT_TRUE(router.Query(id).enabled) << id;
    // 32791 is the view's while a project is open: the settings of the frame must not open.
    router.Execute(cmd::SettingsNoDoc);
    EXPECT_EQ(settingsOpened, 0);
}

TEST_F(ShellRouting, DocumentCommandsNeedAProjectAndDialogsNeedTheirHandler) {
    CMainFrame& frame = MakeFrame();
    CommandRouter& router = frame.Router();
    for (int id :
         {cmd::FileSave, cmd::FileSaveAs, cmd::FileClose, cmd::WindowCascade, cmd::Holidays, cmd::Assignees})
        EXPECT_FALSE(router.Query(id).enabled) << id;
    frame.SetCommandHandler(cmd::Assignees, [] {});
    EXPECT_TRUE(router.Query(cmd::Assignees).enabled);
    frame.NewDocument();
    EXPECT_TRUE(router.Query(cmd::FileSave).enabled);
    EXPECT_TRUE(router.Query(cmd::WindowCascade).enabled);
}

TEST_F(ShellRouting, EveryMenuItemOfEachSetIsBoundLabelledAndExplained) {
    CMainFrame& frame = MakeFrame();
    const auto check = [&] {
        for (QAction* action : AllMenuActions(frame.menuBar())) {
            if (!action->isVisible() || action->objectName() == "Fensterliste")
                continue; // recent-file entries without a file; the list of project windows
            const std::string text = action->text().toStdString();
            EXPECT_TRUE(action->data().isValid()) << text;
            EXPECT_FALSE(text.empty());
            if (frame.Action(action->data().toInt()) == action) { // recent files have only a file name
                EXPECT_FALSE(action->statusTip().isEmpty()) << text;
            }
        }
    };
    check();
    frame.NewDocument();
    check();
    frame.Router().Execute(cmd::MindMapMode);
    check();
}

TEST_F(ShellRouting, ChecksFollowTheBarsAndTheNoteToolbarFlag) {
    CMainFrame& frame = MakeFrame();
    CommandRouter& router = frame.Router();
    EXPECT_TRUE(router.Query(cmd::ViewToolbar).checked);
    EXPECT_TRUE(router.Query(cmd::NoteToolbar).checked);
    router.Execute(cmd::ViewToolbar);
    router.Execute(cmd::ViewStatusBar);
    router.Execute(cmd::NoteToolbar);
    EXPECT_TRUE(frame.ToolBar().isHidden());
    EXPECT_FALSE(router.Query(cmd::ViewToolbar).checked);
    EXPECT_FALSE(router.Query(cmd::ViewStatusBar).checked);
    EXPECT_FALSE(router.Query(cmd::NoteToolbar).checked);
    EXPECT_FALSE(frame.State().noteToolbar);
}

TEST_F(ShellRouting, ShortcutsBelongToTheMainWindowWhicheverMenuIsShown) {
    CMainFrame& frame = MakeFrame();
    for (const CommandInfo& info : CommandTable()) {
        if (info.keys.isEmpty())
            continue;
        QAction* action = frame.Action(info.id);
        EXPECT_EQ(action->shortcuts(), info.keys) << info.id;
        EXPECT_EQ(action->shortcutContext(), Qt::WindowShortcut);
        EXPECT_TRUE(frame.actions().contains(action)) << info.id;
    }
    // Without a project the node shortcuts are off; with one they reach the view.
    frame.OnIdle();
    EXPECT_FALSE(frame.Action(cmd::NewNode)->isEnabled());
    frame.NewDocument();
    frame.OnIdle();
    EXPECT_TRUE(frame.Action(cmd::NewNode)->isEnabled());
    EXPECT_TRUE(frame.Action(cmd::FileNew)->isEnabled());
}

TEST_F(ShellRouting, TheStatusPaneShowsTheNodeInfoOfTheActiveProject) {
    CMainFrame& frame = MakeFrame();
    frame.OnIdle();
    EXPECT_TRUE(frame.StatusPane().text().isEmpty());
    frame.NewDocument();
    frame.OnIdle();
    EXPECT_TRUE(frame.StatusPane().text().startsWith("Erstellt: "))
        << frame.StatusPane().text().toStdString();
    EXPECT_TRUE(frame.StatusPane().text().endsWith("  |  0.00h"));
}
