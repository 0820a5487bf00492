#pragma once
// "Erinnerung": picks the day, hour ("01" .. "24") and five-minute mark of a node's reminder.
// "Erinnerung ein" accepts, "Erinnerung aus" rejects and switches the reminder off; closing the
// window or Escape rejects without switching anything, so a reminder is never lost by accident.
#include "model/CTime.h"

#include <QDialog>

class QComboBox;
class QDateEdit;

namespace velto {

class CReminderDlg : public QDialog {
    Q_OBJECT
public:
    // proposed: the current reminder, or now when there is none.
    CReminderDlg(CTime proposed, QWidget* parent = nullptr);
    // The picked day at the listed hour and minute; "24" is midnight at the end of that day.
    CTime Chosen() const;
    // "Erinnerung aus" was pressed.
    bool SwitchedOff() const { return m_switchedOff; }

private:
    QDateEdit* m_day;
    QComboBox* m_hour;
    QComboBox* m_minute;
    bool m_switchedOff = false;
};

} // namespace velto
