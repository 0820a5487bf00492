#include "ChartTestSupport.h"
#include "outline/NodeClipboard.h"

#include <QClipboard>
#include <QGuiApplication>

using namespace charttest;

namespace {

class CGrafikClipboard : public ChartFixture {
protected:
    void SetUp() override {
        NodeClipboard::Instance().Clear();
        Load({{0, kKindProject, "R"},
              {1, kKindProject, "A"},
              {2, kKindProject, "B"},
              {3, kKindProject, "C"},
              {4, kKindTask,
               "Gr\xF6\xDF"
               "e \x80"},
              {2, kKindTask, "a2"},
              {1, kKindTask, "T"}});
    }
    void TearDown() override { NodeClipboard::Instance().Clear(); }
    std::string Selected() { return std::string(CurrentNode(First())->m_strTitle); }
    QString SystemClipboard() { return QGuiApplication::clipboard()->text(); }
};

TEST_F(CGrafikClipboard, ACutSubtreeIsPastedOnceWithItsLevelsShifted) {
    Select("C");
    chart.OnEditCut();
    EXPECT_EQ(Outline(First()), "0:R 1:A 2:B 2:a2 1:T");
    EXPECT_EQ(Selected(), "B");
    EXPECT_EQ(host.requests, std::vector<std::string>{"undo copy"});
    EXPECT_TRUE(host.doc.IsModified());
    EXPECT_EQ(SystemClipboard(), QString::fromUtf8("C\n\tGröße €"));

    Select("T");
    chart.OnEditPaste();
    EXPECT_EQ(Outline(First()), "0:R 1:A 2:B 2:a2 1:C 2:Gr\xF6\xDF"
                                "e \x80 1:T")
        << "from level 3 to level 1";
    EXPECT_EQ(Selected(), "T");
    chart.OnEditPaste();
    EXPECT_EQ(host.prompter.texts(), std::vector<std::string>{"Zwischenablage ist leer!"});
    EXPECT_EQ(host.requests.size(), 2u) << "no undo copy for a paste that does nothing";
}

TEST_F(CGrafikClipboard, ACopyLeavesTheOriginalAndPastesAsOftenAsWanted) {
    Select("B");
    chart.OnEditCopy();
    EXPECT_TRUE(host.requests.empty());
    EXPECT_FALSE(host.doc.IsModified());
    EXPECT_EQ(SystemClipboard(), QString::fromUtf8("B\n\tC\n\t\tGröße €"));
    Node("C")->m_strTitle = "D";
    Select("T");
    chart.OnEditPaste();
    chart.OnEditPaste();
    EXPECT_EQ(Outline(First()), "0:R 1:A 2:B 3:D 4:Gr\xF6\xDF"
                                "e \x80 2:a2 1:B 2:C 3:Gr\xF6\xDF"
                                "e \x80 1:B 2:C "
                                "3:Gr\xF6\xDF"
                                "e \x80 1:T");
    EXPECT_TRUE(host.prompter.texts().empty());
    int selected = 0;
    for (const CProjectNode* node = First(); node; node = node->m_pNext)
        selected += node->m_bSelected;
    EXPECT_EQ(selected, 1);
}

TEST_F(CGrafikClipboard, TheFirstNodeCannotBeCutAndPasteDefersToAFocusedNotePane) {
    chart.OnEditCut();
    EXPECT_EQ(host.prompter.texts(),
              std::vector<std::string>{"Erster Knoten kann nicht ausgeschnitten werden!"});
    EXPECT_TRUE(NodeClipboard::Instance().IsEmpty());
    Select("a2");
    chart.OnEditCopy();
    host.notePaneFocused = true;
    chart.OnEditPaste();
    EXPECT_EQ(host.notePastes, 1);
    EXPECT_FALSE(NodeClipboard::Instance().IsEmpty());
    EXPECT_TRUE(host.requests.empty());
    EXPECT_EQ(Outline(First()), "0:R 1:A 2:B 3:C 4:Gr\xF6\xDF"
                                "e \x80 2:a2 1:T");
}

TEST_F(CGrafikClipboard, OneClipboardServesEveryProject) {
    TestHost other;
    other.doc.m_pFirstNode = BuildList({{0, kKindProject, "Zweites"}, {1, kKindTask, "x"}});
    CGrafik otherChart;
    otherChart.SetHost(&other);
    Select("A");
    chart.OnEditCut();
    SelectOnly(other.doc.m_pFirstNode, other.doc.m_pFirstNode->m_pNext);
    otherChart.OnEditPaste();
    EXPECT_EQ(Outline(other.doc.m_pFirstNode), "0:Zweites 1:A 2:B 3:C 4:Gr\xF6\xDF"
                                               "e \x80 2:a2 1:x");
    EXPECT_EQ(Outline(First()), "0:R 1:T");
}

} // namespace
