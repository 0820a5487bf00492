#pragma once
// The environment every test runs in: Berlin time and the German locale, so that local-time and
// number-format faults show up here and not at a user's desk; and where the test data lives.
#include <cstdlib>
#include <string>

namespace velto::testenv {

inline void Pin() {
    setenv("TZ", "Europe/Berlin", 1);
    setenv("LC_ALL", "de_DE.UTF-8", 1);
    setenv("QT_QPA_PLATFORM", "offscreen", 0);
}

inline std::string FromEnvOr(const char* name, const char* fallback) {
    const char* value = std::getenv(name);
    return value && *value ? value : fallback;
}

#ifdef VELTO_SHARED_DIR_DEFAULT
// The shared data folder (the RTF corpus lives there); override with $VELTO_SHARED_DIR.
inline std::string SharedDir() {
    return FromEnvOr("VELTO_SHARED_DIR", VELTO_SHARED_DIR_DEFAULT);
}
#endif

} // namespace velto::testenv
