#pragma once
// The id of a process that has just ended, for records of a Velto that no longer runs.
#include <cstdint>
#include <sys/wait.h>
#include <unistd.h>

namespace velto::testsupport {

inline int64_t EndedProcessId() {
    const pid_t child = fork();
    if (child == 0)
        _exit(0);
    waitpid(child, nullptr, 0);
    return child;
}

} // namespace velto::testsupport
