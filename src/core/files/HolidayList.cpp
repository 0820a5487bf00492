#include "files/HolidayList.h"

#include <algorithm>
#include <cstdio>

namespace velto {

namespace {

// printf's "%<width>d" with the padding blanks turned into zeros, as the list has always shown
// dates; a negative number from a damaged file keeps its sign in the middle ("00-5").
std::string ZeroPadded(int value, int width) {
    char text[16];
    std::snprintf(text, sizeof text, "%*d", width, value);
    std::string padded = text;
    std::replace(padded.begin(), padded.end(), ' ', '0');
    return padded;
}

std::string SortKeyOf(const CHoliday& entry) {
    return ZeroPadded(entry.year, 4) + '/' + ZeroPadded(entry.month, 2) + '/' + ZeroPadded(entry.day, 2);
}

} // namespace

HolidayRow MakeHolidayRow(const CHoliday& entry) {
    return {SortKeyOf(entry), std::to_string(entry.color),
            ZeroPadded(entry.day, 2) + '.' + ZeroPadded(entry.month, 2) + '.' + ZeroPadded(entry.year, 4),
            entry.name, entry.yearly ? "JA" : "NEIN"};
}

HolidayList::HolidayList(const std::vector<CHoliday>& entries) {
    for (const CHoliday& entry : entries)
        Add(entry);
}

std::size_t HolidayList::Add(CHoliday entry) {
    const std::string key = SortKeyOf(entry);
    const auto behind = std::find_if(m_entries.begin(), m_entries.end(),
                                     [&key](const CHoliday& listed) { return SortKeyOf(listed) < key; });
    const auto inserted = m_entries.insert(behind, std::move(entry));
    return std::size_t(inserted - m_entries.begin());
}

CHoliday HolidayList::Take(std::size_t index) {
    CHoliday entry = std::move(m_entries.at(index));
    m_entries.erase(m_entries.begin() + std::ptrdiff_t(index));
    return entry;
}

} // namespace velto
