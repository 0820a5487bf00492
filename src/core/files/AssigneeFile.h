#pragma once
// "Bearbeiter.dat": predefined assignee texts, one token each followed by a carriage return,
// blanks stored as "#~*". Read like "Feiertage.dat": any white space separates, and a last token
// without a separator after it is lost.
#include <string>
#include <string_view>
#include <vector>

std::vector<std::string> ParseAssignees(std::string_view bytes);
// An empty preset is written as a bare carriage return and so does not come back.
std::string FormatAssignees(const std::vector<std::string>& presets);

// Reads the file; a missing file gives an empty list.
std::vector<std::string> LoadAssignees(const std::string& path);
// The file exists and holds at least one byte: the entry combo boxes then offer the presets only,
// and the recent texts only otherwise (even when that byte is a lone separator).
bool AssigneeFileHasContent(const std::string& path);
// Moves the old file to "Bearbeiter.bak" (replacing it) and writes the new one. False on failure.
bool SaveAssignees(const std::string& path, const std::vector<std::string>& presets);
