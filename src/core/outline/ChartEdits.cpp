#include "outline/ChartEdits.h"

#include "model/NodeList.h"

#include <algorithm>
#include <climits>
#include <cstdint>

namespace velto {

namespace {

// Copies the run [from, end) into a chain.
CProjectNode* CopyRun(const CProjectNode* from, const CProjectNode* end) {
    CProjectNode* chainFirst = nullptr;
    CProjectNode* last = nullptr;
    for (const CProjectNode* node = from; node != end; node = node->m_pNext) {
        CProjectNode* copy = node->CloneUnlinked();
        copy->m_bClockedIn = 0;
        copy->m_timeClockIn = CTime();
        copy->m_bSelected = 0;
        copy->m_pPrev = last;
        (last ? last->m_pNext : chainFirst) = copy;
        last = copy;
    }
    return chainFirst;
}

CProjectNode* LastOfChain(CProjectNode* chainFirst) {
    CProjectNode* last = chainFirst;
    while (last && last->m_pNext)
        last = last->m_pNext;
    return last;
}

// The nearest node before target with a smaller level: the parent target's siblings share.
CProjectNode* ParentOf(CProjectNode* node) {
    for (CProjectNode* before = node->m_pPrev; before; before = before->m_pPrev)
        if (before->m_nLevel < node->m_nLevel)
            return before;
    return nullptr;
}

bool InSubtree(const CProjectNode* root, const CProjectNode* node) {
    for (const CProjectNode* walk = root; walk; walk = walk->m_pNext) {
        if (walk != root && walk->m_nLevel <= root->m_nLevel)
            return false;
        if (walk == node)
            return true;
    }
    return false;
}

// The level of the root's children; a damaged root level must not overflow.
int RootChildLevel(const CProjectNode* first) {
    return first->m_nLevel < INT_MAX ? first->m_nLevel + 1 : INT_MAX;
}

// Whether inserting moved before rowBelow (or at the end as the root's child) leaves everything as it is.
bool DropsInPlace(CProjectNode* first, CProjectNode* moved, CProjectNode* rowBelow) {
    if (rowBelow == moved)
        return true;
    if (SubtreeEnd(moved) != rowBelow)
        return false;
    const int level = rowBelow ? rowBelow->m_nLevel : RootChildLevel(first);
    return level == moved->m_nLevel;
}

// Appends a chain at the end of the list with its first node at level. Levels read from a damaged
// file may be extreme; the shift saturates instead of overflowing.
void AppendChain(CProjectNode* first, CProjectNode* chainFirst, int level) {
    const int64_t delta = int64_t(level) - chainFirst->m_nLevel;
    for (CProjectNode* node = chainFirst; node; node = node->m_pNext)
        node->m_nLevel = int(std::clamp<int64_t>(node->m_nLevel + delta, INT_MIN, INT_MAX));
    CProjectNode* tail = LastOfChain(first);
    tail->m_pNext = chainFirst;
    chainFirst->m_pPrev = tail;
}

} // namespace

CProjectNode* CopySubtreeChain(const CProjectNode* node) {
    return node ? CopyRun(node, SubtreeEnd(const_cast<CProjectNode*>(node))) : nullptr;
}

CProjectNode* CopyChain(const CProjectNode* chainFirst) {
    return CopyRun(chainFirst, nullptr);
}

CProjectNode* UnlinkSubtree(CProjectNode*& first, CProjectNode* node) {
    CProjectNode* last = SubtreeLast(node);
    CProjectNode* before = node->m_pPrev;
    CProjectNode* after = last->m_pNext;
    (before ? before->m_pNext : first) = after;
    if (after)
        after->m_pPrev = before;
    node->m_pPrev = nullptr;
    last->m_pNext = nullptr;
    return node;
}

void FreeChain(CProjectNode* chainFirst) {
    FreeNodeList(chainFirst);
}

std::string OutlineText(const CProjectNode* chainFirst) {
    std::string text;
    for (const CProjectNode* node = chainFirst; node; node = node->m_pNext) {
        if (node != chainFirst)
            text += '\n';
        const int depth = node->m_nLevel - chainFirst->m_nLevel;
        text.append(size_t(depth > 0 ? depth : 0), '\t');
        text += node->m_strTitle;
    }
    return text;
}

CProjectNode* CutSubtree(CProjectNode*& first, CProjectNode* node) {
    if (!node || node == first)
        return nullptr;
    CProjectNode* newCurrent = node->m_pPrev;
    while (newCurrent && !newCurrent->m_bVisible)
        newCurrent = newCurrent->m_pPrev;
    CProjectNode* chain = UnlinkSubtree(first, node);
    SelectOnly(first, newCurrent ? newCurrent : first);
    return chain;
}

void PasteChainBefore(CProjectNode*& first, CProjectNode* target, CProjectNode* chainFirst) {
    for (CProjectNode* node = chainFirst; node; node = node->m_pNext)
        node->m_bSelected = 0;
    if (!target || !chainFirst)
        return;
    // The chain becomes the target's sibling: it is shown when the target is, and only its own
    // rows need their visibility worked out (a walk of the whole list costs on large projects).
    const int shown = target->m_bVisible;
    SpliceChainBefore(first, target, chainFirst);
    chainFirst->m_bVisible = shown;
    RecomputeSubtreeVisibility(chainFirst);
}

DropVerdict CheckDrop(CProjectNode* first, CProjectNode* moved, CProjectNode* rowBelow) {
    if (moved == first)
        return DropVerdict::RootCannotMove;
    if (DropsInPlace(first, moved, rowBelow))
        return DropVerdict::NoChange;
    if (!rowBelow)
        return first->m_nKind == kKindProject ? DropVerdict::Allowed : DropVerdict::ParentNotProject;
    if (InSubtree(moved, rowBelow))
        return DropVerdict::IntoOwnSubtree;
    if (rowBelow == first)
        return DropVerdict::BeforeRoot;
    const CProjectNode* parent = ParentOf(rowBelow);
    if (parent && parent->m_nKind != kKindProject)
        return DropVerdict::ParentNotProject;
    return DropVerdict::Allowed;
}

bool MoveSubtree(CProjectNode*& first, CProjectNode* moved, CProjectNode* rowBelow) {
    if (CheckDrop(first, moved, rowBelow) != DropVerdict::Allowed)
        return false;
    CProjectNode* chain = UnlinkSubtree(first, moved);
    if (rowBelow)
        SpliceChainBefore(first, rowBelow, chain);
    else
        AppendChain(first, chain, RootChildLevel(first));
    RecomputeVisibility(first);
    return true;
}

} // namespace velto
