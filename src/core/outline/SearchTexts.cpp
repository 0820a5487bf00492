#include "outline/SearchTexts.h"

namespace velto {

namespace {

void Append(std::string& texts, std::string_view text) {
    texts += text;
    texts += '\0';
}

template <class List> void AppendEntries(std::string& texts, const List& list) {
    for (const auto& entry : list) {
        Append(texts, entry.m_str1);
        Append(texts, entry.m_str2);
    }
}

} // namespace

bool SearchTexts::Taken::StillMatches(const CProjectNode& current) const {
    return title == current.m_strTitle && note == current.m_strNote &&
           hours.SharesBlockWith(current.m_pHours) && calculated.SharesBlockWith(current.m_pCosts) &&
           needed.SharesBlockWith(current.m_pCosts2);
}

void SearchTexts::Update(CProjectNode* first) {
    if (m_nodes.empty() || m_nodes.front().node != first)
        return TakeAll(first);
    // The nodes are read by the addresses kept here rather than by following the links, so that the
    // processor fetches many of them at once; a node is only read once the node before it, which is
    // in the list, has been found to link to it.
    size_t selected = kNone;
    for (size_t position = 0; position < m_nodes.size(); ++position) {
        CProjectNode* node = m_nodes[position].node;
        const CProjectNode* next = position + 1 < m_nodes.size() ? m_nodes[position + 1].node : nullptr;
        if (node->m_pNext != next)
            return TakeAll(first);
        if (!m_nodes[position].StillMatches(*node))
            Retake(position);
        if (node->m_bSelected && selected == kNone)
            selected = position;
    }
    if (m_unused > m_texts.size() / 2)
        return TakeAll(first);
    m_selected = selected;
}

void SearchTexts::TakeAll(CProjectNode* first) {
    // The first time, every note is new: parse them on all cores before they are asked for.
    if (m_nodes.empty())
        m_notes.StartPreparing(first);
    m_nodes.clear();
    m_texts.clear();
    m_unused = 0;
    m_selected = kNone;
    for (CProjectNode* node = first; node; node = node->m_pNext) {
        if (node->m_bSelected && m_selected == kNone)
            m_selected = m_nodes.size();
        m_nodes.push_back(Take(node));
    }
    // The notes of changed and deleted nodes are no longer needed.
    m_notes.ForgetUnused();
}

// A node changed in place (its title, note or an entry was edited): its texts go to the end, and
// what they replace is left unused until TakeAll starts afresh.
void SearchTexts::Retake(size_t position) {
    Taken& taken = m_nodes[position];
    m_unused += taken.ends[3] - taken.begin + taken.noteText.size();
    taken = Take(taken.node);
}

SearchTexts::Taken SearchTexts::Take(CProjectNode* node) {
    Taken taken{node,
                node->m_strTitle,
                node->m_strNote,
                node->m_pHours,
                node->m_pCosts,
                node->m_pCosts2,
                m_notes.Get(node->m_strNote),
                m_texts.size(),
                {}};
    Append(m_texts, node->m_strTitle);
    taken.ends[0] = m_texts.size();
    AppendEntries(m_texts, node->m_pHours);
    taken.ends[1] = m_texts.size();
    AppendEntries(m_texts, node->m_pCosts);
    taken.ends[2] = m_texts.size();
    AppendEntries(m_texts, node->m_pCosts2);
    taken.ends[3] = m_texts.size();
    return taken;
}

bool SearchTexts::Holds(size_t position, const SearchText& text) const {
    const Taken& taken = m_nodes[position];
    const std::string_view texts(m_texts.data() + taken.begin, taken.ends[3] - taken.begin);
    return text.FoundIn(texts) || text.FoundIn(taken.noteText);
}

SearchParts SearchTexts::PartsHolding(size_t position, const SearchText& text) const {
    const Taken& taken = m_nodes[position];
    const auto holds = [&](size_t begin, size_t end) {
        return text.FoundIn(std::string_view(m_texts.data() + begin, end - begin));
    };
    SearchParts parts = 0;
    if (holds(taken.begin, taken.ends[0]))
        parts |= kPartTitle;
    if (text.FoundIn(taken.noteText))
        parts |= kPartNote;
    if (holds(taken.ends[0], taken.ends[1]))
        parts |= kPartHours;
    if (holds(taken.ends[1], taken.ends[2]))
        parts |= kPartCalculatedCosts;
    if (holds(taken.ends[2], taken.ends[3]))
        parts |= kPartNeededCosts;
    return parts;
}

} // namespace velto
