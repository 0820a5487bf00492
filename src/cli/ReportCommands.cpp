#include "ReportCommands.h"

#include "ExitStatus.h"
#include "ProjectCommands.h"
#include "document/ProjectFile.h"
#include "model/Cp1252.h"
#include "outline/CostReport.h"
#include "outline/HoursReport.h"

#include <charconv>
#include <memory>
#include <optional>
#include <ostream>

namespace velto {

namespace {

struct ReportRequest {
    bool hours = true;
    std::string file;
    ReportOptions options;
    bool hasFrom = false;
    bool hasTo = false;
    unsigned columns = kAllHoursColumns; // as the dialog opens
    CostList list = CostList::Calculated;
    bool csv = false;
};

int Number(std::string_view text) {
    int value = -1;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    return error == std::errc() && end == text.data() + text.size() ? value : -1;
}

// "YYYY-MM-DD" of a day a project can hold (1970 to 2105).
std::optional<CalendarDay> ParseDay(std::string_view text) {
    if (text.size() != 10 || text[4] != '-' || text[7] != '-')
        return std::nullopt;
    const CalendarDay day{Number(text.substr(0, 4)), Number(text.substr(5, 2)), Number(text.substr(8, 2))};
    if (day.year < 1970 || day.year > 2105 || day.month < 1 || day.day < 1)
        return std::nullopt;
    // mktime moves the 30th of February on; a real day comes back as it went in.
    const CTime noon = day.At(12, 0, 0);
    if (noon.IsNull() || !(CalendarDay::Of(noon) == day))
        return std::nullopt;
    return day;
}

// Takes one option and, where it has one, its value; false with a message on err when wrong.
bool TakeOption(const std::vector<std::string>& words, size_t& i, ReportRequest& request, std::ostream& err) {
    const std::string& option = words[i];
    const bool hasValue = i + 1 < words.size();
    const std::string value = hasValue ? words[i + 1] : std::string();
    const auto needsValue = [&]() {
        if (!hasValue)
            err << "velto-cli: " << option << " braucht einen Wert\n";
        i += hasValue ? 1 : 0;
        return hasValue;
    };
    if (option == "--from" || option == "--to") {
        if (!needsValue())
            return false;
        const std::optional<CalendarDay> day = ParseDay(value);
        if (!day) {
            err << "velto-cli: ungültiges Datum \"" << value << "\" (erwartet JJJJ-MM-TT)\n";
            return false;
        }
        (option == "--from" ? request.options.from : request.options.to) = *day;
        (option == "--from" ? request.hasFrom : request.hasTo) = true;
        return true;
    }
    if (option == "--columns" && request.hours) {
        if (!needsValue())
            return false;
        if (!ParseHoursColumns(value, request.columns)) {
            err << "velto-cli: unbekannte Spalte in \"" << value
                << "\" (weekday,times,task,assignee,remark)\n";
            return false;
        }
        return true;
    }
    if (option == "--list" && !request.hours) {
        if (!needsValue())
            return false;
        if (value != "calculated" && value != "needed") {
            err << "velto-cli: --list erwartet calculated oder needed\n";
            return false;
        }
        request.list = value == "calculated" ? CostList::Calculated : CostList::Needed;
        return true;
    }
    if (option == "--contains") {
        if (!needsValue())
            return false;
        const std::optional<std::string> text = cp1252::FromUtf8(value);
        if (!text) {
            err << "velto-cli: der Suchtext enthält Zeichen, die in Projektdateien nicht vorkommen können\n";
            return false;
        }
        request.options.contains = *text;
        return true;
    }
    bool* flag = option == "--no-done"     ? &request.options.done
                 : option == "--no-undone" ? &request.options.undone
                                           : nullptr;
    if (flag) {
        *flag = false;
        return true;
    }
    if (option == "--csv") {
        request.csv = true;
        return true;
    }
    err << "velto-cli: unbekannte Option " << option << '\n';
    return false;
}

bool ParseRequest(const std::vector<std::string>& words, ReportRequest& request, std::ostream& err) {
    if (words.size() < 2 || (words[0] != "hours" && words[0] != "costs")) {
        err << "velto-cli: Aufruf: report hours|costs DATEI --from JJJJ-MM-TT --to JJJJ-MM-TT [Optionen]\n";
        return false;
    }
    request.hours = words[0] == "hours";
    request.file = words[1];
    for (size_t i = 2; i < words.size(); ++i)
        if (!TakeOption(words, i, request, err))
            return false;
    if (!request.hasFrom || !request.hasTo) {
        err << "velto-cli: report braucht --from und --to\n";
        return false;
    }
    return true;
}

} // namespace

int RunReport(const std::vector<std::string>& words, std::ostream& out, std::ostream& err) {
    ReportRequest request;
    if (!ParseRequest(words, request, err))
        return kExitUsage;
    ProjectContent content;
    ReadResult result;
    if (LoadProject(request.file, content, result, err) != kExitOk)
        return kExitFileError;
    std::unique_ptr<Report> report;
    if (request.hours)
        report = std::make_unique<HoursReport>(content.firstNode, request.options, request.columns);
    else
        report = std::make_unique<CostReport>(content.firstNode, request.options, request.list);
    out << (request.csv ? ReportCsv(*report) : cp1252::ToUtf8(ReportClipboardText(*report, {})));
    return kExitOk;
}

} // namespace velto
