#include "io/LoginName.h"

#include <cstdlib>
#include <pwd.h>
#include <unistd.h>
#include <vector>

namespace velto {

namespace {

std::string FromUserDatabase() {
    long size = sysconf(_SC_GETPW_R_SIZE_MAX);
    std::vector<char> buffer(size > 0 ? size_t(size) : 16384);
    passwd entry{};
    passwd* found = nullptr;
    if (getpwuid_r(geteuid(), &entry, buffer.data(), buffer.size(), &found) != 0 || !found || !found->pw_name)
        return {};
    return found->pw_name;
}

std::string FromEnvironment(const char* name) {
    const char* value = std::getenv(name);
    return value ? value : "";
}

} // namespace

std::string CurrentLoginName() {
    for (std::string name : {FromUserDatabase(), FromEnvironment("USER"), FromEnvironment("LOGNAME")})
        if (!name.empty())
            return name;
    return {};
}

} // namespace velto
