// The view's finders as the user drives them: the search dialog and "Meine Aufgaben" open at the
// view's lower right corner, typing and the buttons move the selection, open its ancestors and scroll
// the chart, the indicators show the parts, and neither dialog is thrown by a node that goes away.
#include "base/CommandIds.h"
#include "base/ShellState.h"
#include "dialogs/CMyTasksDlg.h"
#include "dialogs/CSearchDlg.h"
#include "gui/chart/ChartTestSupport.h"
#include "view/CVeltoView.h"
#include "view/NodeFinders.h"

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTest>

namespace velto {

using namespace charttest;

namespace {

// The indicators in the order of the parts.
const std::vector<std::string> kIndicators{"inTitle", "inNote", "inHours", "inCalculatedCosts",
                                           "inNeededCosts"};

class Finders : public ::testing::Test {
protected:
    Finders() : doc(prompter) {
        doc.OnNewDocument();
        FreeNodeList(doc.m_pFirstNode);
        doc.m_pFirstNode = BuildList({{0, kKindProject, "R"},
                                      {1, kKindTask, "Anfang"},
                                      {1, kKindProject, "P"},
                                      {2, kKindTask, "Bericht"},
                                      {2, kKindTask, "Bericht"},
                                      {1, kKindTask, "Ende"}});
        AppendCopies(Node("Anfang"), 40); // enough rows to scroll
        Node("P")->m_bExpanded = 0;
        RecomputeVisibility(doc.m_pFirstNode);
        view = std::make_unique<CVeltoView>(doc, shell);
        view->resize(900, 300);
        view->show();
    }

    CProjectNode* Node(const std::string& title) { return Find(doc.m_pFirstNode, title); }
    CProjectNode* Selected() { return CurrentNode(doc.m_pFirstNode); }
    void Select(CProjectNode* node) { SelectOnly(doc.m_pFirstNode, node); }
    CSearchDlg& OpenSearch() {
        view->OnCommand(cmd::FindText);
        return *view->Finders().SearchDialog();
    }
    CMyTasksDlg& OpenMyTasks() {
        view->OnCommand(cmd::MyTasks);
        return *view->Finders().MyTasksDialog();
    }
    static void Type(QDialog& dialog, const QString& text) {
        QTest::keyClicks(dialog.findChild<QLineEdit*>("text"), text);
    }
    static void Press(QDialog& dialog, const char* button) {
        QTest::mouseClick(dialog.findChild<QPushButton*>(button), Qt::LeftButton);
    }
    static std::vector<std::string> Shown(const QDialog& dialog) {
        std::vector<std::string> shown;
        for (const std::string& name : kIndicators)
            if (!dialog.findChild<QLabel*>(QString::fromStdString(name))->isHidden())
                shown.emplace_back(name);
        return shown;
    }
    static std::vector<QString> Rows(const QDialog& dialog, const char* list) {
        std::vector<QString> rows;
        const auto* widget = dialog.findChild<QListWidget*>(list);
        for (int i = 0; i < widget->count(); ++i)
            rows.push_back(widget->item(i)->text());
        return rows;
    }
    static void Choose(QDialog& dialog, const char* list, int row) {
        auto* widget = dialog.findChild<QListWidget*>(list);
        QTest::mouseClick(widget->viewport(), Qt::LeftButton, {},
                          widget->visualItemRect(widget->item(row)).center());
    }

    ScriptedPrompter prompter;
    CVeltoDoc doc;
    ShellState shell;
    std::unique_ptr<CVeltoView> view;
};

void ExpectAtLowerRight(const QWidget& dialog, const QWidget& view) {
    EXPECT_EQ(dialog.frameGeometry().bottomRight() + QPoint(1, 1),
              view.mapToGlobal(QPoint(view.width(), view.height())));
}

TEST_F(Finders, TypingSearchesFromTheThirdCharacterAndAHitIsOpenedAndScrolledTo) {
    CSearchDlg& search = OpenSearch();
    EXPECT_EQ(search.windowTitle(), "Suchen in: Unbenannt");
    ExpectAtLowerRight(search, *view);
    CProjectNode* second = Node("Bericht")->m_pNext;
    second->m_pHours = {{CTime(1), CTime(1), CTime(1), "", "Bericht schreiben"}};
    Node("Ende")->m_strTitle = "Ende der Berichte";
    Type(search, "be");
    EXPECT_EQ(Selected(), doc.m_pFirstNode) << "two characters move nothing";
    EXPECT_TRUE(Shown(search).empty());
    Type(search, "r");
    EXPECT_EQ(Selected(), Node("Bericht"));
    EXPECT_TRUE(Node("P")->m_bExpanded) << "the hit's ancestors are opened";
    EXPECT_GT(view->Chart().FirstRow(), 0) << "and its row scrolled into view";
    EXPECT_EQ(Shown(search), (std::vector<std::string>{"inTitle"}));
    Type(search, "i");
    EXPECT_EQ(Selected(), Node("Bericht")) << "the next character searches from the hit itself";

    Press(search, "forward");
    EXPECT_EQ(Selected(), second);
    EXPECT_EQ(Shown(search), (std::vector<std::string>{"inTitle", "inHours"}));
    Press(search, "backward");
    EXPECT_EQ(Selected(), Node("Bericht")) << "back up, not on down to the end";
    search.findChild<QCheckBox*>("matchCase")->setChecked(true);
    Press(search, "forward");
    EXPECT_EQ(Selected(), Node("Bericht")) << "no lower-case \"beri\" anywhere: nothing moves";
    EXPECT_TRUE(Shown(search).empty());

    search.findChild<QLineEdit*>("text")->setText(QString::fromUtf8("Ber→"));
    EXPECT_EQ(Selected(), Node("Bericht")) << "a text no project can hold finds nothing";
    EXPECT_TRUE(prompter.asked().empty());
}

TEST_F(Finders, EachPartHasAnIndicatorOfItsOwn) {
    CSearchDlg& search = OpenSearch();
    for (int part = 0; part < kSearchPartCount; ++part) {
        search.ShowParts(1u << part);
        EXPECT_EQ(Shown(search), std::vector<std::string>{kIndicators[size_t(part)]});
    }
}

TEST_F(Finders, SearchingOnAfterTheFoundNodeWasDeletedOrUndone) {
    CSearchDlg& search = OpenSearch();
    Type(search, "ende");
    ASSERT_EQ(Selected(), Node("Ende"));
    prompter.Answer(PromptAnswer::Yes);
    view->OnCommand(cmd::DeleteNode);
    Press(search, "forward");
    EXPECT_NE(Selected()->m_strTitle, "Ende");
    EXPECT_TRUE(Shown(search).empty());
    view->OnCommand(cmd::EditUndo);
    Select(doc.m_pFirstNode);
    Press(search, "backward");
    EXPECT_EQ(Selected()->m_strTitle, "Ende") << "round the start to the node the undo brought back";
}

TEST_F(Finders, MyTasksListsPersonsOnceAndTellsNodesOfOneTitleApartByPosition) {
    CProjectNode* first = Node("Bericht");
    CProjectNode* second = first->m_pNext;
    for (CProjectNode* node : {first, second, Node("Ende")})
        node->m_strResponsible = "Ute \xAB\xBB UT";
    Node("Anfang")->m_strResponsible = "anna";
    CMyTasksDlg& tasks = OpenMyTasks();
    EXPECT_EQ(tasks.windowTitle(), "Meine Aufgaben in: Unbenannt");
    ExpectAtLowerRight(tasks, *view);
    EXPECT_EQ(Rows(tasks, "persons"), (std::vector<QString>{"anna", QString::fromUtf8("Ute «» UT")}));

    Press(tasks, "goTo");
    EXPECT_EQ(prompter.texts(), (std::vector<std::string>{"Kein Eintrag ausgewählt!"}));
    Choose(tasks, "persons", 1);
    EXPECT_EQ(Rows(tasks, "tasks"), (std::vector<QString>{"Bericht", "Bericht", "Ende"}));
    Choose(tasks, "tasks", 1);
    Press(tasks, "goTo");
    EXPECT_EQ(Selected(), second);
    EXPECT_TRUE(Node("P")->m_bExpanded);

    SelectOnly(doc.m_pFirstNode, nullptr);
    Press(tasks, "goTo");
    EXPECT_EQ(prompter.texts().back(), "Fehler: CVeltoView::OnMeineAufgabenAuswaehlen() ");
}

TEST_F(Finders, MyTasksFollowsDeletionAndUndoAndNeverGoesToAGoneNode) {
    Node("Ende")->m_strResponsible = "Ute";
    Node("Anfang")->m_strResponsible = "Ute";
    CMyTasksDlg& tasks = OpenMyTasks();
    Choose(tasks, "persons", 0);
    Choose(tasks, "tasks", 1);
    Select(Node("Ende"));
    prompter.Answer(PromptAnswer::Yes);
    view->OnCommand(cmd::DeleteNode);
    QCoreApplication::sendPostedEvents();
    EXPECT_EQ(Rows(tasks, "tasks"), (std::vector<QString>{"Anfang"}));
    EXPECT_EQ(tasks.ChosenNode(), nullptr);
    Press(tasks, "goTo");
    EXPECT_EQ(prompter.texts().back(), "Kein Eintrag ausgewählt!");

    view->OnCommand(cmd::EditUndo);
    QCoreApplication::sendPostedEvents();
    EXPECT_EQ(Rows(tasks, "tasks"), (std::vector<QString>{"Anfang", "Ende"}));
    Choose(tasks, "tasks", 1);
    Select(doc.m_pFirstNode);
    Press(tasks, "goTo");
    EXPECT_EQ(Selected()->m_strTitle, "Ende");
    view.reset(); // closing the project takes both dialogs with it
}

} // namespace

} // namespace velto
