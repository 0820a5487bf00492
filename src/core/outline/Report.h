#pragma once
// The rows of a report over the whole project (hours, costs): which entries a period and the
// filters let through, their column texts, the total, and the report as clipboard text and CSV.
// Rows hold the node and the entry, not texts: a report of hundreds of thousands of rows is
// filled without formatting a single date, and only the rows shown or written are formatted.
#include "model/HoursLogic.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace velto {

// What both reports filter by. Texts are Windows-1252.
struct ReportOptions {
    CalendarDay from;
    CalendarDay to;
    // Searched, ignoring case, in the task title, the assignee and the remark of each row,
    // whether their columns are shown or not; dates and numbers are not searched.
    std::string contains;
    bool done = true;   // "Erledigte Aufgaben"
    bool undone = true; // "Unerledigte Aufgaben"
};

// Whether an entry of node on the day given by dayTime passes the period and the done boxes; the
// text filter is checked separately because it needs the entry's texts.
class ReportFilter {
public:
    explicit ReportFilter(const ReportOptions& options);
    bool TakesNode(const CProjectNode& node) const;
    bool TakesDay(CTime dayTime) const { return dayTime >= m_begin && dayTime < m_end; }
    bool TakesTexts(std::string_view title, std::string_view assignee, std::string_view remark) const;

private:
    // Both ends inclusive: from local midnight of the first day to local midnight after the
    // last, which selects exactly the entries whose local day lies in the period, without
    // converting each entry's time to a calendar day.
    CTime m_begin;
    CTime m_end;
    std::string m_folded; // the filter text in lower case
    bool m_done;
    bool m_undone;
};

struct ReportColumn {
    std::string_view header;
    bool rightAligned = false;
};

class Report {
public:
    virtual ~Report() = default;
    // The shown columns, without the hidden sort key.
    const std::vector<ReportColumn>& Columns() const { return m_columns; }
    virtual size_t RowCount() const = 0;
    // The text of a shown column, Windows-1252.
    virtual std::string Cell(size_t row, size_t column) const = 0;
    // The hidden first column: the entry's day as "%Y/%m/%d".
    virtual std::string SortKey(size_t row) const = 0;
    // Takes rows out of the report (not out of the project); rows in ascending order.
    virtual void RemoveRows(const std::vector<size_t>& rows) = 0;
    // "x,xx h", "xxxxx,xx €": the sum of the rows left.
    virtual std::string TotalText() const = 0;

protected:
    std::vector<ReportColumn> m_columns;
};

// Removes the given positions (ascending) from a vector, keeping the order of the rest.
template <class T> void RemovePositions(std::vector<T>& items, const std::vector<size_t>& positions) {
    size_t next = 0;
    size_t kept = 0;
    for (size_t i = 0; i < items.size(); ++i) {
        if (next < positions.size() && positions[next] == i) {
            ++next;
            continue;
        }
        items[kept++] = items[i];
    }
    items.resize(kept);
}

// The rows of a report over one kind of entry: each the node and the entry, in the order of the
// project (node by node, each node's entries in their order).
template <class Entry> class EntryReport : public Report {
public:
    size_t RowCount() const override { return m_rows.size(); }
    std::string SortKey(size_t row) const override { return DaySortKey(DayOf(m_rows[row].entry)); }
    void RemoveRows(const std::vector<size_t>& rows) override { RemovePositions(m_rows, rows); }

protected:
    struct Row {
        const CProjectNode* node;
        Entry entry;
    };

    // Takes the entries of the list listOf(node) gives that pass the options.
    template <class ListOf>
    void Fill(const CProjectNode* first, const ReportOptions& options, ListOf listOf) {
        const ReportFilter filter(options);
        for (const CProjectNode* node = first; node; node = node->m_pNext) {
            const EntryList<Entry>& entries = listOf(*node);
            if (entries.empty() || !filter.TakesNode(*node))
                continue;
            for (const Entry entry : entries) {
                if (filter.TakesDay(DayOf(entry)) &&
                    filter.TakesTexts(node->m_strTitle.str(), entry.m_str1, entry.m_str2))
                    m_rows.push_back({node, entry});
            }
        }
    }

    std::vector<Row> m_rows;

private:
    static CTime DayOf(const CHoursEntry& entry) { return entry.m_time1; }
    static CTime DayOf(const CCostEntry& entry) { return entry.m_timeDate; }
};

// The number style of the reports: a decimal comma, and "%.2f" for ReportNumber.
std::string WithDecimalComma(std::string number);
std::string ReportNumber(double value);

// The clipboard text: the given rows (every row when none is given), each its shown columns joined
// by TAB and ended by "\n". Windows-1252.
std::string ReportClipboardText(const Report& report, const std::vector<size_t>& rows);

// A CSV field: quoted when it holds a semicolon, a quote or a line break, quotes doubled.
std::string CsvField(std::string_view text);
// Every row under a header row of the column names: UTF-8 with a byte order mark, fields
// separated by semicolons, lines ended by CRLF, numbers with a decimal comma.
std::string ReportCsv(const Report& report);

} // namespace velto
