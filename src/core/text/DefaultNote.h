#pragma once
// The note every new node and new document starts with.
#include <string>

namespace velto {

// The raw RTF template with the given face name, as the program has always written it before
// the rich-text engine normalises it.
std::string DefaultNoteTemplate(const std::string& faceName);
// The default note: the template with faceName, with fontSize (points) applied to all its text.
std::string MakeDefaultNote(const std::string& faceName, int fontSize);

} // namespace velto
