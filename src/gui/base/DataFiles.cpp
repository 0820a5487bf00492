#include "base/DataFiles.h"

#include <QDir>
#include <QFileInfo>

namespace velto {

QString ShippedFile(const QString& programDir, const QString& name) {
    const QDir beside(programDir);
    const QString besideProgram = beside.filePath(name);
    if (QFileInfo::exists(besideProgram))
        return besideProgram;
    const QString installed =
        QDir::cleanPath(beside.filePath(QLatin1String(kInstalledDataFolder) + '/' + name));
    return QFileInfo::exists(installed) ? installed : besideProgram;
}

} // namespace velto
