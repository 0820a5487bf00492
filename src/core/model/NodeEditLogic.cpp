#include "model/NodeEditLogic.h"

#include "model/CostLogic.h"
#include "model/NodeList.h"
#include "model/NumberFormat.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace velto {

namespace {

constexpr double kStepLimit = 9999999.0;
constexpr const char* kKindCaption = "Knoten Wandlung nicht möglich";

// Counting from floor, the fraction is in [0, 1) for negative values too.
double Whole(double value) {
    return std::floor(value);
}

float ReadFloat(const std::string& text) {
    return float(numfmt::ParseNumber(text));
}

std::optional<EditRefusal> RefuseKindChange(const CProjectNode& node, const char* kindName) {
    if (node.m_nKind != kKindProject || !HasChildren(&node))
        return std::nullopt;
    return EditRefusal{kKindCaption,
                       std::string("Umwandlung in Knotenart ") + kindName +
                           " nicht möglich, da der Projektknoten Unterknoten besitzt!",
                       true};
}

std::optional<EditRefusal> ApplyTask(CProjectNode& copy, const CProjectNode& node, const NodeEditForm& form) {
    if (auto refusal = RefuseKindChange(node, "Aufgabe"))
        return refusal;
    // Only the days count: a task that starts and ends on the same day is valid.
    const CTime start = form.startDay.At(1, 0, 0);
    const CTime due = form.dueDay.At(23, 59, 59);
    if (start > due)
        return EditRefusal{"Zeiteingaben nicht plausibel",
                           "Der Zeitpunkt 'Zu Erledigen Bis' muss nach 'Aufgabe starten' liegen!", false};
    copy.m_nKind = kKindTask;
    copy.m_timeStart = start;
    copy.m_timeDue = due;
    copy.m_bDone = form.done ? 1 : 0;
    copy.m_timeDone = form.doneStamp;
    copy.m_fHoursPlanned = ReadFloat(form.plannedText);
    copy.m_fHoursNeeded = ReadFloat(form.neededText);
    copy.m_fHourlyRate = ReadFloat(form.rateText);
    copy.m_fCostPlanned = CostTotal(copy.m_pCosts);
    copy.m_fCostNeeded = CostTotal(copy.m_pCosts2);
    return std::nullopt;
}

std::optional<EditRefusal> ApplyMilestone(CProjectNode& copy, const CProjectNode& node,
                                          const NodeEditForm& form) {
    if (auto refusal = RefuseKindChange(node, "Meilenstein"))
        return refusal;
    copy.m_timeStart = form.dueDay.At(1, 0, 0);
    copy.m_timeDue = form.dueDay.At(23, 59, 59);
    copy.m_nKind = kKindMilestone;
    return std::nullopt;
}

std::optional<EditRefusal> ApplyKind(CProjectNode& copy, const CProjectNode& node, const NodeEditForm& form) {
    switch (form.kind) {
    case kKindTask:
        return ApplyTask(copy, node, form);
    case kKindMilestone:
        return ApplyMilestone(copy, node, form);
    case kKindNote:
        if (auto refusal = RefuseKindChange(node, "Notiz"))
            return refusal;
        copy.m_nKind = kKindNote;
        return std::nullopt;
    default:
        copy.m_nKind = kKindProject;
        return std::nullopt;
    }
}

} // namespace

double StepUp(double value, double step) {
    if (!std::isfinite(value) || !(value < kStepLimit))
        return value;
    const double whole = Whole(value);
    const double fraction = value - whole;
    return whole + (std::floor(fraction / step) + 1.0) * step;
}

double StepDown(double value, double step) {
    if (!std::isfinite(value))
        return value > 0 ? value : 0.0;
    const double whole = Whole(value);
    const double fraction = value - whole;
    return std::max(0.0, whole + (std::ceil(fraction / step) - 1.0) * step);
}

int ReminderHourItem(int hour) {
    return hour <= 0 ? 23 : std::min(hour, 24) - 1;
}

int ReminderMinuteItem(int minute) {
    return std::clamp((minute + 2) / 5, 0, 11);
}

CTime ReminderTime(const CalendarDay& day, int listedHour, int listedMinute) {
    return day.At(listedHour, listedMinute, 0);
}

std::optional<EditRefusal> ApplyEditForm(CProjectNode& copy, const CProjectNode& node,
                                         const NodeEditForm& form) {
    if (auto refusal = ApplyKind(copy, node, form))
        return refusal;
    copy.m_strTitle = form.title;
    copy.m_strResponsible = form.responsible;
    return std::nullopt;
}

void CommitWorkingCopy(CProjectNode& node, CProjectNode& copy, CTime now) {
    node.m_strTitle = copy.m_strTitle;
    node.m_nKind = copy.m_nKind;
    node.m_timeStart = copy.m_timeStart;
    node.m_timeDue = copy.m_timeDue;
    node.m_bDone = copy.m_bDone;
    node.m_timeDone = copy.m_timeDone;
    node.m_fHoursPlanned = copy.m_fHoursPlanned;
    node.m_fHoursNeeded = copy.m_fHoursNeeded;
    node.m_fHourlyRate = copy.m_fHourlyRate;
    node.m_fCostPlanned = copy.m_fCostPlanned;
    node.m_fCostNeeded = copy.m_fCostNeeded;
    node.m_strFontName = copy.m_strFontName;
    node.m_crColor = copy.m_crColor;
    node.m_bItalic = copy.m_bItalic;
    node.m_bUnderline = copy.m_bUnderline;
    node.m_bBold = copy.m_bBold;
    node.m_bStrikeOut = copy.m_bStrikeOut;
    node.m_timeReminder = copy.m_timeReminder;
    node.m_strResponsible = copy.m_strResponsible;
    std::swap(node.m_pHours, copy.m_pHours);
    std::swap(node.m_pCosts, copy.m_pCosts);
    std::swap(node.m_pCosts2, copy.m_pCosts2);
    node.m_bSelected = 1;
    node.m_timeChanged = now;
}

} // namespace velto
