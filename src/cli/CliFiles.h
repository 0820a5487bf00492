#pragma once
// The files velto-cli reads and writes: read whole or piece by piece, and written so that a failure
// leaves nothing behind (a temporary file beside the target, renamed into place once complete).
#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <vector>

// A regular file open for reading; closed when this goes.
class InputFile {
public:
    InputFile() = default;
    ~InputFile();
    InputFile(const InputFile&) = delete;
    InputFile& operator=(const InputFile&) = delete;

    // False with a German message naming the file when it cannot be opened or is no regular file.
    bool Open(const std::string& path, std::string& error);
    uint64_t Size() const { return m_size; }
    // Up to size bytes; 0 at the end, -errno on failure.
    int64_t Read(uint8_t* buffer, size_t size);

private:
    int m_fd = -1;
    uint64_t m_size = 0;
};

// False with a German message naming the file when it cannot be opened or read.
bool ReadWholeFile(const std::string& path, std::vector<uint8_t>& bytes, std::string& error);
// Produces a file's bytes by handing them, piece by piece, to the sink it is given; false when the
// sink refused a piece.
using FileWriter = std::function<bool(const std::function<bool(std::span<const uint8_t>)>& sink)>;
// Runs writer into a temporary file beside path and renames it into place. False with a German
// message naming the file; the target is then unchanged or absent.
bool WriteFileSafely(const std::string& path, const FileWriter& writer, std::string& error);
