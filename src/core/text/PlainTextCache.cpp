#include "text/PlainTextCache.h"

#include "text/RtfReader.h"

#include <functional>

namespace velto::rtf {

const std::string& PlainTextCache::Get(std::string_view rtf) {
    const Key key{std::hash<std::string_view>()(rtf), rtf.size()};
    if (auto found = m_texts.find(key); found != m_texts.end())
        return found->second;
    if (m_texts.size() >= m_maxEntries)
        m_texts.clear();
    return m_texts.emplace(key, PlainText(rtf)).first->second;
}

} // namespace velto::rtf
