#include "outline/TextSearch.h"

#include "model/Cp1252.h"
#include "outline/SearchTexts.h"

#include <array>
#include <bit>
#include <cstring>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace velto {

namespace {

// FoldCase as a table: a search compares every byte of a project's notes through it.
constexpr std::array<unsigned char, 256> kFolded = [] {
    std::array<unsigned char, 256> table{};
    for (int byte = 0; byte < 256; ++byte)
        table[byte] = cp1252::FoldCase(static_cast<unsigned char>(byte));
    return table;
}();

// The other byte that folds to folded, or folded itself when the letter has one case only.
unsigned char OtherCase(unsigned char folded) {
    for (int byte = 0; byte < 256; ++byte)
        if (byte != folded && kFolded[byte] == folded)
            return static_cast<unsigned char>(byte);
    return folded;
}

} // namespace

SearchText::SearchText(std::string_view cp1252, bool matchCase) : m_matchCase(matchCase) {
    // The notes' texts stand for what Windows-1252 cannot hold with a NUL, so a NUL must find
    // nothing; no edit produces one anyway.
    if (cp1252.empty() || cp1252.find('\0') != std::string_view::npos)
        return;
    m_text = cp1252;
    if (!matchCase)
        for (char& byte : m_text)
            byte = static_cast<char>(kFolded[static_cast<unsigned char>(byte)]);
    const auto first = static_cast<unsigned char>(m_text.front());
    const auto last = static_cast<unsigned char>(m_text.back());
    m_first[0] = first;
    m_last[0] = last;
    m_first[1] = matchCase ? first : OtherCase(first);
    m_last[1] = matchCase ? last : OtherCase(last);
}

bool SearchText::EqualsAt(const unsigned char* at) const {
    if (m_matchCase)
        return std::memcmp(at, m_text.data(), m_text.size()) == 0;
    for (size_t i = 0; i < m_text.size(); ++i)
        if (kFolded[at[i]] != static_cast<unsigned char>(m_text[i]))
            return false;
    return true;
}

// Kept out of line, so that the loop of FoundInBlocks keeps its registers.
[[gnu::noinline]] bool SearchText::EqualsAtOneOf(const unsigned char* at, unsigned mask) const {
    for (; mask; mask &= mask - 1)
        if (EqualsAt(at + std::countr_zero(mask)))
            return true;
    return false;
}

bool SearchText::FoundIn(std::string_view text) const {
    const size_t length = m_text.size();
    if (length == 0 || text.size() < length)
        return false;
    const auto* bytes = reinterpret_cast<const unsigned char*>(text.data());
    const size_t starts = text.size() - length + 1;
    size_t start = FoundInBlocks(bytes, starts);
    if (start == kFound)
        return true;
    for (; start < starts; ++start)
        if (IsStart(bytes[start], bytes[start + length - 1]) && EqualsAt(bytes + start))
            return true;
    return false;
}

#if defined(__SSE2__)
// Compares the first and the last character at 16 starts at once, so that a note is passed over at
// memory speed and only the rare start where both fit is compared in full.
size_t SearchText::FoundInBlocks(const unsigned char* text, size_t starts) const {
    const __m128i first0 = _mm_set1_epi8(static_cast<char>(m_first[0]));
    const __m128i first1 = _mm_set1_epi8(static_cast<char>(m_first[1]));
    const __m128i last0 = _mm_set1_epi8(static_cast<char>(m_last[0]));
    const __m128i last1 = _mm_set1_epi8(static_cast<char>(m_last[1]));
    const unsigned char* tail = text + m_text.size() - 1;
    size_t start = 0;
    for (; start + 16 <= starts; start += 16) {
        const __m128i heads = _mm_loadu_si128(reinterpret_cast<const __m128i*>(text + start));
        const __m128i tails = _mm_loadu_si128(reinterpret_cast<const __m128i*>(tail + start));
        const __m128i fits =
            _mm_and_si128(_mm_or_si128(_mm_cmpeq_epi8(heads, first0), _mm_cmpeq_epi8(heads, first1)),
                          _mm_or_si128(_mm_cmpeq_epi8(tails, last0), _mm_cmpeq_epi8(tails, last1)));
        const auto mask = unsigned(_mm_movemask_epi8(fits));
        if (mask != 0 && EqualsAtOneOf(text + start, mask)) [[unlikely]]
            return kFound;
    }
    return start;
}
#else
size_t SearchText::FoundInBlocks(const unsigned char*, size_t) const {
    return 0;
}
#endif

SearchHit SearchStep(CProjectNode* first, const SearchText& text, int direction, SearchTexts& texts) {
    if (text.FindsNothing())
        return {};
    texts.Update(first);
    const size_t count = texts.Count();
    if (count == 0)
        return {};
    const bool backward = direction < 0;
    const size_t selected = texts.SelectedPosition();
    const size_t origin = selected != SearchTexts::kNone ? selected : (backward ? count - 1 : 0);
    const auto next = [&](size_t position) {
        if (backward)
            return position == 0 ? count - 1 : position - 1;
        return position + 1 == count ? 0 : position + 1;
    };
    const auto hit = [&](size_t position) {
        return SearchHit{texts.NodeAt(position), texts.PartsHolding(position, text)};
    };
    if ((direction == kSearchInPlace || selected == SearchTexts::kNone) && texts.Holds(origin, text))
        return hit(origin);
    for (size_t position = next(origin); position != origin; position = next(position))
        if (texts.Holds(position, text))
            return hit(position);
    return {};
}

} // namespace velto
