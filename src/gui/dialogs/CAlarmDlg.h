#pragma once
// "Alarm": the reminder of a node is due. "Schließen" switches the reminder off; "Erneut erinnern"
// (and Esc, and the window's close button) puts it off by the interval chosen in the list; "Gehe zu"
// shows the node and leaves the window open. The window is modeless and only reports the choice:
// its owner holds the node and applies it.
#include <QDialog>

class QComboBox;

namespace velto {

class Prompter;

class CAlarmDlg : public QDialog {
    Q_OBJECT
public:
    // projectTitle: the document's title, shown in the caption and kept to find its window again.
    CAlarmDlg(const QString& nodeTitle, const QString& projectTitle, Prompter& prompter,
              QWidget* parent = nullptr);

    const QString& ProjectTitle() const { return m_projectTitle; }

    // "Schließen".
    void accept() override;
    // "Erneut erinnern": a text that is none of the listed intervals is refused, and the window stays.
    void reject() override;

signals:
    void SwitchOffChosen();
    void SnoozeChosen(int seconds);
    void GoToChosen();

private:
    QString m_projectTitle;
    Prompter& m_prompter;
    QComboBox* m_snooze;
};

} // namespace velto
