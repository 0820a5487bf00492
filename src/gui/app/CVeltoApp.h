#pragma once
// The application: the settings, the recent-file list and the main window, and the start-up that
// opens the projects named in the settings and on the command line.
#include "app/RecentFileList.h"
#include "base/Settings.h"

#include <QStringList>

#include <memory>

namespace velto {

class CMainFrame;
class Desktop;

class CVeltoApp {
public:
    explicit CVeltoApp(Desktop& desktop);
    ~CVeltoApp();

    CMainFrame& MainFrame() const { return *m_frame; }

    // Shows the main window, opens "Datei1" to "Datei3" of the settings, then the given files; starts
    // with a new project when none was named at all.
    void Start(const QStringList& files);
    // Opens the files another program started by the user handed over, and comes to the front.
    void OpenHandedOver(const QStringList& files);

    // German texts for Qt's own dialogs, when the system has them.
    static void InstallQtTranslation();

private:
    // Plugs the dialogs of the settings, the holidays and the assignee presets into their commands.
    void RegisterDialogs();
    // True when a file was named in the settings (opened or not).
    bool OpenStartupFiles();

    Desktop& m_desktop;
    SettingsStore m_settings;
    RecentFileList m_recent;
    std::unique_ptr<CMainFrame> m_frame;
};

} // namespace velto
