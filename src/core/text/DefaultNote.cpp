#include "text/DefaultNote.h"

#include "text/RtfReader.h"
#include "text/RtfWriter.h"

namespace velto {

std::string DefaultNoteTemplate(const std::string& faceName) {
    return "{\\rtf1\\ansi\\deff0\\deftab720{\\fonttbl{\\f0\\fswiss MS Sans Serif;}{\\f1\\froman\\fcharset2 "
           "Symbol;}{\\f2\\fswiss " +
           faceName + ";}}\n{\\colortbl\\red0\\green0\\blue0;}\n\\deflang1031\\pard\\plain\\f2\\fs17\\par }";
}

// What the program always did: load the template, select all, set the size, take the RTF back.
std::string MakeDefaultNote(const std::string& faceName, int fontSize) {
    rtf::Document note = rtf::ReadRtf(DefaultNoteTemplate(faceName));
    rtf::ApplySizeToAll(note, fontSize * 2);
    return rtf::WriteRtf(note);
}

} // namespace velto
