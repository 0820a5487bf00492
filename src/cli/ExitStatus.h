#pragma once
// The exit statuses of velto-cli.

enum ExitStatus : int {
    kExitOk = 0,
    kExitUsage = 1,
    // A file cannot be read or written, is damaged, or the JSON for build is rejected.
    kExitFileError = 2,
    // The project opened as the one-node replacement document ("Falsches Dateiformat!").
    kExitWrongFormat = 3,
};
