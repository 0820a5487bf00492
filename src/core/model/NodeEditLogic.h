#pragma once
// The rules of the node edit dialog: the "+"/"-" steps of its number edits, the reminder's hour and
// minute lists, and what OK does with the form: the kind-change refusals, the date check, the
// milestone's single day, the totals, and writing the working copy back into the node.
#include "model/HoursLogic.h"

#include <optional>
#include <string>

namespace velto {

// "+" moves to the next mark of the step (0.25 or 0.5) strictly above the value; values of
// 9999999 and more stay as they are.
double StepUp(double value, double step);
// "-" moves to the next mark strictly below the value, never below 0.
double StepDown(double value, double step);
inline constexpr double kQuarterStep = 0.25; // calculated hours
inline constexpr double kHalfStep = 0.5;     // hourly rate, unit price, quantity

// The reminder dialog lists the hours "01" .. "24" and the minutes "00" .. "55".
// Hour h selects item h-1; midnight selects "24".
int ReminderHourItem(int hour);
// The nearest five-minute mark: 0-2 → "00", 3-7 → "05", ..., 48-52 → "50", 53-59 → "55".
int ReminderMinuteItem(int minute);
// The picked day at the listed hour (1..24) and minute, built as local time: "24" is 00:mm of the
// next day, as designed.
CTime ReminderTime(const CalendarDay& day, int listedHour, int listedMinute);

// What the dialog's controls hold when OK is pressed.
struct NodeEditForm {
    int kind = kKindProject;
    CalendarDay startDay;
    CalendarDay dueDay;
    bool done = false;
    CTime doneStamp;
    std::string plannedText;
    std::string neededText;
    std::string rateText;
    std::string title;
    std::string responsible;
};

// Why OK left the dialog open, with the message box's caption and text.
struct EditRefusal {
    std::string caption;
    std::string text;
    bool backToProject = false; // a refused kind change selects "Projekt" again
};

// Applies the form to the working copy the way OK does. node is the node being edited, whose kind
// and children decide a kind change. Returns the refusal, or nothing when the copy may be written
// back; a refusal leaves the copy untouched.
std::optional<EditRefusal> ApplyEditForm(CProjectNode& copy, const CProjectNode& node,
                                         const NodeEditForm& form);

// Writes the working copy back into the node (its list links stay), selects it and stamps the
// change. The node's old entry lists go to the copy, which frees them with itself.
void CommitWorkingCopy(CProjectNode& node, CProjectNode& copy, CTime now);

} // namespace velto
