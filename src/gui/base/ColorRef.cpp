#include "base/ColorRef.h"

namespace velto {

QColor ColorFromColorRef(int colorRef) {
    const auto value = static_cast<unsigned>(colorRef);
    return QColor(int(value & 0xFF), int((value >> 8) & 0xFF), int((value >> 16) & 0xFF));
}

int ColorRefOf(const QColor& colour) {
    return colour.red() | (colour.green() << 8) | (colour.blue() << 16);
}

} // namespace velto
