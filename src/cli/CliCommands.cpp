#include "CliCommands.h"

#include "CalendarCommand.h"
#include "ExitStatus.h"
#include "ProjectCommands.h"
#include "ReportCommands.h"
#include "RtfCommands.h"
#include "SearchCommand.h"
#include "VeltoVersion.h"

#include <string_view>

namespace velto {

namespace {

using OneFile = int (*)(const std::string& path, std::ostream& out, std::ostream& err);
using TwoFiles = int (*)(const std::string& in, const std::string& out, std::ostream& stdOut,
                         std::ostream& err);

// A command takes either one file or two.
struct Command {
    std::string_view name;
    OneFile oneFile = nullptr;
    TwoFiles twoFiles = nullptr;
};

constexpr Command kCommands[] = {
    {"info", RunInfo},
    {"dump", RunDump},
    {"build", nullptr, RunBuild},
    {"resave", nullptr, RunResave},
    {"rtf-text", RunRtfText},
    {"rtf-rewrite", RunRtfRewrite},
    {"calendar", RunCalendar},
};

constexpr std::string_view kUsage = R"(Aufruf: velto-cli BEFEHL ARGUMENTE | --help | --version
  info DATEI          kurze Übersicht über eine Projektdatei (.VT5)
  dump DATEI          die ganze Projektdatei als JSON (UTF-8) auf die Standardausgabe
  build JSON AUSGABE  aus dem JSON von dump wieder die Projektdatei
  resave EIN AUS      Projektdatei lesen und neu schreiben
  rtf-text DATEI      der reine Text einer RTF-Datei
  rtf-rewrite DATEI   eine RTF-Datei, so wie Velto sie schreibt
  search DATEI TEXT [--case]
                      die Knoten, die TEXT enthalten: Nummer, Teile (t Titel, n Notiz,
                      h Stunden, c kalkulierte, b benötigte Kosten) und Titel je Zeile;
                      --case beachtet Groß- und Kleinschreibung
  calendar DATEI      das Projekt als iCalendar-Datei (.ics) auf die Standardausgabe
  report hours|costs DATEI --from JJJJ-MM-TT --to JJJJ-MM-TT [--columns LISTE]
         [--list calculated|needed] [--contains TEXT] [--no-done] [--no-undone] [--csv]
                      Stunden- oder Kosten-Report wie "In Zwischenablage kopieren" bzw. als CSV
  --help              diese Hilfe
  --version           die Versionsnummer
Exit-Status: 0 gelungen, 1 falscher Aufruf, 2 Datei nicht lesbar oder schreibbar bzw.
JSON abgelehnt, 3 "Falsches Dateiformat!" (das Ersatzdokument mit einem Knoten wird ausgegeben).
)";

} // namespace

int RunCommandLine(const std::vector<std::string>& words, std::ostream& out, std::ostream& err) {
    if (words.size() == 1 && (words[0] == "--help" || words[0] == "-h")) {
        out << "velto-cli " << kVeltoVersion << "\n\n" << kUsage;
        return kExitOk;
    }
    if (words.size() == 1 && (words[0] == "--version" || words[0] == "-v")) {
        out << "velto-cli " << kVeltoVersion << "\n";
        return kExitOk;
    }
    if (!words.empty() && words[0] == "search" &&
        (words.size() == 3 || (words.size() == 4 && words[3] == "--case")))
        return RunSearch(words[1], words[2], words.size() == 4, out, err);
    if (!words.empty() && words[0] == "report")
        return RunReport({words.begin() + 1, words.end()}, out, err);
    for (const Command& command : kCommands) {
        if (words.empty() || words[0] != command.name)
            continue;
        if (command.oneFile && words.size() == 2)
            return command.oneFile(words[1], out, err);
        if (command.twoFiles && words.size() == 3)
            return command.twoFiles(words[1], words[2], out, err);
    }
    err << "velto-cli: falscher Aufruf\n" << kUsage;
    return kExitUsage;
}

} // namespace velto
