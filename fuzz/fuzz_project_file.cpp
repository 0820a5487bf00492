// The project file reader on arbitrary bytes: it must return, without crashing, leaking or reading
// out of bounds, and what it accepts must survive a write and a second read unchanged.
#include "document/ProjectFile.h"

#include <cstdint>
#include <cstdlib>
#include <span>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    ProjectContent content;
    const ReadResult result = ReadProject(std::span<const uint8_t>(data, size), content);
    if (result.status == ReadStatus::Error) {
        if (content.firstNode)
            std::abort();
        return 0;
    }
    const std::vector<uint8_t> written = WriteProject(content);
    ProjectContent again;
    if (ReadProject(written, again).status != ReadStatus::Ok || WriteProject(again) != written)
        std::abort();
    return 0;
}
