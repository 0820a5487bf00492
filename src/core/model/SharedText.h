#pragma once
// A text of the model in eight bytes: up to seven bytes inside the object, a longer text in one heap
// block that copies share. The bytes are never changed in place: assigning gives the object a new
// text and leaves its copies alone, so the undo copy of a project costs a reference count per text
// instead of a copy of its bytes. Small because a node holds several of them and a project file
// may hold millions of nodes with short texts.
#include <atomic>
#include <bit>
#include <cstdint>
#include <cstring>
#include <new>
#include <ostream>
#include <string_view>
#include <utility>

namespace velto {

class SharedText {
public:
    SharedText() = default;
    explicit SharedText(std::string_view text) {
        Make(text.size(), [&](char* bytes) {
            std::memcpy(bytes, text.data(), text.size());
            return true;
        }).swap(*this);
    }
    SharedText(const SharedText& other) : m_word(other.m_word) {
        if (Block* block = other.HeapBlock())
            std::atomic_ref(block->refs).fetch_add(1, std::memory_order_relaxed);
    }
    SharedText(SharedText&& other) noexcept : m_word(std::exchange(other.m_word, kEmptyWord)) {}
    ~SharedText() { Release(); }

    SharedText& operator=(const SharedText& other) {
        SharedText(other).swap(*this);
        return *this;
    }
    SharedText& operator=(SharedText&& other) noexcept {
        SharedText(std::move(other)).swap(*this);
        return *this;
    }
    SharedText& operator=(std::string_view text) {
        SharedText(text).swap(*this);
        return *this;
    }

    // A text of size bytes written by fill(char* bytes) straight into its storage, so that a long
    // text read from a file is never held twice; an empty text when fill returns false.
    template <class Fill> static SharedText Make(uint64_t size, Fill fill) {
        SharedText text;
        char* bytes = nullptr;
        if (size <= kInlineCapacity) {
            text.m_word = uint64_t(size) << 1 | 1;
            bytes = text.InlineBytes();
        } else {
            void* memory = ::operator new(sizeof(Block) + size);
            Block* block = new (memory) Block{1, size};
            text.m_word = std::bit_cast<uint64_t>(block);
            bytes = reinterpret_cast<char*>(block + 1);
        }
        if (!fill(bytes))
            return SharedText();
        return text;
    }

    void swap(SharedText& other) noexcept { std::swap(m_word, other.m_word); }

    std::string_view str() const {
        if (const Block* block = HeapBlock())
            return {reinterpret_cast<const char*>(block + 1), size_t(block->size)};
        return {reinterpret_cast<const char*>(&m_word) + 1, size_t(m_word >> 1 & 7)};
    }
    operator std::string_view() const { return str(); }
    bool empty() const { return m_word == kEmptyWord; }
    size_t size() const { return str().size(); }
    const char* data() const { return str().data(); }

    friend bool operator==(const SharedText& a, const SharedText& b) {
        return a.m_word == b.m_word || a.str() == b.str();
    }
    friend bool operator==(const SharedText& a, std::string_view b) { return a.str() == b; }
    friend std::ostream& operator<<(std::ostream& out, const SharedText& text) { return out << text.str(); }

private:
    // The inline bytes follow the tag byte, which must be the word's lowest byte.
    static_assert(std::endian::native == std::endian::little);
    static constexpr uint64_t kInlineCapacity = 7;
    // The lowest bit tells an inline text (set, with its size in bits 1 to 3) from a block pointer,
    // which is always even.
    static constexpr uint64_t kEmptyWord = 1;

    struct Block {
        uint32_t refs;
        uint64_t size;
    };

    Block* HeapBlock() const { return m_word & 1 ? nullptr : std::bit_cast<Block*>(m_word); }
    char* InlineBytes() { return reinterpret_cast<char*>(&m_word) + 1; }

    void Release() {
        Block* block = HeapBlock();
        if (block && std::atomic_ref(block->refs).fetch_sub(1, std::memory_order_acq_rel) == 1)
            ::operator delete(block);
    }

    uint64_t m_word = kEmptyWord;
};

} // namespace velto
