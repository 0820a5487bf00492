#include "view/CalendarExport.h"

#include "base/TextExport.h"
#include "document/CVeltoDoc.h"
#include "document/ICalendar.h"

#include <QFileDialog>
#include <QFileInfo>

namespace velto {

void ExportCalendar(QWidget* parent, CVeltoDoc& doc) {
    const QFileInfo project(QString::fromStdString(doc.GetPathName()));
    const QString suggestion =
        doc.GetPathName().empty() ? QString() : project.path() + "/" + project.completeBaseName() + ".ics";
    QString path =
        QFileDialog::getSaveFileName(parent, "Kalender exportieren", suggestion, "Kalender (*.ics)");
    if (path.isEmpty())
        return;
    if (!path.endsWith(".ics", Qt::CaseInsensitive))
        path += ".ics";
    SaveCalendar(doc, path);
}

bool SaveCalendar(CVeltoDoc& doc, const QString& path) {
    const std::string calendar =
        ProjectCalendar(doc.m_pFirstNode, LocalZoneName(), CTime::GetCurrentTime().GetYear());
    return SaveExportedText(calendar, path, doc.GetPrompter());
}

} // namespace velto
