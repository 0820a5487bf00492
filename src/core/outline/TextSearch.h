#pragma once
// The text search over a project: which parts of a node hold a text, and one search step from the
// selected node, forwards, backwards or in place, round the end of the list at most once.
#include "model/ProjectNode.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace velto {

class SearchTexts;

// The parts of a node a search looks into, in the order it tests them; a set of parts is a mask.
enum SearchPart : unsigned {
    kPartTitle = 1u << 0,
    kPartNote = 1u << 1,
    kPartHours = 1u << 2,
    kPartCalculatedCosts = 1u << 3,
    kPartNeededCosts = 1u << 4,
};
using SearchParts = unsigned;
inline constexpr int kSearchPartCount = 5;

// Search as you type starts at this many characters; shorter texts would jump through the whole
// project on every key.
inline constexpr size_t kMinTypedSearchLength = 3;

// A text to look for, ready to be compared with the model's Windows-1252 texts.
class SearchText {
public:
    // Finds nothing: the empty text, and a text the user typed that Windows-1252 cannot hold.
    SearchText() = default;
    // Without matchCase a letter also matches its other case (every letter of Windows-1252).
    SearchText(std::string_view cp1252, bool matchCase);

    bool FindsNothing() const { return m_text.empty(); }
    // Whether the Windows-1252 text holds this one.
    bool FoundIn(std::string_view text) const;

private:
    bool IsStart(unsigned char first, unsigned char last) const {
        return (first == m_first[0] || first == m_first[1]) && (last == m_last[0] || last == m_last[1]);
    }
    bool EqualsAt(const unsigned char* at) const;
    // Whether the text stands at one of the starts whose bits are set in mask.
    bool EqualsAtOneOf(const unsigned char* at, unsigned mask) const;
    // Tests 16 starts at a time from 0 on while they fit; returns the start where they no longer do,
    // or kFound.
    static constexpr size_t kFound = size_t(-1);
    size_t FoundInBlocks(const unsigned char* text, size_t starts) const;

    std::string m_text; // folded unless the case matters
    bool m_matchCase = true;
    // The bytes the first and the last character may be: both cases, or the one byte twice.
    unsigned char m_first[2] = {};
    unsigned char m_last[2] = {};
};

// The search direction: backward, in place (from the selected node itself) and forward.
inline constexpr int kSearchBackward = -1;
inline constexpr int kSearchInPlace = 0;
inline constexpr int kSearchForward = +1;

struct SearchHit {
    CProjectNode* node = nullptr; // null when nothing holds the text
    SearchParts parts = 0;        // every part of node that holds it
};

// One search step from the selected node. In place tests the selected node first, then walks
// forward; forward and backward start at its neighbour and leave it out. Running off one end of the
// list goes on at the other. The pass ends where it came back to the selected node, so each node is
// tested at most once, the selected node's neighbour on the far side last, and a search never loops.
// Without a selected node the pass covers the whole list from the first node (the last backward).
// A node holds the text when its title, its note or an entry's assignee or remark does.
SearchHit SearchStep(CProjectNode* first, const SearchText& text, int direction, SearchTexts& texts);

} // namespace velto
