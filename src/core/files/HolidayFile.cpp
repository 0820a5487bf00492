#include "files/HolidayFile.h"

#include "files/TokenReader.h"

namespace velto {

namespace {

std::optional<CHoliday> ReadEntry(TokenReader& in) {
    CHoliday entry;
    const auto day = in.NextInt();
    const auto month = in.NextInt();
    const auto year = in.NextInt();
    const auto color = in.NextInt();
    const auto name = in.NextToken();
    const auto yearly = in.NextToken();
    // An entry whose reading ran into the end of the file is dropped, even when all six values
    // were there: files written here end with a separator and never lose their last entry.
    if (in.ReachedEnd() || in.Failed())
        return std::nullopt;
    entry.day = *day;
    entry.month = *month;
    entry.year = *year;
    entry.color = *color;
    entry.name = DecodeBlanks(*name);
    entry.yearly = *yearly == "JA";
    return entry;
}

void AppendToken(std::string& out, std::string_view token) {
    out += token;
    out += '\r';
}

} // namespace

std::vector<CHoliday> ParseHolidays(std::string_view bytes) {
    std::vector<CHoliday> entries;
    TokenReader in(bytes);
    // A value that is not a number used to leave the stream failed but short of its end, and the
    // reading loop never ended; here it ends the list, keeping the entries read so far.
    while (auto entry = ReadEntry(in))
        entries.push_back(std::move(*entry));
    return entries;
}

std::string FormatHolidays(const std::vector<CHoliday>& entries) {
    std::string out;
    for (const CHoliday& entry : entries) {
        AppendToken(out, std::to_string(entry.day));
        AppendToken(out, std::to_string(entry.month));
        AppendToken(out, std::to_string(entry.year));
        AppendToken(out, std::to_string(entry.color));
        AppendToken(out, EncodeBlanks(entry.name.empty() ? " " : entry.name));
        AppendToken(out, entry.yearly ? "JA" : "NEIN");
    }
    return out;
}

HolidayFileContent ReadHolidayFile(const std::string& path, FileSystem& fs) {
    const DataFileBytes read = ReadDataFile(fs, path);
    return {ParseHolidays(read.bytes), read.error};
}

std::vector<CHoliday> LoadHolidays(const std::string& path) {
    return ReadHolidayFile(path).entries;
}

SaveOutcome SaveHolidays(const std::string& path, const std::vector<CHoliday>& entries, FileSystem& fs) {
    return SaveDataFile(fs, path, FormatHolidays(entries));
}

} // namespace velto
