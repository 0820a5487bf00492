#pragma once
// How an alarm reaches the user beyond its window: a sound, and a desktop message while another
// program is in front. Tests put a bell here that only counts.
#include <QObject>
#include <QString>

#include <functional>

class QSoundEffect;
class QSystemTrayIcon;

namespace velto {

class AlarmBell {
public:
    virtual ~AlarmBell() = default;
    // Plays the alarm sound without waiting for it.
    virtual void Ring() = 0;
    // Shows a desktop message; clicked runs when the user clicks it.
    virtual void Notify(const QString& title, const QString& text, std::function<void()> clicked) = 0;
    // The alarm was dealt with: its message goes away.
    virtual void Withdraw() = 0;
};

// The sound file beside the program through Qt Multimedia, and the message of the system tray where
// the desktop has one. A missing or unplayable file, or no audio device, plays nothing, and nobody
// is told: the alarm window is there all the same.
class DesktopAlarmBell : public QObject, public AlarmBell {
    Q_OBJECT
public:
    explicit DesktopAlarmBell(QString soundFile);
    ~DesktopAlarmBell() override;

    void Ring() override;
    void Notify(const QString& title, const QString& text, std::function<void()> clicked) override;
    void Withdraw() override;

private:
    QString m_soundFile;
    // Made at the first alarm, so that a project without one never opens the audio system.
    QSoundEffect* m_sound = nullptr;
    QSystemTrayIcon* m_tray = nullptr;
    std::function<void()> m_clicked;
};

// "ALARM.WAV" beside the program, or in the installed data folder.
QString AlarmSoundFile();

} // namespace velto
