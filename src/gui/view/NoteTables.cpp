#include "view/NoteTables.h"

#include "view/NoteProperties.h"

#include <QTextBlock>
#include <QTextCursor>
#include <QTextTable>

#include <algorithm>
#include <vector>

namespace velto::notetext {
namespace {

// The width a column of no fixed width counts for when a new cell needs a right edge: one inch.
constexpr int kDefaultColumnTwips = 1440;

using Cell = std::vector<const rtf::Paragraph*>;
using Row = std::vector<Cell>;

std::vector<Row> RowsOf(std::span<const rtf::Paragraph> cells) {
    std::vector<Row> rows(1);
    Cell cell;
    for (const rtf::Paragraph& paragraph : cells) {
        cell.push_back(&paragraph);
        if (!paragraph.cell->endsCell)
            continue;
        rows.back().push_back(std::move(cell));
        cell.clear();
        if (paragraph.cell->endsRow)
            rows.emplace_back();
    }
    // A cell or row the text ran out in is kept as it stands.
    if (!cell.empty())
        rows.back().push_back(std::move(cell));
    if (rows.back().empty())
        rows.pop_back();
    return rows;
}

// The widths of the widest row's cells; a cell without a right edge past its left one gets what the
// table leaves.
QList<QTextLength> ColumnWidths(const std::vector<Row>& rows) {
    const Row& widest = *std::ranges::max_element(rows, {}, &Row::size);
    QList<QTextLength> widths;
    int left = 0;
    for (const Cell& cell : widest) {
        const int right = cell.back()->cell->rightEdge;
        if (right > left)
            widths.append(QTextLength(QTextLength::FixedLength, (right - left) / kTwipsPerPixel));
        else
            widths.append(QTextLength());
        left = std::max(left, right);
    }
    return widths;
}

QTextTableFormat TableFormat(const std::vector<Row>& rows) {
    QTextTableFormat format;
    format.setBorder(1);
    format.setBorderStyle(QTextFrameFormat::BorderStyle_Solid);
    format.setBorderCollapse(true);
    format.setCellSpacing(0);
    format.setCellPadding(3);
    format.setAlignment(Qt::AlignLeft);
    format.setColumnWidthConstraints(ColumnWidths(rows));
    return format;
}

QTextTable* OutermostTable(const QTextBlock& block) {
    QTextTable* outermost = nullptr;
    for (QTextFrame* frame = QTextCursor(block).currentFrame(); frame; frame = frame->parentFrame())
        if (auto* table = qobject_cast<QTextTable*>(frame))
            outermost = table;
    return outermost;
}

bool IsStructuralCell(const QTextTableCell& cell) {
    const QTextBlock first = cell.firstCursorPosition().block();
    return first == cell.lastCursorPosition().block() && IsStructural(first);
}

bool IsLastCellOfRow(const QTextTable& table, const QTextTableCell& cell) {
    for (int column = cell.column() + cell.columnSpan(); column < table.columns(); ++column) {
        const QTextTableCell other = table.cellAt(cell.row(), column);
        if (other.row() == cell.row() && !IsStructuralCell(other))
            return false;
    }
    return true;
}

// The right edge of a cell made in the pane or pasted: the widths of the columns up to its end.
int EstimatedRightEdge(const QTextTable& table, const QTextTableCell& cell) {
    const QList<QTextLength> widths = table.format().columnWidthConstraints();
    double twips = 0;
    for (int column = 0; column < cell.column() + cell.columnSpan(); ++column) {
        const bool fixed = column < widths.size() && widths[column].type() == QTextLength::FixedLength;
        twips += fixed ? widths[column].rawValue() * kTwipsPerPixel : kDefaultColumnTwips;
    }
    return int(twips);
}

} // namespace

void InsertTable(QTextCursor& cursor, std::span<const rtf::Paragraph> cells,
                 const ParagraphInserter& insert) {
    const std::vector<Row> rows = RowsOf(cells);
    const size_t columns = std::ranges::max_element(rows, {}, &Row::size)->size();
    QTextTable* table = cursor.insertTable(int(rows.size()), int(columns), TableFormat(rows));
    for (size_t r = 0; r < rows.size(); ++r) {
        for (size_t c = 0; c < columns; ++c) {
            QTextCursor inCell = table->cellAt(int(r), int(c)).firstCursorPosition();
            if (c >= rows[r].size()) {
                MarkStructural(inCell);
                continue;
            }
            bool first = true;
            for (const rtf::Paragraph* paragraph : rows[r][c]) {
                insert(inCell, *paragraph, first);
                first = false;
            }
        }
    }
    cursor = table->lastCursorPosition();
    cursor.movePosition(QTextCursor::NextBlock);
}

std::optional<rtf::TableCell> CellOf(const QTextBlock& block) {
    const QTextTable* table = OutermostTable(block);
    if (!table)
        return std::nullopt;
    const QTextTableCell cell = table->cellAt(block.position());
    const QTextBlockFormat format = block.blockFormat();
    rtf::TableCell result;
    result.rightEdge = format.hasProperty(kCellEdgeProperty) ? format.intProperty(kCellEdgeProperty)
                                                             : EstimatedRightEdge(*table, cell);
    result.endsCell = cell.lastCursorPosition().block() == block;
    result.endsRow = result.endsCell && IsLastCellOfRow(*table, cell);
    return result;
}

void MarkStructural(QTextCursor& cursor) {
    QTextBlockFormat format = cursor.blockFormat();
    format.setProperty(kStructuralProperty, true);
    cursor.setBlockFormat(format);
}

bool IsStructural(const QTextBlock& block) {
    return block.length() == 1 && block.blockFormat().boolProperty(kStructuralProperty);
}

} // namespace velto::notetext
