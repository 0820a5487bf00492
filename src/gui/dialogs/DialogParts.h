#pragma once
// Pieces every node dialog uses: the button row with German texts, date and time pickers in the
// program's display formats, and the conversions between pickers and the model's times.
#include "model/HoursLogic.h"

#include <QDate>
#include <QTime>

#include <functional>

class QAbstractButton;
class QComboBox;
class QAbstractItemView;
class QDateEdit;
class QDialog;
class QDialogButtonBox;
class QTimeEdit;
class QWidget;

namespace velto {

// A button row whose accept button says okText and whose reject button says cancelText; it
// accepts and rejects the dialog.
QDialogButtonBox* NewButtonRow(QDialog* dialog, const QString& okText = "OK",
                               const QString& cancelText = "Abbrechen");
// The accept button of such a row.
QAbstractButton* AcceptButtonOf(const QDialogButtonBox* buttons);

// Double-click on a row or the Delete key in the list runs takeBack, as "Eintrag editieren /
// löschen" does.
void TakeBackOnDoubleClickOrDelete(QAbstractItemView* list, std::function<void()> takeBack);

// A day picker ("dd.MM.yyyy", with a calendar) limited to 1970-01-01 .. 2037-12-31.
QDateEdit* NewDayPicker(QWidget* parent);
// A time picker showing "HH:mm".
QTimeEdit* NewTimePicker(QWidget* parent);

QDate ToQDate(CTime time);
QTime ToQTime(CTime time);
CalendarDay ToCalendarDay(const QDate& date);
// The hours entry that the day, the two times and the two text combos of an input row describe.
HoursInput ReadHoursInput(const QDateEdit& day, const QTimeEdit& begin, const QTimeEdit& end,
                          const QComboBox& assignee, const QComboBox& remark);

} // namespace velto
