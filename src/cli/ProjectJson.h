#pragma once
// The JSON form of a project file, for velto-cli dump and build: every stored value in file order,
// texts in UTF-8. Building from the JSON that dumping gave yields the same file bytes.
#include "document/ProjectFile.h"

#include <ostream>
#include <string>
#include <string_view>

namespace velto {

// Writes the JSON to out as it goes.
void WriteProjectJson(const ProjectContent& content, std::ostream& out);

// Fills content from JSON text. False, with a message naming the field (as a path such as
// nodes[2].hours[0].remark), when a field is missing or unknown, of the wrong kind, out of range,
// or a text that Windows-1252 cannot hold.
bool ProjectFromJson(std::string_view text, ProjectContent& content, std::string& error);

} // namespace velto
