#pragma once
// The files Velto ships beside its program: the manual, the alarm sound, Qt's German texts. A
// program run from its build folder has them beside itself; an installed one finds them in the data
// folder of the installation ("share/velto" beside "bin").
#include <QString>

namespace velto {

// Where the installation keeps the shipped files, relative to the program's folder.
inline constexpr char kInstalledDataFolder[] = "../share/velto";

// The shipped file of that name: beside the program if it is there, else in the installed data
// folder if it is there, else the place beside the program (for the message that it is missing).
QString ShippedFile(const QString& programDir, const QString& name);

} // namespace velto
