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

// Copies source into the entries of reuse, adding entries when it runs short and freeing what is
// left over; the strings of reused entries keep their buffers.
template <typename Entry> Entry* CopyEntriesInto(Entry* reuse, const Entry* source) {
    Entry* first = reuse;
    Entry** link = &first;
    for (; source; source = source->m_pNext) {
        if (!*link)
            *link = new Entry;
        Entry* const next = (*link)->m_pNext;
        **link = *source;
        (*link)->m_pNext = next;
        link = &(*link)->m_pNext;
    }
    FreeEntries(*link);
    *link = nullptr;
    return first;
}

} // namespace

void FreeHours(CHoursEntry* head) {
    FreeEntries(head);
}
void FreeCosts(CCostEntry* head) {
    FreeEntries(head);
}
CHoursEntry* CopyHours(const CHoursEntry* head) {
    return CopyEntries(head);
}
CCostEntry* CopyCosts(const CCostEntry* head) {
    return CopyEntries(head);
}

NodeDefaults NodeDefaults::Current() {
    const CTime now = CTime::GetCurrentTime();
    return {now, CTime::TodayAt(1, 0, 0), CTime::TodayAt(23, 59, 59)};
}

CProjectNode::CProjectNode() : CProjectNode(NodeDefaults::Current()) {}

CProjectNode::CProjectNode(const NodeDefaults& defaults)
    : m_timeDue(defaults.due), m_timeCreated(defaults.now), m_timeChanged(defaults.now),
      m_timeDone(defaults.now), m_timeStart(defaults.start) {}

CProjectNode::~CProjectNode() {
    FreeHours(m_pHours);
    FreeCosts(m_pCosts);
    FreeCosts(m_pCosts2);
}

void CProjectNode::AssignContentOf(const CProjectNode& other) {
    CProjectNode* const next = m_pNext;
    CProjectNode* const prev = m_pPrev;
    CHoursEntry* const hours = m_pHours;
    CCostEntry* const costs = m_pCosts;
    CCostEntry* const costs2 = m_pCosts2;
    *this = other;
    m_pNext = next;
    m_pPrev = prev;
    m_pHours = CopyEntriesInto(hours, other.m_pHours);
    m_pCosts = CopyEntriesInto(costs, other.m_pCosts);
    m_pCosts2 = CopyEntriesInto(costs2, other.m_pCosts2);
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
