#pragma once
// A note's tables in the pane's QTextDocument: the cell paragraphs of the model, row by row, become
// a QTextTable, and each block inside a table tells which cell it ends. Rows shorter than the
// table's widest are filled with empty cells that belong to no row of the note.
#include "text/RtfDocument.h"

#include <functional>
#include <optional>
#include <span>

class QTextBlock;
class QTextCursor;

namespace velto::notetext {

// Puts a paragraph into the block at the cursor (intoCurrent) or into a new block after it.
using ParagraphInserter =
    std::function<void(QTextCursor& cursor, const rtf::Paragraph& paragraph, bool intoCurrent)>;

// Inserts the cell paragraphs as one table at the cursor, which is left in the block after the table.
void InsertTable(QTextCursor& cursor, std::span<const rtf::Paragraph> cells, const ParagraphInserter& insert);
// The cell a block ends or lies in; nothing for a block outside tables. A table inside a table
// counts as the text of the outer one's cell.
std::optional<rtf::TableCell> CellOf(const QTextBlock& block);
// Marks the cursor's empty block as one only Qt's structure needs.
void MarkStructural(QTextCursor& cursor);
// A block only Qt's structure needs, still empty: no paragraph of the note.
bool IsStructural(const QTextBlock& block);

} // namespace velto::notetext
