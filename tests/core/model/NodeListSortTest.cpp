// The date sort: its fixed cases, and a comparison with the step-by-step sort the program has
// always used, on many random outlines, sound and malformed.
#include "model/NodeList.h"

#include "core/model/NodeListTestTree.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <random>
#include <vector>

namespace velto {

namespace {

uint32_t Key(const CProjectNode* node, bool byDue) {
    return (byDue ? node->m_timeDue : node->m_timeStart).GetTime();
}

// The historical sort, step by step: find the first later sibling whose key must stand before the
// current node, move it with its subtree in front of the current node and start again from the top.
void StepByStepSort(CProjectNode*& first, bool byDue, bool ascending) {
    CProjectNode* cur = first;
    while (cur && cur->m_pNext) {
        CProjectNode* candidate = nullptr;
        for (CProjectNode* p = cur->m_pNext; p && p->m_nLevel >= cur->m_nLevel; p = p->m_pNext) {
            const bool better = ascending ? Key(p, byDue) < Key(cur, byDue) : Key(p, byDue) > Key(cur, byDue);
            if (p->m_nLevel == cur->m_nLevel && better) {
                candidate = p;
                break;
            }
        }
        if (!candidate) {
            cur = cur->m_pNext;
            continue;
        }
        CProjectNode* last = candidate;
        while (last->m_pNext && last->m_pNext->m_nLevel > cur->m_nLevel)
            last = last->m_pNext;
        candidate->m_pPrev->m_pNext = last->m_pNext;
        if (last->m_pNext)
            last->m_pNext->m_pPrev = candidate->m_pPrev;
        candidate->m_pPrev = cur->m_pPrev;
        if (cur->m_pPrev)
            cur->m_pPrev->m_pNext = candidate;
        last->m_pNext = cur;
        cur->m_pPrev = last;
        while (first->m_pPrev)
            first = first->m_pPrev;
        cur = first;
    }
}

TEST(NodeListSort, SortingTwiceReversesDistinctSiblingsAndCarriesChildren) {
    TestTree tree{{0, "R"},         {1, "A", 0, 300}, {2, "a2", 0, 20}, {2, "a1", 0, 10},
                  {1, "B", 0, 100}, {1, "C", 0, 200}, {2, "c", 0, 5}};
    SortSiblingsByDate(tree.first, false, false);
    EXPECT_EQ(Outline(tree.first), "0:R 1:A 2:a2 2:a1 1:C 2:c 1:B");
    SortSiblingsByDate(tree.first, false, true);
    EXPECT_EQ(Outline(tree.first), "0:R 1:B 1:C 2:c 1:A 2:a1 2:a2");
    EXPECT_TRUE(LinksAreSound(tree.first));
}

TEST(NodeListSort, TheDueKeyIsUsedWhenAsked) {
    // Start order and due order disagree.
    TestTree tree{{0, "R"}, {1, "A", 0, 10, 900}, {1, "B", 0, 20, 800}};
    SortSiblingsByDate(tree.first, true, true);
    EXPECT_EQ(Outline(tree.first), "0:R 1:B 1:A");
    SortSiblingsByDate(tree.first, false, true);
    EXPECT_EQ(Outline(tree.first), "0:R 1:A 1:B");
}

TEST(NodeListSort, SeveralTopLevelNodesCanChangeTheHead) {
    TestTree tree{{0, "R", 0, 10}, {1, "r"}, {0, "S", 0, 20}, {1, "s"}};
    SortSiblingsByDate(tree.first, false, false);
    EXPECT_EQ(Outline(tree.first), "0:S 1:s 0:R 1:r");
    EXPECT_TRUE(LinksAreSound(tree.first));
}

TEST(NodeListSort, VeryDeepNestingNeitherRecursesNorLosesNodes) {
    std::vector<NodeSpec> specs;
    for (int i = 0; i < 100000; ++i)
        specs.push_back({i, "n", 0, uint32_t(100000 - i)});
    specs.push_back({1, "sibling", 0, 1000000});
    TestTree tree(specs);
    SortSiblingsByDate(tree.first, false, false);
    EXPECT_EQ(CountNodes(tree.first), 100001);
    EXPECT_EQ(tree.first->m_pNext->m_strTitle, "sibling");
    EXPECT_TRUE(LinksAreSound(tree.first));
}

TEST(NodeListSort, LargeSiblingGroupsStayStable) {
    // Many siblings with few distinct dates, each carrying a child; the expected order is that of
    // a stable sort of the siblings alone.
    std::mt19937 rng(5);
    std::vector<NodeSpec> siblings;
    for (int i = 0; i < 300; ++i)
        siblings.push_back({1, std::to_string(i), 0, std::uniform_int_distribution<uint32_t>(1, 3)(rng)});
    std::vector<NodeSpec> specs{{0, "R"}};
    for (const NodeSpec& sibling : siblings) {
        specs.push_back(sibling);
        specs.push_back({2, sibling.title + "c", 0, 0});
    }
    for (bool ascending : {false, true}) {
        TestTree tree(specs);
        SortSiblingsByDate(tree.first, false, ascending);
        std::vector<NodeSpec> expected = siblings;
        std::stable_sort(expected.begin(), expected.end(), [&](const NodeSpec& a, const NodeSpec& b) {
            return ascending ? a.start < b.start : a.start > b.start;
        });
        std::string outline = "0:R";
        for (const NodeSpec& sibling : expected)
            outline.append(" 1:").append(sibling.title).append(" 2:").append(sibling.title).append("c");
        EXPECT_EQ(Outline(tree.first), outline);
    }
}

struct RandomTrees {
    std::mt19937 rng;
    bool malformed;

    std::vector<NodeSpec> Make() {
        const int size = std::uniform_int_distribution<int>(1, 40)(rng);
        // Few distinct keys make ties common; a wide range makes them rare.
        const uint32_t keyRange = std::uniform_int_distribution<int>(0, 1)(rng) ? 4 : 1000000;
        std::uniform_int_distribution<uint32_t> key(1, keyRange);
        std::vector<NodeSpec> specs;
        int level = 0;
        for (int i = 0; i < size; ++i) {
            if (malformed)
                level = std::uniform_int_distribution<int>(-2, 5)(rng);
            else if (i > 0)
                level = std::uniform_int_distribution<int>(1, level + 1)(rng);
            specs.push_back({level, std::to_string(i), 0, key(rng), key(rng)});
        }
        return specs;
    }
};

void CompareWithStepByStep(bool malformed, unsigned seed) {
    RandomTrees trees{std::mt19937(seed), malformed};
    for (int round = 0; round < 1500; ++round) {
        const std::vector<NodeSpec> specs = trees.Make();
        TestTree fast(specs);
        TestTree reference(specs);
        // A few sorts in a row, alternating direction as the view does, each compared.
        for (int step = 0; step < 3; ++step) {
            const bool byDue = (round + step) % 3 == 0;
            const bool ascending = step % 2 == 1;
            SortSiblingsByDate(fast.first, byDue, ascending);
            StepByStepSort(reference.first, byDue, ascending);
            ASSERT_EQ(Outline(fast.first), Outline(reference.first)) << "round " << round << " step " << step;
            ASSERT_TRUE(LinksAreSound(fast.first));
        }
    }
}

// The comparison also shows a lost or doubled node: the reference keeps every one.
TEST(NodeListSort, MatchesTheStepByStepSortOnRandomOutlinesSoundAndMalformed) {
    CompareWithStepByStep(false, 20240101);
    CompareWithStepByStep(true, 7);
}

} // namespace

} // namespace velto
