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
    const auto texts = Texts(document);
    for (size_t i = 0; i < texts.size(); ++i) {
        if (i > 0)
            joined += '\n';
        for (size_t pos = 0; pos < texts[i].size(); ++pos) {
            if (texts[i].compare(pos, 3, "\xE2\x80\xA8") == 0) { // U+2028
                joined += '\n';
                pos += 2;
            } else {
                joined += texts[i][pos];
            }
        }
    }
    return joined;
}

inline rtf::CharFormat Format(std::string face, int halfPoints = rtf::kDefaultHalfPoints) {
    rtf::CharFormat format;
    format.face = std::move(face);
    format.halfPoints = halfPoints;
    return format;
}

} // namespace velto::rtftest
