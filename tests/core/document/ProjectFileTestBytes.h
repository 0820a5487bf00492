#pragma once
// Project file bytes put together by hand, independent of the writer under test.
#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

namespace velto::filebytes {

struct Bytes {
    std::vector<uint8_t> data;

    Bytes& U8(uint8_t value) {
        data.push_back(value);
        return *this;
    }
    Bytes& U16(uint16_t value) { return U8(value & 0xFF).U8(value >> 8); }
    Bytes& U32(uint32_t value) { return U16(value & 0xFFFF).U16(value >> 16); }
    Bytes& U64(uint64_t value) { return U32(uint32_t(value)).U32(uint32_t(value >> 32)); }
    Bytes& Raw(std::string_view text) {
        data.insert(data.end(), text.begin(), text.end());
        return *this;
    }
    // The one-byte length form only, so that this helper cannot share a mistake with the writer.
    Bytes& Str(std::string_view text) { return U8(uint8_t(text.size())).Raw(text); }
    Bytes& Append(const Bytes& other) {
        data.insert(data.end(), other.data.begin(), other.data.end());
        return *this;
    }
    size_t Size() const { return data.size(); }
};

// Header fields 1 to 6: distinct values, so that a swapped field shows.
inline Bytes Header(uint32_t zoom, uint32_t nodeCount) {
    Bytes b;
    b.U32(310).U32(0xFFFFFFF0).U32(1); // chart widths (the second negative), maximized
    b.U32(uint32_t(-7)).U32(12).U32(812).U32(612);
    return b.U32(zoom).U32(nodeCount);
}

inline Bytes Histories() {
    Bytes b;
    for (int i = 0; i < 10; ++i)
        b.Str("Bear" + std::to_string(i)).Str("Bem" + std::to_string(i));
    return b;
}

constexpr size_t kHeaderSize = 36;

// A node record whose every scalar field differs from every other (base + field number), with the
// given title field, `hours` hours entries and `costs` entries in each cost list.
inline Bytes NodeWithTitleField(uint32_t base, const Bytes& titleField, int hours = 0, int costs = 0) {
    Bytes b;
    b.U32(base + 1).Append(titleField);
    for (uint32_t field = 3; field <= 9; ++field) // level .. due
        b.U32(base + field);
    b.Str("{\\rtf1 Notiz}").U32(base + 11).Str("Arial");
    for (uint32_t field = 13; field <= 17; ++field) // colour .. underline
        b.U32(base + field);
    for (uint32_t field = 18; field <= 22; ++field) // the five floats, as bit patterns
        b.U32(0x40000000 + base + field);
    for (uint32_t field = 23; field <= 32; ++field) // created .. remind time 2
        b.U32(base + field);
    b.Str("Text2").Str("Max Mustermann \xAB\xBB MM");
    b.U32(uint32_t(hours));
    for (int i = 0; i < hours; ++i)
        b.U32(base + 100 + i)
            .U32(base + 200 + i)
            .U32(base + 300 + i)
            .Str("Bear" + std::to_string(i))
            .Str("Std");
    for (int list = 0; list < 2; ++list) {
        b.U32(uint32_t(costs));
        for (int i = 0; i < costs; ++i) // quantity 1, unit price 50, amount -50
            b.U32(base + 400 + i)
                .U32(0x3F800000)
                .U32(0x42480000)
                .U32(0xC2480000)
                .Str("K")
                .Str(list ? "B" : "C");
    }
    return b;
}

// The same with the title "Knoten <base>".
inline Bytes Node(uint32_t base, int hours = 0, int costs = 0) {
    return NodeWithTitleField(base, Bytes().Str("Knoten " + std::to_string(base)), hours, costs);
}

// Header, histories and the given node records.
inline Bytes File(std::initializer_list<Bytes> nodes, uint32_t zoom = 20) {
    Bytes b = Header(zoom, uint32_t(nodes.size()));
    b.Append(Histories());
    for (const Bytes& node : nodes)
        b.Append(node);
    return b;
}

} // namespace velto::filebytes
