#include "JsonWriter.h"

#include "JsonText.h"
#include "model/Cp1252.h"

#include <algorithm>
#include <cstring>

namespace velto {

namespace {

// The longest form of one byte of a text: \u00XX.
constexpr size_t kLongestEscape = 6;

} // namespace

void JsonWriter::Key(std::string_view name) {
    String(name);
    Put(": ");
    m_afterKey = true;
}

void JsonWriter::Raw(std::string_view text) {
    Separate();
    Put(text);
}

// Room for the longest form of the whole text is made first, so that the runs and escapes are
// copied without a check each.
void JsonWriter::String(std::string_view text) {
    Separate();
    char* out = Room(text.size() * kLongestEscape + 2);
    *out++ = '"';
    for (const char *at = text.data(), *end = at + text.size(); at < end;) {
        const size_t run = jsontext::PlainRun(at, end);
        std::memcpy(out, at, run);
        out += run;
        at += run;
        if (at < end)
            out = Escape(static_cast<unsigned char>(*at++), out);
    }
    *out++ = '"';
    m_size = size_t(out - m_text.get());
}

char* JsonWriter::Escape(unsigned char byte, char* out) {
    static constexpr char kHex[] = "0123456789abcdef";
    const auto put = [out](std::string_view text) { return std::copy(text.begin(), text.end(), out); };
    switch (byte) {
    case '"':
        return put("\\\"");
    case '\\':
        return put("\\\\");
    case '\n':
        return put("\\n");
    case '\r':
        return put("\\r");
    case '\t':
        return put("\\t");
    default:
        break;
    }
    if (byte < 0x80) {
        const char control[] = {'\\', 'u', '0', '0', kHex[byte >> 4], kHex[byte & 0xF]};
        return put({control, sizeof control});
    }
    std::string utf8;
    cp1252::AppendUtf8(utf8, cp1252::ToUnicode(byte));
    return put(utf8);
}

void JsonWriter::Open(char bracket, bool oneLine) {
    Separate();
    Put(bracket);
    m_levels.push_back({oneLine});
}

void JsonWriter::Close(char bracket) {
    const Level level = m_levels.back();
    m_levels.pop_back();
    if (!level.oneLine && !level.empty)
        NewLine();
    Put(bracket);
    if (m_levels.empty())
        Put('\n');
}

void JsonWriter::Separate() {
    if (m_size >= kFlushBytes)
        Flush();
    if (m_afterKey) {
        m_afterKey = false;
        return;
    }
    if (m_levels.empty())
        return;
    Level& level = m_levels.back();
    if (!level.empty)
        Put(level.oneLine ? ", " : ",");
    if (!level.oneLine)
        NewLine();
    level.empty = false;
}

void JsonWriter::Flush() {
    m_sink.write(m_text.get(), std::streamsize(m_size));
    m_size = 0;
}

void JsonWriter::NewLine() {
    const size_t indent = 2 * m_levels.size();
    char* out = Room(indent + 1);
    *out = '\n';
    std::memset(out + 1, ' ', indent);
    m_size += indent + 1;
}

char* JsonWriter::Room(size_t count) {
    if (m_size + count > m_capacity) {
        const size_t capacity = std::max({m_capacity * 2, m_size + count, kFlushBytes * 2});
        auto text = std::make_unique_for_overwrite<char[]>(capacity);
        std::copy_n(m_text.get(), m_size, text.get());
        m_text = std::move(text);
        m_capacity = capacity;
    }
    return m_text.get() + m_size;
}

void JsonWriter::Put(std::string_view text) {
    std::memcpy(Room(text.size()), text.data(), text.size());
    m_size += text.size();
}

void JsonWriter::Put(char c) {
    *Room(1) = c;
    ++m_size;
}

} // namespace velto
