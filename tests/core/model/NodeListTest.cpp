// Creating, deleting, copying, splicing and showing nodes of a project outline.
#include "model/NodeList.h"

#include "core/model/NodeListTestTree.h"
#include "support/ScriptedPrompter.h"

#include <array>
#include <climits>
#include <gtest/gtest.h>

namespace velto {

namespace {

const std::string kNote = "{\\rtf1 default}";

TEST(NodeListCreate, NewChildOfCollapsedProjectExpandsItAndGoesFirst) {
    TestTree tree{{0, "R"}, {1, "A"}, {2, "a1"}, {2, "a2"}, {1, "B"}};
    tree["A"]->m_bExpanded = 0;
    RecomputeVisibility(tree.first);
    tree.Select("A");
    ScriptedPrompter prompter;
    std::string outlineBeforeChange;
    CProjectNode* child =
        CreateChildNode(tree.first, kNote, prompter, [&] { outlineBeforeChange = Outline(tree.first); });

    ASSERT_NE(child, nullptr);
    EXPECT_TRUE(prompter.asked().empty());
    EXPECT_EQ(outlineBeforeChange, "0:R 1:A 2:a1 2:a2 1:B") << "the undo copy must see the old list";
    EXPECT_EQ(Outline(tree.first), "0:R 1:A 2:Neuer Knoten 2:a1 2:a2 1:B");
    EXPECT_EQ(Flagged(tree.first, &CProjectNode::m_bSelected), "Neuer Knoten");
    EXPECT_EQ(Flagged(tree.first, &CProjectNode::m_bVisible), "R A Neuer Knoten a1 a2 B");
    EXPECT_EQ(child->m_strNote, kNote);
}

// The title is stored in Windows-1252; the caption reaches the prompter as UTF-8.
TEST(NodeListCreate, RefusedUnderTaskNoteAndMilestoneWithTitleAsCaption) {
    for (int kind : {kKindTask, kKindNote, kKindMilestone}) {
        SCOPED_TRACE(kind);
        TestTree tree{{0, "R"}, {1, "B\xFC", kind}, {1, "C"}};
        tree.Select("B\xFC");
        ScriptedPrompter prompter;
        bool changed = false;
        EXPECT_EQ(CreateChildNode(tree.first, kNote, prompter, [&] { changed = true; }), nullptr);
        ASSERT_EQ(prompter.asked().size(), 1u);
        EXPECT_EQ(prompter.asked()[0].caption, "B\xC3\xBC");
        EXPECT_EQ(prompter.asked()[0].text, "Neue Knoten sind nur unter Projektknoten möglich.");
        EXPECT_FALSE(changed);
        EXPECT_EQ(Outline(tree.first), "0:R 1:B\xFC 1:C");
        EXPECT_EQ(Flagged(tree.first, &CProjectNode::m_bSelected), "B\xFC");
    }
}

TEST(NodeListCreate, ChildOfTheDeepestPossibleLevelDoesNotOverflow) {
    TestTree tree{{0, "R"}, {INT_MAX, "deep"}};
    tree.Select("deep");
    ScriptedPrompter prompter;
    CProjectNode* child = CreateChildNode(tree.first, kNote, prompter);
    ASSERT_NE(child, nullptr);
    EXPECT_EQ(child->m_nLevel, INT_MAX);
}

// The head is refused without a question; "No" and no selection change nothing either.
TEST(NodeListDelete, TheHeadANoOrNoSelectionLeaveTheListAlone) {
    const std::pair<const char*, std::vector<std::string>> cases[] = {
        {"R", {"Erster Knoten kann nicht gelöscht werden!"}},
        {"A", {"Möchten Sie den Knoten 'A' inkl. aller Unterknoten löschen?"}},
        {"", {}},
    };
    for (const auto& [selected, texts] : cases) {
        SCOPED_TRACE(selected);
        TestTree tree{{0, "R"}, {1, "A"}, {2, "a"}};
        SelectOnly(tree.first, *selected ? tree[selected] : nullptr);
        ScriptedPrompter prompter; // answers "No"
        bool changed = false;
        EXPECT_FALSE(DeleteCurrentNode(tree.first, prompter, [&] { changed = true; }));
        EXPECT_EQ(prompter.texts(), texts);
        EXPECT_FALSE(changed);
        EXPECT_EQ(Outline(tree.first), "0:R 1:A 2:a");
        EXPECT_EQ(Flagged(tree.first, &CProjectNode::m_bSelected), selected);
        if (!*selected) {
            EXPECT_EQ(CreateChildNode(tree.first, kNote, prompter), nullptr);
        }
    }
}

TEST(NodeListDelete, AsksWithTheTextForProjectNodesEvenChildlessAndForOtherKinds) {
    TestTree tree{{0, "R"}, {1, "Pl\xE4ne"}, {1, "t", kKindTask}};
    ScriptedPrompter prompter;
    for (const char* title : {"Pl\xE4ne", "t"}) {
        tree.Select(title);
        EXPECT_FALSE(DeleteCurrentNode(tree.first, prompter));
    }
    ASSERT_EQ(prompter.asked().size(), 2u);
    EXPECT_EQ(prompter.asked()[0].caption, "Löschen bestätigen");
    EXPECT_EQ(prompter.asked()[0].buttons, PromptButtons::YesNo);
    EXPECT_EQ(prompter.asked()[0].text, "Möchten Sie den Knoten 'Pläne' inkl. aller Unterknoten löschen?");
    EXPECT_EQ(prompter.asked()[1].text, "Möchten Sie den Knoten 't' löschen?");
}

// The run of deeper nodes goes along, however the levels jump; the nearest shown node before it
// becomes current, the head when none is shown.
TEST(NodeListDelete, RemovesTheWholeSubtreeAndSelectsTheNearestVisiblePredecessor) {
    const struct {
        std::vector<NodeSpec> specs;
        std::vector<std::string> hidden;
        const char *selected, *outline, *current;
    } cases[] = {
        {{{0, "R"}, {1, "A"}, {2, "a"}, {1, "B"}, {2, "b"}, {1, "C"}}, {"a"}, "B", "0:R 1:A 2:a 1:C", "A"},
        {{{0, "R"}, {3, "X"}, {5, "x"}, {4, "y"}, {-1, "N"}, {2, "Z"}}, {}, "X", "0:R -1:N 2:Z", "R"},
        {{{0, "R"}, {-1, "N"}, {2, "Z"}}, {}, "Z", "0:R -1:N", "N"},
        {{{0, "R"}, {1, "A"}, {1, "B"}}, {"R", "A"}, "B", "0:R 1:A", "R"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.selected);
        TestTree tree(c.specs);
        for (const std::string& title : c.hidden)
            tree[title]->m_bVisible = 0;
        tree.Select(c.selected);
        ScriptedPrompter prompter;
        prompter.Answer(PromptAnswer::Yes);
        int backups = 0;
        EXPECT_TRUE(DeleteCurrentNode(tree.first, prompter, [&] { ++backups; }));
        EXPECT_EQ(backups, 1);
        EXPECT_EQ(Outline(tree.first), c.outline);
        EXPECT_EQ(Flagged(tree.first, &CProjectNode::m_bSelected), c.current);
    }
}

TEST(NodeListCopy, ACopyIsEqualButIndependentAndARefreshFollowsTheListAsItShrinksAndGrows) {
    TestTree tree{{0, "R"}, {1, "A", kKindTask, 5000, 9000}, {1, "B"}, {2, "C"}};
    CProjectNode* a = tree["A"];
    a->m_pHours = {{CTime(1), CTime(2), CTime(3), "Max", "Bau"},
                   {CTime(4), CTime(5), CTime(6), "Eva", "Putz"}};
    a->m_pCosts = {{CTime(4), 1.5f, 2.0f, 3.0f, "K", "R"}, {CTime(5), 1.0f, 1.0f, -1.0f, "K2", "R2"}};
    a->m_pCosts2 = {{CTime(6), 7.0f, 8.0f, 56.0f, "N", "M"}};
    a->m_strNote = "{\\rtf1 Notiz}";
    tree.Select("A");

    CProjectNode* copy = DeepCopyList(tree.first);
    EXPECT_EQ(Outline(copy), "0:R 1:A 1:B 2:C");
    EXPECT_EQ(Flagged(copy, &CProjectNode::m_bSelected), "A");
    CProjectNode* copyA = copy->m_pNext;
    EXPECT_EQ(copyA->m_strNote, a->m_strNote);
    ASSERT_EQ((std::array{copyA->m_pHours.size(), copyA->m_pCosts.size(), copyA->m_pCosts2.size()}),
              (std::array<size_t, 3>{2, 2, 1}));
    copyA->m_strTitle = "changed";
    copyA->m_pCosts.Erase(1);
    EXPECT_EQ(a->m_strTitle, "A");
    EXPECT_EQ(a->m_pCosts.size(), 2u);

    // The list shrinks and its entries move: the copy follows, surplus nodes and entries go.
    std::swap(a->m_pHours, tree["B"]->m_pHours);
    a->m_pCosts = {};
    CProjectNode* c = tree["C"];
    tree["B"]->m_pNext = nullptr;
    tree.first->m_strNote = std::string(300, 'n');
    copy = RefreshListCopy(copy, tree.first);
    EXPECT_EQ(Outline(copy), "0:R 1:A 1:B");
    EXPECT_EQ(copy->m_strNote, tree.first->m_strNote);
    EXPECT_TRUE(copy->m_pNext->m_pHours.empty());
    EXPECT_TRUE(copy->m_pNext->m_pCosts.empty());
    ASSERT_EQ(copy->m_pNext->m_pNext->m_pHours.size(), 2u);
    EXPECT_EQ(copy->m_pNext->m_pNext->m_pHours[1].m_str1, "Eva");

    // It grows again beyond the old copy.
    tree["B"]->m_pNext = c;
    copy = RefreshListCopy(copy, tree.first);
    EXPECT_EQ(Outline(copy), "0:R 1:A 1:B 2:C");

    EXPECT_EQ(RefreshListCopy(copy, nullptr), nullptr) << "an empty list frees the whole copy";
    EXPECT_EQ(DeepCopyList(nullptr), nullptr);
}

std::string Spliced(const std::vector<NodeSpec>& list, const char* target,
                    const std::vector<NodeSpec>& chain) {
    TestTree tree(list);
    TestTree clipboard(chain);
    SpliceChainBefore(tree.first, tree[target], clipboard.first);
    clipboard.first = nullptr; // the list owns it now
    return Outline(tree.first);
}

TEST(NodeListSplice, ChainTakesTheTargetsLevelAndKeepsItsShapeBeforeTheHeadAndAtExtremeLevelsToo) {
    EXPECT_EQ(
        Spliced({{0, "R"}, {1, "A"}, {1, "B"}, {2, "b"}}, "B", {{3, "p"}, {4, "q"}, {5, "r"}, {3, "s"}}),
        "0:R 1:A 1:p 2:q 3:r 1:s 1:B 2:b");
    EXPECT_EQ(Spliced({{0, "R"}, {1, "A"}}, "R", {{2, "p"}, {3, "q"}}), "0:p 1:q 0:R 1:A");
    EXPECT_EQ(Spliced({{0, "R"}, {INT_MIN, "low"}}, "low", {{INT_MAX, "p"}, {0, "q"}}),
              "0:R -2147483648:p -2147483648:q -2147483648:low");
}

TEST(NodeListShow, VisibilityFollowsEveryAncestorFoundByLevelAlone) {
    TestTree tree{{0, "R"}, {1, "A"},    {2, "a"}, {3, "a1"}, {4, "a2"},
                  {1, "B"}, {3, "jump"}, {2, "b"}, {1, "C"}};
    tree["a"]->m_bExpanded = 0;
    tree["B"]->m_bExpanded = 0;
    RecomputeVisibility(tree.first);
    EXPECT_EQ(Flagged(tree.first, &CProjectNode::m_bVisible), "R A a B C") << "a2 is hidden by a, not a1";

    // Opening jump's ancestors expands B and leaves a collapsed.
    EXPECT_TRUE(ExpandAncestors(tree.first, tree["jump"]));
    EXPECT_EQ(Flagged(tree.first, &CProjectNode::m_bVisible), "R A a B jump b C");
    ExpandAncestors(tree.first, tree["a1"]);
    EXPECT_EQ(Flagged(tree.first, &CProjectNode::m_bVisible), "R A a a1 a2 B jump b C");

    // In a malformed list the first node is not the shallowest; N at -2 is nobody's descendant.
    TestTree malformed{{1, "R"}, {4, "x"}, {2, "y"}, {-2, "N"}, {0, "n"}};
    malformed["R"]->m_bExpanded = 0;
    RecomputeVisibility(malformed.first);
    EXPECT_EQ(Flagged(malformed.first, &CProjectNode::m_bVisible), "R N n");
    EXPECT_FALSE(ExpandAncestors(malformed.first, malformed["x"])) << "no ancestor at level 0";
    EXPECT_TRUE(malformed["R"]->m_bExpanded) << "the ancestors found are expanded all the same";
}

TEST(NodeListShow, CollapseAllSelectsTheHeadAndExpandAllKeepsTheSelection) {
    TestTree tree{{0, "R"}, {1, "A"}, {2, "t", kKindTask}, {1, "B"}};
    tree["t"]->m_bExpanded = 1;
    tree.Select("t");
    CollapseAllProjects(tree.first);
    EXPECT_EQ(Flagged(tree.first, &CProjectNode::m_bVisible), "R");
    EXPECT_EQ(Flagged(tree.first, &CProjectNode::m_bSelected), "R");
    EXPECT_TRUE(tree["t"]->m_bExpanded) << "only project nodes are collapsed";

    tree.Select("B");
    ExpandAllProjects(tree.first);
    EXPECT_EQ(Flagged(tree.first, &CProjectNode::m_bVisible), "R A t B");
    EXPECT_EQ(Flagged(tree.first, &CProjectNode::m_bSelected), "B");
}

} // namespace

} // namespace velto
