#include "files/DataFileIo.h"

#include <filesystem>
#include <fstream>
#include <iterator>

namespace fs = std::filesystem;

std::optional<std::string> ReadDataFile(const std::string& path) {
    std::error_code ec;
    if (!fs::is_regular_file(path, ec))
        return std::nullopt;
    std::ifstream in(path, std::ios::binary);
    if (!in)
        return std::nullopt;
    std::string bytes{std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
    if (in.bad())
        return std::nullopt;
    return bytes;
}

std::string BackupPathOf(const std::string& path) {
    return fs::path(path).replace_extension(".bak").string();
}

namespace {

bool WriteFlushed(const std::string& path, const std::string& bytes) {
    std::ofstream out(path, std::ios::binary | std::ios::trunc);
    out.write(bytes.data(), std::streamsize(bytes.size()));
    out.flush();
    out.close();
    return !out.fail();
}

} // namespace

bool SaveDataFile(const std::string& path, const std::string& bytes) {
    const std::string temporary = path + ".tmp";
    std::error_code ec;
    if (!WriteFlushed(temporary, bytes)) {
        fs::remove(temporary, ec);
        return false;
    }
    const std::string backup = BackupPathOf(path);
    fs::remove(backup, ec);
    if (fs::exists(path, ec))
        fs::rename(path, backup, ec);
    // Without its backup the previous file would be overwritten for good: keep it and give up.
    if (!ec)
        fs::rename(temporary, path, ec);
    if (ec) {
        std::error_code ignored;
        fs::remove(temporary, ignored);
        return false;
    }
    return true;
}
