#pragma once
// Hand-built node lists for the node-list tests, described compactly, and their outline with the
// back links checked.
#include "model/NodeList.h"

#include <gtest/gtest.h>
#include <initializer_list>
#include <string>
#include <vector>

namespace velto {

struct NodeSpec {
    int level;
    std::string title;
    int kind = kKindProject;
    uint32_t start = 0; // seconds; the due key is start + 1000 unless given
    uint32_t due = 0;
};

// Owns a list built from specs, the head selected; frees whatever list `first` heads at the end.
class TestTree {
public:
    TestTree(std::initializer_list<NodeSpec> specs) : TestTree(std::vector<NodeSpec>(specs)) {}
    explicit TestTree(const std::vector<NodeSpec>& specs) {
        const NodeDefaults defaults{CTime(1700000000), CTime(1700000000), CTime(1700086399)};
        CProjectNode* tail = nullptr;
        for (const NodeSpec& spec : specs) {
            auto* node = new CProjectNode(defaults);
            node->m_nLevel = spec.level;
            node->m_strTitle = spec.title;
            node->m_nKind = spec.kind;
            node->m_timeStart = CTime(spec.start);
            node->m_timeDue = CTime(spec.due ? spec.due : spec.start + 1000);
            node->m_bSelected = tail ? 0 : 1;
            node->m_pPrev = tail;
            (tail ? tail->m_pNext : first) = node;
            tail = node;
        }
    }
    ~TestTree() { FreeNodeList(first); }
    TestTree(const TestTree&) = delete;
    TestTree& operator=(const TestTree&) = delete;

    CProjectNode* operator[](const std::string& title) const {
        for (CProjectNode* p = first; p; p = p->m_pNext) {
            if (p->m_strTitle == title)
                return p;
        }
        ADD_FAILURE() << "no node titled " << title;
        return nullptr;
    }
    void Select(const std::string& title) { SelectOnly(first, (*this)[title]); }

    CProjectNode* first = nullptr;
};

// "level:title" of every node in list order, e.g. "0:R 1:A 2:a"; "<broken>" marks a node whose
// back link does not mirror the forward one (the head's must be null).
inline std::string Outline(const CProjectNode* first) {
    std::string out;
    for (const CProjectNode *p = first, *prev = nullptr; p; prev = p, p = p->m_pNext) {
        out.append(out.empty() ? "" : " ").append(p->m_pPrev == prev ? "" : "<broken>");
        out.append(std::to_string(p->m_nLevel) + ":").append(p->m_strTitle);
    }
    return out;
}

// Titles of the nodes that have a flag set, in list order.
inline std::string Flagged(const CProjectNode* first, int CProjectNode::*flag) {
    std::string out;
    for (const CProjectNode* p = first; p; p = p->m_pNext) {
        if (p->*flag)
            out.append(out.empty() ? "" : " ").append(p->m_strTitle);
    }
    return out;
}

} // namespace velto
