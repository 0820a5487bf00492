// velto-cli build's JSON reader on arbitrary bytes: it must never crash or read out of bounds, it
// must call the bytes JSON exactly when an independent JSON library does, and a project it builds
// must come back from a dump unchanged.
#include "ProjectJson.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <nlohmann/json.hpp>
#include <sstream>
#include <string_view>

using namespace velto;

namespace {

// Hands over the text in pieces whose size varies with the input, so that the window is refilled at
// every kind of boundary.
JsonPieceReader Pieces(std::string_view text) {
    const size_t piece = text.empty() ? 1 : static_cast<unsigned char>(text.back()) % 13 + 1;
    return [text, piece, at = size_t(0)](char* buffer, size_t size) mutable {
        const size_t count = std::min({size, piece, text.size() - at});
        std::memcpy(buffer, text.data() + at, count);
        at += count;
        return int64_t(count);
    };
}

bool Build(std::string_view text, ProjectContent& content, std::string& error) {
    return ProjectFromJson(Pieces(text), content, error);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    ProjectContent content;
    std::string error;
    const bool built = Build(text, content, error);
    const bool isJson = built || !error.starts_with("kein gültiges JSON");
    // The library takes a zero byte for the end of the text; here it is refused like any other
    // byte out of place.
    if (isJson != (text.find('\0') == std::string_view::npos && nlohmann::json::accept(text)))
        std::abort();
    if (!built)
        return 0;
    std::ostringstream dump;
    WriteProjectJson(content, dump);
    ProjectContent again;
    if (!Build(dump.str(), again, error))
        std::abort();
    std::ostringstream second;
    WriteProjectJson(again, second);
    if (second.str() != dump.str())
        std::abort();
    return 0;
}
