#include "JsonWriter.h"

namespace velto {

void JsonWriter::Key(std::string_view name) {
    String(name);
    m_out += ": ";
    m_afterKey = true;
}

void JsonWriter::Raw(std::string_view text) {
    Separate();
    m_out += text;
}

void JsonWriter::String(std::string_view utf8) {
    static constexpr char kHex[] = "0123456789abcdef";
    Separate();
    m_out += '"';
    // Runs that need no escape go in one piece: texts are long and escapes rare.
    size_t run = 0;
    for (size_t i = 0; i < utf8.size(); ++i) {
        const unsigned char c = static_cast<unsigned char>(utf8[i]);
        if (c >= 0x20 && c != '"' && c != '\\')
            continue;
        m_out.append(utf8.substr(run, i - run));
        run = i + 1;
        switch (c) {
        case '"':
            m_out += "\\\"";
            break;
        case '\\':
            m_out += "\\\\";
            break;
        case '\n':
            m_out += "\\n";
            break;
        case '\r':
            m_out += "\\r";
            break;
        case '\t':
            m_out += "\\t";
            break;
        default:
            m_out += "\\u00";
            m_out += kHex[c >> 4];
            m_out += kHex[c & 0xF];
        }
    }
    m_out.append(utf8.substr(run));
    m_out += '"';
}

void JsonWriter::Open(char bracket, bool oneLine) {
    Separate();
    m_out += bracket;
    m_levels.push_back({oneLine});
}

void JsonWriter::Close(char bracket) {
    const Level level = m_levels.back();
    m_levels.pop_back();
    if (!level.oneLine && !level.empty)
        NewLine();
    m_out += bracket;
    if (m_levels.empty())
        m_out += '\n';
}

void JsonWriter::Separate() {
    if (m_out.size() >= kFlushBytes)
        Flush();
    if (m_afterKey) {
        m_afterKey = false;
        return;
    }
    if (m_levels.empty())
        return;
    Level& level = m_levels.back();
    if (!level.empty)
        m_out += level.oneLine ? ", " : ",";
    if (!level.oneLine)
        NewLine();
    level.empty = false;
}

void JsonWriter::Flush() {
    m_sink.write(m_out.data(), std::streamsize(m_out.size()));
    m_out.clear();
}

void JsonWriter::NewLine() {
    m_out += '\n';
    m_out.append(2 * m_levels.size(), ' ');
}

} // namespace velto
