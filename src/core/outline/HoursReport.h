#pragma once
// "Stunden - Report": the hours entries of the whole project in a period, with the optional
// columns the user ticks, and their total in hours.
#include "outline/Report.h"

namespace velto {

// The optional columns, as bits; the day and the hours are always shown.
enum HoursColumn : unsigned {
    kHoursWeekday = 1,  // "Wochentag"
    kHoursTimes = 2,    // "Uhrzeiten": begin and end
    kHoursTask = 4,     // "Aufgabe"
    kHoursAssignee = 8, // "Bearbeiter"
    kHoursRemark = 16,  // "Bemerkung"
};
inline constexpr unsigned kAllHoursColumns = 31;

class HoursReport : public EntryReport<CHoursEntry> {
public:
    // Walks the nodes from first in list order, and each node's entries in list order.
    HoursReport(const CProjectNode* first, const ReportOptions& options, unsigned columns);

    std::string Cell(size_t row, size_t column) const override;
    std::string TotalText() const override;

private:
    enum class Field { Day, Weekday, Begin, End, Task, Assignee, Remark, Hours };
    std::vector<Field> m_fields; // the field of each shown column
};

// "weekday,times,task,assignee,remark" or a part of it as column bits; false for an unknown name.
bool ParseHoursColumns(std::string_view list, unsigned& columns);

} // namespace velto
