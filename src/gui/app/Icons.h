#pragma once
// Toolbar and window icons: the desktop theme's icon where the theme has one, else a small icon
// drawn here, so the program looks complete on a bare system and ships no image files for buttons.
#include <QIcon>

struct CommandInfo;

QIcon CommandIcon(const CommandInfo& command);
// The program's own icon.
QIcon AppIcon();
