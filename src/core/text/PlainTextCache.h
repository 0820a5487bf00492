#pragma once
// Remembers the plain text of notes, keyed by the note's RTF, so that a search over many nodes parses a
// note only the first time it sees it and again only after it changed. The key is a 64-bit hash of the
// RTF with its length: hashing runs at memory speed, far faster than parsing, and keeps the cache from
// holding a second copy of every note.
//
// Bounded: when it holds maxEntries texts it starts afresh rather than grow.
#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>

namespace velto::rtf {

class PlainTextCache {
public:
    explicit PlainTextCache(size_t maxEntries = 200000) : m_maxEntries(maxEntries) {}

    // The plain text of the note (as PlainText gives it). The reference stays valid until the next call.
    const std::string& Get(std::string_view rtf);
    size_t Size() const { return m_texts.size(); }
    void Clear() { m_texts.clear(); }

private:
    struct Key {
        size_t hash;
        size_t length;
        bool operator==(const Key&) const = default;
    };
    struct KeyHash {
        size_t operator()(const Key& key) const { return key.hash ^ (key.length * 0x9E3779B97F4A7C15ull); }
    };

    size_t m_maxEntries;
    std::unordered_map<Key, std::string, KeyHash> m_texts;
};

} // namespace velto::rtf
