#pragma once
// "Feiertage.dat": the user's holidays and vacation days, shared by all projects. A token file:
// every value followed by a carriage return, no line feeds; blanks in names stored as "#~*".
#include "files/DataFileIo.h"

#include <string>
#include <string_view>
#include <vector>

namespace velto {

// Light green (red 220, green 255, blue 220): the colour a new entry starts with.
inline constexpr int kDefaultHolidayColor = 0xDCFFDC;

struct CHoliday {
    int day = 1;
    int month = 1;
    int year = 1970;
    int color = kDefaultHolidayColor; // COLORREF of the day column, red in the low byte
    std::string name;                 // Windows-1252; an empty name comes back from the file as one blank
    bool yearly = false;              // stored as "JA" / "NEIN"
};

// Parses the file's bytes. An entry cut short by the end of the file is dropped, as is the last
// entry of a file whose last token has no separator after it. A value that is not a number where
// one belongs ends the list there. Any yearly text but "JA" reads as not yearly.
std::vector<CHoliday> ParseHolidays(std::string_view bytes);
// The file's bytes for these entries, in the given order.
std::string FormatHolidays(const std::vector<CHoliday>& entries);

// The entries of the file, or why it cannot be read (error: -errno; the file must then not be
// overwritten). A missing file holds none.
struct HolidayFileContent {
    std::vector<CHoliday> entries;
    int error = 0;
};
HolidayFileContent ReadHolidayFile(const std::string& path, FileSystem& fs = RealFileSystem());
// The entries the chart paints: none when the file is missing or cannot be read.
std::vector<CHoliday> LoadHolidays(const std::string& path);
// Writes the file; the previous one becomes "Feiertage.bak".
SaveOutcome SaveHolidays(const std::string& path, const std::vector<CHoliday>& entries,
                         FileSystem& fs = RealFileSystem());

} // namespace velto
