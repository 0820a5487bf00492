#pragma once
// Colours are stored as COLORREF values (red in the low byte, then green, then blue); the GUI
// converts them here and nowhere else.
#include <QColor>

namespace velto {

QColor ColorFromColorRef(int colorRef);
int ColorRefOf(const QColor& colour);

} // namespace velto
