#include "text/NoteLink.h"

#include <algorithm>
#include <iterator>

namespace rtf {
namespace {

bool IsAsciiAlpha(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

bool IsSchemeChar(char c) {
    return IsAsciiAlpha(c) || (c >= '0' && c <= '9') || c == '+' || c == '-' || c == '.';
}

char AsciiLower(char c) {
    return c >= 'A' && c <= 'Z' ? char(c - 'A' + 'a') : c;
}

bool EqualsNoCase(std::string_view a, std::string_view b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](char x, char y) { return AsciiLower(x) == AsciiLower(y); });
}

bool StartsWithNoCase(std::string_view text, std::string_view prefix) {
    return text.size() >= prefix.size() && EqualsNoCase(text.substr(0, prefix.size()), prefix);
}

// The scheme at the start of target ("http" in "http://x"); empty when there is none.
std::string_view SchemeOf(std::string_view target) {
    if (target.empty() || !IsAsciiAlpha(target[0]))
        return {};
    size_t end = 1;
    while (end < target.size() && IsSchemeChar(target[end]))
        ++end;
    if (end < 2 || end + 1 >= target.size() || target[end] != ':')
        return {};
    return target.substr(0, end);
}

// Extensions that start something instead of showing it, on Windows and on Unix desktops.
constexpr std::string_view kProgramExtensions[] = {
    "exe",  "com", "bat", "cmd", "pif", "scr", "msi", "msp", "cpl", "hta",      "jar",     "lnk",
    "url",  "reg", "vbs", "vbe", "js",  "jse", "wsf", "wsh", "ps1", "psm1",     "msc",     "sh",
    "bash", "zsh", "csh", "ksh", "py",  "pl",  "rb",  "run", "bin", "appimage", "desktop", "command",
};

} // namespace

LinkKind KindOfLinkTarget(std::string_view target) {
    const std::string_view scheme = SchemeOf(target);
    if (!scheme.empty())
        return EqualsNoCase(scheme, "file") ? LinkKind::FileUrl : LinkKind::WebAddress;
    return StartsWithNoCase(target, "www.") ? LinkKind::WebAddress : LinkKind::FilePath;
}

std::string WebAddressOf(std::string_view target) {
    if (SchemeOf(target).empty() && StartsWithNoCase(target, "www."))
        return "http://" + std::string(target);
    return std::string(target);
}

bool IsProgramName(std::string_view path) {
    const size_t separator = path.find_last_of("/\\");
    const std::string_view name = separator == std::string_view::npos ? path : path.substr(separator + 1);
    const size_t dot = name.rfind('.');
    if (dot == std::string_view::npos)
        return false;
    const std::string_view extension = name.substr(dot + 1);
    return std::any_of(std::begin(kProgramExtensions), std::end(kProgramExtensions),
                       [&](std::string_view known) { return EqualsNoCase(extension, known); });
}

} // namespace rtf
