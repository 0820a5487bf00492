// The alarm of a project view on a fixed clock: the minute check, the three buttons, and the alarm
// window while its node is sorted, deleted, undone or the project closes.
#include "base/CommandIds.h"
#include "base/ShellState.h"
#include "dialogs/CAlarmDlg.h"
#include "gui/chart/ChartTestSupport.h"
#include "outline/NodeClipboard.h"
#include "view/AlarmBell.h"
#include "view/CVeltoView.h"

#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <QTimer>

namespace velto {

using namespace charttest;

namespace {

class CountingBell : public AlarmBell {
public:
    void Ring() override { ++rings; }
    void Notify(const QString& title, const QString& text, std::function<void()>) override {
        notes << title + " / " + text;
    }
    void Withdraw() override { ++withdrawn; }

    int rings = 0;
    QStringList notes;
    int withdrawn = 0;
};

class Alarm : public ::testing::Test {
protected:
    Alarm() : doc(prompter) {
        doc.OnNewDocument();
        FreeNodeList(doc.m_pFirstNode);
        doc.m_pFirstNode = BuildList({{0, kKindProject, "R"},
                                      {1, kKindProject, "P"},
                                      {2, kKindTask, "t1"},
                                      {2, kKindTask, "t2"},
                                      {1, kKindTask, "T"}});
        doc.SetModifiedFlag(false);
        MakeView();
    }
    ~Alarm() override { NodeClipboard::Instance().Clear(); }

    void MakeView() {
        view = std::make_unique<CVeltoView>(doc, shell);
        auto counting = std::make_unique<CountingBell>();
        bell = counting.get();
        view->SetAlarmBell(std::move(counting));
        view->SetClock([this] { return now; });
    }
    // One tick of the minute timer.
    void Tick() {
        ASSERT_TRUE(QMetaObject::invokeMethod(view->findChild<QTimer*>("minuteTimer"), "timeout"));
    }
    // The alarm window, or null when none is open.
    CAlarmDlg* Window() {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        return view->findChild<CAlarmDlg*>();
    }
    QString AlarmText() { return Window()->findChild<QLabel*>("alarmText")->text(); }
    QComboBox* Snooze() { return Window()->findChild<QComboBox*>("snooze"); }
    void Press(const char* label) {
        for (QPushButton* button : Window()->findChildren<QPushButton*>())
            if (button->text() == QString::fromUtf8(label))
                return QTest::mouseClick(button, Qt::LeftButton);
        ADD_FAILURE() << "no button " << label;
    }
    CProjectNode* Node(const std::string& title) { return Find(doc.m_pFirstNode, title); }
    void Select(const std::string& title) { SelectOnly(doc.m_pFirstNode, Node(title)); }

    ScriptedPrompter prompter;
    CVeltoDoc doc;
    ShellState shell;
    CTime now = Today();
    std::unique_ptr<CVeltoView> view;
    CountingBell* bell = nullptr;
};

TEST_F(Alarm, TheMinuteCheckRaisesTheLastDueReminderAndNoSecondAlarmWhileOneIsOpen) {
    doc.m_bReadOnly = true; // a read-only project alarms too
    QTimer* timer = view->findChild<QTimer*>("minuteTimer");
    EXPECT_FALSE(timer->isActive()) << "not before the view is first sized";
    view->show();
    EXPECT_TRUE(timer->isActive());

    Node("t1")->m_timeReminder = now + 30;
    Tick();
    EXPECT_EQ(Window(), nullptr) << "not yet due";
    now = now + 60;
    Node("T")->m_timeReminder = now - 600;
    Node("t2")->m_timeReminder = now + 1;
    Tick();
    ASSERT_TRUE(Window());
    EXPECT_TRUE(Window()->isVisible());
    EXPECT_EQ(AlarmText(), "T") << "the last due node of the tick";
    EXPECT_EQ(Window()->windowTitle(), "Erinnerung im Projekt: Unbenannt");
    EXPECT_EQ(Snooze()->currentText(), "5 Minuten");
    EXPECT_FALSE(Window()->findChild<QLabel*>("icon")->pixmap().isNull());
    EXPECT_EQ(bell->rings, 1);
    EXPECT_EQ(bell->notes, QStringList{"Erinnerung im Projekt: Unbenannt / T"})
        << "no window of Velto is active";

    now = now + 60;
    Tick();
    EXPECT_EQ(AlarmText(), "T");
    EXPECT_EQ(bell->rings, 1) << "one alarm at a time";

    Press("Schließen");
    EXPECT_TRUE(Node("T")->m_timeReminder.IsNull());
    EXPECT_TRUE(doc.IsModified()) << "as for any change, read-only or not";
    EXPECT_EQ(Window(), nullptr);
    EXPECT_EQ(bell->withdrawn, 1);
    QApplication::setActiveWindow(view.get());
    Tick();
    EXPECT_EQ(AlarmText(), "t2") << "the next due one on the next tick";
    EXPECT_EQ(bell->notes.size(), 1) << "Velto is in front";
}

TEST_F(Alarm, SnoozeAndEscapeSetNowPlusTheIntervalAndAnUnknownTextIsRefused) {
    Node("t1")->m_timeReminder = now - 120; // from now on, not from when it was due
    Tick();
    Snooze()->setCurrentText("1 Stunde");
    Press("Erneut erinnern");
    EXPECT_EQ(Node("t1")->m_timeReminder, now + 3600);
    EXPECT_TRUE(doc.IsModified());
    EXPECT_EQ(Window(), nullptr);

    now = now + 3600;
    Tick();
    Snooze()->setCurrentText("3 Wochen");
    Press("Erneut erinnern");
    EXPECT_EQ(prompter.texts(), std::vector<std::string>{"Die Erinnerungszeit 3 Wochen ist ungültig!"});
    ASSERT_TRUE(Window());
    EXPECT_TRUE(Window()->isVisible());
    EXPECT_EQ(Node("t1")->m_timeReminder, now);
    Snooze()->setCurrentIndex(1);
    QTest::keyClick(Window(), Qt::Key_Escape);
    EXPECT_EQ(Node("t1")->m_timeReminder, now + 600);
    EXPECT_EQ(Window(), nullptr);
}

TEST_F(Alarm, GoToOpensTheCollapsedBranchSelectsTheNodeAndScrollsItIntoView) {
    Node("P")->m_bExpanded = 0;
    RecomputeVisibility(doc.m_pFirstNode);
    // A window this low shows two rows above the note, so the chart has to scroll to the node.
    view->resize(600, 300);
    view->show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(view.get()));
    ASSERT_LT(view->Chart().Layout().FullyShownRows(), 4);
    Node("t2")->m_timeReminder = now;
    Tick();
    Press("Gehe zu");
    EXPECT_TRUE(Node("P")->m_bExpanded && Node("t2")->m_bVisible);
    EXPECT_TRUE(Node("t2")->m_bSelected);
    EXPECT_FALSE(Node("R")->m_bSelected);
    const int row = 3; // R P t1 above it
    const int firstRow = view->Chart().FirstRow();
    EXPECT_GT(firstRow, 0);
    EXPECT_LE(firstRow, row);
    EXPECT_LT(row, firstRow + view->Chart().Layout().FullyShownRows());
    EXPECT_TRUE(doc.IsModified());
    EXPECT_TRUE(Window()) << "the alarm stays open";

    // In a damaged list whose head is below level 0 the node has no ancestor at level 0.
    for (CProjectNode* node = doc.m_pFirstNode; node; node = node->m_pNext)
        ++node->m_nLevel;
    Node("P")->m_bExpanded = 0;
    RecomputeVisibility(doc.m_pFirstNode);
    Press("Gehe zu");
    EXPECT_EQ(prompter.texts(), std::vector<std::string>{"Alarmknoten nicht gefunden!"});
}

TEST_F(Alarm, TheWindowFollowsItsNodeThroughSortAndUndoAndGoesWithANodeDeletedOrCutAndWithTheProject) {
    Node("t2")->m_timeReminder = now;
    Tick();
    view->OnCommand(cmd::SortByDate);
    Select("t1");
    view->OnCommand(cmd::NewNode); // takes the undo copy
    view->OnCommand(cmd::EditUndo);
    ASSERT_TRUE(Window());
    Press("Schließen");
    EXPECT_TRUE(Node("t2")->m_timeReminder.IsNull()) << "the node of the list now shown";

    Node("t1")->m_timeReminder = now;
    Tick();
    Select("t1");
    prompter.Answer(PromptAnswer::Yes);
    view->OnCommand(cmd::DeleteNode);
    EXPECT_EQ(Window(), nullptr) << "gone with its node";
    EXPECT_EQ(bell->withdrawn, 2) << "once for each alarm";
    view->OnCommand(cmd::EditUndo);
    Tick();
    ASSERT_TRUE(Window());
    EXPECT_EQ(AlarmText(), "t1") << "its reminder came back with it";
    Select("t1");
    view->OnCommand(cmd::EditCut);
    EXPECT_EQ(Window(), nullptr) << "gone with its node to the clipboard";
    view->OnCommand(cmd::EditPaste);
    Tick();
    ASSERT_TRUE(Window());
    EXPECT_EQ(AlarmText(), "t1");

    QPointer<CAlarmDlg> open = Window();
    view.reset(); // the project closes
    EXPECT_TRUE(open.isNull());
}

} // namespace

} // namespace velto
