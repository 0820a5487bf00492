#pragma once
// The notes' plain text as the text search reads it, each note parsed once. Parsing is the costly
// part of a search (about 5 ms per MB of RTF, against well under 1 ms to look through the text), so
// the texts are kept from one step to the next, and the notes of a project are parsed in the
// background from the moment its window shows, so that its first search finds them ready.
//
// A note is known by the address of its text: notes are never changed in place (a changed note is a
// new text), and the entry keeps a reference to the text, so no other note can take its address while
// it is known. A note is therefore looked up without reading it; a key made from the note's bytes
// would hash all of them, which on a large project alone takes about a whole step.
#include "model/NoteText.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>

namespace velto {

class CProjectNode;

// The plain text of an RTF note in Windows-1252, with a NUL for every character Windows-1252 cannot
// hold, so that no search text matches it.
std::string NoteSearchText(std::string_view rtf);

class NoteSearchTexts {
public:
    NoteSearchTexts();
    ~NoteSearchTexts();
    NoteSearchTexts(const NoteSearchTexts&) = delete;
    NoteSearchTexts& operator=(const NoteSearchTexts&) = delete;

    // NoteSearchText of the note. The text stays where it is until ForgetUnused forgets it.
    std::string_view Get(const NoteText& note);
    // Starts parsing the notes of the list that are not known yet, in the background on the cores the
    // window's thread leaves spare and at low priority, and returns at once; the next Get first helps
    // to finish them. The threads keep copies of the notes, so the list may change or go meanwhile.
    void StartPreparing(const CProjectNode* first);
    // Forgets the notes not asked for since the last call: the old texts of changed notes and the
    // notes of deleted nodes.
    void ForgetUnused();

private:
    struct Entry {
        NoteText note;
        std::string text;
        uint32_t pass = 0;
    };
    struct Batch;

    void FinishPreparing();

    std::unordered_map<const char*, Entry> m_texts;
    uint32_t m_pass = 0;
    std::unique_ptr<Batch> m_batch;
};

} // namespace velto
