#include "view/NoteIcons.h"

#include "base/CommandIds.h"
#include "base/CommandTable.h"
#include "base/Icons.h"
#include "view/CNotePane.h"

#include <QPainter>
#include <QPixmap>

#include <functional>

namespace velto {

namespace {
// Drawn on a 16 x 16 grid and scaled to each size.
using Drawing = std::function<void(QPainter&)>;

const QColor kInk(40, 40, 40);

void Letter(QPainter& p, QRectF box, int pixels) {
    QFont font("Liberation Serif");
    font.setPixelSize(pixels);
    font.setBold(true);
    p.setFont(font);
    p.setPen(kInk);
    p.drawText(box, Qt::AlignCenter, "A");
}

// Four lines of text, each line's free space on the side the alignment leaves open.
void Lines(QPainter& p, Qt::Alignment alignment) {
    p.setPen(QPen(kInk, 1.5, Qt::SolidLine, Qt::FlatCap));
    const double widths[] = {12, 8, 12, 6};
    for (int i = 0; i < 4; ++i) {
        const double w = widths[i];
        const double left = alignment == Qt::AlignLeft ? 2 : alignment == Qt::AlignRight ? 14 - w : 8 - w / 2;
        const double y = 3.5 + i * 3;
        p.drawLine(QPointF(left, y), QPointF(left + w, y));
    }
}

void SizeStep(QPainter& p, bool larger) {
    Letter(p, QRectF(0, 2, 11, 14), larger ? 13 : 10);
    p.setPen(QPen(QColor(40, 100, 190), 1.8, Qt::SolidLine, Qt::FlatCap));
    p.drawLine(QPointF(10.5, 4), QPointF(15.5, 4));
    if (larger)
        p.drawLine(QPointF(13, 1.5), QPointF(13, 6.5));
}

void Link(QPainter& p) {
    p.setPen(QPen(QColor(0, 0, 255), 1.8));
    p.setBrush(Qt::NoBrush);
    p.translate(8, 8);
    p.rotate(-45);
    p.drawRoundedRect(QRectF(-7, -2.5, 8, 5), 2.5, 2.5);
    p.drawRoundedRect(QRectF(-1, -2.5, 8, 5), 2.5, 2.5);
}

Drawing DrawingOf(int buttonId) {
    switch (buttonId) {
    case CNotePane::kColourButton:
        return [](QPainter& p) {
            Letter(p, QRectF(0, 0, 16, 13), 13);
            p.fillRect(QRectF(2, 13, 12, 2.5), QColor(220, 30, 30));
        };
    case CNotePane::kAlignLeftButton:
        return [](QPainter& p) { Lines(p, Qt::AlignLeft); };
    case CNotePane::kAlignCentreButton:
        return [](QPainter& p) { Lines(p, Qt::AlignHCenter); };
    case CNotePane::kAlignRightButton:
        return [](QPainter& p) { Lines(p, Qt::AlignRight); };
    case CNotePane::kLargerButton:
        return [](QPainter& p) { SizeStep(p, true); };
    case CNotePane::kSmallerButton:
        return [](QPainter& p) { SizeStep(p, false); };
    default:
        return &Link;
    }
}

const char* ThemeNameOf(int buttonId) {
    switch (buttonId) {
    case CNotePane::kColourButton:
        return "format-text-color";
    case CNotePane::kAlignLeftButton:
        return "format-justify-left";
    case CNotePane::kAlignCentreButton:
        return "format-justify-center";
    case CNotePane::kAlignRightButton:
        return "format-justify-right";
    case CNotePane::kLargerButton:
        return "format-font-size-more";
    case CNotePane::kSmallerButton:
        return "format-font-size-less";
    default:
        return "insert-link";
    }
}

int EffectCommandOf(int buttonId) {
    switch (buttonId) {
    case CNotePane::kBoldButton:
        return cmd::NoteBold;
    case CNotePane::kItalicButton:
        return cmd::NoteItalic;
    case CNotePane::kUnderlineButton:
        return cmd::NoteUnderline;
    default:
        return 0;
    }
}
} // namespace

QIcon NoteButtonIcon(int buttonId) {
    // The effect buttons look like the menu's commands of the same effect; the list and indent
    // buttons are their commands.
    const int effect = EffectCommandOf(buttonId);
    if (const CommandInfo* command = FindCommand(effect ? effect : buttonId))
        return CommandIcon(*command);
    return QIcon::fromTheme(QString::fromLatin1(ThemeNameOf(buttonId)), PaintedIcon(DrawingOf(buttonId)));
}

} // namespace velto
