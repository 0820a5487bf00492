#include "app/RecentFileList.h"

#include <QSettings>

namespace velto {

namespace {
constexpr const char* kOrganization = "Local AppWizard-Generated Applications";
constexpr const char* kApplication = "Velto";
constexpr const char* kGroup = "Recent File List";

QString EntryName(int index) {
    return QStringLiteral("File%1").arg(index + 1);
}

// Paths are compared as the file system does on this platform.
bool SamePath(const QString& a, const QString& b) {
#ifdef Q_OS_WIN
    return a.compare(b, Qt::CaseInsensitive) == 0;
#else
    return a == b;
#endif
}
} // namespace

RecentFileList::RecentFileList() {
    QSettings settings(kOrganization, kApplication);
    settings.beginGroup(kGroup);
    for (int i = 0; i < kSize; ++i) {
        const QString path = settings.value(EntryName(i)).toString();
        if (!path.isEmpty())
            m_files.append(path);
    }
}

void RecentFileList::Add(const QString& path) {
    m_files.removeIf([&](const QString& listed) { return SamePath(listed, path); });
    m_files.prepend(path);
    while (m_files.size() > kSize)
        m_files.removeLast();
    Store();
}

void RecentFileList::Remove(const QString& path) {
    m_files.removeIf([&](const QString& listed) { return SamePath(listed, path); });
    Store();
}

void RecentFileList::Store() const {
    QSettings settings(kOrganization, kApplication);
    settings.beginGroup(kGroup);
    for (int i = 0; i < kSize; ++i) {
        if (i < m_files.size())
            settings.setValue(EntryName(i), m_files[i]);
        else
            settings.remove(EntryName(i));
    }
}

} // namespace velto
