#pragma once

// Character tables of the East Asian double-byte code pages 932, 936, 949 and 950.

namespace velto::rtf::dbcs {

inline constexpr unsigned char kFirstLead = 0x81;
inline constexpr unsigned char kFirstTrail = 0x40;
inline constexpr unsigned char kLastTrail = 0xFE;
inline constexpr int kTrailsPerLead = kLastTrail - kFirstTrail + 1;

struct DoubleByteTable {
    const char16_t* single; // bytes 0x80..0xFF that are no lead bytes
    const char16_t* pairs;  // [(lead - kFirstLead) * kTrailsPerLead + (trail - kFirstTrail)]
};

extern const DoubleByteTable kCp932;
extern const DoubleByteTable kCp936;
extern const DoubleByteTable kCp949;
extern const DoubleByteTable kCp950;

} // namespace velto::rtf::dbcs
