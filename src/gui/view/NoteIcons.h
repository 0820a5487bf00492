#pragma once
// The icons of the note pane's ten format buttons (141 to 150): the desktop theme's where it has one,
// else drawn here, like the program's other buttons.
#include <QIcon>

namespace velto {

QIcon NoteButtonIcon(int buttonId);

} // namespace velto
