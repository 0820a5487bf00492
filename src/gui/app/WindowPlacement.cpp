#include "app/WindowPlacement.h"

#include <algorithm>

namespace velto {

namespace {
// The order of the four values of a stored window rectangle.
constexpr int kLeft = 0, kTop = 1, kRight = 2, kBottom = 3;
// Smaller than this a project window shows neither its title nor its rows.
constexpr int kMinChildWidth = 120;
constexpr int kMinChildHeight = 80;
constexpr int kCascadeStep = 24;
} // namespace

StoredRect ToStoredRect(const QRect& rect) {
    return {rect.left(), rect.top(), rect.left() + rect.width(), rect.top() + rect.height()};
}

QRect FromStoredRect(const StoredRect& rect) {
    return QRect(rect[kLeft], rect[kTop], rect[kRight] - rect[kLeft], rect[kBottom] - rect[kTop]);
}

QRect MainFramePlacement(const std::optional<StoredRect>& stored, const QRect& virtualScreen) {
    const QRect fallback(0, 0, 800, 600);
    if (!stored)
        return fallback;
    const StoredRect& r = *stored;
    const StoredRect screen = ToStoredRect(virtualScreen);
    const bool outside = r[kLeft] < screen[kLeft] || r[kTop] < screen[kTop] || r[kRight] > screen[kRight] ||
                         r[kBottom] > screen[kBottom];
    // An empty or inverted rectangle would give an invisible window; it is as unusable as one on a
    // missing monitor.
    const bool degenerate = r[kRight] <= r[kLeft] || r[kBottom] <= r[kTop];
    return outside || degenerate ? fallback : FromStoredRect(r);
}

std::optional<QRect> ChildWindowPlacement(const StoredRect& stored, const QSize& mdiArea,
                                          const QSize& screen) {
    // 64-bit arithmetic: the values come from a file and may be anything.
    int64_t left = stored[kLeft], top = stored[kTop], right = stored[kRight], bottom = stored[kBottom];
    if (right > mdiArea.width()) {
        right -= left;
        left = 0;
    }
    if (bottom > mdiArea.height()) {
        bottom -= top;
        top = 0;
    }
    if (left < 0 || left > screen.width())
        left = 0;
    if (top < 0 || top > screen.height())
        top = 0;
    const int64_t width = right - left, height = bottom - top;
    if (width < kMinChildWidth || height < kMinChildHeight || width > INT32_MAX || height > INT32_MAX)
        return std::nullopt;
    return QRect(int(left), int(top), int(width), int(height));
}

QRect NewChildWindowPlacement(const QSize& mdiArea, int index) {
    const QSize size(std::clamp(mdiArea.width() * 4 / 5, 320, 1000),
                     std::clamp(mdiArea.height() * 4 / 5, 240, 700));
    const int stepsRight = std::max(1, (mdiArea.width() - size.width()) / kCascadeStep + 1);
    const int stepsDown = std::max(1, (mdiArea.height() - size.height()) / kCascadeStep + 1);
    const int step = std::max(0, index) % std::min(stepsRight, stepsDown);
    return QRect(QPoint(step * kCascadeStep, step * kCascadeStep), size);
}

} // namespace velto
