#include "text/RtfFileCommands.h"

#include "io/FileRead.h"
#include "text/RtfReader.h"
#include "text/RtfWriter.h"

namespace rtf {
namespace {

constexpr int kCannotRead = 2;

template <typename Transform>
int PrintTransformed(const std::string& path, std::ostream& out, std::ostream& err, Transform transform) {
    PosixFileSystem fs;
    std::string bytes;
    if (const int read = ReadWholeFile(fs, path, bytes); read < 0) {
        err << CannotReadMessage(path, read) << '\n';
        return kCannotRead;
    }
    out << transform(bytes);
    return 0;
}

} // namespace

int PrintPlainText(const std::string& path, std::ostream& out, std::ostream& err) {
    return PrintTransformed(path, out, err, [](const std::string& rtf) { return PlainText(rtf) + "\n"; });
}

int PrintRewritten(const std::string& path, std::ostream& out, std::ostream& err) {
    return PrintTransformed(path, out, err, [](const std::string& rtf) { return WriteRtf(ReadRtf(rtf)); });
}

} // namespace rtf
