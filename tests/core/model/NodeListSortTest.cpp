// The date sort: fixed cases, and a comparison with the step-by-step sort the program has always
// used, on many random outlines, sound and malformed.
#include "model/NodeList.h"

#include "core/model/NodeListTestTree.h"

#include <gtest/gtest.h>
#include <random>
#include <vector>

namespace velto {

namespace {

uint32_t Key(const CProjectNode* node, bool byDue) {
    return (byDue ? node->m_timeDue : node->m_timeStart).GetTime();
}

// The historical sort: find the first later sibling whose key must stand before the current node,
// move it with its subtree in front of the current node and start again from the top.
void StepByStepSort(CProjectNode*& first, bool byDue, bool ascending) {
    CProjectNode* cur = first;
    while (cur && cur->m_pNext) {
        CProjectNode* candidate = nullptr;
        for (CProjectNode* p = cur->m_pNext; p && p->m_nLevel >= cur->m_nLevel && !candidate;
             p = p->m_pNext) {
            const bool better = ascending ? Key(p, byDue) < Key(cur, byDue) : Key(p, byDue) > Key(cur, byDue);
            if (p->m_nLevel == cur->m_nLevel && better)
                candidate = p;
        }
        if (!candidate) {
            cur = cur->m_pNext;
            continue;
        }
        CProjectNode* last = SubtreeLast(candidate);
        candidate->m_pPrev->m_pNext = last->m_pNext;
        if (last->m_pNext)
            last->m_pNext->m_pPrev = candidate->m_pPrev;
        last->m_pNext = nullptr;
        SpliceChainBefore(first, cur, candidate);
        cur = first;
    }
}

std::string Sorted(const std::vector<NodeSpec>& specs, bool byDue, bool ascending) {
    TestTree tree(specs);
    SortSiblingsByDate(tree.first, byDue, ascending);
    return Outline(tree.first);
}

TEST(NodeListSort, VeryDeepNestingNeitherRecursesNorLosesNodes) {
    std::vector<NodeSpec> specs;
    std::string expected = "0:n 1:sibling";
    for (int i = 0; i < 100000; ++i) {
        specs.push_back({i, "n", 0, uint32_t(100000 - i)});
        if (i > 0)
            expected.append(" ").append(std::to_string(i)).append(":n");
    }
    specs.push_back({1, "sibling", 0, 1000000});
    EXPECT_TRUE(Sorted(specs, false, false) == expected);
}

// Groups this large are where an unstable sort would swap equal dates; the random outlines below
// are too small to show it.
TEST(NodeListSort, LargeSiblingGroupsKeepTheOrderOfEqualDates) {
    std::vector<NodeSpec> specs{{0, "R"}};
    for (int i = 0; i < 300; ++i) {
        specs.push_back({1, std::to_string(i), 0, uint32_t(1 + i % 3)});
        specs.push_back({2, std::to_string(i) + "c"});
    }
    for (bool ascending : {false, true}) {
        std::string expected = "0:R";
        for (int key : ascending ? std::vector{0, 1, 2} : std::vector{2, 1, 0}) {
            for (int i = key; i < 300; i += 3)
                expected += " 1:" + std::to_string(i) + " 2:" + std::to_string(i) + "c";
        }
        EXPECT_EQ(Sorted(specs, false, ascending), expected);
    }
}

// Few distinct keys make ties common, a wide range makes them rare; malformed outlines have
// several heads, level jumps and negative levels.
std::vector<NodeSpec> RandomOutline(std::mt19937& rng, bool malformed) {
    const uint32_t keyRange = std::uniform_int_distribution<int>(0, 1)(rng) ? 4 : 1000000;
    std::uniform_int_distribution<uint32_t> key(1, keyRange);
    std::vector<NodeSpec> specs;
    int level = 0;
    for (int i = 0, size = std::uniform_int_distribution<int>(1, 40)(rng); i < size; ++i) {
        if (malformed)
            level = std::uniform_int_distribution<int>(-2, 5)(rng);
        else if (i > 0)
            level = std::uniform_int_distribution<int>(1, level + 1)(rng);
        specs.push_back({level, std::to_string(i), 0, key(rng), key(rng)});
    }
    return specs;
}

// The comparison also shows a lost or doubled node: the reference keeps every one.
TEST(NodeListSort, MatchesTheStepByStepSortOnRandomOutlinesSoundAndMalformed) {
    std::mt19937 rng(20240101);
    for (int round = 0; round < 3000; ++round) {
        const std::vector<NodeSpec> specs = RandomOutline(rng, round % 2 == 1);
        TestTree fast(specs);
        TestTree reference(specs);
        // A few sorts in a row, alternating direction as the view does.
        for (int step = 0; step < 3; ++step) {
            const bool byDue = (round + step) % 3 == 0;
            SortSiblingsByDate(fast.first, byDue, step % 2 == 1);
            StepByStepSort(reference.first, byDue, step % 2 == 1);
            ASSERT_EQ(Outline(fast.first), Outline(reference.first)) << "round " << round << " step " << step;
        }
    }
}

} // namespace

} // namespace velto
