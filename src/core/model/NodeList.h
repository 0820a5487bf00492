#pragma once
// Operations on a document's node list: a doubly linked list in display order where each node's
// subtree is the run of following deeper nodes. Lists read from files may be malformed (a first
// node below level 0, jumps of several levels, negative levels); every operation here stays safe on
// them: no crash and no endless loop.
#include "model/ProjectNode.h"

#include <functional>
#include <string>

namespace velto {

class Prompter;

int CountNodes(const CProjectNode* first);
// The first node from the head whose m_bSelected is set, or null.
CProjectNode* CurrentNode(CProjectNode* first);
// The next node exists and is deeper.
bool HasChildren(const CProjectNode* node);
// The first node after node's subtree (null at the end of the list).
CProjectNode* SubtreeEnd(CProjectNode* node);
// The last node of node's subtree (node itself when it has no children).
CProjectNode* SubtreeLast(CProjectNode* node);

// Frees every node of a list, following m_pNext from first.
void FreeNodeList(CProjectNode* first);
// A copy of the whole list in order: every field and the selection, with the texts and entry lists
// shared (they are never changed in place, so the copy keeps them as they are now).
CProjectNode* DeepCopyList(const CProjectNode* first);
// Makes copy (a list, or null) such a copy of the list from first on and returns its head. The
// nodes of the old copy are reused, so a repeated copy of a large project allocates only for what
// grew.
CProjectNode* RefreshListCopy(CProjectNode* copy, const CProjectNode* first);

// Recomputes m_bVisible: a node is shown when no ancestor has m_bExpanded cleared. A node's ancestors
// are found by level alone (the nearest preceding shallower node, and so on), so level jumps and
// negative levels need no special case.
void RecomputeVisibility(CProjectNode* first);
// The same for the subtree of root only, taking root's own m_bVisible as it is.
void RecomputeSubtreeVisibility(CProjectNode* root);
// Expands every ancestor of node (so that it becomes visible) and recomputes visibility. In a sound
// tree the ancestors are all project nodes; in a malformed one a task may stand above deeper nodes,
// and it is expanded too so that node really shows. False when the ancestors end above level 0
// (a malformed list whose head is deeper than 0): the ancestors found are expanded all the same.
bool ExpandAncestors(CProjectNode* first, CProjectNode* node);
// Clears every node's selection and selects node.
void SelectOnly(CProjectNode* first, CProjectNode* node);
// "Alle Knoten reduzieren": clears m_bExpanded of every project node, selects the first node and
// recomputes visibility.
void CollapseAllProjects(CProjectNode* first);
// "Alle Knoten expandieren": sets m_bExpanded of every project node and recomputes visibility; the
// selection is kept.
void ExpandAllProjects(CProjectNode* first);

// Creates a child under the current node ("Neuer Knoten"). Refused unless the current node is a
// project node: the refusal is told through the prompter with the current node's title as caption,
// and nothing changes. Before the list changes, beforeChange runs (the view takes its undo copy
// there). The new node is the parent's first child, selected, with defaultNote as its note; the
// parent is expanded and visibility is recomputed. Returns the new node, or null when refused (also
// when no node is selected, which only a damaged file can cause).
CProjectNode* CreateChildNode(CProjectNode* first, const std::string& defaultNote, Prompter& prompter,
                              const std::function<void()>& beforeChange = {});

// Deletes the current node with its subtree after the user's confirmation. The first node is
// refused. beforeChange runs after the confirmation and before the list changes. The nearest
// preceding visible node becomes the current node (the first node when none is visible). Returns
// whether anything was deleted.
bool DeleteCurrentNode(CProjectNode* first, Prompter& prompter,
                       const std::function<void()>& beforeChange = {});

// Inserts a chain of nodes that belong to no list (chainFirst and its successors through m_pNext)
// directly before target, shifting the chain's levels so that its first node takes target's level.
// When target was the head, the chain's first node becomes the new head (first is updated).
// Selection flags are left as they are. With a null target or chain nothing happens and the chain
// stays the caller's.
void SpliceChainBefore(CProjectNode*& first, CProjectNode* target, CProjectNode* chainFirst);

// Sorts every sibling group by start date (byDue false) or due date (byDue true); subtrees move with
// their nodes, equal keys keep their order. Descending (latest first) when ascending is false.
// Gives exactly the order of the program's historical step-by-step sort, in O(n log n). A sibling
// group is a run of nodes of one level not separated by a shallower node, so several level-0 nodes
// form a group too and the head may change (first is updated).
void SortSiblingsByDate(CProjectNode*& first, bool byDue, bool ascending);

} // namespace velto
