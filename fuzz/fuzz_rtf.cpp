// Fuzzes the RTF reader: any input must read without crashing, give the same text through the plain
// text path as through the document, and come back unchanged through the writer.
#include "text/RtfReader.h"
#include "text/RtfWriter.h"

#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

using namespace velto;

namespace {

std::string Joined(const rtf::Document& document) {
    std::string joined;
    for (size_t i = 0; i < document.paragraphs.size(); ++i) {
        if (i > 0)
            joined += '\n';
        for (const rtf::Run& run : document.paragraphs[i].runs)
            joined += run.text;
    }
    for (size_t pos = 0; (pos = joined.find("\xE2\x80\xA8", pos)) != std::string::npos;)
        joined.replace(pos, 3, "\n"); // line breaks are line ends in the plain text
    return joined;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string_view input(reinterpret_cast<const char*>(data), size);
    const rtf::Document document = rtf::ReadRtf(input);
    if (rtf::PlainText(input) != Joined(document))
        std::abort();
    if (rtf::ReadRtf(rtf::WriteRtf(document)) != document)
        std::abort();
    return 0;
}
