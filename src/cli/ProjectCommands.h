#pragma once
// The project-file commands of velto-cli. Each returns the process exit status.
#include <iosfwd>
#include <string>

enum ExitStatus : int {
    kExitOk = 0,
    kExitUsage = 1,
    // A file cannot be read or written, is damaged, or the JSON for build is rejected.
    kExitFileError = 2,
    // The project opened as the one-node replacement document ("Falsches Dateiformat!").
    kExitWrongFormat = 3,
};

int RunInfo(const std::string& path, std::ostream& out, std::ostream& err);
int RunDump(const std::string& path, std::ostream& out, std::ostream& err);
int RunBuild(const std::string& jsonPath, const std::string& outPath, std::ostream& out, std::ostream& err);
int RunResave(const std::string& inPath, const std::string& outPath, std::ostream& out, std::ostream& err);
