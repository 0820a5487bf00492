#include "files/AssigneeFile.h"

#include "files/DataFileIo.h"
#include "files/TokenReader.h"

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

std::vector<std::string> LoadAssignees(const std::string& path) {
    const auto bytes = ReadDataFile(path);
    return bytes ? ParseAssignees(*bytes) : std::vector<std::string>{};
}

bool AssigneeFileHasContent(const std::string& path) {
    const auto bytes = ReadDataFile(path);
    return bytes && !bytes->empty();
}

bool SaveAssignees(const std::string& path, const std::vector<std::string>& presets) {
    return SaveDataFile(path, FormatAssignees(presets));
}
