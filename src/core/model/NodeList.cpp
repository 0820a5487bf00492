#include "model/NodeList.h"

#include "common/Prompter.h"
#include "model/Cp1252.h"

#include <algorithm>
#include <climits>
#include <cstdint>
#include <vector>

namespace velto {

namespace {

// Level arithmetic on levels read from a file must not overflow; an out-of-range result sticks to
// the nearest int.
int ShiftedLevel(int level, int64_t delta) {
    return int(std::clamp<int64_t>(int64_t(level) + delta, INT_MIN, INT_MAX));
}

CProjectNode* LastNode(CProjectNode* node) {
    while (node && node->m_pNext)
        node = node->m_pNext;
    return node;
}

// The nearest node before node whose row is shown; the head when none is.
CProjectNode* NearestVisiblePredecessor(CProjectNode* first, CProjectNode* node) {
    for (CProjectNode* p = node->m_pPrev; p; p = p->m_pPrev) {
        if (p->m_bVisible)
            return p;
    }
    return first;
}

// Unlinks the run from..last out of its list; the run keeps its inner links.
void UnlinkRun(CProjectNode* from, CProjectNode* last) {
    if (from->m_pPrev)
        from->m_pPrev->m_pNext = last->m_pNext;
    if (last->m_pNext)
        last->m_pNext->m_pPrev = from->m_pPrev;
    from->m_pPrev = nullptr;
    last->m_pNext = nullptr;
}

void SetProjectNodesExpanded(CProjectNode* first, int expanded) {
    for (CProjectNode* p = first; p; p = p->m_pNext) {
        if (p->m_nKind == kKindProject)
            p->m_bExpanded = expanded;
    }
    RecomputeVisibility(first);
}

} // namespace

int CountNodes(const CProjectNode* first) {
    int count = 0;
    for (; first; first = first->m_pNext)
        ++count;
    return count;
}

CProjectNode* CurrentNode(CProjectNode* first) {
    for (; first; first = first->m_pNext) {
        if (first->m_bSelected)
            return first;
    }
    return nullptr;
}

bool HasChildren(const CProjectNode* node) {
    return node && node->m_pNext && node->m_pNext->m_nLevel > node->m_nLevel;
}

CProjectNode* SubtreeEnd(CProjectNode* node) {
    if (!node)
        return nullptr;
    CProjectNode* p = node->m_pNext;
    while (p && p->m_nLevel > node->m_nLevel)
        p = p->m_pNext;
    return p;
}

CProjectNode* SubtreeLast(CProjectNode* node) {
    CProjectNode* last = node;
    while (last && last->m_pNext && last->m_pNext->m_nLevel > node->m_nLevel)
        last = last->m_pNext;
    return last;
}

void FreeNodeList(CProjectNode* first) {
    while (first) {
        CProjectNode* next = first->m_pNext;
        delete first;
        first = next;
    }
}

CProjectNode* DeepCopyList(const CProjectNode* first) {
    return RefreshListCopy(nullptr, first);
}

CProjectNode* RefreshListCopy(CProjectNode* copy, const CProjectNode* first) {
    CProjectNode* head = copy;
    CProjectNode* tail = nullptr;
    CProjectNode* reuse = copy;
    for (; first; first = first->m_pNext) {
        CProjectNode* node = reuse;
        if (node) {
            reuse = node->m_pNext;
            node->AssignContentOf(*first);
        } else {
            node = first->CloneUnlinked();
            node->m_pPrev = tail;
            (tail ? tail->m_pNext : head) = node;
        }
        tail = node;
    }
    if (tail)
        tail->m_pNext = nullptr;
    else
        head = nullptr;
    FreeNodeList(reuse);
    return head;
}

namespace {
// A shown-or-not walk from node on up to (not including) the first node at or above stopLevel.
// ancestors: the chain of open ancestors, shallowest first, with whether each shows its children.
struct Ancestor {
    int level;
    bool showsChildren;
};
void ApplyVisibility(CProjectNode* node, std::vector<Ancestor> ancestors, int64_t stopLevel) {
    for (; node && node->m_nLevel > stopLevel; node = node->m_pNext) {
        while (!ancestors.empty() && ancestors.back().level >= node->m_nLevel)
            ancestors.pop_back();
        const bool visible = ancestors.empty() || ancestors.back().showsChildren;
        node->m_bVisible = visible ? 1 : 0;
        ancestors.push_back({node->m_nLevel, visible && node->m_bExpanded});
    }
}
} // namespace

void RecomputeVisibility(CProjectNode* first) {
    ApplyVisibility(first, {}, INT64_MIN);
}

void RecomputeSubtreeVisibility(CProjectNode* root) {
    ApplyVisibility(root->m_pNext, {{root->m_nLevel, root->m_bVisible && root->m_bExpanded}}, root->m_nLevel);
}

bool ExpandAncestors(CProjectNode* first, CProjectNode* node) {
    if (!node)
        return false;
    int level = node->m_nLevel;
    for (CProjectNode* p = node->m_pPrev; p; p = p->m_pPrev) {
        if (p->m_nLevel < level) {
            p->m_bExpanded = 1;
            level = p->m_nLevel;
        }
    }
    RecomputeVisibility(first);
    return level <= 0;
}

void SelectOnly(CProjectNode* first, CProjectNode* node) {
    for (CProjectNode* p = first; p; p = p->m_pNext)
        p->m_bSelected = (p == node) ? 1 : 0;
}

void CollapseAllProjects(CProjectNode* first) {
    SetProjectNodesExpanded(first, 0);
    SelectOnly(first, first);
}

void ExpandAllProjects(CProjectNode* first) {
    SetProjectNodesExpanded(first, 1);
}

CProjectNode* CreateChildNode(CProjectNode* first, const std::string& defaultNote, Prompter& prompter,
                              const std::function<void()>& beforeChange) {
    CProjectNode* parent = CurrentNode(first);
    if (!parent)
        return nullptr;
    if (parent->m_nKind != kKindProject) {
        prompter.Tell("Neue Knoten sind nur unter Projektknoten möglich.", cp1252::ToUtf8(parent->m_strTitle),
                      PromptIcon::Warning);
        return nullptr;
    }
    if (beforeChange)
        beforeChange();
    parent->m_bExpanded = 1;
    parent->m_bSelected = 0;

    auto* child = new CProjectNode(NodeDefaults::Current());
    child->m_nLevel = ShiftedLevel(parent->m_nLevel, 1);
    child->m_strNote = defaultNote;
    child->m_pPrev = parent;
    child->m_pNext = parent->m_pNext;
    if (parent->m_pNext)
        parent->m_pNext->m_pPrev = child;
    parent->m_pNext = child;
    // Expanding a collapsed parent shows its older children again.
    RecomputeSubtreeVisibility(parent);
    return child;
}

bool DeleteCurrentNode(CProjectNode* first, Prompter& prompter, const std::function<void()>& beforeChange) {
    CProjectNode* node = CurrentNode(first);
    if (!node)
        return false;
    if (node == first) {
        prompter.Tell("Erster Knoten kann nicht gelöscht werden!", Prompter::kCaption, PromptIcon::Warning);
        return false;
    }
    const std::string title = cp1252::ToUtf8(node->m_strTitle);
    const std::string question =
        node->m_nKind == kKindProject
            ? "Möchten Sie den Knoten '" + title + "' inkl. aller Unterknoten löschen?"
            : "Möchten Sie den Knoten '" + title + "' löschen?";
    if (!prompter.AskYesNo("Löschen bestätigen", question))
        return false;
    if (beforeChange)
        beforeChange();

    CProjectNode* successor = NearestVisiblePredecessor(first, node);
    UnlinkRun(node, SubtreeLast(node));
    SelectOnly(first, successor);
    FreeNodeList(node);
    return true;
}

void SpliceChainBefore(CProjectNode*& first, CProjectNode* target, CProjectNode* chainFirst) {
    if (!target || !chainFirst)
        return;
    const int64_t delta = int64_t(target->m_nLevel) - chainFirst->m_nLevel;
    for (CProjectNode* p = chainFirst; p; p = p->m_pNext)
        p->m_nLevel = ShiftedLevel(p->m_nLevel, delta);

    CProjectNode* chainLast = LastNode(chainFirst);
    CProjectNode* before = target->m_pPrev;
    chainFirst->m_pPrev = before;
    chainLast->m_pNext = target;
    target->m_pPrev = chainLast;
    if (before)
        before->m_pNext = chainFirst;
    if (target == first)
        first = chainFirst;
}

// The sort works on positions in the list. A sibling group is every node of one level up to the
// next shallower node; its members' subtrees tile one contiguous segment of the list, and sorting
// the group only permutes those subtrees. Groups nest (a group lies inside one member's subtree of
// an enclosing group) or are disjoint, so every group can be sorted on its own: the step-by-step
// sort the program always had moves the first later sibling with a strictly better key in front of
// the current node and restarts, which is an insertion of strictly better keys only, hence a
// stable sort of each group, and it reaches the same order. Groups are defined by level alone, so
// this holds for malformed lists as well (several level-0 nodes, level jumps, negative levels):
// there the two sorts agree too, and both end.
namespace {

// Everything the sort needs, by position, gathered in one walk so that the passes below read
// contiguous arrays instead of chasing list pointers.
struct SortPlan {
    std::vector<CProjectNode*> nodes;
    std::vector<int> level;
    std::vector<uint32_t> key;
    std::vector<size_t> subtreeEnd; // position after each node's subtree
    std::vector<size_t> groupOf;    // each node's sibling group
    std::vector<size_t> groupStart; // members of group g: members[groupStart[g] .. groupStart[g + 1])
    std::vector<size_t> members;    // positions, grouped, sorted within each group
    std::vector<size_t> segmentEnd; // position after the last member's subtree, per group

    size_t Size() const { return nodes.size(); }
};

void Gather(SortPlan& plan, CProjectNode* first, bool byDue) {
    for (CProjectNode* p = first; p; p = p->m_pNext) {
        plan.nodes.push_back(p);
        plan.level.push_back(p->m_nLevel);
        plan.key.push_back((byDue ? p->m_timeDue : p->m_timeStart).GetTime());
    }
}

void FindSubtreeEnds(SortPlan& plan) {
    // The first later position whose level is not deeper, found with a stack of candidates.
    plan.subtreeEnd.resize(plan.Size());
    std::vector<size_t> candidates;
    for (size_t i = plan.Size(); i-- > 0;) {
        while (!candidates.empty() && plan.level[candidates.back()] > plan.level[i])
            candidates.pop_back();
        plan.subtreeEnd[i] = candidates.empty() ? plan.Size() : candidates.back();
        candidates.push_back(i);
    }
}

// Numbers the sibling groups in order of their first member; returns the number of groups.
size_t AssignGroups(SortPlan& plan) {
    struct OpenGroup {
        int level;
        size_t group;
    };
    std::vector<OpenGroup> open; // strictly increasing levels
    size_t count = 0;
    plan.groupOf.resize(plan.Size());
    for (size_t i = 0; i < plan.Size(); ++i) {
        const int level = plan.level[i];
        while (!open.empty() && open.back().level > level)
            open.pop_back();
        if (open.empty() || open.back().level != level)
            open.push_back({level, count++});
        plan.groupOf[i] = open.back().group;
    }
    return count;
}

void CollectMembers(SortPlan& plan, size_t groupCount) {
    plan.groupStart.assign(groupCount + 1, 0);
    for (size_t g : plan.groupOf)
        ++plan.groupStart[g + 1];
    for (size_t g = 0; g < groupCount; ++g)
        plan.groupStart[g + 1] += plan.groupStart[g];
    std::vector<size_t> fill(plan.groupStart.begin(), plan.groupStart.end() - 1);
    plan.members.resize(plan.Size());
    for (size_t i = 0; i < plan.Size(); ++i)
        plan.members[fill[plan.groupOf[i]]++] = i;
    plan.segmentEnd.resize(groupCount);
    for (size_t g = 0; g < groupCount; ++g)
        plan.segmentEnd[g] = plan.subtreeEnd[plan.members[plan.groupStart[g + 1] - 1]];
}

void SortGroups(SortPlan& plan, bool ascending) {
    const auto& key = plan.key;
    const auto before = [&](size_t a, size_t b) { return ascending ? key[a] < key[b] : key[a] > key[b]; };
    for (size_t g = 0; g + 1 < plan.groupStart.size(); ++g) {
        const auto begin = plan.members.begin() + std::ptrdiff_t(plan.groupStart[g]);
        const auto end = plan.members.begin() + std::ptrdiff_t(plan.groupStart[g + 1]);
        if (end - begin > 1)
            std::stable_sort(begin, end, before);
    }
}

// The positions in their new order. Walks the tree with an explicit stack, because a file may
// nest deeper than the call stack could follow.
std::vector<size_t> NewOrder(const SortPlan& plan) {
    std::vector<size_t> order;
    order.reserve(plan.Size());
    std::vector<size_t> pending; // positions still to emit, next on top
    std::vector<size_t> groups;
    const auto pushSegment = [&](size_t begin, size_t end) {
        groups.clear();
        for (size_t p = begin; p < end; p = plan.segmentEnd[plan.groupOf[p]])
            groups.push_back(plan.groupOf[p]);
        for (auto g = groups.rbegin(); g != groups.rend(); ++g) {
            for (size_t m = plan.groupStart[*g + 1]; m-- > plan.groupStart[*g];)
                pending.push_back(plan.members[m]);
        }
    };
    pushSegment(0, plan.Size());
    while (!pending.empty()) {
        const size_t i = pending.back();
        pending.pop_back();
        order.push_back(i);
        pushSegment(i + 1, plan.subtreeEnd[i]);
    }
    return order;
}

void Relink(CProjectNode*& first, const SortPlan& plan, const std::vector<size_t>& order) {
    CProjectNode* prev = nullptr;
    for (size_t i : order) {
        CProjectNode* node = plan.nodes[i];
        node->m_pPrev = prev;
        (prev ? prev->m_pNext : first) = node;
        prev = node;
    }
    if (prev)
        prev->m_pNext = nullptr;
}

} // namespace

void SortSiblingsByDate(CProjectNode*& first, bool byDue, bool ascending) {
    SortPlan plan;
    Gather(plan, first, byDue);
    if (plan.Size() < 2)
        return;
    FindSubtreeEnds(plan);
    CollectMembers(plan, AssignGroups(plan));
    SortGroups(plan, ascending);
    Relink(first, plan, NewOrder(plan));
}

} // namespace velto
