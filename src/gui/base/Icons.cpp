#include "base/Icons.h"

#include "base/CommandIds.h"
#include "base/CommandTable.h"

#include <QPainter>
#include <QPainterPath>
#include <QPixmap>

#include <cmath>
#include <functional>
#include <map>

// Q_INIT_RESOURCE declares the registration function where it is used, so it must be used outside
// the project's namespace.
static void RegisterVeltoResources() {
    Q_INIT_RESOURCE(velto);
}

namespace velto {

namespace {
// Icons are drawn on a 16 x 16 grid and scaled to each size asked for.
using Drawing = std::function<void(QPainter&)>;

const QColor kInk(40, 40, 40);
const QColor kPaper(250, 250, 250);
const QColor kBlue(40, 100, 190);
const QColor kGreen(40, 150, 60);
const QColor kRed(200, 40, 40);
const QColor kYellow(240, 200, 80);

void Page(QPainter& p, QRectF r = QRectF(3, 1, 10, 14)) {
    p.setPen(QPen(kInk, 1));
    p.setBrush(kPaper);
    QPainterPath path;
    path.moveTo(r.left(), r.top());
    path.lineTo(r.right() - 3, r.top());
    path.lineTo(r.right(), r.top() + 3);
    path.lineTo(r.right(), r.bottom());
    path.lineTo(r.left(), r.bottom());
    path.closeSubpath();
    p.drawPath(path);
}

void Plus(QPainter& p, QPointF c, double half, const QColor& color) {
    p.setPen(QPen(color, 2.2, Qt::SolidLine, Qt::FlatCap));
    p.drawLine(QPointF(c.x() - half, c.y()), QPointF(c.x() + half, c.y()));
    p.drawLine(QPointF(c.x(), c.y() - half), QPointF(c.x(), c.y() + half));
}

void Minus(QPainter& p, QPointF c, double half, const QColor& color) {
    p.setPen(QPen(color, 2.2, Qt::SolidLine, Qt::FlatCap));
    p.drawLine(QPointF(c.x() - half, c.y()), QPointF(c.x() + half, c.y()));
}

void Magnifier(QPainter& p) {
    p.setPen(QPen(kInk, 1.6));
    p.setBrush(QColor(220, 235, 250));
    p.drawEllipse(QPointF(6.5, 6.5), 4.5, 4.5);
    p.setPen(QPen(kInk, 2.6, Qt::SolidLine, Qt::RoundCap));
    p.drawLine(QPointF(10, 10), QPointF(14.5, 14.5));
}

void Arrow(QPainter& p, QPointF from, QPointF to, const QColor& color) {
    p.setPen(QPen(color, 1.8, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    p.drawLine(from, to);
    const QPointF d = (to - from) / std::max(1.0, std::hypot(to.x() - from.x(), to.y() - from.y()));
    const QPointF n(-d.y(), d.x());
    p.drawLine(to, to - d * 3.5 + n * 3);
    p.drawLine(to, to - d * 3.5 - n * 3);
}

void Letter(QPainter& p, const QString& text, bool bold, bool italic, bool underline) {
    QFont font("Liberation Serif");
    font.setPixelSize(14);
    font.setBold(bold);
    font.setItalic(italic);
    font.setUnderline(underline);
    p.setFont(font);
    p.setPen(kInk);
    p.drawText(QRectF(0, 0, 16, 16), Qt::AlignCenter, text);
}

// Three lines of a list, each after its label; indented: the middle one a level deeper, with an
// arrow saying which way the indent goes.
void ListLines(QPainter& p, const std::function<void(QPainter&, QPointF)>& label) {
    for (int i = 0; i < 3; ++i) {
        const double y = 3.5 + i * 4.5;
        label(p, QPointF(2.5, y));
        p.setPen(QPen(kInk, 1.5, Qt::SolidLine, Qt::FlatCap));
        p.drawLine(QPointF(6, y), QPointF(15, y));
    }
}

void IndentLines(QPainter& p, bool more) {
    p.setPen(QPen(kInk, 1.5, Qt::SolidLine, Qt::FlatCap));
    for (int i = 0; i < 4; ++i) {
        const double y = 2.5 + i * 3.7;
        p.drawLine(QPointF(i == 0 || i == 3 ? 1 : 7, y), QPointF(15, y));
    }
    Arrow(p, QPointF(more ? 1 : 5.5, 8), QPointF(more ? 5.5 : 1, 8), kBlue);
}

void Bars(QPainter& p) {
    p.setPen(Qt::NoPen);
    p.setBrush(kBlue);
    p.drawRect(QRectF(2, 3, 7, 2.5));
    p.setBrush(kGreen);
    p.drawRect(QRectF(5, 7, 9, 2.5));
    p.setBrush(kRed);
    p.drawRect(QRectF(3, 11, 5, 2.5));
}

void Tree(QPainter& p) {
    p.setPen(QPen(kInk, 1));
    p.drawLine(QPointF(4, 4), QPointF(4, 13));
    p.drawLine(QPointF(4, 8.5), QPointF(7, 8.5));
    p.drawLine(QPointF(4, 13), QPointF(7, 13));
    p.setBrush(kYellow);
    p.drawRect(QRectF(2, 1.5, 5, 3));
    p.drawRect(QRectF(7, 7, 5, 3));
    p.drawRect(QRectF(7, 11.5, 5, 3));
}

const std::map<int, Drawing>& Drawings() {
    using namespace cmd;
    static const std::map<int, Drawing> drawings = {
        {FileNew, [](QPainter& p) { Page(p); }},
        {FileOpen,
         [](QPainter& p) {
             p.setPen(QPen(kInk, 1));
             p.setBrush(kYellow);
             p.drawPolygon(QPolygonF({{1, 4}, {6, 4}, {7, 5.5}, {14, 5.5}, {14, 14}, {1, 14}}));
             p.setBrush(QColor(250, 225, 130));
             p.drawPolygon(QPolygonF({{1, 14}, {3.5, 8}, {15.5, 8}, {14, 14}}));
         }},
        {FileClose,
         [](QPainter& p) {
             Page(p);
             Minus(p, {8, 9}, 3.5, kRed);
         }},
        {FileSave,
         [](QPainter& p) {
             p.setPen(QPen(kInk, 1));
             p.setBrush(kBlue);
             p.drawRect(QRectF(1.5, 1.5, 13, 13));
             p.setBrush(kPaper);
             p.drawRect(QRectF(4, 1.5, 8, 5));
             p.setBrush(QColor(200, 200, 200));
             p.drawRect(QRectF(4, 9, 8, 5.5));
         }},
        {FileSaveAs,
         [](QPainter& p) {
             p.setPen(QPen(kInk, 1));
             p.setBrush(kBlue);
             p.drawRect(QRectF(1.5, 1.5, 11, 11));
             p.setBrush(kPaper);
             p.drawRect(QRectF(4, 1.5, 6, 4));
             p.setPen(QPen(kRed, 2, Qt::SolidLine, Qt::RoundCap));
             p.drawLine(QPointF(9, 15), QPointF(15, 9));
         }},
        {FilePrint,
         [](QPainter& p) {
             p.setPen(QPen(kInk, 1));
             p.setBrush(kPaper);
             p.drawRect(QRectF(4, 1.5, 8, 5));
             p.setBrush(QColor(170, 170, 170));
             p.drawRect(QRectF(1.5, 6.5, 13, 6));
             p.setBrush(kPaper);
             p.drawRect(QRectF(4, 10.5, 8, 4));
         }},
        {FilePrintPreview,
         [](QPainter& p) {
             Page(p, QRectF(1.5, 1, 10, 14));
             Magnifier(p);
         }},
        {AppAbout, [](QPainter& p) { Letter(p, "i", true, false, false); }},
        {EditUndo,
         [](QPainter& p) {
             p.setPen(QPen(kBlue, 2, Qt::SolidLine, Qt::RoundCap));
             p.setBrush(Qt::NoBrush);
             p.drawArc(QRectF(3, 4, 10, 9), 90 * 16, -200 * 16);
             Arrow(p, {6, 4.5}, {3, 4.5}, kBlue);
         }},
        {EditCut,
         [](QPainter& p) {
             p.setPen(QPen(kInk, 1.4));
             p.setBrush(Qt::NoBrush);
             p.drawEllipse(QPointF(4.5, 12), 2.5, 2.5);
             p.drawEllipse(QPointF(11.5, 12), 2.5, 2.5);
             p.drawLine(QPointF(6, 10), QPointF(11, 1.5));
             p.drawLine(QPointF(10, 10), QPointF(5, 1.5));
         }},
        {EditCopy,
         [](QPainter& p) {
             Page(p, QRectF(1.5, 1, 8, 10));
             Page(p, QRectF(6, 5, 8, 10));
         }},
        {EditPaste,
         [](QPainter& p) {
             p.setPen(QPen(kInk, 1));
             p.setBrush(QColor(190, 140, 80));
             p.drawRect(QRectF(2, 2.5, 10, 12));
             p.setBrush(QColor(200, 200, 200));
             p.drawRect(QRectF(5, 1, 4, 3));
             Page(p, QRectF(7, 6, 7.5, 9));
         }},
        {NewNode,
         [](QPainter& p) {
             Tree(p);
             Plus(p, {12.5, 3.5}, 3, kGreen);
         }},
        {EditNode,
         [](QPainter& p) {
             Page(p);
             p.setPen(QPen(kBlue, 2.2, Qt::SolidLine, Qt::RoundCap));
             p.drawLine(QPointF(6, 12), QPointF(13.5, 4.5));
         }},
        {DeleteNode,
         [](QPainter& p) {
             Tree(p);
             p.setPen(QPen(kRed, 2.2, Qt::SolidLine, Qt::RoundCap));
             p.drawLine(QPointF(10, 1.5), QPointF(15, 6.5));
             p.drawLine(QPointF(15, 1.5), QPointF(10, 6.5));
         }},
        {CollapseAll,
         [](QPainter& p) {
             p.setPen(QPen(kInk, 1));
             p.setBrush(kPaper);
             p.drawRect(QRectF(3.5, 3.5, 9, 9));
             Minus(p, {8, 8}, 3, kInk);
         }},
        {ExpandAll,
         [](QPainter& p) {
             p.setPen(QPen(kInk, 1));
             p.setBrush(kPaper);
             p.drawRect(QRectF(3.5, 3.5, 9, 9));
             Plus(p, {8, 8}, 3, kInk);
         }},
        {FindText, [](QPainter& p) { Magnifier(p); }},
        {ZoomOut,
         [](QPainter& p) {
             Magnifier(p);
             Minus(p, {6.5, 6.5}, 2.5, kInk);
         }},
        {ZoomIn,
         [](QPainter& p) {
             Magnifier(p);
             Plus(p, {6.5, 6.5}, 2.5, kInk);
         }},
        {SortByDate,
         [](QPainter& p) {
             Arrow(p, {4.5, 2}, {4.5, 14}, kBlue);
             Arrow(p, {11.5, 14}, {11.5, 2}, kGreen);
         }},
        {ToggleCosts,
         [](QPainter& p) {
             QFont font("Liberation Sans");
             font.setPixelSize(13);
             font.setBold(true);
             p.setFont(font);
             p.setPen(kGreen);
             p.drawText(QRectF(0, 0, 16, 16), Qt::AlignCenter, QString::fromUtf8("€"));
         }},
        {Manual,
         [](QPainter& p) {
             p.setPen(QPen(kInk, 1));
             p.setBrush(kBlue);
             p.drawRect(QRectF(2.5, 1.5, 11, 13));
             QFont font("Liberation Sans");
             font.setPixelSize(11);
             font.setBold(true);
             p.setFont(font);
             p.setPen(Qt::white);
             p.drawText(QRectF(2.5, 1.5, 11, 13), Qt::AlignCenter, "?");
         }},
        {MindMapMode,
         [](QPainter& p) {
             p.setPen(QPen(kInk, 1));
             p.drawLine(QPointF(8, 8), QPointF(2.5, 3));
             p.drawLine(QPointF(8, 8), QPointF(13.5, 3));
             p.drawLine(QPointF(8, 8), QPointF(2.5, 13));
             p.drawLine(QPointF(8, 8), QPointF(13.5, 13));
             p.setBrush(kYellow);
             p.drawRect(QRectF(4.5, 6, 7, 4));
             p.setBrush(kPaper);
             for (QPointF c : {QPointF(2.5, 3), QPointF(13.5, 3), QPointF(2.5, 13), QPointF(13.5, 13)})
                 p.drawEllipse(c, 2, 1.5);
         }},
        {TimelineMode, [](QPainter& p) { Bars(p); }},
        {NoteBold, [](QPainter& p) { Letter(p, "F", true, false, false); }},
        {NoteItalic, [](QPainter& p) { Letter(p, "K", false, true, false); }},
        {NoteUnderline, [](QPainter& p) { Letter(p, "U", false, false, true); }},
        {NoteBullets,
         [](QPainter& p) {
             ListLines(p, [](QPainter& q, QPointF at) {
                 q.setPen(Qt::NoPen);
                 q.setBrush(kInk);
                 q.drawEllipse(at, 1.4, 1.4);
             });
         }},
        {NoteNumbering,
         [](QPainter& p) {
             int number = 0;
             ListLines(p, [&number](QPainter& q, QPointF at) {
                 QFont font("Liberation Sans");
                 font.setPixelSize(5);
                 q.setFont(font);
                 q.setPen(kInk);
                 q.drawText(QRectF(at.x() - 2.5, at.y() - 3, 5, 6), Qt::AlignCenter,
                            QString::number(++number));
             });
         }},
        {NoteIndentMore, [](QPainter& p) { IndentLines(p, true); }},
        {NoteIndentLess, [](QPainter& p) { IndentLines(p, false); }},
        {Settings,
         [](QPainter& p) {
             p.setPen(QPen(kInk, 1));
             p.setBrush(QColor(160, 160, 170));
             p.drawEllipse(QPointF(8, 8), 6, 6);
             p.setBrush(kPaper);
             p.drawEllipse(QPointF(8, 8), 2.5, 2.5);
         }},
    };
    return drawings;
}

QPixmap Paint(const Drawing& draw, int size) {
    QPixmap pixmap(size, size);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(size / 16.0, size / 16.0);
    draw(painter);
    return pixmap;
}

} // namespace

QIcon PaintedIcon(const Drawing& draw) {
    QIcon icon;
    for (int size : {16, 24, 32, 48})
        icon.addPixmap(Paint(draw, size));
    return icon;
}

QIcon CommandIcon(const CommandInfo& command) {
    const auto& drawings = Drawings();
    const auto it = drawings.find(command.id);
    const QIcon painted = it == drawings.end() ? QIcon() : PaintedIcon(it->second);
    if (!*command.icon)
        return painted;
    return QIcon::fromTheme(QString::fromLatin1(command.icon), painted);
}

QIcon AppIcon() {
    // The resources of a static library must be registered by hand, once.
    static const bool registered = [] {
        RegisterVeltoResources();
        return true;
    }();
    Q_UNUSED(registered);
    return QIcon(QStringLiteral(":/velto.png"));
}

} // namespace velto
