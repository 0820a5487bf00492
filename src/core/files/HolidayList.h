#pragma once
// The entries of the holiday dialog's list, kept latest first by their sort key as the list shows
// them and as the file gets them, and the texts of each list row.
#include "files/HolidayFile.h"

#include <cstddef>
#include <string>
#include <vector>

namespace velto {

// One list row, column by column; the sort key and the colour are hidden columns.
struct HolidayRow {
    std::string sortKey; // year/month/day zero-padded as "%4d/%2d/%2d": "2024/01/05"
    std::string color;   // the COLORREF in decimal
    std::string date;    // day.month.year zero-padded as "%2d.%2d.%4d": "05.01.2024"
    std::string name;
    std::string yearly; // "JA" / "NEIN"
};

HolidayRow MakeHolidayRow(const CHoliday& entry);

class HolidayList {
public:
    HolidayList() = default;
    // The entries as the file lists them; entries of one day keep their order.
    explicit HolidayList(const std::vector<CHoliday>& entries);

    // Puts the entry behind every entry whose sort key is not smaller (a later or the same day) and
    // returns its index. Loading and saving thus keep the order of entries of one day, and with it
    // which of them colours the day.
    std::size_t Add(CHoliday entry);
    // Removes the entry at index and hands it back.
    CHoliday Take(std::size_t index);

    const std::vector<CHoliday>& Entries() const { return m_entries; }

private:
    std::vector<CHoliday> m_entries;
};

} // namespace velto
