#include "CalendarCommand.h"

#include "ExitStatus.h"
#include "ProjectCommands.h"
#include "document/ICalendar.h"
#include "document/ProjectFile.h"

#include <ostream>

namespace velto {

int RunCalendar(const std::string& path, std::ostream& out, std::ostream& err) {
    ProjectContent content;
    ReadResult result;
    const int status = LoadProject(path, content, result, err);
    if (status == kExitOk)
        out << ProjectCalendar(content.firstNode, LocalZoneName(), CTime::GetCurrentTime().GetYear());
    return status;
}

} // namespace velto
