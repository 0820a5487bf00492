#pragma once
// Small helpers shared by the RTF tests: the text of a document read back and a format builder.
#include "text/RtfDocument.h"

#include <string>
#include <vector>

namespace velto::rtftest {

// The paragraphs' texts, runs joined.
inline std::vector<std::string> Texts(const rtf::Document& document) {
    std::vector<std::string> texts;
    for (const rtf::Paragraph& paragraph : document.paragraphs) {
        std::string text;
        for (const rtf::Run& run : paragraph.runs)
            text += run.text;
        texts.push_back(text);
    }
    return texts;
}

// What PlainText promises to equal: the paragraphs joined by line ends, line breaks as line ends.
inline std::string Joined(const rtf::Document& document) {
    std::string joined;
    for (const std::string& text : Texts(document))
        joined += text + '\n';
    if (!joined.empty())
        joined.pop_back();
    for (size_t pos; (pos = joined.find("\xE2\x80\xA8")) != std::string::npos;) // U+2028
        joined.replace(pos, 3, 1, '\n');
    return joined;
}

inline rtf::CharFormat Format(std::string face, int halfPoints = rtf::kDefaultHalfPoints) {
    rtf::CharFormat format;
    format.face = std::move(face);
    format.halfPoints = halfPoints;
    return format;
}

} // namespace velto::rtftest
