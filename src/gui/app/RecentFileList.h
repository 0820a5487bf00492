#pragma once
// The list of the four files opened or saved last, newest first, kept where the program has always
// kept it ("Local AppWizard-Generated Applications/Velto", group "Recent File List", File1..File4).
#include <QString>
#include <QStringList>

namespace velto {

class RecentFileList {
public:
    static constexpr int kSize = 4;

    // Reads the stored list.
    RecentFileList();

    const QStringList& Files() const { return m_files; }
    // Puts path at the top (moving it there when it is listed already) and stores the list.
    void Add(const QString& path);
    // Drops path (a file that could not be opened) and stores the list.
    void Remove(const QString& path);

private:
    void Store() const;
    QStringList m_files;
};

} // namespace velto
