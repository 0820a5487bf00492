#include "model/ProjectNode.h"

namespace {

template <typename Entry> void FreeEntries(Entry* head) {
    while (head) {
        Entry* next = head->m_pNext;
        delete head;
        head = next;
    }
}

template <typename Entry> Entry* CopyEntries(const Entry* head) {
    Entry* first = nullptr;
    Entry** tail = &first;
    for (; head; head = head->m_pNext) {
        *tail = new Entry(*head);
        (*tail)->m_pNext = nullptr;
        tail = &(*tail)->m_pNext;
    }
    return first;
}

} // namespace

void FreeHours(CHoursEntry* head) { FreeEntries(head); }
void FreeCosts(CCostEntry* head) { FreeEntries(head); }
CHoursEntry* CopyHours(const CHoursEntry* head) { return CopyEntries(head); }
CCostEntry* CopyCosts(const CCostEntry* head) { return CopyEntries(head); }

NodeDefaults NodeDefaults::Current() {
    const CTime now = CTime::GetCurrentTime();
    return {now, CTime::TodayAt(1, 0, 0), CTime::TodayAt(23, 59, 59)};
}

CProjectNode::CProjectNode() : CProjectNode(NodeDefaults::Current()) {}

CProjectNode::CProjectNode(const NodeDefaults& defaults)
    : m_timeCreated(defaults.now), m_timeChanged(defaults.now), m_timeDone(defaults.now),
      m_timeStart(defaults.start), m_timeDue(defaults.due) {}

CProjectNode::~CProjectNode() {
    FreeHours(m_pHours);
    FreeCosts(m_pCosts);
    FreeCosts(m_pCosts2);
}

CProjectNode* CProjectNode::CloneUnlinked() const {
    auto* copy = new CProjectNode(*this);
    copy->m_pNext = nullptr;
    copy->m_pPrev = nullptr;
    copy->m_pHours = CopyHours(m_pHours);
    copy->m_pCosts = CopyCosts(m_pCosts);
    copy->m_pCosts2 = CopyCosts(m_pCosts2);
    return copy;
}
