#pragma once
// The hours and cost lists of a node. A list is one heap block: the entries side by side in
// fixed-size records, their texts packed behind them (a length byte and the bytes; an empty text and
// a text equal to the one above it in the same column take no bytes). A file of millions of small
// entries then needs about as much memory as its size, where a heap object with two strings per
// entry needed seven times as much. Copies share the block, so the undo copy of a list costs a
// reference count; every change builds a new block and leaves the copies alone. Lists are short in
// practice and changed one entry at a time by the user, so rebuilding one costs nothing noticeable.
#include "model/CTime.h"

#include <algorithm>
#include <atomic>
#include <bit>
#include <cassert>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <initializer_list>
#include <iterator>
#include <new>
#include <string_view>
#include <utility>

namespace velto {

// One line of a node's hours list ("Stundenerfassung"). Read from a list, the texts point into it
// and stay valid while the list is unchanged; an entry to be added points to the caller's texts.
struct CHoursEntry {
    CTime m_time1;           // the day worked
    CTime m_time2;           // begin
    CTime m_time3;           // end
    std::string_view m_str1; // assignee
    std::string_view m_str2; // remark
};

// One line of a cost list; the amount is negative for an expense.
struct CCostEntry {
    CTime m_timeDate;
    float m_fUnitPrice = 0.0f;
    float m_fQuantity = 0.0f;
    float m_fAmount = 0.0f;
    std::string_view m_str1; // assignee
    std::string_view m_str2; // remark
};

// How an entry's numbers are packed into 32-bit words.
template <class Entry> struct EntryWords;

template <> struct EntryWords<CHoursEntry> {
    static constexpr size_t kCount = 3;
    static void Pack(const CHoursEntry& entry, uint32_t* words) {
        words[0] = entry.m_time1.GetTime();
        words[1] = entry.m_time2.GetTime();
        words[2] = entry.m_time3.GetTime();
    }
    static CHoursEntry Unpack(const uint32_t* words, std::string_view text1, std::string_view text2) {
        return {CTime(words[0]), CTime(words[1]), CTime(words[2]), text1, text2};
    }
};

template <> struct EntryWords<CCostEntry> {
    static constexpr size_t kCount = 4;
    static void Pack(const CCostEntry& entry, uint32_t* words) {
        words[0] = entry.m_timeDate.GetTime();
        words[1] = std::bit_cast<uint32_t>(entry.m_fUnitPrice);
        words[2] = std::bit_cast<uint32_t>(entry.m_fQuantity);
        words[3] = std::bit_cast<uint32_t>(entry.m_fAmount);
    }
    static CCostEntry Unpack(const uint32_t* words, std::string_view text1, std::string_view text2) {
        return {CTime(words[0]),
                std::bit_cast<float>(words[1]),
                std::bit_cast<float>(words[2]),
                std::bit_cast<float>(words[3]),
                text1,
                text2};
    }
};

template <class Entry> class EntryList {
    using Words = EntryWords<Entry>;
    // Texts are found by their offset in the list's text area; offset 0 holds the empty text.
    struct Record {
        uint32_t words[Words::kCount];
        uint32_t text[2];
    };
    struct Header {
        uint32_t refs;
        uint32_t count;
        uint32_t textBytes;
    };

public:
    class Builder;
    class const_iterator;

    EntryList() = default;
    EntryList(std::initializer_list<Entry> entries) {
        Builder builder(entries.size());
        for (const Entry& entry : entries)
            builder.Add(entry);
        *this = builder.Finish();
    }
    EntryList(const EntryList& other) : m_block(other.m_block) {
        if (m_block)
            std::atomic_ref(m_block->refs).fetch_add(1, std::memory_order_relaxed);
    }
    EntryList(EntryList&& other) noexcept : m_block(std::exchange(other.m_block, nullptr)) {}
    EntryList& operator=(EntryList other) noexcept {
        std::swap(m_block, other.m_block);
        return *this;
    }
    ~EntryList() {
        if (m_block && std::atomic_ref(m_block->refs).fetch_sub(1, std::memory_order_acq_rel) == 1)
            std::free(m_block);
    }

    size_t size() const { return m_block ? m_block->count : 0; }
    bool empty() const { return size() == 0; }
    Entry operator[](size_t index) const {
        const Record& record = Records(m_block)[index];
        return Words::Unpack(record.words, Text(record.text[0]), Text(record.text[1]));
    }
    Entry front() const { return (*this)[0]; }
    // Whether both are the same list, without reading it: a list is never changed in place, so one
    // that shares its block with a kept copy is still what it was when the copy was taken.
    bool SharesBlockWith(const EntryList& other) const { return m_block == other.m_block; }
    const_iterator begin() const { return {this, 0}; }
    const_iterator end() const { return {this, size()}; }

    // Each builds the list anew; an entry may point to texts of this very list.
    void Append(const Entry& entry) { Rebuild(size(), 0, &entry); }
    void Replace(size_t index, const Entry& entry) { Rebuild(index, 1, &entry); }
    void Erase(size_t index) { Rebuild(index, 1, nullptr); }

private:
    static Record* Records(Header* block) { return reinterpret_cast<Record*>(block + 1); }
    static const Record* Records(const Header* block) { return reinterpret_cast<const Record*>(block + 1); }
    static char* Texts(Header* block, size_t recordRoom) {
        return reinterpret_cast<char*>(Records(block) + recordRoom);
    }

    // A text is a length byte and the bytes; 0xFF before a 64-bit length for a long one.
    static std::string_view TextAt(const char* texts, uint32_t offset) {
        const char* at = texts + offset;
        uint64_t length = uint8_t(*at++);
        if (length == 0xFF) {
            std::memcpy(&length, at, sizeof length);
            at += sizeof length;
        }
        return {at, size_t(length)};
    }
    std::string_view Text(uint32_t offset) const {
        return TextAt(reinterpret_cast<const char*>(Records(m_block) + m_block->count), offset);
    }

    // The list with the entries [index, index + removed) replaced by *inserted (when given).
    void Rebuild(size_t index, size_t removed, const Entry* inserted) {
        const size_t count = size() - removed + (inserted ? 1 : 0);
        Builder builder(count);
        for (size_t i = 0; i < size(); ++i) {
            if (i == index && inserted)
                builder.Add(*inserted);
            if (i < index || i >= index + removed)
                builder.Add((*this)[i]);
        }
        if (index == size() && inserted)
            builder.Add(*inserted);
        *this = builder.Finish();
    }

    Header* m_block = nullptr;
};

// Builds a list of a known number of entries in place, so that a large list is never held twice:
// the records have their room from the start and only the text area grows. Nothing is allocated
// until the first entry comes.
template <class Entry> class EntryList<Entry>::Builder {
public:
    explicit Builder(size_t count) : m_room(count) {}
    ~Builder() { std::free(m_block); }
    Builder(const Builder&) = delete;
    Builder& operator=(const Builder&) = delete;

    // Adds the next of the count entries; false when the texts of one list would pass 4 GiB.
    bool Add(const Entry& entry) {
        if (!m_block)
            Allocate();
        assert(m_block->count < m_room);
        Words::Pack(entry, Records(m_block)[m_block->count].words);
        if (!Store(0, entry.m_str1) || !Store(1, entry.m_str2))
            return false;
        ++m_block->count;
        return true;
    }

    EntryList Finish() {
        EntryList list;
        if (!m_block)
            return list;
        std::memmove(Texts(m_block, m_block->count), Texts(m_block, m_room), m_block->textBytes);
        m_room = m_block->count;
        void* exact = std::realloc(m_block, BlockSize(m_block->textBytes));
        list.m_block = exact ? static_cast<Header*>(exact) : m_block;
        m_block = nullptr;
        return list;
    }

private:
    static constexpr uint64_t kInitialTextRoom = 64;

    size_t BlockSize(uint64_t textRoom) const { return sizeof(Header) + m_room * sizeof(Record) + textRoom; }

    void Allocate() {
        m_block = static_cast<Header*>(std::malloc(BlockSize(kInitialTextRoom)));
        if (!m_block)
            throw std::bad_alloc();
        *m_block = {1, 0, 1};
        m_textRoom = kInitialTextRoom;
        *Texts(m_block, m_room) = 0;
    }

    // Stores text in the given column of the entry being added.
    bool Store(int column, std::string_view text) {
        uint32_t& offset = Records(m_block)[m_block->count].text[column];
        offset = 0;
        if (text.empty())
            return true;
        if (m_block->count > 0) {
            const uint32_t above = Records(m_block)[m_block->count - 1].text[column];
            if (TextAt(Texts(m_block, m_room), above) == text) {
                offset = above;
                return true;
            }
        }
        const uint64_t length = text.size();
        const uint64_t prefix = length < 0xFF ? 1 : 1 + sizeof length;
        const uint64_t end = m_block->textBytes + prefix + length;
        if (end > UINT32_MAX)
            return false;
        Reserve(end);
        char* at = Texts(m_block, m_room) + m_block->textBytes;
        Records(m_block)[m_block->count].text[column] = m_block->textBytes;
        *at++ = char(prefix == 1 ? length : 0xFF);
        if (prefix > 1) {
            std::memcpy(at, &length, sizeof length);
            at += sizeof length;
        }
        std::memcpy(at, text.data(), length);
        m_block->textBytes = uint32_t(end);
        return true;
    }

    // Grows the text area by half at least. The block may move, so a text being stored must not
    // point into it (the texts of a finished list never do).
    void Reserve(uint64_t textBytes) {
        if (textBytes <= m_textRoom)
            return;
        const uint64_t room = std::max(textBytes, m_textRoom + m_textRoom / 2);
        void* grown = std::realloc(m_block, BlockSize(room));
        if (!grown)
            throw std::bad_alloc();
        m_block = static_cast<Header*>(grown);
        m_textRoom = room;
    }

    Header* m_block = nullptr;
    size_t m_room;
    uint64_t m_textRoom = 0;
};

template <class Entry> class EntryList<Entry>::const_iterator {
public:
    using iterator_category = std::forward_iterator_tag;
    using value_type = Entry;
    using difference_type = std::ptrdiff_t;
    using pointer = void;
    using reference = Entry;

    const_iterator() = default;
    const_iterator(const EntryList* list, size_t index) : m_list(list), m_index(index) {}
    Entry operator*() const { return (*m_list)[m_index]; }
    const_iterator& operator++() {
        ++m_index;
        return *this;
    }
    const_iterator operator++(int) {
        const_iterator before = *this;
        ++m_index;
        return before;
    }
    bool operator==(const const_iterator& other) const { return m_index == other.m_index; }

private:
    const EntryList* m_list = nullptr;
    size_t m_index = 0;
};

using CHoursList = EntryList<CHoursEntry>;
using CCostList = EntryList<CCostEntry>;

} // namespace velto
