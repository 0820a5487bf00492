// The chart's cut, copy and paste: undo copy, modified flag, system clipboard, the note pane's turn.
#include "ChartTestSupport.h"
#include "outline/NodeClipboard.h"

#include <QClipboard>
#include <QGuiApplication>

namespace velto {

using namespace charttest;

namespace {

class CGrafikClipboard : public ChartFixture {
protected:
    void SetUp() override {
        NodeClipboard::Instance().Clear();
        Load({{0, kKindProject, "R"},
              {1, kKindProject, "A"},
              {2, kKindProject, "B"},
              {3, kKindTask,
               "Gr\xF6\xDF"
               "e \x80"},
              {1, kKindTask, "T"}});
    }
    void TearDown() override { NodeClipboard::Instance().Clear(); }
    QString SystemClipboard() { return QGuiApplication::clipboard()->text(); }
};

TEST_F(CGrafikClipboard, ACutTakesTheUndoCopyAndIsPastedOnce) {
    Select("B");
    chart.OnEditCut();
    EXPECT_EQ(Outline(First()), "0:R 1:A 1:T");
    EXPECT_EQ(host.requests, std::vector<std::string>{"undo copy"});
    EXPECT_TRUE(host.doc.IsModified());
    EXPECT_EQ(SystemClipboard(), QString::fromUtf8("B\n\tGröße €"));

    Select("T");
    chart.OnEditPaste();
    EXPECT_EQ(Outline(First()), "0:R 1:A 1:B 2:Gr\xF6\xDF"
                                "e \x80 1:T");
    chart.OnEditPaste();
    EXPECT_EQ(host.prompter.texts(), std::vector<std::string>{"Zwischenablage ist leer!"});
    EXPECT_EQ(host.requests.size(), 2u) << "no undo copy for a paste that does nothing";
}

TEST_F(CGrafikClipboard, ACopyChangesNothingAndAnotherProjectsChartPastesIt) {
    Select("A");
    chart.OnEditCopy();
    EXPECT_TRUE(host.requests.empty());
    EXPECT_FALSE(host.doc.IsModified());
    EXPECT_EQ(SystemClipboard(), QString::fromUtf8("A\n\tB\n\t\tGröße €"));

    TestHost other;
    other.doc.m_pFirstNode = BuildList({{0, kKindProject, "Zweites"}, {1, kKindTask, "x"}});
    CGrafik otherChart;
    otherChart.SetHost(&other);
    SelectOnly(other.doc.m_pFirstNode, other.doc.m_pFirstNode->m_pNext);
    otherChart.OnEditPaste();
    EXPECT_EQ(Outline(other.doc.m_pFirstNode), "0:Zweites 1:A 2:B 3:Gr\xF6\xDF"
                                               "e \x80 1:x");
}

TEST_F(CGrafikClipboard, TheFirstNodeCannotBeCutAndPasteDefersToAFocusedNotePane) {
    const std::string before = Outline(First());
    chart.OnEditCut();
    EXPECT_EQ(host.prompter.texts(),
              std::vector<std::string>{"Erster Knoten kann nicht ausgeschnitten werden!"});
    EXPECT_TRUE(NodeClipboard::Instance().IsEmpty());
    Select("T");
    chart.OnEditCopy();
    host.notePaneFocused = true;
    chart.OnEditPaste();
    EXPECT_EQ(host.notePastes, 1);
    EXPECT_TRUE(host.requests.empty());
    EXPECT_EQ(Outline(First()), before);
}

} // namespace

} // namespace velto
