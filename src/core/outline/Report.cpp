#include "outline/Report.h"

#include "model/Cp1252.h"
#include "model/NumberFormat.h"

#include <algorithm>
#include <cstdint>

namespace velto {

namespace {

// Lower case for the letters of Windows-1252: ASCII, the Latin-1 letters and Š, Œ, Ž, Ÿ.
unsigned char Fold(unsigned char c) {
    if ((c >= 'A' && c <= 'Z') || (c >= 0xC0 && c <= 0xDE && c != 0xD7))
        return c + 0x20;
    switch (c) {
    case 0x8A: // Š
    case 0x8C: // Œ
    case 0x8E: // Ž
        return c + 0x10;
    case 0x9F: // Ÿ
        return 0xFF;
    default:
        return c;
    }
}

std::string Folded(std::string_view text) {
    std::string folded(text);
    for (char& c : folded)
        c = char(Fold(static_cast<unsigned char>(c)));
    return folded;
}

bool ContainsFolded(std::string_view text, std::string_view folded) {
    const auto same = [](char a, char b) {
        return Fold(static_cast<unsigned char>(a)) == static_cast<unsigned char>(b);
    };
    return std::search(text.begin(), text.end(), folded.begin(), folded.end(), same) != text.end();
}

// Local midnight after day; mktime normalises the 32nd of a month and the like. Past the last
// time a CTime holds, the period is open at its end.
CTime MidnightAfter(const CalendarDay& day) {
    const CTime next = CalendarDay::Of(CTime(day.year, day.month, day.day + 1, 12, 0, 0)).At(0, 0, 0);
    return next.IsNull() ? CTime(UINT32_MAX) : next;
}

} // namespace

ReportFilter::ReportFilter(const ReportOptions& options)
    : m_begin(options.from.At(0, 0, 0)), m_end(MidnightAfter(options.to)), m_folded(Folded(options.contains)),
      m_done(options.done), m_undone(options.undone) {}

bool ReportFilter::TakesNode(const CProjectNode& node) const {
    return node.m_bDone ? m_done : m_undone;
}

bool ReportFilter::TakesTexts(std::string_view title, std::string_view assignee,
                              std::string_view remark) const {
    return m_folded.empty() || ContainsFolded(title, m_folded) || ContainsFolded(assignee, m_folded) ||
           ContainsFolded(remark, m_folded);
}

std::string WithDecimalComma(std::string number) {
    std::replace(number.begin(), number.end(), '.', ',');
    return number;
}

std::string ReportNumber(double value) {
    return WithDecimalComma(numfmt::FormatFixed2(value));
}

std::string ReportClipboardText(const Report& report, const std::vector<size_t>& rows) {
    std::string text;
    const auto append = [&](size_t row) {
        for (size_t column = 0; column < report.Columns().size(); ++column) {
            if (column > 0)
                text += '\t';
            text += report.Cell(row, column);
        }
        text += '\n';
    };
    if (rows.empty()) {
        for (size_t row = 0; row < report.RowCount(); ++row)
            append(row);
    } else {
        for (size_t row : rows)
            append(row);
    }
    return text;
}

std::string CsvField(std::string_view text) {
    if (text.find_first_of(";\"\r\n") == std::string_view::npos)
        return std::string(text);
    std::string field = "\"";
    for (char c : text) {
        if (c == '"')
            field += '"';
        field += c;
    }
    return field + '"';
}

std::string ReportCsv(const Report& report) {
    std::string csv = "\xEF\xBB\xBF";
    const auto appendLine = [&](auto&& fieldAt) {
        for (size_t column = 0; column < report.Columns().size(); ++column) {
            if (column > 0)
                csv += ';';
            csv += CsvField(cp1252::ToUtf8(fieldAt(column)));
        }
        csv += "\r\n";
    };
    appendLine([&](size_t column) { return std::string(report.Columns()[column].header); });
    for (size_t row = 0; row < report.RowCount(); ++row)
        appendLine([&](size_t column) { return report.Cell(row, column); });
    return csv;
}

} // namespace velto
