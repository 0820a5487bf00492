#include "outline/Reminders.h"

#include "model/NodeList.h"

namespace velto {

std::optional<int> SnoozeSeconds(std::string_view text) {
    for (const SnoozeInterval& interval : kSnoozeIntervals)
        if (interval.label == text)
            return interval.seconds;
    return std::nullopt;
}

CProjectNode* LastDueReminder(CProjectNode* first, CTime now) {
    CProjectNode* due = nullptr;
    for (CProjectNode* node = first; node; node = node->m_pNext)
        if (!node->m_timeReminder.IsNull() && node->m_timeReminder <= now)
            due = node;
    return due;
}

std::optional<int> ShowAlarmNode(CProjectNode* first, CProjectNode* node) {
    if (!node->m_bVisible && !ExpandAncestors(first, node))
        return std::nullopt;
    SelectOnly(first, node);
    int row = 0;
    for (const CProjectNode* p = first; p != node; p = p->m_pNext)
        row += p->m_bVisible ? 1 : 0;
    return row;
}

void NodeTracker::Follow(const CProjectNode* first, const CProjectNode& node) {
    m_following = true;
    Remember(first, node);
}

CProjectNode* NodeTracker::Find(CProjectNode* first) {
    if (!m_following)
        return nullptr;
    CProjectNode* found = first;
    while (found && found != m_address)
        found = found->m_pNext;
    if (!found || found->m_timeCreated != m_identity.created || found->m_strTitle != m_identity.title)
        found = FindClockedNode(first, m_identity);
    if (found)
        Remember(first, *found);
    return found;
}

void NodeTracker::Remember(const CProjectNode* first, const CProjectNode& node) {
    int position = 0;
    for (const CProjectNode* p = first; p && p != &node; p = p->m_pNext)
        ++position;
    m_address = &node;
    m_identity = {node.m_timeCreated, std::string(node.m_strTitle), position};
}

} // namespace velto
