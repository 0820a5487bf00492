#include "text/NoteFormat.h"

#include <algorithm>
#include <cstdint>
#include <limits>

namespace velto::rtf {

int StepSize(int halfPoints, int points) {
    const int64_t stepped = (int64_t(halfPoints) / 2 + points) * 2;
    return int(
        std::clamp<int64_t>(stepped, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()));
}

} // namespace velto::rtf
