#include "app/CVeltoApp.h"

#include "app/CMainFrame.h"
#include "base/CommandIds.h"
#include "base/DataFiles.h"
#include "base/Desktop.h"
#include "dialogs/CHolidayDlg.h"
#include "dialogs/CSettingsDlg.h"
#include "dialogs/NodeDialogs.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QLibraryInfo>
#include <QTranslator>

namespace velto {

CVeltoApp::CVeltoApp(Desktop& desktop)
    : m_desktop(desktop), m_settings(desktop.GetPrompter()),
      m_frame(std::make_unique<CMainFrame>(desktop, m_settings, m_recent)) {
    RegisterDialogs();
}

CVeltoApp::~CVeltoApp() = default;

void CVeltoApp::RegisterDialogs() {
    // The menus with and without a project have their own command for the same dialog.
    const auto settings = [this] { EditSettings(m_frame.get(), m_settings, m_desktop); };
    const auto holidays = [this] { EditHolidays(m_frame.get(), m_desktop.GetPrompter()); };
    m_frame->SetCommandHandler(cmd::SettingsNoDoc, settings);
    m_frame->SetCommandHandler(cmd::Settings, settings);
    m_frame->SetCommandHandler(cmd::HolidaysNoDoc, holidays);
    m_frame->SetCommandHandler(cmd::Holidays, holidays);
    m_frame->SetCommandHandler(cmd::Assignees,
                               [this] { EditAssigneePresets(m_frame.get(), m_desktop.GetPrompter()); });
}

void CVeltoApp::Start(const QStringList& files) {
    if (m_frame->WasMaximized())
        m_frame->showMaximized();
    else
        m_frame->show();
    bool named = OpenStartupFiles();
    for (const QString& file : files) {
        m_frame->Documents().OpenDocumentFile(file);
        named = true;
    }
    if (!named)
        m_frame->Documents().NewDocument();
}

void CVeltoApp::OpenHandedOver(const QStringList& files) {
    // Out of the task bar as it went in: maximised if it was.
    m_frame->setWindowState((m_frame->windowState() & ~Qt::WindowMinimized) | Qt::WindowActive);
    m_frame->raise();
    m_frame->activateWindow();
    for (const QString& file : files)
        m_frame->Documents().OpenDocumentFile(file);
}

bool CVeltoApp::OpenStartupFiles() {
    const SettingsSession settings = m_settings.Open();
    bool named = false;
    for (const TextSetting& key : {setting::StartFile1, setting::StartFile2, setting::StartFile3}) {
        const QString path = settings.Get(key);
        if (path.isEmpty())
            continue;
        named = true;
        if (QFileInfo::exists(path)) {
            m_frame->Documents().OpenDocumentFile(path);
            continue;
        }
        const QString text =
            QString::fromUtf8("Die Datei\n%1\nsoll laut Einstellungen (%2) beim Start geöffnet werden, "
                              "wurde aber nicht gefunden.")
                .arg(QDir::toNativeSeparators(path), QString::fromLatin1(key.name));
        m_desktop.Warn(text);
    }
    return named;
}

void CVeltoApp::InstallQtTranslation() {
    // The copy Velto ships first, then the one of the Qt on the system.
    const QString shipped =
        ShippedFile(QCoreApplication::applicationDirPath(), QStringLiteral("translations"));
    auto* translator = new QTranslator(QCoreApplication::instance());
    if (translator->load(QStringLiteral("qtbase_de"), shipped) ||
        translator->load(QStringLiteral("qtbase_de"), QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QCoreApplication::installTranslator(translator);
    else
        delete translator;
}

} // namespace velto
