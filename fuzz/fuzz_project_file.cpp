// The project file reader on arbitrary bytes: it must return without crashing, leaking or reading
// out of bounds; reading the bytes streamed in small pieces must come to the same result; and what
// it accepts must survive a write and a second read unchanged.
#include "document/ProjectFile.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <span>

using namespace velto;

namespace {

ReadResult ReadStreamed(std::span<const uint8_t> bytes, ProjectContent& content) {
    // The piece size varies with the input, so that the window is refilled at every kind of boundary.
    const size_t piece = bytes.empty() ? 1 : bytes.back() % 13 + 1;
    size_t pos = 0;
    return ReadProject(
        bytes.size(),
        [&](uint8_t* buffer, size_t size) {
            const size_t count = std::min({size, piece, bytes.size() - pos});
            std::memcpy(buffer, bytes.data() + pos, count);
            pos += count;
            return int64_t(count);
        },
        content);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::span<const uint8_t> bytes(data, size);
    ProjectContent content;
    const ReadResult result = ReadProject(bytes, content);
    ProjectContent streamed;
    const ReadResult streamedResult = ReadStreamed(bytes, streamed);
    if (streamedResult.status != result.status || streamedResult.what != result.what ||
        streamedResult.offset != result.offset)
        std::abort();
    if (result.status == ReadStatus::Error) {
        if (content.firstNode || streamed.firstNode)
            std::abort();
        return 0;
    }
    const std::vector<uint8_t> written = WriteProject(content);
    ProjectContent again;
    if (ReadProject(written, again).status != ReadStatus::Ok || WriteProject(again) != written)
        std::abort();
    return 0;
}
