#include "chart/ChartStyle.h"

#include "base/Cp1252Text.h"

#include <algorithm>

namespace velto::chartstyle {

namespace {

// Qt's pixel size is the em size, which for the usual sans faces is about nine tenths of the cell.
int EmPixels(int cellHeight) {
    return std::max(1, cellHeight * 9 / 10);
}

} // namespace

QFont TitleFont(const TitleStyle& style) {
    QFont font(ToQString(style.fontName));
    font.setPixelSize(EmPixels(style.size));
    font.setWeight(style.bold ? QFont::Black : QFont::Normal);
    font.setItalic(style.italic);
    font.setUnderline(style.underline);
    font.setStrikeOut(style.strikeOut);
    font.setKerning(false);
    return font;
}

QFont ChartFont(int cellHeight, QFont::Weight weight) {
    QFont font(QStringLiteral("Arial"));
    font.setPixelSize(EmPixels(cellHeight));
    font.setWeight(weight);
    return font;
}

} // namespace velto::chartstyle
