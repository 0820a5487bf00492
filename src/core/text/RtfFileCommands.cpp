#include "text/RtfFileCommands.h"

#include "io/FileSystem.h"
#include "text/RtfReader.h"
#include "text/RtfWriter.h"

#include <cerrno>
#include <cstdio>
#include <memory>

namespace rtf {
namespace {

constexpr int kCannotRead = 2;

template <typename Transform>
int PrintTransformed(const std::string& path, std::ostream& out, std::ostream& err, Transform transform) {
    std::string error;
    const auto bytes = ReadWholeFile(path, error);
    if (!bytes) {
        err << "Die Datei \"" << path << "\" kann nicht gelesen werden: " << error << ".\n";
        return kCannotRead;
    }
    out << transform(*bytes);
    return 0;
}

} // namespace

std::optional<std::string> ReadWholeFile(const std::string& path, std::string& error) {
    const std::unique_ptr<FILE, int (*)(FILE*)> file(std::fopen(path.c_str(), "rb"), &std::fclose);
    if (!file) {
        error = FileErrorReason(-errno);
        return std::nullopt;
    }
    std::string bytes;
    char buffer[65536];
    size_t got;
    while ((got = std::fread(buffer, 1, sizeof buffer, file.get())) > 0)
        bytes.append(buffer, got);
    if (std::ferror(file.get())) {
        error = FileErrorReason(-errno);
        return std::nullopt;
    }
    return bytes;
}

int PrintPlainText(const std::string& path, std::ostream& out, std::ostream& err) {
    return PrintTransformed(path, out, err, [](const std::string& rtf) { return PlainText(rtf) + "\n"; });
}

int PrintRewritten(const std::string& path, std::ostream& out, std::ostream& err) {
    return PrintTransformed(path, out, err, [](const std::string& rtf) { return WriteRtf(ReadRtf(rtf)); });
}

} // namespace rtf
