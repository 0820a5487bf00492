#pragma once
// "Bearbeiter.dat": predefined assignee texts, one token each followed by a carriage return,
// blanks stored as "#~*". Read like "Feiertage.dat": any white space separates, and a last token
// without a separator after it is lost.
#include "files/DataFileIo.h"

#include <string>
#include <string_view>
#include <vector>

namespace velto {

std::vector<std::string> ParseAssignees(std::string_view bytes);
// An empty preset is written as a bare carriage return and so does not come back.
std::string FormatAssignees(const std::vector<std::string>& presets);

// The presets of the file, or why it cannot be read (error: -errno; the file must then not be
// overwritten). A missing file holds none.
struct AssigneeFileContent {
    std::vector<std::string> presets;
    // The file holds at least one byte: the entry combo boxes then offer the presets only, and the
    // recent texts only otherwise (even when that byte is a lone separator).
    bool hasContent = false;
    int error = 0;
};
AssigneeFileContent ReadAssigneeFile(const std::string& path, FileSystem& fs = RealFileSystem());
// Writes the file; the previous one becomes "Bearbeiter.bak".
SaveOutcome SaveAssignees(const std::string& path, const std::vector<std::string>& presets,
                          FileSystem& fs = RealFileSystem());

} // namespace velto
