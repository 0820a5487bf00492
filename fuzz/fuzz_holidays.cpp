// Any bytes as "Feiertage.dat": reading ends, yields no more entries than the bytes can hold, and
// what it yields is saved and read back unchanged.
#include "files/HolidayFile.h"

#include <cstdint>
#include <cstdlib>
#include <string_view>

using namespace velto;

namespace {

bool Same(const CHoliday& a, const CHoliday& b) {
    return a.day == b.day && a.month == b.month && a.year == b.year && a.color == b.color &&
           a.name == b.name && a.yearly == b.yearly;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const auto entries = ParseHolidays(std::string_view(reinterpret_cast<const char*>(data), size));
    // Eleven bytes at the least per entry: four numbers with a sign or separator between each two
    // ("1+1+1+1"), then two tokens each followed by a separator.
    if (entries.size() > size / 11)
        std::abort();
    const auto again = ParseHolidays(FormatHolidays(entries));
    if (again.size() != entries.size())
        std::abort();
    for (size_t i = 0; i < entries.size(); ++i) {
        if (!Same(entries[i], again[i]))
            std::abort();
    }
    return 0;
}
