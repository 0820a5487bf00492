// The command chain (view, document, frame), its update handlers, and the command table behind the menus.
#include "ShellTestSupport.h"

#include "base/CommandIds.h"
#include "base/CommandRouter.h"
#include "base/CommandTable.h"

#include <QLabel>

#include <set>

namespace velto {

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
    RecordingTarget view{{1, 2, 5}, {5}};
    RecordingTarget doc{{2, 3}};
    RecordingTarget frame{{1, 2, 3, 4, 5}, {4}};
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

TEST(CommandRouter, TheFirstTargetThatKnowsACommandTakesItUnlessItHasItDisabled) {
    Chain c;
    for (int id : {1, 2, 3})
        EXPECT_TRUE(c.router.Execute(id)) << id;
    for (int id : {4, 5, 99}) { // disabled in the frame, disabled in the view, known to nobody
        EXPECT_FALSE(c.router.Execute(id)) << id;
        EXPECT_FALSE(c.router.Query(id).enabled) << id;
    }
    EXPECT_EQ(c.view.ran, (std::vector<int>{1, 2}));
    EXPECT_EQ(c.doc.ran, (std::vector<int>{3}));
    EXPECT_TRUE(c.frame.ran.empty()) << "nothing falls through";
    c.withView = false;
    EXPECT_TRUE(c.router.Execute(1));
    EXPECT_EQ(c.frame.ran, (std::vector<int>{1}));
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
    EXPECT_TRUE(known.isEnabled() && known.isChecked());
    EXPECT_FALSE(unknown.isEnabled());
    c.view.checked = false;
    QMenu menu;
    menu.addAction(&known);
    c.router.UpdateBeforeShow(&menu);
    emit menu.aboutToShow();
    EXPECT_FALSE(known.isChecked());
    known.trigger();
    EXPECT_EQ(c.view.ran, (std::vector<int>{1}));
    auto* deleted = new QAction;
    c.router.Bind(deleted, 1);
    delete deleted;
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

using ShellRouting = ShellTest;

TEST_F(ShellRouting, TheViewTakesItsCommandsOnceAProjectIsOpenAndTheFrameTheRest) {
    CMainFrame& frame = MakeFrame();
    CommandRouter& router = frame.Router();
    int settingsOpened = 0;
    frame.SetCommandHandler(cmd::SettingsNoDoc, [&] { ++settingsOpened; });
    for (int id : {cmd::FileSave, cmd::FileClose, cmd::WindowCascade, cmd::Holidays, cmd::NewNode})
        EXPECT_FALSE(router.Query(id).enabled) << id;
    router.Execute(cmd::SettingsNoDoc); // without a project 32791 is the settings
    EXPECT_EQ(settingsOpened, 1);
    frame.OnIdle();
    EXPECT_TRUE(frame.StatusPane().text().isEmpty());
    frame.Documents().NewDocument();
    frame.OnIdle();
    for (int id : {cmd::NewNode, cmd::SortByDate, cmd::FileSave, cmd::WindowCascade, cmd::MindMapMode})
        EXPECT_TRUE(frame.Action(id)->isEnabled()) << id;
    EXPECT_FALSE(frame.Action(cmd::EditUndo)->isEnabled());
    EXPECT_TRUE(frame.StatusPane().text().startsWith("Erstellt: ")) << "the node info of the project";
    router.Execute(cmd::SettingsNoDoc); // now the note's bold: the settings must not open
    EXPECT_EQ(settingsOpened, 1);
}

TEST_F(ShellRouting, ShortcutsBelongToTheMainWindowWhicheverMenuSetIsShown) {
    CMainFrame& frame = MakeFrame();
    for (const CommandInfo& info : CommandTable()) {
        if (info.keys.isEmpty())
            continue;
        QAction* action = frame.Action(info.id);
        EXPECT_EQ(action->shortcuts(), info.keys) << info.id;
        EXPECT_EQ(action->shortcutContext(), Qt::WindowShortcut);
        EXPECT_TRUE(frame.actions().contains(action)) << info.id;
    }
}

} // namespace velto
