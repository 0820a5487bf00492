#include "dialogs/DialogIcons.h"

#include <QPainter>
#include <QPainterPath>
#include <QPixmap>

namespace velto {

namespace {

constexpr int kSize = 32;

QPixmap Canvas(int size = kSize) {
    QPixmap pixmap(size, size);
    pixmap.fill(Qt::transparent);
    return pixmap;
}

QPainterPath BellPath() {
    QPainterPath bell;
    bell.moveTo(6, 24);
    bell.cubicTo(9, 21, 9, 17, 9, 14);
    bell.cubicTo(9, 8, 12, 5, 16, 5);
    bell.cubicTo(20, 5, 23, 8, 23, 14);
    bell.cubicTo(23, 17, 23, 21, 26, 24);
    bell.closeSubpath();
    return bell;
}

QIcon Bell(const QColor& fill, bool ringing) {
    QPixmap pixmap = Canvas();
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(QColor(60, 60, 60), 1.5));
    painter.setBrush(fill);
    painter.drawPath(BellPath());
    painter.drawEllipse(QPointF(16, 26), 2.5, 2.5);
    if (ringing) {
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(QColor(200, 30, 30), 2));
        painter.drawArc(QRectF(1, 4, 8, 14), 100 * 16, 160 * 16);
        painter.drawArc(QRectF(23, 4, 8, 14), -80 * 16, 160 * 16);
    }
    return QIcon(pixmap);
}

// The clock's body on the 32-unit grid of the other icons: two bells, legs, a red case with a white
// face at ten past ten, and the strokes of its ringing.
void DrawAlarmClock(QPainter& painter) {
    const QPen outline(QColor(90, 20, 20), 1.2);
    painter.setPen(outline);
    painter.setBrush(QColor(230, 190, 60));
    painter.drawChord(QRectF(3, 3, 11, 11), 30 * 16, 180 * 16);
    painter.drawChord(QRectF(18, 3, 11, 11), -30 * 16, 180 * 16);
    painter.setPen(QPen(QColor(90, 20, 20), 2, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(QPointF(9, 25), QPointF(6, 30));
    painter.drawLine(QPointF(23, 25), QPointF(26, 30));
    painter.setPen(outline);
    painter.setBrush(QColor(205, 35, 35));
    painter.drawEllipse(QPointF(16, 17.5), 11, 11);
    painter.setBrush(Qt::white);
    painter.drawEllipse(QPointF(16, 17.5), 8, 8);
    painter.setPen(QPen(QColor(40, 40, 40), 1.6, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(QPointF(16, 17.5), QPointF(12, 14.5));
    painter.drawLine(QPointF(16, 17.5), QPointF(21, 14));
    painter.setPen(QPen(QColor(230, 120, 20), 1.4, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(QPointF(1.5, 12), QPointF(0.5, 9));
    painter.drawLine(QPointF(30.5, 12), QPointF(31.5, 9));
}

} // namespace

QIcon ReminderOffIcon() {
    return Bell(QColor(200, 200, 200), false);
}

QIcon ReminderOnIcon() {
    return Bell(QColor(250, 200, 40), true);
}

QIcon ResponsibleIcon() {
    QPixmap pixmap = Canvas();
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(QColor(40, 60, 110), 1.5));
    painter.setBrush(QColor(90, 130, 200));
    painter.drawEllipse(QPointF(16, 10), 6, 6);
    painter.drawChord(QRectF(5, 17, 22, 22), 0, 180 * 16);
    return QIcon(pixmap);
}

QIcon AlarmIcon() {
    constexpr int kScale = 2;
    QPixmap pixmap = Canvas(kSize * kScale);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(kScale, kScale);
    DrawAlarmClock(painter);
    return QIcon(pixmap);
}

} // namespace velto
