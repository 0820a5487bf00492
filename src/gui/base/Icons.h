#pragma once
// Toolbar and window icons: the desktop theme's icon where the theme has one, else a small icon
// drawn here, so the program looks complete on a bare system and ships no image files for buttons.
#include <QIcon>

#include <functional>

class QPainter;

namespace velto {

struct CommandInfo;

// An icon drawn on a 16 x 16 grid, in the sizes toolbars and menus ask for.
QIcon PaintedIcon(const std::function<void(QPainter&)>& draw);

QIcon CommandIcon(const CommandInfo& command);
// The program's own icon.
QIcon AppIcon();

} // namespace velto
