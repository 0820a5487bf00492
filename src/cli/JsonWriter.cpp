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
    for (const char c : utf8) {
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
            if (static_cast<unsigned char>(c) < 0x20) {
                m_out += "\\u00";
                m_out += kHex[c >> 4];
                m_out += kHex[c & 0xF];
            } else {
                m_out += c;
            }
        }
    }
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

void JsonWriter::NewLine() {
    m_out += '\n';
    m_out.append(2 * m_levels.size(), ' ');
}

} // namespace velto
