#include "RtfCommands.h"

#include "text/RtfFileCommands.h"

int RunRtfText(const std::string& path, std::ostream& out, std::ostream& err) {
    return rtf::PrintPlainText(path, out, err);
}

int RunRtfRewrite(const std::string& path, std::ostream& out, std::ostream& err) {
    return rtf::PrintRewritten(path, out, err);
}
