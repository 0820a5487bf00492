#include "dialogs/DialogParts.h"

#include "dialogs/DialogText.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QDateEdit>
#include <QDialog>
#include <QDialogButtonBox>
#include <QPushButton>
#include <QShortcut>
#include <QTimeEdit>

namespace velto {

QDialogButtonBox* NewButtonRow(QDialog* dialog, const QString& okText, const QString& cancelText) {
    auto* buttons = new QDialogButtonBox(dialog);
    buttons->addButton(okText, QDialogButtonBox::AcceptRole)->setDefault(true);
    buttons->addButton(cancelText, QDialogButtonBox::RejectRole);
    QObject::connect(buttons, &QDialogButtonBox::accepted, dialog, &QDialog::accept);
    QObject::connect(buttons, &QDialogButtonBox::rejected, dialog, &QDialog::reject);
    return buttons;
}

QAbstractButton* AcceptButtonOf(const QDialogButtonBox* buttons) {
    for (QAbstractButton* button : buttons->buttons())
        if (buttons->buttonRole(button) == QDialogButtonBox::AcceptRole)
            return button;
    return nullptr;
}

void TakeBackOnDoubleClickOrDelete(QAbstractItemView* list, std::function<void()> takeBack) {
    QObject::connect(list, &QAbstractItemView::doubleClicked, list, [takeBack] { takeBack(); });
    auto* remove = new QShortcut(QKeySequence::Delete, list);
    remove->setContext(Qt::WidgetShortcut);
    QObject::connect(remove, &QShortcut::activated, list, std::move(takeBack));
}

QDateEdit* NewDayPicker(QWidget* parent) {
    auto* picker = new QDateEdit(QDate::currentDate(), parent);
    picker->setDisplayFormat("dd.MM.yyyy");
    picker->setCalendarPopup(true);
    picker->setDateRange(QDate(1970, 1, 1), QDate(2037, 12, 31));
    picker->setMinimumWidth(picker->fontMetrics().horizontalAdvance("00.00.00000") + 40);
    return picker;
}

QTimeEdit* NewTimePicker(QWidget* parent) {
    auto* picker = new QTimeEdit(QTime::currentTime(), parent);
    picker->setDisplayFormat("HH:mm");
    return picker;
}

QDate ToQDate(CTime time) {
    return QDate(time.GetYear(), time.GetMonth(), time.GetDay());
}

QTime ToQTime(CTime time) {
    return QTime(time.GetHour(), time.GetMinute());
}

CalendarDay ToCalendarDay(const QDate& date) {
    return {date.year(), date.month(), date.day()};
}

HoursInput ReadHoursInput(const QDateEdit& day, const QTimeEdit& begin, const QTimeEdit& end,
                          const QComboBox& assignee, const QComboBox& remark) {
    return {ToCalendarDay(day.date()),
            begin.time().hour(),
            begin.time().minute(),
            end.time().hour(),
            end.time().minute(),
            dlgtext::Keep(assignee.currentText()),
            dlgtext::Keep(remark.currentText())};
}

} // namespace velto
