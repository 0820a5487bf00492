#include "view/AlarmBell.h"

#include "base/DataFiles.h"
#include "base/Icons.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QSoundEffect>
#include <QSystemTrayIcon>
#include <QUrl>

namespace velto {

namespace {
constexpr int kMessageShownMs = 15000;
} // namespace

DesktopAlarmBell::DesktopAlarmBell(QString soundFile) : m_soundFile(std::move(soundFile)) {}

DesktopAlarmBell::~DesktopAlarmBell() = default;

void DesktopAlarmBell::Ring() {
    // Looked for at every alarm: the file may come or go while the program runs.
    if (!QFileInfo(m_soundFile).isFile())
        return;
    if (!m_sound) {
        m_sound = new QSoundEffect(this);
        m_sound->setSource(QUrl::fromLocalFile(m_soundFile));
    }
    m_sound->play();
}

void DesktopAlarmBell::Notify(const QString& title, const QString& text, std::function<void()> clicked) {
    if (!QSystemTrayIcon::isSystemTrayAvailable())
        return;
    m_clicked = std::move(clicked);
    if (!m_tray) {
        m_tray = new QSystemTrayIcon(AppIcon(), this);
        m_tray->setToolTip(QStringLiteral("Velto"));
        const auto bringForward = [this] {
            if (m_clicked)
                m_clicked();
        };
        connect(m_tray, &QSystemTrayIcon::messageClicked, this, bringForward);
        connect(m_tray, &QSystemTrayIcon::activated, this, bringForward);
    }
    m_tray->show();
    m_tray->showMessage(title, text, QSystemTrayIcon::Information, kMessageShownMs);
}

void DesktopAlarmBell::Withdraw() {
    m_clicked = {};
    if (m_tray)
        m_tray->hide();
}

QString AlarmSoundFile() {
    return ShippedFile(QCoreApplication::applicationDirPath(), QStringLiteral("ALARM.WAV"));
}

} // namespace velto
