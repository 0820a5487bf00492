#include "outline/NoteSearchTexts.h"

#include "model/Cp1252.h"
#include "model/ProjectNode.h"
#include "text/RtfReader.h"

#include <algorithm>
#include <atomic>
#include <cstring>
#include <system_error>
#include <thread>
#include <vector>

#ifdef __linux__
#include <sys/resource.h>
#endif

namespace velto {

namespace {

// The end of the run of ASCII bytes from pos on, eight bytes at a time: most of a note is ASCII.
size_t AsciiRunEnd(std::string_view text, size_t pos) {
    constexpr uint64_t kHighBits = 0x8080808080808080ull;
    for (uint64_t word; pos + 8 <= text.size(); pos += 8) {
        std::memcpy(&word, text.data() + pos, 8);
        if (word & kHighBits)
            break;
    }
    while (pos < text.size() && static_cast<unsigned char>(text[pos]) < 0x80)
        ++pos;
    return pos;
}

} // namespace

std::string NoteSearchText(std::string_view rtf) {
    std::string text = rtf::PlainText(rtf);
    // Converted in place: no character takes more bytes in Windows-1252 than in UTF-8.
    size_t out = 0;
    for (size_t pos = 0; pos < text.size();) {
        const size_t asciiEnd = AsciiRunEnd(text, pos);
        if (out != pos)
            std::memmove(text.data() + out, text.data() + pos, asciiEnd - pos);
        out += asciiEnd - pos;
        pos = asciiEnd;
        if (pos == text.size())
            break;
        const std::optional<char32_t> character = cp1252::DecodeUtf8(text, pos);
        const std::optional<unsigned char> fitting =
            character ? cp1252::FromUnicode(*character) : std::nullopt;
        text[out++] = fitting ? char(*fitting) : '\0';
    }
    text.resize(out);
    return text;
}

// Notes being parsed in the background. The threads take the notes one by one through `next` and
// write only their own slots of `texts`; the owner reads them after joining the threads.
struct NoteSearchTexts::Batch {
    std::vector<const char*> keys; // the address of each note's text in its node
    std::vector<NoteText> notes;
    std::vector<std::string> texts;
    std::atomic<size_t> next{0};
    std::vector<std::thread> threads;

    void Work() {
        for (size_t i = next++; i < notes.size(); i = next++)
            texts[i] = NoteSearchText(notes[i]);
    }
    void WorkInBackground() {
        LowerPriority();
        Work();
    }
    // The window's thread and what the user runs besides come first; the notes are parsed with what
    // is left over. On Linux this lowers the calling thread alone, not the whole program.
    static void LowerPriority() {
#ifdef __linux__
        setpriority(PRIO_PROCESS, 0, kBackgroundNice);
#endif
    }
    static constexpr int kBackgroundNice = 5;
};

namespace {

// Fewer notes than this are parsed as they are asked for: threads would cost more than they save.
constexpr size_t kMinBackgroundNotes = 256;
constexpr unsigned kMaxThreads = 8;

// The cores besides the one of the window's thread, but at least one.
unsigned SpareCores() {
    return std::clamp(std::thread::hardware_concurrency(), 2u, kMaxThreads + 1) - 1;
}

} // namespace

NoteSearchTexts::NoteSearchTexts() = default;

NoteSearchTexts::~NoteSearchTexts() {
    if (!m_batch)
        return;
    // Nothing waits for these texts any more: let the threads stop after the note at hand.
    m_batch->next = m_batch->notes.size();
    for (std::thread& thread : m_batch->threads)
        thread.join();
}

std::string_view NoteSearchTexts::Get(const NoteText& note) {
    if (note.empty())
        return {};
    if (m_batch)
        FinishPreparing();
    auto [entry, added] = m_texts.try_emplace(note.data());
    // A short note lives inside its node, so another note may come to stand at the same address.
    if (added || !(entry->second.note == note))
        entry->second = {note, NoteSearchText(note), m_pass};
    entry->second.pass = m_pass;
    return entry->second.text;
}

void NoteSearchTexts::StartPreparing(const CProjectNode* first) {
    if (m_batch)
        return;
    auto batch = std::make_unique<Batch>();
    for (const CProjectNode* node = first; node; node = node->m_pNext) {
        const NoteText& note = node->m_strNote;
        const auto known = m_texts.find(note.data());
        if (!note.empty() && (known == m_texts.end() || !(known->second.note == note))) {
            batch->keys.push_back(note.data());
            batch->notes.push_back(note);
        }
    }
    if (batch->notes.size() < kMinBackgroundNotes)
        return;
    batch->texts.resize(batch->notes.size());
    const unsigned cores = SpareCores();
    try {
        for (unsigned i = 0; i < cores; ++i)
            batch->threads.emplace_back(&Batch::WorkInBackground, batch.get());
    } catch (const std::system_error&) {
        // No thread to be had: the threads that did start and the next Get share the work.
    }
    m_batch = std::move(batch);
}

void NoteSearchTexts::FinishPreparing() {
    m_batch->Work();
    for (std::thread& thread : m_batch->threads)
        thread.join();
    m_texts.reserve(m_texts.size() + m_batch->notes.size());
    for (size_t i = 0; i < m_batch->notes.size(); ++i)
        m_texts.insert_or_assign(m_batch->keys[i],
                                 Entry{std::move(m_batch->notes[i]), std::move(m_batch->texts[i]), m_pass});
    m_batch.reset();
}

void NoteSearchTexts::ForgetUnused() {
    if (m_batch)
        FinishPreparing();
    std::erase_if(m_texts, [this](const auto& item) { return item.second.pass != m_pass; });
    ++m_pass;
}

} // namespace velto
