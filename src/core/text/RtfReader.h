#pragma once
// Reads RTF as the Windows rich-edit control and word processors write it. Reading never fails: bad
// input (unbalanced braces, a cut-off file, absurd numbers, deep nesting) gives as much of the text as
// could be read. Input that does not begin with "{\rtf" is taken as plain Windows-1252 text, as the
// rich-edit control takes it.
#include "text/RtfDocument.h"

#include <string>
#include <string_view>

namespace velto::rtf {

Document ReadRtf(std::string_view rtf);

// The text alone, UTF-8: paragraphs separated by '\n', line breaks inside a paragraph as '\n', tabs
// as '\t'. The same as joining the paragraphs of ReadRtf, but several times faster.
std::string PlainText(std::string_view rtf);

// Whether the text is RTF at all (it begins with "{\rtf").
bool IsRtf(std::string_view text);

} // namespace velto::rtf
