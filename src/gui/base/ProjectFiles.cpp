#include "base/ProjectFiles.h"

#include <QFile>
#include <QFileInfo>

namespace velto {

namespace {
const QString kExtension = QStringLiteral(".VT5");
}

QString ProjectFileFilter() {
    return QStringLiteral("Projekt (*.VT5 *.vt5)");
}

QString WithProjectExtension(const QString& path) {
    return path.endsWith(kExtension, Qt::CaseInsensitive) ? path : path + kExtension;
}

QString FileKey(const QString& path) {
    const QFileInfo info(path);
    const QString canonical = info.canonicalFilePath();
    return canonical.isEmpty() ? info.absoluteFilePath() : canonical;
}

std::string ToCorePath(const QString& path) {
    return QFile::encodeName(path).toStdString();
}

QString FromCorePath(const std::string& path) {
    return QFile::decodeName(QByteArray::fromStdString(path));
}

QString FromCoreText(const std::string& text) {
    return QString::fromStdString(text);
}

} // namespace velto
