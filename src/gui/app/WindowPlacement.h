#pragma once
// Where the main window and the project windows go when they are restored. Pure geometry, so it can
// be checked without a screen.
#include <QRect>
#include <QSize>

#include <array>
#include <cstdint>
#include <optional>

namespace velto {

// Rectangles as the settings and the project file keep them: left, top, right, bottom, with right
// and bottom one past the last pixel.
using StoredRect = std::array<int32_t, 4>;

StoredRect ToStoredRect(const QRect& rect);
QRect FromStoredRect(const StoredRect& rect);

// The main window's rectangle at start: the stored one, unless it is missing or reaches outside the
// virtual screen (a monitor that is gone), then 800 x 600 at the origin.
QRect MainFramePlacement(const std::optional<StoredRect>& stored, const QRect& virtualScreen);

// A project window's rectangle from its file, inside an MDI area of the given size: a window that
// reaches past the right (bottom) edge moves to x = 0 (y = 0) keeping its width (height); then a
// left (top) edge below 0 or beyond the screen goes to 0 while the right (bottom) edge stays.
// Nothing when the result is too small to work with (files written without a window): the caller
// then places the window as a new one.
std::optional<QRect> ChildWindowPlacement(const StoredRect& stored, const QSize& mdiArea,
                                          const QSize& screen);

// A new project window (or one whose file holds no usable rectangle): four fifths of the MDI area,
// the index-th window a step further down and right, starting over before it would leave the area.
QRect NewChildWindowPlacement(const QSize& mdiArea, int index);

} // namespace velto
