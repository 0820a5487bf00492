#include "document/LockFile.h"

#include "model/Cp1252.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace {

constexpr size_t kLockRecordSize = 256;

} // namespace

std::string ProjectBaseName(const std::string& projectPath) {
    // Only a dot in the file name starts the extension: a dot in a folder name must not send the
    // lock file into another folder.
    const size_t slash = projectPath.rfind('/');
    const size_t nameStart = slash == std::string::npos ? 0 : slash + 1;
    const size_t dot = projectPath.rfind('.');
    if (dot == std::string::npos || dot < nameStart)
        return projectPath;
    return projectPath.substr(0, dot);
}

std::string LockFilePath(const std::string& projectPath) {
    return ProjectBaseName(projectPath) + ".~~~";
}

std::string BackupFilePath(const std::string& projectPath, int index) {
    return ProjectBaseName(projectPath) + ".BK" + std::to_string(index);
}

std::vector<uint8_t> LockRecord(const std::string& userName) {
    std::vector<uint8_t> record(kLockRecordSize, 0);
    // One byte stays zero so that the name always ends inside the record.
    const std::string name = cp1252::FromUtf8Lossy(userName).substr(0, kLockRecordSize - 1);
    std::copy(name.begin(), name.end(), record.begin());
    return record;
}

int ReadLockHolder(FileSystem& fs, const std::string& lockPath, std::string& holder) {
    std::vector<uint8_t> bytes;
    const int result = ReadFileBytes(fs, lockPath, bytes, kLockRecordSize);
    if (result < 0)
        return result;
    // The name is read over "???", as the program always did: a lock file shorter than the
    // placeholder keeps its tail, so an empty one names "???".
    std::array<char, kLockRecordSize + 1> buffer{'?', '?', '?'};
    std::memcpy(buffer.data(), bytes.data(), bytes.size());
    holder = cp1252::ToUtf8(buffer.data());
    return 0;
}
