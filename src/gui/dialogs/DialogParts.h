#pragma once
// Pieces every node dialog uses: the button row with German texts, date and time pickers in the
// program's display formats, and the conversions between pickers and the model's times.
#include "model/HoursLogic.h"

#include <QDate>
#include <QTime>

class QAbstractButton;
class QDateEdit;
class QDialog;
class QDialogButtonBox;
class QTimeEdit;
class QWidget;

// A button row whose accept button says okText and whose reject button says cancelText; it
// accepts and rejects the dialog.
QDialogButtonBox* NewButtonRow(QDialog* dialog, const QString& okText = "OK",
                               const QString& cancelText = "Abbrechen");
// The accept button of such a row.
QAbstractButton* AcceptButtonOf(const QDialogButtonBox* buttons);

// A day picker ("dd.MM.yyyy", with a calendar) limited to 1970-01-01 .. 2037-12-31.
QDateEdit* NewDayPicker(QWidget* parent);
// A time picker showing "HH:mm".
QTimeEdit* NewTimePicker(QWidget* parent);

QDate ToQDate(CTime time);
QTime ToQTime(CTime time);
CalendarDay ToCalendarDay(const QDate& date);
