#pragma once
// Node lists for the outline tests: nodes described as "level kind title", a fixed today
// (Wednesday 11 March 2026, Berlin time), and a compact outline of a list.
#include "files/HolidayFile.h"
#include "model/NodeList.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>

namespace velto::charttest {

inline CTime Today() {
    return CTime(2026, 3, 11, 12, 0, 0);
}
// A time on the day offset days from today.
inline CTime Day(int offset, int hour = 1, int minute = 0, int second = 0) {
    return CTime(2026, 3, 11 + offset, hour, minute, second);
}

struct Spec {
    int level;
    int kind;
    std::string title;
    int startOffset = 0; // days from today
    int dueOffset = 0;
};

// A list in display order; the first node is selected, visibility is computed. The caller owns it.
inline CProjectNode* BuildList(std::initializer_list<Spec> specs) {
    CProjectNode* first = nullptr;
    CProjectNode* tail = nullptr;
    for (const Spec& spec : specs) {
        auto* node =
            new CProjectNode(NodeDefaults{Today(), Day(spec.startOffset), Day(spec.dueOffset, 23, 59, 59)});
        node->m_nLevel = spec.level;
        node->m_nKind = spec.kind;
        node->m_strTitle = spec.title;
        node->m_bSelected = first == nullptr;
        node->m_pPrev = tail;
        tail = (tail ? tail->m_pNext : first) = node;
    }
    RecomputeVisibility(first);
    return first;
}

// R with two branches, a task and a note: the outline the edit and chart tests move nodes around in.
inline CProjectNode* BuildBranchedOutline() {
    return BuildList({{0, kKindProject, "R"},
                      {1, kKindProject, "A"},
                      {2, kKindTask, "a1"},
                      {2, kKindProject, "B"},
                      {3, kKindTask, "b1"},
                      {1, kKindTask, "T"},
                      {1, kKindNote, "N"}});
}

// Links count untitled copies of node after it.
inline void AppendCopies(CProjectNode* node, int count) {
    for (int i = 0; i < count; ++i) {
        CProjectNode* copy = node->CloneUnlinked();
        copy->m_bSelected = 0;
        copy->m_pPrev = node;
        copy->m_pNext = node->m_pNext;
        node->m_pNext = copy;
        if (copy->m_pNext)
            copy->m_pNext->m_pPrev = copy;
    }
}

inline CHoliday Holiday(int day, int month, int year, int colour, bool yearly) {
    return {day, month, year, colour, "", yearly};
}

inline CProjectNode* Find(CProjectNode* first, const std::string& title) {
    for (CProjectNode* node = first; node; node = node->m_pNext)
        if (node->m_strTitle == title)
            return node;
    ADD_FAILURE() << "no node titled " << title;
    return nullptr;
}

// "level:title" of every node in list order, e.g. "0:R 1:A 2:a"; a back link that does not match
// the forward link shows as "<broken>".
inline std::string Outline(const CProjectNode* first) {
    std::string out;
    for (const CProjectNode* node = first; node; node = node->m_pNext) {
        if (node != first)
            out += node->m_pPrev && node->m_pPrev->m_pNext == node ? " " : " <broken> ";
        out += std::to_string(node->m_nLevel);
        out += ':';
        out += node->m_strTitle;
    }
    return out;
}

} // namespace velto::charttest
