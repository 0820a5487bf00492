#pragma once
// Which Velto wrote a record: the host it ran on and its process id, and whether it still runs.
#include <cstdint>
#include <string>

namespace velto {

// This computer's name, empty when the system does not tell.
std::string ThisHostName();
int64_t ThisProcessId();

// Whether the process that wrote a record is known to have ended: it ran on this host and no
// process of that id exists any more. A process of another host cannot be seen from here and
// counts as running, so that nothing of a live Velto is taken away from it.
bool HasProcessEnded(const std::string& host, int64_t processId);

} // namespace velto
