#include "outline/HoursReport.h"

#include <cmath>

namespace velto {

namespace {

// Hundredths of an hour as "%2.2f" rounds them: minutes × 100 / 60 never ends in exactly one half.
long Hundredths(const CHoursEntry& entry) {
    return std::lround(EntryHours(entry) * 100.0);
}

} // namespace

HoursReport::HoursReport(const CProjectNode* first, const ReportOptions& options, unsigned columns) {
    m_fields.push_back(Field::Day);
    m_columns.push_back({"Tag"});
    const auto add = [&](unsigned bit, Field field, std::string_view header) {
        if (columns & bit) {
            m_fields.push_back(field);
            m_columns.push_back({header});
        }
    };
    add(kHoursWeekday, Field::Weekday, "WT");
    add(kHoursTimes, Field::Begin, "Start");
    add(kHoursTimes, Field::End, "Ende");
    add(kHoursTask, Field::Task, "Aufgabe");
    add(kHoursAssignee, Field::Assignee, "Bearbeiter");
    add(kHoursRemark, Field::Remark, "Bemerkung");
    m_fields.push_back(Field::Hours);
    m_columns.push_back({"h", true});

    Fill(first, options, [](const CProjectNode& node) -> const CHoursList& { return node.m_pHours; });
}

std::string HoursReport::Cell(size_t row, size_t column) const {
    const Row& r = m_rows[row];
    switch (m_fields[column]) {
    case Field::Day:
        return r.entry.m_time1.Format("%d.%m.%Y");
    case Field::Weekday:
        return WeekdayAbbreviation(r.entry.m_time1);
    case Field::Begin:
        return r.entry.m_time2.Format("%H:%M");
    case Field::End:
        return r.entry.m_time3.Format("%H:%M");
    case Field::Task:
        return std::string(r.node->m_strTitle.str());
    case Field::Assignee:
        return std::string(r.entry.m_str1);
    case Field::Remark:
        return std::string(r.entry.m_str2);
    case Field::Hours:
        break;
    }
    return ReportNumber(EntryHours(r.entry));
}

std::string HoursReport::TotalText() const {
    long hundredths = 0;
    for (const Row& row : m_rows)
        hundredths += Hundredths(row.entry);
    return ReportNumber(double(hundredths) / 100.0) + " h";
}

bool ParseHoursColumns(std::string_view list, unsigned& columns) {
    static constexpr std::pair<std::string_view, unsigned> kNames[] = {{"weekday", kHoursWeekday},
                                                                       {"times", kHoursTimes},
                                                                       {"task", kHoursTask},
                                                                       {"assignee", kHoursAssignee},
                                                                       {"remark", kHoursRemark}};
    columns = 0;
    while (!list.empty()) {
        const size_t comma = list.find(',');
        const std::string_view name = list.substr(0, comma);
        list = comma == std::string_view::npos ? std::string_view() : list.substr(comma + 1);
        unsigned bit = 0;
        for (const auto& [known, value] : kNames)
            bit = name == known ? value : bit;
        if (bit == 0)
            return false;
        columns |= bit;
    }
    return true;
}

} // namespace velto
