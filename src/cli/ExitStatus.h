#pragma once

namespace velto {

// The exit statuses of velto-cli.

inline constexpr int kExitOk = 0;
inline constexpr int kExitUsage = 1;
// A file cannot be read or written, is damaged, or the JSON for build is rejected.
inline constexpr int kExitFileError = 2;
// The project opened as the one-node replacement document ("Falsches Dateiformat!").
inline constexpr int kExitWrongFormat = 3;

} // namespace velto
