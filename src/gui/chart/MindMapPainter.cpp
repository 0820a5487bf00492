#include "chart/MindMapPainter.h"

#include "base/ColorRef.h"
#include "base/Cp1252Text.h"
#include "chart/ChartStyle.h"

#include <algorithm>

namespace velto {

using namespace chartstyle;

namespace {

const QColor kFrame(0, 100, 0);
const QColor kHiddenMark(100, 0, 0);
const QColor kProjectBox(255, 255, 200);
const QColor kOtherBox(255, 255, 255);

} // namespace

void MindMapPainter::Paint() {
    m_p.save();
    m_p.fillRect(QRect(0, 0, m_s.view.w, m_s.view.h), kBackground);
    m_p.setBackgroundMode(Qt::TransparentMode);
    PaintLines();
    std::vector<int> boxes;
    m_s.layout.BoxesIn(m_s.view, boxes);
    for (int index : boxes)
        PaintBox(index);
    m_p.restore();
}

void MindMapPainter::PaintLines() {
    std::vector<MindMapLayout::Line> lines;
    m_s.layout.LinesIn(m_s.view, lines);
    for (const MindMapLayout::Line& line : lines) {
        m_p.setPen(QPen(ColorFromColorRef(m_s.layout.Box(line.box).node->m_crColor), 1));
        m_p.drawLine(ToWindow(line.from), ToWindow(line.to));
    }
}

void MindMapPainter::PaintBox(int index) {
    const MindMapBox& box = m_s.layout.Box(index);
    const CProjectNode& node = *box.node;
    const QRect r = ToWindow(box.rect);
    const bool projectLike = box.side == MapSide::Root || node.m_nKind == kKindProject;
    m_p.setPen(kFrame);
    m_p.setBrush(projectLike ? kProjectBox : kOtherBox);
    m_p.drawRect(r.adjusted(0, 0, -1, -1));
    PaintStatusStrip(node, r);
    m_p.setFont(TitleFont(TitleStyleOf(node, box.fontSize)));
    m_p.setPen(ColorFromColorRef(node.m_crColor));
    m_p.drawText(r, Qt::AlignCenter | Qt::TextSingleLine, ToQString(node.m_strTitle.str()));
    if (box.hasChildren)
        PaintMark(box, ToWindow(m_s.layout.MarkRect(index)));
    if (node.m_bSelected && !m_s.printing) {
        m_p.setPen(QPen(Qt::black, 2));
        m_p.setBrush(Qt::NoBrush);
        const int gap = kSelectionGap + 1;
        m_p.drawRect(QRectF(r).adjusted(-gap, -gap, gap, gap));
    }
}

// Along the bottom of the box, in the timeline's colours: the done share of a task or project in
// green over grey, or over red when it is late; a note yellow, a milestone blue.
void MindMapPainter::PaintStatusStrip(const CProjectNode& node, const QRect& box) {
    const int height = std::max(2, box.height() / 8);
    const QRect strip(box.left() + 2, box.bottom() - 1 - height, box.width() - 4, height);
    if (strip.width() <= 0)
        return;
    switch (node.m_nKind) {
    case kKindNote:
        m_p.fillRect(strip, kNote);
        return;
    case kKindMilestone:
        m_p.fillRect(strip, kMilestone);
        return;
    default:
        break;
    }
    m_p.fillRect(strip, node.m_nRowAux ? kLate : kCell);
    const int done = std::clamp(node.m_nRowPos, 0, 100) * strip.width() / 100;
    if (done > 0)
        m_p.fillRect(QRect(strip.left(), strip.top(), done, strip.height()), kProgress);
}

// Filled dark red with a plus while the children are hidden, white with a minus while shown.
void MindMapPainter::PaintMark(const MindMapBox& box, const QRect& mark) {
    const QColor ink = box.collapsed ? kHiddenMark : kFrame;
    m_p.setRenderHint(QPainter::Antialiasing, true);
    m_p.setPen(ink);
    m_p.setBrush(box.collapsed ? kHiddenMark : kOtherBox);
    m_p.drawEllipse(QRectF(mark).adjusted(0.5, 0.5, -0.5, -0.5));
    m_p.setRenderHint(QPainter::Antialiasing, false);
    const QPoint c = mark.center();
    const int arm = mark.width() / 2 - 2;
    m_p.setPen(box.collapsed ? kOtherBox : ink);
    m_p.drawLine(c.x() - arm, c.y(), c.x() + arm, c.y());
    if (box.collapsed)
        m_p.drawLine(c.x(), c.y() - arm, c.x(), c.y() + arm);
}

} // namespace velto
