#pragma once
// What the text search reads of a project, kept from one step to the next: for every node in list
// order, its title, the plain text of its note and the assignee and remark of every entry. A step
// then reads these in one sweep instead of visiting the node's title, note and three entry lists
// wherever they lie in memory, which is what makes a pass over a large project take milliseconds.
//
// Update compares each node with what was taken from it: a node keeps its texts as long as its
// title, note and lists are the very ones they were (texts and lists are never changed in place, and
// the copies kept here hold them, so nothing else can take their place). A node that changed has its
// texts taken anew; when nodes came, went or moved, all are, the notes' plain text from the note
// cache, so only changed notes are parsed.
#include "outline/NoteSearchTexts.h"
#include "outline/TextSearch.h"

#include <cstddef>
#include <string>
#include <vector>

namespace velto {

class SearchTexts {
public:
    // Brings the texts in line with the list from first on.
    void Update(CProjectNode* first);
    // Starts parsing the notes in the background (NoteSearchTexts::StartPreparing).
    void StartPreparing(const CProjectNode* first) { m_notes.StartPreparing(first); }

    // As of the last Update: the number of nodes, the position of the first selected node (none when
    // no node is selected), and each node.
    static constexpr size_t kNone = size_t(-1);
    size_t Count() const { return m_nodes.size(); }
    size_t SelectedPosition() const { return m_selected; }
    CProjectNode* NodeAt(size_t position) const { return m_nodes[position].node; }

    // Whether any part of the node at position holds text.
    bool Holds(size_t position, const SearchText& text) const;
    // The parts of the node at position that hold text.
    SearchParts PartsHolding(size_t position, const SearchText& text) const;

private:
    // What a node's texts were taken from, and where they are kept.
    struct Taken {
        CProjectNode* node;
        SharedText title;
        NoteText note;
        CHoursList hours;
        CCostList calculated;
        CCostList needed;
        std::string_view noteText;
        // The title and the entry texts in m_texts, each followed by a NUL: title, hours, calculated
        // costs, needed costs, each part ending at the next end.
        size_t begin;
        size_t ends[4];

        // Whether the node's title, note and lists are still those the texts were taken from.
        bool StillMatches(const CProjectNode& current) const;
    };

    void TakeAll(CProjectNode* first);
    void Retake(size_t position);
    Taken Take(CProjectNode* node);

    std::vector<Taken> m_nodes;
    // The title and entry texts of all nodes, in list order but for retaken nodes. A search text
    // never holds a NUL, so the NUL after each text keeps a match from running into the next one.
    std::string m_texts;
    // Bytes of texts, and of notes in the note cache, that changed nodes left behind.
    size_t m_unused = 0;
    size_t m_selected = kNone;
    NoteSearchTexts m_notes;
};

} // namespace velto
