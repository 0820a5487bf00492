#include "RtfCommands.h"

#include "CliFiles.h"
#include "ExitStatus.h"
#include "text/RtfReader.h"
#include "text/RtfWriter.h"

namespace velto {

namespace {

template <typename Transform>
int PrintTransformed(const std::string& path, std::ostream& out, std::ostream& err, Transform transform) {
    std::string bytes, error;
    if (!ReadInput(path, bytes, error)) {
        err << error << '\n';
        return kExitFileError;
    }
    out << transform(bytes);
    return kExitOk;
}

} // namespace

int RunRtfText(const std::string& path, std::ostream& out, std::ostream& err) {
    return PrintTransformed(path, out, err,
                            [](const std::string& rtf) { return rtf::PlainText(rtf) + "\n"; });
}

int RunRtfRewrite(const std::string& path, std::ostream& out, std::ostream& err) {
    return PrintTransformed(path, out, err,
                            [](const std::string& rtf) { return rtf::WriteRtf(rtf::ReadRtf(rtf)); });
}

} // namespace velto
