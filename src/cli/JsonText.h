#pragma once
// The bytes of a JSON string that stand for themselves (printable ASCII but the quote and the
// backslash), found in runs: reading and writing a project's JSON is mostly copying such runs.
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace velto::jsontext {

inline constexpr std::array<bool, 256> kPlain = [] {
    std::array<bool, 256> plain{};
    for (int byte = 0x20; byte < 0x80; ++byte)
        plain[byte] = byte != '"' && byte != '\\';
    return plain;
}();

// The length of the run of plain bytes at the start of [at, end), tested eight at a time.
inline size_t PlainRun(const char* at, const char* end) {
    constexpr uint64_t kOnes = 0x0101010101010101, kHigh = 0x8080808080808080;
    const auto zeroByteIn = [](uint64_t word) { return (word - kOnes) & ~word & kHigh; };
    const char* p = at;
    for (; end - p >= 8; p += 8) {
        uint64_t word;
        std::memcpy(&word, p, 8);
        // A byte below 0x20 borrows, one from 0x80 up has its high bit: either sets the high bit.
        const uint64_t special = zeroByteIn(word ^ (kOnes * '"')) | zeroByteIn(word ^ (kOnes * '\\')) |
                                 (((word - kOnes * 0x20) | word) & kHigh);
        if (special)
            break;
    }
    while (p < end && kPlain[static_cast<unsigned char>(*p)])
        ++p;
    return size_t(p - at);
}

} // namespace velto::jsontext
