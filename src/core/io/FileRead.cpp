#include "io/FileRead.h"

#include <cstdint>
#include <fcntl.h>
#include <vector>

namespace velto {

int ReadWholeFile(FileSystem& fs, const std::string& path, std::string& bytes) {
    const std::string target = ResolveFileLink(path);
    std::vector<uint8_t> read;
    const int result = ReadFileBytes(fs, target, read);
    if (result == 0)
        bytes.assign(read.begin(), read.end());
    else
        bytes.clear();
    return NameFolder(fs, target, result);
}

int NameFolder(FileSystem& fs, const std::string& path, int error) {
    if (error != kNotRegularFile)
        return error;
    const int folder = fs.Open(path, O_RDONLY | O_DIRECTORY);
    if (folder < 0)
        return error;
    fs.Close(folder);
    return -EISDIR;
}

std::string CannotReadMessage(const std::string& path, int error) {
    return "Die Datei \"" + path + "\" kann nicht gelesen werden: " + FileErrorReason(error) + ".";
}

} // namespace velto
