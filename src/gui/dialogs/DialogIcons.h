#pragma once
// The pictures on the node dialog's owner-drawn buttons: the reminder off and on, and the
// responsible person. Drawn here so that the program ships no image files for them.
#include <QIcon>

namespace velto {

QIcon ReminderOffIcon();
QIcon ReminderOnIcon();
QIcon ResponsibleIcon();

} // namespace velto
