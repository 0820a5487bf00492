#pragma once
// The JSON form of a project file, for velto-cli dump and build: every stored value in file order,
// texts in UTF-8. Building from the JSON that dumping gave yields the same file bytes. Both
// directions stream: the JSON is never held whole, so its size is bounded only by the project's.
#include "JsonReader.h"
#include "document/ProjectFile.h"

#include <ostream>
#include <string>

namespace velto {

// Writes the JSON to out as it goes.
void WriteProjectJson(const ProjectContent& content, std::ostream& out);

// Fills content from the JSON text that read hands over. False, with a message, when the text is
// no JSON (naming line and column) or not one object, and when a field is missing or unknown, of
// the wrong kind, out of range, or a text that Windows-1252 cannot hold (naming the field as a path
// such as nodes[2].hours[0].remark). Keys may come in any order; of a key given twice the last value
// counts. Of several problems the message names the one of the first field in the order above.
bool ProjectFromJson(const JsonPieceReader& read, ProjectContent& content, std::string& error);

} // namespace velto
