#pragma once
// Moves a note between the core's formatted-text model and the QTextDocument of the note pane. A
// paragraph is a block, its mark the block's char format, a run a fragment, a picture an image, a
// list a QTextList and the cell paragraphs of a table a QTextTable. What Qt cannot hold as it is
// rides along in properties of our own (see NoteProperties.h): the exact size (the model keeps sizes
// of 0 pt and below, the screen shows them clamped), a last paragraph that no paragraph mark closes,
// the layout in twips, and the picture's bytes.
#include "text/RtfDocument.h"

#include <QTextCharFormat>

class QTextCursor;
class QTextDocument;

namespace velto::notetext {

// Replaces the document's content with the note; the undo history starts afresh and the document
// counts as unmodified.
void ShowNote(QTextDocument& target, const rtf::Document& note);
// The document's content as a note. ShowNote followed by TakeNote gives the note back unchanged.
rtf::Document TakeNote(const QTextDocument& source);
// Inserts a note at the cursor, replacing its selection, as a paste does: the first paragraph joins
// the cursor's paragraph (and gives it its layout when it was empty), the lists of the note stay
// lists of their own. One step to undo.
void PasteNote(QTextCursor& cursor, const rtf::Document& note);
// The selected part of the document as a note, for the clipboard.
rtf::Document NoteOfSelection(const QTextCursor& cursor);

QTextCharFormat ToTextFormat(const rtf::CharFormat& format);
rtf::CharFormat ToNoteFormat(const QTextCharFormat& format);

// The size the model keeps. A format whose shown size was changed by other means (the font dialog,
// pasted text) gives that size.
int HalfPointsOf(const QTextCharFormat& format);
// Sets the kept size and the size shown for it.
void SetHalfPoints(QTextCharFormat& format, int halfPoints);
// The point size the screen uses for a kept size: any size is kept, only sizes Qt can draw are shown.
double DisplayPoints(int halfPoints);

} // namespace velto::notetext
