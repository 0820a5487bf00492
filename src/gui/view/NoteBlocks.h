#pragma once
// A note's paragraph layout and lists in the pane's QTextDocument. Indents, spacing and tab stops
// become the block format's margins, line height and tab positions; list membership becomes a
// QTextList per list and level. The model's exact values ride along in properties of our own, and
// each value is taken back from them as long as what the screen shows of it is unchanged: a note
// only looked at or edited elsewhere keeps its twips, while an indent changed in the pane gives the
// new value.
#include "text/RtfDocument.h"

#include <QTextBlockFormat>

#include <map>
#include <optional>
#include <utility>

class QTextBlock;
class QTextCursor;
class QTextDocument;
class QTextList;

namespace velto::notetext {

// The block format's share of a paragraph's layout, for a block that is an item of a list of the
// given level (nothing: no list item).
void ApplyLayout(QTextBlockFormat& format, const rtf::ParagraphLayout& layout, std::optional<int> listLevel);
// The layout a block shows, in twips.
rtf::ParagraphLayout LayoutOf(const QTextBlock& block);

// Makes the blocks of one note the items of its lists while the note is inserted block by block.
// A list of the note is numbered through its items; a deeper level starts afresh after each item
// above it, as in the word processors the notes come from.
class ListPlacer {
public:
    // firstId: the id the note's list 1 gets in the document; pasted lists must not join the lists
    // already there.
    explicit ListPlacer(int firstId) : m_firstId(firstId) {}
    // Makes the cursor's block an item of the list, or of none.
    void Place(QTextCursor& cursor, const std::optional<rtf::ListMembership>& list);

private:
    int m_firstId;
    std::map<std::pair<int, int>, QTextList*> m_open; // by list id and level
};

// The id a list made now gets: one above every list id of the document.
int NextListId(const QTextDocument& document);

// Numbers the lists of a document as the model wants them while it is read block by block. Lists
// that came with a note keep their id; a list pasted from elsewhere gets one of its own.
class ListReader {
public:
    std::optional<rtf::ListMembership> MembershipOf(const QTextBlock& block);

private:
    std::map<const QTextList*, int> m_unnamed;
};

// The kind of list the cursor's block is an item of; nothing outside lists.
std::optional<rtf::ListKind> ListKindAt(const QTextCursor& cursor);
// "Aufzählung" and "Nummerierung": the selected paragraphs become items of a list of the kind, or,
// when they already are, plain paragraphs again.
void ToggleList(QTextCursor& cursor, rtf::ListKind kind);
// "Einzug vergrößern" (+1) and "Einzug verkleinern" (-1): list items change level, other paragraphs
// move their left indent by half an inch.
void StepIndent(QTextCursor& cursor, int direction);

} // namespace velto::notetext
