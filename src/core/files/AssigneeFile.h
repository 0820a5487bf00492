#pragma once
// "Bearbeiter.dat": predefined assignee texts, one token each followed by a carriage return,
// blanks stored as "#~*".
#include <string>
#include <string_view>
#include <vector>

std::vector<std::string> ParseAssignees(std::string_view bytes);
std::string FormatAssignees(const std::vector<std::string>& presets);

// Reads the file; a missing file gives an empty list.
std::vector<std::string> LoadAssignees(const std::string& path);
// Moves the old file to "Bearbeiter.bak" (replacing it) and writes the new one. False on failure.
bool SaveAssignees(const std::string& path, const std::vector<std::string>& presets);
