#include "model/ProjectNode.h"

namespace velto {

NodeDefaults NodeDefaults::Current() {
    const CTime now = CTime::GetCurrentTime();
    return {now, CTime::TodayAt(1, 0, 0), CTime::TodayAt(23, 59, 59)};
}

CProjectNode::CProjectNode() : CProjectNode(NodeDefaults::Current()) {}

CProjectNode::CProjectNode(const NodeDefaults& defaults)
    : m_timeDue(defaults.due), m_timeStart(defaults.start), m_timeCreated(defaults.now),
      m_timeChanged(defaults.now), m_timeDone(defaults.now) {}

void CProjectNode::AssignContentOf(const CProjectNode& other) {
    CProjectNode* const next = m_pNext;
    CProjectNode* const prev = m_pPrev;
    *this = other;
    m_pNext = next;
    m_pPrev = prev;
}

CProjectNode* CProjectNode::CloneUnlinked() const {
    auto* copy = new CProjectNode(*this);
    copy->m_pNext = nullptr;
    copy->m_pPrev = nullptr;
    return copy;
}

} // namespace velto
