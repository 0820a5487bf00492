#include "dialogs/CReminderDlg.h"

#include "dialogs/DialogParts.h"
#include "model/NodeEditLogic.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QDateEdit>
#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

namespace velto {

namespace {

QComboBox* NumberList(int first, int count, int stride, QWidget* parent) {
    auto* list = new QComboBox(parent);
    for (int i = 0; i < count; ++i)
        list->addItem(QString("%1").arg(first + i * stride, 2, 10, QChar('0')));
    return list;
}

} // namespace

CReminderDlg::CReminderDlg(CTime proposed, QWidget* parent)
    : QDialog(parent), m_day(NewDayPicker(this)), m_hour(NumberList(1, 24, 1, this)),
      m_minute(NumberList(0, 12, 5, this)) {
    setWindowTitle("Erinnerung");
    m_day->setObjectName("day");
    m_hour->setObjectName("hour");
    m_minute->setObjectName("minute");
    m_day->setDate(ToQDate(proposed));
    m_hour->setCurrentIndex(ReminderHourItem(proposed.GetHour()));
    m_minute->setCurrentIndex(ReminderMinuteItem(proposed.GetMinute()));

    auto* row = new QHBoxLayout;
    row->addWidget(m_day);
    row->addWidget(m_hour);
    row->addWidget(new QLabel(":", this));
    row->addWidget(m_minute);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(row);
    QDialogButtonBox* buttons = NewButtonRow(this, "Erinnerung ein", "Erinnerung aus");
    layout->addWidget(buttons);
    // The box reports the click before it rejects the dialog.
    connect(buttons, &QDialogButtonBox::clicked, this, [this, buttons](QAbstractButton* button) {
        m_switchedOff = buttons->buttonRole(button) == QDialogButtonBox::RejectRole;
    });
    m_hour->setToolTip("Stunde");
    m_minute->setToolTip("Minute");
}

CTime CReminderDlg::Chosen() const {
    return ReminderTime(ToCalendarDay(m_day->date()), m_hour->currentText().toInt(),
                        m_minute->currentText().toInt());
}

} // namespace velto
