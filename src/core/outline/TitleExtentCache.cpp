#include "outline/TitleExtentCache.h"

#include <iterator>

namespace velto {

uint8_t TitleExtentCache::FlagsOf(const CProjectNode& node) {
    return uint8_t((node.m_bBold ? 1 : 0) | (node.m_bItalic ? 2 : 0) | (node.m_bUnderline ? 4 : 0) |
                   (node.m_bStrikeOut ? 8 : 0));
}

TextExtent TitleExtentCache::Get(const CProjectNode& node, int size, TextMeasurer& measurer) {
    Entry& entry = m_entries[&node];
    const uint8_t flags = FlagsOf(node);
    if (entry.pass != m_pass)
        ++m_usedThisPass;
    entry.pass = m_pass;
    // Texts are never changed in place: an unchanged title is the very same word, compared at once.
    if (entry.size == size && entry.flags == flags && entry.title == node.m_strTitle &&
        entry.fontName == node.m_strFontName)
        return entry.extent;
    entry.title = node.m_strTitle;
    entry.fontName = node.m_strFontName;
    entry.size = size;
    entry.flags = flags;
    entry.extent = measurer.Measure(node.m_strTitle.str(), TitleStyleOf(node, size));
    return entry.extent;
}

void TitleExtentCache::EndPass() {
    if (m_entries.size() > 2 * m_usedThisPass + 64) {
        for (auto it = m_entries.begin(); it != m_entries.end();)
            it = it->second.pass == m_pass ? std::next(it) : m_entries.erase(it);
    }
    ++m_pass;
    m_usedThisPass = 0;
}

} // namespace velto
