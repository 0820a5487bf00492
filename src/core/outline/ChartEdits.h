#pragma once
// The changes the chart makes to a node list itself: cutting and copying a subtree into a chain,
// pasting a chain, and moving a subtree by dragging it onto another row. No Qt here, so the rules
// are tested on plain lists.
#include "model/ProjectNode.h"

#include <string>

namespace velto {

// A chain is a run of unlinked nodes: the first node's m_pPrev and the last node's m_pNext are null.

// A deep copy of node's subtree (node and the following deeper nodes) as a chain. The copies carry
// no running hours clock and no selection: a copy must not clock the same work twice.
CProjectNode* CopySubtreeChain(const CProjectNode* node);
// A deep copy of a whole chain, as CopySubtreeChain does for a subtree.
CProjectNode* CopyChain(const CProjectNode* chainFirst);
// Unlinks node's subtree from the list and returns it as a chain starting at node. first is
// updated when node was the head.
CProjectNode* UnlinkSubtree(CProjectNode*& first, CProjectNode* node);
// Frees every node of a chain.
void FreeChain(CProjectNode* chainFirst);
// The chain as an indented plain-text outline (Windows-1252): one title per line, one tab per level
// below the chain's first node, lines separated by "\n".
std::string OutlineText(const CProjectNode* chainFirst);

// Cuts node's subtree: unlinks it and selects the nearest preceding visible node. Returns the chain,
// or null for the first node, which cannot be cut.
CProjectNode* CutSubtree(CProjectNode*& first, CProjectNode* node);
// Inserts a chain before target with the level shift of a paste (the chain's first node becomes
// target's sibling); the selection stays on target, and visibility is recomputed.
void PasteChainBefore(CProjectNode*& first, CProjectNode* target, CProjectNode* chainFirst);

// Moving a node by dragging: the subtree of moved goes directly before the node of the row below the
// marked line, as that node's sibling. Below the last row it becomes the root's last child.
enum class DropVerdict {
    Allowed,
    NoChange,         // the line lies right above or right below the node's own rows
    RootCannotMove,   // the first node stays where it is
    IntoOwnSubtree,   // the target lies inside the moved subtree
    BeforeRoot,       // nothing goes before the first node
    ParentNotProject, // only project nodes may have children
};
// rowBelow: the node of the row below the marked line, or null when the line lies below the last row.
DropVerdict CheckDrop(CProjectNode* first, CProjectNode* moved, CProjectNode* rowBelow);
// Applies an allowed drop; returns false (and changes nothing) when CheckDrop refuses it.
bool MoveSubtree(CProjectNode*& first, CProjectNode* moved, CProjectNode* rowBelow);

} // namespace velto
