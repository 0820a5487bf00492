#include "dialogs/SearchIcons.h"

#include <QPainter>
#include <QPainterPath>

namespace velto {

namespace {

const QColor kInk(50, 60, 80);

// A capital T on a tag.
void DrawTitle(QPainter& p) {
    p.setPen(QPen(kInk, 1.2));
    p.setBrush(QColor(255, 236, 150));
    p.drawRoundedRect(QRectF(2.5, 3.5, 19, 17), 3, 3);
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(30, 60, 150));
    p.drawRect(QRectF(6, 6.5, 12, 3));
    p.drawRect(QRectF(10.5, 6.5, 3, 11));
}

// A sheet with a folded corner and lines of text.
void DrawNote(QPainter& p) {
    QPainterPath sheet;
    sheet.moveTo(5.5, 2.5);
    sheet.lineTo(14.5, 2.5);
    sheet.lineTo(19.5, 7.5);
    sheet.lineTo(19.5, 21.5);
    sheet.lineTo(5.5, 21.5);
    sheet.closeSubpath();
    p.setPen(QPen(kInk, 1.2));
    p.setBrush(Qt::white);
    p.drawPath(sheet);
    p.drawPolyline(QPolygonF({QPointF(14.5, 2.5), QPointF(14.5, 7.5), QPointF(19.5, 7.5)}));
    p.setPen(QPen(QColor(90, 120, 190), 1.4));
    for (int line = 0; line < 4; ++line)
        p.drawLine(QPointF(8, 10.5 + 3 * line), QPointF(line == 3 ? 13 : 17, 10.5 + 3 * line));
}

// A clock at four.
void DrawHours(QPainter& p) {
    p.setPen(QPen(kInk, 1.4));
    p.setBrush(QColor(225, 240, 255));
    p.drawEllipse(QPointF(12, 12), 9.5, 9.5);
    p.setPen(QPen(kInk, 2, Qt::SolidLine, Qt::RoundCap));
    p.drawLine(QPointF(12, 12), QPointF(12, 5.5));
    p.drawLine(QPointF(12, 12), QPointF(16.5, 14));
}

// A pocket calculator: what the costs are planned at.
void DrawCalculatedCosts(QPainter& p) {
    p.setPen(QPen(kInk, 1.2));
    p.setBrush(QColor(200, 205, 215));
    p.drawRoundedRect(QRectF(4.5, 1.5, 15, 21), 2, 2);
    p.setBrush(QColor(170, 220, 170));
    p.drawRect(QRectF(7, 4, 10, 4));
    p.setPen(Qt::NoPen);
    p.setBrush(kInk);
    for (int row = 0; row < 3; ++row)
        for (int column = 0; column < 3; ++column)
            p.drawRect(QRectF(7 + 3.5 * column, 10.5 + 3.5 * row, 2.5, 2.5));
}

// A stack of coins: what the costs came to.
void DrawNeededCosts(QPainter& p) {
    p.setPen(QPen(QColor(120, 85, 10), 1.2));
    p.setBrush(QColor(240, 190, 60));
    for (int coin = 0; coin < 4; ++coin)
        p.drawEllipse(QRectF(4, 15 - 4 * coin, 16, 6));
}

} // namespace

QPixmap SearchPartIcon(SearchPart part) {
    QPixmap pixmap(kSearchIconSize, kSearchIconSize);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    switch (part) {
    case kPartTitle:
        DrawTitle(painter);
        break;
    case kPartNote:
        DrawNote(painter);
        break;
    case kPartHours:
        DrawHours(painter);
        break;
    case kPartCalculatedCosts:
        DrawCalculatedCosts(painter);
        break;
    case kPartNeededCosts:
        DrawNeededCosts(painter);
        break;
    }
    return pixmap;
}

} // namespace velto
