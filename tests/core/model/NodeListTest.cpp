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
    EXPECT_EQ(tree["A"]->m_pNext, child);
    EXPECT_TRUE(tree["A"]->m_bExpanded);
    EXPECT_EQ(Flagged(tree.first, &CProjectNode::m_bSelected), "Neuer Knoten");
    EXPECT_EQ(Flagged(tree.first, &CProjectNode::m_bVisible), "R A Neuer Knoten a1 a2 B");
    EXPECT_EQ(child->m_strNote, kNote);
    EXPECT_EQ(child->m_nKind, kKindProject);
    EXPECT_TRUE(child->m_bExpanded);
    EXPECT_TRUE(LinksAreSound(tree.first));
}

TEST(NodeListCreate, RefusedUnderTaskNoteAndMilestoneWithTitleAsCaption) {
    // The title is stored in Windows-1252; the caption must reach the prompter as UTF-8.
    const std::string books = "B\xFC"
                              "cher";
    for (int kind : {kKindTask, kKindNote, kKindMilestone}) {
        TestTree tree{{0, "R"}, {1, books, kind}, {1, "C"}};
        tree.Select(books);
        ScriptedPrompter prompter;
        bool changed = false;
        EXPECT_EQ(CreateChildNode(tree.first, kNote, prompter, [&] { changed = true; }), nullptr);
        ASSERT_EQ(prompter.asked().size(), 1u) << "kind " << kind;
        EXPECT_EQ(prompter.asked()[0].caption, "B\xC3\xBC"
                                               "cher");
        EXPECT_EQ(prompter.asked()[0].text, "Neue Knoten sind nur unter Projektknoten möglich.");
        EXPECT_FALSE(changed);
        EXPECT_EQ(Outline(tree.first), "0:R 1:" + books + " 1:C");
        EXPECT_EQ(Flagged(tree.first, &CProjectNode::m_bSelected), books);
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

TEST(NodeListDelete, FirstNodeIsRefusedWithoutAsking) {
    TestTree tree{{0, "R"}, {1, "A"}};
    ScriptedPrompter prompter;
    prompter.Answer(PromptAnswer::Yes);
    EXPECT_FALSE(DeleteCurrentNode(tree.first, prompter));
    EXPECT_EQ(prompter.texts(), std::vector<std::string>{"Erster Knoten kann nicht gelöscht werden!"});
    EXPECT_EQ(Outline(tree.first), "0:R 1:A");
}

TEST(NodeListDelete, AsksOnceWithTheTextForProjectNodesAndOtherKinds) {
    TestTree tree{{0, "R"}, {1, "Pl\xE4ne"}, {2, "x"}, {1, "leer"}, {1, "t", kKindTask}};
    ScriptedPrompter prompter;
    for (const char* title : {"Pl\xE4ne", "leer", "t"}) {
        tree.Select(title);
        EXPECT_FALSE(DeleteCurrentNode(tree.first, prompter));
    }

    ASSERT_EQ(prompter.asked().size(), 3u);
    EXPECT_EQ(prompter.asked()[0].caption, "Löschen bestätigen");
    EXPECT_EQ(prompter.asked()[0].buttons, PromptButtons::YesNo);
    EXPECT_EQ(prompter.asked()[0].text, "Möchten Sie den Knoten 'Pläne' inkl. aller Unterknoten löschen?");
    EXPECT_EQ(prompter.asked()[1].text, "Möchten Sie den Knoten 'leer' inkl. aller Unterknoten löschen?")
        << "a project node, even without children";
    EXPECT_EQ(prompter.asked()[2].text, "Möchten Sie den Knoten 't' löschen?");
}

TEST(NodeListDelete, AnsweringNoChangesNothing) {
    TestTree tree{{0, "R"}, {1, "A"}, {2, "a"}};
    tree.Select("A");
    ScriptedPrompter prompter;
    prompter.Answer(PromptAnswer::No);
    bool changed = false;
    EXPECT_FALSE(DeleteCurrentNode(tree.first, prompter, [&] { changed = true; }));
    EXPECT_FALSE(changed);
    EXPECT_EQ(Outline(tree.first), "0:R 1:A 2:a");
    EXPECT_EQ(Flagged(tree.first, &CProjectNode::m_bSelected), "A");
}

TEST(NodeListDelete, RemovesTheWholeSubtreeAndSelectsTheNearestVisiblePredecessor) {
    TestTree tree{{0, "R"}, {1, "A"}, {2, "a1"}, {3, "a11"}, {1, "B"}, {2, "b1"}, {3, "b11"}, {1, "C"}};
    tree["A"]->m_bExpanded = 0; // a1 and a11 are hidden between A and B
    RecomputeVisibility(tree.first);
    tree["b1"]->m_pHours = {CHoursEntry{}}; // freed with its node (the sanitizer build checks)
    tree.Select("B");
    ScriptedPrompter prompter;
    prompter.Answer(PromptAnswer::Yes);
    int backups = 0;
    EXPECT_TRUE(DeleteCurrentNode(tree.first, prompter, [&] { ++backups; }));

    EXPECT_EQ(backups, 1);
    EXPECT_EQ(prompter.asked().size(), 1u);
    EXPECT_EQ(Outline(tree.first), "0:R 1:A 2:a1 3:a11 1:C");
    EXPECT_EQ(Flagged(tree.first, &CProjectNode::m_bSelected), "A");
    EXPECT_TRUE(LinksAreSound(tree.first));
}

TEST(NodeListDelete, LastNodeAndMalformedRunsUnlinkCleanly) {
    // Levels jump and go negative: the run ends at the first node that is not deeper.
    TestTree tree{{0, "R"}, {3, "X"}, {5, "x"}, {4, "y"}, {-1, "N"}, {2, "Z"}};
    tree.Select("X");
    ScriptedPrompter prompter;
    prompter.Answer(PromptAnswer::Yes).Answer(PromptAnswer::Yes);
    EXPECT_TRUE(DeleteCurrentNode(tree.first, prompter));
    EXPECT_EQ(Outline(tree.first), "0:R -1:N 2:Z");
    tree.Select("Z");
    EXPECT_TRUE(DeleteCurrentNode(tree.first, prompter));
    EXPECT_EQ(Outline(tree.first), "0:R -1:N");
    EXPECT_EQ(Flagged(tree.first, &CProjectNode::m_bSelected), "N");
    EXPECT_TRUE(LinksAreSound(tree.first));
}

TEST(NodeListDelete, WithNothingVisibleBeforeItTheFirstNodeBecomesCurrent) {
    TestTree tree{{0, "R"}, {1, "A"}, {1, "B"}};
    tree.first->m_bVisible = 0;
    tree["A"]->m_bVisible = 0;
    tree.Select("B");
    ScriptedPrompter prompter;
    prompter.Answer(PromptAnswer::Yes);
    EXPECT_TRUE(DeleteCurrentNode(tree.first, prompter));
    EXPECT_EQ(Flagged(tree.first, &CProjectNode::m_bSelected), "R");
}

TEST(NodeListCopy, DeepCopyIsEqualButIndependent) {
    TestTree tree{{0, "R"}, {1, "A", kKindTask, 5000, 9000}, {1, "B"}};
    CProjectNode* a = tree["A"];
    a->m_pHours = {{CTime(1), CTime(2), CTime(3), "Max", "Bau"}};
    a->m_pCosts = {{CTime(4), 1.5f, 2.0f, 3.0f, "K", "R"}, {CTime(5), 1.0f, 1.0f, -1.0f, "K2", "R2"}};
    a->m_pCosts2 = {{CTime(6), 7.0f, 8.0f, 56.0f, "N", "M"}};
    a->m_strNote = "{\\rtf1 Notiz}";
    a->m_bDone = 1;
    tree.Select("A");

    CProjectNode* copy = DeepCopyList(tree.first);
    ASSERT_NE(copy, nullptr);
    EXPECT_EQ(Outline(copy), Outline(tree.first));
    EXPECT_EQ(Flagged(copy, &CProjectNode::m_bSelected), "A");
    EXPECT_TRUE(LinksAreSound(copy));
    CProjectNode* copyA = copy->m_pNext;
    EXPECT_NE(copyA, a);
    EXPECT_EQ(copyA->m_strNote, a->m_strNote);
    EXPECT_EQ(copyA->m_timeDue, a->m_timeDue);
    EXPECT_EQ(copyA->m_bDone, 1);
    ASSERT_EQ((std::array{copyA->m_pHours.size(), copyA->m_pCosts.size(), copyA->m_pCosts2.size()}),
              (std::array<size_t, 3>{1, 2, 1}));
    EXPECT_EQ(copyA->m_pCosts[1].m_str1, "K2");
    EXPECT_EQ(copyA->m_pCosts2.front().m_fAmount, 56.0f);

    // Changing the copy leaves the original alone: texts and lists were shared until one changed.
    copyA->m_strTitle = "changed";
    copyA->m_strNote = "{\\rtf1 anders}";
    copyA->m_pHours.Replace(0, {CTime(1), CTime(2), CTime(3), "changed", "Bau"});
    copyA->m_pCosts.Erase(1);
    EXPECT_EQ(a->m_strTitle, "A");
    EXPECT_EQ(a->m_strNote, "{\\rtf1 Notiz}");
    EXPECT_EQ(a->m_pHours.front().m_str1, "Max");
    ASSERT_EQ(a->m_pCosts.size(), 2u);
    EXPECT_EQ(a->m_pCosts[1].m_fAmount, -1.0f);
    FreeNodeList(copy);
    EXPECT_EQ(DeepCopyList(nullptr), nullptr);
}

TEST(NodeListCopy, ARefreshedCopyMatchesTheListWhetherTheOldCopyWasLongerOrShorter) {
    TestTree tree{{0, "R"}, {1, "A", kKindTask}, {1, "B"}, {2, "C"}};
    tree["A"]->m_pHours = {{CTime(1), CTime(2), CTime(3), "Max", "Bau"},
                           {CTime(4), CTime(5), CTime(6), "Eva", "Putz"}};
    tree["B"]->m_pCosts = {{CTime(4), 1.5f, 2.0f, 3.0f, "K", "R"}};
    tree.Select("C");

    CProjectNode* copy = RefreshListCopy(nullptr, tree.first);
    EXPECT_EQ(Outline(copy), "0:R 1:A 1:B 2:C");

    // The list shrinks and its entries move: the copy follows, surplus nodes and entries go.
    std::swap(tree["A"]->m_pHours, tree["B"]->m_pHours);
    tree["B"]->m_pCosts = {};
    CProjectNode* c = tree["C"];
    tree["B"]->m_pNext = nullptr;
    delete c;
    tree["R"]->m_strNote = std::string(300, 'n');
    copy = RefreshListCopy(copy, tree.first);
    EXPECT_EQ(Outline(copy), "0:R 1:A 1:B");
    EXPECT_TRUE(LinksAreSound(copy));
    EXPECT_EQ(copy->m_strNote, tree.first->m_strNote);
    EXPECT_TRUE(copy->m_pNext->m_pHours.empty());
    ASSERT_EQ(copy->m_pNext->m_pNext->m_pHours.size(), 2u);
    EXPECT_EQ(copy->m_pNext->m_pNext->m_pHours[1].m_str1, "Eva");
    EXPECT_TRUE(copy->m_pNext->m_pNext->m_pCosts.empty());
    EXPECT_EQ(Flagged(copy, &CProjectNode::m_bSelected), "");

    // It grows again beyond the old copy.
    tree.first->m_pNext->m_strTitle = "A2";
    auto* d = new CProjectNode;
    d->m_strTitle = "D";
    d->m_nLevel = 1;
    d->m_pPrev = tree["B"];
    tree["B"]->m_pNext = d;
    copy = RefreshListCopy(copy, tree.first);
    EXPECT_EQ(Outline(copy), "0:R 1:A2 1:B 1:D");
    EXPECT_TRUE(LinksAreSound(copy));

    EXPECT_EQ(RefreshListCopy(copy, nullptr), nullptr) << "an empty list frees the whole copy";
}

// A chain as the node clipboard holds it: linked nodes that belong to no list.
CProjectNode* Chain(std::initializer_list<std::pair<int, const char*>> nodes) {
    CProjectNode* head = nullptr;
    CProjectNode* tail = nullptr;
    for (const auto& [level, title] : nodes) {
        auto* node = new CProjectNode;
        node->m_nLevel = level;
        node->m_strTitle = title;
        node->m_pPrev = tail;
        (tail ? tail->m_pNext : head) = node;
        tail = node;
    }
    return head;
}

TEST(NodeListSplice, ChainTakesTheTargetsLevelAndKeepsItsShape) {
    TestTree tree{{0, "R"}, {1, "A"}, {1, "B"}, {2, "b"}};
    SpliceChainBefore(tree.first, tree["B"], Chain({{3, "p"}, {4, "q"}, {5, "r"}, {3, "s"}}));
    EXPECT_EQ(Outline(tree.first), "0:R 1:A 1:p 2:q 3:r 1:s 1:B 2:b");
    EXPECT_TRUE(LinksAreSound(tree.first));
}

TEST(NodeListSplice, BeforeTheHeadTheChainBecomesTheNewHead) {
    TestTree tree{{0, "R"}, {1, "A"}};
    CProjectNode* oldHead = tree.first;
    SpliceChainBefore(tree.first, tree.first, Chain({{2, "p"}, {3, "q"}}));
    EXPECT_EQ(Outline(tree.first), "0:p 1:q 0:R 1:A");
    EXPECT_EQ(oldHead->m_pPrev->m_strTitle, "q");
    EXPECT_TRUE(LinksAreSound(tree.first));
}

TEST(NodeListSplice, ExtremeLevelsDoNotOverflow) {
    TestTree tree{{0, "R"}, {INT_MIN, "low"}};
    SpliceChainBefore(tree.first, tree["low"], Chain({{INT_MAX, "p"}, {0, "q"}}));
    EXPECT_EQ(tree["p"]->m_nLevel, INT_MIN);
    EXPECT_EQ(tree["q"]->m_nLevel, INT_MIN);
    EXPECT_TRUE(LinksAreSound(tree.first));
}

TEST(NodeListShow, VisibilityFollowsEveryAncestor) {
    TestTree tree{{0, "R"}, {1, "A"}, {2, "a"}, {3, "a1"}, {1, "B"}, {3, "jump"}, {2, "b"}, {1, "C"}};
    tree["a"]->m_bExpanded = 0;
    tree["B"]->m_bExpanded = 0;
    RecomputeVisibility(tree.first);
    EXPECT_EQ(Flagged(tree.first, &CProjectNode::m_bVisible), "R A a B C");

    // Opening jump's ancestors expands B and leaves a collapsed.
    ExpandAncestors(tree.first, tree["jump"]);
    EXPECT_EQ(Flagged(tree.first, &CProjectNode::m_bVisible), "R A a B jump b C");
    ExpandAncestors(tree.first, tree["a1"]);
    EXPECT_EQ(Flagged(tree.first, &CProjectNode::m_bVisible), "R A a a1 B jump b C");
}

TEST(NodeListShow, MalformedLevelsFindAncestorsByLevelAlone) {
    // The first node is not the shallowest; N at -2 is nobody's descendant.
    TestTree tree{{1, "R"}, {4, "x"}, {2, "y"}, {-2, "N"}, {0, "n"}};
    tree["R"]->m_bExpanded = 0;
    RecomputeVisibility(tree.first);
    EXPECT_EQ(Flagged(tree.first, &CProjectNode::m_bVisible), "R N n");
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

TEST(NodeListQuery, CountCurrentChildrenAndSubtreeBounds) {
    TestTree tree{{0, "R"}, {1, "A"}, {3, "a"}, {2, "b"}, {1, "B"}};
    EXPECT_EQ(CountNodes(tree.first), 5);
    EXPECT_EQ(CountNodes(nullptr), 0);
    EXPECT_EQ(CurrentNode(tree.first), tree.first);
    tree.first->m_bSelected = 0;
    EXPECT_EQ(CurrentNode(tree.first), nullptr);
    EXPECT_TRUE(HasChildren(tree["A"]));
    EXPECT_FALSE(HasChildren(tree["b"]));
    EXPECT_FALSE(HasChildren(tree["B"]));
    EXPECT_EQ(SubtreeEnd(tree["A"]), tree["B"]);
    EXPECT_EQ(SubtreeLast(tree["A"]), tree["b"]);
    EXPECT_EQ(SubtreeEnd(tree.first), nullptr);
    EXPECT_EQ(SubtreeLast(tree["B"]), tree["B"]);
}

TEST(NodeListQuery, WithoutASelectionNothingIsCreatedOrDeleted) {
    TestTree tree{{0, "R"}, {1, "A"}};
    tree.first->m_bSelected = 0;
    ScriptedPrompter prompter;
    EXPECT_EQ(CreateChildNode(tree.first, kNote, prompter), nullptr);
    EXPECT_FALSE(DeleteCurrentNode(tree.first, prompter));
    EXPECT_EQ(Outline(tree.first), "0:R 1:A");
}

} // namespace

} // namespace velto
