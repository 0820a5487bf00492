#pragma once
// Writes formatted text as RTF that the Windows rich-edit control and common word processors read back
// with the same text and formats; reading it back with ReadRtf gives the same Document.
#include "text/RtfDocument.h"

#include <string>

namespace velto::rtf {

std::string WriteRtf(const Document& document);

} // namespace velto::rtf
