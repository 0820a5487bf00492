// velto-cli: reads and writes project files without a display, through the same core code as the
// program. Each command lives in its own function; this only picks it.
#include "ProjectCommands.h"

#include <iostream>
#include <string>
#include <string_view>
#include <vector>

namespace {

using Arguments = std::vector<std::string>;

struct Command {
    std::string_view name;
    size_t argumentCount;
    int (*run)(const Arguments& arguments, std::ostream& out, std::ostream& err);
};

constexpr Command kCommands[] = {
    {"info", 1,
     [](const Arguments& a, std::ostream& out, std::ostream& err) { return RunInfo(a[0], out, err); }},
    {"dump", 1,
     [](const Arguments& a, std::ostream& out, std::ostream& err) { return RunDump(a[0], out, err); }},
    {"build", 2,
     [](const Arguments& a, std::ostream& out, std::ostream& err) { return RunBuild(a[0], a[1], out, err); }},
    {"resave", 2,
     [](const Arguments& a, std::ostream& out, std::ostream& err) {
         return RunResave(a[0], a[1], out, err);
     }},
};

constexpr std::string_view kUsage = R"(Aufruf: velto-cli BEFEHL ARGUMENTE
  info DATEI          kurze Übersicht über eine Projektdatei (.VT5)
  dump DATEI          die ganze Projektdatei als JSON (UTF-8) auf die Standardausgabe
  build JSON AUSGABE  aus dem JSON von dump wieder die Projektdatei
  resave EIN AUS      Projektdatei lesen und neu schreiben
  --help              diese Hilfe
Exit-Status: 0 gelungen, 1 falscher Aufruf, 2 Datei nicht lesbar oder schreibbar bzw.
JSON abgelehnt, 3 "Falsches Dateiformat!" (das Ersatzdokument mit einem Knoten wird ausgegeben).
)";

} // namespace

int main(int argc, char** argv) {
    const Arguments words(argv + 1, argv + argc);
    if (words.size() == 1 && (words[0] == "--help" || words[0] == "-h")) {
        std::cout << kUsage;
        return kExitOk;
    }
    for (const Command& command : kCommands)
        if (!words.empty() && words[0] == command.name && words.size() == command.argumentCount + 1)
            return command.run(Arguments(words.begin() + 1, words.end()), std::cout, std::cerr);
    std::cerr << "velto-cli: falscher Aufruf\n" << kUsage;
    return kExitUsage;
}
