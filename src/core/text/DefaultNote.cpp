#include "text/DefaultNote.h"

std::string DefaultNoteTemplate(const std::string& faceName) {
    return "{\\rtf1\\ansi\\deff0\\deftab720{\\fonttbl{\\f0\\fswiss MS Sans Serif;}{\\f1\\froman\\fcharset2 "
           "Symbol;}{\\f2\\fswiss " +
           faceName + ";}}\n{\\colortbl\\red0\\green0\\blue0;}\n\\deflang1031\\pard\\plain\\f2\\fs17\\par }";
}

// Interim: substitutes the size directly into the template until the rich-text writer takes over.
std::string MakeDefaultNote(const std::string& faceName, int fontSize) {
    std::string note = DefaultNoteTemplate(faceName);
    const std::string size = "\\fs" + std::to_string(fontSize * 2);
    note.replace(note.find("\\fs17"), 5, size);
    return note;
}
