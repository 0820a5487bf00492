#include "dialogs/DialogIcons.h"

#include <QPainter>
#include <QPainterPath>
#include <QPixmap>

namespace velto {

namespace {

constexpr int kSize = 32;

QPixmap Canvas() {
    QPixmap pixmap(kSize, kSize);
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

} // namespace velto
