#pragma once
// The pictures on the node dialog's owner-drawn buttons (the reminder off and on, the responsible
// person) and the alarm clock of the alarm window. Drawn here so that the program ships no image
// files for them.
#include <QIcon>

namespace velto {

QIcon ReminderOffIcon();
QIcon ReminderOnIcon();
QIcon ResponsibleIcon();
// A ringing alarm clock, drawn large enough for the alarm window.
QIcon AlarmIcon();

} // namespace velto
