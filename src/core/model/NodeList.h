#pragma once
// Operations on a document's node list: a doubly linked list in display order where each node's
// subtree is the run of following deeper nodes. Lists read from files may be malformed (a first
// node below level 0, jumps of several levels, negative levels); every operation here stays safe on
// them: no crash and no endless loop.
#include "model/ProjectNode.h"

#include <functional>
#include <string>

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

// Frees every node of a list (with its entry lists), following m_pNext from first.
void FreeNodeList(CProjectNode* first);
// A deep copy of the whole list in order: every field, the selection and the three entry lists.
CProjectNode* DeepCopyList(const CProjectNode* first);

// Recomputes m_bVisible: a node is shown when no ancestor has m_bExpanded cleared.
void RecomputeVisibility(CProjectNode* first);
// Expands every project-node ancestor of node (so that it becomes visible) and recomputes visibility.
void ExpandAncestors(CProjectNode* first, CProjectNode* node);
// Clears every node's selection and selects node.
void SelectOnly(CProjectNode* first, CProjectNode* node);

// Creates a child under the current node ("Neuer Knoten"). Refused unless the current node is a
// project node: the refusal is told through the prompter with the current node's title as caption,
// and nothing changes. Before the list changes, beforeChange runs (the view takes its undo copy
// there). The new node is the parent's first child, selected; the parent is expanded.
// Returns the new node, or null when refused.
CProjectNode* CreateChildNode(CProjectNode* first, const std::string& defaultNote, Prompter& prompter,
                              const std::function<void()>& beforeChange = {});

// Deletes the current node with its subtree after the user's confirmation. The first node is
// refused. beforeChange runs after the confirmation and before the list changes. The nearest
// preceding visible node becomes the current node. Returns whether anything was deleted.
bool DeleteCurrentNode(CProjectNode* first, Prompter& prompter, const std::function<void()>& beforeChange = {});

// Inserts a chain of unlinked-from-any-list nodes (first..last linked through m_pNext/m_pPrev)
// directly before target, shifting the chain's levels so that its first node takes target's level.
// When target was the head, the chain's first node becomes the new head (first is updated).
void SpliceChainBefore(CProjectNode*& first, CProjectNode* target, CProjectNode* chainFirst);

// Sorts every sibling group by start date (byDue false) or due date (byDue true); subtrees move with
// their nodes, equal keys keep their order. Descending (latest first) when ascending is false.
// Gives exactly the order of the program's historical step-by-step sort, in O(n log n).
void SortSiblingsByDate(CProjectNode*& first, bool byDue, bool ascending);
