#pragma once
// The measured extents of node titles, kept per node until its title, font or format changes, so
// that laying out a large map anew after a change measures only what changed. A node that was
// freed and whose address came back for another node is told apart by its title and format: its
// entry is measured again unless they are the same, and then the extent is the same too.
#include "model/SharedText.h"
#include "outline/MindMapGeometry.h"

#include <cstddef>
#include <cstdint>
#include <unordered_map>

namespace velto {

class TitleExtentCache {
public:
    // The extent of node's title at this character height, measured only when it is not known.
    TextExtent Get(const CProjectNode& node, int size, TextMeasurer& measurer);
    // Ends one layout pass: when far more entries are kept than the pass used (nodes deleted, or a
    // large branch collapsed), those it did not use are forgotten.
    void EndPass();
    size_t Size() const { return m_entries.size(); }

private:
    struct Entry {
        SharedText title;
        SharedText fontName;
        int size = 0;
        uint8_t flags = 0;
        uint32_t pass = 0;
        TextExtent extent;
    };
    static uint8_t FlagsOf(const CProjectNode& node);

    std::unordered_map<const CProjectNode*, Entry> m_entries;
    uint32_t m_pass = 1;
    size_t m_usedThisPass = 0;
};

} // namespace velto
