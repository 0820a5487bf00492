#include "io/Process.h"

#include <cerrno>
#include <csignal>
#include <unistd.h>

namespace velto {

std::string ThisHostName() {
    char host[256] = {};
    return gethostname(host, sizeof host - 1) == 0 ? host : "";
}

int64_t ThisProcessId() {
    return getpid();
}

bool HasProcessEnded(const std::string& host, int64_t processId) {
    if (host.empty() || host != ThisHostName() || processId <= 0 || processId > INT32_MAX)
        return false;
    // Signal 0 only asks whether the process exists; EPERM means it does, but belongs to another user.
    return kill(pid_t(processId), 0) != 0 && errno == ESRCH;
}

} // namespace velto
