// Any bytes as "Bearbeiter.dat": reading ends, yields no more presets than the bytes can hold, and
// what it yields is saved and read back unchanged.
#include "files/AssigneeFile.h"

#include <cstdint>
#include <cstdlib>
#include <string_view>

using namespace velto;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const auto presets = ParseAssignees(std::string_view(reinterpret_cast<const char*>(data), size));
    // One byte and one separator at the least per preset.
    if (presets.size() > size / 2)
        std::abort();
    if (ParseAssignees(FormatAssignees(presets)) != presets)
        std::abort();
    return 0;
}
