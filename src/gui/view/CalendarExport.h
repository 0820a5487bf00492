#pragma once
// "Datei → Exportieren → Kalender (.ics)...": the project's tasks, milestones and reminders as a
// calendar file.
#include <QString>

class QWidget;

namespace velto {

class CVeltoDoc;

// Asks for the file (the project's name with ".ics" proposed) and saves the calendar there.
void ExportCalendar(QWidget* parent, CVeltoDoc& doc);
// Saves the calendar of the document at path; a German message when that fails.
bool SaveCalendar(CVeltoDoc& doc, const QString& path);

} // namespace velto
