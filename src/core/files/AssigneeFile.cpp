#include "files/AssigneeFile.h"

#include "files/TokenReader.h"

namespace velto {

std::vector<std::string> ParseAssignees(std::string_view bytes) {
    std::vector<std::string> presets;
    TokenReader in(bytes);
    for (auto token = in.NextToken(); token && !in.ReachedEnd(); token = in.NextToken())
        presets.push_back(DecodeBlanks(*token));
    return presets;
}

std::string FormatAssignees(const std::vector<std::string>& presets) {
    std::string out;
    for (const std::string& preset : presets) {
        out += EncodeBlanks(preset);
        out += '\r';
    }
    return out;
}

AssigneeFileContent ReadAssigneeFile(const std::string& path, FileSystem& fs) {
    const DataFileBytes read = ReadDataFile(fs, path);
    return {ParseAssignees(read.bytes), !read.bytes.empty(), read.error};
}

SaveOutcome SaveAssignees(const std::string& path, const std::vector<std::string>& presets, FileSystem& fs) {
    return SaveDataFile(fs, path, FormatAssignees(presets));
}

} // namespace velto
