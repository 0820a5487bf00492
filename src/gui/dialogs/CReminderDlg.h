#pragma once
// "Erinnerung": picks the day, hour ("01" .. "24") and five-minute mark of a node's reminder.
// "Erinnerung ein" accepts, "Erinnerung aus" rejects (the caller then switches the reminder off).
#include "model/CTime.h"

#include <QDialog>

class QComboBox;
class QDateEdit;

class CReminderDlg : public QDialog {
    Q_OBJECT
public:
    // proposed: the current reminder, or now when there is none.
    CReminderDlg(CTime proposed, QWidget* parent = nullptr);
    // The picked day at the listed hour and minute; "24" is midnight at the end of that day.
    CTime Chosen() const;

private:
    QDateEdit* m_day;
    QComboBox* m_hour;
    QComboBox* m_minute;
};
